#include "PlainList.h"

#include <algorithm>
#include <set>
#include <utility>

namespace {

QList<double> distinct(const QList<double>& values)
{
    constexpr double tolerance = 1e-10;
    std::set<double> kept;
    QList<double> distinct;
    for (const double value : values) {
        const auto near = kept.lower_bound(value - tolerance);
        if (near != kept.end() && *near < value + tolerance)
            continue;
        kept.insert(value);
        distinct.append(value);
    }
    return distinct;
}

} // namespace

PlainList::~PlainList()
{
    for (const Item& item : std::exchange(_items, {}))
        _destroy(item.leaf);
}

PlainList* PlainList::duplicate() const
{
    auto* copy = new PlainList(getKey());
    copy->setLabel(getLabel());
    copy->setRange(_minimum, _maximum);
    copy->setUnique(_unique);
    for (const Item& item : _items)
        copy->_append(item.leaf->duplicate());
    copy->_lastId = _lastId;
    return copy;
}

QStringList PlainList::getItemKeys() const
{
    QStringList keys;
    for (const Item& item : _items)
        keys.append(item.key);
    return keys;
}

void PlainList::resetItemKeys(const QStringList& keys)
{
    QHash<QString, PlainLeaf*> left = std::exchange(_index, {});
    _items.clear();
    for (const QString& key : keys) {
        PlainLeaf* leaf = left.take(key);
        if (leaf) {
            _items.push_back({leaf, key});
            _index.insert(key, leaf);
        }
        else {
            _append(_makeLeaf(key));
        }
    }
    for (PlainLeaf* leaf : qAsConst(left))
        _destroy(leaf);
    _lastId = 0;
    for (const QString& key : keys)
        _lastId = std::max(_lastId, key.midRef(5).toInt());
    _renumber(0);
    Q_EMIT changed(this);
}

QList<double> PlainList::getValues() const
{
    QList<double> values;
    for (const Item& item : _items)
        values.append(item.leaf->getValue());
    return values;
}

void PlainList::setValues(const QList<double>& values)
{
    const QList<double> admissible = _unique ? distinct(values) : values;
    while (getItemCount() > admissible.size()) {
        PlainLeaf* leaf = getLastItem();
        _index.remove(_items.back().key);
        _items.pop_back();
        _destroy(leaf);
    }
    while (getItemCount() < admissible.size())
        _append(_makeLeaf(QStringLiteral("ITEM_%1").arg(++_lastId)));
    _renumber(0);
    for (int i = 0; i < admissible.size(); ++i)
        getItemAt(i)->setValue(admissible.at(i));
    Q_EMIT changed(this);
}

void PlainList::setRange(double minimum, double maximum)
{
    _minimum = minimum;
    _maximum = maximum;
}

PlainLeaf* PlainList::_makeLeaf(const QString& key)
{
    auto* leaf = new PlainLeaf(key);
    leaf->setRange(_minimum, _maximum);
    return leaf;
}

void PlainList::_append(PlainLeaf* leaf)
{
    leaf->setParent(this);
    _items.push_back({leaf, leaf->getKey()});
    _index.insert(leaf->getKey(), leaf);
    connect(leaf, &PlainNode::changed, this, &PlainNode::changed);
    connect(leaf, &QObject::destroyed, this, &PlainList::_forget);
}

void PlainList::_destroy(PlainLeaf* leaf)
{
    leaf->disconnect(this);
    delete leaf;
}

void PlainList::_forget(const QObject* leaf)
{
    const auto found =
        std::find_if(_items.rbegin(), _items.rend(), [&](const Item& item) { return item.leaf == leaf; });
    const auto item = std::prev(found.base());
    const auto rank = int(item - _items.begin());
    _index.remove(item->key);
    _items.erase(item);
    _renumber(rank);
    Q_EMIT changed(this);
}

void PlainList::_renumber(int from)
{
    const QString prefix = getLabel() + QLatin1String(" #");
    for (int i = from; i < getItemCount(); ++i)
        getItemAt(i)->setLabel(prefix + QString::number(i + 1));
}
