#include <study/KsoSampleCategories.h>
#include <study/KsoSampleFilter.h>

#include <basic/MbeError.h>
#include <study/KstTransactionDataR.h>
#include <study/KstTransactionWrapperR.h>
#include <util/KufSampleFilterRuleAlpha.h>
#include <util/KufSampleFilterRuleEnum.h>
#include <util/KufSampleFilterRuleNumeric.h>
#include <util/KufSampleFilterRuleSelection.h>

#include <gtest/gtest.h>
#include <support/SampledProject.h>

namespace {

using Rule = QSharedPointer<KufISampleFilterRule>;
using Numeric = KufSampleFilterRuleNumeric;

Rule isAtLeast(double value)
{
    const auto rule = QSharedPointer<Numeric>::create();
    rule->setMode(Numeric::Mode::COMPARE);
    rule->setCompareOperator(Numeric::CompareOperator::GREATER_OR_EQUAL_TO);
    rule->setCompareValue(value);
    return rule;
}

Rule isTrue()
{
    return QSharedPointer<KufSampleFilterRuleSelection>::create();
}

Rule contains(const QString& text)
{
    const auto rule = QSharedPointer<KufSampleFilterRuleAlpha>::create();
    rule->setContainsValue(text);
    return rule;
}

Rule isOneOf(const QStringList& labels)
{
    const auto rule = QSharedPointer<KufSampleFilterRuleEnum>::create();
    rule->setSelectedList(labels);
    return rule;
}

class SampleFilterTest : public testing::Test
{
protected:
    KsoSampleFilter filter(const QString& combination, const QList<std::pair<QString, Rule>>& rules) const
    {
        KsoSampleFilter made(samples.support());
        made.setCombinationString(combination);
        for (const auto& rule : rules)
            made.addRule(samples.variable(rule.first), rule.second);
        return made;
    }
    std::vector<bool> kept(const KsoSampleFilter& filter) const
    {
        return filter.getKeptSamples(*transaction.data(), *samples.assays);
    }
    QString refusal(const KsoSampleFilter& filter) const
    {
        try {
            kept(filter);
        }
        catch (const MbeUserError& error) {
            return error.getMessage();
        }
        return {};
    }

    const SampledProject samples;
    const KstTransactionWrapperR transaction{samples};
};

using KeptSamples = std::vector<bool>;

} // namespace

TEST_F(SampleFilterTest, KeepsWhatItIsGiven)
{
    const Rule rule = isTrue();
    KsoSampleFilter made(samples.support());
    EXPECT_TRUE(made.isActive());
    EXPECT_EQ(made.getRulesCount(), 0);
    made.setIsActive(false);
    made.setCombinationString("R1");
    made.addRule(samples.variable("Ore"), rule);
    EXPECT_EQ(made.getRootIdent(), samples.support());
    EXPECT_FALSE(made.isActive());
    EXPECT_EQ(made.getCombination(), "R1");
    EXPECT_EQ(made.getRule(0), rule);
    EXPECT_EQ(made.getVariableId(0), samples.variable("Ore"));
    EXPECT_TRUE(made.getRule(1).isNull());
    EXPECT_TRUE(made.getVariableId(-1).isNull());
    EXPECT_THROW(made.addRule(samples.variable("Ore"), Rule()), MbeProgrammingError);
}

TEST_F(SampleFilterTest, JudgesEachTypeOfVariable)
{
    EXPECT_EQ(kept(filter("R1", {{"Au", isAtLeast(3)}})), (KeptSamples{false, false, true, true, false}));
    EXPECT_EQ(kept(filter("R1", {{"Cu", isAtLeast(30)}})), (KeptSamples{false, false, true, true, true}));
    EXPECT_EQ(kept(filter("R1", {{"No", isAtLeast(2)}})), (KeptSamples{false, false, false, false, true}));
    EXPECT_EQ(kept(filter("R1", {{"Ore", isTrue()}})), (KeptSamples{true, false, true, false, true}));
    EXPECT_EQ(kept(filter("R1", {{"Name", contains("b")}})), (KeptSamples{false, false, true, false, true}));
    EXPECT_EQ(kept(filter("R1", {{"Rock", isOneOf({"Sand", "Marl"})}})), (KeptSamples{true, false, true, false, true}));
}

TEST_F(SampleFilterTest, CombinesItsRules)
{
    const QList<std::pair<QString, Rule>> rules = {{"Au", isAtLeast(2)}, {"Ore", isTrue()}, {"Name", contains("2")}};
    EXPECT_EQ(kept(filter("R1 and (R2 or R3)", rules)), (KeptSamples{false, true, true, false, false}));
    EXPECT_EQ(kept(filter("not R1 or R3", rules)), (KeptSamples{true, true, false, false, true}));
    EXPECT_EQ(filter("R1 and (R2 or R3)", rules).countKeptSamples(*transaction.data(), *samples.assays), 2);
}

TEST_F(SampleFilterTest, KeepsEverySampleWhenItIsNotActive)
{
    KsoSampleFilter made = filter("R1 and", {});
    made.setIsActive(false);
    EXPECT_EQ(kept(made), KeptSamples(5, true));
}

TEST_F(SampleFilterTest, TellsWhatIsWrong)
{
    EXPECT_EQ(refusal(filter("R1 and", {{"Au", isAtLeast(1)}})), "Rule, 'not' or '(' expected, at character 7.");
    EXPECT_EQ(refusal(filter("R1", {{"Zn", isAtLeast(1)}})), "R1: the variable 'Zn' does not exist.");
    EXPECT_EQ(refusal(filter("R1", {{"Name", isAtLeast(1)}})),
              "R1: the variable 'Name' is not of a type that the rule can judge.");
    KsoSampleFilter elsewhere = filter("R1 or R2", {{"Au", isAtLeast(1)}});
    elsewhere.addRule(samples.variable("Au", "cores"), isAtLeast(1));
    EXPECT_EQ(refusal(elsewhere), "R2: the variable 'Au' does not lie on the support 'assays'.");
}

TEST_F(SampleFilterTest, SurvivesItsVariables)
{
    const KsoSampleFilter made = filter("R1", {{"Au", isAtLeast(1)}});
    samples.model->remove(samples.item("Au"));
    EXPECT_EQ(refusal(made), "R1: the variable 'Au' does not exist.");
}

TEST_F(SampleFilterTest, JudgesManySamplesByManyRules)
{
    KsoDataSupport* many = samples.model->createSupport(samples.file, "many", 100000);
    MbdVariableDetails details;
    details.setType(MbdEVarType::DOUBLE);
    std::vector<double> values;
    for (int i = 0; i < 100000; ++i)
        values.push_back(i);
    samples.model->createVariable(many, "V", details, MbdEVarRole(), values);
    KsoSampleFilter made(samples.support());
    QStringList combination;
    for (int i = 1; i <= 10; ++i) {
        made.addRule(samples.variable("V", "many"), isAtLeast(1000.0 * i));
        combination.append("R" + QString::number(i));
    }
    made.setCombinationString(combination.join(" and "));
    EXPECT_EQ(made.countKeptSamples(*transaction.data(), *many), 90000);
}

TEST_F(SampleFilterTest, CategoriesKeepWhatTheyAreGiven)
{
    KsoSampleCategories categories(samples.support());
    categories.addVariable(samples.variable("Au"));
    categories.addRule(MbcCategoryRule("Rich", "AUX1 > 2", MbbColor(0xFF112233)));
    EXPECT_EQ(categories.getRootIdent(), samples.support());
    EXPECT_EQ(categories.getVariablesCount(), 1);
    EXPECT_EQ(categories.getVariable(0), samples.variable("Au"));
    EXPECT_TRUE(categories.getVariable(1).isNull());
    EXPECT_EQ(categories.getRulesCount(), 1);
    EXPECT_EQ(categories.getRule(0).getName(), "Rich");
    EXPECT_EQ(categories.getRule(1), MbcCategoryRule());
}

TEST_F(SampleFilterTest, CategoriesGiveEachSampleTheFirstRuleThatHolds)
{
    KsoSampleCategories categories(samples.support());
    for (const char* name : {"Au", "Name", "Rock"})
        categories.addVariable(samples.variable(name));
    for (const char* condition : {"  ", "marl", "rich", "named a"})
        categories.addRule(MbcCategoryRule("Any", condition, MbbColor()));
    const auto judge = [](const QList<QVariant>& values, const QString& condition) {
        if (condition == "marl")
            return values.at(2) == QVariant("Marl");
        if (condition == "rich")
            return values.at(0).isValid() && values.at(0).toDouble() > 1.0;
        return condition == "named a" && values.at(1).toString().startsWith('a');
    };
    EXPECT_EQ(categories.categorise(*transaction.data(), *samples.assays, judge),
              (std::vector<int>{3, 2, 1, 2, KsoSampleCategories::NoRule}));
}

TEST_F(SampleFilterTest, CategoriesGiveWhatIsUndefinedAsAnInvalidValue)
{
    KsoSampleCategories categories(samples.support());
    categories.addVariable(samples.variable("Au"));
    categories.addVariable(samples.variable("Rock"));
    categories.addRule(MbcCategoryRule("Unknown", "unknown", MbbColor()));
    const auto judge = [](const QList<QVariant>& values, const QString&) {
        return !values.at(0).isValid() || !values.at(1).isValid();
    };
    EXPECT_EQ(categories.categorise(*transaction.data(), *samples.assays, judge), (std::vector<int>{-1, -1, -1, 0, 0}));
}

TEST_F(SampleFilterTest, CategoriesRefuseAVariableThatDoesNotExist)
{
    KsoSampleCategories categories(samples.support());
    categories.addVariable(samples.variable("Zn"));
    const auto judge = [](const QList<QVariant>&, const QString&) { return true; };
    EXPECT_THROW(categories.categorise(*transaction.data(), *samples.assays, judge), MbeUserError);
}
