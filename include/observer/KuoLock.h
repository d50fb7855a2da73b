#pragma once

#include <observer/KuoAObservable.h>

/// A batch: while it lives, what the observable is notified of is collected and not sent. `commit()`, the last
/// statement of every batch, sends it as one merged record. What has not been committed is lost when the outermost
/// batch ends; so a batch that is left by an exception sends nothing. A batch inside another one commits nothing.
///
/// The observable may be null, and may die: the batch then does nothing.
template <class Record>
class Q_DECL_EXPORT KuoLock final : public KuoIObserver<Record>
{
public:
    explicit KuoLock(const KuoAObservable<Record>* observable) : _observable(observable)
    {
        if (!_observable)
            return;
        _wasLocked = _observable->lock(true);
        _observable->_link(this);
    }
    ~KuoLock() override
    {
        if (!_observable)
            return;
        if (!_wasLocked)
            _observable->clearNotifications();
        _observable->lock(_wasLocked);
        _observable->_unlink(this);
    }
    KuoLock(const KuoLock&) = delete;
    KuoLock& operator=(const KuoLock&) = delete;

    /// Whether there is an observable and it lives.
    bool isAlive() const { return _observable; }

    void commit()
    {
        if (!_observable || _wasLocked)
            return;
        _observable->lock(false);
        _observable->commit();
        if (_observable)
            _observable->lock(true);
    }

    void update(const Record&) override {}
    void destroyed(const KuoAObservable<Record>* observable) override
    {
        if (observable != _observable)
            return;
        _observable->_unlink(this);
        _observable = nullptr;
    }

private:
    friend class KuoAObservable<Record>;

    const KuoAObservable<Record>* _observable;
    KuoLock* _previous = nullptr;
    KuoLock* _next = nullptr;
    bool _wasLocked = false;
};
