#include <gtest/gtest.h>

#include <basic/MbbGlobal.h>
#include <basic/MbgBox.h>

#include <limits>

TEST(MbgBox, IsEmptyAndNotValidByDefault)
{
    const MbgBox box;
    EXPECT_FALSE(box.isValid());
    EXPECT_EQ(box.getSize(), MbgVector3D());
    EXPECT_EQ(box.getDiagonalLength(), 0);
}

TEST(MbgBox, SpansTwoCornersInAnyOrder)
{
    const MbgBox box({5, 0, 9}, {3, 3, 3});
    EXPECT_TRUE(box.isValid());
    EXPECT_EQ(box.getMinimum(), MbgVector3D(3, 0, 3));
    EXPECT_EQ(box.getMaximum(), MbgVector3D(5, 3, 9));
    EXPECT_EQ(box.getSize(), MbgVector3D(2, 3, 6));
    EXPECT_EQ(box.getDiagonalLength(), 7);
    EXPECT_EQ(box, MbgBox({3, 3, 3}, {5, 0, 9}));
}

TEST(MbgBox, MayBeFlatOrAPoint)
{
    EXPECT_TRUE(MbgBox({1, 2, 3}, {4, 5, 3}).isValid());
    EXPECT_TRUE(MbgBox({1, 2, 3}, {1, 2, 3}).isValid());
}

TEST(MbgBox, IsNotValidWithACornerThatIsNoPoint)
{
    for (const double value :
         {MbbGlobal::D_FFFF, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
    {
        for (int i = 0; i < 3; ++i) {
            MbgVector3D corner(1, 2, 3);
            corner[i] = value;
            EXPECT_FALSE(MbgBox(corner, {0, 0, 0}).isValid());
            EXPECT_FALSE(MbgBox({0, 0, 0}, corner).isValid());
        }
    }
}

TEST(MbgBox, IsInsideABoxThatHoldsAllOfIt)
{
    const MbgBox outer({0, 0, 0}, {10, 10, 10});
    EXPECT_TRUE(outer.isInside(outer, true));
    EXPECT_TRUE(MbgBox({1, 1, 1}, {9, 10, 9}).isInside(outer, true));
    EXPECT_FALSE(outer.isInside(MbgBox({1, 1, 1}, {9, 10, 9}), true));
    EXPECT_FALSE(MbgBox({-1, 1, 1}, {9, 9, 9}).isInside(outer, true));
    EXPECT_FALSE(MbgBox({1, 1, 1}, {9, 11, 9}).isInside(outer, true));
    EXPECT_FALSE(MbgBox({1, 1, 1}, {9, 9, 11}).isInside(outer, true));
}

TEST(MbgBox, LooksAtZOnlyInThreeDimensions)
{
    const MbgBox outer({0, 0, 0}, {10, 10, 10});
    EXPECT_TRUE(MbgBox({1, 1, -5}, {9, 9, 50}).isInside(outer, false));
    EXPECT_FALSE(MbgBox({1, 1, 1}, {9, 11, 9}).isInside(outer, false));
}

TEST(MbgBox, IsNeverInsideIfOneIsNotValid)
{
    const MbgBox box({0, 0, 0}, {1, 1, 1});
    EXPECT_FALSE(MbgBox().isInside(box, true));
    EXPECT_FALSE(box.isInside(MbgBox(), true));
}

TEST(MbgBox, GrowsToHoldAPoint)
{
    MbgBox box;
    box.extend({1, 2, 3});
    EXPECT_EQ(box, MbgBox({1, 2, 3}, {1, 2, 3}));
    box.extend({0, 5, 3});
    EXPECT_EQ(box, MbgBox({0, 2, 3}, {1, 5, 3}));
}

TEST(MbgBox, DoesNotGrowToWhatIsNoPoint)
{
    MbgBox box({1, 2, 3}, {1, 2, 3});
    EXPECT_TRUE(box.extend({0, 5, 3}));
    for (const double value :
         {MbbGlobal::D_FFFF, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
    {
        EXPECT_FALSE(box.extend({value, 5, 3}));
        EXPECT_EQ(box, MbgBox({0, 2, 3}, {1, 5, 3}));
    }
}

TEST(MbgBox, HasAnInfiniteSizeBeyondTheNumbers)
{
    const MbgBox box({-1.5e308, 0, 0}, {1.5e308, 2, 0});
    EXPECT_TRUE(box.isValid());
    EXPECT_EQ(box.getSize(), MbgVector3D(std::numeric_limits<double>::infinity(), 2, 0));
    EXPECT_EQ(box.getDiagonalLength(), std::numeric_limits<double>::infinity());
}
