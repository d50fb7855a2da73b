#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaItemTable.h>

namespace {

KpaItemTable::Items itemsByValue(const QList<KpaItemDef>& list)
{
    KpaItemTable::Items items;
    for (const KpaItemDef& item : list)
        items.insert(item.value, item);
    return items;
}

template <class Fits>
const KpaItemDef* findFirst(const KpaItemTable::Items& items, Fits fits)
{
    for (const auto& entry : items) {
        if (fits(entry.value))
            return &entry.value;
    }
    return nullptr;
}

bool tellValue(const KpaItemDef* item, int* value)
{
    if (item && value)
        *value = item->value;
    return item != nullptr;
}

} // namespace

KpaItemTable::KpaItemTable(const QList<KpaItemDef>& items) : _items(itemsByValue(items)) {}

KpaItemDef KpaItemTable::getItemAt(int index) const
{
    return index < 0 || index >= _items.count() ? KpaItemDef() : _items.valueAt(index);
}

const KpaItemDef* KpaItemTable::findKey(const QString& key) const
{
    return findFirst(_items, [&](const KpaItemDef& item) { return item.key == key; });
}

const KpaItemDef* KpaItemTable::findLabel(const QString& label) const
{
    return findFirst(_items, [&](const KpaItemDef& item) { return item.label == label; });
}

const KpaItemDef* KpaItemTable::findFirstEnabled() const
{
    return findFirst(_items, [](const KpaItemDef& item) { return item.enabled; });
}

bool KpaItemTable::isEnabled(int value) const
{
    const KpaItemDef* item = find(value);
    return item && item->enabled;
}

bool KpaItemTable::hasKey(const QString& key, int* value) const
{
    return tellValue(findKey(key), value);
}

bool KpaItemTable::hasLabel(const QString& label, int* value) const
{
    return tellValue(findLabel(label), value);
}

bool KpaItemTable::add(const KpaItemDef& item)
{
    const KpaItemDef* present = find(item.value);
    if (present && *present == item)
        return false;
    _items.insert(item.value, item);
    return true;
}

bool KpaItemTable::reset(const QList<KpaItemDef>& items)
{
    return KpaConfigTools::store(_items, itemsByValue(items));
}

bool KpaItemTable::clear()
{
    return KpaConfigTools::store(_items, Items());
}

bool KpaItemTable::setEnabled(int value, bool enabled)
{
    const KpaItemDef* present = find(value);
    if (!present || present->enabled == enabled)
        return false;
    KpaItemDef item = *present;
    item.enabled = enabled;
    return add(item);
}

bool KpaItemTable::setPixmap(int value, const QPixmap& pixmap)
{
    const KpaItemDef* present = find(value);
    if (!present)
        return false;
    KpaItemDef item = *present;
    item.pixmap = pixmap;
    return add(item);
}

bool KpaItemTable::setSeparators(const QList<int>& separators)
{
    return KpaConfigTools::store(_separators, separators);
}

QString KpaItemTable::debug() const
{
    QString text;
    QTextStream stream(&text);
    int number = 0;
    for (const auto& [value, item] : _items) {
        stream << " item #" << number++ << "          = [ " << value << "  " << item.key << "  \"" << item.label
               << "\" ]"
               << "  " << (item.enabled ? "enabled" : "disabled") << item.comment
               << (item.pixmap.isNull() ? " (null pixmap)" : " (pixmap)") << '\n';
    }
    stream.flush();
    return text;
}
