#include <basic/MbdVarRoleFlags.h>

#include <QtCore/QObject>

const MbdEVarRole MbdEVarRole::NONE(QObject::tr("None"), 0, "NONE");
const MbdEVarRole MbdEVarRole::COORDINATE(QObject::tr("Coordinate"), 1, "COORDINATE");
const MbdEVarRole MbdEVarRole::WEIGHT(QObject::tr("Weight"), 2, "WEIGHT");
const MbdEVarRole MbdEVarRole::V(QObject::tr("Variable"), 3, "V");

QList<const MbdEVarRole*> MbdEVarRole::items()
{
    return {&NONE, &COORDINATE, &WEIGHT, &V};
}

// Beside the roles, which have to be made first.
const MbdVarRoleFlags MbdVarRoleFlags::ANY = MbdVarRoleFlags::all();
