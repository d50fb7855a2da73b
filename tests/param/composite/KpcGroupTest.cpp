#include "CompositeTestTools.h"

#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcBasicFiche.h>
#include <param/composite/KpcGroup.h>
#include <param/composite/KpcGroupValueDelegate.h>
#include <param/watcher/KpwAWatcher.h>

#include <support/RecordingObserver.h>

namespace {

enum Id
{
    Size = 1,
    Count = 2,
    Inner = 3,
    NoId = -999
};

const QString parameterContext = "Failed to register parameter\n";
const QString watcherContext = "Failed to register watcher\n";

std::unique_ptr<KpcGroup> makeGroup(const QString& key = "G")
{
    return std::make_unique<KpcGroup>(key, TestContext::instance());
}

KpaInteger* addInteger(KpcGroup& group, const QString& key)
{
    auto* child = new KpaInteger(key);
    group.addChild(child);
    return child;
}

class NamingDelegate : public KpcGroupValueDelegate
{
public:
    explicit NamingDelegate(const QString& name) : _name(name) { ++living; }
    NamingDelegate(const NamingDelegate& other) : KpcGroupValueDelegate(other), _name(other._name) { ++living; }
    ~NamingDelegate() override { --living; }
    QString toString(const KpcGroup* group) const override { return _name + ":" + group->getKey(); }
    NamingDelegate* duplicate() const override { return new NamingDelegate(*this); }

    static int living;

private:
    QString _name;
};

int NamingDelegate::living = 0;

/// Writes down what becomes of it.
class DiaryWatcher : public KpwAWatcher
{
public:
    DiaryWatcher(const QString& name, QStringList& diary) : _name(name), _diary(diary) {}
    DiaryWatcher(const DiaryWatcher& other, const KpcGroup* newParent)
        : KpwAWatcher(other, newParent),
          _name(other._name),
          _diary(other._diary)
    {}
    ~DiaryWatcher() override { _diary.append("end " + _name); }
    DiaryWatcher* duplicate(const KpcGroup* newParent) const override
    {
        _diary.append("copy " + _name);
        return new DiaryWatcher(*this, newParent);
    }
    using KpwAWatcher::_registerTrigger;

protected:
    void _trigger(const KpnModif&) override { _diary.append("called " + _name); }

private:
    QString _name;
    QStringList& _diary;
};

} // namespace

TEST(KpcGroup, IsAnEmptyGroupAtFirst)
{
    const auto group = makeGroup();
    EXPECT_TRUE(group->isA(KpbEType::GROUP));
    EXPECT_EQ(group->getChildCount(), 0);
    EXPECT_EQ(group->toString(), "");
}

TEST(KpcGroup, LetsCallersAddTakeAndDelete)
{
    const auto group = makeGroup();
    RecordingObserver observer(*group);
    for (const QString key : {"A", "B", "C", "D"})
        addInteger(*group, key);
    group->deleteParameter("B");
    const std::unique_ptr<KpbAParameter> taken(group->takeParameter("A"));
    EXPECT_EQ(taken->getKey(), "A");
    EXPECT_EQ(childKeys(*group), QStringList({"C", "D"}));
    group->clear();
    EXPECT_FALSE(group->hasChildren());
    EXPECT_EQ(observer.allFlags(), QList<int>({4, 4, 4, 4, 4, 4, 4}));
}

TEST(KpcGroup, FailsToTakeAndToDeleteAnUnknownKey)
{
    const auto group = makeGroup();
    EXPECT_TRUE(messageOf<MbeProgrammingError>([&] {
                    group->deleteParameter("X");
                }).endsWith("\n\nKey 'X' doesn't exist in parameter 'G'."));
    EXPECT_TRUE(messageOf<MbeProgrammingError>([&] {
                    group->takeParameter("X");
                }).endsWith("\n\nKey 'X' doesn't exist in parameter 'G'."));
}

TEST(KpcGroup, FindsARegisteredChild)
{
    const auto group = makeGroup();
    auto* size = new KpaInteger("SIZE");
    group->registerChild(Size, size);
    EXPECT_EQ(group->getChild("SIZE"), size);
    EXPECT_EQ(group->getRegistered(Size), size);
    EXPECT_TRUE(group->isRegistered(size));
}

TEST(KpcGroup, GivesNullForAnUnknownNumber)
{
    EXPECT_EQ(makeGroup()->getRegistered(Size), nullptr);
}

TEST(KpcGroup, GivesNullForARegisteredParameterThatIsGone)
{
    const auto group = makeGroup();
    group->registerChild(Size, new KpaInteger("SIZE"));
    group->clear();
    EXPECT_EQ(group->getRegistered(Size), nullptr);
    EXPECT_TRUE(messageOf<MbeError>([&] {
                    group->registerParam(Size, addInteger(*group, "OTHER"));
                }).endsWith("Parameter ID 1 already registered."));
}

TEST(KpcGroup, FindsAParameterThatComesBackUnderItsKey)
{
    const auto group = makeGroup();
    group->registerChild(Size, new KpaInteger("SIZE"));
    group->clear();
    KpaInteger* again = addInteger(*group, "SIZE");
    EXPECT_EQ(group->getRegistered(Size), again);
}

TEST(KpcGroup, RefusesToRegisterAChildOfSomebodyElse)
{
    const auto group = makeGroup();
    const auto other = makeGroup("OTHER");
    KpaInteger* child = addInteger(*other, "A");
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { group->registerChild(Size, child); }),
              "KpcGroup::registerChild: parameter candidate already has a parent\n(parameter=A).\n"
              "Use the method registerParam() instead.");
    EXPECT_EQ(child->getParent(), other.get());
    EXPECT_FALSE(group->hasChildren());
}

TEST(KpcGroup, RefusesToRegisterANullChildAsItRefusesToAppendIt)
{
    const auto group = makeGroup();
    EXPECT_EQ(messageOf<MbeError>([&] { group->registerChild(Size, nullptr); }),
              "KpcAComposite::appendChild() (parameter='G':\nchild is NULL");
}

TEST(KpcGroup, KeepsAChildWhoseRegistrationFails)
{
    const auto group = makeGroup();
    group->registerChild(Size, new KpaInteger("SIZE"));
    auto* count = new KpaInteger("COUNT");
    EXPECT_EQ(messageOf<MbeError>([&] { group->registerChild(Size, count); }),
              parameterContext + "Parameter ID 1 already registered.");
    EXPECT_EQ(group->getChild("COUNT"), count);
    EXPECT_FALSE(group->isRegistered(count));
}

TEST(KpcGroup, FailsToRegisterAChildThatAnObserverDestroysOrTakesAtOnce)
{
    const auto group = makeGroup();
    std::unique_ptr<KpbAParameter> taken;
    ActingObserver::Action action = [&] { delete group->getChild("A"); };
    ActingObserver observer(*group, [&] { action(); });
    EXPECT_EQ(messageOf<MbeError>([&] { group->registerChild(Size, new KpaInteger("A")); }),
              parameterContext + "Parameter is null.");
    EXPECT_FALSE(group->hasChildren());
    action = [&] {
        if (group->getChild("A"))
            taken.reset(group->takeParameter("A"));
    };
    EXPECT_EQ(messageOf<MbeError>([&] { group->registerChild(Size, new KpaInteger("A")); }),
              parameterContext + "Parameter ID 'A' is not a child of the group.");
    EXPECT_EQ(taken->getParent(), nullptr);
    EXPECT_EQ(group->getRegistered(Size), nullptr);
}

TEST(KpcGroup, SurvivesThatItIsDestroyedWhileAChildIsRegistered)
{
    auto group = makeGroup();
    ActingObserver observer(*group, [&] { group.reset(); });
    group->registerChild(Size, new KpaInteger("A"));
    EXPECT_EQ(group, nullptr);
}

TEST(KpcGroup, IsForgottenByGuardedPointersWhenItEnds)
{
    auto group = makeGroup();
    const KuoPointer<KpcGroup> pointer(group.get());
    EXPECT_EQ(pointer.get(), group.get());
    group.reset();
    EXPECT_EQ(pointer.get(), nullptr);
}

TEST(KpcGroup, RefusesANumberInUseAlsoForTheSameParameter)
{
    const auto group = makeGroup();
    auto* size = new KpaInteger("SIZE");
    group->registerChild(Size, size);
    EXPECT_EQ(messageOf<MbeError>([&] { group->registerParam(Size, size); }),
              parameterContext + "Parameter ID 1 already registered.");
    EXPECT_EQ(messageOf<MbeError>([&] { group->registerParam(Size, nullptr); }),
              parameterContext + "Parameter ID 1 already registered.");
}

TEST(KpcGroup, RefusesToRegisterNull)
{
    EXPECT_EQ(messageOf<MbeError>([] { makeGroup()->registerParam(Size, nullptr); }),
              parameterContext + "Parameter is null.");
}

TEST(KpcGroup, RefusesToRegisterItselfAndWhatIsElsewhere)
{
    const auto group = makeGroup();
    EXPECT_EQ(messageOf<MbeError>([&] { group->registerParam(Size, group.get()); }),
              parameterContext + "Parameter ID 'G' is not a child of the group.");
    KpaInteger elsewhere("ELSEWHERE");
    EXPECT_EQ(messageOf<MbeError>([&] { group->registerParam(Size, &elsewhere); }),
              parameterContext + "Parameter ID 'ELSEWHERE' is not a child of the group.");
}

TEST(KpcGroup, RegistersAGrandchildForItselfAndForACopy)
{
    const auto group = makeGroup();
    auto* inner = makeGroup("INNER").release();
    group->addChild(inner);
    KpaInteger* leaf = addInteger(*inner, "LEAF");
    group->registerParam(Inner, leaf);
    EXPECT_EQ(group->getRegistered(Inner), leaf);
    const std::unique_ptr<KpcGroup> copy(group->duplicate("COPY"));
    EXPECT_EQ(copy->getRegistered(Inner), copy->getChild("INNER")->getChild("LEAF"));
    EXPECT_NE(copy->getRegistered(Inner), nullptr);
    EXPECT_NE(copy->getRegistered(Inner), leaf);
    EXPECT_TRUE(copy->isRegistered(copy->getRegistered(Inner)));
}

TEST(KpcGroup, TellsWhetherAParameterOfTheTreeIsRegistered)
{
    const auto group = makeGroup();
    KpaInteger* child = addInteger(*group, "A");
    EXPECT_FALSE(group->isRegistered(child));
    EXPECT_FALSE(group->isRegistered(nullptr));
    group->registerParam(Count, child);
    EXPECT_TRUE(group->isRegistered(child));
}

TEST(KpcGroup, CountsAParameterRegisteredUnderTheMissingNumberAsNotRegistered)
{
    const auto group = makeGroup();
    auto* child = new KpaInteger("A");
    group->registerChild(NoId, child);
    EXPECT_FALSE(group->isRegistered(child));
    EXPECT_EQ(group->getRegistered(NoId), child);
    group->registerParam(Size, child); // -999 stays the first
    EXPECT_FALSE(group->isRegistered(child));
    group->registerParam(-1000, child);
    EXPECT_TRUE(group->isRegistered(child));
}

TEST(KpcGroup, TakesAllNumbersFromAParameter)
{
    const auto group = makeGroup();
    auto* child = new KpaInteger("A");
    group->registerChild(Size, child);
    group->registerParam(Count, child);
    group->registerChild(Inner, new KpaInteger("B"));
    group->unregisterParam(child);
    EXPECT_EQ(group->getRegistered(Size), nullptr);
    EXPECT_EQ(group->getRegistered(Count), nullptr);
    EXPECT_NE(group->getRegistered(Inner), nullptr);
    EXPECT_FALSE(group->isRegistered(child));
}

TEST(KpcGroup, TakesNoNumberFromAnUnregisteredParameter)
{
    const auto group = makeGroup();
    group->registerChild(Size, new KpaInteger("A"));
    group->unregisterParam(addInteger(*group, "B"));
    group->unregisterParam(nullptr);
    EXPECT_NE(group->getRegistered(Size), nullptr);
}

TEST(KpcGroup, ShowsTheTextOfItsDelegate)
{
    const auto group = makeGroup();
    group->setValueDelegate(new NamingDelegate("one"));
    EXPECT_EQ(group->toString(), "one:G");
    group->setValueDelegate(nullptr);
    EXPECT_EQ(group->toString(), "");
    EXPECT_EQ(NamingDelegate::living, 0);
}

TEST(KpcGroup, KeepsItsPresentDelegateAndDestroysAFormerOne)
{
    {
        const auto group = makeGroup();
        auto* one = new NamingDelegate("one");
        group->setValueDelegate(one);
        group->setValueDelegate(one);
        EXPECT_EQ(NamingDelegate::living, 1);
        group->setValueDelegate(new NamingDelegate("two"));
        EXPECT_EQ(NamingDelegate::living, 1);
        EXPECT_EQ(group->toString(), "two:G");
    }
    EXPECT_EQ(NamingDelegate::living, 0);
}

TEST(KpcGroup, GivesACopyADelegateOfItsOwn)
{
    auto group = makeGroup();
    group->setValueDelegate(new NamingDelegate("one"));
    const std::unique_ptr<KpcGroup> copy(group->duplicate("COPY"));
    EXPECT_EQ(NamingDelegate::living, 2);
    group.reset();
    EXPECT_EQ(copy->toString(), "one:COPY");
}

TEST(KpcGroup, CopiesItsWatchersInOrderOfTheirNumbers)
{
    QStringList diary;
    auto group = makeGroup();
    group->registerWatcher(2, new DiaryWatcher("two", diary));
    group->registerWatcher(-1, new DiaryWatcher("minus one", diary));
    const std::unique_ptr<KpcGroup> copy(group->duplicate("COPY"));
    EXPECT_EQ(diary, QStringList({"copy minus one", "copy two"}));
    auto* again = new DiaryWatcher("again", diary);
    EXPECT_EQ(messageOf<MbeError>([&] { copy->registerWatcher(2, again); }),
              watcherContext + "Watcher ID 2 already registered.");
    delete again;
}

TEST(KpcGroup, DestroysItsWatchersInOrderWhileTheirTargetsLive)
{
    QStringList diary;
    auto group = makeGroup();
    KpaInteger* child = addInteger(*group, "A");
    ActingObserver ofChild(*child, {}, [&] { diary.append("end of child"); });
    for (const int id : {3, 1, 2}) {
        auto* watcher = new DiaryWatcher(QString::number(id), diary);
        watcher->_registerTrigger(child, Kp::NotifyValue);
        group->registerWatcher(id, watcher);
    }
    group->setValueDelegate(new NamingDelegate("one"));
    group.reset();
    EXPECT_EQ(diary, QStringList({"end 1", "end 2", "end 3", "end of child"}));
    EXPECT_EQ(NamingDelegate::living, 0);
}

TEST(KpcGroup, TellsAWatcherItsGroup)
{
    QStringList diary;
    const auto group = makeGroup();
    auto* watcher = new DiaryWatcher("w", diary);
    EXPECT_EQ(watcher->getParentGroup(), nullptr);
    group->registerWatcher(1, watcher);
    EXPECT_EQ(watcher->getParentGroup(), group.get());
}

TEST(KpcGroup, RefusesANullWatcherAndANumberInUse)
{
    QStringList diary;
    const auto group = makeGroup();
    EXPECT_EQ(messageOf<MbeError>([&] { group->registerWatcher(1, nullptr); }), watcherContext + "Watcher is null.");
    group->registerWatcher(1, new DiaryWatcher("w", diary));
    EXPECT_EQ(messageOf<MbeError>([&] { group->registerWatcher(1, nullptr); }),
              watcherContext + "Watcher ID 1 already registered.");
}

TEST(KpcGroup, LeavesAWatcherOfSomethingElseWithTheCaller)
{
    QStringList diary;
    const auto group = makeGroup();
    KpaInteger elsewhere("ELSEWHERE");
    DiaryWatcher watcher("w", diary);
    watcher._registerTrigger(&elsewhere, Kp::NotifyValue);
    EXPECT_EQ(messageOf<MbeError>([&] { group->registerWatcher(1, &watcher); }),
              watcherContext +
                  "'void __cdecl KpwAWatcher::setParentGroup(const class KpcGroup *)' in file 'watcher\\KpwAWatcher' "
                  "failed:\n\ngroup is not ancestor of all lists.");
    EXPECT_EQ(watcher.getParentGroup(), nullptr);
    auto* other = new DiaryWatcher("other", diary);
    group->registerWatcher(1, other); // the number is free
    elsewhere.setValue(4);
    EXPECT_EQ(diary, QStringList("called w"));
}

TEST(KpcGroup, LeavesNothingBehindWhenAWatcherCannotBeCopied)
{
    QStringList diary;
    auto group = makeGroup();
    auto* watcher = new DiaryWatcher("one", diary);
    watcher->_registerTrigger(addInteger(*group, "A"), Kp::NotifyValue);
    group->registerWatcher(1, watcher);
    auto* lost = new DiaryWatcher("two", diary);
    KpaInteger* taken = addInteger(*group, "B");
    lost->_registerTrigger(taken, Kp::NotifyValue);
    group->registerWatcher(2, lost);
    const std::unique_ptr<KpbAParameter> elsewhere(group->takeParameter("B"));
    EXPECT_THROW(group->duplicate("COPY"), MbeProgrammingError);
    EXPECT_EQ(diary, QStringList({"copy one", "copy two", "end one"}));
}

TEST(KpcFiche, ShowsItsTask)
{
    const KpcFiche fiche("F", "kriging", TestContext::instance());
    EXPECT_TRUE(fiche.isA(KpbEType::FICHE));
    EXPECT_EQ(fiche.getKey(), "F");
    EXPECT_EQ(fiche.getTaskID(), "kriging");
    EXPECT_EQ(fiche.toString(), "kriging");
    EXPECT_EQ(fiche.getVersion(), 1);
}

TEST(KpcFiche, KeepsItsTaskAndItsChildrenInACopy)
{
    KpcFiche fiche("F", "kriging", TestContext::instance());
    fiche.registerChild(Size, new KpaInteger("SIZE"));
    const std::unique_ptr<KpcFiche> copy(fiche.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->toString(), "kriging");
    EXPECT_TRUE(copy->isA(KpbEType::FICHE));
    EXPECT_EQ(copy->getRegistered(Size), copy->getChild("SIZE"));
}

TEST(KpcFiche, ShowsItsTaskAlsoWithADelegate)
{
    KpcFiche fiche("F", "kriging", TestContext::instance());
    fiche.setValueDelegate(new NamingDelegate("one"));
    EXPECT_EQ(fiche.toString(), "kriging");
}

namespace {

class OpenBasicFiche : public KpcBasicFiche
{
public:
    using KpcBasicFiche::_getProject;
    using KpcBasicFiche::_getTransactable;
    using KpcBasicFiche::KpcBasicFiche;
};

} // namespace

TEST(KpcBasicFiche, SharesATransactionContextWithoutAProject)
{
    const OpenBasicFiche one("A", "task");
    const OpenBasicFiche two("B", "task");
    EXPECT_EQ(one._getProject(), nullptr);
    EXPECT_EQ(&one._getTransactable(), &two._getTransactable());
    EXPECT_TRUE(one.isA(KpbEType::FICHE));
    EXPECT_EQ(one.getTaskID(), "task");
}

TEST(KpcBasicFiche, IsCopiedAsWhatItIs)
{
    const KpcBasicFiche fiche("A", "task");
    const std::unique_ptr<KpcFiche> copy(static_cast<const KpcFiche&>(fiche).duplicate("B"));
    EXPECT_TRUE(dynamic_cast<KpcBasicFiche*>(copy.get()));
    EXPECT_EQ(copy->toString(), "task");
}
