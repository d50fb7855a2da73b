#pragma once

#include <study/KsoANamedIdentifierOf.h>
#include <study/KsoSceneKind.h>

/// Names a scene of a project.
class KESTRIN_STUDY_EXPORT KsoSceneIdentifier : public KsoANamedIdentifierOf<KsoSceneKind>
{
public:
    /// The null identifier.
    KsoSceneIdentifier() = default;
    /// Null for an empty name. The model may be null, or lack an item of the name.
    KsoSceneIdentifier(KsmModelScene* model, const QString& name);
};
