#include <cli/CommandLine.h>
#include <cli/Output.h>
#include <command/Command.h>
#include <command/TreeOutput.h>
#include <document/FormReading.h>
#include <tree/MadeParameter.h>

ExitCode runShow(const QStringList& arguments, Output& output)
{
    CommandLine line("show", "Shows a stored form as the class reads it. What the class does not take over as it\n"
                             "stands is told on the standard error.");
    line.addRequiredOption(CommandLine::asOption());
    line.addOption(CommandLine::projectOption());
    line.addArgument("FILE", "the document, or - for the standard input");
    addTreeFormatOptions(line, "tree");
    line.setExitCodes({ExitCode::Findings, ExitCode::InputFailed, ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const TreeFormat format = getTreeFormat(line);
    const ClassRegistry::Row& row = requireClass(line.getValue("as"));
    const ProjectContext context(line.getValue("project"));
    const FormReading reading = readFormToUse(readDocument(line.getArgument(0)), row, context, output);
    printTree(*reading.parameter, format, {{"class", row.name}, {"file", line.getArgument(0)}}, output);
    return reading.findings.isEmpty() ? ExitCode::Ok : ExitCode::Findings;
}
