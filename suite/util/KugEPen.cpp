#include <util/KugEPen.h>

#include <QtCore/QObject>

const KugEPen KugEPen::NO_LINE(QObject::tr("No line"), 0, "NO_LINE");
const KugEPen KugEPen::SOLID(QObject::tr("Solid"), 1, "SOLID");
const KugEPen KugEPen::DASH(QObject::tr("Dash"), 2, "DASH");
const KugEPen KugEPen::DOT(QObject::tr("Dot"), 3, "DOT");
const KugEPen KugEPen::DASH_DOT(QObject::tr("Dash dot"), 4, "DASH_DOT");
const KugEPen KugEPen::DASH_DOT_DOT(QObject::tr("Dash dot dot"), 5, "DASH_DOT_DOT");

QList<const KugEPen*> KugEPen::items()
{
    return {&NO_LINE, &SOLID, &DASH, &DOT, &DASH_DOT, &DASH_DOT_DOT};
}
