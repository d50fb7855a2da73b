#include <basic/MbdEIo.h>

#include <QtCore/QObject>

const MbdEIo MbdEIo::INPUT(QObject::tr("Input"), 0, "INPUT");
const MbdEIo MbdEIo::OUTPUT(QObject::tr("Output"), 1, "OUTPUT");

QList<const MbdEIo*> MbdEIo::items()
{
    return {&INPUT, &OUTPUT};
}
