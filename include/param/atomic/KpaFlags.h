#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaFlagsConfig.h>

#include <QtCore/QMap>

class MbbAEnum;

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<QSet<int>, KpaFlagsConfig>;

/// Any subset of items that callers fill in at run time. Lists of keys, labels and values are in the order of the
/// items. Values, keys and labels that are no item's are passed over.
class KESTRIN_PARAM_EXPORT KpaFlags : public KpaAAtomic<QSet<int>, KpaFlagsConfig>
{
public:
    explicit KpaFlags(const QString& key);
    KpaFlags(const QString& key, const QList<KpaItemDef>& items);
    KpaFlags(const KpaFlags& other, const QString& newKey);
    KpaFlags* duplicate(const QString& newKey) const override;

    const MbbOrderedMap<int, KpaItemDef>& getFlags() const { return _config.getFlags(); }
    int getFlagCount() const { return getFlags().count(); }
    QStringList getFlagKeys() const;
    QStringList getFlagLabels() const;
    QList<int> getFlagValues() const { return getFlags().keys(); }
    /// The labels by value.
    QMap<int, QString> getItems() const;
    bool isItemEnabled(int value) const { return _config.isItemEnabled(value); }
    bool isItemEnabled(const MbbAEnum& item) const;

    bool hasCheckedFlags() const { return !_value.isEmpty(); }
    int getCheckedCount() const { return _value.size(); }
    QStringList getCheckedKeys() const;
    QStringList getCheckedLabels() const;
    QList<int> getCheckedValues() const;
    /// The labels by value.
    QMap<int, QString> getCheckedItems() const;
    bool testFlagFromValue(int value) const { return _value.contains(value); }
    bool testFlagFromKey(const QString& key) const;
    bool testFlagFromLabel(const QString& label) const;
    bool testFlagFromEnum(const MbbAEnum& item) const;

    /// Replaces all items, in one notification. Loaded keys come first; else what is checked stays checked as far as it
    /// can be, and with `checkNewFlags` what was not there before gets checked.
    void reset(const QList<KpaItemDef>& items, bool checkNewFlags);
    void clear() { _configChangedIf(_config.clear()); }
    void setItemEnabled(int value, bool enabled) { _configChangedIf(_config.setItemEnabled(value, enabled)); }
    void setItemEnabled(const MbbAEnum& item, bool enabled);

    void checkAll();
    void setFlagFromValue(int value, bool checked);
    void setFlagFromKey(const QString& key, bool checked);
    void setFlagFromLabel(const QString& label, bool checked);
    void setFlagFromEnum(const MbbAEnum& item, bool checked);
    /// What is not named gets unchecked.
    void setCheckedFlagsFromKeys(const QStringList& keys) { setValue(_config.keysToValue(keys)); }
    void setCheckedFlagsFromLabels(const QStringList& labels) { setValue(_config.labelsToValue(labels)); }

    const QList<int>& getSeparators() const { return _config.getSeparators(); }
    const QString& getEchoSeparator() const { return _config.getEchoSeparator(); }
    const QString& getEchoMessageNoItem() const { return _config.getEchoMessageNoItem(); }
    const QString& getEchoMessageItemCount() const { return _config.getEchoMessageItemCount(); }
    const QString& getEchoMessageAllItems() const { return _config.getEchoMessageAllItems(); }
    void setSeparators(const QList<int>& separators) { _configChangedIf(_config.setSeparators(separators)); }
    void setEchoSeparator(const QString& separator) { _configChangedIf(_config.setEchoSeparator(separator)); }
    void setEchoMessageNoItem(const QString& message) { _configChangedIf(_config.setEchoMessageNoItem(message)); }
    void setEchoMessageItemCount(const QString& message) { _configChangedIf(_config.setEchoMessageItemCount(message)); }
    void setEchoMessageAllItems(const QString& message) { _configChangedIf(_config.setEchoMessageAllItems(message)); }

private:
    QSet<int> _getAllValues() const;
    bool _takeLoadedKeys();
    bool _takeNewFlags(const QSet<int>& newFlags);
};
