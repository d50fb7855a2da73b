#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaCoordSystemConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KuuCoordSystem, KpaCoordSystemConfig>;

/// A coordinate system. A fresh one is none: not valid.
class KESTRIN_PARAM_EXPORT KpaCoordSystem : public KpaAAtomic<KuuCoordSystem, KpaCoordSystemConfig>
{
public:
    explicit KpaCoordSystem(const QString& key);
    KpaCoordSystem(const KpaCoordSystem& other, const QString& newKey);
    KpaCoordSystem* duplicate(const QString& newKey) const override;

    Ku::CoordSystemModes getFilter() const { return _config.getFilter(); }
    void setFilter(Ku::CoordSystemModes filter) { _configChangedIf(_config.setFilter(filter)); }
};
