#pragma once

#include <param/composite/KpcList.h>
#include <param/list/KplDistinctValues.h>

#include <basic/MbbDebug.h>

/// A list of atomics, which can be treated as one parameter with a list of values.
///
/// Values go through the prototype's configuration. They can be required to be unique: the list then removes each item
/// whose value an earlier item has, whatever the cause; a number counts as one that is less than 1e-10 away. Automatic
/// values are kept either in the list, for all items at once, or in the items, as the last call says; the automatic
/// mode of the list ends when its values are not the automatic ones any more.
///
/// The checks behind each change go through all items: to change many, use the operations on whole lists.
template <class Item, class Value, class Config>
class Q_DECL_EXPORT KplAAtomicList : public KpcList<Item>
{
public:
    using SerialForm = KpbAParameter::SerialForm;

    KplAAtomicList* duplicate(const QString& newKey) const override = 0;

    QList<Value> getValues() const;
    /// A default-built value for a rank out of range; so do the other operations on ranks that give one.
    Value getValueAt(int rank) const;
    /// Brings the number of items and their values to what is admissible of `values`, and the configuration of the
    /// items to the prototype's. Ends the automatic mode if that changes the values. Observers are told also where a
    /// request was refused.
    void setValues(const QList<Value>& values);
    void setValueAt(int rank, const Value& value);

    /// A default-built value for each item that has none; nothing where the list should have them and has none.
    QList<Value> getAutoValues() const;
    Value getAutoValueAt(int rank) const;
    /// Stores the values for the automatic mode, in the list; an automatic list takes them over at once.
    void setAutoValues(const QList<Value>& values);
    /// Stores the value for the automatic mode, in the item; the items of an automatic list take theirs over at once.
    void setAutoValueAt(int rank, const Value& value);
    /// Forgets the automatic values that are in the list. Values and mode stay.
    void unsetAutoValues();
    /// Forgets the automatic value that is in the item. Value and mode stay.
    void unsetAutoValueAt(int rank);

    bool isUnique() const { return _unique; }
    /// Switched on, removes what repeats at once; a list that is not resizable keeps it, with an error.
    void setUnique(bool unique);

    Kp::List::AutoValueLocation getAutoValueLocation() const override { return _autoValueLocation; }
    bool needToUnserializeAtomicItems() const override { return _unique; }
    /// Of items whose values are equal, the first stays.
    void unserializeAtomicItems(const QStringList& keys, const QList<SerialForm>& maps) override;

    void update(const KpnModif& modif) override;

protected:
    using KpcList<Item>::KpcList;
    KplAAtomicList(const KplAAtomicList& other, const QString& newKey);

    /// Runs `change(lock)` as one change that the list makes itself: the items are checked once, behind it.
    template <class Change>
    void _change(Change change);
    /// Applies `operation(Item&)` to the prototype and to every item.
    template <class Operation>
    void _configureAll(Operation operation);
    /// `get(item)` of the item at `rank`, a default-built result if there is none.
    template <class Getter>
    auto _ofItem(int rank, Getter get) const
    {
        const Item* item = this->getItemAt(rank);
        return item ? get(*item) : decltype(get(*item))();
    }
    /// `get(item)` of each item.
    template <class Getter>
    auto _ofItems(Getter get) const;

    void _configChanged() override;
    void _structureChanged() override;

private:
    using Raised = KpcAbstractList::Raised;

    void _setValueAuto() override;
    QList<Value> _fixValues(const QList<Value>& values) const;
    void _fixItems();
    void _setValues(QList<Value> values);
    void _setValueOf(Item& item, const Value& value);
    void _setAutomatic();
    void _setAutoValueLocation(Kp::List::AutoValueLocation location);
    void _invalidateAutomatic();
    bool _areValuesAutomatic() const;
    bool _checkValuesAutomatic();
    std::vector<int> _repeatedRanks() const;
    void _forgetChecks();
    void _forgetChecks(const KpnModif& modif);

    QList<Value> _autoValues;
    Kp::List::AutoValueLocation _autoValueLocation = Kp::List::AutoValuesInItems;
    // The list is applying automatic values itself, which does not end the automatic mode.
    bool _blockAutoInvalidation = false;
    bool _unique = false;
    // The list is changing items itself, and values may repeat meanwhile.
    bool _fixing = false;
    // How often something was heard of an item or the prototype.
    quint64 _heard = 0;
    // What the last look at all items has found. It holds until something is heard of an item, or one comes.
    bool _knownDistinct = false;
    bool _knownAutomatic = false;
    quint64 _knownArrivals = 0;
};

template <class Item, class Value, class Config>
KplAAtomicList<Item, Value, Config>::KplAAtomicList(const KplAAtomicList& other, const QString& newKey)
    : KpcList<Item>(other, newKey),
      _autoValues(other._autoValues),
      _autoValueLocation(other._autoValueLocation),
      _unique(other._unique)
{}

template <class Item, class Value, class Config>
template <class Getter>
auto KplAAtomicList<Item, Value, Config>::_ofItems(Getter get) const
{
    QList<std::decay_t<decltype(get(*this->getItemAt(0)))>> results;
    results.reserve(this->getItemCount());
    for (int i = 0; i < this->getItemCount(); ++i)
        results.append(get(*this->getItemAt(i)));
    return results;
}

template <class Item, class Value, class Config>
QList<Value> KplAAtomicList<Item, Value, Config>::getValues() const
{
    return _ofItems([](const Item& item) { return item.getValue(); });
}

template <class Item, class Value, class Config>
Value KplAAtomicList<Item, Value, Config>::getValueAt(int rank) const
{
    return _ofItem(rank, [](const Item& item) -> Value { return item.getValue(); });
}

template <class Item, class Value, class Config>
QList<Value> KplAAtomicList<Item, Value, Config>::getAutoValues() const
{
    if (_autoValueLocation == Kp::List::AutoValuesInList)
        return this->isAutomaticValueInitialized() ? _autoValues : QList<Value>();
    return _ofItems(
        [](const Item& item) { return item.isAutomaticValueInitialized() ? item.getAutoValue() : Value(); });
}

template <class Item, class Value, class Config>
Value KplAAtomicList<Item, Value, Config>::getAutoValueAt(int rank) const
{
    return _ofItem(rank, [](const Item& item) -> Value { return item.getAutoValue(); });
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::setValueAt(int rank, const Value& value)
{
    if (Item* item = this->getItemAt(rank))
        item->setValue(value);
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::setValues(const QList<Value>& values)
{
    KuoLock<KpnModif> lock(this);
    const QList<Value> former = getValues();
    const QList<Value> fixed = _fixValues(values);
    const bool refused = fixed != values;
    _setValues(fixed);
    if (!lock.isAlive())
        return;
    if (fixed != former) {
        this->_notify(Kp::NotifyValue);
        if (this->_setAutoFlag(false))
            this->_notify(Kp::NotifyConfig);
    }
    else if (refused) {
        this->_notify(Kp::NotifyValue);
    }
    lock.commit();
}

template <class Item, class Value, class Config>
QList<Value> KplAAtomicList<Item, Value, Config>::_fixValues(const QList<Value>& values) const
{
    const Config& config = this->getItemPrototype()->getConfig();
    const Value fallback = config.getInitialValue();
    QList<Value> fixed;
    fixed.reserve(values.size());
    KplDistinctValues<Value> distinct;
    if (_unique)
        distinct.reserve(values.size());
    for (const Value& value : values) {
        const Value admissible = config.fix(value, fallback);
        if (!_unique || distinct.admit(admissible))
            fixed.append(admissible);
    }
    return fixed;
}

// The values are this call's own: an observer may change what they come from.
template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::_setValues(QList<Value> values)
{
    KuoLock<KpnModif> lock(this);
    const quint64 heardBefore = _heard;
    {
        const Raised fixing(_fixing, lock);
        const Raised walking(this->_walking, lock);
        this->setItemCount(values.size());
        for (int i = 0; lock.isAlive() && i < std::min(this->getItemCount(), values.size()); ++i)
            _setValueOf(*this->getItemAt(i), values.at(i));
    }
    if (lock.isAlive() && _heard != heardBefore)
        _invalidateAutomatic();
    lock.commit();
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::_setValueOf(Item& item, const Value& value)
{
    const Config& config = this->getItemPrototype()->getConfig();
    if (!(item.getConfig() != config)) {
        item.setValue(value);
        return;
    }
    KuoLock<KpnModif> lock(&item);
    item.setConfig(config);
    if (lock.isAlive())
        item.setValue(value);
    lock.commit();
}

// Each item is compared with all before it, also with those that repeat themselves.
template <class Item, class Value, class Config>
std::vector<int> KplAAtomicList<Item, Value, Config>::_repeatedRanks() const
{
    std::vector<int> ranks;
    KplDistinctValues<Value> distinct;
    distinct.reserve(this->getItemCount());
    for (int i = 0; i < this->getItemCount(); ++i) {
        if (!distinct.add(this->getItemAt(i)->getValue()))
            ranks.push_back(i);
    }
    return ranks;
}

// Where new items have come.
template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::_forgetChecks()
{
    if (std::exchange(_knownArrivals, this->_arrivals) != this->_arrivals)
        _knownDistinct = _knownAutomatic = false;
}

// What is heard of items may leave what is known of the others.
template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::_forgetChecks(const KpnModif& modif)
{
    const bool valuesChanged = modif.hasNotification(Kp::NotifyValue);
    _knownDistinct = _knownDistinct && !valuesChanged;
    if (_autoValueLocation == Kp::List::AutoValuesInList) {
        _knownAutomatic = _knownAutomatic && !valuesChanged;
        return;
    }
    modif.forEach([this](const KpnPath& path, Kp::NotificationFlags) {
        const KpbAParameter* origin = path.getFirst();
        _knownAutomatic = _knownAutomatic && origin && origin->isAutomatic();
    });
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::_fixItems()
{
    if (!_unique || _fixing)
        return;
    _forgetChecks();
    if (_knownDistinct)
        return;
    KuoLock<KpnModif> lock(this);
    const Raised fixing(_fixing, lock);
    const std::vector<int> ranks = _repeatedRanks();
    _knownDistinct = ranks.empty();
    if (ranks.empty()) {
        lock.commit();
        return;
    }
    if (this->isResizable()) {
        this->_deleteItems(ranks);
        if (lock.isAlive())
            this->_closeRanking(lock);
        return;
    }
    MbbDebug::printError(
        QStringLiteral("Atomic List Param '%1' is not resizable with the unique flag true.").arg(this->getKey()));
    lock.commit();
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::setUnique(bool unique)
{
    if (_unique == unique)
        return;
    _unique = unique;
    KuoLock<KpnModif> lock(this);
    _configChanged();
    if (lock.isAlive())
        this->_notify(Kp::NotifyConfig);
    lock.commit();
}

template <class Item, class Value, class Config>
template <class Change>
void KplAAtomicList<Item, Value, Config>::_change(Change change)
{
    KuoLock<KpnModif> lock(this);
    const quint64 heardBefore = _heard;
    {
        const Raised fixing(_fixing, lock);
        const Raised walking(this->_walking, lock);
        change(lock);
    }
    if (lock.isAlive() && _heard != heardBefore)
        _invalidateAutomatic();
    if (lock.isAlive())
        _fixItems();
    lock.commit();
}

template <class Item, class Value, class Config>
template <class Operation>
void KplAAtomicList<Item, Value, Config>::_configureAll(Operation operation)
{
    _change([&](const KuoLock<KpnModif>& lock) {
        operation(*this->getItemPrototype());
        for (int i = 0; lock.isAlive() && i < this->getItemCount(); ++i)
            operation(*this->getItemAt(i));
    });
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::update(const KpnModif& modif)
{
    ++_heard;
    _forgetChecks(modif);
    if (this->_walking || !(_unique || this->isAutomatic())) {
        KpcList<Item>::update(modif);
        return;
    }
    KuoLock<KpnModif> lock(this);
    {
        const Raised fixing(_fixing, lock);
        KpcList<Item>::update(modif);
    }
    if (lock.isAlive())
        _invalidateAutomatic();
    if (lock.isAlive())
        _fixItems();
    lock.commit();
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::_configChanged()
{
    if (!_blockAutoInvalidation && _autoValueLocation == Kp::List::AutoValuesInList &&
        this->isAutomaticValueInitialized() && _fixValues(_autoValues) != _autoValues)
    {
        this->_setAutomaticValueInitialized(false);
        this->_notify(Kp::NotifyConfig);
    }
    _fixItems();
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::_structureChanged()
{
    // With the automatic values in the list, the number and the order of the items count, too.
    if (_autoValueLocation == Kp::List::AutoValuesInList)
        _knownAutomatic = false;
    _invalidateAutomatic();
    _fixItems();
}

template <class Item, class Value, class Config>
bool KplAAtomicList<Item, Value, Config>::_areValuesAutomatic() const
{
    const int count = this->getItemCount();
    if (_autoValueLocation == Kp::List::AutoValuesInList) {
        if (!this->isAutomaticValueInitialized())
            return true;
        if (_autoValues.size() != count)
            return false;
        for (int i = 0; i < count; ++i) {
            if (!(this->getItemAt(i)->getValue() == _autoValues.at(i)))
                return false;
        }
        return true;
    }
    for (int i = 0; i < count; ++i) {
        if (!this->getItemAt(i)->isAutomatic())
            return false;
    }
    return true;
}

template <class Item, class Value, class Config>
bool KplAAtomicList<Item, Value, Config>::_checkValuesAutomatic()
{
    _forgetChecks();
    if (!_knownAutomatic)
        _knownAutomatic = _areValuesAutomatic();
    return _knownAutomatic;
}

// Always in a batch.
template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::_invalidateAutomatic()
{
    if (_blockAutoInvalidation || !this->isAutomatic() || _checkValuesAutomatic())
        return;
    this->_setAutoFlag(false);
    this->_notify(Kp::NotifyConfig);
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::_setAutomatic()
{
    KuoLock<KpnModif> lock(this);
    if (!this->isAutomaticValueInitialized()) {
        this->_setAutomaticValueInitialized(true);
        this->_notify(Kp::NotifyConfig);
    }
    if (this->isAutomatic())
        _setValueAuto();
    lock.commit();
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::_setValueAuto()
{
    KuoLock<KpnModif> lock(this);
    {
        const Raised block(_blockAutoInvalidation, lock);
        if (_autoValueLocation == Kp::List::AutoValuesInList) {
            _setValues(_autoValues);
        }
        else {
            _change([&](const KuoLock<KpnModif>& batch) {
                for (int i = 0; batch.isAlive() && i < this->getItemCount(); ++i)
                    this->getItemAt(i)->setAutomatic(true);
            });
        }
    }
    lock.commit();
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::_setAutoValueLocation(Kp::List::AutoValueLocation location)
{
    _autoValueLocation = location;
    _knownAutomatic = false;
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::setAutoValues(const QList<Value>& values)
{
    KuoLock<KpnModif> lock(this);
    _setAutoValueLocation(Kp::List::AutoValuesInList);
    const QList<Value> fixed = _fixValues(values);
    if (fixed != _autoValues) {
        _autoValues = fixed;
        this->_notify(Kp::NotifyConfig);
    }
    _setAutomatic();
    lock.commit();
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::setAutoValueAt(int rank, const Value& value)
{
    _setAutoValueLocation(Kp::List::AutoValuesInItems);
    Item* item = this->getItemAt(rank);
    if (!item)
        return;
    KuoLock<KpnModif> lock(this);
    {
        const Raised block(_blockAutoInvalidation, lock);
        item->setAutoValue(value);
        if (lock.isAlive())
            _setAutomatic();
    }
    lock.commit();
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::unsetAutoValues()
{
    if (_autoValueLocation != Kp::List::AutoValuesInList || !this->isAutomaticValueInitialized())
        return;
    this->_setAutomaticValueInitialized(false);
    this->_notify(Kp::NotifyConfig);
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::unsetAutoValueAt(int rank)
{
    Item* item = this->getItemAt(rank);
    if (item && _autoValueLocation == Kp::List::AutoValuesInItems)
        item->unsetAutoValue();
}

template <class Item, class Value, class Config>
void KplAAtomicList<Item, Value, Config>::unserializeAtomicItems(const QStringList& keys, const QList<SerialForm>& maps)
{
    KuoLock<KpnModif> lock(this);
    {
        const Raised fixing(_fixing, lock);
        const Raised walking(this->_walking, lock);
        KplDistinctValues<Value> distinct;
        if (_unique)
            distinct.reserve(keys.size());
        this->_rebuildItems(keys, [&](const QList<Item*>&, Item* item, int rank) {
            const KuoPointer<KpbAParameter> guarded(item);
            item->unserialize(maps.value(rank));
            return guarded && (!_unique || distinct.admit(item->getValue()));
        });
    }
    lock.commit();
}
