#pragma once

#include <study/KsmANamedModif.h>
#include <study/KsoEnumCatalogIdentifier.h>

/// What changed of the catalogs of categories of a project.
class KESTRIN_STUDY_EXPORT KsmModifEnumCatalog : public KsmANamedModif<KsoEnumCatalogKind>
{
public:
    /// Whether anything of the catalog changed: its name or its categories, or that it exists.
    bool hasModifsForCatalog(const KsoEnumCatalogIdentifier& ident) const { return getReasons(ident) != 0; }
};
