#pragma once

#include <study/KsoANamedFilter.h>

/// The typed part of the filters of one kind of named item. `Filter` is the derived class.
template <class Filter, class Kind>
class Q_DECL_EXPORT KsoANamedFilterOf : public KsoANamedFilter
{
public:
    using Identifier = typename Kind::Identifier;
    using Item = typename Kind::Item;

    /// A name without an item is accepted where new items are. Null is refused.
    bool check(const Identifier& ident) const
    {
        const Item* item = ident.getItem();
        return item ? check(item) : isNewAccepted() && !ident.isNull();
    }
    /// Null is refused.
    bool check(const Item* item) const
    {
        return item && _acceptsItem(item->isBuiltIn(), item->getApplicationFlags()) &&
               static_cast<const Filter*>(this)->_meetsConditions(*item);
    }

    friend bool operator==(const Filter& a, const Filter& b) { return a._isSame(b); }
    friend bool operator!=(const Filter& a, const Filter& b) { return !a._isSame(b); }

protected:
    using KsoANamedFilter::KsoANamedFilter;

    // What a kind with conditions of its own replaces.
    bool _meetsConditions(const Item&) const { return true; }
    bool _hasSameConditions(const Filter&) const { return true; }

private:
    bool _isSame(const Filter& other) const
    {
        return _isEqual(other) && static_cast<const Filter*>(this)->_hasSameConditions(other);
    }
};
