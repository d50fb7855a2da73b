#pragma once

#include <util/KuoIGuard.h>

/// Base of objects whose death guards are told of. Guards are linked through themselves, so adding and removing one
/// takes constant time and no memory. A copy of a guarded object has no guards.
class KESTRIN_UTIL_EXPORT KuoAGuarded
{
public:
    /// Adds `guard`, which must not be in another target's list. A guard that is already here, or null, is ignored.
    void addGuard(KuoIGuard* guard) const;
    /// Removes `guard` if it is in this target's list.
    void removeGuard(KuoIGuard* guard) const;

protected:
    KuoAGuarded() = default;
    KuoAGuarded(const KuoAGuarded&) {}
    KuoAGuarded& operator=(const KuoAGuarded&) { return *this; }
    /// Calls each guard, in order of arrival. A guard may remove others, or itself, while it is called.
    virtual ~KuoAGuarded();

private:
    mutable KuoIGuard* _first = nullptr;
    mutable KuoIGuard* _last = nullptr;
};
