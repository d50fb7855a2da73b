#include <param/atomic/KpaSymbol3D.h>
#include <support/ForeignLocale.h>
#include <support/GarbageTexts.h>
#include <support/ObservedAtomic.h>

#include <cmath>
#include <memory>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaSymbol3DConfig, KugSymbol3D>);

namespace {
using Flags = QList<int>;
using Map = KpbAParameter::SerialForm;

KugSymbol3D cone()
{
    KugSymbol3D symbol;
    symbol.setShape(KugEVolumeMarker::CONE);
    symbol.setSize(2.5);
    symbol.setQuality(0.25);
    symbol.setColor(QColor(1, 2, 3, 4));
    return symbol;
}

Map storedCone()
{
    return {{"shape", "CONE"}, {"size", "2.5"}, {"quality", "0.25"}, {"red", "1"},
            {"green", "2"},    {"blue", "3"},   {"opacity", "4"}};
}

Map with(const QString& key, const QString& text)
{
    Map map = storedCone();
    map.insert(key, text);
    return map;
}

KugSymbol3D previous()
{
    KugSymbol3D symbol;
    symbol.setShape(KugEVolumeMarker::CUBE);
    symbol.setSize(99);
    symbol.setQuality(1);
    symbol.setColor(QColor(91, 92, 93, 94));
    return symbol;
}

KugSymbol3D read(const Map& map)
{
    return KpaSymbol3DConfig().unserializeValue(map, previous());
}
} // namespace

TEST(KpaSymbol3D, IsOfTheKindSymbol3D)
{
    EXPECT_EQ(KpaSymbol3D("KEY").getType(), KpbEType::SYMBOL_3D);
    EXPECT_EQ(KpaSymbol3DConfig().getType(), KpbEType::SYMBOL_3D);
}

TEST(KpaSymbol3D, StartsWithTheDefaultSymbol)
{
    const KpaSymbol3D symbol("KEY");
    EXPECT_EQ(symbol.getValue(), KugSymbol3D());
    EXPECT_EQ(symbol.getAutoValue(), KugSymbol3D());
    EXPECT_EQ(KpaSymbol3DConfig().getInitialValue(), KugSymbol3D());
    EXPECT_FALSE(symbol.isColorReadonly());
    EXPECT_FALSE(symbol.isSizeReadonly());
}

TEST(KpaSymbol3D, TellsOfAChangedConfigurationAndOfNoOther)
{
    ObservedAtomic<KpaSymbol3D> observed;
    const auto setColor = [](KpaSymbol3D& p) { p.setColorReadonly(true); };
    EXPECT_EQ(observed.flagsOf(setColor), Flags{Kp::NotifyConfig});
    EXPECT_EQ(observed.flagsOf(setColor), Flags());
    EXPECT_TRUE(observed.atomic.isColorReadonly());
    EXPECT_FALSE(observed.atomic.isSizeReadonly());
    const KpaSymbol3DConfig first = observed.atomic.getConfig();
    EXPECT_TRUE(first != KpaSymbol3DConfig());
    const auto setSize = [](KpaSymbol3D& p) { p.setSizeReadonly(true); };
    EXPECT_EQ(observed.flagsOf(setSize), Flags{Kp::NotifyConfig});
    EXPECT_EQ(observed.flagsOf(setSize), Flags());
    EXPECT_TRUE(observed.atomic.isSizeReadonly());
    EXPECT_TRUE(observed.atomic.getConfig() != first);
}

TEST(KpaSymbol3D, AdmitsEverySymbol)
{
    EXPECT_EQ(KpaSymbol3DConfig().fix(cone(), previous()), cone());
}

TEST(KpaSymbol3D, ShowsShapeSizeAndColor)
{
    EXPECT_EQ(KpaSymbol3D("KEY").toString(), "[Sphere] Size[1] Color[0|0|0]");
    EXPECT_EQ(KpaSymbol3DConfig().toString(cone()), "[Cone] Size[2.5] Color[1|2|3]");
}

TEST(KpaSymbol3D, StoresItsSymbol)
{
    EXPECT_EQ(KpaSymbol3D("KEY").serialize(), Map({{"shape", "SPHERE"},
                                                   {"size", "1"},
                                                   {"quality", "0.5"},
                                                   {"red", "0"},
                                                   {"green", "0"},
                                                   {"blue", "0"},
                                                   {"opacity", "255"}}));
    EXPECT_EQ(KpaSymbol3DConfig().serializeValue(cone()), storedCone());
    KugSymbol3D third;
    third.setSize(1.0 / 3);
    EXPECT_EQ(KpaSymbol3DConfig().serializeValue(third).value("size"), "0.3333333333");
}

TEST(KpaSymbol3D, ReadsBackWhatItStores)
{
    EXPECT_EQ(read(storedCone()), cone());
}

TEST(KpaSymbol3D, WritesAndReadsNumbersWhateverTheLocale)
{
    const ForeignLocale foreign;
    EXPECT_EQ(KpaSymbol3DConfig().serializeValue(cone()), storedCone());
    EXPECT_EQ(KpaSymbol3DConfig().toString(cone()), "[Cone] Size[2.5] Color[1|2|3]");
    EXPECT_EQ(read(storedCone()), cone());
}

TEST(KpaSymbol3D, KeepsItsSymbolWholeWithoutAKnownShape)
{
    Map map = storedCone();
    map.remove("shape");
    EXPECT_EQ(read(map), previous());
    EXPECT_EQ(read({}), previous());
    for (const char* shape : {"", "cone", "Cone", "5", "CIRCLE"})
        EXPECT_EQ(read(with("shape", shape)), previous()) << shape;
}

TEST(KpaSymbol3D, TakesWhatElseIsMissingFromThePreviousSymbol)
{
    KugSymbol3D expected = previous();
    expected.setShape(KugEVolumeMarker::CONE);
    EXPECT_EQ(read({{"shape", "CONE"}}), expected);
}

TEST(KpaSymbol3D, TakesEntriesThatCannotBeReadFromThePreviousSymbol)
{
    for (const char* text : {"", "abc", "1,5", "nan", "inf", "1e999"}) {
        EXPECT_EQ(read(with("size", text)).getSize(), 99) << text;
        EXPECT_EQ(read(with("quality", text)).getQuality(), 1) << text;
        EXPECT_EQ(read(with("red", text)).getColor(), QColor(91, 2, 3, 4)) << text;
        EXPECT_EQ(read(with("green", text)).getColor(), QColor(1, 92, 3, 4)) << text;
        EXPECT_EQ(read(with("blue", text)).getColor(), QColor(1, 2, 93, 4)) << text;
        EXPECT_EQ(read(with("opacity", text)).getColor(), QColor(1, 2, 3, 94)) << text;
    }
}

TEST(KpaSymbol3D, SurvivesGarbageInEachEntry)
{
    KpaSymbol3D symbol("KEY");
    for (const QString& key : storedCone().keys()) {
        for (const QString& garbage : garbageTexts()) {
            symbol.setValue(previous());
            symbol.unserialize(with(key, garbage));
            EXPECT_TRUE(symbol.getValue().getColor().isValid()) << damaged(key, garbage);
            EXPECT_TRUE(std::isfinite(symbol.getValue().getSize())) << damaged(key, garbage);
            EXPECT_TRUE(std::isfinite(symbol.getValue().getQuality())) << damaged(key, garbage);
        }
    }
}

TEST(KpaSymbol3D, DebugsItsConfig)
{
    EXPECT_EQ(KpaSymbol3DConfig().debug(), "----- KpaSymbol3DConfig --------\n"
                                           "color readonly = no\n"
                                           "size readonly  = no\n");
    KpaSymbol3DConfig config;
    config.setColorReadonly(true);
    config.setSizeReadonly(true);
    EXPECT_EQ(config.debug(), "----- KpaSymbol3DConfig --------\n"
                              "color readonly = yes\n"
                              "size readonly  = yes\n");
}

TEST(KpaSymbol3D, DuplicatesValueAndConfigWithoutItsObservers)
{
    ObservedAtomic<KpaSymbol3D> observed;
    observed.atomic.setValue(cone());
    observed.atomic.setSizeReadonly(true);
    const std::unique_ptr<KpaSymbol3D> sameKey(observed.atomic.duplicate(""));
    const std::unique_ptr<KpaSymbol3D> copy(observed.atomic.duplicate("COPY"));
    observed.takeFlags();
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValue(), cone());
    EXPECT_TRUE(copy->isSizeReadonly());
    copy->setValue(KugSymbol3D());
    EXPECT_EQ(observed.atomic.getValue(), cone());
    EXPECT_EQ(observed.takeFlags(), Flags());
}
