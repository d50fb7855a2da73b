#include "../composite/CompositeTestTools.h"

#include <param/composite/KpcGroup.h>
#include <param/list/KplDoubleList.h>
#include <param/list/KplIntegerList.h>
#include <param/watcher/KpwTable.h>

namespace {

/// A group with a list of integers, a list of doubles, and a table of both.
struct Table
{
    KpcGroup group{"G", TestContext::instance()};
    KplIntegerList* first = new KplIntegerList("FIRST");
    KplDoubleList* second = new KplDoubleList("SECOND");
    KpwTable table;

    Table()
    {
        group.addChild(first);
        group.addChild(second);
        table.addList(first);
        table.addList(second);
    }
    QList<int> counts() const { return {first->getItemCount(), second->getItemCount()}; }
};

constexpr int itemsChanged = 13;

using Operation = std::function<void(KpwTable&)>;

/// What changes both columns of a table with two rows.
const Operation operations[] = {
    [](KpwTable& table) { table.setItemCount(5); }, [](KpwTable& table) { table.setItemCount(1); },
    [](KpwTable& table) { table.removeItemAt(1); }, [](KpwTable& table) { table.clearItems(); },
    [](KpwTable& table) { table.addItem(); },
};

} // namespace

TEST(KpwTable, KnowsItsListsInTheOrderOfTheirArrival)
{
    Table t;
    EXPECT_EQ(t.table.getAllLists(), QList<KpcAbstractList*>({t.first, t.second}));
    t.table.addList(t.first);
    t.table.addList(nullptr);
    EXPECT_EQ(t.table.getAllLists(), QList<KpcAbstractList*>({t.first, t.second}));
}

TEST(KpwTable, HasTheItemCountOfItsFirstList)
{
    Table t;
    EXPECT_EQ(t.table.getItemCount(), 0);
    EXPECT_TRUE(t.table.isEmpty());
    t.second->setItemCount(3);
    EXPECT_EQ(t.table.getItemCount(), 0);
    EXPECT_TRUE(t.table.isEmpty());
    t.first->setItemCount(2);
    EXPECT_EQ(t.table.getItemCount(), 2);
    EXPECT_FALSE(t.table.isEmpty());
}

TEST(KpwTable, IsEmptyWithoutAList)
{
    KpwTable table;
    EXPECT_EQ(table.getItemCount(), 0);
    EXPECT_TRUE(table.isEmpty());
    EXPECT_TRUE(table.getAllLists().isEmpty());
    table.setItemCount(3);
    table.removeItemAt(0);
    table.clearItems();
    EXPECT_EQ(table.addItem(), -1);
}

TEST(KpwTable, AddsAnItemToEachList)
{
    Table t;
    EXPECT_EQ(t.table.addItem(), 0);
    EXPECT_EQ(t.table.addItem(), 1);
    EXPECT_EQ(t.counts(), QList<int>({2, 2}));
}

TEST(KpwTable, GivesTheLastRankOfTheFirstList)
{
    Table t;
    t.first->setItemCount(3);
    EXPECT_EQ(t.table.addItem(), 3);
    EXPECT_EQ(t.counts(), QList<int>({4, 1}));
}

TEST(KpwTable, ChangesAllLists)
{
    Table t;
    t.table.setItemCount(3);
    EXPECT_EQ(t.counts(), QList<int>({3, 3}));
    t.table.removeItemAt(1);
    EXPECT_EQ(t.first->getItemKeys(), QStringList({"ITEM_1", "ITEM_3"}));
    EXPECT_EQ(t.second->getItemKeys(), QStringList({"ITEM_1", "ITEM_3"}));
    t.table.removeItemAt(2);
    t.table.removeItemAt(-1);
    EXPECT_EQ(t.counts(), QList<int>({2, 2}));
    t.table.clearItems();
    EXPECT_EQ(t.counts(), QList<int>({0, 0}));
}

TEST(KpwTable, ChangesAllListsBeforeAnyOfThemTells)
{
    for (const Operation& operation : operations) {
        Table t;
        t.table.setItemCount(2);
        int calls = 0;
        const auto check = [&] {
            ++calls;
            EXPECT_EQ(t.first->getItemCount(), t.second->getItemCount());
            EXPECT_NE(t.first->getItemCount(), 2);
        };
        ActingObserver ofFirst(*t.first, check);
        ActingObserver ofSecond(*t.second, check);
        operation(t.table);
        EXPECT_EQ(calls, 2);
    }
}

TEST(KpwTable, SendsOneRecordPerList)
{
    for (const Operation& operation : operations) {
        Table t;
        t.table.setItemCount(2);
        RecordingObserver ofFirst(*t.first);
        RecordingObserver ofSecond(*t.second);
        operation(t.table);
        ASSERT_EQ(ofFirst.records.size(), 1);
        ASSERT_EQ(ofSecond.records.size(), 1);
        EXPECT_EQ(ofFirst.flagsOf(*t.first), itemsChanged);
        EXPECT_EQ(ofSecond.flagsOf(*t.second), itemsChanged);
    }
}

TEST(KpwTable, DoesNotReconcileListsThatAreChangedOneByOne)
{
    Table t;
    t.first->setItemCount(2);
    t.second->appendItem();
    EXPECT_EQ(t.counts(), QList<int>({2, 1}));
}

TEST(KpwTable, ForgetsAListThatDies)
{
    Table t;
    t.table.setItemCount(2);
    t.group.deleteParameter("FIRST");
    EXPECT_EQ(t.table.getAllLists(), QList<KpcAbstractList*>{t.second});
    EXPECT_EQ(t.table.addItem(), 2);
    t.group.deleteParameter("SECOND");
    EXPECT_TRUE(t.table.getAllLists().isEmpty());
    EXPECT_TRUE(t.table.isEmpty());
}

TEST(KpwTable, ForgetsAListThatDiesUnobserved)
{
    Table t;
    t.table.clear();
    t.group.deleteParameter("FIRST");
    EXPECT_EQ(t.table.getAllLists(), QList<KpcAbstractList*>{t.second});
    EXPECT_EQ(t.table.addItem(), 0);
}

TEST(KpwTable, SurvivesThatAListDestroysAnotherOneMeanwhile)
{
    Table t;
    t.table.setItemCount(2);
    ActingObserver ofItem(*t.first->getItemAt(0), {}, [&] { t.group.deleteParameter("SECOND"); });
    t.table.clearItems();
    EXPECT_EQ(t.table.getAllLists(), QList<KpcAbstractList*>{t.first});
    EXPECT_TRUE(t.first->isEmpty());
    EXPECT_FALSE(t.first->isLocked());
}

TEST(KpwTable, SurvivesThatObserversDestroyItAndItsLists)
{
    for (const Operation& operation : operations) {
        KpcGroup group("G", TestContext::instance());
        for (const QString key : {"FIRST", "SECOND", "THIRD"})
            group.addChild(new KplIntegerList(key));
        auto* table = new KpwTable;
        for (int i = 0; i < 3; ++i)
            table->addList(dynamic_cast<KpcAbstractList*>(group.getChild(i)));
        table->setItemCount(2);
        ActingObserver observer(*group.getChild("FIRST"), [&] {
            delete std::exchange(table, nullptr);
            group.deleteParameter("SECOND");
            group.deleteParameter("FIRST");
        });
        RecordingObserver ofThird(*group.getChild("THIRD"));
        operation(*table);
        EXPECT_EQ(table, nullptr);
        EXPECT_EQ(childKeys(group), QStringList("THIRD"));
        EXPECT_EQ(ofThird.records.size(), 1);
    }
}

TEST(KpwTable, GivesTheRankOfTheNewItemEvenIfItIsDestroyedByAnObserver)
{
    auto* table = new KpwTable;
    KplIntegerList list("L");
    list.setItemCount(4);
    table->addList(&list);
    ActingObserver observer(list, [&] { delete table; });
    EXPECT_EQ(table->addItem(), 4);
}

TEST(KpwTable, LeavesOutAListOutsideItsGroup)
{
    KpcGroup group("G", TestContext::instance());
    KplIntegerList elsewhere("ELSEWHERE");
    auto* table = new KpwTable;
    group.registerWatcher(1, table);
    EXPECT_TRUE(messageOf<MbeProgrammingError>([&] {
                    table->addList(&elsewhere);
                }).endsWith("\n\nparent group is not ancestor of added parameter."));
    EXPECT_TRUE(table->getAllLists().isEmpty());
}

TEST(KpwTable, CannotBeRegisteredWithAListOutsideTheGroup)
{
    KpcGroup group("G", TestContext::instance());
    KplIntegerList elsewhere("ELSEWHERE");
    KpwTable table;
    table.addList(&elsewhere);
    EXPECT_TRUE(
        messageOf<MbeError>([&] { group.registerWatcher(1, &table); }).contains("group is not ancestor of all lists."));
    EXPECT_EQ(table.getParentGroup(), nullptr);
}

TEST(KpwTable, HasTheListsOfTheGroupThatItWasCopiedTo)
{
    Table t;
    t.table.setParentGroup(&t.group);
    const std::unique_ptr<KpcGroup> newParent(t.group.duplicate("H"));
    const std::unique_ptr<KpwTable> copy(t.table.duplicate(newParent.get()));
    auto* first = dynamic_cast<KpcAbstractList*>(newParent->getChild("FIRST"));
    auto* second = dynamic_cast<KpcAbstractList*>(newParent->getChild("SECOND"));
    EXPECT_EQ(copy->getAllLists(), QList<KpcAbstractList*>({first, second}));
    EXPECT_EQ(copy->addItem(), 0);
    EXPECT_EQ(second->getItemCount(), 1);
    EXPECT_EQ(t.counts(), QList<int>({0, 0}));
    newParent->deleteParameter("FIRST");
    EXPECT_EQ(copy->getAllLists(), QList<KpcAbstractList*>{second});
    EXPECT_EQ(t.table.getAllLists(), QList<KpcAbstractList*>({t.first, t.second}));
}

TEST(KpwTable, IsCopiedWithItsGroup)
{
    Table t;
    auto* table = new KpwTable;
    table->addList(t.first);
    table->addList(t.second);
    t.group.registerWatcher(1, table);
    const std::unique_ptr<KpcGroup> copy(t.group.duplicate("H"));
    t.group.clear();
    EXPECT_TRUE(table->getAllLists().isEmpty());
    EXPECT_EQ(childKeys(*copy), QStringList({"FIRST", "SECOND"}));
}

TEST(KpwTable, CannotBeCopiedToAGroupWithAnotherKindOfParameterInThePlaceOfAList)
{
    Table t;
    t.table.setParentGroup(&t.group);
    const std::unique_ptr<KpcGroup> newParent(t.group.duplicate("H"));
    newParent->deleteParameter("SECOND");
    newParent->addChild(new KpaInteger("SECOND"));
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { t.table.duplicate(newParent.get()); }),
              "'class KpcAbstractList *__cdecl KpwAWatcher::_duplicateChildRef<class KpcAbstractList>("
              "const class KpcAbstractList *,const class KpcGroup *) const' in file 'watcher\\KpwAWatcher' failed:\n\n"
              "Child exists in new parent but not with required type:\nkey was 'SECOND' and type was 'INTEGER'");
}
