#include <basic/MbbUserStringFormats.h>
#include <basic/MbuUnitService.h>
#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaUnit.h>

template class KpaAAtomic<MbuUnit, KpaUnitConfig>;

using KpaConfigTools::store;

MbuUnit KpaUnitConfig::getInitialValue() const
{
    return MbbUserStringFormats::getDisplayUnit(_unitClass);
}

bool KpaUnitConfig::setUnitClass(const MbuEUnitClass& unitClass)
{
    return store(_unitClass, unitClass);
}

bool KpaUnitConfig::setPowerValue(int powerValue)
{
    return store(_powerValue, powerValue);
}

MbuUnit KpaUnitConfig::fix(const MbuUnit& unit, const MbuUnit& previous) const
{
    return MbuUnitService::getUnits(_unitClass).contains(unit) ? unit : previous;
}

QString KpaUnitConfig::toString(const MbuUnit& unit) const
{
    return MbuUnitService::poweredUnitSymbol(unit.getSymbol(), _powerValue);
}

MbbOrderedMap<QString, QString> KpaUnitConfig::serializeValue(const MbuUnit& unit) const
{
    return KpaConfigTools::singleValue(unit.getKey());
}

MbuUnit KpaUnitConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, const MbuUnit& previous) const
{
    const auto decoded = MbuUnitService::getUnitDecodeKey(_unitClass, map.value(KpaConfigTools::valueKey()));
    return decoded.transfo.isValid() ? decoded.unit : previous;
}

QString KpaUnitConfig::debug() const
{
    QString text;
    QTextStream(&text) << "----- KpaUnitConfig --------\n"
                       << " Unit Class = " << _unitClass.getKey() << " (" << _unitClass.getLabel() << ")\n";
    return text;
}

KpaUnit::KpaUnit(const QString& key) : KpaAAtomic(key, KpaUnitConfig()) {}

KpaUnit::KpaUnit(const KpaUnit& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaUnit* KpaUnit::duplicate(const QString& newKey) const
{
    return new KpaUnit(*this, newKey);
}

void KpaUnit::unserialize(const SerialForm& map)
{
    KuoLock<KpnModif> lock(this);
    const MbuUnit unit = _config.unserializeValue(map, _value);
    if (_config.setUnitClass(unit.getUnitClass()))
        _notify(Kp::NotifyConfig);
    setValue(unit);
    lock.commit();
}
