#pragma once

#include <param/atomic/KpaAFilteredItemsAtomic.h>
#include <param/atomic/KpaCatalogConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KsoEnumCatalogIdentifier, KpaCatalogConfig>;

/// A catalog of categories of the project. The item, the model and the project may die.
class KESTRIN_PARAM_EXPORT KpaCatalog
    : public KpaAFilteredItemsAtomic<KpaAAppliAtomic<KsoEnumCatalogIdentifier, KpaCatalogConfig, KsmModifEnumCatalog>>
{
public:
    KpaCatalog(const QString& key, const KstITransactable& transactable);
    KpaCatalog(const KpaCatalog& other, const QString& newKey);
    KpaCatalog* duplicate(const QString& newKey) const override;

    /// Null if there is no item of the value.
    KsoEnumCatalog* getCatalogItem() const { return _value.getItem(); }
};
