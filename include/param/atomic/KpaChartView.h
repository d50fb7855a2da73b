#pragma once

#include <param/atomic/KpaAChartPart.h>
#include <param/atomic/KpaChartViewConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KsoChartsIdentifier, KpaChartViewConfig>;

/// A view of a chart file of the project. The chart file, the model and the project may die.
class KESTRIN_PARAM_EXPORT KpaChartView : public KpaAChartPart<KpaChartViewConfig>
{
public:
    KpaChartView(const QString& key, const KstITransactable& transactable);
    KpaChartView(const KpaChartView& other, const QString& newKey);
    KpaChartView* duplicate(const QString& newKey) const override;

    QString getViewName() const { return _value.getViewName(); }
    /// The path of the view: the names of chart file, folder and view, joined by "/".
    QString getViewReference() const { return _value.toViewPath(); }
    void setViewReference(const QString& reference);
    /// Gives the value the names that folder and view have in the present table.
    void updateViewReference();
};
