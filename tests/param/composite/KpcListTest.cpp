#include "ListTestTools.h"

#include <param/list/KplIntegerList.h>

#include <basic/MbbHtml.h>
#include <support/TestParameters.h>

#include <limits>

namespace {

/// A plain list that shows what it keeps for subclasses.
class IntegerList : public KpcList<KpaInteger>
{
public:
    explicit IntegerList(int items = 0, const QString& key = "LIST") : KpcList(key)
    {
        getItemPrototype()->setLabel("Size");
        setItemCount(items);
        structureChanges = configChanges = 0;
    }
    IntegerList(const IntegerList& other, const QString& newKey) : KpcList(other, newKey) {}

    using KpcList::_compressCounter;
    using KpcList::_findItem;
    using KpcList::_itemIdToItemKey;
    using KpcList::_rebuildItems;
    using KpcList::_updateLabels;

    std::function<void()> onStructureChanged;
    int structureChanges = 0;
    int configChanges = 0;

protected:
    void _structureChanged() override
    {
        ++structureChanges;
        if (onStructureChanged)
            onStructureChanged();
    }
    void _configChanged() override { ++configChanges; }
};

using Change = std::function<void(IntegerList&)>;

constexpr int valueChildrenItem = 13;

} // namespace

TEST(KpcList, IsEmptyResizableAndOfTheKindListAtFirst)
{
    const KpcList<KpaInteger> list("LIST");
    EXPECT_TRUE(list.isA(KpbEType::LIST));
    EXPECT_EQ(list.getKey(), "LIST");
    EXPECT_TRUE(list.isEmpty());
    EXPECT_FALSE(list.hasChildren());
    EXPECT_EQ(list.getItemCount(), 0);
    EXPECT_EQ(list.getChildCount(), 0);
    EXPECT_TRUE(list.isResizable());
    EXPECT_FALSE(list.ignoreItemKeys());
    EXPECT_FALSE(list.needToUnserializeAtomicItems());
    EXPECT_EQ(list.getAutoValueLocation(), Kp::List::AutoValuesInList);
    EXPECT_EQ(int(list.getAutoValueLocation()), 0);
    EXPECT_TRUE(list.getItemType() == KpbEType::INTEGER);
    EXPECT_EQ(list.getItemKeys(), QStringList());
}

TEST(KpcList, HasAPrototypeThatIsNobodysChild)
{
    const KpcList<KpaInteger> list("LIST");
    ASSERT_NE(list.getItemPrototype(), nullptr);
    EXPECT_EQ(list.getAbstractPrototype(), list.getItemPrototype());
    EXPECT_EQ(list.getItemPrototype()->getKey(), "PROTOTYPE");
    EXPECT_EQ(list.getItemPrototype()->getParent(), nullptr);
    EXPECT_EQ(list.getChild("PROTOTYPE"), nullptr);
}

TEST(KpcList, TurnsIdentifiersIntoKeysAndBack)
{
    EXPECT_EQ(IntegerList::_itemIdToItemKey(12), "ITEM_12");
    const struct
    {
        const char* key;
        int id;
    } cases[] = {{"ITEM_12", 12},       {"OTHER7", 7}, {"ITEM_", 0},     {"", 0},
                 {"ITEM", 0},           {"ITEM_x", 0}, {"PROTOTYPE", 0}, {"ITEM_2147483647", 2147483647},
                 {"ITEM_2147483648", 0}};
    for (const auto& c : cases)
        EXPECT_EQ(IntegerList::itemKeyToItemId(c.key), c.id) << c.key;
}

TEST(KpcList, AddsACopyOfThePrototypeAsItsChild)
{
    IntegerList list;
    list.getItemPrototype()->setMinimum(5);
    list.getItemPrototype()->setValue(7);
    KpaInteger* item = list.addItem();
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->getKey(), "ITEM_1");
    EXPECT_EQ(item->getLabel(), "Size #1");
    EXPECT_EQ(item->getParent(), &list);
    EXPECT_EQ(item->getMinimum(), 5);
    EXPECT_EQ(item->getValue(), 7);
    EXPECT_TRUE(list.hasChildren());
    EXPECT_FALSE(list.isEmpty());
    EXPECT_EQ(list.getChild(0), item);
    EXPECT_EQ(list.getChild("ITEM_1"), item);
}

TEST(KpcList, LabelsItemsWithTheLabelAndTheRank)
{
    KpcList<KpaInteger> list("LIST");
    list.appendItem();
    EXPECT_EQ(itemLabels(list), QStringList({"no label #1"}));
    for (const char* label : {"%1", "%2 of %1", "a #", ""}) {
        list.setItemLabel(label);
        EXPECT_EQ(itemLabels(list), QStringList({label + QString(" #1")})) << label;
        list.setItemCount(2);
        EXPECT_EQ(itemLabels(list), QStringList({label + QString(" #1"), label + QString(" #2")})) << label;
        list.setItemCount(1);
    }
}

TEST(KpcList, GivesItemsByRankAndKeyAndNullForOthers)
{
    IntegerList list(3);
    EXPECT_EQ(list.getItemAt(1)->getKey(), "ITEM_2");
    EXPECT_EQ(list.getAbstractItemAt(2), list.getItemAt(2));
    EXPECT_EQ(list.getLastItem(), list.getItemAt(2));
    EXPECT_EQ(list.getItemRank(list.getItemAt(1)), 1);
    const KpaInteger stranger("ITEM_1");
    EXPECT_EQ(list.getItemRank(&stranger), -1);
    EXPECT_EQ(list.getItemRank(nullptr), -1);
    EXPECT_EQ(list.getItemRank(list.getItemPrototype()), -1);
    for (const int rank : {-1, 3, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(list.getItemAt(rank), nullptr) << rank;
        EXPECT_EQ(list.getAbstractItemAt(rank), nullptr) << rank;
        EXPECT_EQ(list.getChild(rank), nullptr) << rank;
    }
    EXPECT_EQ(list.getChild("ITEM_4"), nullptr);
    EXPECT_EQ(list.getChild(""), nullptr);
    EXPECT_EQ(IntegerList().getLastItem(), nullptr);
}

TEST(KpcList, FindsItemsByKeyAlsoAmongMany)
{
    IntegerList list(100);
    EXPECT_EQ(list.getChild("ITEM_57"), list.getItemAt(56));
    list.removeItemAt(10);
    EXPECT_EQ(list.getChild("ITEM_11"), nullptr);
    EXPECT_EQ(list.getChild("ITEM_57"), list.getItemAt(55));
    KpaInteger* added = list.addItem();
    EXPECT_EQ(list.getChild("ITEM_101"), added);
    list.moveItem(0, 50);
    EXPECT_EQ(list.getChild("ITEM_1"), list.getItemAt(50));
}

TEST(KpcList, NeverUsesAKeyAgainUnlessItIsCleared)
{
    IntegerList list(3);
    list.removeItemAt(1);
    EXPECT_EQ(list.addItem()->getKey(), "ITEM_4");
    list.removeLastItem();
    EXPECT_EQ(list.addItem()->getKey(), "ITEM_5");
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 3, 5}));
    list.clear();
    EXPECT_EQ(list.addItem()->getKey(), "ITEM_1");
}

TEST(KpcList, KeepsTheCounterOfKeysWhenTheCountGoesDown)
{
    IntegerList list(3);
    list.setItemCount(0);
    EXPECT_EQ(list.addItem()->getKey(), "ITEM_4");
}

TEST(KpcList, TellsEachChangeOfTheItemsInOneRecord)
{
    const struct
    {
        const char* name;
        Change change;
    } cases[] = {
        {"addItem", [](IntegerList& list) { list.addItem(); }},
        {"appendItem", [](IntegerList& list) { list.appendItem(); }},
        {"setItemCount up", [](IntegerList& list) { list.setItemCount(6); }},
        {"setItemCount down", [](IntegerList& list) { list.setItemCount(1); }},
        {"setItemCount 0", [](IntegerList& list) { list.setItemCount(0); }},
        {"removeItemAt", [](IntegerList& list) { list.removeItemAt(0); }},
        {"removeLastItem", [](IntegerList& list) { list.removeLastItem(); }},
        {"takeItemAt", [](IntegerList& list) { delete list.takeItemAt(1); }},
        {"moveItem", [](IntegerList& list) { list.moveItem(0, 2); }},
        {"clear", [](IntegerList& list) { list.clear(); }},
        {"resetItemKeys",
         [](IntegerList& list) {
             list.resetItemKeys({"ITEM_3", "ITEM_9"});
         }},
        {"death of an item", [](IntegerList& list) { delete list.getItemAt(1); }},
    };
    for (const auto& c : cases) {
        IntegerList list(3);
        EXPECT_EQ(listFlagsOf(list, [&] { c.change(list); }), QList<int>({valueChildrenItem})) << c.name;
        EXPECT_EQ(list.structureChanges, 1) << c.name;
        EXPECT_EQ(list.configChanges, 0) << c.name;
    }
}

TEST(KpcList, SaysNothingWhereNothingChanges)
{
    const struct
    {
        const char* name;
        Change change;
    } cases[] = {
        {"setItemCount", [](IntegerList& list) { list.setItemCount(3); }},
        {"removeItemAt below", [](IntegerList& list) { list.removeItemAt(-1); }},
        {"removeItemAt above", [](IntegerList& list) { list.removeItemAt(3); }},
        {"takeItemAt below", [](IntegerList& list) { EXPECT_EQ(list.takeItemAt(-1), nullptr); }},
        {"takeItemAt above", [](IntegerList& list) { EXPECT_EQ(list.takeItemAt(3), nullptr); }},
        {"moveItem nowhere", [](IntegerList& list) { list.moveItem(1, 1); }},
        {"moveItem from below", [](IntegerList& list) { list.moveItem(-1, 1); }},
        {"moveItem from above", [](IntegerList& list) { list.moveItem(3, 1); }},
        {"moveItem to below", [](IntegerList& list) { list.moveItem(1, -1); }},
        {"moveItem to above", [](IntegerList& list) { list.moveItem(1, 3); }},
        {"setResizable", [](IntegerList& list) { list.setResizable(false); }},
        {"setItemLabel", [](IntegerList& list) { list.setItemLabel("Size"); }},
        {"unserialize",
         [](IntegerList& list) {
             list.unserialize({{"value", "5"}});
         }},
        {"unserializeAtomicItems", [](IntegerList& list) { list.unserializeAtomicItems({"ITEM_9"}, {{}}); }},
        {"resetItemKeys",
         [](IntegerList& list) {
             list.resetItemKeys(itemKeys({1, 2, 3}));
         }},
    };
    for (const auto& c : cases) {
        IntegerList list(3);
        EXPECT_EQ(listFlagsOf(list, [&] { c.change(list); }), QList<int>()) << c.name;
        EXPECT_EQ(list.getItemKeys(), itemKeys({1, 2, 3})) << c.name;
    }
    IntegerList empty;
    EXPECT_EQ(listFlagsOf(empty,
                          [&] {
                              empty.clear();
                              empty.removeLastItem();
                              empty.setItemCount(0);
                              empty.setItemCount(-5);
                          }),
              QList<int>());
}

TEST(KpcList, CountsANegativeCountAsNone)
{
    IntegerList list(2);
    list.setItemCount(-3);
    EXPECT_TRUE(list.isEmpty());
}

TEST(KpcList, RemovesAndAddsAtTheEnd)
{
    IntegerList list(3);
    KpaInteger* first = list.getItemAt(0);
    list.setItemCount(1);
    EXPECT_EQ(list.getItemKeys(), itemKeys({1}));
    EXPECT_EQ(list.getItemAt(0), first);
    list.setItemCount(3);
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 4, 5}));
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2", "Size #3"}));
}

TEST(KpcList, DestroysWhatItRemoves)
{
    const Change changes[] = {
        [](IntegerList& list) { list.setItemCount(0); },
        [](IntegerList& list) { list.removeItemAt(0); },
        [](IntegerList& list) { list.clear(); },
        [](IntegerList& list) { list.resetItemKeys({}); },
    };
    for (const Change& change : changes) {
        IntegerList list(1);
        const KuoPointer<KpbAParameter> item(list.getItemAt(0));
        change(list);
        EXPECT_EQ(item.get(), nullptr);
        EXPECT_TRUE(list.isEmpty());
    }
}

TEST(KpcList, RelabelsWhatComesBehindARemovedItem)
{
    IntegerList list(4);
    list.removeItemAt(1);
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 3, 4}));
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2", "Size #3"}));
}

TEST(KpcList, TellsOfNewLabelsAtTheItemsInTheSameRecord)
{
    IntegerList list(3);
    RecordingObserver observer(list);
    list.removeItemAt(1);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
    EXPECT_EQ(observer.flagsOf(*list.getItemAt(0)), 0);
    EXPECT_EQ(observer.flagsOf(*list.getItemAt(1)), int(Kp::NotifyConfig));
    EXPECT_EQ(observer.flagsOf(list), valueChildrenItem);
}

TEST(KpcList, HandsOutATakenItemWithItsParentAndStopsObservingIt)
{
    IntegerList list(3);
    KpaInteger* second = list.getItemAt(1);
    const std::unique_ptr<KpaInteger> taken(list.takeItemAt(1));
    EXPECT_EQ(taken.get(), second);
    EXPECT_EQ(taken->getParent(), &list);
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 3}));
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2"}));
    EXPECT_EQ(listFlagsOf(list, [&] { taken->setValue(12); }), QList<int>());
    EXPECT_EQ(list.addItem()->getKey(), "ITEM_4");
}

TEST(KpcList, MovesAnItemWithItsKeyAndRelabelsTheTwo)
{
    IntegerList list(3);
    list.moveItem(1, 0);
    EXPECT_EQ(list.getItemKeys(), itemKeys({2, 1, 3}));
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2", "Size #3"}));
    list.moveItem(0, 2);
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 3, 2}));
    EXPECT_EQ(list.getChild(2), list.getChild("ITEM_2"));
}

TEST(KpcList, KeepsALabelThatWasSetByHandUntilAllAreLabelled)
{
    IntegerList list(3);
    list.getItemAt(1)->setLabel("Mine");
    list._updateLabels();
    list.removeItemAt(0);
    EXPECT_EQ(itemLabels(list), QStringList({"Mine", "Size #2"}));
    list.setItemLabel("Width");
    EXPECT_EQ(itemLabels(list), QStringList({"Width #1", "Width #2"}));
    EXPECT_EQ(list.getItemPrototype()->getLabel(), "Width");
}

TEST(KpcList, RenumbersEveryLabelThatBeginsAsALabelOfAnItem)
{
    IntegerList list(3);
    list.getItemAt(0)->setLabel("Size #12");
    list.getItemAt(2)->setLabel("Size #x");
    list._updateLabels();
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2", "Size #3"}));
    list.getItemAt(0)->setLabel("Size #03");
    list.removeLastItem();
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2"}));
}

TEST(KpcList, RenumbersWhatWasLabelledBetweenAdditions)
{
    IntegerList list(1);
    list.addItem()->setLabel("Size #7");
    list.addItem();
    list.addItem();
    list.getItemAt(2)->setLabel("Mine");
    list.removeLastItem();
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2", "Mine"}));
    list.getItemPrototype()->setLabel("Mi");
    list.getItemAt(2)->setLabel("Mi #1");
    list.addItem();
    list.removeItemAt(0);
    EXPECT_EQ(itemLabels(list), QStringList({"Size #2", "Mi #2", "Mi #3"}));
    list.clear();
    list.addItem();
    EXPECT_EQ(itemLabels(list), QStringList({"Mi #1"}));
}

TEST(KpcList, LeavesTheLabelsOfPresentItemsWhenThePrototypeIsLabelled)
{
    IntegerList list(2);
    list.getItemPrototype()->setLabel("Width");
    list.removeItemAt(0);
    EXPECT_EQ(itemLabels(list), QStringList({"Size #2"}));
    list.addItem();
    EXPECT_EQ(itemLabels(list), QStringList({"Size #2", "Width #2"}));
}

TEST(KpcList, TellsOfALabelForAllInOneRecord)
{
    IntegerList list(2);
    RecordingObserver observer(list);
    list.setItemLabel("Width");
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 3);
    EXPECT_EQ(observer.flagsOf(list), int(Kp::NotifyConfig));
    EXPECT_EQ(observer.flagsOf(*list.getItemAt(0)), int(Kp::NotifyConfig));
    EXPECT_EQ(observer.flagsOf(*list.getItemAt(1)), int(Kp::NotifyConfig));
    EXPECT_EQ(list.structureChanges, 0);
}

TEST(KpcList, PassesOnWhatHappensAtAnItem)
{
    IntegerList list(2);
    RecordingObserver observer(list);
    list.getItemAt(1)->setValue(4);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].debug(), "LIST/ITEM_2:1");
    EXPECT_TRUE(observer.records[0].hasModif(&list, Kp::NotifyValue));
    EXPECT_EQ(list.configChanges, 0);
}

TEST(KpcList, TellsAChangeOfThePrototypeAsItsOwnConfiguration)
{
    IntegerList list(1);
    RecordingObserver observer(list);
    list.getItemPrototype()->setLabel("Width");
    list.getItemPrototype()->setValue(9);
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.records[0].debug(), "LIST:2");
    EXPECT_EQ(observer.records[1].debug(), "LIST:2");
    EXPECT_EQ(list.configChanges, 2);
}

TEST(KpcList, DividesARecordOfItemsAndPrototype)
{
    IntegerList list(1);
    RecordingObserver observer(list);
    KpnModif both(Kp::NotifyValue, list.getItemAt(0));
    both.merge(KpnModif(Kp::NotifyValue, list.getItemPrototype()));
    list.update(both);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
    EXPECT_EQ(observer.flagsOf(list), int(Kp::NotifyConfig));
    EXPECT_EQ(observer.flagsOf(*list.getItemAt(0)), int(Kp::NotifyValue));
    EXPECT_EQ(list.configChanges, 1);
}

TEST(KpcList, GivesPresentItemsNothingOfThePrototype)
{
    IntegerList list(1);
    list.getItemPrototype()->setMinimum(10);
    EXPECT_EQ(list.getItemAt(0)->getValue(), 0);
    EXPECT_EQ(list.addItem()->getValue(), 10);
}

TEST(KpcList, TakesACopyOfAnotherPrototype)
{
    IntegerList list(2);
    KpaInteger model("MODEL");
    model.setLabel("Model");
    model.setValue(3);
    const KuoPointer<KpbAParameter> former(list.getItemPrototype());
    EXPECT_EQ(listFlagsOf(list, [&] { list.setItemPrototype(&model, true); }), QList<int>({int(Kp::NotifyConfig)}));
    EXPECT_EQ(former.get(), nullptr);
    EXPECT_NE(list.getItemPrototype(), &model);
    EXPECT_EQ(list.getItemPrototype()->getKey(), "PROTOTYPE");
    EXPECT_EQ(list.configChanges, 1);
    EXPECT_EQ(list.structureChanges, 0);
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2"}));
    EXPECT_EQ(list.addItem()->getLabel(), "Model #3");
    EXPECT_EQ(list.getLastItem()->getValue(), 3);
}

TEST(KpcList, TakesAnotherPrototypeItselfWithItsKey)
{
    IntegerList list;
    auto* model = new KpaInteger("MODEL");
    list.setItemPrototype(model, false);
    EXPECT_EQ(list.getItemPrototype(), model);
    EXPECT_EQ(model->getKey(), "MODEL");
    EXPECT_EQ(listFlagsOf(list, [&] { model->setValue(1); }), QList<int>({int(Kp::NotifyConfig)}));
}

TEST(KpcList, MakesANewPrototypeInThePlaceOfNull)
{
    for (const bool copy : {false, true}) {
        IntegerList list;
        list.setItemPrototype(nullptr, copy);
        ASSERT_NE(list.getItemPrototype(), nullptr);
        EXPECT_EQ(list.getItemPrototype()->getKey(), "PROTOTYPE");
        EXPECT_EQ(list.getItemPrototype()->getLabel(), "no label");
        EXPECT_EQ(list.configChanges, 1);
    }
}

TEST(KpcList, SurvivesItsOwnPrototypeAsTheNewOne)
{
    for (const bool copy : {false, true}) {
        IntegerList list;
        list.getItemPrototype()->setValue(6);
        list.setItemPrototype(list.getItemPrototype(), copy);
        EXPECT_EQ(list.addItem()->getValue(), 6);
        EXPECT_EQ(listFlagsOf(list, [&] { list.getItemPrototype()->setValue(1); }),
                  QList<int>({int(Kp::NotifyConfig)}));
    }
}

TEST(KpcList, MakesAnItemTheModelOfTheOthers)
{
    IntegerList list(1);
    list.getItemAt(0)->setValue(8);
    list.setItemPrototype(list.getItemAt(0), true);
    EXPECT_EQ(list.getItemPrototype()->getKey(), "PROTOTYPE");
    EXPECT_EQ(list.getItemCount(), 1);
    EXPECT_EQ(list.addItem()->getValue(), 8);
}

TEST(KpcList, CopiesAnItemThatIsToBeThePrototypeItself)
{
    IntegerList list(1);
    KpaInteger* item = list.getItemAt(0);
    list.setItemPrototype(item, false);
    EXPECT_NE(list.getItemPrototype(), item);
    EXPECT_EQ(list.getItemAt(0), item);
    list.clear();
    EXPECT_EQ(list.getItemPrototype()->getKey(), "PROTOTYPE");
}

TEST(KpcList, MakesANewPrototypeWhenItsOwnDies)
{
    IntegerList list(1);
    EXPECT_EQ(listFlagsOf(list, [&] { delete list.getItemPrototype(); }), QList<int>({int(Kp::NotifyConfig)}));
    ASSERT_NE(list.getItemPrototype(), nullptr);
    EXPECT_EQ(list.getItemPrototype()->getKey(), "PROTOTYPE");
    EXPECT_EQ(list.configChanges, 1);
    EXPECT_EQ(list.addItem()->getLabel(), "no label #2");
}

TEST(KpcList, DropsAnItemThatIsDestroyed)
{
    IntegerList list(3);
    delete list.getItemAt(0);
    EXPECT_EQ(list.getItemKeys(), itemKeys({2, 3}));
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2"}));
    EXPECT_EQ(list.getChild("ITEM_1"), nullptr);
}

TEST(KpcList, DropsItemsThatAreDestroyedAmongMany)
{
    IntegerList list(40);
    ASSERT_NE(list.getChild("ITEM_40"), nullptr);
    while (list.getItemCount() > 1)
        delete list.getItemAt(list.getItemCount() / 2);
    EXPECT_EQ(list.getItemKeys(), itemKeys({1}));
    EXPECT_EQ(list.getChild("ITEM_40"), nullptr);
    EXPECT_EQ(list.getChild("ITEM_1"), list.getItemAt(0));
}

TEST(KpcList, ReordersItsItemsByTheirKeys)
{
    IntegerList list(3);
    KpaInteger* first = list.getItemAt(0);
    KpaInteger* third = list.getItemAt(2);
    EXPECT_EQ(listFlagsOf(list, [&] { list.resetItemKeys(itemKeys({3, 2, 1})); }), QList<int>({valueChildrenItem}));
    EXPECT_EQ(list.getItemKeys(), itemKeys({3, 2, 1}));
    EXPECT_EQ(list.getItemAt(0), third);
    EXPECT_EQ(list.getItemAt(2), first);
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2", "Size #3"}));
}

TEST(KpcList, MakesAndRemovesItemsForKeys)
{
    IntegerList list(2);
    list.getItemPrototype()->setValue(7);
    list.getItemAt(1)->setValue(22);
    const KuoPointer<KpbAParameter> first(list.getItemAt(0));
    list.resetItemKeys({"ITEM_5", "ITEM_2", "MINE"});
    EXPECT_EQ(first.get(), nullptr);
    EXPECT_EQ(list.getItemKeys(), QStringList({"ITEM_5", "ITEM_2", "MINE"}));
    EXPECT_EQ(list.getItemAt(0)->getValue(), 7);
    EXPECT_EQ(list.getItemAt(1)->getValue(), 22);
    EXPECT_EQ(list.getItemAt(2)->getParent(), &list);
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2", "Size #3"}));
    EXPECT_EQ(list.addItem()->getKey(), "ITEM_6");
}

TEST(KpcList, CountsOnFromTheGreatestIdentifierAfterNewKeys)
{
    const struct
    {
        QStringList keys;
        const char* next;
    } cases[] = {{itemKeys({1, 5}), "ITEM_6"}, {itemKeys({7, 2}), "ITEM_8"}, {{}, "ITEM_1"},
                 {{"A", "ITEM_x"}, "ITEM_1"},  {{"OTHER4"}, "ITEM_5"},       {{"ITEM_-9"}, "ITEM_1"}};
    for (const auto& c : cases) {
        IntegerList list(20);
        list.resetItemKeys(c.keys);
        EXPECT_EQ(list.addItem()->getKey(), c.next);
    }
}

TEST(KpcList, PassesOverKeysInUseBehindTheGreatestIdentifier)
{
    IntegerList list;
    list.resetItemKeys(itemKeys({std::numeric_limits<int>::max(), 1, 2}));
    EXPECT_EQ(list.addItem()->getKey(), "ITEM_3");
    EXPECT_EQ(list.addItem()->getKey(), "ITEM_4");
}

TEST(KpcList, KeepsItsItemsWhereItIsNotResizable)
{
    IntegerList list(2);
    list.setResizable(false);
    EXPECT_FALSE(list.isResizable());
    EXPECT_TRUE(list.ignoreItemKeys());
    EXPECT_EQ(listFlagsOf(list, [&] { list.resetItemKeys({"ITEM_2", "ITEM_7"}); }), QList<int>());
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 2}));
    EXPECT_EQ(list.structureChanges, 0);
}

TEST(KpcList, MakesAnItemForEachTimeAKeyRepeats)
{
    IntegerList list(1);
    list.getItemAt(0)->setValue(4);
    KpaInteger* first = list.getItemAt(0);
    list.resetItemKeys({"ITEM_1", "ITEM_1", "ITEM_2"});
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 1, 2}));
    EXPECT_EQ(list.getItemAt(0), first);
    EXPECT_EQ(list.getItemAt(1)->getValue(), 0);
    EXPECT_EQ(list.getChild("ITEM_1"), first);

    KpaInteger* second = list.getItemAt(1);
    list.resetItemKeys({"ITEM_2", "ITEM_1", "ITEM_1"});
    EXPECT_EQ(list.getItemAt(1), first);
    EXPECT_EQ(list.getItemAt(2), second);
    list.removeItemAt(1);
    EXPECT_EQ(list.getChild("ITEM_1"), second);
}

TEST(KpcList, ReordersItemsWhoseKeysRepeatInTheirFormerOrder)
{
    IntegerList list;
    list.resetItemKeys(itemKeys({1, 2, 1, 2, 1}));
    QList<KpaInteger*> items;
    for (int i = 0; i < list.getItemCount(); ++i)
        items.append(list.getItemAt(i));
    list.resetItemKeys(itemKeys({2, 2, 1, 1, 1, 1}));
    const QList<KpaInteger*> expected = {items[1], items[3], items[0], items[2], items[4]};
    for (int i = 0; i < expected.size(); ++i)
        EXPECT_EQ(list.getItemAt(i), expected[i]) << i;
    EXPECT_EQ(list.getItemKeys(), itemKeys({2, 2, 1, 1, 1, 1}));
    EXPECT_FALSE(items.contains(list.getItemAt(5)));
}

TEST(KpcList, FindsTheFirstOfManyItemsWithOneKey)
{
    IntegerList list;
    QStringList keys = itemKeys({1, 1, 1});
    for (int i = 10; i < 40; ++i)
        keys.append("ITEM_" + QString::number(i));
    list.resetItemKeys(keys);
    for (int left = 3; left > 0; --left) {
        EXPECT_EQ(list.getChild("ITEM_1"), list.getItemAt(0));
        list.moveItem(left - 1, 0);
        EXPECT_EQ(list.getChild("ITEM_1"), list.getItemAt(0));
        list.removeItemAt(0);
    }
    EXPECT_EQ(list.getChild("ITEM_1"), nullptr);
}

TEST(KpcList, KeepsWhatIsAcceptedAndDestroysTheRest)
{
    IntegerList list(4);
    list.getItemAt(2)->setLabel("Mine");
    QStringList calls;
    list._rebuildItems({"ITEM_4", "ITEM_1", "NEW", "ITEM_3"},
                       [&](const QList<KpaInteger*>& kept, KpaInteger* item, int rank) {
                           calls.append(QStringLiteral("%1 %2 %3").arg(kept.size()).arg(item->getKey()).arg(rank));
                           return rank != 1;
                       });
    EXPECT_EQ(calls, QStringList({"0 ITEM_4 0", "1 ITEM_1 1", "1 NEW 2", "2 ITEM_3 3"}));
    EXPECT_EQ(list.getItemKeys(), QStringList({"ITEM_4", "NEW", "ITEM_3"}));
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2", "Mine"}));
    EXPECT_EQ(list.structureChanges, 1);
}

TEST(KpcList, NumbersNewItemsBehindThoseThatAreLeftAndByTheirRankInTheEnd)
{
    IntegerList list(3);
    RecordingObserver observer(list);
    QStringList labels;
    list._rebuildItems(itemKeys({4, 2, 5, 1, 6}), [&](const QList<KpaInteger*>&, KpaInteger* item, int) {
        labels.append(item->getLabel());
        return true;
    });
    EXPECT_EQ(labels, QStringList({"Size #4", "Size #2", "Size #3", "Size #1", "Size #2"}));
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2", "Size #3", "Size #4", "Size #5"}));
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(list), valueChildrenItem);
    for (const int rank : {0, 3, 4})
        EXPECT_EQ(observer.flagsOf(*list.getItemAt(rank)), int(Kp::NotifyConfig)) << rank;
    for (const int rank : {1, 2})
        EXPECT_EQ(observer.flagsOf(*list.getItemAt(rank)), 0) << rank;
}

TEST(KpcList, TellsOfAnItemThatWasNotAcceptedUnderTheSameKeys)
{
    IntegerList list(2);
    const auto refuseSecond = [](const QList<KpaInteger*>&, KpaInteger*, int rank) { return rank == 0; };
    EXPECT_EQ(listFlagsOf(list,
                          [&] {
                              list._rebuildItems(itemKeys({1, 2}), refuseSecond);
                          }),
              QList<int>({valueChildrenItem}));
    EXPECT_EQ(list.getItemKeys(), itemKeys({1}));
}

TEST(KpcList, LosesNoItemWhenAnExceptionEndsARebuild)
{
    IntegerList list(4);
    const auto fail = [](const QList<KpaInteger*>&, KpaInteger*, int rank) -> bool {
        if (rank == 1)
            throw MbeProgrammingError(QStringLiteral("bad"));
        return true;
    };
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { list._rebuildItems(itemKeys({3, 2, 1}), fail); }), "bad");
    EXPECT_EQ(list.getItemKeys(), itemKeys({3, 2, 1, 4}));
    EXPECT_EQ(listFlagsOf(list, [&] { list.getItemAt(3)->setValue(1); }).size(), 1);
    list.resetItemKeys(itemKeys({1, 2}));
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 2}));
}

TEST(KpcList, StoresNothingOfItsOwn)
{
    IntegerList list(2);
    EXPECT_EQ(list.serialize(), KpbAParameter::SerialForm());
    EXPECT_EQ(list.getVersion(), 1);
}

TEST(KpcList, PrintsSixItemsAtMost)
{
    const struct
    {
        int items;
        const char* text;
    } cases[] = {{0, "empty"},
                 {1, "1 item: '0'"},
                 {2, "2 items: '0' '1'"},
                 {5, "5 items: '0' '1' '2' '3' '4'"},
                 {6, "6 items: '0' '1' '2' '3' '4' '5' ..."},
                 {7, "7 items: '0' '1' '2' '3' '4' '5' ..."}};
    for (const auto& c : cases) {
        IntegerList list(c.items);
        for (int i = 0; i < c.items; ++i)
            list.getItemAt(i)->setValue(i);
        EXPECT_EQ(list.toString(), c.text);
    }
}

TEST(KpcList, PrintsTextsAsTheyStand)
{
    KpcList<TestLeaf> list("LIST");
    list.setItemCount(2);
    EXPECT_EQ(list.toString(), "2 items: 'text' 'text'");
}

TEST(KpcList, DescribesItselfForDebugging)
{
    IntegerList list(2);
    list.removeItemAt(0);
    const QString text = list.debug(1);
    EXPECT_TRUE(text.startsWith("----- KpbAParameter --------\n key              = LIST\n"));
    EXPECT_TRUE(text.contains("----- KpcList ----------------\n prototype        = PROTOTYPE\n item count       = 1\n "
                              "item type        = INTEGER ("));
    EXPECT_TRUE(text.contains("\n key counter      = 2\n"));
    EXPECT_EQ(list.debug(0), "LIST = 1 item: '0'\n" + MbbHtml::emptyString(1) + "ITEM_2 = 0\n");
}

TEST(KpcList, CopiesItemsPrototypeAndState)
{
    IntegerList list(3);
    list.removeItemAt(1);
    list.getItemAt(0)->setValue(5);
    list.getItemAt(1)->setLabel("Mine");
    list.getItemPrototype()->setValue(9);
    list.setResizable(false);
    list.setLabel("Sizes");

    const std::unique_ptr<KpcList<KpaInteger>> copy(list.KpcList<KpaInteger>::duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getLabel(), "Sizes");
    EXPECT_EQ(copy->getParent(), nullptr);
    EXPECT_FALSE(copy->isResizable());
    EXPECT_EQ(copy->getItemKeys(), itemKeys({1, 3}));
    EXPECT_EQ(itemLabels(*copy), QStringList({"Size #1", "Mine"}));
    EXPECT_NE(copy->getItemAt(0), list.getItemAt(0));
    EXPECT_EQ(copy->getItemAt(0)->getValue(), 5);
    EXPECT_EQ(copy->getItemAt(0)->getParent(), copy.get());
    EXPECT_NE(copy->getItemPrototype(), list.getItemPrototype());
    EXPECT_EQ(copy->getItemPrototype()->getKey(), "PROTOTYPE");
    KpaInteger* added = copy->addItem();
    EXPECT_EQ(added->getKey(), "ITEM_4");
    EXPECT_EQ(added->getValue(), 9);
    EXPECT_EQ(list.getItemCount(), 2);
}

TEST(KpcList, KeepsItsKeyInACopyUnderAnEmptyKeyAndGivesThePrototypeItsOwn)
{
    IntegerList list;
    list.setItemPrototype(new KpaInteger("MODEL"), false);
    const IntegerList copy(list, QString());
    EXPECT_EQ(copy.getKey(), "LIST");
    EXPECT_EQ(copy.getItemPrototype()->getKey(), "PROTOTYPE");
}

TEST(KpcList, ObservesItsItemsAndItsPrototypeInACopy)
{
    const IntegerList list(1);
    IntegerList copy(list, "COPY");
    EXPECT_EQ(listFlagsOf(copy, [&] { copy.getItemAt(0)->setValue(1); }), QList<int>({0}));
    EXPECT_EQ(listFlagsOf(copy, [&] { copy.getItemPrototype()->setValue(1); }), QList<int>({int(Kp::NotifyConfig)}));
    delete copy.getItemAt(0);
    EXPECT_TRUE(copy.isEmpty());
}

TEST(KpcList, OwnsItsItemsAndItsPrototypeAndDestroysTheItemsFirst)
{
    QStringList diary;
    auto list = std::make_unique<IntegerList>(2);
    const ActingObserver prototype(*list->getItemPrototype(), {}, [&] { diary.append("prototype"); });
    const ActingObserver first(*list->getItemAt(0), {}, [&] { diary.append("first"); });
    const ActingObserver second(*list->getItemAt(1), {}, [&] { diary.append("second"); });
    RecordingObserver observer(*list);
    list.reset();
    EXPECT_EQ(diary, QStringList({"first", "second", "prototype"}));
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpcList, SurvivesItemsThatTakeOthersWithThem)
{
    const Change changes[] = {
        [](IntegerList& list) { list.setItemCount(0); },     [](IntegerList& list) { list.clear(); },
        [](IntegerList& list) { list.resetItemKeys({}); },   [](IntegerList& list) { list.removeItemAt(2); },
        [](IntegerList& list) { delete list.getItemAt(2); }, [](IntegerList&) {}};
    for (const Change& change : changes) {
        auto list = std::make_unique<IntegerList>(3);
        const KuoPointer<KpbAParameter> first(list->getItemAt(0));
        const ActingObserver third(*list->getItemAt(2), {}, [&] { delete first.get(); });
        change(*list);
        EXPECT_EQ(list->getItemCount(), list->getItemKeys().size());
        list.reset();
        EXPECT_EQ(first.get(), nullptr);
    }
}

TEST(KpcList, MayBeDestroyedByAnObserverOfAnItem)
{
    const struct
    {
        const char* name;
        Change change;
    } cases[] = {
        {"setItemLabel", [](IntegerList& list) { list.setItemLabel("Width"); }},
        {"removeItemAt", [](IntegerList& list) { list.removeItemAt(0); }},
        {"takeItemAt", [](IntegerList& list) { delete list.takeItemAt(0); }},
        {"moveItem", [](IntegerList& list) { list.moveItem(0, 2); }},
        {"clear", [](IntegerList& list) { list.clear(); }},
        {"setItemCount", [](IntegerList& list) { list.setItemCount(0); }},
        {"resetItemKeys",
         [](IntegerList& list) {
             list.resetItemKeys(itemKeys({3, 4, 5}));
         }},
        {"reorder",
         [](IntegerList& list) {
             list.resetItemKeys(itemKeys({3, 2, 1}));
         }},
        {"destroyed", [](IntegerList& list) { delete list.getItemAt(0); }},
    };
    for (const auto& c : cases) {
        auto* list = new IntegerList(3);
        const KuoPointer<KpbAParameter> alive(list);
        bool destroyed = false;
        const auto destroy = [&] {
            if (!std::exchange(destroyed, true))
                delete list;
        };
        const ActingObserver first(*list->getItemAt(0), destroy, destroy);
        const ActingObserver second(*list->getItemAt(1), destroy, destroy);
        c.change(*list);
        EXPECT_EQ(alive.get(), nullptr) << c.name;
    }
}

TEST(KpcList, MayBeDestroyedWithItsRecord)
{
    auto* list = new IntegerList(1);
    const KuoPointer<KpbAParameter> alive(list);
    const ActingObserver observer(*list, [&] { delete alive.get(); });
    EXPECT_EQ(list->addItem(), nullptr);
    EXPECT_EQ(alive.get(), nullptr);
}

TEST(KpcList, MayBeDestroyedWhileItIsRebuilt)
{
    for (const int when : {0, 1, 2}) {
        auto* list = new IntegerList(3);
        const KuoPointer<KpbAParameter> alive(list);
        const KuoPointer<KpbAParameter> items[] = {KuoPointer<KpbAParameter>(list->getItemAt(0)),
                                                   KuoPointer<KpbAParameter>(list->getItemAt(1)),
                                                   KuoPointer<KpbAParameter>(list->getItemAt(2))};
        list->_rebuildItems(itemKeys({3, 7, 2}), [&](const QList<KpaInteger*>&, KpaInteger*, int rank) {
            if (rank == when)
                delete alive.get();
            return true;
        });
        EXPECT_EQ(alive.get(), nullptr);
        for (const auto& item : items)
            EXPECT_EQ(item.get(), nullptr);
    }
}

TEST(KpcList, MissesItemsThatDieWhileItIsRebuilt)
{
    // Before each step of a rebuild to 3, 2, 1 an item dies: one that is to come, one that is kept, the present one.
    const struct
    {
        int rank;
        const char* dying;
        QStringList keys;
    } cases[] = {{0, "ITEM_1", itemKeys({3, 2, 1})},
                 {1, "ITEM_3", itemKeys({2, 1})},
                 {1, "ITEM_2", itemKeys({3, 1})},
                 {2, "ITEM_1", itemKeys({3, 2})}};
    for (const auto& c : cases) {
        IntegerList list(4);
        std::map<QString, KuoPointer<KpbAParameter>> items;
        for (int i = 0; i < 4; ++i)
            items.emplace(list.getItemAt(i)->getKey(), KuoPointer<KpbAParameter>(list.getItemAt(i)));
        list._rebuildItems(itemKeys({3, 2, 1}), [&](const QList<KpaInteger*>&, KpaInteger*, int rank) {
            if (rank == c.rank)
                delete items.at(c.dying).get();
            return true;
        });
        EXPECT_EQ(list.getItemKeys(), c.keys) << c.dying;
    }
}

TEST(KpcList, CanBeRebuiltWhileItIsRebuilt)
{
    IntegerList list(3);
    list._rebuildItems(itemKeys({3, 2, 1}), [&](const QList<KpaInteger*>&, KpaInteger*, int rank) {
        if (rank == 1) {
            list.addItem();
            list.resetItemKeys(itemKeys({8, 9}));
        }
        return true;
    });
    EXPECT_EQ(list.getItemKeys(), itemKeys({3, 2, 1}));
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2", "Size #3"}));
}

TEST(KpcList, CanBeChangedAtTheEndOfAChange)
{
    IntegerList list;
    list.onStructureChanged = [&] {
        if (list.getItemCount() > 2)
            list.removeItemAt(0);
    };
    EXPECT_EQ(listFlagsOf(list, [&] { list.setItemCount(5); }), QList<int>({valueChildrenItem}));
    EXPECT_EQ(list.getItemKeys(), itemKeys({4, 5}));
    EXPECT_EQ(itemLabels(list), QStringList({"Size #1", "Size #2"}));
}

TEST(KpcList, SendsNothingFromInsideABatchOfItsCaller)
{
    IntegerList list;
    RecordingObserver observer(list);
    {
        KuoLock<KpnModif> lock(&list);
        list.addItem();
        list.addItem()->setValue(5);
        list.moveItem(0, 1);
        EXPECT_TRUE(observer.records.isEmpty());
        lock.commit();
    }
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(list), valueChildrenItem);
    EXPECT_EQ(observer.flagsOf(*list.getItemAt(0)), int(Kp::NotifyValue | Kp::NotifyConfig));
}

TEST(KpcList, HoldsLists)
{
    KpcList<KpcList<KpaInteger>> lists("LISTS");
    lists.setItemLabel("Column");
    lists.getItemPrototype()->setItemLabel("Cell");
    lists.getItemPrototype()->setItemCount(1);
    lists.setItemCount(2);
    EXPECT_TRUE(lists.getItemType() == KpbEType::LIST);
    EXPECT_EQ(itemLabels(lists), QStringList({"Column #1", "Column #2"}));
    RecordingObserver observer(lists);
    KpaInteger* cell = lists.getItemAt(1)->addItem();
    cell->setValue(3);
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.records[0].debug(), "LISTS/ITEM_2:13");
    EXPECT_EQ(observer.records[1].debug(), "LISTS/ITEM_2/ITEM_2:1");
    EXPECT_EQ(lists.toString(), "2 items: '1 item: '0'' '2 items: '0' '3''");
    EXPECT_EQ(cell->getAbsolutePath(), QStringList({"LISTS", "ITEM_2", "ITEM_2"}));
}
