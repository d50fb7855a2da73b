#pragma once

#include <QtCore/QSet>
#include <QtCore/QStringList>

#include <param/KpbEType.h>
#include <param/atomic/KpaItemTable.h>

/// What a flag set offers: its items, and the texts of its echo. Setters give whether something changed.
///
/// Keys that are read while there are no items are kept until the items come.
class KESTRIN_PARAM_EXPORT KpaFlagsConfig
{
public:
    KpaFlagsConfig();
    explicit KpaFlagsConfig(const QList<KpaItemDef>& items);

    /// All fields, the loaded keys included.
    friend bool operator==(const KpaFlagsConfig& a, const KpaFlagsConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::FLAGS; }
    QSet<int> getInitialValue() const { return {}; }

    const MbbOrderedMap<int, KpaItemDef>& getFlags() const { return _table.getItems(); }
    bool isEmpty() const { return _table.isEmpty(); }
    /// The first item with that key or label, compared exactly; its value goes to `value`.
    bool hasKey(const QString& key, int* value = nullptr) const { return _table.hasKey(key, value); }
    bool hasLabel(const QString& label, int* value = nullptr) const { return _table.hasLabel(label, value); }
    bool hasValue(int value) const { return _table.find(value); }
    bool isItemEnabled(int value) const { return _table.isEnabled(value); }
    /// -1 where there is none.
    int keyToValue(const QString& key) const;
    int labelToValue(const QString& label) const;
    /// The values of all items whose key, or label, is among the given ones; others are passed over.
    QSet<int> keysToValue(const QStringList& keys) const;
    QSet<int> labelsToValue(const QStringList& labels) const;
    const QStringList& getLoadedKeys() const { return _loadedKeys; }
    const QList<int>& getSeparators() const { return _table.getSeparators(); }
    /// What stands between the labels in `toString`.
    const QString& getEchoSeparator() const { return _echoSeparator; }
    /// What a user interface shows when nothing is checked, to give a count, and when everything is checked.
    const QString& getEchoMessageNoItem() const { return _echoMessageNoItem; }
    const QString& getEchoMessageItemCount() const { return _echoMessageItemCount; }
    const QString& getEchoMessageAllItems() const { return _echoMessageAllItems; }

    /// Replaces all items.
    bool reset(const QList<KpaItemDef>& items) { return _table.reset(items); }
    bool clear() { return _table.clear(); }
    bool setItemEnabled(int value, bool enabled) { return _table.setEnabled(value, enabled); }
    bool setSeparators(const QList<int>& separators) { return _table.setSeparators(separators); }
    void clearLoadedKeys() { _loadedKeys.clear(); }
    bool setEchoSeparator(const QString& separator);
    bool setEchoMessageNoItem(const QString& message);
    bool setEchoMessageItemCount(const QString& message);
    bool setEchoMessageAllItems(const QString& message);

    /// The members that can be chosen; if that leaves nothing of a request, `previous`. The empty set stands.
    QSet<int> fix(const QSet<int>& value, const QSet<int>& previous) const;
    QString toString(const QSet<int>& value) const;
    MbbOrderedMap<QString, QString> serializeValue(const QSet<int>& value) const;
    QSet<int> unserializeValue(const MbbOrderedMap<QString, QString>& map, const QSet<int>& previous) const;
    QString debug() const;

private:
    KpaItemTable _table;
    // Reading a value does not change what is admissible, but keys that have no items yet to be found among must not be
    // lost.
    mutable QStringList _loadedKeys;
    QString _echoSeparator;
    QString _echoMessageNoItem;
    QString _echoMessageItemCount;
    QString _echoMessageAllItems;
};
