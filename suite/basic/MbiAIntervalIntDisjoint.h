#pragma once

#include <QtCore/QVector>

#include <basic/BasicExport.h>

#include <algorithm>

/// A set of integers as closed intervals that neither overlap nor touch, ascending. An implicitly shared value.
class KESTRIN_BASIC_EXPORT MbiAIntervalIntDisjoint
{
public:
    struct Interval
    {
        int first; ///< the lowest number in it
        int last;  ///< the highest number in it

        friend bool operator==(const Interval& a, const Interval& b) { return a.first == b.first && a.last == b.last; }
    };

    bool isEmpty() const { return _intervals.isEmpty(); }
    const QVector<Interval>& getIntervals() const { return _intervals; }
    void clear() { _intervals.clear(); }

    /// Adds the numbers from `first` to `last`, both of them included; none where `last` is the smaller one.
    void add(int first, int last)
    {
        if (last < first)
            return;
        const auto begin = std::lower_bound(_intervals.begin(), _intervals.end(), first,
                                            [](const Interval& a, int n) { return qint64(a.last) + 1 < n; });
        const auto end = std::upper_bound(begin, _intervals.end(), last,
                                          [](int n, const Interval& a) { return qint64(n) + 1 < a.first; });
        const int place = int(begin - _intervals.begin());
        if (begin != end) {
            first = std::min(first, begin->first);
            last = std::max(last, (end - 1)->last);
        }
        _intervals.erase(begin, end);
        _intervals.insert(place, Interval{first, last});
    }
    bool contains(int number) const
    {
        const auto found = std::lower_bound(_intervals.begin(), _intervals.end(), number,
                                            [](const Interval& a, int n) { return a.last < n; });
        return found != _intervals.end() && found->first <= number;
    }

    friend bool operator==(const MbiAIntervalIntDisjoint& a, const MbiAIntervalIntDisjoint& b)
    {
        return a._intervals == b._intervals;
    }
    friend bool operator!=(const MbiAIntervalIntDisjoint& a, const MbiAIntervalIntDisjoint& b) { return !(a == b); }

private:
    QVector<Interval> _intervals;
};
