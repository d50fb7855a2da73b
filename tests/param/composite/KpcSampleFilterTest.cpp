#include "CompositeTestTools.h"

#include <param/KpsSerializerTestTools.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcSampleFilter.h>
#include <study/KsoSampleFilter.h>
#include <study/KstTransactionDataR.h>
#include <study/KstTransactionWrapperR.h>
#include <support/BracketTranslator.h>
#include <support/SampledProject.h>
#include <util/KufSampleFilterRuleNumeric.h>
#include <util/KufSampleFilterRuleSelection.h>

#include <QtCore/QFile>

namespace {

using Filter = KpcSampleFilter;
using SampleFilter = std::unique_ptr<KsoSampleFilter>;

constexpr int allFlags = int(Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyItem);

class KpcSampleFilterTest : public testing::Test
{
protected:
    KpcSampleFilterTest() { filter.setRootIdent(samples.support(), true); }

    KpcSampleFilterRule* addRule(const QString& name)
    {
        KpcSampleFilterRule* rule = filter.addRule();
        rule->getVariableParameter()->setValue(samples.variable(name));
        return rule;
    }
    /// A rule that keeps what is at least `value`.
    void addBound(const QString& name, double value)
    {
        KpcSampleFilterRule* rule = addRule(name);
        rule->getNumModeParameter()->setItemFromKey("COMPARE");
        rule->getNumCompareOperatorParameter()->setItemFromKey("GREATER_OR_EQUAL_TO");
        rule->getNumCompareValueParameter()->setValue(value);
    }
    void setCombination(const QString& text) { filter.getCombinationParameter()->setValue(text); }
    std::vector<bool> kept(const KsoSampleFilter& made) const
    {
        const KstTransactionWrapperR transaction(samples);
        return made.getKeptSamples(*transaction.data(), *samples.assays);
    }
    /// All the variables of the filter, the prototype's first.
    QList<KpaData*> variables() const
    {
        QList<KpaData*> all = {filter.getRulesParameter()->getItemPrototype()->getVariableParameter()};
        for (int i = 0; i < filter.getRulesCount(); ++i)
            all.append(filter.getRuleParameter(i)->getVariableParameter());
        return all;
    }

    SampledProject samples;
    Filter filter{"FILTER", samples};
};

} // namespace

TEST_F(KpcSampleFilterTest, IsAVersionedParameterOfItsKind)
{
    EXPECT_TRUE(filter.isA(KpbEType::SAMPLE_FILTER));
    EXPECT_EQ(filter.getType().getValue(), 50);
    EXPECT_EQ(filter.getVersion(), 2);
}

TEST_F(KpcSampleFilterTest, HasItsChildrenInOrder)
{
    EXPECT_EQ(childKeys(filter), QStringList({"IS_ACTIVE", "RULES", "COMBINATION"}));
    EXPECT_EQ(filter.getChild("IS_ACTIVE"), filter.getIsActiveParameter());
    EXPECT_EQ(filter.getChild("RULES"), filter.getRulesParameter());
    EXPECT_EQ(filter.getChild("COMBINATION"), filter.getCombinationParameter());
    EXPECT_EQ(filter.getIsActiveParameter()->getLabel(), "Filter is active");
    EXPECT_EQ(filter.getRulesParameter()->getLabel(), "Rules List");
    EXPECT_EQ(filter.getCombinationParameter()->getLabel(), "Combination");
    EXPECT_EQ(filter.getRulesParameter()->getItemPrototype()->getLabel(), "Simple Filter");
}

TEST_F(KpcSampleFilterTest, TranslatesItsTexts)
{
    const BracketTranslator translator;
    const Filter translated("FILTER", samples);
    EXPECT_EQ(translated.getIsActiveParameter()->getLabel(), "[Filter is active]");
    EXPECT_EQ(translated.getRulesParameter()->getLabel(), "[Rules List]");
    EXPECT_EQ(translated.getCombinationParameter()->getLabel(), "[Combination]");
    EXPECT_EQ(translated.getRulesParameter()->getItemPrototype()->getLabel(), "[Simple Filter]");
    EXPECT_EQ(translated.getCombinationParameter()->getPlaceHolder(), "[Enter rules combination]");
}

TEST_F(KpcSampleFilterTest, IsInactiveAndEmptyAtFirst)
{
    EXPECT_FALSE(filter.isActive());
    EXPECT_EQ(filter.getRulesCount(), 0);
    EXPECT_EQ(filter.getCombination(), "");
    const KpaString& combination = *filter.getCombinationParameter();
    EXPECT_TRUE(combination.isAutomaticEnabled());
    EXPECT_TRUE(combination.isAutomatic());
    EXPECT_TRUE(combination.isInstantEdit());
    EXPECT_EQ(combination.getPlaceHolder(), "Enter rules combination");
}

TEST_F(KpcSampleFilterTest, CanBeReadByTheFilterEngine)
{
    addRule("Au");
    addRule("Ore");
    const KufISampleFilter& engineFilter = filter;
    EXPECT_EQ(engineFilter.getRulesCount(), 2);
    EXPECT_EQ(engineFilter.getRule(0)->getType(), KufFilterRuleType::NUMERIC);
    EXPECT_EQ(engineFilter.getRule(1)->getType(), KufFilterRuleType::SELECTION);
    EXPECT_TRUE(engineFilter.getRule(2).isNull());
    EXPECT_TRUE(engineFilter.getRule(-1).isNull());
    EXPECT_EQ(engineFilter.getCombination(), "R1 and R2");
}

TEST_F(KpcSampleFilterTest, GivesItsRulesByIndex)
{
    const KpcSampleFilterRule* first = filter.addRule();
    const KpcSampleFilterRule* second = filter.addRule();
    EXPECT_EQ(filter.getRuleParameter(0), first);
    EXPECT_EQ(filter.getRuleParameter(1), second);
    EXPECT_EQ(filter.getRuleParameter(2), nullptr);
    EXPECT_EQ(filter.getRuleParameter(-1), nullptr);
    EXPECT_EQ(second->getLabel(), "Simple Filter #2");
}

TEST_F(KpcSampleFilterTest, FollowsTheNumberOfRulesWithAnAutomaticCombination)
{
    filter.addRule();
    EXPECT_EQ(filter.getCombination(), "R1");
    filter.addRule();
    filter.addRule();
    EXPECT_EQ(filter.getCombination(), "R1 and R2 and R3");
    EXPECT_EQ(filter.getDefaultCombination(), "R1 and R2 and R3");
    filter.removeLastRule();
    EXPECT_EQ(filter.getCombination(), "R1 and R2");
    EXPECT_TRUE(filter.getCombinationParameter()->isAutomatic());
}

TEST_F(KpcSampleFilterTest, LeavesACombinationAloneThatWasMadeByHand)
{
    filter.addRule();
    filter.addRule();
    setCombination("R1 or R2");
    EXPECT_FALSE(filter.getCombinationParameter()->isAutomatic());
    filter.addRule();
    EXPECT_EQ(filter.getCombination(), "R1 or R2");
    EXPECT_EQ(filter.getCombinationParameter()->getAutoValue(), "R1 and R2 and R3");
    filter.removeRule(0);
    filter.removeRule(0);
    EXPECT_EQ(filter.getCombination(), "R1 or R2");
}

TEST_F(KpcSampleFilterTest, LeavesTheNumbersOfRemovedRulesInACombinationThatWasMadeByHand)
{
    addRule("Au");
    addRule("Ore");
    setCombination("not R1");
    filter.removeRule(0);
    EXPECT_EQ(filter.getCombination(), "not R1");
    EXPECT_EQ(filter.getRuleParameter(0)->getVariableParameter()->getValue(), samples.variable("Ore"));
    EXPECT_EQ(filter.testSampleFilter(), QStringList());
    addRule("Au");
    setCombination("R2");
    filter.removeLastRule();
    EXPECT_EQ(filter.getCombination(), "R2");
    EXPECT_EQ(filter.testSampleFilter(), QStringList({"Invalid filter combination"}));
}

TEST_F(KpcSampleFilterTest, HasAnEmptyAutomaticCombinationAgainOnceTheLastRuleIsGone)
{
    filter.addRule();
    filter.removeLastRule();
    EXPECT_EQ(filter.getCombination(), "");
    EXPECT_EQ(filter.getDefaultCombination(), "");
    EXPECT_TRUE(filter.getCombinationParameter()->isAutomatic());
}

TEST_F(KpcSampleFilterTest, RemovesRules)
{
    filter.addRule();
    const KpcSampleFilterRule* second = filter.addRule();
    const KpcSampleFilterRule* third = filter.addRule();
    filter.removeRule(0);
    EXPECT_EQ(filter.getRuleParameter(0), second);
    EXPECT_EQ(filter.getRuleParameter(1), third);
    filter.removeLastRule();
    EXPECT_EQ(filter.getRulesCount(), 1);
    filter.removeRule(7);
    EXPECT_EQ(filter.getRulesCount(), 1);
}

TEST_F(KpcSampleFilterTest, TellsOfRulesThatComeAndGoInOneRecord)
{
    RecordingObserver observer(filter);
    filter.addRule();
    filter.addRule();
    filter.removeRule(0);
    filter.removeLastRule();
    ASSERT_EQ(observer.records.size(), 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(observer.flagsOf(filter, i), allFlags) << i;
        EXPECT_EQ(observer.flagsOf(*filter.getRulesParameter(), i) & int(Kp::NotifyChildren), int(Kp::NotifyChildren));
        EXPECT_TRUE(observer.flagsOf(*filter.getCombinationParameter(), i) & int(Kp::NotifyValue)) << i;
    }
}

TEST_F(KpcSampleFilterTest, IsActiveAsItsSwitchSays)
{
    filter.getIsActiveParameter()->setValue(true);
    EXPECT_TRUE(filter.isActive());
}

TEST_F(KpcSampleFilterTest, SetsTheRelativeFlagOfAllRules)
{
    filter.addRule();
    filter.addRule();
    EXPECT_TRUE(filter.isRelative());
    filter.setRelative(false);
    EXPECT_FALSE(filter.isRelative());
    for (const KpaData* variable : variables())
        EXPECT_FALSE(variable->isRelative());
    RecordingObserver observer(filter);
    filter.setRelative(false);
    EXPECT_EQ(observer.records.size(), 0);
    filter.setRelative(true);
    EXPECT_EQ(observer.records.size(), 1);
}

TEST_F(KpcSampleFilterTest, SetsTheRootOfAllRulesThePrototypeFirst)
{
    addRule("Au");
    addRule("Cu");
    QStringList told;
    const auto tell = [&](const KpaData& variable, const QString& name) {
        return ActingObserver(variable, [&told, name] { told.append(name); });
    };
    const QList<KpaData*> all = variables();
    const auto first = tell(*all.at(2), "second");
    const auto second = tell(*all.at(1), "first");
    const auto prototype = tell(*all.at(0), "prototype");
    filter.setRootIdent(samples.cores->getIdentifier(), true);
    told.removeDuplicates();
    EXPECT_EQ(told, QStringList({"prototype", "first", "second"}));
    for (const KpaData* variable : variables())
        EXPECT_EQ(variable->getRootIdent(), samples.cores->getIdentifier());
}

TEST_F(KpcSampleFilterTest, TellsOfANewRootOfAllRulesInOneRecord)
{
    addRule("Au");
    addRule("Au");
    RecordingObserver observer(filter);
    filter.setRootIdent(samples.cores->getIdentifier(), true);
    EXPECT_EQ(observer.records.size(), 1);
    filter.setRootType(KsoEDataType::FILE);
    EXPECT_EQ(observer.records.size(), 2);
}

TEST_F(KpcSampleFilterTest, GivesNewRulesTheRootOfThePrototype)
{
    EXPECT_EQ(filter.addRule()->getVariableParameter()->getRootIdent(), samples.support());
}

TEST_F(KpcSampleFilterTest, TakesTheTypeOfAFileOrASupportOnly)
{
    filter.addRule();
    filter.setRootIdent(samples.file->getIdentifier(), true);
    for (const KpaData* variable : variables()) {
        EXPECT_EQ(variable->getRootType(), KsoEDataType::FILE);
        EXPECT_EQ(variable->getRootIdent(), samples.file->getIdentifier());
    }
    for (const KsoDataIdentifier& ident :
         {samples.model->getRootDirectory(), samples.variable("Au"), KsoDataIdentifier()})
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { filter.setRootIdent(ident, true); }),
                  "'void __cdecl KpcSampleFilter::setRootIdent(const class KsoDataIdentifier &,bool)' in file "
                  "'composite\\KpcSampleFilter' failed:\n\nSample Filter root can only be a file or a support.");
    EXPECT_EQ(variables().first()->getRootIdent(), samples.file->getIdentifier());
}

TEST_F(KpcSampleFilterTest, LeavesTheTypeOfARootUnexaminedThatIsNotTaken)
{
    filter.addRule();
    filter.setRootIdent(samples.variable("Au", "cores"), false);
    for (const KpaData* variable : variables()) {
        EXPECT_EQ(variable->getRootType(), KsoEDataType::SUPPORT);
        EXPECT_EQ(variable->getRootIdent(), samples.cores->getIdentifier());
    }
    filter.setRootIdent(samples.model->getRootDirectory(), false);
    EXPECT_TRUE(variables().first()->getRootIdent().isNull());
}

TEST_F(KpcSampleFilterTest, HasAFileOrASupportAsTypeOfRoot)
{
    filter.addRule();
    filter.setRootType(KsoEDataType::FILE);
    for (const KpaData* variable : variables())
        EXPECT_EQ(variable->getRootType(), KsoEDataType::FILE);
    for (const KsoEDataType& type : {KsoEDataType::DIRECTORY, KsoEDataType::VARIABLE, KsoEDataType::MACRO_VARIABLE})
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { filter.setRootType(type); }),
                  "'void __cdecl KpcSampleFilter::setRootType(const class KsoEDataType &)' in file "
                  "'composite\\KpcSampleFilter' failed:\n\nSample Filter root can only be a file or a support.");
}

TEST_F(KpcSampleFilterTest, MakesTheRecordOfTheEngine)
{
    addBound("Au", 2.0);
    addRule("Ore")->getInvertSelectionParameter()->setValue(true);
    filter.getIsActiveParameter()->setValue(true);
    setCombination("R1 or R2");
    const SampleFilter made(filter.createSampleFilter());
    ASSERT_TRUE(made);
    EXPECT_EQ(made->getRootIdent(), samples.support());
    EXPECT_TRUE(made->isActive());
    EXPECT_EQ(made->getCombination(), "R1 or R2");
    ASSERT_EQ(made->getRulesCount(), 2);
    EXPECT_EQ(made->getVariableId(0), samples.variable("Au"));
    EXPECT_EQ(made->getRule(0).dynamicCast<KufSampleFilterRuleNumeric>()->getCompareValue(), 2.0);
    EXPECT_EQ(made->getVariableId(1), samples.variable("Ore"));
    EXPECT_TRUE(made->getRule(1).dynamicCast<KufSampleFilterRuleSelection>()->isInverted());
    filter.getIsActiveParameter()->setValue(false);
    EXPECT_FALSE(SampleFilter(filter.createSampleFilter())->isActive());
}

TEST_F(KpcSampleFilterTest, KeepsTheSamplesThatItDescribes)
{
    addBound("Au", 2.0);
    addRule("Ore");
    filter.getIsActiveParameter()->setValue(true);
    EXPECT_EQ(kept(*SampleFilter(filter.createSampleFilter())), (std::vector<bool>{false, false, true, false, false}));
    setCombination("R1 and not R2");
    EXPECT_EQ(kept(*SampleFilter(filter.createSampleFilter())), (std::vector<bool>{false, true, false, true, false}));
}

TEST_F(KpcSampleFilterTest, MakesNoRecordOfAnEmptyCombination)
{
    EXPECT_EQ(filter.createSampleFilter(), nullptr);
    addRule("Au");
    setCombination("");
    EXPECT_EQ(filter.createSampleFilter(), nullptr);
    EXPECT_EQ(filter.testSampleFilter(), QStringList({"Empty filter combination"}));
}

TEST_F(KpcSampleFilterTest, MakesNoRecordWhereARuleHasNoUsableVariable)
{
    addRule("Au");
    filter.addRule();
    EXPECT_EQ(filter.createSampleFilter(), nullptr);
}

TEST_F(KpcSampleFilterTest, MakesNoRecordOnceTheVariableOfARuleIsGone)
{
    addRule("Au");
    addRule("Cu");
    samples.model->remove(samples.item("Cu"));
    EXPECT_EQ(filter.createSampleFilter(), nullptr);
    EXPECT_THROW(filter.combineWithSelection(samples.variable("Ore")), MbeProgrammingError);
    EXPECT_EQ(filter.getRulesCount(), 2);
    EXPECT_EQ(filter.getCombination(), "R1 and R2");
}

TEST_F(KpcSampleFilterTest, IsResetFromTheRecordOfTheEngine)
{
    addBound("Au", 2.0);
    addRule("Ore")->getInvertSelectionParameter()->setValue(true);
    filter.getIsActiveParameter()->setValue(true);
    setCombination("R2 or R1");
    const SampleFilter made(filter.createSampleFilter());
    Filter other("OTHER", samples);
    other.setRootIdent(samples.support(), true);
    for (int i = 0; i < 4; ++i)
        other.addRule();
    RecordingObserver observer(other);
    other.resetFromSampleFilter(*made);
    EXPECT_EQ(other.toString(), filter.toString());
    EXPECT_EQ(other.getRulesCount(), 2);
    EXPECT_EQ(other.getRuleParameter(0)->getVariableParameter()->getValue(), samples.variable("Au"));
    EXPECT_EQ(other.getRuleParameter(0)->getNumCompareValueParameter()->getValue(), 2.0);
    EXPECT_TRUE(other.getRuleParameter(1)->getInvertSelectionParameter()->getValue());
    EXPECT_EQ(other.getCombination(), "R2 or R1");
    EXPECT_TRUE(other.isActive());
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(other), allFlags);
}

TEST_F(KpcSampleFilterTest, GetsTheRulesThatItLacksFromARecord)
{
    addRule("Au");
    addRule("Cu");
    const SampleFilter made(filter.createSampleFilter());
    Filter other("OTHER", samples);
    other.setRootIdent(samples.support(), true);
    other.resetFromSampleFilter(*made);
    EXPECT_EQ(other.getRulesCount(), 2);
    EXPECT_EQ(other.getCombination(), "R1 and R2");
}

TEST_F(KpcSampleFilterTest, TellsNothingOfItselfWhenItIsResetFromAnEqualRecord)
{
    addBound("Au", 2.0);
    filter.getIsActiveParameter()->setValue(true);
    const SampleFilter made(filter.createSampleFilter());
    RecordingObserver observer(filter);
    filter.resetFromSampleFilter(*made);
    for (int i = 0; i < observer.records.size(); ++i)
        EXPECT_EQ(observer.flagsOf(filter, i), 0);
}

TEST_F(KpcSampleFilterTest, IsResetFromAnotherParameter)
{
    addBound("Au", 2.0);
    addRule("Ore");
    filter.getIsActiveParameter()->setValue(true);
    setCombination("R1 or R2");
    Filter other("OTHER", samples);
    other.setRootIdent(samples.support(), true);
    other.addRule();
    other.addRule();
    other.addRule();
    RecordingObserver observer(other);
    other.resetFromParam(filter);
    EXPECT_EQ(other.toString(), filter.toString());
    EXPECT_FALSE(other.getCombinationParameter()->isAutomatic());
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(other), allFlags);
    other.resetFromParam(filter);
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.flagsOf(other, 1), allFlags);
}

TEST_F(KpcSampleFilterTest, TakesOverThatACombinationIsAutomatic)
{
    addRule("Au");
    addRule("Cu");
    Filter other("OTHER", samples);
    other.setRootIdent(samples.support(), true);
    other.getCombinationParameter()->setValue("R1");
    other.resetFromParam(filter);
    EXPECT_TRUE(other.getCombinationParameter()->isAutomatic());
    EXPECT_EQ(other.getCombination(), "R1 and R2");
}

TEST_F(KpcSampleFilterTest, CombinesWithASelection)
{
    addRule("Au");
    filter.combineWithSelection(samples.variable("Ore"));
    EXPECT_EQ(filter.getCombination(), "(R1) and R%2");
    ASSERT_EQ(filter.getRulesCount(), 2);
    EXPECT_EQ(filter.getRuleParameter(1)->getVariableParameter()->getValue(), samples.variable("Ore"));
    EXPECT_FALSE(filter.getRuleParameter(1)->getInvertSelectionParameter()->getValue());
    EXPECT_EQ(filter.testSampleFilter(), QStringList({"Invalid filter combination"}));
}

TEST_F(KpcSampleFilterTest, AlignsTheOldCombinationInAFieldAsWideAsTheNumberOfRules)
{
    for (int i = 0; i < 4; ++i)
        addRule("Au");
    setCombination("R4");
    filter.combineWithSelection(samples.variable("Ore"));
    EXPECT_EQ(filter.getCombination(), "(   R4) and R%2");
}

TEST_F(KpcSampleFilterTest, CombinesWithEachSelectionInTurn)
{
    addRule("Au");
    filter.combineWithSelection(samples.variable("Ore"));
    filter.combineWithSelection(samples.variable("Ore"));
    EXPECT_EQ(filter.getCombination(), "((R1) and R%2) and R%2");
    EXPECT_EQ(filter.getRulesCount(), 3);
}

TEST_F(KpcSampleFilterTest, LeavesPlacesInTheOldCombinationAlone)
{
    addRule("Au");
    setCombination("%1 or %2");
    filter.combineWithSelection(samples.variable("Ore"));
    EXPECT_EQ(filter.getCombination(), "(%1 or %2) and R%2");
}

TEST_F(KpcSampleFilterTest, FailsToCombineWhatCannotBeCreated)
{
    EXPECT_THROW(filter.combineWithSelection(samples.variable("Ore")), MbeProgrammingError);
    EXPECT_EQ(filter.getRulesCount(), 0);
}

TEST_F(KpcSampleFilterTest, ReportsOnlyThatThereIsNoRule)
{
    EXPECT_EQ(filter.testSampleFilter(), QStringList({"Sample Filter has no rule"}));
    setCombination("and");
    EXPECT_EQ(filter.testSampleFilter(), QStringList({"Sample Filter has no rule"}));
}

TEST_F(KpcSampleFilterTest, ReportsNothingWhereItCanBeUsed)
{
    addRule("Au");
    addRule("Rock");
    EXPECT_EQ(filter.testSampleFilter(), QStringList());
    setCombination("r2 OR not (R1)");
    EXPECT_EQ(filter.testSampleFilter(), QStringList());
}

TEST_F(KpcSampleFilterTest, ReportsWhatIsWrongWithTheCombinationAndTheRules)
{
    addRule("Au");
    filter.addRule();
    addRule("Cu");
    samples.model->remove(samples.item("Cu"));
    EXPECT_EQ(filter.testSampleFilter(),
              QStringList({"R2 rule has no variable", "Variable 'Cu' for R3 rule does not exist"}));
    setCombination("  \t ");
    EXPECT_EQ(filter.testSampleFilter().first(), "Empty filter combination");
    for (const char* wrong : {"R1 and", "R4", "(R1", "S1"}) {
        setCombination(wrong);
        EXPECT_EQ(filter.testSampleFilter(), QStringList({"Invalid filter combination", "R2 rule has no variable",
                                                          "Variable 'Cu' for R3 rule does not exist"}))
            << wrong;
    }
}

TEST_F(KpcSampleFilterTest, ReportsInOneLanguage)
{
    const BracketTranslator translator;
    EXPECT_EQ(filter.testSampleFilter(), QStringList({"Sample Filter has no rule"}));
    EXPECT_EQ(filter.toString(), "Filter is not active");
}

TEST_F(KpcSampleFilterTest, SaysWhatItKeeps)
{
    EXPECT_EQ(filter.toString(), "Filter is not active");
    filter.getIsActiveParameter()->setValue(true);
    EXPECT_EQ(filter.toString(), "Filter is active");
    addBound("Au", 2.0);
    addRule("Ore");
    EXPECT_EQ(filter.toString(), "Filter is active\nNumber of combined rules: 2\n R1: V >= 2\n R2: V is true\n"
                                 "Combination: R1 and R2");
    filter.getIsActiveParameter()->setValue(false);
    EXPECT_EQ(filter.toString(), "Filter is not active");
}

TEST_F(KpcSampleFilterTest, IsCopiedWithItsRulesAndItsRoot)
{
    addBound("Au", 2.0);
    setCombination("not R1");
    const std::unique_ptr<Filter> copy(filter.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getCombination(), "not R1");
    EXPECT_EQ(copy->getRuleParameter(0)->toString(), "V >= 2");
    EXPECT_NE(copy->getRuleParameter(0), filter.getRuleParameter(0));
    EXPECT_EQ(copy->addRule()->getVariableParameter()->getRootIdent(), samples.support());
    EXPECT_EQ(filter.getRulesCount(), 1);
}

TEST_F(KpcSampleFilterTest, FollowsItsRulesAsACopy)
{
    const std::unique_ptr<Filter> copy(filter.duplicate("COPY"));
    copy->addRule();
    EXPECT_EQ(copy->getCombination(), "R1");
}

TEST_F(KpcSampleFilterTest, ComesBackFromItsStoredForm)
{
    addBound("Au", 2.0);
    addRule("Ore");
    filter.getIsActiveParameter()->setValue(true);
    const QString stored = SerializerTest::writtenParam(filter);
    Filter read("FILTER", samples);
    read.setRootIdent(samples.support(), true);
    SerializerTest::read(read, stored);
    EXPECT_EQ(read.toString(), filter.toString());
    EXPECT_TRUE(read.getCombinationParameter()->isAutomatic());
    EXPECT_EQ(SerializerTest::writtenParam(read), stored);
}

TEST_F(KpcSampleFilterTest, ReadsAStoredFilterOfTheFirstVersion)
{
    SerializerTest::read(
        filter, "<param key=\"FILTER\"><param key=\"IS_ACTIVE\">true</param><param key=\"FILTERS\">"
                "<param key=\"ITEM_1\"><param key=\"NUM_MODE\">V &lt;=</param><param key=\"NUM_LE_VALUE\">7</param>"
                "<param key=\"NUM_GE_VALUE\">8</param><param key=\"NUM_EQ_VALUE\">9</param></param>"
                "<param key=\"ITEM_2\"/></param><param key=\"COMBINATION\">S1 and S2</param></param>");
    ASSERT_EQ(filter.getRulesCount(), 2);
    EXPECT_EQ(filter.getCombination(), "R1 and R2");
    EXPECT_EQ(filter.getRuleParameter(0)->getNumModeParameter()->getItemKey(), "COMPARE");
    EXPECT_EQ(filter.getRuleParameter(0)->getNumCompareOperatorParameter()->getItemKey(), "LESS_OR_EQUAL_TO");
    EXPECT_EQ(filter.getRuleParameter(0)->getNumCompareValueParameter()->getValue(), 7.0);
}

TEST_F(KpcSampleFilterTest, ReadsAllThatADocumentOfTheFirstVersionHolds)
{
    QFile document(QStringLiteral(KESTRIN_SOURCE_DIR "/samples/stored/KpcSampleFilter-v1.xml"));
    ASSERT_TRUE(document.open(QIODevice::ReadOnly));
    SerializerTest::read(filter, QString::fromUtf8(document.readAll()));
    EXPECT_EQ(filter.toString(), "Filter is active\nNumber of combined rules: 3\n R1: V >= 2\n R2: V is not \"a2\"\n"
                                 " R3: V in {Sand, Clay}\nCombination: R1 and R2 or not R3");
    const KpcSampleFilterRule& first = *filter.getRuleParameter(0);
    EXPECT_EQ(first.getNumCompareToleranceParameter()->getValue(), 0.25);
    EXPECT_EQ(first.getNumIntervalLowerParameter()->getValue(), 1.0);
    EXPECT_EQ(first.getNumIntervalUpperParameter()->getValue(), 3.5);
    EXPECT_EQ(filter.getRuleParameter(2)->getNumModeParameter()->getItemKey(), "RANGE");
    EXPECT_EQ(filter.testSampleFilter(), QStringList());
    EXPECT_EQ(kept(*SampleFilter(filter.createSampleFilter())), (std::vector<bool>{false, false, true, true, false}));
}

TEST_F(KpcSampleFilterTest, ReadsRulesOfBothVersions)
{
    const QString old = "<param key=\"%1\"><param key=\"NUM_MODE\">V =</param><param key=\"NUM_LE_VALUE\">7</param>"
                        "<param key=\"NUM_GE_VALUE\">8</param><param key=\"NUM_EQ_VALUE\">9</param></param>";
    const QString present = "<param key=\"%1\" version=\"2\"><param key=\"NUM_MODE\">COMPARE</param>"
                            "<param key=\"NUM_COMPARE_OPERATOR\">LESS_THAN</param>"
                            "<param key=\"NUM_COMPARE_VALUE\">5</param></param>";
    const QString rules = old.arg("ITEM_1") + present.arg("ITEM_2");
    const QString combination = "<param key=\"COMBINATION\">%1</param>";
    for (const QString& text : {"<param key=\"FILTER\"><param key=\"FILTERS\">" + rules + "</param>" +
                                    combination.arg("S2 or S1") + "</param>",
                                "<param key=\"FILTER\" version=\"2\"><param key=\"RULES\">" + rules + "</param>" +
                                    combination.arg("R2 or R1") + "</param>"})
    {
        Filter read("FILTER", samples);
        SerializerTest::read(read, text);
        ASSERT_EQ(read.getRulesCount(), 2);
        EXPECT_EQ(read.getRuleParameter(0)->getNumCompareOperatorParameter()->getItemKey(), "EQUAL");
        EXPECT_EQ(read.getRuleParameter(0)->getNumCompareValueParameter()->getValue(), 9.0);
        EXPECT_EQ(read.getRuleParameter(1)->getNumCompareOperatorParameter()->getItemKey(), "LESS_THAN");
        EXPECT_EQ(read.getRuleParameter(1)->getNumCompareValueParameter()->getValue(), 5.0);
        EXPECT_EQ(read.getCombination(), "R2 or R1");
    }
}

TEST_F(KpcSampleFilterTest, ReadsADamagedFilterOfTheFirstVersionAsFarAsItGoes)
{
    SerializerTest::read(filter, "<param key=\"FILTER\"><param key=\"FILTERS\"><param key=\"ITEM_1\">"
                                 "<param key=\"NUM_MODE\">V =</param><param key=\"NUM_LE_VALUE\">7</param></param>"
                                 "<param/></param><param key=\"COMBINATION\"/></param>");
    EXPECT_EQ(filter.getRulesCount(), 2);
    EXPECT_EQ(filter.getRuleParameter(0)->getNumModeParameter()->getItemKey(), "IS_DEFINED");
    EXPECT_EQ(filter.createSampleFilter(), nullptr);
}

TEST_F(KpcSampleFilterTest, ConvertsEachCapitalS)
{
    QDomDocument document = SerializerTest::parsed(
        "<param key=\"F\"><param key=\"FILTERS\"/><param key=\"COMBINATION\">S1 sand OR SS2</param></param>");
    QDomElement element = document.documentElement();
    filter.convert(element, 1);
    EXPECT_EQ(SerializerTest::written(element), "<param key=\"F\">\n <param key=\"RULES\"/>\n"
                                                " <param key=\"COMBINATION\">R1 sand OR RR2</param>\n</param>\n");
}

TEST_F(KpcSampleFilterTest, ConvertsAnElementThatLacksItsParts)
{
    QDomDocument document = SerializerTest::parsed("<param key=\"F\"/>");
    QDomElement element = document.documentElement();
    filter.convert(element, 1);
    EXPECT_EQ(SerializerTest::written(element), "<param key=\"F\"/>\n");
}

TEST_F(KpcSampleFilterTest, ConvertsNothingOfItsOwnVersion)
{
    QDomDocument document = SerializerTest::parsed("<param key=\"F\"><param key=\"COMBINATION\">S1</param></param>");
    QDomElement element = document.documentElement();
    filter.convert(element, 2);
    EXPECT_EQ(KuxXml::getValue(element.firstChildElement()), "S1");
}

TEST_F(KpcSampleFilterTest, RefusesToConvertAnUnknownVersion)
{
    for (const int version : {-1, 0, 3}) {
        QDomElement element;
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { filter.convert(element, version); }),
                  "'void __cdecl KpcSampleFilter::convert(class QDomElement &,int) const' in file "
                  "'param/composite/KpcSampleFilter' failed:\n\nUnexpected version number requested");
    }
}

TEST_F(KpcSampleFilterTest, MayBeDestroyedByAnObserverOfItsParts)
{
    addRule("Au");
    const SampleFilter made(filter.createSampleFilter());
    for (const char* key : {"IS_ACTIVE", "RULES", "COMBINATION"}) {
        auto victim = std::make_unique<Filter>("FILTER", samples);
        victim->setRootIdent(samples.support(), true);
        victim->getIsActiveParameter()->setValue(!made->isActive());
        ActingObserver killer(*victim->getChild(QString(key)), [&] { victim.reset(); });
        victim->resetFromSampleFilter(*made);
        EXPECT_FALSE(victim) << key;
    }
}
