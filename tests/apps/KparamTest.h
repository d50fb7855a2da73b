#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>

/// What one run of the tool left behind.
struct KparamRun
{
    int code = -1; ///< -1 if the tool crashed or did not end
    QString out;
    QString err;

    /// The standard output as JSON; a test failure if it is none.
    QJsonObject json() const;
    /// The last line of the standard output; empty if it is not ended.
    QString lastLine() const;
};

/// Runs the tool in a folder of its own.
class KparamTest : public testing::Test
{
protected:
    KparamRun run(const QStringList& arguments, const QByteArray& input = {}) const;
    /// With the standard output going to a file.
    KparamRun runInto(const QString& outputFile, const QStringList& arguments) const;

    /// Writes a file into the folder and gives its name.
    QString file(const QString& name, const QByteArray& bytes) const;
    QByteArray read(const QString& name) const;
    bool exists(const QString& name) const;
    QString path(const QString& name) const { return _folder.filePath(name); }
    /// The names of all files in the folder.
    QStringList files() const;
    /// A document of samples/stored.
    static QString sample(const QString& name);

private:
    QTemporaryDir _folder;
};
