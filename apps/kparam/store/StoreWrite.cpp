#include <QtCore/QJsonArray>
#include <QtCore/QUrl>

#include <cli/CommandLine.h>
#include <cli/Failure.h>
#include <cli/Output.h>
#include <cli/SafeText.h>
#include <document/FormReading.h>
#include <param/KpsSerializer.h>
#include <param/composite/KpcGroup.h>
#include <store/StoreCommand.h>
#include <store/StoredForm.h>
#include <study/KsbIDriverTaskFiche.h>
#include <tree/Assignment.h>
#include <tree/MadeParameter.h>
#include <util/KuxXml.h>

namespace {

/// Files the form as the library does: a group under its key and a fiche key, another parameter under an identifier.
FormAddress save(KssProject& project, const FormReading& reading, const QStringList& paths, bool mayReplace)
{
    const KpbAParameter& parameter = *reading.parameter;
    const KpsSerializer serializer(&project);
    QList<KpbAParameter*> keyParameters;
    for (const QString& path : paths)
        keyParameters.append(&requireParameter(path, parameter));
    FormAddress address{parameter.getKey(), serializer.buildFicheKey(keyParameters)};
    checkFree(*project.getDriverTaskFiche(), address, mayReplace);
    if (reading.isTask)
        serializer.saveFiche(dynamic_cast<const KpcGroup*>(&parameter), keyParameters);
    else
        serializer.saveParameter(&parameter, address.id);
    return address;
}

void checkKeyParameters(const FormReading& reading, const QStringList& paths)
{
    if (!reading.isTask && !paths.isEmpty())
        throw Failure(ExitCode::Usage, "Only a task is filed for values; --by does not fit a param.");
    for (const QString& path : paths) {
        if (requireParameter(path, *reading.parameter).serialize().isEmpty())
            throw Failure(ExitCode::Usage, QStringLiteral("%1 has no value of its own.").arg(SafeText::quoted(path)));
    }
}

QByteArray xmlOf(const KsbIDriverTaskFiche& driver, const FormAddress& address)
{
    QDomDocument document;
    driver.read(address.id, address.key, document);
    return document.isNull() ? QByteArray() : KuxXml::toText(document);
}

QUrl requireUrl(const QString& text)
{
    QUrl url(text, QUrl::StrictMode);
    if (url.isEmpty() || !url.isValid())
        throw Failure(ExitCode::Usage, QStringLiteral("%1 is no URL.").arg(SafeText::quoted(text)));
    return url;
}

} // namespace

ExitCode runStorePut(const QString& store, const QStringList& arguments, Output& output)
{
    CommandLine line("store STORE put", "Reads a document as a class and puts the form into the store, in its present "
                                        "version.");
    line.addNote("A task is filed under ID and the values of the parameters that --by names; a param under ID alone.\n"
                 "Where the class does not take something over as it stands, nothing is stored, and the code is 1;\n"
                 "with --force it is stored all the same.");
    line.addRequiredOption(CommandLine::asOption());
    line.addOption(CommandLine::projectOption());
    line.addArgument("FILE", "the document, or - for the standard input");
    line.addOption({"id", "the identifier, else the key of a param, or the name of the class of a task", "ID"});
    line.addOption({"by", "a parameter that forms are told apart by; can be given several times", "PATH"});
    line.addOption(createOption());
    line.addOption(replaceOption());
    line.addOption(CommandLine::forceOption());
    line.setExitCodes({ExitCode::Findings, ExitCode::InputFailed, ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const ClassRegistry::Row& row = requireClass(line.getValue("as"));
    const ProjectContext context(line.getValue("project"));
    FormReading reading = readFormToUse(readDocument(line.getArgument(0)), row, context, output);
    checkKeyParameters(reading, line.getValues("by"));
    if (!reading.findings.isEmpty() && !line.isSet("force")) {
        output.printMessage("Nothing was stored; --force does.");
        return ExitCode::Findings;
    }
    if (line.isSet("id"))
        reading.parameter.reset(reading.parameter->duplicate(line.getValue("id")));
    const auto project = openToWrite(store, line.isSet("create"));
    const FormAddress address = save(*project, reading, line.getValues("by"), line.isSet("replace"));
    output.print(QStringLiteral("Stored %1.").arg(address.toString()));
    return reading.findings.isEmpty() ? ExitCode::Ok : ExitCode::Findings;
}

ExitCode runStoreCopy(const QString& store, const QStringList& arguments, Output& output)
{
    CommandLine line("store STORE copy", "Copies a form as it stands to another identifier or fiche key.");
    line.addArgument("ID", "the identifier of the form");
    line.addArgument("KEY", "its fiche key, as stored or as 'list' shows it");
    line.addArgument("NEW-ID", "the identifier of the copy");
    line.addArgument("NEW-KEY", "its fiche key as it is to be stored, else that of the form", CommandLine::Optional);
    line.addOption(replaceOption());
    line.setExitCodes({ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const auto project = KssProject::open(store);
    KsbIDriverTaskFiche& driver = *project->getDriverTaskFiche();
    const FormAddress from = requireForm(driver, line.getArgument(0), line.getArgument(1));
    const FormAddress to{line.getArgument(2), line.hasArgument(3) ? line.getArgument(3) : from.key};
    if (from == to)
        throw Failure(ExitCode::Usage, "The copy would be the form itself.");
    checkFree(driver, to, line.isSet("replace"));
    driver.write(to.id, to.key, readStored(driver, from));
    output.print(QStringLiteral("Copied %1 to %2.").arg(from.toString(), to.toString()));
    return ExitCode::Ok;
}

ExitCode runStoreMoveUrl(const QString& store, const QStringList& arguments, Output& output)
{
    CommandLine line("store STORE move-url",
                     "Replaces the beginning of the locations in all forms, and in the fiche keys "
                     "that are made of them.");
    line.addArgument("OLD", "the URL that locations begin with");
    line.addArgument("NEW", "the URL that they begin with from now on");
    line.addOption(CommandLine::jsonOption());
    line.setExitCodes({ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const QUrl oldUrl = requireUrl(line.getArgument(0));
    const QUrl newUrl = requireUrl(line.getArgument(1));
    const auto project = KssProject::open(store);
    const KsbIDriverTaskFiche& driver = *project->getDriverTaskFiche();
    QVector<QByteArray> former;
    const QVector<FormAddress> forms = listForms(driver);
    for (const FormAddress& form : forms)
        former.append(xmlOf(driver, form));
    KpsSerializer(project.get()).updateUrl(oldUrl, newUrl);

    QJsonArray changed;
    for (int i = 0; i < forms.size(); ++i) {
        if (driver.exists(forms[i].id, forms[i].key) && xmlOf(driver, forms[i]) == former[i])
            continue;
        changed.append(forms[i].toJson());
        if (!line.isSet("json"))
            output.print(QStringLiteral("Changed %1.").arg(forms[i].toString()));
    }
    if (line.isSet("json"))
        output.printJson({{"changed", changed}});
    else
        output.print(QStringLiteral("%1 of %2 forms changed.").arg(changed.size()).arg(forms.size()));
    return ExitCode::Ok;
}
