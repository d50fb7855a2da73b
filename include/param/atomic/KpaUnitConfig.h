#pragma once

#include <basic/MbbOrderedMap.h>
#include <basic/MbuUnit.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

/// What a unit parameter admits: the units of one class. The power is the exponent that texts show. Setters give
/// whether something changed.
class KESTRIN_PARAM_EXPORT KpaUnitConfig
{
public:
    /// All fields.
    friend bool operator==(const KpaUnitConfig& a, const KpaUnitConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::UNIT; }
    /// The unit in which the user wants values of the class shown at present.
    MbuUnit getInitialValue() const;

    const MbuEUnitClass& getUnitClass() const { return _unitClass; }
    int getPowerValue() const { return _powerValue; }

    bool setUnitClass(const MbuEUnitClass& unitClass);
    bool setPowerValue(int powerValue);

    MbuUnit fix(const MbuUnit& unit, const MbuUnit& previous) const;
    QString toString(const MbuUnit& unit) const;
    MbbOrderedMap<QString, QString> serializeValue(const MbuUnit& unit) const;
    /// The unit of the stored key, which may be of another class, or `previous` if the key is unknown. Throws only what
    /// `MbuUnitService` throws where its database is missing.
    MbuUnit unserializeValue(const MbbOrderedMap<QString, QString>& map, const MbuUnit& previous) const;
    QString debug() const;

private:
    MbuEUnitClass _unitClass;
    int _powerValue = 1;
};
