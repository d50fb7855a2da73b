#include <geos/MgcQuickStat.h>

#include <basic/MbeError.h>

#include <gtest/gtest.h>

TEST(MgcQuickStat, CalculatesEachColumnOfItsRole)
{
    MgdDataSetPoints points;
    points.addColumn(Mbd::Role::V, {1.0, 2.0, 3.0});
    points.addColumn(Mbd::Role::X, {100.0, 200.0, 300.0});
    points.addColumn(Mbd::Role::V, {10.0, MbbGlobal::D_FFFF, 30.0});
    MgcQuickStat quickStat(Mbd::Role::V);
    quickStat.setInputDataSet(points);
    quickStat.run();

    const MgmMultivariateStatistics& statistics = quickStat.getMultivariateStatistics();
    ASSERT_EQ(statistics.getVariableCount(), 2);
    EXPECT_EQ(statistics.getConstUnivariateStats(0).getMaximum(), 3.0);
    EXPECT_EQ(statistics.getConstUnivariateStats(1).getMean(), 20.0);
    EXPECT_EQ(statistics.getConstUnivariateStats(1).getCount(), 2);
    EXPECT_THROW(statistics.getConstUnivariateStats(2), MbeProgrammingError);
}

TEST(MgcQuickStat, ForgetsTheFormerResultsInANewRun)
{
    MgdDataSetPoints points;
    points.addColumn(Mbd::Role::V, {1.0});
    MgcQuickStat quickStat(Mbd::Role::V);
    quickStat.setInputDataSet(points);
    quickStat.run();
    quickStat.run();
    EXPECT_EQ(quickStat.getMultivariateStatistics().getVariableCount(), 1);
}

TEST(MgcQuickStat, NeedsADataSet)
{
    EXPECT_THROW(MgcQuickStat(Mbd::Role::V).run(), MbeProgrammingError);
}

TEST(MgdDataSetPoints, RefusesColumnsOfAnotherLength)
{
    MgdDataSetPoints points;
    points.addColumn(Mbd::Role::V, {1.0, 2.0});
    EXPECT_THROW(points.addColumn(Mbd::Role::X, {1.0}), MbeProgrammingError);
    EXPECT_EQ(points.getSampleCount(), 2u);
    EXPECT_EQ(points.getColumnCount(Mbd::Role::X), 0);
}

TEST(MgdDataSetPoints, HasNoColumnsOnceItIsCleared)
{
    MgdDataSetPoints points;
    points.addColumn(Mbd::Role::V, {1.0, 2.0});
    points.clear();
    EXPECT_TRUE(points.isEmpty());
    EXPECT_THROW(points.getColumn(Mbd::Role::V, 0), MbeProgrammingError);
}
