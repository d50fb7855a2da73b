#include <basic/MbgEAngleUnit.h>

#include <QtCore/QObject>

const MbgEAngleUnit MbgEAngleUnit::DEGREE(QObject::tr("Degree"), 0, "DEGREE");
const MbgEAngleUnit MbgEAngleUnit::RADIAN(QObject::tr("Radian"), 1, "RADIAN");
const MbgEAngleUnit MbgEAngleUnit::GRADE(QObject::tr("Grade"), 2, "GRADE");

QList<const MbgEAngleUnit*> MbgEAngleUnit::items()
{
    return {&DEGREE, &RADIAN, &GRADE};
}
