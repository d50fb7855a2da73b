#include <basic/MbuEUnitClass.h>

#include <QtCore/QObject>

const MbuEUnitClass MbuEUnitClass::NONE(QObject::tr("None"), 0, "NONE");
const MbuEUnitClass MbuEUnitClass::LENGTH(QObject::tr("Length"), 1, "LENGTH");
const MbuEUnitClass MbuEUnitClass::SURFACE(QObject::tr("Surface"), 2, "SURFACE");
const MbuEUnitClass MbuEUnitClass::VOLUME(QObject::tr("Volume"), 3, "VOLUME");
const MbuEUnitClass MbuEUnitClass::ANGLE(QObject::tr("Angle"), 4, "ANGLE");
const MbuEUnitClass MbuEUnitClass::MASS(QObject::tr("Mass"), 5, "MASS");
const MbuEUnitClass MbuEUnitClass::TIME(QObject::tr("Time"), 6, "TIME");
const MbuEUnitClass MbuEUnitClass::TEMPERATURE(QObject::tr("Temperature"), 7, "TEMPERATURE");
const MbuEUnitClass MbuEUnitClass::DENSITY(QObject::tr("Density"), 8, "DENSITY");
const MbuEUnitClass MbuEUnitClass::PRESSURE(QObject::tr("Pressure"), 9, "PRESSURE");
const MbuEUnitClass MbuEUnitClass::CONCENTRATION(QObject::tr("Concentration"), 10, "CONCENTRATION");
const MbuEUnitClass MbuEUnitClass::PERCENTAGE(QObject::tr("Percentage"), 11, "PERCENTAGE");
const MbuEUnitClass MbuEUnitClass::VELOCITY(QObject::tr("Velocity"), 12, "VELOCITY");
const MbuEUnitClass MbuEUnitClass::ACCELERATION(QObject::tr("Acceleration"), 13, "ACCELERATION");
const MbuEUnitClass MbuEUnitClass::PERMEABILITY(QObject::tr("Permeability"), 14, "PERMEABILITY");

QList<const MbuEUnitClass*> MbuEUnitClass::items()
{
    return {&NONE,    &LENGTH,   &SURFACE,       &VOLUME,     &ANGLE,    &MASS,         &TIME,        &TEMPERATURE,
            &DENSITY, &PRESSURE, &CONCENTRATION, &PERCENTAGE, &VELOCITY, &ACCELERATION, &PERMEABILITY};
}
