#include <param/atomic/KpaBool.h>
#include <param/composite/KpcCheckableGroup.h>
#include <param/composite/KpcGroup.h>

#include <QtCore/QObject>

KpcCheckableGroup::KpcCheckableGroup(const QString& key, const KstITransactable& transactable)
    : KpcAComposite(KpbEType::CHECKABLE_GROUP, key, transactable)
{
    _declare({*this, KpcChildren::Create}, QLatin1String("USE_") + key, key + QLatin1String("_GROUP"));
}

// The children keep the keys that they got from the key of the first group, so they are found by what `other` has.
KpcCheckableGroup::KpcCheckableGroup(const KpcCheckableGroup& other, const QString& newKey)
    : KpcAComposite(other, newKey)
{
    _declare({*this, KpcChildren::Rebind}, other._check->getKey(), other._content->getKey());
}

KpcCheckableGroup* KpcCheckableGroup::duplicate(const QString& newKey) const
{
    return new KpcCheckableGroup(*this, newKey);
}

void KpcCheckableGroup::_declare(KpcChildren children, const QString& checkKey, const QString& contentKey)
{
    children.add(_check, checkKey, QObject::tr("Use group"));
    children.add(_content, contentKey, QObject::tr("Group"), _getTransactable());
}

bool KpcCheckableGroup::isActive() const
{
    return isEnabled() && _check->isEnabled() && _check->getValue();
}

void KpcCheckableGroup::setLabels(const QString& checkLabel, const QString& groupLabel)
{
    const KuoPointer<KpcGroup> content(_content);
    _check->setLabel(checkLabel);
    if (content)
        content->setLabel(groupLabel);
}

QString KpcCheckableGroup::toString() const
{
    const QString name = _content->getLabel();
    if (!isActive())
        return QObject::tr("%1 is not active").arg(name);
    const QString active = QObject::tr("%1 is active").arg(name);
    const QString content = _content->toString();
    return content.isEmpty() ? active : active + QLatin1String(" : ") + content;
}

// Observers of the box and of the content may destroy this group.
void KpcCheckableGroup::update(const KpnModif& modif)
{
    KuoLock<KpnModif> lock(this);
    _uncheckIfDisabled();
    if (lock.isAlive())
        _enableContentIfActive();
    if (lock.isAlive())
        KpcAComposite::update(modif);
    lock.commit();
}

void KpcCheckableGroup::_uncheckIfDisabled()
{
    if (!isEnabled())
        _check->setValue(false);
}

void KpcCheckableGroup::_enableContentIfActive()
{
    _content->setEnabled(isActive());
}
