#pragma once

#include <basic/MbbOrderedMap.h>
#include <basic/MbdEnumCatalog.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

/// What a user interface offers of a catalogue of categories. Every catalogue is admitted. Setters give whether
/// something changed.
class KESTRIN_PARAM_EXPORT KpaCatalogDefinition_oldConfig
{
public:
    friend bool operator==(const KpaCatalogDefinition_oldConfig& a, const KpaCatalogDefinition_oldConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::OLD_CATALOG_DEF; }
    MbdEnumCatalog getInitialValue() const { return {}; }

    bool isCatalogNameReadOnly() const { return _catalogNameReadOnly; }
    bool areNumericValuesReadOnly() const { return _numericValuesReadOnly; }

    bool setCatalogNameReadOnly(bool readOnly);
    bool setNumericValuesReadOnly(bool readOnly);

    MbdEnumCatalog fix(const MbdEnumCatalog& value, const MbdEnumCatalog&) const { return value; }
    QString toString(const MbdEnumCatalog& value) const { return value.getName(); }
    MbbOrderedMap<QString, QString> serializeValue(const MbdEnumCatalog& value) const;
    /// `previous` whole where identifier, name or the colour for undefined values are missing. A colour that is
    /// missing or no number is 0; a category without a number of its own, or with nothing but that, is passed over.
    MbdEnumCatalog unserializeValue(const MbbOrderedMap<QString, QString>& map, const MbdEnumCatalog& previous) const;
    QString debug() const;

private:
    bool _catalogNameReadOnly = false;
    bool _numericValuesReadOnly = true;
};
