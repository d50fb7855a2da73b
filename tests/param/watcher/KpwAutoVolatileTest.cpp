#include "../composite/CompositeTestTools.h"

#include <param/KpsSerializer.h>
#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcGroup.h>
#include <param/list/KplIntegerList.h>
#include <param/watcher/KpwAutoVolatile.h>

namespace {

/// A group with the integer A and the group INNER with the integers B and C.
struct Tree
{
    KpcGroup group{"G", TestContext::instance()};
    KpaInteger* a = new KpaInteger("A");
    KpcGroup* inner = new KpcGroup("INNER", TestContext::instance());
    KpaInteger* b = new KpaInteger("B");
    KpaInteger* c = new KpaInteger("C");

    Tree()
    {
        group.addChild(a);
        group.addChild(inner);
        inner->addChild(b);
        inner->addChild(c);
    }

    /// The keys of the tree's volatile parameters.
    QStringList volatiles() const
    {
        QStringList keys;
        for (const KpbAParameter* each :
             {static_cast<const KpbAParameter*>(&group), static_cast<const KpbAParameter*>(a),
              static_cast<const KpbAParameter*>(inner), static_cast<const KpbAParameter*>(b),
              static_cast<const KpbAParameter*>(c)})
        {
            if (each->isVolatile())
                keys.append(each->getKey());
        }
        return keys;
    }
};

QStringList storedKeys(const KpbAParameter& parameter)
{
    QStringList keys;
    const QDomElement element = KpsSerializer::convertParamToXml(&parameter);
    for (QDomElement each = element.firstChildElement("param"); !each.isNull(); each = each.nextSiblingElement("param"))
        keys.append(each.attribute("key"));
    return keys;
}

} // namespace

TEST(KpwAutoVolatile, BringsAParameterToItsStateAtOnce)
{
    Tree tree;
    tree.b->setAutomatic(true);
    tree.c->setVolatile(true);
    KpwAutoVolatile watcher;
    watcher.addParameter(&tree.group);
    EXPECT_EQ(tree.volatiles(), QStringList("B"));
}

TEST(KpwAutoVolatile, MakesALeafVolatileWhileItIsAutomatic)
{
    Tree tree;
    KpwAutoVolatile watcher;
    watcher.addParameter(tree.a);
    EXPECT_EQ(tree.volatiles(), QStringList());
    tree.a->activateAutoValue(5);
    EXPECT_EQ(tree.volatiles(), QStringList("A"));
    tree.a->setValue(6);
    EXPECT_EQ(tree.volatiles(), QStringList());
}

TEST(KpwAutoVolatile, KeepsAutomaticValuesOutOfTheStoredForm)
{
    Tree tree;
    KpwAutoVolatile watcher;
    watcher.addParameter(&tree.group);
    EXPECT_EQ(storedKeys(*tree.inner), QStringList({"B", "C"}));
    tree.b->setAutomatic(true);
    EXPECT_EQ(storedKeys(*tree.inner), QStringList("C"));
    tree.b->setAutomatic(false);
    EXPECT_EQ(storedKeys(*tree.inner), QStringList({"B", "C"}));
}

TEST(KpwAutoVolatile, MakesACompositeVolatileOnlyIfAllItsChildrenAre)
{
    Tree tree;
    KpwAutoVolatile watcher;
    watcher.addParameter(&tree.group);
    tree.b->setAutomatic(true);
    EXPECT_EQ(tree.volatiles(), QStringList("B"));
    tree.c->setAutomatic(true);
    EXPECT_EQ(tree.volatiles(), QStringList({"INNER", "B", "C"}));
    tree.a->setAutomatic(true);
    EXPECT_EQ(tree.volatiles(), QStringList({"G", "A", "INNER", "B", "C"}));
    tree.b->setAutomatic(false);
    EXPECT_EQ(tree.volatiles(), QStringList({"A", "C"}));
}

TEST(KpwAutoVolatile, DoesNotAskACompositeWithChildrenWhetherItIsAutomatic)
{
    Tree tree;
    KpwAutoVolatile watcher;
    watcher.addParameter(&tree.group);
    tree.inner->setAutomatic(true);
    EXPECT_EQ(tree.volatiles(), QStringList());
}

TEST(KpwAutoVolatile, TakesACompositeWithoutChildrenForALeaf)
{
    KpcGroup empty("E", TestContext::instance());
    KplIntegerList list("L");
    KpwAutoVolatile watcher;
    watcher.addParameter(&empty);
    watcher.addParameter(&list);
    EXPECT_FALSE(empty.isVolatile());
    EXPECT_FALSE(list.isVolatile());
    empty.setAutomatic(true);
    list.setAutomatic(true);
    EXPECT_TRUE(empty.isVolatile());
    EXPECT_TRUE(list.isVolatile());
}

TEST(KpwAutoVolatile, FollowsTheItemsOfAList)
{
    KplIntegerList list("L");
    KpwAutoVolatile watcher;
    watcher.addParameter(&list);
    list.setItemCount(2);
    list.getItemAt(0)->setAutomatic(true);
    EXPECT_TRUE(list.getItemAt(0)->isVolatile());
    EXPECT_FALSE(list.isVolatile());
    list.removeItemAt(1);
    EXPECT_TRUE(list.isVolatile());
}

TEST(KpwAutoVolatile, SeesNewChildrenAndEveryOtherKindOfChange)
{
    Tree tree;
    tree.a->setAutomatic(true);
    tree.b->setAutomatic(true);
    tree.c->setAutomatic(true);
    KpwAutoVolatile watcher;
    watcher.addParameter(&tree.group);
    EXPECT_TRUE(tree.group.isVolatile());
    tree.group.addChild(new KpaInteger("NEW"));
    EXPECT_FALSE(tree.group.isVolatile());
    for (const int flags : {1, 2, 4, 8}) {
        tree.group.setVolatile(true);
        tree.group.notify(KpnModif(Kp::NotificationFlags(flags), &tree.group));
        EXPECT_FALSE(tree.group.isVolatile()) << flags;
    }
}

TEST(KpwAutoVolatile, FollowsOnlyTheParametersThatChanged)
{
    Tree tree;
    KpwAutoVolatile watcher;
    watcher.addParameter(tree.a);
    watcher.addParameter(tree.inner);
    tree.a->setVolatile(true);
    tree.b->setAutomatic(true);
    EXPECT_EQ(tree.volatiles(), QStringList({"A", "B"}));
}

TEST(KpwAutoVolatile, IsSilent)
{
    Tree tree;
    tree.b->setAutomatic(true);
    KpwAutoVolatile watcher;
    RecordingObserver observer(tree.group);
    watcher.addParameter(&tree.group);
    EXPECT_TRUE(observer.records.isEmpty());
    tree.c->setAutomatic(true);
    EXPECT_EQ(observer.allFlags(), QList<int>{Kp::NotifyConfig});
}

TEST(KpwAutoVolatile, IgnoresNull)
{
    KpwAutoVolatile watcher;
    watcher.addParameter(nullptr);
    watcher.removeParameter(nullptr);
}

TEST(KpwAutoVolatile, LeavesARemovedParameterAsItIs)
{
    Tree tree;
    KpwAutoVolatile watcher;
    watcher.addParameter(tree.a);
    watcher.addParameter(tree.b);
    watcher.addParameter(tree.c);
    for (KpaInteger* each : {tree.a, tree.b, tree.c})
        each->setAutomatic(true);
    watcher.removeParameter(tree.a);
    EXPECT_EQ(tree.volatiles(), QStringList({"A", "B", "C"}));
    for (KpaInteger* each : {tree.a, tree.b, tree.c})
        each->setAutomatic(false);
    EXPECT_EQ(tree.volatiles(), QStringList("A"));
    watcher.removeAllParameters();
    tree.b->setAutomatic(true);
    EXPECT_EQ(tree.volatiles(), QStringList("A"));
}

TEST(KpwAutoVolatile, ForgetsAParameterThatWasAddedTwice)
{
    Tree tree;
    KpwAutoVolatile watcher;
    watcher.addParameter(tree.a);
    watcher.addParameter(tree.a);
    watcher.removeParameter(tree.a);
    tree.a->setAutomatic(true);
    EXPECT_EQ(tree.volatiles(), QStringList());
}

TEST(KpwAutoVolatile, OutlivesItsParameters)
{
    Tree tree;
    KpwAutoVolatile watcher;
    watcher.addParameter(tree.a);
    watcher.addParameter(tree.b);
    tree.group.deleteParameter("A");
    tree.b->setAutomatic(true);
    EXPECT_TRUE(tree.b->isVolatile());
    watcher.clear();
    tree.inner->clear();
    watcher.removeAllParameters();
}

TEST(KpwAutoVolatile, LetsAParameterBeRemovedWhileItDies)
{
    Tree tree;
    KpwAutoVolatile watcher;
    ActingObserver ofTheDying(*tree.a, {}, [&] { watcher.removeParameter(tree.a); });
    watcher.addParameter(tree.a);
    watcher.addParameter(tree.b);
    tree.group.deleteParameter("A");
    tree.b->setAutomatic(true);
    EXPECT_TRUE(tree.b->isVolatile());
}

TEST(KpwAutoVolatile, SurvivesObserversThatDestroyItAndItsParameters)
{
    Tree tree;
    auto* watcher = new KpwAutoVolatile;
    watcher->addParameter(&tree.group);
    // What was collected without a batch goes out with the next one.
    RecordingObserver ofC(*tree.c);
    tree.c->lock(true);
    tree.c->setLabel("changed");
    tree.c->lock(false);
    ActingObserver destroying(*tree.c, [&] {
        delete std::exchange(watcher, nullptr);
        tree.group.clear();
    });
    tree.a->setAutomatic(true);
    EXPECT_EQ(watcher, nullptr);
    EXPECT_EQ(ofC.records.size(), 1);
    EXPECT_FALSE(tree.group.hasChildren());
}

TEST(KpwAutoVolatile, LeavesOutAParameterOutsideItsGroup)
{
    Tree tree;
    KpaInteger elsewhere("ELSEWHERE");
    elsewhere.setAutomatic(true);
    auto* watcher = new KpwAutoVolatile;
    tree.group.registerWatcher(1, watcher);
    EXPECT_TRUE(messageOf<MbeProgrammingError>([&] {
                    watcher->addParameter(&elsewhere);
                }).endsWith("\n\nparent group is not ancestor of added parameter."));
    EXPECT_FALSE(elsewhere.isVolatile());
}

TEST(KpwAutoVolatile, DoesNotCatchUpOnWhatHappenedWhileItWasLocked)
{
    Tree tree;
    KpwAutoVolatile watcher;
    watcher.addParameter(tree.a);
    watcher.lock(true);
    tree.a->setAutomatic(true);
    watcher.lock(false);
    EXPECT_FALSE(tree.a->isVolatile());
}

TEST(KpwAutoVolatile, WorksOnTheGroupThatItWasCopiedTo)
{
    Tree tree;
    auto* watcher = new KpwAutoVolatile;
    watcher->addParameter(tree.a);
    watcher->addParameter(tree.inner);
    tree.group.registerWatcher(1, watcher);
    tree.group.deleteParameter("A");
    const std::unique_ptr<KpcGroup> copy(tree.group.duplicate("H"));
    KpbAParameter& copiedB = *copy->getChild("INNER")->getChild("B");
    copiedB.setAutomatic(true);
    EXPECT_TRUE(copiedB.isVolatile());
    EXPECT_FALSE(tree.b->isVolatile());
    tree.c->setAutomatic(true);
    EXPECT_TRUE(tree.c->isVolatile());
    EXPECT_FALSE(copy->getChild("INNER")->getChild("C")->isVolatile());
}
