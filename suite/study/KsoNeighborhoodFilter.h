#pragma once

#include <study/KsoANamedFilterOf.h>
#include <study/KsoNeighborhood.h>

/// What a parameter accepts of the search neighbourhoods.
class KESTRIN_STUDY_EXPORT KsoNeighborhoodFilter : public KsoANamedFilterOf<KsoNeighborhoodFilter, KsoNeighborhoodKind>
{
public:
    KsoNeighborhoodFilter() = default;
    explicit KsoNeighborhoodFilter(const MbdEIo& io) : KsoANamedFilterOf(io) {}
};
