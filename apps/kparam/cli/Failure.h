#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cli/ExitCode.h>

#include <exception>

/// What ends a command before it has done its work. Nothing has been written then. The texts are as the user gave them;
/// whoever prints them makes them safe.
class Failure : public std::exception
{
public:
    Failure(ExitCode code, const QString& message);
    /// A failure at a place of a file, both counted from 1; 0 where the place is not known.
    Failure(ExitCode code, const QString& message, const QString& file, qint64 line = 0, qint64 column = 0);

    ExitCode getCode() const { return _code; }
    const QString& getMessage() const { return _message; }
    const QString& getFile() const { return _file; }
    qint64 getLine() const { return _line; }
    qint64 getColumn() const { return _column; }
    /// The message behind file and place, as compilers print them.
    QString getText() const;
    const char* what() const noexcept override { return _utf8.constData(); }

private:
    ExitCode _code;
    QString _message;
    QString _file;
    qint64 _line = 0;
    qint64 _column = 0;
    QByteArray _utf8;
};
