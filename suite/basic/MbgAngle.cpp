#include <basic/MbbUserStringFormats.h>
#include <basic/MbgAngle.h>
#include <basic/MbgDegrees.h>

namespace {
/// The values of `MbgEAngleUnit`.
enum Unit : int
{
    Degree = 0,
    Radian = 1,
    Grade = 2,
};

double fromDegrees(double degrees, int unit)
{
    switch (unit) {
    case Radian:
        return degrees * MbgDegrees::Radian;
    case Grade:
        return degrees / 9 * 10;
    default:
        return degrees;
    }
}

/// The number of degrees that `fromDegrees` brings to `value`, of several the one with the fewest decimals. Not every
/// double is such an image; the nearest number of degrees stands for one that is not.
double toDegrees(double value, int unit)
{
    if (unit == Degree)
        return value;
    const double degrees = unit == Radian ? value / MbgDegrees::Radian : value / 10 * 9;
    const double candidates[] = {MbgDegrees::rounded(degrees), degrees, std::nextafter(degrees, 0.0),
                                 std::nextafter(degrees, 2 * degrees)};
    for (const double candidate : candidates) {
        if (fromDegrees(candidate, unit) == value)
            return candidate;
    }
    return degrees;
}
} // namespace

MbgAngle::MbgAngle(double value, const MbgEAngleUnit& unit) : _value(value), _unit(unit.getValue())
{
    if (!std::isfinite(getDegreeValue()))
        _value = MbbGlobal::D_FFFF;
}

double MbgAngle::_getValue(int unit) const
{
    return unit == _unit || _value == MbbGlobal::D_FFFF ? _value : fromDegrees(toDegrees(_value, _unit), unit);
}

double MbgAngle::getDegreeValue() const
{
    return _getValue(Degree);
}

double MbgAngle::getRadianValue() const
{
    return _getValue(Radian);
}

QString MbgAngle::toString() const
{
    // The degree is the storage unit of angles.
    return MbbUserStringFormats::getStringFormat(MbuEUnitClass::ANGLE).valueToString(getDegreeValue());
}
