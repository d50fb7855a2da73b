#pragma once

#include <QtCore/QtGlobal>

template <class Record>
class KuoAObservable;

/// Somebody who is told of the changes of observables. An observer is not owned by what it observes.
template <class Record>
class Q_DECL_EXPORT KuoIObserver
{
public:
    /// `record` says what changed. An exception that leaves this operation becomes a warning.
    virtual void update(const Record& record) = 0;
    /// The observable is being destroyed and will not be heard of again.
    virtual void destroyed(const KuoAObservable<Record>* observable) { Q_UNUSED(observable) }

protected:
    KuoIObserver() = default;
    KuoIObserver(const KuoIObserver&) = default;
    KuoIObserver& operator=(const KuoIObserver&) = default;
    virtual ~KuoIObserver() = default;
};
