#pragma once

#include <QtCore/QString>

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
    /// The application that the task belongs to: items that are made for others only are not offered to it. Empty where
    /// there is none, as it is unless a derived class answers otherwise.
    virtual QString getApplicationFlag() const;

protected:
    KstITransactable() = default;
    KstITransactable(const KstITransactable&) = default;
    KstITransactable& operator=(const KstITransactable&) = default;
};
