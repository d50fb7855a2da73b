#pragma once

#include <QtCore/QString>

#include <param/KuoPointer.h>

#include <memory>
#include <vector>

class KpbAParameter;

/// The children of a composite in order of arrival, guarded and not owned. A child that dies leaves an entry without a
/// child, which counts until the next `compress`. Keys are unique among living children.
///
/// Appending, removing, dying and finding by key take constant time on average. What is removed leaves a gap, and gaps
/// are closed when they are in the majority; an index is found in logarithmic time as long as there are gaps.
class KpcChildTable
{
public:
    KpcChildTable();
    ~KpcChildTable();
    KpcChildTable(const KpcChildTable&) = delete;
    KpcChildTable& operator=(const KpcChildTable&) = delete;

    int count() const { return int(_entries.size()) - _gaps; }
    /// Null for an index out of range and for a dead child.
    KpbAParameter* at(int index) const;
    KpbAParameter* find(const QString& key) const;
    bool contains(const KpbAParameter* child) const;
    /// The living children. The list is the caller's, and what dies later becomes null in it.
    std::vector<KuoPointer<KpbAParameter>> living() const;

    void append(KpbAParameter* child);
    void remove(const KpbAParameter* child);
    /// Drops the entries of dead children.
    void compress();
    void clear();

private:
    class Entry;

    static constexpr std::size_t FirstCapacity = 4;

    Entry* _entryOf(const QString& key) const;
    void _grow();
    void _index(Entry* entry);
    void _unindex(Entry* entry);
    void _died(Entry* entry);
    void _drop(const Entry* entry);
    void _closeGaps();
    std::size_t _position(int index) const;
    void _countLast() const;

    // Null is a gap; the last entry is none.
    std::vector<std::unique_ptr<Entry>> _entries;
    std::vector<Entry*> _dead;
    int _gaps = 0;
    // Empty, or a binary indexed tree: for each i from 1 on, how many of the last (i & -i) of the first i entries are
    // no gap.
    mutable std::vector<int> _filled;
    // The entries of living children by the hash of their key, modulo the number of buckets, which is a power of two.
    // Those of one bucket are linked through themselves: a child takes no memory here but its share of the buckets.
    std::vector<Entry*> _buckets;
    const uint _seed;
};
