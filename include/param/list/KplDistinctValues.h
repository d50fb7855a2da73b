#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QSet>

#include <basic/MbuUnit.h>

#include <cmath>
#include <concepts>
#include <unordered_set>
#include <utility>

/// A number that is the same for equal units.
inline uint qHash(const MbuUnit& unit, uint seed = 0)
{
    return qHash(unit.getKey(), seed);
}

/// Values of which no two are equal, for the lists that admit each value once. Adding n values takes time in proportion
/// to n where the type has a `qHash`, and to its square where it can only be compared.
template <class Value>
class KplDistinctValues
{
public:
    /// Gives whether `value` is equal to none of the values so far, and keeps it then.
    bool add(const Value& value)
    {
        if (_values.contains(value))
            return false;
        _values.append(value);
        return true;
    }

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
    bool add(const Value& value)
    {
        const int known = _values.size();
        _values.insert(value);
        return _values.size() != known;
    }

private:
    QSet<Value> _values;
};

/// Numbers are equal that differ by less than 1e-10.
template <>
class KplDistinctValues<double>
{
public:
    bool add(double value)
    {
        if (std::isnan(value))
            return true;
        // From here on, neighbouring numbers are further apart than the tolerance.
        if (std::abs(value) >= ExactFrom)
            return _exact.insert(value).second;
        // Equal numbers share a cell or lie in neighbouring ones.
        const auto cell = qint64(std::floor(value * CellsPerUnit));
        for (const qint64 near : {cell - 1, cell, cell + 1}) {
            for (auto kept = _cells.constFind(near); kept != _cells.constEnd() && kept.key() == near; ++kept) {
                if (std::abs(*kept - value) < Tolerance)
                    return false;
            }
        }
        _cells.insert(cell, value);
        return true;
    }

private:
    static constexpr double Tolerance = 1e-10;
    static constexpr double ExactFrom = 0x1p20;
    // A power of two, so that cells are exact.
    static constexpr double CellsPerUnit = 0x1p32;

    QMultiHash<qint64, double> _cells;
    std::unordered_set<double> _exact;
};
