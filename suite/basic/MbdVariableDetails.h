#pragma once

#include <basic/MbdEVarType.h>
#include <basic/MbdEnumDetails.h>
#include <basic/MbdNumericDetails.h>

/// What is known of a variable besides its values: their type, the unit class and the power of its numbers and how to
/// show them, and the catalog of its categories. A plain value.
class KESTRIN_BASIC_EXPORT MbdVariableDetails
{
public:
    /// A plain number of power 1 in the default format, of the default type.
    MbdVariableDetails() = default;
    explicit MbdVariableDetails(const MbuEUnitClass& unitClass) : _numeric(unitClass) {}

    const MbdEVarType& getType() const { return _type; }
    void setType(const MbdEVarType& type) { _type = type; }

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

    /// What concerns the categories; it says nothing unless the type is ENUM.
    const MbdEnumDetails& getEnumDetails() const { return _enum; }
    MbdEnumDetails& getEnumDetails() { return _enum; }

    friend bool operator==(const MbdVariableDetails& a, const MbdVariableDetails& b)
    {
        return a._type == b._type && a._enum == b._enum && a._numeric == b._numeric && a._powerValue == b._powerValue &&
               a._unitDefaultFormatUsed == b._unitDefaultFormatUsed;
    }
    friend bool operator!=(const MbdVariableDetails& a, const MbdVariableDetails& b) { return !(a == b); }

private:
    MbdEVarType _type;
    MbdNumericDetails _numeric;
    MbdEnumDetails _enum;
    int _powerValue = 1;
    bool _unitDefaultFormatUsed = true;
};
