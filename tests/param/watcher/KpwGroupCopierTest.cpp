#include "../composite/CompositeTestTools.h"

#include <param/atomic/KpaInteger.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcGroupList.h>
#include <param/list/KplIntegerList.h>
#include <param/watcher/KpwGroupCopier.h>

namespace {

const Kp::NotificationFlags anything = Kp::NotificationFlags(15);

KpcGroup* newGroup(const QString& key)
{
    return new KpcGroup(key, TestContext::instance());
}

/// The group G with the groups SOURCE, FIRST and SECOND, each with the integers A and B, the list LIST, and the group
/// INNER with the integer LEAF.
struct Tree
{
    KpcGroup group{"G", TestContext::instance()};
    KpcGroup* source = add("SOURCE");
    KpcGroup* first = add("FIRST");
    KpcGroup* second = add("SECOND");

    KpcGroup* add(const QString& key)
    {
        KpcGroup* added = newGroup(key);
        added->addChild(new KpaInteger("A"));
        added->addChild(new KpaInteger("B"));
        added->addChild(new KplIntegerList("LIST"));
        KpcGroup* inner = newGroup("INNER");
        inner->addChild(new KpaInteger("LEAF"));
        added->addChild(inner);
        group.addChild(added);
        return added;
    }
};

/// With a copier from SOURCE to FIRST and SECOND.
struct Copied : Tree
{
    KpwGroupCopier copier;

    Copied()
    {
        copier.setSource(source, anything);
        copier.addDestination(first);
        copier.addDestination(second);
    }
};

KpaInteger& integer(const KpcGroup& group, const QString& key = "A")
{
    return dynamic_cast<KpaInteger&>(*group.getChild(key));
}

KpaInteger& leaf(const KpcGroup& group)
{
    return dynamic_cast<KpaInteger&>(*group.getChild("INNER")->getChild("LEAF"));
}

KplIntegerList& list(const KpcGroup& group)
{
    return dynamic_cast<KplIntegerList&>(*group.getChild("LIST"));
}

QString failure(const QString& signature, const QString& detail)
{
    return "'" + signature + "' in file 'watcher\\KpwGroupCopier' failed:\n\n" + detail;
}

} // namespace

TEST(KpwGroupCopier, RefusesANullSourceAndKeepsTheFormerOne)
{
    Copied t;
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { t.copier.setSource(nullptr, anything); }),
              failure("void __cdecl KpwGroupCopier::setSource(class KpcGroup *,"
                      "class QFlags<enum Kp::NotificationFlag>)",
                      "Invalid source group."));
    integer(*t.source).setValue(3);
    EXPECT_EQ(integer(*t.first).getValue(), 3);
}

TEST(KpwGroupCopier, RefusesANullDestination)
{
    Copied t;
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { t.copier.addDestination(nullptr); }),
              failure("void __cdecl KpwGroupCopier::addDestination(class KpcGroup *)", "Invalid destination group."));
}

TEST(KpwGroupCopier, CopiesValuesAtAnyDepthToAllDestinations)
{
    Copied t;
    integer(*t.source).setValue(3);
    leaf(*t.source).setValue(4);
    for (const KpcGroup* destination : {t.first, t.second}) {
        EXPECT_EQ(integer(*destination).getValue(), 3);
        EXPECT_EQ(leaf(*destination).getValue(), 4);
        EXPECT_EQ(integer(*destination, "B").getValue(), 0);
    }
}

TEST(KpwGroupCopier, CopiesNothingBack)
{
    Copied t;
    integer(*t.first).setValue(3);
    EXPECT_EQ(integer(*t.source).getValue(), 0);
    EXPECT_EQ(integer(*t.second).getValue(), 0);
}

TEST(KpwGroupCopier, CopiesNothingBeforeTheFirstChange)
{
    Tree t;
    integer(*t.source).setValue(3);
    KpwGroupCopier copier;
    copier.setSource(t.source, anything);
    copier.addDestination(t.first);
    EXPECT_EQ(integer(*t.first).getValue(), 0);
    integer(*t.source, "B").setValue(4);
    EXPECT_EQ(integer(*t.first).getValue(), 0);
    EXPECT_EQ(integer(*t.first, "B").getValue(), 4);
}

TEST(KpwGroupCopier, DoesNothingWithoutADestination)
{
    Tree t;
    KpwGroupCopier copier;
    copier.setSource(t.source, anything);
    copier.addLockParam(t.first);
    RecordingObserver observer(t.group);
    // What was collected without a batch would go out with one.
    t.first->lock(true);
    t.first->setLabel("changed");
    t.first->lock(false);
    integer(*t.source).setValue(3);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(integer(*t.source)), Kp::NotifyValue);
    EXPECT_TRUE(t.first->hasNotifications());
}

TEST(KpwGroupCopier, CopiesOnlyTheChangesThatItWasAskedFor)
{
    Tree t;
    KpwGroupCopier copier;
    copier.setSource(t.source, Kp::NotifyConfig);
    copier.addDestination(t.first);
    integer(*t.source).setValue(3);
    EXPECT_EQ(integer(*t.first).getValue(), 0);
    integer(*t.source).setLabel("changed");
    EXPECT_EQ(integer(*t.first).getValue(), 3);
}

TEST(KpwGroupCopier, CopiesNothingThatIsNotStored)
{
    Copied t;
    integer(*t.source).setLabel("changed");
    integer(*t.source).setMaximum(7);
    integer(*t.source).setEnabled(false);
    EXPECT_EQ(integer(*t.first).getLabel(), "no label");
    EXPECT_FALSE(integer(*t.first).isMaximumDefined());
    EXPECT_TRUE(integer(*t.first).getEnabledFlag());
}

TEST(KpwGroupCopier, CopiesTheAutomaticMode)
{
    Copied t;
    integer(*t.source).activateAutoValue(5);
    EXPECT_EQ(integer(*t.first).getValue(), 5);
    EXPECT_TRUE(integer(*t.first).isAutomatic());
    integer(*t.source).setValue(6);
    EXPECT_EQ(integer(*t.first).getValue(), 6);
    EXPECT_FALSE(integer(*t.first).isAutomatic());
}

TEST(KpwGroupCopier, LetsAnAutomaticCounterpartTakeItsOwnAutomaticValue)
{
    Copied t;
    integer(*t.first).setAutoValue(9);
    integer(*t.source).activateAutoValue(5);
    EXPECT_EQ(integer(*t.first).getValue(), 9);
    EXPECT_TRUE(integer(*t.first).isAutomatic());
}

TEST(KpwGroupCopier, CopiesTheAutomaticModeOfGroupsBelowTheSource)
{
    Copied t;
    t.source->getChild("INNER")->setAutomatic(true);
    EXPECT_TRUE(t.first->getChild("INNER")->isAutomatic());
}

TEST(KpwGroupCopier, PassesOverWhatChangesAtTheSourceItself)
{
    Copied t;
    t.source->setLabel("changed");
    t.source->setAutomatic(true);
    EXPECT_EQ(t.first->getLabel(), "no label");
    EXPECT_FALSE(t.first->isAutomatic());
}

TEST(KpwGroupCopier, PassesOverWhatHasNoCounterpart)
{
    Copied t;
    t.first->deleteParameter("A");
    integer(*t.source).setValue(3);
    EXPECT_EQ(t.first->getChild("A"), nullptr);
    EXPECT_EQ(integer(*t.second).getValue(), 3);
    t.source->addChild(new KpaInteger("NEW"));
    integer(*t.source, "NEW").setValue(4);
    EXPECT_EQ(t.first->getChild("NEW"), nullptr);
}

TEST(KpwGroupCopier, GivesACounterpartOfAnotherKindWhatItCanRead)
{
    Copied t;
    t.first->deleteParameter("A");
    t.first->addChild(new KpaString("A"));
    t.first->deleteParameter("LIST");
    t.first->addChild(new KpaInteger("LIST"));
    t.second->deleteParameter("A");
    t.second->addChild(new KplIntegerList("A"));
    integer(*t.first, "LIST").setValue(8);
    integer(*t.source).setValue(3);
    list(*t.source).setValues({1, 2});
    EXPECT_EQ(dynamic_cast<KpaString&>(*t.first->getChild("A")).getValue(), "3");
    EXPECT_EQ(integer(*t.first, "LIST").getValue(), 8);
    EXPECT_FALSE(t.second->getChild("A")->hasChildren());
    EXPECT_EQ(list(*t.second).getValues(), QList<int>({1, 2}));
}

TEST(KpwGroupCopier, SendsOneRecordPerDestination)
{
    Copied t;
    RecordingObserver observer(*t.first);
    KuoLock<KpnModif> lock(t.source);
    integer(*t.source).setValue(3);
    integer(*t.source, "B").setValue(4);
    lock.commit();
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
    EXPECT_EQ(observer.flagsOf(integer(*t.first)), Kp::NotifyValue);
    EXPECT_EQ(observer.flagsOf(integer(*t.first, "B")), Kp::NotifyValue);
    EXPECT_FALSE(t.first->isLocked());
}

TEST(KpwGroupCopier, CopiesParametersOfOneGroupInTheOrderOfTheRecord)
{
    Copied t;
    t.copier.removeDestination(t.second);
    QStringList order;
    ActingObserver ofA(integer(*t.first), [&] { order.append("A"); });
    ActingObserver ofB(integer(*t.first, "B"), [&] { order.append("B"); });
    KuoLock<KpnModif> lock(t.source);
    integer(*t.source).setValue(3);
    integer(*t.source, "B").setValue(4);
    lock.commit();
    // The order of entries is that of addresses.
    const bool aFirst = std::less<const KpbAParameter*>()(&integer(*t.source), &integer(*t.source, "B"));
    EXPECT_EQ(order, aFirst ? QStringList({"A", "B"}) : QStringList({"B", "A"}));
}

TEST(KpwGroupCopier, TellsOfTheDestinationsAndThenOfWhatItHeldBack)
{
    Copied t;
    t.copier.addLockParam(&t.group);
    t.copier.addLockParam(nullptr);
    QStringList order;
    ActingObserver ofGroup(t.group, [&] { order.append("group"); });
    ActingObserver ofFirst(*t.first, [&] { order.append(integer(*t.second).getValue() == 3 ? "first" : "too early"); });
    ActingObserver ofSecond(*t.second, [&] { order.append("second"); });
    integer(*t.source).setValue(3);
    EXPECT_EQ(order, QStringList({"group", "first", "second", "group"})); // at first of the source
    ASSERT_EQ(ofGroup.records.size(), 2);
    EXPECT_EQ(ofGroup.records[1].getNumberOfModif(), 2);
    EXPECT_EQ(ofGroup.flagsOf(integer(*t.first), 1), Kp::NotifyValue);
    EXPECT_EQ(ofGroup.flagsOf(integer(*t.second), 1), Kp::NotifyValue);
    EXPECT_FALSE(t.group.isLocked());
}

TEST(KpwGroupCopier, GivesTheListsOfTheDestinationsTheSameItems)
{
    Copied t;
    list(*t.first).setItemCount(3);
    list(*t.source).appendItem();
    list(*t.source).appendItem();
    list(*t.source).removeItemAt(0);
    list(*t.source).appendItem();
    for (const KpcGroup* destination : {t.first, t.second})
        EXPECT_EQ(list(*destination).getItemKeys(), QStringList({"ITEM_2", "ITEM_3"}));
    list(*t.source).moveItem(0, 1);
    EXPECT_EQ(list(*t.first).getItemKeys(), QStringList({"ITEM_3", "ITEM_2"}));
    list(*t.source).getItemAt(1)->setValue(7);
    EXPECT_EQ(list(*t.first).getValues(), QList<int>({0, 7}));
    list(*t.source).clear();
    EXPECT_TRUE(list(*t.first).isEmpty());
}

TEST(KpwGroupCopier, CopiesNewItemsWithTheirValuesWhereverTheyStandInTheRecord)
{
    Copied t;
    std::vector<std::unique_ptr<KpaInteger>> holes;
    for (int round = 0; round < 50; ++round) {
        // Items come to stand now before the list in memory and now behind it.
        for (int i = 0; i < round; ++i)
            holes.push_back(std::make_unique<KpaInteger>("HOLE"));
        list(*t.source).clear();
        if (round % 2 == 0)
            holes.clear();
        list(*t.source).setValues({1, 2, 3, 4, round});
        EXPECT_EQ(list(*t.first).getValues(), QList<int>({1, 2, 3, 4, round}));
    }
}

TEST(KpwGroupCopier, CopiesListsInListsBelowNewItems)
{
    Tree t;
    const auto addLists = [](KpcGroup& group) {
        auto* lists = new KpcGroupList("LISTS", TestContext::instance());
        lists->getItemPrototype()->addChild(new KplIntegerList("LIST"));
        group.addChild(lists);
        return lists;
    };
    KpcGroupList* from = addLists(*t.source);
    const KpcGroupList* to = addLists(*t.first);
    KpwGroupCopier copier;
    copier.setSource(t.source, anything);
    copier.addDestination(t.first);
    KuoLock<KpnModif> lock(t.source);
    for (int i = 0; i < 10; ++i)
        list(*from->addItem()).setValues({i, i + 1});
    lock.commit();
    ASSERT_EQ(to->getItemCount(), 10);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(list(*to->getItemAt(i)).getValues(), QList<int>({i, i + 1}));
}

TEST(KpwGroupCopier, CopiesTheAutomaticModeOfAListBehindItsItems)
{
    Copied t;
    list(*t.source).setAutoValues({5, 6});
    list(*t.source).setAutomatic(true);
    EXPECT_EQ(list(*t.first).getValues(), QList<int>({5, 6}));
    EXPECT_TRUE(list(*t.first).isAutomatic());
    list(*t.source).setValues({7});
    EXPECT_EQ(list(*t.first).getValues(), QList<int>{7});
    EXPECT_FALSE(list(*t.first).isAutomatic());
}

TEST(KpwGroupCopier, LeavesTheItemsThatAFixedListStandsForAlone)
{
    Copied t;
    list(*t.source).setItemCount(2);
    list(*t.source).setResizable(false);
    list(*t.first).setItemCount(3);
    list(*t.source).setLabel("changed");
    list(*t.source).getItemAt(1)->setValue(7);
    EXPECT_EQ(list(*t.first).getValues(), QList<int>({0, 7, 0}));
    list(*t.source).setAutomatic(true);
    EXPECT_TRUE(list(*t.first).isAutomatic());
}

TEST(KpwGroupCopier, LeavesAFixedListOfADestinationAsLongAsItIs)
{
    Copied t;
    list(*t.first).setItemCount(1);
    list(*t.first).setResizable(false);
    list(*t.source).setValues({1, 2, 3});
    EXPECT_EQ(list(*t.first).getValues(), QList<int>{1});
    EXPECT_EQ(list(*t.second).getValues(), QList<int>({1, 2, 3}));
}

TEST(KpwGroupCopier, LeavesARemovedDestinationAlone)
{
    Copied t;
    t.copier.addDestination(t.first);
    t.copier.removeDestination(t.first);
    t.copier.removeDestination(nullptr);
    integer(*t.source).setValue(3);
    EXPECT_EQ(integer(*t.first).getValue(), 0);
    EXPECT_EQ(integer(*t.second).getValue(), 3);
    t.copier.removeAllDestinations();
    integer(*t.source).setValue(4);
    EXPECT_EQ(integer(*t.second).getValue(), 3);
}

TEST(KpwGroupCopier, TellsOnceOfADestinationThatWasAddedTwiceAndLeavesItFree)
{
    Copied t;
    t.copier.addDestination(t.first);
    t.copier.addLockParam(t.first);
    RecordingObserver observer(*t.first);
    integer(*t.source).setValue(3);
    EXPECT_EQ(observer.allFlags(), QList<int>{Kp::NotifyValue});
    EXPECT_FALSE(t.first->isLocked());
}

TEST(KpwGroupCopier, ChangesItsSource)
{
    Copied t;
    t.copier.removeDestination(t.first);
    t.copier.setSource(t.first, Kp::NotifyValue);
    integer(*t.source).setValue(3);
    EXPECT_EQ(integer(*t.second).getValue(), 0);
    integer(*t.first).setValue(4);
    EXPECT_EQ(integer(*t.second).getValue(), 4);
}

TEST(KpwGroupCopier, DoesNotCatchUpOnWhatHappenedWhileItWasLocked)
{
    Copied t;
    t.copier.lock(true);
    integer(*t.source).setValue(3);
    t.copier.lock(false);
    EXPECT_EQ(integer(*t.first).getValue(), 0);
}

TEST(KpwGroupCopier, OutlivesItsSourceItsDestinationsAndWhatItHoldsBack)
{
    Copied t;
    KpcGroup* third = t.add("THIRD");
    t.copier.addLockParam(third);
    t.group.deleteParameter("FIRST");
    t.group.deleteParameter("THIRD");
    integer(*t.source).setValue(3);
    EXPECT_EQ(integer(*t.second).getValue(), 3);
    t.group.deleteParameter("SOURCE");
    t.group.deleteParameter("SECOND");
}

TEST(KpwGroupCopier, LetsADestinationBeRemovedWhileItDies)
{
    Copied t;
    ActingObserver ofTheDying(*t.first, {}, [&] { t.copier.removeDestination(t.first); });
    t.group.deleteParameter("FIRST");
    integer(*t.source).setValue(3);
    EXPECT_EQ(integer(*t.second).getValue(), 3);
}

TEST(KpwGroupCopier, SurvivesThatItIsDestroyedByAnObserverOfWhatItCopiesTo)
{
    Tree t;
    auto* copier = new KpwGroupCopier;
    copier->setSource(t.source, anything);
    copier->addDestination(t.first);
    copier->addDestination(t.second);
    copier->addLockParam(&t.group);
    ActingObserver observer(integer(*t.first), [&] { delete std::exchange(copier, nullptr); });
    integer(*t.source).setValue(3);
    EXPECT_EQ(copier, nullptr);
    EXPECT_EQ(integer(*t.second).getValue(), 3);
    EXPECT_FALSE(t.group.isLocked());
}

TEST(KpwGroupCopier, SurvivesThatObserversDestroyGroups)
{
    for (const QString dying : {"SOURCE", "FIRST", "SECOND"}) {
        Copied t;
        ActingObserver observer(integer(*t.first), [&] { t.group.deleteParameter(dying); });
        integer(*t.source).setValue(3);
        EXPECT_EQ(t.group.getChild(dying), nullptr);
        if (dying == "FIRST") {
            EXPECT_EQ(integer(*t.second).getValue(), 3);
        }
        if (dying == "SOURCE") {
            EXPECT_EQ(integer(*t.second).getValue(), 0);
        }
    }
}

TEST(KpwGroupCopier, SurvivesThatObserversDestroyEverything)
{
    Copied t;
    t.copier.addLockParam(&t.group);
    ActingObserver ofItem(integer(*t.first), [&] { t.group.clear(); });
    KuoLock<KpnModif> lock(t.source);
    integer(*t.source).setValue(3);
    integer(*t.source, "B").setValue(4);
    list(*t.source).setValues({1, 2});
    lock.commit();
    EXPECT_FALSE(t.group.hasChildren());
}

TEST(KpwGroupCopier, SurvivesThatAListIsDestroyedWhileItTakesItsItems)
{
    Copied t;
    list(*t.first).setItemCount(1);
    ActingObserver ofItem(*list(*t.first).getItemAt(0), {}, [&] { t.first->clear(); });
    list(*t.source).appendItem();
    list(*t.source).clear();
    EXPECT_FALSE(t.first->hasChildren());
    EXPECT_TRUE(list(*t.second).isEmpty());
}

TEST(KpwGroupCopier, PassesOverWhatHasLeftTheSourceMeanwhile)
{
    Copied t;
    std::unique_ptr<KpbAParameter> taken;
    ActingObserver observer(leaf(*t.first), [&] { taken.reset(t.source->takeParameter("A")); });
    KuoLock<KpnModif> lock(t.source);
    leaf(*t.source).setValue(3); // is copied before its elders
    integer(*t.source).setValue(4);
    lock.commit();
    ASSERT_TRUE(taken);
    EXPECT_EQ(leaf(*t.second).getValue(), 3);
    EXPECT_EQ(integer(*t.first).getValue(), 0);
    EXPECT_EQ(integer(*t.second).getValue(), 0);
}

TEST(KpwGroupCopier, LeavesAllEqualIfAnObserverChangesTheSourceMeanwhile)
{
    Copied t;
    ActingObserver observer(integer(*t.first), [&] { integer(*t.source).setValue(9); });
    integer(*t.source).setValue(3);
    EXPECT_EQ(integer(*t.source).getValue(), 9);
    EXPECT_EQ(integer(*t.first).getValue(), 9);
    EXPECT_EQ(integer(*t.second).getValue(), 9);
}

TEST(KpwGroupCopier, DoesNotFollowASourceOutsideItsGroup)
{
    Tree t;
    Tree elsewhere;
    auto* copier = new KpwGroupCopier;
    t.group.registerWatcher(1, copier);
    copier->addDestination(t.first);
    EXPECT_TRUE(messageOf<MbeProgrammingError>([&] {
                    copier->setSource(elsewhere.source, anything);
                }).endsWith("\n\nparent group is not ancestor of added parameter."));
    integer(*elsewhere.source).setValue(3);
    EXPECT_EQ(integer(*t.first).getValue(), 0);
}

TEST(KpwGroupCopier, WorksInTheGroupThatItWasCopiedTo)
{
    Tree t;
    auto* copier = new KpwGroupCopier;
    copier->setSource(t.source, anything);
    copier->addDestination(t.first);
    copier->addDestination(t.second);
    copier->addLockParam(t.second->getChild("INNER"));
    t.group.registerWatcher(1, copier);
    t.group.deleteParameter("FIRST");
    const std::unique_ptr<KpcGroup> copy(t.group.duplicate("H"));
    const auto part = [&](const QString& key) -> KpcGroup& { return dynamic_cast<KpcGroup&>(*copy->getChild(key)); };
    integer(part("SOURCE")).setValue(3);
    EXPECT_EQ(integer(part("SECOND")).getValue(), 3);
    EXPECT_EQ(integer(*t.second).getValue(), 0);
    integer(*t.source).setValue(4);
    EXPECT_EQ(integer(*t.second).getValue(), 4);
    EXPECT_EQ(integer(part("SECOND")).getValue(), 3);
}

TEST(KpwGroupCopier, HoldsBackTheCounterpartsInACopy)
{
    Tree t;
    auto* copier = new KpwGroupCopier;
    KpcGroup* both = newGroup("BOTH");
    for (const QString key : {"ONE", "TWO"}) {
        KpcGroup* destination = newGroup(key);
        destination->addChild(new KpaInteger("A"));
        both->addChild(destination);
        copier->addDestination(destination);
    }
    t.group.addChild(both);
    copier->setSource(t.source, anything);
    copier->addLockParam(both);
    t.group.registerWatcher(1, copier);
    const std::unique_ptr<KpcGroup> copy(t.group.duplicate("H"));
    RecordingObserver observer(*copy->getChild("BOTH"));
    dynamic_cast<KpaInteger&>(*copy->getChild("SOURCE")->getChild("A")).setValue(3);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
}

TEST(KpwGroupCopier, IsCopiedWithoutASource)
{
    Tree t;
    auto* copier = new KpwGroupCopier;
    copier->addDestination(t.first);
    t.group.registerWatcher(1, copier);
    const std::unique_ptr<KpcGroup> copy(t.group.duplicate("H"));
    const std::unique_ptr<KpwGroupCopier> second(copier->duplicate(copy.get()));
    second->setSource(dynamic_cast<KpcGroup*>(copy->getChild("SOURCE")), anything);
    dynamic_cast<KpaInteger&>(*copy->getChild("SOURCE")->getChild("A")).setValue(3);
    EXPECT_EQ(dynamic_cast<KpaInteger&>(*copy->getChild("FIRST")->getChild("A")).getValue(), 3);
}

TEST(KpwGroupCopier, CannotBeCopiedWithADestinationOutsideItsGroup)
{
    Tree t;
    Tree elsewhere;
    auto* copier = new KpwGroupCopier;
    copier->setSource(t.source, anything);
    copier->addDestination(elsewhere.first);
    t.group.registerWatcher(1, copier);
    EXPECT_TRUE(messageOf<MbeProgrammingError>([&] {
                    t.group.duplicate("H");
                }).endsWith("\n\nCannot duplicate child (FIRST) when not child of parent group (H)"));
}
