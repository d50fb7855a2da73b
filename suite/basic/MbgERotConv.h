#pragma once

#include <basic/MbbAEnumClass.h>

/// What the angles of a rotation convention describe. A default one is SYSTEM.
class KESTRIN_BASIC_EXPORT MbgERotConv : public MbbAEnumClass<MbgERotConv>
{
public:
    static const MbgERotConv SYSTEM;    ///< value 0; a system of three axes
    static const MbgERotConv DIRECTION; ///< value 1; the direction of the U axis, and a turn about it

    MbgERotConv() : MbgERotConv(SYSTEM) {}

    static QList<const MbgERotConv*> items();
    static constexpr const char* ClassName = "MbgERotConv";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
