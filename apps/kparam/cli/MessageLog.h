#pragma once

#include <QtCore/QStringList>

#include <basic/MbbDebug.h>

/// Keeps what the libraries print, in order, while it lives.
class MessageLog : public MbbDebug::Sink
{
public:
    MessageLog() : _former(MbbDebug::setSink(this)) {}
    ~MessageLog() override { MbbDebug::setSink(_former); }
    MessageLog(const MessageLog&) = delete;
    MessageLog& operator=(const MessageLog&) = delete;

    void warning(const QString& text, Qt::TextFormat) override { _messages.append(text); }
    void error(const QString& text, Qt::TextFormat) override { _messages.append(text); }
    void information(const QString& text, Qt::TextFormat) override { _messages.append(text); }

    const QStringList& getMessages() const { return _messages; }

private:
    MbbDebug::Sink* _former;
    QStringList _messages;
};
