#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QVector>

#include <utility>

/// A map that keeps the order in which its keys came in. Values are implicitly shared, copying is cheap. Lookup walks
/// the entries while they are few and goes through an index beyond that; removal keeps the order and is linear.
template <class Key, class Value>
class MbbOrderedMap
{
public:
    struct Entry
    {
        Key key;
        Value value;
        friend bool operator==(const Entry& a, const Entry& b) { return a.key == b.key && a.value == b.value; }
        friend bool operator!=(const Entry& a, const Entry& b) { return !(a == b); }
    };
    using const_iterator = typename QVector<Entry>::const_iterator;

    MbbOrderedMap() = default;
    MbbOrderedMap(std::initializer_list<std::pair<Key, Value>> entries)
    {
        for (const auto& entry : entries)
            insert(entry.first, entry.second);
    }

    int count() const { return _entries.size(); }
    int size() const { return _entries.size(); }
    bool isEmpty() const { return _entries.isEmpty(); }
    bool contains(const Key& key) const { return indexOf(key) >= 0; }
    /// The place of `key` in the order, -1 if it is absent.
    int indexOf(const Key& key) const
    {
        if (!_index.isEmpty())
            return _index.value(key, -1);
        for (int i = 0; i < _entries.size(); ++i) {
            if (_entries.at(i).key == key)
                return i;
        }
        return -1;
    }
    Value value(const Key& key, const Value& fallback = Value()) const
    {
        const int i = indexOf(key);
        return i < 0 ? fallback : _entries.at(i).value;
    }
    /// The value under `key`, or null. The pointer lives until the map changes.
    const Value* find(const Key& key) const
    {
        const int i = indexOf(key);
        return i < 0 ? nullptr : &_entries.at(i).value;
    }
    /// The entry at place `i` of the order; `i` must be in range.
    const Entry& at(int i) const { return _entries.at(i); }
    const Key& keyAt(int i) const { return _entries.at(i).key; }
    const Value& valueAt(int i) const { return _entries.at(i).value; }
    QList<Key> keys() const
    {
        QList<Key> keys;
        keys.reserve(_entries.size());
        for (const Entry& entry : _entries)
            keys.append(entry.key);
        return keys;
    }
    QList<Value> values() const
    {
        QList<Value> values;
        values.reserve(_entries.size());
        for (const Entry& entry : _entries)
            values.append(entry.value);
        return values;
    }

    const_iterator begin() const { return _entries.constBegin(); }
    const_iterator end() const { return _entries.constEnd(); }

    /// Stores `value` under `key`. A key that is present keeps its place in the order.
    void insert(const Key& key, const Value& value)
    {
        const int i = indexOf(key);
        if (i >= 0) {
            _entries[i].value = value;
            return;
        }
        _entries.append(Entry{key, value});
        if (!_index.isEmpty())
            _index.insert(key, _entries.size() - 1);
        else if (_entries.size() > IndexFrom)
            _buildIndex();
    }
    /// Removes `key`; gives whether it was there.
    bool remove(const Key& key)
    {
        const int i = indexOf(key);
        if (i < 0)
            return false;
        _entries.remove(i);
        _index.clear();
        if (_entries.size() > IndexFrom)
            _buildIndex();
        return true;
    }
    void clear()
    {
        _entries.clear();
        _index.clear();
    }

    /// Equal when the same entries stand in the same order.
    friend bool operator==(const MbbOrderedMap& a, const MbbOrderedMap& b) { return a._entries == b._entries; }
    friend bool operator!=(const MbbOrderedMap& a, const MbbOrderedMap& b) { return !(a == b); }

private:
    static constexpr int IndexFrom = 16;

    void _buildIndex()
    {
        _index.reserve(_entries.size());
        for (int i = 0; i < _entries.size(); ++i)
            _index.insert(_entries.at(i).key, i);
    }

    QVector<Entry> _entries;
    QHash<Key, int> _index;
};
