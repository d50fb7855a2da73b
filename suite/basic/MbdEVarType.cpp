#include <basic/MbdVarTypeFlags.h>

#include <QtCore/QObject>

const MbdEVarType MbdEVarType::BYTE(QObject::tr("Byte"), 0, "BYTE");
const MbdEVarType MbdEVarType::INTEGER(QObject::tr("Integer"), 1, "INTEGER");
const MbdEVarType MbdEVarType::FLOAT(QObject::tr("Float"), 2, "FLOAT");
const MbdEVarType MbdEVarType::DOUBLE(QObject::tr("Double"), 3, "DOUBLE");
const MbdEVarType MbdEVarType::BOOLEAN(QObject::tr("Boolean"), 4, "BOOLEAN");
const MbdEVarType MbdEVarType::ENUM(QObject::tr("Category"), 5, "ENUM");
const MbdEVarType MbdEVarType::STRING(QObject::tr("Text"), 6, "STRING");

QList<const MbdEVarType*> MbdEVarType::items()
{
    return {&BYTE, &INTEGER, &FLOAT, &DOUBLE, &BOOLEAN, &ENUM, &STRING};
}

// Beside the types, which have to be made first.
const MbdVarTypeFlags MbdVarTypeFlags::ANY = MbdVarTypeFlags::all();
