#include <param/list/KplIntegerList.h>

template class KpcList<KpaInteger>;
template class KplAAtomicList<KpaInteger, int, KpaIntegerConfig>;

KplIntegerList::KplIntegerList(const QString& key) : KplAAtomicList(key) {}

KplIntegerList::KplIntegerList(const KplIntegerList& other, const QString& newKey) : KplAAtomicList(other, newKey) {}

KplIntegerList* KplIntegerList::duplicate(const QString& newKey) const
{
    return new KplIntegerList(*this, newKey);
}

bool KplIntegerList::isDefined(int rank) const
{
    return _ofItem(rank, [](const KpaInteger& item) { return item.isDefined(); });
}
