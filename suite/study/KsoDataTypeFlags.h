#pragma once

#include <basic/MbbAEnumFlags.h>
#include <study/KsoEDataType.h>

/// A set of levels of the data tree.
class KESTRIN_STUDY_EXPORT KsoDataTypeFlags : public MbbAEnumFlags<KsoDataTypeFlags, KsoEDataType>
{
public:
    KsoDataTypeFlags() = default;
    KsoDataTypeFlags(std::initializer_list<KsoEDataType> items) : MbbAEnumFlags(items) {}
};
