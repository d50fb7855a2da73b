#pragma once

#include "PlainNode.h"

#include <QtCore/QStringList>

#include <vector>

/// A list of numbers as one would write it with nothing but QObject: one object per item, found by key and by rank, and
/// labelled with its rank. An item that is destroyed leaves the list. The operations are named as those of the library.
class PlainList : public PlainNode
{
    Q_OBJECT

public:
    explicit PlainList(const QString& key) : PlainNode(key) {}
    ~PlainList() override;
    PlainList* duplicate() const override;

    int getItemCount() const { return int(_items.size()); }
    PlainLeaf* getItemAt(int rank) const { return _items[std::size_t(rank)].leaf; }
    PlainLeaf* getLastItem() const { return _items.back().leaf; }
    PlainLeaf* getChild(const QString& key) const { return _index.value(key); }
    QStringList getItemKeys() const;
    /// Brings the items to these keys in this order: makes those that are missing, and destroys the others.
    void resetItemKeys(const QStringList& keys);

    QList<double> getValues() const;
    void setValues(const QList<double>& values);
    /// Leaves out each value that is less than 1e-10 away from an earlier one; present items are not looked at.
    void setUnique(bool unique) { _unique = unique; }
    /// For the items to come.
    void setRange(double minimum, double maximum);

private:
    struct Item
    {
        PlainLeaf* leaf;
        QString key;
    };

    PlainLeaf* _makeLeaf(const QString& key);
    void _append(PlainLeaf* leaf);
    void _destroy(PlainLeaf* leaf);
    void _forget(const QObject* leaf);
    void _renumber(int from);

    std::vector<Item> _items;
    QHash<QString, PlainLeaf*> _index;
    double _minimum = 0.0;
    double _maximum = 0.0;
    int _lastId = 0;
    bool _unique = false;
};
