#include <param/list/KplUnitList.h>

template class KpcList<KpaUnit>;
template class KplAAtomicList<KpaUnit, MbuUnit, KpaUnitConfig>;

KplUnitList::KplUnitList(const QString& key) : KplAAtomicList(key) {}

KplUnitList::KplUnitList(const KplUnitList& other, const QString& newKey) : KplAAtomicList(other, newKey) {}

KplUnitList* KplUnitList::duplicate(const QString& newKey) const
{
    return new KplUnitList(*this, newKey);
}
