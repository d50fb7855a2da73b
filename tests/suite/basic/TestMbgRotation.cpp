#include "Geometry.h"

#include <basic/MbgRotationConventionCatalog.h>

#include <limits>
#include <numbers>

using Geometry::degrees;
using Geometry::distance;
using Geometry::expectNear;
using Geometry::rotation;

namespace {
constexpr double Undefined = MbbGlobal::D_FFFF;
const double Half = std::sqrt(0.5);
} // namespace

TEST(MbgRotation, IsNoRotationInTheDefaultConventionByDefault)
{
    const MbgRotation none;
    EXPECT_EQ(none, rotation(0, 0, 0));
    EXPECT_EQ(none.getConventionId(), 0);
    EXPECT_EQ(none.getConvention(), MbgRotationConventionCatalog::getDefault());
    EXPECT_TRUE(none.isIdentity());
    EXPECT_TRUE(none.isDefined());
    EXPECT_EQ(none.getAxisX(), MbgVector3D(1, 0, 0));
    EXPECT_EQ(none.getAxisY(), MbgVector3D(0, 1, 0));
    EXPECT_EQ(none.getAxisZ(), MbgVector3D(0, 0, 1));
}

TEST(MbgRotation, KeepsItsAnglesBitForBit)
{
    const MbgRotation given = rotation(0.1, -1.0 / 3, 720.7);
    EXPECT_EQ(given.getAngle1().getDegreeValue(), 0.1);
    EXPECT_EQ(given.getAngle2().getDegreeValue(), -1.0 / 3);
    EXPECT_EQ(given.getAngle3().getDegreeValue(), 720.7);
}

TEST(MbgRotation, TakesRadiansAndAConvention)
{
    const MbgRotation given(std::numbers::pi / 2, 0.1, -0.2, 2);
    EXPECT_EQ(given.getAngle1().getDegreeValue(), 90);
    EXPECT_EQ(given.getAngle2().getRadianValue(), 0.1);
    EXPECT_EQ(given.getAngle3().getRadianValue(), -0.2);
    EXPECT_EQ(given.getConventionId(), 2);
}

TEST(MbgRotation, TakesTheDefaultConventionForAnUnknownId)
{
    for (const int id : {-1, 3, 999, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(MbgRotation(0, 0, 0, id).getConventionId(), 0) << id;
        EXPECT_EQ(rotation(1, 2, 3, id).getConventionId(), 0) << id;
    }
    MbgRotation given;
    given.setConvention(nullptr, true);
    EXPECT_EQ(given.getConventionId(), 0);
}

TEST(MbgRotation, BringsTheAxesWhereTheAnglesSay)
{
    const struct
    {
        MbgRotation rotation;
        MbgAxisSequence::Axes axes;
    } cases[] = {
        {rotation(90, 0, 0), {{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}},
        {rotation(0, 90, 0), {{{0, 0, -1}, {0, 1, 0}, {1, 0, 0}}}},
        {rotation(0, -90, 0), {{{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}}}},
        {rotation(0, 0, 90), {{{1, 0, 0}, {0, 0, 1}, {0, -1, 0}}}},
        {rotation(0, 0, 0, 1), {{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}},
        {rotation(90, 90, 0, 1), {{{0, 0, -1}, {0, 1, 0}, {1, 0, 0}}}},
        {rotation(90, 90, 0, 2), {{{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}}},
    };
    for (const auto& [given, axes] : cases)
        EXPECT_EQ(given.getAxes(), axes);
    expectNear(rotation(45, 0, 0).getAxisX(), {Half, Half, 0});
    expectNear(rotation(0, 45, 0).getAxisX(), {Half, 0, -Half});
    expectNear(rotation(0, 0, 45).getAxisY(), {0, Half, Half});
}

TEST(MbgRotation, TurnsVectorsIntoItsSystemAndOut)
{
    EXPECT_EQ(rotation(90, 0, 0).worldToLocal({0, 5, 1}), MbgVector3D(5, 0, 1));
    EXPECT_EQ(rotation(90, 0, 0).localToWorld({5, 0, 1}), MbgVector3D(0, 5, 1));
    const MbgRotation tilted = rotation(10, 20, 30);
    expectNear(tilted.localToWorld(tilted.worldToLocal({1, 2, 3})), {1, 2, 3}, 1e-14);
    expectNear(tilted.worldToLocal(tilted.getAxisY()), {0, 1, 0});
}

TEST(MbgRotation, KeepsTheConventionWhenItsAnglesAreSet)
{
    MbgRotation given = rotation(1, 2, 3, 2);
    given.setAngles(degrees(4), degrees(5), degrees(6));
    EXPECT_EQ(given, rotation(4, 5, 6, 2));
}

TEST(MbgRotation, KeepsItsAnglesThroughAConventionThatDoesNotConvert)
{
    MbgRotation given = rotation(10, 20, 30);
    given.setConvention(2, false);
    EXPECT_EQ(given.getConventionId(), 2);
    EXPECT_EQ(given.getAngle1().getDegreeValue(), 10);
    EXPECT_EQ(given.getAngle2().getDegreeValue(), 20);
    EXPECT_EQ(given.getAngle3().getDegreeValue(), 30);
    EXPECT_GT(distance(given.getAxes(), rotation(10, 20, 30).getAxes()), 0.1);
}

TEST(MbgRotation, StaysWhereItIsThroughAConventionThatConverts)
{
    MbgRotation given = rotation(60, 20, 0);
    given.setConvention(1, true);
    EXPECT_EQ(given, rotation(30, 20, 0, 1));
    given = rotation(40, 0, 0);
    given.setConvention(2, true);
    EXPECT_EQ(given, rotation(40, 0, 0, 2));
    given = rotation(0, 0, 90);
    given.setConvention(MbgRotationConventionCatalog::find(2), true);
    EXPECT_EQ(given, rotation(0, 90, 0, 2));
}

TEST(MbgRotation, ComesBackThroughEveryConvention)
{
    for (const MbgRotationConvention* convention : MbgRotationConventionCatalog::getBuiltIn()) {
        for (int i = 0; i < 25 * 13 * 25; ++i) {
            const MbgRotation given = rotation(i / 325 * 15 - 180, i / 25 % 13 * 15 - 90, i % 25 * 15 - 180);
            MbgRotation moved = given;
            moved.setConvention(convention->getId(), true);
            ASSERT_EQ(moved.getConventionId(), convention->getId());
            ASSERT_LE(distance(moved.getAxes(), given.getAxes()), 2e-13);
            moved.setConvention(0, true);
            ASSERT_LE(distance(moved.getAxes(), given.getAxes()), 3e-13);
        }
    }
}

TEST(MbgRotation, KeepsItsAnglesToTheLastDigitWhereTheConventionStays)
{
    MbgRotation given = rotation(500.123, 100, 0.1);
    given.setConvention(0, true);
    EXPECT_EQ(given, rotation(500.123, 100, 0.1));
}

TEST(MbgRotation, KeepsUndefinedAngles)
{
    MbgRotation given = rotation(10, Undefined, 30);
    EXPECT_FALSE(given.isDefined());
    EXPECT_FALSE(given.isIdentity());
    EXPECT_FALSE(given.isAroundZOnly());
    given.setConvention(2, true);
    EXPECT_EQ(given, rotation(10, Undefined, 30, 2));
}

TEST(MbgRotation, DoesNotTurnByUndefinedAngles)
{
    EXPECT_EQ(rotation(90, Undefined, Undefined).getAxes(), rotation(90, 0, 0).getAxes());
    for (const double value : {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(rotation(value, value, value).getAxes(), MbgRotation().getAxes());
        EXPECT_EQ(MbgRotation(value, value, value, 0).getAxes(), MbgRotation().getAxes());
        EXPECT_FALSE(rotation(value, 0, 0).isIdentity());
    }
    EXPECT_TRUE(std::isfinite(rotation(1.7e308, 1.7e308, 1.7e308).getAxisX().x()));
}

TEST(MbgRotation, IsIdentityByWhatItDoes)
{
    EXPECT_TRUE(rotation(360, -720, 0).isIdentity());
    EXPECT_TRUE(rotation(180, 180, 180).isIdentity());
    EXPECT_TRUE(rotation(90, 0, 0, 1).isIdentity());
    EXPECT_TRUE(rotation(30, 0, -30, 2).isIdentity());
    EXPECT_FALSE(rotation(0, 0, 0, 1).isIdentity());
    EXPECT_FALSE(rotation(1e-9, 0, 0).isIdentity());
    EXPECT_FALSE(rotation(0, 0, 1e-9).isIdentity());
}

TEST(MbgRotation, IsAroundZOnlyWhereZStays)
{
    EXPECT_TRUE(MbgRotation().isAroundZOnly());
    EXPECT_TRUE(rotation(123, 0, 0).isAroundZOnly());
    EXPECT_TRUE(rotation(123, 360, -360).isAroundZOnly());
    EXPECT_TRUE(rotation(123, 180, 180).isAroundZOnly());
    EXPECT_TRUE(rotation(12, 0, 45, 2).isAroundZOnly());
    EXPECT_FALSE(rotation(0, 180, 0).isAroundZOnly());
    EXPECT_FALSE(rotation(0, 1e-9, 0).isAroundZOnly());
    EXPECT_FALSE(rotation(0, 0, -1e-9).isAroundZOnly());
}

TEST(MbgRotation, ComparesAnglesAndConventionNotWhatTheyDo)
{
    EXPECT_EQ(rotation(1, 2, 3), rotation(1, 2, 3));
    EXPECT_NE(rotation(1, 2, 3), rotation(0, 2, 3));
    EXPECT_NE(rotation(1, 2, 3), rotation(1, 0, 3));
    EXPECT_NE(rotation(1, 2, 3), rotation(1, 2, 0));
    EXPECT_NE(rotation(1, 2, 3), rotation(1, 2, 3, 2));
    EXPECT_NE(rotation(0, 0, 0), rotation(360, 0, 0));
    EXPECT_EQ(rotation(180, 0, 0), MbgRotation(std::numbers::pi, 0, 0, 0));
}

TEST(MbgRotation, ComesFromItsAxes)
{
    EXPECT_EQ(MbgRotation::fromAxes({{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}), rotation(90, 0, 0));
    EXPECT_EQ(MbgRotation::fromAxes({{{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}}}), rotation(0, -90, 0));
    EXPECT_EQ(MbgRotation::fromAxes(rotation(10, 20, 30).getAxes()), rotation(10, 20, 30));
}

TEST(MbgRotation, IsUndefinedIfItComesFromAxesThatAreNone)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(MbgRotation::fromAxes({{{none, none, none}, {none, none, none}, {none, none, none}}}).isDefined());
}

TEST(MbgRotation, EqualsItselfWhateverItsAngles)
{
    for (const double value : {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(rotation(value, 1, 2), rotation(value, 1, 2));
}

TEST(MbgRotation, NamesTheDirectionOfU)
{
    EXPECT_EQ(MbgRotation().getUDirectionName(), "Azimuth=90°");
    EXPECT_EQ(rotation(60, 20, 70).getUDirectionName(), "Azimuth=30° Plunge=20°");
    EXPECT_EQ(rotation(30, 0, 0, 1).getUDirectionName(), "Azimuth=30°");
    EXPECT_EQ(rotation(0, -90, 0).getUDirectionName(), "Azimuth=90° Plunge=-90°");
    EXPECT_EQ(rotation(Undefined, 0, 0).getUDirectionName(), "Azimuth=N/A Plunge=N/A");
}
