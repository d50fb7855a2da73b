#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaEnum.h>

#include <basic/MbbAEnum.h>

#include <QtCore/QDebug>

template class KpaAAtomic<int, KpaEnumConfig>;

namespace {

std::optional<int> valueOfKey(const KpaEnumConfig& config, const QString& key)
{
    int value = 0;
    return config.hasKey(key, &value) ? std::optional(value) : std::nullopt;
}

std::optional<int> valueOfLabel(const KpaEnumConfig& config, const QString& label)
{
    int value = 0;
    return config.hasLabel(label, &value) ? std::optional(value) : std::nullopt;
}

void logInvalid(const char* message, const QString& text)
{
    qDebug().noquote().nospace() << message << text << '"';
}

} // namespace

KpaEnumConfig::KpaEnumConfig(const QList<KpaItemDef>& items) : _table(items)
{
    _updateInitialValue();
}

QPixmap KpaEnumConfig::getItemPixmap(int value) const
{
    const KpaItemDef* item = _table.find(value);
    return item ? item->pixmap : QPixmap();
}

QString KpaEnumConfig::valueToKey(int value) const
{
    const KpaItemDef* item = _table.find(value);
    return item ? item->key : QString();
}

QString KpaEnumConfig::valueToLabel(int value) const
{
    const KpaItemDef* item = _table.find(value);
    return item ? item->label : QString();
}

bool KpaEnumConfig::isItemEnabled(const MbbAEnum& item) const
{
    return isItemEnabled(item.getValue());
}

bool KpaEnumConfig::addItem(const KpaItemDef& item)
{
    const bool first = isEmpty();
    if (!_table.add(item))
        return false;
    if (first && item.enabled)
        _initialValue = item.value;
    return true;
}

bool KpaEnumConfig::reset(const QList<KpaItemDef>& items)
{
    if (!_table.reset(items))
        return false;
    _updateInitialValue();
    return true;
}

bool KpaEnumConfig::removeItem(int value)
{
    if (!_table.remove(value))
        return false;
    if (value == _initialValue)
        _updateInitialValue();
    return true;
}

bool KpaEnumConfig::clear()
{
    if (!_table.clear())
        return false;
    _updateInitialValue();
    return true;
}

void KpaEnumConfig::_updateInitialValue()
{
    if (isEmpty())
        _initialValue = 0;
    else if (const KpaItemDef* item = _table.findFirstEnabled())
        _initialValue = item->value;
}

int KpaEnumConfig::fix(int value, int previous) const
{
    if (isItemEnabled(value))
        return value;
    if (isItemEnabled(previous))
        return previous;
    const KpaItemDef* item = _table.findFirstEnabled();
    return item ? item->value : previous;
}

MbbOrderedMap<QString, QString> KpaEnumConfig::serializeValue(int value) const
{
    return KpaConfigTools::singleValue(valueToKey(value));
}

int KpaEnumConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, int previous) const
{
    const QString text = KpaConfigTools::withoutEscapes(map.value(KpaConfigTools::valueKey()));
    int value = previous;
    if (isEmpty())
        _loadedKey = text;
    else if (!hasKey(text, &value))
        hasLabel(text, &value);
    return value;
}

QString KpaEnumConfig::debug() const
{
    return QStringLiteral("----- KpaEnumConfig ----------\n") + _table.debug();
}

KpaEnum::KpaEnum(const QString& key) : KpaAAtomic(key, KpaEnumConfig()) {}

KpaEnum::KpaEnum(const KpaEnum& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaEnum* KpaEnum::duplicate(const QString& newKey) const
{
    return new KpaEnum(*this, newKey);
}

void KpaEnum::addOrRemoveItem(bool add, const KpaItemDef& item)
{
    if (!add)
        removeItem(item.value);
    else if (!hasValue(item.value))
        addItem(item);
}

void KpaEnum::removeItem(const QString& label)
{
    if (const auto value = valueOfLabel(_config, label))
        removeItem(*value);
    else
        logInvalid("KpaEnum::removeItem: invalid label: \"", label);
}

void KpaEnum::reset(const QList<KpaItemDef>& items)
{
    const bool hadItems = !isEmpty();
    const QString formerKey = getItemKey();
    const QString formerLabel = getItemLabel();
    if (!_config.reset(items))
        return;

    KuoLock<KpnModif> lock(this);
    if (_takeLoadedKey()) {
        _notify(Kp::NotifyValue);
    }
    else if (!hadItems || (!_take(valueOfKey(_config, formerKey)) && !_take(valueOfLabel(_config, formerLabel)))) {
        _value = _config.getInitialValue();
        _notify(Kp::NotifyValue);
    }
    _configChanged();
    lock.commit();
}

bool KpaEnum::_take(const std::optional<int>& value)
{
    if (!value || !isItemEnabled(*value))
        return false;
    _value = *value;
    return true;
}

bool KpaEnum::_takeLoadedKey()
{
    if (_config.getLoadedKey().isEmpty() || !_take(valueOfKey(_config, _config.getLoadedKey())))
        return false;
    _config.clearLoadedKey();
    return true;
}

void KpaEnum::clear()
{
    _value = -1;
    if (_config.clear())
        _notify(Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyItem);
}

void KpaEnum::setItemEnabled(const MbbAEnum& item, bool enabled)
{
    setItemEnabled(item.getValue(), enabled);
}

void KpaEnum::setItemPixmap(const QString& label, const QPixmap& pixmap)
{
    if (const auto value = valueOfLabel(_config, label))
        setItemPixmap(*value, pixmap);
}

void KpaEnum::setItemFromKey(const QString& key)
{
    if (const auto value = valueOfKey(_config, key))
        setValue(*value);
    else
        logInvalid("KpaEnum::setItemFromKey: invalid key: \"", key);
}

void KpaEnum::setItemFromLabel(const QString& label)
{
    if (const auto value = valueOfLabel(_config, label))
        setValue(*value);
    else
        logInvalid("KpaEnum::setItemFromLabel: invalid label: \"", label);
}

void KpaEnum::setEnum(const MbbAEnum& item)
{
    setValue(item.getValue());
}

void KpaEnum::setAutoItemFromKey(const QString& key)
{
    if (const auto value = valueOfKey(_config, key))
        setAutoValue(*value);
    else
        logInvalid("KpaEnum::setAutoItemFromKey: invalid key: \"", key);
}

void KpaEnum::setAutoItemFromLabel(const QString& label)
{
    if (const auto value = valueOfLabel(_config, label))
        setAutoValue(*value);
    else
        logInvalid("KpaEnum::setAutoItemFromLabel: invalid label: \"", label);
}

void KpaEnum::setAutoEnum(const MbbAEnum& item)
{
    setAutoValue(item.getValue());
}
