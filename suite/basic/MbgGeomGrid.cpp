#include <basic/MbgGeomGrid.h>

MbgGeomGrid::MbgGeomGrid(const MbgIntVector3D& counts, const MbgVector3D& cellSize, const MbgVector3D& origin,
                         const MbgRotation& rotation)
    : _counts(counts),
      _cellSize(cellSize),
      _origin(origin),
      _rotation(rotation)
{}

MbgGeomGrid::MbgGeomGrid(int nx, int ny, const MbgVector3D& cellSize, const MbgVector3D& origin,
                         const MbgRotation& rotation)
    : MbgGeomGrid({nx, ny, 1}, cellSize, origin, rotation)
{}

MbgBox MbgGeomGrid::getBoundingBox() const
{
    const bool usable = getNx() > 0 && getNy() > 0 && getNz() > 0 && _cellSize.isDefined() && _origin.isDefined() &&
                        _rotation.isDefined();
    MbgBox box;
    if (!usable)
        return box;
    constexpr int corners = 8;
    for (int corner = 0; corner < corners; ++corner) {
        MbgVector3D local;
        for (int i = 0; i < 3; ++i)
            local[i] = corner >> i & 1 ? _counts[i] * _cellSize[i] : 0;
        if (!box.extend(_origin + _rotation.localToWorld(local)))
            return MbgBox();
    }
    return box;
}
