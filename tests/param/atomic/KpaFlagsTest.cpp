#include <basic/MbbAEnum.h>
#include <param/atomic/KpaFlags.h>
#include <support/BracketTranslator.h>
#include <support/RecordingObserver.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

using Set = QSet<int>;
using Form = MbbOrderedMap<QString, QString>;

const int value = Kp::NotifyValue;
const int config = Kp::NotifyConfig;

class Shape : public MbbAEnum
{
public:
    explicit Shape(int number) : MbbAEnum("", number, "") {}
};

KpaItemDef disabled(KpaItemDef item)
{
    item.enabled = false;
    return item;
}

KpaItemDef alpha()
{
    return {0, "Label of Alpha", "Alpha"};
}

KpaItemDef beta()
{
    return {1, "Label of Beta", "Beta"};
}

KpaItemDef gamma()
{
    return {2, "Label of Gamma", "Gamma"};
}

KpaItemDef delta()
{
    return {3, "Label of Delta", "Delta"};
}

QList<KpaItemDef> letters()
{
    return {alpha(), beta(), gamma()};
}

std::unique_ptr<KpaFlags> flagsOf(const QList<KpaItemDef>& items, const Set& checked = {})
{
    auto parameter = std::make_unique<KpaFlags>("LETTERS", items);
    parameter->setValue(checked);
    return parameter;
}

} // namespace

TEST(KpaFlagsConfig, StartsEmptyWithItsEcho)
{
    const KpaFlagsConfig config;
    EXPECT_EQ(config.getType(), KpbEType::FLAGS);
    EXPECT_EQ(config.getInitialValue(), Set());
    EXPECT_TRUE(config.getFlags().isEmpty());
    EXPECT_EQ(config.getSeparators(), QList<int>());
    EXPECT_EQ(config.getLoadedKeys(), QStringList());
    EXPECT_EQ(config.getEchoSeparator(), "|");
    EXPECT_EQ(config.getEchoMessageNoItem(), "");
    EXPECT_EQ(config.getEchoMessageItemCount(), "");
    EXPECT_EQ(config.getEchoMessageAllItems(), "All");
}

TEST(KpaFlagsConfig, TranslatesTheMessageForAllItemsOnly)
{
    const BracketTranslator translator;
    const KpaFlagsConfig config;
    EXPECT_EQ(config.getEchoMessageAllItems(), "[All]");
    EXPECT_EQ(config.getEchoSeparator(), "|");
    EXPECT_EQ(config.getEchoMessageNoItem(), "");
    EXPECT_EQ(config.getEchoMessageItemCount(), "");
}

TEST(KpaFlagsConfig, IsComparedByAllFields)
{
    const KpaFlagsConfig config;
    EXPECT_EQ(config, KpaFlagsConfig());
    const QList<void (*)(KpaFlagsConfig&)> changes{
        [](KpaFlagsConfig& other) { other.reset(letters()); },
        [](KpaFlagsConfig& other) { other.setSeparators({1}); },
        [](KpaFlagsConfig& other) {
            other.unserializeValue({{"value", "A"}}, {});
        },
        [](KpaFlagsConfig& other) { other.setEchoSeparator(", "); },
        [](KpaFlagsConfig& other) { other.setEchoMessageNoItem("none"); },
        [](KpaFlagsConfig& other) { other.setEchoMessageItemCount("%1 letters"); },
        [](KpaFlagsConfig& other) { other.setEchoMessageAllItems("every"); },
    };
    for (int i = 0; i < changes.size(); ++i) {
        KpaFlagsConfig other;
        changes.at(i)(other);
        EXPECT_NE(config, other) << "field " << i;
    }
}

TEST(KpaFlagsConfig, FixesToTheMembersThatCanBeChosen)
{
    const KpaFlagsConfig config({alpha(), disabled(beta()), gamma()});
    struct Case
    {
        Set value, previous, expected;
    };
    const QList<Case> cases{
        {{}, {0}, {}},          {{0, 2}, {}, {0, 2}}, {{0, 1, 99}, {2}, {0}}, {{1}, {2}, {2}},
        {{99}, {0, 2}, {0, 2}}, {{1, 99}, {}, {}},    {{99}, {99}, {99}},
    };
    for (const Case& test : cases)
        EXPECT_EQ(config.fix(test.value, test.previous), test.expected) << test.value.size();
}

TEST(KpaFlagsConfig, FindsValuesByKeyAndLabel)
{
    const KpaFlagsConfig config({alpha(), beta(), {7, "Label of Beta", "Alpha"}});
    EXPECT_EQ(config.keyToValue("Alpha"), 0);
    EXPECT_EQ(config.keyToValue("alpha"), -1);
    EXPECT_EQ(config.labelToValue("Label of Beta"), 1);
    EXPECT_EQ(config.labelToValue("Beta"), -1);
    EXPECT_TRUE(config.hasKey("Beta"));
    EXPECT_FALSE(config.hasKey("Label of Beta"));
    EXPECT_TRUE(config.hasLabel("Label of Alpha"));
    EXPECT_FALSE(config.hasLabel("Alpha"));
    EXPECT_EQ(config.keysToValue({"Beta", "none"}), Set{1});
    EXPECT_EQ(config.keysToValue({"Alpha"}), (Set{0, 7}));
    EXPECT_EQ(config.keysToValue({}), Set());
}

TEST(KpaFlagsConfig, TellsWhetherASetterChangedSomething)
{
    KpaFlagsConfig config(letters());
    EXPECT_FALSE(config.reset(letters()));
    EXPECT_TRUE(config.reset({alpha(), beta()}));
    EXPECT_FALSE(config.setItemEnabled(0, true));
    EXPECT_FALSE(config.setItemEnabled(9, false));
    EXPECT_TRUE(config.setItemEnabled(0, false));
    EXPECT_FALSE(config.setSeparators({}));
    EXPECT_TRUE(config.setSeparators({1}));
    EXPECT_FALSE(config.setEchoSeparator("|"));
    EXPECT_TRUE(config.setEchoSeparator("+"));
    EXPECT_FALSE(config.setEchoMessageNoItem(""));
    EXPECT_TRUE(config.setEchoMessageNoItem("none"));
    EXPECT_FALSE(config.setEchoMessageItemCount(""));
    EXPECT_TRUE(config.setEchoMessageItemCount("%1"));
    EXPECT_FALSE(config.setEchoMessageAllItems("All"));
    EXPECT_TRUE(config.setEchoMessageAllItems("every"));
    EXPECT_TRUE(config.clear());
    EXPECT_FALSE(config.clear());
}

TEST(KpaFlagsConfig, StoresTheKeysInTheOrderOfTheItems)
{
    const KpaFlagsConfig config({gamma(), beta(), alpha()});
    EXPECT_EQ(config.serializeValue({0, 2}), (Form{{"value", "Gamma|Alpha"}}));
    EXPECT_EQ(config.serializeValue({99, 1}), (Form{{"value", "Beta"}}));
    EXPECT_EQ(config.serializeValue({}), (Form{{"value", ""}}));
    EXPECT_EQ(KpaFlagsConfig(letters()).serializeValue({0, 2}), (Form{{"value", "Alpha|Gamma"}}));
}

TEST(KpaFlagsConfig, ReadsTheKeysOfItsItems)
{
    const KpaFlagsConfig config({alpha(), beta(), disabled(gamma()), {4, "four", "A B"}});
    struct Case
    {
        QString text;
        Set expected;
    };
    const QList<Case> cases{
        {"Alpha|Beta", {0, 1}}, {"Beta|Alpha", {0, 1}}, {"", {}},       {"|", {}},          {"||Alpha|", {0}},
        {"none|Alpha", {0}},    {"none", {}},           {"Gamma", {2}}, {"A B", {4}},       {"A%20B", {}},
        {"Label of Alpha", {}}, {"alpha", {}},          {" Alpha", {}}, {"Beta|Beta", {1}},
    };
    for (const Case& test : cases)
        EXPECT_EQ(config.unserializeValue({{"value", test.text}}, {3}), test.expected) << test.text.toStdString();
    EXPECT_EQ(config.unserializeValue({}, {3}), Set());
    EXPECT_EQ(config.getLoadedKeys(), QStringList());
}

TEST(KpaFlagsConfig, KeepsTheKeysThatItReadsWhileItIsEmpty)
{
    KpaFlagsConfig config;
    EXPECT_EQ(config.unserializeValue({{"value", "A||B"}}, {3}), Set{3});
    EXPECT_EQ(config.getLoadedKeys(), (QStringList{"A", "B"}));
    EXPECT_EQ(config.unserializeValue({{"value", ""}}, {3}), Set{3});
    EXPECT_EQ(config.getLoadedKeys(), QStringList());
    config.unserializeValue({{"value", "A"}}, {});
    config.clearLoadedKeys();
    EXPECT_EQ(config.getLoadedKeys(), QStringList());
}

TEST(KpaFlagsConfig, CannotKeepAKeyThatHoldsTheBarApart)
{
    const KpaFlagsConfig config({{0, "one", "A|B"}, {1, "two", "B"}});
    const Form form = config.serializeValue({0});
    EXPECT_EQ(form, (Form{{"value", "A|B"}}));
    EXPECT_EQ(config.unserializeValue(form, {}), Set{1});
}

TEST(KpaFlagsConfig, ReadsLongListsOfKeys)
{
    QList<KpaItemDef> items;
    Set all;
    for (int i = 0; i < 20000; ++i) {
        items.append({i, "", QStringLiteral("KEY_%1").arg(i)});
        all.insert(i);
    }
    const KpaFlagsConfig config(items);
    EXPECT_EQ(config.unserializeValue(config.serializeValue(all), {}), all);
}

TEST(KpaFlagsConfig, EchoesTheCheckedItemsInTheirOrder)
{
    KpaItemDef plain = beta();
    plain.echoLabel.clear();
    KpaItemDef echoed = alpha();
    echoed.echoLabel = "a";
    KpaFlagsConfig config({gamma(), plain, echoed});
    EXPECT_EQ(config.toString({0, 1, 2, 99}), "Label of Gamma|Label of Beta|a");
    EXPECT_EQ(config.toString({}), "");
    config.setEchoSeparator(", ");
    config.setEchoMessageAllItems("every");
    EXPECT_EQ(config.toString({0, 1, 2}), "Label of Gamma, Label of Beta, a");
}

TEST(KpaFlagsConfig, DebugsItsItems)
{
    EXPECT_EQ(KpaFlagsConfig({disabled({7, "Seven", "S"})}).debug(),
              "----- KpaFlagsConfig ---------\n"
              " item #0          = [ 7  S  \"Seven\" ]  disabled (null pixmap)\n");
}

TEST(KpaFlags, StartsWithNothingChecked)
{
    const KpaFlags empty("LETTERS");
    EXPECT_EQ(empty.getType(), KpbEType::FLAGS);
    EXPECT_EQ(empty.getKey(), "LETTERS");
    EXPECT_EQ(empty.getFlagCount(), 0);
    EXPECT_FALSE(empty.hasCheckedFlags());

    const KpaFlags filled("LETTERS", letters());
    EXPECT_EQ(filled.getFlagCount(), 3);
    EXPECT_FALSE(filled.hasCheckedFlags());
    EXPECT_EQ(filled.getCheckedCount(), 0);
    EXPECT_EQ(filled.getValue(), Set());
}

TEST(KpaFlags, ListsItsItemsInTheirOrder)
{
    const auto parameter = flagsOf({gamma(), alpha()});
    EXPECT_EQ(parameter->getFlagKeys(), (QStringList{"Gamma", "Alpha"}));
    EXPECT_EQ(parameter->getFlagLabels(), (QStringList{"Label of Gamma", "Label of Alpha"}));
    EXPECT_EQ(parameter->getFlagValues(), (QList<int>{2, 0}));
    EXPECT_EQ(parameter->getFlags().values(), (QList<KpaItemDef>{gamma(), alpha()}));
    EXPECT_EQ(parameter->getItems(), (QMap<int, QString>{{0, "Label of Alpha"}, {2, "Label of Gamma"}}));
}

TEST(KpaFlags, ListsWhatIsCheckedInTheOrderOfTheItems)
{
    const auto parameter = flagsOf({gamma(), beta(), alpha()}, {0, 2});
    EXPECT_TRUE(parameter->hasCheckedFlags());
    EXPECT_EQ(parameter->getCheckedCount(), 2);
    EXPECT_EQ(parameter->getCheckedKeys(), (QStringList{"Gamma", "Alpha"}));
    EXPECT_EQ(parameter->getCheckedLabels(), (QStringList{"Label of Gamma", "Label of Alpha"}));
    EXPECT_EQ(parameter->getCheckedValues(), (QList<int>{2, 0}));
    EXPECT_EQ(parameter->getCheckedItems(), (QMap<int, QString>{{0, "Label of Alpha"}, {2, "Label of Gamma"}}));
    EXPECT_EQ(parameter->toString(), "Label of Gamma|Label of Alpha");
}

TEST(KpaFlags, TestsAFlag)
{
    const auto parameter = flagsOf({alpha(), beta(), {-1, "minus", "MINUS"}}, {0, -1});
    EXPECT_TRUE(parameter->testFlagFromValue(0));
    EXPECT_FALSE(parameter->testFlagFromValue(1));
    EXPECT_TRUE(parameter->testFlagFromKey("Alpha"));
    EXPECT_FALSE(parameter->testFlagFromKey("Beta"));
    EXPECT_FALSE(parameter->testFlagFromKey("none"));
    EXPECT_TRUE(parameter->testFlagFromLabel("Label of Alpha"));
    EXPECT_FALSE(parameter->testFlagFromLabel("none"));
    EXPECT_TRUE(parameter->testFlagFromEnum(Shape(0)));
    EXPECT_FALSE(parameter->testFlagFromEnum(Shape(1)));
}

TEST(KpaFlags, ChecksAndUnchecksAFlag)
{
    const auto parameter = flagsOf(letters());
    const RecordingObserver observer(*parameter);
    parameter->setFlagFromValue(0, true);
    parameter->setFlagFromKey("Beta", true);
    parameter->setFlagFromLabel("Label of Gamma", true);
    EXPECT_EQ(parameter->getValue(), (Set{0, 1, 2}));
    parameter->setFlagFromEnum(Shape(1), false);
    parameter->setFlagFromKey("Alpha", false);
    EXPECT_EQ(parameter->getValue(), Set{2});
    EXPECT_EQ(observer.allFlags(), (QList<int>{value, value, value, value, value}));
    parameter->setFlagFromValue(2, true);
    EXPECT_EQ(observer.records.size(), 5);
}

TEST(KpaFlags, PassesOverAFlagThatIsNoItem)
{
    const auto parameter = flagsOf(letters(), {0});
    const RecordingObserver observer(*parameter);
    parameter->setFlagFromValue(99, true);
    parameter->setFlagFromKey("none", true);
    parameter->setFlagFromLabel("none", true);
    parameter->setFlagFromEnum(Shape(-1), true);
    EXPECT_EQ(parameter->getValue(), Set{0});
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpaFlags, RefusesADisabledFlag)
{
    const auto parameter = flagsOf({alpha(), disabled(beta())}, {0});
    const RecordingObserver observer(*parameter);
    parameter->setFlagFromValue(1, true);
    EXPECT_EQ(parameter->getValue(), Set{0});
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
}

TEST(KpaFlags, ChecksAllThatIsEnabled)
{
    const auto parameter = flagsOf({alpha(), disabled(beta()), gamma()});
    const RecordingObserver observer(*parameter);
    parameter->checkAll();
    EXPECT_EQ(parameter->getValue(), (Set{0, 2}));
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
}

TEST(KpaFlags, ChecksExactlyWhatIsNamed)
{
    const auto parameter = flagsOf(letters(), {0});
    parameter->setCheckedFlagsFromKeys({"Gamma", "none", "Beta"});
    EXPECT_EQ(parameter->getValue(), (Set{1, 2}));
    parameter->setCheckedFlagsFromLabels({"Label of Alpha", "Alpha"});
    EXPECT_EQ(parameter->getValue(), Set{0});
    parameter->setCheckedFlagsFromKeys({});
    EXPECT_EQ(parameter->getValue(), Set());
}

TEST(KpaFlags, EmptiesAlways)
{
    const auto parameter = flagsOf(letters(), {0});
    parameter->setItemEnabled(1, false);
    const RecordingObserver observer(*parameter);
    parameter->setValue({});
    EXPECT_EQ(parameter->getValue(), Set());
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
}

TEST(KpaFlags, RefusesARequestWithoutAnyItem)
{
    const auto parameter = flagsOf(letters(), {0, 1});
    const RecordingObserver observer(*parameter);
    parameter->setValue({99});
    EXPECT_EQ(parameter->getValue(), (Set{0, 1}));
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
}

TEST(KpaFlags, TrimsAMixedRequest)
{
    const auto parameter = flagsOf(letters());
    const RecordingObserver observer(*parameter);
    parameter->setValue({99, 1});
    EXPECT_EQ(parameter->getValue(), Set{1});
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
}

TEST(KpaFlags, UnchecksAnItemThatIsDisabled)
{
    const auto parameter = flagsOf(letters(), {0, 1});
    const RecordingObserver observer(*parameter);
    parameter->setItemEnabled(0, false);
    EXPECT_EQ(parameter->getValue(), Set{1});
    EXPECT_FALSE(parameter->isItemEnabled(0));
    EXPECT_TRUE(parameter->isItemEnabled(Shape(1)));
    parameter->setItemEnabled(Shape(2), false);
    parameter->setItemEnabled(2, false);
    EXPECT_EQ(observer.allFlags(), (QList<int>{config | value, config}));
}

TEST(KpaFlags, ClearsItsItemsAndWithThemTheValue)
{
    const auto parameter = flagsOf(letters(), {0, 1});
    parameter->setAutoValue({2});
    const RecordingObserver observer(*parameter);
    parameter->clear();
    EXPECT_EQ(parameter->getFlagCount(), 0);
    EXPECT_EQ(parameter->getValue(), Set());
    EXPECT_FALSE(parameter->isAutomaticValueInitialized());
    parameter->clear();
    EXPECT_EQ(observer.allFlags(), QList<int>{config | value});
}

TEST(KpaFlags, SetsSeparatorsAndEchoTexts)
{
    const auto parameter = flagsOf(letters());
    const RecordingObserver observer(*parameter);
    for (int i = 0; i < 2; ++i) {
        parameter->setSeparators({1});
        parameter->setEchoSeparator(", ");
        parameter->setEchoMessageNoItem("No letter");
        parameter->setEchoMessageItemCount("%1 letters");
        parameter->setEchoMessageAllItems("All letters");
    }
    EXPECT_EQ(parameter->getSeparators(), QList<int>{1});
    EXPECT_EQ(parameter->getEchoSeparator(), ", ");
    EXPECT_EQ(parameter->getEchoMessageNoItem(), "No letter");
    EXPECT_EQ(parameter->getEchoMessageItemCount(), "%1 letters");
    EXPECT_EQ(parameter->getEchoMessageAllItems(), "All letters");
    EXPECT_EQ(observer.allFlags(), (QList<int>{config, config, config, config, config}));
}

TEST(KpaFlags, FollowsItsFlagsAcrossARefill)
{
    struct Case
    {
        const char* name;
        QList<KpaItemDef> before;
        Set checked;
        QString loaded;
        QList<KpaItemDef> after;
        bool checkNewFlags;
        Set expected;
        int flags;
        QStringList stillLoaded;
    };
    const QList<KpaItemDef> some{alpha(), disabled(beta()), gamma()};
    const QList<Case> cases{
        {"first items", {}, {}, "", some, false, {}, config, {}},
        {"first items checked", {}, {}, "", some, true, {0, 2}, config | value, {}},
        {"first items, all disabled, checked", {}, {}, "", {disabled(beta())}, true, {}, config, {}},
        {"loaded", {}, {}, "Alpha|Gamma", some, false, {0, 2}, config | value, {}},
        {"loaded, new ones not checked", {}, {}, "Gamma", some, true, {2}, config | value, {}},
        {"loaded, some absent", {}, {}, "Alpha|none", some, false, {0}, config | value, {}},
        {"loaded, all absent", {}, {}, "none", some, false, {}, config, {"none"}},
        {"loaded, all absent, new ones checked", {}, {}, "none", some, true, {0, 2}, config | value, {"none"}},
        {"loaded, disabled", {}, {}, "Beta", some, false, {}, config | value, {}},
        {"loaded, one disabled", {}, {}, "Alpha|Beta", some, true, {0}, config | value, {}},
        {"loaded labels", {}, {}, "Label of Alpha", some, false, {}, config, {"Label of Alpha"}},
        {"all still there", letters(), {0, 2}, "", {gamma(), alpha()}, false, {0, 2}, config, {}},
        {"one gone", letters(), {0, 1}, "", {alpha(), gamma()}, false, {0}, config | value, {}},
        {"one disabled", letters(), {0, 1}, "", some, false, {0}, config | value, {}},
        {"all gone", letters(), {0, 1}, "", {delta()}, false, {}, config | value, {}},
        {"none checked", letters(), {}, "", {alpha(), delta()}, false, {}, config, {}},
        {"new one not checked", letters(), {0}, "", {alpha(), delta()}, false, {0}, config, {}},
        {"new one checked", letters(), {0}, "", {alpha(), beta(), delta()}, true, {0, 3}, config | value, {}},
        {"new one disabled", letters(), {0}, "", {alpha(), disabled(delta())}, true, {0}, config, {}},
        {"no new one", letters(), {0}, "", {alpha(), beta()}, true, {0}, config, {}},
        {"no items any more", letters(), {0}, "", {}, true, {}, config | value, {}},
        {"no items any more, none checked", letters(), {}, "", {}, false, {}, config, {}},
        {"loaded later", letters(), {0}, "Delta", {alpha(), delta()}, false, {3}, config | value, {}},
        {"loaded later, new ones to check",
         letters(),
         {0},
         "Delta",
         {alpha(), delta(), {5, "", "E"}},
         true,
         {3},
         config | value,
         {}},
        {"loaded later, disabled",
         letters(),
         {0},
         "Delta",
         {alpha(), disabled(delta())},
         false,
         {},
         config | value,
         {}},
        {"loaded later, absent", letters(), {0}, "none", {alpha(), delta()}, false, {0}, config, {"none"}},
        {"loaded later, absent, new ones to check",
         letters(),
         {0},
         "none",
         {alpha(), delta()},
         true,
         {0, 3},
         config | value,
         {"none"}},
    };
    for (const Case& test : cases) {
        KpaFlags parameter("LETTERS");
        parameter.unserialize({{"value", test.loaded}});
        parameter.reset(test.before, false);
        parameter.setValue(test.checked);
        const RecordingObserver observer(parameter);
        parameter.reset(test.after, test.checkNewFlags);
        EXPECT_EQ(parameter.getValue(), test.expected) << test.name;
        EXPECT_EQ(observer.allFlags(), QList<int>{test.flags}) << test.name;
        EXPECT_EQ(parameter.getConfig().getLoadedKeys(), test.stillLoaded) << test.name;
    }
}

TEST(KpaFlags, RestoresStoredKeysOnceTheItemsCome)
{
    KpaFlags parameter("LETTERS");
    const RecordingObserver observer(parameter);
    parameter.unserialize({{"value", "Gamma|Alpha"}});
    EXPECT_EQ(parameter.getValue(), Set());
    EXPECT_TRUE(observer.records.isEmpty());
    parameter.reset(letters(), false);
    EXPECT_EQ(parameter.getValue(), (Set{0, 2}));
    EXPECT_EQ(observer.allFlags(), QList<int>{config | value});
}

TEST(KpaFlags, StaysSilentWhenResetToTheSameList)
{
    const auto parameter = flagsOf(letters(), {1});
    const RecordingObserver observer(*parameter);
    parameter->reset(letters(), true);
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_EQ(parameter->getValue(), Set{1});
}

TEST(KpaFlags, KeepsOrDropsTheAutomaticValueAcrossARefill)
{
    struct Case
    {
        QList<KpaItemDef> after;
        bool kept;
    };
    for (const Case& test :
         {Case{{beta(), gamma()}, true}, Case{{alpha(), beta()}, false}, Case{{beta(), disabled(gamma())}, false}})
    {
        const auto parameter = flagsOf(letters());
        parameter->activateAutoValue({1, 2});
        const RecordingObserver observer(*parameter);
        parameter->reset(test.after, false);
        EXPECT_EQ(parameter->isAutomaticValueInitialized(), test.kept);
        EXPECT_EQ(parameter->getAutoValue(), (Set{1, 2}));
        EXPECT_TRUE(parameter->isAutomatic());
        EXPECT_EQ(observer.allFlags(), QList<int>{test.kept ? config : config | value});
    }
}

TEST(KpaFlags, LeavesAnAutomaticValueThatIsNotInitializedAlone)
{
    const auto parameter = flagsOf(letters());
    parameter->setAutoValue({2});
    parameter->unsetAutoValue();
    parameter->reset({alpha()}, false);
    EXPECT_FALSE(parameter->isAutomaticValueInitialized());
    EXPECT_EQ(parameter->getAutoValue(), Set{2});
}

TEST(KpaFlags, StoresAndRestoresItsKeys)
{
    const auto parameter = flagsOf(letters(), {2, 0});
    EXPECT_EQ(parameter->serialize(), (Form{{"value", "Alpha|Gamma"}}));
    const auto other = flagsOf(letters(), {1});
    other->unserialize(parameter->serialize());
    EXPECT_EQ(other->getValue(), (Set{0, 2}));
    other->unserialize({{"value", ""}});
    EXPECT_EQ(other->getValue(), Set());
}

TEST(KpaFlags, DuplicatesWithItemsAndValue)
{
    const auto parameter = flagsOf(letters(), {1});
    const std::unique_ptr<KpaFlags> copy(parameter->duplicate(""));
    EXPECT_EQ(copy->getKey(), "LETTERS");
    EXPECT_EQ(copy->getValue(), Set{1});
    EXPECT_EQ(copy->getConfig(), parameter->getConfig());
    copy->clear();
    EXPECT_EQ(parameter->getFlagCount(), 3);
    EXPECT_EQ(std::unique_ptr<KpaFlags>(parameter->duplicate("NEW"))->getKey(), "NEW");
}
