#include <param/composite/KpcItemTable.h>

KpbAParameter* KpcItemTable::find(const QString& key) const
{
    if (!_indexed && _items.size() <= IndexFrom)
        return _items.value(_keys.indexOf(key));
    if (!_indexed)
        _buildIndex();
    return _index.value(key);
}

int KpcItemTable::rankOf(const KuoAObservable<KpnModif>* item) const
{
    for (const int rank : {_lastRank, _lastRank + 1}) {
        if (rank >= 0 && rank < _items.size() && _items[rank] == item)
            return _lastRank = rank;
    }
    int rank = _items.size() - 1;
    while (rank >= 0 && _items[rank] != item)
        --rank;
    if (rank >= 0)
        _lastRank = rank;
    return rank;
}

void KpcItemTable::_buildIndex() const
{
    _index.reserve(_items.size());
    for (int i = _items.size() - 1; i >= 0; --i)
        _index.insert(_keys[i], _items[i]);
    _indexed = true;
}

void KpcItemTable::_dropIndex()
{
    _index.clear();
    _indexed = false;
}

void KpcItemTable::append(KpbAParameter* item)
{
    if (_indexed && !_index.contains(item->getKey()))
        _index.insert(item->getKey(), item);
    _items.append(item);
    _keys.append(item->getKey());
}

KpbAParameter* KpcItemTable::takeAt(int rank)
{
    if (_indexed && _keysRepeat())
        _dropIndex();
    if (_indexed)
        _index.remove(_keys[rank]);
    _keys.removeAt(rank);
    return _items.takeAt(rank);
}

std::vector<KpbAParameter*> KpcItemTable::takeRanks(const std::vector<int>& ranks)
{
    _dropIndex();
    std::vector<KpbAParameter*> taken;
    taken.reserve(ranks.size());
    int kept = 0;
    for (int i = 0; i < _items.size(); ++i) {
        if (taken.size() < ranks.size() && ranks[taken.size()] == i) {
            taken.push_back(_items[i]);
            continue;
        }
        _items[kept] = _items[i];
        _keys[kept] = _keys[i];
        ++kept;
    }
    _items.erase(_items.begin() + kept, _items.end());
    _keys.erase(_keys.begin() + kept, _keys.end());
    return taken;
}

std::vector<KpbAParameter*> KpcItemTable::takeAll()
{
    _dropIndex();
    const std::vector<KpbAParameter*> taken(_items.cbegin(), _items.cend());
    _items.clear();
    _keys.clear();
    return taken;
}

void KpcItemTable::move(int from, int to)
{
    if (_indexed && _keysRepeat())
        _dropIndex();
    _items.move(from, to);
    _keys.move(from, to);
}
