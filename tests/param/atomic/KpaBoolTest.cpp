#include <param/atomic/KpaBool.h>
#include <support/BracketTranslator.h>
#include <support/ObservedAtomic.h>

#include <memory>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaBoolConfig, bool>);

namespace {
using Flags = QList<int>;
} // namespace

TEST(KpaBool, IsOfTheKindBool)
{
    EXPECT_EQ(KpaBool("KEY").getType(), KpbEType::BOOL);
    EXPECT_EQ(KpaBoolConfig().getType(), KpbEType::BOOL);
}

TEST(KpaBool, IsTrueWhenFresh)
{
    const KpaBool flag("KEY");
    EXPECT_TRUE(flag.getValue());
    EXPECT_TRUE(flag.getAutoValue());
    EXPECT_TRUE(KpaBoolConfig().getInitialValue());
    EXPECT_EQ(flag.serialize(), storedValue("yes"));
}

TEST(KpaBool, HasOnlyEqualConfigs)
{
    EXPECT_TRUE(KpaBoolConfig() == KpaBoolConfig());
    EXPECT_FALSE(KpaBoolConfig() != KpaBoolConfig());
}

TEST(KpaBool, SendsNothingForAnotherConfig)
{
    ObservedAtomic<KpaBool> observed;
    EXPECT_EQ(observed.flagsOf([](KpaBool& flag) { flag.setConfig(KpaBoolConfig()); }), Flags());
}

TEST(KpaBool, AdmitsEveryValueWhateverThePreviousOne)
{
    const KpaBoolConfig config;
    for (const bool value : {false, true}) {
        for (const bool previous : {false, true})
            EXPECT_EQ(config.fix(value, previous), value);
    }
}

TEST(KpaBool, TellsOfAChangedValueAndOfNoOther)
{
    ObservedAtomic<KpaBool> observed;
    EXPECT_EQ(observed.flagsOf([](KpaBool& flag) { flag.setValue(true); }), Flags());
    EXPECT_EQ(observed.flagsOf([](KpaBool& flag) { flag.setValue(false); }), Flags{Kp::NotifyValue});
}

TEST(KpaBool, StoresYesAndNo)
{
    KpaBool flag("KEY");
    flag.setValue(true);
    EXPECT_EQ(flag.serialize(), storedValue("yes"));
    flag.setValue(false);
    EXPECT_EQ(flag.serialize(), storedValue("no"));
}

TEST(KpaBool, ReadsItsStoredTexts)
{
    const std::pair<const char*, bool> rows[] = {
        {"yes", true}, {"True", true}, {"no", false}, {"False", false},
        {"1", true},   {"-3", true},   {"42", true},  {"0", false},
    };
    for (const auto& [text, expected] : rows) {
        KpaBool flag("KEY");
        flag.setValue(!expected);
        flag.unserialize(storedValue(text));
        EXPECT_EQ(flag.getValue(), expected) << text;
    }
}

TEST(KpaBool, KeepsItsValueForTextsThatSayNothing)
{
    for (const char* text : {"", "Yes", "NO", "true", "false", "1.5", "nan", "oui", "99999999999999999999"}) {
        for (const bool value : {false, true}) {
            KpaBool flag("KEY");
            flag.setValue(value);
            flag.unserialize(storedValue(text));
            EXPECT_EQ(flag.getValue(), value) << text;
        }
    }
}

TEST(KpaBool, KeepsItsValueWhereTheEntryIsMissing)
{
    KpaBool flag("KEY");
    flag.setValue(false);
    flag.unserialize({});
    EXPECT_FALSE(flag.getValue());
    flag.unserialize({{"other", "yes"}});
    EXPECT_FALSE(flag.getValue());
}

TEST(KpaBool, ShowsYesAndNo)
{
    KpaBool flag("KEY");
    EXPECT_EQ(flag.toString(), "yes");
    flag.setValue(false);
    EXPECT_EQ(flag.toString(), "no");
}

TEST(KpaBool, TranslatesItsTextButNotItsSerialForm)
{
    const BracketTranslator translator;
    const KpaBool flag("KEY");
    EXPECT_EQ(flag.toString(), "[yes]");
    EXPECT_EQ(flag.serialize(), storedValue("yes"));
}

TEST(KpaBool, DebugsItsConfigAsAHeaderAlone)
{
    EXPECT_EQ(KpaBoolConfig().debug(), "----- KpaBoolConfig ----------\n");
    EXPECT_TRUE(KpaBool("KEY").debug(1).endsWith("----- KpaBoolConfig ----------\n"));
}

TEST(KpaBool, DuplicatesItsValueWithoutItsObservers)
{
    ObservedAtomic<KpaBool> observed;
    observed.atomic.setValue(false);
    const std::unique_ptr<KpaBool> sameKey(observed.atomic.duplicate(""));
    const std::unique_ptr<KpaBool> copy(observed.atomic.duplicate("COPY"));
    observed.takeFlags();
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_FALSE(copy->getValue());
    copy->setValue(true);
    EXPECT_FALSE(observed.atomic.getValue());
    EXPECT_EQ(observed.takeFlags(), Flags());
}
