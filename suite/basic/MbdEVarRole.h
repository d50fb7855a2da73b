#pragma once

#include <basic/MbbAEnumClass.h>

/// What a variable is among those of its support. A default one is NONE.
class KESTRIN_BASIC_EXPORT MbdEVarRole : public MbbAEnumClass<MbdEVarRole>
{
public:
    static const MbdEVarRole NONE;       ///< value 0
    static const MbdEVarRole COORDINATE; ///< value 1
    static const MbdEVarRole WEIGHT;     ///< value 2
    static const MbdEVarRole V;          ///< value 3: a variable of interest

    MbdEVarRole() : MbdEVarRole(NONE) {}

    static QList<const MbdEVarRole*> items();
    static constexpr const char* ClassName = "MbdEVarRole";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
