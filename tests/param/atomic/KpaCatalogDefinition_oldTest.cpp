#include <param/atomic/KpaCatalogDefinition_old.h>
#include <support/GarbageTexts.h>
#include <support/ObservedAtomic.h>

#include <memory>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaCatalogDefinition_oldConfig, MbdEnumCatalog>);

namespace {
using Flags = QList<int>;
using Map = KpbAParameter::SerialForm;
using Parameter = KpaCatalogDefinition_old;
using Config = KpaCatalogDefinition_oldConfig;

MbdEnumCatalog rocks()
{
    MbdEnumCatalog catalog("rocks-id", "Rock types");
    catalog.setUndefColor(MbbColor(0xFF010203));
    catalog.setCategory(5, "Sand", MbbColor(0xFFFF0000));
    catalog.setCategory(-2, "Clay", MbbColor(0x00000000));
    return catalog;
}

Map storedRocks()
{
    return {{"id", "rocks-id"},
            {"name", "Rock types"},
            {"undefRgba", "4278256131"},
            {"enum1", "-2|Clay|0"},
            {"enum2", "5|Sand|4294901760"}};
}

Map with(const QString& key, const QString& text)
{
    Map map = storedRocks();
    map.insert(key, text);
    return map;
}

MbdEnumCatalog previous()
{
    return MbdEnumCatalog("previous-id", "Previous");
}

MbdEnumCatalog read(const Map& map)
{
    return Config().unserializeValue(map, previous());
}

/// The categories of a form that has one, stored as `text`.
QMap<int, MbdEnumCatalog::Category> readCategory(const QString& text)
{
    return read({{"id", ""}, {"name", ""}, {"undefRgba", ""}, {"enum1", text}}).getCategories();
}
} // namespace

TEST(KpaCatalogDefinition_old, IsOfTheKindOldCatalogDefinition)
{
    EXPECT_EQ(Parameter("KEY").getType(), KpbEType::OLD_CATALOG_DEF);
    EXPECT_EQ(Config().getType(), KpbEType::OLD_CATALOG_DEF);
}

TEST(KpaCatalogDefinition_old, StartsWithADefaultCatalog)
{
    const Parameter parameter("KEY");
    EXPECT_EQ(parameter.getValue(), MbdEnumCatalog());
    EXPECT_EQ(parameter.getAutoValue(), MbdEnumCatalog());
    EXPECT_EQ(Config().getInitialValue(), MbdEnumCatalog());
    EXPECT_FALSE(parameter.isCatalogNameReadOnly());
    EXPECT_TRUE(parameter.areNumericValuesReadOnly());
}

TEST(KpaCatalogDefinition_old, TellsOfAChangedConfigurationAndOfNoOther)
{
    ObservedAtomic<Parameter> observed;
    const auto setName = [](Parameter& p) { p.setCatalogNameReadOnly(true); };
    EXPECT_EQ(observed.flagsOf(setName), Flags{Kp::NotifyConfig});
    EXPECT_EQ(observed.flagsOf(setName), Flags());
    EXPECT_TRUE(observed.atomic.isCatalogNameReadOnly());
    EXPECT_TRUE(observed.atomic.areNumericValuesReadOnly());
    const Config first = observed.atomic.getConfig();
    EXPECT_TRUE(first != Config());
    const auto setValues = [](Parameter& p) { p.setNumericValuesReadOnly(false); };
    EXPECT_EQ(observed.flagsOf(setValues), Flags{Kp::NotifyConfig});
    EXPECT_EQ(observed.flagsOf(setValues), Flags());
    EXPECT_FALSE(observed.atomic.areNumericValuesReadOnly());
    EXPECT_TRUE(observed.atomic.getConfig() != first);
}

TEST(KpaCatalogDefinition_old, AdmitsEveryCatalog)
{
    EXPECT_EQ(Config().fix(rocks(), previous()), rocks());
}

TEST(KpaCatalogDefinition_old, ShowsTheNameOfItsCatalog)
{
    Parameter parameter("KEY");
    EXPECT_EQ(parameter.toString(), "");
    parameter.setValue(rocks());
    EXPECT_EQ(parameter.toString(), "Rock types");
}

TEST(KpaCatalogDefinition_old, StoresItsCatalog)
{
    Parameter parameter("KEY");
    EXPECT_EQ(parameter.serialize(), Map({{"id", ""}, {"name", ""}, {"undefRgba", "4294967295"}}));
    parameter.setValue(rocks());
    EXPECT_EQ(parameter.serialize(), storedRocks());
}

TEST(KpaCatalogDefinition_old, ReadsBackWhatItStores)
{
    EXPECT_EQ(read(storedRocks()), rocks());
    MbdEnumCatalog odd("", "A|B");
    odd.setCategory(1, "", MbbColor(0xFF000001));
    odd.setCategory(2, "Sand|Clay", MbbColor(0xFF000002));
    odd.setCategory(3, "100 %", MbbColor(0xFF000003));
    EXPECT_EQ(read(Config().serializeValue(odd)), odd);
}

TEST(KpaCatalogDefinition_old, KeepsItsCatalogWholeWithoutIdNameOrColor)
{
    for (const char* key : {"id", "name", "undefRgba"}) {
        Map map = storedRocks();
        map.remove(key);
        EXPECT_EQ(read(map), previous()) << key;
    }
    EXPECT_EQ(read({}), previous());
}

TEST(KpaCatalogDefinition_old, ReadsACatalogWithoutCategories)
{
    EXPECT_EQ(read({{"id", "1"}, {"name", "n"}, {"undefRgba", "7"}}).getCategories().size(), 0);
    EXPECT_EQ(read({{"id", "1"}, {"name", "n"}, {"undefRgba", "7"}}).getUndefColor(), MbbColor(7));
}

TEST(KpaCatalogDefinition_old, ReadsCategoriesFromEveryKeyThatStartsWithEnum)
{
    const auto categories = read({{"enum", "1|a|1"},
                                  {"id", ""},
                                  {"enumX", "2|b|2"},
                                  {"name", ""},
                                  {"enum99", "3|c|3"},
                                  {"undefRgba", ""},
                                  {"Enum4", "4|d|4"},
                                  {"an enum", "5|e|5"}})
                                .getCategories();
    EXPECT_EQ(categories.keys(), QList<int>({1, 2, 3}));
    EXPECT_EQ(categories.value(2), (MbdEnumCatalog::Category{"b", MbbColor(2)}));
}

TEST(KpaCatalogDefinition_old, DecodesNamesAndLabelsThatHoldEscapes)
{
    const std::pair<const char*, const char*> rows[] = {
        {"Rock%20types", "Rock types"},
        {"caf%C3%A9%20", "café "},
        {"%41", "A"},
        {"100 %", "100 %"},
        {"%C3%A9", "%C3%A9"}, // two digits have to follow somewhere
        {"%2", "%2"},
        {"a+b%20c", "a+b c"},
    };
    for (const auto& [stored, expected] : rows) {
        EXPECT_EQ(read(with("name", stored)).getName(), expected) << stored;
        EXPECT_EQ(readCategory(QStringLiteral("1|%1|2").arg(stored)).value(1).label, expected) << stored;
    }
    EXPECT_EQ(read(with("id", "a%20b")).getId(), "a%20b");
}

TEST(KpaCatalogDefinition_old, DropsEmptyPartsOfACategory)
{
    const QMap<int, MbdEnumCatalog::Category> expected{{1, {"Sand", MbbColor(2)}}};
    for (const char* text : {"1|Sand|2", "|1|Sand|2", "1||Sand|2", "1|Sand||2|", "||1|Sand|2||"})
        EXPECT_EQ(readCategory(text), expected) << text;
}

TEST(KpaCatalogDefinition_old, PassesOverCategoriesWithoutANumberOrAnythingElse)
{
    for (const char* text : {"", "|", "1", "1|", "Sand|2", "x|Sand|2", "1.5|Sand|2", "|Sand|2", "2147483648|Sand|2"})
        EXPECT_TRUE(readCategory(text).isEmpty()) << text;
}

TEST(KpaCatalogDefinition_old, ReadsColorsThatAreNoNumbersAsZero)
{
    for (const char* text : {"", "abc", "-1", "4294967296", "#ff0000", "1.5"})
        EXPECT_EQ(read(with("undefRgba", text)).getUndefColor(), MbbColor(0)) << text;
    for (const char* text : {"abc", "-1", "4294967296"}) {
        const auto categories = readCategory(QStringLiteral("1|Sand|%1").arg(text));
        EXPECT_EQ(categories.value(1), (MbdEnumCatalog::Category{"Sand", MbbColor(0)})) << text;
    }
}

TEST(KpaCatalogDefinition_old, TakesWhatFollowsANumberAsTheColorWhereItIsOneElseAsTheLabel)
{
    const std::pair<const char*, MbdEnumCatalog::Category> rows[] = {
        {"1||7", {"", MbbColor(7)}},       {"1|7", {"", MbbColor(7)}},
        {"1|Sand", {"Sand", MbbColor(0)}}, {"1|Fine%20sand|", {"Fine sand", MbbColor(0)}},
        {"1|-1", {"-1", MbbColor(0)}},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(readCategory(text).value(1), expected) << text;
}

TEST(KpaCatalogDefinition_old, KeepsTheLastOfCategoriesWithOneNumber)
{
    const auto categories =
        read({{"id", ""}, {"name", ""}, {"undefRgba", ""}, {"enum1", "1|a|1"}, {"enum2", "1|b|2"}}).getCategories();
    EXPECT_EQ(categories, (QMap<int, MbdEnumCatalog::Category>{{1, {"b", MbbColor(2)}}}));
}

TEST(KpaCatalogDefinition_old, SurvivesGarbageInEachEntry)
{
    Parameter parameter("KEY");
    for (const QString& key : storedRocks().keys()) {
        for (const QString& garbage : garbageTexts()) {
            parameter.unserialize(with(key, garbage));
            EXPECT_LE(parameter.getValue().getCategories().size(), 2) << damaged(key, garbage);
            EXPECT_EQ(read(parameter.serialize()).getCategories().size(), parameter.getValue().getCategories().size())
                << damaged(key, garbage);
        }
    }
}

TEST(KpaCatalogDefinition_old, ReadsManyCategories)
{
    Map map = storedRocks();
    for (int i = 1; i <= 100000; ++i)
        map.insert(QStringLiteral("enum%1").arg(i), QStringLiteral("%1|label|%1").arg(i));
    EXPECT_EQ(read(map).getCategories().size(), 100000);
}

TEST(KpaCatalogDefinition_old, DebugsItsConfigAsAHeaderAlone)
{
    EXPECT_EQ(Config().debug(), "----- KpaCatalogDefinition_oldConfig --------\n");
    EXPECT_TRUE(Parameter("KEY").debug(1).endsWith("----- KpaCatalogDefinition_oldConfig --------\n"));
}

TEST(KpaCatalogDefinition_old, DuplicatesValueAndConfigWithoutItsObservers)
{
    ObservedAtomic<Parameter> observed;
    observed.atomic.setValue(rocks());
    observed.atomic.setCatalogNameReadOnly(true);
    const std::unique_ptr<Parameter> sameKey(observed.atomic.duplicate(""));
    const std::unique_ptr<Parameter> copy(observed.atomic.duplicate("COPY"));
    observed.takeFlags();
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValue(), rocks());
    EXPECT_TRUE(copy->isCatalogNameReadOnly());
    copy->setValue(MbdEnumCatalog());
    EXPECT_EQ(observed.atomic.getValue(), rocks());
    EXPECT_EQ(observed.takeFlags(), Flags());
}
