#include "Geometry.h"

#include <basic/MbgGeomGrid.h>

#include <limits>

using Geometry::rotation;

TEST(MbgGeomGrid, HasNoCellsByDefault)
{
    const MbgGeomGrid grid;
    EXPECT_EQ(grid.getNx(), 0);
    EXPECT_EQ(grid.getNy(), 0);
    EXPECT_EQ(grid.getNz(), 0);
    EXPECT_FALSE(grid.getBoundingBox().isValid());
}

TEST(MbgGeomGrid, KeepsWhatItIsGiven)
{
    const MbgGeomGrid grid(10, 20, {1, 2, 0}, {100, 200, 0}, rotation(30, 0, 0));
    EXPECT_EQ(grid.getNx(), 10);
    EXPECT_EQ(grid.getNy(), 20);
    EXPECT_EQ(grid.getNz(), 1);
    EXPECT_EQ(grid.getCellSize(), MbgVector3D(1, 2, 0));
    EXPECT_EQ(grid.getOrigin(), MbgVector3D(100, 200, 0));
    EXPECT_EQ(grid.getRotation(), rotation(30, 0, 0));
    EXPECT_EQ(grid, MbgGeomGrid(MbgIntVector3D(10, 20, 1), {1, 2, 0}, {100, 200, 0}, rotation(30, 0, 0)));
    EXPECT_NE(grid, MbgGeomGrid(10, 20, {1, 2, 0}, {100, 200, 0}, rotation(31, 0, 0)));
}

TEST(MbgGeomGrid, HasABoxAroundAllItsCells)
{
    const MbgGeomGrid grid({10, 20, 5}, {1, 2, 3}, {100, 200, -50}, MbgRotation());
    EXPECT_EQ(grid.getBoundingBox(), MbgBox({100, 200, -50}, {110, 240, -35}));
}

TEST(MbgGeomGrid, TurnsAboutItsOrigin)
{
    const MbgGeomGrid grid(10, 20, {1, 2, 0}, {100, 200, 0}, rotation(90, 0, 0));
    EXPECT_EQ(grid.getBoundingBox(), MbgBox({60, 200, 0}, {100, 210, 0}));
    const MbgGeomGrid upright({10, 20, 5}, {1, 2, 3}, {0, 0, 0}, rotation(0, 90, 0));
    EXPECT_EQ(upright.getBoundingBox(), MbgBox({0, 0, -10}, {15, 40, 0}));
}

TEST(MbgGeomGrid, MayHaveCellsThatRunBackwards)
{
    const MbgGeomGrid raster(10, 20, {1, -2, 0}, {100, 200, 0}, MbgRotation());
    EXPECT_EQ(raster.getBoundingBox(), MbgBox({100, 160, 0}, {110, 200, 0}));
}

TEST(MbgGeomGrid, HasNoBoxWithoutCellsOrNumbers)
{
    EXPECT_FALSE(MbgGeomGrid(0, 5, {1, 1, 1}, {0, 0, 0}, MbgRotation()).getBoundingBox().isValid());
    EXPECT_FALSE(MbgGeomGrid(5, -1, {1, 1, 1}, {0, 0, 0}, MbgRotation()).getBoundingBox().isValid());
    EXPECT_FALSE(MbgGeomGrid(5, 5, {MbbGlobal::D_FFFF, 1, 1}, {0, 0, 0}, MbgRotation()).getBoundingBox().isValid());
    EXPECT_FALSE(MbgGeomGrid(5, 5, {1, 1, 1}, {0, 0, MbbGlobal::D_FFFF}, MbgRotation()).getBoundingBox().isValid());
    EXPECT_FALSE(MbgGeomGrid(5, 5, {1, 1, 1}, {0, 0, 0}, rotation(MbbGlobal::D_FFFF, 0, 0)).getBoundingBox().isValid());
    EXPECT_FALSE(MbgGeomGrid(5, MbbGlobal::I32_FFFF, {1, 1, 1}, {0, 0, 0}, MbgRotation()).getBoundingBox().isValid());
}

TEST(MbgGeomGrid, HasNoBoxThatLeavesCornersOut)
{
    const double values[] = {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(), 1e308};
    for (const double value : values) {
        for (const MbgRotation& turned : {MbgRotation(), rotation(30, 20, 10)}) {
            EXPECT_FALSE(MbgGeomGrid(5, 2000000000, {1, value, 1}, {0, 0, 0}, turned).getBoundingBox().isValid());
            EXPECT_FALSE(MbgGeomGrid(5, 5, {1, 1, 1}, {value * 10, 0, 0}, turned).getBoundingBox().isValid());
        }
    }
}
