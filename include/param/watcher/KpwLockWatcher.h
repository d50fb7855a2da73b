#pragma once

#include <param/watcher/KpwAWatcher.h>

/// While it lives, a watcher is locked; then it is as before. For a watcher whose own action would call it. The
/// watcher may be null, and may die.
class KESTRIN_PARAM_EXPORT KpwLockWatcher
{
public:
    explicit KpwLockWatcher(KpwAWatcher* watcher) : _watcher(watcher), _wasLocked(_watcher && _watcher->lock(true)) {}
    ~KpwLockWatcher()
    {
        if (_watcher)
            _watcher->lock(_wasLocked);
    }
    KpwLockWatcher(const KpwLockWatcher&) = delete;
    KpwLockWatcher& operator=(const KpwLockWatcher&) = delete;

private:
    KuoPointer<KpwAWatcher> _watcher;
    bool _wasLocked;
};
