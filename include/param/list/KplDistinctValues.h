#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QSet>

#include <basic/MbuUnit.h>

#include <algorithm>
#include <cmath>
#include <concepts>
#include <limits>
#include <unordered_set>

/// A number that is the same for equal units.
inline uint qHash(const MbuUnit& unit, uint seed = 0)
{
    return qHash(unit.getKey(), seed);
}

/// The values that have come so far, for the lists that admit each value once. Adding n values takes time in proportion
/// to n where the type has a `qHash`, and to its square where it can only be compared.
template <class Value>
class KplDistinctValues
{
public:
    /// Makes room for as many values at once.
    void reserve(int count) { _values.reserve(count); }
    bool contains(const Value& value) const { return _values.contains(value); }
    /// Gives whether `value` is equal to none of those before it. It counts from now on, whether or not it is.
    bool add(const Value& value)
    {
        if (contains(value))
            return false;
        _values.append(value);
        return true;
    }
    /// The same, but only what is new counts from now on.
    bool admit(const Value& value) { return add(value); }

private:
    QList<Value> _values;
};

template <class Value>
requires requires(const Value& value)
{
    {
        qHash(value)
        } -> std::convertible_to<uint>;
}
class KplDistinctValues<Value>
{
public:
    void reserve(int count) { _values.reserve(count); }
    bool contains(const Value& value) const { return _values.contains(value); }
    bool add(const Value& value)
    {
        const int known = _values.size();
        _values.insert(value);
        return _values.size() != known;
    }
    bool admit(const Value& value) { return add(value); }

private:
    QSet<Value> _values;
};

/// Numbers are equal that differ by less than 1e-10. That a equals b and b equals c does not make a equal c.
template <>
class KplDistinctValues<double>
{
public:
    void reserve(int count) { _cells.reserve(count); }
    bool contains(double value) const
    {
        if (std::isnan(value))
            return false;
        if (_isExact(value))
            return _exact.count(value) != 0;
        return _cells.contains(_cellOf(value)) || _hasNeighbour(value);
    }
    bool add(double value)
    {
        if (std::isnan(value))
            return true;
        if (_isExact(value))
            return _exact.insert(value).second;
        Cell& cell = _cells[_cellOf(value)];
        const bool isNew = cell.isEmpty() && !_hasNeighbour(value);
        cell = {std::min(cell.least, value), std::max(cell.greatest, value)};
        return isNew;
    }
    /// The same, but only what is new counts from now on.
    bool admit(double value)
    {
        if (std::isnan(value))
            return true;
        if (_isExact(value))
            return _exact.insert(value).second;
        if (_hasNeighbour(value))
            return false;
        const int known = _cells.size();
        Cell& cell = _cells[_cellOf(value)];
        if (_cells.size() == known)
            return false;
        cell = {value, value};
        return true;
    }

private:
    // The values of one cell are all equal.
    struct Cell
    {
        double least = std::numeric_limits<double>::infinity();
        double greatest = -std::numeric_limits<double>::infinity();
        bool isEmpty() const { return least > greatest; }
    };

    static constexpr double Tolerance = 1e-10;
    static constexpr double ExactFrom = 0x1p20;
    // A power of two, so that cells are exact. A cell is narrower than the tolerance, and two are wider.
    static constexpr double CellsPerUnit = 0x1p34;

    // Neighbouring numbers are further apart than the tolerance.
    static bool _isExact(double value) { return std::abs(value) >= ExactFrom; }
    /// Whether a value in another cell is equal.
    bool _hasNeighbour(double value) const
    {
        const qint64 cell = _cellOf(value);
        const auto endsIn = [&](qint64 below) {
            const auto found = _cells.constFind(below);
            return found != _cells.constEnd() && value - found->greatest < Tolerance;
        };
        const auto beginsIn = [&](qint64 above) {
            const auto found = _cells.constFind(above);
            return found != _cells.constEnd() && found->least - value < Tolerance;
        };
        return endsIn(cell - 1) || endsIn(cell - 2) || beginsIn(cell + 1) || beginsIn(cell + 2);
    }
    static qint64 _cellOf(double value) { return qint64(std::floor(value * CellsPerUnit)); }

    QHash<qint64, Cell> _cells;
    std::unordered_set<double> _exact;
};
