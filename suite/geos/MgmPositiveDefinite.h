#pragma once

#include <geos/MgmMatrix.h>
#include <geos/MgmMatrixBounds.h>

/// Positive definite matrices, in the sense in which the sills of several variables are: no combination of the
/// variables has a negative variance. Null and other singular matrices belong to them. Of a matrix that is not stored
/// as symmetric the upper triangle is read; one that is not square is an `MbeProgrammingError`. Elements are finite.
class KESTRIN_GEOS_EXPORT MgmPositiveDefinite
{
public:
    /// How far below zero an eigenvalue may lie, as a fraction of the largest element: what rounding leaves of a zero.
    static constexpr double Tolerance = 1e-12;
    /// The most iterations on the way to the nearest matrix, and of a search for any matrix within the bounds, of which
    /// `nearest` makes up to two. Large matrices get fewer, down to `MinIterations`, so that the work stays bounded:
    /// about 2e7 / rows³, from 34 rows on, and from 20 on in a search.
    static constexpr int MaxIterations = 500;
    static constexpr int MaxSearchIterations = 2500;
    static constexpr int MinIterations = 10;

    static bool isPositiveDefinite(const MgmMatrix& matrix);

    /// The positive definite matrix within the bounds that is nearest to `matrix`. Each element is moved within its
    /// bounds first. If that gives a positive definite matrix it is the result. Otherwise the result is the one that is
    /// nearest to it in the Frobenius norm: the sum of the squared differences of all elements is least. Without bounds
    /// its negative eigenvalues become zero (N. J. Higham, "Computing a nearest symmetric positive semidefinite
    /// matrix", Linear Algebra and its Applications 103, 1988); the diagonal then grows. With bounds, which may hold
    /// the diagonal or any other element, it is what alternating projections with Dykstra's correction lead to (N. J.
    /// Higham, "Computing the nearest correlation matrix: a problem from finance", IMA Journal of Numerical Analysis
    /// 22, 2002), as near as the iterations allow.
    ///
    /// Where no positive definite matrix lies within the bounds, or none is found, definiteness counts: of the matrix
    /// within the bounds that a search ends with, the elements beside the diagonal shrink by one factor, as little as
    /// is needed, and the bounds are extended to it.
    ///
    /// The result of the result, with the same bounds, is the result, to the last bit. This and the bounds hold as long
    /// as all bounds, and all elements that have none, are zero or differ in size by no more than a factor of 1e100.
    static MgmMatrix nearest(const MgmMatrix& matrix, const MgmMatrixBounds& bounds);
};
