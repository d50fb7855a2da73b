#include <param/atomic/KpaColorScale.h>

template class KpaAAtomic<KsoColorScaleIdentifier, KpaColorScaleConfig>;

KpaColorScale::KpaColorScale(const QString& key, const KstITransactable& transactable)
    : KpaAFilteredItemsAtomic(key, KpaColorScaleConfig(), transactable)
{}

KpaColorScale::KpaColorScale(const KpaColorScale& other, const QString& newKey) : KpaAFilteredItemsAtomic(other, newKey)
{}

KpaColorScale* KpaColorScale::duplicate(const QString& newKey) const
{
    return new KpaColorScale(*this, newKey);
}
