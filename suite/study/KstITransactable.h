#pragma once

#include <study/StudyExport.h>

class KssProject;

/// The transaction context of a task: what a tree of parameters reaches its project through. It belongs to the caller
/// and outlives the tree.
class KESTRIN_STUDY_EXPORT KstITransactable
{
public:
    virtual ~KstITransactable();
    /// The project, not owned; null where there is none.
    virtual KssProject* getProject() const = 0;

protected:
    KstITransactable() = default;
    KstITransactable(const KstITransactable&) = default;
    KstITransactable& operator=(const KstITransactable&) = default;
};
