#include "KpcChildTable.h"

#include <param/KpbAParameter.h>

#include <QtCore/QHash>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

class KpcChildTable::Entry final : public KuoIGuard
{
public:
    Entry(KpcChildTable& table, KpbAParameter* child, std::size_t position)
        : position(std::uint32_t(position)),
          hash(qHash(child->getKey(), table._seed)),
          _table(table),
          _child(child),
          _key(child->getKey())
    {
        child->addGuard(this);
    }

    KpbAParameter* getChild() const { return _child; }
    /// The child's key, which outlives it.
    const QString& getKey() const { return _key; }

    void guardedDestroyed() override
    {
        _child = nullptr;
        _table._died(this);
    }

    std::uint32_t position;
    const uint hash;
    /// The next entry in the same bucket.
    Entry* next = nullptr;

private:
    KpcChildTable& _table;
    KpbAParameter* _child;
    const QString _key;
};

KpcChildTable::KpcChildTable() : _seed(uint(qGlobalQHashSeed())) {}

KpcChildTable::~KpcChildTable() = default;

KpbAParameter* KpcChildTable::at(int index) const
{
    if (index < 0 || index >= count())
        return nullptr;
    return _entries[_gaps == 0 ? std::size_t(index) : _position(index)]->getChild();
}

KpbAParameter* KpcChildTable::find(const QString& key) const
{
    const Entry* entry = _entryOf(key);
    return entry ? entry->getChild() : nullptr;
}

bool KpcChildTable::contains(const KpbAParameter* child) const
{
    return find(child->getKey()) == child;
}

std::vector<KuoPointer<KpbAParameter>> KpcChildTable::living() const
{
    std::vector<KuoPointer<KpbAParameter>> children;
    children.reserve(_entries.size());
    for (const auto& entry : _entries) {
        if (entry && entry->getChild())
            children.emplace_back(entry->getChild());
    }
    return children;
}

KpcChildTable::Entry* KpcChildTable::_entryOf(const QString& key) const
{
    if (_buckets.empty())
        return nullptr;
    const uint hash = qHash(key, _seed);
    Entry* entry = _buckets[hash & (_buckets.size() - 1)];
    while (entry && !(entry->hash == hash && entry->getKey() == key))
        entry = entry->next;
    return entry;
}

void KpcChildTable::_grow()
{
    const std::size_t capacity = std::max(FirstCapacity, _buckets.size() * 2);
    _entries.reserve(capacity);
    _buckets.assign(capacity, nullptr);
    for (const auto& entry : _entries) {
        if (entry && entry->getChild())
            _index(entry.get());
    }
}

void KpcChildTable::_index(Entry* entry)
{
    Entry*& bucket = _buckets[entry->hash & (_buckets.size() - 1)];
    entry->next = std::exchange(bucket, entry);
}

void KpcChildTable::_unindex(Entry* entry)
{
    Entry** link = &_buckets[entry->hash & (_buckets.size() - 1)];
    while (*link != entry)
        link = &(*link)->next;
    *link = entry->next;
}

void KpcChildTable::append(KpbAParameter* child)
{
    if (_entries.size() == _buckets.size())
        _grow();
    _entries.push_back(std::make_unique<Entry>(*this, child, _entries.size()));
    _index(_entries.back().get());
    if (!_filled.empty())
        _countLast();
}

void KpcChildTable::remove(const KpbAParameter* child)
{
    Entry* entry = _entryOf(child->getKey());
    if (!entry || entry->getChild() != child)
        return;
    _unindex(entry);
    _drop(entry);
}

void KpcChildTable::compress()
{
    for (Entry* entry : std::exchange(_dead, {}))
        _drop(entry);
}

void KpcChildTable::clear()
{
    _buckets.clear();
    _dead.clear();
    _filled.clear();
    _entries.clear();
    _gaps = 0;
}

void KpcChildTable::_died(Entry* entry)
{
    _unindex(entry);
    _dead.push_back(entry);
}

void KpcChildTable::_drop(const Entry* entry)
{
    const std::size_t position = entry->position;
    for (std::size_t i = position + 1; i < _filled.size(); i += i & -i)
        --_filled[i];
    _entries[position].reset();
    ++_gaps;
    while (!_entries.empty() && !_entries.back()) {
        _entries.pop_back();
        --_gaps;
    }
    if (!_filled.empty())
        _filled.resize(_entries.size() + 1);
    if (std::size_t(_gaps) * 2 > _entries.size())
        _closeGaps();
}

void KpcChildTable::_closeGaps()
{
    std::erase(_entries, nullptr);
    for (std::size_t i = 0; i < _entries.size(); ++i)
        _entries[i]->position = std::uint32_t(i);
    _gaps = 0;
    _filled.clear();
}

std::size_t KpcChildTable::_position(int index) const
{
    if (_filled.empty()) {
        _filled.assign(1, 0);
        while (_filled.size() <= _entries.size())
            _countLast();
    }
    std::size_t position = 0;
    for (std::size_t step = std::bit_floor(_entries.size()); step != 0; step /= 2) {
        if (position + step <= _entries.size() && _filled[position + step] <= index) {
            position += step;
            index -= _filled[position];
        }
    }
    return position;
}

void KpcChildTable::_countLast() const
{
    const std::size_t last = _filled.size();
    int filled = _entries[last - 1] ? 1 : 0;
    for (std::size_t step = 1; step < (last & -last); step *= 2)
        filled += _filled[last - step];
    _filled.push_back(filled);
}
