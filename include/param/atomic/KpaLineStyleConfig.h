#pragma once

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>
#include <util/KugLineStyle.h>

/// What a user interface offers of a line style. Every style is admitted. Setters give whether something changed.
class KESTRIN_PARAM_EXPORT KpaLineStyleConfig
{
public:
    friend bool operator==(const KpaLineStyleConfig& a, const KpaLineStyleConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::LINE_STYLE; }
    KugLineStyle getInitialValue() const { return {}; }

    /// Whether colour and width can be chosen; only then they show in the text.
    bool isColorEnabled() const { return _colorEnabled; }
    bool isWidthEnabled() const { return _widthEnabled; }
    /// Whether the pen that draws nothing can be chosen.
    bool isNoLineAvailable() const { return _noLineAvailable; }

    bool setColorEnabled(bool enabled);
    bool setNoLineAvailable(bool available);
    bool setWidthEnabled(bool enabled);

    KugLineStyle fix(const KugLineStyle& value, const KugLineStyle&) const { return value; }
    QString toString(const KugLineStyle& value) const;
    MbbOrderedMap<QString, QString> serializeValue(const KugLineStyle& value) const;
    /// `previous` whole where pen, colour or width are missing or the pen is unknown. Otherwise it stands in for the
    /// entries of the border that are missing, and for texts that are no colours; a width that is no number is
    /// undefined.
    KugLineStyle unserializeValue(const MbbOrderedMap<QString, QString>& map, const KugLineStyle& previous) const;
    QString debug() const;

private:
    bool _colorEnabled = false;
    bool _noLineAvailable = true;
    bool _widthEnabled = true;
};
