#pragma once

#include <QtCore/QStringList>

#include <param/KpbAParameter.h>

/// A parameter that holds any number of parameters of one type, all cloned from a prototype that carries their
/// configuration, as callers, watchers and the serializer see it: without knowing the type.
///
/// The items are the children of the list, in order, each under a generated key that it keeps for life: identifiers in
/// keys are no positions. Ranks count from 0; one that is out of range is ignored or gives null. A list has no value
/// but its items. Each operation that changes the items is told in one record, with `Kp::NotifyValue`,
/// `Kp::NotifyChildren` and `Kp::NotifyItem` for the list.
class KESTRIN_PARAM_EXPORT KpcAbstractList : public KpbAParameter, public KuoIObserver<KpnModif>
{
public:
    virtual bool isEmpty() const { return !hasChildren(); }
    virtual int getItemCount() const { return getChildCount(); }
    virtual KpbEType getItemType() const = 0;
    /// Removes items at the end or adds new ones there. A count below 0 counts as 0.
    virtual void setItemCount(int count) = 0;
    /// Labels the prototype with `label`, and all items with it and their rank, counted from 1.
    virtual void setItemLabel(const QString& label) = 0;
    virtual void appendItem() = 0;
    virtual void removeLastItem() = 0;
    virtual void removeItemAt(int rank) = 0;
    virtual void moveItem(int from, int to) = 0;
    /// Removes all items; the numbering of keys starts over.
    virtual void clear() = 0;
    /// Whether reading a stored form, and `resetItemKeys`, may change the number and the order of the items. Silent.
    virtual void setResizable(bool resizable) = 0;
    virtual bool isResizable() const = 0;
    virtual QStringList getItemKeys() const = 0;
    /// Brings the items to these keys in this order: items that have one are used again, others are made or removed. A
    /// list that is not resizable stays as it is.
    virtual void resetItemKeys(const QStringList& keys) = 0;
    /// Whether items are read by their position and not by their key.
    virtual bool ignoreItemKeys() const = 0;
    /// Owned by the list, and never null.
    virtual KpbAParameter* getAbstractPrototype() const = 0;
    virtual KpbAParameter* getAbstractItemAt(int rank) const = 0;
    virtual Kp::List::AutoValueLocation getAutoValueLocation() const = 0;
    /// Whether items are read all at once, by `unserializeAtomicItems`, and not one by one.
    virtual bool needToUnserializeAtomicItems() const { return false; }
    /// Brings the items to these keys in this order and lets each read its map.
    virtual void unserializeAtomicItems(const QStringList& keys, const QList<SerialForm>& maps);

    /// The identifier in the key of an item; 0 if there is none.
    static int itemKeyToItemId(const QString& key);

protected:
    /// Sets a flag while it lives, unless the list is gone by the end; uses of one flag nest.
    class Raised
    {
    public:
        Raised(bool& flag, const KuoLock<KpnModif>& lock) : _flag(flag), _former(flag), _lock(lock) { _flag = true; }
        ~Raised()
        {
            if (_lock.isAlive())
                _flag = _former;
        }
        Raised(const Raised&) = delete;
        Raised& operator=(const Raised&) = delete;

    private:
        bool& _flag;
        const bool _former;
        const KuoLock<KpnModif>& _lock;
    };

    using KpbAParameter::KpbAParameter;

    static QString _itemIdToItemKey(int id);
    /// What the labels of the items begin with that nobody has changed by hand.
    static QString _labelPrefix(const QString& prototypeLabel);
    static QString _numbered(const QString& prefix, int number);
    /// Whether `label` is `prefix` and `number`.
    static bool _isNumbered(const QString& label, const QString& prefix, int number);
    static QString _debugLines(const KpbAParameter& prototype, int itemCount, int keyCounter);

    /// Called in the batch of every change of the prototype.
    virtual void _configChanged() {}
    /// Called in the batch of every change of the items, at its end.
    virtual void _structureChanged() {}
};
