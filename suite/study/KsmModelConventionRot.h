#pragma once

#include <basic/MbgRotationConventionCatalog.h>
#include <study/StudyExport.h>

/// The rotation conventions of a project: those of `MbgRotationConventionCatalog`, which are the same for all projects.
/// Nothing given out is null unless told, everything lives as long as the process. All operations may be called from
/// several threads.
class KESTRIN_STUDY_EXPORT KsmModelConventionRot
{
public:
    int getDefaultId() const { return getDefault()->getId(); }
    MbgRotationConvention* getDefault() const { return MbgRotationConventionCatalog::getDefault(); }
    /// Null for an id of no convention; with `create` the default convention, as an id alone tells nothing of another.
    MbgRotationConvention* getConvention(int id, bool create) const;
    /// A convention for what was read from elsewhere; equal definitions give one convention. A definition string that
    /// is not understood is kept, within limits, and read as the default convention's.
    MbgRotationConvention* createTemporary(const MbgRotationConventionDefinition& definition) const
    {
        return MbgRotationConventionCatalog::createTemporary(definition);
    }
};
