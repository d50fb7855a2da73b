#pragma once

#include <param/atomic/KpaAChartPart.h>
#include <param/atomic/KpaChartFolderConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KsoChartsIdentifier, KpaChartFolderConfig>;

/// A folder of a chart file of the project. The chart file, the model and the project may die.
class KESTRIN_PARAM_EXPORT KpaChartFolder : public KpaAChartPart<KpaChartFolderConfig>
{
public:
    KpaChartFolder(const QString& key, const KstITransactable& transactable);
    KpaChartFolder(const KpaChartFolder& other, const QString& newKey);
    KpaChartFolder* duplicate(const QString& newKey) const override;
};
