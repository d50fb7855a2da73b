#include <basic/MbcCategoryRule.h>
#include <basic/MbcStatBasic.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

MbcStatBasic statisticsOf(const std::vector<double>& values)
{
    MbcStatBasic statistics;
    statistics.add(values);
    return statistics;
}

} // namespace

TEST(MbcStatBasic, GivesTheExtremesTheMeanAndTheDeviationOfTheValues)
{
    const MbcStatBasic statistics = statisticsOf({2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0});
    EXPECT_EQ(statistics.getCount(), 8);
    EXPECT_EQ(statistics.getMinimum(), 2.0);
    EXPECT_EQ(statistics.getMaximum(), 9.0);
    EXPECT_DOUBLE_EQ(statistics.getMean(), 5.0);
    EXPECT_DOUBLE_EQ(statistics.getStandardDeviation(), 2.0);
}

TEST(MbcStatBasic, IsUndefinedWithoutAValue)
{
    const MbcStatBasic statistics;
    EXPECT_EQ(statistics.getCount(), 0);
    EXPECT_EQ(statistics.getMinimum(), MbbGlobal::D_FFFF);
    EXPECT_EQ(statistics.getMaximum(), MbbGlobal::D_FFFF);
    EXPECT_EQ(statistics.getMean(), MbbGlobal::D_FFFF);
    EXPECT_EQ(statistics.getStandardDeviation(), MbbGlobal::D_FFFF);
}

TEST(MbcStatBasic, LeavesOutWhatIsNoDefinedNumber)
{
    const MbcStatBasic statistics =
        statisticsOf({MbbGlobal::D_FFFF, 1.0, std::nan(""), 3.0, std::numeric_limits<double>::infinity()});
    EXPECT_EQ(statistics.getCount(), 2);
    EXPECT_EQ(statistics.getMaximum(), 3.0);
    EXPECT_DOUBLE_EQ(statistics.getMean(), 2.0);
}

TEST(MbcStatBasic, KeepsTheDifferencesOfValuesFarFromZero)
{
    const MbcStatBasic statistics = statisticsOf({1e9 + 4, 1e9 + 7, 1e9 + 13, 1e9 + 16});
    EXPECT_DOUBLE_EQ(statistics.getMean(), 1e9 + 10);
    EXPECT_NEAR(statistics.getStandardDeviation(), std::sqrt(22.5), 1e-6);
}

TEST(MbcStatBasic, OverflowsForNoValues)
{
    const MbcStatBasic statistics = statisticsOf({-1e308, 1e308, -1e308, 1e308});
    EXPECT_NEAR(statistics.getMean(), 0.0, 1e293);
    EXPECT_NEAR(statistics.getStandardDeviation(), 1e308, 1e293);
}

TEST(MbcStatBasic, KeepsTheDeviationOfTheSmallestValues)
{
    const MbcStatBasic statistics = statisticsOf({1e-300, 3e-300});
    EXPECT_NEAR(statistics.getStandardDeviation() / 1e-300, 1.0, 1e-12);
}

TEST(MbcStatBasic, TakesValuesOfGrowingMagnitude)
{
    const MbcStatBasic statistics = statisticsOf({0.0, 1.0, 2.0, 1021.0});
    EXPECT_DOUBLE_EQ(statistics.getMean(), 256.0);
    EXPECT_NEAR(statistics.getStandardDeviation(), std::sqrt((65536.0 + 65025.0 + 64516.0 + 585225.0) / 4.0), 1e-9);
}

TEST(MbcStatBasic, HasAMeanThatLiesBetweenTheExtremes)
{
    const MbcStatBasic statistics = statisticsOf({0.1, 0.1, 0.1});
    EXPECT_EQ(statistics.getMean(), 0.1);
    EXPECT_EQ(statistics.getStandardDeviation(), 0.0);
}

TEST(MbcCategoryRule, HoldsANameAConditionAndAColour)
{
    const MbcCategoryRule rule("Rich", "AUX1 > 3", MbbColor(0xFF102030));
    EXPECT_EQ(rule.getName(), "Rich");
    EXPECT_EQ(rule.getCond(), "AUX1 > 3");
    EXPECT_EQ(rule.getRgba(), 0xFF102030);
    EXPECT_EQ(rule, MbcCategoryRule("Rich", "AUX1 > 3", MbbColor(0xFF102030)));
    EXPECT_NE(rule, MbcCategoryRule("Rich", "AUX1 > 4", MbbColor(0xFF102030)));
}
