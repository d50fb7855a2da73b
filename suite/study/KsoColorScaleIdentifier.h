#pragma once

#include <study/KsoANamedIdentifierOf.h>
#include <study/KsoColorScaleKind.h>

/// Names a colour scale of a project.
class KESTRIN_STUDY_EXPORT KsoColorScaleIdentifier : public KsoANamedIdentifierOf<KsoColorScaleKind>
{
public:
    /// The null identifier.
    KsoColorScaleIdentifier() = default;
    /// Null for an empty name. The model may be null, or lack an item of the name.
    KsoColorScaleIdentifier(KsmModelColorScale* model, const QString& name);
};
