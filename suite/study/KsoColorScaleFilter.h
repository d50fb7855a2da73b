#pragma once

#include <study/KsoANamedFilterOf.h>
#include <study/KsoColorScale.h>

/// What a parameter accepts of the colour scales.
class KESTRIN_STUDY_EXPORT KsoColorScaleFilter : public KsoANamedFilterOf<KsoColorScaleFilter, KsoColorScaleKind>
{
public:
    KsoColorScaleFilter() = default;
    explicit KsoColorScaleFilter(const MbdEIo& io) : KsoANamedFilterOf(io) {}
};
