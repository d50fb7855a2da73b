#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaCatalogDefinition_oldConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<MbdEnumCatalog, KpaCatalogDefinition_oldConfig>;

/// The categories of a variable, as older stored forms define them in place.
class KESTRIN_PARAM_EXPORT KpaCatalogDefinition_old : public KpaAAtomic<MbdEnumCatalog, KpaCatalogDefinition_oldConfig>
{
public:
    explicit KpaCatalogDefinition_old(const QString& key);
    KpaCatalogDefinition_old(const KpaCatalogDefinition_old& other, const QString& newKey);
    KpaCatalogDefinition_old* duplicate(const QString& newKey) const override;

    bool isCatalogNameReadOnly() const { return _config.isCatalogNameReadOnly(); }
    bool areNumericValuesReadOnly() const { return _config.areNumericValuesReadOnly(); }

    void setCatalogNameReadOnly(bool readOnly) { _configChangedIf(_config.setCatalogNameReadOnly(readOnly)); }
    void setNumericValuesReadOnly(bool readOnly) { _configChangedIf(_config.setNumericValuesReadOnly(readOnly)); }
};
