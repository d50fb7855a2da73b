#pragma once

#include <study/KsoANamedIdentifierOf.h>
#include <study/KsoNeighborhoodKind.h>

/// Names a search neighbourhood of a project.
class KESTRIN_STUDY_EXPORT KsoNeighborhoodIdentifier : public KsoANamedIdentifierOf<KsoNeighborhoodKind>
{
public:
    /// The null identifier.
    KsoNeighborhoodIdentifier() = default;
    /// Null for an empty name. The model may be null, or lack an item of the name.
    KsoNeighborhoodIdentifier(KsmModelNeighborhood* model, const QString& name);
};
