#include <gtest/gtest.h>

#include <basic/MbbGlobal.h>
#include <basic/MbeError.h>
#include <geos/MgmPositiveDefinite.h>
#include <support/SymmetricMatrix.h>

#include <Eigen/Eigenvalues>

#include <algorithm>
#include <cmath>
#include <random>

namespace {
constexpr double none = MbbGlobal::D_FFFF;

Eigen::MatrixXd toEigen(const MgmMatrix& matrix)
{
    Eigen::MatrixXd result(matrix.getNRows(), matrix.getNColumns());
    for (int row = 0; row < matrix.getNRows(); ++row) {
        for (int column = 0; column < matrix.getNColumns(); ++column)
            result(row, column) = matrix.getElement(row, column);
    }
    return result;
}

MgmMatrix fromEigen(const Eigen::MatrixXd& matrix)
{
    const int size = int(matrix.rows());
    MgmMatrix result(size, size, MgmMatrix::Symmetric);
    for (int row = 0; row < size; ++row) {
        for (int column = row; column < size; ++column)
            result.setElement(row, column, matrix(row, column));
    }
    return result;
}

double smallestEigenvalue(const MgmMatrix& matrix)
{
    return Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd>(toEigen(matrix), Eigen::EigenvaluesOnly)
        .eigenvalues()
        .minCoeff();
}

double largestElement(const MgmMatrix& matrix)
{
    return toEigen(matrix).cwiseAbs().maxCoeff();
}

double distance(const MgmMatrix& a, const MgmMatrix& b)
{
    return (toEigen(a) - toEigen(b)).norm();
}

Eigen::MatrixXd randomSymmetric(int size, std::mt19937& generator)
{
    std::normal_distribution<double> normal;
    const Eigen::MatrixXd any = Eigen::MatrixXd::NullaryExpr(size, size, [&] { return normal(generator); });
    return 0.5 * (any + any.transpose());
}

/// Limits of the diagonal and of what lies beside it.
MgmMatrixBounds bounds(int size, double diagonalMinimum, double diagonalMaximum, double minimum, double maximum)
{
    MgmMatrixBounds result(size);
    for (int row = 0; row < size; ++row) {
        result.tighten(row, row, diagonalMinimum, diagonalMaximum);
        for (int column = row + 1; column < size; ++column)
            result.tighten(row, column, minimum, maximum);
    }
    return result;
}

MgmMatrix nearest(const MgmMatrix& matrix)
{
    return MgmPositiveDefinite::nearest(matrix, MgmMatrixBounds(matrix.getNRows()));
}

bool isWithin(const MgmMatrix& matrix, const MgmMatrixBounds& limits)
{
    return limits.nearest(matrix) == matrix;
}

void expectNear(const MgmMatrix& actual, const MgmMatrix& expected, double tolerance)
{
    for (int row = 0; row < expected.getNRows(); ++row) {
        for (int column = 0; column < expected.getNColumns(); ++column)
            EXPECT_NEAR(actual.getElement(row, column), expected.getElement(row, column), tolerance)
                << row << ' ' << column;
    }
}
} // namespace

TEST(MgmPositiveDefinite, TellsDefiniteMatricesFromOthers)
{
    EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(symmetric(2, {2, 1, 2})));
    EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(symmetric(3, {1e-30, 0, 0, 1, 0, 1e30})));
    EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(MgmMatrix()));
    EXPECT_FALSE(MgmPositiveDefinite::isPositiveDefinite(symmetric(1, {-1})));
    EXPECT_FALSE(MgmPositiveDefinite::isPositiveDefinite(symmetric(1, {-1e-300})));
    EXPECT_FALSE(MgmPositiveDefinite::isPositiveDefinite(symmetric(2, {1, 2, 1})));
    EXPECT_FALSE(MgmPositiveDefinite::isPositiveDefinite(symmetric(2, {0, 1, 0})));
    EXPECT_FALSE(MgmPositiveDefinite::isPositiveDefinite(symmetric(2, {1e308, 1.5e308, 1e308})));
}

TEST(MgmPositiveDefinite, CountsNullAndSingularMatricesAsDefinite)
{
    EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(MgmMatrix(3, 3, 1)));
    EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(symmetric(2, {1, 1, 1})));
    EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(symmetric(2, {0, 0, 1})));
    EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(symmetric(2, {0.09, 0.21, 0.49})));
}

TEST(MgmPositiveDefinite, AllowsForRoundingInProportionToTheLargestElement)
{
    EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(symmetric(2, {1e6, 0, -0.5e-6})));
    EXPECT_FALSE(MgmPositiveDefinite::isPositiveDefinite(symmetric(2, {1e6, 0, -2e-6})));
}

TEST(MgmPositiveDefinite, LeavesADefiniteMatrixWithinItsBoundsAsItIs)
{
    for (const MgmMatrix& matrix : {symmetric(2, {2, 1, 2}), symmetric(2, {1, 1, 1}), MgmMatrix(2, 2, 1)})
        EXPECT_EQ(MgmPositiveDefinite::nearest(matrix, bounds(2, 0, 2, -1, 1)), matrix);
}

TEST(MgmPositiveDefinite, OnlyMovesElementsWithinTheirBoundsWhereThatIsEnough)
{
    EXPECT_EQ(MgmPositiveDefinite::nearest(symmetric(2, {1, 2, 1}), bounds(2, 0, 1, -0.5, 0.5)),
              symmetric(2, {1, 0.5, 1}));
}

TEST(MgmPositiveDefinite, SetsNegativeEigenvaluesToZeroWithoutBounds)
{
    // Eigenvalues 3 and -1, with the vectors (1, 1) and (1, -1): 3/2 times the ones matrix remains.
    expectNear(nearest(symmetric(2, {1, 2, 1})), symmetric(2, {1.5, 1.5, 1.5}), 1e-14);
    // Eigenvalues 1 and -1.
    expectNear(nearest(symmetric(2, {0, 1, 0})), symmetric(2, {0.5, 0.5, 0.5}), 1e-14);
    expectNear(nearest(symmetric(2, {3, 0, -2})), symmetric(2, {3, 0, 0}), 1e-14);
    expectNear(nearest(symmetric(1, {-5})), symmetric(1, {0}), 0.0);
    expectNear(nearest(symmetric(2, {-5, 0, -1})), symmetric(2, {0, 0, 0}), 1e-14);
    // Eigenvalue 3 of (1, 1, 1) and twice -3/2: the ones matrix remains of 3 (1, 1, 1)(1, 1, 1)' / 3.
    expectNear(nearest(symmetric(3, {0, 1.5, 1.5, 0, 1.5, 0})), symmetric(3, {1, 1, 1, 1, 1, 1}), 1e-14);
}

TEST(MgmPositiveDefinite, KeepsAVariableOfItsOwnAsItIs)
{
    const MgmMatrix result = nearest(symmetric(3, {0, 0, 0, 1, 2, 1}));
    EXPECT_EQ(result.getElement(0, 0), 0.0);
    EXPECT_EQ(result.getElement(0, 1), 0.0);
    EXPECT_EQ(result.getElement(0, 2), 0.0);
    EXPECT_NEAR(result.getElement(1, 2), 1.5, 1e-14);
}

TEST(MgmPositiveDefinite, FindsTheNearestMatrixWithinBounds)
{
    // With both diagonal elements held at 1 the element beside them can be 1 at most.
    expectNear(MgmPositiveDefinite::nearest(symmetric(2, {1, 2, 1}), bounds(2, 1, 1, none, none)),
               symmetric(2, {1, 1, 1}), 1e-9);
    // With a(0,0) at 1 the smallest of 2 (b - 2)² + (d - 1)² with d = b² lies at the real root of b³ = 2.
    MgmMatrixBounds oneHeld(2);
    oneHeld.tighten(0, 0, 1, 1);
    const double b = std::cbrt(2.0);
    expectNear(MgmPositiveDefinite::nearest(symmetric(2, {1, 2, 1}), oneHeld), symmetric(2, {1, b, b * b}), 1e-6);
    // The nearest correlation matrix of a well-known example in the cited paper.
    expectNear(MgmPositiveDefinite::nearest(symmetric(3, {1, 1, 0, 1, 1, 1}), bounds(3, 1, 1, none, none)),
               symmetric(3, {1, 0.7607, 0.1573, 1, 0.7607, 1}), 5e-5);
}

TEST(MgmPositiveDefinite, IsTheProjectionForRandomMatrices)
{
    std::mt19937 generator(1);
    for (int size = 1; size <= 12; ++size) {
        const MgmMatrix matrix = fromEigen(randomSymmetric(size, generator));
        const MgmMatrix result = nearest(matrix);
        EXPECT_GE(smallestEigenvalue(result), -MgmPositiveDefinite::Tolerance * largestElement(matrix));
        // What was taken away is negative and has nothing in common with what stays: the conditions of a projection.
        const Eigen::MatrixXd taken = toEigen(result) - toEigen(matrix);
        EXPECT_GE(smallestEigenvalue(fromEigen(taken)), -1e-12 * size);
        EXPECT_LT((taken * toEigen(result)).norm(), 1e-12 * size);
    }
}

TEST(MgmPositiveDefinite, IsNearerThanOtherMatricesAroundIt)
{
    std::mt19937 generator(2);
    std::uniform_real_distribution<double> exponent(-6.0, 0.0);
    for (int size = 2; size <= 6; ++size) {
        const MgmMatrixBounds limits = bounds(size, 0.1, 1.0, -0.8, 0.9);
        const MgmMatrix matrix = limits.nearest(fromEigen(2.0 * randomSymmetric(size, generator)));
        const MgmMatrix result = MgmPositiveDefinite::nearest(matrix, limits);
        ASSERT_TRUE(isWithin(result, limits));
        ASSERT_TRUE(MgmPositiveDefinite::isPositiveDefinite(result));
        const double reached = distance(matrix, result);
        for (int i = 0; i < 2000; ++i) {
            const Eigen::MatrixXd step = std::pow(10.0, exponent(generator)) * randomSymmetric(size, generator);
            const MgmMatrix other = limits.nearest(fromEigen(toEigen(result) + step));
            if (MgmPositiveDefinite::isPositiveDefinite(other)) {
                EXPECT_GT(distance(matrix, other), reached - 1e-7) << size;
            }
        }
    }
}

TEST(MgmPositiveDefinite, KeepsToTheBoundsWhereverADefiniteMatrixDoes)
{
    std::mt19937 generator(3);
    std::uniform_real_distribution<double> part(0.0, 1.0);
    for (int round = 0; round < 300; ++round) {
        const int size = 2 + round % 7;
        const Eigen::MatrixXd any = randomSymmetric(size, generator);
        const Eigen::MatrixXd inside = any * any;
        const double width = std::pow(10.0, -4.0 * part(generator));
        MgmMatrixBounds limits(size);
        for (int row = 0; row < size; ++row) {
            for (int column = row; column < size; ++column)
                limits.tighten(row, column, inside(row, column) - width * part(generator),
                               inside(row, column) + width * part(generator));
        }
        const MgmMatrix matrix = fromEigen(randomSymmetric(size, generator) * 10.0);
        const MgmMatrix result = MgmPositiveDefinite::nearest(matrix, limits);
        EXPECT_TRUE(isWithin(result, limits)) << round;
        EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(result)) << round;
        EXPECT_EQ(MgmPositiveDefinite::nearest(result, limits), result) << round;
    }
}

TEST(MgmPositiveDefinite, KeepsToBoundsThatLeaveLittleRoom)
{
    std::mt19937 generator(6);
    std::normal_distribution<double> normal;
    std::uniform_real_distribution<double> part(0.0, 1.0);
    std::bernoulli_distribution limited(0.5);
    for (int round = 0; round < 300; ++round) {
        // Variables that hang together entirely, with room for a tenth more on the diagonal.
        const int size = 2 + round % 5;
        const Eigen::VectorXd vector = Eigen::VectorXd::NullaryExpr(size, [&] { return normal(generator); });
        const Eigen::MatrixXd inside = vector * vector.transpose();
        MgmMatrixBounds limits(size);
        for (int row = 0; row < size; ++row) {
            limits.tighten(row, row, inside(row, row) - part(generator), inside(row, row) + 0.1);
            for (int column = row + 1; column < size; ++column)
                limits.tighten(row, column, limited(generator) ? inside(row, column) - 0.1 : none,
                               limited(generator) ? inside(row, column) + 0.1 : none);
        }
        const MgmMatrix result =
            MgmPositiveDefinite::nearest(fromEigen(10.0 * randomSymmetric(size, generator)), limits);
        EXPECT_TRUE(isWithin(result, limits)) << round;
        EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(result)) << round;
    }
}

TEST(MgmPositiveDefinite, KeepsToTheBoundsHoweverFarTheMatrixLies)
{
    // The largest covariance of variances 1 and 4 is 2.
    MgmMatrixBounds limits(2);
    limits.tighten(0, 0, none, 1);
    limits.tighten(1, 1, none, 4);
    for (const double scale : {1e2, 1e10, 1e16, 1e30, 1e150, 1e300}) {
        const MgmMatrix result = MgmPositiveDefinite::nearest(symmetric(2, {scale, 3 * scale, scale}), limits);
        expectNear(result, symmetric(2, {1, 2, 4}), 1e-6);
        EXPECT_TRUE(isWithin(result, limits)) << scale;
        EXPECT_EQ(MgmPositiveDefinite::nearest(result, limits), result) << scale;
    }
}

TEST(MgmPositiveDefinite, KeepsSmallBoundsOfALargeMatrix)
{
    for (const double small : {1e-20, 1e-100, 1e-200, 1e-290}) {
        for (const double large : {1e9, 1e150, 1e300}) {
            MgmMatrixBounds limits(2);
            limits.tighten(0, 0, small, 3 * small);
            limits.tighten(0, 1, none, -small);
            limits.tighten(1, 1, none, 4 * small);
            const MgmMatrix result = MgmPositiveDefinite::nearest(symmetric(2, {-large, -large, -large}), limits);
            EXPECT_TRUE(isWithin(result, limits)) << small << ' ' << large;
            EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(result)) << small << ' ' << large;
            EXPECT_EQ(MgmPositiveDefinite::nearest(result, limits), result) << small << ' ' << large;
        }
    }
}

TEST(MgmPositiveDefinite, ExtendsBoundsThatNoDefiniteMatrixKeepsTo)
{
    expectNear(MgmPositiveDefinite::nearest(symmetric(1, {5}), bounds(1, -3, -2, none, none)), symmetric(1, {0}), 0.0);
    expectNear(MgmPositiveDefinite::nearest(symmetric(2, {1, 5, 1}), bounds(2, 0, 1, 2, 3)), symmetric(2, {1, 1, 1}),
               1e-9);
    expectNear(MgmPositiveDefinite::nearest(symmetric(2, {1, -5, 1}), bounds(2, 1, 1, -3, -2)),
               symmetric(2, {1, -1, 1}), 1e-9);
    // Three variables cannot all be opposed to each other by more than half of their variance.
    expectNear(MgmPositiveDefinite::nearest(symmetric(3, {1, -1, -1, 1, -1, 1}), bounds(3, 1, 1, -1, -0.8)),
               symmetric(3, {1, -0.5, -0.5, 1, -0.5, 1}), 1e-6);
}

TEST(MgmPositiveDefinite, ChangesNothingTheSecondTimeWhateverTheBounds)
{
    std::mt19937 generator(4);
    std::normal_distribution<double> normal;
    std::uniform_int_distribution<int> kind(0, 3);
    for (int round = 0; round < 300; ++round) {
        const int size = 1 + round % 6;
        MgmMatrixBounds limits(size);
        for (int row = 0; row < size; ++row) {
            for (int column = row; column < size; ++column) {
                const double a = normal(generator);
                limits.tighten(row, column, kind(generator) ? a : none,
                               kind(generator) ? a + std::abs(normal(generator)) : none);
            }
        }
        const double scale = std::pow(10.0, 10.0 * normal(generator));
        const MgmMatrix matrix = fromEigen(scale * randomSymmetric(size, generator));
        const MgmMatrix once = MgmPositiveDefinite::nearest(matrix, limits);
        EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(once)) << round;
        EXPECT_EQ(MgmPositiveDefinite::nearest(once, limits), once) << round;
    }
}

TEST(MgmPositiveDefinite, WorksAtEveryScale)
{
    for (const double scale : {1e-300, 1e-150, 1e-12, 1.0, 1e12, 1e150, 1e300}) {
        const MgmMatrix result = nearest(symmetric(2, {scale, 2 * scale, scale}));
        expectNear(result, symmetric(2, {1.5 * scale, 1.5 * scale, 1.5 * scale}), 1e-14 * scale);
    }
    const MgmMatrix result = MgmPositiveDefinite::nearest(symmetric(2, {1e-30, 0.5, 1}), bounds(2, 1e-30, none, -1, 1));
    EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(result));
    EXPECT_LT(largestElement(result), 2.0);
}

TEST(MgmPositiveDefinite, EndsForALargeMatrixWithNarrowBounds)
{
    std::mt19937 generator(5);
    const int size = 60;
    const MgmMatrixBounds limits = bounds(size, 1.0, 1.0, -0.5, 0.9);
    const MgmMatrix result = MgmPositiveDefinite::nearest(fromEigen(randomSymmetric(size, generator)), limits);
    EXPECT_TRUE(isWithin(result, limits));
    EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(result));
    EXPECT_EQ(MgmPositiveDefinite::nearest(result, limits), result);
}

TEST(MgmPositiveDefinite, ReadsTheUpperTriangleOfAGeneralMatrix)
{
    MgmMatrix matrix(2, 2);
    matrix.setElement(0, 0, 1.0);
    matrix.setElement(1, 1, 1.0);
    matrix.setElement(1, 0, 100.0);
    EXPECT_TRUE(MgmPositiveDefinite::isPositiveDefinite(matrix));
    EXPECT_EQ(nearest(matrix), symmetric(2, {1, 0, 1}));
}

TEST(MgmPositiveDefinite, RefusesWhatDoesNotFit)
{
    EXPECT_THROW(MgmPositiveDefinite::isPositiveDefinite(MgmMatrix(2, 3)), MbeProgrammingError);
    EXPECT_THROW(MgmPositiveDefinite::nearest(MgmMatrix(2, 2), MgmMatrixBounds(3)), MbeProgrammingError);
}
