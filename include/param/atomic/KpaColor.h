#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaColorConfig.h>

#include <basic/MbbColor.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<QColor, KpaColorConfig>;

/// A colour. A fresh one is black.
class KESTRIN_PARAM_EXPORT KpaColor : public KpaAAtomic<QColor, KpaColorConfig>
{
public:
    explicit KpaColor(const QString& key);
    KpaColor(const KpaColor& other, const QString& newKey);
    KpaColor* duplicate(const QString& newKey) const override;

    bool isAlphaEnabled() const { return _config.isAlphaEnabled(); }
    void setAlphaEnabled(bool enabled) { _configChangedIf(_config.setAlphaEnabled(enabled)); }

    /// The value as one word, with its opacity.
    MbbColor getMbbColor() const { return MbbColor(_value.rgba()); }
    void setMbbColor(const MbbColor& color) { setValue(QColor::fromRgba(color.getRgba())); }
};
