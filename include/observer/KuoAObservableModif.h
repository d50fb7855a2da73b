#pragma once

#include <QtCore/QtGlobal>

#include <utility>

template <class Record>
class KuoAObservable;

/// What a record type's observables are. A specialisation names the class that callers get to see and how it is reached
/// from the observable base.
template <class Record>
struct ObservableTraits
{
    using Observable = const KuoAObservable<Record>;
    static Observable* fromBase(const KuoAObservable<Record>* base) { return base; }
};

/// Base of a modification record: the observable that sent it, and merging. The observable is not owned; it is null
/// until the record is sent.
template <class Record, class Traits = ObservableTraits<Record>>
class Q_DECL_EXPORT KuoAObservableModif
{
public:
    virtual ~KuoAObservableModif() = default;

    virtual int getNumberOfModif() const = 0;
    virtual bool isEmpty() const { return getNumberOfModif() < 1; }

    /// Takes over the observable of `other`, and adds what `other` says to what this record says.
    void merge(const Record& other)
    {
        _observable = static_cast<const KuoAObservableModif&>(other)._observable;
        _merge(other);
    }

    /// Who sends a record is no part of what it says: the record is passed on from observable to observable.
    void setObservable(const KuoAObservable<Record>* observable) const { _observable = observable; }
    const KuoAObservable<Record>* getSender() const { return _observable; }
    /// Whether the record has been sent by an observable.
    bool isValid() const { return _observable != nullptr; }

protected:
    KuoAObservableModif() = default;
    KuoAObservableModif(const KuoAObservableModif&) = default;
    KuoAObservableModif& operator=(const KuoAObservableModif&) = default;

    typename Traits::Observable* _getObservable() const
    {
        return _observable ? Traits::fromBase(_observable) : nullptr;
    }

private:
    virtual void _merge(const Record& other) = 0;

    mutable const KuoAObservable<Record>* _observable = nullptr;
};
