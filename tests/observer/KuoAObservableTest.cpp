#include <observer/KuoAObservable.h>
#include <observer/KuoLock.h>
#include <observer/KuoLockObserver.h>
#include <support/RecordedMessages.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <typeinfo>
#include <vector>

namespace {

/// A record of another kind than the library's own: a list of words.
class Words : public KuoAObservableModif<Words>
{
public:
    Words() = default;
    Words(const char* word) : words{QString::fromLatin1(word)} {}
    int getNumberOfModif() const override { return words.size(); }
    const KuoAObservable<Words>* observable() const { return _getObservable(); }

    QStringList words;

private:
    void _merge(const Words& other) override { words += other.words; }
};

class Source : public KuoAObservable<Words>
{
public:
    Source() : KuoAObservable(QStringLiteral("ignored")) {}

    using KuoAObservable::_emptyBatch;
    using KuoAObservable::_notifyBatch;
};

class Listener : public KuoIObserver<Words>
{
public:
    ~Listener() override = default;
    void update(const Words& record) override
    {
        heard.append(record.words.join(QLatin1Char('+')));
        if (reaction)
            reaction(record);
    }
    void destroyed(const KuoAObservable<Words>* observable) override
    {
        destroyedBy = observable;
        if (onDestroyed)
            onDestroyed();
    }

    QStringList heard;
    std::function<void(const Words&)> reaction;
    std::function<void()> onDestroyed;
    const KuoAObservable<Words>* destroyedBy = nullptr;
};

const QStringList nothing;

} // namespace

TEST(KuoAObservable, CallsObserversInOrderOfRegistration)
{
    Listener a, b;
    Source source;
    QStringList order;
    a.reaction = [&](const Words&) { order << QStringLiteral("a"); };
    b.reaction = [&](const Words&) { order << QStringLiteral("b"); };
    source.addObserver(&b);
    source.addObserver(&a);
    source.notify("x");
    EXPECT_EQ(order, QStringList({"b", "a"}));
}

TEST(KuoAObservable, TakesAnObserverOnceAndIgnoresNull)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    source.addObserver(&a);
    source.addObserver(nullptr);
    source.removeObserver(nullptr);
    source.notify("x");
    EXPECT_EQ(a.heard, QStringList("x"));
}

TEST(KuoAObservable, NamesItselfInTheRecordThatItSends)
{
    Listener a;
    Source source;
    const KuoAObservable<Words>* sender = nullptr;
    a.reaction = [&](const Words& record) {
        EXPECT_TRUE(record.isValid());
        sender = record.observable();
    };
    source.addObserver(&a);
    source.notify("x");
    EXPECT_EQ(sender, &source);
    EXPECT_FALSE(Words("x").isValid());
    EXPECT_EQ(Words("x").observable(), nullptr);
}

TEST(KuoAObservable, KeepsNothingWhereNobodyObserves)
{
    Source source;
    source.lock(true);
    source.notify("x");
    EXPECT_FALSE(source.hasNotifications());
}

TEST(KuoAObservable, MergesIntoThePendingRecordWhileOnlyFormerObserversAreInTheList)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    source.removeObserver(&a);
    source.lock(true);
    source.notify("x");
    EXPECT_TRUE(source.hasNotifications());
}

TEST(KuoAObservable, ForgetsFormerObserversAtTheEndOfTheNextSend)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    source.removeObserver(&a);
    source.notify("x");
    source.lock(true);
    source.notify("y");
    EXPECT_FALSE(source.hasNotifications());
}

TEST(KuoAObservable, ABatchThatEndedCountsAsAFormerObserver)
{
    Source source;
    {
        KuoLock<Words> lock(&source);
    }
    source.lock(true);
    source.notify("x");
    EXPECT_TRUE(source.hasNotifications());
}

TEST(KuoAObservable, CollectsWhileLockedAndSendsOneMergedRecordAtCommit)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    EXPECT_FALSE(source.lock(true));
    EXPECT_TRUE(source.isLocked());
    source.notify("x");
    source.notify("y");
    EXPECT_EQ(a.heard, nothing);
    EXPECT_TRUE(source.hasNotifications());
    source.commit();
    EXPECT_EQ(a.heard, QStringList("x+y"));
    EXPECT_FALSE(source.hasNotifications());
    EXPECT_TRUE(source.isLocked());
    EXPECT_TRUE(source.lock(false));
}

TEST(KuoAObservable, ANotificationAfterUnlockingSendsWhatWasCollectedToo)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    source.lock(true);
    source.notify("x");
    source.lock(false);
    source.notify("y");
    EXPECT_EQ(a.heard, QStringList("x+y"));
}

TEST(KuoAObservable, DropsRecordsWhileTheObservableItselfIsLocked)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    EXPECT_FALSE(source.lockObservable(true));
    source.notify("x");
    EXPECT_FALSE(source.hasNotifications());
    EXPECT_TRUE(source.lockObservable(false));
    source.notify("y");
    EXPECT_EQ(a.heard, QStringList("y"));
}

TEST(KuoAObservable, ClearNotificationsLosesWhatWasCollected)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    source.lock(true);
    source.notify("x");
    source.clearNotifications();
    EXPECT_FALSE(source.hasNotifications());
    source.commit();
    EXPECT_EQ(a.heard, nothing);
}

TEST(KuoAObservable, CommitWithNothingPendingSendsNothing)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    source.commit();
    source.notify(Words());
    EXPECT_EQ(a.heard, nothing);
}

TEST(KuoAObservable, PassesOverAnObserverWhileItsLockCountIsNotZero)
{
    Listener a, stranger;
    Source source;
    source.addObserver(&a);
    source.lockObserver(&a, true);
    source.lockObserver(&a, true);
    source.lockObserver(&a, false);
    source.notify("still locked");
    source.lockObserver(&a, false);
    source.notify("first");
    source.lockObserver(&a, false);
    source.notify("second");
    source.lockObserver(&stranger, true);
    EXPECT_EQ(a.heard, QStringList({"first", "second"}));
}

TEST(KuoAObservable, DoesNotCallAnObserverThatWasAddedDuringTheSend)
{
    Listener a, late;
    Source source;
    a.reaction = [&](const Words&) { source.addObserver(&late); };
    source.addObserver(&a);
    source.notify("x");
    EXPECT_EQ(late.heard, nothing);
    source.notify("y");
    EXPECT_EQ(late.heard, QStringList("y"));
}

TEST(KuoAObservable, DoesNotCallAnObserverThatAnotherRemovedBeforeItsTurn)
{
    Listener a, b, c;
    Source source;
    a.reaction = [&](const Words&) { source.removeObserver(&b); };
    source.addObserver(&a);
    source.addObserver(&b);
    source.addObserver(&c);
    source.notify("x");
    EXPECT_EQ(b.heard, nothing);
    EXPECT_EQ(c.heard, QStringList("x"));
}

TEST(KuoAObservable, AnObserverMayRemoveItselfAndThePreviousOne)
{
    Listener a, b, c;
    Source source;
    b.reaction = [&](const Words&) {
        source.removeObserver(&a);
        source.removeObserver(&b);
    };
    source.addObserver(&a);
    source.addObserver(&b);
    source.addObserver(&c);
    source.notify("x");
    source.notify("y");
    EXPECT_EQ(a.heard, QStringList("x"));
    EXPECT_EQ(b.heard, QStringList("x"));
    EXPECT_EQ(c.heard, QStringList({"x", "y"}));
}

TEST(KuoAObservable, AnObserverThatDiesDuringTheSendIsNotCalled)
{
    Listener a;
    auto b = std::make_unique<Listener>();
    Source source;
    a.reaction = [&](const Words&) {
        source.removeObserver(b.get());
        b.reset();
    };
    source.addObserver(&a);
    source.addObserver(b.get());
    source.notify("x");
    EXPECT_EQ(a.heard, QStringList("x"));
}

TEST(KuoAObservable, AnObserverMayLockAndCollectDuringTheSend)
{
    Listener a, b;
    Source source;
    a.reaction = [&](const Words&) {
        a.reaction = nullptr;
        KuoLock<Words> lock(&source);
        source.notify("p");
        source.notify("q");
        lock.commit();
    };
    source.addObserver(&a);
    source.addObserver(&b);
    source.notify("x");
    EXPECT_EQ(a.heard, QStringList({"x", "p+q"}));
    EXPECT_EQ(b.heard, QStringList({"p+q", "x"}));
}

TEST(KuoAObservable, ANotificationDuringTheSendStartsAFreshRecord)
{
    Listener a;
    Source source;
    a.reaction = [&](const Words& record) {
        if (record.words == QStringList("x"))
            source.notify("y");
    };
    source.addObserver(&a);
    source.notify("x");
    EXPECT_EQ(a.heard, QStringList({"x", "y"}));
}

TEST(KuoAObservable, AnObserverMayDestroyTheObservable)
{
    Listener a, b;
    auto source = std::make_unique<Source>();
    a.reaction = [&](const Words&) { source.reset(); };
    source->addObserver(&a);
    source->addObserver(&b);
    source->notify("x");
    EXPECT_EQ(b.heard, nothing);
    EXPECT_NE(b.destroyedBy, nullptr);
}

TEST(KuoAObservable, AnObserverMayDestroyTheObservableInNestedSendsOfABatch)
{
    Listener a;
    auto source = std::make_unique<Source>();
    a.reaction = [&](const Words& record) {
        if (record.words == QStringList("x"))
            source->notify("y");
        else
            source.reset();
    };
    source->addObserver(&a);
    KuoLock<Words> lock(source.get());
    source->notify("x");
    lock.commit();
    EXPECT_EQ(a.heard, QStringList({"x", "y"}));
}

TEST(KuoAObservable, PrintsAWarningAtThe102ndNestedSendAndLosesItsRecord)
{
    Listener a;
    RecordedMessages messages;
    Source source;
    a.reaction = [&](const Words&) { source.notify("again"); };
    source.addObserver(&a);
    source.notify("first");
    EXPECT_EQ(a.heard.size(), 101);
    EXPECT_EQ(messages.warnings, QStringList("KuoAObservable: suspicious recursion detected.\n"
                                             "Maybe some KuoLock/KuoLockObserver can help you?!?"));
    a.reaction = nullptr;
    source.notify("after");
    EXPECT_EQ(a.heard.last(), QStringLiteral("after"));
}

struct ThrownCase
{
    const char* name;
    std::function<void()> raise;
    QString message;
};

void PrintTo(const ThrownCase& thrown, std::ostream* stream)
{
    *stream << thrown.name;
}

class KuoAObservableThrows : public testing::TestWithParam<ThrownCase>
{};

TEST_P(KuoAObservableThrows, WarnsAndCallsTheNextObserver)
{
    Listener a, b;
    RecordedMessages messages;
    Source source;
    a.reaction = [&](const Words&) { GetParam().raise(); };
    source.addObserver(&a);
    source.addObserver(&b);
    source.notify("x");
    EXPECT_EQ(b.heard, QStringList("x"));
    EXPECT_EQ(messages.warnings,
              QStringList(QStringLiteral("KuoAObservable: exception caught while sending notification.\n"
                                         "It is recommended to catch the exception in the update() method.\n"
                                         "Exception message: ") +
                          GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    All, KuoAObservableThrows,
    testing::Values(
        ThrownCase{"MbeError", [] { throw MbeError(6, QStringLiteral("own text")); }, QStringLiteral("own text")},
        ThrownCase{"bad_alloc", [] { throw std::bad_alloc(); }, QStringLiteral("std::bad_alloc: std::bad_alloc")},
        ThrownCase{"bad_cast", [] { throw std::bad_cast(); }, QStringLiteral("std::bad_cast: std::bad_cast")},
        ThrownCase{"bad_typeid", [] { throw std::bad_typeid(); }, QStringLiteral("std::bad_typeid: std::bad_typeid")},
        ThrownCase{"bad_exception", [] { throw std::bad_exception(); },
                   QStringLiteral("std::bad_exception: std::bad_exception")},
        ThrownCase{"exception", [] { throw std::runtime_error("broken"); }, QStringLiteral("std::exception: broken")},
        ThrownCase{"anything", [] { throw 42; }, QStringLiteral("Unknown exception.")}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(KuoAObservable, LetsAnExceptionOfTheFamilyThatIsNoErrorLeaveTheSend)
{
    Listener a, b;
    Source source;
    a.reaction = [&](const Words&) { throw MbeException(QStringLiteral("leaves")); };
    source.addObserver(&a);
    source.addObserver(&b);
    EXPECT_THROW(source.notify("x"), MbeException);
    EXPECT_EQ(b.heard, nothing);
}

TEST(KuoAObservable, TellsEveryObserverOfItsDestruction)
{
    Listener a, removed, b;
    auto source = std::make_unique<Source>();
    const KuoAObservable<Words>* address = source.get();
    source->addObserver(&a);
    source->addObserver(&removed);
    source->addObserver(&b);
    source->removeObserver(&removed);
    source.reset();
    EXPECT_EQ(a.destroyedBy, address);
    EXPECT_EQ(b.destroyedBy, address);
    EXPECT_EQ(removed.destroyedBy, nullptr);
}

TEST(KuoAObservable, AnObserverMayRemoveOthersAndAddItselfWhileToldOfTheDestruction)
{
    Listener a, b, c;
    auto source = std::make_unique<Source>();
    source->addObserver(&a);
    source->addObserver(&b);
    source->addObserver(&c);
    Source* raw = source.get();
    a.onDestroyed = [&a, &c, raw] {
        raw->removeObserver(&c);
        raw->removeObserver(&a);
        raw->addObserver(&a);
    };
    source.reset();
    EXPECT_NE(b.destroyedBy, nullptr);
    EXPECT_EQ(c.destroyedBy, nullptr);
}

TEST(KuoAObservable, ACopyHasTheObserversThePendingRecordAndTheStates)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    source.lock(true);
    source.notify("x");
    const Source copy(source);
    EXPECT_TRUE(copy.isLocked());
    EXPECT_TRUE(copy.hasNotifications());
    copy.commit();
    EXPECT_EQ(a.heard, QStringList("x"));
    EXPECT_TRUE(source.hasNotifications());
    source.removeObserver(&a);
}

TEST(KuoAObservable, ManyAdditionsAndRemovalsWithoutASendTakeNoMoreRoom)
{
    Listener stays, passing;
    Source source;
    source.addObserver(&stays);
    for (int i = 0; i < 100000; ++i) {
        source.addObserver(&passing);
        source.removeObserver(&passing);
    }
    source.notify("x");
    EXPECT_EQ(stays.heard, QStringList("x"));
    EXPECT_EQ(passing.heard, nothing);
}

TEST(KuoAObservable, TellsEveryObserverOfItsDestructionWhateverTheyChangeMeanwhile)
{
    Listener a, b, late;
    auto source = std::make_unique<Source>();
    Source* raw = source.get();
    a.onDestroyed = [&] {
        raw->removeObserver(&a);
        raw->addObserver(&late);
        raw->notify("gone");
    };
    source->addObserver(&a);
    source->addObserver(&b);
    source.reset();
    EXPECT_NE(b.destroyedBy, nullptr);
}

TEST(KuoAObservable, RemovingOrLockingAStrangerLeavesNoTrace)
{
    Listener stranger;
    Source source;
    source.removeObserver(&stranger);
    source.lockObserver(&stranger, true);
    source.lock(true);
    source.notify("x");
    EXPECT_FALSE(source.hasNotifications());
    source.lock(false);
    source.addObserver(&stranger);
    source.notify("y");
    EXPECT_EQ(stranger.heard, QStringList("y"));
}

TEST(KuoAObservable, AnObserverThatComesAgainIsLastAndUnlocked)
{
    Listener a, b;
    Source source;
    QStringList order;
    a.reaction = [&](const Words&) { order << QStringLiteral("a"); };
    b.reaction = [&](const Words&) { order << QStringLiteral("b"); };
    source.addObserver(&a);
    source.addObserver(&b);
    source.lockObserver(&a, true);
    source.removeObserver(&a);
    source.addObserver(&a);
    source.notify("x");
    EXPECT_EQ(order, QStringList({"b", "a"}));
}

TEST(KuoAObservable, CommitSendsWhatWasPendingBeforeTheObservableWasLocked)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    source.lock(true);
    source.notify("x");
    source.lockObservable(true);
    source.notify("dropped");
    EXPECT_TRUE(source.hasNotifications());
    source.commit();
    EXPECT_EQ(a.heard, QStringList("x"));
}

TEST(KuoAObservable, ForgetsFormerObserversOnlyWhenTheOutermostSendHasEnded)
{
    Listener a, b;
    Source source;
    bool collectedInside = false;
    a.reaction = [&](const Words& record) {
        if (record.words != QStringList("x"))
            return;
        source.removeObserver(&b);
        source.notify("nested");
        source.removeObserver(&a);
        source.lock(true);
        source.notify("y");
        collectedInside = source.hasNotifications();
        source.clearNotifications();
        source.lock(false);
    };
    source.addObserver(&a);
    source.addObserver(&b);
    source.notify("x");
    EXPECT_TRUE(collectedInside);
    source.lock(true);
    source.notify("z");
    EXPECT_FALSE(source.hasNotifications());
}

TEST(KuoAObservable, AnEmptyRecordForgetsNoFormerObserver)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    source.removeObserver(&a);
    source.notify(Words());
    source.lock(true);
    source.notify("x");
    EXPECT_TRUE(source.hasNotifications());
}

TEST(KuoAObservable, SendsAgainAfterAnExceptionLeftASend)
{
    Listener a, former;
    Source source;
    a.reaction = [&](const Words&) { throw MbeException(QStringLiteral("leaves")); };
    source.addObserver(&a);
    source.addObserver(&former);
    source.removeObserver(&former);
    for (int i = 0; i < 200; ++i)
        EXPECT_THROW(source.notify("x"), MbeException);
    a.reaction = nullptr;
    source.notify("y");
    EXPECT_EQ(a.heard.last(), QStringLiteral("y"));
}

TEST(KuoAObservable, TheThrowerMayDestroyTheObservable)
{
    Listener a;
    auto source = std::make_unique<Source>();
    a.reaction = [&](const Words&) {
        source.reset();
        throw MbeException(QStringLiteral("leaves"));
    };
    source->addObserver(&a);
    EXPECT_THROW(source->notify("x"), MbeException);
    EXPECT_EQ(source, nullptr);
}

TEST(KuoAObservable, AssignmentTakesOverObserversPendingRecordAndStates)
{
    Listener a, b;
    Source source, other;
    source.addObserver(&a);
    source.lock(true);
    source.notify("x");
    other.addObserver(&b);
    other = source;
    EXPECT_TRUE(other.isLocked());
    other.commit();
    EXPECT_EQ(a.heard, QStringList("x"));
    EXPECT_EQ(b.heard, nothing);
}

TEST(KuoAObservable, ACopyMadeDuringABatchCountsItAsAFormerObserver)
{
    Source source;
    KuoLock<Words> lock(&source);
    const Source copy(source);
    EXPECT_TRUE(copy.isLocked());
    copy.notify("x");
    EXPECT_TRUE(copy.hasNotifications());
}

TEST(KuoLock, SendsOneMergedRecordAtCommitAndUnlocksAtItsEnd)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    {
        KuoLock<Words> lock(&source);
        EXPECT_TRUE(source.isLocked());
        source.notify("x");
        source.notify("y");
        lock.commit();
        EXPECT_TRUE(source.isLocked());
    }
    EXPECT_FALSE(source.isLocked());
    EXPECT_EQ(a.heard, QStringList("x+y"));
}

TEST(KuoLock, LosesWhatWasNotCommitted)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    {
        KuoLock<Words> lock(&source);
        source.notify("x");
    }
    EXPECT_FALSE(source.hasNotifications());
    source.notify("y");
    EXPECT_EQ(a.heard, QStringList("y"));
}

TEST(KuoLock, SendsNothingWhenAnExceptionLeavesTheBatch)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    const auto batch = [&] {
        KuoLock<Words> lock(&source);
        source.notify("x");
        throw std::runtime_error("stop");
    };
    EXPECT_THROW(batch(), std::runtime_error);
    EXPECT_EQ(a.heard, nothing);
    EXPECT_FALSE(source.isLocked());
}

TEST(KuoLock, AnInnerBatchCommitsNothingAndLosesNothing)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    KuoLock<Words> outer(&source);
    {
        KuoLock<Words> inner(&source);
        source.notify("x");
        inner.commit();
    }
    EXPECT_EQ(a.heard, nothing);
    EXPECT_TRUE(source.isLocked());
    source.notify("y");
    outer.commit();
    EXPECT_EQ(a.heard, QStringList("x+y"));
}

TEST(KuoLock, CollectsEvenWhereNobodyElseListens)
{
    Source source;
    KuoLock<Words> lock(&source);
    source.notify("x");
    EXPECT_TRUE(source.hasNotifications());
}

TEST(KuoLock, OnNothingDoesNothing)
{
    KuoLock<Words> lock(nullptr);
    lock.commit();
}

TEST(KuoLock, OnADeadObservableDoesNothing)
{
    auto source = std::make_unique<Source>();
    KuoLock<Words> first(source.get());
    KuoLock<Words> second(source.get());
    KuoLock<Words> third(source.get());
    source->notify("x");
    source.reset();
    second.commit();
    first.commit();
}

TEST(KuoLock, SurvivesTheDeathOfItsObservableInTheCommit)
{
    Listener a;
    auto source = std::make_unique<Source>();
    a.reaction = [&](const Words&) { source.reset(); };
    source->addObserver(&a);
    KuoLock<Words> lock(source.get());
    source->notify("x");
    lock.commit();
    EXPECT_EQ(a.heard, QStringList("x"));
}

TEST(KuoLock, BatchesMayEndInAnyOrder)
{
    Source source;
    auto first = std::make_unique<KuoLock<Words>>(&source);
    auto second = std::make_unique<KuoLock<Words>>(&source);
    auto third = std::make_unique<KuoLock<Words>>(&source);
    second.reset();
    third.reset();
    first.reset();
    EXPECT_FALSE(source.isLocked());
}

struct BatchCase
{
    const char* name;
    std::function<void(const Source&, const Words&)> batch;
};

void PrintTo(const BatchCase& road, std::ostream* stream)
{
    *stream << road.name;
}

/// The two roads of a batch around one notification, which nobody is to tell apart.
class KuoAObservableBatch : public testing::TestWithParam<BatchCase>
{
protected:
    void batch(const Words& record) { GetParam().batch(*source, record); }
    QStringList collected()
    {
        source->lock(true);
        source->notify("late");
        const bool kept = source->hasNotifications();
        source->clearNotifications();
        source->lock(false);
        return kept ? QStringList("late") : nothing;
    }

    Listener a, b;
    std::unique_ptr<Source> source = std::make_unique<Source>();
};

INSTANTIATE_TEST_SUITE_P(All, KuoAObservableBatch,
                         testing::Values(BatchCase{"Lock",
                                                   [](const Source& source, const Words& record) {
                                                       KuoLock<Words> lock(&source);
                                                       source.notify(record);
                                                       lock.commit();
                                                   }},
                                         BatchCase{"Short",
                                                   [](const Source& source, const Words& record) {
                                                       source._notifyBatch(Words(record));
                                                   }}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(KuoAObservableBatch, SendsItsRecordUnlockedWithNothingPending)
{
    source->addObserver(&a);
    a.reaction = [&](const Words& record) {
        EXPECT_EQ(record.observable(), source.get());
        EXPECT_FALSE(source->isLocked());
        EXPECT_FALSE(source->hasNotifications());
    };
    batch("x");
    EXPECT_EQ(a.heard, QStringList("x"));
    EXPECT_FALSE(source->isLocked());
}

TEST_P(KuoAObservableBatch, CountsAsAFormerObserverUntilTheNextSend)
{
    batch("x");
    EXPECT_EQ(collected(), QStringList("late"));
    batch(Words());
    EXPECT_EQ(collected(), QStringList("late"));
    source->notify("sent to nobody");
    EXPECT_EQ(collected(), nothing);
}

TEST_P(KuoAObservableBatch, OfAnEmptyRecordSendsNothing)
{
    source->addObserver(&a);
    batch(Words());
    EXPECT_EQ(a.heard, nothing);
}

TEST_P(KuoAObservableBatch, SendsWhatWasPendingInTheSameRecord)
{
    source->addObserver(&a);
    source->lock(true);
    source->notify("p");
    source->lock(false);
    batch("x");
    EXPECT_EQ(a.heard, QStringList("p+x"));
}

TEST_P(KuoAObservableBatch, CollectsWhileTheObservableIsLockedAlready)
{
    source->addObserver(&a);
    source->lock(true);
    source->notify("p");
    batch("x");
    EXPECT_TRUE(source->isLocked());
    EXPECT_EQ(a.heard, nothing);
    source->commit();
    EXPECT_EQ(a.heard, QStringList("p+x"));
}

TEST_P(KuoAObservableBatch, LosesItsRecordAndSendsWhatWasPendingWhileRecordsAreDropped)
{
    source->addObserver(&a);
    source->lock(true);
    source->notify("p");
    source->lock(false);
    source->lockObservable(true);
    batch("x");
    EXPECT_TRUE(source->lockObservable(false));
    EXPECT_EQ(a.heard, QStringList("p"));
}

TEST_P(KuoAObservableBatch, LosesWhatAnObserverLeftLockedAndPending)
{
    source->addObserver(&a);
    a.reaction = [&](const Words&) {
        source->lock(true);
        source->notify("left");
    };
    batch("x");
    EXPECT_FALSE(source->isLocked());
    EXPECT_FALSE(source->hasNotifications());
}

TEST_P(KuoAObservableBatch, EndsTheLockOfABatchThatAnObserverOpenedAndKept)
{
    std::unique_ptr<KuoLock<Words>> kept;
    source->addObserver(&a);
    a.reaction = [&](const Words&) {
        a.reaction = nullptr;
        kept = std::make_unique<KuoLock<Words>>(source.get());
    };
    batch("x");
    source->notify("y");
    EXPECT_EQ(a.heard, QStringList({"x", "y"}));
}

TEST_P(KuoAObservableBatch, OfAnObserverInTheSendSendsAtOnceAndLeavesTheOuterOneLocked)
{
    source->addObserver(&a);
    source->addObserver(&b);
    a.reaction = [&](const Words& record) {
        if (record.words == QStringList("x"))
            batch("y");
    };
    KuoLock<Words> outer(source.get());
    source->notify("x");
    outer.commit();
    EXPECT_TRUE(source->isLocked());
    EXPECT_EQ(a.heard, QStringList({"x", "y"}));
    EXPECT_EQ(b.heard, QStringList({"y", "x"}));
}

TEST_P(KuoAObservableBatch, LosesTheRecordOfThe102ndNestedSend)
{
    RecordedMessages messages;
    source->addObserver(&a);
    a.reaction = [&](const Words&) { batch("again"); };
    batch("first");
    EXPECT_EQ(a.heard.size(), 101);
    EXPECT_EQ(messages.warnings.size(), 1);
    a.reaction = nullptr;
    batch("after");
    EXPECT_EQ(a.heard.last(), QStringLiteral("after"));
}

TEST_P(KuoAObservableBatch, EndsWhenAnExceptionLeavesTheSend)
{
    source->addObserver(&a);
    a.reaction = [&](const Words&) {
        source->lock(true);
        source->notify("left");
        throw MbeException(QStringLiteral("leaves"));
    };
    for (int i = 0; i < 200; ++i)
        EXPECT_THROW(batch("x"), MbeException);
    EXPECT_FALSE(source->isLocked());
    EXPECT_FALSE(source->hasNotifications());
    a.reaction = nullptr;
    source->removeObserver(&a);
    EXPECT_EQ(collected(), QStringList("late"));
}

TEST_P(KuoAObservableBatch, SurvivesTheDeathOfItsObservable)
{
    for (const bool throws : {false, true}) {
        source = std::make_unique<Source>();
        source->addObserver(&a);
        source->addObserver(&b);
        a.reaction = [&](const Words&) {
            source.reset();
            if (throws)
                throw MbeException(QStringLiteral("leaves"));
        };
        if (throws)
            EXPECT_THROW(batch("x"), MbeException);
        else
            batch("x");
        EXPECT_EQ(b.heard, nothing);
    }
}

TEST(KuoAObservable, AnEmptyBatchSendsWhatIsPendingUnlessLocked)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    source.lock(true);
    source.notify("p");
    source._emptyBatch();
    EXPECT_EQ(a.heard, nothing);
    source.lock(false);
    source._emptyBatch();
    source._emptyBatch();
    EXPECT_EQ(a.heard, QStringList("p"));
    EXPECT_FALSE(source.isLocked());
}

TEST(KuoAObservable, AnEmptyBatchCountsAsAFormerObserver)
{
    Source source;
    source._emptyBatch();
    source.lock(true);
    source.notify("x");
    EXPECT_TRUE(source.hasNotifications());
}

TEST(KuoLockObserver, PassesOverTheObserverWhileItLives)
{
    Listener a, b;
    Source source;
    source.addObserver(&a);
    source.addObserver(&b);
    {
        KuoLockObserver<Words> lock(&a, &source);
        source.notify("x");
    }
    source.notify("y");
    EXPECT_EQ(a.heard, QStringList("y"));
    EXPECT_EQ(b.heard, QStringList({"x", "y"}));
}

TEST(KuoLockObserver, NestsByCounting)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    KuoLockObserver<Words> outer(&a, &source);
    {
        KuoLockObserver<Words> inner(&a, &source);
    }
    source.notify("x");
    EXPECT_EQ(a.heard, nothing);
}

TEST(KuoLockObserver, SurvivesTheDeathOfItsObservable)
{
    Listener a;
    auto source = std::make_unique<Source>();
    source->addObserver(&a);
    KuoLockObserver<Words> lock(&a, source.get());
    KuoLockObserver<Words> none(nullptr, source.get());
    KuoLockObserver<Words> nowhere(&a, nullptr);
    source.reset();
    EXPECT_NE(a.destroyedBy, nullptr);
}

TEST(KuoLock, MayCommitTwiceAndSendsWhatComesDuringTheCommitAtOnce)
{
    Listener a;
    Source source;
    a.reaction = [&](const Words& record) {
        if (record.words == QStringList("x"))
            source.notify("during");
    };
    source.addObserver(&a);
    KuoLock<Words> lock(&source);
    source.notify("x");
    lock.commit();
    source.notify("y");
    lock.commit();
    EXPECT_EQ(a.heard, QStringList({"x", "during", "y"}));
}

TEST(KuoLock, ForgetsOnlyItsOwnObservable)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    KuoLock<Words> lock(&source);
    {
        const Source other;
        lock.destroyed(&other);
    }
    EXPECT_TRUE(lock.isAlive());
    source.notify("x");
    lock.commit();
    EXPECT_EQ(a.heard, QStringList("x"));
}

TEST(KuoLockObserver, IsAnObserverItself)
{
    Listener a;
    Source source;
    KuoLockObserver<Words> lock(&a, &source);
    source.lock(true);
    source.notify("x");
    EXPECT_TRUE(source.hasNotifications());
}

TEST(KuoLockObserver, ForgetsOnlyItsOwnObservableAndEndsWellWithoutItsObserver)
{
    Listener a;
    Source source;
    source.addObserver(&a);
    {
        KuoLockObserver<Words> lock(&a, &source);
        const Source other;
        lock.destroyed(&other);
        source.notify("passed over");
        source.removeObserver(&a);
    }
    source.addObserver(&a);
    source.notify("x");
    EXPECT_EQ(a.heard, QStringList("x"));
}

namespace {

// Says in which order it and the others of its kind are called.
class Numbered : public KuoIObserver<Words>
{
public:
    Numbered(int number, QList<int>& calls) : _number(number), _calls(calls) {}
    ~Numbered() override = default;
    void update(const Words&) override { _calls.append(_number); }

private:
    int _number;
    QList<int>& _calls;
};

} // namespace

TEST(KuoAObservable, CallsThoseOfManyThatAreLeftInTheOrderOfTheirArrival)
{
    QList<int> calls;
    std::vector<std::unique_ptr<Numbered>> observers;
    Source source;
    QList<int> expected;
    for (int i = 0; i < 200; ++i) {
        observers.push_back(std::make_unique<Numbered>(i, calls));
        source.addObserver(observers.back().get());
        source.addObserver(observers.back().get());
        if (i >= 3 && i % 3 == 0)
            source.removeObserver(observers[std::size_t(i - 3)].get());
    }
    for (int i = 0; i < 200; ++i) {
        if (i % 3 != 0 || i == 198)
            expected.append(i);
    }
    source.notify("x");
    EXPECT_EQ(calls, expected);

    calls.clear();
    source.lockObserver(observers[100].get(), true);
    source.removeObserver(observers[0].get());
    source.addObserver(observers[0].get());
    expected.removeOne(100);
    expected.append(0);
    source.notify("x");
    EXPECT_EQ(calls, expected);
}

TEST(KuoAObservable, LetsManyGoWhileItSends)
{
    QList<int> calls;
    std::vector<std::unique_ptr<Numbered>> observers;
    Listener first;
    Source source;
    source.addObserver(&first);
    for (int i = 0; i < 100; ++i) {
        observers.push_back(std::make_unique<Numbered>(i, calls));
        source.addObserver(observers.back().get());
    }
    first.reaction = [&](const Words&) {
        for (int i = 0; i < 100; i += 2)
            source.removeObserver(observers[std::size_t(i)].get());
    };
    source.notify("x");
    EXPECT_EQ(calls.size(), 50);
    EXPECT_EQ(calls.first(), 1);
    EXPECT_EQ(calls.last(), 99);

    calls.clear();
    first.reaction = nullptr;
    source.removeObserver(observers[99].get());
    source.notify("x");
    EXPECT_EQ(calls.size(), 49);
    EXPECT_EQ(calls.last(), 97);
}
