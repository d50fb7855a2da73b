#pragma once

#include <param/atomic/KpaAFilteredItemsAtomic.h>
#include <param/atomic/KpaGeosSetConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KsoGeosSetIdentifier, KpaGeosSetConfig>;

/// A geostatistical set of the project. The item, the model and the project may die.
class KESTRIN_PARAM_EXPORT KpaGeosSet
    : public KpaAFilteredItemsAtomic<KpaAAppliAtomic<KsoGeosSetIdentifier, KpaGeosSetConfig, KsmModifGeosSet>>
{
public:
    KpaGeosSet(const QString& key, const KstITransactable& transactable);
    KpaGeosSet(const KpaGeosSet& other, const QString& newKey);
    KpaGeosSet* duplicate(const QString& newKey) const override;

    /// Null if there is no item of the value.
    KsoGeosSet* getGeosSetItem() const { return _value.getItem(); }
    /// -1 if there is no item of the value.
    int getGeosSetId() const { return _value.getId(); }
};
