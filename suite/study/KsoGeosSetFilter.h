#pragma once

#include <study/KsoANamedFilterOf.h>
#include <study/KsoGeosSet.h>

/// What a parameter accepts of the geostatistical sets.
class KESTRIN_STUDY_EXPORT KsoGeosSetFilter : public KsoANamedFilterOf<KsoGeosSetFilter, KsoGeosSetKind>
{
public:
    KsoGeosSetFilter() = default;
    explicit KsoGeosSetFilter(const MbdEIo& io) : KsoANamedFilterOf(io) {}
};
