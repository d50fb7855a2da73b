#pragma once

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

/// What a boolean parameter admits: everything. There is nothing to configure, so all configurations are equal.
class KESTRIN_PARAM_EXPORT KpaBoolConfig
{
public:
    friend bool operator==(const KpaBoolConfig& a, const KpaBoolConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::BOOL; }
    bool getInitialValue() const { return true; }

    bool fix(bool value, bool) const { return value; }
    /// "yes" or "no" in the language of the user interface; the serial form has them as they stand.
    QString toString(bool value) const;
    MbbOrderedMap<QString, QString> serializeValue(bool value) const;
    bool unserializeValue(const MbbOrderedMap<QString, QString>& map, bool previous) const;
    QString debug() const;
};
