#include <basic/MbgEAxisType.h>

#include <QtCore/QObject>

const MbgEAxisType MbgEAxisType::AXIS_U(QObject::tr("U"), 0, "AXIS_U");
const MbgEAxisType MbgEAxisType::AXIS_V(QObject::tr("V"), 1, "AXIS_V");
const MbgEAxisType MbgEAxisType::AXIS_W(QObject::tr("W"), 2, "AXIS_W");

QList<const MbgEAxisType*> MbgEAxisType::items()
{
    return {&AXIS_U, &AXIS_V, &AXIS_W};
}
