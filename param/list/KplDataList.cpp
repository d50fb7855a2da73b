#include <param/list/KplDataList.h>

#include <QtCore/QSet>

template class KpcList<KpaData>;
template class KplAAtomicList<KpaData, KsoDataIdentifier, KpaDataConfig>;

KplDataList::KplDataList(const QString& key, const KstITransactable& transactable) : KplAAtomicList(key, transactable)
{}

KplDataList::KplDataList(const KplDataList& other, const QString& newKey) : KplAAtomicList(other, newKey) {}

KplDataList* KplDataList::duplicate(const QString& newKey) const
{
    return new KplDataList(*this, newKey);
}

QList<KsoDataIdentifier> KplDataList::getDataIdents(Duplicates duplicates) const
{
    QList<KsoDataIdentifier> idents;
    QSet<KsoDataIdentifier> known;
    for (int i = 0; i < getItemCount(); ++i) {
        const KsoDataIdentifier& ident = getItemAt(i)->getValue();
        if (ident.isNull() || (duplicates != Duplicates::Keep && known.contains(ident)))
            continue;
        known.insert(ident);
        idents.append(ident);
    }
    return idents;
}

int KplDataList::getDataIndex(const QString& name) const
{
    for (int i = 0; i < getItemCount(); ++i) {
        const KsoDataIdentifier& ident = getItemAt(i)->getValue();
        if (!ident.isNull() && ident.getName() == name)
            return i;
    }
    return -1;
}

KsoADataItem* KplDataList::getDataItem(int rank) const
{
    return _ofItem(rank, [](const KpaData& item) { return item.getDataItem(); });
}

void KplDataList::compressEmptyItems()
{
    std::vector<int> ranks;
    for (int i = 0; i < getItemCount(); ++i) {
        if (!getDataItem(i))
            ranks.push_back(i);
    }
    if (ranks.empty())
        return;
    KuoLock<KpnModif> lock(this);
    _deleteItems(ranks);
    if (lock.isAlive())
        _closeRanking(lock);
}

void KplDataList::setRootIdent(const KsoDataIdentifier& ident, bool setRootType)
{
    _configureAll([root = ident, setRootType](KpaData& item) { item.setRootIdent(root, setRootType); });
}

void KplDataList::setRootType(const KsoEDataType& type)
{
    _configureAll([level = type](KpaData& item) { item.setRootType(level); });
}

void KplDataList::setFilter(const KsoDataFilter& filter)
{
    _configureAll([wanted = filter](KpaData& item) { item.setFilter(wanted); });
}

void KplDataList::addParentFilter(const KsoDataFilter& filter)
{
    _configureAll([wanted = filter](KpaData& item) { item.addParentFilter(wanted); });
}

void KplDataList::setRelative(bool relative)
{
    _configureAll([relative](KpaData& item) { item.setRelative(relative); });
}
