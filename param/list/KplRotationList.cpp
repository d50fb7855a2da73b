#include <param/list/KplRotationList.h>

template class KpcList<KpaRotation>;
template class KplAAtomicList<KpaRotation, MbgRotation, KpaRotationConfig>;

KplRotationList::KplRotationList(const QString& key) : KplAAtomicList(key) {}

KplRotationList::KplRotationList(const KplRotationList& other, const QString& newKey) : KplAAtomicList(other, newKey) {}

KplRotationList* KplRotationList::duplicate(const QString& newKey) const
{
    return new KplRotationList(*this, newKey);
}

void KplRotationList::setDimension(const MbgEDimension& dimension, double fillValue)
{
    _configureAll([&](KpaRotation& item) { item.setDimension(dimension, fillValue); });
}
