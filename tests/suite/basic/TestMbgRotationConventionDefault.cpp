#include "Geometry.h"

#include <basic/MbgRotationConventionDefault.h>

#include <limits>
#include <numbers>

using Default = MbgRotationConventionDefault;
using Geometry::degrees;
using Geometry::expectNear;
using Geometry::rotation;

namespace {
constexpr double Undefined = MbbGlobal::D_FFFF;
const double Half = std::sqrt(0.5);
const double Root3 = std::sqrt(3.0) / 2;

struct Direction
{
    double azimuth;
    double plunge;
    friend bool operator==(const Direction& a, const Direction& b) = default;
};

Direction direction(const MbgRotation& rotation, const MbgEAxisType& axis = MbgEAxisType::AXIS_U)
{
    MbgAngle azimuth;
    MbgAngle plunge;
    Default::rotationToDirection3d(rotation, axis, azimuth, plunge);
    return {azimuth.getDegreeValue(), plunge.getDegreeValue()};
}

struct Plane
{
    double dip;
    double dipAzimuth;
    friend bool operator==(const Plane& a, const Plane& b) = default;
};

Plane plane(const MbgRotation& rotation)
{
    MbgAngle dip;
    MbgAngle dipAzimuth;
    Default::rotationToPlaneOrientation(rotation, dip, dipAzimuth);
    return {dip.getDegreeValue(), dipAzimuth.getDegreeValue()};
}

using System = std::array<double, 3>; // dip, dip azimuth, pitch

System system(const MbgRotation& rotation)
{
    MbgAngle dip;
    MbgAngle dipAzimuth;
    MbgAngle pitch;
    Default::rotationToSystemOrientation(rotation, dip, dipAzimuth, pitch);
    return {dip.getDegreeValue(), dipAzimuth.getDegreeValue(), pitch.getDegreeValue()};
}
} // namespace

TEST(MbgRotationConventionDefault, PointsUAlongADirection)
{
    const struct
    {
        Direction given;
        MbgVector3D u;
    } cases[] = {
        {{0, 0}, {0, 1, 0}},          {{90, 0}, {1, 0, 0}},          {{180, 0}, {0, -1, 0}},
        {{270, 0}, {-1, 0, 0}},       {{45, 0}, {Half, Half, 0}},    {{0, 45}, {0, Half, -Half}},
        {{90, -45}, {Half, 0, Half}}, {{30, 0}, {0.5, Root3, 0}},    {{0, 90}, {0, 0, -1}},
        {{123, 90}, {0, 0, -1}},      {{123, -90}, {0, 0, 1}},       {{-90, 0}, {-1, 0, 0}},
        {{450, 0}, {1, 0, 0}},        {{0, 135}, {0, -Half, -Half}},
    };
    for (const auto& [given, u] : cases)
        expectNear(Default::directionToRotation(degrees(given.azimuth), degrees(given.plunge)).getAxisX(), u);
}

TEST(MbgRotationConventionDefault, IsNoRotationTowardsTheEast)
{
    EXPECT_EQ(Default::directionToRotation(degrees(90), degrees(0)), MbgRotation());
    EXPECT_EQ(Default::planeOrientationToRotation(degrees(0), degrees(90)), MbgRotation());
    EXPECT_EQ(Default::systemOrientationToRotation(degrees(0), degrees(90), degrees(90)), MbgRotation());
    EXPECT_EQ(direction(MbgRotation()), (Direction{90, 0}));
    EXPECT_EQ(plane(MbgRotation()), (Plane{0, 90}));
    EXPECT_EQ(system(MbgRotation()), (System{0, 90, 90}));
}

TEST(MbgRotationConventionDefault, GivesADirectionInTheDefaultConvention)
{
    EXPECT_EQ(Default::directionToRotation(degrees(30), degrees(20)), rotation(60, 20, 0));
    EXPECT_EQ(Default::directionToRotation(degrees(300), degrees(-20)), rotation(150, -20, 0));
}

TEST(MbgRotationConventionDefault, ReadsTheDirectionOfUWhateverTheConvention)
{
    EXPECT_EQ(direction(rotation(60, 20, 0)), (Direction{30, 20}));
    EXPECT_EQ(direction(rotation(60, 20, 77)), (Direction{30, 20}));
    EXPECT_EQ(direction(rotation(60 - 720, 20, 0)), (Direction{30, 20}));
    EXPECT_EQ(direction(rotation(30, 20, 0, 1)), (Direction{30, 20}));
    EXPECT_EQ(direction(rotation(-60, 20, 0, 1)), (Direction{300, 20}));
    EXPECT_EQ(direction(rotation(90, 90, 0, 2)), (Direction{0, 0}));
    EXPECT_EQ(direction(rotation(0, 90, 90, 2)).plunge, -90);
    EXPECT_EQ(direction(rotation(60, 160, 0)), (Direction{210, 20}));
    EXPECT_EQ(direction(MbgRotation(std::numbers::pi / 3, 0, 0, 0)), (Direction{30, 0}));
}

TEST(MbgRotationConventionDefault, ReadsTheDirectionsOfTheOtherAxes)
{
    EXPECT_EQ(direction(MbgRotation(), MbgEAxisType::AXIS_V), (Direction{0, 0}));
    EXPECT_EQ(direction(MbgRotation(), MbgEAxisType::AXIS_W).plunge, -90);
    EXPECT_EQ(direction(rotation(0, 90, 0), MbgEAxisType::AXIS_W), (Direction{90, 0}));
}

TEST(MbgRotationConventionDefault, PointsTheOtherAxesAlongADirection)
{
    for (const MbgEAxisType* axis : MbgEAxisType::items()) {
        for (const Direction given : {Direction{30, 20}, Direction{200, -70}, Direction{350, 90}, Direction{10, -90}}) {
            const MbgRotation made = Default::directionToRotation(degrees(given.azimuth), degrees(given.plunge), *axis);
            EXPECT_EQ(direction(made, *axis), given) << axis->getKey().toStdString();
            const auto next = made.getAxes()[std::size_t(axis->getValue() + 1) % 3];
            EXPECT_NEAR(next.z(), 0, 1e-15);
        }
    }
}

TEST(MbgRotationConventionDefault, TakesTheDirectionInTheMapFor2d)
{
    MbgAngle azimuth;
    Default::rotationToDirection2d(rotation(60, 20, 33), MbgEAxisType::AXIS_U, azimuth);
    EXPECT_EQ(azimuth, degrees(30));
    Default::rotationToDirection2d(rotation(60, 90, 0), MbgEAxisType::AXIS_U, azimuth);
    EXPECT_EQ(azimuth, degrees(30));
}

TEST(MbgRotationConventionDefault, LaysWAcrossAPlaneAndUDownIt)
{
    const struct
    {
        Plane given;
        MbgVector3D u;
        MbgVector3D w;
    } cases[] = {
        {{0, 90}, {1, 0, 0}, {0, 0, 1}},
        {{0, 0}, {0, 1, 0}, {0, 0, 1}},
        {{90, 90}, {0, 0, -1}, {1, 0, 0}},
        {{90, 0}, {0, 0, -1}, {0, 1, 0}},
        {{45, 0}, {0, Half, -Half}, {0, Half, Half}},
        {{30, 180}, {0, -Root3, -0.5}, {0, -0.5, Root3}},
    };
    for (const auto& [given, u, w] : cases) {
        const MbgRotation made = Default::planeOrientationToRotation(degrees(given.dip), degrees(given.dipAzimuth));
        expectNear(made.getAxisX(), u);
        expectNear(made.getAxisZ(), w);
    }
}

TEST(MbgRotationConventionDefault, ReadsThePlaneWhicheverSideItsNormalPointsTo)
{
    EXPECT_EQ(plane(rotation(0, 30, 0)), (Plane{30, 90}));
    EXPECT_EQ(plane(rotation(0, -30, 0)), (Plane{30, 270}));
    EXPECT_EQ(plane(rotation(0, 150, 0)), (Plane{30, 270}));
    EXPECT_EQ(plane(rotation(0, 0, 30)), (Plane{30, 180}));
    EXPECT_EQ(plane(rotation(0, 0, 90)), (Plane{90, 180}));
    EXPECT_EQ(plane(rotation(0, 90, 0)), (Plane{90, 90}));
    EXPECT_EQ(plane(rotation(0, 30, 180)), (Plane{30, 90}));
    EXPECT_EQ(plane(rotation(20, 0, 180)).dip, 0);
    EXPECT_EQ(plane(rotation(0, 30, 0, 2)), (Plane{30, 180}));
}

TEST(MbgRotationConventionDefault, GivesAHorizontalPlaneTheAzimuthOfU)
{
    EXPECT_EQ(plane(rotation(60, 0, 0)), (Plane{0, 30}));
    EXPECT_EQ(plane(rotation(60, 360, 0)), (Plane{0, 30}));
    EXPECT_EQ(plane(rotation(20, 0, 40, 2)), (Plane{0, 30}));
}

TEST(MbgRotationConventionDefault, LaysUInThePlaneByItsPitchFromTheStrike)
{
    const struct
    {
        System given;
        MbgVector3D u;
        MbgVector3D w;
    } cases[] = {
        {{0, 90, 0}, {0, 1, 0}, {0, 0, 1}},          {{0, 90, 90}, {1, 0, 0}, {0, 0, 1}},
        {{0, 90, 30}, {0.5, Root3, 0}, {0, 0, 1}},   {{0, 0, 0}, {-1, 0, 0}, {0, 0, 1}},
        {{90, 90, 0}, {0, 1, 0}, {1, 0, 0}},         {{90, 90, 90}, {0, 0, -1}, {1, 0, 0}},
        {{90, 90, 180}, {0, -1, 0}, {1, 0, 0}},      {{90, 90, 270}, {0, 0, 1}, {1, 0, 0}},
        {{30, 180, 0}, {1, 0, 0}, {0, -0.5, Root3}}, {{30, 180, 90}, {0, -Root3, -0.5}, {0, -0.5, Root3}},
        {{180, 90, 0}, {0, 1, 0}, {0, 0, -1}},       {{180, 90, 90}, {-1, 0, 0}, {0, 0, -1}},
    };
    for (const auto& [given, u, w] : cases) {
        const MbgRotation made =
            Default::systemOrientationToRotation(degrees(given[0]), degrees(given[1]), degrees(given[2]));
        expectNear(made.getAxisX(), u, 1e-13);
        expectNear(made.getAxisZ(), w, 1e-13);
        EXPECT_EQ(made.getConventionId(), 0);
    }
}

TEST(MbgRotationConventionDefault, GivesAHorizontalSystemTheAzimuthOfUForItsPitch)
{
    EXPECT_EQ(system(rotation(60, 0, 0)), (System{0, 90, 30}));
    EXPECT_EQ(system(rotation(60, 360, 0)), (System{0, 90, 30}));
    EXPECT_EQ(system(rotation(20, 0, 40, 2)), (System{0, 90, 30}));
    EXPECT_EQ(Default::systemOrientationToRotation(degrees(0), degrees(90), degrees(30)), rotation(60, 0, 0));
    EXPECT_EQ(Default::systemOrientationToRotation(degrees(0), degrees(120), degrees(0)), rotation(60, 0, 0));
}

TEST(MbgRotationConventionDefault, ReadsASystem)
{
    EXPECT_EQ(system(rotation(0, 30, 0)), (System{30, 90, 90}));
    EXPECT_EQ(system(rotation(0, 0, 30)), (System{30, 180, 0}));
    EXPECT_EQ(system(rotation(0, 0, -30)), (System{30, 0, 180}));
    EXPECT_EQ(system(rotation(0, 180, 0)), (System{180, 90, 90}));
    EXPECT_EQ(system(rotation(0, 0, 180)), (System{180, 90, 270}));
    EXPECT_EQ(system(rotation(0, 0, 120)), (System{120, 180, 0}));
}

TEST(MbgRotationConventionDefault, GivesTheDirectionOfUWithASystemToWhoAsks)
{
    MbgAngle dip;
    MbgAngle dipAzimuth;
    MbgAngle pitch;
    MbgAngle azimuth;
    MbgAngle plunge;
    Default::rotationToSystemOrientation(rotation(60, 20, 10), dip, dipAzimuth, pitch, &azimuth, &plunge);
    EXPECT_EQ(azimuth, degrees(30));
    EXPECT_EQ(plunge, degrees(20));
    Default::rotationToSystemOrientation(rotation(60, 20, 10), dip, dipAzimuth, pitch, nullptr, nullptr);
}

TEST(MbgRotationConventionDefault, LeavesOutFullTurnsHoweverManyTheyAre)
{
    constexpr double turns = 1e15 * 360;
    EXPECT_EQ(direction(rotation(turns, 0, 0)), (Direction{90, 0}));
    EXPECT_EQ(direction(rotation(-turns, 20 + 720, 0, 1)), (Direction{0, 20}));
    EXPECT_EQ(Default::directionToRotation(degrees(turns), degrees(20)), rotation(90, 20, 0));
    EXPECT_EQ(Default::planeOrientationToRotation(degrees(20), degrees(-turns)), rotation(90, 20, 0));
    EXPECT_EQ(Default::systemOrientationToRotation(degrees(turns), degrees(turns), degrees(turns)),
              Default::systemOrientationToRotation(degrees(0), degrees(0), degrees(0)));
}

TEST(MbgRotationConventionDefault, AgreesWithTheAxesForHugeAngles)
{
    for (const double angle : {1e17, -1e17, 1e300, -1.7e308}) {
        for (const int convention : {0, 1}) {
            const MbgRotation huge = rotation(angle, 0, 0, convention);
            MbgAngle azimuth;
            Default::rotationToDirection2d(huge, MbgEAxisType::AXIS_U, azimuth);
            expectNear(Default::directionToRotation(azimuth, degrees(0)).getAxisX(), huge.getAxisX(), 1e-13);
        }
        const auto axes = Default::systemOrientationToRotation(degrees(30), degrees(angle), degrees(40)).getAxes();
        expectNear(axes[0].cross(axes[1]), axes[2], 1e-15);
        expectNear(axes[2], Default::planeOrientationToRotation(degrees(30), degrees(angle)).getAxisZ(), 1e-13);
    }
}

TEST(MbgRotationConventionDefault, PassesOnWhatIsUndefined)
{
    EXPECT_EQ(direction(rotation(0, Undefined, 0)), (Direction{Undefined, Undefined}));
    EXPECT_EQ(plane(rotation(0, 0, Undefined)), (Plane{Undefined, Undefined}));
    EXPECT_EQ(system(rotation(Undefined, 0, 0)), (System{Undefined, Undefined, Undefined}));
    const double values[] = {Undefined, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()};
    const MbgRotation undefined = rotation(Undefined, Undefined, Undefined);
    for (const double value : values) {
        EXPECT_EQ(Default::directionToRotation(degrees(value), degrees(0)), undefined);
        EXPECT_EQ(Default::directionToRotation(degrees(0), degrees(value)), undefined);
        EXPECT_EQ(Default::planeOrientationToRotation(degrees(value), degrees(0)), undefined);
        EXPECT_EQ(Default::planeOrientationToRotation(degrees(0), degrees(value)), undefined);
        EXPECT_EQ(Default::systemOrientationToRotation(degrees(value), degrees(0), degrees(0)), undefined);
        EXPECT_EQ(Default::systemOrientationToRotation(degrees(0), degrees(value), degrees(0)), undefined);
        EXPECT_EQ(Default::systemOrientationToRotation(degrees(0), degrees(0), degrees(value)), undefined);
    }
}

TEST(MbgRotationConventionDefault, WritesDirectionsAndPlanes)
{
    EXPECT_EQ(Default::directionToString(degrees(30), degrees(20), false, false), "Azimuth=30° Plunge=20°");
    EXPECT_EQ(Default::directionToString(degrees(30), degrees(20), true, false), "Azimuth=30°");
    EXPECT_EQ(Default::directionToString(degrees(30), degrees(20), false, true), "<nobr>Azimuth=30° Plunge=20°</nobr>");
    EXPECT_EQ(Default::planeOrientationToString(degrees(30), degrees(45.5), false), "Dip=30° Dip azimuth=45.5°");
    EXPECT_EQ(Default::planeOrientationToString(degrees(30), degrees(45.5), true),
              "<nobr>Dip=30° Dip azimuth=45.5°</nobr>");
    EXPECT_EQ(Default::planeOrientationToString(degrees(Undefined), degrees(45), false), "Dip=N/A Dip azimuth=45°");
}
