#include <util/KugEMarker.h>

#include <QtCore/QObject>

const KugEMarker KugEMarker::CIRCLE(QObject::tr("Circle"), 0, "CIRCLE");
const KugEMarker KugEMarker::SQUARE(QObject::tr("Square"), 1, "SQUARE");
const KugEMarker KugEMarker::DIAMOND(QObject::tr("Diamond"), 2, "DIAMOND");
const KugEMarker KugEMarker::TRIANGLE_UP(QObject::tr("Triangle up"), 3, "TRIANGLE_UP");
const KugEMarker KugEMarker::TRIANGLE_DOWN(QObject::tr("Triangle down"), 4, "TRIANGLE_DOWN");
const KugEMarker KugEMarker::PENTAGON(QObject::tr("Pentagon"), 5, "PENTAGON");
const KugEMarker KugEMarker::HEXAGON(QObject::tr("Hexagon"), 6, "HEXAGON");
const KugEMarker KugEMarker::STAR(QObject::tr("Star"), 7, "STAR");
const KugEMarker KugEMarker::PLUS(QObject::tr("Plus"), 8, "PLUS");
const KugEMarker KugEMarker::CROSS(QObject::tr("Cross"), 9, "CROSS");

QList<const KugEMarker*> KugEMarker::items()
{
    return {&CIRCLE, &SQUARE, &DIAMOND, &TRIANGLE_UP, &TRIANGLE_DOWN, &PENTAGON, &HEXAGON, &STAR, &PLUS, &CROSS};
}
