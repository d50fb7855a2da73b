#include <gtest/gtest.h>

#include <basic/MbbGlobal.h>
#include <basic/MbeError.h>
#include <geos/MgmMatrixBounds.h>

#include <cmath>
#include <limits>

namespace {
constexpr double none = MbbGlobal::D_FFFF;
constexpr double infinity = std::numeric_limits<double>::infinity();

/// The bounds of a matrix of one element.
MgmMatrixBounds within(double minimum, double maximum)
{
    MgmMatrixBounds bounds(1);
    bounds.tighten(0, 0, minimum, maximum);
    return bounds;
}
} // namespace

TEST(MgmMatrixBounds, MovesANumberToTheNearerLimit)
{
    struct Row
    {
        double minimum, maximum, value, nearest;
    };
    const Row rows[] = {
        {0, 2, 1, 1},        {0, 2, -1, 0},           {0, 2, 3, 2},
        {none, 2, -9, -9},   {none, 2, 3, 2},         {0, none, 9, 9},
        {0, none, -1, 0},    {none, none, 7, 7},      {-infinity, infinity, 7, 7},
        {infinity, 2, 1, 1}, {std::nan(""), 2, 1, 1}, {5, 2, 9, 2},
        {5, 2, 0, 2},
    };
    for (const Row& row : rows)
        EXPECT_EQ(within(row.minimum, row.maximum).nearest(0, 0, row.value), row.nearest)
            << row.minimum << ' ' << row.maximum << ' ' << row.value;
}

TEST(MgmMatrixBounds, LimitsTheMirrorImageToo)
{
    MgmMatrixBounds bounds(2);
    bounds.tighten(0, 1, -1.0, 1.0);
    EXPECT_EQ(bounds.getLower(1, 0), -1.0);
    EXPECT_EQ(bounds.getUpper(1, 0), 1.0);
    EXPECT_EQ(bounds.getUpper(0, 0), infinity);
}

TEST(MgmMatrixBounds, KeepsWhatLiesWithinBothLimits)
{
    MgmMatrixBounds bounds = within(0.0, 10.0);
    bounds.tighten(0, 0, 5.0, 20.0);
    EXPECT_EQ(bounds.getLower(0, 0), 5.0);
    EXPECT_EQ(bounds.getUpper(0, 0), 10.0);
}

TEST(MgmMatrixBounds, TakesTheNewLimitsWhereTheOldOnesHaveNothingInCommonWithThem)
{
    MgmMatrixBounds bounds = within(0.0, 1.0);
    bounds.tighten(0, 0, 5.0, 6.0);
    EXPECT_EQ(bounds.getLower(0, 0), 5.0);
    EXPECT_EQ(bounds.getUpper(0, 0), 6.0);
}

TEST(MgmMatrixBounds, GivesTheNearestMatrix)
{
    MgmMatrixBounds bounds(2);
    bounds.tighten(0, 0, none, 1.0);
    bounds.tighten(0, 1, 3.0, none);
    MgmMatrix matrix(2, 2, 1);
    matrix.setElement(0, 0, 5.0);
    matrix.setElement(1, 1, 5.0);
    const MgmMatrix nearest = bounds.nearest(matrix);
    EXPECT_EQ(nearest.getElement(0, 0), 1.0);
    EXPECT_EQ(nearest.getElement(0, 1), 3.0);
    EXPECT_EQ(nearest.getElement(1, 0), 3.0);
    EXPECT_EQ(nearest.getElement(1, 1), 5.0);
}

TEST(MgmMatrixBounds, RefusesElementsOutside)
{
    MgmMatrixBounds bounds(2);
    EXPECT_THROW(bounds.tighten(2, 0, 0.0, 1.0), MbeProgrammingError);
    EXPECT_THROW(bounds.getLower(0, -1), MbeProgrammingError);
    EXPECT_THROW(MgmMatrixBounds(-1), MbeProgrammingError);
}
