#include <param/watcher/KpwTableListLocker.h>

#include <basic/MbbDebug.h>
#include <basic/MbeException.h>

#include <algorithm>

KpwTableListLocker::KpwTableListLocker(const QList<KpcAbstractList*>& lists)
{
    _held.reserve(std::size_t(lists.size()));
    for (KpcAbstractList* list : lists) {
        const bool known =
            std::any_of(_held.begin(), _held.end(), [&](const Held& held) { return held.list.get() == list; });
        if (list && !known)
            _held.push_back(Held{KuoPointer<KpcAbstractList>(list), list->lock(true)});
    }
}

KpwTableListLocker::~KpwTableListLocker()
{
    for (const Held& held : _held) {
        if (!held.list)
            continue;
        held.list->lock(held.wasLocked);
        try {
            held.list->commit();
        }
        catch (const MbeException& exception) {
            MbbDebug::printWarning(exception.getMessage());
        }
    }
}
