#pragma once

#include <basic/MbgAVector.h>

#include <cmath>

/// A point or a vector of space, in a right-handed system of axes. A default one is zero. Arithmetic takes the
/// components as they stand, undefined markers included.
class KESTRIN_BASIC_EXPORT MbgVector3D : public MbgAVector<double, 3>
{
public:
    static const MbgVector3D Null; ///< zero

    constexpr MbgVector3D() = default;
    constexpr MbgVector3D(double x, double y, double z) : MbgAVector(x, y, z) {}

    constexpr double& z() { return _components[2]; }
    constexpr const double& z() const { return _components[2]; }

    constexpr double dot(const MbgVector3D& other) const { return x() * other.x() + y() * other.y() + z() * other.z(); }
    constexpr MbgVector3D cross(const MbgVector3D& other) const
    {
        return {y() * other.z() - z() * other.y(), z() * other.x() - x() * other.z(),
                x() * other.y() - y() * other.x()};
    }
    /// Infinite where it is beyond the numbers.
    double getLength() const { return std::hypot(std::hypot(x(), y()), z()); }
    /// Scales the vector to length 1, however long or short it is. A zero vector stays, and so does one with a
    /// component that is infinite or a NaN.
    void normalize();

    friend constexpr MbgVector3D operator+(const MbgVector3D& a, const MbgVector3D& b)
    {
        return {a.x() + b.x(), a.y() + b.y(), a.z() + b.z()};
    }
    friend constexpr MbgVector3D operator-(const MbgVector3D& a, const MbgVector3D& b)
    {
        return {a.x() - b.x(), a.y() - b.y(), a.z() - b.z()};
    }
    friend constexpr MbgVector3D operator-(const MbgVector3D& a) { return {-a.x(), -a.y(), -a.z()}; }
    friend constexpr MbgVector3D operator*(const MbgVector3D& a, double factor)
    {
        return {a.x() * factor, a.y() * factor, a.z() * factor};
    }
    friend constexpr MbgVector3D operator*(double factor, const MbgVector3D& a) { return a * factor; }
    friend constexpr MbgVector3D operator/(const MbgVector3D& a, double divisor)
    {
        return {a.x() / divisor, a.y() / divisor, a.z() / divisor};
    }
};
