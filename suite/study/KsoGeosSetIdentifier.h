#pragma once

#include <study/KsoANamedIdentifierOf.h>
#include <study/KsoGeosSetKind.h>

/// Names a geostatistical set of a project.
class KESTRIN_STUDY_EXPORT KsoGeosSetIdentifier : public KsoANamedIdentifierOf<KsoGeosSetKind>
{
public:
    /// The null identifier.
    KsoGeosSetIdentifier() = default;
    /// Null for an empty name. The model may be null, or lack an item of the name.
    KsoGeosSetIdentifier(KsmModelGeosSet* model, const QString& name);
};
