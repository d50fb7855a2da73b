#pragma once

#include <QtCore/QList>

#include <basic/MbuUnitService.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFSDirectory.h>
#include <param/atomic/KpaFSFile.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaInteger.h>
#include <param/atomic/KpaSeed.h>
#include <param/atomic/KpaString.h>
#include <param/atomic/KpaUnit.h>

#include <optional>

/// Values to try at an atomic; some of them are admissible, and among those is one that it does not hold.
namespace Candidates {

inline QList<int> of(const KpaInteger&)
{
    return {2, 3};
}
inline QList<double> of(const KpaDouble&)
{
    return {1.5, 2.25};
}
inline QList<bool> of(const KpaBool& atomic)
{
    return {!atomic.getValue()};
}
inline QList<unsigned long long> of(const KpaSeed&)
{
    return {99, 4712};
}
inline QList<MbuUnit> of(const KpaUnit& atomic)
{
    return MbuUnitService::getUnits(atomic.getUnitClass());
}
inline QList<int> of(const KpaEnum& atomic)
{
    QList<int> values;
    for (int i = 0; i < atomic.getItemCount(); ++i)
        values.append(atomic.getItemAt(i).value);
    return values;
}
inline QList<QSet<int>> of(const KpaFlags& atomic)
{
    QList<QSet<int>> sets{{}};
    for (const int value : atomic.getFlagValues())
        sets.append({value});
    return sets;
}
inline QList<QString> of(const KpaString&)
{
    return {"Other", "aaa", "b", ""};
}
inline QList<QString> of(const KpaFSFile&)
{
    return {"/data/other.csv", "/data/other"};
}
inline QList<QString> of(const KpaFSDirectory&)
{
    return {"/usr", "/"};
}

} // namespace Candidates

template <class... Atomics>
struct AtomicClasses
{
    /// Calls `function` with the parameter as what it is; gives whether it is one of the classes.
    template <class Function>
    static bool visit(KpbAParameter& parameter, Function function)
    {
        return (_visitAs<Atomics>(parameter, function) || ...);
    }

private:
    template <class Atomic, class Function>
    static bool _visitAs(KpbAParameter& parameter, Function& function)
    {
        auto* atomic = dynamic_cast<Atomic*>(&parameter);
        if (atomic)
            function(*atomic);
        return atomic != nullptr;
    }
};

using KnownAtomics = AtomicClasses<KpaInteger, KpaDouble, KpaBool, KpaSeed, KpaUnit, KpaEnum, KpaFlags, KpaString,
                                   KpaFSFile, KpaFSDirectory>;

template <class Atomic, class Value>
bool admits(const Atomic& atomic, const Value& value)
{
    return atomic.getConfig().fix(value, value) == value;
}

/// Whether the atomic holds the upper end of a cycle, where the way down into the cycle can end. Asked for again, and
/// so when it is read again, the upper end is the lower one.
template <class Atomic>
bool isAtEndOfCycle(const Atomic& atomic)
{
    if constexpr (requires { atomic.isWrapped(); })
        return atomic.isWrapped() && atomic.getValue() == atomic.getMaximum();
    else
        return false;
}

/// An admissible value that the atomic does not hold; nothing where it has no choice.
template <class Atomic>
std::optional<typename Atomic::ValueType> otherValue(const Atomic& atomic)
{
    for (const auto& value : Candidates::of(atomic)) {
        if (value != atomic.getValue() && atomic.getConfig().fix(value, atomic.getValue()) == value)
            return value;
    }
    return std::nullopt;
}

/// Whether `parameter` is an atomic that took on another value.
inline bool changeValue(KpbAParameter& parameter)
{
    bool changed = false;
    KnownAtomics::visit(parameter, [&](auto& atomic) {
        const auto value = otherValue(atomic);
        if (value)
            atomic.setValue(*value);
        changed = value.has_value();
    });
    return changed;
}

/// Whether the values that an atomic holds are admissible; a composite holds none.
inline bool holdsAdmissibleValues(KpbAParameter& parameter)
{
    bool admissible = true;
    KnownAtomics::visit(parameter, [&](auto& atomic) {
        admissible = (admits(atomic, atomic.getValue()) || isAtEndOfCycle(atomic)) &&
                     (!atomic.isAutomaticValueInitialized() || admits(atomic, atomic.getAutoValue()));
    });
    return admissible;
}
