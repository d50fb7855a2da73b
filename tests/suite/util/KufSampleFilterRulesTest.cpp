#include <util/KufSampleFilterRuleAlpha.h>
#include <util/KufSampleFilterRuleEnum.h>
#include <util/KufSampleFilterRuleNumeric.h>
#include <util/KufSampleFilterRuleSelection.h>

#include <basic/MbbGlobal.h>
#include <basic/MbeError.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

using Numeric = KufSampleFilterRuleNumeric;
using Alpha = KufSampleFilterRuleAlpha;

template <class Enum>
QStringList keysAndValues()
{
    QStringList texts;
    for (auto each = Enum::createIterator(); each.hasNext();) {
        const Enum& item = each.next();
        texts.append(item.getKey() + '=' + QString::number(item.getValue()));
    }
    return texts;
}

Numeric comparison(const Numeric::CompareOperator& by, double value, double tolerance = 0.0)
{
    Numeric rule;
    rule.setMode(Numeric::Mode::COMPARE);
    rule.setCompareOperator(by);
    rule.setCompareValue(value);
    rule.setCompareTolerance(tolerance);
    return rule;
}

Numeric range(double lower, double upper, const Numeric::IntervalOperator& lowerBy,
              const Numeric::IntervalOperator& upperBy)
{
    Numeric rule;
    rule.setMode(Numeric::Mode::RANGE);
    rule.setIntervalValues(lower, upper);
    rule.setIntervalOperators(lowerBy, upperBy);
    return rule;
}

Alpha alpha(const Alpha::Mode& mode)
{
    Alpha rule;
    rule.setMode(mode);
    rule.setContainsValue("and");
    rule.setEqualValue("sand");
    rule.setNotEqualValue("clay");
    return rule;
}

QString described(const KufISampleFilterRule& rule)
{
    return rule.getDescription(MbdVariableDetails());
}

QString shortly(const KufISampleFilterRule& rule, bool withVariable)
{
    return rule.getShortDescription(MbdVariableDetails(), withVariable);
}

} // namespace

TEST(KufFilterRuleType, HasTheFixedValues)
{
    EXPECT_EQ(keysAndValues<KufFilterRuleType>(), QStringList({"SELECTION=0", "NUMERIC=1", "ALPHA=2", "ENUM=3"}));
}

TEST(KufSampleFilterRuleNumeric, HasTheFixedEnumerators)
{
    EXPECT_EQ(keysAndValues<Numeric::Mode>(), QStringList({"IS_DEFINED=0", "COMPARE=1", "RANGE=2"}));
    EXPECT_EQ(keysAndValues<Numeric::CompareOperator>(),
              QStringList({"LESS_THAN=0", "LESS_OR_EQUAL_TO=1", "GREATER_THAN=2", "GREATER_OR_EQUAL_TO=3", "EQUAL=4",
                           "NOT_EQUAL=5"}));
    EXPECT_EQ(keysAndValues<Numeric::IntervalOperator>(), QStringList({"ITV_LESS_THAN=0", "ITV_LESS_OR_EQUAL_TO=1"}));
}

TEST(KufSampleFilterRuleAlpha, HasTheFixedModes)
{
    EXPECT_EQ(keysAndValues<Alpha::Mode>(), QStringList({"CONTAINS=0", "EQUAL_TO=1", "NOT_EQUAL_TO=2"}));
}

TEST(KufSampleFilterRuleNumeric, KeepsDefinedNumbersAtFirst)
{
    const Numeric rule;
    EXPECT_EQ(rule.getMode(), Numeric::Mode::IS_DEFINED);
    EXPECT_TRUE(rule.accepts(-1e300));
    EXPECT_FALSE(rule.accepts(MbbGlobal::D_FFFF));
    EXPECT_FALSE(rule.accepts(std::numeric_limits<double>::quiet_NaN()));
}

TEST(KufSampleFilterRuleNumeric, ComparesByEachOperator)
{
    struct Row
    {
        const Numeric::CompareOperator& by;
        bool less;
        bool same;
        bool greater;
    };
    const Row rows[] = {{Numeric::CompareOperator::LESS_THAN, true, false, false},
                        {Numeric::CompareOperator::LESS_OR_EQUAL_TO, true, true, false},
                        {Numeric::CompareOperator::GREATER_THAN, false, false, true},
                        {Numeric::CompareOperator::GREATER_OR_EQUAL_TO, false, true, true},
                        {Numeric::CompareOperator::EQUAL, false, true, false},
                        {Numeric::CompareOperator::NOT_EQUAL, true, false, true}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.by.getKey().toStdString());
        const Numeric rule = comparison(row.by, 3.0);
        EXPECT_EQ(rule.accepts(2.0), row.less);
        EXPECT_EQ(rule.accepts(3.0), row.same);
        EXPECT_EQ(rule.accepts(4.0), row.greater);
        EXPECT_FALSE(rule.accepts(MbbGlobal::D_FFFF));
    }
}

TEST(KufSampleFilterRuleNumeric, TakesTheToleranceAsEqual)
{
    const Numeric equal = comparison(Numeric::CompareOperator::EQUAL, 3.0, 0.5);
    EXPECT_TRUE(equal.accepts(3.5));
    EXPECT_FALSE(equal.accepts(3.75));
    EXPECT_FALSE(comparison(Numeric::CompareOperator::NOT_EQUAL, 3.0, 0.5).accepts(2.5));
    EXPECT_TRUE(comparison(Numeric::CompareOperator::EQUAL, 3.0, -1.0).accepts(3.0));
    EXPECT_FALSE(comparison(Numeric::CompareOperator::EQUAL, 3.0, MbbGlobal::D_FFFF).accepts(4.0));
}

TEST(KufSampleFilterRuleNumeric, ComparesNothingWithAnUndefinedNumber)
{
    EXPECT_FALSE(comparison(Numeric::CompareOperator::LESS_THAN, MbbGlobal::D_FFFF).accepts(1.0));
    EXPECT_FALSE(comparison(Numeric::CompareOperator::NOT_EQUAL, MbbGlobal::D_FFFF).accepts(1.0));
}

TEST(KufSampleFilterRuleNumeric, KeepsWhatLiesInTheInterval)
{
    using Itv = Numeric::IntervalOperator;
    const Numeric closed = range(1.0, 2.0, Itv::ITV_LESS_OR_EQUAL_TO, Itv::ITV_LESS_OR_EQUAL_TO);
    EXPECT_TRUE(closed.accepts(1.0));
    EXPECT_TRUE(closed.accepts(2.0));
    EXPECT_FALSE(closed.accepts(2.5));
    EXPECT_FALSE(closed.accepts(MbbGlobal::D_FFFF));
    const Numeric open = range(1.0, 2.0, Itv::ITV_LESS_THAN, Itv::ITV_LESS_THAN);
    EXPECT_FALSE(open.accepts(1.0));
    EXPECT_TRUE(open.accepts(1.5));
    EXPECT_FALSE(open.accepts(2.0));
    const Numeric unbounded = range(1.0, MbbGlobal::D_FFFF, Itv::ITV_LESS_THAN, Itv::ITV_LESS_THAN);
    EXPECT_TRUE(unbounded.accepts(1e300));
    EXPECT_FALSE(unbounded.accepts(0.0));
}

TEST(KufSampleFilterRuleNumeric, DescribesItself)
{
    using Itv = Numeric::IntervalOperator;
    EXPECT_EQ(described(Numeric()), "V is defined");
    EXPECT_EQ(described(comparison(Numeric::CompareOperator::LESS_OR_EQUAL_TO, 3.5, 1.0)), "V <= 3.5");
    EXPECT_EQ(described(comparison(Numeric::CompareOperator::NOT_EQUAL, 3.0)), "V != 3");
    EXPECT_EQ(described(comparison(Numeric::CompareOperator::EQUAL, 3.0, 0.25)), "V = 3 +/- 0.25");
    EXPECT_EQ(described(range(1.0, 2.0, Itv::ITV_LESS_THAN, Itv::ITV_LESS_OR_EQUAL_TO)), "1 < V <= 2");
}

TEST(KufSampleFilterRuleNumeric, DescribesItselfInFewWords)
{
    using Itv = Numeric::IntervalOperator;
    const Numeric compared = comparison(Numeric::CompareOperator::GREATER_THAN, 3.0);
    EXPECT_EQ(shortly(Numeric(), true), "V defined");
    EXPECT_EQ(shortly(Numeric(), false), "defined");
    EXPECT_EQ(shortly(compared, true), "V > 3");
    EXPECT_EQ(shortly(compared, false), "> 3");
    EXPECT_EQ(shortly(range(1.0, 2.0, Itv::ITV_LESS_THAN, Itv::ITV_LESS_OR_EQUAL_TO), true), "V in ]1, 2]");
    EXPECT_EQ(shortly(range(1.0, 2.0, Itv::ITV_LESS_OR_EQUAL_TO, Itv::ITV_LESS_THAN), false), "[1, 2[");
}

TEST(KufSampleFilterRuleNumeric, ShowsUnitsInTheDescriptionOnly)
{
    const Numeric rule = comparison(Numeric::CompareOperator::GREATER_THAN, 3.0);
    const MbdVariableDetails lengths(MbuEUnitClass::LENGTH);
    EXPECT_EQ(rule.getDescription(lengths), "V > 3 m");
    EXPECT_EQ(rule.getShortDescription(lengths, true), "V > 3");
}

TEST(KufSampleFilterRuleNumeric, ComesBackFromItsMap)
{
    Numeric rule = comparison(Numeric::CompareOperator::GREATER_THAN, 0.1, 0.2);
    rule.setIntervalValues(-1.0, MbbGlobal::D_FFFF);
    rule.setIntervalOperators(Numeric::IntervalOperator::ITV_LESS_THAN,
                              Numeric::IntervalOperator::ITV_LESS_OR_EQUAL_TO);
    Numeric read;
    read.fromQVariantMap(rule.toQVariantMap(), 1);
    EXPECT_EQ(read.getMode(), Numeric::Mode::COMPARE);
    EXPECT_EQ(read.getCompareOperator(), Numeric::CompareOperator::GREATER_THAN);
    EXPECT_EQ(read.getCompareValue(), 0.1);
    EXPECT_EQ(read.getCompareTolerance(), 0.2);
    EXPECT_EQ(read.getIntervalLower(), -1.0);
    EXPECT_EQ(read.getIntervalUpper(), MbbGlobal::D_FFFF);
    EXPECT_EQ(read.getIntervalLowerOperator(), Numeric::IntervalOperator::ITV_LESS_THAN);
    EXPECT_EQ(read.getIntervalUpperOperator(), Numeric::IntervalOperator::ITV_LESS_OR_EQUAL_TO);
}

TEST(KufSampleFilterRuleNumeric, StaysAsItIsWhenAMapCannotBeRead)
{
    Numeric rule = comparison(Numeric::CompareOperator::GREATER_THAN, 7.0);
    const QList<QMap<QString, QVariant>> maps = {{{"mode", "RANGE"}, {"compareOperator", "ABOUT"}},
                                                 {{"mode", "RANGE"}, {"lower", "one"}},
                                                 {{"mode", "RANGE"}, {"upper", "inf"}}};
    for (const auto& map : maps)
        EXPECT_THROW(rule.fromQVariantMap(map, 1), MbeUserError);
    EXPECT_THROW(rule.fromQVariantMap(Numeric().toQVariantMap(), 2), MbeUserError);
    EXPECT_EQ(described(rule), "V > 7");
}

TEST(KufSampleFilterRuleNumeric, TakesDefaultsForWhatAMapDoesNotHold)
{
    Numeric rule = comparison(Numeric::CompareOperator::GREATER_THAN, 7.0);
    rule.fromQVariantMap({{"mode", "RANGE"}}, 1);
    EXPECT_EQ(described(rule), "0 <= V <= 1");
    EXPECT_EQ(rule.getCompareOperator(), Numeric::CompareOperator::EQUAL);
}

TEST(KufSampleFilterRuleNumeric, IsDuplicatedWithAllFields)
{
    const Numeric rule = comparison(Numeric::CompareOperator::LESS_THAN, 7.0);
    const std::unique_ptr<KufISampleFilterRule> copy(rule.duplicate());
    EXPECT_EQ(copy->getType(), KufFilterRuleType::NUMERIC);
    EXPECT_EQ(copy->toQVariantMap(), rule.toQVariantMap());
}

TEST(KufSampleFilterRuleSelection, KeepsWhatIsTrueOrWhatIsFalse)
{
    const KufSampleFilterRuleSelection rule;
    EXPECT_TRUE(rule.accepts(1.0));
    EXPECT_FALSE(rule.accepts(0.0));
    EXPECT_FALSE(rule.accepts(MbbGlobal::D_FFFF));
    const KufSampleFilterRuleSelection inverted(true);
    EXPECT_FALSE(inverted.accepts(1.0));
    EXPECT_TRUE(inverted.accepts(0.0));
    EXPECT_FALSE(inverted.accepts(MbbGlobal::D_FFFF));
}

TEST(KufSampleFilterRuleSelection, DescribesItself)
{
    EXPECT_EQ(described(KufSampleFilterRuleSelection()), "V is true");
    EXPECT_EQ(described(KufSampleFilterRuleSelection(true)), "V is false");
    EXPECT_EQ(shortly(KufSampleFilterRuleSelection(), true), "V");
    EXPECT_EQ(shortly(KufSampleFilterRuleSelection(true), true), "not V");
    EXPECT_EQ(shortly(KufSampleFilterRuleSelection(true), false), "false");
}

TEST(KufSampleFilterRuleSelection, ComesBackFromItsMap)
{
    KufSampleFilterRuleSelection read;
    read.fromQVariantMap(KufSampleFilterRuleSelection(true).toQVariantMap(), 1);
    EXPECT_TRUE(read.isInverted());
    EXPECT_THROW(read.fromQVariantMap({{"invert", "perhaps"}}, 1), MbeUserError);
    EXPECT_THROW(read.fromQVariantMap({}, 0), MbeUserError);
    EXPECT_TRUE(read.isInverted());
}

TEST(KufSampleFilterRuleAlpha, JudgesTextsByItsMode)
{
    EXPECT_TRUE(alpha(Alpha::Mode::CONTAINS).accepts("sandy"));
    EXPECT_FALSE(alpha(Alpha::Mode::CONTAINS).accepts("SANDY"));
    EXPECT_TRUE(alpha(Alpha::Mode::EQUAL_TO).accepts("sand"));
    EXPECT_FALSE(alpha(Alpha::Mode::EQUAL_TO).accepts("sandy"));
    EXPECT_FALSE(alpha(Alpha::Mode::NOT_EQUAL_TO).accepts("clay"));
    EXPECT_TRUE(alpha(Alpha::Mode::NOT_EQUAL_TO).accepts(""));
    EXPECT_TRUE(Alpha().accepts("anything"));
}

TEST(KufSampleFilterRuleAlpha, DescribesItself)
{
    EXPECT_EQ(described(alpha(Alpha::Mode::CONTAINS)), "V contains \"and\"");
    EXPECT_EQ(described(alpha(Alpha::Mode::EQUAL_TO)), "V is \"sand\"");
    EXPECT_EQ(described(alpha(Alpha::Mode::NOT_EQUAL_TO)), "V is not \"clay\"");
    EXPECT_EQ(shortly(alpha(Alpha::Mode::CONTAINS), true), "V = \"*and*\"");
    EXPECT_EQ(shortly(alpha(Alpha::Mode::NOT_EQUAL_TO), false), "!= \"clay\"");
}

TEST(KufSampleFilterRuleAlpha, ComesBackFromItsMap)
{
    Alpha read;
    read.fromQVariantMap(alpha(Alpha::Mode::NOT_EQUAL_TO).toQVariantMap(), 1);
    EXPECT_EQ(read.getMode(), Alpha::Mode::NOT_EQUAL_TO);
    EXPECT_EQ(read.getContainsValue(), "and");
    EXPECT_EQ(read.getEqualValue(), "sand");
    EXPECT_EQ(read.getNotEqualValue(), "clay");
    EXPECT_THROW(read.fromQVariantMap({{"mode", "LIKE"}}, 1), MbeUserError);
    EXPECT_EQ(read.getNotEqualValue(), "clay");
}

TEST(KufSampleFilterRuleEnum, KeepsTheLabelsOfItsList)
{
    KufSampleFilterRuleEnum rule;
    EXPECT_FALSE(rule.accepts("Sand"));
    rule.setSelectedList({"Sand", "Clay"});
    EXPECT_TRUE(rule.accepts("Clay"));
    EXPECT_FALSE(rule.accepts("clay"));
    EXPECT_EQ(described(rule), "V in {Sand, Clay}");
    EXPECT_EQ(shortly(rule, true), "V in 2 categories");
    EXPECT_EQ(shortly(rule, false), "2 categories");
}

TEST(KufSampleFilterRuleEnum, ComesBackFromItsMap)
{
    KufSampleFilterRuleEnum rule;
    rule.setSelectedList({"Sand", "Clay"});
    KufSampleFilterRuleEnum read;
    read.fromQVariantMap(rule.toQVariantMap(), 1);
    EXPECT_EQ(read.getSelectedList(), QStringList({"Sand", "Clay"}));
    EXPECT_TRUE(read.accepts("Sand"));
    EXPECT_THROW(read.fromQVariantMap({{"selectedList", 5}}, 1), MbeUserError);
}

TEST(KufSampleFilterRuleEnum, TakesAListOfTextsOnly)
{
    KufSampleFilterRuleEnum rule;
    rule.fromQVariantMap({{"selectedList", QVariantList({"Sand", "Clay"})}}, 1);
    EXPECT_EQ(rule.getSelectedList(), QStringList({"Sand", "Clay"}));
    const QVariantList wrong[] = {{"Marl", 5}, {QVariantList({"Marl"})}, {QVariant()}};
    for (const QVariantList& labels : wrong)
        EXPECT_THROW(rule.fromQVariantMap({{"selectedList", QVariant(labels)}}, 1), MbeUserError);
    EXPECT_EQ(rule.getSelectedList(), QStringList({"Sand", "Clay"}));
}
