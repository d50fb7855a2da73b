#pragma once

#include <QtCore/QList>

#include <util/KugPalette.h>

/// The known palettes.
class KESTRIN_UTIL_EXPORT KugPaletteService
{
public:
    /// The palette of the id; the default palette for an unknown one.
    static KugPalette getPalette(const QString& id);
    static bool contains(const QString& id);
    /// In the order in which a user interface offers them.
    static const QList<KugPalette>& getPalettes();
    static const KugPalette& getDefaultPalette() { return getPalettes().first(); }
};
