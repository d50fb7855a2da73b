#pragma once

#include <basic/BasicExport.h>

/// A conversion of values from one unit to another: an affine function or its inverse. A default one is not valid and,
/// like an identity, leaves values as they are.
class KESTRIN_BASIC_EXPORT MbuUnitTransfo
{
public:
    MbuUnitTransfo() = default;
    /// `scale * value + offset`. Not valid, thus without effect, if the scale is zero or denormal or a number is not
    /// finite.
    explicit MbuUnitTransfo(double scale, double offset = 0.0);

    bool isValid() const { return _valid; }
    /// The converted value. The undefined marker `MbbGlobal::D_FFFF` stays what it is.
    double transform(double value) const;
    /// The way back. It divides where this one multiplies, so that going forth and back loses no more than rounding.
    MbuUnitTransfo inverted() const;

private:
    double _scale = 1.0;
    double _offset = 0.0;
    bool _inverse = false;
    bool _valid = false;
};
