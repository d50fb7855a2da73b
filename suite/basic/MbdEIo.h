#pragma once

#include <basic/MbbAEnumClass.h>

/// Which way something of a project is used by a task. A default one is INPUT.
class KESTRIN_BASIC_EXPORT MbdEIo : public MbbAEnumClass<MbdEIo>
{
public:
    static const MbdEIo INPUT;  ///< value 0: it is read, so it must exist
    static const MbdEIo OUTPUT; ///< value 1: it is written, and may be new

    MbdEIo() : MbdEIo(INPUT) {}

    static QList<const MbdEIo*> items();
    static constexpr const char* ClassName = "MbdEIo";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
