#pragma once

#include <QtCore/QString>

#include <util/KuCoordSystemMode.h>
#include <util/UtilExport.h>

/// A coordinate system: a key that is stored, a name for people and the kind of its coordinates. A plain value;
/// `KuuCoordSystemCatalog` gives the known ones. A default one is not valid: its key is empty.
class KESTRIN_UTIL_EXPORT KuuCoordSystem
{
public:
    KuuCoordSystem() = default;
    KuuCoordSystem(const QString& key, const QString& name, Ku::CoordSystemModes mode)
        : _key(key),
          _name(name),
          _mode(mode)
    {}

    bool isValid() const { return !_key.isEmpty(); }
    /// Such as "EPSG:2154".
    const QString& getKey() const { return _key; }
    const QString& getName() const { return _name; }
    /// Empty for a system of another kind, such as geocentric coordinates.
    Ku::CoordSystemModes getMode() const { return _mode; }
    bool isGeographic() const { return _mode.testFlag(Ku::CoordSystemMode::Geographic); }
    bool isLocal() const { return _mode.testFlag(Ku::CoordSystemMode::Local); }
    bool isProjected() const { return _mode.testFlag(Ku::CoordSystemMode::Projected); }

    friend bool operator==(const KuuCoordSystem& a, const KuuCoordSystem& b)
    {
        return a._key == b._key && a._name == b._name && a._mode == b._mode;
    }
    friend bool operator!=(const KuuCoordSystem& a, const KuuCoordSystem& b) { return !(a == b); }

private:
    QString _key;
    QString _name;
    Ku::CoordSystemModes _mode;
};
