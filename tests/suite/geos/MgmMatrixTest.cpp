#include <gtest/gtest.h>

#include <basic/MbeError.h>
#include <geos/MgmMatrix.h>

TEST(MgmMatrix, StartsWithZeros)
{
    const MgmMatrix matrix(2, 3);
    EXPECT_EQ(matrix.getNRows(), 2);
    EXPECT_EQ(matrix.getNColumns(), 3);
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column)
            EXPECT_EQ(matrix.getElement(row, column), 0.0);
    }
}

TEST(MgmMatrix, IsEmptyByDefault)
{
    EXPECT_EQ(MgmMatrix().getNRows(), 0);
    EXPECT_EQ(MgmMatrix().getNColumns(), 0);
    EXPECT_EQ(MgmMatrix(0, 0, 1).getNRows(), 0);
}

TEST(MgmMatrix, SetsOneElementOfAGeneralMatrix)
{
    MgmMatrix matrix(2, 2, 0);
    matrix.setElement(0, 1, 5.0);
    EXPECT_FALSE(matrix.isSymmetric());
    EXPECT_EQ(matrix.getElement(0, 1), 5.0);
    EXPECT_EQ(matrix.getElement(1, 0), 0.0);
}

TEST(MgmMatrix, SetsTheMirrorImageInASymmetricMatrix)
{
    MgmMatrix matrix(3, 3, 1);
    matrix.setElement(2, 0, 5.0);
    EXPECT_TRUE(matrix.isSymmetric());
    EXPECT_EQ(matrix.getElement(2, 0), 5.0);
    EXPECT_EQ(matrix.getElement(0, 2), 5.0);
}

TEST(MgmMatrix, RefusesElementsOutside)
{
    MgmMatrix matrix(2, 3);
    EXPECT_THROW(matrix.getElement(2, 0), MbeProgrammingError);
    EXPECT_THROW(matrix.getElement(0, 3), MbeProgrammingError);
    EXPECT_THROW(matrix.getElement(-1, 0), MbeProgrammingError);
    EXPECT_THROW(matrix.setElement(0, -1, 1.0), MbeProgrammingError);
    EXPECT_THROW(MgmMatrix().getElement(0, 0), MbeProgrammingError);
}

TEST(MgmMatrix, RefusesWhatIsNoMatrix)
{
    EXPECT_THROW(MgmMatrix(-1, 2), MbeProgrammingError);
    EXPECT_THROW(MgmMatrix(2, -1), MbeProgrammingError);
    EXPECT_THROW(MgmMatrix(2, 3, 1), MbeProgrammingError);
    EXPECT_THROW(MgmMatrix(2, 2, 2), MbeProgrammingError);
}

TEST(MgmMatrix, RefusesASizeBeyondAllMemory)
{
    EXPECT_THROW(MgmMatrix(2000000000, 2000000000, 1), MbeMemoryError);
}

TEST(MgmMatrix, ComparesSizeAndElements)
{
    MgmMatrix a(2, 2);
    MgmMatrix b(2, 2, 1);
    EXPECT_EQ(a, b);
    a.setElement(0, 1, 1.0);
    EXPECT_NE(a, b);
    EXPECT_NE(MgmMatrix(2, 3), MgmMatrix(3, 2));
}

TEST(MgmMatrix, IsACopyOfItsOwn)
{
    MgmMatrix a(1, 1);
    const MgmMatrix b = a;
    a.setElement(0, 0, 1.0);
    EXPECT_EQ(b.getElement(0, 0), 0.0);
}
