#pragma once

#include <param/KpbEType.h>
#include <param/atomic/KpaItemTable.h>

class MbbAEnum;

/// What an enumeration offers: its items. Setters give whether something changed.
///
/// A key that is read while there are no items is kept until the items come.
class KESTRIN_PARAM_EXPORT KpaEnumConfig
{
public:
    KpaEnumConfig() = default;
    explicit KpaEnumConfig(const QList<KpaItemDef>& items);

    /// All fields, the loaded key and the initial value included.
    friend bool operator==(const KpaEnumConfig& a, const KpaEnumConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::ENUM; }
    /// The first enabled item as of the last refill; 0 while there is none.
    int getInitialValue() const { return _initialValue; }

    const MbbOrderedMap<int, KpaItemDef>& getItems() const { return _table.getItems(); }
    int getItemCount() const { return getItems().count(); }
    bool isEmpty() const { return _table.isEmpty(); }
    /// A default record where there is no such item.
    KpaItemDef getItemAt(int index) const { return _table.getItemAt(index); }
    KpaItemDef getItemFromValue(int value) const { return getItems().value(value); }
    bool hasItemPixmap(int value) const { return !getItemPixmap(value).isNull(); }
    QPixmap getItemPixmap(int value) const;
    /// The first item with that key or label, compared exactly; its value goes to `value`.
    bool hasKey(const QString& key, int* value = nullptr) const { return _table.hasKey(key, value); }
    bool hasLabel(const QString& label, int* value = nullptr) const { return _table.hasLabel(label, value); }
    bool hasValue(int value) const { return _table.find(value); }
    /// Whether the items are the same, record by record.
    bool hasSameKeys(const KpaEnumConfig& other) const { return getItems() == other.getItems(); }
    bool isItemEnabled(int value) const { return _table.isEnabled(value); }
    bool isItemEnabled(const MbbAEnum& item) const;
    const QList<int>& getSeparators() const { return _table.getSeparators(); }
    /// Empty for a value that is no item.
    QString valueToKey(int value) const;
    QString valueToLabel(int value) const;
    /// The same again under the names that the parameter has.
    QString getKeyForItem(int value) const { return valueToKey(value); }
    QString getLabelForItem(int value) const { return valueToLabel(value); }
    QPixmap getPixmapForItem(int value) const { return getItemPixmap(value); }
    bool hasPixmapForItem(int value) const { return hasItemPixmap(value); }
    const QString& getLoadedKey() const { return _loadedKey; }

    /// Appends the item, or puts it in the place of the one that has its value.
    bool addItem(const KpaItemDef& item);
    /// Replaces all items.
    bool reset(const QList<KpaItemDef>& items);
    bool removeItem(int value);
    bool clear();
    bool setItemEnabled(int value, bool enabled) { return _table.setEnabled(value, enabled); }
    bool setItemPixmap(int value, const QPixmap& pixmap) { return _table.setPixmap(value, pixmap); }
    bool setSeparators(const QList<int>& separators) { return _table.setSeparators(separators); }
    void clearLoadedKey() { _loadedKey.clear(); }

    int fix(int value, int previous) const;
    QString toString(int value) const { return valueToLabel(value); }
    MbbOrderedMap<QString, QString> serializeValue(int value) const;
    int unserializeValue(const MbbOrderedMap<QString, QString>& map, int previous) const;
    QString debug() const;

private:
    void _updateInitialValue();

    KpaItemTable _table;
    // Reading a value does not change what is admissible, but a key that has no items yet to be found among must not be
    // lost.
    mutable QString _loadedKey;
    int _initialValue = 0;
};
