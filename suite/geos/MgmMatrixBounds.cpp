#include <geos/MgmMatrixBounds.h>

#include <basic/MbbGlobal.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
constexpr double infinity = std::numeric_limits<double>::infinity();

double limitOr(double limit, double none)
{
    return std::isfinite(limit) && limit != MbbGlobal::D_FFFF ? limit : none;
}
} // namespace

MgmMatrixBounds::MgmMatrixBounds(int size)
    : _lower(size, size, MgmMatrix::Symmetric),
      _upper(size, size, MgmMatrix::Symmetric)
{
    for (int row = 0; row < size; ++row) {
        for (int column = row; column < size; ++column) {
            _lower.setElement(row, column, -infinity);
            _upper.setElement(row, column, infinity);
        }
    }
}

void MgmMatrixBounds::tighten(int row, int column, double minimum, double maximum)
{
    const double newUpper = limitOr(maximum, infinity);
    const double newLower = std::min(limitOr(minimum, -infinity), newUpper);
    const double lower = std::max(getLower(row, column), newLower);
    const double upper = std::min(getUpper(row, column), newUpper);
    _lower.setElement(row, column, lower <= upper ? lower : newLower);
    _upper.setElement(row, column, lower <= upper ? upper : newUpper);
}

double MgmMatrixBounds::nearest(int row, int column, double value) const
{
    return std::clamp(value, getLower(row, column), getUpper(row, column));
}

MgmMatrix MgmMatrixBounds::nearest(const MgmMatrix& matrix) const
{
    MgmMatrix result(getSize(), getSize(), MgmMatrix::Symmetric);
    for (int row = 0; row < getSize(); ++row) {
        for (int column = row; column < getSize(); ++column)
            result.setElement(row, column, nearest(row, column, matrix.getElement(row, column)));
    }
    return result;
}
