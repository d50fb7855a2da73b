#pragma once

#include <QtCore/QHash>
#include <QtCore/QVarLengthArray>

#include <basic/MbbDebug.h>
#include <basic/MbeTranslate.h>
#include <observer/KuoAObservableModif.h>
#include <observer/KuoIObserver.h>

#include <algorithm>
#include <memory>
#include <utility>

template <class Record>
class KuoLock;

/// Base of what can be observed. A change is handed to `notify` as a record; it is merged into the pending record,
/// which goes to the observers, in order of registration, at once or, under a lock, at `commit`.
///
/// Observers are not owned. They may add and remove observers, lock, notify again and even destroy the observable while
/// they are called. One thread at a time. Observing is no part of the observable's value, so all operations are const.
template <class Record>
class Q_DECL_EXPORT KuoAObservable
{
public:
    virtual ~KuoAObservable();

    /// Appends `observer` unless it is null or present already.
    void addObserver(KuoIObserver<Record>* observer) const;
    /// Forgets `observer`, if it is here; it is not called any more, not even by a send that is running.
    void removeObserver(KuoIObserver<Record>* observer) const;
    /// Raises or lowers the count of locks on `observer`, which is passed over while the count is not 0.
    void lockObserver(KuoIObserver<Record>* observer, bool locked) const;

    /// While locked, notifications are collected and not sent. Gives the former state.
    bool lock(bool locked) const { return std::exchange(_locked, locked); }
    bool isLocked() const { return _locked; }
    /// While the observable itself is locked, notifications are dropped. Gives the former state.
    bool lockObservable(bool locked) const { return std::exchange(_observableLocked, locked); }

    /// Merges `record` into the pending record and, unless locked, sends it. Nothing is kept where nobody observes.
    void notify(Record&& record) const { _pass(record); }
    void notify(const Record& record) const { notify(Record(record)); }
    /// Sends the pending record at once, locked or not.
    void commit() const;
    void clearNotifications() const { _pending.reset(); }
    bool hasNotifications() const { return _pending && !_pending->isEmpty(); }

protected:
    explicit KuoAObservable(const QString& name = QString()) { Q_UNUSED(name) }
    /// The copy has the observers, the pending record and the states of `other`. Batches that are open on `other` stay
    /// its own.
    KuoAObservable(const KuoAObservable& other) { _copy(other); }
    KuoAObservable& operator=(const KuoAObservable& other)
    {
        if (this != &other)
            _copy(other);
        return *this;
    }

    /// `notify` for a record that the caller goes on using: nothing of it is changed but its observable.
    void _pass(const Record& record) const;
    /// True if a record would reach nobody and stay nowhere, so that it need not be made at all.
    bool _isUnheard() const { return _slots.isEmpty() && !_firstLock && !_locked && !hasNotifications(); }
    /// What `notify` leaves behind where `_isUnheard()`.
    void _skipNotification() const
    {
        if (!_observableLocked)
            _formerEntries = false;
    }
    /// The same as a batch around one `notify`, without its cost.
    void _notifyBatch(Record&& record) const;
    /// The same as a batch around nothing, which still sends what is pending; or, where `_isUnheard()`, around one
    /// `notify`.
    void _emptyBatch() const;

private:
    friend class KuoLock<Record>;

    struct Slot
    {
        KuoIObserver<Record>* observer;
        int locks;
    };

    // A running send. The frames of one observable are linked, so that its destructor can tell each that it is gone.
    class Sending
    {
    public:
        Sending(const KuoAObservable* observable, bool endsBatch)
            : _observable(observable),
              _outer(observable->_sending),
              _endsBatch(endsBatch)
        {
            observable->_sending = this;
            ++observable->_sendDepth;
        }
        ~Sending()
        {
            if (!_observable)
                return;
            _observable->_sending = _outer;
            --_observable->_sendDepth;
            _observable->_compress();
            if (_endsBatch)
                _observable->_endBatch();
        }
        Sending(const Sending&) = delete;
        Sending& operator=(const Sending&) = delete;
        bool isOver() const { return !_observable; }
        Sending* end()
        {
            _observable = nullptr;
            return _outer;
        }

    private:
        const KuoAObservable* _observable;
        Sending* _outer;
        const bool _endsBatch;
    };

    static constexpr int MaxSendDepth = 100;
    static constexpr int SearchUpTo = 32;
    using Places = QHash<const KuoIObserver<Record>*, int>;

    bool _hasEntries() const { return !_slots.isEmpty() || _firstLock || _formerEntries; }
    Slot* _find(const KuoIObserver<Record>* observer) const;
    void _copy(const KuoAObservable& other);
    void _compress() const;
    void _removeEmptySlots() const;
    int _placeOf(const KuoIObserver<Record>* observer) const;
    void _send(const Record& record, bool endsBatch = false) const;
    void _endBatch() const;
    void _collect(const Record& record) const;
    static void _deliver(KuoIObserver<Record>* observer, const Record& record);
    static void _warnOfException();
    void _link(KuoLock<Record>* lock) const;
    void _unlink(KuoLock<Record>* lock) const;

    // A removed observer leaves an empty slot until the next outermost send has ended.
    mutable QVarLengthArray<Slot, 1> _slots;
    // Where many observe: the places of the observers, made when one is looked for.
    mutable std::unique_ptr<Places> _places;
    mutable std::unique_ptr<Record> _pending;
    // Open batches observe too, but they have nothing to be told but the observable's death: they are linked through
    // themselves and take no slot.
    mutable KuoLock<Record>* _firstLock = nullptr;
    mutable Sending* _sending = nullptr;
    mutable int _sendDepth = 0;
    mutable int _emptySlots = 0;
    mutable bool _locked = false;
    mutable bool _observableLocked = false;
    // Entries have been removed that count as present until the next outermost send has ended.
    mutable bool _formerEntries = false;
};

template <class Record>
KuoAObservable<Record>::~KuoAObservable()
{
    while (_sending)
        _sending = _sending->end();
    // Keeps the slots where they are while observers come and go below.
    ++_sendDepth;
    // An observer may remove others, and itself, while it is told.
    for (int i = 0, count = _slots.size(); i < count; ++i) {
        if (KuoIObserver<Record>* observer = _slots[i].observer)
            observer->destroyed(this);
    }
    while (_firstLock)
        _firstLock->destroyed(this);
}

template <class Record>
auto KuoAObservable<Record>::_find(const KuoIObserver<Record>* observer) const -> Slot*
{
    if (!observer)
        return nullptr;
    if (_slots.size() > SearchUpTo) {
        const int place = _placeOf(observer);
        return place < 0 ? nullptr : &_slots[place];
    }
    const auto found =
        std::find_if(_slots.begin(), _slots.end(), [&](const Slot& slot) { return slot.observer == observer; });
    return found == _slots.end() ? nullptr : &*found;
}

template <class Record>
int KuoAObservable<Record>::_placeOf(const KuoIObserver<Record>* observer) const
{
    if (!_places) {
        _places = std::make_unique<Places>();
        _places->reserve(_slots.size());
        for (int i = 0; i < _slots.size(); ++i) {
            if (_slots[i].observer)
                _places->insert(_slots[i].observer, i);
        }
    }
    return _places->value(observer, -1);
}

template <class Record>
void KuoAObservable<Record>::addObserver(KuoIObserver<Record>* observer) const
{
    if (!observer || _find(observer))
        return;
    if (_slots.size() == _slots.capacity() && _sendDepth <= 0 && _emptySlots * 2 >= _slots.size())
        _removeEmptySlots();
    _slots.append(Slot{observer, 0});
    if (_places)
        _places->insert(observer, _slots.size() - 1);
}

template <class Record>
void KuoAObservable<Record>::removeObserver(KuoIObserver<Record>* observer) const
{
    Slot* slot = _find(observer);
    if (!slot)
        return;
    slot->observer = nullptr;
    ++_emptySlots;
    if (_places)
        _places->remove(observer);
    _formerEntries = true;
    if (_sendDepth <= 0) {
        for (; !_slots.isEmpty() && !_slots.last().observer; --_emptySlots)
            _slots.removeLast();
    }
}

template <class Record>
void KuoAObservable<Record>::lockObserver(KuoIObserver<Record>* observer, bool locked) const
{
    Slot* slot = _find(observer);
    if (!slot)
        return;
    if (locked)
        ++slot->locks;
    else if (slot->locks != 0)
        --slot->locks;
}

template <class Record>
void KuoAObservable<Record>::_pass(const Record& record) const
{
    if (!_hasEntries() || _observableLocked)
        return;
    if (!_locked && !hasNotifications()) {
        record.setObservable(this);
        _send(record);
        return;
    }
    _collect(record);
    if (!_locked)
        commit();
}

template <class Record>
void KuoAObservable<Record>::commit() const
{
    if (const std::unique_ptr<Record> record = std::exchange(_pending, nullptr))
        _send(*record);
}

template <class Record>
void KuoAObservable<Record>::_notifyBatch(Record&& record) const
{
    if (!_locked && !_observableLocked && !hasNotifications()) {
        _formerEntries = true;
        record.setObservable(this);
        _send(record, true);
        return;
    }
    if (!_observableLocked)
        _collect(record);
    _emptyBatch();
}

template <class Record>
void KuoAObservable<Record>::_emptyBatch() const
{
    _formerEntries = true;
    if (_locked)
        return;
    if (const std::unique_ptr<Record> record = std::exchange(_pending, nullptr))
        _send(*record, true);
}

template <class Record>
void KuoAObservable<Record>::_collect(const Record& record) const
{
    record.setObservable(this);
    if (!_pending)
        _pending = std::make_unique<Record>();
    _pending->merge(record);
}

template <class Record>
void KuoAObservable<Record>::_endBatch() const
{
    _pending.reset();
    _locked = false;
    _formerEntries = true;
}

template <class Record>
void KuoAObservable<Record>::_send(const Record& record, bool endsBatch) const
{
    if (!record.isValid() || record.isEmpty())
        return;
    if (_sendDepth > MaxSendDepth) {
        MbbDebug::printWarning(QStringLiteral("KuoAObservable: suspicious recursion detected.\n"
                                              "Maybe some KuoLock/KuoLockObserver can help you?!?"),
                               Qt::PlainText);
        return;
    }
    Sending sending(this, endsBatch);
    for (int i = 0, count = _slots.size(); i < std::min(count, _slots.size()); ++i) {
        const Slot slot = _slots[i];
        if (slot.locks != 0 || !slot.observer)
            continue;
        _deliver(slot.observer, record);
        if (sending.isOver())
            return;
    }
}

template <class Record>
void KuoAObservable<Record>::_deliver(KuoIObserver<Record>* observer, const Record& record)
{
    try {
        observer->update(record);
    }
    catch (...) {
        _warnOfException();
    }
}

// To be called while an exception is handled.
template <class Record>
void KuoAObservable<Record>::_warnOfException()
{
    try {
        mbeTranslate([] { throw; });
    }
    catch (const MbeError& error) {
        MbbDebug::printWarning(
            QStringLiteral("KuoAObservable: exception caught while sending notification.\n"
                           "It is recommended to catch the exception in the update() method.\nException message: %1")
                .arg(error.getMessage()),
            Qt::PlainText);
    }
}

template <class Record>
void KuoAObservable<Record>::_compress() const
{
    if (_sendDepth > 0)
        return;
    if (std::exchange(_formerEntries, false))
        _removeEmptySlots();
}

template <class Record>
void KuoAObservable<Record>::_removeEmptySlots() const
{
    if (_emptySlots == 0)
        return;
    const auto end = std::remove_if(_slots.begin(), _slots.end(), [](const Slot& slot) { return !slot.observer; });
    _slots.resize(int(end - _slots.begin()));
    _places.reset();
    _emptySlots = 0;
}

template <class Record>
void KuoAObservable<Record>::_copy(const KuoAObservable& other)
{
    _slots = other._slots;
    _places.reset();
    _emptySlots = other._emptySlots;
    _pending = other._pending ? std::make_unique<Record>(*other._pending) : nullptr;
    _sendDepth = other._sendDepth;
    _locked = other._locked;
    _observableLocked = other._observableLocked;
    _formerEntries = other._formerEntries || other._firstLock;
}

template <class Record>
void KuoAObservable<Record>::_link(KuoLock<Record>* lock) const
{
    lock->_previous = nullptr;
    lock->_next = _firstLock;
    if (_firstLock)
        _firstLock->_previous = lock;
    _firstLock = lock;
}

template <class Record>
void KuoAObservable<Record>::_unlink(KuoLock<Record>* lock) const
{
    (lock->_previous ? lock->_previous->_next : _firstLock) = lock->_next;
    if (lock->_next)
        lock->_next->_previous = lock->_previous;
    _formerEntries = true;
}

// The batch is part of the protocol: its definition completes the observable.
#include <observer/KuoLock.h>
