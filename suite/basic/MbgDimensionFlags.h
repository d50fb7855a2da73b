#pragma once

#include <basic/MbbAEnumFlags.h>
#include <basic/MbgEDimension.h>

/// A set of dimensions.
class KESTRIN_BASIC_EXPORT MbgDimensionFlags : public MbbAEnumFlags<MbgDimensionFlags, MbgEDimension>
{
public:
    static const MbgDimensionFlags ANY; ///< all of them
    static const MbgDimensionFlags ONLY_3D;

    MbgDimensionFlags() = default;
    MbgDimensionFlags(std::initializer_list<MbgEDimension> items) : MbbAEnumFlags(items) {}
};
