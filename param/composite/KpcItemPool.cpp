#include <param/composite/KpcItemPool.h>

#include <algorithm>
#include <utility>

KpcItemPool::KpcItemPool(KpcItemTable& table) : _keys(table.keys())
{
    _items = table.takeAll();
    _count = int(_items.size());
}

void KpcItemPool::_passGaps()
{
    while (_next < int(_items.size()) && !_items[std::size_t(_next)])
        ++_next;
}

KpbAParameter* KpcItemPool::_takeAt(int rank)
{
    KpbAParameter* item = std::exchange(_items[std::size_t(rank)], nullptr);
    if (item)
        --_count;
    return item;
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
    // Erasing looks for the next entry, however far that is: what has been taken goes only if its key is asked for
    // again.
    for (auto found = _ranks.find(key); found != _ranks.end() && found.key() == key; found = _ranks.erase(found)) {
        if (KpbAParameter* item = _takeAt(found.value()))
            return item;
    }
    return nullptr;
}

bool KpcItemPool::forget(const KuoAObservable<KpnModif>* item)
{
    _passGaps();
    const auto isItem = [&](const auto* each) { return each == item; };
    const auto found = std::find_if(_items.begin() + _next, _items.end(), isItem);
    return found != _items.end() && _takeAt(int(found - _items.begin()));
}
