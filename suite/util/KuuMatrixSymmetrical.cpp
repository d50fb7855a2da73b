#include <util/KuuMatrixSymmetrical.h>

#include <QtCore/QStringList>

#include <basic/MbbGlobal.h>
#include <basic/MbeError.h>
#include <geos/MgmPositiveDefinite.h>

#include <algorithm>
#include <cmath>

namespace {
int checkedSize(int size)
{
    if (size < 0 || size > KuuMatrixSymmetrical::MaxSize)
        throw MbeProgrammingError(QStringLiteral("KuuMatrixSymmetrical: %1 is no number of rows from 0 to %2.")
                                      .arg(size)
                                      .arg(KuuMatrixSymmetrical::MaxSize));
    return size;
}

int elementCount(int size)
{
    return size * (size + 1) / 2;
}

double elementOf(double number)
{
    return std::isfinite(number) && number != MbbGlobal::D_FFFF ? number : 0.0;
}

/// The bounds with one entry per element; what is no number is no bound.
QList<double> filledUp(const QList<double>& bounds, int count)
{
    QList<double> result;
    result.reserve(count);
    for (int element = 0; element < count; ++element) {
        const double bound = bounds.value(element, MbbGlobal::D_FFFF);
        result.append(std::isfinite(bound) ? bound : MbbGlobal::D_FFFF);
    }
    return result;
}

void tighten(MgmMatrixBounds& bounds, const QList<double>& minimums, const QList<double>& maximums)
{
    int element = 0;
    for (int row = 0; row < bounds.getSize(); ++row) {
        for (int column = row; column < bounds.getSize(); ++column, ++element)
            bounds.tighten(row, column, minimums.value(element, MbbGlobal::D_FFFF),
                           maximums.value(element, MbbGlobal::D_FFFF));
    }
}

QString intervalText(double minimum, double maximum, const MbbStringFormat& format, int power)
{
    const QChar infinity(0x221E);
    const QString lower = minimum == MbbGlobal::D_FFFF ? QStringLiteral("]-") + infinity
                                                       : QLatin1Char('[') + format.valueToString(minimum, power);
    const QString upper = maximum == MbbGlobal::D_FFFF ? QLatin1Char('+') + QString(infinity) + QLatin1Char('[')
                                                       : format.valueToString(maximum, power) + QLatin1Char(']');
    return lower + QLatin1Char(' ') + upper;
}

/// The entry for a row in a list that has one for all rows or one per row; null without one.
template <class T>
const T* entryOf(const QList<T>& list, int row)
{
    const int i = list.size() == 1 ? 0 : row;
    return i < list.size() ? &list.at(i) : nullptr;
}

template <class T>
bool isSameOrAbsent(const T* a, const T* b)
{
    return (!a && !b) || (a && b && *a == *b);
}
} // namespace

KuuMatrixSymmetrical::KuuMatrixSymmetrical(int size)
    : _size(checkedSize(size)),
      _elements(elementCount(size), 0.0),
      _minimums(filledUp({}, elementCount(size))),
      _maximums(_minimums)
{}

void KuuMatrixSymmetrical::setElement(int row, int column, double value)
{
    _elements[_index(row, column)] = elementOf(value);
}

MgmMatrix KuuMatrixSymmetrical::getMatrix() const
{
    MgmMatrix matrix(_size, _size, MgmMatrix::Symmetric);
    for (int row = 0; row < _size; ++row) {
        for (int column = row; column < _size; ++column)
            matrix.setElement(row, column, getElementAt(row, column));
    }
    return matrix;
}

void KuuMatrixSymmetrical::setMatrix(const MgmMatrix& matrix)
{
    setMatrixWC(matrix, {}, {}, Ku::Constraint::Unknown);
    _mode = Ku::Constraint::Values;
}

void KuuMatrixSymmetrical::setMatrixWC(const MgmMatrix& matrix, const QList<double>& minimums,
                                       const QList<double>& maximums, Ku::Constraint::Behavior behavior)
{
    if (matrix.getNRows() != matrix.getNColumns())
        throw MbeProgrammingError(QStringLiteral("KuuMatrixSymmetrical: a matrix of %1 by %2 elements is not square.")
                                      .arg(matrix.getNRows())
                                      .arg(matrix.getNColumns()));
    _size = checkedSize(matrix.getNRows());
    _takeElements(matrix);
    _minimums = filledUp(minimums, getElementCount());
    _maximums = filledUp(maximums, getElementCount());
    _mode = Ku::Constraint::Constraints;
    _behavior = behavior;
}

void KuuMatrixSymmetrical::applyBounds(const QList<double>& minimums, const QList<double>& maximums,
                                       bool positiveDefinite)
{
    MgmMatrixBounds bounds(_size);
    if (_mode == Ku::Constraint::Constraints && _behavior == Ku::Constraint::Bounded)
        tighten(bounds, _minimums, _maximums);
    tighten(bounds, minimums, maximums);
    _takeElements(positiveDefinite ? MgmPositiveDefinite::nearest(getMatrix(), bounds) : bounds.nearest(getMatrix()));
}

QString KuuMatrixSymmetrical::toString(const QList<MbbStringFormat>& formats, const QList<int>& powers,
                                       const MbbStringFormat& defaultFormat) const
{
    if (_mode == Ku::Constraint::Constraints && _behavior == Ku::Constraint::Unknown)
        return QStringLiteral("[unknown]");
    QStringList rows;
    for (int row = 0; row < _size; ++row) {
        QStringList texts;
        for (int column = 0; column < _size; ++column) {
            const MbbStringFormat* format = entryOf(formats, row);
            const int* power = entryOf(powers, row);
            const bool plain = format && isSameOrAbsent(format, entryOf(formats, column)) &&
                               isSameOrAbsent(power, entryOf(powers, column));
            texts.append(_elementText(row, column, plain ? *format : defaultFormat, plain && power ? *power : 1));
        }
        rows.append(texts.join(QStringLiteral(", ")));
    }
    return _size == 1 ? rows.first() : QLatin1Char('[') + rows.join(QStringLiteral("; ")) + QLatin1Char(']');
}

void KuuMatrixSymmetrical::_takeElements(const MgmMatrix& matrix)
{
    QVector<double> elements;
    elements.reserve(elementCount(_size));
    for (int row = 0; row < _size; ++row) {
        for (int column = row; column < _size; ++column)
            elements.append(elementOf(matrix.getElement(row, column)));
    }
    _elements = elements;
}

int KuuMatrixSymmetrical::_index(int row, int column) const
{
    if (row < 0 || row >= _size || column < 0 || column >= _size)
        throw MbeProgrammingError(
            QStringLiteral("KuuMatrixSymmetrical: there is no element (%1, %2) in a matrix of %3 rows.")
                .arg(row)
                .arg(column)
                .arg(_size));
    const int first = std::min(row, column);
    const int second = std::max(row, column);
    return first * (2 * _size - first - 1) / 2 + second;
}

QString KuuMatrixSymmetrical::_elementText(int row, int column, const MbbStringFormat& format, int power) const
{
    if (_mode != Ku::Constraint::Constraints || _behavior != Ku::Constraint::Bounded)
        return format.valueToString(getElementAt(row, column), power);
    const int element = _index(row, column);
    return intervalText(_minimums.at(element), _maximums.at(element), format, power);
}

bool KuuMatrixSymmetrical::_isEqual(const KuuMatrixSymmetrical& other) const
{
    return _elements == other._elements && _mode == other._mode && _behavior == other._behavior &&
           _minimums == other._minimums && _maximums == other._maximums;
}
