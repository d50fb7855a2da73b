#include <gtest/gtest.h>

#include <basic/MbbDebug.h>

#include <QtCore/QStringList>

namespace {
/// Everything that reaches a sink, as kind, format and text.
class Recorder : public MbbDebug::Sink
{
public:
    void warning(const QString& text, Qt::TextFormat format) override { _add("warning", text, format); }
    void error(const QString& text, Qt::TextFormat format) override { _add("error", text, format); }
    void information(const QString& text, Qt::TextFormat format) override { _add("information", text, format); }

    QStringList messages;

private:
    void _add(const char* kind, const QString& text, Qt::TextFormat format)
    {
        messages << QStringLiteral("%1 %2 %3").arg(QLatin1String(kind)).arg(int(format)).arg(text);
    }
};

/// A sink that leaves information to the base.
class Bare : public MbbDebug::Sink
{
public:
    void warning(const QString&, Qt::TextFormat) override {}
    void error(const QString&, Qt::TextFormat) override {}
};

class UseSink
{
public:
    explicit UseSink(MbbDebug::Sink* sink) : _former(MbbDebug::setSink(sink)) {}
    ~UseSink() { MbbDebug::setSink(_former); }
    UseSink(const UseSink&) = delete;
    UseSink& operator=(const UseSink&) = delete;

private:
    MbbDebug::Sink* _former;
};

QStringList logged;

class CaptureLog
{
public:
    CaptureLog() : _former(qInstallMessageHandler(&CaptureLog::_take)) { logged.clear(); }
    ~CaptureLog() { qInstallMessageHandler(_former); }
    CaptureLog(const CaptureLog&) = delete;
    CaptureLog& operator=(const CaptureLog&) = delete;

private:
    static void _take(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        logged << QStringLiteral("%1 %2").arg(int(type)).arg(text);
    }
    QtMessageHandler _former;
};
} // namespace

TEST(MbbDebug, SendsWarningsAndErrorsToTheSinkInTheirFormat)
{
    Recorder recorder;
    const UseSink use(&recorder);
    MbbDebug::printWarning("w", Qt::RichText);
    MbbDebug::printWarning("w");
    MbbDebug::printError("e", Qt::AutoText);
    MbbDebug::printError("e");
    EXPECT_EQ(recorder.messages, QStringList({"warning 1 w", "warning 0 w", "error 2 e", "error 0 e"}));
}

TEST(MbbDebug, PrintsAsAMessageThroughTheSink)
{
    Recorder recorder;
    const UseSink use(&recorder);
    MbbDebug debug;
    MbbAMessage& message = debug;
    message.print("plain \"text\"");
    message.printHtml("<b>rich</b>");
    EXPECT_EQ(recorder.messages, QStringList({"information 0 plain \"text\"", "information 1 <b>rich</b>"}));
}

TEST(MbbDebug, WritesToTheLogWithoutASink)
{
    const UseSink use(nullptr);
    const CaptureLog capture;
    MbbDebug::printWarning("the \"w\"");
    MbbDebug::printError("the \"e\"");
    MbbDebug().print("the \"i\"");
    MbbDebug().printHtml("<i>");
    EXPECT_EQ(logged, QStringList({QStringLiteral("%1 the \"w\"").arg(int(QtWarningMsg)),
                                   QStringLiteral("%1 the \"e\"").arg(int(QtCriticalMsg)),
                                   QStringLiteral("%1 the \"i\"").arg(int(QtInfoMsg)),
                                   QStringLiteral("%1 <i>").arg(int(QtInfoMsg))}));
}

TEST(MbbDebug, WritesInformationToTheLogForASinkThatDoesNotTakeIt)
{
    Bare bare;
    const UseSink use(&bare);
    const CaptureLog capture;
    MbbDebug().print("i");
    EXPECT_EQ(logged, QStringList(QStringLiteral("%1 i").arg(int(QtInfoMsg))));
}

TEST(MbbDebug, GivesTheFormerSink)
{
    Recorder first;
    Recorder second;
    MbbDebug::Sink* const before = MbbDebug::setSink(&first);
    EXPECT_EQ(MbbDebug::setSink(&second), &first);
    EXPECT_EQ(MbbDebug::setSink(before), &second);
}
