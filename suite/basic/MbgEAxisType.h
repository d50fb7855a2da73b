#pragma once

#include <basic/MbbAEnumClass.h>

/// An axis of a rotated system: U, V and W are where the rotation brings X, Y and Z. A default one is U.
class KESTRIN_BASIC_EXPORT MbgEAxisType : public MbbAEnumClass<MbgEAxisType>
{
public:
    static const MbgEAxisType AXIS_U; ///< value 0
    static const MbgEAxisType AXIS_V; ///< value 1
    static const MbgEAxisType AXIS_W; ///< value 2

    MbgEAxisType() : MbgEAxisType(AXIS_U) {}

    static QList<const MbgEAxisType*> items();
    static constexpr const char* ClassName = "MbgEAxisType";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
