#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaFlags.h>

#include <basic/MbbAEnum.h>

#include <QtCore/QObject>

template class KpaAAtomic<QSet<int>, KpaFlagsConfig>;

using KpaConfigTools::store;

namespace {

using Items = MbbOrderedMap<int, KpaItemDef>;
using Text = QString KpaItemDef::*;

const QLatin1Char bar('|');

struct Everything
{
    bool contains(int) const { return true; }
};

/// The text of each item whose value is among `chosen`, in the order of the items.
template <class Values>
QStringList texts(const Items& items, const Values& chosen, Text text)
{
    QStringList list;
    for (const auto& entry : items) {
        if (chosen.contains(entry.key))
            list.append(entry.value.*text);
    }
    return list;
}

template <class Values>
QMap<int, QString> labelsByValue(const Items& items, const Values& chosen)
{
    QMap<int, QString> labels;
    for (const auto& entry : items) {
        if (chosen.contains(entry.key))
            labels.insert(entry.key, entry.value.label);
    }
    return labels;
}

/// The values of all items whose text is among `wanted`.
QSet<int> valuesOf(const Items& items, Text text, const QStringList& wanted)
{
    const QSet<QString> set(wanted.begin(), wanted.end());
    QSet<int> values;
    for (const auto& entry : items) {
        if (set.contains(entry.value.*text))
            values.insert(entry.key);
    }
    return values;
}

} // namespace

KpaFlagsConfig::KpaFlagsConfig() : KpaFlagsConfig(QList<KpaItemDef>()) {}

KpaFlagsConfig::KpaFlagsConfig(const QList<KpaItemDef>& items)
    : _table(items),
      _echoSeparator(bar),
      _echoMessageAllItems(QObject::tr("All"))
{}

int KpaFlagsConfig::keyToValue(const QString& key) const
{
    int value = -1;
    hasKey(key, &value);
    return value;
}

int KpaFlagsConfig::labelToValue(const QString& label) const
{
    int value = -1;
    hasLabel(label, &value);
    return value;
}

QSet<int> KpaFlagsConfig::keysToValue(const QStringList& keys) const
{
    return valuesOf(getFlags(), &KpaItemDef::key, keys);
}

QSet<int> KpaFlagsConfig::labelsToValue(const QStringList& labels) const
{
    return valuesOf(getFlags(), &KpaItemDef::label, labels);
}

bool KpaFlagsConfig::setEchoSeparator(const QString& separator)
{
    return store(_echoSeparator, separator);
}

bool KpaFlagsConfig::setEchoMessageNoItem(const QString& message)
{
    return store(_echoMessageNoItem, message);
}

bool KpaFlagsConfig::setEchoMessageItemCount(const QString& message)
{
    return store(_echoMessageItemCount, message);
}

bool KpaFlagsConfig::setEchoMessageAllItems(const QString& message)
{
    return store(_echoMessageAllItems, message);
}

QSet<int> KpaFlagsConfig::fix(const QSet<int>& value, const QSet<int>& previous) const
{
    QSet<int> kept = value;
    for (const int member : value) {
        if (!isItemEnabled(member))
            kept.remove(member);
    }
    return kept.isEmpty() && !value.isEmpty() ? previous : kept;
}

QString KpaFlagsConfig::toString(const QSet<int>& value) const
{
    QStringList echo;
    for (const auto& [number, item] : getFlags()) {
        if (value.contains(number))
            echo.append(item.echoLabel.isEmpty() ? item.label : item.echoLabel);
    }
    return echo.join(_echoSeparator);
}

MbbOrderedMap<QString, QString> KpaFlagsConfig::serializeValue(const QSet<int>& value) const
{
    return KpaConfigTools::singleValue(texts(getFlags(), value, &KpaItemDef::key).join(bar));
}

QSet<int> KpaFlagsConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, const QSet<int>& previous) const
{
    const QStringList keys = map.value(KpaConfigTools::valueKey()).split(bar, Qt::SkipEmptyParts);
    if (!isEmpty())
        return keysToValue(keys);
    _loadedKeys = keys;
    return previous;
}

QString KpaFlagsConfig::debug() const
{
    return QStringLiteral("----- KpaFlagsConfig ---------\n") + _table.debug();
}

KpaFlags::KpaFlags(const QString& key) : KpaAAtomic(key, KpaFlagsConfig()) {}

KpaFlags::KpaFlags(const QString& key, const QList<KpaItemDef>& items) : KpaAAtomic(key, KpaFlagsConfig(items)) {}

KpaFlags::KpaFlags(const KpaFlags& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaFlags* KpaFlags::duplicate(const QString& newKey) const
{
    return new KpaFlags(*this, newKey);
}

QStringList KpaFlags::getFlagKeys() const
{
    return texts(getFlags(), Everything(), &KpaItemDef::key);
}

QStringList KpaFlags::getFlagLabels() const
{
    return texts(getFlags(), Everything(), &KpaItemDef::label);
}

QMap<int, QString> KpaFlags::getItems() const
{
    return labelsByValue(getFlags(), Everything());
}

bool KpaFlags::isItemEnabled(const MbbAEnum& item) const
{
    return isItemEnabled(item.getValue());
}

QStringList KpaFlags::getCheckedKeys() const
{
    return texts(getFlags(), _value, &KpaItemDef::key);
}

QStringList KpaFlags::getCheckedLabels() const
{
    return texts(getFlags(), _value, &KpaItemDef::label);
}

QList<int> KpaFlags::getCheckedValues() const
{
    QList<int> values;
    for (const auto& entry : getFlags()) {
        if (_value.contains(entry.key))
            values.append(entry.key);
    }
    return values;
}

QMap<int, QString> KpaFlags::getCheckedItems() const
{
    return labelsByValue(getFlags(), _value);
}

bool KpaFlags::testFlagFromKey(const QString& key) const
{
    int value = 0;
    return _config.hasKey(key, &value) && testFlagFromValue(value);
}

bool KpaFlags::testFlagFromLabel(const QString& label) const
{
    int value = 0;
    return _config.hasLabel(label, &value) && testFlagFromValue(value);
}

bool KpaFlags::testFlagFromEnum(const MbbAEnum& item) const
{
    return testFlagFromValue(item.getValue());
}

void KpaFlags::reset(const QList<KpaItemDef>& items, bool checkNewFlags)
{
    const QSet<int> former = _getAllValues();
    if (!_config.reset(items))
        return;
    const bool valueNotified =
        _takeLoadedKeys() || _takeNewFlags(checkNewFlags ? _getAllValues() - former : QSet<int>());
    if (isAutomaticValueInitialized() && _config.fix(_autoValue, _config.getInitialValue()) != _autoValue)
        _setAutomaticValueInitialized(false);
    _notify(valueNotified ? Kp::NotifyConfig | Kp::NotifyValue : Kp::NotificationFlags(Kp::NotifyConfig));
}

QSet<int> KpaFlags::_getAllValues() const
{
    const QList<int> values = getFlagValues();
    return QSet<int>(values.begin(), values.end());
}

bool KpaFlags::_takeLoadedKeys()
{
    const QSet<int> loaded = _config.keysToValue(_config.getLoadedKeys());
    if (loaded.isEmpty())
        return false;
    _value = _config.fix(loaded, _config.getInitialValue());
    _config.clearLoadedKeys();
    return true;
}

bool KpaFlags::_takeNewFlags(const QSet<int>& newFlags)
{
    return store(_value, _config.fix(_value + newFlags, _config.getInitialValue()));
}

void KpaFlags::setItemEnabled(const MbbAEnum& item, bool enabled)
{
    setItemEnabled(item.getValue(), enabled);
}

void KpaFlags::checkAll()
{
    setValue(_getAllValues());
}

void KpaFlags::setFlagFromValue(int value, bool checked)
{
    if (!_config.hasValue(value))
        return;
    QSet<int> values = _value;
    if (checked)
        values.insert(value);
    else
        values.remove(value);
    setValue(values);
}

void KpaFlags::setFlagFromKey(const QString& key, bool checked)
{
    int value = 0;
    if (_config.hasKey(key, &value))
        setFlagFromValue(value, checked);
}

void KpaFlags::setFlagFromLabel(const QString& label, bool checked)
{
    int value = 0;
    if (_config.hasLabel(label, &value))
        setFlagFromValue(value, checked);
}

void KpaFlags::setFlagFromEnum(const MbbAEnum& item, bool checked)
{
    setFlagFromValue(item.getValue(), checked);
}
