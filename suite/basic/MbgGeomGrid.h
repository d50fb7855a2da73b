#pragma once

#include <basic/MbgBox.h>
#include <basic/MbgIntVector3D.h>
#include <basic/MbgRotation.h>

/// A regular grid of cells: their number and size along its axes U, V and W, where it begins, and how it is rotated.
/// Sizes are in the length unit of the coordinates; cells of a negative size run against their axis. A plain value that
/// keeps what it is given; a default one has no cells.
class KESTRIN_BASIC_EXPORT MbgGeomGrid
{
public:
    MbgGeomGrid() = default;
    MbgGeomGrid(const MbgIntVector3D& counts, const MbgVector3D& cellSize, const MbgVector3D& origin,
                const MbgRotation& rotation);
    /// One layer of cells.
    MbgGeomGrid(int nx, int ny, const MbgVector3D& cellSize, const MbgVector3D& origin, const MbgRotation& rotation);

    int getNx() const { return _counts.x(); }
    int getNy() const { return _counts.y(); }
    int getNz() const { return _counts.z(); }
    const MbgVector3D& getCellSize() const { return _cellSize; }
    /// The outer corner of the first cell; the grid turns about it.
    const MbgVector3D& getOrigin() const { return _origin; }
    const MbgRotation& getRotation() const { return _rotation; }

    /// The smallest box around all cells, their full extent included. It is not valid if a count is not positive, a
    /// number is undefined, or a corner is not finite.
    MbgBox getBoundingBox() const;

    friend bool operator==(const MbgGeomGrid& a, const MbgGeomGrid& b) = default;

private:
    MbgIntVector3D _counts;
    MbgVector3D _cellSize;
    MbgVector3D _origin;
    MbgRotation _rotation;
};
