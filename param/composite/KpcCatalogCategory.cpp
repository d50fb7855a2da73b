#include <param/atomic/KpaColor.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcCatalogCategory.h>

#include <QtCore/QObject>

namespace {

QList<KpaItemDef> operations()
{
    QList<KpaItemDef> items;
    for (auto each = KpcCatalogCategoryOperation::createIterator(); each.hasNext();)
        items.append(each.next());
    return items;
}

void asName(KpaString& text)
{
    text.setAutoTrim(true);
    text.setClearEnabled(false);
}

} // namespace

KpcCatalogCategory::KpcCatalogCategory(const QString& key, const KstITransactable& transactable)
    : KpcGroup(key, transactable)
{
    _declare({*this, KpcChildren::Create});
}

KpcCatalogCategory::KpcCatalogCategory(const KpcCatalogCategory& other, const QString& newKey) : KpcGroup(other, newKey)
{
    _declare({*this, KpcChildren::Rebind});
    for (const KpbAParameter* marked : other._marked)
        _marked.insert(getChild(marked->getKey()));
}

KpcCatalogCategory* KpcCatalogCategory::duplicate(const QString& newKey) const
{
    return new KpcCatalogCategory(*this, newKey);
}

void KpcCatalogCategory::_declare(KpcChildren children)
{
    // clang-format off
    children.add(_operation,      "OPERATION",       QObject::tr("Operation"      )).items(operations());
    children.add(_name,           "NAME",            QObject::tr("Name"           )).with(asName).readOnly(true);
    children.add(_color,          "COLOR",           QObject::tr("Color"          ));
    children.add(_operationValue, "OPERATION_VALUE", QObject::tr("Operation value")).with(asName);
    // clang-format on
}

KpcCatalogCategoryOperation KpcCatalogCategory::getOperation() const
{
    return KpcCatalogCategoryOperation::fromValue(_operation->getValue());
}

bool KpcCatalogCategory::_is(const KpcCatalogCategoryOperation& operation) const
{
    return _operation->getValue() == operation.getValue();
}

KpbAParameter::SerialForm KpcCatalogCategory::serialize() const
{
    const bool nameStays = _is(KpcCatalogCategoryOperation::EDIT) && _operationValue->getValue() == _name->getValue();
    _mark(_is(KpcCatalogCategoryOperation::ADD), _is(KpcCatalogCategoryOperation::REMOVE), nameStays);
    return {};
}

void KpcCatalogCategory::unserialize(const SerialForm& map)
{
    _mark(false, false, false);
    KpcGroup::unserialize(map);
}

void KpcCatalogCategory::_mark(bool name, bool color, bool operationValue) const
{
    const std::pair<KpbAParameter*, bool> marks[] = {{_name, name}, {_color, color}, {_operationValue, operationValue}};
    for (const auto& [child, unused] : marks) {
        if (unused && !child->isVolatile() && !child->isLoadLocked()) {
            child->setVolatile(true);
            _marked.insert(child);
        }
        else if (!unused && _marked.remove(child)) {
            child->setVolatile(false);
        }
    }
}

// Observers of the children may destroy this row.
void KpcCatalogCategory::update(const KpnModif& modif)
{
    KuoLock<KpnModif> lock(this);
    _operationValue->setReadOnly(_is(KpcCatalogCategoryOperation::REMOVE));
    if (lock.isAlive())
        _keepName();
    if (lock.isAlive())
        KpcGroup::update(modif);
    lock.commit();
}

void KpcCatalogCategory::_keepName()
{
    if (_is(KpcCatalogCategoryOperation::EDIT) && _operationValue->getValue().isEmpty())
        _operationValue->setValue(_name->getValue());
}
