#include <basic/MbbEFormat.h>

#include <QtCore/QObject>

const MbbEFormat MbbEFormat::DECIMAL(QObject::tr("Decimal"), 0, "DECIMAL");
const MbbEFormat MbbEFormat::SCIENTIFIC(QObject::tr("Scientific"), 1, "SCIENTIFIC");
const MbbEFormat MbbEFormat::GENERAL(QObject::tr("General"), 2, "GENERAL");

QList<const MbbEFormat*> MbbEFormat::items()
{
    return {&DECIMAL, &SCIENTIFIC, &GENERAL};
}
