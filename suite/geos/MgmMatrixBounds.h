#pragma once

#include <QtCore/QVector>

#include <geos/MgmMatrix.h>

/// Limits of the elements of a symmetric matrix: the set of the matrices within them. A plain, implicitly shared value.
/// Fresh bounds limit nothing. An element outside is an `MbeProgrammingError`.
class KESTRIN_GEOS_EXPORT MgmMatrixBounds
{
public:
    explicit MgmMatrixBounds(int size);

    int getSize() const { return _lower.getNRows(); }

    /// Limits the element and its mirror image to what lies within [minimum, maximum] and within the limits that it has
    /// already; where the two have nothing in common, the new ones count. `MbbGlobal::D_FFFF`, an infinity or a NaN is
    /// no limit. Where the minimum lies above the maximum, the maximum stands for both.
    void tighten(int row, int column, double minimum, double maximum);
    /// The limits, minus or plus infinity where there is none; the lower is never above the upper.
    double getLower(int row, int column) const { return _lower.getElement(row, column); }
    double getUpper(int row, int column) const { return _upper.getElement(row, column); }

    /// The number within the limits of the element that is nearest to `value`.
    double nearest(int row, int column, double value) const;
    /// Each element moved to the nearest number within its limits: the nearest matrix within the bounds. The upper
    /// triangle of `matrix`, which is of the bounds' size, is read.
    MgmMatrix nearest(const MgmMatrix& matrix) const;

private:
    MgmMatrix _lower;
    MgmMatrix _upper;
};
