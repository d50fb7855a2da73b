#pragma once

#include <QtCore/QHash>
#include <QtCore/QStringList>

#include <param/KpbAParameter.h>

#include <vector>

/// The items of a list in order, with their keys; it owns nothing. Keys may repeat: the first item with a key is the
/// one that is found.
///
/// An item is found by its key in constant time on average, and at its rank in constant time. Appending takes constant
/// time, removing and moving time in proportion to the distance to the nearer end. Nothing is asked of an item that
/// leaves, which may be dying.
class KESTRIN_PARAM_EXPORT KpcItemTable
{
public:
    int count() const { return _items.size(); }
    bool isEmpty() const { return _items.isEmpty(); }
    /// Null for a rank out of range.
    KpbAParameter* at(int rank) const { return _items.value(rank); }
    KpbAParameter* find(const QString& key) const;
    /// -1 for what is no item. Constant time for the item that was asked for last and the one behind it, else time in
    /// proportion to the distance from the end.
    int rankOf(const KuoAObservable<KpnModif>* item) const;
    const QStringList& keys() const { return _keys; }

    void append(KpbAParameter* item);
    KpbAParameter* takeAt(int rank);
    /// Takes the items at `ranks`, which are in ascending order, in one go.
    std::vector<KpbAParameter*> takeRanks(const std::vector<int>& ranks);
    std::vector<KpbAParameter*> takeAll();
    void move(int from, int to);

private:
    static constexpr int IndexFrom = 16;

    void _buildIndex() const;
    bool _keysRepeat() const { return _index.size() != _items.size(); }
    void _dropIndex();

    QList<KpbAParameter*> _items;
    QStringList _keys;
    // The first item with each key, once somebody has looked for one among many.
    mutable QHash<QString, KpbAParameter*> _index;
    mutable bool _indexed = false;
    // Whoever goes through the items asks for one after the other.
    mutable int _lastRank = -1;
};
