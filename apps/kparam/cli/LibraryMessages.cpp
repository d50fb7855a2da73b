#include <cli/LibraryMessages.h>

#include <cli/Output.h>

namespace {

Output* logOutput = nullptr;

void printLog(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (logOutput)
        logOutput->printMessage(text);
}

} // namespace

LibraryMessages::LibraryMessages(Output& output) : _output(output), _former(MbbDebug::setSink(this))
{
    logOutput = &output;
    qInstallMessageHandler(printLog);
}

LibraryMessages::~LibraryMessages()
{
    qInstallMessageHandler(nullptr);
    logOutput = nullptr;
    MbbDebug::setSink(_former);
}

void LibraryMessages::warning(const QString& text, Qt::TextFormat)
{
    _output.printMessage(text);
}

void LibraryMessages::error(const QString& text, Qt::TextFormat)
{
    _output.printMessage(text);
}

void LibraryMessages::information(const QString& text, Qt::TextFormat)
{
    _output.printMessage(text);
}
