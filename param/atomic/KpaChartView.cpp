#include <param/atomic/KpaChartView.h>

template class KpaAAtomic<KsoChartsIdentifier, KpaChartViewConfig>;

KpaChartView::KpaChartView(const QString& key, const KstITransactable& transactable) : KpaAChartPart(key, transactable)
{}

KpaChartView::KpaChartView(const KpaChartView& other, const QString& newKey) : KpaAChartPart(other, newKey) {}

KpaChartView* KpaChartView::duplicate(const QString& newKey) const
{
    return new KpaChartView(*this, newKey);
}

void KpaChartView::setViewReference(const QString& reference)
{
    setValue(KsoChartsIdentifier::fromViewPath(reference, getModel()));
}

void KpaChartView::updateViewReference()
{
    setValue(getTable().updateViewRef(_value));
}
