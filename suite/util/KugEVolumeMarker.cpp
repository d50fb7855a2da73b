#include <util/KugEVolumeMarker.h>

#include <QtCore/QObject>

const KugEVolumeMarker KugEVolumeMarker::SPHERE(QObject::tr("Sphere"), 0, "SPHERE");
const KugEVolumeMarker KugEVolumeMarker::CUBE(QObject::tr("Cube"), 1, "CUBE");
const KugEVolumeMarker KugEVolumeMarker::TETRAHEDRON(QObject::tr("Tetrahedron"), 2, "TETRAHEDRON");
const KugEVolumeMarker KugEVolumeMarker::OCTAHEDRON(QObject::tr("Octahedron"), 3, "OCTAHEDRON");
const KugEVolumeMarker KugEVolumeMarker::CYLINDER(QObject::tr("Cylinder"), 4, "CYLINDER");
const KugEVolumeMarker KugEVolumeMarker::CONE(QObject::tr("Cone"), 5, "CONE");
const KugEVolumeMarker KugEVolumeMarker::DISC(QObject::tr("Disc"), 6, "DISC");
const KugEVolumeMarker KugEVolumeMarker::CROSS(QObject::tr("Cross"), 7, "CROSS");

QList<const KugEVolumeMarker*> KugEVolumeMarker::items()
{
    return {&SPHERE, &CUBE, &TETRAHEDRON, &OCTAHEDRON, &CYLINDER, &CONE, &DISC, &CROSS};
}
