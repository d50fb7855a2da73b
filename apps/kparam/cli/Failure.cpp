#include <cli/Failure.h>

#include <cli/SafeText.h>

Failure::Failure(ExitCode code, const QString& message) : Failure(code, message, QString()) {}

Failure::Failure(ExitCode code, const QString& message, const QString& file, qint64 line, qint64 column)
    : _code(code),
      _message(message),
      _file(file),
      _line(line),
      _column(column),
      _utf8(getText().toUtf8())
{}

QString Failure::getText() const
{
    if (_file.isEmpty())
        return _message;
    const QString place = _line > 0 ? QStringLiteral(":%1:%2").arg(_line).arg(_column) : QString();
    return SafeText::inLine(_file) + place + QStringLiteral(": ") + _message;
}
