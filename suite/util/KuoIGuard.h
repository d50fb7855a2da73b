#pragma once

#include <util/UtilExport.h>

class KuoAGuarded;

/// Something that holds a pointer to a guarded object and is told when that object dies. A guard is in the list of one
/// target at a time.
class KESTRIN_UTIL_EXPORT KuoIGuard
{
public:
    /// Leaves the list of its target, if it is still in one.
    virtual ~KuoIGuard();
    /// The target is being destroyed; it forgets this guard by itself.
    virtual void guardedDestroyed() = 0;

protected:
    KuoIGuard() = default;
    /// A copy is in nobody's list.
    KuoIGuard(const KuoIGuard&) {}
    KuoIGuard& operator=(const KuoIGuard&) { return *this; }

private:
    friend class KuoAGuarded;
    KuoIGuard* _previous = nullptr;
    KuoIGuard* _next = nullptr;
    const KuoAGuarded* _target = nullptr;
};
