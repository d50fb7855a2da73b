#include <util/KufSampleFilterASTVisitor.h>

#include <QtCore/QStringList>

#include <basic/MbeError.h>
#include <util/KufISampleFilter.h>
#include <util/KufSampleFilterDefaultCombination.h>

#include <gtest/gtest.h>

namespace {

/// A filter that has nothing but a count of rules and a combination.
class Combined : public KufISampleFilter
{
public:
    Combined(int count, const QString& combination) : _count(count), _combination(combination) {}
    int getRulesCount() const override { return _count; }
    QSharedPointer<KufISampleFilterRule> getRule(int) const override { return {}; }
    QString getCombination() const override { return _combination; }

private:
    int _count;
    QString _combination;
};

KufSampleFilterASTVisitor visitorOf(const QString& combination, int ruleCount)
{
    const Combined filter(ruleCount, combination);
    return KufSampleFilterASTVisitor(&filter);
}

struct Evaluated
{
    const char* combination;
    std::vector<bool> rules;
    bool result;
};

struct Refused
{
    const char* combination;
    int position;
    const char* message;
};

} // namespace

class CombinationsTest : public testing::TestWithParam<Evaluated>
{};

TEST_P(CombinationsTest, AreEvaluated)
{
    const KufSampleFilterASTVisitor visitor = visitorOf(GetParam().combination, int(GetParam().rules.size()));
    EXPECT_EQ(visitor.getErrorMessage(), "");
    EXPECT_EQ(visitor.getErrorPosition(), -1);
    ASSERT_TRUE(visitor.isValid());
    EXPECT_EQ(visitor.evaluate(GetParam().rules), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(KufSampleFilterASTVisitor, CombinationsTest,
                         testing::Values(Evaluated{"R1", {true}, true},                               //
                                         Evaluated{"  R1\n", {false}, false},                         //
                                         Evaluated{"r2", {false, true}, true},                        //
                                         Evaluated{"R1 and R2", {true, false}, false},                //
                                         Evaluated{"R1 AND R2", {true, true}, true},                  //
                                         Evaluated{"R1 Or R2", {false, true}, true},                  //
                                         Evaluated{"NOT R1", {true}, false},                          //
                                         Evaluated{"not not R1", {true}, true},                       //
                                         Evaluated{"not(R1)", {false}, true},                         //
                                         Evaluated{"R1 or R2 and R3", {true, false, false}, true},    //
                                         Evaluated{"(R1 or R2) and R3", {true, false, false}, false}, //
                                         Evaluated{"R1 and R2 or R3", {false, false, true}, true},    //
                                         Evaluated{"R1 and (R2 or R3)", {false, false, true}, false}, //
                                         Evaluated{"not R1 and R2", {false, false}, false},           //
                                         Evaluated{"not (R1 and R2)", {false, false}, true},          //
                                         Evaluated{"R1 and not R2", {true, false}, true},             //
                                         Evaluated{"not R1 or R2", {true, true}, true},               //
                                         Evaluated{"((R1))", {true}, true},                           //
                                         Evaluated{"R1 and R1", {true}, true},                        //
                                         Evaluated{"R01", {true}, true}));

class WrongCombinationsTest : public testing::TestWithParam<Refused>
{};

TEST_P(WrongCombinationsTest, AreToldWithTheirPlace)
{
    const KufSampleFilterASTVisitor visitor = visitorOf(GetParam().combination, 2);
    EXPECT_FALSE(visitor.isValid());
    EXPECT_EQ(visitor.getErrorPosition(), GetParam().position);
    EXPECT_EQ(visitor.getErrorMessage(), GetParam().message);
    EXPECT_THROW(visitor.evaluate({true, true}), MbeProgrammingError);
}

INSTANTIATE_TEST_SUITE_P(
    KufSampleFilterASTVisitor, WrongCombinationsTest,
    testing::Values(Refused{"", 0, "The combination is empty, at character 1."},
                    Refused{"   ", 3, "The combination is empty, at character 4."},
                    Refused{"R1 and", 6, "Rule, 'not' or '(' expected, at character 7."},
                    Refused{"R1 R2", 3, "'and', 'or' or ')' expected instead of 'R2', at character 4."},
                    Refused{"R1R2", 0, "Rule, 'not' or '(' expected instead of 'R1R2', at character 1."},
                    Refused{"R1 and or R2", 7, "Rule, 'not' or '(' expected instead of 'or', at character 8."},
                    Refused{"and R1", 0, "Rule, 'not' or '(' expected instead of 'and', at character 1."},
                    Refused{"R3", 0, "There is no rule 'R3', at character 1."},
                    Refused{"R1 and R0", 7, "There is no rule 'R0', at character 8."},
                    Refused{"R99999999999999999999", 0, "There is no rule 'R99999999999999999999', at character 1."},
                    Refused{"R2147483648", 0, "There is no rule 'R2147483648', at character 1."},
                    Refused{"R4294967297", 0, "There is no rule 'R4294967297', at character 1."},
                    Refused{"R-1", 0, "Rule, 'not' or '(' expected instead of 'R', at character 1."},
                    Refused{"R\u0661", 0, "Rule, 'not' or '(' expected instead of 'R\u0661', at character 1."},
                    Refused{"R1 \U0001d407", 3, "'and', 'or' or ')' expected instead of '\U0001d407', at character 4."},
                    Refused{"not", 3, "Rule, 'not' or '(' expected, at character 4."},
                    Refused{"R1 and (R2 or )", 14, "Rule, 'not' or '(' expected instead of ')', at character 15."},
                    Refused{"((R1) and (R2)", 0, "'(' without ')', at character 1."},
                    Refused{"(R1) R2", 5, "'and', 'or' or ')' expected instead of 'R2', at character 6."},
                    Refused{"R1 (R2)", 3, "'and', 'or' or ')' expected instead of '(', at character 4."},
                    Refused{"R", 0, "Rule, 'not' or '(' expected instead of 'R', at character 1."},
                    Refused{"(R1) and R%2", 9, "Rule, 'not' or '(' expected instead of 'R', at character 10."},
                    Refused{"R1 & R2", 3, "'and', 'or' or ')' expected instead of '&', at character 4."},
                    Refused{"(R1", 0, "'(' without ')', at character 1."},
                    Refused{"R1)", 2, "')' without '(', at character 3."},
                    Refused{"()", 1, "Rule, 'not' or '(' expected instead of ')', at character 2."},
                    Refused{"R1 not R2", 3, "'and', 'or' or ')' expected instead of 'not', at character 4."}));

TEST(KufSampleFilterASTVisitor, TakesANullFilterAsAnEmptyOne)
{
    EXPECT_EQ(KufSampleFilterASTVisitor(nullptr).getErrorMessage(), "The combination is empty, at character 1.");
}

TEST(KufSampleFilterASTVisitor, TakesARuleBeyondTheListAsNotFulfilled)
{
    EXPECT_TRUE(visitorOf("R1 and not R2", 2).evaluate({true}));
}

TEST(KufSampleFilterASTVisitor, NestsToAnyDepth)
{
    const int depth = 300000;
    const QString text = QString(depth, '(') + "R1" + QString(depth, ')');
    EXPECT_TRUE(visitorOf(text, 1).evaluate({true}));
    EXPECT_FALSE(visitorOf(QString("not ").repeated(200001) + "R1", 1).evaluate({true}));
    EXPECT_FALSE(visitorOf(QString(depth, '('), 1).isValid());
}

TEST(KufSampleFilterASTVisitor, RefusesATextBeyondTheGreatestLength)
{
    EXPECT_TRUE(visitorOf("R1" + QString((1 << 20) - 2, ' '), 1).isValid());
    const KufSampleFilterASTVisitor visitor = visitorOf("R1" + QString((1 << 20) - 1, ' '), 1);
    EXPECT_EQ(visitor.getErrorMessage(), "The combination is too long, at character 1048577.");
}

TEST(KufSampleFilterASTVisitor, ShowsOnlyTheBeginningOfALongWord)
{
    EXPECT_EQ(visitorOf(QString(1000, 'x'), 1).getErrorMessage(),
              "Rule, 'not' or '(' expected instead of '" + QString(40, 'x') + "...', at character 1.");
}

TEST(KufSampleFilterDefaultCombination, JoinsAllRulesByAnd)
{
    const auto combinationOf = [](int count) {
        const Combined filter(count, QString());
        return KufSampleFilterDefaultCombination(&filter).getValue();
    };
    EXPECT_EQ(combinationOf(0), "");
    EXPECT_EQ(combinationOf(1), "R1");
    EXPECT_EQ(combinationOf(3), "R1 and R2 and R3");
    EXPECT_EQ(KufSampleFilterDefaultCombination(nullptr).getValue(), "");
}

TEST(KufSampleFilterDefaultCombination, IsValidForManyRules)
{
    const Combined counted(20000, QString());
    const QString combination = KufSampleFilterDefaultCombination(&counted).getValue();
    EXPECT_TRUE(visitorOf(combination, 20000).evaluate(std::vector<bool>(20000, true)));
}
