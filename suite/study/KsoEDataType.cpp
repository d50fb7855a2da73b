#include <study/KsoEDataType.h>

#include <QtCore/QObject>

const KsoEDataType KsoEDataType::DIRECTORY(QObject::tr("Directory"), 0, "DIRECTORY");
const KsoEDataType KsoEDataType::FILE(QObject::tr("File"), 1, "FILE");
const KsoEDataType KsoEDataType::SUPPORT(QObject::tr("Support"), 2, "SUPPORT");
const KsoEDataType KsoEDataType::VARIABLE(QObject::tr("Variable"), 3, "VARIABLE");
const KsoEDataType KsoEDataType::MACRO_VARIABLE(QObject::tr("Macro variable"), 4, "MACRO_VARIABLE");

QList<const KsoEDataType*> KsoEDataType::items()
{
    return {&DIRECTORY, &FILE, &SUPPORT, &VARIABLE, &MACRO_VARIABLE};
}
