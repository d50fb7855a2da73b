#include <basic/MbgGeometrySetFlags.h>

#include <QtCore/QObject>

const MbgEGeometrySet MbgEGeometrySet::POINTS(QObject::tr("Points"), 0, "POINTS");
const MbgEGeometrySet MbgEGeometrySet::LINES(QObject::tr("Lines"), 1, "LINES");
const MbgEGeometrySet MbgEGeometrySet::POLYGONS(QObject::tr("Polygons"), 2, "POLYGONS");
const MbgEGeometrySet MbgEGeometrySet::GRID(QObject::tr("Grid"), 3, "GRID");

QList<const MbgEGeometrySet*> MbgEGeometrySet::items()
{
    return {&POINTS, &LINES, &POLYGONS, &GRID};
}

// Beside the kinds, which have to be made first.
const MbgGeometrySetFlags MbgGeometrySetFlags::ANY = MbgGeometrySetFlags::all();
const MbgGeometrySetFlags MbgGeometrySetFlags::GRID = {MbgEGeometrySet::GRID};
