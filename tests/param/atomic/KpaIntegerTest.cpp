#include <param/atomic/KpaInteger.h>
#include <support/RecordingObserver.h>

#include <param/KpsSerializer.h>

#include <cstdlib>
#include <new>

namespace {

constexpr int U = MbbGlobal::I32_FFFF;

MbbOrderedMap<QString, QString> valueMap(const QString& text)
{
    return {{QStringLiteral("value"), text}};
}

struct NoFix
{
    bool operator==(const NoFix&) const = default;
};

static_assert(KpaAtomicConfig<KpaIntegerConfig, int>);
static_assert(!KpaAtomicConfig<KpaIntegerConfig, QString>);
static_assert(!KpaAtomicConfig<NoFix, int>);

} // namespace

TEST(KpaIntegerConfig, StartsWithItsDocumentedDefaults)
{
    const KpaIntegerConfig config;
    EXPECT_EQ(config.getStep(), U);
    EXPECT_EQ(config.getMinimum(), U);
    EXPECT_EQ(config.getMaximum(), U);
    EXPECT_FALSE(config.isStepDefined());
    EXPECT_FALSE(config.isMinimumDefined());
    EXPECT_FALSE(config.isMaximumDefined());
    EXPECT_FALSE(config.isWrapped());
    EXPECT_FALSE(config.isUndefineEnabled());
    EXPECT_EQ(config.getInitialValue(), 0);
    EXPECT_EQ(config.getType(), KpbEType::INTEGER);
    EXPECT_FALSE(config.isDefined(U));
    EXPECT_TRUE(config.isDefined(0));
}

TEST(KpaIntegerConfig, SettersTellWhetherTheFieldChanged)
{
    KpaIntegerConfig config;
    EXPECT_TRUE(config.setStep(2));
    EXPECT_FALSE(config.setStep(2));
    EXPECT_TRUE(config.setMinimum(1));
    EXPECT_FALSE(config.setMinimum(1));
    EXPECT_TRUE(config.setMaximum(9));
    EXPECT_FALSE(config.setMaximum(9));
    EXPECT_TRUE(config.setUndefineEnabled(true));
    EXPECT_FALSE(config.setUndefineEnabled(true));
    EXPECT_TRUE(config.setWrapped(true));
    EXPECT_FALSE(config.setWrapped(true));
}

TEST(KpaIntegerConfig, EqualityComparesEveryField)
{
    const KpaIntegerConfig plain;
    const std::function<void(KpaIntegerConfig&)> changes[] = {
        [](auto& c) { c.setStep(1); },       [](auto& c) { c.setMinimum(1); },
        [](auto& c) { c.setMaximum(1); },    [](auto& c) { c.setUndefineEnabled(true); },
        [](auto& c) { c.setWrapped(true); },
    };
    for (const auto& change : changes) {
        KpaIntegerConfig other;
        change(other);
        EXPECT_TRUE(plain != other);
    }
    EXPECT_TRUE(plain == KpaIntegerConfig());
}

TEST(KpaIntegerConfig, FixBringsValuesIntoTheLimits)
{
    struct Case
    {
        int minimum, maximum;
        bool wrapped, undefine;
        int value, previous, expected;
    };
    const Case cases[] = {
        {U, U, false, false, 7, 0, 7},
        {0, 10, false, false, 11, 0, 10},
        {0, 10, false, false, -1, 0, 0},
        {10, 0, false, false, 5, 0, 10}, // crossed limits: the minimum wins
        {5, U, false, false, 4, 0, 5},
        {U, 5, false, false, 6, 0, 5},
        {5, U, true, false, 4, 0, 5}, // one limit makes no cycle
        {U, 5, true, false, 6, 0, 5},
        {0, 10, true, false, 10, 0, 0},
        {0, 10, true, false, 25, 0, 5},
        {0, 10, true, false, -1, 0, 9},
        {0, 10, true, false, -10, 0, 10},
        {0, 10, true, false, 4, 0, 4},
        {3, 3, true, false, 8, 0, 3}, // no cycle to walk
        {3, 3, true, false, 1, 0, 3},
        {10, 20, true, false, 10, 0, 10},
        {10, 20, true, false, -10, 0, 20}, // two whole cycles below
        {10, 20, true, false, -11, 0, 19},
        {10, 0, true, false, 5, 0, 15}, // the formula holds for crossed limits too
        {U, U, false, false, U, 7, 7},
        {U, U, false, false, U, U, 0},
        {2, 9, false, false, U, U, 2},
        {2, 9, false, true, U, 5, U},
        {-2147483647, 2147483647, true, false, 2147483647, 0, -2147483647},
    };
    for (const Case& c : cases) {
        KpaIntegerConfig config;
        config.setMinimum(c.minimum);
        config.setMaximum(c.maximum);
        config.setWrapped(c.wrapped);
        config.setUndefineEnabled(c.undefine);
        EXPECT_EQ(config.fix(c.value, c.previous), c.expected)
            << c.minimum << ' ' << c.maximum << ' ' << c.wrapped << ' ' << c.value;
    }
}

TEST(KpaIntegerConfig, PrintsDecimalAndTheUndefinedMarkerByItsState)
{
    KpaIntegerConfig config;
    EXPECT_EQ(config.toString(-42), QStringLiteral("-42"));
    EXPECT_EQ(config.toString(U), QString());
    config.setUndefineEnabled(true);
    EXPECT_EQ(config.toString(U), MbbGlobal::STR_NA);
    EXPECT_EQ(config.toString(1000000), QStringLiteral("1000000"));
}

TEST(KpaIntegerConfig, SerializesToOneEntryNamedValue)
{
    const KpaIntegerConfig config;
    EXPECT_EQ(config.serializeValue(42), valueMap("42"));
    EXPECT_EQ(config.serializeValue(U), valueMap(""));
}

TEST(KpaIntegerConfig, ReadsTextsThatDoNotConvertAsPreviousOrUndefined)
{
    KpaIntegerConfig config;
    for (const char* text : {"", "abc", "1.5", "99999999999", "0x10", "--1"}) {
        config.setUndefineEnabled(false);
        EXPECT_EQ(config.unserializeValue(valueMap(text), 5), 5) << text;
        config.setUndefineEnabled(true);
        EXPECT_EQ(config.unserializeValue(valueMap(text), 5), U) << text;
    }
    EXPECT_EQ(config.unserializeValue({}, 5), U);
    config.setUndefineEnabled(false);
    EXPECT_EQ(config.unserializeValue({}, 5), 5);
    EXPECT_EQ(config.unserializeValue(valueMap("-17"), 5), -17);
}

TEST(KpaIntegerConfig, DebugPrintsEachLimitUnderTheOthersName)
{
    KpaIntegerConfig config;
    config.setStep(1);
    config.setMinimum(2);
    config.setMaximum(3);
    config.setWrapped(true);
    EXPECT_EQ(config.debug(), QStringLiteral("----- KpaIntegerConfig -------\n"
                                             " step             = 1\n"
                                             " minimum          = 3\n"
                                             " maximum          = 2\n"
                                             " wrapped          = yes\n"
                                             " undefineEnabled  = no\n"));
}

TEST(KpaInteger, StartsAtZero)
{
    const KpaInteger a("a");
    EXPECT_EQ(a.getValue(), 0);
    EXPECT_EQ(a.getAutoValue(), 0);
    EXPECT_TRUE(a.isA(KpbEType::INTEGER));
    EXPECT_EQ(a.toString(), QStringLiteral("0"));
    EXPECT_TRUE(a.isDefined());
}

TEST(KpaInteger, IsALeaf)
{
    const KpaInteger a("a");
    EXPECT_FALSE(a.hasChildren());
    EXPECT_EQ(a.getChildCount(), 0);
    EXPECT_EQ(a.getChild(0), nullptr);
    EXPECT_EQ(a.getChild("a"), nullptr);
    EXPECT_EQ(a.getVersion(), 1);
}

TEST(KpaInteger, SendsOneRecordForANewValueAndNoneForTheSame)
{
    KpaInteger a("a");
    const RecordingObserver observer(a);
    a.setValue(3);
    a.setValue(3);
    EXPECT_EQ(observer.allFlags(), QList<int>({1}));
}

TEST(KpaInteger, StaysAutomaticAndSilentWhenItsOwnValueIsSet)
{
    KpaInteger a("a");
    a.activateAutoValue(4);
    const RecordingObserver observer(a);
    a.setValue(4);
    EXPECT_TRUE(a.isAutomatic());
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpaInteger, KeepsItsValueAndNotifiesWhenTheRequestIsRefused)
{
    KpaInteger a("a");
    a.setMaximum(10);
    a.activateAutoValue(10);
    const RecordingObserver observer(a);
    a.setValue(1000);
    EXPECT_EQ(a.getValue(), 10);
    EXPECT_TRUE(a.isAutomatic());
    EXPECT_EQ(observer.allFlags(), QList<int>({1}));
}

TEST(KpaInteger, RepairsANewValueAndSendsOneRecord)
{
    KpaInteger a("a");
    a.setMaximum(10);
    a.setValue(5);
    const RecordingObserver observer(a);
    a.setValue(1000);
    EXPECT_EQ(a.getValue(), 10);
    EXPECT_EQ(observer.allFlags(), QList<int>({1}));
}

TEST(KpaInteger, LeavesTheAutomaticModeWithANewValueInTheSameRecord)
{
    KpaInteger a("a");
    a.setMaximum(10);
    a.activateAutoValue(5);
    const RecordingObserver observer(a);
    a.setValue(1000);
    EXPECT_EQ(a.getValue(), 10);
    EXPECT_FALSE(a.isAutomatic());
    EXPECT_TRUE(a.isAutomaticEnabled());
    EXPECT_EQ(observer.allFlags(), QList<int>({3}));
}

TEST(KpaInteger, LeavesTheAutomaticModeWhereNobodyObservesToo)
{
    KpaInteger a("a");
    a.activateAutoValue(5);
    a.setValue(6);
    EXPECT_FALSE(a.isAutomatic());
    EXPECT_EQ(a.getValue(), 6);
}

TEST(KpaInteger, AValueAndAConfigurationChangeInOneBatchAreOneEntryWithFlags3)
{
    KpaInteger a("a");
    RecordingObserver observer(a);
    KuoLock<KpnModif> lock(&a);
    a.setValue(3);
    a.setLabel("label");
    lock.commit();
    EXPECT_EQ(observer.allFlags(), QList<int>({3}));
}

TEST(KpaInteger, KeepsAnAutomaticValueReadyWithoutTakingItOver)
{
    KpaInteger a("a");
    a.setValue(3);
    const RecordingObserver observer(a);
    a.setAutoValue(8);
    EXPECT_EQ(a.getValue(), 3);
    EXPECT_EQ(a.getAutoValue(), 8);
    EXPECT_TRUE(a.isAutomaticValueInitialized());
    a.setAutoValue(8);
    EXPECT_EQ(observer.allFlags(), QList<int>({2}));
}

TEST(KpaInteger, SettingTheAutomaticValueThatItHasSendsWhatWasPending)
{
    for (const bool automatic : {false, true}) {
        KpaInteger a("a");
        a.setAutomatic(automatic);
        a.setAutoValue(8);
        const RecordingObserver observer(a);
        a.lock(true);
        a.setValueLocked(true);
        a.setAutoValue(8);
        EXPECT_TRUE(observer.records.isEmpty());
        a.lock(false);
        a.setAutoValue(8);
        EXPECT_EQ(observer.allFlags(), QList<int>({1}));
    }
}

TEST(KpaInteger, NotifiesThatAnAutomaticValueIsKnownEvenIfItIsTheInitialOne)
{
    KpaInteger a("a");
    const RecordingObserver observer(a);
    a.setAutoValue(0);
    EXPECT_TRUE(a.isAutomaticValueInitialized());
    EXPECT_EQ(observer.allFlags(), QList<int>({2}));
}

TEST(KpaInteger, TakesTheAutomaticValueOverAtOnceWhileAutomatic)
{
    KpaInteger a("a");
    a.setAutomatic(true);
    const RecordingObserver observer(a);
    a.setAutoValue(8);
    EXPECT_EQ(a.getValue(), 8);
    EXPECT_TRUE(a.isAutomatic());
    EXPECT_EQ(observer.allFlags(), QList<int>({3}));
}

TEST(KpaInteger, RepairsAnAutomaticValueAgainstTheInitialOneAndThenAgainstTheFormer)
{
    KpaInteger a("a");
    a.setAutoValue(U);
    EXPECT_EQ(a.getAutoValue(), 0);
    a.setAutoValue(7);
    a.setAutoValue(U);
    EXPECT_EQ(a.getAutoValue(), 7);
    a.setMaximum(9);
    a.setAutoValue(50);
    EXPECT_EQ(a.getAutoValue(), 9);
}

TEST(KpaInteger, UnsetAutoValueForgetsItAndKeepsValueAndMode)
{
    KpaInteger a("a");
    a.activateAutoValue(5);
    const RecordingObserver observer(a);
    a.unsetAutoValue();
    a.unsetAutoValue();
    EXPECT_FALSE(a.isAutomaticValueInitialized());
    EXPECT_TRUE(a.isAutomatic());
    EXPECT_EQ(a.getValue(), 5);
    EXPECT_EQ(observer.allFlags(), QList<int>({2}));
}

TEST(KpaInteger, ActivateAutoValueNotifiesEachOfItsStepsOnItsOwn)
{
    KpaInteger a("a");
    const RecordingObserver observer(a);
    a.activateAutoValue(5);
    EXPECT_TRUE(a.isAutomatic());
    EXPECT_TRUE(a.isAutomaticEnabled());
    EXPECT_EQ(observer.allFlags(), QList<int>({2, 2, 3}));
    KpaInteger b("b");
    b.activateAutoValue();
    EXPECT_TRUE(b.isAutomatic());
    EXPECT_FALSE(b.isAutomaticValueInitialized());
}

TEST(KpaInteger, FollowsTheFourStatesOfTheAutomaticProtocol)
{
    KpaInteger a("a");
    a.setValue(1);
    a.setAutoValue(2);
    EXPECT_EQ(a.getValue(), 1);
    a.setAutomatic(true);
    EXPECT_EQ(a.getValue(), 2);
    a.unsetAutoValue();
    a.setAutoValue(3);
    EXPECT_EQ(a.getValue(), 3);
    a.setAutoValue(4);
    EXPECT_EQ(a.getValue(), 4);
    a.setValue(5);
    EXPECT_FALSE(a.isAutomatic());
    a.setAutoValue(6);
    EXPECT_EQ(a.getValue(), 5);
}

TEST(KpaInteger, AMaximumBelowTheValueRepairsItInOneRecordAndDropsAnAutomaticValueAboveIt)
{
    KpaInteger a("a");
    a.setValue(50);
    a.setAutoValue(40);
    const RecordingObserver observer(a);
    a.setMaximum(10);
    EXPECT_EQ(observer.allFlags(), QList<int>({3}));
    EXPECT_EQ(a.getValue(), 10);
    EXPECT_EQ(a.getAutoValue(), 40);
    EXPECT_FALSE(a.isAutomaticValueInitialized());
}

TEST(KpaInteger, AnAutomaticParameterKeepsTheRepairedValueUntilTheNextAutomaticValue)
{
    KpaInteger a("a");
    a.activateAutoValue(40);
    a.setMaximum(10);
    EXPECT_TRUE(a.isAutomatic());
    EXPECT_EQ(a.getValue(), 10);
    a.setAutoValue(8);
    EXPECT_EQ(a.getValue(), 8);
}

TEST(KpaInteger, AConfigurationChangeThatFitsTheValueNotifiesConfigAlone)
{
    KpaInteger a("a");
    const RecordingObserver observer(a);
    a.setMaximum(10);
    a.setMaximum(10);
    a.setStep(2);
    a.setWrapping(true);
    a.setUndefineEnabled(true);
    a.unsetMaximum();
    a.unsetStep();
    a.unsetMinimum();
    EXPECT_EQ(observer.allFlags(), QList<int>({2, 2, 2, 2, 2, 2}));
    EXPECT_FALSE(a.isMaximumDefined());
    EXPECT_FALSE(a.isStepDefined());
}

TEST(KpaInteger, SwitchingUndefineOffFallsBackToTheInitialValue)
{
    KpaInteger a("a");
    a.setUndefineEnabled(true);
    a.setValue(U);
    EXPECT_FALSE(a.isDefined());
    const RecordingObserver observer(a);
    a.setUndefineEnabled(false);
    EXPECT_EQ(a.getValue(), 0);
    EXPECT_EQ(observer.allFlags(), QList<int>({3}));
}

TEST(KpaInteger, AnAutomaticValueThatStillFitsStaysKnown)
{
    KpaInteger a("a");
    a.setAutoValue(5);
    a.setMaximum(10);
    EXPECT_TRUE(a.isAutomaticValueInitialized());
}

TEST(KpaInteger, SwitchingWrappingOnRepairsTheValue)
{
    KpaInteger a("a");
    a.setRange(0, 10);
    a.setValue(10);
    const RecordingObserver observer(a);
    a.setWrapping(true);
    EXPECT_EQ(a.getValue(), 0);
    EXPECT_EQ(observer.allFlags(), QList<int>({3}));
    EXPECT_TRUE(a.isWrapped());
}

TEST(KpaInteger, TellsWhatItsConfigurationHas)
{
    KpaInteger a("a");
    a.setRange(1, 9);
    a.setStep(2);
    a.setUndefineEnabled(true);
    EXPECT_TRUE(a.isMinimumDefined() && a.isMaximumDefined() && a.isStepDefined() && a.isUndefineEnabled());
    EXPECT_EQ(a.getMinimum(), 1);
    EXPECT_EQ(a.getMaximum(), 9);
    EXPECT_EQ(a.getStep(), 2);
    a.unsetMinimum();
    EXPECT_FALSE(a.isMinimumDefined());
}

TEST(KpaInteger, SetRangeOrdersItsEndsAndNotifiesOnce)
{
    KpaInteger a("a");
    const RecordingObserver observer(a);
    a.setRange(10, 2);
    EXPECT_EQ(a.getMinimum(), 2);
    EXPECT_EQ(a.getMaximum(), 10);
    EXPECT_EQ(observer.allFlags(), QList<int>({3}));
    a.setRange(2, 10);
    EXPECT_EQ(observer.records.size(), 1);
}

TEST(KpaInteger, SetRangeTakesTheUndefinedMarkerAsTheNumberThatItIs)
{
    KpaInteger a("a");
    a.setRange(5, U);
    EXPECT_EQ(a.getMinimum(), std::min(5, U));
    EXPECT_EQ(a.getMaximum(), std::max(5, U));
}

TEST(KpaInteger, SetConfigTakesAllFieldsOverAndIgnoresAnEqualOne)
{
    KpaInteger a("a");
    a.setValue(50);
    KpaIntegerConfig config;
    config.setMaximum(10);
    const RecordingObserver observer(a);
    a.setConfig(config);
    a.setConfig(config);
    EXPECT_EQ(a.getValue(), 10);
    EXPECT_TRUE(a.getConfig() == config);
    EXPECT_EQ(observer.allFlags(), QList<int>({3}));
}

TEST(KpaInteger, ReadsAStoredValueAsItsCallerWouldSetIt)
{
    KpaInteger a("a");
    a.setMaximum(10);
    a.activateAutoValue(3);
    const RecordingObserver observer(a);
    a.unserialize(valueMap("25"));
    EXPECT_EQ(a.getValue(), 10);
    EXPECT_FALSE(a.isAutomatic());
    EXPECT_EQ(observer.allFlags(), QList<int>({3}));
    EXPECT_EQ(a.serialize(), valueMap("10"));
}

TEST(KpaInteger, ReadingItsOwnValueOrNothingIsSilentAndKeepsTheMode)
{
    KpaInteger a("a");
    a.activateAutoValue(3);
    const RecordingObserver observer(a);
    a.unserialize(valueMap("3"));
    a.unserialize({});
    a.unserialize(valueMap("junk"));
    EXPECT_TRUE(a.isAutomatic());
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpaInteger, TakesItsOwnValuesAsArguments)
{
    KpaInteger a("a");
    a.setAutoValue(8);
    a.setValue(a.getAutoValue());
    EXPECT_EQ(a.getValue(), 8);
    a.setValue(3);
    a.setAutoValue(a.getValue());
    EXPECT_EQ(a.getAutoValue(), 3);
    a.setValue(a.getValue());
    EXPECT_EQ(a.getValue(), 3);
}

TEST(KpaInteger, LeavesTheTraceOfABatchAndOfANotificationWhereNobodyObserves)
{
    KpaInteger a("a");
    a.setValue(1);
    a.lock(true);
    a.notify(KpnModif(Kp::NotifyValue, &a));
    EXPECT_TRUE(a.hasNotifications());
    a.clearNotifications();
    a.lock(false);
    a.setLabel("sends, and forgets the batch");
    a.lock(true);
    a.notify(KpnModif(Kp::NotifyValue, &a));
    EXPECT_FALSE(a.hasNotifications());
}

TEST(KpaInteger, KeepsWhatComesWhileItIsLockedAndABatchHasEnded)
{
    KpaInteger a("a");
    a.setValue(1);
    a.lock(true);
    a.setValue(2);
    EXPECT_TRUE(a.hasNotifications());
}

TEST(KpaInteger, ADuplicateHasEverythingButTheObservers)
{
    KpaInteger a("a");
    a.setRange(0, 9);
    a.activateAutoValue(4);
    const std::unique_ptr<KpaInteger> same(a.duplicate(QString()));
    const std::unique_ptr<KpaInteger> other(a.duplicate("b"));
    EXPECT_EQ(same->getKey(), QStringLiteral("a"));
    EXPECT_EQ(other->getKey(), QStringLiteral("b"));
    EXPECT_EQ(other->getValue(), 4);
    EXPECT_EQ(other->getAutoValue(), 4);
    EXPECT_TRUE(other->isAutomatic());
    EXPECT_TRUE(other->getConfig() == a.getConfig());
}

TEST(KpaInteger, DebugAddsTheConfigurationFromDepthOneOn)
{
    const KpaInteger a("a");
    EXPECT_EQ(a.debug(0), QStringLiteral("a = 0\n"));
    EXPECT_TRUE(a.debug(1).contains(QStringLiteral("  - value = 0\n----- KpaIntegerConfig -------\n")));
}

TEST(KpaInteger, AnObserverMayDestroyTheParameter)
{
    auto a = std::make_unique<KpaInteger>("a");
    class Destroys : public KuoIObserver<KpnModif>
    {
    public:
        std::unique_ptr<KpaInteger>* victim = nullptr;
        void update(const KpnModif&) override { victim->reset(); }
    };
    Destroys destroys;
    destroys.victim = &a;
    a->activateAutoValue(3);
    a->addObserver(&destroys);
    a->setValue(7);
    EXPECT_EQ(a, nullptr);
}

namespace {

class DestroysAtOnce : public KuoIObserver<KpnModif>
{
public:
    explicit DestroysAtOnce(std::unique_ptr<KpaInteger>& parameter) : victim(parameter) { victim->addObserver(this); }
    void update(const KpnModif&) override { victim.reset(); }
    std::unique_ptr<KpaInteger>& victim;
};

} // namespace

TEST(KpaInteger, AnObserverMayDestroyTheParameterBetweenTwoNotificationsOfOneCall)
{
    const std::function<void(KpaInteger&)> calls[] = {
        [](KpaInteger& a) { a.activateAutoValue(); },     [](KpaInteger& a) { a.activateAutoValue(5); },
        [](KpaInteger& a) { a.activateValueLock(true); }, [](KpaInteger& a) { a.setEnabled(false); },
        [](KpaInteger& a) { a.setMaximum(-5); },          [](KpaInteger& a) { a.setAutomatic(true); },
    };
    for (const auto& call : calls) {
        auto a = std::make_unique<KpaInteger>("a");
        const DestroysAtOnce destroys(a);
        call(*a);
        EXPECT_EQ(a, nullptr);
    }
}

static_assert(!std::is_copy_constructible_v<KpaInteger>);
static_assert(!std::is_copy_assignable_v<KpaInteger>);

namespace {

thread_local long allocations = -1;

struct CountAllocations
{
    CountAllocations() { allocations = 0; }
    ~CountAllocations() { allocations = -1; }
    long count() const { return allocations; }
};

} // namespace

// Counting replaces the global allocation of this binary; the default does the same without the count.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    if (allocations >= 0)
        ++allocations;
    return std::malloc(size);
}

void* operator new(std::size_t size)
{
    if (void* memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

TEST(KpaInteger, SettingAValueThatNobodyObservesAllocatesNothing)
{
    KpaInteger a("a");
    a.setRange(0, 1000);
    CountAllocations counted;
    for (int i = 0; i < 100; ++i)
        a.setValue(i);
    EXPECT_EQ(counted.count(), 0);
}

TEST(KpaInteger, SettingAnObservedValueAllocatesNoMoreThanTheRecordOfItsBatch)
{
    class Ignores : public KuoIObserver<KpnModif>
    {
        void update(const KpnModif&) override {}
    };
    KpaInteger a("a");
    Ignores ignores;
    a.addObserver(&ignores);
    a.setValue(1);
    CountAllocations counted;
    a.setLabel(a.getLabel());
    a.setValue(2000);
    EXPECT_LE(counted.count(), 2);
    a.removeObserver(&ignores);
}
