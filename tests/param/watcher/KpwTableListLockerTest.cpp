#include "../composite/CompositeTestTools.h"

#include <param/list/KplDoubleList.h>
#include <param/list/KplIntegerList.h>
#include <param/watcher/KpwTableListLocker.h>

#include <basic/MbeException.h>
#include <support/RecordedMessages.h>

namespace {

struct Lists
{
    KplIntegerList first{"FIRST"};
    KplDoubleList second{"SECOND"};
    QList<KpcAbstractList*> both = {&first, &second};
};

constexpr int itemsChanged = 13;

} // namespace

TEST(KpwTableListLocker, HoldsBackWhatListsTellUntilItEnds)
{
    Lists lists;
    RecordingObserver ofFirst(lists.first);
    RecordingObserver ofSecond(lists.second);
    {
        const KpwTableListLocker locker(lists.both);
        EXPECT_TRUE(lists.first.isLocked());
        EXPECT_TRUE(lists.second.isLocked());
        lists.first.appendItem();
        lists.first.appendItem();
        lists.second.appendItem();
        EXPECT_TRUE(ofFirst.records.isEmpty());
        EXPECT_TRUE(ofSecond.records.isEmpty());
    }
    EXPECT_EQ(ofFirst.allFlags(), QList<int>{itemsChanged});
    EXPECT_EQ(ofSecond.allFlags(), QList<int>{itemsChanged});
    EXPECT_FALSE(lists.first.isLocked());
    EXPECT_FALSE(lists.second.isLocked());
}

TEST(KpwTableListLocker, FreesOneListAfterTheOtherInTheirOrder)
{
    Lists lists;
    QStringList order;
    ActingObserver ofFirst(lists.first, [&] {
        order.append(lists.first.isLocked() ? "first held" : "first free");
        order.append(lists.second.isLocked() ? "second held" : "second free");
    });
    ActingObserver ofSecond(lists.second, [&] { order.append("second"); });
    {
        const KpwTableListLocker locker(lists.both);
        lists.second.appendItem();
        lists.first.appendItem();
    }
    EXPECT_EQ(order, QStringList({"first free", "second held", "second"}));
}

TEST(KpwTableListLocker, RestoresTheFormerStateAndSendsAlsoWhileTheListStaysLocked)
{
    Lists lists;
    RecordingObserver observer(lists.first);
    lists.first.lock(true);
    {
        const KpwTableListLocker locker(lists.both);
        lists.first.appendItem();
    }
    EXPECT_TRUE(lists.first.isLocked());
    EXPECT_FALSE(lists.second.isLocked());
    EXPECT_EQ(observer.allFlags(), QList<int>{itemsChanged});
    lists.first.lock(false);
}

TEST(KpwTableListLocker, SendsNothingForAListThatDidNotChange)
{
    Lists lists;
    RecordingObserver observer(lists.second);
    {
        const KpwTableListLocker locker(lists.both);
        lists.first.appendItem();
    }
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpwTableListLocker, FreesAListThatIsNamedTwiceAndPassesOverNull)
{
    Lists lists;
    RecordingObserver observer(lists.first);
    {
        const KpwTableListLocker locker({&lists.first, nullptr, &lists.first});
        lists.first.appendItem();
    }
    EXPECT_FALSE(lists.first.isLocked());
    EXPECT_EQ(observer.allFlags(), QList<int>{itemsChanged});
}

TEST(KpwTableListLocker, Nests)
{
    Lists lists;
    {
        const KpwTableListLocker outer(lists.both);
        {
            const KpwTableListLocker inner(lists.both);
        }
        EXPECT_TRUE(lists.first.isLocked());
        EXPECT_TRUE(lists.second.isLocked());
    }
    EXPECT_FALSE(lists.first.isLocked());
    EXPECT_FALSE(lists.second.isLocked());
}

TEST(KpwTableListLocker, OutlivesItsLists)
{
    auto dying = std::make_unique<KplIntegerList>("DYING");
    Lists lists;
    const KpwTableListLocker locker({dying.get(), &lists.first});
    dying.reset();
    lists.first.appendItem();
}

TEST(KpwTableListLocker, SurvivesThatAnObserverDestroysTheNextListOrTheOneThatTells)
{
    for (const bool itself : {true, false}) {
        auto first = std::make_unique<KplIntegerList>("FIRST");
        auto second = std::make_unique<KplIntegerList>("SECOND");
        KplIntegerList third("THIRD");
        RecordingObserver ofThird(third);
        ActingObserver ofFirst(*first, [&] { (itself ? first : second).reset(); });
        {
            const KpwTableListLocker locker({first.get(), second.get(), &third});
            first->appendItem();
            third.appendItem();
        }
        EXPECT_EQ(ofThird.records.size(), 1);
        EXPECT_FALSE(third.isLocked());
    }
}

TEST(KpwTableListLocker, TurnsAFailureOfAnObserverIntoAWarning)
{
    Lists lists;
    ActingObserver ofFirst(lists.first, [] { throw MbeException("no"); });
    RecordingObserver ofSecond(lists.second);
    const RecordedMessages messages;
    {
        const KpwTableListLocker locker(lists.both);
        lists.first.appendItem();
        lists.second.appendItem();
    }
    EXPECT_EQ(messages.warnings, QStringList("no"));
    EXPECT_EQ(ofSecond.records.size(), 1);
    EXPECT_FALSE(lists.second.isLocked());
}
