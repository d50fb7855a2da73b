#include <gtest/gtest.h>

#include <basic/MbiAIntervalIntDisjoint.h>

#include <limits>

namespace {

using Interval = MbiAIntervalIntDisjoint::Interval;

MbiAIntervalIntDisjoint made(std::initializer_list<Interval> intervals)
{
    MbiAIntervalIntDisjoint made;
    for (const Interval& interval : intervals)
        made.add(interval.first, interval.last);
    return made;
}

} // namespace

TEST(MbiAIntervalIntDisjoint, IsEmptyAtFirst)
{
    EXPECT_TRUE(MbiAIntervalIntDisjoint().isEmpty());
    EXPECT_FALSE(MbiAIntervalIntDisjoint().contains(0));
}

TEST(MbiAIntervalIntDisjoint, KeepsIntervalsApartAndAscending)
{
    EXPECT_EQ(made({{5, 6}, {1, 2}, {9, 9}}).getIntervals(), QVector<Interval>({{1, 2}, {5, 6}, {9, 9}}));
}

TEST(MbiAIntervalIntDisjoint, JoinsWhatOverlapsOrTouches)
{
    EXPECT_EQ(made({{1, 2}, {5, 6}, {3, 4}}).getIntervals(), QVector<Interval>({{1, 6}}));
    EXPECT_EQ(made({{1, 9}, {3, 4}}).getIntervals(), QVector<Interval>({{1, 9}}));
    EXPECT_EQ(made({{3, 4}, {8, 8}, {1, 20}}).getIntervals(), QVector<Interval>({{1, 20}}));
    EXPECT_EQ(made({{1, 2}, {2, 3}}).getIntervals(), QVector<Interval>({{1, 3}}));
}

TEST(MbiAIntervalIntDisjoint, TakesTheFarthestNumbers)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    const MbiAIntervalIntDisjoint set = made({{highest, highest}, {lowest, lowest}, {highest - 1, highest}});
    EXPECT_EQ(set.getIntervals(), QVector<Interval>({{lowest, lowest}, {highest - 1, highest}}));
    EXPECT_TRUE(set.contains(highest));
    EXPECT_FALSE(set.contains(0));
}

TEST(MbiAIntervalIntDisjoint, AddsNothingForAnIntervalThatEndsBeforeItStarts)
{
    EXPECT_TRUE(made({{2, 1}}).isEmpty());
}

TEST(MbiAIntervalIntDisjoint, ComparesTheNumbersInIt)
{
    EXPECT_EQ(made({{1, 2}, {3, 4}}), made({{1, 4}}));
    EXPECT_NE(made({{1, 2}}), made({{1, 3}}));
    MbiAIntervalIntDisjoint cleared = made({{1, 2}});
    cleared.clear();
    EXPECT_EQ(cleared, MbiAIntervalIntDisjoint());
}
