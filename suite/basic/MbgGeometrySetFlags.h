#pragma once

#include <basic/MbbAEnumFlags.h>
#include <basic/MbgEGeometrySet.h>

/// A set of kinds of geometries.
class KESTRIN_BASIC_EXPORT MbgGeometrySetFlags : public MbbAEnumFlags<MbgGeometrySetFlags, MbgEGeometrySet>
{
public:
    static const MbgGeometrySetFlags ANY;  ///< all of them
    static const MbgGeometrySetFlags GRID; ///< grids only

    MbgGeometrySetFlags() = default;
    MbgGeometrySetFlags(std::initializer_list<MbgEGeometrySet> items) : MbbAEnumFlags(items) {}
};
