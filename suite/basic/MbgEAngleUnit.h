#pragma once

#include <basic/MbbAEnumClass.h>

/// What an angle is counted in. A default one is the degree.
class KESTRIN_BASIC_EXPORT MbgEAngleUnit : public MbbAEnumClass<MbgEAngleUnit>
{
public:
    static const MbgEAngleUnit DEGREE; ///< value 0; 360 to the full circle
    static const MbgEAngleUnit RADIAN; ///< value 1; 2π to the full circle
    static const MbgEAngleUnit GRADE;  ///< value 2; 400 to the full circle

    MbgEAngleUnit() : MbgEAngleUnit(DEGREE) {}

    static QList<const MbgEAngleUnit*> items();
    static constexpr const char* ClassName = "MbgEAngleUnit";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
