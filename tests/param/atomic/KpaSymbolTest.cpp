#include <param/atomic/KpaSymbol.h>
#include <support/GarbageTexts.h>
#include <support/ObservedAtomic.h>

#include <functional>
#include <memory>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaSymbolConfig, KugSymbol>);

namespace {
using Flags = QList<int>;
using Map = KpbAParameter::SerialForm;

KugSymbol star()
{
    KugSymbol symbol;
    symbol.setShape(KugEMarker::STAR);
    symbol.setSize(12);
    symbol.setColor(QColor(1, 2, 3, 4));
    symbol.setDrawBorder(true);
    symbol.setBorderColor(QColor(5, 6, 7));
    return symbol;
}

Map storedStar()
{
    return {{"shape", "STAR"}, {"size", "12"},        {"red", "1"},       {"green", "2"},       {"blue", "3"},
            {"opacity", "4"},  {"drawBorder", "yes"}, {"borderRed", "5"}, {"borderGreen", "6"}, {"borderBlue", "7"}};
}

Map with(const QString& key, const QString& text)
{
    Map map = storedStar();
    map.insert(key, text);
    return map;
}

KugSymbol previous()
{
    KugSymbol symbol;
    symbol.setShape(KugEMarker::CROSS);
    symbol.setSize(99);
    symbol.setColor(QColor(91, 92, 93, 94));
    symbol.setDrawBorder(false);
    symbol.setBorderColor(QColor(95, 96, 97));
    return symbol;
}

KugSymbol read(const Map& map)
{
    return KpaSymbolConfig().unserializeValue(map, previous());
}
} // namespace

TEST(KpaSymbol, IsOfTheKindSymbol)
{
    EXPECT_EQ(KpaSymbol("KEY").getType(), KpbEType::SYMBOL);
    EXPECT_EQ(KpaSymbolConfig().getType(), KpbEType::SYMBOL);
}

TEST(KpaSymbol, StartsWithTheDefaultSymbol)
{
    const KpaSymbol symbol("KEY");
    EXPECT_EQ(symbol.getValue(), KugSymbol());
    EXPECT_EQ(symbol.getAutoValue(), KugSymbol());
    EXPECT_EQ(KpaSymbolConfig().getInitialValue(), KugSymbol());
    EXPECT_FALSE(symbol.isColorReadonly());
    EXPECT_TRUE(symbol.isBorderAvailable());
    EXPECT_TRUE(symbol.isSizeAvailable());
}

TEST(KpaSymbol, TellsOfAChangedConfigurationAndOfNoOther)
{
    struct Row
    {
        const char* name;
        std::function<void(KpaSymbol&)> set;
        bool colorReadonly;
        bool border;
        bool size;
    };
    const Row rows[] = {
        {"color", [](KpaSymbol& p) { p.setColorReadonly(true); }, true, true, true},
        {"border", [](KpaSymbol& p) { p.setBorderAvailable(false); }, false, false, true},
        {"size", [](KpaSymbol& p) { p.setSizeAvailable(false); }, false, true, false},
    };
    for (const Row& row : rows) {
        ObservedAtomic<KpaSymbol> observed;
        EXPECT_EQ(observed.flagsOf(row.set), Flags{Kp::NotifyConfig}) << row.name;
        EXPECT_EQ(observed.flagsOf(row.set), Flags()) << row.name;
        EXPECT_EQ(observed.atomic.isColorReadonly(), row.colorReadonly) << row.name;
        EXPECT_EQ(observed.atomic.isBorderAvailable(), row.border) << row.name;
        EXPECT_EQ(observed.atomic.isSizeAvailable(), row.size) << row.name;
        EXPECT_TRUE(observed.atomic.getConfig() != KpaSymbolConfig()) << row.name;
    }
}

TEST(KpaSymbol, AdmitsEverySymbol)
{
    EXPECT_EQ(KpaSymbolConfig().fix(star(), previous()), star());
}

TEST(KpaSymbol, ShowsShapeSizeAndColor)
{
    EXPECT_EQ(KpaSymbol("KEY").toString(), "[Circle] Size[8] Color[0|0|0]");
    EXPECT_EQ(KpaSymbolConfig().toString(star()), "[Star] Size[12] Color[1|2|3]");
}

TEST(KpaSymbol, StoresItsSymbol)
{
    EXPECT_EQ(KpaSymbol("KEY").serialize(), Map({{"shape", "CIRCLE"},
                                                 {"size", "8"},
                                                 {"red", "0"},
                                                 {"green", "0"},
                                                 {"blue", "0"},
                                                 {"opacity", "255"},
                                                 {"drawBorder", "no"},
                                                 {"borderRed", "0"},
                                                 {"borderGreen", "0"},
                                                 {"borderBlue", "0"}}));
    EXPECT_EQ(KpaSymbolConfig().serializeValue(star()), storedStar());
}

TEST(KpaSymbol, ReadsBackWhatItStores)
{
    EXPECT_EQ(read(storedStar()), star());
}

TEST(KpaSymbol, KeepsItsSymbolWholeWithoutAKnownShape)
{
    Map map = storedStar();
    map.remove("shape");
    EXPECT_EQ(read(map), previous());
    EXPECT_EQ(read({}), previous());
    for (const char* shape : {"", "star", "Star", "7", "BLOB"})
        EXPECT_EQ(read(with("shape", shape)), previous()) << shape;
}

TEST(KpaSymbol, TakesWhatElseIsMissingFromThePreviousSymbol)
{
    KugSymbol expected = previous();
    expected.setShape(KugEMarker::STAR);
    EXPECT_EQ(read({{"shape", "STAR"}}), expected);
    expected.setSize(3);
    EXPECT_EQ(read({{"shape", "STAR"}, {"size", "3"}}), expected);
}

TEST(KpaSymbol, TakesEntriesThatCannotBeReadFromThePreviousSymbol)
{
    for (const char* text : {"", "abc", "1.5", "nan", "99999999999999999999"}) {
        EXPECT_EQ(read(with("size", text)).getSize(), 99) << text;
        EXPECT_EQ(read(with("red", text)).getColor(), QColor(91, 2, 3, 4)) << text;
        EXPECT_EQ(read(with("green", text)).getColor(), QColor(1, 92, 3, 4)) << text;
        EXPECT_EQ(read(with("blue", text)).getColor(), QColor(1, 2, 93, 4)) << text;
        EXPECT_EQ(read(with("opacity", text)).getColor(), QColor(1, 2, 3, 94)) << text;
        EXPECT_FALSE(read(with("drawBorder", text)).isBorderDrawn()) << text;
        EXPECT_EQ(read(with("borderRed", text)).getBorderColor(), QColor(95, 6, 7)) << text;
        EXPECT_EQ(read(with("borderGreen", text)).getBorderColor(), QColor(5, 96, 7)) << text;
        EXPECT_EQ(read(with("borderBlue", text)).getBorderColor(), QColor(5, 6, 97)) << text;
    }
}

TEST(KpaSymbol, MovesComponentsOutOfRangeToTheNearerEnd)
{
    EXPECT_EQ(read(with("red", "256")).getColor(), QColor(255, 2, 3, 4));
    EXPECT_EQ(read(with("opacity", "-1")).getColor(), QColor(1, 2, 3, 0));
    EXPECT_EQ(read(with("borderBlue", "2147483647")).getBorderColor(), QColor(5, 6, 255));
}

TEST(KpaSymbol, KeepsTheOpacityOfTheBorderWhichHasNoEntry)
{
    KugSymbol before = previous();
    before.setBorderColor(QColor(95, 96, 97, 98));
    EXPECT_EQ(KpaSymbolConfig().unserializeValue(storedStar(), before).getBorderColor(), QColor(5, 6, 7, 98));
}

TEST(KpaSymbol, SurvivesGarbageInEachEntry)
{
    KpaSymbol symbol("KEY");
    for (const QString& key : storedStar().keys()) {
        for (const QString& garbage : garbageTexts()) {
            symbol.setValue(previous());
            symbol.unserialize(with(key, garbage));
            EXPECT_TRUE(symbol.getValue().getColor().isValid()) << damaged(key, garbage);
            EXPECT_TRUE(symbol.getValue().getBorderColor().isValid()) << damaged(key, garbage);
            EXPECT_TRUE(KugEMarker::existsKey(symbol.getValue().getShape().getKey())) << damaged(key, garbage);
        }
    }
}

TEST(KpaSymbol, DebugsItsConfig)
{
    EXPECT_EQ(KpaSymbolConfig().debug(), "----- KpaSymbolConfig --------\n"
                                         "color readonly   = no\n"
                                         "border available = yes\n"
                                         "size available = yes\n");
    KpaSymbolConfig config;
    config.setColorReadonly(true);
    config.setBorderAvailable(false);
    config.setSizeAvailable(false);
    EXPECT_EQ(config.debug(), "----- KpaSymbolConfig --------\n"
                              "color readonly   = yes\n"
                              "border available = no\n"
                              "size available = no\n");
}

TEST(KpaSymbol, DuplicatesValueAndConfigWithoutItsObservers)
{
    ObservedAtomic<KpaSymbol> observed;
    observed.atomic.setValue(star());
    observed.atomic.setColorReadonly(true);
    const std::unique_ptr<KpaSymbol> sameKey(observed.atomic.duplicate(""));
    const std::unique_ptr<KpaSymbol> copy(observed.atomic.duplicate("COPY"));
    observed.takeFlags();
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValue(), star());
    EXPECT_TRUE(copy->isColorReadonly());
    copy->setValue(KugSymbol());
    EXPECT_EQ(observed.atomic.getValue(), star());
    EXPECT_EQ(observed.takeFlags(), Flags());
}
