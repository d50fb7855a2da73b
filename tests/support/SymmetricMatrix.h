#pragma once

#include <QtCore/QList>

#include <geos/MgmMatrix.h>

/// The symmetric matrix of an upper triangle, row by row.
inline MgmMatrix symmetric(int size, const QList<double>& triangle)
{
    MgmMatrix matrix(size, size, MgmMatrix::Symmetric);
    int element = 0;
    for (int row = 0; row < size; ++row) {
        for (int column = row; column < size; ++column)
            matrix.setElement(row, column, triangle.at(element++));
    }
    return matrix;
}
