#pragma once

#include <study/StudyExport.h>

/// Base of the filters: what a parameter accepts of the items of a project, and whether it accepts a name for an item
/// yet to be made.
class KESTRIN_STUDY_EXPORT KsoAItemFilter
{
public:
    bool isNewAccepted() const { return _newAccepted; }
    void setNewAccepted(bool accepted) { _newAccepted = accepted; }

protected:
    KsoAItemFilter() = default;
    KsoAItemFilter(const KsoAItemFilter&) = default;
    KsoAItemFilter& operator=(const KsoAItemFilter&) = default;
    ~KsoAItemFilter() = default;

    bool _isEqual(const KsoAItemFilter& other) const { return _newAccepted == other._newAccepted; }

private:
    bool _newAccepted = false;
};
