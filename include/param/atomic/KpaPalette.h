#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaPaletteConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KugPalette, KpaPaletteConfig>;

/// A palette for numbers. Its form holds the identifier, and only known palettes are read back.
class KESTRIN_PARAM_EXPORT KpaPalette : public KpaAAtomic<KugPalette, KpaPaletteConfig>
{
public:
    explicit KpaPalette(const QString& key);
    KpaPalette(const KpaPalette& other, const QString& newKey);
    KpaPalette* duplicate(const QString& newKey) const override;

    const QString& getPaletteId() const { return _value.getId(); }
    /// An unknown identifier sets the default palette.
    void setPaletteId(const QString& id);
};
