#pragma once

#include <basic/BasicExport.h>

#include <cmath>

/// Trigonometry in degrees: exact at all multiples of a right angle, whatever the number of turns, and never a negative
/// zero. A NaN gives a NaN, and so does an infinite angle.
class KESTRIN_BASIC_EXPORT MbgDegrees
{
public:
    static constexpr double Radian = 3.14159265358979323846 / 180; ///< one degree

    static double sin(double degrees);
    static double cos(double degrees) { return sin(degrees, 1); }
    /// The angle of the point (x, y) in (-180, 180], rounded as `rounded` does; 0 for the origin.
    static double atan2(double y, double x);

    /// The nearest multiple of 10^-12 degrees: that much is certain of an angle that comes out of a matrix, and it
    /// makes 30 out of 29.999999999999996. From 9007 degrees on, where numbers are further apart than that, the angle
    /// as it is.
    static double rounded(double degrees);
    /// The same angle in [0, `circle`).
    static double positive(double angle, double circle = 360);
    /// The same angle in (-`circle` / 2, `circle` / 2].
    static double centred(double angle, double circle = 360);

private:
    /// The sine of the angle and `quarters` right angles.
    static double sin(double degrees, int quarters);
};
