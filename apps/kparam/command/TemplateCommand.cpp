#include <cli/CommandLine.h>
#include <cli/Output.h>
#include <command/Command.h>
#include <document/WrittenForm.h>
#include <tree/MadeParameter.h>

ExitCode runTemplate(const QStringList& arguments, Output& output)
{
    CommandLine line("template", "Prints the stored form of a class as built, to be filled in.");
    line.addArgument("CLASS", "the name of the class; see 'kparam classes'");
    line.addOption({"key", "the key of the parameter, else the name of the class", "KEY"});
    line.addOption({"param", "prints a fiche as a param and not as a task"});
    line.addOption(CommandLine::outOption());
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const ClassRegistry::Row& row = requireClass(line.getArgument(0));
    const auto parameter = makeParameter(row, line.getValue("key"));
    const QByteArray bytes = createBytes(*parameter, row.isFiche && !line.isSet("param"));
    if (line.isSet("output"))
        writeFile(line.getValue("output"), bytes);
    else
        output.printBytes(bytes);
    return ExitCode::Ok;
}
