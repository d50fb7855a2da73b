#include "KpcRenamedRows.h"

#include <limits>

void KpcRenamedRows::clear()
{
    *this = KpcRenamedRows();
    _knowsAbove = _knowsRows = true;
}

std::optional<QString> KpcRenamedRows::look(int rank, const Rename& rename)
{
    if (_knowsAbove && rank >= _lastRank)
        return _lookAtLast(rank, rename);
    if (!_knowsRows || !_isAlone(rank, rename))
        return std::nullopt;
    _knowsAbove = false;
    _keep(rank, rename);
    return rename.target;
}

QString KpcRenamedRows::_lookAtLast(int rank, const Rename& rename)
{
    if (rename.name.isEmpty()) {
        if (rank == _lastRank)
            _last = {};
        _keep(rank, {});
        return {};
    }
    if (rank > _lastRank && !_last.name.isEmpty())
        _above.add(_last.name, _last.target);
    _lastRank = rank;
    _last = {rename.name, _above.follow(rename.target)};
    _keep(rank, _last.name == _last.target ? Rename() : _last);
    return _last.target;
}

/// Whether the row keeps what it says, and so do those below it.
bool KpcRenamedRows::_isAlone(int rank, const Rename& rename) const
{
    if (rename.name.isEmpty())
        return true;
    const auto above = _names.lower_bound({rename.target, std::numeric_limits<int>::min()});
    if (above != _names.end() && above->first == rename.target && above->second < rank)
        return false;
    const auto below = _targets.upper_bound({rename.name, rank});
    return below == _targets.end() || below->first != rename.name;
}

void KpcRenamedRows::_keep(int rank, const Rename& rename)
{
    const auto index = std::size_t(rank);
    if (index >= _rows.size()) {
        if (rename.name.isEmpty())
            return;
        _rows.resize(index + 1);
    }
    Rename& kept = _rows[index];
    if (!kept.name.isEmpty()) {
        _names.erase({kept.name, rank});
        _targets.erase({kept.target, rank});
    }
    kept = rename;
    if (!kept.name.isEmpty()) {
        _names.insert({kept.name, rank});
        _targets.insert({kept.target, rank});
    }
}
