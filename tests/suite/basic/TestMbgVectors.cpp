#include <gtest/gtest.h>

#include <basic/MbbGlobal.h>
#include <basic/MbgIntVector3D.h>
#include <basic/MbgVector2D.h>
#include <basic/MbgVector3D.h>

#include <limits>

TEST(MbgVector3D, IsZeroByDefault)
{
    EXPECT_EQ(MbgVector3D(), MbgVector3D(0, 0, 0));
    EXPECT_EQ(MbgVector3D::Null, MbgVector3D(0, 0, 0));
}

TEST(MbgVector3D, GivesItsComponentsByNameAndByIndex)
{
    MbgVector3D vector(1, 2, 3);
    EXPECT_EQ(vector.x(), 1);
    EXPECT_EQ(vector.y(), 2);
    EXPECT_EQ(vector.z(), 3);
    vector.x() = 4;
    vector.y() = 5;
    vector.z() = 6;
    EXPECT_EQ(vector[0], 4);
    EXPECT_EQ(vector[1], 5);
    EXPECT_EQ(vector[2], 6);
    vector[2] = 7;
    EXPECT_EQ(vector, MbgVector3D(4, 5, 7));
}

TEST(MbgVector3D, DiffersInAnyComponent)
{
    const MbgVector3D vector(1, 2, 3);
    EXPECT_NE(vector, MbgVector3D(0, 2, 3));
    EXPECT_NE(vector, MbgVector3D(1, 0, 3));
    EXPECT_NE(vector, MbgVector3D(1, 2, 0));
}

TEST(MbgVector3D, IsDefinedWhenAllComponentsAre)
{
    EXPECT_TRUE(MbgVector3D(1, 2, 3).isDefined());
    EXPECT_FALSE(MbgVector3D(MbbGlobal::D_FFFF, 2, 3).isDefined());
    EXPECT_FALSE(MbgVector3D(1, MbbGlobal::D_FFFF, 3).isDefined());
    EXPECT_FALSE(MbgVector3D(1, 2, MbbGlobal::D_FFFF).isDefined());
}

TEST(MbgVector3D, Calculates)
{
    const MbgVector3D a(1, 2, 3);
    const MbgVector3D b(4, 6, 8);
    EXPECT_EQ(a + b, MbgVector3D(5, 8, 11));
    EXPECT_EQ(b - a, MbgVector3D(3, 4, 5));
    EXPECT_EQ(-a, MbgVector3D(-1, -2, -3));
    EXPECT_EQ(a * 2, MbgVector3D(2, 4, 6));
    EXPECT_EQ(2 * a, MbgVector3D(2, 4, 6));
    EXPECT_EQ(b / 2, MbgVector3D(2, 3, 4));
    EXPECT_EQ(a.dot(b), 40);
    EXPECT_EQ(MbgVector3D(1, 0, 0).cross(MbgVector3D(0, 1, 0)), MbgVector3D(0, 0, 1));
    EXPECT_EQ(MbgVector3D(2, 3, 6).getLength(), 7);
    EXPECT_EQ(MbgVector3D(0x2p1000, 0x3p1000, 0x6p1000).getLength(), 0x7p1000);
    EXPECT_EQ(MbgVector3D(1, -std::numeric_limits<double>::infinity(), 0).getLength(),
              std::numeric_limits<double>::infinity());
}

TEST(MbgVector3D, NormalizesToLengthOne)
{
    MbgVector3D vector(0, 3, 4);
    vector.normalize();
    EXPECT_EQ(vector, MbgVector3D(0, 0.6, 0.8));
}

TEST(MbgVector3D, NormalizesHoweverLongOrShortItIs)
{
    const double smallest = std::numeric_limits<double>::denorm_min();
    for (const double length : {smallest, 1e-300, 1e300, 4e307}) {
        MbgVector3D vector(0, 3 * length, -4 * length);
        vector.normalize();
        EXPECT_NEAR(vector.y(), 0.6, 2e-16) << length;
        EXPECT_NEAR(vector.z(), -0.8, 2e-16) << length;
    }
    MbgVector3D vector(1.7e308, 1.7e308, 1.7e308);
    vector.normalize();
    EXPECT_NEAR(vector.x(), 0.57735026918962576, 1e-15);
    EXPECT_EQ(vector, MbgVector3D(vector.x(), vector.x(), vector.x()));
}

TEST(MbgVector3D, StaysWhereItCannotBeNormalized)
{
    MbgVector3D zero;
    zero.normalize();
    EXPECT_EQ(zero, MbgVector3D());
    const double infinity = std::numeric_limits<double>::infinity();
    MbgVector3D endless(infinity, 1, 0);
    endless.normalize();
    EXPECT_EQ(endless, MbgVector3D(infinity, 1, 0));
    MbgVector3D none(3, std::numeric_limits<double>::quiet_NaN(), 4);
    none.normalize();
    EXPECT_EQ(none.x(), 3);
    EXPECT_EQ(none.z(), 4);
}

TEST(MbgIntVector3D, HoldsThreeIntegers)
{
    EXPECT_EQ(MbgIntVector3D(), MbgIntVector3D(0, 0, 0));
    MbgIntVector3D vector(1, 2, 3);
    vector.z() = 4;
    vector[0] = 5;
    EXPECT_EQ(vector, MbgIntVector3D(5, 2, 4));
    EXPECT_NE(vector, MbgIntVector3D(5, 2, 3));
}

TEST(MbgIntVector3D, IsDefinedWhenAllComponentsAre)
{
    EXPECT_TRUE(MbgIntVector3D(1, 2, 3).isDefined());
    for (int i = 0; i < 3; ++i) {
        MbgIntVector3D vector(1, 2, 3);
        vector[i] = MbbGlobal::I32_FFFF;
        EXPECT_FALSE(vector.isDefined()) << i;
    }
}

TEST(MbgVector2D, HoldsTwoNumbers)
{
    EXPECT_EQ(MbgVector2D(), MbgVector2D(0, 0));
    MbgVector2D vector(1, 2);
    vector.y() = 3;
    EXPECT_EQ(vector, MbgVector2D(1, 3));
    EXPECT_EQ(vector[0], 1);
    EXPECT_TRUE(vector.isDefined());
    EXPECT_FALSE(MbgVector2D(1, MbbGlobal::D_FFFF).isDefined());
}
