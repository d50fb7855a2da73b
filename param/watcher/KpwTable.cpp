#include "KpwTargets.h"

#include <param/watcher/KpwTable.h>
#include <param/watcher/KpwTableListLocker.h>

namespace {

using Lists = QList<KuoPointer<KpcAbstractList>>;

QList<KpcAbstractList*> livingOf(const Lists& lists)
{
    QList<KpcAbstractList*> living;
    for (const KuoPointer<KpcAbstractList>& list : lists) {
        if (list)
            living.append(list);
    }
    return living;
}

int itemCountOf(const Lists& lists)
{
    const QList<KpcAbstractList*> living = livingOf(lists);
    return living.isEmpty() ? 0 : living.first()->getItemCount();
}

/// Runs `change(list)` on every list and gives the number of items that they have before any of them tells. The lists
/// are given by value: observers may change and destroy the table.
template <class Change>
int changeAll(const Lists lists, Change change)
{
    const KpwTableListLocker locker(livingOf(lists));
    for (const KuoPointer<KpcAbstractList>& list : lists) {
        if (list)
            change(*list);
    }
    return itemCountOf(lists);
}

} // namespace

KpwTable::KpwTable() = default;

KpwTable::KpwTable(const KpwTable& other, const KpcGroup* newParent)
    : KpwAWatcher(other, newParent),
      _lists(other._duplicateChildRefs(other._lists, newParent))
{}

KpwTable::~KpwTable() = default;

KpwTable* KpwTable::duplicate(const KpcGroup* newParent) const
{
    return new KpwTable(*this, newParent);
}

void KpwTable::addList(KpcAbstractList* list)
{
    const KuoPointer<KpcAbstractList> column(list);
    if (!column || _lists.contains(column))
        return;
    _registerTrigger(list, AnyChange);
    _lists.append(column);
}

QList<KpcAbstractList*> KpwTable::getAllLists() const
{
    return livingOf(_lists);
}

int KpwTable::getItemCount() const
{
    return itemCountOf(_lists);
}

void KpwTable::setItemCount(int count)
{
    changeAll(_lists, [&](KpcAbstractList& list) { list.setItemCount(count); });
}

void KpwTable::removeItemAt(int rank)
{
    changeAll(_lists, [&](KpcAbstractList& list) { list.removeItemAt(rank); });
}

void KpwTable::clearItems()
{
    changeAll(_lists, [](KpcAbstractList& list) { list.clear(); });
}

int KpwTable::addItem()
{
    return changeAll(_lists, [](KpcAbstractList& list) { list.appendItem(); }) - 1;
}

// The columns are watched for their death only.
void KpwTable::_trigger(const KpnModif&) {}

void KpwTable::_triggerDestroyed(KpbAParameter*)
{
    KpwTargets::remove<KpcAbstractList>(_lists, nullptr);
}
