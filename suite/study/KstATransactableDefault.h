#pragma once

#include <study/KstITransactable.h>

/// Base of transaction contexts that have no project. It holds nothing; a derived class may answer with a project.
class KESTRIN_STUDY_EXPORT KstATransactableDefault : public KstITransactable
{
public:
    ~KstATransactableDefault() override;
    KssProject* getProject() const override;

protected:
    KstATransactableDefault() = default;
    KstATransactableDefault(const KstATransactableDefault&) = default;
    KstATransactableDefault& operator=(const KstATransactableDefault&) = default;
};
