#include <apps/KparamTest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QProcess>

namespace {

KparamRun finish(QProcess& process, const QByteArray& input)
{
    process.start();
    process.write(input);
    process.closeWriteChannel();
    const bool ended = process.waitForFinished(120'000) && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

void prepare(QProcess& process, const QString& folder, const QStringList& arguments)
{
    process.setWorkingDirectory(folder);
    process.setProgram(QStringLiteral(KPARAM_PATH));
    process.setArguments(arguments);
}

} // namespace

QJsonObject KparamRun::json() const
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(out.toUtf8(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << out.toStdString();
    EXPECT_TRUE(document.isObject()) << out.toStdString();
    return document.object();
}

QString KparamRun::lastLine() const
{
    return out.endsWith('\n') ? out.chopped(1).section('\n', -1) : QString();
}

KparamRun KparamTest::run(const QStringList& arguments, const QByteArray& input) const
{
    QProcess process;
    prepare(process, _folder.path(), arguments);
    return finish(process, input);
}

KparamRun KparamTest::runInto(const QString& outputFile, const QStringList& arguments) const
{
    QProcess process;
    prepare(process, _folder.path(), arguments);
    process.setStandardOutputFile(outputFile);
    return finish(process, {});
}

QString KparamTest::file(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes), bytes.size());
    return name;
}

QByteArray KparamTest::read(const QString& name) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

bool KparamTest::exists(const QString& name) const
{
    return QFile::exists(path(name));
}

QStringList KparamTest::files() const
{
    return QDir(_folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

QString KparamTest::sample(const QString& name)
{
    return QStringLiteral(KESTRIN_SOURCE_DIR "/samples/stored/") + name;
}
