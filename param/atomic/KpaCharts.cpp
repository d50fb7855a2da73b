#include <param/atomic/KpaCharts.h>

template class KpaAAtomic<KsoChartsIdentifier, KpaChartsConfig>;

KsoChartsIdentifier KpaChartsConfig::fix(const KsoChartsIdentifier& value, const KsoChartsIdentifier& previous) const
{
    if (value.isNull())
        return value;
    KsoChartsIdentifier named = present(value);
    return _newItemAccepted || getIdentifiers().contains(named) ? named : previous;
}

QList<KsoChartsIdentifier> KpaChartsConfig::_findItems() const
{
    QList<KsoChartsIdentifier> found;
    for (const KsoCharts* item : getModel()->getUserItems() + getModel()->getBuiltInItems())
        found.append(item->getIdentifier());
    return found;
}

QString KpaChartsConfig::debug() const
{
    return _debug("----- KpaChartsConfig ---------") +
           QStringLiteral(" new item accepted = %1\n").arg(KpaConfigTools::yesNo(_newItemAccepted));
}

KpaCharts::KpaCharts(const QString& key, const KstITransactable& transactable)
    : KpaAItemsAtomic(key, KpaChartsConfig(), transactable)
{}

KpaCharts::KpaCharts(const KpaCharts& other, const QString& newKey) : KpaAItemsAtomic(other, newKey) {}

KpaCharts* KpaCharts::duplicate(const QString& newKey) const
{
    return new KpaCharts(*this, newKey);
}
