#pragma once

#include <param/atomic/KpaAVector.h>
#include <param/atomic/KpaVectorDoubleConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<MbgVector3D, KpaVectorDoubleConfig>;
extern template class KESTRIN_PARAM_EXPORT KpaAVector<MbgVector3D, double, KpaVectorDoubleConfig, KpaDoubleConfig>;

/// A vector of numbers, each in the storage unit of the unit class of its component.
class KESTRIN_PARAM_EXPORT KpaVectorDouble
    : public KpaAVector<MbgVector3D, double, KpaVectorDoubleConfig, KpaDoubleConfig>
{
public:
    explicit KpaVectorDouble(const QString& key);
    KpaVectorDouble(const KpaVectorDouble& other, const QString& newKey);
    KpaVectorDouble* duplicate(const QString& newKey) const override;

    MbdVariableDetails getComponentDetails(int i) const { return _config.itemConfig(i).getDetails(); }
    int getComponentPowerValue(int i) const { return _config.itemConfig(i).getPowerValue(); }
    const MbuEUnitClass& getComponentUnitClass(int i) const { return _config.itemConfig(i).getUnitClass(); }
    bool isComponentUndefineEnabled(int i) const { return _config.itemConfig(i).isUndefineEnabled(); }

    /// Unit class, power and format of one component.
    void setComponentDetails(int i, const MbdVariableDetails& details);
    /// One component after the other: up to three notifications.
    void setComponentDetails(const MbdVariableDetails& details) { setComponentDetails(details, details, details); }
    void setComponentDetails(const MbdVariableDetails& a, const MbdVariableDetails& b, const MbdVariableDetails& c);

    // Power and unit class drop a custom format.
    void setComponentPowerValue(int i, int powerValue);
    void setComponentPowerValue(int powerValue) { setComponentPowerValues(powerValue, powerValue, powerValue); }
    void setComponentPowerValues(int a, int b, int c);
    void setComponentUnitClass(int i, const MbuEUnitClass& unitClass);
    void setComponentUnitClass(const MbuEUnitClass& unitClass)
    {
        setComponentUnitClasses(unitClass, unitClass, unitClass);
    }
    void setComponentUnitClasses(const MbuEUnitClass& a, const MbuEUnitClass& b, const MbuEUnitClass& c);

    void setUndefinedEnabled(int i, bool enabled);
    /// One component after the other: up to three notifications.
    void setUndefinedEnabled(bool enabled);

private:
    template <class Change>
    void _changeOneByOne(Change change);
};
