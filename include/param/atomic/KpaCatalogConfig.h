#pragma once

#include <param/atomic/KpaAFilteredItemsConfig.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KsoEnumCatalogFilter.h>

/// Which of the catalogs of categories of the project a parameter admits.
class KESTRIN_PARAM_EXPORT KpaCatalogConfig
    : public KpaAFilteredItemsConfig<KpaCatalogConfig, KsoEnumCatalogKind, KsoEnumCatalogFilter>
{
public:
    static constexpr int ListReasons = KsmReason::ListMask;
    static constexpr int ItemReasons = KsoEnumCatalogKind::ContentReasons;
    static constexpr int NameReasons = KsmReason::Renamed;

    KpaCatalogConfig() = default;

    const KpbEType& getType() const { return KpbEType::CATALOG_IDENT; }
    QString debug() const { return _debug("----- KpaCatalogConfig ---------"); }

    /// All fields.
    friend bool operator==(const KpaCatalogConfig& a, const KpaCatalogConfig& b) = default;
};
