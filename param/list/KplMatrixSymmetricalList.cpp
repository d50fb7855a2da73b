#include <param/list/KplMatrixSymmetricalList.h>

template class KpcList<KpaMatrixSymmetrical>;
template class KplAAtomicList<KpaMatrixSymmetrical, KuuMatrixSymmetrical, KpaMatrixSymmetricalConfig>;

KplMatrixSymmetricalList::KplMatrixSymmetricalList(const QString& key) : KplAAtomicList(key) {}

KplMatrixSymmetricalList::KplMatrixSymmetricalList(const KplMatrixSymmetricalList& other, const QString& newKey)
    : KplAAtomicList(other, newKey)
{}

KplMatrixSymmetricalList* KplMatrixSymmetricalList::duplicate(const QString& newKey) const
{
    return new KplMatrixSymmetricalList(*this, newKey);
}

bool KplMatrixSymmetricalList::canItBeNull(int rank) const
{
    return _ofItem(rank, [](const KpaMatrixSymmetrical& item) { return item.canItBeNull(); });
}
