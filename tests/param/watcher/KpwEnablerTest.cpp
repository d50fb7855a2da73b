#include "../composite/CompositeTestTools.h"

#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcGroup.h>
#include <param/watcher/KpwEnabler.h>

#include <support/RecordingObserver.h>

namespace {

struct Switched
{
    KpaBool source{"SOURCE"};
    KpaInteger target{"TARGET"};
};

} // namespace

TEST(KpwEnabler, BringsATargetToTheStateOfTheSourceAtOnce)
{
    Switched s;
    s.source.setValue(false);
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, &s.target));
    EXPECT_FALSE(s.target.getEnabledFlag());
}

TEST(KpwEnabler, FollowsItsSource)
{
    Switched s;
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, &s.target));
    EXPECT_TRUE(s.target.getEnabledFlag());
    s.source.setValue(false);
    EXPECT_FALSE(s.target.getEnabledFlag());
    s.source.setValue(true);
    EXPECT_TRUE(s.target.getEnabledFlag());
}

TEST(KpwEnabler, IgnoresTheConfigurationOfItsSource)
{
    Switched s;
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, &s.target));
    s.target.setEnabled(false);
    s.source.setLabel("changed");
    EXPECT_FALSE(s.target.getEnabledFlag());
}

TEST(KpwEnabler, EnablesWithoutASourceUnlessItIsInverted)
{
    KpaInteger target("T");
    target.setEnabled(false);
    KpwEnabler enabler;
    enabler.addParameter(&target);
    EXPECT_TRUE(target.getEnabledFlag());
    enabler.setInverted(true);
    EXPECT_FALSE(target.getEnabledFlag());
    enabler.setInverted(true);
    EXPECT_FALSE(target.getEnabledFlag());
    enabler.setInverted(false);
    EXPECT_TRUE(target.getEnabledFlag());
}

TEST(KpwEnabler, InvertsItsSource)
{
    Switched s;
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, &s.target));
    enabler->setInverted(true);
    EXPECT_FALSE(s.target.getEnabledFlag());
    s.source.setValue(false);
    EXPECT_TRUE(s.target.getEnabledFlag());
}

TEST(KpwEnabler, AppliesItsStateOnlyWhenItIsInvertedAnew)
{
    KpaInteger target("T");
    KpwEnabler enabler;
    enabler.addParameter(&target);
    target.setEnabled(false);
    enabler.setInverted(false);
    EXPECT_FALSE(target.getEnabledFlag());
}

TEST(KpwEnabler, ChangesItsSource)
{
    Switched s;
    KpaBool other("OTHER");
    other.setValue(false);
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, &s.target));
    enabler->setSource(&other);
    EXPECT_FALSE(s.target.getEnabledFlag());
    s.source.setValue(false);
    s.source.setValue(true);
    EXPECT_FALSE(s.target.getEnabledFlag());
    other.setValue(true);
    EXPECT_TRUE(s.target.getEnabledFlag());
    enabler->setInverted(true);
    enabler->setSource(nullptr);
    EXPECT_FALSE(s.target.getEnabledFlag());
}

TEST(KpwEnabler, IgnoresANullTarget)
{
    KpwEnabler enabler;
    enabler.addParameter(nullptr);
    enabler.setInverted(true);
}

TEST(KpwEnabler, LeavesARemovedTargetAsItIs)
{
    Switched s;
    KpaInteger kept("KEPT");
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, &s.target));
    enabler->addParameter(&kept);
    s.source.setValue(false);
    enabler->removeParameter(&s.target);
    EXPECT_FALSE(s.target.getEnabledFlag());
    s.source.setValue(true);
    EXPECT_FALSE(s.target.getEnabledFlag());
    EXPECT_TRUE(kept.getEnabledFlag());
    enabler->removeAllParameters();
    s.source.setValue(false);
    EXPECT_TRUE(kept.getEnabledFlag());
}

TEST(KpwEnabler, OutlivesItsTargets)
{
    Switched s;
    auto dying = std::make_unique<KpaInteger>("DYING");
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, dying.get()));
    enabler->addParameter(&s.target);
    dying.reset();
    s.source.setValue(false);
    EXPECT_FALSE(s.target.getEnabledFlag());
}

TEST(KpwEnabler, HasNoSourceOnceThatIsDead)
{
    KpaInteger target("T");
    auto source = std::make_unique<KpaBool>("S");
    source->setValue(false);
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(source.get(), &target));
    source.reset();
    EXPECT_FALSE(target.getEnabledFlag());
    enabler->setInverted(true);
    EXPECT_FALSE(target.getEnabledFlag());
    enabler->setInverted(false);
    EXPECT_TRUE(target.getEnabledFlag());
}

TEST(KpwEnabler, HasNoSourceOnceThatDiedUnobserved)
{
    KpaInteger target("T");
    auto source = std::make_unique<KpaBool>("S");
    source->setValue(false);
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(source.get(), &target));
    enabler->clear();
    source.reset();
    enabler->setInverted(true);
    EXPECT_FALSE(target.getEnabledFlag());
}

TEST(KpwEnabler, DoesNotCatchUpOnWhatHappenedWhileItWasLocked)
{
    Switched s;
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, &s.target));
    enabler->lock(true);
    s.source.setValue(false);
    enabler->lock(false);
    EXPECT_TRUE(s.target.getEnabledFlag());
}

TEST(KpwEnabler, ChangesAllTargetsBeforeItTellsOfTheFirst)
{
    Switched s;
    KpaInteger second("SECOND");
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, &s.target));
    enabler->addParameter(&second);
    QStringList order;
    ActingObserver ofFirst(s.target, [&] { order.append(second.getEnabledFlag() ? "too early" : "first"); });
    ActingObserver ofSecond(second, [&] { order.append("second"); });
    s.source.setValue(false);
    EXPECT_EQ(order, QStringList({"first", "second"}));
}

TEST(KpwEnabler, SendsOneRecordPerTarget)
{
    Switched s;
    KpcGroup group("G", TestContext::instance());
    group.addChild(new KpaInteger("A"));
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, &group));
    RecordingObserver observer(group);
    s.source.setValue(false);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(group), Kp::NotifyConfig);
    EXPECT_EQ(observer.flagsOf(*group.getChild("A")), Kp::NotifyConfig);
}

TEST(KpwEnabler, SurvivesThatATargetIsDeletedOrRemovedMeanwhile)
{
    Switched s;
    KpcGroup group("G", TestContext::instance());
    group.addChild(new KpaInteger("A"));
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, &s.target));
    enabler->addParameter(group.getChild("A"));
    ActingObserver observer(s.target, [&] {
        group.clear();
        enabler->removeAllParameters();
    });
    s.source.setValue(false);
    EXPECT_FALSE(s.target.getEnabledFlag());
    EXPECT_FALSE(group.hasChildren());
}

TEST(KpwEnabler, SurvivesThatItIsDestroyedByAnObserverOfATarget)
{
    Switched s;
    KpwEnabler* enabler = KpwEnabler::watch(&s.source, &s.target);
    KpaInteger second("SECOND");
    enabler->addParameter(&second);
    ActingObserver observer(s.target, [&] { delete enabler; });
    s.source.setValue(false);
    EXPECT_FALSE(second.getEnabledFlag());
}

TEST(KpwEnabler, TellsOnceOfATargetThatWasAddedTwiceAndLeavesItFree)
{
    Switched s;
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(&s.source, &s.target));
    enabler->addParameter(&s.target);
    RecordingObserver observer(s.target);
    s.source.setValue(false);
    EXPECT_EQ(observer.allFlags(), QList<int>{Kp::NotifyConfig});
    EXPECT_FALSE(s.target.isLocked());
    s.target.setLabel("changed");
    EXPECT_EQ(observer.records.size(), 2);
    enabler->removeParameter(&s.target);
    s.source.setValue(true);
    EXPECT_FALSE(s.target.getEnabledFlag());
}

TEST(KpwEnabler, DoesNotFollowASourceOutsideItsGroup)
{
    KpcGroup group("G", TestContext::instance());
    auto* source = new KpaBool("SOURCE");
    auto* target = new KpaInteger("TARGET");
    group.addChild(source);
    group.addChild(target);
    KpwEnabler* enabler = KpwEnabler::watch(source, target);
    group.registerWatcher(1, enabler);
    KpaBool elsewhere("ELSEWHERE");
    elsewhere.setValue(false);
    EXPECT_TRUE(messageOf<MbeProgrammingError>([&] {
                    enabler->setSource(&elsewhere);
                }).endsWith("\n\nparent group is not ancestor of added parameter."));
    EXPECT_TRUE(target->getEnabledFlag());
    elsewhere.setValue(true);
    source->setValue(false);
    EXPECT_TRUE(target->getEnabledFlag());
}

TEST(KpwEnabler, SurvivesThatItsSourceIsDestroyedByAnObserverOfATarget)
{
    KpcGroup group("G", TestContext::instance());
    auto* source = new KpaBool("SOURCE");
    group.addChild(source);
    KpaInteger first("FIRST");
    KpaInteger second("SECOND");
    const std::unique_ptr<KpwEnabler> enabler(KpwEnabler::watch(source, &first));
    enabler->addParameter(&second);
    ActingObserver observer(first, [&] { group.clear(); });
    source->setValue(false);
    EXPECT_FALSE(group.hasChildren());
    EXPECT_FALSE(second.getEnabledFlag());
    enabler->setInverted(true);
    enabler->setInverted(false);
    EXPECT_TRUE(second.getEnabledFlag());
}

TEST(KpwEnabler, TogglesTheParametersOfTheGroupThatItWasCopiedTo)
{
    KpcGroup group("G", TestContext::instance());
    auto* source = new KpaBool("SOURCE");
    auto* target = new KpaInteger("TARGET");
    group.addChild(source);
    group.addChild(target);
    KpwEnabler* enabler = KpwEnabler::watch(source, target);
    enabler->setInverted(true);
    group.registerWatcher(1, enabler);
    const std::unique_ptr<KpcGroup> copy(group.duplicate("H"));
    EXPECT_FALSE(copy->getChild("TARGET")->getEnabledFlag());
    dynamic_cast<KpaBool&>(*copy->getChild("SOURCE")).setValue(false);
    EXPECT_TRUE(copy->getChild("TARGET")->getEnabledFlag());
    EXPECT_FALSE(target->getEnabledFlag());
    source->setValue(false);
    EXPECT_TRUE(target->getEnabledFlag());
}

TEST(KpwEnabler, IsCopiedWithoutASourceAndWithoutDeadTargets)
{
    KpcGroup group("G", TestContext::instance());
    for (const QString key : {"A", "B"})
        group.addChild(new KpaInteger(key));
    auto* enabler = new KpwEnabler;
    enabler->addParameter(group.getChild("A"));
    enabler->addParameter(group.getChild("B"));
    group.registerWatcher(1, enabler);
    group.deleteParameter("A");
    const std::unique_ptr<KpcGroup> copy(group.duplicate("H"));
    const std::unique_ptr<KpwEnabler> second(enabler->duplicate(copy.get()));
    second->setInverted(true);
    EXPECT_FALSE(copy->getChild("B")->getEnabledFlag());
    EXPECT_TRUE(group.getChild("B")->getEnabledFlag());
}

TEST(KpwEnabler, CannotBeCopiedWithATargetOutsideItsGroup)
{
    KpcGroup group("G", TestContext::instance());
    KpaInteger elsewhere("ELSEWHERE");
    auto* source = new KpaBool("SOURCE");
    group.addChild(source);
    group.registerWatcher(1, KpwEnabler::watch(source, &elsewhere));
    EXPECT_TRUE(messageOf<MbeProgrammingError>([&] {
                    group.duplicate("H");
                }).endsWith("\n\nCannot duplicate child (ELSEWHERE) when not child of parent group (H)"));
}
