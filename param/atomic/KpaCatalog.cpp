#include <param/atomic/KpaCatalog.h>

template class KpaAAtomic<KsoEnumCatalogIdentifier, KpaCatalogConfig>;

KpaCatalog::KpaCatalog(const QString& key, const KstITransactable& transactable)
    : KpaAFilteredItemsAtomic(key, KpaCatalogConfig(), transactable)
{}

KpaCatalog::KpaCatalog(const KpaCatalog& other, const QString& newKey) : KpaAFilteredItemsAtomic(other, newKey) {}

KpaCatalog* KpaCatalog::duplicate(const QString& newKey) const
{
    return new KpaCatalog(*this, newKey);
}
