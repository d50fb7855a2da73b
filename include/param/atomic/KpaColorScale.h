#pragma once

#include <param/atomic/KpaAFilteredItemsAtomic.h>
#include <param/atomic/KpaColorScaleConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KsoColorScaleIdentifier, KpaColorScaleConfig>;

/// A colour scale of the project. The item, the model and the project may die.
class KESTRIN_PARAM_EXPORT KpaColorScale
    : public KpaAFilteredItemsAtomic<KpaAAppliAtomic<KsoColorScaleIdentifier, KpaColorScaleConfig, KsmModifColorScale>>
{
public:
    KpaColorScale(const QString& key, const KstITransactable& transactable);
    KpaColorScale(const KpaColorScale& other, const QString& newKey);
    KpaColorScale* duplicate(const QString& newKey) const override;

    /// Null if there is no item of the value.
    KsoColorScale* getColorScaleItem() const { return _value.getItem(); }
};
