#pragma once

#include <param/atomic/KpaAFilteredItemsConfig.h>
#include <study/KsmModelColorScale.h>
#include <study/KsoColorScaleFilter.h>

/// Which of the colour scales of the project a parameter admits.
class KESTRIN_PARAM_EXPORT KpaColorScaleConfig
    : public KpaAFilteredItemsConfig<KpaColorScaleConfig, KsoColorScaleKind, KsoColorScaleFilter>
{
public:
    static constexpr int ListReasons = KsmReason::ListMask | KsmReason::Colors;
    static constexpr int ItemReasons = KsoColorScaleKind::ContentReasons;
    static constexpr int NameReasons = KsmReason::Renamed;

    KpaColorScaleConfig() = default;

    const KpbEType& getType() const { return KpbEType::COLOR_SCALE_IDENT; }
    QString debug() const { return _debug("----- KpaColorScaleConfig ---------"); }

    /// All fields.
    friend bool operator==(const KpaColorScaleConfig& a, const KpaColorScaleConfig& b) = default;
};
