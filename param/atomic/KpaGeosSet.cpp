#include <param/atomic/KpaGeosSet.h>

#include <study/KssUrlHelper.h>

template class KpaAAtomic<KsoGeosSetIdentifier, KpaGeosSetConfig>;

KsoGeosSetIdentifier KpaGeosSetConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map,
                                                        const KsoGeosSetIdentifier& previous) const
{
    const QString* text = map.find(QStringLiteral("url"));
    if (!text)
        return KpaAFilteredItemsConfig::unserializeValue(map, previous);
    const QUrl url = QUrl::fromEncoded(text->toUtf8());
    return url.isEmpty() ? previous : KssUrlHelper::urlToGsetIdent(url, getModel());
}

KpaGeosSet::KpaGeosSet(const QString& key, const KstITransactable& transactable)
    : KpaAFilteredItemsAtomic(key, KpaGeosSetConfig(), transactable)
{}

KpaGeosSet::KpaGeosSet(const KpaGeosSet& other, const QString& newKey) : KpaAFilteredItemsAtomic(other, newKey) {}

KpaGeosSet* KpaGeosSet::duplicate(const QString& newKey) const
{
    return new KpaGeosSet(*this, newKey);
}
