#include <basic/MbcStatBasic.h>

#include <algorithm>
#include <cmath>

void MbcStatBasic::add(const std::vector<double>& values)
{
    for (const double value : values)
        add(value);
}

void MbcStatBasic::add(double value)
{
    if (!std::isfinite(value) || value == MbbGlobal::D_FFFF)
        return;
    _rescaleFor(value);
    _minimum = _count == 0 ? value : std::min(_minimum, value);
    _maximum = _count == 0 ? value : std::max(_maximum, value);
    ++_count;
    const double scaled = std::ldexp(value, -_exponent);
    const double deviation = scaled - _mean;
    _mean += deviation / double(_count);
    _squares += deviation * (scaled - _mean);
}

void MbcStatBasic::_rescaleFor(double value)
{
    if (value == 0.0)
        return;
    int exponent = 0;
    std::frexp(value, &exponent);
    const bool first = _minimum == 0.0 && _maximum == 0.0;
    if (!first && exponent <= _exponent)
        return;
    const int change = _exponent - exponent;
    _exponent = exponent;
    _mean = std::ldexp(_mean, change);
    _squares = std::ldexp(_squares, 2 * change);
}

// Rounding may carry the mean beyond the values, and the deviation beyond the greatest number.
double MbcStatBasic::getMean() const
{
    return _orUndefined(std::clamp(std::ldexp(_mean, _exponent), _minimum, _maximum));
}

double MbcStatBasic::getStandardDeviation() const
{
    if (_count == 0)
        return MbbGlobal::D_FFFF;
    return std::min(std::ldexp(std::sqrt(_squares / double(_count)), _exponent), MbbGlobal::D_FFFF);
}
