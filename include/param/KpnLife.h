#pragma once

#include <param/KpExport.h>
#include <util/KuoAGuarded.h>

#include <atomic>
#include <cstdint>

class KpbAParameter;

/// What paths hold of a parameter: whether it lives. Each parameter that has been part of a path has one, shared by all
/// paths through it and by the parameter itself, and counted without atomics, as a tree is used from one thread at a
/// time.
class KESTRIN_PARAM_EXPORT KpnLife final : public KuoIGuard
{
public:
    explicit KpnLife(KpbAParameter* target) : _target(target), _address(target) {}

    KpbAParameter* getTarget() const { return _target; }
    bool diedBy(std::uint64_t deaths) const { return !_target && _diedAs <= deaths; }
    /// Where the parameter was at the given count of deaths, null if it was dead by then. Only to be compared.
    const KpbAParameter* addressAt(std::uint64_t deaths) const { return diedBy(deaths) ? nullptr : _address; }

    void retain() { ++_references; }
    void release()
    {
        if (--_references == 0)
            _end();
    }

    /// The place that the index with number `index` has given to this parameter as the origin of a change.
    struct Place
    {
        std::uint64_t index = 0;
        int at = 0;
    };
    Place place;

    void guardedDestroyed() override;

    /// A count of deaths that is never reached.
    static constexpr std::uint64_t Never = ~std::uint64_t(0);
    /// How many parameters with a life have died in the process.
    static std::uint64_t deaths() { return _deaths.load(std::memory_order_relaxed); }

private:
    void _end();

    static std::atomic<std::uint64_t> _deaths;

    KpbAParameter* _target;
    const KpbAParameter* const _address;
    std::uint64_t _diedAs = 0;
    int _references = 0;
};
