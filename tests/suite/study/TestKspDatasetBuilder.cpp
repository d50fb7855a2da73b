#include <basic/MbeError.h>
#include <geos/MgdDataSetPoints.h>
#include <study/KspDatasetBuilder.h>
#include <study/KstTransactionWrapperR.h>

#include <support/SampledProject.h>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

class KspDatasetBuilderTest : public testing::Test
{
protected:
    SampledProject project;
    KstTransactionWrapperR transaction{project};
    KspDatasetBuilder builder{transaction};
    MgdDataSetPoints dataset;
};

TEST_F(KspDatasetBuilderTest, BuildsAColumnForEachVariableInItsRole)
{
    builder.setSupport(project.assays);
    builder.assignVariable(project.item("Au"), Mbd::Role::V);
    builder.assignVariable(project.item("Cu"), Mbd::Role::X);
    builder.assignVariable(project.item("No"), Mbd::Role::V);
    dataset.addColumn(Mbd::Role::Y, {1, 2});
    builder.buildDataset(dataset, false);

    EXPECT_EQ(dataset.getColumnCount(Mbd::Role::V), 2);
    EXPECT_EQ(dataset.getColumnCount(Mbd::Role::X), 1);
    EXPECT_EQ(dataset.getColumnCount(Mbd::Role::Y), 0);
    EXPECT_THAT(dataset.getColumn(Mbd::Role::V, 0), ElementsAre(1, 2, 3, 4, MbbGlobal::D_FFFF));
    EXPECT_THAT(dataset.getColumn(Mbd::Role::V, 1), ElementsAre(-2, -1, 0, 1, 2));
    EXPECT_THAT(dataset.getColumn(Mbd::Role::X, 0), ElementsAre(10, 20, 30, 40, 50));
}

TEST_F(KspDatasetBuilderTest, LeavesOutSamplesThatAreNotDefinedEverywhereIfItIsAskedTo)
{
    builder.setSupport(project.assays);
    builder.assignVariable(project.item("Au"), Mbd::Role::V);
    builder.assignVariable(project.item("Rock"), Mbd::Role::WEIGHT);
    builder.buildDataset(dataset, true);

    EXPECT_THAT(dataset.getColumn(Mbd::Role::V, 0), ElementsAre(1, 2, 3));
    EXPECT_THAT(dataset.getColumn(Mbd::Role::WEIGHT, 0), ElementsAre(1, 2, 5));
}

TEST_F(KspDatasetBuilderTest, RefusesVariablesThatHaveNoNumbers)
{
    EXPECT_THROW(builder.assignVariable(nullptr, Mbd::Role::V), MbeProgrammingError);
    EXPECT_THROW(builder.assignVariable(project.item("Name"), Mbd::Role::V), MbeProgrammingError);
}

TEST_F(KspDatasetBuilderTest, LeavesTheDatasetAsItIsWhenItCannotBeBuilt)
{
    dataset.addColumn(Mbd::Role::Y, {1, 2});
    EXPECT_THROW(builder.buildDataset(dataset, false), MbeProgrammingError);
    builder.setSupport(project.cores);
    builder.assignVariable(project.item("Au"), Mbd::Role::V);
    EXPECT_THROW(builder.buildDataset(dataset, false), MbeProgrammingError);

    EXPECT_THAT(dataset.getColumn(Mbd::Role::Y, 0), ElementsAre(1, 2));
}

} // namespace
