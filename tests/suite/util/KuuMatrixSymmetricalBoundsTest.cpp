#include <gtest/gtest.h>

#include <suite/util/SymmetricalMatrices.h>

#include <cmath>

using namespace Ku::Constraint;

TEST(KuuMatrixSymmetrical, MovesElementsWithinTheBoundsInTheOrderOfTheUpperTriangle)
{
    KuuMatrixSymmetrical matrix = plain(3, {1, 2, 3, 4, 5, 6});
    matrix.applyBounds({none, 2.5, none, none, none, 10}, {0.5, none, none, 3, none, none}, false);
    EXPECT_EQ(triangle(matrix), QList<double>({0.5, 2.5, 3, 3, 5, 10}));
}

TEST(KuuMatrixSymmetrical, IsNotLimitedWhereABoundIsMissing)
{
    KuuMatrixSymmetrical matrix = plain(2, {-1, 100, -5});
    matrix.applyBounds({}, {}, false);
    EXPECT_EQ(triangle(matrix), QList<double>({-1, 100, -5}));
    matrix.applyBounds({0}, {}, false);
    EXPECT_EQ(triangle(matrix), QList<double>({0, 100, -5}));
}

TEST(KuuMatrixSymmetrical, TakesTheMaximumWhereTheMinimumLiesAboveIt)
{
    KuuMatrixSymmetrical matrix = plain(1, {7});
    matrix.applyBounds({5}, {2}, false);
    EXPECT_EQ(triangle(matrix), QList<double>({2}));
}

TEST(KuuMatrixSymmetrical, BecomesTheNearestPositiveDefiniteMatrix)
{
    KuuMatrixSymmetrical matrix = plain(2, {1, 2, 1});
    matrix.applyBounds({}, {}, true);
    EXPECT_NEAR(matrix.getElementAt(0, 0), 1.5, 1e-14);
    EXPECT_NEAR(matrix.getElementAt(0, 1), 1.5, 1e-14);
    EXPECT_NEAR(matrix.getElementAt(1, 1), 1.5, 1e-14);
}

TEST(KuuMatrixSymmetrical, KeepsToTheBoundsAsItBecomesPositiveDefinite)
{
    KuuMatrixSymmetrical matrix = plain(2, {1, 2, 1});
    matrix.applyBounds({0, none, 0}, {1, none, 1}, true);
    EXPECT_NEAR(matrix.getElementAt(0, 1), 1.0, 1e-9);
    EXPECT_LE(matrix.getElementAt(0, 0), 1.0);
    EXPECT_LE(matrix.getElementAt(1, 1), 1.0);
}

TEST(KuuMatrixSymmetrical, LeavesNullAndSingularMatricesAsTheyAre)
{
    for (const QList<double>& elements : {QList<double>({0, 0, 0}), {0, 0, 1}, {1, 1, 1}, {1e-30, 0, 1}}) {
        KuuMatrixSymmetrical matrix = plain(2, elements);
        matrix.applyBounds({0, none, 0}, {}, true);
        EXPECT_EQ(triangle(matrix), elements);
    }
}

TEST(KuuMatrixSymmetrical, ChangesNothingWhenTheSameBoundsAreAppliedAgain)
{
    const QList<QList<double>> minimums = {{}, {0}, {1e-30, none, none, 1e-30, none, 1e-30}, {0, 2, 2, 0, 2, 0}};
    const QList<QList<double>> maximums = {{}, {1, 1, 1, 1, 1, 1}, {2, 0.5, 0.5, 2, 0.5, 2}};
    for (const QList<double>& minimum : minimums) {
        for (const QList<double>& maximum : maximums) {
            KuuMatrixSymmetrical matrix = plain(3, {1, 2, -3, 0, 4, -1});
            matrix.applyBounds(minimum, maximum, true);
            const KuuMatrixSymmetrical once = matrix;
            matrix.applyBounds(minimum, maximum, true);
            EXPECT_EQ(matrix, once);
        }
    }
}

TEST(KuuMatrixSymmetrical, IsLimitedByItsOwnBoundsOnlyWhereItIsBounded)
{
    struct Row
    {
        Mode mode;
        Behavior behavior;
        double expected;
    };
    const Row rows[] = {{Constraints, Bounded, 2.0},
                        {Constraints, Known, 5.0},
                        {Constraints, Unknown, 5.0},
                        {Values, Bounded, 5.0},
                        {Values, Known, 5.0}};
    for (const Row& row : rows) {
        KuuMatrixSymmetrical matrix = constrained(1, {5}, {0}, {2}, row.behavior);
        matrix.setMode(row.mode);
        matrix.applyBounds({}, {}, false);
        EXPECT_EQ(triangle(matrix), QList<double>({row.expected})) << row.mode << row.behavior;
        EXPECT_EQ(matrix.getMinimums(), QList<double>({0}));
        EXPECT_EQ(matrix.getMaximums(), QList<double>({2}));
    }
}

TEST(KuuMatrixSymmetrical, PutsTheGivenBoundsAboveItsOwn)
{
    KuuMatrixSymmetrical within = constrained(1, {5}, {0}, {4}, Bounded);
    within.applyBounds({}, {3}, false);
    EXPECT_EQ(triangle(within), QList<double>({3}));
    KuuMatrixSymmetrical apart = constrained(1, {5}, {0}, {1}, Bounded);
    apart.applyBounds({7}, {9}, false);
    EXPECT_EQ(triangle(apart), QList<double>({7}));
}

TEST(KuuMatrixSymmetrical, EndsAtItsLargestSize)
{
    KuuMatrixSymmetrical matrix(KuuMatrixSymmetrical::MaxSize);
    for (int row = 0; row < matrix.getSize(); ++row) {
        for (int column = row; column < matrix.getSize(); ++column)
            matrix.setElement(row, column, std::sin(row + 7.0 * column));
    }
    matrix.applyBounds({}, {}, true);
    const KuuMatrixSymmetrical once = matrix;
    matrix.applyBounds({}, {}, true);
    EXPECT_EQ(matrix, once);
}
