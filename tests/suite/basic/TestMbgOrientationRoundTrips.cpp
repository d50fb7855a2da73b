#include "Geometry.h"

#include <basic/MbgRotationConventionDefault.h>

#include <random>

using Default = MbgRotationConventionDefault;
using Geometry::degrees;
using Geometry::distance;

namespace {
struct Angles
{
    MbgAngle first;
    MbgAngle second;
    MbgAngle third;
};

Angles direction(const MbgRotation& rotation)
{
    Angles angles;
    Default::rotationToDirection3d(rotation, MbgEAxisType::AXIS_U, angles.first, angles.second);
    return angles;
}

Angles plane(const MbgRotation& rotation)
{
    Angles angles;
    Default::rotationToPlaneOrientation(rotation, angles.first, angles.second);
    return angles;
}

Angles system(const MbgRotation& rotation)
{
    Angles angles;
    Default::rotationToSystemOrientation(rotation, angles.first, angles.second, angles.third);
    return angles;
}

MbgRotation systemRotation(const Angles& angles)
{
    return Default::systemOrientationToRotation(angles.first, angles.second, angles.third);
}

/// A rotation in another convention that does the same, so that no angle can be read off.
MbgRotation inEulersAngles(MbgRotation rotation)
{
    rotation.setConvention(2, true);
    return rotation;
}

/// How far two angles in degrees are apart on the circle.
double apart(const MbgAngle& a, double b)
{
    return std::abs(std::remainder(a.getDegreeValue() - b, 360));
}

/// The upper bound that numbers of twelve decimals and doubles allow, in degrees.
constexpr double Rounding = 2e-11;
} // namespace

TEST(OrientationRoundTrips, GiveDirectionsBackToTheLastDigit)
{
    for (int i = 0; i < 3600; ++i) {
        for (int plunge = -90; plunge < 90; ++plunge) {
            const double azimuth = i / 10.0;
            const Angles found = direction(Default::directionToRotation(degrees(azimuth), degrees(plunge + 0.3)));
            ASSERT_EQ(found.first.getDegreeValue(), azimuth) << plunge;
            ASSERT_EQ(found.second.getDegreeValue(), plunge + 0.3) << azimuth;
        }
    }
}

TEST(OrientationRoundTrips, GiveVerticalDirectionsBackWithTheirAzimuth)
{
    for (int azimuth = 0; azimuth < 360; ++azimuth) {
        for (const double plunge : {-90.0, 90.0}) {
            const MbgRotation rotation = Default::directionToRotation(degrees(azimuth), degrees(plunge));
            EXPECT_EQ(direction(rotation).first, degrees(azimuth));
            EXPECT_EQ(direction(rotation).second, degrees(plunge));
            EXPECT_LE(apart(direction(inEulersAngles(rotation)).first, azimuth), Rounding);
            EXPECT_EQ(direction(inEulersAngles(rotation)).second, degrees(plunge));
        }
    }
}

TEST(OrientationRoundTrips, GiveDirectionsBackFromAnyConvention)
{
    for (int azimuth = 0; azimuth < 360; azimuth += 3) {
        for (int plunge = -89; plunge <= 89; ++plunge) {
            const Angles found =
                direction(inEulersAngles(Default::directionToRotation(degrees(azimuth), degrees(plunge))));
            ASSERT_LE(apart(found.first, azimuth), Rounding) << plunge;
            ASSERT_LE(apart(found.second, plunge), Rounding) << azimuth;
        }
    }
}

TEST(OrientationRoundTrips, WriteARandomDirectionTheSameAfterReadingIt)
{
    std::mt19937_64 random(46);
    std::uniform_real_distribution<double> azimuths(0, 360);
    std::uniform_real_distribution<double> plunges(-90, 90);
    for (int i = 0; i < 100000; ++i) {
        const MbgRotation rotation = Default::directionToRotation(degrees(azimuths(random)), degrees(plunges(random)));
        const Angles written = direction(rotation);
        ASSERT_EQ(Default::directionToRotation(written.first, written.second), rotation);
    }
}

TEST(OrientationRoundTrips, GivePlanesBackToTheLastDigit)
{
    for (int i = 0; i < 3600; ++i) {
        for (int dip = 0; dip <= 90; ++dip) {
            const double dipAzimuth = i / 10.0;
            const Angles found = plane(Default::planeOrientationToRotation(degrees(dip), degrees(dipAzimuth)));
            ASSERT_EQ(found.first.getDegreeValue(), dip) << dipAzimuth;
            ASSERT_EQ(found.second.getDegreeValue(), dipAzimuth) << dip;
        }
    }
}

TEST(OrientationRoundTrips, GivePlanesBackThatAreNearlyHorizontal)
{
    for (double dip = 1; dip > 1e-300; dip /= 1024) {
        const Angles found = plane(Default::planeOrientationToRotation(degrees(dip), degrees(77)));
        EXPECT_EQ(found.first.getDegreeValue(), dip);
        EXPECT_EQ(found.second.getDegreeValue(), 77) << dip;
    }
}

TEST(OrientationRoundTrips, LeaveTheAxisWhereItIsNearTheEndsOfTheRange)
{
    for (double offset = 1; offset > 1e-17; offset /= 3) {
        for (int azimuth = 0; azimuth < 360; azimuth += 7) {
            for (const double end : {-90.0, 0.0, 90.0}) {
                for (const double plunge : {end + offset, end - offset}) {
                    const MbgRotation rotation =
                        inEulersAngles(Default::directionToRotation(degrees(azimuth), degrees(plunge)));
                    const Angles line = direction(rotation);
                    const Angles surface = plane(rotation);
                    const MbgVector3D u = Default::directionToRotation(line.first, line.second).getAxisX();
                    const MbgVector3D w = Default::planeOrientationToRotation(surface.first, surface.second).getAxisZ();
                    ASSERT_LE(distance(u, rotation.getAxisX()), 1e-12) << plunge << ' ' << azimuth;
                    ASSERT_LE(w.cross(rotation.getAxisZ()).getLength(), 1e-12) << plunge << ' ' << azimuth;
                }
            }
        }
    }
}

TEST(OrientationRoundTrips, GivePlanesBackFromAnyConvention)
{
    for (int dipAzimuth = 0; dipAzimuth < 360; dipAzimuth += 3) {
        for (int dip = 0; dip < 90; ++dip) {
            const Angles found =
                plane(inEulersAngles(Default::planeOrientationToRotation(degrees(dip), degrees(dipAzimuth))));
            ASSERT_LE(apart(found.first, dip), Rounding) << dipAzimuth;
            ASSERT_LE(apart(found.second, dipAzimuth), Rounding) << dip;
        }
    }
}

TEST(OrientationRoundTrips, GiveSystemsBack)
{
    for (int dip = 3; dip < 180; dip += 3) {
        for (int dipAzimuth = 0; dipAzimuth < 360; dipAzimuth += 5) {
            for (int pitch = 0; pitch < 360; pitch += 5) {
                const MbgRotation rotation = systemRotation({degrees(dip), degrees(dipAzimuth), degrees(pitch)});
                const Angles found = system(rotation);
                ASSERT_LE(apart(found.first, dip), Rounding) << dipAzimuth << ' ' << pitch;
                ASSERT_LE(apart(found.second, dipAzimuth), Rounding) << dip << ' ' << pitch;
                ASSERT_LE(apart(found.third, pitch), Rounding) << dip << ' ' << dipAzimuth;
            }
        }
    }
}

TEST(OrientationRoundTrips, GiveTheDipAzimuthOfASystemBackToTheLastDigit)
{
    for (int dip = 5; dip < 180; dip += 5) {
        for (int dipAzimuth = 0; dipAzimuth < 360; dipAzimuth += 5) {
            for (int pitch = 0; pitch < 360; pitch += 5) {
                const Angles found = system(systemRotation({degrees(dip), degrees(dipAzimuth), degrees(pitch)}));
                ASSERT_EQ(found.second.getDegreeValue(), dipAzimuth) << dip << ' ' << pitch;
            }
        }
    }
}

TEST(OrientationRoundTrips, KeepEveryRotationThroughItsSystem)
{
    for (int i = 0; i < 25 * 25 * 25; ++i) {
        const MbgRotation rotation = Geometry::rotation(i / 625 * 15 - 180, i / 25 % 25 * 15 - 180, i % 25 * 15 - 180);
        ASSERT_LE(distance(systemRotation(system(rotation)).getAxes(), rotation.getAxes()), 1e-12);
    }
}

TEST(OrientationRoundTrips, KeepSystemsThatAreNearlyHorizontal)
{
    for (double tilt = 1; tilt > 1e-17; tilt /= 3) {
        for (const double dip : {tilt, 180 - tilt}) {
            for (int azimuth = 0; azimuth < 360; azimuth += 7) {
                const MbgRotation rotation = systemRotation({degrees(dip), degrees(azimuth), degrees(100)});
                ASSERT_LE(distance(systemRotation(system(rotation)).getAxes(), rotation.getAxes()), 1e-12) << tilt;
            }
        }
    }
}

TEST(OrientationRoundTrips, StayWithinTheirRanges)
{
    for (int i = 0; i < 25 * 25 * 25; ++i) {
        const MbgRotation rotation = Geometry::rotation(i / 625 * 15 - 180, i / 25 % 25 * 15 - 180, i % 25 * 15 - 180);
        const auto within = [](const MbgAngle& angle, double from, double below) {
            return angle.getDegreeValue() >= from && angle.getDegreeValue() < below;
        };
        const double above90 = std::nextafter(90.0, 91.0);
        const double above180 = std::nextafter(180.0, 181.0);
        ASSERT_TRUE(within(direction(rotation).first, 0, 360) && within(direction(rotation).second, -90, above90));
        ASSERT_TRUE(within(plane(rotation).first, 0, above90) && within(plane(rotation).second, 0, 360));
        ASSERT_TRUE(within(system(rotation).first, 0, above180) && within(system(rotation).second, 0, 360) &&
                    within(system(rotation).third, 0, 360));
    }
}

TEST(OrientationRoundTrips, StayBelowAFullCircleJustLeftOfNorth)
{
    for (double left = 1e-3; left > 1e-18; left /= 10) {
        for (const MbgAngle& azimuth : {degrees(-left), degrees(360 - left)}) {
            const Angles found = direction(Default::directionToRotation(azimuth, degrees(0)));
            EXPECT_GE(found.first.getDegreeValue(), 0) << left;
            EXPECT_LT(found.first.getDegreeValue(), 360) << left;
            EXPECT_LE(apart(found.first, -left), 1e-12) << left;
        }
    }
}

TEST(OrientationRoundTrips, MoveUNoFurtherThanTheDirectionMoves)
{
    const double step = 0.01;
    const double bound = step * 3.15 / 180;
    for (int azimuth = 0; azimuth < 360; azimuth += 10) {
        for (double plunge = -90; plunge < 90; plunge += step) {
            const auto at = [](double azimuth, double plunge) {
                return Default::directionToRotation(degrees(azimuth), degrees(plunge)).getAxes();
            };
            ASSERT_LE(distance(at(azimuth, plunge), at(azimuth, plunge + step)), bound);
        }
    }
}

TEST(OrientationRoundTrips, MoveASystemNoFurtherThanItsAnglesMove)
{
    const double step = 0.5;
    const double bound = step * 3.15 / 180;
    const auto at = [](double dip, double dipAzimuth, double pitch) {
        return systemRotation({degrees(dip), degrees(dipAzimuth), degrees(pitch)}).getAxes();
    };
    for (double dip = -1; dip < 181; dip += step) {
        for (int dipAzimuth = 0; dipAzimuth < 360; dipAzimuth += 15) {
            for (int pitch = 0; pitch < 360; pitch += 15) {
                const auto here = at(dip, dipAzimuth, pitch);
                ASSERT_LE(distance(here, at(dip + step, dipAzimuth, pitch)), bound) << dip;
                ASSERT_LE(distance(here, at(dip, dipAzimuth + step, pitch)), bound) << dip;
                ASSERT_LE(distance(here, at(dip, dipAzimuth, pitch + step)), bound) << dip;
            }
        }
    }
}

TEST(OrientationRoundTrips, KeepTheAzimuthOnTheWayToThePole)
{
    for (double offset = 1; offset > 1e-14; offset /= 2) {
        const Angles found = direction(Default::directionToRotation(degrees(77), degrees(90 - offset)));
        EXPECT_EQ(found.first, degrees(77)) << offset;
    }
}
