#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaSymbolConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KugSymbol, KpaSymbolConfig>;

/// How a point is drawn on a map or a chart.
class KESTRIN_PARAM_EXPORT KpaSymbol : public KpaAAtomic<KugSymbol, KpaSymbolConfig>
{
public:
    explicit KpaSymbol(const QString& key);
    KpaSymbol(const KpaSymbol& other, const QString& newKey);
    KpaSymbol* duplicate(const QString& newKey) const override;

    bool isColorReadonly() const { return _config.isColorReadonly(); }
    bool isBorderAvailable() const { return _config.isBorderAvailable(); }
    bool isSizeAvailable() const { return _config.isSizeAvailable(); }

    void setColorReadonly(bool readonly) { _configChangedIf(_config.setColorReadonly(readonly)); }
    void setBorderAvailable(bool available) { _configChangedIf(_config.setBorderAvailable(available)); }
    void setSizeAvailable(bool available) { _configChangedIf(_config.setSizeAvailable(available)); }
};
