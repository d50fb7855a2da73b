#pragma once

#include <study/KsmANamedModel.h>
#include <study/KsmModifNeighborhood.h>
#include <study/KsoNeighborhood.h>

extern template class KESTRIN_STUDY_EXPORT KsmANamedModel<KsoNeighborhoodKind>;

/// The search neighbourhoods of a project.
class KESTRIN_STUDY_EXPORT KsmModelNeighborhood : public KsmANamedModel<KsoNeighborhoodKind>
{
public:
    /// Reads the items from `driver`. Stored items that are damaged are an `MbeError`.
    KsmModelNeighborhood(KssProject* project, KsbIDriverItem* driver);
    ~KsmModelNeighborhood() override;

    /// `KsmReason::Definition`
    void setDefinition(KsoNeighborhood* neighborhood, const KsoNeighborhoodDefinition& definition);
};
