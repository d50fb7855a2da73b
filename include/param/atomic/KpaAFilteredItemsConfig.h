#pragma once

#include <param/atomic/KpaAItemsConfig.h>

/// What the configurations share that admit the items of a model that meet a filter and, where the filter accepts new
/// items, names that no item has. Setters give whether something changed.
template <class Config, class Kind, class FilterType>
class Q_DECL_EXPORT KpaAFilteredItemsConfig : public KpaAItemsConfig<Config, Kind>
{
public:
    using Filter = FilterType;
    using Identifier = typename Kind::Identifier;

    const Filter& getFilter() const { return _filter; }
    bool setFilter(const Filter& filter) { return KpaConfigTools::store(_filter, filter) && this->_listChanged(); }

    /// Null stands, and so do the items of the list, under the names that they have at present. A name that no item has
    /// stands where new items are accepted. Anything else gives way to `previous`.
    Identifier fix(const Identifier& value, const Identifier& previous) const
    {
        if (value.isNull())
            return value;
        Identifier named = this->present(value);
        if (this->getIdentifiers().contains(named) || (_filter.isNewAccepted() && !named.exists()))
            return named;
        return previous;
    }
    QString toString(const Identifier& ident) const { return ident.toString(); }

    /// All fields.
    friend bool operator==(const KpaAFilteredItemsConfig& a, const KpaAFilteredItemsConfig& b) = default;

protected:
    KpaAFilteredItemsConfig() = default;

    QString _debug(const char* header) const
    {
        return KpaAItemsConfig<Config, Kind>::_debug(header) +
               QStringLiteral(" new item accepted = %1\n").arg(KpaConfigTools::yesNo(_filter.isNewAccepted()));
    }

private:
    friend KpaAItemsConfig<Config, Kind>;

    QList<Identifier> _findItems() const
    {
        QList<Identifier> found;
        for (const auto& items : {this->getModel()->getUserItems(), this->getModel()->getBuiltInItems()}) {
            for (const auto* item : items) {
                if (_filter.check(item))
                    found.append(item->getIdentifier());
            }
        }
        return found;
    }

    Filter _filter;
};
