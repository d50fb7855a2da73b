#include <QtCore/QCoreApplication>
#include <QtCore/QTextCodec>

#include <basic/MbeError.h>
#include <cli/CommandLine.h>
#include <cli/Failure.h>
#include <cli/LibraryMessages.h>
#include <cli/Output.h>
#include <cli/SafeText.h>
#include <command/Command.h>

#include <new>

namespace {

QString overview()
{
    QString text = QStringLiteral("Usage: kparam COMMAND [ARGUMENT...] [OPTION...]\n\n"
                                  "Shows, checks, changes, migrates and stores forms of parameters.\n\nCommands:\n");
    for (const Command& command : getCommands())
        text += QStringLiteral("  %1  %2\n").arg(QString::fromLatin1(command.name).leftJustified(8), command.summary);
    text +=
        QStringLiteral("\nOptions:\n  -h, --help     prints this help, or that of a command: kparam COMMAND --help\n"
                       "  -v, --version  prints the version\n");
    text += CommandLine::getCodesText({ExitCode::Findings, ExitCode::InputFailed, ExitCode::StoreFailed});
    return text + QStringLiteral("\nResults go to the standard output, messages to the standard error. 'kparam demo' "
                                 "shows it at work.\n");
}

ExitCode runCommand(const QStringList& arguments, Output& output)
{
    const QString word = arguments.value(0);
    for (const Command& command : getCommands()) {
        if (word == QLatin1String(command.name))
            return command.run(arguments.mid(1), output);
    }
    if (word == QLatin1String("--help") || word == QLatin1String("-h") || word == QLatin1String("help")) {
        output.printBytes(overview().toUtf8());
        return ExitCode::Ok;
    }
    if (word == QLatin1String("--version") || word == QLatin1String("-v")) {
        output.print(QStringLiteral("kparam ") + QCoreApplication::applicationVersion());
        return ExitCode::Ok;
    }
    throw Failure(ExitCode::Usage,
                  arguments.isEmpty()
                      ? QStringLiteral("A command is missing. See 'kparam --help'.")
                      : QStringLiteral("There is no command %1. See 'kparam --help'.").arg(SafeText::quoted(word)));
}

/// Whoever reads JSON gets the failure as JSON, too.
void report(const Failure& failure, bool asJson, Output& output)
{
    output.printMessage(failure.getText());
    if (!asJson)
        return;
    QJsonObject error{{"code", int(failure.getCode())}, {"message", failure.getMessage()}};
    if (!failure.getFile().isEmpty())
        error.insert("file", failure.getFile());
    if (failure.getLine() > 0) {
        error.insert("line", failure.getLine());
        error.insert("column", failure.getColumn());
    }
    output.printJson({{"error", error}});
}

bool wantsJson(const QStringList& arguments)
{
    const int format = arguments.indexOf("--format");
    return arguments.contains("--json") || arguments.contains("--format=json") ||
           (format >= 0 && arguments.value(format + 1) == QLatin1String("json"));
}

ExitCode run(const QStringList& arguments, Output& output)
{
    const auto fail = [&](const Failure& failure) {
        report(failure, wantsJson(arguments), output);
        return failure.getCode();
    };
    try {
        return runCommand(arguments, output);
    }
    catch (const Failure& failure) {
        return fail(failure);
    }
    catch (const MbeException& exception) {
        return fail(Failure(ExitCode::Internal, exception.getMessage()));
    }
    catch (const std::bad_alloc&) {
        return fail(Failure(ExitCode::Internal, "There is not enough memory."));
    }
    catch (const std::exception& exception) {
        return fail(Failure(ExitCode::Internal, QString::fromLocal8Bit(exception.what())));
    }
}

} // namespace

int main(int argc, char** argv)
{
    // Arguments and file names are bytes, which only UTF-8 keeps in all locales.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("kparam");
    QCoreApplication::setApplicationVersion(KPARAM_VERSION);
    Output output;
    const LibraryMessages messages(output);
    const ExitCode code = run(QCoreApplication::arguments().mid(1), output);
    if (output.flush())
        return int(code);
    output.printMessage("The standard output cannot be written.");
    return int(ExitCode::OutputFailed);
}
