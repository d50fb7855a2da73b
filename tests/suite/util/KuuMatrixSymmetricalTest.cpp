#include <gtest/gtest.h>

#include <basic/MbeError.h>
#include <suite/util/SymmetricalMatrices.h>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

using namespace Ku::Constraint;

TEST(KuuMatrixSymmetrical, HasOneRowByDefault)
{
    const KuuMatrixSymmetrical matrix;
    EXPECT_EQ(matrix.getSize(), 1);
    EXPECT_EQ(matrix.getElementCount(), 1);
    EXPECT_EQ(matrix.getElementAt(0, 0), 0.0);
    EXPECT_EQ(matrix.getMode(), Values);
    EXPECT_EQ(matrix.getBehavior(), Unknown);
    EXPECT_EQ(matrix.getMinimums(), QList<double>({none}));
    EXPECT_EQ(matrix.getMaximums(), QList<double>({none}));
}

TEST(KuuMatrixSymmetrical, CountsTheElementsOfItsUpperTriangle)
{
    EXPECT_EQ(KuuMatrixSymmetrical(0).getElementCount(), 0);
    EXPECT_EQ(KuuMatrixSymmetrical(2).getElementCount(), 3);
    EXPECT_EQ(KuuMatrixSymmetrical(3).getElementCount(), 6);
    EXPECT_EQ(KuuMatrixSymmetrical(KuuMatrixSymmetrical::MaxSize).getElementCount(), 32896);
}

TEST(KuuMatrixSymmetrical, RefusesASizeThatIsNegativeOrTooLarge)
{
    for (const int size : {-1, KuuMatrixSymmetrical::MaxSize + 1, 2000000000, std::numeric_limits<int>::min()})
        EXPECT_THROW(KuuMatrixSymmetrical{size}, MbeProgrammingError) << size;
}

TEST(KuuMatrixSymmetrical, SetsAnElementAndItsMirrorImage)
{
    KuuMatrixSymmetrical matrix(3);
    matrix.setElement(2, 1, 5.0);
    matrix.setElement(0, 2, 7.0);
    EXPECT_EQ(matrix.getElementAt(1, 2), 5.0);
    EXPECT_EQ(matrix.getElementAt(2, 1), 5.0);
    EXPECT_EQ(matrix.getElementAt(2, 0), 7.0);
    EXPECT_EQ(triangle(matrix), QList<double>({0, 0, 7, 0, 5, 0}));
}

TEST(KuuMatrixSymmetrical, RefusesElementsOutside)
{
    KuuMatrixSymmetrical matrix(2);
    EXPECT_THROW(matrix.getElementAt(2, 0), MbeProgrammingError);
    EXPECT_THROW(matrix.getElementAt(0, -1), MbeProgrammingError);
    EXPECT_THROW(matrix.setElement(0, 2, 1.0), MbeProgrammingError);
    EXPECT_THROW(KuuMatrixSymmetrical(0).getElementAt(0, 0), MbeProgrammingError);
}

TEST(KuuMatrixSymmetrical, StoresZeroForWhatIsNoNumber)
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {none, infinity, -infinity, std::nan("")}) {
        KuuMatrixSymmetrical matrix;
        matrix.setElement(0, 0, value);
        EXPECT_EQ(matrix.getElementAt(0, 0), 0.0);
        EXPECT_EQ(plain(1, {value}).getElementAt(0, 0), 0.0);
    }
}

TEST(KuuMatrixSymmetrical, GivesTheMatrixThatItTook)
{
    const MgmMatrix matrix = symmetric(3, {1, 2, 3, 4, 5, 6});
    KuuMatrixSymmetrical value;
    value.setMatrix(matrix);
    EXPECT_EQ(value.getMatrix(), matrix);
    EXPECT_EQ(triangle(value), QList<double>({1, 2, 3, 4, 5, 6}));
}

TEST(KuuMatrixSymmetrical, TakesOverAMatrixAsPlainNumbers)
{
    KuuMatrixSymmetrical matrix = constrained(1, {1}, {0}, {2}, Bounded);
    matrix.setMatrix(symmetric(2, {1, 2, 3}));
    EXPECT_EQ(matrix.getSize(), 2);
    EXPECT_EQ(matrix.getMode(), Values);
    EXPECT_EQ(matrix.getBehavior(), Unknown);
    EXPECT_EQ(matrix.getMinimums(), QList<double>({none, none, none}));
    EXPECT_EQ(matrix.getMaximums(), QList<double>({none, none, none}));
}

TEST(KuuMatrixSymmetrical, TakesOverAMatrixWithItsConstraints)
{
    const KuuMatrixSymmetrical matrix = constrained(2, {1, 2, 3}, {0, none, 1}, {2, 3, none}, Known);
    EXPECT_EQ(matrix.getMode(), Constraints);
    EXPECT_EQ(matrix.getBehavior(), Known);
    EXPECT_EQ(triangle(matrix), QList<double>({1, 2, 3}));
    EXPECT_EQ(matrix.getMinimums(), QList<double>({0, none, 1}));
    EXPECT_EQ(matrix.getMaximums(), QList<double>({2, 3, none}));
}

TEST(KuuMatrixSymmetrical, KeepsOneBoundPerElement)
{
    const KuuMatrixSymmetrical matrix = constrained(2, {1, 2, 3}, {5}, {1, 2, 3, 4, 5}, Bounded);
    EXPECT_EQ(matrix.getMinimums(), QList<double>({5, none, none}));
    EXPECT_EQ(matrix.getMaximums(), QList<double>({1, 2, 3}));
}

TEST(KuuMatrixSymmetrical, KeepsNoBoundThatIsNoNumber)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const KuuMatrixSymmetrical matrix =
        constrained(2, {1, 2, 3}, {std::nan(""), -infinity, 1}, {infinity, std::nan(""), none}, Bounded);
    EXPECT_EQ(matrix.getMinimums(), QList<double>({none, none, 1}));
    EXPECT_EQ(matrix.getMaximums(), QList<double>({none, none, none}));
    EXPECT_EQ(matrix, KuuMatrixSymmetrical(matrix));
}

TEST(KuuMatrixSymmetrical, RefusesAMatrixThatItCannotHoldAndStaysAsItIs)
{
    KuuMatrixSymmetrical matrix = plain(2, {1, 2, 3});
    const KuuMatrixSymmetrical before = matrix;
    EXPECT_THROW(matrix.setMatrix(MgmMatrix(2, 3)), MbeProgrammingError);
    const int tooLarge = KuuMatrixSymmetrical::MaxSize + 1;
    EXPECT_THROW(matrix.setMatrixWC(MgmMatrix(tooLarge, tooLarge), {}, {}, Known), MbeProgrammingError);
    EXPECT_EQ(matrix, before);
}

TEST(KuuMatrixSymmetrical, KeepsBehaviorAndBoundsInBothModes)
{
    KuuMatrixSymmetrical matrix = constrained(1, {1}, {0}, {2}, Bounded);
    const KuuMatrixSymmetrical before = matrix;
    matrix.setMode(Values);
    EXPECT_EQ(matrix.getMode(), Values);
    EXPECT_EQ(matrix.getBehavior(), Bounded);
    EXPECT_EQ(matrix.getMinimums(), QList<double>({0}));
    EXPECT_NE(matrix, before);
    matrix.setMode(Constraints);
    EXPECT_EQ(matrix, before);
}

TEST(KuuMatrixSymmetrical, ComparesAllThatItHolds)
{
    const KuuMatrixSymmetrical original = constrained(2, {1, 2, 3}, {0, 0, 0}, {9, 9, 9}, Known);
    const std::vector<std::function<void(KuuMatrixSymmetrical&)>> changes = {
        [](KuuMatrixSymmetrical& m) { m.setElement(0, 1, 5.0); },
        [](KuuMatrixSymmetrical& m) { m.setMode(Values); },
        [](KuuMatrixSymmetrical& m) { m.setBehavior(Bounded); },
        [](KuuMatrixSymmetrical& m) {
            m.setMatrixWC(m.getMatrix(), {1, 0, 0}, {9, 9, 9}, Known);
        },
        [](KuuMatrixSymmetrical& m) {
            m.setMatrixWC(m.getMatrix(), {0, 0, 0}, {9, 9, 8}, Known);
        },
    };
    for (const auto& change : changes) {
        KuuMatrixSymmetrical copy = original;
        EXPECT_EQ(copy, original);
        change(copy);
        EXPECT_NE(copy, original);
    }
    EXPECT_NE(KuuMatrixSymmetrical(1), KuuMatrixSymmetrical(2));
    EXPECT_NE(KuuMatrixSymmetrical(0), KuuMatrixSymmetrical(1));
}
