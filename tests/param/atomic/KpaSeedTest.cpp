#include <basic/MbbGlobal.h>
#include <param/atomic/KpaSeed.h>
#include <support/BracketTranslator.h>
#include <support/ObservedAtomic.h>

#include <memory>

#include <gtest/gtest.h>

using Seed = unsigned long long;

static_assert(KpaAtomicConfig<KpaSeedConfig, Seed>);

namespace {
using Flags = QList<int>;

constexpr Seed signBit = Seed(1) << 63;

bool isLastSeed(const KpaSeed& seed, Seed last)
{
    KpaSeedConfig config = seed.getConfig();
    return !config.setLastSeed(last);
}
} // namespace

TEST(KpaSeed, IsOfTheKindSeed)
{
    EXPECT_EQ(KpaSeed("KEY").getType(), KpbEType::SEED);
    EXPECT_EQ(KpaSeedConfig().getType(), KpbEType::SEED);
}

TEST(KpaSeed, StartsAsAChosenSeed)
{
    const KpaSeed seed("KEY");
    EXPECT_EQ(seed.getValue(), 12345678u);
    EXPECT_EQ(seed.getAutoValue(), 12345678u);
    EXPECT_EQ(KpaSeedConfig().getInitialValue(), 12345678u);
    EXPECT_FALSE(seed.isRandom());
    EXPECT_FALSE(seed.getConfig().isRandom());
    EXPECT_EQ(seed.toString(), "12345678");
}

TEST(KpaSeed, ComparesAllFieldsOfItsConfig)
{
    const KpaSeedConfig fresh;
    EXPECT_TRUE(fresh == KpaSeedConfig());
    EXPECT_FALSE(fresh != KpaSeedConfig());

    KpaSeedConfig random;
    random.setRandom(true);
    EXPECT_TRUE(fresh != random);

    KpaSeedConfig defined;
    defined.setLastSeed(165426);
    EXPECT_TRUE(fresh != defined);

    KpaSeedConfig another;
    another.setLastSeed(7);
    EXPECT_TRUE(another != defined);
}

TEST(KpaSeed, RemembersTheLastSeedAsChangedOnlyWhereItIsNew)
{
    KpaSeedConfig config;
    EXPECT_TRUE(config.setLastSeed(165426)); // the number was there, but not as a seed that was used
    EXPECT_FALSE(config.setLastSeed(165426));
    EXPECT_TRUE(config.setLastSeed(7));
    EXPECT_FALSE(config.setLastSeed(7));
}

TEST(KpaSeed, AdmitsEveryNumberButZeroAndTheUndefinedMarker)
{
    const KpaSeedConfig config;
    EXPECT_EQ(config.fix(0, 9), 9u);
    EXPECT_EQ(config.fix(MbbGlobal::UI64_FFFF, 9), 9u);
    for (const Seed value : {Seed(1), Seed(77), signBit - 1, signBit, signBit + 1, MbbGlobal::UI64_FFFF - 1})
        EXPECT_EQ(config.fix(value, 9), value);
}

TEST(KpaSeed, KeepsItsValueAndNotifiesWhenZeroIsRequested)
{
    for (const Seed request : {Seed(0), Seed(MbbGlobal::UI64_FFFF)}) {
        ObservedAtomic<KpaSeed> observed;
        EXPECT_EQ(observed.flagsOf([&](KpaSeed& seed) { seed.setValue(request); }), Flags{Kp::NotifyValue});
        EXPECT_EQ(observed.atomic.getValue(), 12345678u);
    }
}

TEST(KpaSeed, NotifiesAChangeOfTheRandomModeOnly)
{
    ObservedAtomic<KpaSeed> observed;
    EXPECT_EQ(observed.flagsOf([](KpaSeed& seed) { seed.setRandom(false); }), Flags());
    EXPECT_EQ(observed.flagsOf([](KpaSeed& seed) { seed.setRandom(true); }), Flags{Kp::NotifyConfig});
    EXPECT_TRUE(observed.atomic.isRandom());
    EXPECT_EQ(observed.flagsOf([](KpaSeed& seed) { seed.setRandom(true); }), Flags());
}

TEST(KpaSeed, GeneratesItsValueAndRemembersIt)
{
    ObservedAtomic<KpaSeed> observed;
    observed.atomic.setValue(5);
    Seed generated = 0;
    EXPECT_EQ(observed.flagsOf([&](KpaSeed& seed) { generated = seed.generateSeed(); }), Flags{Kp::NotifyConfig});
    EXPECT_EQ(generated, 5u);
    EXPECT_EQ(observed.atomic.getValue(), 5u);
    EXPECT_TRUE(isLastSeed(observed.atomic, 5));
}

TEST(KpaSeed, SendsNothingWhenItGeneratesTheLastSeedAgain)
{
    ObservedAtomic<KpaSeed> observed;
    observed.atomic.generateSeed();
    EXPECT_EQ(observed.flagsOf([](KpaSeed& seed) { EXPECT_EQ(seed.generateSeed(), 12345678u); }), Flags());
}

TEST(KpaSeed, GeneratesAndRemembersTheNumberThatStandsForNoSeedYet)
{
    ObservedAtomic<KpaSeed> observed;
    observed.atomic.setValue(165426);
    EXPECT_EQ(observed.flagsOf([](KpaSeed& seed) { seed.generateSeed(); }), Flags{Kp::NotifyConfig});
}

TEST(KpaSeed, DrawsFromTheClockInRandomModeAndKeepsItsValue)
{
    ObservedAtomic<KpaSeed> observed;
    observed.atomic.setRandom(true);
    Seed generated = 60000;
    EXPECT_EQ(observed.flagsOf([&](KpaSeed& seed) { generated = seed.generateSeed(); }), Flags{Kp::NotifyConfig});
    EXPECT_LE(generated, 59999u);
    EXPECT_EQ(observed.atomic.getValue(), 12345678u);
    EXPECT_TRUE(isLastSeed(observed.atomic, generated));
}

TEST(KpaSeed, ShowsTheLastSeedUnlessItIsTheValue)
{
    struct Row
    {
        bool random;
        Seed value;
        Seed last; ///< 0: none
        const char* text;
    };
    const Row rows[] = {
        {false, 12345678, 0, "12345678"},
        {false, 12345678, 12345678, "12345678"},
        {false, 12345678, 4711, "12345678 (last seed: 4711)"},
        {true, 12345678, 0, "Random"},
        {true, 12345678, 4711, "Random (last seed: 4711)"},
        {true, 4711, 4711, "Random (last seed: 4711)"},
        {false, signBit, 0, "9223372036854775808"},
        {false, 1, 18446744073709551614u, "1 (last seed: 18446744073709551614)"},
    };
    for (const Row& row : rows) {
        KpaSeedConfig config;
        config.setRandom(row.random);
        if (row.last != 0)
            config.setLastSeed(row.last);
        EXPECT_EQ(config.toString(row.value), row.text);
    }
}

TEST(KpaSeed, TranslatesItsTextButNotItsSerialForm)
{
    KpaSeed seed("KEY");
    seed.setValue(5);
    seed.generateSeed();
    seed.setRandom(true);
    const BracketTranslator translator;
    EXPECT_EQ(seed.toString(), "[Random][ (last seed: 5)]");
    EXPECT_EQ(seed.serialize(), storedValue("random"));
}

TEST(KpaSeed, ShowsTheGeneratedSeedOnceTheValueIsAnother)
{
    KpaSeed seed("KEY");
    seed.setValue(5);
    seed.generateSeed();
    EXPECT_EQ(seed.toString(), "5");
    seed.setValue(6);
    EXPECT_EQ(seed.toString(), "6 (last seed: 5)");
}

TEST(KpaSeed, StoresItsDigitsOrTheRandomMode)
{
    KpaSeed seed("KEY");
    EXPECT_EQ(seed.serialize(), storedValue("12345678"));
    seed.setRandom(true);
    EXPECT_EQ(seed.serialize(), storedValue("random"));
}

TEST(KpaSeed, DoesNotStoreTheLastSeed)
{
    KpaSeed seed("KEY");
    seed.generateSeed();
    seed.setValue(5);
    EXPECT_EQ(seed.serialize(), storedValue("5"));
}

TEST(KpaSeed, ReadsBackEverySeedThatItStores)
{
    for (const Seed value : {Seed(1), Seed(77), signBit - 1, signBit, signBit + 1, Seed(MbbGlobal::UI64_FFFF - 1)}) {
        KpaSeed source("KEY");
        source.setValue(value);
        KpaSeed target("KEY");
        target.unserialize(source.serialize());
        EXPECT_EQ(target.getValue(), value);
        EXPECT_FALSE(target.isRandom());
    }
}

TEST(KpaSeed, ReadsTheRandomModeAndLeavesTheValue)
{
    for (const auto& form : {storedValue("random"), storedValue(""), KpbAParameter::SerialForm()}) {
        KpaSeed seed("KEY");
        seed.setValue(5);
        seed.unserialize(form);
        EXPECT_TRUE(seed.isRandom());
        EXPECT_EQ(seed.getValue(), 5u);
    }
}

TEST(KpaSeed, ReadsASeedAndEndsTheRandomMode)
{
    KpaSeed seed("KEY");
    seed.setRandom(true);
    seed.unserialize(storedValue("77"));
    EXPECT_FALSE(seed.isRandom());
    EXPECT_EQ(seed.getValue(), 77u);
}

TEST(KpaSeed, TellsOfTheValueAloneWhenItReadsAnotherMode)
{
    ObservedAtomic<KpaSeed> observed;
    EXPECT_EQ(observed.flagsOf([](KpaSeed& seed) { seed.unserialize(storedValue("random")); }), Flags());
    EXPECT_TRUE(observed.atomic.isRandom());
    EXPECT_EQ(observed.flagsOf([](KpaSeed& seed) { seed.unserialize(storedValue("77")); }), Flags{Kp::NotifyValue});
    EXPECT_FALSE(observed.atomic.isRandom());
}

TEST(KpaSeed, KeepsTheLastSeedWhenItReadsAnother)
{
    KpaSeed seed("KEY");
    seed.setValue(5);
    seed.generateSeed();
    seed.unserialize(storedValue("77"));
    EXPECT_TRUE(isLastSeed(seed, 5));
    EXPECT_EQ(seed.toString(), "77 (last seed: 5)");
}

TEST(KpaSeed, EndsTheAutomaticModeOnlyWhenItReadsAnotherSeed)
{
    ObservedAtomic<KpaSeed> observed;
    observed.atomic.activateAutoValue(5);
    EXPECT_EQ(observed.flagsOf([](KpaSeed& seed) { seed.unserialize(storedValue("5")); }), Flags());
    EXPECT_TRUE(observed.atomic.isAutomatic());
    EXPECT_EQ(observed.flagsOf([](KpaSeed& seed) { seed.unserialize(storedValue("6")); }),
              Flags{Kp::NotifyValue | Kp::NotifyConfig});
    EXPECT_FALSE(observed.atomic.isAutomatic());
}

TEST(KpaSeed, ReadsNegativeNumbersAsUnsignedOnes)
{
    KpaSeed seed("KEY");
    seed.unserialize(storedValue("-2"));
    EXPECT_EQ(seed.getValue(), 18446744073709551614u);
}

TEST(KpaSeed, KeepsItsValueForTextsThatAreNoSeed)
{
    for (const char* text :
         {"0", "-0", "-1", "Random", "RANDOM", "abc", "1.5", "1e3", "nan", "inf", "0x10", "9223372036854775808",
          "18446744073709551615", "-9223372036854775809", "99999999999999999999999999999999999999"})
    {
        KpaSeed seed("KEY");
        seed.setRandom(true);
        seed.setValue(5);
        EXPECT_NO_THROW(seed.unserialize(storedValue(text)));
        EXPECT_EQ(seed.getValue(), 5u) << text;
        EXPECT_FALSE(seed.isRandom()) << text;
    }
}

TEST(KpaSeed, DebugsItsConfig)
{
    KpaSeed seed("KEY");
    EXPECT_EQ(seed.getConfig().debug(), "----- KpaSeedConfig ----------\n"
                                        " random           = no\n"
                                        " lastSeed         = 165426\n");
    seed.generateSeed();
    seed.setRandom(true);
    EXPECT_TRUE(seed.debug(1).endsWith("----- KpaSeedConfig ----------\n"
                                       " random           = yes\n"
                                       " lastSeed         = 12345678\n"));
}

TEST(KpaSeed, DuplicatesValueAndConfig)
{
    KpaSeed seed("KEY");
    seed.setValue(5);
    seed.generateSeed();
    seed.setRandom(true);
    const std::unique_ptr<KpaSeed> copy(seed.duplicate("COPY"));
    const std::unique_ptr<KpaSeed> sameKey(seed.duplicate(""));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getValue(), 5u);
    EXPECT_TRUE(copy->getConfig() == seed.getConfig());
    copy->setRandom(false);
    EXPECT_TRUE(seed.isRandom());
}

TEST(KpaSeed, TakesOverAnotherConfigAndTellsOfIt)
{
    ObservedAtomic<KpaSeed> observed;
    KpaSeedConfig config;
    config.setRandom(true);
    EXPECT_EQ(observed.flagsOf([&](KpaSeed& seed) { seed.setConfig(config); }), Flags{Kp::NotifyConfig});
    EXPECT_TRUE(observed.atomic.isRandom());
    EXPECT_EQ(observed.flagsOf([&](KpaSeed& seed) { seed.setConfig(config); }), Flags());
}
