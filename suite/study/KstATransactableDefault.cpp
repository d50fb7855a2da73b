#include <study/KstATransactableDefault.h>

KstITransactable::~KstITransactable() = default;

QString KstITransactable::getApplicationFlag() const
{
    return QString();
}

KstATransactableDefault::~KstATransactableDefault() = default;

KssProject* KstATransactableDefault::getProject() const
{
    return nullptr;
}
