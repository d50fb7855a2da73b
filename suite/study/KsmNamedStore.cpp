#include <study/KsmNamedStore.h>

#include <basic/MbeError.h>
#include <basic/MbeTranslate.h>
#include <study/Ks.h>
#include <study/KsbIDriverItem.h>
#include <study/KsbJson.h>

#include <QtCore/QJsonArray>
#include <QtCore/QSet>

namespace {

const QString applicationsKey = QStringLiteral("applications");
const QString contentKey = QStringLiteral("content");

KsbItemRecord encode(const KsmNamedStore::Record& record)
{
    QJsonObject attributes{{contentKey, record.content}};
    if (!record.applicationFlags.isEmpty())
        attributes.insert(applicationsKey, QJsonArray::fromStringList(record.applicationFlags));
    KsbItemRecord stored;
    stored.id = record.id;
    stored.name = record.name;
    stored.attributes = KsbJson::toText(attributes);
    return stored;
}

KsmNamedStore::Record decode(const KsbItemRecord& stored)
{
    const QJsonObject attributes = KsbJson::parse(stored.attributes);
    if (!attributes.value(contentKey).isObject())
        KsbJson::failDamaged(contentKey);
    return {stored.id, stored.name, KsbJson::readTexts(attributes, applicationsKey),
            attributes.value(contentKey).toObject()};
}

void requireNamed(const KsbItemRecord& stored, QSet<QString>& former)
{
    const QString& name = stored.name;
    if (stored.id <= 0)
        throw MbeError(MbeError::Storage, QStringLiteral("Its number is none."));
    const QString problem = Ks::describeInvalidName(name);
    if (!problem.isEmpty())
        throw MbeError(MbeError::Storage, problem);
    if (former.contains(name))
        throw MbeError(MbeError::Storage, QStringLiteral("Another item has the same name."));
    former.insert(name);
}

} // namespace

QString KsmNamedStore::describe(int id, const QString& name) const
{
    return QStringLiteral("The stored item '%1' (%2, number %3) is damaged.").arg(name, _model).arg(id);
}

QList<KsmNamedStore::Record> KsmNamedStore::list() const
{
    QList<Record> records;
    QSet<QString> names;
    for (const KsbItemRecord& stored : _driver->list(_model)) {
        mbeTranslate(
            [&] {
                requireNamed(stored, names);
                records.append(decode(stored));
            },
            [&] { return describe(stored.id, stored.name); });
    }
    return records;
}

int KsmNamedStore::insert(const Record& record)
{
    return _driver->insert(_model, encode(record));
}

void KsmNamedStore::update(const Record& record)
{
    _driver->update(encode(record));
}

void KsmNamedStore::remove(int id)
{
    _driver->remove({id});
}
