#pragma once

#include <param/atomic/KpaAItemsAtomic.h>
#include <param/atomic/KpaChartsConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KsoChartsIdentifier, KpaChartsConfig>;

/// A chart file of the project. The item, the model and the project may die.
class KESTRIN_PARAM_EXPORT KpaCharts
    : public KpaAItemsAtomic<KpaAAppliAtomic<KsoChartsIdentifier, KpaChartsConfig, KsmModifCharts>>
{
public:
    KpaCharts(const QString& key, const KstITransactable& transactable);
    KpaCharts(const KpaCharts& other, const QString& newKey);
    KpaCharts* duplicate(const QString& newKey) const override;

    bool isNewItemAccepted() const { return _config.isNewItemAccepted(); }
    void acceptNewItem(bool accepted) { _configChangedIf(_config.acceptNewItem(accepted)); }

    /// -1 if there is no item of the value.
    int getChartsId() const { return _value.getId(); }
    /// Null if there is no item of the value.
    KsoCharts* getChartsItem() const { return _value.getItem(); }
};
