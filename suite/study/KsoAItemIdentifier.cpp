#include <study/KsoAItemIdentifier.h>

KsoAItemIdentifier::~KsoAItemIdentifier() = default;

int KsoAItemIdentifier::getId() const
{
    const KsoAItem* item = getItem();
    return item ? item->getId() : -1;
}

void KsoAItemIdentifier::Guard::set(KsmAItemModel* model)
{
    if (model == target)
        return;
    if (target)
        target->removeGuard(this);
    target = model;
    if (target)
        target->addGuard(this);
}
