#pragma once

#include <QtCore/QList>

#include <basic/MbbOrderedMap.h>
#include <param/atomic/KpaItemDef.h>

/// What the configurations of enumerations and flag sets have in common: the items by value, in the order of insertion,
/// and the places at which a user interface puts separators. Setters give whether something changed.
///
/// Lookup by value does not depend on the number of items; lookup by key or label walks them in order, compares exactly
/// and gives the first match. What is found lives until the table changes; null where there is nothing.
class KESTRIN_PARAM_EXPORT KpaItemTable
{
public:
    using Items = MbbOrderedMap<int, KpaItemDef>;

    KpaItemTable() = default;
    /// Of items with the same value, the last stands at the place of the first.
    explicit KpaItemTable(const QList<KpaItemDef>& items);

    /// All fields.
    friend bool operator==(const KpaItemTable& a, const KpaItemTable& b) = default;

    const Items& getItems() const { return _items; }
    const QList<int>& getSeparators() const { return _separators; }
    bool isEmpty() const { return _items.isEmpty(); }
    /// A default record where `index` is out of range.
    KpaItemDef getItemAt(int index) const;

    const KpaItemDef* find(int value) const { return _items.find(value); }
    const KpaItemDef* findKey(const QString& key) const;
    const KpaItemDef* findLabel(const QString& label) const;
    const KpaItemDef* findFirstEnabled() const;
    bool isEnabled(int value) const;
    /// Whether there is an item with that key or label; its value goes to `value`, which may be null.
    bool hasKey(const QString& key, int* value) const;
    bool hasLabel(const QString& label, int* value) const;

    /// Appends the item, or puts it in the place of the one that has its value.
    bool add(const KpaItemDef& item);
    /// Replaces all items.
    bool reset(const QList<KpaItemDef>& items);
    bool remove(int value) { return _items.remove(value); }
    bool clear();
    bool setEnabled(int value, bool enabled);
    bool setPixmap(int value, const QPixmap& pixmap);
    bool setSeparators(const QList<int>& separators);

    /// One line per item.
    QString debug() const;

private:
    Items _items;
    QList<int> _separators;
};
