#pragma once

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>
#include <util/KuuCoordSystem.h>

/// What a coordinate system parameter admits: systems of certain kinds.
class KESTRIN_PARAM_EXPORT KpaCoordSystemConfig
{
public:
    friend bool operator==(const KpaCoordSystemConfig& a, const KpaCoordSystemConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::COORD_SYSTEM; }
    KuuCoordSystem getInitialValue() const { return {}; }

    Ku::CoordSystemModes getFilter() const { return _filter; }
    /// The kinds of coordinates to admit; an empty filter admits only systems of no kind. Gives whether something
    /// changed.
    bool setFilter(Ku::CoordSystemModes filter);

    /// A system that is not valid stands, and a valid one all of whose kinds the filter has; anything else gives way to
    /// `previous`.
    KuuCoordSystem fix(const KuuCoordSystem& value, const KuuCoordSystem& previous) const;
    QString toString(const KuuCoordSystem& value) const { return value.getKey(); }
    MbbOrderedMap<QString, QString> serializeValue(const KuuCoordSystem& value) const;
    /// The known system of the stored key, `previous` if there is none.
    KuuCoordSystem unserializeValue(const MbbOrderedMap<QString, QString>& map, const KuuCoordSystem& previous) const;
    QString debug() const;

private:
    Ku::CoordSystemModes _filter = Ku::AllCoordSystemModes;
};
