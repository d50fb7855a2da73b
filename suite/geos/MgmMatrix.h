#pragma once

#include <QtCore/QVector>

#include <geos/GeosExport.h>

/// A matrix of numbers, as the engine takes and gives it: a plain, implicitly shared value. Fresh elements are 0. Rows
/// and columns count from 0; an element outside, a negative number of rows or columns and a symmetric matrix that is
/// not square are an `MbeProgrammingError`. The memory grows with rows times columns, and nothing bounds it here: who
/// reads a size from outside bounds it first.
class KESTRIN_GEOS_EXPORT MgmMatrix
{
public:
    enum Storage : int
    {
        General = 0,
        Symmetric = 1, ///< square; an element and its mirror image are one
    };

    /// An empty one.
    MgmMatrix() = default;
    /// `storage` is one of `Storage`.
    MgmMatrix(int rows, int columns, int storage = General);

    int getNRows() const { return _rows; }
    int getNColumns() const { return _columns; }
    bool isSymmetric() const { return _storage == Symmetric; }

    double getElement(int row, int column) const { return _elements.at(_index(row, column)); }
    /// Sets the element, in a symmetric matrix also element (column, row).
    void setElement(int row, int column, double value);

    /// Equal when size and elements are, whatever the storage.
    friend bool operator==(const MgmMatrix& a, const MgmMatrix& b)
    {
        return a._rows == b._rows && a._columns == b._columns && a._elements == b._elements;
    }
    friend bool operator!=(const MgmMatrix& a, const MgmMatrix& b) { return !(a == b); }

private:
    int _index(int row, int column) const;

    int _rows = 0;
    int _columns = 0;
    int _storage = General;
    QVector<double> _elements; ///< row by row
};
