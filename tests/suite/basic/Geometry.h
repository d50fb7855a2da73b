#pragma once

#include <gtest/gtest.h>

#include <basic/MbgRotation.h>

/// Short forms for tests of geometry.
namespace Geometry {

inline MbgAngle degrees(double value)
{
    return {value, MbgEAngleUnit::DEGREE};
}

/// In the default convention.
inline MbgRotation rotation(double degrees1, double degrees2, double degrees3)
{
    return {degrees(degrees1), degrees(degrees2), degrees(degrees3)};
}

/// The angles in degrees, read as in the convention of the id.
inline MbgRotation rotation(double degrees1, double degrees2, double degrees3, int conventionId)
{
    MbgRotation made = rotation(degrees1, degrees2, degrees3);
    made.setConvention(conventionId, false);
    return made;
}

inline double distance(const MbgVector3D& a, const MbgVector3D& b)
{
    return (a - b).getLength();
}

/// The greatest distance between the tips of the axes.
inline double distance(const MbgAxisSequence::Axes& a, const MbgAxisSequence::Axes& b)
{
    return std::max({distance(a[0], b[0]), distance(a[1], b[1]), distance(a[2], b[2])});
}

inline void expectNear(const MbgVector3D& actual, const MbgVector3D& expected, double tolerance = 1e-15)
{
    EXPECT_LE(distance(actual, expected), tolerance)
        << "(" << actual.x() << ", " << actual.y() << ", " << actual.z() << ") is not (" << expected.x() << ", "
        << expected.y() << ", " << expected.z() << ")";
}

} // namespace Geometry
