#include <QtCore/QJsonArray>

#include <cli/CommandLine.h>
#include <cli/Failure.h>
#include <cli/Output.h>
#include <cli/TextTable.h>
#include <store/FicheKey.h>
#include <store/StoreCommand.h>
#include <store/StoredForm.h>
#include <study/KsbDriverTaskFicheSqlite.h>
#include <util/KuxXml.h>

namespace {

void printForms(const KsbIDriverTaskFiche& driver, bool asJson, Output& output)
{
    const QVector<FormAddress> forms = listForms(driver);
    if (asJson) {
        QJsonArray array;
        for (const FormAddress& form : forms)
            array.append(form.toJson());
        return output.printJson({{"forms", array}});
    }
    TextTable table({"Identifier", "Fiche key"});
    for (const FormAddress& form : forms)
        table.addRow({form.id, readableKey(form.key)});
    output.print(forms.isEmpty() ? QStringLiteral("The store has no forms.") : table.toText());
}

void printSuperseded(const KsbDriverTaskFicheSqlite& driver, bool asJson, Output& output)
{
    const QList<KsbDriverTaskFicheSqlite::Superseded> forms = driver.listSuperseded();
    QJsonArray array;
    TextTable table({"Number", "Left at", "Identifier", "Fiche key", "Reason"});
    for (const auto& form : forms) {
        const QString time = form.time.toString(Qt::ISODate);
        QJsonObject object = FormAddress{form.id, form.key}.toJson();
        object.insert("number", form.number);
        object.insert("time", time);
        object.insert("reason", form.reason);
        array.append(object);
        table.addRow({QString::number(form.number), time, form.id, readableKey(form.key), form.reason});
    }
    if (asJson)
        output.printJson({{"superseded", array}});
    else
        output.print(forms.isEmpty() ? QStringLiteral("No form had to leave its place.") : table.toText());
}

KsbDriverTaskFicheSqlite& fileDriver(const KssProject& project)
{
    return dynamic_cast<KsbDriverTaskFicheSqlite&>(*project.getDriverTaskFiche());
}

} // namespace

ExitCode runStoreList(const QString& store, const QStringList& arguments, Output& output)
{
    CommandLine line("store STORE list",
                     "Lists the forms of a store: identifiers with the values that they are filed for.");
    line.addOption({"superseded", "lists the forms that had to leave their place to others"});
    line.addOption(CommandLine::jsonOption());
    line.setExitCodes({ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const auto project = KssProject::open(store, KssOpenMode::ReadOnly);
    if (line.isSet("superseded"))
        printSuperseded(fileDriver(*project), line.isSet("json"), output);
    else
        printForms(*project->getDriverTaskFiche(), line.isSet("json"), output);
    return ExitCode::Ok;
}

ExitCode runStoreShow(const QString& store, const QStringList& arguments, Output& output)
{
    CommandLine line("store STORE show", "Prints the document of a form.");
    line.addArgument("ID", "the identifier of the form");
    line.addArgument("KEY", "its fiche key, as stored or as 'list' shows it; not needed where ID has one form",
                     CommandLine::Optional);
    line.addOption(CommandLine::jsonOption());
    line.setExitCodes({ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const auto project = KssProject::open(store, KssOpenMode::ReadOnly);
    const KsbIDriverTaskFiche& driver = *project->getDriverTaskFiche();
    const FormAddress address =
        requireForm(driver, line.getArgument(0), line.hasArgument(1) ? line.getArgument(1) : QString());
    const QByteArray xml = KuxXml::toText(readStored(driver, address));
    if (!line.isSet("json")) {
        output.printBytes(xml);
        return ExitCode::Ok;
    }
    QJsonObject object = address.toJson();
    object.insert("xml", QString::fromUtf8(xml));
    output.printJson(object);
    return ExitCode::Ok;
}

ExitCode runStoreRestore(const QString& store, const QStringList& arguments, Output& output)
{
    CommandLine line("store STORE restore",
                     "Puts a form back that had to leave its place. A form that stands there now "
                     "leaves it in its turn.");
    line.addArgument("NUMBER", "the form's number; see 'list --superseded'");
    line.setExitCodes({ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    bool isNumber = false;
    const qint64 number = line.getArgument(0).toLongLong(&isNumber);
    if (!isNumber)
        throw Failure(ExitCode::Usage, "NUMBER is no number.");
    const auto project = KssProject::open(store);
    fileDriver(*project).restoreSuperseded(number);
    output.print(QStringLiteral("Restored form %1.").arg(number));
    return ExitCode::Ok;
}
