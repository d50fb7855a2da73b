#include <study/KsbJson.h>
#include <study/KsmModelData.h>
#include <study/KsoADataItem.h>

#include <QtCore/QJsonArray>

#include <algorithm>

namespace {

const QString applicationsKey = QStringLiteral("applications");

bool isOlder(const KsoADataItem* a, const KsoADataItem* b)
{
    return a->getId() < b->getId();
}

} // namespace

KsoADataItem::KsoADataItem(KsmModelData* model, int id, const KsoEDataType& type, const QString& name)
    : KsoAItem(id, name),
      _type(type),
      _model(model)
{}

KsoADataItem::~KsoADataItem() = default;

KsoADataItem* KsoADataItem::getChildItem(const KsoEDataType& type, const QString& name) const
{
    return _childrenByName.value({type.getValue(), name}, nullptr);
}

KsoDataIdentifier KsoADataItem::getIdentifier() const
{
    QStringList path;
    QString names[4];
    for (const KsoADataItem* item = this; item->_parent; item = item->_parent) {
        if (item->_type == KsoEDataType::DIRECTORY)
            path.prepend(item->getName());
        else
            names[std::min(item->_type.getValue(), 3)] = item->getName();
    }
    if (_type == KsoEDataType::DIRECTORY)
        return KsoDataIdentifier::directory(_model, path);
    if (_type == KsoEDataType::FILE)
        return KsoDataIdentifier::file(_model, path, names[1]);
    if (_type == KsoEDataType::SUPPORT)
        return KsoDataIdentifier::support(_model, path, names[1], names[2]);
    if (_type == KsoEDataType::VARIABLE)
        return KsoDataIdentifier::variable(_model, path, names[1], names[2], names[3]);
    return KsoDataIdentifier::macroVariable(_model, path, names[1], names[2], names[3]);
}

void KsoADataItem::_setAttributes(const QJsonObject& attributes)
{
    const QStringList flags = KsbJson::readTexts(attributes, applicationsKey);
    _read(attributes);
    _applicationFlags = flags;
}

QJsonObject KsoADataItem::_getAttributes() const
{
    QJsonObject attributes = _write();
    attributes.insert(applicationsKey, QJsonArray::fromStringList(_applicationFlags));
    return attributes;
}

QJsonObject KsoADataItem::_attributes(const QStringList& applicationFlags)
{
    return {{applicationsKey, QJsonArray::fromStringList(applicationFlags)}};
}

void KsoADataItem::_read(const QJsonObject&) {}

QJsonObject KsoADataItem::_write() const
{
    return {};
}

void KsoADataItem::_addChild(KsoADataItem* child)
{
    child->_parent = this;
    _children.insert(std::lower_bound(_children.begin(), _children.end(), child, isOlder), child);
    _childrenByName.insert({child->_type.getValue(), child->getName()}, child);
}

void KsoADataItem::_removeChild(KsoADataItem* child)
{
    child->_parent = nullptr;
    _children.erase(std::lower_bound(_children.begin(), _children.end(), child, isOlder));
    _childrenByName.remove({child->_type.getValue(), child->getName()});
}
