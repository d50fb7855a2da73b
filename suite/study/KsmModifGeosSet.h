#pragma once

#include <study/KsmANamedModif.h>
#include <study/KsoGeosSetIdentifier.h>

/// What changed of the geostatistical sets of a project.
class KESTRIN_STUDY_EXPORT KsmModifGeosSet : public KsmANamedModif<KsoGeosSetKind>
{};
