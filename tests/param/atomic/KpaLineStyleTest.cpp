#include <basic/MbbGlobal.h>
#include <param/atomic/KpaLineStyle.h>
#include <support/ForeignLocale.h>
#include <support/GarbageTexts.h>
#include <support/ObservedAtomic.h>

#include <functional>
#include <memory>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaLineStyleConfig, KugLineStyle>);

namespace {
using Flags = QList<int>;
using Map = KpbAParameter::SerialForm;

KugLineStyle dashed()
{
    KugLineStyle style;
    style.setPen(KugEPen::DASH);
    style.setColor(QColor(1, 2, 3, 128));
    style.setWidth(2.5);
    style.setBorder(true);
    style.setBorderColor(QColor(255, 0, 0));
    style.setBorderWidth(0.1);
    return style;
}

Map storedDashed()
{
    return {{"pen", "DASH"},   {"color", "#80010203"},       {"width", "2.5"},
            {"border", "yes"}, {"borderColor", "#ffff0000"}, {"borderWidth", "0.1"}};
}

/// The stored form with another text under `key`.
Map with(const QString& key, const QString& text)
{
    Map map = storedDashed();
    map.insert(key, text);
    return map;
}

Map without(const QString& key)
{
    Map map = storedDashed();
    map.remove(key);
    return map;
}

/// The style that is read over one in which nothing is as in the stored form.
KugLineStyle previous()
{
    KugLineStyle style;
    style.setPen(KugEPen::DOT);
    style.setColor(QColor(9, 9, 9));
    style.setWidth(7);
    style.setBorder(false);
    style.setBorderColor(QColor(8, 8, 8));
    style.setBorderWidth(6);
    return style;
}

KugLineStyle read(const Map& map)
{
    return KpaLineStyleConfig().unserializeValue(map, previous());
}
} // namespace

TEST(KpaLineStyle, IsOfTheKindLineStyle)
{
    EXPECT_EQ(KpaLineStyle("KEY").getType(), KpbEType::LINE_STYLE);
    EXPECT_EQ(KpaLineStyleConfig().getType(), KpbEType::LINE_STYLE);
}

TEST(KpaLineStyle, StartsWithTheDefaultStyle)
{
    const KpaLineStyle line("KEY");
    EXPECT_EQ(line.getValue(), KugLineStyle());
    EXPECT_EQ(line.getAutoValue(), KugLineStyle());
    EXPECT_EQ(KpaLineStyleConfig().getInitialValue(), KugLineStyle());
    EXPECT_FALSE(line.isColorEnabled());
    EXPECT_TRUE(line.isNoLineAvailable());
    EXPECT_TRUE(line.isWidthEnabled());
}

TEST(KpaLineStyle, TellsOfAChangedConfigurationAndOfNoOther)
{
    struct Row
    {
        const char* name;
        std::function<void(KpaLineStyle&)> set;
        bool color;
        bool noLine;
        bool width;
    };
    const Row rows[] = {
        {"color", [](KpaLineStyle& p) { p.setColorEnabled(true); }, true, true, true},
        {"no line", [](KpaLineStyle& p) { p.setNoLineAvailable(false); }, false, false, true},
        {"width", [](KpaLineStyle& p) { p.setWidthEnabled(false); }, false, true, false},
    };
    for (const Row& row : rows) {
        ObservedAtomic<KpaLineStyle> observed;
        EXPECT_EQ(observed.flagsOf(row.set), Flags{Kp::NotifyConfig}) << row.name;
        EXPECT_EQ(observed.flagsOf(row.set), Flags()) << row.name;
        EXPECT_EQ(observed.atomic.isColorEnabled(), row.color) << row.name;
        EXPECT_EQ(observed.atomic.isNoLineAvailable(), row.noLine) << row.name;
        EXPECT_EQ(observed.atomic.isWidthEnabled(), row.width) << row.name;
        EXPECT_TRUE(observed.atomic.getConfig() != KpaLineStyleConfig()) << row.name;
    }
}

TEST(KpaLineStyle, AdmitsEveryStyle)
{
    EXPECT_EQ(KpaLineStyleConfig().fix(dashed(), previous()), dashed());
    KpaLineStyle line("KEY");
    line.setNoLineAvailable(false);
    KugLineStyle none;
    none.setPen(KugEPen::NO_LINE);
    line.setValue(none);
    EXPECT_EQ(line.getValue(), none);
}

TEST(KpaLineStyle, ShowsWhatIsEnabled)
{
    struct Row
    {
        bool color;
        bool width;
        const char* text;
    };
    const Row rows[] = {
        {false, false, "Pen[Dash]"},
        {false, true, "Pen[Dash] Width[2.5]"},
        {true, false, "Pen[Dash] Color[#80010203]"},
        {true, true, "Pen[Dash] Color[#80010203] Width[2.5]"},
    };
    for (const Row& row : rows) {
        KpaLineStyleConfig config;
        config.setColorEnabled(row.color);
        config.setWidthEnabled(row.width);
        EXPECT_EQ(config.toString(dashed()), row.text);
    }
    EXPECT_EQ(KpaLineStyle("KEY").toString(), "Pen[Solid] Width[1]");
}

TEST(KpaLineStyle, ShowsThatAWidthIsMissing)
{
    KugLineStyle style;
    style.setWidth(MbbGlobal::D_FFFF);
    EXPECT_EQ(KpaLineStyleConfig().toString(style), "Pen[Solid] Width[N/A]");
}

TEST(KpaLineStyle, StoresItsStyle)
{
    KpaLineStyle line("KEY");
    EXPECT_EQ(line.serialize(), Map({{"pen", "SOLID"},
                                     {"color", "#ff000000"},
                                     {"width", "1"},
                                     {"border", "no"},
                                     {"borderColor", "#ff000000"},
                                     {"borderWidth", "1"}}));
    line.setValue(dashed());
    EXPECT_EQ(line.serialize(), storedDashed());
    KugLineStyle style;
    style.setWidth(1.0 / 3);
    style.setBorderWidth(MbbGlobal::D_FFFF);
    line.setValue(style);
    EXPECT_EQ(line.serialize().value("width"), "0.3333333333");
    EXPECT_EQ(line.serialize().value("borderWidth"), "");
}

TEST(KpaLineStyle, ReadsBackWhatItStores)
{
    EXPECT_EQ(read(storedDashed()), dashed());
    KugLineStyle style = dashed();
    style.setBorderWidth(MbbGlobal::D_FFFF);
    EXPECT_EQ(read(KpaLineStyleConfig().serializeValue(style)), style);
}

TEST(KpaLineStyle, WritesAndReadsNumbersWhateverTheLocale)
{
    const ForeignLocale foreign;
    EXPECT_EQ(KpaLineStyleConfig().serializeValue(dashed()), storedDashed());
    EXPECT_EQ(KpaLineStyleConfig().toString(dashed()), "Pen[Dash] Width[2.5]");
    EXPECT_EQ(read(storedDashed()), dashed());
    EXPECT_EQ(read(with("width", "2,5")).getWidth(), MbbGlobal::D_FFFF);
}

TEST(KpaLineStyle, KeepsItsStyleWholeWithoutPenColorOrWidth)
{
    for (const char* key : {"pen", "color", "width"})
        EXPECT_EQ(read(without(key)), previous()) << key;
    EXPECT_EQ(read({}), previous());
}

TEST(KpaLineStyle, KeepsItsStyleWholeForAnUnknownPen)
{
    for (const char* pen : {"", "dash", "Dash", "2", "WAVY", "DASH "})
        EXPECT_EQ(read(with("pen", pen)), previous()) << pen;
}

TEST(KpaLineStyle, ReadsAStyleWithoutBorder)
{
    KugLineStyle expected = dashed();
    expected.setBorder(previous().hasBorder());
    expected.setBorderColor(previous().getBorderColor());
    expected.setBorderWidth(previous().getBorderWidth());
    EXPECT_EQ(read({{"pen", "DASH"}, {"color", "#80010203"}, {"width", "2.5"}}), expected);
}

TEST(KpaLineStyle, KeepsTheColorWhereTheStoredTextIsNone)
{
    for (const char* text : {"", " ", "reddish", "#12345", "#gggggg", "1,2,3"}) {
        EXPECT_EQ(read(with("color", text)).getColor(), previous().getColor()) << text;
        EXPECT_EQ(read(with("color", text)).getPen(), KugEPen::DASH) << text;
        EXPECT_EQ(read(with("borderColor", text)).getBorderColor(), previous().getBorderColor()) << text;
    }
    EXPECT_EQ(read(with("color", "red")).getColor(), QColor(255, 0, 0));
    EXPECT_EQ(read(with("color", "#010203")).getColor(), QColor(1, 2, 3));
}

TEST(KpaLineStyle, ReadsAWidthThatIsNoNumberAsUndefined)
{
    for (const char* text : {"", "abc", "1,5", "nan", "inf", "1e999"}) {
        EXPECT_EQ(read(with("width", text)).getWidth(), MbbGlobal::D_FFFF) << text;
        EXPECT_EQ(read(with("borderWidth", text)).getBorderWidth(), MbbGlobal::D_FFFF) << text;
    }
}

TEST(KpaLineStyle, ReadsWhetherThereIsABorder)
{
    const std::pair<const char*, bool> rows[] = {
        {"yes", true}, {"True", true}, {"1", true}, {"no", false}, {"False", false}, {"0", false},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(read(with("border", text)).hasBorder(), expected) << text;
    KugLineStyle bordered = previous();
    bordered.setBorder(true);
    for (const char* text : {"", "YES", "maybe"}) {
        EXPECT_FALSE(read(with("border", text)).hasBorder()) << text;
        EXPECT_TRUE(KpaLineStyleConfig().unserializeValue(with("border", text), bordered).hasBorder()) << text;
    }
}

TEST(KpaLineStyle, SurvivesGarbageInEachEntry)
{
    KpaLineStyle line("KEY");
    for (const QString& key : storedDashed().keys()) {
        for (const QString& garbage : garbageTexts()) {
            line.setValue(previous());
            line.unserialize(with(key, garbage));
            EXPECT_TRUE(line.getValue().getColor().isValid()) << damaged(key, garbage);
            EXPECT_TRUE(line.getValue().getBorderColor().isValid()) << damaged(key, garbage);
            EXPECT_TRUE(KugEPen::existsKey(line.getValue().getPen().getKey())) << damaged(key, garbage);
        }
    }
}

TEST(KpaLineStyle, DebugsItsConfig)
{
    EXPECT_EQ(KpaLineStyleConfig().debug(), "----- KpaLineStyleConfig --------\n"
                                            "color enabled = false\n"
                                            "width enabled = true\n"
                                            "'No Line' available = true\n");
    KpaLineStyleConfig config;
    config.setColorEnabled(true);
    config.setWidthEnabled(false);
    config.setNoLineAvailable(false);
    EXPECT_EQ(config.debug(), "----- KpaLineStyleConfig --------\n"
                              "color enabled = true\n"
                              "width enabled = false\n"
                              "'No Line' available = false\n");
}

TEST(KpaLineStyle, DuplicatesValueAndConfigWithoutItsObservers)
{
    ObservedAtomic<KpaLineStyle> observed;
    observed.atomic.setValue(dashed());
    observed.atomic.setColorEnabled(true);
    const std::unique_ptr<KpaLineStyle> sameKey(observed.atomic.duplicate(""));
    const std::unique_ptr<KpaLineStyle> copy(observed.atomic.duplicate("COPY"));
    observed.takeFlags();
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValue(), dashed());
    EXPECT_TRUE(copy->isColorEnabled());
    copy->setValue(KugLineStyle());
    EXPECT_EQ(observed.atomic.getValue(), dashed());
    EXPECT_EQ(observed.takeFlags(), Flags());
}
