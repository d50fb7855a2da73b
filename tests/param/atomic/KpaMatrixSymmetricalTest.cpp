#include <basic/MbbUserStringFormats.h>
#include <basic/MbdVariableDetailsHelper.h>
#include <param/atomic/KpaMatrixSymmetrical.h>
#include <support/ForeignLocale.h>
#include <support/GarbageTexts.h>
#include <support/ObservedAtomic.h>
#include <support/SymmetricMatrix.h>

#include <functional>
#include <limits>
#include <memory>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaMatrixSymmetricalConfig, KuuMatrixSymmetrical>);

using namespace Ku::Constraint;

namespace {
using Flags = QList<int>;
using Limits = QList<double>;
using Map = KpbAParameter::SerialForm;
using Parameter = KpaMatrixSymmetrical;
using Setter = std::function<void(Parameter&)>;

constexpr double undefined = MbbGlobal::D_FFFF;

KuuMatrixSymmetrical values(int size, const QList<double>& triangle)
{
    KuuMatrixSymmetrical matrix(1);
    matrix.setMatrix(symmetric(size, triangle));
    return matrix;
}

KuuMatrixSymmetrical constraints(int size, const QList<double>& triangle, const Limits& minimums,
                                 const Limits& maximums, Behavior behavior)
{
    KuuMatrixSymmetrical matrix(1);
    matrix.setMatrixWC(symmetric(size, triangle), minimums, maximums, behavior);
    return matrix;
}

KpaMatrixSymmetricalConfig inMode(Mode mode)
{
    KpaMatrixSymmetricalConfig config;
    config.setMode(mode);
    return config;
}

MbbStringFormat decimals(const MbuEUnitClass& unitClass, int count)
{
    MbbStringFormat format(unitClass);
    format.setNotation(MbbEFormat::DECIMAL);
    format.setPrecision(count);
    return format;
}

MbdVariableDetails details(const MbuEUnitClass& unitClass, int power)
{
    MbdVariableDetails result(unitClass);
    result.setPowerValue(power);
    return result;
}

MbdVariableDetails formattedDetails(const MbuEUnitClass& unitClass, int count)
{
    MbdVariableDetails result(unitClass);
    result.setUnitDefaultFormatUsed(false);
    result.getNumericDetails().setUserDefinedStringFormat(decimals(unitClass, count));
    return result;
}

QList<double> triangleOf(const KuuMatrixSymmetrical& matrix)
{
    QList<double> triangle;
    for (int row = 0; row < matrix.getSize(); ++row) {
        for (int column = row; column < matrix.getSize(); ++column)
            triangle.append(matrix.getElementAt(row, column));
    }
    return triangle;
}

/// Brings the user's formats back to the defaults.
class KpaMatrixSymmetricalTest : public testing::Test
{
protected:
    ~KpaMatrixSymmetricalTest() override { MbbUserStringFormats::reset(); }

    void readFormats() { parameter.getFormats(formats, powers); }

    ObservedAtomic<Parameter> observed;
    Parameter& parameter = observed.atomic;
    // Filled, so that what a call leaves shows.
    QList<MbbStringFormat> formats{MbbStringFormat(), MbbStringFormat(), MbbStringFormat()};
    QList<int> powers{7, 8, 9};
};
} // namespace

TEST_F(KpaMatrixSymmetricalTest, IsOfTheKindMatrix)
{
    EXPECT_EQ(parameter.getType(), KpbEType::MATRIX);
    EXPECT_EQ(KpaMatrixSymmetricalConfig().getType(), KpbEType::MATRIX);
}

TEST_F(KpaMatrixSymmetricalTest, StartsAsOneRowOfNumbers)
{
    EXPECT_EQ(parameter.getValue(), KuuMatrixSymmetrical(1));
    EXPECT_EQ(parameter.getAutoValue(), KuuMatrixSymmetrical(1));
    EXPECT_EQ(KpaMatrixSymmetricalConfig().getInitialValue(), KuuMatrixSymmetrical(1));
    EXPECT_EQ(parameter.getNbRows(), 1);
    EXPECT_EQ(parameter.getNbColumns(), 1);
    EXPECT_EQ(parameter.getElementCount(), 1);
    EXPECT_EQ(parameter.getMode(), Values);
    EXPECT_EQ(int(parameter.getMode()), 0);
}

TEST_F(KpaMatrixSymmetricalTest, StartsWithoutLabelsFormatsAndLimits)
{
    EXPECT_FALSE(parameter.doesWantPositiveDefinite());
    EXPECT_TRUE(parameter.canItBeNull());
    EXPECT_TRUE(parameter.isBoundedConstraintEnabled());
    EXPECT_EQ(parameter.getMatrixLabel(), "");
    EXPECT_EQ(parameter.getLabels(), QStringList());
    EXPECT_FALSE(parameter.hasGlobalFormatSettings());
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::NONE);
    EXPECT_EQ(parameter.getPowerValue(), 1);
    EXPECT_FALSE(parameter.usesCustomFormat());
    EXPECT_EQ(parameter.getCustomFormat(), MbbStringFormat());
    EXPECT_EQ(parameter.getUnitClassList(), QList<MbuEUnitClass>());
    EXPECT_EQ(parameter.getPowerValueList(), QList<int>());
    EXPECT_EQ(parameter.usesCustomFormatList(), QList<bool>());
    EXPECT_EQ(parameter.getCustomFormatList(), QList<MbbStringFormat>());
    EXPECT_EQ(parameter.getCustomPrecisionList(), QList<int>());
    EXPECT_EQ(parameter.getCustomSymbolList(), QStringList());
    EXPECT_FALSE(parameter.isElementMinimumDefined());
    EXPECT_FALSE(parameter.isElementMaximumDefined());
    EXPECT_FALSE(parameter.isElementStepDefined());
    EXPECT_EQ(parameter.getElementMinimum(), undefined);
    EXPECT_EQ(parameter.getElementMaximum(), undefined);
    EXPECT_EQ(parameter.getElementStep(), undefined);
    EXPECT_EQ(parameter.getElementMinimumList(), Limits());
    EXPECT_EQ(parameter.getElementMaximumList(), Limits());
}

TEST_F(KpaMatrixSymmetricalTest, CountsItsRowsAndTheElementsOfItsUpperTriangle)
{
    parameter.setValue(KuuMatrixSymmetrical(4));
    EXPECT_EQ(parameter.getNbRows(), 4);
    EXPECT_EQ(parameter.getNbColumns(), 4);
    EXPECT_EQ(parameter.getElementCount(), 10);
}

TEST_F(KpaMatrixSymmetricalTest, ComparesEveryFieldOfItsConfig)
{
    using Config = KpaMatrixSymmetricalConfig;
    const std::pair<const char*, std::function<void(Config&)>> changes[] = {
        {"mode", [](Config& c) { c.setMode(Constraints); }},
        {"positiveDefinite", [](Config& c) { c.wantPositiveDefinite(true); }},
        {"canBeNull", [](Config& c) { c.canBeNull(false); }},
        {"boundedConstraintEnabled", [](Config& c) { c.setBoundedConstraintEnabled(false); }},
        {"matrixLabel", [](Config& c) { c.setMatrixLabel("Sills"); }},
        {"labels", [](Config& c) { c.setLabels({"V1"}); }},
        {"globalFormatSettings", [](Config& c) { c.setPowerValue(1); }},
        {"unitClass", [](Config& c) { c.setUnitClass(MbuEUnitClass::LENGTH); }},
        {"powerValue", [](Config& c) { c.setPowerValue(2); }},
        {"useCustomFormat", [](Config& c) { c.setCustomFormat(MbbStringFormat()); }},
        {"customFormat",
         [](Config& c) {
             c.setCustomFormat(decimals(MbuEUnitClass::NONE, 2));
             c.setPowerValue(1); // out of use again
         }},
        {"customFormatList", [](Config& c) { c.setCustomFormatList({MbbStringFormat()}); }},
        {"powerValueList", [](Config& c) { c.setPowerValueList({1}); }},
        {"unitClassList", [](Config& c) { c.setUnitClassList({MbuEUnitClass::NONE}); }},
        {"elementStep", [](Config& c) { c.setElementStep(1); }},
        {"elementMinimumList", [](Config& c) { c.setElementMinimum(1); }},
        {"elementMaximumList", [](Config& c) { c.setElementMaximum(1); }},
    };
    EXPECT_TRUE(Config() == Config());
    EXPECT_FALSE(Config() != Config());
    for (const auto& [field, change] : changes) {
        Config config;
        change(config);
        EXPECT_TRUE(config != Config()) << field;
        EXPECT_FALSE(config == Config()) << field;
        EXPECT_TRUE(config == Config(config)) << field;
    }
}

TEST_F(KpaMatrixSymmetricalTest, TellsOfAChangedConfigurationAndOfNoOther)
{
    const std::pair<const char*, Setter> setters[] = {
        {"wantPositiveDefinite", [](Parameter& p) { p.wantPositiveDefinite(true); }},
        {"canBeNull", [](Parameter& p) { p.canBeNull(false); }},
        {"setBoundedConstraintEnabled", [](Parameter& p) { p.setBoundedConstraintEnabled(false); }},
        {"setMatrixLabel", [](Parameter& p) { p.setMatrixLabel("Sills"); }},
        {"setLabels",
         [](Parameter& p) {
             p.setLabels({"V1", "V2"});
         }},
        {"setUnitClass", [](Parameter& p) { p.setUnitClass(MbuEUnitClass::LENGTH); }},
        {"setPowerValue", [](Parameter& p) { p.setPowerValue(2); }},
        {"setCustomFormat", [](Parameter& p) { p.setCustomFormat(decimals(MbuEUnitClass::NONE, 2)); }},
        {"setDetails", [](Parameter& p) { p.setDetails(details(MbuEUnitClass::LENGTH, 2)); }},
        {"setDetails with format", [](Parameter& p) { p.setDetails(formattedDetails(MbuEUnitClass::LENGTH, 3)); }},
        {"setUnitClassList", [](Parameter& p) { p.setUnitClassList({MbuEUnitClass::LENGTH}); }},
        {"setPowerValueList",
         [](Parameter& p) {
             p.setPowerValueList({2, 3});
         }},
        {"setCustomFormatList", [](Parameter& p) { p.setCustomFormatList({decimals(MbuEUnitClass::NONE, 2)}); }},
        {"setDetailsList", [](Parameter& p) { p.setDetailsList({details(MbuEUnitClass::LENGTH, 2)}); }},
        {"setElementMinimum", [](Parameter& p) { p.setElementMinimum(-1); }},
        {"setElementMaximum", [](Parameter& p) { p.setElementMaximum(1); }},
        {"setElementStep", [](Parameter& p) { p.setElementStep(0.5); }},
        {"setElementBounds", [](Parameter& p) { p.setElementBounds({-1}, {1}); }},
    };
    for (const auto& [name, set] : setters) {
        ObservedAtomic<Parameter> each;
        EXPECT_EQ(each.flagsOf(set), Flags{Kp::NotifyConfig}) << name;
        EXPECT_EQ(each.flagsOf(set), Flags()) << name;
    }
}

TEST_F(KpaMatrixSymmetricalTest, BringsItsValueIntoANewModeInOneRecord)
{
    const Setter set = [](Parameter& p) { p.setMode(Constraints); };
    EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_EQ(parameter.getMode(), Constraints);
    EXPECT_EQ(parameter.getValue().getMode(), Constraints);
    EXPECT_EQ(observed.flagsOf(set), Flags());
}

TEST_F(KpaMatrixSymmetricalTest, StoresWhatItsSettersAreGiven)
{
    parameter.wantPositiveDefinite(true);
    parameter.canBeNull(false);
    parameter.setBoundedConstraintEnabled(false);
    parameter.setMatrixLabel("Sills");
    parameter.setLabels({"V1", "V2"});
    parameter.setElementStep(0.5);
    EXPECT_TRUE(parameter.doesWantPositiveDefinite());
    EXPECT_FALSE(parameter.canItBeNull());
    EXPECT_FALSE(parameter.isBoundedConstraintEnabled());
    EXPECT_EQ(parameter.getMatrixLabel(), "Sills");
    EXPECT_EQ(parameter.getLabels(), QStringList({"V1", "V2"}));
    EXPECT_EQ(parameter.getElementStep(), 0.5);
    EXPECT_TRUE(parameter.isElementStepDefined());
}

TEST_F(KpaMatrixSymmetricalTest, ShowsAllElementsAlikeAfterASetterForAllOfThem)
{
    const std::pair<const char*, Setter> setters[] = {
        {"setUnitClass", [](Parameter& p) { p.setUnitClass(MbuEUnitClass::NONE); }},
        {"setPowerValue", [](Parameter& p) { p.setPowerValue(1); }},
        {"setCustomFormat", [](Parameter& p) { p.setCustomFormat(MbbStringFormat()); }},
        {"setDetails", [](Parameter& p) { p.setDetails(MbdVariableDetails()); }},
    };
    for (const auto& [name, set] : setters) {
        ObservedAtomic<Parameter> each;
        set(each.atomic);
        EXPECT_TRUE(each.atomic.hasGlobalFormatSettings()) << name;
    }
}

TEST_F(KpaMatrixSymmetricalTest, ShowsEachRowInItsOwnWayAfterASetterForRows)
{
    const std::pair<const char*, Setter> setters[] = {
        {"setUnitClassList", [](Parameter& p) { p.setUnitClassList({}); }},
        {"setPowerValueList", [](Parameter& p) { p.setPowerValueList({}); }},
        {"setCustomFormatList", [](Parameter& p) { p.setCustomFormatList({}); }},
        {"setDetailsList", [](Parameter& p) { p.setDetailsList({}); }},
    };
    for (const auto& [name, set] : setters) {
        ObservedAtomic<Parameter> each;
        each.atomic.setPowerValue(2);
        EXPECT_EQ(each.flagsOf(set), Flags{Kp::NotifyConfig}) << name;
        EXPECT_FALSE(each.atomic.hasGlobalFormatSettings()) << name;
        EXPECT_EQ(each.atomic.getPowerValue(), 2) << name;
        EXPECT_EQ(each.flagsOf(set), Flags()) << name;
    }
}

TEST_F(KpaMatrixSymmetricalTest, KeepsOneFormatForAllElements)
{
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setPowerValue(2);
    MbbStringFormat format = decimals(MbuEUnitClass::LENGTH, 3);
    format.setCustomSymbol("ft");
    parameter.setCustomFormat(format);
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getPowerValue(), 2);
    EXPECT_TRUE(parameter.usesCustomFormat());
    EXPECT_EQ(parameter.getCustomFormat(), format);
    EXPECT_EQ(parameter.getCustomPrecision(), 3);
    EXPECT_EQ(parameter.getCustomSymbol(), "ft");
}

TEST_F(KpaMatrixSymmetricalTest, DropsItsCustomFormatWithAnyUnitClassOrPower)
{
    const Setter setters[] = {
        [](Parameter& p) { p.setUnitClass(MbuEUnitClass::NONE); },
        [](Parameter& p) { p.setPowerValue(1); },
        [](Parameter& p) { p.setDetails(details(MbuEUnitClass::LENGTH, 1)); },
    };
    for (const Setter& set : setters) {
        parameter.setCustomFormat(decimals(MbuEUnitClass::NONE, 3));
        EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyConfig});
        EXPECT_FALSE(parameter.usesCustomFormat());
        EXPECT_EQ(parameter.getCustomPrecision(), 3);
    }
}

TEST_F(KpaMatrixSymmetricalTest, TakesOverDetailsForAllElements)
{
    parameter.setDetails(details(MbuEUnitClass::LENGTH, 2));
    EXPECT_EQ(parameter.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_EQ(parameter.getPowerValue(), 2);
    EXPECT_FALSE(parameter.usesCustomFormat());
    parameter.setDetails(formattedDetails(MbuEUnitClass::LENGTH, 4));
    EXPECT_EQ(parameter.getPowerValue(), 1);
    EXPECT_TRUE(parameter.usesCustomFormat());
    EXPECT_EQ(parameter.getCustomFormat(), decimals(MbuEUnitClass::LENGTH, 4));
}

TEST_F(KpaMatrixSymmetricalTest, TakesOverTheFormatOfDetailsWithoutUnitClass)
{
    MbdVariableDetails plain;
    plain.getNumericDetails().setUserDefinedStringFormat(decimals(MbuEUnitClass::NONE, 3));
    EXPECT_TRUE(plain.isUnitDefaultFormatUsed());
    parameter.setDetails(plain);
    EXPECT_TRUE(parameter.usesCustomFormat());
    EXPECT_EQ(parameter.getCustomPrecision(), 3);
}

TEST_F(KpaMatrixSymmetricalTest, KeepsAFormatPerRow)
{
    MbbStringFormat feet = decimals(MbuEUnitClass::LENGTH, 3);
    feet.setCustomSymbol("ft");
    parameter.setUnitClassList({MbuEUnitClass::LENGTH, MbuEUnitClass::MASS});
    parameter.setPowerValueList({2, 3});
    parameter.setCustomFormatList({feet, decimals(MbuEUnitClass::MASS, 1)});
    EXPECT_EQ(parameter.getUnitClassList(), QList<MbuEUnitClass>({MbuEUnitClass::LENGTH, MbuEUnitClass::MASS}));
    EXPECT_EQ(parameter.getPowerValueList(), QList<int>({2, 3}));
    EXPECT_EQ(parameter.usesCustomFormatList(), QList<bool>({true, true}));
    EXPECT_EQ(parameter.getCustomFormatList(), QList<MbbStringFormat>({feet, decimals(MbuEUnitClass::MASS, 1)}));
    EXPECT_EQ(parameter.getCustomPrecisionList(), QList<int>({3, 1}));
    EXPECT_EQ(parameter.getCustomSymbolList(), QStringList({"ft", "kg"}));
}

TEST_F(KpaMatrixSymmetricalTest, DropsTheCustomFormatsOfRowsWithAnyListOfUnitClassesOrPowers)
{
    const Setter setters[] = {
        [](Parameter& p) { p.setUnitClassList({}); },
        [](Parameter& p) { p.setPowerValueList({}); },
    };
    for (const Setter& set : setters) {
        parameter.setCustomFormatList({decimals(MbuEUnitClass::NONE, 3)});
        EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyConfig});
        EXPECT_EQ(parameter.usesCustomFormatList(), QList<bool>());
    }
}

TEST_F(KpaMatrixSymmetricalTest, TakesOverDetailsRowByRow)
{
    parameter.setDetailsList({details(MbuEUnitClass::LENGTH, 2), formattedDetails(MbuEUnitClass::MASS, 4)});
    EXPECT_EQ(parameter.getUnitClassList(), QList<MbuEUnitClass>({MbuEUnitClass::LENGTH, MbuEUnitClass::MASS}));
    EXPECT_EQ(parameter.getPowerValueList(), QList<int>({2, 1}));
    EXPECT_EQ(parameter.usesCustomFormatList(), QList<bool>({false, true}));
    EXPECT_EQ(parameter.getCustomFormatList(),
              QList<MbbStringFormat>({MbbStringFormat(), decimals(MbuEUnitClass::MASS, 4)}));
    EXPECT_EQ(parameter.getCustomPrecisionList(), QList<int>({10, 4}));
    EXPECT_EQ(parameter.getCustomSymbolList(), QStringList({"", "kg"}));
}

TEST_F(KpaMatrixSymmetricalTest, HasNoFormatsWhenFresh)
{
    readFormats();
    EXPECT_EQ(formats, QList<MbbStringFormat>());
    EXPECT_EQ(powers, QList<int>());
}

TEST_F(KpaMatrixSymmetricalTest, GivesOneFormatForAllElements)
{
    MbbUserStringFormats::setStringFormat(decimals(MbuEUnitClass::LENGTH, 5));
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setPowerValue(2);
    readFormats();
    EXPECT_EQ(formats, QList<MbbStringFormat>({decimals(MbuEUnitClass::LENGTH, 5)}));
    EXPECT_EQ(powers, QList<int>({2}));

    parameter.setCustomFormat(decimals(MbuEUnitClass::LENGTH, 1));
    readFormats();
    EXPECT_EQ(formats, QList<MbbStringFormat>({decimals(MbuEUnitClass::LENGTH, 1)}));
    EXPECT_EQ(powers, QList<int>({2}));
}

TEST_F(KpaMatrixSymmetricalTest, GivesTheFormatsOfTheRows)
{
    MbbUserStringFormats::setStringFormat(decimals(MbuEUnitClass::LENGTH, 5));
    parameter.setDetailsList({details(MbuEUnitClass::LENGTH, 2), formattedDetails(MbuEUnitClass::MASS, 4)});
    readFormats();
    EXPECT_EQ(formats, QList<MbbStringFormat>({decimals(MbuEUnitClass::LENGTH, 5), decimals(MbuEUnitClass::MASS, 4)}));
    EXPECT_EQ(powers, QList<int>({2, 1}));
}

TEST_F(KpaMatrixSymmetricalTest, GivesPlainFormatsToRowsThatAListIsTooShortFor)
{
    parameter.setUnitClassList({MbuEUnitClass::LENGTH});
    parameter.setPowerValueList({2, 3});
    readFormats();
    EXPECT_EQ(formats, QList<MbbStringFormat>({MbbUserStringFormats::getStringFormat(MbuEUnitClass::LENGTH),
                                               MbbUserStringFormats::getStringFormat(MbuEUnitClass::NONE)}));
    EXPECT_EQ(powers, QList<int>({2, 3}));
    parameter.setCustomFormatList({MbbStringFormat(), MbbStringFormat(), decimals(MbuEUnitClass::NONE, 1)});
    readFormats();
    EXPECT_EQ(formats.size(), 3);
    EXPECT_EQ(formats.last(), decimals(MbuEUnitClass::NONE, 1));
    EXPECT_EQ(powers, QList<int>({2, 3, 1}));
}

TEST_F(KpaMatrixSymmetricalTest, ShowsElementsWithTwoDecimalsWithoutFormats)
{
    EXPECT_EQ(parameter.toString(), "0.00");
    parameter.setValue(values(2, {1, 0.256, 2}));
    EXPECT_EQ(parameter.toString(), "[1.00, 0.26; 0.26, 2.00]");
    parameter.setValue(KuuMatrixSymmetrical(0));
    EXPECT_EQ(parameter.toString(), "[]");
}

TEST_F(KpaMatrixSymmetricalTest, ShowsElementsInTheirFormats)
{
    parameter.setValue(values(2, {1, 0.5, 2}));
    parameter.setDetails(details(MbuEUnitClass::LENGTH, 2));
    EXPECT_EQ(parameter.toString(), "[1 m², 0.5 m²; 0.5 m², 2 m²]");
    parameter.setDetailsList({details(MbuEUnitClass::LENGTH, 2), formattedDetails(MbuEUnitClass::MASS, 1)});
    EXPECT_EQ(parameter.toString(), "[1 m², 0.50; 0.50, 2.0 kg]");
    parameter.setMode(Constraints);
    EXPECT_EQ(parameter.toString(), "[unknown]");
}

TEST_F(KpaMatrixSymmetricalTest, SetsOneLimitInThePlaceOfAll)
{
    KpaMatrixSymmetricalConfig config;
    EXPECT_TRUE(config.setElementMaximum(4));
    EXPECT_FALSE(config.setElementMaximum(4));
    EXPECT_TRUE(config.setElementMinimum(-4));
    EXPECT_FALSE(config.setElementMinimum(-4));
    EXPECT_EQ(config.getElementMaximumList(), Limits{4});
    EXPECT_EQ(config.getElementMinimumList(), Limits{-4});
    EXPECT_EQ(config.getElementMaximum(), 4);
    EXPECT_EQ(config.getElementMinimum(), -4);
    EXPECT_TRUE(config.isElementMaximumDefined());
    EXPECT_TRUE(config.isElementMinimumDefined());
    EXPECT_TRUE(config.setElementMaximum(undefined));
    EXPECT_EQ(config.getElementMaximumList(), Limits{undefined});
    EXPECT_FALSE(config.isElementMaximumDefined());
}

TEST_F(KpaMatrixSymmetricalTest, SetsLimitsPerElement)
{
    KpaMatrixSymmetricalConfig config;
    EXPECT_TRUE(config.setElementBounds({0, -1, 0}, {9, 9, 9}));
    EXPECT_FALSE(config.setElementBounds({0, -1, 0}, {9, 9, 9}));
    EXPECT_TRUE(config.setElementBounds({0, -1, 0}, {9, 9, 8}));
    EXPECT_TRUE(config.setElementBounds({0, -1, 1}, {9, 9, 8}));
    EXPECT_EQ(config.getElementMinimumList(), Limits({0, -1, 1}));
    EXPECT_EQ(config.getElementMaximumList(), Limits({9, 9, 8}));
    EXPECT_EQ(config.getElementMinimum(), undefined);
    EXPECT_FALSE(config.isElementMinimumDefined());
    EXPECT_TRUE(config.setElementBounds(config.getElementMaximumList(), config.getElementMinimumList()));
    EXPECT_EQ(config.getElementMinimumList(), Limits({9, 9, 8}));
    EXPECT_EQ(config.getElementMaximumList(), Limits({0, -1, 1}));
    EXPECT_TRUE(config.setElementMinimum(0));
    EXPECT_EQ(config.getElementMinimumList(), Limits{0});
}

TEST_F(KpaMatrixSymmetricalTest, AppliesASingleLimitToTheFirstElementAlone)
{
    parameter.setValue(values(2, {5, 6, 7}));
    parameter.setElementMaximum(4);
    EXPECT_EQ(triangleOf(parameter.getValue()), QList<double>({4, 6, 7}));
    parameter.setElementMinimum(4.5);
    parameter.setElementMaximum(undefined);
    EXPECT_EQ(triangleOf(parameter.getValue()), QList<double>({4.5, 6, 7}));
}

TEST_F(KpaMatrixSymmetricalTest, AppliesLimitsInTheOrderOfTheUpperTriangle)
{
    parameter.setElementBounds({10, 20, 30, 40, 50, 60}, {11, 21, 31, 41, 51, 61});
    parameter.setValue(values(3, {0, 99, 0, 99, 0, 99}));
    EXPECT_EQ(triangleOf(parameter.getValue()), QList<double>({10, 21, 30, 41, 50, 61}));
    EXPECT_EQ(parameter.getValue().getElementAt(0, 1), 21);
    EXPECT_EQ(parameter.getValue().getElementAt(1, 0), 21);
    EXPECT_EQ(parameter.getValue().getElementAt(2, 1), 50);
}

TEST_F(KpaMatrixSymmetricalTest, PassesOverLimitsBeyondTheLastElement)
{
    parameter.setElementBounds({1, 2, 3, 4}, {});
    EXPECT_EQ(triangleOf(parameter.getValue()), QList<double>{1});
}

TEST_F(KpaMatrixSymmetricalTest, BringsAValueIntoItsModeWhateverThePreviousOne)
{
    const KuuMatrixSymmetrical other = values(3, {1, 2, 3, 4, 5, 6});
    KuuMatrixSymmetrical fixed = inMode(Values).fix(constraints(2, {1, 2, 3}, {0, 0, 0}, {9, 9, 9}, Known), other);
    EXPECT_EQ(fixed.getMode(), Values);
    EXPECT_EQ(triangleOf(fixed), QList<double>({1, 2, 3}));
    fixed = inMode(Constraints).fix(values(2, {1, 2, 3}), other);
    EXPECT_EQ(fixed.getMode(), Constraints);
    EXPECT_EQ(triangleOf(fixed), QList<double>({1, 2, 3}));
}

TEST_F(KpaMatrixSymmetricalTest, MakesItsValuePositiveDefiniteWhereThatIsWanted)
{
    const KuuMatrixSymmetrical indefinite = values(2, {1, 2, 1});
    EXPECT_EQ(KpaMatrixSymmetricalConfig().fix(indefinite, indefinite), indefinite);
    parameter.setValue(indefinite);
    EXPECT_EQ(observed.flagsOf([](Parameter& p) { p.wantPositiveDefinite(true); }),
              Flags{Kp::NotifyConfig | Kp::NotifyValue});
    for (const double element : triangleOf(parameter.getValue()))
        EXPECT_NEAR(element, 1.5, 1e-9);
}

TEST_F(KpaMatrixSymmetricalTest, DropsAnAutomaticValueThatFitsNoMore)
{
    parameter.setAutoValue(values(1, {5}));
    EXPECT_TRUE(parameter.isAutomaticValueInitialized());
    parameter.setElementMaximum(4);
    EXPECT_FALSE(parameter.isAutomaticValueInitialized());
    EXPECT_EQ(parameter.getAutoValue(), values(1, {5}));
}

TEST_F(KpaMatrixSymmetricalTest, TakesOverAnotherConfigWhole)
{
    KpaMatrixSymmetricalConfig config;
    config.setElementMinimum(3);
    EXPECT_EQ(observed.flagsOf([&](Parameter& p) { p.setConfig(config); }), Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), values(1, {3}));
    EXPECT_EQ(observed.flagsOf([&](Parameter& p) { p.setConfig(config); }), Flags());
}

TEST_F(KpaMatrixSymmetricalTest, StoresTheElementsOfTheUpperTriangle)
{
    parameter.setValue(values(3, {11, 12, 13, 22, 23, 33}));
    EXPECT_EQ(parameter.serialize(), Map({{"size", "3"},
                                          {"node_1", "11"},
                                          {"node_2", "12"},
                                          {"node_3", "13"},
                                          {"node_4", "22"},
                                          {"node_5", "23"},
                                          {"node_6", "33"}}));
    parameter.setValue(KuuMatrixSymmetrical(0));
    EXPECT_EQ(parameter.serialize(), Map({{"size", "0"}}));
}

TEST_F(KpaMatrixSymmetricalTest, StoresNumbersInTheirShortestExactForm)
{
    parameter.setValue(values(2, {0.1, 1.0 / 3, -1e21}));
    EXPECT_EQ(parameter.serialize(),
              Map({{"size", "2"}, {"node_1", "0.1"}, {"node_2", "0.3333333333333333"}, {"node_3", "-1e+21"}}));
}

TEST_F(KpaMatrixSymmetricalTest, StoresConstraintsBehindTheElements)
{
    parameter.setMode(Constraints);
    parameter.setValue(constraints(2, {1, 0.5, 1}, {undefined, -0.1, 0}, {undefined, undefined, 2.5}, Known));
    EXPECT_EQ(parameter.serialize(), Map({{"size", "2"},
                                          {"behavior", "Known"},
                                          {"node_1", "1"},
                                          {"node_2", "0.5"},
                                          {"node_3", "1"},
                                          {"min_V1", ""},
                                          {"max_V1", ""},
                                          {"min_V2", "-0.1"},
                                          {"max_V2", ""},
                                          {"min_V3", "0"},
                                          {"max_V3", "2.5"}}));
}

TEST_F(KpaMatrixSymmetricalTest, StoresTheConstraintsOfEachElementOfTheUpperTriangle)
{
    parameter.setMode(Constraints);
    parameter.setValue(constraints(3, {11, 12, 13, 22, 23, 33}, {1, 2, 3, 4, 5, 6}, {91, 92, 93, 94, 95, 96}, Bounded));
    const Map stored = parameter.serialize();
    EXPECT_EQ(stored, Map({{"size", "3"},    {"behavior", "Constrained"},
                           {"node_1", "11"}, {"node_2", "12"},
                           {"node_3", "13"}, {"node_4", "22"},
                           {"node_5", "23"}, {"node_6", "33"},
                           {"min_V1", "1"},  {"max_V1", "91"},
                           {"min_V2", "2"},  {"max_V2", "92"},
                           {"min_V3", "3"},  {"max_V3", "93"},
                           {"min_V4", "4"},  {"max_V4", "94"},
                           {"min_V5", "5"},  {"max_V5", "95"},
                           {"min_V6", "6"},  {"max_V6", "96"}}));
    const KuuMatrixSymmetrical read = inMode(Constraints).unserializeValue(stored, KuuMatrixSymmetrical(1));
    EXPECT_EQ(read.getMinimums(), Limits({1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(read.getMaximums(), Limits({91, 92, 93, 94, 95, 96}));
    EXPECT_EQ(read.getElementAt(1, 2), 23);
    EXPECT_EQ(read.getElementAt(2, 0), 13);
}

TEST_F(KpaMatrixSymmetricalTest, StoresNoConstraintsInTheModeOfNumbers)
{
    parameter.setMode(Constraints);
    parameter.setValue(constraints(1, {2}, {1}, {3}, Bounded));
    parameter.setMode(Values);
    EXPECT_EQ(parameter.serialize(), Map({{"size", "1"}, {"node_1", "2"}}));
}

TEST_F(KpaMatrixSymmetricalTest, WritesAndReadsNumbersWhateverTheLocale)
{
    const ForeignLocale foreign;
    parameter.setValue(values(1, {1234567.5}));
    EXPECT_EQ(parameter.toString(), "1234567.50");
    EXPECT_EQ(parameter.serialize(), Map({{"size", "1"}, {"node_1", "1234567.5"}}));
    parameter.unserialize({{"size", "1"}, {"node_1", "2.25"}});
    EXPECT_EQ(parameter.getValue(), values(1, {2.25}));
    parameter.unserialize({{"size", "1"}, {"node_1", "2,25"}});
    EXPECT_EQ(parameter.getValue(), values(1, {0}));
}

TEST_F(KpaMatrixSymmetricalTest, TakesLimitsThatAreNotFiniteAsNone)
{
    const double infinite = std::numeric_limits<double>::infinity();
    const double none = std::numeric_limits<double>::quiet_NaN();
    parameter.setValue(values(2, {1, 2, 3}));
    parameter.setElementBounds({none, infinite, -infinite}, {none, -infinite, infinite});
    EXPECT_EQ(parameter.getValue(), values(2, {1, 2, 3}));
    parameter.setElementMaximum(none);
    EXPECT_EQ(parameter.getValue(), values(2, {1, 2, 3}));
}

TEST_F(KpaMatrixSymmetricalTest, StoresAndReadsEachBehavior)
{
    const std::pair<Behavior, const char*> rows[] = {
        {Unknown, "Automatic"}, {Known, "Known"}, {Bounded, "Constrained"}};
    parameter.setMode(Constraints);
    for (const auto& [behavior, text] : rows) {
        const KuuMatrixSymmetrical value = constraints(1, {2}, {1}, {3}, behavior);
        parameter.setValue(value);
        const Map stored = parameter.serialize();
        EXPECT_EQ(stored.value("behavior"), text);
        parameter.setValue(constraints(1, {0}, {}, {}, Unknown));
        parameter.unserialize(stored);
        EXPECT_EQ(parameter.getValue(), value) << text;
    }
}

TEST_F(KpaMatrixSymmetricalTest, StoresNoBehaviorThatHasNoText)
{
    const KpaMatrixSymmetricalConfig config = inMode(Constraints);
    for (const int behavior : {-1, 3}) {
        const Map stored = config.serializeValue(constraints(1, {2}, {}, {}, Behavior(behavior)));
        EXPECT_EQ(stored, Map({{"size", "1"}, {"node_1", "2"}, {"min_V1", ""}, {"max_V1", ""}}));
    }
}

TEST_F(KpaMatrixSymmetricalTest, ReadsBehaviorsWhateverTheirCase)
{
    const std::pair<const char*, Behavior> rows[] = {
        {"known", Known},         {"KNOWN", Known},       {"constrained", Bounded},
        {"cOnStRaInEd", Bounded}, {"AUTOMATIC", Unknown}, {"Bounded", Unknown},
        {"1", Unknown},           {" Known", Unknown},    {"", Unknown},
    };
    const KpaMatrixSymmetricalConfig config = inMode(Constraints);
    for (const auto& [text, behavior] : rows) {
        const Map stored{{"size", "1"}, {"behavior", text}, {"node_1", "2"}};
        EXPECT_EQ(config.unserializeValue(stored, KuuMatrixSymmetrical(1)).getBehavior(), behavior) << text;
    }
    EXPECT_EQ(config.unserializeValue({{"size", "1"}}, constraints(1, {2}, {}, {}, Known)).getBehavior(), Unknown);
}

TEST_F(KpaMatrixSymmetricalTest, ReadsBackWhatItStoresToTheLastBit)
{
    const KuuMatrixSymmetrical numbers = values(3, {0.1, 1.0 / 3, -1e-300, 1e300, 123456789.123456789, 5e-324});
    parameter.setValue(numbers);
    Parameter other("OTHER");
    other.unserialize(parameter.serialize());
    EXPECT_EQ(other.getValue(), numbers);
    EXPECT_EQ(other.serialize(), parameter.serialize());

    const KuuMatrixSymmetrical bounded = constraints(2, {0.1, 0.2, 0.3}, {1.0 / 7, undefined, 0}, {1, 2}, Bounded);
    for (Parameter* each : {&parameter, &other})
        each->setMode(Constraints);
    parameter.setValue(bounded);
    other.unserialize(parameter.serialize());
    EXPECT_EQ(other.getValue(), parameter.getValue());
    EXPECT_EQ(other.serialize(), parameter.serialize());
}

TEST_F(KpaMatrixSymmetricalTest, KeepsItsValueWithoutAUsableSize)
{
    const KuuMatrixSymmetrical value = values(2, {1, 2, 3});
    parameter.setValue(value);
    observed.takeFlags();
    for (const char* size :
         {"", " ", "abc", "2.0", "2.5", "1e1", "-1", "-2147483648", "257", "2147483647", "99999999999999999999", "nan"})
    {
        parameter.unserialize({{"size", size}, {"node_1", "9"}});
        EXPECT_EQ(parameter.getValue(), value) << size;
    }
    parameter.unserialize({{"node_1", "9"}});
    parameter.unserialize({});
    EXPECT_EQ(parameter.getValue(), value);
    EXPECT_EQ(observed.takeFlags(), Flags());
}

TEST_F(KpaMatrixSymmetricalTest, ReadsEverySizeThatAMatrixCanHave)
{
    for (const int size : {0, 1, 256}) {
        parameter.unserialize({{"size", QString::number(size)}});
        EXPECT_EQ(parameter.getNbRows(), size);
    }
    EXPECT_EQ(int(KuuMatrixSymmetrical::MaxSize), 256);
}

TEST_F(KpaMatrixSymmetricalTest, ReadsElementsThatAreNoNumbersAsZero)
{
    for (const char* text : {"", " ", "abc", "1,5", "nan", "inf", "-inf", "1e999", "1.7976931348623157e+308"}) {
        parameter.setValue(values(1, {7}));
        parameter.unserialize({{"size", "2"}, {"node_1", "1"}, {"node_2", text}, {"node_3", "2"}});
        EXPECT_EQ(parameter.getValue(), values(2, {1, 0, 2})) << text;
    }
    parameter.unserialize({{"size", "2"}, {"node_3", "2"}, {"node_4", "9"}});
    EXPECT_EQ(parameter.getValue(), values(2, {0, 0, 2}));
}

TEST_F(KpaMatrixSymmetricalTest, ReadsLimitsThatAreNoNumbersAsNone)
{
    const KpaMatrixSymmetricalConfig config = inMode(Constraints);
    for (const char* text : {"", "abc", "nan", "inf", "1e999"}) {
        const Map stored{{"size", "1"}, {"behavior", "Constrained"}, {"node_1", "2"}, {"min_V1", text}};
        EXPECT_EQ(config.unserializeValue(stored, KuuMatrixSymmetrical(1)), constraints(1, {2}, {}, {}, Bounded))
            << text;
    }
}

TEST_F(KpaMatrixSymmetricalTest, ReadsNoConstraintsInTheModeOfNumbers)
{
    parameter.unserialize({{"size", "1"}, {"behavior", "Known"}, {"node_1", "2"}, {"min_V1", "5"}, {"max_V1", "6"}});
    EXPECT_EQ(parameter.getValue(), values(1, {2}));
}

TEST_F(KpaMatrixSymmetricalTest, ReadsOneRowOfZeroInAModeThatThereIsNot)
{
    const KpaMatrixSymmetricalConfig config = inMode(Mode(2));
    EXPECT_EQ(config.unserializeValue({{"size", "2"}, {"node_1", "5"}}, values(2, {1, 2, 3})), KuuMatrixSymmetrical(1));
    EXPECT_EQ(config.unserializeValue({{"size", "x"}, {"node_1", "5"}}, values(2, {1, 2, 3})), values(2, {1, 2, 3}));
}

TEST_F(KpaMatrixSymmetricalTest, BringsWhatItReadsWithinItsLimits)
{
    parameter.setElementMaximum(4);
    parameter.unserialize({{"size", "1"}, {"node_1", "9"}});
    EXPECT_EQ(parameter.getValue(), values(1, {4}));
}

TEST_F(KpaMatrixSymmetricalTest, SurvivesGarbageInEachEntry)
{
    parameter.setMode(Constraints);
    parameter.setElementMinimum(0);
    parameter.setValue(constraints(2, {1, 0, 1}, {0, 0, 0}, {9, 9, 9}, Bounded));
    const Map stored = parameter.serialize();
    for (const QString& key : stored.keys()) {
        for (const QString& garbage : garbageTexts()) {
            Map map = stored;
            map.insert(key, garbage);
            parameter.unserialize(map);
            EXPECT_EQ(parameter.getNbRows(), 2) << damaged(key, garbage);
            EXPECT_EQ(parameter.getConfig().fix(parameter.getValue(), KuuMatrixSymmetrical(1)), parameter.getValue())
                << damaged(key, garbage);
        }
    }
}

TEST_F(KpaMatrixSymmetricalTest, ReadsTheLargestMatrixThatHasToBecomePositiveDefinite)
{
    parameter.wantPositiveDefinite(true);
    Map stored{{"size", "256"}};
    for (int i = 1; i <= 256 * 257 / 2; ++i)
        stored.insert(QStringLiteral("node_%1").arg(i), QString::number(i % 97 - 50));
    parameter.unserialize(stored);
    EXPECT_EQ(parameter.getNbRows(), 256);
}

TEST_F(KpaMatrixSymmetricalTest, PassesOverEntriesThatItHasNoElementsFor)
{
    Map stored{{"size", "1"}};
    for (int i = 1; i <= 100000; ++i)
        stored.insert(QStringLiteral("node_%1").arg(i), QStringLiteral("3"));
    parameter.unserialize(stored);
    EXPECT_EQ(parameter.getValue(), values(1, {3}));
}

TEST_F(KpaMatrixSymmetricalTest, DebugsItsConfig)
{
    EXPECT_EQ(KpaMatrixSymmetricalConfig().debug(), "----- KpaMatrixSymmetricalConfig --------\n"
                                                    " mode             = value\n"
                                                    " positive defined = no\n"
                                                    " can be null      = yes\n"
                                                    " matrix label     = \n"
                                                    " labels           = \n"
                                                    " unit class       = NONE (None)\n"
                                                    " power value      = 1\n");
    parameter.setMode(Constraints);
    parameter.wantPositiveDefinite(true);
    parameter.canBeNull(false);
    parameter.setMatrixLabel("Sills");
    parameter.setLabels({"V1", "V2"});
    parameter.setUnitClass(MbuEUnitClass::LENGTH);
    parameter.setPowerValue(2);
    EXPECT_TRUE(parameter.debug(1).endsWith("----- KpaMatrixSymmetricalConfig --------\n"
                                            " mode             = constraints\n"
                                            " positive defined = yes\n"
                                            " can be null      = no\n"
                                            " matrix label     = Sills\n"
                                            " labels           = V1|V2\n"
                                            " unit class       = LENGTH (Length)\n"
                                            " power value      = 2\n"));
}

TEST_F(KpaMatrixSymmetricalTest, DuplicatesValueAndConfigWithoutItsObservers)
{
    parameter.setElementMaximum(4);
    parameter.setValue(values(2, {1, 2, 3}));
    const std::unique_ptr<Parameter> sameKey(parameter.duplicate(""));
    const std::unique_ptr<Parameter> copy(parameter.duplicate("COPY"));
    observed.takeFlags();
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValue(), values(2, {1, 2, 3}));
    EXPECT_TRUE(copy->getConfig() == parameter.getConfig());
    copy->setValue(KuuMatrixSymmetrical(1));
    EXPECT_EQ(parameter.getValue(), values(2, {1, 2, 3}));
    EXPECT_EQ(observed.takeFlags(), Flags());
}
