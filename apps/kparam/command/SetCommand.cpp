#include <QtCore/QJsonArray>

#include <cli/CommandLine.h>
#include <cli/Output.h>
#include <cli/SafeText.h>
#include <command/Command.h>
#include <document/FormReading.h>
#include <document/WrittenForm.h>
#include <tree/Assignment.h>
#include <tree/MadeParameter.h>
#include <tree/RecordListener.h>

namespace {

using Records = QVector<QVector<RecordEntry>>;

/// One assignment, with the records that reached an observer of the root meanwhile.
struct Change
{
    Assignment assignment;
    ValueReading reading;
    QString stored;
    Records records;

    bool isAsAsked() const { return reading == ValueReading::Same || reading == ValueReading::Respelled; }
};

Change apply(const Assignment& assignment, KpbAParameter& root)
{
    Change change{assignment, ValueReading::Same, QString(), {}};
    const RecordListener listener(root, [&](const QVector<RecordEntry>& record) { change.records.append(record); });
    change.reading = assignment.apply();
    change.stored = assignment.getStoredText();
    return change;
}

void printText(const Change& change, Output& output)
{
    output.print(SafeText::inLine(change.assignment.path) + QStringLiteral(" = ") + SafeText::inLine(change.stored));
    for (const auto& record : change.records)
        output.print(QStringLiteral("  record: ") + SafeText::inLine(recordText(record)));
    if (change.records.isEmpty())
        output.print(QStringLiteral("  no record: nothing changed"));
}

QJsonObject changeJson(const Change& change)
{
    static const char* const results[] = {"same", "respelled", "repaired", "refused"};
    QJsonArray records;
    for (const auto& record : change.records) {
        QJsonArray entries;
        for (const RecordEntry& entry : record)
            entries.append(
                QJsonObject{{"path", entry.path}, {"flags", int(entry.flags)}, {"changed", flagsText(entry.flags)}});
        records.append(entries);
    }
    return {{"path", change.assignment.path},
            {"asked", change.assignment.text},
            {"stored", change.stored},
            {"result", results[int(change.reading)]},
            {"records", records}};
}

void reportRefusal(const Change& change, Output& output)
{
    const char* format =
        change.reading == ValueReading::Refused ? "%1: %2 was refused; %3 stands." : "%1: %2 was repaired to %3.";
    output.printMessage(QString::fromLatin1(format).arg(SafeText::inLine(change.assignment.path),
                                                        SafeText::quoted(change.assignment.text),
                                                        SafeText::quoted(change.stored)));
}

QVector<Assignment> parseAssignments(const QStringList& arguments, KpbAParameter& root)
{
    QVector<Assignment> assignments;
    for (const QString& argument : arguments)
        assignments.append(Assignment::parse(argument, root));
    return assignments;
}

} // namespace

ExitCode runSet(const QStringList& arguments, Output& output)
{
    CommandLine line("set",
                     "Changes values of a stored form, one after the other, and prints the modification records\n"
                     "as they reach an observer of the root.");
    line.addNote(
        "VALUE is written as it is stored: numbers in the storage unit, items by key, yes or no. Where one is\n"
        "refused or repaired, or the class does not take something in the document over as it stands,\n"
        "nothing is written, and the code is 1; with --force it is written all the same.");
    line.addRequiredOption(CommandLine::asOption());
    line.addArgument("FILE", "the document, or - for the standard input");
    line.addArgument("PATH=VALUE", "the keys below the root, joined by /, and the new value", CommandLine::OneOrMore);
    line.addRequiredOption(CommandLine::outOption());
    line.addOption(CommandLine::forceOption());
    line.addOption(CommandLine::jsonOption());
    line.setExitCodes({ExitCode::Findings, ExitCode::InputFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const ClassRegistry::Row& row = requireClass(line.getValue("as"));
    const FormReading reading = readFormToUse(readDocument(line.getArgument(0)), row, output);

    bool asAsked = reading.findings.isEmpty();
    QJsonArray changes;
    for (const Assignment& assignment : parseAssignments(line.getArgumentsFrom(1), *reading.parameter)) {
        const Change change = apply(assignment, *reading.parameter);
        if (line.isSet("json"))
            changes.append(changeJson(change));
        else
            printText(change, output);
        if (!change.isAsAsked())
            reportRefusal(change, output);
        asAsked = asAsked && change.isAsAsked();
    }
    const bool write = asAsked || line.isSet("force");
    if (write)
        writeFile(line.getValue("output"), createBytes(*reading.parameter, reading.isTask));
    else
        output.printMessage("Nothing was written; --force does.");
    if (line.isSet("json"))
        output.printJson({{"changes", changes}, {"written", write}});
    return asAsked ? ExitCode::Ok : ExitCode::Findings;
}
