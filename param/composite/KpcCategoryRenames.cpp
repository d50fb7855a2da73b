#include "KpcCategoryRenames.h"

QString KpcCategoryRenames::follow(const QString& target) const
{
    const auto found = _groupOfName.constFind(target);
    return found == _groupOfName.constEnd() ? target : _groups[std::size_t(_find(*found))].target;
}

void KpcCategoryRenames::add(const QString& name, const QString& target)
{
    _redirect(name, target);
    _groupOfName.insert(name, _groupWith(target));
}

void KpcCategoryRenames::clear()
{
    _groups.clear();
    _groupOfName.clear();
    _groupOfTarget.clear();
}

// The ways are halved as they are gone.
int KpcCategoryRenames::_find(int group) const
{
    const auto next = [this](int of) -> int& { return _groups[std::size_t(of)].unitedWith; };
    while (next(group) != group) {
        next(group) = next(next(group));
        group = next(group);
    }
    return group;
}

int KpcCategoryRenames::_groupWith(const QString& target)
{
    const auto found = _groupOfTarget.constFind(target);
    if (found != _groupOfTarget.constEnd())
        return *found;
    const int group = int(_groups.size());
    _groups.push_back({target, group});
    _groupOfTarget.insert(target, group);
    return group;
}

void KpcCategoryRenames::_redirect(const QString& from, const QString& to)
{
    const auto found = _groupOfTarget.constFind(from);
    if (found == _groupOfTarget.constEnd() || from == to)
        return;
    Group& group = _groups[std::size_t(*found)];
    const auto there = _groupOfTarget.constFind(to);
    if (there == _groupOfTarget.constEnd()) {
        group.target = to;
        _groupOfTarget.insert(to, *found);
    }
    else {
        group.unitedWith = *there;
    }
    _groupOfTarget.remove(from);
}
