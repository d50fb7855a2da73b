#pragma once

#include <study/KsmANamedModif.h>
#include <study/KsoSceneIdentifier.h>

/// What changed of the scenes of a project.
class KESTRIN_STUDY_EXPORT KsmModifScene : public KsmANamedModif<KsoSceneKind>
{};
