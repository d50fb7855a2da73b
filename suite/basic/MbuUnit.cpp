#include <basic/MbuUnit.h>

#include <QtCore/QObject>

MbuUnit::MbuUnit() : MbuUnit(MbuEUnitClass::NONE, QStringLiteral("none"), QString(), QObject::tr("No unit")) {}

MbuUnit::MbuUnit(const MbuEUnitClass& unitClass, const QString& key, const QString& symbol, const QString& name)
    : _unitClass(unitClass),
      _key(key),
      _symbol(symbol),
      _name(name)
{}
