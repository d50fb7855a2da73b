#include "../composite/CompositeTestTools.h"

#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcGroup.h>
#include <param/watcher/KpwLockWatcher.h>

#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>

namespace {

class TestWatcher : public KpwAWatcher
{
public:
    TestWatcher() = default;
    TestWatcher(const TestWatcher& other, const KpcGroup* newParent) : KpwAWatcher(other, newParent) {}
    TestWatcher* duplicate(const KpcGroup* newParent) const override { return new TestWatcher(*this, newParent); }

    using KpwAWatcher::_duplicateChildRef;
    using KpwAWatcher::_getFlagsForParam;
    using KpwAWatcher::_registerTrigger;
    using KpwAWatcher::_unregisterAllTriggers;
    using KpwAWatcher::_unregisterTrigger;

    QVector<KpnModif> calls;
    QVector<KpbAParameter*> deaths;
    std::function<void()> action;
    std::function<void()> deathAction;

protected:
    void _trigger(const KpnModif& modif) override
    {
        calls.append(modif);
        if (action)
            action();
    }
    void _triggerDestroyed(KpbAParameter* parameter) override
    {
        deaths.append(parameter);
        if (deathAction)
            deathAction();
    }
};

/// A group with the booleans A and B and the group INNER with the integer LEAF.
struct Tree
{
    KpcGroup group{"G", TestContext::instance()};
    KpaBool* a = new KpaBool("A");
    KpaBool* b = new KpaBool("B");
    KpcGroup* inner = new KpcGroup("INNER", TestContext::instance());
    KpaInteger* leaf = new KpaInteger("LEAF");

    Tree()
    {
        group.addChild(a);
        group.addChild(b);
        group.addChild(inner);
        inner->addChild(leaf);
    }
};

QString failure(const QString& signature, const QString& detail)
{
    return "'" + signature + "' in file 'watcher\\KpwAWatcher' failed:\n\n" + detail;
}

const QString duplicateImpl = "class KpbAParameter *__cdecl KpwAWatcher::_duplicateChildRefImpl("
                              "const class KpbAParameter *,const class KpcGroup *) const";

} // namespace

TEST(KpwAWatcher, IsFreeAndUnlockedAtFirst)
{
    const TestWatcher watcher;
    EXPECT_FALSE(watcher.isLocked());
    EXPECT_EQ(watcher.getParentGroup(), nullptr);
}

TEST(KpwAWatcher, IsCalledForWhatATriggerAsksFor)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    tree.a->setValue(false);
    ASSERT_EQ(watcher.calls.size(), 1);
    EXPECT_TRUE(watcher.calls[0].hasModif(tree.a, Kp::NotifyValue));
}

TEST(KpwAWatcher, IsNotCalledForOtherFlags)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    tree.a->setLabel("changed");
    EXPECT_TRUE(watcher.calls.isEmpty());
}

TEST(KpwAWatcher, HearsOfEverythingBelowACompositeTrigger)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(&tree.group, Kp::NotifyValue);
    tree.leaf->setValue(3);
    ASSERT_EQ(watcher.calls.size(), 1);
    EXPECT_EQ(watcher.calls[0].getModifs().firstKey().getFirst(), tree.leaf);
}

TEST(KpwAWatcher, HearsOfTheChildrenOfACompositeTriggerOnly)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(&tree.group, Kp::NotifyChildren);
    tree.inner->addChild(new KpaInteger("NEW"));
    EXPECT_TRUE(watcher.calls.isEmpty());
    tree.group.addChild(new KpaInteger("NEW"));
    EXPECT_EQ(watcher.calls.size(), 1);
}

TEST(KpwAWatcher, IsCalledOnceForARecordThatMatchesTwoTriggers)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(&tree.group, Kp::NotifyValue);
    watcher._registerTrigger(&tree.group, Kp::NotifyConfig);
    KuoLock<KpnModif> lock(&tree.group);
    tree.a->setValue(false);
    tree.b->setLabel("changed");
    lock.commit();
    ASSERT_EQ(watcher.calls.size(), 1);
    EXPECT_EQ(watcher.calls[0].getNumberOfModif(), 2);
}

TEST(KpwAWatcher, GetsOnlyTheEntriesThatMatch)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    KpnModif modif(Kp::NotifyValue, tree.a);
    modif.merge(KpnModif(Kp::NotifyValue, tree.b));
    modif.merge(KpnModif(Kp::NotifyConfig, tree.leaf));
    watcher.update(modif);
    ASSERT_EQ(watcher.calls.size(), 1);
    ASSERT_EQ(watcher.calls[0].getNumberOfModif(), 1);
    EXPECT_EQ(watcher.calls[0].getModifs().firstKey().getFirst(), tree.a);
}

TEST(KpwAWatcher, GetsAllFlagsOfAnEntryThatMatches)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    watcher.update(KpnModif(Kp::NotifyValue | Kp::NotifyConfig, tree.a));
    ASSERT_EQ(watcher.calls.size(), 1);
    EXPECT_EQ(watcher.calls[0].getModifs().first(), Kp::NotifyValue | Kp::NotifyConfig);
}

TEST(KpwAWatcher, PassesOverEntriesWhoseParametersAreDead)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(&tree.group, Kp::NotifyValue);
    KpnPath path;
    path.append(tree.a);
    path.append(&tree.group);
    const KpnModif modif(Kp::NotifyValue, path);
    tree.group.deleteParameter("A");
    watcher.update(modif);
    EXPECT_TRUE(watcher.calls.isEmpty());
}

TEST(KpwAWatcher, IgnoresWhatHappensWhileItIsLocked)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    EXPECT_FALSE(watcher.lock(true));
    EXPECT_TRUE(watcher.isLocked());
    tree.a->setValue(false);
    EXPECT_TRUE(watcher.lock(false));
    EXPECT_TRUE(watcher.calls.isEmpty());
    tree.a->setValue(true);
    EXPECT_EQ(watcher.calls.size(), 1);
}

TEST(KpwAWatcher, StopsObservingWhatIsUnregistered)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    watcher._registerTrigger(tree.a, Kp::NotifyConfig);
    watcher._registerTrigger(tree.b, Kp::NotifyValue);
    watcher._unregisterTrigger(tree.a);
    tree.a->setValue(false);
    tree.a->setLabel("changed");
    EXPECT_TRUE(watcher.calls.isEmpty());
    tree.b->setValue(false);
    EXPECT_EQ(watcher.calls.size(), 1);
    watcher._unregisterTrigger(tree.leaf); // is none
    watcher.clear();
    tree.b->setValue(true);
    EXPECT_EQ(watcher.calls.size(), 1);
}

TEST(KpwAWatcher, StopsObservingWhenItEnds)
{
    Tree tree;
    {
        TestWatcher watcher;
        watcher._registerTrigger(tree.a, Kp::NotifyValue);
    }
    tree.a->setValue(false);
}

TEST(KpwAWatcher, GivesTheFlagsOfTheFirstTriggerOnAParameter)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyConfig);
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    EXPECT_EQ(watcher._getFlagsForParam(tree.a), Kp::NotifyConfig);
    EXPECT_EQ(watcher._getFlagsForParam(tree.b), Kp::NotificationFlags());
}

TEST(KpwAWatcher, ForgetsATriggerThatDies)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    watcher._registerTrigger(tree.b, Kp::NotifyValue);
    watcher._registerTrigger(tree.a, Kp::NotifyConfig);
    KpbAParameter* const a = tree.a;
    tree.group.deleteParameter("A");
    EXPECT_EQ(watcher.deaths, QVector<KpbAParameter*>({a, a}));
    EXPECT_EQ(watcher._getFlagsForParam(a), Kp::NotificationFlags());
    tree.b->setValue(false);
    EXPECT_EQ(watcher.calls.size(), 1);
}

TEST(KpwAWatcher, HearsOfOthersWhileATriggerIsDying)
{
    Tree tree;
    ActingObserver ofTheDying(*tree.a, {}, [&] { tree.b->setValue(false); });
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    watcher._registerTrigger(tree.b, Kp::NotifyValue);
    tree.group.deleteParameter("A");
    ASSERT_EQ(watcher.calls.size(), 1);
    EXPECT_EQ(watcher.calls[0].getModifs().firstKey().getFirst(), tree.b);
    EXPECT_EQ(watcher.deaths.size(), 1);
}

TEST(KpwAWatcher, IsCopiedAndRegisteredWithoutATriggerThatIsDying)
{
    Tree tree;
    const std::unique_ptr<KpcGroup> newParent(tree.group.duplicate("H"));
    TestWatcher watcher;
    TestWatcher other;
    std::unique_ptr<TestWatcher> copy;
    ActingObserver ofTheDying(*tree.a, {}, [&] {
        copy.reset(watcher.duplicate(newParent.get()));
        other.setParentGroup(&tree.group);
    });
    for (TestWatcher* each : {&watcher, &other}) {
        each->_registerTrigger(tree.a, Kp::NotifyValue);
        each->_registerTrigger(tree.b, Kp::NotifyConfig);
    }
    watcher.setParentGroup(&tree.group);
    delete tree.a;
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->_getFlagsForParam(newParent->getChild("A")), Kp::NotificationFlags());
    EXPECT_EQ(copy->_getFlagsForParam(newParent->getChild("B")), Kp::NotifyConfig);
    EXPECT_EQ(other.getParentGroup(), &tree.group);
}

TEST(KpwAWatcher, SurvivesThatItForgetsAllWhenATriggerDies)
{
    Tree tree;
    TestWatcher watcher;
    for (KpbAParameter* trigger : {tree.a, tree.b, tree.a})
        watcher._registerTrigger(trigger, Kp::NotifyValue);
    watcher.deathAction = [&] { watcher.clear(); };
    tree.group.deleteParameter("A");
    EXPECT_EQ(watcher.deaths.size(), 1);
    tree.b->setValue(false);
    EXPECT_TRUE(watcher.calls.isEmpty());
}

TEST(KpwAWatcher, SurvivesThatItIsDestroyedWhenATriggerDies)
{
    Tree tree;
    auto* watcher = new TestWatcher;
    watcher->_registerTrigger(tree.a, Kp::NotifyValue);
    watcher->_registerTrigger(tree.a, Kp::NotifyConfig);
    watcher->deathAction = [&] { delete std::exchange(watcher, nullptr); };
    RecordingObserver later(*tree.a);
    tree.group.deleteParameter("A");
    EXPECT_EQ(watcher, nullptr);
    EXPECT_EQ(later.deaths, 1);
}

TEST(KpwAWatcher, TakesOnlyTriggersBelowItsGroup)
{
    Tree tree;
    KpaInteger elsewhere("X");
    TestWatcher watcher;
    watcher._registerTrigger(tree.leaf, Kp::NotifyValue);
    watcher.setParentGroup(&tree.group);
    const QString expected = failure("void __cdecl KpwAWatcher::_registerTrigger(class KpbAParameter *,"
                                     "class QFlags<enum Kp::NotificationFlag>)",
                                     "parent group is not ancestor of added parameter.");
    for (KpbAParameter* refused : {static_cast<KpbAParameter*>(&elsewhere), static_cast<KpbAParameter*>(&tree.group)}) {
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher._registerTrigger(refused, Kp::NotifyValue); }),
                  expected);
    }
    elsewhere.setValue(3);
    EXPECT_TRUE(watcher.calls.isEmpty());
}

TEST(KpwAWatcher, KeepsItsGroupWhenAnotherOneDoesNotHoldItsTriggers)
{
    Tree tree;
    Tree other;
    TestWatcher watcher;
    watcher._registerTrigger(tree.leaf, Kp::NotifyValue);
    watcher.setParentGroup(&tree.group);
    const QString expected = failure("void __cdecl KpwAWatcher::setParentGroup(const class KpcGroup *)",
                                     "group is not ancestor of all lists.");
    for (const KpcGroup* refused : {static_cast<const KpcGroup*>(&other.group), static_cast<const KpcGroup*>(nullptr)})
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher.setParentGroup(refused); }), expected);
    EXPECT_EQ(watcher.getParentGroup(), &tree.group);
    watcher.setParentGroup(tree.inner);
    EXPECT_EQ(watcher.getParentGroup(), tree.inner);
}

TEST(KpwAWatcher, WatchesTheCounterpartsOfItsTriggersInACopy)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.leaf, Kp::NotifyValue);
    watcher._registerTrigger(tree.a, Kp::NotifyConfig);
    watcher.setParentGroup(&tree.group);
    watcher.lock(true);
    const std::unique_ptr<KpcGroup> newParent(tree.group.duplicate("H"));
    const std::unique_ptr<TestWatcher> copy(watcher.duplicate(newParent.get()));
    EXPECT_TRUE(copy->isLocked());
    EXPECT_EQ(copy->getParentGroup(), newParent.get());
    EXPECT_EQ(copy->_getFlagsForParam(newParent->getChild("INNER")->getChild("LEAF")), Kp::NotifyValue);
    EXPECT_EQ(copy->_getFlagsForParam(newParent->getChild("A")), Kp::NotifyConfig);
    copy->lock(false);
    tree.a->setLabel("changed");
    EXPECT_TRUE(copy->calls.isEmpty());
    newParent->getChild("A")->setLabel("changed");
    EXPECT_EQ(copy->calls.size(), 1);
}

TEST(KpwAWatcher, CannotBeCopiedUnregistered)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    const std::unique_ptr<KpcGroup> newParent(tree.group.duplicate("H"));
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher.duplicate(newParent.get()); }),
              failure(duplicateImpl, "Cannot duplicate child (A) when not child of parent group (H)"));
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher.duplicate(nullptr); }),
              failure(duplicateImpl, "Cannot duplicate child (A) when not child of parent group (null)"));
}

TEST(KpwAWatcher, CannotBeCopiedWithoutACounterpart)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    watcher._registerTrigger(tree.leaf, Kp::NotifyValue);
    watcher.setParentGroup(&tree.group);
    const std::unique_ptr<KpcGroup> newParent(tree.group.duplicate("H"));
    newParent->deleteParameter("INNER");
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher.duplicate(newParent.get()); }),
              failure(duplicateImpl, "child INNER/LEAF does not exist in new parent"));
    newParent->getChild("A")->setLabel("changed"); // the failed copy observes no more
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher.duplicate(nullptr); }),
              failure(duplicateImpl, "child A does not exist in new parent"));
}

TEST(KpwAWatcher, FindsACounterpartOfTheRightClassOnly)
{
    Tree tree;
    TestWatcher watcher;
    watcher.setParentGroup(&tree.group);
    const std::unique_ptr<KpcGroup> newParent(tree.group.duplicate("H"));
    EXPECT_EQ(watcher._duplicateChildRef(tree.a, newParent.get()), newParent->getChild("A"));
    EXPECT_EQ(watcher._duplicateChildRef(tree.inner, newParent.get()), newParent->getChild("INNER"));
    EXPECT_EQ(watcher._duplicateChildRef<KpbAParameter>(tree.leaf, newParent.get()),
              newParent->getChild("INNER")->getChild("LEAF"));
    EXPECT_EQ(watcher._duplicateChildRef<KpaBool>(nullptr, newParent.get()), nullptr);
    newParent->deleteParameter("A");
    newParent->addChild(new KpaInteger("A"));
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher._duplicateChildRef(tree.a, newParent.get()); }),
              failure("class KpaBool *__cdecl KpwAWatcher::_duplicateChildRef<class KpaBool>(const class KpaBool *,"
                      "const class KpcGroup *) const",
                      "Child exists in new parent but not with required type:\nkey was 'A' and type was 'INTEGER'"));
}

TEST(KpwAWatcher, SurvivesThatItIsDestroyedWhenItIsCalled)
{
    Tree tree;
    auto* watcher = new TestWatcher;
    watcher->_registerTrigger(tree.a, Kp::NotifyValue);
    watcher->action = [&] { delete watcher; };
    RecordingObserver later(*tree.a);
    tree.a->setValue(false);
    EXPECT_EQ(later.records.size(), 1);
}

TEST(KpwAWatcher, SurvivesThatItsTriggerDiesWhenItIsCalled)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    watcher.action = [&] { tree.group.deleteParameter("A"); };
    tree.a->setValue(false);
    EXPECT_EQ(watcher.deaths.size(), 1);
    EXPECT_EQ(tree.group.getChild("A"), nullptr);
}

TEST(KpwAWatcher, TurnsAFailureIntoAWarning)
{
    Tree tree;
    TestWatcher watcher;
    watcher._registerTrigger(tree.a, Kp::NotifyValue);
    watcher.action = [] { throw MbeUserError("no"); };
    const RecordedMessages messages;
    tree.a->setValue(false);
    ASSERT_EQ(messages.warnings.size(), 1);
    EXPECT_TRUE(messages.warnings[0].endsWith("Exception message: no"));
}

TEST(KpwLockWatcher, LocksWhileItLivesAndRestoresTheFormerState)
{
    TestWatcher watcher;
    {
        const KpwLockWatcher outer(&watcher);
        EXPECT_TRUE(watcher.isLocked());
        {
            const KpwLockWatcher inner(&watcher);
            EXPECT_TRUE(watcher.isLocked());
        }
        EXPECT_TRUE(watcher.isLocked());
    }
    EXPECT_FALSE(watcher.isLocked());
}

TEST(KpwLockWatcher, OutlivesItsWatcher)
{
    auto watcher = std::make_unique<TestWatcher>();
    const KpwLockWatcher lock(watcher.get());
    watcher.reset();
}

TEST(KpwLockWatcher, DoesNothingWithoutAWatcher)
{
    const KpwLockWatcher lock(nullptr);
}
