#pragma once

#include <param/atomic/KpaAFilteredItemsAtomic.h>
#include <param/atomic/KpaNeighborhoodItemConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KsoNeighborhoodIdentifier, KpaNeighborhoodItemConfig>;

/// A search neighbourhood of the project. The item, the model and the project may die.
class KESTRIN_PARAM_EXPORT KpaNeighborhoodItem
    : public KpaAFilteredItemsAtomic<
          KpaAAppliAtomic<KsoNeighborhoodIdentifier, KpaNeighborhoodItemConfig, KsmModifNeighborhood>>
{
public:
    KpaNeighborhoodItem(const QString& key, const KstITransactable& transactable);
    KpaNeighborhoodItem(const KpaNeighborhoodItem& other, const QString& newKey);
    KpaNeighborhoodItem* duplicate(const QString& newKey) const override;

    /// Null if there is no item of the value.
    KsoNeighborhood* getNeighborhoodItem() const { return _value.getItem(); }
    /// -1 if there is no item of the value.
    int getNeighborhoodId() const { return _value.getId(); }
};
