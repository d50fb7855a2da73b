#include "../composite/CompositeTestTools.h"

#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcGroup.h>
#include <param/watcher/KpwTrigger.h>

#include <support/RecordedMessages.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>

namespace {

struct Watched
{
    KpaInteger parameter{"P"};
    QObject context;
    int slotCalls = 0;
    KpwTrigger::Slot slot = [this] { ++slotCalls; };
};

} // namespace

TEST(KpwTrigger, EmitsASignalWhenAWatchedParameterChanges)
{
    Watched w;
    KpwTrigger trigger;
    trigger.addWatch(&w.parameter, Kp::NotifyValue);
    int signals = 0;
    QObject::connect(&trigger, &KpwTrigger::triggered, [&] { ++signals; });
    w.parameter.setValue(1);
    w.parameter.setLabel("changed");
    EXPECT_EQ(signals, 1);
    trigger.removeWatch(&w.parameter);
    w.parameter.setValue(2);
    EXPECT_EQ(signals, 1);
}

TEST(KpwTrigger, CallsItsSlotAtOnceOnTheSameThread)
{
    Watched w;
    for (const QObject* context : {static_cast<const QObject*>(&w.context), static_cast<const QObject*>(nullptr)}) {
        const std::unique_ptr<KpwTrigger> trigger(KpwTrigger::watch(&w.parameter, Kp::NotifyValue, w.slot, context));
        EXPECT_EQ(trigger->parent(), nullptr);
        w.slotCalls = 0;
        w.parameter.setValue(w.parameter.getValue() + 1);
        EXPECT_EQ(w.slotCalls, 1);
        w.parameter.setLabel(w.parameter.getLabel() + "+");
        EXPECT_EQ(w.slotCalls, 1);
    }
}

TEST(KpwTrigger, CallsItsSlotLaterOnTheThreadOfTheContext)
{
    Watched w;
    QThread thread;
    auto* context = new QObject;
    context->moveToThread(&thread);
    QThread* calledOn = nullptr;
    const std::unique_ptr<KpwTrigger> trigger(KpwTrigger::watch(
        &w.parameter, Kp::NotifyValue,
        [&] {
            calledOn = QThread::currentThread();
            QThread::currentThread()->quit();
        },
        context));
    w.parameter.setValue(1);
    EXPECT_EQ(calledOn, nullptr);
    thread.start();
    ASSERT_TRUE(thread.wait(10000));
    EXPECT_EQ(calledOn, &thread);
    delete context;
}

TEST(KpwTrigger, CallsNothingForADeadContext)
{
    Watched w;
    auto context = std::make_unique<QObject>();
    const std::unique_ptr<KpwTrigger> trigger(KpwTrigger::watch(&w.parameter, Kp::NotifyValue, w.slot, context.get()));
    context.reset();
    w.parameter.setValue(1);
    EXPECT_EQ(w.slotCalls, 0);
}

TEST(KpwTrigger, ReplacesItsSlot)
{
    Watched w;
    const std::unique_ptr<KpwTrigger> trigger(KpwTrigger::watch(&w.parameter, Kp::NotifyValue, w.slot, nullptr));
    int others = 0;
    trigger->setSlot([&] { ++others; }, &w.context);
    w.parameter.setValue(1);
    EXPECT_EQ(w.slotCalls, 0);
    EXPECT_EQ(others, 1);
    trigger->setSlot({}, nullptr);
    w.parameter.setValue(2);
    EXPECT_EQ(others, 1);
}

TEST(KpwTrigger, WatchesOnlyTheParameterThatItWasResetTo)
{
    Watched w;
    KpaInteger other("OTHER");
    const std::unique_ptr<KpwTrigger> trigger(KpwTrigger::watch(&w.parameter, Kp::NotifyValue, w.slot, nullptr));
    trigger->resetWatch(&other, Kp::NotifyConfig, w.slot, nullptr);
    w.parameter.setValue(1);
    other.setValue(1);
    EXPECT_EQ(w.slotCalls, 0);
    other.setLabel("changed");
    EXPECT_EQ(w.slotCalls, 1);
}

TEST(KpwTrigger, BelongsToItsQtParent)
{
    Watched w;
    {
        QObject parent;
        auto* trigger = new KpwTrigger(&parent);
        EXPECT_EQ(trigger->parent(), &parent);
        trigger->resetWatch(&w.parameter, Kp::NotifyValue, w.slot, nullptr);
        w.parameter.setValue(1);
    }
    w.parameter.setValue(2);
    EXPECT_EQ(w.slotCalls, 1);
}

TEST(KpwTrigger, IsSilentWhileItIsLocked)
{
    Watched w;
    const std::unique_ptr<KpwTrigger> trigger(KpwTrigger::watch(&w.parameter, Kp::NotifyValue, w.slot, nullptr));
    trigger->lock(true);
    w.parameter.setValue(1);
    trigger->lock(false);
    EXPECT_EQ(w.slotCalls, 0);
}

namespace {

/// A group with the parameter P and a trigger on it.
struct TriggeredGroup
{
    TriggeredGroup(const KpwTrigger::Slot& slot, const QObject* context)
    {
        group.addChild(parameter);
        trigger = KpwTrigger::watch(parameter, Kp::NotifyValue, slot, context);
        group.registerWatcher(1, trigger);
    }

    KpcGroup group{"G", TestContext::instance()};
    KpaInteger* parameter = new KpaInteger("P");
    KpwTrigger* trigger = nullptr;
};

void change(const KpcGroup& group)
{
    auto& parameter = dynamic_cast<KpaInteger&>(*group.getChild("P"));
    parameter.setValue(parameter.getValue() + 1);
}

} // namespace

TEST(KpwTrigger, HasTheSameSlotAndContextInACopy)
{
    Watched w;
    auto context = std::make_unique<QObject>();
    const TriggeredGroup source(w.slot, context.get());
    const std::unique_ptr<KpcGroup> copy(source.group.duplicate("H"));
    change(*copy);
    EXPECT_EQ(w.slotCalls, 1);
    change(source.group);
    EXPECT_EQ(w.slotCalls, 2);
    context.reset();
    change(*copy);
    EXPECT_EQ(w.slotCalls, 2);
}

TEST(KpwTrigger, CallsNothingInACopyWhoseContextIsDead)
{
    Watched w;
    auto context = std::make_unique<QObject>();
    const TriggeredGroup source(w.slot, context.get());
    context.reset();
    const std::unique_ptr<KpcGroup> copy(source.group.duplicate("H"));
    const std::unique_ptr<KpcGroup> second(copy->duplicate("I"));
    change(*copy);
    change(*second);
    EXPECT_EQ(w.slotCalls, 0);
}

TEST(KpwTrigger, HasNoQtParentInACopy)
{
    Watched w;
    const TriggeredGroup source(w.slot, nullptr);
    const std::unique_ptr<KpcGroup> newParent(source.group.duplicate("H"));
    const std::unique_ptr<KpwTrigger> copy(source.trigger->duplicate(newParent.get()));
    EXPECT_EQ(copy->parent(), nullptr);
    EXPECT_EQ(copy->getParentGroup(), newParent.get());
    w.slotCalls = 0;
    change(*newParent); // the group's own copy and this one
    EXPECT_EQ(w.slotCalls, 2);
}

TEST(KpwTrigger, SurvivesThatItsSlotDestroysOrReplacesIt)
{
    KpaInteger parameter("P");
    KpwTrigger* trigger = nullptr;
    int calls = 0;
    trigger = KpwTrigger::watch(
        &parameter, Kp::NotifyValue,
        [&] {
            ++calls;
            trigger->setSlot([&] { delete trigger; }, nullptr);
        },
        nullptr);
    parameter.setValue(1);
    parameter.setValue(2);
    parameter.setValue(3);
    EXPECT_EQ(calls, 1);
}

TEST(KpwTrigger, TurnsAFailureOfItsSlotIntoAWarning)
{
    Watched w;
    const std::unique_ptr<KpwTrigger> trigger(KpwTrigger::watch(
        &w.parameter, Kp::NotifyValue, [] { throw MbeUserError("no"); }, &w.context));
    const RecordedMessages messages;
    w.parameter.setValue(1);
    EXPECT_EQ(messages.warnings.size(), 1);
    w.parameter.setValue(2);
    EXPECT_EQ(messages.warnings.size(), 2);
}
