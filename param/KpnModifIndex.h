#pragma once

#include <QtCore/QVector>

#include <param/KpnModif.h>

#include <cstddef>
#include <cstdint>
#include <vector>

/// Finds entries of a record by their paths, in constant time each. What it knows goes with `clear()`, which has to be
/// called when entries have changed their places; the next search makes it anew.
///
/// At first each origin is marked with the place of its entry, which costs no search and no memory. An origin bears one
/// mark at a time, so a table takes over where two records have marked it, and where one record names it twice.
class KpnModifIndex
{
public:
    using Entries = QVector<KpnModif::Entry>;

    void clear();
    /// The place of the entry with `path`, which must be valid; the number of entries if there is none.
    int find(const Entries& entries, const KpnPath& path);
    /// Takes in the last entry.
    void add(const Entries& entries);

private:
    void _makeMarks(const Entries& entries);
    void _makeTable(const Entries& entries);
    bool _mark(const Entries& entries, int at) const;
    void _place(const Entries& entries, int at);
    int _findInTable(const Entries& entries, const KpnPath& path) const;
    std::size_t _mask() const { return _table.size() - 1; }

    // Marks of this index bear this number; 0 if there are none.
    std::uint64_t _number = 0;
    // Places of entries plus one, 0 for none. The size is a power of two, at least twice the entries.
    std::vector<std::uint32_t> _table;
};

inline int KpnModifIndex::find(const Entries& entries, const KpnPath& path)
{
    if (_table.empty()) {
        if (_number == 0)
            _makeMarks(entries);
        if (_number != 0) {
            // A mark is never replaced by an earlier one: an origin whose mark is older has no entry here.
            const KpnLife::Place& place = path.getFirstLife()->place;
            if (place.index < _number)
                return entries.size();
            if (place.index == _number && entries[place.at].path == path)
                return place.at;
            _makeTable(entries);
        }
    }
    return _findInTable(entries, path);
}

inline void KpnModifIndex::add(const Entries& entries)
{
    const int at = entries.size() - 1;
    if (_table.empty() ? _number != 0 && !_mark(entries, at) : std::size_t(entries.size()) * 2 > _table.size())
        _makeTable(entries);
    else if (!_table.empty())
        _place(entries, at);
}

// Whether the entry can be found by the mark of its origin, or is not valid and so never looked for.
inline bool KpnModifIndex::_mark(const Entries& entries, int at) const
{
    const KpnPath& path = entries[at].path;
    if (!path.isValid())
        return true;
    KpnLife::Place& place = path.getFirstLife()->place;
    if (place.index >= _number)
        return false;
    place = {_number, at};
    return true;
}
