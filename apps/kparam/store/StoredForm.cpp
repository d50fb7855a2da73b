#include <store/StoredForm.h>

#include <QtCore/QFileInfo>

#include <cli/Failure.h>
#include <cli/SafeText.h>
#include <store/FicheKey.h>
#include <study/KsbIDriverTaskFiche.h>

namespace {

[[noreturn]] void fail(const QString& message)
{
    throw Failure(ExitCode::StoreFailed, message);
}

QVector<FormAddress> formsMeant(const KsbIDriverTaskFiche& driver, const QString& id, const QString& key)
{
    QVector<FormAddress> meant;
    for (const QString& stored : driver.listKeys(id)) {
        if (key.isNull() || readableKey(stored) == key)
            meant.append({id, stored});
    }
    return meant;
}

} // namespace

QString FormAddress::toString() const
{
    const QString quotedId = SafeText::quoted(id);
    return key.isEmpty() ? quotedId : quotedId + QStringLiteral(" for ") + SafeText::quoted(readableKey(key));
}

QJsonObject FormAddress::toJson() const
{
    return {{"id", id}, {"key", key}, {"text", readableKey(key)}};
}

QVector<FormAddress> listForms(const KsbIDriverTaskFiche& driver)
{
    QVector<FormAddress> forms;
    const QMap<QString, QString> all = driver.listAll();
    for (auto form = all.begin(); form != all.end(); ++form)
        forms.append({form.key(), form.value()});
    return forms;
}

FormAddress requireForm(const KsbIDriverTaskFiche& driver, const QString& id, const QString& key)
{
    if (!key.isNull() && driver.exists(id, key))
        return {id, key};
    const QVector<FormAddress> meant = formsMeant(driver, id, key);
    if (meant.isEmpty())
        fail(QStringLiteral("The store has no form %1.").arg(FormAddress{id, key}.toString()));
    if (meant.size() > 1)
        fail(QStringLiteral("The store has %1 such forms of %2; say which.")
                 .arg(meant.size())
                 .arg(SafeText::quoted(id)));
    return meant.first();
}

QDomDocument readStored(const KsbIDriverTaskFiche& driver, const FormAddress& address)
{
    QDomDocument document;
    driver.read(address.id, address.key, document);
    if (document.isNull())
        fail(QStringLiteral("The form %1 cannot be read.").arg(address.toString()));
    return document;
}

void checkFree(const KsbIDriverTaskFiche& driver, const FormAddress& address, bool mayReplace)
{
    if (!mayReplace && driver.exists(address.id, address.key))
        fail(QStringLiteral("The store has a form %1 already; --replace replaces it.").arg(address.toString()));
}

std::unique_ptr<KssProject> openToWrite(const QString& store, bool create)
{
    return create && !QFileInfo::exists(store) ? KssProject::create(store) : KssProject::open(store);
}

QCommandLineOption createOption()
{
    return {"create", "makes the store if it does not exist"};
}

QCommandLineOption replaceOption()
{
    return {"replace", "replaces forms that the store has already"};
}
