#pragma once

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

/// How a seed is chosen: as it stands, or drawn from the clock at each generation; and the memory of the seed that was
/// used last, which is not stored. Every number is a seed except 0 and `MbbGlobal::UI64_FFFF`. Setters give whether
/// something changed.
class KESTRIN_PARAM_EXPORT KpaSeedConfig
{
public:
    /// All fields.
    friend bool operator==(const KpaSeedConfig& a, const KpaSeedConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::SEED; }
    unsigned long long getInitialValue() const { return 12345678; }

    bool isRandom() const { return _random; }

    bool setRandom(bool random);
    /// Remembers the seed of a generation.
    bool setLastSeed(unsigned long long seed);

    unsigned long long fix(unsigned long long value, unsigned long long previous) const;
    QString toString(unsigned long long value) const;
    /// Seeds are stored as signed numbers: those from 2^63 on have a minus.
    MbbOrderedMap<QString, QString> serializeValue(unsigned long long value) const;
    /// Also switches the random mode to what is stored, silently: "random" and an empty text switch it on, everything
    /// else off.
    unsigned long long unserializeValue(const MbbOrderedMap<QString, QString>& map, unsigned long long previous) const;
    QString debug() const;

private:
    mutable bool _random = false; ///< one with the value in the serial form, hence written by the reading of a value
    bool _lastSeedDefined = false;
    unsigned long long _lastSeed = 165426;
};
