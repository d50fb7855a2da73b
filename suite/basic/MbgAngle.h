#pragma once

#include <QtCore/QString>

#include <basic/MbbGlobal.h>
#include <basic/MbgEAngleUnit.h>

/// An angle: a number and its unit, both kept as they were given, so that the number comes back bit for bit in the unit
/// it came in. A plain value; a default one is 0 degrees. The number `MbbGlobal::D_FFFF`, and one that is not finite in
/// degrees, make an undefined angle, whose number is that marker in every unit.
class KESTRIN_BASIC_EXPORT MbgAngle
{
public:
    MbgAngle() = default;
    MbgAngle(double value, const MbgEAngleUnit& unit);

    const MbgEAngleUnit& getUnit() const { return MbgEAngleUnit::fromValue(_unit); }
    /// The number in another unit. Of several numbers that lead back to the number given, it is the one with the fewest
    /// decimals: 30 degrees turned into radians are 30 degrees again.
    double getValue(const MbgEAngleUnit& unit) const { return _getValue(unit.getValue()); }
    double getDegreeValue() const;
    double getRadianValue() const;

    bool isDefined() const { return _value != MbbGlobal::D_FFFF; }

    /// In the user's format for angles; `MbbGlobal::STR_NA` for an undefined angle.
    QString toString() const;

    // Angles compare as their degree values do; full turns count.
    friend bool operator==(const MbgAngle& a, const MbgAngle& b) { return a.getDegreeValue() == b.getDegreeValue(); }
    friend bool operator!=(const MbgAngle& a, const MbgAngle& b) { return !(a == b); }
    friend bool operator<(const MbgAngle& a, const MbgAngle& b) { return a.getDegreeValue() < b.getDegreeValue(); }
    friend bool operator<=(const MbgAngle& a, const MbgAngle& b) { return a.getDegreeValue() <= b.getDegreeValue(); }
    friend bool operator>(const MbgAngle& a, const MbgAngle& b) { return b < a; }
    friend bool operator>=(const MbgAngle& a, const MbgAngle& b) { return b <= a; }

private:
    double _getValue(int unit) const;

    double _value = 0;
    int _unit = 0; ///< the value of the `MbgEAngleUnit`
};
