#pragma once

#include <basic/MbbAEnumClass.h>

/// A physical dimension; units of one class convert into each other. A default one is NONE, a plain number. The values
/// are fixed: stored forms and other modules compare them.
class KESTRIN_BASIC_EXPORT MbuEUnitClass : public MbbAEnumClass<MbuEUnitClass>
{
public:
    static const MbuEUnitClass NONE; ///< value 0
    static const MbuEUnitClass LENGTH;
    static const MbuEUnitClass SURFACE;
    static const MbuEUnitClass VOLUME;
    static const MbuEUnitClass ANGLE;
    static const MbuEUnitClass MASS;
    static const MbuEUnitClass TIME;
    static const MbuEUnitClass TEMPERATURE;
    static const MbuEUnitClass DENSITY;
    static const MbuEUnitClass PRESSURE;
    static const MbuEUnitClass CONCENTRATION; ///< mass of a substance by mass of rock: a grade
    static const MbuEUnitClass PERCENTAGE;    ///< any other proportion, such as a porosity
    static const MbuEUnitClass VELOCITY;
    static const MbuEUnitClass ACCELERATION;
    static const MbuEUnitClass PERMEABILITY;

    MbuEUnitClass() : MbuEUnitClass(NONE) {}

    static QList<const MbuEUnitClass*> items();
    static constexpr const char* ClassName = "MbuEUnitClass";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
