#include <param/atomic/KpaChartFolder.h>

template class KpaAAtomic<KsoChartsIdentifier, KpaChartFolderConfig>;

KpaChartFolder::KpaChartFolder(const QString& key, const KstITransactable& transactable)
    : KpaAChartPart(key, transactable)
{}

KpaChartFolder::KpaChartFolder(const KpaChartFolder& other, const QString& newKey) : KpaAChartPart(other, newKey) {}

KpaChartFolder* KpaChartFolder::duplicate(const QString& newKey) const
{
    return new KpaChartFolder(*this, newKey);
}
