#include <util/KuoAGuarded.h>

KuoIGuard::~KuoIGuard()
{
    if (_target)
        _target->removeGuard(this);
}

KuoAGuarded::~KuoAGuarded()
{
    while (KuoIGuard* guard = _first) {
        removeGuard(guard);
        guard->guardedDestroyed();
    }
}

void KuoAGuarded::addGuard(KuoIGuard* guard) const
{
    if (!guard || guard->_target)
        return;
    guard->_target = this;
    guard->_previous = _last;
    guard->_next = nullptr;
    (_last ? _last->_next : _first) = guard;
    _last = guard;
}

void KuoAGuarded::removeGuard(KuoIGuard* guard) const
{
    if (!guard || guard->_target != this)
        return;
    (guard->_previous ? guard->_previous->_next : _first) = guard->_next;
    (guard->_next ? guard->_next->_previous : _last) = guard->_previous;
    guard->_target = nullptr;
    guard->_previous = nullptr;
    guard->_next = nullptr;
}
