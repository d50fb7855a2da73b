#pragma once

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>
#include <util/KugSymbol3D.h>

/// What a user interface offers of a symbol in three dimensions. Every symbol is admitted. Setters give whether
/// something changed.
class KESTRIN_PARAM_EXPORT KpaSymbol3DConfig
{
public:
    friend bool operator==(const KpaSymbol3DConfig& a, const KpaSymbol3DConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::SYMBOL_3D; }
    KugSymbol3D getInitialValue() const { return {}; }

    bool isColorReadonly() const { return _colorReadonly; }
    bool isSizeReadonly() const { return _sizeReadonly; }

    bool setColorReadonly(bool readonly);
    bool setSizeReadonly(bool readonly);

    KugSymbol3D fix(const KugSymbol3D& value, const KugSymbol3D&) const { return value; }
    QString toString(const KugSymbol3D& value) const;
    MbbOrderedMap<QString, QString> serializeValue(const KugSymbol3D& value) const;
    /// `previous` whole where the shape is missing or unknown; otherwise it stands in for what else is missing or
    /// cannot be read.
    KugSymbol3D unserializeValue(const MbbOrderedMap<QString, QString>& map, const KugSymbol3D& previous) const;
    QString debug() const;

private:
    bool _colorReadonly = false;
    bool _sizeReadonly = false;
};
