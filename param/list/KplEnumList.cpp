#include <param/list/KplEnumList.h>

template class KpcList<KpaEnum>;
template class KplAAtomicList<KpaEnum, int, KpaEnumConfig>;

KplEnumList::KplEnumList(const QString& key) : KplAAtomicList(key) {}

KplEnumList::KplEnumList(const KplEnumList& other, const QString& newKey) : KplAAtomicList(other, newKey) {}

KplEnumList* KplEnumList::duplicate(const QString& newKey) const
{
    return new KplEnumList(*this, newKey);
}

QString KplEnumList::getItemKeyAt(int rank) const
{
    return _ofItem(rank, [](const KpaEnum& item) { return item.getItemKey(); });
}

QString KplEnumList::getItemLabelAt(int rank) const
{
    return _ofItem(rank, [](const KpaEnum& item) { return item.getItemLabel(); });
}

QStringList KplEnumList::getItemKeysXX() const
{
    return _ofItems([](const KpaEnum& item) { return item.getItemKey(); });
}

QStringList KplEnumList::getItemLabels() const
{
    return _ofItems([](const KpaEnum& item) { return item.getItemLabel(); });
}

void KplEnumList::setItemFromKeyAt(int rank, const QString& key)
{
    if (KpaEnum* item = getItemAt(rank))
        item->setItemFromKey(key);
}

void KplEnumList::setItemFromLabelAt(int rank, const QString& label)
{
    if (KpaEnum* item = getItemAt(rank))
        item->setItemFromLabel(label);
}

void KplEnumList::setItemFromKeys(const QStringList& keys)
{
    _setItems(keys, &KpaEnum::setItemFromKey);
}

void KplEnumList::setItemFromLabels(const QStringList& labels)
{
    _setItems(labels, &KpaEnum::setItemFromLabel);
}

void KplEnumList::_setItems(const QStringList& texts, void (KpaEnum::*set)(const QString&))
{
    _change([&](const KuoLock<KpnModif>& lock) {
        setItemCount(texts.size());
        for (int i = 0; lock.isAlive() && i < std::min(getItemCount(), texts.size()); ++i)
            (getItemAt(i)->*set)(texts.at(i));
    });
}
