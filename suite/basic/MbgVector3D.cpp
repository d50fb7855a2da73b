#include <basic/MbgVector3D.h>

#include <algorithm>

constinit const MbgVector3D MbgVector3D::Null;

void MbgVector3D::normalize()
{
    const double largest = std::max({std::abs(x()), std::abs(y()), std::abs(z())});
    if (largest == 0 || !std::isfinite(x()) || !std::isfinite(y()) || !std::isfinite(z()))
        return;
    int exponent = 0;
    std::frexp(largest, &exponent);
    const MbgVector3D scaled(std::ldexp(x(), -exponent), std::ldexp(y(), -exponent), std::ldexp(z(), -exponent));
    *this = scaled / scaled.getLength();
}
