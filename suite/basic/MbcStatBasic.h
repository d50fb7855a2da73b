#pragma once

#include <basic/BasicExport.h>
#include <basic/MbbGlobal.h>

#include <vector>

/// The elementary statistics of a column of numbers, gathered one by one in a single walk. Undefined values
/// (`MbbGlobal::D_FFFF`), infinities and what is no number are left out. Values of any magnitude can be mixed: nothing
/// overflows on the way, and close values far from zero keep their differences.
///
/// Without a value every statistic is `MbbGlobal::D_FFFF`.
class KESTRIN_BASIC_EXPORT MbcStatBasic
{
public:
    void add(double value);
    void add(const std::vector<double>& values);

    /// The number of values that count.
    qint64 getCount() const { return _count; }
    double getMinimum() const { return _orUndefined(_minimum); }
    double getMaximum() const { return _orUndefined(_maximum); }
    double getMean() const;
    /// That of the values themselves, divided by their number.
    double getStandardDeviation() const;

private:
    double _orUndefined(double statistic) const { return _count == 0 ? MbbGlobal::D_FFFF : statistic; }
    void _rescaleFor(double value);

    qint64 _count = 0;
    double _minimum = 0.0;
    double _maximum = 0.0;
    // The mean and the sum of the squared deviations of the values divided by 2 to the power of _exponent, which makes
    // all of them less than 1.
    int _exponent = 0;
    double _mean = 0.0;
    double _squares = 0.0;
};
