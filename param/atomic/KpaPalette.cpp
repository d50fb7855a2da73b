#include <param/atomic/KpaPalette.h>

#include <util/KugPaletteService.h>

template class KpaAAtomic<KugPalette, KpaPaletteConfig>;

namespace {
QString idKey()
{
    return QStringLiteral("id");
}
} // namespace

MbbOrderedMap<QString, QString> KpaPaletteConfig::serializeValue(const KugPalette& value) const
{
    return {{idKey(), value.getId()}};
}

KugPalette KpaPaletteConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map,
                                              const KugPalette& previous) const
{
    const QString* id = map.find(idKey());
    return id && KugPaletteService::contains(*id) ? KugPaletteService::getPalette(*id) : previous;
}

QString KpaPaletteConfig::debug() const
{
    return QStringLiteral("----- KpaPaletteConfig --------\n");
}

void KpaPalette::setPaletteId(const QString& id)
{
    setValue(KugPaletteService::getPalette(id));
}

KpaPalette::KpaPalette(const QString& key) : KpaAAtomic(key, KpaPaletteConfig()) {}

KpaPalette::KpaPalette(const KpaPalette& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaPalette* KpaPalette::duplicate(const QString& newKey) const
{
    return new KpaPalette(*this, newKey);
}
