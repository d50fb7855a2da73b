#include <param/KpnModif.h>
#include <param/KpnModifIterator.h>
#include <param/atomic/KpaInteger.h>
#include <param/composite/CompositeTestTools.h>
#include <support/RecordingObserver.h>
#include <support/TestParameters.h>

#include <deque>
#include <optional>
#include <random>

namespace {

using Flags = Kp::NotificationFlags;

KpnPath pathOf(std::initializer_list<const KpbAParameter*> parameters)
{
    KpnPath path;
    for (const KpbAParameter* parameter : parameters)
        path.append(parameter);
    return path;
}

QList<const KpbAParameter*> walked(const KpnModif& modif, Flags flags, Kp::IterateFlag iterate)
{
    QList<const KpbAParameter*> parameters;
    for (KpnModifIterator iterator(modif, flags, iterate); iterator.hasNext();)
        parameters.append(iterator.next());
    return parameters;
}

// Leaves whose addresses ascend, which is the order of their entries.
struct Leaves
{
    TestLeaf at[4] = {TestLeaf("a"), TestLeaf("b"), TestLeaf("c"), TestLeaf("d")};
    TestLeaf& operator[](int i) { return at[i]; }
};

// The same, of leaves that can die.
struct Mortals
{
    std::optional<TestLeaf> at[3];
    Mortals()
    {
        for (int i = 0; i < 3; ++i)
            at[i].emplace(QString(QLatin1Char(char('a' + i))));
    }
    KpnModif all() const
    {
        KpnModif modif;
        for (const auto& leaf : at)
            modif.merge(KpnModif(Kp::NotifyValue, const_cast<TestLeaf*>(&*leaf)));
        return modif;
    }
};

} // namespace

TEST(KpnModif, IsEmptyWhenFresh)
{
    const KpnModif modif;
    EXPECT_TRUE(modif.isEmpty());
    EXPECT_EQ(modif.getNumberOfModif(), 0);
    EXPECT_TRUE(modif.getModifs().isEmpty());
    EXPECT_FALSE(modif.isValid());
    EXPECT_EQ(modif.debug(), QString());
}

TEST(KpnModif, OfAParameterHasOneEntryWithThePathThatHoldsIt)
{
    TestLeaf a("a");
    const KpnModif modif(Kp::NotifyValue | Kp::NotifyItem, &a);
    ASSERT_EQ(modif.getModifs().size(), 1);
    EXPECT_EQ(modif.getModifs().firstKey(), pathOf({&a}));
    EXPECT_EQ(int(modif.getModifs().first()), 9);
}

TEST(KpnModif, OfAnInvalidPathIsEmpty)
{
    TestLeaf a("a");
    auto b = std::make_unique<TestLeaf>("b");
    const KpnPath path = pathOf({&a, b.get()});
    EXPECT_EQ(KpnModif(Kp::NotifyValue, path).getNumberOfModif(), 1);
    b.reset();
    EXPECT_TRUE(KpnModif(Kp::NotifyValue, path).isEmpty());
    EXPECT_TRUE(KpnModif(Kp::NotifyValue, KpnPath()).isEmpty());
}

TEST(KpnModif, MergeUnitesTheFlagsOfOnePath)
{
    TestLeaf a("a");
    KpnModif modif(Kp::NotifyValue, &a);
    modif.merge(KpnModif(Kp::NotifyConfig, &a));
    modif.merge(KpnModif(Kp::NotifyConfig, &a));
    ASSERT_EQ(modif.getNumberOfModif(), 1);
    EXPECT_EQ(int(modif.getModifs().first()), 3);
}

TEST(KpnModif, MergeKeepsChangesOfDifferentParametersApart)
{
    Leaves leaves;
    KpnModif modif(Kp::NotifyValue, &leaves[2]);
    modif.merge(KpnModif(Kp::NotifyConfig, &leaves[0]));
    modif.merge(KpnModif(Kp::NotifyItem, &leaves[1]));
    modif.merge(KpnModif(Kp::NotifyConfig, &leaves[2]));
    EXPECT_EQ(modif.debug(), QStringLiteral("a:2\nb:8\nc:3"));
    EXPECT_EQ(modif.getModifs().keys(),
              QList<KpnPath>({pathOf({&leaves[0]}), pathOf({&leaves[1]}), pathOf({&leaves[2]})}));
}

TEST(KpnModif, MergeDropsTheEntriesOfThisRecordThatHaveDied)
{
    TestLeaf a("a"), c("c");
    auto b = std::make_unique<TestLeaf>("b");
    KpnModif modif(Kp::NotifyValue, b.get());
    modif.merge(KpnModif(Kp::NotifyValue, &a));
    b.reset();
    EXPECT_EQ(modif.getNumberOfModif(), 2);
    modif.merge(KpnModif());
    EXPECT_EQ(modif.getNumberOfModif(), 1);
    modif.merge(KpnModif(Kp::NotifyValue, &c));
    EXPECT_EQ(modif.getNumberOfModif(), 2);
}

TEST(KpnModif, MergeTakesADeadEntryOfTheOtherRecordOverAndDropsItAtTheNext)
{
    TestLeaf a("a");
    auto b = std::make_unique<TestLeaf>("b");
    const KpnModif dead(Kp::NotifyValue, b.get());
    b.reset();
    KpnModif modif(Kp::NotifyValue, &a);
    modif.merge(dead);
    EXPECT_EQ(modif.getNumberOfModif(), 2);
    modif.merge(KpnModif(Kp::NotifyConfig, &a));
    EXPECT_EQ(modif.getNumberOfModif(), 1);
    EXPECT_EQ(int(modif.getModifs().first()), 3);
}

TEST(KpnModif, MergeTakesADeadEntryOverIntoARecordOfSeveralWhateverDiedBefore)
{
    Leaves leaves;
    TestLeaf parent("p");
    auto gone = std::make_unique<TestLeaf>("gone");
    KpnModif modif(Kp::NotifyValue, &leaves[0]);
    modif.merge(KpnModif(Kp::NotifyValue, &leaves[1]));
    modif.merge(KpnModif(Kp::NotifyValue, gone.get()));
    auto other = std::make_unique<TestLeaf>("other");
    const KpnModif dead(Kp::NotifyConfig, other.get());
    other.reset();
    gone.reset();
    modif.merge(dead);
    EXPECT_EQ(modif.getNumberOfModif(), 3);
    EXPECT_TRUE(modif.hasNotification(Kp::NotifyConfig));
    modif.merge(dead);
    EXPECT_EQ(modif.getNumberOfModif(), 3);
    modif.merge(KpnModif());
    EXPECT_EQ(modif.getNumberOfModif(), 2);
}

TEST(KpnModif, AnEntryThatDiesKeepsItsPlaceUntilTheNextMerge)
{
    Mortals leaves;
    const KpnModif looked = leaves.all();
    EXPECT_EQ(looked.debug(), QStringLiteral("a:1\nb:1\nc:1"));
    KpnModif modif = leaves.all();
    leaves.at[1].reset();
    EXPECT_EQ(looked.debug(), QStringLiteral("a:1\nNULL:1\nc:1"));
    EXPECT_EQ(modif.debug(), QStringLiteral("a:1\nNULL:1\nc:1"));
    modif.merge(KpnModif());
    EXPECT_EQ(modif.debug(), QStringLiteral("a:1\nc:1"));
}

TEST(KpnModif, AnEntryThatIsMergedDeadComesFirst)
{
    Mortals leaves;
    const KpnModif dead(Kp::NotifyItem, &*leaves.at[2]);
    leaves.at[2].reset();
    KpnModif modif(Kp::NotifyValue, &*leaves.at[0]);
    modif.merge(dead);
    EXPECT_EQ(modif.debug(), QStringLiteral("NULL:8\na:1"));
    modif.merge(KpnModif(Kp::NotifyConfig, &*leaves.at[1]));
    modif.merge(dead);
    EXPECT_EQ(modif.debug(), QStringLiteral("NULL:8\na:1\nb:2"));
}

TEST(KpnModif, ReplaceNotificationChangesTheFirstEntryBeneathThoughALaterOneHasDied)
{
    Mortals leaves;
    TestLeaf living("l");
    TestBranch group("g");
    group.add(living);
    KpnModif modif = leaves.all();
    modif.append(&group);
    leaves.at[1].reset();
    modif.replaceNotification(&group, Kp::NotifyValue, Kp::NotifyConfig);
    EXPECT_EQ(modif.debug(), QStringLiteral("g/a:2\ng/NULL:1\ng/c:1"));
}

TEST(KpnModif, MergeOfMoreThanCanPileUpUnseenKeepsExactlyTheLiving)
{
    TestLeaf stays("stays");
    KpnModif modif(Kp::NotifyConfig, &stays);
    for (int i = 0; i < 10000; ++i) {
        TestLeaf passing(QString::number(i));
        modif.merge(KpnModif(Kp::NotifyValue, &passing));
    }
    EXPECT_EQ(modif.debug().count(QStringLiteral("NULL:1")), 1);
    EXPECT_EQ(modif.getNumberOfModif(), 2);
    modif.merge(KpnModif());
    EXPECT_EQ(modif.debug(), QStringLiteral("stays:2"));
}

TEST(KpnModif, OfNothingHasOneEntryThatIsInvalid)
{
    const KpnModif modif(Kp::NotifyValue, static_cast<KpbAParameter*>(nullptr));
    EXPECT_EQ(modif.getNumberOfModif(), 1);
    EXPECT_FALSE(modif.getModifs().firstKey().isValid());
    EXPECT_EQ(modif.debug(), QStringLiteral("NULL:1"));
}

TEST(KpnModif, AppendAndMergeLeaveALargeRecordThatSharesTheEntriesAsItWas)
{
    std::vector<std::unique_ptr<TestLeaf>> leaves;
    TestLeaf parent("p");
    KpnModif modif;
    for (int i = 0; i < 20; ++i) {
        leaves.push_back(std::make_unique<TestLeaf>(QString::number(i)));
        modif.merge(KpnModif(Kp::NotifyValue, leaves.back().get()));
    }
    KpnModif appended(modif), merged(modif);
    appended.append(&parent);
    for (const auto& leaf : leaves)
        merged.merge(KpnModif(Kp::NotifyConfig, leaf.get()));
    EXPECT_EQ(modif.getNumberOfModif(), 20);
    EXPECT_EQ(merged.getNumberOfModif(), 20);
    for (auto flags : modif.getModifs())
        EXPECT_EQ(int(flags), 1);
    for (auto flags : merged.getModifs())
        EXPECT_EQ(int(flags), 3);
    EXPECT_FALSE(modif.hasModif(&parent, Kp::NotifyValue));
    EXPECT_EQ(appended.getModifs().firstKey().getLast(), &parent);
}

TEST(KpnModif, KnowsTheParameterThatSentIt)
{
    class Looks : public KuoIObserver<KpnModif>
    {
    public:
        void update(const KpnModif& modif) override { valid = modif.isValid(); }
        bool valid = false;
    };
    KpaInteger a("a");
    Looks looks;
    a.addObserver(&looks);
    a.setValue(1);
    EXPECT_TRUE(looks.valid);
    EXPECT_EQ(ObservableTraits<KpnModif>::fromBase(&a), &a);
    a.removeObserver(&looks);
}

TEST(KpnModif, MergeAfterManyDeathsKeepsExactlyTheLiving)
{
    std::vector<std::unique_ptr<TestLeaf>> leaves;
    KpnModif modif;
    for (int i = 0; i < 100; ++i) {
        leaves.push_back(std::make_unique<TestLeaf>(QString::number(i)));
        modif.merge(KpnModif(Kp::NotifyValue, leaves.back().get()));
        if (i % 3 == 0)
            leaves.back().reset();
    }
    // The last one died after the last merge and stays until the next.
    EXPECT_EQ(modif.getNumberOfModif(), 67);
    modif.merge(KpnModif());
    EXPECT_EQ(modif.getNumberOfModif(), 66);
    for (const auto& leaf : leaves)
        EXPECT_EQ(modif.hasModif(leaf.get(), Kp::NotifyValue), leaf != nullptr);
}

TEST(KpnModif, MergeTakesOverTheObservableOfTheOther)
{
    TestLeaf a("a");
    KpnModif sent(Kp::NotifyValue, &a);
    sent.setObservable(&a);
    KpnModif modif;
    modif.merge(sent);
    EXPECT_TRUE(modif.isValid());
    modif.merge(KpnModif());
    EXPECT_FALSE(modif.isValid());
}

TEST(KpnModif, ACopyIsAValueOfItsOwn)
{
    Leaves leaves;
    KpnModif modif(Kp::NotifyValue, &leaves[0]);
    modif.merge(KpnModif(Kp::NotifyValue, &leaves[1]));
    KpnModif copy(modif);
    copy.merge(KpnModif(Kp::NotifyValue, &leaves[2]));
    copy.replaceNotification(&leaves[0], Kp::NotifyValue, Kp::NotifyItem);
    EXPECT_EQ(modif.debug(), QStringLiteral("a:1\nb:1"));
    EXPECT_EQ(copy.debug(), QStringLiteral("a:8\nb:1\nc:1"));
    copy = modif;
    EXPECT_EQ(copy.debug(), QStringLiteral("a:1\nb:1"));
    KpnModif moved(std::move(copy));
    EXPECT_EQ(moved.debug(), QStringLiteral("a:1\nb:1"));
    EXPECT_TRUE(copy.isEmpty());
}

TEST(KpnModif, AppendExtendsEveryPathAndDropsTheInvalid)
{
    Leaves leaves;
    TestLeaf parent("p");
    auto dies = std::make_unique<TestLeaf>("x");
    KpnModif modif(Kp::NotifyValue, &leaves[0]);
    modif.append(&parent);
    EXPECT_EQ(modif.debug(), QStringLiteral("p/a:1"));
    modif.merge(KpnModif(Kp::NotifyConfig, &leaves[1]));
    modif.merge(KpnModif(Kp::NotifyConfig, dies.get()));
    dies.reset();
    modif.append(&parent);
    EXPECT_EQ(modif.debug(), QStringLiteral("p/p/a:1\np/b:2"));
    modif.append(nullptr);
    EXPECT_TRUE(modif.isEmpty());
}

TEST(KpnModif, HasNotificationAsksAllEntriesForOneSharedFlag)
{
    Leaves leaves;
    KpnModif modif(Kp::NotifyValue, &leaves[0]);
    modif.merge(KpnModif(Kp::NotifyConfig, &leaves[1]));
    EXPECT_TRUE(modif.hasNotification(Kp::NotifyValue));
    EXPECT_TRUE(modif.hasNotification(Kp::NotifyConfig | Kp::NotifyItem));
    EXPECT_FALSE(modif.hasNotification(Kp::NotifyChildren | Kp::NotifyItem));
    EXPECT_FALSE(modif.hasNotification(Flags()));
}

TEST(KpnModif, HasModifOfALeafMatchesItAsOriginOnly)
{
    Leaves leaves;
    KpnModif modif(Kp::NotifyValue, &leaves[0]);
    modif.append(&leaves[1]);
    EXPECT_TRUE(modif.hasModif(&leaves[0], Kp::NotifyValue));
    EXPECT_FALSE(modif.hasModif(&leaves[0], Kp::NotifyConfig));
    EXPECT_FALSE(modif.hasModif(&leaves[1], Kp::NotifyValue));
    EXPECT_FALSE(modif.hasModif(&leaves[1], Kp::NotifyValue | Kp::NotifyChildren));
    EXPECT_FALSE(modif.hasModif(nullptr, Kp::NotifyValue));
    EXPECT_FALSE(modif.hasModif(&leaves[0], Flags()));
}

TEST(KpnModif, HasModifOfACompositeMatchesItselfAndWhatLiesBeneath)
{
    TestLeaf a("a");
    TestBranch group("g");
    group.add(a);
    KpnModif modif(Kp::NotifyValue, &a);
    modif.append(&group);
    EXPECT_TRUE(modif.hasModif(&group, Kp::NotifyValue));
    EXPECT_FALSE(modif.hasModif(&group, Kp::NotifyConfig));
    EXPECT_TRUE(modif.hasModif(&group, Kp::NotifyValue | Kp::NotifyChildren));
    EXPECT_FALSE(modif.hasModif(&group, Kp::NotifyChildren));
}

TEST(KpnModif, HasModifAsksForChildrenAtTheCompositeItself)
{
    TestLeaf a("a");
    TestBranch inner("i"), outer("o");
    inner.add(a);
    outer.add(inner);
    KpnModif modif(Kp::NotifyChildren, &inner);
    modif.append(&outer);
    EXPECT_TRUE(modif.hasModif(&inner, Kp::NotifyChildren));
    EXPECT_FALSE(modif.hasModif(&outer, Kp::NotifyChildren));
    const TestBranch empty("e");
    KpnModif atEmpty(Kp::NotifyValue, &a);
    atEmpty.append(const_cast<TestBranch*>(&empty));
    EXPECT_FALSE(atEmpty.hasModif(&empty, Kp::NotifyValue));
}

TEST(KpnModif, ReplaceNotificationChangesTheEntryOfALeaf)
{
    Leaves leaves;
    KpnModif modif(Kp::NotifyValue | Kp::NotifyConfig, &leaves[0]);
    modif.merge(KpnModif(Kp::NotifyValue, &leaves[1]));
    modif.replaceNotification(&leaves[0], Kp::NotifyValue, Kp::NotifyItem);
    EXPECT_EQ(modif.debug(), QStringLiteral("a:10\nb:1"));
    modif.replaceNotification(&leaves[0], Kp::NotifyValue, Kp::NotifyChildren);
    modif.replaceNotification(nullptr, Kp::NotifyValue, Kp::NotifyChildren);
    modif.replaceNotification(&leaves[3], Kp::NotifyValue, Kp::NotifyChildren);
    EXPECT_EQ(modif.debug(), QStringLiteral("a:10\nb:1"));
}

TEST(KpnModif, ReplaceNotificationChangesTheFirstEntryBeneathAComposite)
{
    Leaves leaves;
    TestBranch group("g");
    group.add(leaves[0]);
    group.add(leaves[1]);
    KpnModif modif(Kp::NotifyValue, &leaves[0]);
    modif.merge(KpnModif(Kp::NotifyValue, &leaves[1]));
    modif.append(&group);
    modif.replaceNotification(&group, Kp::NotifyValue, Kp::NotifyConfig);
    EXPECT_EQ(modif.debug(), QStringLiteral("g/a:2\ng/b:1"));
}

TEST(KpnModif, ReplaceNotificationChangesChildrenAtTheCompositeItself)
{
    TestLeaf a("a");
    TestBranch group("g");
    group.add(a);
    KpnModif modif(Kp::NotifyChildren, &group);
    modif.replaceNotification(&group, Kp::NotifyChildren, Kp::NotifyItem);
    EXPECT_EQ(modif.debug(), QStringLiteral("g:8"));
}

TEST(KpnModif, ReplaceNotificationOfALeafThatOnlyLiesOnAPathDoesNothing)
{
    Leaves leaves;
    KpnModif modif(Kp::NotifyValue, &leaves[0]);
    modif.append(&leaves[1]);
    modif.replaceNotification(&leaves[1], Kp::NotifyValue, Kp::NotifyItem);
    EXPECT_EQ(modif.debug(), QStringLiteral("b/a:1"));
}

TEST(KpnModif, ReplaceNotificationOfChildrenLooksAtTheCompositeItselfOnly)
{
    TestLeaf a("a");
    TestBranch group("g");
    group.add(a);
    KpnModif modif(Kp::NotifyChildren, &a);
    modif.append(&group);
    modif.replaceNotification(&group, Kp::NotifyChildren, Kp::NotifyValue);
    EXPECT_EQ(modif.debug(), QStringLiteral("g/a:4"));
}

TEST(KpnModifIterator, GivesTheOriginsOfTheEntriesThatHaveAFlag)
{
    Leaves leaves;
    TestLeaf parent("p");
    KpnModif modif(Kp::NotifyValue, &leaves[1]);
    modif.merge(KpnModif(Kp::NotifyValue, &leaves[0]));
    modif.merge(KpnModif(Kp::NotifyConfig, &leaves[2]));
    modif.append(&parent);
    EXPECT_EQ(walked(modif, Kp::NotifyValue, Kp::IterateOrigin), QList<const KpbAParameter*>({&leaves[0], &leaves[1]}));
    EXPECT_TRUE(walked(modif, Kp::NotifyItem, Kp::IterateOrigin).isEmpty());
}

TEST(KpnModifIterator, GivesAnOriginOncePerEntryAndAnythingOnThePathsOnlyOnce)
{
    TestLeaf leaf("a");
    TestLeaf parents[2] = {TestLeaf("p"), TestLeaf("q")};
    KpnModif modif(Kp::NotifyValue, &leaf);
    modif.append(&parents[0]);
    KpnModif other(Kp::NotifyValue, &leaf);
    other.append(&parents[1]);
    modif.merge(other);
    EXPECT_EQ(walked(modif, Kp::NotifyValue, Kp::IterateOrigin), QList<const KpbAParameter*>({&leaf, &leaf}));
    EXPECT_EQ(walked(modif, Kp::NotifyValue, Kp::IterateWholePath),
              QList<const KpbAParameter*>({&leaf, &parents[0], &parents[1]}));
    EXPECT_EQ(walked(modif, Kp::NotifyValue, Kp::IterateFlag(7)).size(), 3);
}

TEST(KpnModifIterator, PassesOverDeadPaths)
{
    TestLeaf a("a");
    auto b = std::make_unique<TestLeaf>("b");
    KpnModif modif(Kp::NotifyValue, &a);
    modif.merge(KpnModif(Kp::NotifyValue, b.get()));
    b.reset();
    EXPECT_EQ(walked(modif, Kp::NotifyValue, Kp::IterateOrigin), QList<const KpbAParameter*>({&a}));
    EXPECT_EQ(walked(modif, Kp::NotifyValue, Kp::IterateWholePath), QList<const KpbAParameter*>({&a}));
}

TEST(KpnModif, ReachesTheObserversOfEveryAncestorWithItsWholePath)
{
    KpaInteger leaf("leaf");
    RelayingBranch group("group"), root("root");
    group.plug(leaf);
    root.plug(group);
    const RecordingObserver atRoot(root), atLeaf(leaf);
    leaf.setValue(5);
    ASSERT_EQ(atRoot.records.size(), 1);
    EXPECT_EQ(atRoot.records[0].debug(), QStringLiteral("root/group/leaf:1"));
    EXPECT_EQ(atLeaf.records[0].debug(), QStringLiteral("leaf:1"));
}

TEST(KpnModif, ServesEachObserverWithItsWholeUpwardChainBeforeTheNext)
{
    class Names : public KuoIObserver<KpnModif>
    {
    public:
        Names(QStringList& all, const char* own) : order(all), name(own) {}
        void update(const KpnModif&) override { order << QLatin1String(name); }
        QStringList& order;
        const char* name;
    };
    KpaInteger leaf("leaf");
    RelayingBranch group("group"), root("root");
    group.plug(leaf);
    root.plug(group);
    QStringList order;
    Names atLeaf(order, "leaf"), atGroup(order, "group"), atRoot(order, "root");
    leaf.addObserver(&atLeaf);
    group.addObserver(&atGroup);
    root.addObserver(&atRoot);
    leaf.setValue(5);
    EXPECT_EQ(order, QStringList({"root", "group", "leaf"}));
    leaf.removeObserver(&atLeaf);
    group.removeObserver(&atGroup);
    root.removeObserver(&atRoot);
}

TEST(KpnModif, ABatchBringsOneRecordWithOneEntryPerParameter)
{
    std::vector<std::unique_ptr<KpaInteger>> leaves;
    RelayingBranch root("root");
    for (int i = 0; i < 1000; ++i) {
        leaves.push_back(std::make_unique<KpaInteger>(QString::number(i)));
        root.plug(*leaves.back());
    }
    RecordingObserver observer(root);
    {
        KuoLock<KpnModif> lock(&root);
        for (int round = 1; round < 3; ++round) {
            for (const auto& leaf : leaves)
                leaf->setValue(round);
        }
        leaves[7]->setLabel("seven");
        lock.commit();
    }
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 1000);
    EXPECT_EQ(observer.flagsOf(*leaves[7]), 3);
    EXPECT_EQ(observer.flagsOf(*leaves[8]), 1);
}

namespace {

// A record beside what it has to hold: the flags by the places of origin and ancestor among the parameters.
struct Modelled
{
    KpnModif modif;
    QMap<KpnPath, Flags> expected;

    void merge(const KpnPath& path, Flags flags)
    {
        modif.merge(KpnModif(flags, path));
        expected[path] |= flags;
    }
};

struct ManyLeaves
{
    std::deque<TestLeaf> leaves;
    explicit ManyLeaves(int count)
    {
        for (int i = 0; i < count; ++i)
            leaves.emplace_back(QString::number(i));
    }
    TestLeaf* operator[](int i) { return &leaves[std::size_t(i)]; }
};

} // namespace

TEST(KpnModif, FindsEntriesAgainThatOtherRecordsHaveToo)
{
    ManyLeaves leaves(40);
    Modelled records[3];
    std::mt19937 random(7);
    for (int i = 0; i < 3000; ++i) {
        const KpnPath path = pathOf({leaves[int(random() % 40)]});
        records[random() % 3].merge(path, Flags(int(1u << (random() % 4))));
        if (i % 500 == 0)
            records[1] = records[0];
    }
    for (const Modelled& record : records)
        EXPECT_EQ(record.modif.getModifs(), record.expected);
}

TEST(KpnModif, KeepsOneEntryForEachWayOfTheSameOrigins)
{
    ManyLeaves leaves(30);
    Modelled record;
    for (int round = 0; round < 3; ++round) {
        for (int origin = 0; origin < 27; ++origin) {
            record.merge(pathOf({leaves[origin]}), Kp::NotifyValue);
            record.merge(pathOf({leaves[origin], leaves[27 + round]}), Kp::NotifyConfig);
            record.merge(pathOf({leaves[origin], leaves[27]}), Kp::NotifyItem);
        }
    }
    EXPECT_EQ(record.modif.getNumberOfModif(), 27 * 4);
    EXPECT_EQ(record.modif.getModifs(), record.expected);
}

namespace {

// Notes what it is told, and what the record says after somebody else has passed it on.
struct Notes : KuoIObserver<KpnModif>
{
    QStringList texts;
    QList<KpnModif> copies;
    void update(const KpnModif& modif) override
    {
        texts.append(modif.debug());
        copies.append(modif);
    }
};

} // namespace

TEST(KpnModif, SaysTheSameToEachObserverThoughGroupsPassItOnBetween)
{
    auto* leaf = new TestLeaf("leaf");
    auto* inner = new TestComposite("inner");
    TestComposite outer("outer");
    Notes first, last, above;
    leaf->addObserver(&first);
    inner->appendChild(leaf);
    leaf->addObserver(&last);
    outer.appendChild(inner);
    outer.addObserver(&above);

    leaf->notify(KpnModif(Kp::NotifyValue, leaf));

    EXPECT_EQ(first.texts, QStringList{"leaf:1"});
    EXPECT_EQ(last.texts, QStringList{"leaf:1"});
    EXPECT_EQ(above.texts, QStringList{"outer/inner/leaf:1"});
    EXPECT_EQ(last.copies.first().debug(), "leaf:1");
    EXPECT_EQ(above.copies.first().debug(), "outer/inner/leaf:1");
    leaf->removeObserver(&first);
    leaf->removeObserver(&last);
    outer.removeObserver(&above);
}

TEST(KpnModif, KeepsAMapThatIsInUseWhileAGroupPassesTheRecordOn)
{
    auto* leaf = new TestLeaf("leaf");
    TestComposite group("group");
    group.appendChild(leaf);
    Notes above;
    group.addObserver(&above);

    const KpnModif modif(Kp::NotifyValue, leaf);
    const QMap<KpnPath, Flags>& map = modif.getModifs();
    group.update(modif);

    EXPECT_EQ(map.size(), 1);
    EXPECT_EQ(map.firstKey().count(), 1);
    EXPECT_EQ(above.texts, QStringList{"group/leaf:1"});
    group.removeObserver(&above);
}
