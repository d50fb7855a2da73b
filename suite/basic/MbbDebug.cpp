#include <basic/MbbDebug.h>
#include <basic/MbbIDebuggable.h>

#include <QtCore/QDebug>

#include <atomic>

namespace {
std::atomic<MbbDebug::Sink*> currentSink{nullptr};

void logInformation(const QString& text)
{
    qInfo().noquote() << text;
}

void printInformation(const QString& text, Qt::TextFormat format)
{
    if (MbbDebug::Sink* sink = currentSink.load())
        sink->information(text, format);
    else
        logInformation(text);
}
} // namespace

MbbIDebuggable::~MbbIDebuggable() = default;
MbbAMessage::~MbbAMessage() = default;
MbbDebug::~MbbDebug() = default;
MbbDebug::Sink::~Sink() = default;

void MbbDebug::Sink::information(const QString& text, Qt::TextFormat)
{
    logInformation(text);
}

void MbbDebug::print(const QString& text)
{
    printInformation(text, Qt::PlainText);
}

void MbbDebug::printHtml(const QString& text)
{
    printInformation(text, Qt::RichText);
}

void MbbDebug::printWarning(const QString& text, Qt::TextFormat format)
{
    if (Sink* sink = currentSink.load())
        sink->warning(text, format);
    else
        qWarning().noquote() << text;
}

void MbbDebug::printError(const QString& text, Qt::TextFormat format)
{
    if (Sink* sink = currentSink.load())
        sink->error(text, format);
    else
        qCritical().noquote() << text;
}

MbbDebug::Sink* MbbDebug::setSink(Sink* sink)
{
    return currentSink.exchange(sink);
}
