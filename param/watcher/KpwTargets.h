#pragma once

#include <QtCore/QList>

#include <param/KpbAParameter.h>

#include <algorithm>
#include <deque>

/// What watchers do with lists of guarded parameters, any of which may be dead.
namespace KpwTargets {

/// Removes all pointers to `target`, which may be dying; null removes those that are dead.
template <class Parameter>
void remove(QList<KuoPointer<Parameter>>& targets, const Parameter* target)
{
    const auto end = std::remove_if(targets.begin(), targets.end(),
                                    [&](const KuoPointer<Parameter>& each) { return each.get() == target; });
    targets.erase(end, targets.end());
}

/// The batches of several parameters. A parameter may have more than one, so the last is the first to end.
class Batches
{
public:
    template <class Parameter>
    explicit Batches(const QList<KuoPointer<Parameter>>& parameters)
    {
        for (const KuoPointer<Parameter>& parameter : parameters)
            _locks.emplace_back(parameter.get());
    }
    ~Batches()
    {
        while (!_locks.empty())
            _locks.pop_back();
    }
    Batches(const Batches&) = delete;
    Batches& operator=(const Batches&) = delete;

    void commit()
    {
        for (KuoLock<KpnModif>& lock : _locks)
            lock.commit();
    }

private:
    std::deque<KuoLock<KpnModif>> _locks;
};

} // namespace KpwTargets
