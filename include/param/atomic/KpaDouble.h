#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaDoubleConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<double, KpaDoubleConfig>;

/// A number within limits, in the storage unit of its unit class. Operations that name a unit convert; a unit of
/// another class leaves the number as it is, in the storage unit.
class KESTRIN_PARAM_EXPORT KpaDouble : public KpaAAtomic<double, KpaDoubleConfig>
{
public:
    explicit KpaDouble(const QString& key);
    KpaDouble(const KpaDouble& other, const QString& newKey);
    KpaDouble* duplicate(const QString& newKey) const override;

    double getStep() const { return _config.getStep(); }
    double getMinimum() const { return _config.getMinimum(); }
    double getMaximum() const { return _config.getMaximum(); }
    bool isStepDefined() const { return _config.isStepDefined(); }
    bool isMinimumDefined() const { return _config.isMinimumDefined(); }
    bool isMaximumDefined() const { return _config.isMaximumDefined(); }
    bool isUndefineEnabled() const { return _config.isUndefineEnabled(); }
    bool isWrapped() const { return _config.isWrapped(); }
    /// Whether the value is not the undefined marker.
    bool isDefined() const { return _config.isDefined(_value); }
    const MbuEUnitClass& getUnitClass() const { return _config.getUnitClass(); }
    int getPowerValue() const { return _config.getPowerValue(); }
    const QString& getUndefString() const { return _config.getUndefString(); }
    bool useCustomFormat() const { return _config.useCustomFormat(); }
    const MbbStringFormat& getCustomFormat() const { return _config.getCustomFormat(); }
    MbbStringFormat getDisplayFormat() const { return _config.getDisplayFormat(); }
    MbdVariableDetails getDetails() const { return _config.getDetails(); }

    double getValueFromUnit(const MbuUnit& unit) const { return _config.convertFromStorageUnit(_value, unit); }
    double getAutoValueFromUnit(const MbuUnit& unit) const { return _config.convertFromStorageUnit(_autoValue, unit); }
    void setValueWithUnit(double value, const MbuUnit& unit) { setValue(_config.convertToStorageUnit(value, unit)); }
    void setAutoValueWithUnit(double value, const MbuUnit& unit)
    {
        setAutoValue(_config.convertToStorageUnit(value, unit));
    }

    void setStep(double step) { _configChangedIf(_config.setStep(step)); }
    void setMinimum(double minimum) { _configChangedIf(_config.setMinimum(minimum)); }
    void setMaximum(double maximum) { _configChangedIf(_config.setMaximum(maximum)); }
    /// The smaller of the two becomes the minimum if both are defined; otherwise each bound stays where it was passed.
    void setRange(double a, double b) { _configChangedIf(_config.setRange(a, b)); }
    /// The step is converted like a value, with any offset of the unit included.
    void setStep(double step, const MbuUnit& unit) { setStep(_config.convertToStorageUnit(step, unit)); }
    void setMinimum(double minimum, const MbuUnit& unit) { setMinimum(_config.convertToStorageUnit(minimum, unit)); }
    void setMaximum(double maximum, const MbuUnit& unit) { setMaximum(_config.convertToStorageUnit(maximum, unit)); }
    void setRange(double a, double b, const MbuUnit& unit);
    void unsetStep() { setStep(MbbGlobal::D_FFFF); }
    void unsetMinimum() { setMinimum(MbbGlobal::D_FFFF); }
    void unsetMaximum() { setMaximum(MbbGlobal::D_FFFF); }
    void setUndefineEnabled(bool enabled) { _configChangedIf(_config.setUndefineEnabled(enabled)); }
    void setWrapping(bool wrapped) { _configChangedIf(_config.setWrapped(wrapped)); }
    /// Like `setUnitClass`, drops a custom format.
    void setPowerValue(int powerValue) { _configChangedIf(_config.setUnitClass(getUnitClass(), powerValue)); }
    void setUnitClass(const MbuEUnitClass& unitClass)
    {
        _configChangedIf(_config.setUnitClass(unitClass, getPowerValue()));
    }
    void setCustomFormat(const MbbStringFormat& format) { _configChangedIf(_config.setCustomFormat(format)); }
    void setUndefString(const QString& text) { _configChangedIf(_config.setUndefString(text)); }
    void setDetails(const MbdVariableDetails& details) { _configChangedIf(_config.setDetails(details)); }
};
