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
    void setFilter(const Filter& filter)
    {
        if constexpr (requires { this->getApplicationFlag(); })
            this->_configChangedIf(this->_config.setFilter(this->_forApplication(filter)));
        else
            this->_configChangedIf(this->_config.setFilter(filter));
    }

protected:
    using KpaAItemsAtomic<Atomic>::KpaAItemsAtomic;
};
