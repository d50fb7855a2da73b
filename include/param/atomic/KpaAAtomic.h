#pragma once

#include <param/KpbAParameter.h>

#include <concepts>
#include <utility>

/// What an atomic needs of its configuration: a plain value that says which values are admissible, repairs them, prints
/// them and gives them a serial form.
///
/// - `getInitialValue()`: the value of a fresh atomic, and the fallback while the configuration changes.
/// - `fix(value, previous)`: the nearest admissible value; `previous` is what to fall back on where `value` says
/// nothing.
/// - `unserializeValue(map, previous)`: reads a value back; `previous` stands where the map has nothing usable.
/// - `debug()`: the configuration as text, several lines.
template <class Config, class T>
concept KpaAtomicConfig = std::default_initializable<Config> && std::copyable<Config> &&
    requires(const Config& config, const T& value, const MbbOrderedMap<QString, QString>& map)
{
    {
        config == config
        } -> std::convertible_to<bool>;
    {
        config != config
        } -> std::convertible_to<bool>;
    {
        config.getType()
        } -> std::convertible_to<const KpbEType&>;
    {
        config.getInitialValue()
        } -> std::convertible_to<T>;
    {
        config.fix(value, value)
        } -> std::convertible_to<T>;
    {
        config.toString(value)
        } -> std::convertible_to<QString>;
    {
        config.serializeValue(value)
        } -> std::convertible_to<MbbOrderedMap<QString, QString>>;
    {
        config.unserializeValue(map, value)
        } -> std::convertible_to<T>;
    {
        config.debug()
        } -> std::convertible_to<QString>;
};

/// A leaf of the parameter tree: one value, one automatic value, and the configuration that says what is admissible.
///
/// Every value goes through `fix` before it is stored. A change by a caller ends the automatic mode; automatic values
/// are the only way in which the value changes while the mode stays on. No bad value is reported: it is repaired, and
/// observers are told where a request was refused. Changes come as one record each.
template <class T, KpaAtomicConfig<T> Config>
class Q_DECL_EXPORT KpaAAtomic : public KpbAParameter
{
public:
    using ValueType = T;
    using ConfigType = Config;

    KpaAAtomic(const QString& key, const Config& config)
        : KpbAParameter(config.getType(), key),
          _value(config.getInitialValue()),
          _autoValue(_value),
          _config(config)
    {}

    const T& getValue() const { return _value; }
    const T& getAutoValue() const { return _autoValue; }
    const Config& getConfig() const { return _config; }

    /// Stores the admissible value nearest to `value`. A new value ends the automatic mode. Where the value stays and
    /// was not what was asked for, observers are told, so that a view of the request falls back.
    void setValue(const T& value);
    /// Stores the value for the automatic mode; an automatic parameter takes it over at once.
    void setAutoValue(const T& value);
    /// Takes over all of `config` and repairs the value to fit it.
    void setConfig(const Config& config);

    /// Offers the automatic mode and switches it on.
    void activateAutoValue();
    void activateAutoValue(const T& value);
    /// Forgets the automatic value. Value and mode stay.
    void unsetAutoValue();

    bool hasChildren() const override { return false; }
    int getChildCount() const override { return 0; }
    KpbAParameter* getChild(const QString&) const override { return nullptr; }
    KpbAParameter* getChild(int) const override { return nullptr; }

    SerialForm serialize() const override { return _config.serializeValue(_value); }
    void unserialize(const SerialForm& map) override { setValue(_config.unserializeValue(map, _value)); }
    QString toString() const override { return _config.toString(_value); }
    QString debug(int depth) const override;

protected:
    KpaAAtomic(const KpaAAtomic& other, const QString& key)
        : KpbAParameter(other, key),
          _value(other._value),
          _autoValue(other._autoValue),
          _config(other._config)
    {}

    /// What every setter of a configuration field runs once it has changed something: repairs the value, and drops an
    /// automatic value that does not fit any more.
    void _configChanged();
    void _configChangedIf(bool changed)
    {
        if (changed)
            _configChanged();
    }

    T _value;
    T _autoValue;
    Config _config;

private:
    void _setValueAuto() override;
};

template <class T, KpaAtomicConfig<T> Config>
void KpaAAtomic<T, Config>::setValue(const T& value)
{
    T fixed = _config.fix(value, _value);
    if (!(fixed != _value)) {
        const bool refused = !(fixed == value);
        _value = std::move(fixed);
        if (refused)
            _notify(Kp::NotifyValue);
        return;
    }
    _value = std::move(fixed);
    _notifyBatch(_setAutoFlag(false) ? Kp::NotifyValue | Kp::NotifyConfig : Kp::NotifyValue);
}

template <class T, KpaAtomicConfig<T> Config>
void KpaAAtomic<T, Config>::_setValueAuto()
{
    if (!(_autoValue != _value))
        return;
    _value = _autoValue;
    _notify(Kp::NotifyValue);
}

template <class T, KpaAtomicConfig<T> Config>
void KpaAAtomic<T, Config>::setAutoValue(const T& value)
{
    const bool hadAuto = isAutomaticValueInitialized();
    T fixed = _config.fix(value, hadAuto ? _autoValue : T(_config.getInitialValue()));
    const bool changed = fixed != _autoValue;
    if (changed)
        _autoValue = std::move(fixed);
    _setAutomaticValueInitialized(true);
    if (!isAutomatic()) {
        if (changed || !hadAuto)
            _notifyBatch(Kp::NotifyConfig);
        else
            _emptyBatch();
        return;
    }
    KuoLock<KpnModif> lock(this);
    if (changed || !hadAuto)
        _notify(Kp::NotifyConfig);
    _setValueAuto();
    lock.commit();
}

template <class T, KpaAtomicConfig<T> Config>
void KpaAAtomic<T, Config>::setConfig(const Config& config)
{
    if (!(_config != config))
        return;
    _config = config;
    _configChanged();
}

template <class T, KpaAtomicConfig<T> Config>
void KpaAAtomic<T, Config>::activateAutoValue()
{
    const KuoPointer<KpbAParameter> self(this);
    setAutomaticEnabled(true);
    if (self)
        setAutomatic(true);
}

template <class T, KpaAtomicConfig<T> Config>
void KpaAAtomic<T, Config>::activateAutoValue(const T& value)
{
    const KuoPointer<KpbAParameter> self(this);
    activateAutoValue();
    if (self)
        setAutoValue(value);
}

template <class T, KpaAtomicConfig<T> Config>
void KpaAAtomic<T, Config>::unsetAutoValue()
{
    if (!isAutomaticValueInitialized())
        return;
    _setAutomaticValueInitialized(false);
    _notify(Kp::NotifyConfig);
}

template <class T, KpaAtomicConfig<T> Config>
void KpaAAtomic<T, Config>::_configChanged()
{
    Kp::NotificationFlags flags = Kp::NotifyConfig;
    T fixed = _config.fix(_value, _config.getInitialValue());
    if (fixed != _value) {
        _value = std::move(fixed);
        flags |= Kp::NotifyValue;
    }
    if (isAutomaticValueInitialized() && _config.fix(_autoValue, _config.getInitialValue()) != _autoValue)
        _setAutomaticValueInitialized(false);
    _notifyBatch(flags);
}

template <class T, KpaAtomicConfig<T> Config>
QString KpaAAtomic<T, Config>::debug(int depth) const
{
    const QString text = KpbAParameter::debug(depth);
    return depth < 1 ? text : text + _config.debug();
}
