#pragma once

#include <observer/KuoAObservable.h>

/// While it lives, one observer is passed over by one observable. Neither is owned; both may be null, and the
/// observable may die. The observer must outlive it, or be removed by its observable's death.
template <class Record>
class Q_DECL_EXPORT KuoLockObserver final : public KuoIObserver<Record>
{
public:
    KuoLockObserver(KuoIObserver<Record>* observer, const KuoAObservable<Record>* observable)
        : _observer(observer),
          _observable(observable)
    {
        if (!_observer || !_observable)
            return;
        _observable->lockObserver(_observer, true);
        _observable->addObserver(this);
    }
    ~KuoLockObserver() override
    {
        if (!_observer || !_observable)
            return;
        _observable->lockObserver(_observer, false);
        _observable->removeObserver(this);
    }
    KuoLockObserver(const KuoLockObserver&) = delete;
    KuoLockObserver& operator=(const KuoLockObserver&) = delete;

    void update(const Record&) override {}
    void destroyed(const KuoAObservable<Record>* observable) override
    {
        if (observable != _observable)
            return;
        _observer = nullptr;
        _observable = nullptr;
    }

private:
    KuoIObserver<Record>* _observer;
    const KuoAObservable<Record>* _observable;
};
