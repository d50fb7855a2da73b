#pragma once

#include <basic/MbbAEnumFlags.h>
#include <util/KugESceneType.h>

/// A set of types of scenes.
class KESTRIN_UTIL_EXPORT KugESceneTypeFlags : public MbbAEnumFlags<KugESceneTypeFlags, KugESceneType>
{
public:
    static const KugESceneTypeFlags ANY; ///< all of them

    KugESceneTypeFlags() = default;
    KugESceneTypeFlags(std::initializer_list<KugESceneType> items) : MbbAEnumFlags(items) {}
};
