#include <param/composite/KpcItemPool.h>

#include <algorithm>
#include <utility>

KpcItemPool::KpcItemPool(KpcItemTable& table) : _keys(table.keys())
{
    _items = table.takeAll();
}

void KpcItemPool::_passGaps()
{
    while (_next < int(_items.size()) && !_items[std::size_t(_next)])
        ++_next;
}

KpbAParameter* KpcItemPool::_takeAt(int rank)
{
    return std::exchange(_items[std::size_t(rank)], nullptr);
}

KpbAParameter* KpcItemPool::takeNext()
{
    _passGaps();
    return _next < int(_items.size()) ? _takeAt(_next) : nullptr;
}

KpbAParameter* KpcItemPool::take(const QString& key)
{
    _passGaps();
    if (_next == int(_items.size()))
        return nullptr;
    if (_keys[_next] == key)
        return _takeAt(_next);
    if (!std::exchange(_indexed, true)) {
        // Of entries with one key, the last that came in is the first that is found.
        for (int i = int(_items.size()) - 1; i >= _next; --i)
            _ranks.insert(_keys[i], i);
    }
    for (auto found = _ranks.find(key); found != _ranks.end() && found.key() == key; found = _ranks.erase(found)) {
        if (KpbAParameter* item = _takeAt(found.value())) {
            _ranks.erase(found);
            return item;
        }
    }
    return nullptr;
}

bool KpcItemPool::forget(const KuoAObservable<KpnModif>* item)
{
    const auto found = std::find_if(_items.begin(), _items.end(), [&](const auto* each) { return each == item; });
    if (found == _items.end())
        return false;
    *found = nullptr;
    return true;
}
