#include <param/atomic/KpaNeighborhoodItem.h>

template class KpaAAtomic<KsoNeighborhoodIdentifier, KpaNeighborhoodItemConfig>;

KpaNeighborhoodItem::KpaNeighborhoodItem(const QString& key, const KstITransactable& transactable)
    : KpaAFilteredItemsAtomic(key, KpaNeighborhoodItemConfig(), transactable)
{}

KpaNeighborhoodItem::KpaNeighborhoodItem(const KpaNeighborhoodItem& other, const QString& newKey)
    : KpaAFilteredItemsAtomic(other, newKey)
{}

KpaNeighborhoodItem* KpaNeighborhoodItem::duplicate(const QString& newKey) const
{
    return new KpaNeighborhoodItem(*this, newKey);
}
