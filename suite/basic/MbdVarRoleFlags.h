#pragma once

#include <basic/MbbAEnumFlags.h>
#include <basic/MbdEVarRole.h>

/// A set of roles of variables.
class KESTRIN_BASIC_EXPORT MbdVarRoleFlags : public MbbAEnumFlags<MbdVarRoleFlags, MbdEVarRole>
{
public:
    static const MbdVarRoleFlags ANY; ///< all of them

    MbdVarRoleFlags() = default;
    MbdVarRoleFlags(std::initializer_list<MbdEVarRole> items) : MbbAEnumFlags(items) {}
};
