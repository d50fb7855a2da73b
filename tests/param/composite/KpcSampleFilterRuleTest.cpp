#include "CompositeTestTools.h"

#include <param/KpsSerializerTestTools.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcSampleFilterRule.h>
#include <support/BracketTranslator.h>
#include <support/RecordedMessages.h>
#include <support/SampledProject.h>
#include <util/KufSampleFilterRuleAlpha.h>
#include <util/KufSampleFilterRuleEnum.h>
#include <util/KufSampleFilterRuleNumeric.h>
#include <util/KufSampleFilterRuleSelection.h>

namespace {

using Rule = KpcSampleFilterRule;
using Numeric = KufSampleFilterRuleNumeric;
using Alpha = KufSampleFilterRuleAlpha;
using Selection = KufSampleFilterRuleSelection;
using Categories = KufSampleFilterRuleEnum;

constexpr int allFlags = int(Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyItem);

class KpcSampleFilterRuleTest : public testing::Test
{
protected:
    KpcSampleFilterRuleTest() { rule.setRootIdent(samples.support(), true); }

    void choose(const QString& name) { rule.getVariableParameter()->setValue(samples.variable(name)); }
    void setComparison(int mode, int compareOperator)
    {
        rule.getNumModeParameter()->setValue(mode);
        rule.getNumCompareOperatorParameter()->setValue(compareOperator);
    }
    template <class Kind>
    QSharedPointer<Kind> basicFilter(const MbdEVarType& type) const
    {
        MbdVariableDetails details;
        details.setType(type);
        return rule.getBasicFilter(details).dynamicCast<Kind>();
    }

    SampledProject samples;
    Rule rule{"RULE", samples};
};

QStringList itemKeys(const KpaEnum& choice)
{
    QStringList keys;
    for (int i = 0; i < choice.getItemCount(); ++i)
        keys.append(choice.getItemAt(i).key);
    return keys;
}

void expectAutomatic(const KpaDouble& number, double value)
{
    EXPECT_TRUE(number.isAutomaticEnabled()) << number.getKey().toStdString();
    EXPECT_TRUE(number.isAutomatic()) << number.getKey().toStdString();
    EXPECT_EQ(number.getAutoValue(), value) << number.getKey().toStdString();
    EXPECT_EQ(number.getValue(), value) << number.getKey().toStdString();
}

/// A stored rule of the first version, with a numeric mode and a value for each comparison.
QString firstVersion(const QString& mode, const QString& less, const QString& greater, const QString& equal)
{
    return QString("<param key=\"RULE\"><param key=\"NUM_MODE\">%1</param><param key=\"NUM_LE_VALUE\">%2</param>"
                   "<param key=\"NUM_GE_VALUE\">%3</param><param key=\"NUM_EQ_VALUE\">%4</param></param>")
        .arg(mode, less, greater, equal);
}

/// What becomes of a stored rule of the first version: "KEY=value" for each child.
QStringList converted(const Rule& rule, const QString& text)
{
    QDomDocument document = SerializerTest::parsed(text);
    QDomElement element = document.documentElement();
    rule.convert(element, 1);
    QStringList rows;
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        rows.append(child.attribute("key") + '=' + KuxXml::getValue(child));
    return rows;
}

} // namespace

TEST_F(KpcSampleFilterRuleTest, IsAVersionedParameterOfItsKind)
{
    EXPECT_TRUE(rule.isA(KpbEType::SAMPLE_FILTER_RULE));
    EXPECT_EQ(rule.getType().getValue(), 51);
    EXPECT_EQ(rule.getVersion(), 2);
}

TEST_F(KpcSampleFilterRuleTest, HasItsChildrenInOrder)
{
    EXPECT_EQ(childKeys(rule),
              QStringList({"VARIABLE", "INVERT_SELECTION", "NUM_MODE", "NUM_COMPARE_OPERATOR", "NUM_COMPARE_VALUE",
                           "NUM_COMPARE_TOLERANCE", "NUM_INTERVAL_LOWER_OPERATOR", "NUM_INTERVAL_LOWER",
                           "NUM_INTERVAL_UPPER_OPERATOR", "NUM_INTERVAL_UPPER", "ALPHA_MODE", "ALPHA_CONTAINS_VALUE",
                           "ALPHA_EQ_VALUE", "ALPHA_NEQ_VALUE", "ENUM_CHECK_LIST"}));
}

TEST_F(KpcSampleFilterRuleTest, NamesAndLabelsItsChildren)
{
    struct Row
    {
        const QString& key;
        const KpbAParameter* child;
        const char* label;
    };
    const Row rows[] = {
        {Rule::Variable, rule.getVariableParameter(), "Variable"},
        {Rule::InvertSelection, rule.getInvertSelectionParameter(), "Invert Selection"},
        {Rule::NumMode, rule.getNumModeParameter(), "Numerical Option"},
        {Rule::NumCompareOperator, rule.getNumCompareOperatorParameter(), "Compare Operator"},
        {Rule::NumCompareValue, rule.getNumCompareValueParameter(), "Compare Value"},
        {Rule::NumCompareTolerance, rule.getNumCompareToleranceParameter(), "Compare Tolerance"},
        {Rule::NumIntervalLowerOperator, rule.getNumIntervalLowerOperatorParameter(), "Interval Lower operator"},
        {Rule::NumIntervalLower, rule.getNumIntervalLowerParameter(), "Interval lower bound"},
        {Rule::NumIntervalUpperOperator, rule.getNumIntervalUpperOperatorParameter(), "Interval Upper operator"},
        {Rule::NumIntervalUpper, rule.getNumIntervalUpperParameter(), "Interval upper bound"},
        {Rule::AlphaMode, rule.getAlphaModeParameter(), "String Option"},
        {Rule::AlphaContainsValue, rule.getAlphaContainsValueParameter(), "Contains String"},
        {Rule::AlphaEQValue, rule.getAlphaEQValueParameter(), "Equal String"},
        {Rule::AlphaNEQValue, rule.getAlphaNEQValueParameter(), "Not Equal String"},
        {Rule::EnumList, rule.getFlagsParameter(), "Categories"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(rule.getChild(row.key), row.child) << row.label;
        EXPECT_EQ(row.child->getLabel(), row.label);
    }
}

TEST_F(KpcSampleFilterRuleTest, TranslatesItsLabels)
{
    const BracketTranslator translator;
    const Rule translated("RULE", samples);
    for (int i = 0; i < translated.getChildCount(); ++i)
        EXPECT_EQ(translated.getChild(i)->getLabel(), '[' + rule.getChild(i)->getLabel() + ']');
}

TEST_F(KpcSampleFilterRuleTest, AsksForAVariableBelowASupport)
{
    const Rule fresh("RULE", samples);
    const KpaData& variable = *fresh.getVariableParameter();
    EXPECT_EQ(variable.getRootType(), KsoEDataType::SUPPORT);
    EXPECT_TRUE(variable.isRelative());
    EXPECT_TRUE(variable.getValue().isNull());
    EXPECT_EQ(variable.getFilter().getDataType(), KsoEDataType::VARIABLE);
    for (const char* name : {"Au", "Cu", "No", "Kg", "Ore", "Name", "Rock"})
        EXPECT_EQ(variable.getFilter().check(samples.variable(name)), KsoDataFilter::Accepted) << name;
}

TEST_F(KpcSampleFilterRuleTest, OffersTheChoicesOfTheEngine)
{
    EXPECT_EQ(itemKeys(*rule.getNumModeParameter()), QStringList({"IS_DEFINED", "COMPARE", "RANGE"}));
    EXPECT_EQ(
        itemKeys(*rule.getNumCompareOperatorParameter()),
        QStringList({"LESS_THAN", "LESS_OR_EQUAL_TO", "GREATER_THAN", "GREATER_OR_EQUAL_TO", "EQUAL", "NOT_EQUAL"}));
    EXPECT_EQ(itemKeys(*rule.getNumIntervalLowerOperatorParameter()),
              QStringList({"ITV_LESS_THAN", "ITV_LESS_OR_EQUAL_TO"}));
    EXPECT_EQ(itemKeys(*rule.getNumIntervalUpperOperatorParameter()),
              QStringList({"ITV_LESS_THAN", "ITV_LESS_OR_EQUAL_TO"}));
    EXPECT_EQ(itemKeys(*rule.getAlphaModeParameter()), QStringList({"CONTAINS", "EQUAL_TO", "NOT_EQUAL_TO"}));
    EXPECT_EQ(rule.getNumModeParameter()->getLabelForItem(0), Numeric::Mode::IS_DEFINED.getLabel());
}

TEST_F(KpcSampleFilterRuleTest, HasItsInitialState)
{
    EXPECT_FALSE(rule.getInvertSelectionParameter()->getValue());
    EXPECT_EQ(rule.getNumModeParameter()->getItemKey(), "IS_DEFINED");
    EXPECT_EQ(rule.getNumCompareOperatorParameter()->getItemKey(), "EQUAL");
    EXPECT_EQ(rule.getNumIntervalLowerOperatorParameter()->getItemKey(), "ITV_LESS_OR_EQUAL_TO");
    EXPECT_EQ(rule.getNumIntervalUpperOperatorParameter()->getItemKey(), "ITV_LESS_OR_EQUAL_TO");
    EXPECT_EQ(rule.getAlphaModeParameter()->getItemKey(), "CONTAINS");
    EXPECT_EQ(rule.getAlphaContainsValueParameter()->getValue(), "");
    EXPECT_EQ(rule.getAlphaEQValueParameter()->getValue(), "");
    EXPECT_EQ(rule.getAlphaNEQValueParameter()->getValue(), "");
    EXPECT_EQ(rule.getFlagsParameter()->getFlagCount(), 0);
}

TEST_F(KpcSampleFilterRuleTest, OffersZeroAndOneUntilANumericVariableIsChosen)
{
    expectAutomatic(*rule.getNumCompareValueParameter(), 0.0);
    expectAutomatic(*rule.getNumCompareToleranceParameter(), 0.0);
    expectAutomatic(*rule.getNumIntervalLowerParameter(), 0.0);
    expectAutomatic(*rule.getNumIntervalUpperParameter(), 1.0);
}

TEST_F(KpcSampleFilterRuleTest, StartsWithTheStatisticsOfNoVariable)
{
    setComparison(1, 0);
    EXPECT_EQ(rule.getNumCompareValueParameter()->getValue(), 1.0);
    setComparison(1, 2);
    EXPECT_EQ(rule.getNumCompareValueParameter()->getValue(), 0.0);
    setComparison(1, 5);
    EXPECT_EQ(rule.getNumCompareValueParameter()->getValue(), 0.5);
    EXPECT_EQ(rule.getNumCompareToleranceParameter()->getValue(), 0.0);
}

TEST_F(KpcSampleFilterRuleTest, TakesTheKindOfItsFilterFromTheType)
{
    for (const MbdEVarType& type : {MbdEVarType::BYTE, MbdEVarType::INTEGER, MbdEVarType::FLOAT, MbdEVarType::DOUBLE})
        EXPECT_TRUE(basicFilter<Numeric>(type)) << type.getKey().toStdString();
    EXPECT_TRUE(basicFilter<Selection>(MbdEVarType::BOOLEAN));
    EXPECT_TRUE(basicFilter<Categories>(MbdEVarType::ENUM));
    EXPECT_TRUE(basicFilter<Alpha>(MbdEVarType::STRING));
}

TEST_F(KpcSampleFilterRuleTest, GivesAllNumericFieldsWhateverTheMode)
{
    rule.getNumCompareOperatorParameter()->setValue(3);
    rule.getNumCompareValueParameter()->setValue(7.0);
    rule.getNumCompareToleranceParameter()->setValue(0.25);
    rule.getNumIntervalLowerOperatorParameter()->setValue(0);
    rule.getNumIntervalLowerParameter()->setValue(-4.0);
    rule.getNumIntervalUpperParameter()->setValue(9.0);
    const auto filter = basicFilter<Numeric>(MbdEVarType::DOUBLE);
    EXPECT_EQ(filter->getMode(), Numeric::Mode::IS_DEFINED);
    EXPECT_EQ(filter->getCompareOperator(), Numeric::CompareOperator::GREATER_OR_EQUAL_TO);
    EXPECT_EQ(filter->getCompareValue(), 7.0);
    EXPECT_EQ(filter->getCompareTolerance(), 0.25);
    EXPECT_EQ(filter->getIntervalLowerOperator(), Numeric::IntervalOperator::ITV_LESS_THAN);
    EXPECT_EQ(filter->getIntervalUpperOperator(), Numeric::IntervalOperator::ITV_LESS_OR_EQUAL_TO);
    EXPECT_EQ(filter->getIntervalLower(), -4.0);
    EXPECT_EQ(filter->getIntervalUpper(), 9.0);
}

TEST_F(KpcSampleFilterRuleTest, PassesAllThreeTextsOfARuleThatWasLoadedWithOneOfThem)
{
    SerializerTest::read(rule, "<param key=\"RULE\" version=\"2\"><param key=\"ALPHA_MODE\">EQUAL_TO</param>"
                               "<param key=\"ALPHA_EQ_VALUE\">a1</param></param>");
    rule.getAlphaNEQValueParameter()->setValue("b1");
    const auto filter = basicFilter<Alpha>(MbdEVarType::STRING);
    EXPECT_EQ(filter->getMode(), Alpha::Mode::EQUAL_TO);
    EXPECT_EQ(filter->getContainsValue(), "");
    EXPECT_EQ(filter->getEqualValue(), "a1");
    EXPECT_EQ(filter->getNotEqualValue(), "b1");
}

TEST_F(KpcSampleFilterRuleTest, GivesTheTickedLabelsAndTheInversion)
{
    choose("Rock");
    rule.getFlagsParameter()->setCheckedFlagsFromLabels({"Marl", "Sand"});
    EXPECT_EQ(basicFilter<Categories>(MbdEVarType::ENUM)->getSelectedList(), QStringList({"Sand", "Marl"}));
    rule.getInvertSelectionParameter()->setValue(true);
    EXPECT_TRUE(basicFilter<Selection>(MbdEVarType::BOOLEAN)->isInverted());
}

TEST_F(KpcSampleFilterRuleTest, HasTheFilterOfItsVariable)
{
    EXPECT_TRUE(rule.getBasicFilter().isNull());
    choose("Au");
    EXPECT_EQ(rule.getBasicFilter()->getType(), KufFilterRuleType::NUMERIC);
    choose("Name");
    EXPECT_EQ(rule.getBasicFilter()->getType(), KufFilterRuleType::ALPHA);
    samples.model->remove(samples.item("Name"));
    EXPECT_TRUE(rule.getBasicFilter().isNull());
}

TEST_F(KpcSampleFilterRuleTest, TakesOverASelection)
{
    rule.setBasicFilter(QSharedPointer<Selection>::create(true));
    EXPECT_TRUE(rule.getInvertSelectionParameter()->getValue());
    EXPECT_EQ(rule.getNumModeParameter()->getItemKey(), "IS_DEFINED");
}

TEST_F(KpcSampleFilterRuleTest, TakesOverAComparisonAndLeavesTheInterval)
{
    const auto filter = QSharedPointer<Numeric>::create();
    filter->setMode(Numeric::Mode::COMPARE);
    filter->setCompareOperator(Numeric::CompareOperator::NOT_EQUAL);
    filter->setCompareValue(7.0);
    filter->setCompareTolerance(0.5);
    filter->setIntervalValues(100.0, 200.0);
    filter->setIntervalOperators(Numeric::IntervalOperator::ITV_LESS_THAN, Numeric::IntervalOperator::ITV_LESS_THAN);
    rule.setBasicFilter(filter);
    EXPECT_EQ(rule.getNumModeParameter()->getItemKey(), "COMPARE");
    EXPECT_EQ(rule.getNumCompareOperatorParameter()->getItemKey(), "NOT_EQUAL");
    EXPECT_EQ(rule.getNumCompareValueParameter()->getValue(), 7.0);
    EXPECT_EQ(rule.getNumCompareToleranceParameter()->getValue(), 0.5);
    expectAutomatic(*rule.getNumIntervalLowerParameter(), 0.0);
    expectAutomatic(*rule.getNumIntervalUpperParameter(), 1.0);
    EXPECT_EQ(rule.getNumIntervalLowerOperatorParameter()->getItemKey(), "ITV_LESS_OR_EQUAL_TO");
    EXPECT_EQ(rule.getNumIntervalUpperOperatorParameter()->getItemKey(), "ITV_LESS_OR_EQUAL_TO");
}

TEST_F(KpcSampleFilterRuleTest, TakesOverARangeAndLeavesTheComparison)
{
    const auto filter = QSharedPointer<Numeric>::create();
    filter->setMode(Numeric::Mode::RANGE);
    filter->setCompareOperator(Numeric::CompareOperator::LESS_THAN);
    filter->setCompareValue(7.0);
    filter->setIntervalValues(100.0, 200.0);
    filter->setIntervalOperators(Numeric::IntervalOperator::ITV_LESS_THAN,
                                 Numeric::IntervalOperator::ITV_LESS_OR_EQUAL_TO);
    rule.setBasicFilter(filter);
    EXPECT_EQ(rule.getNumModeParameter()->getItemKey(), "RANGE");
    EXPECT_EQ(rule.getNumIntervalLowerParameter()->getValue(), 100.0);
    EXPECT_EQ(rule.getNumIntervalUpperParameter()->getValue(), 200.0);
    EXPECT_EQ(rule.getNumIntervalLowerOperatorParameter()->getItemKey(), "ITV_LESS_THAN");
    EXPECT_EQ(rule.getNumCompareOperatorParameter()->getItemKey(), "EQUAL");
    expectAutomatic(*rule.getNumCompareValueParameter(), 0.0);
}

TEST_F(KpcSampleFilterRuleTest, TakesOverOnlyTheModeOfAQuestionForDefinedNumbers)
{
    setComparison(1, 0);
    const auto filter = QSharedPointer<Numeric>::create();
    filter->setCompareValue(7.0);
    filter->setIntervalValues(5.0, 6.0);
    rule.setBasicFilter(filter);
    EXPECT_EQ(rule.getNumModeParameter()->getItemKey(), "IS_DEFINED");
    EXPECT_EQ(rule.getNumCompareOperatorParameter()->getItemKey(), "LESS_THAN");
    EXPECT_EQ(rule.getNumCompareValueParameter()->getValue(), 1.0);
    EXPECT_EQ(rule.getNumIntervalLowerParameter()->getValue(), 0.0);
}

TEST_F(KpcSampleFilterRuleTest, TakesOverOnlyTheTextOfTheMode)
{
    const auto filter = QSharedPointer<Alpha>::create();
    filter->setContainsValue("c");
    filter->setEqualValue("e");
    filter->setNotEqualValue("n");
    const auto texts = [this] {
        return QStringList({rule.getAlphaContainsValueParameter()->getValue(),
                            rule.getAlphaEQValueParameter()->getValue(), rule.getAlphaNEQValueParameter()->getValue()});
    };
    filter->setMode(Alpha::Mode::EQUAL_TO);
    rule.setBasicFilter(filter);
    EXPECT_EQ(rule.getAlphaModeParameter()->getItemKey(), "EQUAL_TO");
    EXPECT_EQ(texts(), QStringList({"", "e", ""}));
    filter->setMode(Alpha::Mode::NOT_EQUAL_TO);
    rule.setBasicFilter(filter);
    EXPECT_EQ(texts(), QStringList({"", "e", "n"}));
    filter->setMode(Alpha::Mode::CONTAINS);
    rule.setBasicFilter(filter);
    EXPECT_EQ(texts(), QStringList({"c", "e", "n"}));
}

TEST_F(KpcSampleFilterRuleTest, TakesOverTheLabelsOfCategories)
{
    choose("Rock");
    const auto filter = QSharedPointer<Categories>::create();
    filter->setSelectedList({"Clay", "Basalt"});
    rule.setBasicFilter(filter);
    EXPECT_EQ(rule.getFlagsParameter()->getCheckedLabels(), QStringList({"Clay"}));
}

TEST_F(KpcSampleFilterRuleTest, TellsThatAFilterWasTakenOverInOneRecordWhateverItIs)
{
    const QList<QSharedPointer<KufISampleFilterRule>> filters = {
        QSharedPointer<Selection>::create(), QSharedPointer<Numeric>::create(), QSharedPointer<Alpha>::create(),
        QSharedPointer<Categories>::create()};
    for (const auto& filter : filters) {
        const RecordingObserver observer(rule);
        rule.setBasicFilter(filter);
        ASSERT_EQ(observer.records.size(), 1);
        EXPECT_EQ(observer.flagsOf(rule), allFlags);
    }
}

TEST_F(KpcSampleFilterRuleTest, IgnoresANullFilter)
{
    const RecordingObserver observer(rule);
    rule.setBasicFilter({});
    EXPECT_EQ(observer.records.size(), 0);
}

TEST_F(KpcSampleFilterRuleTest, FollowsTheStatisticsOfANumericVariable)
{
    choose("Au");
    expectAutomatic(*rule.getNumCompareValueParameter(), 2.5);
    EXPECT_NEAR(rule.getNumCompareToleranceParameter()->getValue(), 1.118033988749895, 1e-15);
    expectAutomatic(*rule.getNumIntervalLowerParameter(), 1.0);
    expectAutomatic(*rule.getNumIntervalUpperParameter(), 4.0);
    choose("No");
    expectAutomatic(*rule.getNumIntervalLowerParameter(), -2.0);
    expectAutomatic(*rule.getNumIntervalUpperParameter(), 2.0);
    choose("Kg");
    expectAutomatic(*rule.getNumCompareValueParameter(), 5.0);
    expectAutomatic(*rule.getNumCompareToleranceParameter(), 0.0);
}

TEST_F(KpcSampleFilterRuleTest, TakesTheUnitsOfANumericVariable)
{
    choose("Cu");
    for (const KpaDouble* number : {rule.getNumCompareValueParameter(), rule.getNumCompareToleranceParameter(),
                                    rule.getNumIntervalLowerParameter(), rule.getNumIntervalUpperParameter()})
        EXPECT_EQ(number->getUnitClass(), MbuEUnitClass::LENGTH) << number->getKey().toStdString();
}

TEST_F(KpcSampleFilterRuleTest, ChoosesTheAutomaticNumbersByTheOperator)
{
    choose("Au");
    struct Row
    {
        int compareOperator;
        double value;
        double tolerance;
    };
    for (const Row& row : {Row{0, 4, 0}, Row{1, 4, 0}, Row{2, 1, 0}, Row{3, 1, 0}, Row{4, 2.5, 1.118033988749895},
                           Row{5, 2.5, 1.118033988749895}})
    {
        setComparison(1, row.compareOperator);
        EXPECT_EQ(rule.getNumCompareValueParameter()->getAutoValue(), row.value) << row.compareOperator;
        EXPECT_NEAR(rule.getNumCompareToleranceParameter()->getAutoValue(), row.tolerance, 1e-15);
    }
}

TEST_F(KpcSampleFilterRuleTest, KeepsNumbersThatWereSetByHand)
{
    rule.getNumCompareValueParameter()->setValue(17.0);
    choose("Au");
    EXPECT_EQ(rule.getNumCompareValueParameter()->getValue(), 17.0);
    EXPECT_EQ(rule.getNumCompareValueParameter()->getAutoValue(), 2.5);
}

TEST_F(KpcSampleFilterRuleTest, TellsTheAutomaticNumbersInOrder)
{
    QStringList told;
    const auto tell = [&](const KpaDouble& number) {
        return ActingObserver(number, [&told, &number, before = number.getValue()] {
            if (number.getValue() != before)
                told.append(number.getKey());
        });
    };
    choose("Au");
    const auto value = tell(*rule.getNumCompareValueParameter());
    const auto tolerance = tell(*rule.getNumCompareToleranceParameter());
    const auto lower = tell(*rule.getNumIntervalLowerParameter());
    const auto upper = tell(*rule.getNumIntervalUpperParameter());
    choose("No");
    EXPECT_EQ(told,
              QStringList({"NUM_COMPARE_VALUE", "NUM_COMPARE_TOLERANCE", "NUM_INTERVAL_LOWER", "NUM_INTERVAL_UPPER"}));
}

TEST_F(KpcSampleFilterRuleTest, TellsOfEachAutomaticNumberInOneRecord)
{
    choose("Au");
    setComparison(1, 5);
    const RecordingObserver value(*rule.getNumCompareValueParameter());
    const RecordingObserver lower(*rule.getNumIntervalLowerParameter());
    rule.getNumCompareOperatorParameter()->setValue(0);
    EXPECT_EQ(value.allFlags(), QList<int>({int(Kp::NotifyValue | Kp::NotifyConfig)}));
    EXPECT_EQ(lower.records.size(), 0);
}

TEST_F(KpcSampleFilterRuleTest, HasAllAutomaticNumbersBeforeItTellsOfTheFirst)
{
    choose("Au");
    double upper = 0.0;
    const ActingObserver observer(*rule.getNumCompareValueParameter(),
                                  [&] { upper = rule.getNumIntervalUpperParameter()->getValue(); });
    choose("No");
    EXPECT_EQ(upper, 2.0);
}

TEST_F(KpcSampleFilterRuleTest, TellsOfAChosenVariableInOneRecord)
{
    const RecordingObserver observer(rule);
    choose("Au");
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*rule.getVariableParameter()), int(Kp::NotifyValue));
    EXPECT_EQ(observer.flagsOf(*rule.getNumIntervalUpperParameter()) & int(Kp::NotifyValue), int(Kp::NotifyValue));
}

TEST_F(KpcSampleFilterRuleTest, ReadsAVariableAgainWhoseValuesChange)
{
    choose("Au");
    samples.model->writeValues(samples.item("Au"), {10, 20, 30, 40, 50});
    EXPECT_EQ(rule.getNumIntervalUpperParameter()->getValue(), 50.0);
}

TEST_F(KpcSampleFilterRuleTest, ReadsTheVariableBelowANewRoot)
{
    choose("Au");
    rule.setRootIdent(samples.cores->getIdentifier(), false);
    expectAutomatic(*rule.getNumCompareValueParameter(), 7.5);
    expectAutomatic(*rule.getNumCompareToleranceParameter(), 0.5);
    expectAutomatic(*rule.getNumIntervalLowerParameter(), 7.0);
    expectAutomatic(*rule.getNumIntervalUpperParameter(), 8.0);
}

TEST_F(KpcSampleFilterRuleTest, KeepsItsNumbersForAVariableWithoutADefinedValue)
{
    const double none = MbbGlobal::D_FFFF;
    const MbdVariableDetails details = samples.item("Au")->getDetails();
    samples.model->createVariable(samples.assays, "Void", details, MbdEVarRole(),
                                  std::vector<double>{none, none, none, none, none});
    const RecordedMessages messages;
    choose("Void");
    expectAutomatic(*rule.getNumCompareValueParameter(), 0.0);
    expectAutomatic(*rule.getNumCompareToleranceParameter(), 0.0);
    expectAutomatic(*rule.getNumIntervalLowerParameter(), 0.0);
    expectAutomatic(*rule.getNumIntervalUpperParameter(), 1.0);
    choose("Au");
    choose("Void");
    for (int compareOperator = 0; compareOperator <= 5; ++compareOperator) {
        setComparison(1, compareOperator);
        EXPECT_TRUE(rule.getNumCompareValueParameter()->isDefined()) << compareOperator;
        EXPECT_TRUE(rule.getNumCompareToleranceParameter()->isDefined()) << compareOperator;
        expectAutomatic(*rule.getNumIntervalLowerParameter(), 1.0);
        expectAutomatic(*rule.getNumIntervalUpperParameter(), 4.0);
    }
    EXPECT_EQ(messages.warnings, QStringList());
    EXPECT_EQ(rule.getVariableParameter()->getValue(), samples.variable("Void"));
}

TEST_F(KpcSampleFilterRuleTest, KeepsItsNumbersForAVariableWithoutSamples)
{
    KsoDataSupport* empty = samples.model->createSupport(samples.file, "empty", 0);
    samples.model->createVariable(empty, "Au", samples.item("Au")->getDetails(), MbdEVarRole(), std::vector<double>());
    rule.setRootIdent(empty->getIdentifier(), true);
    rule.getVariableParameter()->setValue(samples.variable("Au", "empty"));
    expectAutomatic(*rule.getNumIntervalLowerParameter(), 0.0);
    expectAutomatic(*rule.getNumIntervalUpperParameter(), 1.0);
    EXPECT_EQ(rule.toString(), "V is defined");
}

TEST_F(KpcSampleFilterRuleTest, KeepsItsNumbersForOtherVariables)
{
    choose("Au");
    for (const char* name : {"Ore", "Name", "Rock"}) {
        choose(name);
        expectAutomatic(*rule.getNumIntervalLowerParameter(), 1.0);
        expectAutomatic(*rule.getNumIntervalUpperParameter(), 4.0);
    }
    rule.getVariableParameter()->setValue(KsoDataIdentifier());
    expectAutomatic(*rule.getNumIntervalUpperParameter(), 4.0);
}

TEST_F(KpcSampleFilterRuleTest, OffersTheCategoriesOfAnEnumeration)
{
    choose("Rock");
    const KpaFlags& flags = *rule.getFlagsParameter();
    EXPECT_EQ(flags.getFlagLabels(), QStringList({"Sand", "Clay", "Marl"}));
    EXPECT_EQ(flags.getFlagKeys(), QStringList({"Sand", "Clay", "Marl"}));
    EXPECT_EQ(flags.getFlagValues(), QList<int>({0, 1, 2}));
    EXPECT_EQ(flags.getCheckedCount(), 0);
}

TEST_F(KpcSampleFilterRuleTest, OffersNoNewCategoriesForAnEnumerationWithoutACatalog)
{
    MbdVariableDetails details;
    details.setType(MbdEVarType::ENUM);
    samples.model->createVariable(samples.assays, "Lost", details);
    const RecordedMessages messages;
    choose("Lost");
    EXPECT_EQ(rule.getFlagsParameter()->getFlagCount(), 0);
    EXPECT_EQ(rule.getVariableParameter()->getValue(), samples.variable("Lost"));
}

TEST_F(KpcSampleFilterRuleTest, EnablesTheToleranceForTheEqualPairOnly)
{
    for (int mode = 0; mode <= 2; ++mode) {
        for (int compareOperator = 0; compareOperator <= 5; ++compareOperator) {
            setComparison(mode, compareOperator);
            EXPECT_EQ(rule.getNumCompareToleranceParameter()->getEnabledFlag(), mode == 1 && compareOperator >= 4)
                << mode << ' ' << compareOperator;
        }
    }
}

TEST_F(KpcSampleFilterRuleTest, HasAToleranceThatIsEnabledUntilTheModeOrTheOperatorChanges)
{
    EXPECT_TRUE(rule.getNumCompareToleranceParameter()->getEnabledFlag());
    rule.getNumModeParameter()->setValue(2);
    EXPECT_FALSE(rule.getNumCompareToleranceParameter()->getEnabledFlag());
}

TEST_F(KpcSampleFilterRuleTest, OffersTheStandardDeviationAsTheToleranceOfEquality)
{
    choose("Au");
    setComparison(1, 0);
    EXPECT_EQ(rule.getNumCompareToleranceParameter()->getAutoValue(), 0.0);
    setComparison(1, 4);
    EXPECT_TRUE(rule.getNumCompareToleranceParameter()->isEnabled());
    EXPECT_NEAR(rule.getNumCompareToleranceParameter()->getAutoValue(), 1.118033988749895, 1e-15);
}

TEST_F(KpcSampleFilterRuleTest, DragsTheOtherBoundAlong)
{
    rule.getNumIntervalLowerParameter()->setValue(3.0);
    EXPECT_EQ(rule.getNumIntervalUpperParameter()->getValue(), 3.0);
    rule.getNumIntervalUpperParameter()->setValue(-1.0);
    EXPECT_EQ(rule.getNumIntervalLowerParameter()->getValue(), -1.0);
    rule.getNumIntervalUpperParameter()->setValue(8.0);
    EXPECT_EQ(rule.getNumIntervalLowerParameter()->getValue(), -1.0);
}

TEST_F(KpcSampleFilterRuleTest, DragsABoundSetByHandBeyondTheAutomaticOtherAndTellsOfIt)
{
    choose("Cu");
    rule.getNumIntervalLowerParameter()->setValue(20.0);
    const RecordingObserver lower(*rule.getNumIntervalLowerParameter());
    const RecordingObserver observer(rule);
    choose("Au");
    EXPECT_EQ(rule.getNumIntervalUpperParameter()->getValue(), 4.0);
    EXPECT_EQ(rule.getNumIntervalLowerParameter()->getValue(), 4.0);
    EXPECT_EQ(lower.flagsOf(*rule.getNumIntervalLowerParameter(), lower.records.size() - 1), int(Kp::NotifyValue));
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_TRUE(observer.flagsOf(*rule.getNumIntervalLowerParameter()) & int(Kp::NotifyValue));
}

TEST_F(KpcSampleFilterRuleTest, DragsAnUpperBoundSetByHandAlongWithTheAutomaticLower)
{
    choose("Au");
    rule.getNumIntervalUpperParameter()->setValue(3.0);
    const RecordingObserver observer(rule);
    choose("Cu");
    EXPECT_EQ(rule.getNumIntervalLowerParameter()->getValue(), 10.0);
    EXPECT_EQ(rule.getNumIntervalUpperParameter()->getValue(), 10.0);
    EXPECT_TRUE(observer.flagsOf(*rule.getNumIntervalUpperParameter()) & int(Kp::NotifyValue));
}

TEST_F(KpcSampleFilterRuleTest, TakesOverARangeWithItsBoundsTheWrongWayRound)
{
    const auto filter = QSharedPointer<Numeric>::create();
    filter->setMode(Numeric::Mode::RANGE);
    filter->setIntervalValues(5.0, 3.0);
    rule.setBasicFilter(filter);
    EXPECT_EQ(rule.getNumIntervalLowerParameter()->getValue(), 3.0);
    EXPECT_EQ(rule.getNumIntervalUpperParameter()->getValue(), 3.0);
}

TEST_F(KpcSampleFilterRuleTest, SaysWhatItKeeps)
{
    EXPECT_EQ(rule.toString(), "No variable selected");
    choose("Au");
    EXPECT_EQ(rule.getFilterName(), "V is defined");
    setComparison(1, 1);
    EXPECT_EQ(rule.toString(), "V <= 4");
    choose("Cu");
    EXPECT_EQ(rule.toString(), "V <= 50 m");
    choose("Name");
    EXPECT_EQ(rule.toString(), "V contains \"\"");
    const BracketTranslator translator;
    rule.getVariableParameter()->setValue(KsoDataIdentifier());
    EXPECT_EQ(rule.toString(), "[No variable selected]");
}

TEST_F(KpcSampleFilterRuleTest, IsResetFromAnotherRule)
{
    choose("Rock");
    rule.getFlagsParameter()->setCheckedFlagsFromLabels({"Marl"});
    setComparison(1, 2);
    rule.getNumIntervalLowerParameter()->setValue(0.5);
    rule.getAlphaEQValueParameter()->setValue("a1");
    Rule other("OTHER", samples);
    other.setRootIdent(samples.support(), true);
    const RecordingObserver observer(other);
    other.resetFromParam(&rule);
    EXPECT_EQ(observer.records.size(), 1);
    EXPECT_EQ(other.getVariableParameter()->getValue(), samples.variable("Rock"));
    EXPECT_EQ(other.getFlagsParameter()->getCheckedLabels(), QStringList({"Marl"}));
    EXPECT_EQ(other.getNumModeParameter()->getItemKey(), "COMPARE");
    EXPECT_EQ(other.getNumCompareOperatorParameter()->getItemKey(), "GREATER_THAN");
    EXPECT_EQ(other.getNumIntervalLowerParameter()->getValue(), 0.5);
    EXPECT_EQ(other.getAlphaEQValueParameter()->getValue(), "a1");
}

TEST_F(KpcSampleFilterRuleTest, IsNotResetFromNothing)
{
    const RecordingObserver observer(rule);
    rule.resetFromParam(nullptr);
    EXPECT_EQ(observer.records.size(), 0);
}

TEST_F(KpcSampleFilterRuleTest, IsCopiedWithItsStatistics)
{
    choose("Au");
    const std::unique_ptr<Rule> copy(rule.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getVariableParameter()->getValue(), samples.variable("Au"));
    copy->getNumCompareOperatorParameter()->setValue(0);
    EXPECT_EQ(copy->getNumCompareValueParameter()->getValue(), 4.0);
    EXPECT_EQ(rule.getNumCompareValueParameter()->getValue(), 2.5);
}

TEST_F(KpcSampleFilterRuleTest, PassesItsRootOn)
{
    choose("Au");
    rule.setRootIdent(samples.cores->getIdentifier(), false);
    EXPECT_EQ(rule.getVariableParameter()->getRootIdent(), samples.cores->getIdentifier());
    EXPECT_EQ(rule.getVariableParameter()->getValue(), samples.variable("Au", "cores"));
    rule.setRootIdent(samples.file->getIdentifier(), true);
    EXPECT_EQ(rule.getVariableParameter()->getRootType(), KsoEDataType::FILE);
}

TEST_F(KpcSampleFilterRuleTest, HasAFileOrASupportAsRoot)
{
    rule.setRootType(KsoEDataType::FILE);
    EXPECT_EQ(rule.getVariableParameter()->getRootType(), KsoEDataType::FILE);
    rule.setRootType(KsoEDataType::SUPPORT);
    EXPECT_EQ(rule.getVariableParameter()->getRootType(), KsoEDataType::SUPPORT);
    for (const KsoEDataType& type : {KsoEDataType::DIRECTORY, KsoEDataType::VARIABLE, KsoEDataType::MACRO_VARIABLE})
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { rule.setRootType(type); }),
                  "'void __cdecl KpcSampleFilterRule::setRootType(const class KsoEDataType &)' in file "
                  "'composite\\KpcSampleFilterRule' failed:\n\nSample Filter root can only be a file or a support.");
    EXPECT_EQ(rule.getVariableParameter()->getRootType(), KsoEDataType::SUPPORT);
}

TEST_F(KpcSampleFilterRuleTest, ComesBackFromItsStoredForm)
{
    choose("Rock");
    rule.getFlagsParameter()->setCheckedFlagsFromLabels({"Clay"});
    setComparison(2, 3);
    const QString stored = SerializerTest::writtenParam(rule);
    EXPECT_TRUE(stored.contains("version=\"2\"")) << stored.toStdString();
    EXPECT_TRUE(stored.contains("GREATER_OR_EQUAL_TO")) << stored.toStdString();
    EXPECT_FALSE(stored.contains("assays")) << stored.toStdString();
    Rule read("RULE", samples);
    read.setRootIdent(samples.support(), true);
    SerializerTest::read(read, stored);
    EXPECT_EQ(read.getVariableParameter()->getValue(), samples.variable("Rock"));
    EXPECT_EQ(read.getFlagsParameter()->getCheckedLabels(), QStringList({"Clay"}));
    EXPECT_EQ(SerializerTest::writtenParam(read), stored);
}

TEST_F(KpcSampleFilterRuleTest, ConvertsEachModeOfTheFirstVersion)
{
    struct Row
    {
        const char* text;
        const char* mode;
        const char* compareOperator;
        const char* value;
    };
    const Row rows[] = {{"V is Defined", "IS_DEFINED", "EQUAL", "0"},
                        {"V Between", "RANGE", "EQUAL", "0"},
                        {"V &lt;=", "COMPARE", "LESS_OR_EQUAL_TO", "1.5"},
                        {"V &gt;=", "COMPARE", "GREATER_OR_EQUAL_TO", "2.5"},
                        {"V =", "COMPARE", "EQUAL", "3.5"},
                        {"V ?", "V ?", "EQUAL", "0"}};
    for (const Row& row : rows)
        EXPECT_EQ(converted(rule, firstVersion(row.text, "1.5", "2.5", "3.5")),
                  QStringList({QString("NUM_MODE=") + row.mode, QString("NUM_COMPARE_OPERATOR=") + row.compareOperator,
                               QString("NUM_COMPARE_VALUE=") + row.value}))
            << row.text;
}

TEST_F(KpcSampleFilterRuleTest, ConvertsNumbersWithSixDigits)
{
    EXPECT_EQ(converted(rule, firstVersion("V =", "1", "1", "1234.56789")).last(), "NUM_COMPARE_VALUE=1234.57");
    EXPECT_EQ(converted(rule, firstVersion("V =", "1", "1", "12345678")).last(), "NUM_COMPARE_VALUE=1.23457e+07");
    EXPECT_EQ(converted(rule, firstVersion("V =", "1", "1", "some")).last(), "NUM_COMPARE_VALUE=0");
}

TEST_F(KpcSampleFilterRuleTest, LeavesAnElementAloneThatLacksAnOldValue)
{
    for (const char* missing : {"NUM_LE_VALUE", "NUM_GE_VALUE", "NUM_EQ_VALUE"}) {
        const QString text = firstVersion("V =", "1", "2", "3").replace(missing, "OTHER");
        EXPECT_EQ(converted(rule, text).first(), "NUM_MODE=V =") << missing;
        EXPECT_EQ(converted(rule, text).size(), 4) << missing;
    }
}

TEST_F(KpcSampleFilterRuleTest, PutsTheComparisonWhereTheFirstOldValueWas)
{
    EXPECT_EQ(converted(rule, "<param key=\"RULE\"><param key=\"NUM_EQ_VALUE\">3</param><param key=\"ALPHA_EQ_VALUE\">a"
                              "</param><param key=\"NUM_LE_VALUE\">1</param><param key=\"NUM_MODE\">V &lt;=</param>"
                              "<param key=\"NUM_GE_VALUE\">2</param><param key=\"OTHER\">o</param></param>"),
              QStringList({"ALPHA_EQ_VALUE=a", "NUM_COMPARE_OPERATOR=LESS_OR_EQUAL_TO", "NUM_COMPARE_VALUE=1",
                           "NUM_MODE=COMPARE", "OTHER=o"}));
}

TEST_F(KpcSampleFilterRuleTest, ConvertsAnElementWithoutAMode)
{
    EXPECT_EQ(converted(rule, "<param key=\"RULE\"><param key=\"NUM_LE_VALUE\">1</param><param key=\"NUM_GE_VALUE\"/>"
                              "<param key=\"NUM_EQ_VALUE\"/></param>"),
              QStringList({"NUM_COMPARE_OPERATOR=EQUAL", "NUM_COMPARE_VALUE=0"}));
    EXPECT_EQ(converted(rule, firstVersion("V =", "1", "2", "")).last(), "NUM_COMPARE_VALUE=0");
}

TEST_F(KpcSampleFilterRuleTest, ConvertsValuesThatHaveElementsOfTheirOwn)
{
    EXPECT_EQ(converted(rule, firstVersion("<value>V =</value>", "1", "2", "<value>3.5</value>")),
              QStringList({"NUM_MODE=COMPARE", "NUM_COMPARE_OPERATOR=EQUAL", "NUM_COMPARE_VALUE=3.5"}));
}

TEST_F(KpcSampleFilterRuleTest, LooksForOldValuesAmongItsOwnChildrenOnly)
{
    const QString text = "<param key=\"RULE\"><param key=\"OTHER\"><param key=\"NUM_LE_VALUE\">1</param></param>"
                         "<param key=\"NUM_GE_VALUE\">2</param><param key=\"NUM_EQ_VALUE\">3</param>"
                         "<param key=\"ALPHA_MODE\">V Contains</param></param>";
    EXPECT_EQ(converted(rule, text).last(), "ALPHA_MODE=V Contains");
}

TEST_F(KpcSampleFilterRuleTest, ConvertsTheOtherFieldsOfTheFirstVersion)
{
    const QString text = firstVersion("V Between", "1", "2", "3")
                             .replace("</param></param>", "</param><param key=\"NUM_EQ_TOL_VALUE\">0.1</param>"
                                                          "<param key=\"NUM_INTERVAL_MIN_VALUE\">4</param>"
                                                          "<param key=\"NUM_INTERVAL_MAX_VALUE\">5</param>"
                                                          "<param key=\"ALPHA_MODE\">V is Equal</param></param>");
    EXPECT_EQ(converted(rule, text), QStringList({"NUM_MODE=RANGE", "NUM_COMPARE_OPERATOR=EQUAL", "NUM_COMPARE_VALUE=0",
                                                  "NUM_COMPARE_TOLERANCE=0.1", "NUM_INTERVAL_LOWER=4",
                                                  "NUM_INTERVAL_UPPER=5", "ALPHA_MODE=EQUAL_TO"}));
}

TEST_F(KpcSampleFilterRuleTest, ConvertsEachModeOfTexts)
{
    const auto alphaMode = [this](const QString& mode) {
        const QString field = "</param><param key=\"ALPHA_MODE\">" + mode + "</param></param>";
        return converted(rule, firstVersion("V =", "1", "2", "3").replace("</param></param>", field)).last();
    };
    EXPECT_EQ(alphaMode("V Contains"), "ALPHA_MODE=CONTAINS");
    EXPECT_EQ(alphaMode("V is Equal"), "ALPHA_MODE=EQUAL_TO");
    EXPECT_EQ(alphaMode("V is not Equal"), "ALPHA_MODE=NOT_EQUAL_TO");
    EXPECT_EQ(alphaMode("V rhymes"), "ALPHA_MODE=V rhymes");
}

TEST_F(KpcSampleFilterRuleTest, ReadsAStoredRuleOfTheFirstVersion)
{
    const QString text = firstVersion("V &gt;=", "1", "2.5", "3")
                             .replace("</param></param>", "</param><param key=\"NUM_INTERVAL_MAX_VALUE\">5</param>"
                                                          "<param key=\"ALPHA_MODE\">V is not Equal</param></param>");
    SerializerTest::read(rule, text);
    EXPECT_EQ(rule.getNumModeParameter()->getItemKey(), "COMPARE");
    EXPECT_EQ(rule.getNumCompareOperatorParameter()->getItemKey(), "GREATER_OR_EQUAL_TO");
    EXPECT_EQ(rule.getNumCompareValueParameter()->getValue(), 2.5);
    EXPECT_EQ(rule.getNumIntervalUpperParameter()->getValue(), 5.0);
    EXPECT_EQ(rule.getAlphaModeParameter()->getItemKey(), "NOT_EQUAL_TO");
}

TEST_F(KpcSampleFilterRuleTest, ConvertsNothingOfItsOwnVersion)
{
    QDomDocument document = SerializerTest::parsed(firstVersion("V =", "1", "2", "3"));
    QDomElement element = document.documentElement();
    const QString before = SerializerTest::written(element);
    rule.convert(element, 2);
    EXPECT_EQ(SerializerTest::written(element), before);
}

TEST_F(KpcSampleFilterRuleTest, RefusesToConvertAnUnknownVersion)
{
    for (const int version : {-1, 0, 3}) {
        QDomElement element;
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { rule.convert(element, version); }),
                  "'void __cdecl KpcSampleFilterRule::convert(class QDomElement &,int) const' in file "
                  "'param/composite/KpcSampleFilterRule' failed:\n\nUnexpected version number requested");
    }
}

TEST_F(KpcSampleFilterRuleTest, MayBeDestroyedByAnObserverOfItsParts)
{
    for (const char* key : {"NUM_MODE", "NUM_COMPARE_VALUE", "NUM_INTERVAL_LOWER", "VARIABLE"}) {
        auto victim = std::make_unique<Rule>("RULE", samples);
        victim->setRootIdent(samples.support(), true);
        KpbAParameter* child = victim->getChild(QString(key));
        ActingObserver killer(*child, [&] { victim.reset(); });
        if (QString(key) == "NUM_MODE")
            victim->getNumModeParameter()->setValue(1);
        else
            victim->getVariableParameter()->setValue(samples.variable("Au"));
        EXPECT_FALSE(victim) << key;
    }
}
