#pragma once

#include <basic/MbbAEnumFlags.h>
#include <basic/MbdEVarType.h>

/// A set of types of variables.
class KESTRIN_BASIC_EXPORT MbdVarTypeFlags : public MbbAEnumFlags<MbdVarTypeFlags, MbdEVarType>
{
public:
    static const MbdVarTypeFlags ANY; ///< all of them

    MbdVarTypeFlags() = default;
    MbdVarTypeFlags(std::initializer_list<MbdEVarType> items) : MbbAEnumFlags(items) {}
};
