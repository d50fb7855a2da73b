#include <basic/MbuUnitService.h>
#include <param/atomic/KpaVectorDouble.h>
#include <support/ObservedAtomic.h>

#include <functional>
#include <memory>
#include <utility>

#include <gtest/gtest.h>

namespace {
using Flags = QList<int>;
using Setter = std::function<void(KpaVectorDouble&)>;

constexpr double undefined = MbbGlobal::D_FFFF;

MbbStringFormat decimals(const MbuEUnitClass& unitClass, int count)
{
    MbbStringFormat format(unitClass);
    format.setNotation(MbbEFormat::DECIMAL);
    format.setPrecision(count);
    return format;
}

MbdVariableDetails details(const MbuEUnitClass& unitClass, int powerValue)
{
    MbdVariableDetails result(unitClass);
    result.setPowerValue(powerValue);
    return result;
}

MbdVariableDetails formattedDetails(const MbuEUnitClass& unitClass, int decimalCount)
{
    MbdVariableDetails result(unitClass);
    result.getNumericDetails().setUserDefinedStringFormat(decimals(unitClass, decimalCount));
    result.setUnitDefaultFormatUsed(false);
    return result;
}

class KpaVectorDoubleTest : public testing::Test
{
protected:
    bool usesCustomFormat(int i) const { return parameter.getConfig().itemConfig(i).useCustomFormat(); }
    MbbStringFormat customFormat(int i) const { return parameter.getConfig().itemConfig(i).getCustomFormat(); }

    ObservedAtomic<KpaVectorDouble> observed;
    KpaVectorDouble& parameter = observed.atomic;
};
} // namespace

TEST_F(KpaVectorDoubleTest, IsOfTheKindVector)
{
    EXPECT_EQ(parameter.getType(), KpbEType::VECTOR_DOUBLE);
    EXPECT_EQ(KpaVectorDoubleConfig().getType(), KpbEType::VECTOR_DOUBLE);
}

TEST_F(KpaVectorDoubleTest, ComparesTheKindsOfConfigs)
{
    struct ConfigOfOtherKind : KpaAVectorConfig<MbgVector3D, double, KpaDoubleConfig>
    {
        ConfigOfOtherKind() : KpaAVectorConfig(KpbEType::MATRIX) {}
    };
    const KpaAVectorConfig<MbgVector3D, double, KpaDoubleConfig>& config = KpaVectorDoubleConfig();
    EXPECT_FALSE(config == ConfigOfOtherKind());
    EXPECT_TRUE(config == KpaVectorDoubleConfig());
}

TEST_F(KpaVectorDoubleTest, StartsWithoutUnitsAndDefined)
{
    EXPECT_TRUE(parameter.isDefined());
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(parameter.getComponentUnitClass(i), MbuEUnitClass::NONE);
        EXPECT_EQ(parameter.getComponentPowerValue(i), 1);
        EXPECT_FALSE(parameter.isComponentUndefineEnabled(i));
    }
}

TEST_F(KpaVectorDoubleTest, StoresDoublesWithTenDigits)
{
    parameter.setComponentValues(10, 20.5, 1.0 / 3);
    EXPECT_EQ(parameter.serialize(), KpbAParameter::SerialForm({{"v1", "10"}, {"v2", "20.5"}, {"v3", "0.3333333333"}}));
    KpaVectorDouble other("OTHER");
    other.unserialize({{"v1", "10"}, {"v2", "20.5"}, {"v3", "1.25e+6"}});
    EXPECT_EQ(other.getV2(), 20.5);
    EXPECT_EQ(other.getV3(), 1.25e6);
}

TEST_F(KpaVectorDoubleTest, WrapsAComponentThatIsACycle)
{
    KpaVectorDoubleConfig config;
    config.itemConfig(1).setRange(0, 360);
    config.itemConfig(1).setWrapped(true);
    const MbgVector3D fixed = config.fix(MbgVector3D(725, 725, 725));
    EXPECT_EQ(fixed, MbgVector3D(725, 5, 725));
}

TEST_F(KpaVectorDoubleTest, AdmitsUndefinedComponentsWhereAllowed)
{
    parameter.setUndefinedEnabled(1, true);
    EXPECT_FALSE(parameter.isComponentUndefineEnabled(0));
    EXPECT_TRUE(parameter.isComponentUndefineEnabled(1));
    EXPECT_FALSE(parameter.isComponentUndefineEnabled(2));
    parameter.setComponentValue(undefined);
    EXPECT_EQ(parameter.getValue(), MbgVector3D(0, undefined, 0));
    EXPECT_FALSE(parameter.isDefined());
    EXPECT_EQ(parameter.toString(), MbbGlobal::STR_NA);
}

TEST_F(KpaVectorDoubleTest, TellsOfEachComponentThatMayBeUndefinedOnItsOwn)
{
    const Flags config{Kp::NotifyConfig};
    EXPECT_EQ(observed.flagsOf([](KpaVectorDouble& p) { p.setUndefinedEnabled(true); }), config + config + config);
    EXPECT_EQ(observed.flagsOf([](KpaVectorDouble& p) { p.setUndefinedEnabled(true); }), Flags());
    EXPECT_EQ(observed.flagsOf([](KpaVectorDouble& p) { p.setUndefinedEnabled(2, false); }), config);
    EXPECT_EQ(observed.flagsOf([](KpaVectorDouble& p) { p.setUndefinedEnabled(true); }), config);
    parameter.setComponentValue(undefined);
    EXPECT_EQ(observed.flagsOf([](KpaVectorDouble& p) { p.setUndefinedEnabled(false); }),
              Flags({Kp::NotifyConfig | Kp::NotifyValue, Kp::NotifyConfig | Kp::NotifyValue,
                     Kp::NotifyConfig | Kp::NotifyValue}));
    EXPECT_EQ(parameter.getValue(), MbgVector3D(0, 0, 0));
}

TEST_F(KpaVectorDoubleTest, SetsUnitClassAndPowerOfComponents)
{
    parameter.setComponentUnitClass(1, MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getComponentUnitClass(0), MbuEUnitClass::NONE);
    EXPECT_EQ(parameter.getComponentUnitClass(1), MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getComponentUnitClass(9), MbuEUnitClass::NONE);
    parameter.setComponentPowerValue(1, 2);
    EXPECT_EQ(parameter.getComponentPowerValue(0), 1);
    EXPECT_EQ(parameter.getComponentPowerValue(1), 2);
    EXPECT_EQ(parameter.getComponentUnitClass(1), MbuEUnitClass::LENGTH);
    parameter.setComponentUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getComponentUnitClass(2), MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getComponentPowerValue(1), 2);
    parameter.setComponentPowerValue(3);
    EXPECT_EQ(parameter.getComponentPowerValue(0), 3);
    EXPECT_EQ(parameter.getComponentPowerValue(2), 3);
    parameter.setComponentPowerValues(4, 5, 6);
    EXPECT_EQ(parameter.getComponentPowerValue(0), 4);
    EXPECT_EQ(parameter.getComponentPowerValue(1), 5);
    EXPECT_EQ(parameter.getComponentPowerValue(2), 6);
    parameter.setComponentUnitClasses(MbuEUnitClass::NONE, MbuEUnitClass::LENGTH, MbuEUnitClass::ANGLE);
    EXPECT_EQ(parameter.getComponentUnitClass(0), MbuEUnitClass::NONE);
    EXPECT_EQ(parameter.getComponentUnitClass(1), MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getComponentUnitClass(2), MbuEUnitClass::ANGLE);
}

TEST_F(KpaVectorDoubleTest, TurnsTheUnitClassesOfItsComponentsRound)
{
    parameter.setComponentUnitClasses(MbuEUnitClass::NONE, MbuEUnitClass::LENGTH, MbuEUnitClass::ANGLE);
    parameter.setComponentUnitClasses(parameter.getComponentUnitClass(2), parameter.getComponentUnitClass(0),
                                      parameter.getComponentUnitClass(1));
    EXPECT_EQ(parameter.getComponentUnitClass(0), MbuEUnitClass::ANGLE);
    EXPECT_EQ(parameter.getComponentUnitClass(1), MbuEUnitClass::NONE);
    EXPECT_EQ(parameter.getComponentUnitClass(2), MbuEUnitClass::LENGTH);
}

TEST_F(KpaVectorDoubleTest, TellsOfUnitsOnceAndOnlyWhereSomethingChanged)
{
    const std::pair<const char*, Setter> setters[] = {
        {"power of one", [](KpaVectorDouble& p) { p.setComponentPowerValue(1, 2); }},
        {"power of all", [](KpaVectorDouble& p) { p.setComponentPowerValue(2); }},
        {"three powers", [](KpaVectorDouble& p) { p.setComponentPowerValues(2, 3, 4); }},
        {"class of one", [](KpaVectorDouble& p) { p.setComponentUnitClass(1, MbuEUnitClass::LENGTH); }},
        {"class of all", [](KpaVectorDouble& p) { p.setComponentUnitClass(MbuEUnitClass::LENGTH); }},
        {"three classes",
         [](KpaVectorDouble& p) {
             p.setComponentUnitClasses(MbuEUnitClass::LENGTH, MbuEUnitClass::ANGLE, MbuEUnitClass::NONE);
         }},
    };
    for (const auto& [name, set] : setters) {
        ObservedAtomic<KpaVectorDouble> each;
        EXPECT_EQ(each.flagsOf(set), Flags{Kp::NotifyConfig}) << name;
        EXPECT_EQ(each.flagsOf(set), Flags()) << name;
    }
}

TEST_F(KpaVectorDoubleTest, PassesOverAComponentThatThereIsNot)
{
    for (const int index : {-1, 3}) {
        parameter.setComponentPowerValue(index, 2);
        parameter.setComponentUnitClass(index, MbuEUnitClass::LENGTH);
        parameter.setComponentDetails(index, details(MbuEUnitClass::LENGTH, 2));
        parameter.setUndefinedEnabled(index, true);
    }
    EXPECT_TRUE(parameter.getConfig() == KpaVectorDoubleConfig());
    EXPECT_EQ(observed.takeFlags(), Flags());
}

TEST_F(KpaVectorDoubleTest, TakesOverDetailsInTheDefaultFormat)
{
    const auto set = [](KpaVectorDouble& p) { p.setComponentDetails(1, details(MbuEUnitClass::LENGTH, 2)); };
    EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getComponentUnitClass(1), MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getComponentPowerValue(1), 2);
    EXPECT_FALSE(usesCustomFormat(1));
    EXPECT_EQ(parameter.getComponentUnitClass(0), MbuEUnitClass::NONE);
    EXPECT_EQ(observed.flagsOf(set), Flags());
}

TEST_F(KpaVectorDoubleTest, TakesOverTheFormatOfDetailsThatHaveOne)
{
    parameter.setComponentDetails(0, formattedDetails(MbuEUnitClass::LENGTH, 4));
    EXPECT_EQ(parameter.getComponentUnitClass(0), MbuEUnitClass::LENGTH);
    EXPECT_TRUE(usesCustomFormat(0));
    EXPECT_EQ(customFormat(0), decimals(MbuEUnitClass::LENGTH, 4));
    EXPECT_FALSE(usesCustomFormat(1));
    EXPECT_EQ(parameter.getComponentDetails(0), formattedDetails(MbuEUnitClass::LENGTH, 4));
}

TEST_F(KpaVectorDoubleTest, TakesOverTheFormatOfDetailsWithoutUnitClass)
{
    MbdVariableDetails plain;
    plain.getNumericDetails().setUserDefinedStringFormat(decimals(MbuEUnitClass::NONE, 3));
    EXPECT_TRUE(plain.isUnitDefaultFormatUsed());
    parameter.setComponentDetails(2, plain);
    EXPECT_TRUE(usesCustomFormat(2));
    EXPECT_EQ(customFormat(2), decimals(MbuEUnitClass::NONE, 3));
}

TEST_F(KpaVectorDoubleTest, DropsACustomFormatForDetailsInTheDefaultFormat)
{
    parameter.setComponentDetails(0, formattedDetails(MbuEUnitClass::LENGTH, 4));
    parameter.setComponentDetails(0, details(MbuEUnitClass::LENGTH, 1));
    EXPECT_FALSE(usesCustomFormat(0));
}

TEST_F(KpaVectorDoubleTest, TakesOverDetailsForAllComponentsOneAfterTheOther)
{
    const Flags config{Kp::NotifyConfig};
    EXPECT_EQ(observed.flagsOf([](KpaVectorDouble& p) { p.setComponentDetails(details(MbuEUnitClass::LENGTH, 2)); }),
              config + config + config);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(parameter.getComponentUnitClass(i), MbuEUnitClass::LENGTH);
        EXPECT_EQ(parameter.getComponentPowerValue(i), 2);
    }
    EXPECT_EQ(observed.flagsOf([](KpaVectorDouble& p) {
        p.setComponentDetails(details(MbuEUnitClass::LENGTH, 2), details(MbuEUnitClass::LENGTH, 3),
                              formattedDetails(MbuEUnitClass::ANGLE, 1));
    }),
              config + config);
    EXPECT_EQ(parameter.getComponentPowerValue(0), 2);
    EXPECT_EQ(parameter.getComponentPowerValue(1), 3);
    EXPECT_EQ(parameter.getComponentUnitClass(2), MbuEUnitClass::ANGLE);
    EXPECT_TRUE(usesCustomFormat(2));
}

TEST_F(KpaVectorDoubleTest, PrintsComponentsInTheirOwnFormats)
{
    parameter.setComponentUnitClass(0, MbuEUnitClass::LENGTH);
    parameter.setComponentDetails(1, formattedDetails(MbuEUnitClass::NONE, 2));
    parameter.setComponentValues(1.5, 2, 3.25);
    EXPECT_EQ(parameter.toString(), "[1.5 m,2.00,3.25]");
    parameter.setDimension(Kp::VectorDim2, 0);
    EXPECT_EQ(parameter.toString(), "[1.5 m,2.00]");
    parameter.setDimension(Kp::VectorDim1, 0);
    EXPECT_EQ(parameter.toString(), "1.5 m");
}

TEST_F(KpaVectorDoubleTest, DebugsItsConfig)
{
    const QString item = KpaDoubleConfig().debug();
    EXPECT_TRUE(item.startsWith("----- KpaDoubleConfig --------\n"));
    EXPECT_EQ(KpaVectorDoubleConfig().debug(), "----- KpaAVectorConfig ------\n"
                                               " nb dimensions    = 3\n"
                                               " fill value       = 0\n"
                                               " link mode        = NO LINK\n"
                                               " label 1          = \n"
                                               " label 2          = \n"
                                               " label 3          = \n" +
                                                   item + item + item);
    parameter.setLinkMode(Kp::LinkAll);
    parameter.setDimension(Kp::VectorDim1, 1234567.25);
    EXPECT_TRUE(parameter.debug(1).endsWith(parameter.getConfig().debug()));
    EXPECT_TRUE(parameter.getConfig().debug().startsWith("----- KpaAVectorConfig ------\n"
                                                         " nb dimensions    = 1\n"
                                                         " fill value       = 1234567.25\n"
                                                         " link mode        = LINK ALL\n"));
}

TEST_F(KpaVectorDoubleTest, SurvivesThatAnObserverDestroysItBetweenTwoComponents)
{
    struct Destroyer : RecordingObserver
    {
        void update(const KpnModif& modif) override
        {
            RecordingObserver::update(modif);
            target.reset();
        }
        std::unique_ptr<KpaVectorDouble> target = std::make_unique<KpaVectorDouble>("KEY");
    };
    const Setter setters[] = {
        [](KpaVectorDouble& p) { p.setUndefinedEnabled(true); },
        [](KpaVectorDouble& p) { p.setComponentDetails(details(MbuEUnitClass::LENGTH, 2)); },
    };
    for (const Setter& set : setters) {
        Destroyer observer;
        observer.target->addObserver(&observer);
        set(*observer.target);
        EXPECT_FALSE(observer.target);
        EXPECT_EQ(observer.allFlags().size(), 1);
    }
}
