#pragma once

#include <basic/MbgAVector.h>

/// A point or a vector of the plane. A default one is zero.
class KESTRIN_BASIC_EXPORT MbgVector2D : public MbgAVector<double, 2>
{
public:
    constexpr MbgVector2D() = default;
    constexpr MbgVector2D(double x, double y) : MbgAVector(x, y) {}
};
