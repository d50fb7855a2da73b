#include "KpcRenamedRows.h"

#include <iterator>

QString KpcRenamedRows::look(int rank, const QString& name, const QString& target)
{
    _keep(rank, {});
    if (name.isEmpty())
        return target;
    Row row;
    row.name = _find(name);
    row.target = _follow(_find(target), rank);
    if (row.name != row.target)
        _keep(rank, row);
    return _names[std::size_t(row.target)].text;
}

int KpcRenamedRows::findFollower(int renaming, int rank) const
{
    const int name = _rows[std::size_t(renaming)].name;
    if (name < 0)
        return -1;
    const std::set<int>& followers = _names[std::size_t(name)].targetOf;
    const auto found = followers.upper_bound(rank);
    return found == followers.end() ? -1 : *found;
}

int KpcRenamedRows::_find(const QString& text)
{
    const auto found = _places.constFind(text);
    if (found != _places.constEnd())
        return *found;
    const int place = int(_names.size());
    _names.push_back({text, {}, {}});
    _places.insert(text, place);
    return place;
}

// From the last row above `rank` that renames the target, down the rows that rename on from there.
int KpcRenamedRows::_follow(int target, int rank) const
{
    const std::set<int>& renaming = _names[std::size_t(target)].renamedBy;
    auto row = renaming.lower_bound(rank);
    if (row == renaming.begin())
        return target;
    for (int at = *std::prev(row); at < rank;) {
        target = _rows[std::size_t(at)].target;
        const std::set<int>& next = _names[std::size_t(target)].renamedBy;
        row = next.upper_bound(at);
        if (row == next.end())
            break;
        at = *row;
    }
    return target;
}

void KpcRenamedRows::_keep(int rank, const Row& row)
{
    const auto index = std::size_t(rank);
    if (index >= _rows.size())
        _rows.resize(index + 1);
    Row& kept = _rows[index];
    if (kept.name >= 0) {
        _names[std::size_t(kept.name)].renamedBy.erase(rank);
        _names[std::size_t(kept.target)].targetOf.erase(rank);
    }
    kept = row;
    if (kept.name >= 0) {
        _names[std::size_t(kept.name)].renamedBy.insert(rank);
        _names[std::size_t(kept.target)].targetOf.insert(rank);
    }
}
