#include <basic/MbbUserStringFormats.h>
#include <basic/MbdVariableDetailsHelper.h>
#include <basic/MbuUnitService.h>
#include <param/atomic/KpaDouble.h>
#include <support/ObservedAtomic.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaDoubleConfig, double>);

namespace {
using Flags = QList<int>;
using Setter = std::function<void(KpaDouble&)>;

constexpr double undefined = MbbGlobal::D_FFFF;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

MbuUnit unit(const char* key)
{
    return MbuUnitService::getUnit(key);
}

MbbStringFormat decimals(const MbuEUnitClass& unitClass, int count)
{
    MbbStringFormat format(unitClass);
    format.setNotation(MbbEFormat::DECIMAL);
    format.setPrecision(count);
    return format;
}

KpaDoubleConfig range(double minimum, double maximum, bool wrapped = false)
{
    KpaDoubleConfig config;
    config.setMinimum(minimum);
    config.setMaximum(maximum);
    config.setWrapped(wrapped);
    return config;
}

/// Brings the user's formats back to the defaults.
class KpaDoubleTest : public testing::Test
{
protected:
    ~KpaDoubleTest() override { MbbUserStringFormats::reset(); }

    ObservedAtomic<KpaDouble> observed;
    KpaDouble& parameter = observed.atomic;
};
} // namespace

TEST_F(KpaDoubleTest, IsOfTheKindDouble)
{
    EXPECT_EQ(parameter.getType(), KpbEType::DOUBLE);
    EXPECT_EQ(KpaDoubleConfig().getType(), KpbEType::DOUBLE);
}

TEST_F(KpaDoubleTest, StartsAtZeroWithoutLimits)
{
    EXPECT_EQ(parameter.getValue(), 0.0);
    EXPECT_EQ(parameter.getAutoValue(), 0.0);
    EXPECT_EQ(KpaDoubleConfig().getInitialValue(), 0.0);
    EXPECT_TRUE(parameter.isDefined());
    EXPECT_EQ(parameter.getStep(), undefined);
    EXPECT_EQ(parameter.getMinimum(), undefined);
    EXPECT_EQ(parameter.getMaximum(), undefined);
    EXPECT_FALSE(parameter.isStepDefined());
    EXPECT_FALSE(parameter.isMinimumDefined());
    EXPECT_FALSE(parameter.isMaximumDefined());
    EXPECT_FALSE(parameter.isWrapped());
    EXPECT_FALSE(parameter.isUndefineEnabled());
}

TEST_F(KpaDoubleTest, StartsAsAPlainNumberInTheUsersFormat)
{
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::NONE);
    EXPECT_EQ(parameter.getPowerValue(), 1);
    EXPECT_EQ(parameter.getUndefString(), "");
    EXPECT_FALSE(parameter.useCustomFormat());
    EXPECT_TRUE(parameter.getCustomFormat()._isEqual(MbbUserStringFormats::getStringFormat(MbuEUnitClass::NONE)));
}

TEST_F(KpaDoubleTest, HasAConfigForAUnitClassAndAPower)
{
    MbbUserStringFormats::setStringFormat(decimals(MbuEUnitClass::LENGTH, 3));
    const KpaDoubleConfig config(MbuEUnitClass::LENGTH, 2);
    EXPECT_EQ(config.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_EQ(config.getPowerValue(), 2);
    EXPECT_FALSE(config.useCustomFormat());
    EXPECT_TRUE(config.getCustomFormat()._isEqual(decimals(MbuEUnitClass::LENGTH, 3)));
    EXPECT_FALSE(config.isMinimumDefined());
}

TEST_F(KpaDoubleTest, HasTheUsersFormatOfItsTimeAsItsFirstCustomFormat)
{
    const KpaDoubleConfig before;
    MbbUserStringFormats::setStringFormat(decimals(MbuEUnitClass::NONE, 3));
    const KpaDoubleConfig between;
    MbbUserStringFormats::reset();
    const KpaDoubleConfig after;
    EXPECT_EQ(before.getCustomFormat().getPrecision(), 10);
    EXPECT_EQ(between.getCustomFormat().getPrecision(), 3);
    EXPECT_EQ(after.getCustomFormat().getPrecision(), 10);
}

TEST_F(KpaDoubleTest, HasTheSymbolOfTheUsersUnitInItsFirstCustomFormat)
{
    for (const char* symbol : {"m", "mtr", "metre"}) {
        MbbStringFormat format(MbuEUnitClass::LENGTH);
        format.setDisplayUnit(MbuUnit(MbuEUnitClass::LENGTH, "m", symbol, "Metre"));
        MbbUserStringFormats::setStringFormat(format);
        EXPECT_EQ(KpaDoubleConfig(MbuEUnitClass::LENGTH, 1).getCustomFormat().getSymbol(), symbol);
    }
}

TEST_F(KpaDoubleTest, SharesNoCustomFormatWithItsCopy)
{
    KpaDoubleConfig config;
    const KpaDoubleConfig copy(config);
    config.setCustomFormat(decimals(MbuEUnitClass::NONE, 3));
    EXPECT_EQ(config.getCustomFormat().getPrecision(), 3);
    EXPECT_EQ(copy.getCustomFormat().getPrecision(), 10);
    EXPECT_NE(config, copy);
}

TEST_F(KpaDoubleTest, KeepsItsFieldsWhenItsConfigIsMovedFrom)
{
    KpaDoubleConfig config(MbuEUnitClass::LENGTH, 2);
    const KpaDoubleConfig taken(std::move(config));
    EXPECT_EQ(config, taken);
    EXPECT_EQ(config.getCustomFormat().getPrecision(), 10);
}

TEST_F(KpaDoubleTest, ComparesEveryFieldOfItsConfig)
{
    const std::pair<const char*, std::function<void(KpaDoubleConfig&)>> changes[] = {
        {"step", [](KpaDoubleConfig& c) { c.setStep(1); }},
        {"minimum", [](KpaDoubleConfig& c) { c.setMinimum(1); }},
        {"maximum", [](KpaDoubleConfig& c) { c.setMaximum(1); }},
        {"wrapped", [](KpaDoubleConfig& c) { c.setWrapped(true); }},
        {"undefineEnabled", [](KpaDoubleConfig& c) { c.setUndefineEnabled(true); }},
        {"unitClass", [](KpaDoubleConfig& c) { c.setUnitClass(MbuEUnitClass::LENGTH, 1); }},
        {"powerValue", [](KpaDoubleConfig& c) { c.setUnitClass(MbuEUnitClass::NONE, 2); }},
        {"undefString", [](KpaDoubleConfig& c) { c.setUndefString("Min."); }},
        {"useCustomFormat", [](KpaDoubleConfig& c) { c.setCustomFormat(c.getCustomFormat()); }},
        {"customFormat",
         [](KpaDoubleConfig& c) {
             c.setCustomFormat(decimals(MbuEUnitClass::NONE, 2));
             c.setUnitClass(MbuEUnitClass::NONE, 1); // out of use again
         }},
    };
    EXPECT_TRUE(KpaDoubleConfig() == KpaDoubleConfig());
    EXPECT_FALSE(KpaDoubleConfig() != KpaDoubleConfig());
    for (const auto& [field, change] : changes) {
        KpaDoubleConfig config;
        change(config);
        EXPECT_TRUE(config != KpaDoubleConfig()) << field;
        EXPECT_FALSE(config == KpaDoubleConfig()) << field;
        EXPECT_TRUE(config == KpaDoubleConfig(config)) << field;
    }
}

TEST_F(KpaDoubleTest, TellsOfAChangedConfigurationAndOfNoOther)
{
    const MbuUnit meter = unit("m");
    const std::pair<const char*, Setter> setters[] = {
        {"setStep", [](KpaDouble& p) { p.setStep(0.5); }},
        {"setStep with unit", [=](KpaDouble& p) { p.setStep(0.5, meter); }},
        {"setMinimum", [](KpaDouble& p) { p.setMinimum(-1); }},
        {"setMinimum with unit", [=](KpaDouble& p) { p.setMinimum(-1, meter); }},
        {"setMaximum", [](KpaDouble& p) { p.setMaximum(1); }},
        {"setMaximum with unit", [=](KpaDouble& p) { p.setMaximum(1, meter); }},
        {"setRange", [](KpaDouble& p) { p.setRange(-1, 1); }},
        {"setRange with unit", [=](KpaDouble& p) { p.setRange(-1, 1, meter); }},
        {"setUndefineEnabled", [](KpaDouble& p) { p.setUndefineEnabled(true); }},
        {"setWrapping", [](KpaDouble& p) { p.setWrapping(true); }},
        {"setPowerValue", [](KpaDouble& p) { p.setPowerValue(2); }},
        {"setUnitClass", [](KpaDouble& p) { p.setUnitClass(MbuEUnitClass::LENGTH); }},
        {"setCustomFormat", [](KpaDouble& p) { p.setCustomFormat(decimals(MbuEUnitClass::NONE, 2)); }},
        {"setUndefString", [](KpaDouble& p) { p.setUndefString("Min."); }},
        {"setDetails", [](KpaDouble& p) { p.setDetails(MbdVariableDetails(MbuEUnitClass::LENGTH)); }},
    };
    for (const auto& [name, set] : setters) {
        ObservedAtomic<KpaDouble> each;
        EXPECT_EQ(each.flagsOf(set), Flags{Kp::NotifyConfig}) << name;
        EXPECT_EQ(each.flagsOf(set), Flags()) << name;
    }
}

TEST_F(KpaDoubleTest, UnsetsStepAndLimits)
{
    parameter.setStep(1);
    parameter.setRange(-1, 1);
    EXPECT_TRUE(parameter.isStepDefined());
    EXPECT_TRUE(parameter.isMinimumDefined());
    EXPECT_TRUE(parameter.isMaximumDefined());
    const Setter unsetters[] = {[](KpaDouble& p) { p.unsetStep(); }, [](KpaDouble& p) { p.unsetMinimum(); },
                                [](KpaDouble& p) { p.unsetMaximum(); }};
    for (const Setter& unset : unsetters) {
        EXPECT_EQ(observed.flagsOf(unset), Flags{Kp::NotifyConfig});
        EXPECT_EQ(observed.flagsOf(unset), Flags());
    }
    EXPECT_FALSE(parameter.isStepDefined());
    EXPECT_FALSE(parameter.isMinimumDefined());
    EXPECT_FALSE(parameter.isMaximumDefined());
}

TEST_F(KpaDoubleTest, RepairsItsValueToNewLimitsInOneRecord)
{
    parameter.setValue(5);
    EXPECT_EQ(observed.flagsOf([](KpaDouble& p) { p.setRange(7, 9); }), Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), 7);
}

TEST_F(KpaDoubleTest, KeepsItsValueAndNotifiesWhenTheRequestIsRefused)
{
    parameter.setMaximum(10);
    parameter.setValue(10);
    EXPECT_EQ(observed.flagsOf([](KpaDouble& p) { p.setValue(1000); }), Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), 10);
}

TEST_F(KpaDoubleTest, OrdersTheEndsOfARange)
{
    parameter.setRange(10, 2);
    EXPECT_EQ(parameter.getMinimum(), 2);
    EXPECT_EQ(parameter.getMaximum(), 10);
}

TEST_F(KpaDoubleTest, LeavesAnUndefinedEndOfARangeWhereItWasPassed)
{
    parameter.setRange(undefined, 2);
    EXPECT_FALSE(parameter.isMinimumDefined());
    EXPECT_EQ(parameter.getMaximum(), 2);
    parameter.setRange(3, undefined);
    EXPECT_EQ(parameter.getMinimum(), 3);
    EXPECT_FALSE(parameter.isMaximumDefined());
    parameter.setRange(undefined, undefined);
    EXPECT_FALSE(parameter.isMinimumDefined());
    EXPECT_FALSE(parameter.isMaximumDefined());
}

TEST_F(KpaDoubleTest, TellsOnceOfARangeOfWhichOneEndChanged)
{
    parameter.setRange(-1, 1);
    EXPECT_EQ(observed.flagsOf([](KpaDouble& p) { p.setRange(-1, 2); }), Flags{Kp::NotifyConfig});
    EXPECT_EQ(observed.flagsOf([](KpaDouble& p) { p.setRange(2, -1); }), Flags());
}

TEST_F(KpaDoubleTest, BringsValuesIntoTheLimits)
{
    struct Row
    {
        double minimum;
        double maximum;
        double value;
        double expected;
    };
    const Row rows[] = {
        {undefined, undefined, 1e300, 1e300},
        {0, undefined, -1, 0},
        {0, undefined, 1e300, 1e300},
        {undefined, 10, 11, 10},
        {undefined, 10, -1e300, -1e300},
        {0, 10, -1, 0},
        {0, 10, 5, 5},
        {0, 10, 11, 10},
        {3, 3, 7, 3},
        {5, 2, 0, 5}, // crossed limits: the minimum wins
        {5, 2, 3, 5},
        {5, 2, 9, 5},
        {0, 10, infinity, 10},
        {0, 10, -infinity, 0},
    };
    for (const Row& row : rows)
        EXPECT_EQ(range(row.minimum, row.maximum).fix(row.value, 0), row.expected)
            << row.minimum << ' ' << row.maximum << ' ' << row.value;
}

TEST_F(KpaDoubleTest, ReplacesTheUndefinedMarkerWhereItIsNotAdmitted)
{
    const KpaDoubleConfig config;
    EXPECT_EQ(config.fix(undefined, 7), 7);
    EXPECT_EQ(config.fix(undefined, undefined), 0);
    EXPECT_EQ(range(3, 5).fix(undefined, 7), 5);
    EXPECT_EQ(range(3, 5).fix(undefined, undefined), 3);
}

TEST_F(KpaDoubleTest, AdmitsTheUndefinedMarkerPastAllLimitsWhereItIsEnabled)
{
    KpaDoubleConfig config = range(0, 10, true);
    config.setUndefineEnabled(true);
    EXPECT_EQ(config.fix(undefined, 7), undefined);
    parameter.setConfig(config);
    parameter.setValue(undefined);
    EXPECT_FALSE(parameter.isDefined());
    parameter.setUndefineEnabled(false);
    EXPECT_EQ(parameter.getValue(), 0);
}

TEST_F(KpaDoubleTest, WrapsValuesAroundItsRange)
{
    const std::pair<double, double> rows[] = {
        {0, 0},    {359.5, 359.5}, {360, 0},    {360.5, 0.5}, {725, 5},
        {-1, 359}, {-359, 1},      {-360, 360}, {-720, 360},  {-0.5, 359.5},
    };
    for (const auto& [value, expected] : rows)
        EXPECT_EQ(range(0, 360, true).fix(value, 0), expected) << value;
}

TEST_F(KpaDoubleTest, KeepsTheMaximumOnWhichAValueLandedFromBelow)
{
    parameter.setConfig(range(0, 360, true));
    parameter.setValue(-360);
    EXPECT_EQ(parameter.getValue(), 360);
}

TEST_F(KpaDoubleTest, WrapsOnlyBetweenTwoLimits)
{
    EXPECT_EQ(range(0, undefined, true).fix(-5, 0), 0);
    EXPECT_EQ(range(undefined, 360, true).fix(365, 0), 360);
    EXPECT_EQ(range(undefined, undefined, true).fix(365, 0), 365);
}

TEST_F(KpaDoubleTest, StaysInsideItsLimitsWhereItHasNoCycleToWalk)
{
    struct Row
    {
        const char* name;
        double minimum;
        double maximum;
        double value;
        double expected;
    };
    const Row rows[] = {
        {"no width", 5, 5, 7, 5},
        {"no width", 5, 5, 5, 5},
        {"no width", 5, 5, 3, 5},
        {"too wide to subtract", -1.5e308, 1.5e308, 1.6e308, 1.5e308},
        {"too wide to subtract", -1.5e308, 1.5e308, -1.6e308, -1.5e308},
        {"too wide to subtract", -1.5e308, 1.5e308, 12, 12},
        {"infinite", -infinity, 10, 12, 10},
        {"too many turns", 0, 360, 1e308, 0},
        {"too many turns", 0, 360, -1e308, 0},
        {"too many turns", 0, 1, 2147483648.5, 0},
        {"too far to subtract", -1.7e308, -1.6e308, 1e308, -1.7e308},
        {"infinitely far", 0, 360, infinity, 0},
        {"infinitely far", 0, 360, -infinity, 0},
        {"smallest width", 0, std::numeric_limits<double>::denorm_min(), 1, 0},
    };
    for (const Row& row : rows)
        EXPECT_EQ(range(row.minimum, row.maximum, true).fix(row.value, 0), row.expected)
            << row.name << ' ' << row.value;
}

TEST_F(KpaDoubleTest, WrapsByTheSameFormulaWhereTheLimitsCross)
{
    const std::pair<double, double> rows[] = {
        {9, 6}, // 9 - (trunc(7 / -3) + 1) * -3
        {3, 6}, // 3 - (trunc(1 / -3) + 1) * -3
        {2, 5}, // 2 - (trunc(0 / -3) + 1) * -3
        {0, 0}, // 0 + (trunc(5 / -3) + 1) * -3
        {-2, 1} // -2 + (trunc(7 / -3) + 1) * -3
    };
    for (const auto& [value, expected] : rows)
        EXPECT_EQ(range(5, 2, true).fix(value, 0), expected) << value;
}

TEST_F(KpaDoubleTest, StaysFiniteWhereItWrapsBetweenCrossedLimits)
{
    for (const double value : {1e308, -1e308, 2147483648.0, -2147483648.0, infinity, -infinity}) {
        const double fixed = range(5, 2, true).fix(value, 0);
        EXPECT_TRUE(std::isfinite(fixed)) << value;
    }
}

TEST_F(KpaDoubleTest, WalksAsManyTurnsAsAnIntegerCounts)
{
    EXPECT_EQ(range(0, 1, true).fix(2147483647.5, 0), 0.5);
    EXPECT_EQ(range(0, 1, true).fix(-2147483646.5, 0), 0.5);
}

TEST_F(KpaDoubleTest, StaysInsideItsLimitsWhereWrappingRounds)
{
    for (int i = -400; i <= 400; ++i) {
        for (const double width : {0.1, 0.3, 0.7, 1e-3, 1.0 / 3}) {
            const double fixed = range(0, width, true).fix(i * 0.1, 0);
            EXPECT_GE(fixed, 0) << i << ' ' << width;
            EXPECT_LE(fixed, width) << i << ' ' << width;
        }
    }
}

TEST_F(KpaDoubleTest, AdmitsNoNaNBetweenLimits)
{
    for (const bool wrapped : {false, true}) {
        const double fixed = range(2, 10, wrapped).fix(notANumber, 0);
        EXPECT_TRUE(fixed == 2 || fixed == 10);
    }
    EXPECT_EQ(range(2, undefined).fix(notANumber, 0), 2);
    EXPECT_EQ(range(undefined, 10).fix(notANumber, 0), 10);
    EXPECT_EQ(range(notANumber, notANumber).fix(3, 0), 3);
    EXPECT_EQ(range(notANumber, notANumber, true).fix(3, 0), 3);
}

TEST_F(KpaDoubleTest, GivesAZeroTheSignOfALimitThatIsZero)
{
    EXPECT_FALSE(std::signbit(range(0, 10).fix(-0.0, 0)));
    EXPECT_FALSE(std::signbit(range(-10, 0).fix(-0.0, 0)));
    EXPECT_TRUE(std::signbit(range(-10, 10).fix(-0.0, 0)));
    EXPECT_TRUE(std::signbit(range(undefined, undefined).fix(-0.0, 0)));
}

TEST_F(KpaDoubleTest, NotifiesEveryRequestOfANaN)
{
    const Setter set = [](KpaDouble& p) { p.setValue(notANumber); };
    EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyValue});
    EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyValue});
    EXPECT_TRUE(std::isnan(parameter.getValue()));
    parameter.setRange(10, 10);
    EXPECT_EQ(parameter.getValue(), 10);
    EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), 10);
}

TEST_F(KpaDoubleTest, ConvertsItsValueFromAndToAUnitOfItsClass)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setValueWithUnit(1.5, unit("km"));
    EXPECT_DOUBLE_EQ(parameter.getValue(), 1500);
    EXPECT_DOUBLE_EQ(parameter.getValueFromUnit(unit("km")), 1.5);
    parameter.setAutoValueWithUnit(2, unit("ft"));
    EXPECT_DOUBLE_EQ(parameter.getAutoValue(), 0.6096);
    EXPECT_DOUBLE_EQ(parameter.getAutoValueFromUnit(unit("ft")), 2);
}

TEST_F(KpaDoubleTest, RaisesAConversionToItsPower)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setPowerValue(2);
    parameter.setValueWithUnit(3, unit("km"));
    EXPECT_DOUBLE_EQ(parameter.getValue(), 3e6);
    EXPECT_DOUBLE_EQ(parameter.getValueFromUnit(unit("km")), 3);
    parameter.setPowerValue(-1);
    EXPECT_DOUBLE_EQ(parameter.getConfig().convertToStorageUnit(1, unit("km")), 1e-3);
    parameter.setPowerValue(0);
    EXPECT_EQ(parameter.getConfig().convertToStorageUnit(1, unit("km")), 1);
}

TEST_F(KpaDoubleTest, ConvertsTheOffsetOfAUnit)
{
    parameter.setUnitClass(MbuEUnitClass::TEMPERATURE);
    parameter.setValueWithUnit(20, unit("degC"));
    EXPECT_NEAR(parameter.getValue(), 293.15, 1e-9);
    EXPECT_NEAR(parameter.getValueFromUnit(unit("degC")), 20, 1e-9);
    EXPECT_NEAR(parameter.getValueFromUnit(unit("degF")), 68, 1e-9);
}

TEST_F(KpaDoubleTest, ConvertsAStepLikeAValue)
{
    parameter.setUnitClass(MbuEUnitClass::TEMPERATURE);
    parameter.setStep(1, unit("degC"));
    EXPECT_NEAR(parameter.getStep(), 274.15, 1e-9);
}

TEST_F(KpaDoubleTest, ConvertsLimits)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setMinimum(1, unit("km"));
    parameter.setMaximum(2, unit("km"));
    parameter.setStep(1, unit("cm"));
    EXPECT_DOUBLE_EQ(parameter.getMinimum(), 1000);
    EXPECT_DOUBLE_EQ(parameter.getMaximum(), 2000);
    EXPECT_DOUBLE_EQ(parameter.getStep(), 0.01);
    parameter.setRange(4, 3, unit("km"));
    EXPECT_DOUBLE_EQ(parameter.getMinimum(), 3000);
    EXPECT_DOUBLE_EQ(parameter.getMaximum(), 4000);
    parameter.setRange(undefined, 3, unit("km"));
    EXPECT_FALSE(parameter.isMinimumDefined());
    EXPECT_DOUBLE_EQ(parameter.getMaximum(), 3000);
}

TEST_F(KpaDoubleTest, ConvertsNoUndefinedMarker)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setUndefineEnabled(true);
    parameter.setValueWithUnit(undefined, unit("km"));
    EXPECT_FALSE(parameter.isDefined());
    EXPECT_EQ(parameter.getValueFromUnit(unit("km")), undefined);
    parameter.setMinimum(undefined, unit("km"));
    EXPECT_FALSE(parameter.isMinimumDefined());
}

TEST_F(KpaDoubleTest, LeavesANumberInAUnitOfAnotherClassAsItIs)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setValueWithUnit(3, unit("t"));
    EXPECT_EQ(parameter.getValue(), 3);
    EXPECT_EQ(parameter.getValueFromUnit(unit("t")), 3);
    EXPECT_EQ(parameter.getValueFromUnit(MbuUnit()), 3);
}

TEST_F(KpaDoubleTest, LeavesANumberWithoutUnitClassAsItIs)
{
    parameter.setValueWithUnit(3, unit("km"));
    EXPECT_EQ(parameter.getValue(), 3);
    parameter.setValueWithUnit(4, MbuUnit());
    EXPECT_EQ(parameter.getValue(), 4);
}

TEST_F(KpaDoubleTest, ConvertsBackOnTheSameTerms)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setPowerValue(2);
    EXPECT_DOUBLE_EQ(parameter.getConfig().convertFromStorageUnit(3e6, unit("km")), 3);
    EXPECT_EQ(parameter.getConfig().convertFromStorageUnit(3, unit("t")), 3);
    EXPECT_EQ(KpaDoubleConfig().convertFromStorageUnit(3, unit("km")), 3);
}

TEST_F(KpaDoubleTest, TakesTheUnitClassOfACustomFormatWhereItHasNone)
{
    parameter.setCustomFormat(MbbStringFormat(MbuEUnitClass::LENGTH));
    parameter.setValueWithUnit(3, unit("km"));
    EXPECT_DOUBLE_EQ(parameter.getValue(), 3000);
}

TEST_F(KpaDoubleTest, PrefersItsOwnUnitClassToThatOfACustomFormat)
{
    parameter.setUnitClass(MbuEUnitClass::MASS);
    parameter.setCustomFormat(MbbStringFormat(MbuEUnitClass::LENGTH));
    EXPECT_EQ(parameter.getConfig().convertToStorageUnit(3, unit("km")), 3);
    EXPECT_DOUBLE_EQ(parameter.getConfig().convertToStorageUnit(3, unit("t")), 3000);
}

TEST_F(KpaDoubleTest, IgnoresTheUnitClassOfACustomFormatOutOfUse)
{
    parameter.setCustomFormat(MbbStringFormat(MbuEUnitClass::LENGTH));
    parameter.setUnitClass(MbuEUnitClass::NONE);
    EXPECT_EQ(parameter.getConfig().convertToStorageUnit(3, unit("km")), 3);
}

TEST_F(KpaDoubleTest, DropsACustomFormatWhenTheSameUnitClassOrPowerIsSet)
{
    const Setter setters[] = {[](KpaDouble& p) { p.setUnitClass(p.getUnitClass()); },
                              [](KpaDouble& p) { p.setPowerValue(p.getPowerValue()); }};
    for (const Setter& set : setters) {
        parameter.setCustomFormat(decimals(MbuEUnitClass::NONE, 2));
        EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyConfig});
        EXPECT_FALSE(parameter.useCustomFormat());
        EXPECT_EQ(observed.flagsOf(set), Flags());
    }
}

TEST_F(KpaDoubleTest, UsesACustomFormatAgainAfterItWasDropped)
{
    const MbbStringFormat format = decimals(MbuEUnitClass::NONE, 2);
    parameter.setCustomFormat(format);
    parameter.setUnitClass(MbuEUnitClass::NONE);
    EXPECT_EQ(observed.flagsOf([&](KpaDouble& p) { p.setCustomFormat(format); }), Flags{Kp::NotifyConfig});
    EXPECT_TRUE(parameter.useCustomFormat());
    EXPECT_EQ(observed.flagsOf([](KpaDouble& p) { p.setCustomFormat(decimals(MbuEUnitClass::NONE, 3)); }),
              Flags{Kp::NotifyConfig});
}

TEST_F(KpaDoubleTest, KeepsThePowerWithAnotherClassAndTheClassWithAnotherPower)
{
    parameter.setPowerValue(2);
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getPowerValue(), 2);
    parameter.setPowerValue(3);
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::LENGTH);
}

TEST_F(KpaDoubleTest, ShowsItsValueInTheUsersPresentFormat)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setValue(1234.5);
    EXPECT_EQ(parameter.toString(), "1234.5 m");
    MbbStringFormat format = decimals(MbuEUnitClass::LENGTH, 2);
    format.setDisplayUnit(unit("km"));
    MbbUserStringFormats::setStringFormat(format);
    EXPECT_EQ(parameter.toString(), "1.23 km");
    EXPECT_TRUE(parameter.getDisplayFormat()._isEqual(format));
}

TEST_F(KpaDoubleTest, ShowsItsPower)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setPowerValue(2);
    parameter.setValue(2e6);
    MbbUserStringFormats::setDisplayUnit(unit("km"));
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("2 km²"));
}

TEST_F(KpaDoubleTest, ShowsItsValueInACustomFormat)
{
    parameter.setValue(1.5);
    EXPECT_EQ(parameter.toString(), "1.5");
    parameter.setCustomFormat(decimals(MbuEUnitClass::NONE, 3));
    EXPECT_EQ(parameter.toString(), "1.500");
}

TEST_F(KpaDoubleTest, ShowsTheUndefinedValueAsItsFormatOrItsOwnTextSays)
{
    parameter.setUndefineEnabled(true);
    parameter.setValue(undefined);
    EXPECT_EQ(parameter.toString(), MbbGlobal::STR_NA);
    parameter.setUndefString("Min.");
    EXPECT_EQ(parameter.toString(), "Min.");
    EXPECT_EQ(parameter.getDisplayFormat().getUndefinedText(), "Min.");
}

TEST_F(KpaDoubleTest, ShowsNothingForAnUndefinedValueThatIsNotAdmitted)
{
    EXPECT_EQ(KpaDoubleConfig().toString(undefined), "");
}

TEST_F(KpaDoubleTest, IgnoresItsTextForUndefinedValuesInACustomFormat)
{
    MbbStringFormat format;
    format.setUndefinedText("nothing");
    parameter.setUndefineEnabled(true);
    parameter.setValue(undefined);
    parameter.setUndefString("Min.");
    parameter.setCustomFormat(format);
    EXPECT_EQ(parameter.toString(), "nothing");
    EXPECT_TRUE(parameter.getDisplayFormat()._isEqual(format));
}

TEST_F(KpaDoubleTest, GivesItsDetailsInTheDefaultFormat)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setPowerValue(2);
    const MbdVariableDetails details = parameter.getDetails();
    EXPECT_EQ(details.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_EQ(details.getPowerValue(), 2);
    EXPECT_TRUE(details.isUnitDefaultFormatUsed());
    EXPECT_FALSE(details.getNumericDetails().hasUserDefinedStringFormat());
}

TEST_F(KpaDoubleTest, GivesItsDetailsWithACustomFormat)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setCustomFormat(decimals(MbuEUnitClass::LENGTH, 4));
    const MbdVariableDetails details = parameter.getDetails();
    EXPECT_EQ(details.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_FALSE(details.isUnitDefaultFormatUsed());
    EXPECT_TRUE(details.getNumericDetails().getStringFormat()._isEqual(decimals(MbuEUnitClass::LENGTH, 4)));
}

TEST_F(KpaDoubleTest, TakesOverUnitClassAndPowerOfDetailsInTheDefaultFormat)
{
    MbdVariableDetails details(MbuEUnitClass::LENGTH);
    details.setPowerValue(2);
    EXPECT_EQ(observed.flagsOf([&](KpaDouble& p) { p.setDetails(details); }), Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getPowerValue(), 2);
    EXPECT_FALSE(parameter.useCustomFormat());
    EXPECT_EQ(observed.flagsOf([&](KpaDouble& p) { p.setDetails(details); }), Flags());
    details.setPowerValue(3);
    EXPECT_EQ(observed.flagsOf([&](KpaDouble& p) { p.setDetails(details); }), Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getPowerValue(), 3);
}

TEST_F(KpaDoubleTest, DropsACustomFormatForDetailsInTheDefaultFormat)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setCustomFormat(decimals(MbuEUnitClass::LENGTH, 2));
    const MbdVariableDetails details(MbuEUnitClass::LENGTH);
    EXPECT_EQ(observed.flagsOf([&](KpaDouble& p) { p.setDetails(details); }), Flags{Kp::NotifyConfig});
    EXPECT_FALSE(parameter.useCustomFormat());
}

TEST_F(KpaDoubleTest, TakesOverTheFormatOfDetailsThatHaveOne)
{
    MbdVariableDetails details(MbuEUnitClass::LENGTH);
    details.setUnitDefaultFormatUsed(false);
    details.getNumericDetails().setUserDefinedStringFormat(decimals(MbuEUnitClass::LENGTH, 4));
    EXPECT_EQ(observed.flagsOf([&](KpaDouble& p) { p.setDetails(details); }), Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_TRUE(parameter.useCustomFormat());
    EXPECT_TRUE(parameter.getCustomFormat()._isEqual(decimals(MbuEUnitClass::LENGTH, 4)));
}

TEST_F(KpaDoubleTest, TakesOverTheFormatOfDetailsWithoutUnitClass)
{
    MbdVariableDetails details;
    details.getNumericDetails().setUserDefinedStringFormat(decimals(MbuEUnitClass::NONE, 4));
    EXPECT_TRUE(details.isUnitDefaultFormatUsed());
    EXPECT_EQ(observed.flagsOf([&](KpaDouble& p) { p.setDetails(details); }), Flags{Kp::NotifyConfig});
    EXPECT_TRUE(parameter.useCustomFormat());
    EXPECT_TRUE(parameter.getCustomFormat()._isEqual(decimals(MbuEUnitClass::NONE, 4)));
}

TEST_F(KpaDoubleTest, TellsOfDetailsThatSetTheCustomFormatInUseAgain)
{
    MbdVariableDetails details;
    details.getNumericDetails().setUserDefinedStringFormat(decimals(MbuEUnitClass::NONE, 4));
    parameter.setDetails(details);
    EXPECT_EQ(observed.flagsOf([&](KpaDouble& p) { p.setDetails(details); }), Flags{Kp::NotifyConfig});
    EXPECT_TRUE(parameter.useCustomFormat());
}

TEST_F(KpaDoubleTest, TakesOverTheDetailsThatAnotherOneGives)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setPowerValue(2);
    parameter.setCustomFormat(decimals(MbuEUnitClass::LENGTH, 4));
    KpaDouble other("OTHER");
    other.setDetails(parameter.getDetails());
    EXPECT_TRUE(other.getDetails() == parameter.getDetails());
}

TEST_F(KpaDoubleTest, StoresTenSignificantDigits)
{
    const std::pair<double, const char*> rows[] = {
        {0, "0"},
        {0.1, "0.1"},
        {-2.5, "-2.5"},
        {1.0 / 3, "0.3333333333"},
        {1234567890, "1234567890"},
        {12345678901.0, "1.23456789e+10"},
        {1.25e+16, "1.25e+16"},
        {1e-10, "1e-10"},
    };
    for (const auto& [value, text] : rows) {
        parameter.setValue(value);
        EXPECT_EQ(parameter.serialize(), storedValue(text));
    }
}

TEST_F(KpaDoubleTest, StoresTheUndefinedMarkerAsAnEmptyText)
{
    parameter.setUndefineEnabled(true);
    parameter.setValue(undefined);
    EXPECT_EQ(parameter.serialize(), storedValue(""));
}

TEST_F(KpaDoubleTest, ReadsStoredNumbers)
{
    const std::pair<const char*, double> rows[] = {
        {"0.1", 0.1}, {"1.25e+06", 1250000}, {"-3", -3}, {" 4 ", 4}, {"1e308", 1e308}, {"0", 0},
    };
    for (const auto& [text, value] : rows) {
        parameter.unserialize(storedValue(text));
        EXPECT_EQ(parameter.getValue(), value) << text;
    }
}

TEST_F(KpaDoubleTest, RepairsAStoredNumberOutsideItsLimits)
{
    parameter.setRange(0, 10);
    EXPECT_EQ(observed.flagsOf([](KpaDouble& p) { p.unserialize(storedValue("1e308")); }), Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), 10);
}

TEST_F(KpaDoubleTest, ReadsAnEmptyTextAsUndefinedOnlyWhereThatIsAdmitted)
{
    for (const auto& form : {storedValue(""), KpbAParameter::SerialForm()}) {
        KpaDouble number("KEY");
        number.setValue(7);
        number.unserialize(form);
        EXPECT_EQ(number.getValue(), 7);
        number.setUndefineEnabled(true);
        number.unserialize(form);
        EXPECT_FALSE(number.isDefined());
    }
}

TEST_F(KpaDoubleTest, ReadsGarbageAsItReadsAnEmptyText)
{
    for (const char* text : {"nan", "NaN", "inf", "-inf", "infinity", "1e400", "-1e400", "1e-400", "abc", "1,5", "0x10",
                             "1e", "--1", "1 2", "yes", "1.797693135e+308", "1.7976931348623157e308"})
    {
        KpaDouble number("KEY");
        number.setValue(7);
        EXPECT_NO_THROW(number.unserialize(storedValue(text)));
        EXPECT_EQ(number.getValue(), 7) << text;
        number.setUndefineEnabled(true);
        EXPECT_NO_THROW(number.unserialize(storedValue(text)));
        EXPECT_FALSE(number.isDefined()) << text;
    }
}

TEST_F(KpaDoubleTest, StaysInsideAWrappedRangeWhateverIsStored)
{
    const std::pair<double, double> ranges[] = {{0, 360},    {5, 5},           {-1.5e308, 1.5e308},
                                                {0, 1e-300}, {1e307, 1.1e307}, {-0.1, 0.2}};
    for (const auto& [minimum, maximum] : ranges) {
        for (const char* text : {"1e308", "-1e308", "1.7976931348623157e308", "2147483647", "4294967296", "-4294967296",
                                 "773094113280", "1e-320", "nan", "inf", "", "0.7", "-0.7"})
        {
            KpaDouble number("KEY");
            number.setConfig(range(minimum, maximum, true));
            number.unserialize(storedValue(text));
            EXPECT_GE(number.getValue(), minimum) << text;
            EXPECT_LE(number.getValue(), maximum) << text;
        }
    }
}

TEST_F(KpaDoubleTest, DebugsItsConfig)
{
    EXPECT_EQ(KpaDoubleConfig().debug(), "----- KpaDoubleConfig --------\n"
                                         " step             = N/A\n"
                                         " minimum          = N/A\n"
                                         " maximum          = N/A\n"
                                         " wrapped          = no\n"
                                         " undefineEnabled  = no\n"
                                         " power value      = 1\n"
                                         " custom format    = no\n"
                                         " unit class       = NONE (None)\n"
                                         " custom precision = 10\n"
                                         " custom symbol    = \n");
}

TEST_F(KpaDoubleTest, DebugsAConfigThatHasEverything)
{
    parameter.setStep(0.25);
    parameter.setRange(-1, 12345.678);
    parameter.setWrapping(true);
    parameter.setUndefineEnabled(true);
    parameter.setUndefString("Min.");
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setPowerValue(2);
    parameter.setCustomFormat(decimals(MbuEUnitClass::LENGTH, 3));
    EXPECT_TRUE(parameter.debug(1).endsWith("----- KpaDoubleConfig --------\n"
                                            " step             = 0.25\n"
                                            " minimum          = -1\n"
                                            " maximum          = 12345.678\n"
                                            " wrapped          = yes\n"
                                            " undefineEnabled  = yes\n"
                                            " power value      = 2\n"
                                            " custom format    = yes\n"
                                            " unit class       = LENGTH (Length)\n"
                                            " undefined string = Min.\n"
                                            " custom precision = 3\n"
                                            " custom symbol    = m\n"));
}

TEST_F(KpaDoubleTest, DuplicatesValueAndConfig)
{
    parameter.setRange(0, 10);
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setValue(5);
    parameter.setAutoValue(6);
    const std::unique_ptr<KpaDouble> copy(parameter.duplicate("COPY"));
    const std::unique_ptr<KpaDouble> sameKey(parameter.duplicate(""));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getValue(), 5);
    EXPECT_EQ(copy->getAutoValue(), 6);
    EXPECT_TRUE(copy->getConfig() == parameter.getConfig());
    copy->setValue(7);
    EXPECT_EQ(parameter.getValue(), 5);
}
