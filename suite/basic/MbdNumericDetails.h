#pragma once

#include <basic/MbbStringFormat.h>

#include <optional>

/// The part of the details of a variable that concerns its numbers: their unit class and, if the user gave the variable
/// one, a display format of its own. A plain value.
class KESTRIN_BASIC_EXPORT MbdNumericDetails
{
public:
    MbdNumericDetails() = default;
    explicit MbdNumericDetails(const MbuEUnitClass& unitClass) : _unitClass(unitClass) {}

    const MbuEUnitClass& getUnitClass() const { return _unitClass; }
    void setUnitClass(const MbuEUnitClass& unitClass) { _unitClass = unitClass; }

    bool hasUserDefinedStringFormat() const { return _format.has_value(); }
    /// The format stands as it is given, even if its unit class is another one.
    void setUserDefinedStringFormat(const MbbStringFormat& format) { _format = format; }
    void unsetUserDefinedStringFormat() { _format.reset(); }
    /// The user-defined format; without one, the user's present format for the unit class.
    MbbStringFormat getStringFormat() const;

    friend bool operator==(const MbdNumericDetails& a, const MbdNumericDetails& b)
    {
        return a._unitClass == b._unitClass && a._format == b._format;
    }
    friend bool operator!=(const MbdNumericDetails& a, const MbdNumericDetails& b) { return !(a == b); }

private:
    MbuEUnitClass _unitClass;
    std::optional<MbbStringFormat> _format;
};
