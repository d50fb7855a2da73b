#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaSymbol3DConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KugSymbol3D, KpaSymbol3DConfig>;

/// How a point is drawn in a 3D scene.
class KESTRIN_PARAM_EXPORT KpaSymbol3D : public KpaAAtomic<KugSymbol3D, KpaSymbol3DConfig>
{
public:
    explicit KpaSymbol3D(const QString& key);
    KpaSymbol3D(const KpaSymbol3D& other, const QString& newKey);
    KpaSymbol3D* duplicate(const QString& newKey) const override;

    bool isColorReadonly() const { return _config.isColorReadonly(); }
    bool isSizeReadonly() const { return _config.isSizeReadonly(); }

    void setColorReadonly(bool readonly) { _configChangedIf(_config.setColorReadonly(readonly)); }
    void setSizeReadonly(bool readonly) { _configChangedIf(_config.setSizeReadonly(readonly)); }
};
