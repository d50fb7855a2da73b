#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaProject.h>

#include <study/KssProject.h>
#include <study/KssProjectCollection.h>

template class KpaAAtomic<QUrl, KpaProjectConfig>;

QString KpaProjectConfig::toString(const QUrl& value) const
{
    const KssProject* project = KssProjectCollection::projectFromUrl(value);
    return project ? project->getName() : QString();
}

MbbOrderedMap<QString, QString> KpaProjectConfig::serializeValue(const QUrl& value) const
{
    return KpaConfigTools::singleValue(value.toString());
}

QUrl KpaProjectConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, const QUrl& previous) const
{
    const QString* text = map.find(KpaConfigTools::valueKey());
    return text ? QUrl(*text) : previous;
}

QString KpaProjectConfig::debug() const
{
    return QStringLiteral("----- KpaProjectConfig ---------\n");
}

KpaProject::KpaProject(const QString& key) : KpaAAtomic(key, KpaProjectConfig()) {}

KpaProject::KpaProject(const KpaProject& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaProject* KpaProject::duplicate(const QString& newKey) const
{
    return new KpaProject(*this, newKey);
}

KssProject* KpaProject::getProject() const
{
    return KssProjectCollection::projectFromUrl(_value);
}
