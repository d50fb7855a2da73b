#include <param/atomic/KpaColor.h>
#include <support/ForeignLocale.h>
#include <support/GarbageTexts.h>
#include <support/ObservedAtomic.h>

#include <memory>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaColorConfig, QColor>);

namespace {
using Flags = QList<int>;
using Map = KpbAParameter::SerialForm;

KpaColorConfig opaqueOnly()
{
    KpaColorConfig config;
    config.setAlphaEnabled(false);
    return config;
}
} // namespace

TEST(KpaColor, IsOfTheKindColor)
{
    EXPECT_EQ(KpaColor("KEY").getType(), KpbEType::COLOR);
    EXPECT_EQ(KpaColorConfig().getType(), KpbEType::COLOR);
}

TEST(KpaColor, IsBlackWhenFresh)
{
    const KpaColor color("KEY");
    EXPECT_EQ(color.getValue(), QColor(0, 0, 0));
    EXPECT_EQ(color.getAutoValue(), QColor(0, 0, 0));
    EXPECT_EQ(KpaColorConfig().getInitialValue(), QColor(0, 0, 0));
    EXPECT_EQ(color.toString(), "#000000");
    EXPECT_TRUE(color.isAlphaEnabled());
}

TEST(KpaColor, TellsOfAChangedConfigurationAndOfNoOther)
{
    ObservedAtomic<KpaColor> observed;
    const auto set = [](KpaColor& color) { color.setAlphaEnabled(false); };
    EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyConfig});
    EXPECT_FALSE(observed.atomic.isAlphaEnabled());
    EXPECT_EQ(observed.flagsOf(set), Flags());
    EXPECT_TRUE(KpaColorConfig() != opaqueOnly());
    EXPECT_TRUE(opaqueOnly() == opaqueOnly());
}

TEST(KpaColor, MakesItsColorOpaqueWhereNoOtherIsAdmitted)
{
    const QColor transparent(10, 20, 30, 128);
    EXPECT_EQ(KpaColorConfig().fix(transparent, QColor()), transparent);
    EXPECT_EQ(opaqueOnly().fix(transparent, QColor()), QColor(10, 20, 30, 255));
    ObservedAtomic<KpaColor> observed;
    observed.atomic.setValue(transparent);
    EXPECT_EQ(observed.flagsOf([](KpaColor& color) { color.setAlphaEnabled(false); }),
              Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_EQ(observed.atomic.getValue(), QColor(10, 20, 30, 255));
    EXPECT_EQ(observed.flagsOf([&](KpaColor& color) { color.setValue(transparent); }), Flags{Kp::NotifyValue});
}

TEST(KpaColor, ShowsTheOpacityOfATransparentColor)
{
    const std::pair<QColor, const char*> rows[] = {
        {QColor(255, 128, 0), "#ff8000"},
        {QColor(255, 128, 0, 255), "#ff8000"},
        {QColor(255, 128, 0, 51), "#ff8000 (opacity=20.000000%)"},
        {QColor(255, 128, 0, 128), "#ff8000 (opacity=50.196078%)"},
        {QColor(255, 128, 0, 0), "#ff8000 (opacity=0.000000%)"},
    };
    for (const auto& [color, text] : rows)
        EXPECT_EQ(KpaColorConfig().toString(color), text);
    EXPECT_EQ(opaqueOnly().toString(QColor(255, 128, 0, 128)), "#ff8000");
}

TEST(KpaColor, ShowsItsOpacityWhateverTheLocale)
{
    const ForeignLocale foreign;
    EXPECT_EQ(KpaColorConfig().toString(QColor(255, 128, 0, 51)), "#ff8000 (opacity=20.000000%)");
}

TEST(KpaColor, StoresTheRedGreenAndBlueOfAColorThatIsGivenInAnotherWay)
{
    KpaColor color("KEY");
    color.setValue(QColor::fromHsv(120, 255, 255));
    EXPECT_EQ(color.serialize(), Map({{"red", "0"}, {"green", "255"}, {"blue", "0"}, {"opacity", "255"}}));
    EXPECT_EQ(KpaColorConfig().unserializeValue({{"blue", "9"}}, color.getValue()), QColor(0, 255, 9));
}

TEST(KpaColor, StoresItsComponents)
{
    KpaColor color("KEY");
    color.setValue(QColor(255, 128, 0, 51));
    EXPECT_EQ(color.serialize(), Map({{"red", "255"}, {"green", "128"}, {"blue", "0"}, {"opacity", "51"}}));
    color.setAlphaEnabled(false);
    EXPECT_EQ(color.serialize(), Map({{"red", "255"}, {"green", "128"}, {"blue", "0"}}));
}

TEST(KpaColor, HasNoOpacityInItsTextAndItsFormWhereAlphaIsDisabled)
{
    KpaColor color("KEY");
    color.setAlphaEnabled(false);
    color.setValue(QColor(1, 2, 3, 128));
    EXPECT_EQ(color.getValue().alpha(), 255);
    EXPECT_EQ(color.toString(), "#010203");
    EXPECT_FALSE(color.serialize().contains("opacity"));
}

TEST(KpaColor, ReadsItsComponents)
{
    KpaColor color("KEY");
    color.unserialize({{"red", "1"}, {"green", "2"}, {"blue", "3"}, {"opacity", "4"}});
    EXPECT_EQ(color.getValue(), QColor(1, 2, 3, 4));
    color.setAlphaEnabled(false);
    color.unserialize({{"red", "5"}, {"green", "6"}, {"blue", "7"}, {"opacity", "8"}});
    EXPECT_EQ(color.getValue(), QColor(5, 6, 7, 255));
}

TEST(KpaColor, TakesMissingComponentsFromThePreviousColorAndMissingOpacityAsFull)
{
    const QColor previous(1, 2, 3, 4);
    const std::pair<Map, QColor> rows[] = {
        {{}, QColor(1, 2, 3, 255)},
        {{{"red", "9"}}, QColor(9, 2, 3, 255)},
        {{{"green", "9"}}, QColor(1, 9, 3, 255)},
        {{{"blue", "9"}}, QColor(1, 2, 9, 255)},
        {{{"opacity", "9"}}, QColor(1, 2, 3, 9)},
    };
    for (const auto& [map, expected] : rows)
        EXPECT_EQ(KpaColorConfig().unserializeValue(map, previous), expected);
    EXPECT_EQ(opaqueOnly().unserializeValue({{"opacity", "9"}}, previous), QColor(1, 2, 3, 255));
}

TEST(KpaColor, ReadsAColorWhereThePreviousOneIsNone)
{
    EXPECT_EQ(KpaColorConfig().unserializeValue({{"red", "9"}}, QColor()), QColor(9, 0, 0, 255));
}

TEST(KpaColor, MovesComponentsOutOfRangeToTheNearerEnd)
{
    const std::pair<const char*, int> rows[] = {
        {"-1", 0}, {"256", 255}, {"2147483647", 255}, {"-2147483648", 0}, {" 12 ", 12},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(KpaColorConfig().unserializeValue({{"red", text}}, QColor(1, 2, 3)), QColor(expected, 2, 3)) << text;
}

TEST(KpaColor, SurvivesGarbageInEachEntry)
{
    KpaColor color("KEY");
    const Map stored = color.serialize();
    for (const QString& key : stored.keys()) {
        for (const QString& garbage : garbageTexts()) {
            color.setValue(QColor(1, 2, 3, 4));
            Map map = stored;
            map.insert(key, garbage);
            color.unserialize(map);
            EXPECT_TRUE(color.getValue().isValid()) << damaged(key, garbage);
        }
    }
    for (const char* text : {"", "abc", "1.5", "0x10", "nan", "99999999999999999999"})
        EXPECT_EQ(KpaColorConfig().unserializeValue({{"red", text}}, QColor(1, 2, 3)), QColor(1, 2, 3)) << text;
}

TEST(KpaColor, ReadsBackWhatItStores)
{
    KpaColor color("KEY");
    KpaColor other("OTHER");
    color.setValue(QColor(11, 22, 33, 44));
    other.unserialize(color.serialize());
    EXPECT_EQ(other.getValue(), color.getValue());
    EXPECT_EQ(other.serialize(), color.serialize());
}

TEST(KpaColor, GivesAndTakesItsColorAsOneWord)
{
    KpaColor color("KEY");
    EXPECT_EQ(color.getMbbColor(), MbbColor(0xFF000000));
    color.setMbbColor(MbbColor(0x80FF4001));
    EXPECT_EQ(color.getValue(), QColor(0xFF, 0x40, 0x01, 0x80));
    EXPECT_EQ(color.getMbbColor(), MbbColor(0x80FF4001));
    color.setAlphaEnabled(false);
    color.setMbbColor(MbbColor(0x00FFFFFF));
    EXPECT_EQ(color.getMbbColor(), MbbColor(0xFFFFFFFF));
}

TEST(KpaColor, DebugsItsConfig)
{
    EXPECT_EQ(KpaColorConfig().debug(), "----- KpaColorConfig --------\n"
                                        " alpha enabled    = yes\n");
    EXPECT_EQ(opaqueOnly().debug(), "----- KpaColorConfig --------\n"
                                    " alpha enabled    = no\n");
}

TEST(KpaColor, DuplicatesValueAndConfigWithoutItsObservers)
{
    ObservedAtomic<KpaColor> observed;
    observed.atomic.setValue(Qt::red);
    observed.atomic.setAlphaEnabled(false);
    const std::unique_ptr<KpaColor> sameKey(observed.atomic.duplicate(""));
    const std::unique_ptr<KpaColor> copy(observed.atomic.duplicate("COPY"));
    observed.takeFlags();
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValue(), QColor(Qt::red));
    EXPECT_FALSE(copy->isAlphaEnabled());
    copy->setValue(Qt::blue);
    EXPECT_EQ(observed.atomic.getValue(), QColor(Qt::red));
    EXPECT_EQ(observed.takeFlags(), Flags());
}
