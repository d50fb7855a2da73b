#include <util/KugPaletteService.h>

#include <QtCore/QObject>

namespace {
struct Row
{
    const char* id;
    const char* name;
    QVector<QRgb> stops;
};

// clang-format off
const QVector<Row>& rows()
{
    static const QVector<Row> table = {
        {"RAINBOW",  QT_TR_NOOP("Rainbow"),           {0x0000FF, 0x00FFFF, 0x00FF00, 0xFFFF00, 0xFF0000}},
        {"GREY",     QT_TR_NOOP("Grey"),              {0x000000, 0xFFFFFF}},
        {"HEAT",     QT_TR_NOOP("Heat"),              {0x000000, 0x800000, 0xFF4000, 0xFFC000, 0xFFFFFF}},
        {"TERRAIN",  QT_TR_NOOP("Terrain"),           {0x006400, 0x7CB342, 0xF0E68C, 0xA0703C, 0xFFFFFF}},
        {"DEPTH",    QT_TR_NOOP("Depth"),             {0x08306B, 0x2171B5, 0x6BAED6, 0xDEEBF7}},
        {"BLUE_RED", QT_TR_NOOP("Blue to red"),       {0x2166AC, 0x92C5DE, 0xF7F7F7, 0xF4A582, 0xB2182B}},
    };
    return table;
}
// clang-format on

QList<KugPalette> makePalettes()
{
    QList<KugPalette> palettes;
    for (const Row& row : rows()) {
        QVector<QColor> colors;
        for (const QRgb stop : row.stops)
            colors.append(QColor(stop));
        palettes.append(KugPalette(QString::fromLatin1(row.id), QObject::tr(row.name), colors));
    }
    return palettes;
}

const KugPalette* find(const QString& id)
{
    for (const KugPalette& palette : KugPaletteService::getPalettes()) {
        if (palette.getId() == id)
            return &palette;
    }
    return nullptr;
}
} // namespace

KugPalette KugPaletteService::getPalette(const QString& id)
{
    const KugPalette* palette = find(id);
    return palette ? *palette : getDefaultPalette();
}

bool KugPaletteService::contains(const QString& id)
{
    return find(id) != nullptr;
}

const QList<KugPalette>& KugPaletteService::getPalettes()
{
    static const QList<KugPalette> palettes = makePalettes();
    return palettes;
}
