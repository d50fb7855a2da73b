#pragma once

#include <basic/MbbGlobal.h>
#include <support/SymmetricMatrix.h>
#include <util/KuuMatrixSymmetrical.h>

/// A bound that is missing.
constexpr double none = MbbGlobal::D_FFFF;

inline KuuMatrixSymmetrical plain(int size, const QList<double>& triangle)
{
    KuuMatrixSymmetrical matrix;
    matrix.setMatrix(symmetric(size, triangle));
    return matrix;
}

inline KuuMatrixSymmetrical constrained(int size, const QList<double>& triangle, const QList<double>& minimums,
                                        const QList<double>& maximums, Ku::Constraint::Behavior behavior)
{
    KuuMatrixSymmetrical matrix;
    matrix.setMatrixWC(symmetric(size, triangle), minimums, maximums, behavior);
    return matrix;
}

inline QList<double> triangle(const KuuMatrixSymmetrical& matrix)
{
    QList<double> elements;
    for (int row = 0; row < matrix.getSize(); ++row) {
        for (int column = row; column < matrix.getSize(); ++column)
            elements.append(matrix.getElementAt(row, column));
    }
    return elements;
}
