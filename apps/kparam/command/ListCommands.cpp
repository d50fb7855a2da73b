#include <QtCore/QJsonArray>

#include <cli/CommandLine.h>
#include <cli/Output.h>
#include <cli/TextTable.h>
#include <command/Command.h>
#include <param/KpbEType.h>
#include <registry/ClassRegistry.h>
#include <tree/MadeParameter.h>

namespace {

QJsonObject kindsJson()
{
    QJsonArray kinds;
    for (auto iterator = KpbEType::createIterator(); iterator.hasNext();) {
        const KpbEType& kind = iterator.next();
        kinds.append(QJsonObject{{"value", kind.getValue()}, {"key", kind.getKey()}, {"label", kind.getLabel()}});
    }
    return {{"kinds", kinds}};
}

QString kindsText()
{
    TextTable table({"Value", "Key", "Label"});
    for (auto iterator = KpbEType::createIterator(); iterator.hasNext();) {
        const KpbEType& kind = iterator.next();
        table.addRow({QString::number(kind.getValue()), kind.getKey(), kind.getLabel()});
    }
    return table.toText();
}

QJsonObject classesJson()
{
    QJsonArray classes;
    for (const ClassRegistry::Row& row : ClassRegistry::getRows()) {
        const auto parameter = makeParameter(row);
        classes.append(QJsonObject{{"name", row.name},
                                   {"family", row.family},
                                   {"kind", parameter->getType().getKey()},
                                   {"version", parameter->getVersion()},
                                   {"fiche", row.isFiche},
                                   {"description", row.description}});
    }
    return {{"classes", classes}};
}

QString classesText()
{
    TextTable table({"Class", "Kind", "Version", "Description"});
    for (const ClassRegistry::Row& row : ClassRegistry::getRows()) {
        const auto parameter = makeParameter(row);
        table.addRow(
            {row.name, parameter->getType().getKey(), QString::number(parameter->getVersion()), row.description});
    }
    return table.toText();
}

ExitCode runList(CommandLine& line, const QStringList& arguments, Output& output, QJsonObject (*json)(),
                 QString (*text)())
{
    line.addOption(CommandLine::jsonOption());
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    if (line.isSet("json"))
        output.printJson(json());
    else
        output.print(text());
    return ExitCode::Ok;
}

} // namespace

ExitCode runKinds(const QStringList& arguments, Output& output)
{
    CommandLine line("kinds", "Lists the kinds of parameter with the numbers and keys that other modules compare.");
    return runList(line, arguments, output, kindsJson, kindsText);
}

ExitCode runClasses(const QStringList& arguments, Output& output)
{
    CommandLine line("classes", "Lists the classes of parameter that other commands take as CLASS.");
    return runList(line, arguments, output, classesJson, classesText);
}
