#pragma once

#include <param/atomic/KpaAFilteredItemsConfig.h>
#include <study/KsmModelScene.h>
#include <study/KsoSceneFilter.h>

/// Which of the scenes of the project a parameter admits.
class KESTRIN_PARAM_EXPORT KpaSceneConfig : public KpaAFilteredItemsConfig<KpaSceneConfig, KsoSceneKind, KsoSceneFilter>
{
public:
    static constexpr int ListReasons = KsmReason::ListMask;
    static constexpr int ItemReasons = KsoSceneKind::ContentReasons;
    static constexpr int NameReasons = KsmReason::Renamed;

    KpaSceneConfig() = default;

    const KpbEType& getType() const { return KpbEType::SCENE_IDENT; }
    QString debug() const { return _debug("----- KpaSceneConfig ---------"); }

    /// All fields.
    friend bool operator==(const KpaSceneConfig& a, const KpaSceneConfig& b) = default;
};
