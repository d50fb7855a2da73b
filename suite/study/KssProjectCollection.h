#pragma once

#include <study/KsmModelConventionRot.h>

/// What the projects of the process offer to those who know none of them by name.
class KESTRIN_STUDY_EXPORT KssProjectCollection
{
public:
    /// The rotation conventions of the open project, or the built-in ones where none is open. Never null, and it lives
    /// as long as the process.
    static const KsmModelConventionRot* openedModelRotationConv();
};
