#pragma once

#include <QtCore/QString>
#include <QtCore/Qt>

#include <basic/MbbAMessage.h>

/// Where the libraries of the suite send their warnings, errors and debugging messages. The default writes to Qt's
/// logging (`qWarning`, `qCritical`, `qInfo`); a program or a test puts a sink of its own in its place. An object of
/// the class prints through the same sink, as information.
class KESTRIN_BASIC_EXPORT MbbDebug : public MbbAMessage
{
public:
    class KESTRIN_BASIC_EXPORT Sink
    {
    public:
        virtual ~Sink();
        virtual void warning(const QString& text, Qt::TextFormat format) = 0;
        virtual void error(const QString& text, Qt::TextFormat format) = 0;
        /// Writes to Qt's logging unless a sink does something else with it.
        virtual void information(const QString& text, Qt::TextFormat format);
    };

    MbbDebug() = default;
    ~MbbDebug() override;

    void print(const QString& text) override;
    void printHtml(const QString& text) override;

    static void printWarning(const QString& text, Qt::TextFormat format = Qt::PlainText);
    static void printError(const QString& text, Qt::TextFormat format = Qt::PlainText);

    /// Sends what follows to `sink`, which stays the caller's; null brings back Qt's logging. Gives the former sink.
    /// The setting is one for the whole process.
    static Sink* setSink(Sink* sink);
};
