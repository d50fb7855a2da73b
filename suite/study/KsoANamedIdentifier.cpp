#include <study/KsoANamedIdentifier.h>

#include <study/Ks.h>
#include <study/KsmANamedItemModel.h>

KsmANamedItemModel::~KsmANamedItemModel() = default;

KsoANamedIdentifier::~KsoANamedIdentifier() = default;

KsoANamedIdentifier::KsoANamedIdentifier(KsmANamedItemModel* model, const QString& name)
    : KsoAItemIdentifier(model),
      _name(name)
{
    if (const KsoAItem* item = _findNamed())
        _itemId = item->getId();
}

MbbOrderedMap<QString, QString> KsoANamedIdentifier::toMap(bool) const
{
    return isNull() ? MbbOrderedMap<QString, QString>() : MbbOrderedMap<QString, QString>{{Ks::KEY_NAME, _name}};
}

KsmANamedItemModel* KsoANamedIdentifier::_namedModel() const
{
    return static_cast<KsmANamedItemModel*>(getModel());
}

KsoAItem* KsoANamedIdentifier::_findNamed() const
{
    return isNull() || !getModel() ? nullptr : _namedModel()->findItem(_name);
}

QString KsoANamedIdentifier::_presentName() const
{
    const KsoAItem* item = getModel() && _itemId != -1 ? getModel()->getItemFromId(_itemId) : nullptr;
    return item ? item->getName() : _name;
}

QStringList KsoANamedIdentifier::_names() const
{
    return isNull() ? QStringList() : QStringList{_name};
}

bool KsoANamedIdentifier::_isEqual(const KsoANamedIdentifier& other) const
{
    return _name == other._name && (isNull() || (getModel() == other.getModel() && _names() == other._names()));
}

bool KsoANamedIdentifier::_isLess(const KsoANamedIdentifier& other) const
{
    const QStringList names = _names();
    const QStringList otherNames = other._names();
    return names != otherNames ? names < otherNames : std::less<>()(getModel(), other.getModel());
}

uint KsoANamedIdentifier::_hash(uint seed) const
{
    return qHash(_names(), seed);
}
