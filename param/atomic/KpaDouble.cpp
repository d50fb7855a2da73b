#include <basic/MbbUserStringFormats.h>
#include <basic/MbdVariableDetailsHelper.h>
#include <basic/MbuUnitService.h>
#include <param/KpsSerializer.h>
#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaDouble.h>

#include <cmath>
#include <limits>
#include <utility>

template class KpaAAtomic<double, KpaDoubleConfig>;

using KpaConfigTools::store;

namespace {
constexpr int significantDigits = 10;

QString debugNumber(double value)
{
    return value == MbbGlobal::D_FFFF ? MbbGlobal::STR_NA : QString::number(value, 'g', significantDigits);
}

const MbuEUnitClass* constant(const MbuEUnitClass& unitClass)
{
    return unitClass == MbuEUnitClass::NONE ? &MbuEUnitClass::NONE : &MbuEUnitClass::fromValue(unitClass.getValue());
}

bool isSame(const MbbStringFormat& a, const MbbStringFormat& b)
{
    const MbuUnit& unitA = a.getDisplayUnit();
    const MbuUnit& unitB = b.getDisplayUnit();
    return a == b && unitA.getSymbol() == unitB.getSymbol() && unitA.getName() == unitB.getName();
}

/// The user's present format for the unit class. As long as it stays, calls in a row share it.
std::shared_ptr<const MbbStringFormat> userFormat(const MbuEUnitClass& unitClass)
{
    thread_local std::shared_ptr<const MbbStringFormat> last;
    MbbStringFormat present = MbbUserStringFormats::getStringFormat(unitClass);
    if (!last || !isSame(*last, present))
        last = std::make_shared<const MbbStringFormat>(std::move(present));
    return last;
}
} // namespace

KpaDoubleConfig::KpaDoubleConfig() : KpaDoubleConfig(MbuEUnitClass::NONE, 1) {}

KpaDoubleConfig::KpaDoubleConfig(const MbuEUnitClass& unitClass, int powerValue)
    : _powerValue(powerValue),
      _unitClass(constant(unitClass)),
      _customFormat(userFormat(unitClass))
{}

MbbStringFormat KpaDoubleConfig::getDisplayFormat() const
{
    if (_useCustomFormat)
        return *_customFormat;
    MbbStringFormat format = MbbUserStringFormats::getStringFormat(*_unitClass);
    if (!_undefString.isEmpty())
        format.setUndefinedText(_undefString);
    return format;
}

MbdVariableDetails KpaDoubleConfig::getDetails() const
{
    MbdVariableDetails details = MbdVariableDetailsHelper::createDetails(*_unitClass);
    details.setPowerValue(_powerValue);
    if (_useCustomFormat) {
        details.getNumericDetails().setUserDefinedStringFormat(*_customFormat);
        details.setUnitDefaultFormatUsed(false);
    }
    return details;
}

bool KpaDoubleConfig::setStep(double step)
{
    return store(_step, step);
}

bool KpaDoubleConfig::setMinimum(double minimum)
{
    return store(_minimum, minimum);
}

bool KpaDoubleConfig::setMaximum(double maximum)
{
    return store(_maximum, maximum);
}

bool KpaDoubleConfig::setRange(double minimum, double maximum)
{
    if (isDefined(minimum) && isDefined(maximum) && minimum > maximum)
        std::swap(minimum, maximum);
    const bool minimumChanged = setMinimum(minimum);
    const bool maximumChanged = setMaximum(maximum);
    return minimumChanged || maximumChanged;
}

bool KpaDoubleConfig::setUndefineEnabled(bool enabled)
{
    return store(_undefineEnabled, enabled);
}

bool KpaDoubleConfig::setWrapped(bool wrapped)
{
    return store(_wrapped, wrapped);
}

bool KpaDoubleConfig::setUnitClass(const MbuEUnitClass& unitClass, int powerValue)
{
    const bool classChanged = *_unitClass != unitClass;
    if (classChanged)
        _unitClass = constant(unitClass);
    const bool powerChanged = store(_powerValue, powerValue);
    const bool formatDropped = store(_useCustomFormat, false);
    return classChanged || powerChanged || formatDropped;
}

bool KpaDoubleConfig::setCustomFormat(const MbbStringFormat& format)
{
    const bool used = store(_useCustomFormat, true);
    const bool changed = *_customFormat != format;
    if (changed)
        _customFormat = std::make_shared<const MbbStringFormat>(format);
    return used || changed;
}

bool KpaDoubleConfig::setUndefString(const QString& text)
{
    return store(_undefString, text);
}

bool KpaDoubleConfig::setDetails(const MbdVariableDetails& details)
{
    const bool unitChanged = setUnitClass(details.getUnitClass(), details.getPowerValue());
    if (*_unitClass != MbuEUnitClass::NONE && details.isUnitDefaultFormatUsed())
        return unitChanged;
    return setCustomFormat(details.getNumericDetails().getStringFormat()) || unitChanged;
}

bool KpaDoubleConfig::_isUnitCompatible(const MbuUnit& unit) const
{
    const bool classOfFormat = *_unitClass == MbuEUnitClass::NONE && _useCustomFormat;
    const MbuEUnitClass& unitClass = classOfFormat ? _customFormat->getUnitClass() : *_unitClass;
    return unitClass != MbuEUnitClass::NONE && unitClass == unit.getUnitClass();
}

double KpaDoubleConfig::convertToStorageUnit(double value, const MbuUnit& unit) const
{
    if (!_isUnitCompatible(unit))
        return value;
    return MbuUnitService::getConversionToStorageUnit(unit, _powerValue).transform(value);
}

double KpaDoubleConfig::convertFromStorageUnit(double value, const MbuUnit& unit) const
{
    if (!_isUnitCompatible(unit))
        return value;
    return MbuUnitService::getConversionFromStorageUnit(unit, _powerValue).transform(value);
}

double KpaDoubleConfig::_wrappedFix(double value) const
{
    const double range = _maximum - _minimum;
    const bool above = value >= _maximum;
    if (range != 0 && std::isfinite(range) && (above || value < _minimum)) {
        const double turns = std::trunc((above ? value - _maximum : _minimum - value) / range) + 1;
        if (!(std::abs(turns) <= std::numeric_limits<int>::max()))
            return _minimum; // on the cycle, unlike the maximum
        value += above ? -turns * range : turns * range;
    }
    const bool within = value >= _minimum && value <= _maximum;
    return range < 0 || within ? value : _clamp(value); // rounding may have led over a limit
}

QString KpaDoubleConfig::toString(double value) const
{
    return getDisplayFormat().valueToString(value, _powerValue, 1, 0, _undefineEnabled);
}

MbbOrderedMap<QString, QString> KpaDoubleConfig::serializeValue(double value) const
{
    return KpaConfigTools::singleValue(KpsSerializer::fromDouble(value, 'g', significantDigits));
}

double KpaDoubleConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, double previous) const
{
    return KpsSerializer::toDouble(map.value(KpaConfigTools::valueKey()), previous, !_undefineEnabled);
}

QString KpaDoubleConfig::debug() const
{
    QString text;
    QTextStream stream(&text);
    stream << "----- KpaDoubleConfig --------\n"
           << " step             = " << debugNumber(_step) << '\n'
           << " minimum          = " << debugNumber(_minimum) << '\n'
           << " maximum          = " << debugNumber(_maximum) << '\n'
           << " wrapped          = " << KpaConfigTools::yesNo(_wrapped) << '\n'
           << " undefineEnabled  = " << KpaConfigTools::yesNo(_undefineEnabled) << '\n'
           << " power value      = " << _powerValue << '\n'
           << " custom format    = " << KpaConfigTools::yesNo(_useCustomFormat) << '\n'
           << " unit class       = " << _unitClass->getKey() << " (" << _unitClass->getLabel() << ")\n";
    if (!_undefString.isEmpty())
        stream << " undefined string = " << _undefString << '\n';
    stream << " custom precision = " << _customFormat->getPrecision() << '\n'
           << " custom symbol    = " << _customFormat->getSymbol() << '\n';
    stream.flush();
    return text;
}

KpaDouble::KpaDouble(const QString& key) : KpaAAtomic(key, KpaDoubleConfig()) {}

KpaDouble::KpaDouble(const KpaDouble& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaDouble* KpaDouble::duplicate(const QString& newKey) const
{
    return new KpaDouble(*this, newKey);
}

void KpaDouble::setRange(double a, double b, const MbuUnit& unit)
{
    setRange(_config.convertToStorageUnit(a, unit), _config.convertToStorageUnit(b, unit));
}
