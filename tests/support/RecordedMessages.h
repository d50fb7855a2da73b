#pragma once

#include <QtCore/QStringList>

#include <basic/MbbDebug.h>

/// Keeps what the libraries print while it lives, and keeps it away from the log.
class RecordedMessages : public MbbDebug::Sink
{
public:
    RecordedMessages() : _former(MbbDebug::setSink(this)) {}
    ~RecordedMessages() override { MbbDebug::setSink(_former); }
    RecordedMessages(const RecordedMessages&) = delete;
    RecordedMessages& operator=(const RecordedMessages&) = delete;

    void warning(const QString& text, Qt::TextFormat) override { warnings.append(text); }
    void error(const QString& text, Qt::TextFormat) override { errors.append(text); }
    void information(const QString& text, Qt::TextFormat format) override
    {
        (format == Qt::RichText ? richInformation : plainInformation).append(text);
    }

    QStringList warnings;
    QStringList errors;
    QStringList plainInformation;
    QStringList richInformation;

private:
    MbbDebug::Sink* _former;
};
