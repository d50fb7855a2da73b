#include <param/atomic/KpaColor.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcSampleCategoriesRule.h>

#include <QtCore/QObject>

template class KpcList<KpcSampleCategoriesRule>;

KpcSampleCategoriesRule::KpcSampleCategoriesRule(const QString& key, const KstITransactable& transactable)
    : KpcAComposite(KpbEType::SAMPLE_CATEGORIES_RULE, key, transactable)
{
    _declare({*this, KpcChildren::Create});
}

KpcSampleCategoriesRule::KpcSampleCategoriesRule(const KpcSampleCategoriesRule& other, const QString& newKey)
    : KpcAComposite(other, newKey)
{
    _declare({*this, KpcChildren::Rebind});
}

KpcSampleCategoriesRule* KpcSampleCategoriesRule::duplicate(const QString& newKey) const
{
    return new KpcSampleCategoriesRule(*this, newKey);
}

void KpcSampleCategoriesRule::_declare(KpcChildren children)
{
    const auto withoutClear = [](KpaString& text) { text.setClearEnabled(false); };
    const auto trimmed = [](KpaString& text) { text.setAutoTrim(true); };
    // clang-format off
    children.add(_color, "COLOR", QObject::tr("Color"));
    children.add(_name,  "NAME",  QObject::tr("Name" )).with(withoutClear);
    children.add(_cond,  "COND",  QObject::tr("Rules")).with(withoutClear).with(trimmed);
    // clang-format on
}

void KpcSampleCategoriesRule::resetFromParam(const KpcSampleCategoriesRule* other)
{
    if (!other)
        return;
    KuoLock<KpnModif> lock(this);
    _setValues(other->_color->getValue(), other->_name->getValue(), other->_cond->getValue());
    lock.commit();
}

// Observers of the children may destroy the rule. The values are copies: an observer may change where they came from.
void KpcSampleCategoriesRule::_setValues(const QColor& color, const QString& name, const QString& cond)
{
    const KuoPointer<KpbAParameter> self(this);
    const QString newName = name;
    const QString newCond = cond;
    _color->setValue(color);
    if (self)
        _name->setValue(newName);
    if (self)
        _cond->setValue(newCond);
}

QString KpcSampleCategoriesRule::toString() const
{
    return _name->getValue() + QLatin1String(" : ") + _cond->getValue();
}
