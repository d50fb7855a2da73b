#include <geos/MgmMatrix.h>

#include <basic/MbeError.h>

#include <limits>

namespace {
/// The number of elements; an error where it cannot be counted.
int checkedCount(int rows, int columns, int storage)
{
    const bool known = storage == MgmMatrix::General || storage == MgmMatrix::Symmetric;
    if (!known || rows < 0 || columns < 0 || (storage == MgmMatrix::Symmetric && rows != columns))
        throw MbeProgrammingError(
            QStringLiteral("MgmMatrix: there is no matrix of %1 by %2 elements of the storage %3.")
                .arg(rows)
                .arg(columns)
                .arg(storage));
    const qint64 count = qint64(rows) * columns;
    if (count > std::numeric_limits<int>::max() / int(sizeof(double)))
        throw MbeMemoryError(
            QStringLiteral("MgmMatrix: a matrix of %1 by %2 elements is too large.").arg(rows).arg(columns));
    return int(count);
}
} // namespace

MgmMatrix::MgmMatrix(int rows, int columns, int storage)
    : _rows(rows),
      _columns(columns),
      _storage(storage),
      _elements(checkedCount(rows, columns, storage), 0.0)
{}

void MgmMatrix::setElement(int row, int column, double value)
{
    _elements[_index(row, column)] = value;
    if (isSymmetric())
        _elements[_index(column, row)] = value;
}

int MgmMatrix::_index(int row, int column) const
{
    if (row < 0 || row >= _rows || column < 0 || column >= _columns)
        throw MbeProgrammingError(QStringLiteral("MgmMatrix: there is no element (%1, %2) in a matrix of %3 by %4.")
                                      .arg(row)
                                      .arg(column)
                                      .arg(_rows)
                                      .arg(_columns));
    return row * _columns + column;
}
