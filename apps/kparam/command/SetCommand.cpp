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
    QString asked;
    AssignmentResult result;
    Records records;

    bool isAsAsked() const { return result.reading == ValueReading::Same || result.reading == ValueReading::Respelled; }
};

Change apply(const Assignment& assignment, KpbAParameter& root)
{
    Change change{assignment.getText(), {}, {}};
    const RecordListener listener(root, [&](const QVector<RecordEntry>& record) { change.records.append(record); });
    change.result = assignment.apply();
    return change;
}

QString storedText(const AssignmentResult& result)
{
    if (result.stored)
        return SafeText::inLine(*result.stored);
    return result.reading == ValueReading::Refused ? QStringLiteral("(dropped)") : QStringLiteral("(gone)");
}

void printText(const Change& change, Output& output)
{
    output.print(SafeText::inLine(change.result.path) + QStringLiteral(" = ") + storedText(change.result));
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
    const AssignmentResult& result = change.result;
    return {{"path", result.path},
            {"asked", change.asked},
            {"stored", result.stored ? QJsonValue(*result.stored) : QJsonValue()},
            {"result", results[int(result.reading)]},
            {"records", records}};
}

void reportRefusal(const Change& change, Output& output)
{
    const AssignmentResult& result = change.result;
    const QString asked = SafeText::inLine(result.path) + QStringLiteral(": ") + SafeText::quoted(change.asked);
    if (!result.stored)
        output.printMessage(asked + QStringLiteral(" was refused; the list has it already."));
    else if (result.reading == ValueReading::Refused)
        output.printMessage(asked + QStringLiteral(" was refused; %1 stands.").arg(SafeText::quoted(*result.stored)));
    else
        output.printMessage(asked + QStringLiteral(" was repaired to %1.").arg(SafeText::quoted(*result.stored)));
}

/// Each assignment is understood in the state that the ones before it have made.
QVector<Change> applyAll(const QStringList& arguments, KpbAParameter& root)
{
    QVector<Change> changes;
    for (const QString& argument : arguments)
        changes.append(apply(Assignment::parse(argument, root), root));
    return changes;
}

} // namespace

ExitCode runSet(const QStringList& arguments, Output& output)
{
    CommandLine line("set",
                     "Changes values of a stored form, one after the other, and prints the modification records\n"
                     "as they reach an observer of the root.");
    line.addNote(
        "VALUE is written as it is stored: numbers in the storage unit, items by key, yes or no. PATH/ENTRY is one\n"
        "entry of a value that has several, such as v2 of a vector. LIST/+=VALUE adds an item to a list, or one as\n"
        "built where VALUE is empty; LIST/-=KEY takes the item of that key out. Each assignment sees what those\n"
        "before it have made. Where a value is refused or repaired, or the class does not take something in the\n"
        "document over as it stands, nothing is written, and the code is 1; with --force it is written all the same.");
    line.addRequiredOption(CommandLine::asOption());
    line.addOption(CommandLine::projectOption());
    line.addArgument("FILE", "the document, or - for the standard input");
    line.addArgument("PATH=VALUE", "the keys below the root, joined by /, and the new value", CommandLine::OneOrMore);
    line.addRequiredOption(CommandLine::outOption());
    line.addOption(CommandLine::forceOption());
    line.addOption(CommandLine::jsonOption());
    line.setExitCodes({ExitCode::Findings, ExitCode::InputFailed, ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const ClassRegistry::Row& row = requireClass(line.getValue("as"));
    const ProjectContext context(line.getValue("project"));
    const FormReading reading = readFormToUse(readDocument(line.getArgument(0)), row, context, output);

    bool asAsked = reading.findings.isEmpty();
    QJsonArray changes;
    for (const Change& change : applyAll(line.getArgumentsFrom(1), *reading.parameter)) {
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
