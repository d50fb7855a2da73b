#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaEnumConfig.h>

#include <optional>

class MbbAEnum;

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<int, KpaEnumConfig>;

/// One choice among items that callers fill in at run time. The choice follows its item, by key or else by label, when
/// the items are refilled. A fresh enumeration has no items and the value 0.
///
/// A key or label that is not found goes to Qt's debug log, and nothing changes.
class KESTRIN_PARAM_EXPORT KpaEnum : public KpaAAtomic<int, KpaEnumConfig>
{
public:
    explicit KpaEnum(const QString& key);
    KpaEnum(const KpaEnum& other, const QString& newKey);
    KpaEnum* duplicate(const QString& newKey) const override;

    int getItemCount() const { return _config.getItemCount(); }
    bool isEmpty() const { return _config.isEmpty(); }
    /// A default record where there is no such item.
    KpaItemDef getItemAt(int index) const { return _config.getItemAt(index); }
    KpaItemDef getItemFromValue(int value) const { return _config.getItemFromValue(value); }
    /// Key and label of the value; empty if it is no item.
    QString getItemKey() const { return _config.valueToKey(_value); }
    QString getItemLabel() const { return _config.valueToLabel(_value); }
    QString getKeyForItem(int value) const { return _config.valueToKey(value); }
    QString getLabelForItem(int value) const { return _config.valueToLabel(value); }
    QPixmap getPixmapForItem(int value) const { return _config.getItemPixmap(value); }
    bool hasPixmapForItem(int value) const { return _config.hasItemPixmap(value); }
    bool hasKey(const QString& key) const { return _config.hasKey(key); }
    bool hasLabel(const QString& label) const { return _config.hasLabel(label); }
    bool hasValue(int value) const { return _config.hasValue(value); }
    /// Whether the items are the same, record by record.
    bool hasSameKeys(const KpaEnum& other) const { return _config.hasSameKeys(other._config); }
    bool isItemEnabled(int value) const { return _config.isItemEnabled(value); }
    bool isItemEnabled(const MbbAEnum& item) const { return _config.isItemEnabled(item); }
    const QList<int>& getSeparators() const { return _config.getSeparators(); }

    /// Appends the item, or puts it in the place of the one that has its value.
    void addItem(const KpaItemDef& item) { _configChangedIf(_config.addItem(item)); }
    void addItem(const MbbAEnum& item) { addItem(KpaItemDef(item)); }
    /// Adds the item unless there is one with its value, or removes the one that has its value.
    void addOrRemoveItem(bool add, const KpaItemDef& item);
    void removeItem(int value) { _configChangedIf(_config.removeItem(value)); }
    void removeItem(const QString& label);
    /// Replaces all items. A loaded key comes first; else the choice stays with its item, which is no change of value
    /// even if the item has another number now.
    void reset(const QList<KpaItemDef>& items);
    /// Removes all items; the value becomes -1, which is told only if there were items. A loaded key stays.
    void clear();
    void setItemEnabled(int value, bool enabled) { _configChangedIf(_config.setItemEnabled(value, enabled)); }
    void setItemEnabled(const MbbAEnum& item, bool enabled);
    void setItemPixmap(int value, const QPixmap& pixmap) { _configChangedIf(_config.setItemPixmap(value, pixmap)); }
    /// A label that is not found changes nothing.
    void setItemPixmap(const QString& label, const QPixmap& pixmap);
    void setSeparators(const QList<int>& separators) { _configChangedIf(_config.setSeparators(separators)); }

    void setItemFromKey(const QString& key);
    void setItemFromLabel(const QString& label);
    void setEnum(const MbbAEnum& item);
    void setAutoItemFromKey(const QString& key);
    void setAutoItemFromLabel(const QString& label);
    void setAutoEnum(const MbbAEnum& item);

private:
    bool _take(const std::optional<int>& value);
    bool _takeLoadedKey();
};
