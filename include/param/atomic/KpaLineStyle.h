#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaLineStyleConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KugLineStyle, KpaLineStyleConfig>;

/// How a line is drawn: its pen, colour and width, and its border.
class KESTRIN_PARAM_EXPORT KpaLineStyle : public KpaAAtomic<KugLineStyle, KpaLineStyleConfig>
{
public:
    explicit KpaLineStyle(const QString& key);
    KpaLineStyle(const KpaLineStyle& other, const QString& newKey);
    KpaLineStyle* duplicate(const QString& newKey) const override;

    bool isColorEnabled() const { return _config.isColorEnabled(); }
    bool isNoLineAvailable() const { return _config.isNoLineAvailable(); }
    bool isWidthEnabled() const { return _config.isWidthEnabled(); }

    void setColorEnabled(bool enabled) { _configChangedIf(_config.setColorEnabled(enabled)); }
    void setNoLineAvailable(bool available) { _configChangedIf(_config.setNoLineAvailable(available)); }
    void setWidthEnabled(bool enabled) { _configChangedIf(_config.setWidthEnabled(enabled)); }
};
