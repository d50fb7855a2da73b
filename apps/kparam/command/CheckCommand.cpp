#include <QtCore/QJsonArray>

#include <cli/CommandLine.h>
#include <cli/Output.h>
#include <cli/SafeText.h>
#include <command/Command.h>
#include <document/FormReading.h>
#include <document/FormRewriting.h>
#include <tree/MadeParameter.h>

namespace {

struct Check
{
    QString file;
    QString className;
    const FormReading& reading;
    FormRewriting rewriting;
};

void printText(const Check& check, Output& output)
{
    const FormReading& reading = check.reading;
    for (const Finding& finding : reading.findings)
        output.print(finding.toString(check.file));
    for (const ConversionStep& step : reading.conversion)
        output.print(QStringLiteral("%1: converted: %2").arg(SafeText::inLine(check.file), step.toString()));
    for (const QString& path : reading.absent)
        output.print(
            QStringLiteral("%1: absent: %2 stays as built").arg(SafeText::inLine(check.file), SafeText::inLine(path)));
    for (const QString& message : reading.messages)
        output.print(QStringLiteral("%1: message: %2").arg(SafeText::inLine(check.file), SafeText::inLine(message)));
    output.print(QStringLiteral("%1: %2 of version %3 (present %4), %5 finding(s)")
                     .arg(SafeText::inLine(check.file), check.className)
                     .arg(reading.version)
                     .arg(reading.parameter->getVersion())
                     .arg(reading.findings.size()));
    output.print(QStringLiteral("%1: %2").arg(SafeText::inLine(check.file), check.rewriting.toString()));
}

void printJson(const Check& check, Output& output)
{
    const FormReading& reading = check.reading;
    QJsonArray findings;
    for (const Finding& finding : reading.findings)
        findings.append(finding.toJson());
    QJsonArray conversion;
    for (const ConversionStep& step : reading.conversion)
        conversion.append(step.toJson());
    output.printJson({{"file", check.file},
                      {"class", check.className},
                      {"version", reading.version},
                      {"presentVersion", reading.parameter->getVersion()},
                      {"findings", findings},
                      {"conversion", conversion},
                      {"absent", QJsonArray::fromStringList(reading.absent)},
                      {"messages", QJsonArray::fromStringList(reading.messages)},
                      {"rewriting", check.rewriting.toJson()}});
}

} // namespace

ExitCode runCheck(const QStringList& arguments, Output& output)
{
    CommandLine line("check",
                     "Reads a stored form and reports each element that was unknown, refused, repaired, too new,\n"
                     "ignored or repeated, and whether writing the form again gives the same.");
    line.addNote("The code is 1 where there are findings, or where the form would be written otherwise. A form of an\n"
                 "older version, and one that lacks parameters, is written otherwise.");
    line.addRequiredOption(CommandLine::asOption());
    line.addOption(CommandLine::projectOption());
    line.addArgument("FILE", "the document, or - for the standard input");
    line.addOption(CommandLine::jsonOption());
    line.setExitCodes({ExitCode::Findings, ExitCode::InputFailed, ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const ClassRegistry::Row& row = requireClass(line.getValue("as"));
    const InputDocument input = readDocument(line.getArgument(0));
    const QByteArray former = FormRewriting::canonicalText(input);
    const ProjectContext context(line.getValue("project"));
    const FormReading reading = readForm(input, row, context);
    const Check check{input.name, row.name, reading, FormRewriting(input.bytes, former, reading)};
    line.isSet("json") ? printJson(check, output) : printText(check, output);
    return reading.findings.isEmpty() && check.rewriting.isSame() ? ExitCode::Ok : ExitCode::Findings;
}
