#pragma once

#include <support/RecordingObserver.h>

#include <utility>

/// An atomic with an observer that is there from the first change on.
template <class Atomic>
struct ObservedAtomic
{
    ObservedAtomic() { atomic.addObserver(&observer); }

    /// The flags of the records since the last call.
    QList<int> takeFlags()
    {
        const QList<int> flags = observer.allFlags();
        observer.records.clear();
        return flags;
    }
    /// Calls `change`; gives the flags of the records that it sent.
    template <class Change>
    QList<int> flagsOf(Change change)
    {
        takeFlags();
        change(atomic);
        return takeFlags();
    }

    RecordingObserver observer; ///< outlives what it observes
    Atomic atomic{QStringLiteral("KEY")};
};

/// The serial form of a single entry.
inline KpbAParameter::SerialForm storedValue(const QString& text)
{
    return {{QStringLiteral("value"), text}};
}
