#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QSet>

#include <cli/CommandLine.h>
#include <cli/Failure.h>
#include <cli/Output.h>
#include <document/InputDocument.h>
#include <document/WrittenForm.h>
#include <store/StoreCommand.h>
#include <store/StoredForm.h>
#include <study/KsbIDriverTaskFiche.h>
#include <util/KuxXml.h>

namespace {

const QString formatName = QStringLiteral("kparam store");
constexpr int formatVersion = 1;
constexpr qint64 maxTransferBytes = qint64(256) << 20;

struct Transfer
{
    FormAddress address;
    QDomDocument document;
};

[[noreturn]] void fail(const QString& file, const QString& message)
{
    throw Failure(ExitCode::InputFailed, message, file);
}

QJsonObject parseJson(const QByteArray& bytes, const QString& file)
{
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        failAt(bytes, error.offset, QStringLiteral("The file is no JSON: %1.").arg(error.errorString()), file);
    if (json.object().value("format").toString() != formatName)
        fail(file, "The file was not written by 'kparam store STORE export'.");
    if (json.object().value("version").toInt() != formatVersion)
        fail(file, "The file is of a version that is not known.");
    return json.object();
}

/// A stored document without a root is exported as an empty text.
QDomDocument parseForm(const QJsonObject& form, const QString& name)
{
    const QByteArray xml = form.value("xml").toString().toUtf8();
    if (xml.isEmpty())
        return QDomDocument(QString());
    QDomDocument document;
    const KuxXmlResult result = KuxXml::parse(xml, &document, inputLimits());
    if (!result.ok)
        throw Failure(ExitCode::InputFailed, result.message, name, result.line, result.column);
    return document;
}

QVector<Transfer> readTransfers(const QString& file)
{
    const QJsonArray forms = parseJson(readBytes(file, maxTransferBytes), file).value("forms").toArray();
    QVector<Transfer> transfers;
    QSet<QPair<QString, QString>> seen;
    for (int i = 0; i < forms.size(); ++i) {
        const QJsonObject form = forms[i].toObject();
        const QString name = QStringLiteral("%1, form %2").arg(file).arg(i + 1);
        if (!form.value("id").isString() || !form.value("key").isString() || !form.value("xml").isString())
            fail(name, "The form does not have the texts id, key and xml.");
        const FormAddress address{form.value("id").toString(), form.value("key").toString()};
        if (seen.contains({address.id, address.key}))
            fail(name, QStringLiteral("The file has the form %1 twice.").arg(address.toString()));
        seen.insert({address.id, address.key});
        transfers.append({address, parseForm(form, name)});
    }
    return transfers;
}

} // namespace

ExitCode runStoreExport(const QString& store, const QStringList& arguments, Output& output)
{
    CommandLine line("store STORE export", "Writes all forms of a store into one JSON file, for 'import'.");
    line.addArgument("OUT", "the file to write; an existing one is replaced as a whole or not at all");
    line.addOption({"id", "only the forms of this identifier", "ID"});
    line.setExitCodes({ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const auto project = KssProject::open(store, KssOpenMode::ReadOnly);
    const KsbIDriverTaskFiche& driver = *project->getDriverTaskFiche();
    QJsonArray forms;
    for (const FormAddress& address : listForms(driver)) {
        if (line.isSet("id") && address.id != line.getValue("id"))
            continue;
        const QDomDocument document = readStored(driver, address);
        const QByteArray xml = document.documentElement().isNull() ? QByteArray() : KuxXml::toText(document);
        forms.append(QJsonObject{{"id", address.id}, {"key", address.key}, {"xml", QString::fromUtf8(xml)}});
    }
    const QJsonObject object{{"format", formatName}, {"version", formatVersion}, {"forms", forms}};
    writeFile(line.getArgument(0), QJsonDocument(object).toJson(QJsonDocument::Indented));
    output.print(QStringLiteral("Exported %1 form(s).").arg(forms.size()));
    return ExitCode::Ok;
}

ExitCode runStoreImport(const QString& store, const QStringList& arguments, Output& output)
{
    CommandLine line("store STORE import", "Takes the forms of a file that 'export' wrote into the store.");
    line.addNote("All forms are looked at before the first is stored. Where the store fails in between, those that it\n"
                 "has taken stay; the command can be repeated with --replace.");
    line.addArgument("FILE", "the file, or - for the standard input");
    line.addOption(createOption());
    line.addOption(replaceOption());
    line.setExitCodes({ExitCode::InputFailed, ExitCode::StoreFailed});
    if (!line.parse(arguments, output))
        return ExitCode::Ok;
    const QVector<Transfer> transfers = readTransfers(line.getArgument(0));
    const auto project = openToWrite(store, line.isSet("create"));
    KsbIDriverTaskFiche& driver = *project->getDriverTaskFiche();
    for (const Transfer& transfer : transfers)
        checkFree(driver, transfer.address, line.isSet("replace"));
    for (const Transfer& transfer : transfers)
        driver.write(transfer.address.id, transfer.address.key, transfer.document);
    output.print(QStringLiteral("Imported %1 form(s).").arg(transfers.size()));
    return ExitCode::Ok;
}
