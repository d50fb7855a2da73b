#include "AtomicListTestTools.h"

#include <param/list/KplDoubleList.h>
#include <param/list/KplIntegerList.h>

#include <support/ObservedAtomic.h>
#include <support/RecordedMessages.h>

#include <cmath>

namespace {

using Integers = QList<int>;
using Doubles = QList<double>;

constexpr int value = Kp::NotifyValue;
constexpr int config = Kp::NotifyConfig;
constexpr int structure = 13;

std::unique_ptr<KplIntegerList> listOf(const Integers& values)
{
    auto list = std::make_unique<KplIntegerList>("LIST");
    list->setValues(values);
    return list;
}

/// With automatic values in the list, and automatic.
std::unique_ptr<KplIntegerList> automaticListOf(const Integers& values)
{
    auto list = std::make_unique<KplIntegerList>("LIST");
    list->setAutoValues(values);
    list->setAutomatic(true);
    return list;
}

/// With the values as automatic values in the items, and automatic.
std::unique_ptr<KplIntegerList> automaticItemsOf(const Integers& values)
{
    auto list = listOf(values);
    list->setAutomatic(true);
    for (int i = 0; i < values.size(); ++i)
        list->setAutoValueAt(i, values[i]);
    return list;
}

/// What an observer of the list is told at the list itself.
template <class Change>
QList<int> flagsOf(KplIntegerList& list, Change change)
{
    return listFlagsOf(list, [&] { change(list); });
}

} // namespace

TEST(KplAAtomicList, IsEmptyAndKeepsAutomaticValuesInTheItemsAtFirst)
{
    const KplIntegerList list("LIST");
    EXPECT_TRUE(list.isA(KpbEType::LIST));
    EXPECT_EQ(list.getValues(), Integers());
    EXPECT_FALSE(list.isUnique());
    EXPECT_FALSE(list.needToUnserializeAtomicItems());
    EXPECT_EQ(list.getAutoValueLocation(), Kp::List::AutoValuesInItems);
    EXPECT_EQ(int(list.getAutoValueLocation()), 1);
    EXPECT_EQ(list.getAutoValues(), Integers());
    EXPECT_EQ(automaticState(list), "manual, not initialized");
}

TEST(KplAAtomicList, GivesAndSetsValuesByRank)
{
    const auto list = listOf({4, 5, 6});
    EXPECT_EQ(list->getValues(), Integers({4, 5, 6}));
    EXPECT_EQ(list->getValueAt(1), 5);
    list->setValueAt(1, 50);
    EXPECT_EQ(list->getValues(), Integers({4, 50, 6}));
    for (const int rank : {-1, 3}) {
        EXPECT_EQ(list->getValueAt(rank), 0);
        EXPECT_EQ(list->getAutoValueAt(rank), 0);
        EXPECT_EQ(flagsOf(*list, [&](KplIntegerList& l) { l.setValueAt(rank, 9); }), QList<int>());
        EXPECT_EQ(list->getValues(), Integers({4, 50, 6}));
    }
}

TEST(KplAAtomicList, TellsAWholeListOfValuesInOneRecord)
{
    const auto list = listOf({1, 2});
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setValues({1, 5, 6}); }), QList<int>({structure}));
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setValues({1, 7, 6}); }), QList<int>({value}));
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setValues({}); }), QList<int>({structure}));
    RecordingObserver observer(*list);
    list->setValues({3, 0});
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*list->getItemAt(0)), value);
    EXPECT_EQ(observer.flagsOf(*list->getItemAt(1)), 0);
}

TEST(KplAAtomicList, SaysNothingWhenItIsGivenItsOwnValues)
{
    const auto list = listOf({1, 2});
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setValues({1, 2}); }), QList<int>());
    KplIntegerList empty("LIST");
    EXPECT_EQ(flagsOf(empty, [](KplIntegerList& l) { l.setValues({}); }), QList<int>());
}

TEST(KplAAtomicList, KeepsTheKeysOfTheItemsThatStay)
{
    const auto list = listOf({1, 2, 3});
    list->removeItemAt(0);
    list->setValues({7, 8, 9});
    EXPECT_EQ(list->getItemKeys(), itemKeys({2, 3, 4}));
}

TEST(KplAAtomicList, RepairsValuesByThePrototypesConfiguration)
{
    KplIntegerList list("LIST");
    list.getItemPrototype()->setMaximum(10);
    list.setValues({5, 50});
    EXPECT_EQ(list.getValues(), Integers({5, 10}));
}

TEST(KplAAtomicList, TellsOfARefusedRequestThoughNothingChanges)
{
    KplIntegerList list("LIST");
    list.getItemPrototype()->setMaximum(10);
    list.setValues({5, 10});
    EXPECT_EQ(flagsOf(list, [](KplIntegerList& l) { l.setValues({5, 50}); }), QList<int>({value}));
    EXPECT_EQ(list.getValues(), Integers({5, 10}));
}

TEST(KplAAtomicList, BringsTheItemsToThePrototypesConfigurationWithTheirValues)
{
    const auto list = listOf({1, 2});
    list->getItemPrototype()->setMaximum(10);
    EXPECT_FALSE(list->getItemAt(0)->getConfig() == list->getItemPrototype()->getConfig());
    RecordingObserver item(*list->getItemAt(0));
    RecordingObserver other(*list->getItemAt(1));
    RecordingObserver observer(*list);
    list->setValues({1, 20});
    EXPECT_TRUE(list->getItemAt(0)->getConfig() == list->getItemPrototype()->getConfig());
    EXPECT_EQ(list->getItemAt(1)->getMaximum(), 10);
    EXPECT_EQ(item.allFlags(), QList<int>({config}));
    EXPECT_EQ(other.allFlags(), QList<int>({value | config}));
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*list), value);
}

TEST(KplAAtomicList, EndsTheAutomaticModeWithNewValues)
{
    const auto list = automaticListOf({1, 2});
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setValues({1, 3}); }), QList<int>({value | config}));
    EXPECT_EQ(automaticState(*list), "manual, initialized");
    EXPECT_EQ(list->getAutoValues(), Integers({1, 2}));
}

TEST(KplAAtomicList, EndsTheAutomaticModeWithNewValuesAlsoWithoutAutomaticOnes)
{
    const auto list = listOf({1});
    list->setAutoValues({4});
    list->unsetAutoValues();
    list->setAutomatic(true);
    EXPECT_EQ(automaticState(*list), "automatic, not initialized");
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setValues({3}); }), QList<int>({value | config}));
    EXPECT_FALSE(list->isAutomatic());
}

TEST(KplAAtomicList, StaysAutomaticWhenItIsGivenItsOwnValues)
{
    const auto list = automaticListOf({1, 2});
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setValues({1, 2}); }), QList<int>());
    EXPECT_TRUE(list->isAutomatic());
}

TEST(KplAAtomicList, StaysAutomaticWhenItIsGivenItsOwnValuesThoughItsItemsAreNot)
{
    KplIntegerList list("LIST");
    list.setValues({1, 2});
    list.setAutomatic(true);
    EXPECT_EQ(listFlagsOf(list, [&] { list.setValues({1, 2}); }), QList<int>());
    EXPECT_EQ(automaticState(list), "automatic, not initialized");
}

TEST(KplAAtomicList, ComparesListsOfNumbersExactly)
{
    KplDoubleList list("LIST");
    list.setValues({1.0});
    EXPECT_EQ(listFlagsOf(list, [&] { list.setValues({1.0 + 1e-12}); }), QList<int>({value}));
    EXPECT_EQ(list.getValueAt(0), 1.0 + 1e-12);
}

TEST(KplAAtomicList, KeepsTheFirstOfValuesThatRepeat)
{
    KplIntegerList list("LIST");
    list.setUnique(true);
    EXPECT_TRUE(list.isUnique());
    list.setValues({3, 1, 3, 2, 1});
    EXPECT_EQ(list.getValues(), Integers({3, 1, 2}));
}

TEST(KplAAtomicList, TakesNumbersThatDifferByLessThanTheToleranceForOne)
{
    KplDoubleList list("LIST");
    list.setUnique(true);
    list.setValues({1.0, 1.0 + 1e-11, 2.0});
    EXPECT_EQ(list.getValues(), Doubles({1.0, 2.0}));
    EXPECT_EQ(listFlagsOf(list, [&] { list.setValues({1.0, 2.0, 2.0 - 1e-11}); }), QList<int>({value}));
    EXPECT_EQ(list.getValues(), Doubles({1.0, 2.0}));
    list.setValues({1.0, 1.0 + 1e-9});
    EXPECT_EQ(list.getValues(), Doubles({1.0, 1.0 + 1e-9}));
}

TEST(KplAAtomicList, ComparesNumbersWithThoseThatAreKeptButItemsWithAllBeforeThem)
{
    const Doubles chain{0.0, 0.6e-10, 1.2e-10};
    KplDoubleList list("LIST");
    list.setValues(chain);
    list.setUnique(true);
    EXPECT_EQ(list.getValues(), Doubles({0.0}));
    list.setValues(chain);
    EXPECT_EQ(list.getValues(), Doubles({0.0, 1.2e-10}));
    list.unserializeAtomicItems(itemKeys({1, 2, 3}),
                                {storedValue("0"), storedValue("0.6e-10"), storedValue("1.2e-10")});
    EXPECT_EQ(list.getValues(), Doubles({0.0, 1.2e-10}));
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 3}));
}

TEST(KplAAtomicList, RemovesRepeatedValuesAsSoonAsItIsUnique)
{
    const auto list = listOf({1, 2, 1, 1, 3});
    RecordingObserver observer(*list);
    list->setUnique(true);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*list), structure | config);
    EXPECT_EQ(list->getValues(), Integers({1, 2, 3}));
    EXPECT_EQ(list->getItemKeys(), itemKeys({1, 2, 5}));
    EXPECT_EQ(itemLabels(*list), QStringList({"no label #1", "no label #2", "no label #3"}));
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setUnique(true); }), QList<int>());
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setUnique(false); }), QList<int>({config}));
}

TEST(KplAAtomicList, RemovesAValueThatComesToRepeatWhateverTheCause)
{
    const struct
    {
        const char* name;
        std::function<void(KplIntegerList&)> change;
        Integers values;
    } cases[] = {
        {"item", [](KplIntegerList& l) { l.getItemAt(0)->setValue(3); }, {3, 2}},
        {"rank", [](KplIntegerList& l) { l.setValueAt(2, 1); }, {1, 2}},
        {"limit of an item", [](KplIntegerList& l) { l.getItemAt(2)->setMaximum(2); }, {1, 2}},
        {"new item", [](KplIntegerList& l) { EXPECT_EQ(l.addItem(), nullptr); }, {1, 2, 3}},
        {"new items", [](KplIntegerList& l) { l.setItemCount(10); }, {1, 2, 3}},
        {"unserialize", [](KplIntegerList& l) { l.getItemAt(1)->unserialize(storedValue("1")); }, {1, 3}},
    };
    for (const auto& c : cases) {
        const auto list = listOf({1, 2, 3});
        list->setUnique(true);
        list->getItemPrototype()->setValue(1);
        EXPECT_EQ(flagsOf(*list, c.change), QList<int>({structure})) << c.name;
        EXPECT_EQ(list->getValues(), c.values) << c.name;
    }
}

TEST(KplAAtomicList, AddsAnItemToAUniqueListWhereItsValueIsNew)
{
    const auto list = listOf({1, 2});
    list->setUnique(true);
    list->getItemPrototype()->setValue(5);
    ASSERT_NE(list->addItem(), nullptr);
    EXPECT_EQ(list->getValues(), Integers({1, 2, 5}));
}

TEST(KplAAtomicList, RemovesWhatRepeatsAfterItemsHaveComeAndGone)
{
    const auto list = listOf({1, 2, 3, 4});
    list->setUnique(true);
    list->removeItemAt(0);
    list->moveItem(0, 2);
    EXPECT_EQ(list->getValues(), Integers({3, 4, 2}));
    list->setValueAt(0, 2);
    EXPECT_EQ(list->getValues(), Integers({2, 4}));
    list->resetItemKeys({"ITEM_3", "A", "B"});
    EXPECT_EQ(list->getValues(), Integers({2, 0}));
}

TEST(KplAAtomicList, KeepsWhatRepeatsWithAnErrorWhereItIsNotResizable)
{
    const RecordedMessages messages;
    const auto list = listOf({1, 1, 2});
    list->setResizable(false);
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setUnique(true); }), QList<int>({config}));
    EXPECT_EQ(list->getValues(), Integers({1, 1, 2}));
    EXPECT_EQ(messages.errors, QStringList({"Atomic List Param 'LIST' is not resizable with the unique flag true."}));
    EXPECT_TRUE(messages.warnings.isEmpty());
}

TEST(KplAAtomicList, KeepsAnItemThatComesToRepeatWithAnErrorWhereItIsNotResizable)
{
    const auto list = listOf({1, 2});
    list->setUnique(true);
    list->setResizable(false);
    const RecordedMessages messages;
    list->setValueAt(1, 1);
    EXPECT_EQ(list->getValues(), Integers({1, 1}));
    EXPECT_EQ(messages.errors, QStringList({"Atomic List Param 'LIST' is not resizable with the unique flag true."}));
}

TEST(KplAAtomicList, SaysNothingOfAFixedSizeWhereNothingRepeats)
{
    const RecordedMessages messages;
    const auto list = listOf({1, 2});
    list->setResizable(false);
    list->setUnique(true);
    EXPECT_TRUE(messages.errors.isEmpty());
}

TEST(KplAAtomicList, KeepsAutomaticValuesInTheListOrInTheItemsAsTheLastCallSays)
{
    const auto list = listOf({1, 2});
    list->setAutoValues({5, 6, 7});
    EXPECT_EQ(list->getAutoValueLocation(), Kp::List::AutoValuesInList);
    EXPECT_EQ(list->getAutoValues(), Integers({5, 6, 7}));
    list->setAutoValueAt(1, 8);
    EXPECT_EQ(list->getAutoValueLocation(), Kp::List::AutoValuesInItems);
    EXPECT_EQ(list->getAutoValues(), Integers({0, 8}));
    EXPECT_EQ(list->getAutoValueAt(1), 8);
    EXPECT_EQ(list->getValues(), Integers({1, 2}));
    list->setAutoValues({5, 6, 7});
    EXPECT_EQ(list->getAutoValueLocation(), Kp::List::AutoValuesInList);
    list->setAutoValueAt(9, 1);
    EXPECT_EQ(list->getAutoValueLocation(), Kp::List::AutoValuesInItems);
}

TEST(KplAAtomicList, TellsOfAutomaticValuesAsConfiguration)
{
    const auto list = listOf({1, 2});
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setAutoValues({5, 6, 7}); }), QList<int>({config}));
    EXPECT_EQ(automaticState(*list), "manual, initialized");
    EXPECT_EQ(list->getValues(), Integers({1, 2}));
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setAutoValues({5, 6, 7}); }), QList<int>());
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setAutoValues({5, 6}); }), QList<int>({config}));
}

TEST(KplAAtomicList, IsInitializedByAutomaticValuesThatAreNone)
{
    KplIntegerList list("LIST");
    EXPECT_EQ(flagsOf(list, [](KplIntegerList& l) { l.setAutoValues({}); }), QList<int>({config}));
    EXPECT_EQ(automaticState(list), "manual, initialized");
}

TEST(KplAAtomicList, RepairsAutomaticValuesLikeValues)
{
    KplIntegerList list("LIST");
    list.getItemPrototype()->setMaximum(10);
    list.setUnique(true);
    list.setAutoValues({50, 3, 10, 3});
    EXPECT_EQ(list.getAutoValues(), Integers({10, 3}));
}

TEST(KplAAtomicList, TakesTheAutomaticValuesOfTheListOverAndStaysAutomatic)
{
    const auto list = listOf({1, 2});
    list->setAutoValues({5, 6, 7});
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setAutomatic(true); }), QList<int>({structure | config}));
    EXPECT_EQ(list->getValues(), Integers({5, 6, 7}));
    EXPECT_TRUE(list->isAutomatic());
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setAutoValues({8}); }), QList<int>({structure | config}));
    EXPECT_EQ(list->getValues(), Integers({8}));
    EXPECT_TRUE(list->isAutomatic());
}

TEST(KplAAtomicList, BecomesAutomaticWithoutValuesToTakeOver)
{
    const auto list = listOf({1});
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setAutomatic(true); }), QList<int>({config}));
    EXPECT_EQ(list->getValues(), Integers({1}));
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.setAutoValues({4}); }), QList<int>({config}));
    EXPECT_EQ(list->getValues(), Integers({4}));
    EXPECT_TRUE(list->isAutomatic());
}

TEST(KplAAtomicList, ComesBackToItsAutomaticValuesAndLeavesTheMode)
{
    const auto list = listOf({1});
    list->setAutoValues({4, 5});
    list->resetToAutomaticValue();
    EXPECT_EQ(list->getValues(), Integers({4, 5}));
    EXPECT_FALSE(list->isAutomatic());
}

TEST(KplAAtomicList, EndsTheAutomaticModeWhenItsValuesAreNotTheAutomaticOnes)
{
    const struct
    {
        const char* name;
        std::function<void(KplIntegerList&)> change;
    } cases[] = {
        {"item", [](KplIntegerList& l) { l.getItemAt(1)->setValue(9); }},
        {"removed", [](KplIntegerList& l) { l.removeLastItem(); }},
        {"added", [](KplIntegerList& l) { l.addItem(); }},
        {"moved", [](KplIntegerList& l) { l.moveItem(0, 1); }},
        {"cleared", [](KplIntegerList& l) { l.clear(); }},
        {"destroyed", [](KplIntegerList& l) { delete l.getItemAt(0); }},
        {"reordered",
         [](KplIntegerList& l) {
             l.resetItemKeys(itemKeys({2, 1}));
         }},
    };
    for (const auto& c : cases) {
        const auto list = automaticListOf({1, 2});
        RecordingObserver observer(*list);
        c.change(*list);
        EXPECT_EQ(observer.records.size(), 1) << c.name;
        EXPECT_TRUE(observer.flagsOf(*list) & config) << c.name;
        EXPECT_EQ(automaticState(*list), "manual, initialized") << c.name;
        EXPECT_EQ(list->getAutoValues(), Integers({1, 2})) << c.name;
    }
}

TEST(KplAAtomicList, StaysAutomaticWhereItsValuesStayTheAutomaticOnes)
{
    const struct
    {
        const char* name;
        std::function<void(KplIntegerList&)> change;
    } cases[] = {
        {"label", [](KplIntegerList& l) { l.getItemAt(0)->setLabel("Mine"); }},
        {"labels", [](KplIntegerList& l) { l.setItemLabel("Mine"); }},
        {"disabled", [](KplIntegerList& l) { l.setEnabled(false); }},
        {"refused", [](KplIntegerList& l) { l.getItemAt(0)->setMaximum(5); }},
        {"same keys",
         [](KplIntegerList& l) {
             l.resetItemKeys(itemKeys({1, 2}));
         }},
        {"moved twins", [](KplIntegerList& l) { l.moveItem(0, 1); }},
        {"prototype", [](KplIntegerList& l) { l.getItemPrototype()->setMinimum(0); }},
    };
    for (const auto& c : cases) {
        const auto list = automaticListOf({1, 1});
        c.change(*list);
        EXPECT_EQ(automaticState(*list), "automatic, initialized") << c.name;
    }
}

TEST(KplAAtomicList, StaysAutomaticWithoutAutomaticValuesToCompareWith)
{
    const auto list = automaticListOf({1, 2});
    list->unsetAutoValues();
    list->setValueAt(0, 7);
    list->removeLastItem();
    EXPECT_EQ(automaticState(*list), "automatic, not initialized");
}

TEST(KplAAtomicList, ForgetsAutomaticValuesThatAreInTheList)
{
    const auto list = automaticListOf({1, 2});
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.unsetAutoValues(); }), QList<int>({config}));
    EXPECT_EQ(automaticState(*list), "automatic, not initialized");
    EXPECT_EQ(list->getAutoValues(), Integers());
    EXPECT_EQ(list->getValues(), Integers({1, 2}));
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.unsetAutoValues(); }), QList<int>());
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.unsetAutoValueAt(0); }), QList<int>());
}

TEST(KplAAtomicList, ForgetsAnAutomaticValueThatIsInAnItem)
{
    const auto list = automaticItemsOf({1, 2});
    RecordingObserver observer(*list);
    list->unsetAutoValueAt(1);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].debug(), "LIST/ITEM_2:2");
    EXPECT_EQ(list->getAutoValues(), Integers({1, 0}));
    EXPECT_EQ(list->getAutoValueAt(1), 2);
    list->unsetAutoValueAt(1);
    list->unsetAutoValueAt(-1);
    list->unsetAutoValueAt(2);
    list->unsetAutoValues();
    EXPECT_EQ(observer.records.size(), 1);
    EXPECT_EQ(automaticState(*list), "automatic, initialized");
}

TEST(KplAAtomicList, StoresAnAutomaticValueInAnItem)
{
    const auto list = listOf({1, 2});
    RecordingObserver observer(*list);
    list->setAutoValueAt(1, 8);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*list->getItemAt(1)), config);
    EXPECT_EQ(observer.flagsOf(*list), config);
    EXPECT_EQ(automaticState(*list), "manual, initialized");
    EXPECT_EQ(automaticState(*list->getItemAt(1)), "manual, initialized");
    EXPECT_EQ(list->getValues(), Integers({1, 2}));
    EXPECT_EQ(listFlagsOf(*list, [&] { list->setAutoValueAt(2, 1); }), QList<int>());
}

TEST(KplAAtomicList, LetsItemsTakeTheirOwnAutomaticValues)
{
    const auto list = listOf({1, 2, 3});
    list->setAutoValueAt(0, 7);
    list->setAutoValueAt(2, 9);
    list->setAutomatic(true);
    EXPECT_EQ(list->getValues(), Integers({7, 2, 9}));
    EXPECT_TRUE(list->isAutomatic());
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(list->getItemAt(i)->isAutomatic());
    list->setAutoValueAt(1, 8);
    EXPECT_EQ(list->getValues(), Integers({7, 8, 9}));
    EXPECT_TRUE(list->isAutomatic());
}

TEST(KplAAtomicList, EndsTheAutomaticModeWhenAnItemIsNotAutomatic)
{
    const struct
    {
        const char* name;
        std::function<void(KplIntegerList&)> change;
    } cases[] = {
        {"value", [](KplIntegerList& l) { l.setValueAt(1, 9); }},
        {"item", [](KplIntegerList& l) { l.getItemAt(1)->setAutomatic(false); }},
        {"added", [](KplIntegerList& l) { l.addItem(); }},
        {"values",
         [](KplIntegerList& l) {
             l.setValues({1, 9});
         }},
    };
    for (const auto& c : cases) {
        const auto list = automaticItemsOf({1, 2});
        EXPECT_TRUE(list->isAutomatic()) << c.name;
        c.change(*list);
        EXPECT_EQ(automaticState(*list), "manual, initialized") << c.name;
    }
}

TEST(KplAAtomicList, StaysAutomaticWhileAllItemsAre)
{
    const auto list = automaticItemsOf({1, 2, 3});
    list->moveItem(0, 2);
    list->removeItemAt(0);
    delete list->getItemAt(0);
    list->setItemLabel("Mine");
    list->setEnabled(false);
    EXPECT_EQ(list->getValues(), Integers({1}));
    EXPECT_TRUE(list->isAutomatic());
    list->getItemAt(0)->setAutomatic(false);
    EXPECT_FALSE(list->isAutomatic());
}

TEST(KplAAtomicList, ChecksTheItemsAnewWhereAutomaticValuesAreKeptElsewhere)
{
    const auto list = automaticListOf({1, 2});
    list->unsetAutoValues();
    list->setAutoValueAt(5, 0);
    list->removeLastItem();
    EXPECT_EQ(automaticState(*list), "manual, not initialized");
}

TEST(KplAAtomicList, DropsAutomaticValuesThatDoNotFitTheConfigurationAnyMore)
{
    const auto list = listOf({1});
    list->setAutoValues({5, 20});
    EXPECT_EQ(flagsOf(*list, [](KplIntegerList& l) { l.getItemPrototype()->setMaximum(10); }), QList<int>({config}));
    EXPECT_EQ(automaticState(*list), "manual, not initialized");
    EXPECT_EQ(list->getAutoValues(), Integers());
}

TEST(KplAAtomicList, KeepsAutomaticValuesThatFitTheNewConfiguration)
{
    const auto list = automaticListOf({5, 6});
    list->getItemPrototype()->setMaximum(10);
    EXPECT_EQ(automaticState(*list), "automatic, initialized");
}

TEST(KplAAtomicList, DropsAutomaticValuesThatRepeatOnceItIsUnique)
{
    const auto list = listOf({1});
    list->setAutoValues({5, 5});
    list->setUnique(true);
    EXPECT_EQ(automaticState(*list), "manual, not initialized");
}

TEST(KplAAtomicList, LetsAutomaticValuesOfItemsChangePlacesInAUniqueList)
{
    const auto list = listOf({1, 2});
    list->setUnique(true);
    list->setAutoValueAt(0, 2);
    list->setAutoValueAt(1, 1);
    list->setAutomatic(true);
    EXPECT_EQ(list->getValues(), Integers({2, 1}));
    EXPECT_TRUE(list->isAutomatic());
}

TEST(KplAAtomicList, RemovesAutomaticValuesOfItemsThatRepeatInAUniqueList)
{
    const auto list = listOf({1, 2, 3});
    list->setUnique(true);
    for (int i = 0; i < 3; ++i)
        list->setAutoValueAt(i, i == 2 ? 8 : 7);
    list->setAutomatic(true);
    EXPECT_EQ(list->getValues(), Integers({7, 8}));
    EXPECT_TRUE(list->isAutomatic());
}

TEST(KplAAtomicList, LetsValuesChangePlacesInAUniqueList)
{
    const auto list = listOf({1, 2, 3});
    list->setUnique(true);
    RecordingObserver observer(*list);
    list->setValues({3, 1, 2});
    EXPECT_EQ(list->getValues(), Integers({3, 1, 2}));
    EXPECT_EQ(list->getItemKeys(), itemKeys({1, 2, 3}));
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*list), value);
}

TEST(KplAAtomicList, ReadsItemsAllAtOnce)
{
    const auto list = listOf({1, 2});
    RecordingObserver observer(*list);
    list->unserializeAtomicItems({"ITEM_2", "ITEM_7"}, {storedValue("20"), storedValue("70")});
    EXPECT_EQ(list->getItemKeys(), itemKeys({2, 7}));
    EXPECT_EQ(list->getValues(), Integers({20, 70}));
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*list), structure);
    EXPECT_EQ(list->addItem()->getKey(), "ITEM_8");
}

TEST(KplAAtomicList, DropsItemsWhoseValuesRepeatWhenItReadsThemAtOnce)
{
    KplIntegerList list("LIST");
    list.setUnique(true);
    EXPECT_TRUE(list.needToUnserializeAtomicItems());
    list.unserializeAtomicItems(itemKeys({1, 2, 3, 4}),
                                {storedValue("5"), storedValue("5"), storedValue("6"), storedValue("5")});
    EXPECT_EQ(list.getValues(), Integers({5, 6}));
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 3}));
    EXPECT_EQ(itemLabels(list), QStringList({"no label #1", "no label #2"}));
}

TEST(KplAAtomicList, LetsStoredValuesChangePlacesInAUniqueList)
{
    const auto list = listOf({1, 2});
    list->setUnique(true);
    KpaInteger* first = list->getItemAt(0);
    list->unserializeAtomicItems(itemKeys({1, 2}), {storedValue("2"), storedValue("1")});
    EXPECT_EQ(list->getValues(), Integers({2, 1}));
    EXPECT_EQ(list->getItemAt(0), first);
}

TEST(KplAAtomicList, KeepsThePrototypesValueWhereThereIsNoMap)
{
    KplIntegerList list("LIST");
    list.getItemPrototype()->setValue(4);
    list.unserializeAtomicItems(itemKeys({1, 2}), {storedValue("9")});
    EXPECT_EQ(list.getValues(), Integers({9, 4}));
}

TEST(KplAAtomicList, ReadsNothingAtOnceWhereItIsNotResizable)
{
    const auto list = listOf({1});
    list->setResizable(false);
    list->unserializeAtomicItems({"ITEM_1"}, {storedValue("9")});
    EXPECT_EQ(list->getValues(), Integers({1}));
}

TEST(KplAAtomicList, CopiesItsValuesAndItsState)
{
    const auto list = automaticListOf({1, 2});
    list->setUnique(true);
    list->getItemPrototype()->setMinimum(-5);
    const std::unique_ptr<KplIntegerList> copy(list->duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValues(), Integers({1, 2}));
    EXPECT_TRUE(copy->isUnique());
    EXPECT_EQ(automaticState(*copy), "automatic, initialized");
    EXPECT_EQ(copy->getAutoValueLocation(), Kp::List::AutoValuesInList);
    EXPECT_EQ(copy->getAutoValues(), Integers({1, 2}));
    EXPECT_EQ(copy->getItemPrototype()->getMinimum(), -5);
    copy->setValues({7});
    EXPECT_FALSE(copy->isAutomatic());
    EXPECT_EQ(list->getValues(), Integers({1, 2}));
    EXPECT_TRUE(list->isAutomatic());
}

TEST(KplAAtomicList, IsAsCarefulInACopyAsInTheOriginal)
{
    const auto list = listOf({1, 2, 3});
    list->setUnique(true);
    const KplIntegerList same(*list, QString());
    EXPECT_EQ(same.getKey(), "LIST");
    KplIntegerList copy(*list, "COPY");
    copy.setValueAt(1, 1);
    EXPECT_EQ(copy.getValues(), Integers({1, 3}));
}

TEST(KplAAtomicList, MayBeDestroyedByAnObserverOfAnItem)
{
    const struct
    {
        const char* name;
        std::function<void(KplIntegerList&)> change;
    } cases[] = {
        {"setValues",
         [](KplIntegerList& l) {
             l.setValues({7, 8, 9});
         }},
        {"setValueAt", [](KplIntegerList& l) { l.setValueAt(0, 2); }},
        {"setAutoValues",
         [](KplIntegerList& l) {
             l.setAutoValues({7, 8});
         }},
        {"setAutoValueAt", [](KplIntegerList& l) { l.setAutoValueAt(0, 8); }},
        {"setAutomatic",
         [](KplIntegerList& l) {
             l.setAutomatic(false);
             l.setAutoValues({9, 9, 9});
             l.setAutomatic(true);
         }},
        {"setUnique", [](KplIntegerList& l) { l.setUnique(true); }},
        {"setItemLabel", [](KplIntegerList& l) { l.setItemLabel("Mine"); }},
        {"removeItemAt", [](KplIntegerList& l) { l.removeItemAt(0); }},
        {"unserializeAtomicItems",
         [](KplIntegerList& l) {
             l.unserializeAtomicItems(itemKeys({1, 2, 5}), {storedValue("5"), storedValue("6"), storedValue("5")});
         }},
        {"setItemPrototype", [](KplIntegerList& l) { l.setItemPrototype(nullptr, false); }},
    };
    for (const bool inItems : {false, true}) {
        for (const auto& c : cases) {
            auto* list = (inItems ? automaticItemsOf({1, 1, 2}) : automaticListOf({1, 1, 2})).release();
            bool destroyed = false;
            const auto destroy = [&] {
                if (!std::exchange(destroyed, true))
                    delete list;
            };
            const ActingObserver first(*list->getItemAt(0), destroy, destroy);
            const ActingObserver second(*list->getItemAt(1), destroy, destroy);
            const ActingObserver prototype(*list->getItemPrototype(), destroy, destroy);
            c.change(*list);
            EXPECT_TRUE(destroyed) << c.name;
        }
    }
}

TEST(KplAAtomicList, SurvivesItemsThatChangeItWhileItChangesThem)
{
    const auto list = listOf({1, 2, 3});
    const ActingObserver first(*list->getItemAt(0), [&] { list->setItemCount(1); });
    list->setValues({7, 8, 9});
    EXPECT_EQ(list->getValues(), Integers({7}));
}

TEST(KplAAtomicList, IsNotFixedInTheMidstOfAChangeByOneWithinIt)
{
    KplDoubleList list("LIST");
    list.setValues({1, 2, 3});
    list.setUnique(true);
    const ActingObserver first(*list.getItemAt(0), [&] { list.setMaximum(list.getItemPrototype()->getMaximum() + 1); });
    list.setValues({2, 1, 3});
    EXPECT_EQ(list.getValues(), Doubles({2, 1, 3}));
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 2, 3}));
}

TEST(KplAAtomicList, StaysAutomaticWhereItIsGivenItsAutomaticValuesAgainWhileItTakesThemOver)
{
    const auto list = listOf({1, 2});
    list->setAutoValues({5, 6});
    const ActingObserver first(*list->getItemAt(0), [&] { list->setAutoValues({5, 6}); });
    list->setAutomatic(true);
    EXPECT_EQ(list->getValues(), Integers({5, 6}));
    EXPECT_EQ(automaticState(*list), "automatic, initialized");
}

TEST(KplAAtomicList, StaysCarefulWhereAnObserverSetsValuesInTheMidstOfAChange)
{
    const auto list = listOf({1, 2, 3});
    list->setUnique(true);
    bool once = true;
    const ActingObserver first(*list->getItemAt(0), [&] {
        if (std::exchange(once, false))
            list->setValues({5, 6});
    });
    list->setValues({7, 8, 9});
    list->setValueAt(1, list->getValueAt(0));
    EXPECT_EQ(list->getItemCount(), 1);
}
