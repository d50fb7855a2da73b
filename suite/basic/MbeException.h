#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/Qt>

#include <basic/BasicExport.h>

#include <exception>

/// Base of the exception family of the suite: a message for people and the format that the message is written in.
class KESTRIN_BASIC_EXPORT MbeException : public std::exception
{
public:
    explicit MbeException(const QString& message, Qt::TextFormat format = Qt::PlainText);
    MbeException(const MbeException&) = default;
    MbeException& operator=(const MbeException&) = default;
    ~MbeException() override;

    const QString& getMessage() const { return _message; }
    Qt::TextFormat getFormat() const { return _format; }
    /// The message in UTF-8, valid as long as the exception.
    const char* what() const noexcept override { return _utf8.constData(); }

private:
    QString _message;
    QByteArray _utf8;
    Qt::TextFormat _format;
};
