#include <gtest/gtest.h>

#include <QtCore/QSet>

#include <basic/MbeError.h>
#include <util/KugLineStyle.h>
#include <util/KugPaletteService.h>
#include <util/KugSymbol.h>
#include <util/KugSymbol3D.h>

#include <cmath>
#include <functional>
#include <vector>

namespace {
/// Each change alone makes a value unequal to a default one.
template <class T>
void expectEachCounts(const std::vector<std::function<void(T&)>>& changes)
{
    EXPECT_EQ(T(), T());
    for (const auto& change : changes) {
        T value;
        change(value);
        EXPECT_NE(value, T());
        const T copy = value;
        EXPECT_EQ(copy, value);
    }
}
} // namespace

TEST(KugLineStyle, IsASolidBlackLineByDefault)
{
    const KugLineStyle style;
    EXPECT_EQ(style.getPen(), KugEPen::SOLID);
    EXPECT_EQ(style.getColor(), QColor(0, 0, 0));
    EXPECT_EQ(style.getWidth(), 1.0);
    EXPECT_FALSE(style.hasBorder());
    EXPECT_EQ(style.getBorderColor(), QColor(0, 0, 0));
    EXPECT_EQ(style.getBorderWidth(), 1.0);
}

TEST(KugLineStyle, ComparesAllThatItHolds)
{
    expectEachCounts<KugLineStyle>({
        [](KugLineStyle& s) { s.setPen(KugEPen::DOT); },
        [](KugLineStyle& s) { s.setColor(Qt::red); },
        [](KugLineStyle& s) { s.setColor(QColor(0, 0, 0, 128)); },
        [](KugLineStyle& s) { s.setWidth(2.0); },
        [](KugLineStyle& s) { s.setBorder(true); },
        [](KugLineStyle& s) { s.setBorderColor(Qt::red); },
        [](KugLineStyle& s) { s.setBorderWidth(2.0); },
    });
}

TEST(KugSymbol, IsABlackCircleByDefault)
{
    const KugSymbol symbol;
    EXPECT_EQ(symbol.getShape(), KugEMarker::CIRCLE);
    EXPECT_EQ(symbol.getSize(), 8);
    EXPECT_EQ(symbol.getColor(), QColor(0, 0, 0));
    EXPECT_FALSE(symbol.isBorderDrawn());
    EXPECT_EQ(symbol.getBorderColor(), QColor(0, 0, 0));
}

TEST(KugSymbol, ComparesAllThatItHolds)
{
    expectEachCounts<KugSymbol>({
        [](KugSymbol& s) { s.setShape(KugEMarker::STAR); },
        [](KugSymbol& s) { s.setSize(9); },
        [](KugSymbol& s) { s.setColor(QColor(0, 0, 0, 128)); },
        [](KugSymbol& s) { s.setDrawBorder(true); },
        [](KugSymbol& s) { s.setBorderColor(Qt::red); },
    });
}

TEST(KugSymbol3D, IsABlackSphereByDefault)
{
    const KugSymbol3D symbol;
    EXPECT_EQ(symbol.getShape(), KugEVolumeMarker::SPHERE);
    EXPECT_EQ(symbol.getSize(), 1.0);
    EXPECT_EQ(symbol.getQuality(), 0.5);
    EXPECT_EQ(symbol.getColor(), QColor(0, 0, 0));
}

TEST(KugSymbol3D, ComparesAllThatItHolds)
{
    expectEachCounts<KugSymbol3D>({
        [](KugSymbol3D& s) { s.setShape(KugEVolumeMarker::CONE); },
        [](KugSymbol3D& s) { s.setSize(2.0); },
        [](KugSymbol3D& s) { s.setQuality(1.0); },
        [](KugSymbol3D& s) { s.setColor(Qt::red); },
    });
}

TEST(KugPalette, GivesTheColoursAtAndBetweenItsStops)
{
    const KugPalette palette("id", "name", {QColor(0, 0, 0), QColor(200, 100, 0), QColor(200, 100, 100, 55)});
    struct Row
    {
        double place;
        QColor color;
    };
    const Row rows[] = {
        {0.0, QColor(0, 0, 0)},           {0.25, QColor(100, 50, 0)},
        {0.5, QColor(200, 100, 0)},       {0.75, QColor(200, 100, 50, 155)},
        {1.0, QColor(200, 100, 100, 55)}, {-7.0, QColor(0, 0, 0)},
        {7.0, QColor(200, 100, 100, 55)}, {std::nan(""), QColor(0, 0, 0)},
    };
    for (const Row& row : rows)
        EXPECT_EQ(palette.getColorAt(row.place), row.color) << row.place;
}

TEST(KugPalette, HasTheSameColourEverywhereWithOneStop)
{
    EXPECT_EQ(KugPalette("id", "name", {Qt::red}).getColorAt(0.7), QColor(Qt::red));
}

TEST(KugPalette, RefusesToHaveNoColour)
{
    EXPECT_THROW(KugPalette("id", "name", {}), MbeProgrammingError);
}

TEST(KugPalette, ComparesAllThatItHolds)
{
    const KugPalette palette("id", "name", {Qt::red});
    EXPECT_EQ(palette, KugPalette("id", "name", {Qt::red}));
    EXPECT_NE(palette, KugPalette("other", "name", {Qt::red}));
    EXPECT_NE(palette, KugPalette("id", "other", {Qt::red}));
    EXPECT_NE(palette, KugPalette("id", "name", {Qt::red, Qt::red}));
}

TEST(KugPaletteService, OffersItsPalettesInOrder)
{
    QStringList rows;
    for (const KugPalette& palette : KugPaletteService::getPalettes())
        rows << palette.getId() + " " + palette.getName();
    EXPECT_EQ(rows, QStringList({"RAINBOW Rainbow", "GREY Grey", "HEAT Heat", "TERRAIN Terrain", "DEPTH Depth",
                                 "BLUE_RED Blue to red"}));
}

TEST(KugPaletteService, GivesEachPaletteByItsId)
{
    for (const KugPalette& palette : KugPaletteService::getPalettes()) {
        EXPECT_TRUE(KugPaletteService::contains(palette.getId()));
        EXPECT_EQ(KugPaletteService::getPalette(palette.getId()), palette);
        EXPECT_GE(palette.getColors().size(), 2);
    }
    EXPECT_EQ(KugPaletteService::getPalette("GREY").getColorAt(0.0), QColor(0, 0, 0));
    EXPECT_EQ(KugPaletteService::getPalette("GREY").getColorAt(1.0), QColor(255, 255, 255));
    EXPECT_EQ(KugPaletteService::getPalette("RAINBOW").getColorAt(0.5), QColor(0, 255, 0));
}

TEST(KugPaletteService, GivesTheDefaultPaletteForAnUnknownId)
{
    for (const char* id : {"", "no such palette", "rainbow"}) {
        EXPECT_FALSE(KugPaletteService::contains(id));
        EXPECT_EQ(KugPaletteService::getPalette(id).getId(), "RAINBOW");
    }
    EXPECT_EQ(KugPaletteService::getDefaultPalette().getId(), "RAINBOW");
    EXPECT_EQ(KugPalette(), KugPaletteService::getDefaultPalette());
}
