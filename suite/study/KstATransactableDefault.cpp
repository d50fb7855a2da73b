#include <study/KstATransactableDefault.h>

KstITransactable::~KstITransactable() = default;

KstATransactableDefault::~KstATransactableDefault() = default;

KssProject* KstATransactableDefault::getProject() const
{
    return nullptr;
}
