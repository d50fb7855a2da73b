#pragma once

#include <basic/MbgDimensionFlags.h>
#include <study/KsoANamedFilterOf.h>
#include <study/KsoScene.h>
#include <util/KugESceneTypeFlags.h>

/// What a parameter accepts of the scenes: those of the dimensions of the filter. A default one accepts all.
class KESTRIN_STUDY_EXPORT KsoSceneFilter : public KsoANamedFilterOf<KsoSceneFilter, KsoSceneKind>
{
public:
    KsoSceneFilter() : KsoSceneFilter(MbdEIo::INPUT, MbgDimensionFlags::ANY) {}
    KsoSceneFilter(const MbdEIo& io, const MbgDimensionFlags& dimensions);
    /// The dimensions of the types.
    KsoSceneFilter(const MbdEIo& io, const KugESceneTypeFlags& types);

    const MbgDimensionFlags& getDimensions() const { return _dimensions; }

private:
    friend KsoANamedFilterOf<KsoSceneFilter, KsoSceneKind>;
    bool _meetsConditions(const KsoScene& scene) const { return _dimensions.contains(scene.getDimension()); }
    bool _hasSameConditions(const KsoSceneFilter& other) const { return _dimensions == other._dimensions; }

    MbgDimensionFlags _dimensions;
};
