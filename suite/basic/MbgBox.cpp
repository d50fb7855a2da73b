#include <basic/MbgBox.h>

#include <algorithm>

namespace {
bool isUsable(const MbgVector3D& point)
{
    return point.isDefined() && std::isfinite(point.x()) && std::isfinite(point.y()) && std::isfinite(point.z());
}
} // namespace

MbgBox::MbgBox(const MbgVector3D& a, const MbgVector3D& b)
{
    if (isUsable(a) && isUsable(b)) {
        extend(a);
        extend(b);
    }
}

bool MbgBox::isInside(const MbgBox& other, bool inThreeDimensions) const
{
    if (!_valid || !other._valid)
        return false;
    for (int i = 0; i < (inThreeDimensions ? 3 : 2); ++i) {
        if (_minimum[i] < other._minimum[i] || _maximum[i] > other._maximum[i])
            return false;
    }
    return true;
}

bool MbgBox::extend(const MbgVector3D& point)
{
    if (!isUsable(point))
        return false;
    for (int i = 0; i < 3; ++i) {
        _minimum[i] = _valid ? std::min(_minimum[i], point[i]) : point[i];
        _maximum[i] = _valid ? std::max(_maximum[i], point[i]) : point[i];
    }
    _valid = true;
    return true;
}
