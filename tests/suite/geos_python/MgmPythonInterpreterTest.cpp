#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <basic/MbeError.h>
#include <geos_python/MgmPythonDict.h>
#include <geos_python/MgmPythonInterpreter.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <thread>

#include <pthread.h>

namespace {

MgmPythonDict makeVariables()
{
    MgmPythonDict variables;
    variables.createDouble("AUX1", 0.0);
    variables.createDouble("AUX2", 2.5);
    variables.createString("AUX3", "abc");
    return variables;
}

bool evaluate(const QString& condition)
{
    return MgmPythonInterpreter::getInstance()->evaluateCondition(makeVariables(), condition);
}

// The message of the refusal, or an empty text if there is none.
QString refusalOf(const QString& condition)
{
    try {
        evaluate(condition);
    }
    catch (const MbeUserError& error) {
        EXPECT_EQ(error.getFormat(), Qt::RichText);
        return error.getMessage();
    }
    return {};
}

struct Case
{
    const char* condition;
    bool value;
};

void expectValues(const std::vector<Case>& cases)
{
    for (const auto& [condition, value] : cases) {
        EXPECT_NO_THROW(EXPECT_EQ(evaluate(QString::fromUtf8(condition)), value) << condition) << condition;
    }
}

// The stack of a small thread. The checks of a sanitizer take several times as much of it.
#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
constexpr std::size_t SmallStack = 8 << 20;
#else
constexpr std::size_t SmallStack = 1 << 19;
#endif

struct Refusal
{
    const char* condition;
    const char* message;
};

void expectRefusals(const std::vector<Refusal>& cases)
{
    for (const auto& [condition, message] : cases) {
        const QString text = QString::fromUtf8(condition);
        EXPECT_EQ(refusalOf(text), QStringLiteral("<pre>") + QString::fromUtf8(message)) << condition;
    }
}

TEST(MgmPythonInterpreter, IsOneForTheProcess)
{
    EXPECT_NE(MgmPythonInterpreter::getInstance(), nullptr);
    EXPECT_EQ(MgmPythonInterpreter::getInstance(), MgmPythonInterpreter::getInstance());
}

TEST(MgmPythonInterpreter, ComparesNumbersAndTexts)
{
    expectValues({
        {"AUX1 > 0", false},
        {"AUX1 >= 0", true},
        {"AUX2 < 3", true},
        {"AUX2 <= 2", false},
        {"AUX2 == 2.5", true},
        {"AUX2 != 2.5", false},
        {"0 < AUX2 < 3", true},
        {"0 < AUX2 < 1", false},
        {"AUX3 == 'abc'", true},
        {"AUX3 == \"abd\"", false},
        {"AUX3 < 'b'", true},
        {"AUX3 == 1", false},
        {"'b' in AUX3", true},
        {"'x' not in AUX3", true},
        {"AUX2 in (1, 2.5)", true},
        {"AUX2 not in [1, 2.5]", false},
        {"AUX3 in ('abc', 'def')", true},
        {"2 == 2.0", true},
    });
}

TEST(MgmPythonInterpreter, CombinesTruthValues)
{
    expectValues({
        {"True", true},
        {"False", false},
        {"AUX1 > 0 and AUX2 > 0", false},
        {"AUX1 > 0 or AUX2 > 0", true},
        {"not AUX1 > 0", true},
        {"not (AUX1 or AUX2)", false},
        {"(AUX1 > 0) & (AUX2 > 0)", false},
        {"(AUX1 > 0) | (AUX2 > 0)", true},
        {"(AUX1 == 0) ^ (AUX2 > 0)", false},
        {"AUX1 > 0 if AUX2 > 5 else AUX3 == 'abc'", true},
        {"AUX1", false},
        {"AUX2", true},
        {"AUX3", true},
        {"''", false},
    });
}

TEST(MgmPythonInterpreter, Calculates)
{
    expectValues({
        {"1 + 2 * 3 == 7", true},       {"(1 + 2) * 3 == 9", true},     {"7 / 2 == 3.5", true},
        {"7 // 2 == 3", true},          {"-7 // 2 == -4", true},        {"7 // -2 == -4", true},
        {"1 // 0.1 == 9", true},        {"-1 // 0.1 == -10", true},     {"-5 // 1e999 == -1", true},
        {"5 // 1e999 == 0", true},      {"7 % 3 == 1", true},           {"-7 % 3 == 2", true},
        {"7 % -3 == -2", true},         {"2 ** 3 ** 2 == 512", true},   {"-2 ** 2 == -4", true},
        {"+AUX2 == --2.5", true},       {"1.5e3 == 1500", true},        {".5 + 1. == 1.5", true},
        {"True + True == 2", true},     {"AUX3 + 'd' == 'abcd'", true}, {"'a' 'b' == \"ab\"", true},
        {"'it\\'s' == \"it's\"", true},
    });
}

TEST(MgmPythonInterpreter, CallsTheFunctionsOfItsList)
{
    expectValues({
        {"abs(-2.5) == AUX2", true},
        {"min(3, AUX2, 4) == 2.5", true},
        {"max(3, AUX2, 4) == 4", true},
        {"min('b', 'a') == 'a'", true},
        {"round(2.5) == 2", true},
        {"round(3.5) == 4", true},
        {"round(2.675, 2) == 2.67", true},
        {"round(1234, -2) == 1200", true},
        {"round(2.5, 1e300) == 2.5", true},
        {"round(2.5, -1e300) == 0", true},
        {"isnan(round(float('nan'), 1))", true},
        {"len(AUX3) == 3", true},
        {"float('1.5') == 1.5", true},
        {"float(AUX2) == 2.5", true},
        {"int(2.9) == 2", true},
        {"int(-2.9) == -2", true},
        {"int('3') == 3", true},
        {"sqrt(9) == 3", true},
        {"exp(0) == 1", true},
        {"log(1) == 0", true},
        {"log10(1000) == 3", true},
        {"sin(0) == 0", true},
        {"cos(0) == 1", true},
        {"tan(0) == 0", true},
        {"floor(-1.5) == -2", true},
        {"ceil(-1.5) == -1", true},
        {"isnan(AUX2)", false},
    });
}

TEST(MgmPythonInterpreter, TakesNoConditionAsWrongForTheNumbersInIt)
{
    expectValues({
        {"1 / AUX1 > 1e308", true},
        {"-1 / AUX1 < -1e308", true},
        {"isnan(AUX1 / AUX1)", true},
        {"isnan(1 % AUX1)", true},
        {"1 // AUX1 > 1e308", true},
        {"log(AUX1) < 0", true},
        {"isnan(sqrt(-1))", true},
        {"isnan((-8) ** 0.5)", true},
        {"exp(1e9) > 1", true},
        {"isnan(float(AUX3))", true},
        {"isnan(int('x'))", true},
        {"isnan(floor(sqrt(-1)))", true},
        {"1 / (6 % -3) < 0", true},
        {"1 / (-6 % 3) > 0", true},
        {"round(1.7e308, -308) > 1e308", true},
        {"round(-1.7e308, -308) < -1e308", true},
        {"1e999 > 1", true},
        {"sqrt(-1) > 0 or sqrt(-1) <= 0", false},
    });
}

TEST(MgmPythonInterpreter, ShowsTheLineAndThePlaceOfWhatPythonRefuses)
{
    expectRefusals({
        {"AUX1 >", "invalid syntax\nAUX1 &gt;\n      ^"},
        {"AUX1 AUX2", "invalid syntax\nAUX1 AUX2\n     ^"},
        {"'é' == > 1", "invalid syntax\n'é' == &gt; 1\n       ^"},
        {"'\xF0\x9F\x98\x80' == > 1", "invalid syntax\n'\xF0\x9F\x98\x80' == &gt; 1\n       ^"},
        {"(AUX1 >\n > 1)", "invalid syntax\n &gt; 1)\n ^"},
        {"AUX1\t> >", "invalid syntax\nAUX1\t&gt; &gt;\n    \t  ^"},
    });
}

TEST(MgmPythonInterpreter, ShowsTheLineAndThePlaceOfWhatFails)
{
    expectRefusals({
        {"AUX1 > 0 or AUX3 < 1", "'&lt;' not supported between instances of 'str' and 'float'\n"
                                 "AUX1 &gt; 0 or AUX3 &lt; 1\n            ^"},
        {"AUX1 == 0 and AUX2 * AUX3 > 1",
         "A number is needed, and this is a text.\nAUX1 == 0 and AUX2 * AUX3 &gt; 1\n              ^"},
        {"'é' == sqrt(AUX3)", "A number is needed, and this is a text.\n'é' == sqrt(AUX3)\n       ^"},
        {"len(AUX1)", "object of type 'float' has no len()\nlen(AUX1)\n^"},
        {"AUX1 & AUX2",
         "Two truth values are needed, such as those of comparisons in parentheses.\nAUX1 &amp; AUX2\n^"},
    });
}

TEST(MgmPythonInterpreter, RefusesWhatAConditionDoesNotNeed)
{
    expectRefusals({
        {"", "The condition is empty.\n\n^"},
        {" \n ", "The condition is empty.\n\n^"},
        {"AUX9 > 1", "name 'AUX9' is not defined\nAUX9 &gt; 1\n^"},
        {"aux1 > 1", "name 'aux1' is not defined\naux1 &gt; 1\n^"},
        {"abs", "name 'abs' is not defined\nabs\n^"},
        {"__builtins__", "name '__builtins__' is not defined\n__builtins__\n^"},
        {"print(1)", "There is no such function in a condition.\nprint(1)\n^"},
        {"eval('1')", "There is no such function in a condition.\neval('1')\n^"},
        {"AUX3(1)", "There is no such function in a condition.\nAUX3(1)\n^"},
        {"(abs)(1)(2)", "There is no such function in a condition.\n(abs)(1)(2)\n^"},
        {"__import__('os').system('ls')",
         "Attributes are not allowed in a condition.\n__import__('os').system('ls')\n                ^"},
        {"().__class__", "Attributes are not allowed in a condition.\n().__class__\n  ^"},
        {"1.real", "This is not a number.\n1.real\n^"},
        {"1..real", "Attributes are not allowed in a condition.\n1..real\n  ^"},
        {"1 .real", "Attributes are not allowed in a condition.\n1 .real\n  ^"},
        {"AUX3[0] == 'a'", "This is not allowed in a condition.\nAUX3[0] == 'a'\n^"},
        {"(1, 2) == 1", "This is not allowed in a condition.\n(1, 2) == 1\n^"},
        {"1, 2", "This is not allowed in a condition.\n1, 2\n^"},
        {"()", "This is not allowed in a condition.\n()\n^"},
        {"1 in ((1, 2), 3)", "This is not allowed in a condition.\n1 in ((1, 2), 3)\n      ^"},
        {"min(1, *AUX3)", "This is not allowed in a condition.\nmin(1, *AUX3)\n       ^"},
        {"min(**AUX3)", "Arguments with names are not allowed in a condition.\nmin(**AUX3)\n^"},
        {"min(1, key=abs)", "'=' is not allowed in a condition. Equality is '=='.\nmin(1, key=abs)\n          ^"},
        {"AUX1 = 1", "'=' is not allowed in a condition. Equality is '=='.\nAUX1 = 1\n     ^"},
        {"(AUX1 := 1)", "This character is not allowed in a condition.\n(AUX1 := 1)\n      ^"},
        {"[x for x in (1, 2)]", "'for' is not allowed in a condition.\n[x for x in (1, 2)]\n   ^"},
        {"lambda: 1", "'lambda' is not allowed in a condition.\nlambda: 1\n^"},
        {"yield 1", "'yield' is not allowed in a condition.\nyield 1\n^"},
        {"AUX1 is AUX1", "'is' is not allowed in a condition.\nAUX1 is AUX1\n     ^"},
        {"None", "'None' is not allowed in a condition.\nNone\n^"},
        {"import os", "'import' is not allowed in a condition.\nimport os\n^"},
        {"f'{AUX1}'", "Texts with a prefix are not allowed in a condition.\nf'{AUX1}'\n^"},
        {"b'a' == AUX3", "Texts with a prefix are not allowed in a condition.\nb'a' == AUX3\n^"},
        {"'''a'''", "Texts over several lines are not allowed in a condition.\n'''a'''\n^"},
        {"'a", "This text is never closed.\n'a\n^"},
        {"'\\N{BULLET}'", "This escape is not allowed in a condition.\n'\\N{BULLET}'\n  ^"},
        {"'a\\", "This escape is not allowed in a condition.\n'a\\\n   ^"},
        {"{1: 2}", "This character is not allowed in a condition.\n{1: 2}\n^"},
        {"1; 2", "This character is not allowed in a condition.\n1; 2\n ^"},
        {"1 # one", "This character is not allowed in a condition.\n1 # one\n  ^"},
        {"~AUX1", "This character is not allowed in a condition.\n~AUX1\n^"},
        {"AUX1 @ AUX2", "This character is not allowed in a condition.\nAUX1 @ AUX2\n     ^"},
        {"1 << 9", "This operator is not allowed in a condition.\n1 &lt;&lt; 9\n^"},
        {"9 >> 1", "This operator is not allowed in a condition.\n9 &gt;&gt; 1\n^"},
        {"...", "Attributes are not allowed in a condition.\n...\n^"},
        {"0x10", "This is not a number.\n0x10\n^"},
        {"1_000", "This is not a number.\n1_000\n^"},
        {"1j", "This is not a number.\n1j\n^"},
        {"1if AUX1 else 2", "This is not a number.\n1if AUX1 else 2\n^"},
        {"AUX1 > 0)", "This bracket closes none.\nAUX1 &gt; 0)\n        ^"},
        {"(AUX1 > 0]", "This bracket closes none.\n(AUX1 &gt; 0]\n         ^"},
        {"(AUX1 > 0", "This bracket is never closed.\n(AUX1 &gt; 0\n^"},
        {"abs()", "abs() cannot take 0 argument(s).\nabs()\n^"},
        {"abs(1, 2)", "abs() cannot take 2 argument(s).\nabs(1, 2)\n^"},
        {"min('a')", "min() cannot take 1 argument(s).\nmin('a')\n^"},
        {"max()", "max() cannot take 0 argument(s).\nmax()\n^"},
        {"round(1, 2, 3)", "round() cannot take 3 argument(s).\nround(1, 2, 3)\n^"},
        {"'a' * 9", "A number is needed, and this is a text.\n'a' * 9\n^"},
        {"'%s' % AUX1", "A number is needed, and this is a text.\n'%s' % AUX1\n^"},
    });
}

TEST(MgmPythonInterpreter, RefusesCharactersThatNoConditionHas)
{
    for (const QChar c : {QChar(0), QChar(1), QChar(0x0d), QChar(0x2028), QChar(0xd800), QChar(0xdc00), QChar(0xfffe)})
    {
        EXPECT_TRUE(refusalOf(QStringLiteral("1 < %1 2").arg(c)).startsWith("<pre>This character")) << c.unicode();
    }
    for (const QChar c : {QChar(0), QChar(1), QChar(0x0d), QChar(0xd800), QChar(0xdc00)}) {
        EXPECT_TRUE(refusalOf(QStringLiteral("'a%1b'").arg(c)).startsWith("<pre>This character")) << c.unicode();
    }
}

TEST(MgmPythonInterpreter, ShowsTextsOfDocumentsAsTextsAndNotAsHtml)
{
    EXPECT_EQ(refusalOf("'<img src=x>' < 1"),
              "<pre>'&lt;' not supported between instances of 'str' and 'float'\n'&lt;img src=x&gt;' &lt; 1\n^");
}

TEST(MgmPythonInterpreter, ShowsOnlyWhatIsNearThePlaceInALongLine)
{
    const QString filler = QStringLiteral("0+").repeated(50);
    EXPECT_EQ(refusalOf(filler + "x" + QStringLiteral("+0").repeated(50)),
              QStringLiteral("<pre>name 'x' is not defined\n%1x%2\n%3^")
                  .arg(filler.right(60), QStringLiteral("+0").repeated(30).left(59), QString(60, ' ')));
}

TEST(MgmPythonInterpreter, ShowsWholeCharactersNearThePlace)
{
    const QString smiley = QString::fromUtf8("\xF0\x9F\x98\x80");
    EXPECT_EQ(refusalOf("'" + smiley.repeated(40) + "' +  x + '" + smiley.repeated(40) + "'"),
              QStringLiteral("<pre>name 'x' is not defined\n%1' +  x + '%2\n%3^")
                  .arg(smiley.repeated(28), smiley.repeated(27), QString(33, ' ')));
}

TEST(MgmPythonInterpreter, FindsThePlaceInALongText)
{
    const QString filler = QStringLiteral("1 and ").repeated(600);
    EXPECT_EQ(refusalOf(filler + "AUX3 < 1"),
              QStringLiteral("<pre>'&lt;' not supported between instances of 'str' and 'float'\n%1AUX3 &lt; 1\n%2^")
                  .arg(filler.right(60), QString(60, ' ')));
    EXPECT_EQ(refusalOf("(" + QStringLiteral("1 and\n").repeated(500) + "'é' < 'a' or AUX3 < 1)"),
              "<pre>'&lt;' not supported between instances of 'str' and 'float'\n"
              "'é' &lt; 'a' or AUX3 &lt; 1)\n             ^");
}

TEST(MgmPythonInterpreter, LooksOnlyAtWhatItEvaluates)
{
    expectValues({
        {"AUX1 > 0 and AUX3 < 1", false},
        {"AUX1 == 0 or AUX3 < 1", true},
        {"1 > 2 > AUX3", false},
        {"AUX1 if AUX2 else AUX3 < 1", false},
    });
}

// The texts that make a parser or an evaluator call itself, or work, without end.
struct Growth
{
    const char* before;
    const char* middle;
    const char* after;
};

TEST(MgmPythonInterpreter, EndsSoonWithAnyTextThatRepeatsItself)
{
    const std::vector<Growth> growths{
        {"(", "1", ")"},
        {"[", "1", "]"},
        {"((", "1 1", "))"},
        {"abs(", "1", ")"},
        {"abs(", "1 1", ")"},
        {"max(1,", "1 1", ")"},
        {"abs(1,", "1 1", ",1)"},
        {"-", "1", ""},
        {"not ", "1", ""},
        {"not -", "1", ""},
        {"(-", "1 +", ")"},
        {"not (-", "1 1", ")"},
        {"1 if ", "1", " else 1"},
        {"1 if 1 else ", "1", ""},
        {"(1 if ", "1 1", " else 2)"},
        {"1**", "1", ""},
        {"9**-", "1", ""},
        {"9*", "9", ""},
        {"1+", "1", ""},
        {"1<", "1", ""},
        {"1 and ", "1", ""},
        {"1 or not ", "1", ""},
        {"1 not in ", "1", ""},
        {"1,", "1", ""},
        {"'a'", "'a'", ""},
        {"'a'+", "'a'", ""},
        {"1 ", "1", ""},
        {"9", "9", ""},
        {"{", "1", "}"},
        {"{1:", "1", "}"},
        {"lambda: ", "1", ""},
        {"f'{", "1", "}'"},
        {"AUX3[", "1", "]"},
        {"AUX1.", "a", ""},
        {"a(", "", ""},
        {"((((", "", "]"},
        {"(1 & (1 < (1 ^ (1 | -", "1 1", "))))"},
        {"1 in (not (1 ** (", "1 1", ")))"},
        {"\n", "1", ""},
        {"(\n", "1", "\n)"},
        {"\\\n", "1", ""},
    };
    for (const Growth& growth : growths) {
        for (const int times : {15, 16, 20, 32, 40, 41, 100, 199, 500, 2000, 1000000}) {
            const QString condition = QString::fromLatin1(growth.before).repeated(times) +
                                      QLatin1String(growth.middle) + QString::fromLatin1(growth.after).repeated(times);
            QElapsedTimer timer;
            timer.start();
            refusalOf(condition);
            EXPECT_LT(timer.elapsed(), 1000) << growth.before << " " << times << " times";
        }
    }
}

TEST(MgmPythonInterpreter, ComputesNothingHuge)
{
    expectValues({
        {"9**9**9**9**9**9 > 1", true},
        {"9**(9**(9**(9**9))) > 1", true},
        {"(True + True) ** (9**9) ** (9**9) > 1", true},
        {"int(1e308) ** int(1e308) > 1", true},
        {"round(1e308) ** round(1e308) > 1", true},
        {"len('abcdefghi') ** len('abcdefghi') ** len('abcdefghi') > 1", true},
    });
    EXPECT_TRUE(refusalOf("'a' * 999999999 * 999999999").startsWith("<pre>A number is needed, and this is a text."));
    EXPECT_TRUE(refusalOf("'%999999999d' % 1").startsWith("<pre>A number is needed, and this is a text."));
    EXPECT_TRUE(refusalOf(QString(41, '9') + " > 1").startsWith("<pre>This number is too long.\n999"));
    EXPECT_TRUE(evaluate(QString(40, '9') + " > 1e39"));
}

TEST(MgmPythonInterpreter, LimitsTheLengthOfAText)
{
    EXPECT_EQ(MgmPythonInterpreter::MaximumLength, 4096);
    const QString longest = "'" + QString(4094, 'a') + "'";
    EXPECT_TRUE(evaluate(longest));
    EXPECT_EQ(refusalOf("'" + QString(4095, 'a') + "'"),
              "<pre>The condition is too long.\n" + QString(60, 'a') + "'\n" + QString(60, ' ') + "^");
    EXPECT_FALSE(refusalOf(QString(50000000, '(')).isEmpty());
}

TEST(MgmPythonInterpreter, LimitsTheDepthOfAText)
{
    const auto nested = [](const char* open, int times, const char* middle, const char* close) {
        return QString::fromLatin1(open).repeated(times) + QLatin1String(middle) +
               QString::fromLatin1(close).repeated(times);
    };
    EXPECT_TRUE(evaluate(nested("(", 40, "1", ")")));
    EXPECT_TRUE(refusalOf(nested("(", 41, "1", ")")).startsWith("<pre>The condition is nested too deeply.\n("));
    EXPECT_TRUE(evaluate(nested("-", 16, "1", "")));
    EXPECT_TRUE(refusalOf(nested("-", 17, "1", "")).startsWith("<pre>There are too many signs.\n--"));
    EXPECT_TRUE(evaluate(nested("1**", 32, "1", "")));
    EXPECT_TRUE(refusalOf(nested("1**", 33, "1", "")).startsWith("<pre>There are too many powers.\n"));
    EXPECT_TRUE(evaluate(nested("1 if 1 else ", 32, "1", "")));
    EXPECT_TRUE(refusalOf(nested("1 if 1 else ", 33, "1", "")).startsWith("<pre>There are too many choices.\n"));
    EXPECT_TRUE(evaluate(nested("1+", 199, "1", "")));
    EXPECT_TRUE(refusalOf(nested("1+", 200, "1", "")).startsWith("<pre>The condition is nested too deeply.\n"));
}

TEST(MgmPythonInterpreter, AVariableCannotStandForAFunctionOrAnOperator)
{
    MgmPythonDict variables;
    variables.createString("abs", "text");
    variables.createString("abs()", "text");
    variables.createString("Add()", "text");
    variables.createString("__builtins__", "text");
    EXPECT_TRUE(MgmPythonInterpreter::getInstance()->evaluateCondition(
        variables, "abs(-1) + 1 == 2 and abs == 'text' and __builtins__ == 'text'"));
}

TEST(MgmPythonInterpreter, KnowsVariablesByTheirLettersHoweverComposed)
{
    MgmPythonDict variables;
    variables.createDouble(QString::fromUtf8("Gro\xCC\x88\xC3\x9F"
                                             "e"),
                           3.0);
    EXPECT_TRUE(MgmPythonInterpreter::getInstance()->evaluateCondition(variables, QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"
                                                                                                    "e == 3")));
}

TEST(MgmPythonInterpreter, EvaluatesFromAnyThreadEvenWithASmallStack)
{
    bool value = false;
    std::thread([&value] { value = evaluate("AUX2 > 2"); }).join();
    EXPECT_TRUE(value);
    const QString deep =
        QStringLiteral("(not not not not not not not not not not not not not not not not ").repeated(40) + "1" +
        QString(40, ')');
    pthread_attr_t small;
    pthread_attr_init(&small);
    pthread_attr_setstacksize(&small, SmallStack);
    pthread_t thread{};
    const auto run = [](void* text) -> void* {
        refusalOf(*static_cast<const QString*>(text));
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &small, run, const_cast<QString*>(&deep)), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&small);
}

TEST(MgmPythonInterpreter, WorksOnAfterRefusals)
{
    for (int i = 0; i < 1000; ++i) {
        EXPECT_FALSE(refusalOf("AUX1 >").isEmpty());
        EXPECT_FALSE(refusalOf("AUX3 < 1").isEmpty());
        EXPECT_TRUE(evaluate("AUX2 > 2"));
    }
}

// Evaluates when the objects of the program die, after `main`.
struct LateEvaluation
{
    bool isArmed = false;
    ~LateEvaluation()
    {
        if (isArmed)
            std::fputs(evaluate("AUX2 > 2") && !refusalOf("AUX1 >").isEmpty() ? "late and well" : "late and wrong",
                       stderr);
    }
};
LateEvaluation late;

TEST(MgmPythonInterpreter, CanBeUsedWhileTheObjectsOfTheProgramDie)
{
    const auto end = [] {
        late.isArmed = true;
        MgmPythonInterpreter::getInstance();
        std::exit(0);
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(0), "late and well");
}

TEST(MgmPythonInterpreter, ReadsNoFilesOfTheUser)
{
    QTemporaryDir folder;
    for (const char* name : {"sitecustomize.py", "usercustomize.py", "encodings.py", "_ast.py", "ast.py", "os.py"}) {
        QFile file(folder.filePath(QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("open('" + folder.filePath("was_here").toUtf8() + "', 'w').close()\nraise SystemExit(7)\n");
    }
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"PYTHONPATH", "PYTHONHOME", "PYTHONSTARTUP", "PYTHONUSERBASE"})
        environment.insert(QLatin1String(name), folder.path());
    environment.insert("PATH", folder.path());
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder.path());
    process.start(QCoreApplication::applicationFilePath(),
                  {"--gtest_filter=MgmPythonInterpreter.ComparesNumbersAndTexts"});
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
    EXPECT_FALSE(QFile::exists(folder.filePath("was_here")));
}

TEST(MgmPythonDict, HoldsWhatItsParentHolds)
{
    MgmPythonDict parent;
    parent.createDouble("A", 1.0);
    parent.createDouble("B", 2.0);
    MgmPythonDict variables(&parent);
    variables.createString("B", "two");
    const auto holds = [](const MgmPythonDict& dict, const QString& condition) {
        return MgmPythonInterpreter::getInstance()->evaluateCondition(dict, condition);
    };
    EXPECT_TRUE(holds(variables, "A == 1 and B == 'two'"));
    EXPECT_TRUE(holds(parent, "A == 1 and B == 2"));
}

TEST(MgmPythonDict, ReplacesAVariableOfTheSameName)
{
    MgmPythonDict variables(nullptr);
    variables.createDouble("A", 1.0);
    variables.createString("A", "one");
    ASSERT_EQ(variables.getValues().size(), 1);
    EXPECT_EQ(std::get<QString>(variables.getValues().value("A")), "one");
}

} // namespace
