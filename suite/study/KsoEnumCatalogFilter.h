#pragma once

#include <study/KsoANamedFilterOf.h>
#include <study/KsoEnumCatalog.h>

/// What a parameter accepts of the catalogs of categories.
class KESTRIN_STUDY_EXPORT KsoEnumCatalogFilter : public KsoANamedFilterOf<KsoEnumCatalogFilter, KsoEnumCatalogKind>
{
public:
    KsoEnumCatalogFilter() = default;
    explicit KsoEnumCatalogFilter(const MbdEIo& io) : KsoANamedFilterOf(io) {}
};
