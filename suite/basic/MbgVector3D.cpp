#include <basic/MbgVector3D.h>

constinit const MbgVector3D MbgVector3D::Null;

void MbgVector3D::normalize()
{
    const double length = getLength();
    if (length > 0 && std::isfinite(length))
        *this = *this / length;
}
