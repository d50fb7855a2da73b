#pragma once

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>
#include <util/KugSymbol.h>

/// What a user interface offers of a symbol. Every symbol is admitted. Setters give whether something changed.
class KESTRIN_PARAM_EXPORT KpaSymbolConfig
{
public:
    friend bool operator==(const KpaSymbolConfig& a, const KpaSymbolConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::SYMBOL; }
    KugSymbol getInitialValue() const { return {}; }

    bool isColorReadonly() const { return _colorReadonly; }
    /// Whether border and size can be chosen.
    bool isBorderAvailable() const { return _borderAvailable; }
    bool isSizeAvailable() const { return _sizeAvailable; }

    bool setColorReadonly(bool readonly);
    bool setBorderAvailable(bool available);
    bool setSizeAvailable(bool available);

    KugSymbol fix(const KugSymbol& value, const KugSymbol&) const { return value; }
    QString toString(const KugSymbol& value) const;
    MbbOrderedMap<QString, QString> serializeValue(const KugSymbol& value) const;
    /// `previous` whole where the shape is missing or unknown; otherwise it stands in for what else is missing or
    /// cannot be read, and for the opacity of the border, which has no entry.
    KugSymbol unserializeValue(const MbbOrderedMap<QString, QString>& map, const KugSymbol& previous) const;
    QString debug() const;

private:
    bool _colorReadonly = false;
    bool _borderAvailable = true;
    bool _sizeAvailable = true;
};
