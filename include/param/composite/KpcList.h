#pragma once

#include <param/composite/KpcAbstractList.h>
#include <param/composite/KpcItemPool.h>
#include <param/composite/KpcItemTable.h>

#include <algorithm>
#include <concepts>
#include <functional>
#include <limits>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

class KstITransactable;

/// The list of parameters of the type `T`. It owns its items and its prototype, hears their notifications and passes
/// them up the tree; what it hears from the prototype is a change of its own configuration.
///
/// Items are labelled with the prototype's label and their rank, "Label #1", and keep that up to date as long as nobody
/// labels them otherwise. The present items do not follow the prototype's configuration. An item that is destroyed
/// elsewhere leaves the list; a prototype that is, is made anew. Observers may change or destroy items, and the list,
/// at any time.
///
/// An exception that leaves an operation leaves the list whole. `T` has a constructor from its key, or from its key and
/// a transaction context.
template <class T>
class Q_DECL_EXPORT KpcList : public KpcAbstractList
{
public:
    /// What the list makes its prototype with. Everything that it gives is the caller's.
    class IProtoBuilder
    {
    public:
        virtual ~IProtoBuilder() = default;
        virtual IProtoBuilder* clone() const = 0;
        virtual T* create() const = 0;
    };
    /// Makes prototypes with the key "PROTOTYPE" and the same further arguments each time. An argument that is a
    /// reference is kept as one, and what it refers to outlives the list.
    template <class Prototype, class... Args>
    class ProtoBuilder final : public IProtoBuilder
    {
    public:
        explicit ProtoBuilder(Args... args) : _args(std::forward<Args>(args)...) {}
        ProtoBuilder* clone() const override { return new ProtoBuilder(*this); }
        T* create() const override
        {
            const auto make = [](const auto&... args) { return new Prototype(QStringLiteral("PROTOTYPE"), args...); };
            return std::apply(make, _args);
        }

    private:
        std::tuple<Args...> _args;
    };

    // The parameters keep the constructor that `T` cannot serve out of explicit instantiations.
    template <class Item = T>
    requires std::constructible_from<Item, const QString&>
    explicit KpcList(const QString& key) : KpcList(key, std::make_unique<ProtoBuilder<Item>>()) {}
    template <class Item = T>
    requires std::constructible_from<Item, const QString&, const KstITransactable&>
    KpcList(const QString& key, const KstITransactable& transactable)
        : KpcList(key, std::make_unique<ProtoBuilder<Item, const KstITransactable&>>(transactable))
    {}
    /// The items of the copy have the same keys.
    KpcList(const KpcList& other, const QString& newKey);
    ~KpcList() override;
    KpcList* duplicate(const QString& newKey) const override { return new KpcList(*this, newKey); }

    bool hasChildren() const override { return !_items.isEmpty(); }
    int getChildCount() const override { return _items.count(); }
    KpbAParameter* getChild(const QString& key) const override { return _items.find(key); }
    KpbAParameter* getChild(int index) const override { return _items.at(index); }
    SerialForm serialize() const override { return {}; }
    void unserialize(const SerialForm&) override {}
    /// The number and the texts of the items, of six at most.
    QString toString() const override;
    QString debug(int depth) const override;

    KpbEType getItemType() const override { return _prototype->getType(); }
    void setItemCount(int count) override;
    void setItemLabel(const QString& label) override;
    void appendItem() override { addItem(); }
    void removeLastItem() override { removeItemAt(getItemCount() - 1); }
    void removeItemAt(int rank) override;
    void moveItem(int from, int to) override;
    void clear() override;
    void setResizable(bool resizable) override { _resizable = resizable; }
    bool isResizable() const override { return _resizable; }
    QStringList getItemKeys() const override { return _items.keys(); }
    void resetItemKeys(const QStringList& keys) override;
    bool ignoreItemKeys() const override { return !isResizable(); }
    KpbAParameter* getAbstractPrototype() const override { return _prototype; }
    KpbAParameter* getAbstractItemAt(int rank) const override { return getItemAt(rank); }
    Kp::List::AutoValueLocation getAutoValueLocation() const override { return Kp::List::AutoValuesInList; }

    /// The new last item, which is a copy of the prototype; null if it did not survive its own arrival.
    T* addItem();
    T* getItemAt(int rank) const { return static_cast<T*>(_items.at(rank)); }
    T* getLastItem() const { return getItemAt(getItemCount() - 1); }
    /// -1 for what is no item of this list.
    int getItemRank(const T* item) const { return _items.rankOf(item); }
    T* getItemPrototype() const { return _prototype; }
    /// Replaces the prototype, by a copy of `prototype` or by itself, which the list then owns; null gives a new one.
    /// One of the items stays an item, and is always copied.
    void setItemPrototype(T* prototype, bool copy);
    /// Hands the item to the caller, with the list still as its parent; null for a rank out of range.
    T* takeItemAt(int rank);

    void update(const KpnModif& modif) override;
    void destroyed(const KuoAObservable<KpnModif>* observable) override;

protected:
    /// Whether `item`, which has been brought to its state and would get this rank among `kept`, stays.
    using Accept = std::function<bool(const QList<T*>& kept, T* item, int rank)>;

    KpcList(const QString& key, std::unique_ptr<IProtoBuilder> protoBuilder);

    void _appendItem(T* item);
    /// Destroys all items, without a notification. The list may be gone afterwards.
    void _clearItems();
    /// Sets the counter of keys back to the greatest identifier in use.
    void _compressCounter();
    /// A copy of the prototype under `key`, which is not in the list yet.
    T* _createItem(const QString& key) const { return _prototype->duplicate(key); }
    void _deleteItem(T* item);
    T* _findItem(const QString& key) const { return static_cast<T*>(_items.find(key)); }
    /// Brings the items to these keys in this order, as far as `accept` says, and destroys the others. A key that
    /// repeats names as many items.
    void _rebuildItems(const QStringList& keys, const Accept& accept);
    /// Renumbers the labels that begin as labels of items do. The list may be gone afterwards, as after all that
    /// follows.
    void _updateLabels();
    /// Destroys the items at `ranks`, which are in ascending order, from the last to the first, without a notification.
    void _deleteItems(const std::vector<int>& ranks);
    /// The end of each change of the items.
    void _closeChange(KuoLock<KpnModif>& lock);
    /// The same where ranks may have changed.
    void _closeRanking(KuoLock<KpnModif>& lock);

    /// True while the list goes through its items and changes each. A subclass that checks all items when one has
    /// changed has to wait for the end: `update` is called then, without a record if need be.
    bool _walking = false;
    /// How often an item has come into the list.
    quint64 _arrivals = 0;

private:
    class Rebuild;
    struct WithoutItems
    {};
    enum class Relabel
    {
        Numbered, ///< only the items whose label begins with the prefix
        All
    };

    KpcList(const KpcList& other, const QString& newKey, WithoutItems);

    QString _newKey();
    void _plug(T* item);
    void _insert(T* item);
    T* _takeItem(int rank);
    void _setPrototype(T* prototype);
    bool _rebuildItem(Rebuild& rebuild, const QString& key, int rank, const Accept& accept,
                      const KuoLock<KpnModif>& lock);
    void _passOn(KpnModif&& modif);
    void _relabel(const QString& prefix, Relabel which);
    void _labelsChangedFrom(int rank) { _labelledCount = std::min(_labelledCount, rank); }

    std::unique_ptr<IProtoBuilder> _protoBuilder;
    T* _prototype = nullptr;
    KpcItemTable _items;
    Rebuild* _rebuild = nullptr;
    int _keyCounter = 0;
    bool _resizable = true;
    // The first items have been found to be labelled as they should be, and no label has changed since.
    int _labelledCount = 0;
    quint64 _labelledAt = 0;
};

/// The items while they are being rebuilt. Whatever ends the rebuilding early, nothing is lost: they go back into the
/// list, or die with it.
template <class T>
class KpcList<T>::Rebuild
{
public:
    Rebuild(KpcList& list, const KuoLock<KpnModif>& lock)
        : pool(list._items),
          outer(list._rebuild),
          _prefix(_labelPrefix(list._prototype->getLabel())),
          _list(list),
          _lock(lock)
    {
        list._rebuild = this;
    }
    ~Rebuild()
    {
        if (!_lock.isAlive())
            return;
        finish();
        _list._rebuild = outer;
    }
    Rebuild(const Rebuild&) = delete;
    Rebuild& operator=(const Rebuild&) = delete;

    /// Puts all items back, those that are kept first.
    void finish()
    {
        _list._labelsChangedFrom(0);
        for (T* item : std::exchange(kept, {}))
            _list._insert(item);
        if (current)
            _list._insert(std::exchange(current, nullptr));
        while (T* item = takeNextLeft())
            _list._insert(item);
    }
    /// The label of the item behind those that no key has named. It is mostly the one of last time, and the items then
    /// share it.
    const QString& labelBehindLeft()
    {
        const int number = pool.count() + 1;
        if (std::exchange(_labelNumber, number) != number)
            _label = _numbered(_prefix, number);
        return _label;
    }
    /// An item that no key has named; null after the last.
    T* takeNextLeft() { return static_cast<T*>(pool.takeNext()); }
    bool forget(const KuoAObservable<KpnModif>* item)
    {
        if (item == current) {
            current = nullptr;
            return true;
        }
        const auto found = std::find_if(kept.begin(), kept.end(), [&](const T* each) { return each == item; });
        if (found == kept.end())
            return pool.forget(item);
        kept.erase(found);
        return true;
    }

    KpcItemPool pool;
    QList<T*> kept;
    T* current = nullptr;
    Rebuild* const outer;

private:
    const QString _prefix;
    QString _label;
    int _labelNumber = 0;
    KpcList& _list;
    const KuoLock<KpnModif>& _lock;
};

template <class T>
KpcList<T>::KpcList(const QString& key, std::unique_ptr<IProtoBuilder> protoBuilder)
    : KpcAbstractList(KpbEType::LIST, key),
      _protoBuilder(std::move(protoBuilder))
{
    _setPrototype(_protoBuilder->create());
}

// The delegation makes this an object whose destructor runs if a copy fails.
template <class T>
KpcList<T>::KpcList(const KpcList& other, const QString& newKey) : KpcList(other, newKey, WithoutItems())
{
    _setPrototype(other._prototype->duplicate(QStringLiteral("PROTOTYPE")));
    for (int i = 0; i < other.getItemCount(); ++i)
        _plug(other.getItemAt(i)->duplicate(QString()));
}

template <class T>
KpcList<T>::KpcList(const KpcList& other, const QString& newKey, WithoutItems)
    : KpcAbstractList(other, newKey),
      _protoBuilder(other._protoBuilder->clone()),
      _keyCounter(other._keyCounter),
      _resizable(other._resizable)
{}

template <class T>
KpcList<T>::~KpcList()
{
    // Items that take others with them are not told of any more.
    lockObservable(true);
    for (Rebuild* rebuild = _rebuild; rebuild; rebuild = rebuild->outer)
        rebuild->finish();
    _clearItems();
    if (_prototype)
        _deleteItem(_prototype);
}

template <class T>
void KpcList<T>::_setPrototype(T* prototype)
{
    _prototype = prototype;
    _prototype->addObserver(this);
}

template <class T>
void KpcList<T>::_plug(T* item)
{
    item->setParent(this);
    item->addObserver(this);
    _insert(item);
}

template <class T>
void KpcList<T>::_insert(T* item)
{
    _items.append(item);
    ++_arrivals;
}

template <class T>
void KpcList<T>::_appendItem(T* item)
{
    const quint64 changesBefore = _labelChanges();
    const bool known = _labelledCount == getItemCount() && (_items.isEmpty() || changesBefore == _labelledAt);
    item->setLabel(_numbered(_labelPrefix(_prototype->getLabel()), getItemCount() + 1));
    _plug(item);
    if (!known || _labelChanges() > changesBefore + 1)
        return;
    _labelledCount = getItemCount();
    _labelledAt = _labelChanges();
}

template <class T>
T* KpcList<T>::_takeItem(int rank)
{
    _labelsChangedFrom(rank);
    return static_cast<T*>(_items.takeAt(rank));
}

template <class T>
void KpcList<T>::_deleteItem(T* item)
{
    item->removeObserver(this);
    delete item;
}

template <class T>
void KpcList<T>::_deleteItems(const std::vector<int>& ranks)
{
    if (ranks.empty())
        return;
    _labelsChangedFrom(ranks.front());
    // One that dies may take others with it, or the list.
    std::vector<KuoPointer<KpbAParameter>> items;
    for (KpbAParameter* item : _items.takeRanks(ranks)) {
        item->removeObserver(this);
        items.emplace_back(item);
    }
    for (; !items.empty(); items.pop_back())
        delete items.back().get();
}

template <class T>
void KpcList<T>::_clearItems()
{
    const KuoPointer<KpbAParameter> self(this);
    while (self && !_items.isEmpty())
        _deleteItem(_takeItem(0));
}

template <class T>
void KpcList<T>::_compressCounter()
{
    _keyCounter = 0;
    for (const QString& key : _items.keys())
        _keyCounter = std::max(_keyCounter, itemKeyToItemId(key));
}

// Stored keys can have any identifier: behind the greatest one that there is, counting starts over and passes over the
// keys in use.
template <class T>
QString KpcList<T>::_newKey()
{
    QString key;
    do {
        _keyCounter = _keyCounter == std::numeric_limits<int>::max() ? 1 : _keyCounter + 1;
        key = _itemIdToItemKey(_keyCounter);
    } while (_findItem(key));
    return key;
}

template <class T>
void KpcList<T>::_updateLabels()
{
    _relabel(_labelPrefix(_prototype->getLabel()), Relabel::Numbered);
}

template <class T>
void KpcList<T>::_relabel(const QString& prefix, Relabel which)
{
    KuoLock<KpnModif> lock(this);
    const quint64 changesBefore = _labelChanges();
    quint64 changes = 0;
    {
        const Raised walking(_walking, lock);
        const bool known = which == Relabel::Numbered && changesBefore == _labelledAt;
        for (int i = known ? _labelledCount : 0; lock.isAlive() && i < getItemCount(); ++i) {
            T* item = getItemAt(i);
            if (which == Relabel::Numbered && !item->getLabel().startsWith(prefix))
                continue;
            if (_isNumbered(item->getLabel(), prefix, i + 1))
                continue;
            ++changes;
            item->setLabel(_numbered(prefix, i + 1));
        }
    }
    if (!lock.isAlive())
        return;
    _labelledAt = changesBefore + changes;
    _labelledCount = _labelChanges() == _labelledAt ? getItemCount() : 0;
    if (changes != 0)
        update(KpnModif());
    lock.commit();
}

template <class T>
void KpcList<T>::_closeChange(KuoLock<KpnModif>& lock)
{
    _structureChanged();
    if (!lock.isAlive())
        return;
    _notify(Kp::NotifyValue | Kp::NotifyChildren | Kp::NotifyItem);
    lock.commit();
}

template <class T>
void KpcList<T>::_closeRanking(KuoLock<KpnModif>& lock)
{
    _updateLabels();
    if (lock.isAlive())
        _closeChange(lock);
}

template <class T>
T* KpcList<T>::addItem()
{
    KuoLock<KpnModif> lock(this);
    T* item = _createItem(_newKey());
    const KuoPointer<KpbAParameter> guarded(item);
    _appendItem(item);
    _closeChange(lock);
    return guarded ? item : nullptr;
}

template <class T>
void KpcList<T>::setItemCount(int count)
{
    count = std::max(count, 0);
    if (count == getItemCount())
        return;
    KuoLock<KpnModif> lock(this);
    for (int i = getItemCount() - count; i > 0 && lock.isAlive() && !isEmpty(); --i)
        _deleteItem(_takeItem(getItemCount() - 1));
    if (!lock.isAlive())
        return;
    for (int i = count - getItemCount(); i > 0; --i)
        _appendItem(_createItem(_newKey()));
    _closeRanking(lock);
}

template <class T>
void KpcList<T>::setItemLabel(const QString& label)
{
    KuoLock<KpnModif> lock(this);
    _prototype->setLabel(label);
    if (lock.isAlive())
        _relabel(_labelPrefix(label), Relabel::All);
    lock.commit();
}

template <class T>
void KpcList<T>::removeItemAt(int rank)
{
    if (!getItemAt(rank))
        return;
    KuoLock<KpnModif> lock(this);
    _deleteItem(_takeItem(rank));
    if (lock.isAlive())
        _closeRanking(lock);
}

template <class T>
T* KpcList<T>::takeItemAt(int rank)
{
    if (!getItemAt(rank))
        return nullptr;
    KuoLock<KpnModif> lock(this);
    T* item = _takeItem(rank);
    const KuoPointer<KpbAParameter> guarded(item);
    item->removeObserver(this);
    _closeRanking(lock);
    return guarded ? item : nullptr;
}

template <class T>
void KpcList<T>::moveItem(int from, int to)
{
    if (from == to || !getItemAt(from) || !getItemAt(to))
        return;
    KuoLock<KpnModif> lock(this);
    _labelsChangedFrom(std::min(from, to));
    _items.move(from, to);
    _closeRanking(lock);
}

template <class T>
void KpcList<T>::clear()
{
    if (isEmpty())
        return;
    KuoLock<KpnModif> lock(this);
    _clearItems();
    if (!lock.isAlive())
        return;
    _compressCounter();
    _closeChange(lock);
}

template <class T>
void KpcList<T>::resetItemKeys(const QStringList& keys)
{
    _rebuildItems(keys, [](const QList<T*>&, T*, int) { return true; });
}

template <class T>
void KpcList<T>::_rebuildItems(const QStringList& keys, const Accept& accept)
{
    if (!_resizable)
        return;
    const QStringList formerKeys = getItemKeys();
    KuoLock<KpnModif> lock(this);
    {
        Rebuild rebuild(*this, lock);
        for (int rank = 0; rank < keys.size(); ++rank) {
            if (!_rebuildItem(rebuild, keys.at(rank), rank, accept, lock))
                return;
        }
        while (T* item = rebuild.takeNextLeft()) {
            _deleteItem(item);
            if (!lock.isAlive())
                return;
        }
        _clearItems();
        if (!lock.isAlive())
            return;
    }
    _compressCounter();
    const bool changed = keys != formerKeys || getItemKeys() != formerKeys;
    _updateLabels();
    if (lock.isAlive())
        _structureChanged();
    if (lock.isAlive() && changed)
        _notify(Kp::NotifyValue | Kp::NotifyChildren | Kp::NotifyItem);
    lock.commit();
}

// Gives whether the list is still there.
template <class T>
bool KpcList<T>::_rebuildItem(Rebuild& rebuild, const QString& key, int rank, const Accept& accept,
                              const KuoLock<KpnModif>& lock)
{
    rebuild.current = static_cast<T*>(rebuild.pool.take(key));
    if (!rebuild.current) {
        rebuild.current = _createItem(key);
        // Numbered behind those that are left, until all have their place.
        rebuild.current->setLabel(rebuild.labelBehindLeft());
        rebuild.current->setParent(this);
        rebuild.current->addObserver(this);
    }
    const bool accepted = accept(rebuild.kept, rebuild.current, rank);
    if (!lock.isAlive())
        return false;
    T* item = std::exchange(rebuild.current, nullptr);
    if (item && accepted)
        rebuild.kept.append(item);
    else if (item)
        _deleteItem(item);
    return lock.isAlive();
}

template <class T>
void KpcList<T>::setItemPrototype(T* prototype, bool copy)
{
    KuoLock<KpnModif> lock(this);
    T* former = _prototype;
    if (!prototype)
        prototype = _protoBuilder->create();
    else if (copy || getItemRank(prototype) >= 0)
        prototype = prototype->duplicate(QStringLiteral("PROTOTYPE"));
    if (prototype != former) {
        _setPrototype(prototype);
        if (former)
            _deleteItem(former);
        if (!lock.isAlive())
            return;
    }
    _labelsChangedFrom(0);
    _updateLabels();
    if (lock.isAlive())
        _configChanged();
    if (lock.isAlive())
        _notify(Kp::NotifyConfig);
    lock.commit();
}

template <class T>
void KpcList<T>::update(const KpnModif& modif)
{
    const auto concernsPrototype = [this](const KpnPath& path) { return _prototype && path.contains(_prototype); };
    bool ofPrototype = false;
    modif.forEach(
        [&](const KpnPath& path, Kp::NotificationFlags) { ofPrototype = ofPrototype || concernsPrototype(path); });
    if (!ofPrototype) {
        _passOn(KpnModif(modif));
        return;
    }
    KpnModif ofItems =
        modif.filtered([&](const KpnPath& path, Kp::NotificationFlags) { return !concernsPrototype(path); });
    KuoLock<KpnModif> lock(this);
    _configChanged();
    if (lock.isAlive())
        _notify(Kp::NotifyConfig);
    if (lock.isAlive())
        _passOn(std::move(ofItems));
    lock.commit();
}

template <class T>
void KpcList<T>::_passOn(KpnModif&& modif)
{
    if (_isUnheard()) {
        _emptyBatch();
        return;
    }
    modif.append(this);
    KuoAObservable::_notifyBatch(std::move(modif));
}

template <class T>
void KpcList<T>::destroyed(const KuoAObservable<KpnModif>* observable)
{
    if (observable == _prototype) {
        _prototype = nullptr;
        setItemPrototype(nullptr, false);
        return;
    }
    for (Rebuild* rebuild = _rebuild; rebuild; rebuild = rebuild->outer) {
        if (rebuild->forget(observable))
            return;
    }
    const int rank = _items.rankOf(observable);
    if (rank < 0)
        return;
    KuoLock<KpnModif> lock(this);
    _labelsChangedFrom(rank);
    _items.takeAt(rank);
    _closeRanking(lock);
}

template <class T>
QString KpcList<T>::toString() const
{
    constexpr int shownItems = 6;
    if (isEmpty())
        return QStringLiteral("empty");
    QStringList texts;
    for (int i = 0; i < std::min(getItemCount(), shownItems); ++i)
        texts.append(QLatin1Char('\'') + getItemAt(i)->toString() + QLatin1Char('\''));
    if (texts.size() == shownItems)
        texts.append(QStringLiteral("..."));
    const QString count =
        getItemCount() == 1 ? QStringLiteral("1 item: ") : QString::number(getItemCount()) + QLatin1String(" items: ");
    return count + texts.join(QLatin1Char(' '));
}

template <class T>
QString KpcList<T>::debug(int depth) const
{
    const QString text = KpcAbstractList::debug(depth);
    if (depth < 1)
        return text;
    return text + _debugLines(*_prototype, getItemCount(), _keyCounter) + _prototype->debug(depth);
}
