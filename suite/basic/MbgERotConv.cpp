#include <basic/MbgERotConv.h>

#include <QtCore/QObject>

const MbgERotConv MbgERotConv::SYSTEM(QObject::tr("System"), 0, "SYSTEM");
const MbgERotConv MbgERotConv::DIRECTION(QObject::tr("Direction"), 1, "DIRECTION");

QList<const MbgERotConv*> MbgERotConv::items()
{
    return {&SYSTEM, &DIRECTION};
}
