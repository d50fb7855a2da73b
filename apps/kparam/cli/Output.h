#pragma once

#include <QtCore/QFile>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

/// What a command prints, in UTF-8 whatever the locale. Results go to the standard output, messages to the standard
/// error.
class Output
{
public:
    Output();

    /// Prints lines that are safe already.
    void print(const QString& text);
    void printBytes(const QByteArray& bytes);
    void printJson(const QJsonObject& object);
    /// A message for people, made safe here.
    void printMessage(const QString& message);
    /// Gives whether all that was printed has arrived.
    bool flush();

private:
    QFile _out;
    QFile _err;
    bool _complete = true;
};
