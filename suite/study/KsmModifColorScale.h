#pragma once

#include <study/KsmANamedModif.h>
#include <study/KsoColorScaleIdentifier.h>

/// What changed of the colour scales of a project.
class KESTRIN_STUDY_EXPORT KsmModifColorScale : public KsmANamedModif<KsoColorScaleKind>
{};
