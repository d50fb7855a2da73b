#pragma once

#include <param/atomic/KpaAItemsAtomic.h>

/// What the atomics share that choose among the items of a model by a filter.
template <class Atomic>
class Q_DECL_EXPORT KpaAFilteredItemsAtomic : public KpaAItemsAtomic<Atomic>
{
public:
    using Filter = typename Atomic::ConfigType::Filter;

    const Filter& getFilter() const { return this->_config.getFilter(); }
    /// The filter is tied to the application of this parameter, if it has one.
    void setFilter(const Filter& filter) { this->_configChangedIf(this->_config.setFilter(_forApplication(filter))); }

protected:
    using KpaAItemsAtomic<Atomic>::KpaAItemsAtomic;

private:
    Filter _forApplication(Filter filter) const
    {
        if constexpr (requires { this->getApplicationFlag(); })
            filter.setApplicationFlags({this->getApplicationFlag()});
        return filter;
    }
};
