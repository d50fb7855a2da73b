#pragma once

#include <QtCore/QList>

#include <param/KuoPointer.h>
#include <param/composite/KpcAbstractList.h>

#include <vector>

/// While it lives, lists collect their notifications. At its end each list in turn is locked or unlocked as it was
/// before, and sends what it has collected, also if it stays locked. The lists may die; null is ignored.
class KESTRIN_PARAM_EXPORT KpwTableListLocker
{
public:
    explicit KpwTableListLocker(const QList<KpcAbstractList*>& lists);
    /// A failure of an observer that the list does not deal with itself becomes a warning.
    ~KpwTableListLocker();
    KpwTableListLocker(const KpwTableListLocker&) = delete;
    KpwTableListLocker& operator=(const KpwTableListLocker&) = delete;

private:
    struct Held
    {
        KuoPointer<KpcAbstractList> list;
        bool wasLocked;
    };

    std::vector<Held> _held;
};
