#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaCoordSystem.h>

#include <util/KuuCoordSystemCatalog.h>

template class KpaAAtomic<KuuCoordSystem, KpaCoordSystemConfig>;

bool KpaCoordSystemConfig::setFilter(Ku::CoordSystemModes filter)
{
    return KpaConfigTools::store(_filter, filter);
}

KuuCoordSystem KpaCoordSystemConfig::fix(const KuuCoordSystem& value, const KuuCoordSystem& previous) const
{
    if (!value.isValid())
        return value;
    const Ku::CoordSystemModes mode = value.getMode();
    const bool sameKind = mode ? (mode & _filter) == mode : !_filter;
    return sameKind ? value : previous;
}

MbbOrderedMap<QString, QString> KpaCoordSystemConfig::serializeValue(const KuuCoordSystem& value) const
{
    return KpaConfigTools::singleValue(value.getKey());
}

KuuCoordSystem KpaCoordSystemConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map,
                                                      const KuuCoordSystem& previous) const
{
    const KuuCoordSystem known = KuuCoordSystemCatalog::getCoordSystem(map.value(KpaConfigTools::valueKey()));
    return known.isValid() ? known : previous;
}

QString KpaCoordSystemConfig::debug() const
{
    const auto admitted = [this](Ku::CoordSystemMode mode) { return KpaConfigTools::yesNo(_filter.testFlag(mode)); };
    QString text;
    QTextStream(&text) << "----- KpaCoordSystemConfig --------\n"
                       << " Geographic       = " << admitted(Ku::CoordSystemMode::Geographic) << '\n'
                       << " Local            = " << admitted(Ku::CoordSystemMode::Local) << '\n'
                       << " Projected        = " << admitted(Ku::CoordSystemMode::Projected) << '\n';
    return text;
}

KpaCoordSystem::KpaCoordSystem(const QString& key) : KpaAAtomic(key, KpaCoordSystemConfig()) {}

KpaCoordSystem::KpaCoordSystem(const KpaCoordSystem& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaCoordSystem* KpaCoordSystem::duplicate(const QString& newKey) const
{
    return new KpaCoordSystem(*this, newKey);
}
