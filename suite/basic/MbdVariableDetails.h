#pragma once

#include <basic/MbdNumericDetails.h>

/// What is known of a variable besides its values: the unit class and the power of its numbers and how to show them. A
/// plain value.
class KESTRIN_BASIC_EXPORT MbdVariableDetails
{
public:
    /// A plain number of power 1 in the default format.
    MbdVariableDetails() = default;
    explicit MbdVariableDetails(const MbuEUnitClass& unitClass) : _numeric(unitClass) {}

    const MbuEUnitClass& getUnitClass() const { return _numeric.getUnitClass(); }
    void setUnitClass(const MbuEUnitClass& unitClass) { _numeric.setUnitClass(unitClass); }

    /// The exponent of the unit.
    int getPowerValue() const { return _powerValue; }
    void setPowerValue(int powerValue) { _powerValue = powerValue; }

    /// Whether the values show in the user's format for the unit class, whatever the numeric details hold. Initially
    /// true.
    bool isUnitDefaultFormatUsed() const { return _unitDefaultFormatUsed; }
    void setUnitDefaultFormatUsed(bool used) { _unitDefaultFormatUsed = used; }

    const MbdNumericDetails& getNumericDetails() const { return _numeric; }
    MbdNumericDetails& getNumericDetails() { return _numeric; }

    friend bool operator==(const MbdVariableDetails& a, const MbdVariableDetails& b)
    {
        return a._numeric == b._numeric && a._powerValue == b._powerValue &&
               a._unitDefaultFormatUsed == b._unitDefaultFormatUsed;
    }
    friend bool operator!=(const MbdVariableDetails& a, const MbdVariableDetails& b) { return !(a == b); }

private:
    MbdNumericDetails _numeric;
    int _powerValue = 1;
    bool _unitDefaultFormatUsed = true;
};
