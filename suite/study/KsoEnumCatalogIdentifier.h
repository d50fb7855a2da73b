#pragma once

#include <study/KsoANamedIdentifierOf.h>
#include <study/KsoEnumCatalogKind.h>

/// Names a catalog of categories of a project.
class KESTRIN_STUDY_EXPORT KsoEnumCatalogIdentifier : public KsoANamedIdentifierOf<KsoEnumCatalogKind>
{
public:
    /// The null identifier.
    KsoEnumCatalogIdentifier() = default;
    /// Null for an empty name. The model may be null, or lack an item of the name.
    KsoEnumCatalogIdentifier(KsmModelEnumCatalog* model, const QString& name);
};
