#include <basic/MbbUserStringFormats.h>
#include <basic/MbuUnitService.h>
#include <param/atomic/KpaUnit.h>
#include <support/ObservedAtomic.h>

#include <memory>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaUnitConfig, MbuUnit>);

namespace {
using Flags = QList<int>;

MbuUnit unit(const char* key)
{
    return MbuUnitService::getUnit(key);
}

/// Brings the user's formats back to the defaults.
class KpaUnitTest : public testing::Test
{
protected:
    ~KpaUnitTest() override { MbbUserStringFormats::reset(); }

    ObservedAtomic<KpaUnit> observed;
    KpaUnit& parameter = observed.atomic;
};
} // namespace

TEST_F(KpaUnitTest, IsOfTheKindUnit)
{
    EXPECT_EQ(parameter.getType(), KpbEType::UNIT);
    EXPECT_EQ(KpaUnitConfig().getType(), KpbEType::UNIT);
}

TEST_F(KpaUnitTest, StartsWithoutUnitClassAtPowerOne)
{
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::NONE);
    EXPECT_EQ(parameter.getPowerValue(), 1);
    EXPECT_EQ(parameter.getValue(), MbuUnit());
}

TEST_F(KpaUnitTest, StartsAClassWithTheUnitThatTheUserSees)
{
    KpaUnitConfig config;
    config.setUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(config.getInitialValue(), unit("m"));
    MbbUserStringFormats::setDisplayUnit(unit("ft"));
    EXPECT_EQ(config.getInitialValue(), unit("ft"));
}

TEST_F(KpaUnitTest, ComparesClassAndPowerOfItsConfig)
{
    KpaUnitConfig length;
    length.setUnitClass(MbuEUnitClass::LENGTH);
    KpaUnitConfig squared;
    squared.setPowerValue(2);
    EXPECT_TRUE(KpaUnitConfig() == KpaUnitConfig());
    EXPECT_TRUE(KpaUnitConfig() != length);
    EXPECT_TRUE(KpaUnitConfig() != squared);
}

TEST_F(KpaUnitTest, GivesFromTheSettersOfItsConfigWhetherSomethingChanged)
{
    KpaUnitConfig config;
    EXPECT_FALSE(config.setUnitClass(MbuEUnitClass::NONE));
    EXPECT_TRUE(config.setUnitClass(MbuEUnitClass::LENGTH));
    EXPECT_FALSE(config.setUnitClass(MbuEUnitClass::LENGTH));
    EXPECT_FALSE(config.setPowerValue(1));
    EXPECT_TRUE(config.setPowerValue(2));
    EXPECT_EQ(config.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_EQ(config.getPowerValue(), 2);
}

TEST_F(KpaUnitTest, AdmitsTheUnitsOfItsClassOnly)
{
    KpaUnitConfig config;
    config.setUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(config.fix(unit("km"), unit("m")), unit("km"));
    EXPECT_EQ(config.fix(unit("kg"), unit("m")), unit("m"));
    EXPECT_EQ(config.fix(MbuUnit(), unit("m")), unit("m"));
}

TEST_F(KpaUnitTest, KeepsItsUnitAndNotifiesWhenAUnitOfAnotherClassIsRequested)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(observed.flagsOf([](KpaUnit& p) { p.setValue(unit("kg")); }), Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), unit("m"));
}

TEST_F(KpaUnitTest, FallsToTheDisplayUnitOfANewClass)
{
    MbbUserStringFormats::setDisplayUnit(unit("ft"));
    EXPECT_EQ(observed.flagsOf([](KpaUnit& p) { p.setUnitClass(MbuEUnitClass::LENGTH); }),
              Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getValue(), unit("ft"));
}

TEST_F(KpaUnitTest, SendsNothingForTheSameClassAndPower)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setValue(unit("km"));
    EXPECT_EQ(observed.flagsOf([](KpaUnit& p) { p.setUnitClass(MbuEUnitClass::LENGTH); }), Flags());
    EXPECT_EQ(observed.flagsOf([](KpaUnit& p) { p.setPowerValue(1); }), Flags());
    EXPECT_EQ(parameter.getValue(), unit("km"));
}

TEST_F(KpaUnitTest, TellsOfAnotherPowerAndKeepsTheUnit)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setValue(unit("km"));
    EXPECT_EQ(observed.flagsOf([](KpaUnit& p) { p.setPowerValue(2); }), Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getPowerValue(), 2);
    EXPECT_EQ(parameter.getValue(), unit("km"));
}

TEST_F(KpaUnitTest, ShowsTheSymbolWithItsPower)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setValue(unit("km"));
    EXPECT_EQ(parameter.toString(), "km");
    parameter.setPowerValue(2);
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("km²"));
    parameter.setPowerValue(-1);
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("km⁻¹"));
}

TEST_F(KpaUnitTest, ShowsNothingForNoUnit)
{
    EXPECT_EQ(parameter.toString(), "");
}

TEST_F(KpaUnitTest, StoresTheKeyOfTheUnit)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setValue(unit("us_ft"));
    EXPECT_EQ(parameter.serialize(), storedValue("us_ft"));
}

TEST_F(KpaUnitTest, ReadsAUnitOfItsClass)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(observed.flagsOf([](KpaUnit& p) { p.unserialize(storedValue("km")); }), Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), unit("km"));
    EXPECT_EQ(observed.flagsOf([](KpaUnit& p) { p.unserialize(storedValue("km")); }), Flags());
}

TEST_F(KpaUnitTest, TakesOverTheClassOfAStoredUnitInOneRecord)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(observed.flagsOf([](KpaUnit& p) { p.unserialize(storedValue("kg")); }),
              Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::MASS);
    EXPECT_EQ(parameter.getValue(), unit("kg"));
}

TEST_F(KpaUnitTest, ReadsTheAbsenceOfAUnit)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.unserialize(storedValue("none"));
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::NONE);
    EXPECT_EQ(parameter.getValue(), MbuUnit());
}

TEST_F(KpaUnitTest, ReadsBackWhatItStoresForEveryUnit)
{
    for (const MbuEUnitClass* unitClass : MbuEUnitClass::items()) {
        for (const MbuUnit& each : MbuUnitService::getUnits(*unitClass)) {
            KpaUnit source("KEY");
            source.setUnitClass(*unitClass);
            source.setValue(each);
            KpaUnit target("KEY");
            target.unserialize(source.serialize());
            EXPECT_EQ(target.getValue(), each) << each.getKey().toStdString();
            EXPECT_EQ(target.getUnitClass(), *unitClass);
        }
    }
}

TEST_F(KpaUnitTest, EndsTheAutomaticModeWhenItReadsAnotherUnit)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.activateAutoValue(unit("m"));
    parameter.unserialize(storedValue("km"));
    EXPECT_FALSE(parameter.isAutomatic());
    EXPECT_TRUE(parameter.isAutomaticValueInitialized());
}

TEST_F(KpaUnitTest, KeepsAnAutomaticUnitWhateverTheClassRead)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.activateAutoValue(unit("m"));
    EXPECT_EQ(observed.flagsOf([](KpaUnit& p) { p.unserialize(storedValue("kg")); }),
              Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_FALSE(parameter.isAutomatic());
    EXPECT_TRUE(parameter.isAutomaticValueInitialized());
    EXPECT_EQ(parameter.getAutoValue(), unit("m"));
}

TEST_F(KpaUnitTest, KeepsItsPowerWhenItReadsAnotherClass)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setPowerValue(2);
    parameter.unserialize(storedValue("kg"));
    EXPECT_EQ(parameter.getPowerValue(), 2);
}

TEST_F(KpaUnitTest, ForgetsAnAutomaticUnitThatDoesNotFitANewClass)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setAutoValue(unit("km"));
    parameter.setUnitClass(MbuEUnitClass::MASS);
    EXPECT_EQ(parameter.getValue(), unit("kg"));
    EXPECT_FALSE(parameter.isAutomaticValueInitialized());
}

TEST_F(KpaUnitTest, KeepsUnitAndClassForAnUnknownKey)
{
    for (const char* text : {"", "parsec", "KM", " km", "km ", "Kilometer", "nan", "1", "<m/>"}) {
        parameter.setUnitClass(MbuEUnitClass::LENGTH);
        parameter.setValue(unit("cm"));
        EXPECT_EQ(observed.flagsOf([&](KpaUnit& p) { p.unserialize(storedValue(text)); }), Flags()) << text;
        EXPECT_EQ(parameter.getValue(), unit("cm")) << text;
        EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::LENGTH) << text;
    }
}

TEST_F(KpaUnitTest, KeepsUnitAndClassWhereTheEntryIsMissing)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setValue(unit("cm"));
    parameter.unserialize({});
    EXPECT_EQ(parameter.getValue(), unit("cm"));
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::LENGTH);
}

TEST_F(KpaUnitTest, DebugsItsConfig)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getConfig().debug(), "----- KpaUnitConfig --------\n"
                                             " Unit Class = LENGTH (Length)\n");
    EXPECT_TRUE(parameter.debug(1).endsWith(" Unit Class = LENGTH (Length)\n"));
}

TEST_F(KpaUnitTest, DuplicatesUnitAndConfig)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setPowerValue(3);
    parameter.setValue(unit("km"));
    const std::unique_ptr<KpaUnit> copy(parameter.duplicate("COPY"));
    const std::unique_ptr<KpaUnit> sameKey(parameter.duplicate(""));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getValue(), unit("km"));
    EXPECT_TRUE(copy->getConfig() == parameter.getConfig());
    copy->setValue(unit("m"));
    EXPECT_EQ(parameter.getValue(), unit("km"));
}
