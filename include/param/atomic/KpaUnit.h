#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaUnitConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<MbuUnit, KpaUnitConfig>;

/// The choice of a unit within a unit class.
class KESTRIN_PARAM_EXPORT KpaUnit : public KpaAAtomic<MbuUnit, KpaUnitConfig>
{
public:
    explicit KpaUnit(const QString& key);
    KpaUnit(const KpaUnit& other, const QString& newKey);
    KpaUnit* duplicate(const QString& newKey) const override;

    const MbuEUnitClass& getUnitClass() const { return _config.getUnitClass(); }
    int getPowerValue() const { return _config.getPowerValue(); }
    /// Another class brings the value to the user's display unit of that class.
    void setUnitClass(const MbuEUnitClass& unitClass) { _configChangedIf(_config.setUnitClass(unitClass)); }
    void setPowerValue(int powerValue) { _configChangedIf(_config.setPowerValue(powerValue)); }

    /// A stored unit of another class brings its class along; an unknown one changes nothing. The automatic value
    /// stays, also where it does not fit the new class.
    void unserialize(const SerialForm& map) override;
};
