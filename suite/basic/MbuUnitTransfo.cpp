#include <basic/MbbGlobal.h>
#include <basic/MbuUnitTransfo.h>

#include <cmath>

MbuUnitTransfo::MbuUnitTransfo(double scale, double offset)
{
    if (!std::isnormal(scale) || !std::isfinite(offset))
        return;
    _scale = scale;
    _offset = offset;
    _valid = true;
}

double MbuUnitTransfo::transform(double value) const
{
    if (value == MbbGlobal::D_FFFF)
        return value;
    return _inverse ? (value - _offset) / _scale : value * _scale + _offset;
}

MbuUnitTransfo MbuUnitTransfo::inverted() const
{
    MbuUnitTransfo back(*this);
    back._inverse = !_inverse;
    return back;
}
