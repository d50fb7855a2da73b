#pragma once

#include <basic/MbuEUnitClass.h>

/// A unit of measure: its class, a stable key for storage, a symbol and a name for people. A plain value;
/// `MbuUnitService` gives the known units. A default unit is the only one of the class NONE: its key is "none", its
/// symbol is empty.
class KESTRIN_BASIC_EXPORT MbuUnit
{
public:
    MbuUnit();
    MbuUnit(const MbuEUnitClass& unitClass, const QString& key, const QString& symbol, const QString& name);

    const MbuEUnitClass& getUnitClass() const { return _unitClass; }
    const QString& getKey() const { return _key; }
    const QString& getSymbol() const { return _symbol; }
    const QString& getName() const { return _name; }

    /// Equal when key and class are.
    friend bool operator==(const MbuUnit& a, const MbuUnit& b)
    {
        return a._unitClass == b._unitClass && a._key == b._key;
    }
    friend bool operator!=(const MbuUnit& a, const MbuUnit& b) { return !(a == b); }

private:
    MbuEUnitClass _unitClass;
    QString _key;
    QString _symbol;
    QString _name;
};
