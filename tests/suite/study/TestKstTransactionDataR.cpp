#include <basic/MbeError.h>
#include <study/KsoDataSubset.h>
#include <study/KstTransactionDataR.h>
#include <study/KstTransactionWrapperR.h>

#include <support/SampledProject.h>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

constexpr short undefinedCategory = MbbGlobal::I16_FFFF;

class KstTransactionDataRTest : public testing::Test
{
protected:
    KsoDataSubset subset(const QString& variable, const QList<short>& categories = {}, bool inverted = false) const
    {
        KsoDataSubset subset(inverted);
        subset.setCounted(true);
        subset.setSelectionVar(project.variable(variable));
        subset.setCategories(categories);
        return subset;
    }
    std::vector<bool> selected(const KsoDataSubset& subset) const
    {
        return transaction.data()->readSubset(subset, project.assays);
    }
    KsoDataMacroVariable* createMacro(const MbdEVarType& type, const std::vector<std::vector<double>>& realisations)
    {
        MbdVariableDetails details;
        details.setType(type);
        KsoDataMacroVariable* macro =
            project.model->createMacroVariable(project.assays, "Simulated", details, int(realisations.size()));
        for (std::size_t i = 0; i < realisations.size(); ++i)
            project.model->writeValues(macro, int(i), realisations[i]);
        return macro;
    }
    KsoDataSubset subsetOf(const KsoADataItem* item) const
    {
        KsoDataSubset subset;
        subset.setSelectionVar(item->getIdentifier());
        return subset;
    }

    SampledProject project;
    KstTransactionWrapperR transaction{project};
};

TEST_F(KstTransactionDataRTest, SelectsWhereABooleanIsTrue)
{
    EXPECT_THAT(selected(subset("Ore")), ElementsAre(true, false, true, false, true));
}

TEST_F(KstTransactionDataRTest, SelectsTheComplementWhenTheSubsetIsInverted)
{
    EXPECT_THAT(selected(subset("Ore", {}, true)), ElementsAre(false, true, false, true, false));
}

TEST_F(KstTransactionDataRTest, SelectsTheSamplesOfTheCategories)
{
    EXPECT_THAT(selected(subset("Rock", {1, 5})), ElementsAre(true, false, true, false, true));
}

TEST_F(KstTransactionDataRTest, SelectsSamplesWithoutACategoryOnlyIfTheyAreAskedFor)
{
    EXPECT_THAT(selected(subset("Rock", {2})), ElementsAre(false, true, false, false, false));
    EXPECT_THAT(selected(subset("Rock", {2, undefinedCategory})), ElementsAre(false, true, false, true, false));
}

TEST_F(KstTransactionDataRTest, SelectsNothingWithoutCategories)
{
    EXPECT_THAT(selected(subset("Rock")), ElementsAre(false, false, false, false, false));
}

TEST_F(KstTransactionDataRTest, HasAllSamplesOfASubsetThatIsNotDefined)
{
    EXPECT_THAT(selected(KsoDataSubset(false)), ElementsAre(true, true, true, true, true));
    EXPECT_THAT(selected(KsoDataSubset(true)), ElementsAre(true, true, true, true, true));
    EXPECT_THAT(selected(subset("gone")), ElementsAre(true, true, true, true, true));
}

TEST_F(KstTransactionDataRTest, SelectsNothingByAVariableThatCannotSelectOrLiesElsewhere)
{
    MbdVariableDetails details;
    details.setType(MbdEVarType::BOOLEAN);
    const KsoDataSubset elsewhere = subsetOf(
        project.model->createVariable(project.cores, "Elsewhere", details, MbdEVarRole(), std::vector<double>{1, 1}));

    EXPECT_THAT(selected(subset("Au")), ElementsAre(false, false, false, false, false));
    EXPECT_THAT(selected(subset("Name")), ElementsAre(false, false, false, false, false));
    EXPECT_THAT(selected(elsewhere), ElementsAre(false, false, false, false, false));
}

TEST_F(KstTransactionDataRTest, SelectsInsideTheIntervalsOnly)
{
    MbiAIntervalIntDisjoint intervals;
    intervals.add(2, 3);
    KsoDataSubset ore = subset("Ore");
    ore.setIntervals(intervals);
    KsoDataSubset all;
    all.setIntervals(intervals);

    EXPECT_THAT(selected(ore), ElementsAre(false, false, true, false, false));
    EXPECT_THAT(selected(all), ElementsAre(false, false, true, true, false));
    all.complement();
    EXPECT_THAT(selected(all), ElementsAre(true, true, false, false, true));
}

TEST_F(KstTransactionDataRTest, SelectsWhatARealisationOfAMacroVariableSelects)
{
    const KsoADataItem* macro = createMacro(MbdEVarType::BOOLEAN, {{1, 0, 0, 0, 0}, {1, 0, 1, 0, 0}});
    KsoDataSubset inverted = subsetOf(macro);
    inverted.complement();

    EXPECT_THAT(selected(subsetOf(macro)), ElementsAre(true, false, true, false, false));
    EXPECT_THAT(selected(inverted), ElementsAre(false, true, false, true, true));
}

TEST_F(KstTransactionDataRTest, SelectsCategoriesOfAMacroVariable)
{
    const KsoADataItem* macro = createMacro(MbdEVarType::ENUM, {{1, 2, 2, 2, 2}, {2, 2, 2, 3, MbbGlobal::D_FFFF}});
    KsoDataSubset subset = subsetOf(macro);
    subset.setCategories({1, 3});

    EXPECT_THAT(selected(subset), ElementsAre(true, false, false, true, false));
}

TEST_F(KstTransactionDataRTest, CountsTheSelectedSamples)
{
    KsoDataSubset ore = subset("Ore");
    KsoDataSubset other = subset("Ore", {}, true);
    KsoDataSubset all = subset("gone");
    for (KsoDataSubset* each : {&ore, &other, &all})
        transaction.data()->prepareSubset(*each, project.assays);

    EXPECT_EQ(ore.getSelectedSampleCount(), 3);
    EXPECT_EQ(other.getSelectedSampleCount(), 2);
    EXPECT_EQ(all.getSelectedSampleCount(), 5);
}

TEST_F(KstTransactionDataRTest, CountsNothingWithoutASupportOrUnlessItIsAskedTo)
{
    KsoDataSubset counted = subset("Ore");
    KsoDataSubset uncounted = subset("Ore");
    uncounted.setCounted(false);
    transaction.data()->prepareSubset(counted, nullptr);
    transaction.data()->prepareSubset(uncounted, project.assays);

    EXPECT_EQ(counted.getSelectedSampleCount(), 0);
    EXPECT_EQ(uncounted.getSelectedSampleCount(), 0);
}

TEST_F(KstTransactionDataRTest, ReadsValuesTextsAndCodes)
{
    std::vector<double> values;
    QStringList texts;
    std::vector<short> codes;
    transaction.data()->readValues(project.item("Au"), values);
    transaction.data()->readTexts(project.item("Name"), texts);
    transaction.data()->readCodes(project.item("Rock"), codes);

    EXPECT_THAT(values, ElementsAre(1, 2, 3, 4, MbbGlobal::D_FFFF));
    EXPECT_EQ(texts, QStringList({"a1", "a2", "b1", "", "b2"}));
    EXPECT_THAT(codes, ElementsAre(1, 2, 5, undefinedCategory, 1));
}

TEST_F(KstTransactionDataRTest, ReadsNothingOnceItIsFinished)
{
    std::vector<double> values;
    transaction.finish();
    transaction.finish();

    EXPECT_TRUE(transaction.isFinished());
    EXPECT_THROW(transaction.data()->readValues(project.item("Au"), values), MbeProgrammingError);
    EXPECT_THROW(selected(subset("Ore")), MbeProgrammingError);
}

TEST_F(KstTransactionDataRTest, ReadsNothingOfAnotherProjectOrOfNone)
{
    const SampledProject other;
    std::vector<double> values;

    EXPECT_THROW(transaction.data()->readValues(other.item("Au"), values), MbeProgrammingError);
    EXPECT_THROW(transaction.data()->readValues(nullptr, values), MbeProgrammingError);
    EXPECT_THROW(transaction.data()->readSubset(KsoDataSubset(), nullptr), MbeProgrammingError);
}

TEST(KstTransactionWrapperR, HasNothingToReadWithoutAProject)
{
    class Plain : public KstATransactableDefault
    {};
    const Plain plain;
    const SampledProject project;
    const KstTransactionWrapperR transaction(plain);
    KsoDataSubset subset;
    std::vector<double> values;

    EXPECT_EQ(transaction.getProject(), nullptr);
    EXPECT_NO_THROW(transaction.data()->prepareSubset(subset, nullptr));
    EXPECT_THROW(transaction.data()->readValues(project.item("Au"), values), MbeProgrammingError);
}

} // namespace
