#include <QtCore/QJsonArray>

#include <cli/CommandLine.h>
#include <cli/Failure.h>
#include <cli/Output.h>
#include <cli/SafeText.h>
#include <command/Command.h>
#include <document/FormReading.h>
#include <document/WrittenForm.h>
#include <tree/MadeParameter.h>

namespace {

void report(const FormReading& reading, bool written, bool asJson, Output& output)
{
    if (asJson) {
        QJsonArray conversion;
        for (const ConversionStep& step : reading.conversion)
            conversion.append(step.toJson());
        QJsonArray findings;
        for (const Finding& finding : reading.findings)
            findings.append(finding.toJson());
        output.printJson({{"from", reading.version},
                          {"to", reading.parameter->getVersion()},
                          {"conversion", conversion},
                          {"findings", findings},
                          {"written", written}});
        return;
    }
    output.print(QStringLiteral("Version %1 -> %2").arg(reading.version).arg(reading.parameter->getVersion()));
    for (const ConversionStep& step : reading.conversion)
        output.print(QStringLiteral("  ") + step.toString());
}

} // namespace

ExitCode runMigrate(const QStringList& arguments, Output& output)
{
    CommandLine line("migrate",
                     "Writes a stored form in the present version of its class, and prints what was converted.");
    line.addNote("Where the class does not take something over as it stands, that is told, nothing is written, and\n"
                 "the code is 1; with --force it is written all the same.");
    line.addRequiredOption(CommandLine::asOption());
    line.addOption(CommandLine::projectOption());
    line.addArgument("FILE", "the document, or - for the standard input");
    line.addRequiredOption(CommandLine::outOption());
    line.addOption(CommandLine::forceOption());
    line.addOption(CommandLine::jsonOption());
    line.setExitCodes({ExitCode::Findings, ExitCode::InputFailed, ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const ClassRegistry::Row& row = requireClass(line.getValue("as"));
    const ProjectContext context(line.getValue("project"));
    const FormReading reading = readFormToUse(readDocument(line.getArgument(0)), row, context, output);
    const bool write = reading.findings.isEmpty() || line.isSet("force");
    if (write)
        writeFile(line.getValue("output"), createBytes(*reading.parameter, reading.isTask));
    else
        output.printMessage("Nothing was written; --force does.");
    report(reading, write, line.isSet("json"), output);
    return reading.findings.isEmpty() ? ExitCode::Ok : ExitCode::Findings;
}
