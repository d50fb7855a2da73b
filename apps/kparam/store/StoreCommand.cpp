#include <store/StoreCommand.h>

#include <basic/MbeError.h>
#include <cli/CommandLine.h>
#include <cli/Failure.h>
#include <cli/Output.h>
#include <cli/SafeText.h>
#include <command/Command.h>

namespace {

bool asksForHelp(const QString& word)
{
    return word == QLatin1String("--help") || word == QLatin1String("-h");
}

const StoreCommand* findCommand(const QString& word)
{
    for (const StoreCommand& command : getStoreCommands()) {
        if (word == QLatin1String(command.name))
            return &command;
    }
    return nullptr;
}

ExitCode printOverview(Output& output)
{
    QString text = QStringLiteral("Usage: kparam store STORE COMMAND [ARGUMENT...] [OPTION...]\n\n"
                                  "Works on the forms in a store, which is one file.\n\nCommands:\n");
    for (const StoreCommand& command : getStoreCommands())
        text += QStringLiteral("  %1  %2\n").arg(QString::fromLatin1(command.name).leftJustified(8), command.summary);
    text += QStringLiteral("\nOptions:\n  -h, --help  prints this help, or that of a command: "
                           "kparam store STORE COMMAND --help\n");
    text += CommandLine::getCodesText({ExitCode::Findings, ExitCode::InputFailed, ExitCode::StoreFailed});
    output.printBytes(text.toUtf8());
    return ExitCode::Ok;
}

[[noreturn]] void fail(const QString& message)
{
    throw Failure(ExitCode::Usage, message + QStringLiteral(" See 'kparam store --help'."));
}

} // namespace

const std::vector<StoreCommand>& getStoreCommands()
{
    static const std::vector<StoreCommand> commands = {
        {"list", "lists the forms, or those that had to leave their place", runStoreList},
        {"show", "prints a form", runStoreShow},
        {"put", "puts a document into the store", runStorePut},
        {"copy", "copies a form to another identifier or key", runStoreCopy},
        {"move-url", "replaces the beginning of locations in all forms", runStoreMoveUrl},
        {"export", "writes all forms into one file", runStoreExport},
        {"import", "takes the forms of such a file", runStoreImport},
        {"restore", "puts back a form that had to leave its place", runStoreRestore},
    };
    return commands;
}

ExitCode runStore(const QStringList& arguments, Output& output)
{
    if (arguments.isEmpty())
        fail("STORE is missing.");
    const QString word = arguments.value(1);
    if (asksForHelp(arguments[0]) || (asksForHelp(word) && !findCommand(arguments[0])))
        return printOverview(output);
    if (asksForHelp(word))
        return findCommand(arguments[0])->run(QString(), {word}, output);
    if (arguments.size() < 2)
        fail("COMMAND is missing.");
    const StoreCommand* command = findCommand(word);
    if (!command)
        fail(QStringLiteral("There is no command %1 for stores.").arg(SafeText::quoted(word)));
    try {
        return command->run(arguments[0], arguments.mid(2), output);
    }
    catch (const MbeError& error) {
        throw Failure(ExitCode::StoreFailed, error.getMessage());
    }
}
