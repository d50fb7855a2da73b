#pragma once

#include <QtCore/QList>

#include <basic/MbuUnit.h>
#include <basic/MbuUnitTransfo.h>

/// The known units and the conversions between them. Values are kept in the storage unit of their class: the SI unit,
/// except the degree for angles, the percent for percentages and the millidarcy for permeabilities. Keys are unique
/// over all classes.
///
/// The conversions are those of UDUNITS-2. They are read from its database once, at the first conversion between two
/// different units; an `MbeError` of type `Storage` says so if the database is missing or damaged, and the next
/// conversion tries again. Nothing else here needs the database. All operations may be called from several threads.
class KESTRIN_BASIC_EXPORT MbuUnitService
{
public:
    /// What a stored key stands for. The transformation leads to the storage unit at power 1; it is not valid, and the
    /// unit is a default one, if the key is unknown.
    struct DecodedUnit
    {
        MbuUnit unit;
        MbuUnitTransfo transfo;
    };

    /// The units of a class, the storage unit first.
    static QList<MbuUnit> getUnits(const MbuEUnitClass& unitClass);
    static MbuUnit getStorageUnit(const MbuEUnitClass& unitClass);
    /// The unit of a key, of any class; an `MbeProgrammingError` if there is none.
    static MbuUnit getUnit(const QString& key);
    /// Looks the key up in `unitClass` first and in all other classes then.
    static DecodedUnit getUnitDecodeKey(const MbuEUnitClass& unitClass, const QString& key);

    /// How a value in `unit` raised to `powerValue` becomes one in the storage unit raised to the same power. The power
    /// applies to the scale; an offset, as temperatures have it, counts at power 1 only. Power 0 is the identity. A
    /// unit that is not known here, and a power that takes the scale out of the range of doubles, give a transformation
    /// that is not valid.
    static MbuUnitTransfo getConversionToStorageUnit(const MbuUnit& unit, int powerValue);
    /// The way back, on the same terms.
    static MbuUnitTransfo getConversionFromStorageUnit(const MbuUnit& unit, int powerValue);

    /// The symbol with its exponent as raised digits: "m" gives "m²" at power 2, "m⁻¹" at power -1, "m" at power 1 and
    /// an empty text at power 0. A symbol that is itself composed is bracketed: "(g/t)²". An empty symbol stays empty.
    static QString poweredUnitSymbol(const QString& symbol, int powerValue);
};
