#include "../composite/CompositeTestTools.h"

#include <param/composite/KpcGroup.h>
#include <param/watcher/KpwDataRootSynchronizer.h>
#include <support/BracketTranslator.h>
#include <support/DataProject.h>

namespace {

/// A group with the dataset DATASET, the data parameters A and B and the list LIST.
struct Tree
{
    DataProject data;
    KpcGroup group{"G", data};
    KpcDataset* dataset = new KpcDataset("DATASET", data);
    KpaData* a = new KpaData("A", data);
    KpaData* b = new KpaData("B", data);
    KplDataList* list = new KplDataList("LIST", data);

    Tree()
    {
        for (KpbAParameter* each : {static_cast<KpbAParameter*>(dataset), static_cast<KpbAParameter*>(a),
                                    static_cast<KpbAParameter*>(b), static_cast<KpbAParameter*>(list)})
            group.addChild(each);
        a->setRootType(KsoEDataType::FILE);
        b->setRootType(KsoEDataType::FILE);
        list->setRootType(KsoEDataType::FILE);
        list->setItemCount(1);
        dataset->setRootIdent(north());
    }

    KsoDataIdentifier north() const { return data.file("north", "holes"); }
    KsoDataIdentifier south() const { return data.file("south", "holes"); }
};

} // namespace

TEST(KpwDataRootSynchronizer, GivesANewTargetTheRootAtOnce)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    EXPECT_TRUE(tree.a->getRootIdent().isNull());
    watcher.addTargetData(tree.a);
    EXPECT_EQ(tree.a->getRootIdent(), tree.north());
    watcher.addTargetDataList(tree.list);
    EXPECT_EQ(tree.list->getRootIdent(), tree.north());
    EXPECT_EQ(tree.list->getItemAt(0)->getRootIdent(), tree.north());
}

TEST(KpwDataRootSynchronizer, KeepsTheRootOfItsTargetsEqualToThatOfTheDataset)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetData(tree.a);
    watcher.addTargetData(tree.b);
    watcher.addTargetDataList(tree.list);
    tree.dataset->setRootIdent(tree.south());
    EXPECT_EQ(tree.a->getRootIdent(), tree.south());
    EXPECT_EQ(tree.b->getRootIdent(), tree.south());
    EXPECT_EQ(tree.list->getRootIdent(), tree.south());
    EXPECT_EQ(tree.list->getItemAt(0)->getRootIdent(), tree.south());
}

TEST(KpwDataRootSynchronizer, LeavesTheLevelOfTheTargetsRoots)
{
    Tree tree;
    tree.a->setRootType(KsoEDataType::DIRECTORY);
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetData(tree.a);
    EXPECT_EQ(tree.a->getRootType(), KsoEDataType::DIRECTORY);
    EXPECT_EQ(tree.a->getRootIdent(), tree.data.directory("north"));
}

TEST(KpwDataRootSynchronizer, FollowsTheValueOfTheRootAndNothingElse)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetData(tree.a);
    tree.a->setRootIdent(tree.south(), false);
    tree.dataset->setRootLabel("Samples");
    tree.data.model->remove(tree.dataset->getFile());
    EXPECT_EQ(tree.a->getRootIdent(), tree.south());
    tree.dataset->setRootIdent(tree.data.file("north", "blocks"));
    EXPECT_EQ(tree.a->getRootIdent(), tree.data.file("north", "blocks"));
}

TEST(KpwDataRootSynchronizer, LeavesItsTargetsToTheNextChangeOfANewDataset)
{
    Tree tree;
    KpcDataset another("ANOTHER", tree.data);
    another.setRootIdent(tree.south());
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetData(tree.a);
    watcher.setDataset(&another);
    EXPECT_EQ(tree.a->getRootIdent(), tree.north());
    tree.dataset->setRootIdent(tree.data.file("north", "blocks"));
    EXPECT_EQ(tree.a->getRootIdent(), tree.north());
    another.setRootIdent(tree.data.file("south", "lonely"));
    EXPECT_EQ(tree.a->getRootIdent(), tree.data.file("south", "lonely"));
}

TEST(KpwDataRootSynchronizer, TakesTargetsBeforeTheDataset)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.addTargetData(tree.a);
    watcher.addTargetDataList(tree.list);
    EXPECT_TRUE(tree.a->getRootIdent().isNull());
    watcher.setDataset(tree.dataset);
    EXPECT_TRUE(tree.a->getRootIdent().isNull());
    watcher.addTargetData(tree.b);
    EXPECT_EQ(tree.a->getRootIdent(), tree.north());
    EXPECT_EQ(tree.b->getRootIdent(), tree.north());
    EXPECT_EQ(tree.list->getRootIdent(), tree.north());
}

TEST(KpwDataRootSynchronizer, IgnoresWhatIsATargetAlreadyAndNullWhileItIsFree)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetData(nullptr);
    watcher.addTargetDataList(nullptr);
    watcher.addTargetData(tree.a);
    tree.a->setRootIdent(tree.south(), false);
    watcher.addTargetData(tree.a);
    EXPECT_EQ(tree.a->getRootIdent(), tree.south());
    watcher.addTargetDataList(tree.list);
    tree.list->setRootIdent(tree.south(), false);
    watcher.addTargetDataList(tree.list);
    EXPECT_EQ(tree.list->getRootIdent(), tree.south());
    RecordingObserver observer(*tree.a);
    tree.dataset->setRootIdent(tree.data.file("north", "blocks"));
    EXPECT_EQ(observer.records.count(), 1);
}

TEST(KpwDataRootSynchronizer, LeavesTheRootOfATargetThatIsRemoved)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetData(tree.a);
    watcher.addTargetData(tree.b);
    watcher.removeTargetData(tree.a);
    tree.dataset->setRootIdent(tree.south());
    EXPECT_EQ(tree.a->getRootIdent(), tree.north());
    EXPECT_EQ(tree.b->getRootIdent(), tree.south());
}

TEST(KpwDataRootSynchronizer, DoesNothingWhileItIsLocked)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetData(tree.a);
    watcher.lock(true);
    tree.dataset->setRootIdent(tree.south());
    EXPECT_EQ(tree.a->getRootIdent(), tree.north());
}

TEST(KpwDataRootSynchronizer, GivesANewTargetTheRootAlsoWhileItIsLocked)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.lock(true);
    watcher.addTargetData(tree.a);
    EXPECT_EQ(tree.a->getRootIdent(), tree.north());
}

TEST(KpwDataRootSynchronizer, TellsTheTargetsInTheirOrderAndTheListsLast)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetDataList(tree.list);
    watcher.addTargetData(tree.b);
    watcher.addTargetData(tree.a);
    QStringList order;
    ActingObserver ofList(*tree.list, [&] { order.append("list"); });
    ActingObserver ofA(*tree.a, [&] { order.append("a"); });
    ActingObserver ofB(*tree.b, [&] { order.append("b"); });
    tree.dataset->setRootIdent(tree.south());
    EXPECT_EQ(order, (QStringList{"b", "a", "list"}));
    EXPECT_EQ(ofA.allFlags(), QList<int>{Kp::NotifyConfig});
}

TEST(KpwDataRootSynchronizer, RefusesWhatIsNotBelowItsGroup)
{
    Tree tree;
    auto* watcher = new KpwDataRootSynchronizer;
    watcher->setDataset(tree.dataset);
    tree.group.registerWatcher(1, watcher);
    KpcDataset dataset("DATASET", tree.data);
    KpaData data("DATA", tree.data);
    KplDataList list("LIST", tree.data);
    const QString rest = "' in file 'watcher\\KpwDataRootSynchronizer' failed:\n\n"
                         "parent group is not ancestor of added parameter.";
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher->setDataset(&dataset); }),
              "'void __cdecl KpwDataRootSynchronizer::setDataset(class KpcDataset *)" + rest);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher->addTargetData(&data); }),
              "'void __cdecl KpwDataRootSynchronizer::addTargetData(class KpaData *)" + rest);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher->addTargetDataList(&list); }),
              "'void __cdecl KpwDataRootSynchronizer::addTargetDataList(class KplDataList *)" + rest);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher->setDataset(nullptr); }),
              "'void __cdecl KpwDataRootSynchronizer::setDataset(class KpcDataset *)" + rest);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher->addTargetData(nullptr); }),
              "'void __cdecl KpwDataRootSynchronizer::addTargetData(class KpaData *)" + rest);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { watcher->addTargetDataList(nullptr); }),
              "'void __cdecl KpwDataRootSynchronizer::addTargetDataList(class KplDataList *)" + rest);

    watcher->addTargetData(tree.a);
    tree.dataset->setRootIdent(tree.south());
    EXPECT_EQ(tree.a->getRootIdent(), tree.south());
    EXPECT_EQ(data.getRootIdent(), tree.data.root());
}

TEST(KpwDataRootSynchronizer, TranslatesTheRefusal)
{
    const BracketTranslator translator;
    Tree tree;
    auto* watcher = new KpwDataRootSynchronizer;
    tree.group.registerWatcher(1, watcher);
    KpaData data("DATA", tree.data);
    EXPECT_TRUE(messageOf<MbeProgrammingError>([&] {
                    watcher->addTargetData(&data);
                }).endsWith("[parent group is not ancestor of added parameter.]"));
}

TEST(KpwDataRootSynchronizer, FollowsTheDatasetOfAnotherGroupAsACopy)
{
    Tree tree;
    auto* watcher = new KpwDataRootSynchronizer;
    watcher->setDataset(tree.dataset);
    watcher->addTargetData(tree.a);
    watcher->addTargetDataList(tree.list);
    tree.group.registerWatcher(1, watcher);
    const KpcGroup copy(tree.group, "COPY");
    static_cast<KpcDataset*>(copy.getChild("DATASET"))->setRootIdent(tree.south());
    EXPECT_EQ(static_cast<KpaData*>(copy.getChild("A"))->getRootIdent(), tree.south());
    EXPECT_EQ(static_cast<KplDataList*>(copy.getChild("LIST"))->getRootIdent(), tree.south());
    EXPECT_TRUE(static_cast<KpaData*>(copy.getChild("B"))->getRootIdent().isNull());
    EXPECT_EQ(tree.a->getRootIdent(), tree.north());
}

TEST(KpwDataRootSynchronizer, IsCopiedWithoutTheTargetsThatDied)
{
    Tree tree;
    auto* watcher = new KpwDataRootSynchronizer;
    watcher->setDataset(tree.dataset);
    watcher->addTargetData(tree.a);
    watcher->addTargetData(tree.b);
    tree.group.registerWatcher(1, watcher);
    delete tree.a;
    const KpcGroup copy(tree.group, "COPY");
    static_cast<KpcDataset*>(copy.getChild("DATASET"))->setRootIdent(tree.south());
    EXPECT_EQ(static_cast<KpaData*>(copy.getChild("B"))->getRootIdent(), tree.south());
}

TEST(KpwDataRootSynchronizer, IsNotCopiedWithATargetThatIsNotBelowItsGroup)
{
    Tree tree;
    KpaData outside("OUTSIDE", tree.data);
    auto* watcher = new KpwDataRootSynchronizer;
    watcher->addTargetData(&outside);
    tree.group.registerWatcher(1, watcher);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { KpcGroup(tree.group, "COPY"); }),
              "'class KpbAParameter *__cdecl KpwAWatcher::_duplicateChildRefImpl(const class KpbAParameter *,const "
              "class KpcGroup *) const' in file 'watcher\\KpwAWatcher' failed:\n\n"
              "Cannot duplicate child (OUTSIDE) when not child of parent group (COPY)");
}

TEST(KpwDataRootSynchronizer, IgnoresADatasetThatIsDying)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    ActingObserver observer(*tree.dataset->getRootParameter(), {}, [&] { watcher.addTargetData(tree.a); });
    delete tree.dataset;
    EXPECT_EQ(observer.deaths, 1);
    EXPECT_TRUE(tree.a->getRootIdent().isNull());
}

TEST(KpwDataRootSynchronizer, PassesOverTargetsThatDied)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetData(tree.a);
    watcher.addTargetData(tree.b);
    watcher.addTargetDataList(tree.list);
    delete tree.a;
    delete tree.list;
    tree.dataset->setRootIdent(tree.south());
    EXPECT_EQ(tree.b->getRootIdent(), tree.south());
}

TEST(KpwDataRootSynchronizer, OutlivesItsDataset)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetData(tree.a);
    delete tree.dataset;
    watcher.addTargetData(tree.b);
    EXPECT_EQ(tree.a->getRootIdent(), tree.north());
    EXPECT_TRUE(tree.b->getRootIdent().isNull());
}

TEST(KpwDataRootSynchronizer, FollowsNothingWithoutADataset)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetData(tree.a);
    watcher.setDataset(nullptr);
    tree.dataset->setRootIdent(tree.south());
    EXPECT_EQ(tree.a->getRootIdent(), tree.north());
}

TEST(KpwDataRootSynchronizer, MayBeDestroyedByTheObserverOfATarget)
{
    Tree tree;
    auto* watcher = new KpwDataRootSynchronizer;
    watcher->setDataset(tree.dataset);
    watcher->addTargetData(tree.a);
    watcher->addTargetData(tree.b);
    watcher->addTargetDataList(tree.list);
    ActingObserver observer(*tree.a, [&] { delete std::exchange(watcher, nullptr); });
    tree.dataset->setRootIdent(tree.south());
    EXPECT_EQ(watcher, nullptr);
    EXPECT_EQ(tree.list->getRootIdent(), tree.south());
}

TEST(KpwDataRootSynchronizer, GoesOnWhenAnObserverDestroysATarget)
{
    Tree tree;
    KpwDataRootSynchronizer watcher;
    watcher.setDataset(tree.dataset);
    watcher.addTargetData(tree.a);
    watcher.addTargetData(tree.b);
    watcher.addTargetDataList(tree.list);
    ActingObserver observer(*tree.a, [&] { delete std::exchange(tree.b, nullptr); });
    tree.dataset->setRootIdent(tree.south());
    EXPECT_EQ(tree.b, nullptr);
    EXPECT_EQ(tree.list->getRootIdent(), tree.south());
}
