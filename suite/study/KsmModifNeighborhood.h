#pragma once

#include <study/KsmANamedModif.h>
#include <study/KsoNeighborhoodIdentifier.h>

/// What changed of the search neighbourhoods of a project.
class KESTRIN_STUDY_EXPORT KsmModifNeighborhood : public KsmANamedModif<KsoNeighborhoodKind>
{};
