#include "KpnModifIndex.h"

#include <atomic>
#include <param/KpnLife.h>

namespace {

// Later indices have greater numbers.
std::uint64_t nextNumber()
{
    static std::atomic<std::uint64_t> last{0};
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

} // namespace

void KpnModifIndex::clear()
{
    _number = 0;
    _table.clear();
}

void KpnModifIndex::_makeMarks(const Entries& entries)
{
    _number = nextNumber();
    for (int at = 0; at < entries.size(); ++at) {
        if (!_mark(entries, at)) {
            _makeTable(entries);
            return;
        }
    }
}

void KpnModifIndex::_makeTable(const Entries& entries)
{
    std::size_t size = 32;
    while (size < std::size_t(entries.size()) * 4)
        size *= 2;
    _number = 0;
    _table.assign(size, 0);
    for (int at = 0; at < entries.size(); ++at)
        _place(entries, at);
}

void KpnModifIndex::_place(const Entries& entries, int at)
{
    std::size_t slot = entries[at].path.hash() & _mask();
    while (_table[slot] != 0)
        slot = (slot + 1) & _mask();
    _table[slot] = std::uint32_t(at + 1);
}

int KpnModifIndex::_findInTable(const Entries& entries, const KpnPath& path) const
{
    for (std::size_t slot = path.hash() & _mask(); _table[slot] != 0; slot = (slot + 1) & _mask()) {
        if (entries[int(_table[slot] - 1)].path == path)
            return int(_table[slot] - 1);
    }
    return entries.size();
}
