#include <param/KpsSerializer.h>
#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaInteger.h>

#include <algorithm>
#include <cmath>
#include <limits>

template class KpaAAtomic<int, KpaIntegerConfig>;

using KpaConfigTools::store;

bool KpaIntegerConfig::setStep(int step)
{
    return store(_step, step);
}

bool KpaIntegerConfig::setMinimum(int minimum)
{
    return store(_minimum, minimum);
}

bool KpaIntegerConfig::setMaximum(int maximum)
{
    return store(_maximum, maximum);
}

bool KpaIntegerConfig::setUndefineEnabled(bool enabled)
{
    return store(_undefineEnabled, enabled);
}

bool KpaIntegerConfig::setWrapped(bool wrapped)
{
    return store(_wrapped, wrapped);
}

int KpaIntegerConfig::fix(int value, int previous) const
{
    if (!isDefined(value)) {
        if (_undefineEnabled)
            return value;
        value = isDefined(previous) ? previous : 0;
    }
    if (isMinimumDefined() && isMaximumDefined())
        return _wrapped ? _wrappedFix(value) : std::max(std::min(value, _maximum), _minimum);
    if (isMinimumDefined())
        return std::max(value, _minimum);
    if (isMaximumDefined())
        return std::min(value, _maximum);
    return value;
}

int KpaIntegerConfig::_wrappedFix(int value) const
{
    const qint64 range = qint64(_maximum) - _minimum;
    if (range == 0)
        return _minimum;
    const auto turns = [&](qint64 distance) { return qint64(std::trunc(double(distance) / double(range))) + 1; };
    qint64 fixed = value;
    if (value >= _maximum)
        fixed -= turns(qint64(value) - _maximum) * range;
    else if (value < _minimum)
        fixed += turns(qint64(_minimum) - value) * range;
    // Crossed limits can lead out of what an int holds.
    return int(std::clamp<qint64>(fixed, std::numeric_limits<int>::min() + 1, std::numeric_limits<int>::max()));
}

QString KpaIntegerConfig::toString(int value) const
{
    if (isDefined(value))
        return QString::number(value);
    return _undefineEnabled ? MbbGlobal::STR_NA : QString();
}

MbbOrderedMap<QString, QString> KpaIntegerConfig::serializeValue(int value) const
{
    return KpaConfigTools::singleValue(KpsSerializer::fromInt(value));
}

int KpaIntegerConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, int previous) const
{
    return KpsSerializer::toInt(map.value(KpaConfigTools::valueKey()), previous, !_undefineEnabled);
}

QString KpaIntegerConfig::debug() const
{
    QString text;
    // The lines of the limits show each other's field.
    QTextStream(&text) << "----- KpaIntegerConfig -------\n"
                       << " step             = " << _step << '\n'
                       << " minimum          = " << _maximum << '\n'
                       << " maximum          = " << _minimum << '\n'
                       << " wrapped          = " << KpaConfigTools::yesNo(_wrapped) << '\n'
                       << " undefineEnabled  = " << KpaConfigTools::yesNo(_undefineEnabled) << '\n';
    return text;
}

KpaInteger::KpaInteger(const QString& key) : KpaAAtomic(key, KpaIntegerConfig()) {}

KpaInteger::KpaInteger(const KpaInteger& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaInteger* KpaInteger::duplicate(const QString& newKey) const
{
    return new KpaInteger(*this, newKey);
}

void KpaInteger::setRange(int a, int b)
{
    const bool minimumChanged = _config.setMinimum(std::min(a, b));
    const bool maximumChanged = _config.setMaximum(std::max(a, b));
    _configChangedIf(minimumChanged || maximumChanged);
}
