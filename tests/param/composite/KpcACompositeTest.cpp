#include "CompositeTestTools.h"

#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcGroup.h>

#include <support/RecordingObserver.h>

#include <QtCore/QElapsedTimer>

#include <algorithm>
#include <random>

namespace {

KpaInteger* addInteger(TestComposite& composite, const QString& key)
{
    auto* child = new KpaInteger(key);
    composite.appendChild(child);
    return child;
}

/// A composite with the integers K0, K1, ...
std::unique_ptr<TestComposite> compositeOf(int count)
{
    auto composite = std::make_unique<TestComposite>("C");
    for (int i = 0; i < count; ++i)
        addInteger(*composite, QStringLiteral("K%1").arg(i));
    return composite;
}

/// Counts the living, and refuses to be copied if told so.
class CountedParameter : public KpaInteger
{
public:
    explicit CountedParameter(const QString& key, bool refusesCopies = false)
        : KpaInteger(key),
          _refusesCopies(refusesCopies)
    {
        ++living;
    }
    CountedParameter(const CountedParameter& other, const QString& newKey) : KpaInteger(other, newKey) { ++living; }
    ~CountedParameter() override { --living; }
    CountedParameter* duplicate(const QString& newKey) const override
    {
        if (_refusesCopies)
            throw MbeUserError("no copy");
        return new CountedParameter(*this, newKey);
    }

    static int living;

private:
    bool _refusesCopies = false;
};

int CountedParameter::living = 0;

} // namespace

TEST(KpcAComposite, IsEmptyAtFirst)
{
    const TestComposite composite("C");
    EXPECT_TRUE(composite.isA(KpbEType::GROUP));
    EXPECT_EQ(composite.getKey(), "C");
    EXPECT_FALSE(composite.hasChildren());
    EXPECT_EQ(composite.getChildCount(), 0);
    EXPECT_TRUE(composite.serialize().isEmpty());
    EXPECT_EQ(composite.toString(), "");
    EXPECT_EQ(composite.getVersion(), 1);
}

TEST(KpcAComposite, ReachesItsProjectThroughTheTransactionContext)
{
    const TestComposite composite("C");
    EXPECT_EQ(&composite._getTransactable(), &TestContext::instance());
    EXPECT_EQ(composite._getProject(), TestContext::instance().getProject());
}

TEST(KpcAComposite, IgnoresStoredEntries)
{
    TestComposite composite("C");
    RecordingObserver observer(composite);
    KpbAParameter::SerialForm map;
    map.insert("value", "1");
    composite.unserialize(map);
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_TRUE(composite.serialize().isEmpty());
}

TEST(KpcAComposite, KeepsChildrenInOrderOfArrival)
{
    TestComposite composite("C");
    KpaInteger* b = addInteger(composite, "B");
    KpaInteger* a = addInteger(composite, "A");
    EXPECT_TRUE(composite.hasChildren());
    EXPECT_EQ(composite.getChildCount(), 2);
    EXPECT_EQ(composite.getChild(0), b);
    EXPECT_EQ(composite.getChild(1), a);
    EXPECT_EQ(composite.getChild("A"), a);
    EXPECT_EQ(composite.getChild("B"), b);
    EXPECT_EQ(a->getParent(), &composite);
}

TEST(KpcAComposite, GivesNullForAnIndexOutOfRange)
{
    const auto composite = compositeOf(2);
    EXPECT_EQ(composite->getChild(-1), nullptr);
    EXPECT_EQ(composite->getChild(2), nullptr);
}

TEST(KpcAComposite, GivesNullForAnUnknownKey)
{
    const auto composite = compositeOf(2);
    EXPECT_EQ(composite->getChild("unknown"), nullptr);
    EXPECT_FALSE(composite->existsKey("unknown"));
    EXPECT_TRUE(composite->existsKey("K1"));
}

TEST(KpcAComposite, NotifiesItsChildrenWhenOneIsAppended)
{
    TestComposite composite("C");
    RecordingObserver observer(composite);
    addInteger(composite, "A");
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flags(), Kp::NotifyChildren);
    EXPECT_EQ(observer.records[0].getModifs().firstKey().toString(), "C");
}

TEST(KpcAComposite, RefusesANullChild)
{
    TestComposite composite("C");
    EXPECT_EQ(messageOf<MbeError>([&] { composite.appendChild(nullptr); }),
              "KpcAComposite::appendChild() (parameter='C':\nchild is NULL");
}

TEST(KpcAComposite, RefusesAKeyThatALivingChildHas)
{
    const auto composite = compositeOf(1);
    KpaInteger again("K0");
    RecordingObserver observer(*composite);
    EXPECT_EQ(messageOf<MbeError>([&] { composite->appendChild(&again); }),
              "KpcAComposite::appendChild() (parameter='C':\nkey 'K0' already exists.");
    EXPECT_EQ(composite->getChildCount(), 1);
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpcAComposite, LeavesARefusedChildWithTheCaller)
{
    const auto composite = compositeOf(1);
    RecordingObserver observer(*composite);
    auto again = std::make_unique<KpaInteger>("K0");
    EXPECT_THROW(composite->appendChild(again.get()), MbeError);
    EXPECT_EQ(again->getParent(), nullptr);
    again->setValue(5);
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpcAComposite, ShowsKeysThatLookLikePlaceholdersAsTheyAre)
{
    TestComposite composite("%1");
    addInteger(composite, "%2");
    KpaInteger again("%2");
    EXPECT_EQ(messageOf<MbeError>([&] { composite.appendChild(&again); }),
              "KpcAComposite::appendChild() (parameter='%1':\nkey '%2' already exists.");
}

TEST(KpcAComposite, FindsAndRefusesKeysAmongManyChildren)
{
    const auto composite = compositeOf(100);
    for (const QString key : {"K0", "K15", "K16", "K17", "K99"}) {
        ASSERT_TRUE(composite->getChild(key));
        EXPECT_EQ(composite->getChild(key)->getKey(), key);
        KpaInteger again(key);
        EXPECT_THROW(composite->appendChild(&again), MbeError);
    }
    EXPECT_EQ(composite->getChild("K100"), nullptr);
}

TEST(KpcAComposite, TakesAKeyThatOnlyADeadChildHad)
{
    for (const int count : {1, 16, 17, 40}) {
        const auto composite = compositeOf(count);
        delete composite->getChild("K0");
        KpaInteger* again = addInteger(*composite, "K0");
        EXPECT_EQ(composite->getChild("K0"), again);
        EXPECT_EQ(composite->getChild(count - 1), again);
        EXPECT_EQ(composite->getChildCount(), count);
    }
}

TEST(KpcAComposite, IsLeftSilentlyByAChildThatDiesElsewhere)
{
    const auto composite = compositeOf(3);
    RecordingObserver observer(*composite);
    delete composite->getChild("K1");
    EXPECT_EQ(childKeys(*composite), QStringList({"K0", "K2"}));
    EXPECT_TRUE(observer.records.isEmpty());
    delete composite->getChild("K0");
    delete composite->getChild("K2");
    EXPECT_FALSE(composite->hasChildren());
    EXPECT_EQ(composite->getChildCount(), 0);
}

TEST(KpcAComposite, CountsADyingChildUntilItIsToldOfTheDeath)
{
    TestComposite composite("C");
    QStringList seen;
    bool hasChildren = false;
    bool existsKey = true;
    auto* child = new KpaInteger("A");
    ActingObserver observer(*child, {}, [&] {
        seen = childKeys(composite);
        hasChildren = composite.hasChildren();
        existsKey = composite.existsKey("A");
    });
    composite.appendChild(child); // hears of the death after the observer
    delete child;
    EXPECT_EQ(seen, QStringList("dead"));
    EXPECT_TRUE(hasChildren);
    EXPECT_FALSE(existsKey);
    EXPECT_EQ(composite.getChildCount(), 0);
}

TEST(KpcAComposite, CountsAChildThatDiedUnheardUntilAnotherOneDies)
{
    const auto composite = compositeOf(3);
    composite->getChild("K0")->removeObserver(composite.get());
    delete composite->getChild("K0");
    EXPECT_EQ(childKeys(*composite), QStringList({"dead", "K1", "K2"}));
    EXPECT_EQ(composite->getChild("K0"), nullptr);
    delete composite->getChild("K2");
    EXPECT_EQ(childKeys(*composite), QStringList("K1"));
}

TEST(KpcAComposite, DeletesAChildByKey)
{
    TestComposite composite("C");
    composite.appendChild(new CountedParameter("A"));
    addInteger(composite, "B");
    RecordingObserver observer(composite);
    composite.deleteChild("A");
    EXPECT_EQ(CountedParameter::living, 0);
    EXPECT_EQ(childKeys(composite), QStringList("B"));
    EXPECT_EQ(observer.allFlags(), QList<int>{Kp::NotifyChildren});
}

TEST(KpcAComposite, HandsOutAChildByKey)
{
    const auto composite = compositeOf(2);
    RecordingObserver observer(*composite);
    KpbAParameter* child = composite->getChild("K0");
    const std::unique_ptr<KpbAParameter> taken(composite->takeChild("K0"));
    EXPECT_EQ(taken.get(), child);
    EXPECT_EQ(taken->getParent(), nullptr);
    EXPECT_EQ(childKeys(*composite), QStringList("K1"));
    EXPECT_EQ(observer.allFlags(), QList<int>{Kp::NotifyChildren});
}

TEST(KpcAComposite, DoesNotHearAChildThatWasTaken)
{
    const auto composite = compositeOf(1);
    const std::unique_ptr<KpbAParameter> taken(composite->takeChild("K0"));
    RecordingObserver observer(*composite);
    taken->setLabel("changed");
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpcAComposite, FailsToDeleteAndToTakeAnUnknownKey)
{
    const auto composite = compositeOf(1);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { composite->deleteChild("X"); }),
              "'void __cdecl KpcAComposite::deleteChild(const class QString &)' in file 'composite\\KpcAComposite' "
              "failed:\n\nKey 'X' doesn't exist in parameter 'C'.");
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { composite->takeChild("X"); }),
              "'class KpbAParameter *__cdecl KpcAComposite::takeChild(const class QString &)' in file "
              "'composite\\KpcAComposite' failed:\n\nKey 'X' doesn't exist in parameter 'C'.");
    EXPECT_EQ(composite->getChildCount(), 1);
}

TEST(KpcAComposite, DeletesAllChildrenInOneNotification)
{
    const auto composite = compositeOf(20);
    composite->appendChild(new CountedParameter("A"));
    RecordingObserver observer(*composite);
    composite->deleteAll();
    EXPECT_EQ(CountedParameter::living, 0);
    EXPECT_EQ(composite->getChildCount(), 0);
    EXPECT_EQ(composite->getChild("K0"), nullptr);
    EXPECT_EQ(observer.allFlags(), QList<int>{Kp::NotifyChildren});
}

TEST(KpcAComposite, NotifiesThatAllAreDeletedAlsoWhenItWasEmpty)
{
    TestComposite composite("C");
    RecordingObserver observer(composite);
    composite.deleteAll();
    EXPECT_EQ(observer.allFlags(), QList<int>{Kp::NotifyChildren});
}

TEST(KpcAComposite, CanBeFilledAgainAfterAllWereDeleted)
{
    const auto composite = compositeOf(20);
    composite->deleteAll();
    addInteger(*composite, "K7");
    EXPECT_EQ(childKeys(*composite), QStringList("K7"));
}

TEST(KpcAComposite, DestroysItsChildrenWithoutANotification)
{
    auto composite = std::make_unique<TestComposite>("C");
    composite->appendChild(new CountedParameter("A"));
    RecordingObserver observer(*composite);
    composite.reset();
    EXPECT_EQ(CountedParameter::living, 0);
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_EQ(observer.deaths, 1);
}

TEST(KpcAComposite, PassesAChangeOfAGrandchildOnWithThreeSteps)
{
    TestComposite root("ROOT");
    auto* inner = new TestComposite("INNER");
    root.appendChild(inner);
    KpaInteger* leaf = addInteger(*inner, "LEAF");
    RecordingObserver observer(root);
    leaf->setValue(4);
    ASSERT_EQ(observer.records.size(), 1);
    const KpnPath path = observer.records[0].getModifs().firstKey();
    EXPECT_EQ(path.toString(), "ROOT/INNER/LEAF");
    EXPECT_EQ(path.getFirst(), leaf);
    EXPECT_EQ(path.getLast(), &root);
    EXPECT_EQ(observer.flags(), Kp::NotifyValue);
    EXPECT_TRUE(observer.records[0].hasModif(inner, Kp::NotifyValue));
}

TEST(KpcAComposite, CollectsTheChangesOfItsChildrenWhileItIsLocked)
{
    const auto composite = compositeOf(2);
    RecordingObserver observer(*composite);
    RecordingObserver childObserver(*composite->getChild("K0"));
    {
        KuoLock<KpnModif> lock(composite.get());
        composite->getChild("K0")->setLabel("a");
        composite->getChild("K1")->setLabel("b");
        EXPECT_EQ(childObserver.records.size(), 1);
        EXPECT_TRUE(observer.records.isEmpty());
        lock.commit();
    }
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
    EXPECT_EQ(observer.flagsOf(*composite->getChild("K0")), Kp::NotifyConfig);
    EXPECT_EQ(observer.flagsOf(*composite->getChild("K1")), Kp::NotifyConfig);
}

TEST(KpcAComposite, ServesItsObserversBeforeTheLaterObserversOfTheChild)
{
    const auto composite = compositeOf(1);
    QStringList order;
    ActingObserver ofChild(*composite->getChild("K0"), [&] { order.append("child"); });
    ActingObserver ofComposite(*composite, [&] { order.append("composite"); });
    composite->getChild("K0")->setLabel("changed");
    EXPECT_EQ(order, QStringList({"composite", "child"}));
}

TEST(KpcAComposite, TellsOfItselfAndAllBelowWhenItIsDisabled)
{
    const auto composite = compositeOf(1);
    RecordingObserver observer(*composite);
    composite->setEnabled(false);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
    EXPECT_EQ(observer.flagsOf(*composite), Kp::NotifyConfig);
    EXPECT_EQ(observer.flagsOf(*composite->getChild("K0")), Kp::NotifyConfig);
}

TEST(KpcAComposite, IsALeafToARecordWhileItHasNoChildren)
{
    const auto composite = compositeOf(1);
    RecordingObserver observer(*composite);
    composite->getChild("K0")->setLabel("changed");
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_TRUE(observer.records[0].hasModif(composite.get(), Kp::NotifyConfig));
    const std::unique_ptr<KpbAParameter> taken(composite->takeChild("K0"));
    EXPECT_FALSE(observer.records[0].hasModif(composite.get(), Kp::NotifyConfig));
}

TEST(KpcAComposite, DropsDeadPathsFromWhatItPassesOn)
{
    const auto composite = compositeOf(1);
    RecordingObserver observer(*composite);
    auto origin = std::make_unique<KpaInteger>("X");
    KpnModif modif(Kp::NotifyValue, origin.get());
    origin.reset();
    composite->update(modif);
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpcAComposite, LeavesTheRecordOfTheChildAsItIs)
{
    const auto composite = compositeOf(1);
    RecordingObserver ofComposite(*composite);
    RecordingObserver ofChild(*composite->getChild("K0"));
    composite->getChild("K0")->setLabel("changed");
    ASSERT_EQ(ofChild.records.size(), 1);
    EXPECT_EQ(ofChild.records[0].getModifs().firstKey().toString(), "K0");
}

TEST(KpcAComposite, KeepsNothingWhileNobodyListens)
{
    const auto composite = compositeOf(1);
    composite->getChild("K0")->setLabel("changed");
    EXPECT_FALSE(composite->hasNotifications());
}

TEST(KpcAComposite, CopiesItsChildrenUnderTheirKeys)
{
    const auto composite = compositeOf(3);
    composite->setLabel("Label");
    const std::unique_ptr<TestComposite> copy(composite->duplicate("D"));
    EXPECT_EQ(copy->getKey(), "D");
    EXPECT_EQ(copy->getLabel(), "Label");
    EXPECT_EQ(childKeys(*copy), QStringList({"K0", "K1", "K2"}));
    EXPECT_NE(copy->getChild("K0"), composite->getChild("K0"));
    EXPECT_EQ(copy->getChild("K0")->getParent(), copy.get());
    EXPECT_EQ(&copy->_getTransactable(), &TestContext::instance());
}

TEST(KpcAComposite, KeepsItsKeyInACopyUnderAnEmptyOne)
{
    const std::unique_ptr<TestComposite> copy(compositeOf(1)->duplicate(QString()));
    EXPECT_EQ(copy->getKey(), "C");
}

TEST(KpcAComposite, LeavesItsObserversAndItsParentBehindWhenItIsCopied)
{
    TestComposite root("ROOT");
    root.appendChild(compositeOf(1).release());
    auto* original = root.getChild("C");
    RecordingObserver observer(*original);
    const std::unique_ptr<KpbAParameter> copy(original->duplicate("D"));
    EXPECT_EQ(copy->getParent(), nullptr);
    copy->getChild("K0")->setLabel("changed");
    EXPECT_TRUE(observer.records.isEmpty());
    RecordingObserver ofCopy(*copy);
    copy->getChild("K0")->setLabel("again");
    EXPECT_EQ(ofCopy.records.size(), 1);
}

TEST(KpcAComposite, LeavesDeadChildrenOutOfACopy)
{
    const auto composite = compositeOf(2);
    composite->getChild("K0")->removeObserver(composite.get());
    delete composite->getChild("K0");
    ASSERT_EQ(composite->getChildCount(), 2);
    const std::unique_ptr<TestComposite> copy(composite->duplicate(QString()));
    EXPECT_EQ(childKeys(*copy), QStringList("K1"));
}

TEST(KpcAComposite, LeavesNothingBehindWhenAChildCannotBeCopied)
{
    {
        TestComposite composite("C");
        composite.appendChild(new CountedParameter("A"));
        composite.appendChild(new CountedParameter("B", true));
        EXPECT_THROW(composite.duplicate(QString()), MbeUserError);
        EXPECT_EQ(CountedParameter::living, 2);
    }
    EXPECT_EQ(CountedParameter::living, 0);
}

TEST(KpcAComposite, SurvivesThatAChildIsDeletedByAnObserver)
{
    const auto composite = compositeOf(2);
    ActingObserver observer(*composite, [&] { delete composite->getChild("K0"); });
    composite->getChild("K0")->setLabel("changed");
    composite->removeObserver(&observer);
    EXPECT_EQ(childKeys(*composite), QStringList("K1"));
}

TEST(KpcAComposite, SurvivesThatAChildIsTakenByAnObserver)
{
    const auto composite = compositeOf(2);
    std::unique_ptr<KpbAParameter> taken;
    ActingObserver observer(*composite, [&] {
        if (composite->existsKey("K0"))
            taken.reset(composite->takeChild("K0"));
    });
    RecordingObserver later(*composite);
    composite->getChild("K0")->setLabel("changed");
    EXPECT_EQ(taken->getParent(), nullptr);
    EXPECT_EQ(childKeys(*composite), QStringList("K1"));
    // The record of the taking, sent from within, comes first.
    EXPECT_EQ(later.allFlags(), QList<int>({Kp::NotifyChildren, Kp::NotifyConfig}));
    taken->setLabel("again");
    EXPECT_EQ(later.records.size(), 2);
}

TEST(KpcAComposite, SurvivesThatItIsDestroyedByAnObserverOfAChild)
{
    TestComposite* composite = compositeOf(2).release();
    ActingObserver observer(*composite->getChild("K0"), [&] { delete composite; });
    RecordingObserver later(*composite->getChild("K0"));
    composite->getChild("K0")->setLabel("changed");
    EXPECT_TRUE(later.records.isEmpty());
    EXPECT_EQ(later.deaths, 1);
}

TEST(KpcAComposite, SurvivesThatItIsDestroyedByAnObserverOfItsOwn)
{
    TestComposite* composite = compositeOf(2).release();
    ActingObserver observer(*composite, [&] { delete composite; });
    RecordingObserver ofChild(*composite->getChild("K0"));
    composite->getChild("K0")->setLabel("changed");
    EXPECT_EQ(ofChild.deaths, 1);
}

TEST(KpcAComposite, SurvivesThatItIsDestroyedInADeepNotification)
{
    TestComposite root("ROOT");
    root.appendChild(compositeOf(3).release());
    ActingObserver observer(*root.getChild("C")->getChild("K1"), [&] { root.deleteAll(); });
    RecordingObserver ofRoot(root);
    root.setEnabled(false);
    EXPECT_EQ(root.getChildCount(), 0);
    ASSERT_EQ(ofRoot.records.size(), 1);
    EXPECT_EQ(ofRoot.flagsOf(root), Kp::NotifyConfig | Kp::NotifyChildren);
}

TEST(KpcAComposite, SurvivesThatADyingChildTakesItsSiblingsAlong)
{
    const auto composite = compositeOf(20);
    ActingObserver observer(*composite->getChild("K0"), {}, [&] {
        for (const QString key : {"K1", "K19"})
            delete composite->getChild(key);
    });
    composite->deleteAll();
    EXPECT_EQ(composite->getChildCount(), 0);
}

TEST(KpcAComposite, LeavesAChildAliveThatIsTakenWhileAllAreDeleted)
{
    const auto composite = compositeOf(3);
    std::unique_ptr<KpbAParameter> taken;
    ActingObserver observer(*composite->getChild("K0"), {}, [&] { taken.reset(composite->takeChild("K2")); });
    composite->deleteAll();
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->getKey(), "K2");
    EXPECT_EQ(composite->getChildCount(), 0);
}

TEST(KpcAComposite, DeletesAChildThatArrivesWhileAllAreDeleted)
{
    const auto composite = compositeOf(3);
    ActingObserver observer(*composite->getChild("K2"), {},
                            [&] { composite->appendChild(new CountedParameter("NEW")); });
    composite->deleteAll();
    EXPECT_EQ(composite->getChildCount(), 0);
    EXPECT_EQ(CountedParameter::living, 0);
}

TEST(KpcAComposite, SurvivesThatItIsDestroyedWhileChildrenAreDeleted)
{
    using Deletion = void (*)(TestComposite&);
    for (const Deletion deletion :
         {Deletion([](TestComposite& c) { c.deleteAll(); }), Deletion([](TestComposite& c) { c.deleteChild("K0"); })})
    {
        TestComposite* composite = compositeOf(3).release();
        RecordingObserver ofComposite(*composite);
        ActingObserver observer(*composite->getChild("K0"), {}, [&] { delete composite; });
        deletion(*composite);
        EXPECT_EQ(ofComposite.deaths, 1);
        EXPECT_TRUE(ofComposite.records.isEmpty());
    }
}

TEST(KpcAComposite, OutlivesAChildThatStandsInTwoComposites)
{
    TestComposite first("FIRST");
    auto second = std::make_unique<TestComposite>("SECOND");
    KpaInteger* child = addInteger(first, "A");
    second->appendChild(child);
    EXPECT_EQ(child->getParent(), second.get());
    second.reset();
    EXPECT_EQ(first.getChildCount(), 0);
}

TEST(KpcAComposite, StaysInOrderWhileChildrenComeAndGoAtRandom)
{
    std::mt19937 random(7);
    TestComposite composite("C");
    QStringList expected;
    for (int step = 0; step < 4000; ++step) {
        const bool grows = step < 1500 || (step > 3000 && step < 3500);
        if (expected.isEmpty() || random() % 100 < (grows ? 70u : 25u)) {
            const QString key = QStringLiteral("K%1").arg(step);
            addInteger(composite, key);
            expected.append(key);
        }
        else {
            const int index = int(random() % unsigned(expected.size()));
            ASSERT_EQ(composite.getChild(index)->getKey(), expected.at(index));
            const QString key = expected.takeAt(index);
            if (random() % 2)
                delete composite.getChild(key);
            else
                composite.deleteChild(key);
            ASSERT_EQ(composite.getChild(key), nullptr);
        }
        ASSERT_EQ(composite.getChildCount(), expected.size());
        ASSERT_TRUE(step % 50 != 0 || childKeys(composite) == expected) << step;
    }
    EXPECT_EQ(childKeys(composite), expected);
}

TEST(KpcAComposite, IsLeftByManyChildrenInTimeInProportion)
{
    constexpr int Count = 50000;
    using Order = void (*)(QVector<KpbAParameter*>&);
    for (const Order order :
         {Order([](QVector<KpbAParameter*>&) {}),
          Order([](QVector<KpbAParameter*>& all) { std::reverse(all.begin(), all.end()); }),
          Order([](QVector<KpbAParameter*>& all) { std::shuffle(all.begin(), all.end(), std::mt19937(3)); })})
    {
        const auto composite = compositeOf(Count);
        QVector<KpbAParameter*> all;
        for (int i = 0; i < Count; ++i)
            all.append(composite->getChild(i));
        order(all);
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < Count; ++i) {
            delete all.at(i);
            ASSERT_EQ(composite->getChildCount(), Count - i - 1);
            ASSERT_TRUE(i == Count - 1 || composite->getChild((Count - i - 1) / 2));
        }
        EXPECT_LT(timer.elapsed(), 5000);
    }
}
