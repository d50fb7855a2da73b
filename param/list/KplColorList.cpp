#include <param/list/KplColorList.h>

template class KpcList<KpaColor>;
template class KplAAtomicList<KpaColor, QColor, KpaColorConfig>;

KplColorList::KplColorList(const QString& key) : KplAAtomicList(key) {}

KplColorList::KplColorList(const KplColorList& other, const QString& newKey) : KplAAtomicList(other, newKey) {}

KplColorList* KplColorList::duplicate(const QString& newKey) const
{
    return new KplColorList(*this, newKey);
}

bool KplColorList::isAlphaEnabled(int rank) const
{
    return _ofItem(rank, [](const KpaColor& item) { return item.isAlphaEnabled(); });
}
