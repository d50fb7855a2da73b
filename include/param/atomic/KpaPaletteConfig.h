#pragma once

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>
#include <util/KugPalette.h>

/// What a palette parameter admits: every palette. There is nothing to configure, so all configurations are equal.
class KESTRIN_PARAM_EXPORT KpaPaletteConfig
{
public:
    friend bool operator==(const KpaPaletteConfig& a, const KpaPaletteConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::PALETTE; }
    KugPalette getInitialValue() const { return {}; }

    KugPalette fix(const KugPalette& value, const KugPalette&) const { return value; }
    QString toString(const KugPalette& value) const { return value.getName(); }
    MbbOrderedMap<QString, QString> serializeValue(const KugPalette& value) const;
    /// The known palette of the stored identifier, `previous` if there is none.
    KugPalette unserializeValue(const MbbOrderedMap<QString, QString>& map, const KugPalette& previous) const;
    QString debug() const;
};
