#pragma once

#include <param/atomic/KpaAFilteredItemsConfig.h>
#include <study/KsmModelNeighborhood.h>
#include <study/KsoNeighborhoodFilter.h>

/// Which of the search neighbourhoods of the project a parameter admits.
class KESTRIN_PARAM_EXPORT KpaNeighborhoodItemConfig
    : public KpaAFilteredItemsConfig<KpaNeighborhoodItemConfig, KsoNeighborhoodKind, KsoNeighborhoodFilter>
{
public:
    static constexpr int ListReasons = KsmReason::ListMask;
    static constexpr int ItemReasons = KsoNeighborhoodKind::ContentReasons;
    static constexpr int NameReasons = KsmReason::Renamed;

    KpaNeighborhoodItemConfig() = default;

    const KpbEType& getType() const { return KpbEType::NEIGHBORHOOD_IDENT; }
    QString debug() const { return _debug("----- KpaNeighborhoodItemConfig ---------"); }

    /// All fields.
    friend bool operator==(const KpaNeighborhoodItemConfig& a, const KpaNeighborhoodItemConfig& b) = default;
};
