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
    /// The most iterations of one search of `nearest`; it makes up to three. Large matrices get fewer, down to
    /// `MinIterations`, so that the work stays bounded: from 34 rows on about 2e7 / rows³.
    static constexpr int MaxIterations = 500;
    static constexpr int MinIterations = 10;

    static bool isPositiveDefinite(const MgmMatrix& matrix);

    /// The positive definite matrix within the bounds that is nearest to `matrix`. Each element is moved within its
    /// bounds first. If that gives a positive definite matrix it is the result. Otherwise the result is the one that is
    /// nearest to it, in the sum of the squared differences of all elements: without bounds its negative eigenvalues
    /// become zero, with bounds it is what alternating projections with Dykstra's correction lead to (N. J. Higham,
    /// "Computing the nearest correlation matrix: a problem from finance", IMA Journal of Numerical Analysis 22, 2002),
    /// as near as the iterations allow.
    ///
    /// Where no positive definite matrix lies within the bounds, definiteness counts: the bounds are extended towards
    /// zero as far as is needed, those of all elements beside the diagonal by the same factor.
    ///
    /// The result of the result, with the same bounds, is the result, to the last bit.
    static MgmMatrix nearest(const MgmMatrix& matrix, const MgmMatrixBounds& bounds);
};
