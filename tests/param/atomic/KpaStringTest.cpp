#include <param/atomic/KpaString.h>
#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

using Form = MbbOrderedMap<QString, QString>;

const int value = Kp::NotifyValue;
const int config = Kp::NotifyConfig;

QRegularExpression expression(const QString& pattern)
{
    return QRegularExpression(pattern);
}

} // namespace

TEST(KpaStringConfig, StartsWithoutRules)
{
    const KpaStringConfig config;
    EXPECT_EQ(config.getType(), KpbEType::STRING);
    EXPECT_EQ(config.getInitialValue(), "");
    EXPECT_FALSE(config.isAutoTrimmed());
    EXPECT_EQ(config.getRegExp().pattern(), "");
    EXPECT_EQ(config.getMaxLength(), MbbGlobal::I32_FFFF);
    EXPECT_FALSE(config.isInstantEdit());
    EXPECT_EQ(config.getPlaceHolder(), "");
    EXPECT_TRUE(config.isClearEnabled());
    EXPECT_EQ(config.getCompleter(), QStringList());
}

TEST(KpaStringConfig, IsComparedByAllFieldsAndTellsWhatChanged)
{
    const QList<bool (*)(KpaStringConfig&)> changes{
        [](KpaStringConfig& config) { return config.setAutoTrim(true); },
        [](KpaStringConfig& config) { return config.setRegExp(expression("a")); },
        [](KpaStringConfig& config) { return config.setMaxLength(3); },
        [](KpaStringConfig& config) { return config.setInstantEdit(true); },
        [](KpaStringConfig& config) { return config.setPlaceHolder("hint"); },
        [](KpaStringConfig& config) { return config.setClearEnabled(false); },
        [](KpaStringConfig& config) { return config.setCompleter({"word"}); },
    };
    EXPECT_EQ(KpaStringConfig(), KpaStringConfig());
    for (int i = 0; i < changes.size(); ++i) {
        KpaStringConfig config;
        EXPECT_TRUE(changes.at(i)(config)) << "field " << i;
        EXPECT_FALSE(changes.at(i)(config)) << "field " << i;
        EXPECT_NE(config, KpaStringConfig()) << "field " << i;
    }
}

TEST(KpaStringConfig, FixesATextByItsRules)
{
    struct Case
    {
        bool trim;
        QString pattern;
        int maxLength;
        QString value, previous, expected;
    };
    const int unlimited = MbbGlobal::I32_FFFF;
    const QList<Case> cases{
        {false, "", unlimited, " x ", "p", " x "},
        {true, "", unlimited, " x\t\n", "p", "x"},
        {true, "^a+$", unlimited, "  ", "aa", ""},
        {false, "^a+$", unlimited, "", "aa", ""},
        {false, "^a+$", unlimited, "b", "aa", "aa"},
        {false, "^a+$", unlimited, "b", "", ""},
        {false, "^a+$", unlimited, "b", "c", ""},
        {false, "^a+$", unlimited, "aaa", "aa", "aaa"},
        {true, "^a+$", unlimited, " aaa ", "", "aaa"},
        {false, "^a+$", unlimited, " aaa ", "", ""},
        {false, "a", unlimited, "bab", "", "bab"},
        {false, "", 3, "abcdef", "", "abc"},
        {false, "", 3, "ab", "", "ab"},
        {false, "", 0, "ab", "", ""},
        {false, "", -1, "ab", "", ""},
        {false, "^a+$", 3, "b", "aaaaa", "aaa"},
        {false, "^a{4}$", 3, "aaaa", "", "aaa"},
        {true, "", 2, " a b", "", "a "},
    };
    for (const Case& test : cases) {
        KpaStringConfig config;
        config.setAutoTrim(test.trim);
        config.setRegExp(expression(test.pattern));
        config.setMaxLength(test.maxLength);
        EXPECT_EQ(config.fix(test.value, test.previous), test.expected)
            << test.value.toStdString() << " against " << test.pattern.toStdString();
    }
}

TEST(KpaStringConfig, RefusesAnInvalidExpressionWithAWarning)
{
    KpaStringConfig config;
    config.setRegExp(expression("^a+$"));
    RecordedMessages messages;
    EXPECT_FALSE(config.setRegExp(expression("ab(")));
    EXPECT_EQ(config.getRegExp().pattern(), "^a+$");
    EXPECT_EQ(messages.warnings, QStringList{"An invalid regexp has been provided, please fix it.\n"
                                             "Pattern: ab(\n"
                                             "Error: missing closing parenthesis at position 3"});
    EXPECT_TRUE(messages.errors.isEmpty());
}

TEST(KpaStringConfig, TakesTheOptionsOfAnExpression)
{
    KpaStringConfig config;
    config.setRegExp(expression("^a$"));
    EXPECT_TRUE(config.setRegExp(QRegularExpression("^a$", QRegularExpression::CaseInsensitiveOption)));
    EXPECT_EQ(config.fix("A", ""), "A");
}

TEST(KpaStringConfig, SurvivesATextThatAnExpressionCannotCopeWith)
{
    KpaStringConfig config;
    config.setRegExp(expression("^(a+)+$"));
    EXPECT_EQ(config.fix(QString(2000, 'a') + 'b', "aa"), "aa");
}

TEST(KpaStringConfig, StoresTheTextUnchanged)
{
    const KpaStringConfig config;
    EXPECT_EQ(config.serializeValue(" a%20b\n|"), (Form{{"value", " a%20b\n|"}}));
    EXPECT_EQ(config.serializeValue(""), (Form{{"value", ""}}));
}

TEST(KpaStringConfig, ReadsItsFormAndTheOneOfOlderVersions)
{
    struct Case
    {
        Form form;
        QString expected;
    };
    const QList<Case> cases{
        {{}, ""},
        {{{"value", "a%20b"}}, "a%20b"},
        {{{"other", "x"}}, ""},
        {{{"line1", "one"}, {"line2", "two"}}, "one\ntwo"},
        {{{"line2", "two"}, {"line1", "one"}}, "two\none"},
        {{{"line1", "a%20b%C3%A9"}}, "a b\u00e9"},
        {{{"lineage", "x"}}, "x"},
        {{{"Line1", "x"}}, ""},
        {{{"value", "a%20b"}, {"other", "c"}}, "a b\nc"},
        {{{"line1", ""}, {"line2", ""}, {"line3", "x"}}, "\n\nx"},
    };
    for (const Case& test : cases)
        EXPECT_EQ(KpaStringConfig().unserializeValue(test.form, "previous"), test.expected)
            << test.expected.toStdString();
}

TEST(KpaStringConfig, DebugsItsFields)
{
    KpaStringConfig config;
    config.setAutoTrim(true);
    config.setRegExp(expression("^a+$"));
    config.setMaxLength(12);
    config.setPlaceHolder("hint");
    EXPECT_EQ(config.debug(), "----- KpaStringConfig ----------\n"
                              " autotrim      = yes\n"
                              " regexp        = ^a+$\n"
                              " maxLength     = 12\n"
                              " instant edit  = no\n"
                              " place holder  = hint\n"
                              " clear enabled = yes\n");
}

TEST(KpaString, StartsEmpty)
{
    const KpaString parameter("NAME");
    EXPECT_EQ(parameter.getKey(), "NAME");
    EXPECT_EQ(parameter.getType(), KpbEType::STRING);
    EXPECT_EQ(parameter.getValue(), "");
    EXPECT_EQ(parameter.getConfig(), KpaStringConfig());
}

TEST(KpaString, FindsATextInItsValue)
{
    KpaString parameter("NAME");
    parameter.setValue("Variogram");
    EXPECT_TRUE(parameter.contains("gram"));
    EXPECT_FALSE(parameter.contains("GRAM"));
    EXPECT_TRUE(parameter.contains(""));
    EXPECT_EQ(parameter.toString(), "Variogram");
}

TEST(KpaString, NotifiesEachChangeOfARuleOnce)
{
    KpaString parameter("NAME");
    const RecordingObserver observer(parameter);
    for (int i = 0; i < 2; ++i) {
        parameter.setAutoTrim(true);
        parameter.setRegExp(expression("a"));
        parameter.setMaxLength(3);
        parameter.setInstantEdit(true);
        parameter.setPlaceHolder("hint");
        parameter.setClearEnabled(false);
        parameter.setCompleter({"word"});
    }
    EXPECT_EQ(observer.allFlags(), (QList<int>{config, config, config, config, config, config, config}));
    EXPECT_TRUE(parameter.isAutoTrimmed());
    EXPECT_EQ(parameter.getRegExp(), expression("a"));
    EXPECT_EQ(parameter.getMaxLength(), 3);
    EXPECT_TRUE(parameter.isInstantEdit());
    EXPECT_EQ(parameter.getPlaceHolder(), "hint");
    EXPECT_FALSE(parameter.isClearEnabled());
    EXPECT_EQ(parameter.getCompleter(), QStringList{"word"});
    parameter.unsetMaxLength();
    EXPECT_EQ(parameter.getMaxLength(), MbbGlobal::I32_FFFF);
    parameter.unsetMaxLength();
    EXPECT_EQ(observer.records.size(), 8);
}

TEST(KpaString, KeepsItsTextWhenTheNewOneDoesNotMatch)
{
    KpaString parameter("NAME");
    parameter.setRegExp(expression("^a+$"));
    parameter.setValue("aa");
    const RecordingObserver observer(parameter);
    parameter.setValue("b");
    EXPECT_EQ(parameter.getValue(), "aa");
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
    parameter.setValue("");
    EXPECT_EQ(parameter.getValue(), "");
    parameter.setValue("b");
    EXPECT_EQ(parameter.getValue(), "");
}

TEST(KpaString, NotifiesARequestThatWasOnlyTrimmed)
{
    KpaString parameter("NAME");
    parameter.setAutoTrim(true);
    const RecordingObserver observer(parameter);
    parameter.setValue(" x ");
    EXPECT_EQ(parameter.getValue(), "x");
    parameter.setValue(" x ");
    EXPECT_EQ(parameter.getValue(), "x");
    EXPECT_EQ(observer.allFlags(), (QList<int>{value, value}));
    parameter.setValue("x");
    EXPECT_EQ(observer.records.size(), 2);
}

TEST(KpaString, CutsALongText)
{
    KpaString parameter("NAME");
    parameter.setMaxLength(3);
    parameter.setValue("abcdef");
    EXPECT_EQ(parameter.getValue(), "abc");
    const RecordingObserver observer(parameter);
    parameter.setMaxLength(2);
    EXPECT_EQ(parameter.getValue(), "ab");
    EXPECT_EQ(observer.allFlags(), QList<int>{config | value});
}

TEST(KpaString, EmptiesWhenANewExpressionDoesNotFit)
{
    KpaString parameter("NAME");
    parameter.setValue("b");
    const RecordingObserver observer(parameter);
    parameter.setRegExp(expression("^a+$"));
    EXPECT_EQ(parameter.getValue(), "");
    EXPECT_EQ(observer.allFlags(), QList<int>{config | value});
}

TEST(KpaString, KeepsItsExpressionAndSendsNothingForAnInvalidOne)
{
    KpaString parameter("NAME");
    parameter.setRegExp(expression("^a+$"));
    const RecordingObserver observer(parameter);
    RecordedMessages messages;
    parameter.setRegExp(expression("[z-a]"));
    EXPECT_EQ(parameter.getRegExp(), expression("^a+$"));
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_EQ(messages.warnings.size(), 1);
}

TEST(KpaString, StoresAndRestoresItsText)
{
    KpaString parameter("NAME");
    parameter.setValue("one\ntwo");
    KpaString other("NAME");
    other.unserialize(parameter.serialize());
    EXPECT_EQ(other.getValue(), "one\ntwo");
    other.unserialize({});
    EXPECT_EQ(other.getValue(), "");
}

TEST(KpaString, HoldsAStoredTextAgainstItsRules)
{
    KpaString parameter("NAME");
    parameter.setAutoTrim(true);
    parameter.setRegExp(expression("^a+$"));
    parameter.setMaxLength(3);
    parameter.unserialize({{"value", " aaaaa "}});
    EXPECT_EQ(parameter.getValue(), "aaa");
    const RecordingObserver observer(parameter);
    parameter.unserialize({{"value", "b"}});
    EXPECT_EQ(parameter.getValue(), "aaa");
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
}

TEST(KpaString, DuplicatesWithRulesAndText)
{
    KpaString parameter("NAME");
    parameter.setMaxLength(3);
    parameter.setValue("abc");
    const std::unique_ptr<KpaString> copy(parameter.duplicate(""));
    EXPECT_EQ(copy->getKey(), "NAME");
    EXPECT_EQ(copy->getValue(), "abc");
    EXPECT_EQ(copy->getMaxLength(), 3);
    EXPECT_EQ(std::unique_ptr<KpaString>(parameter.duplicate("NEW"))->getKey(), "NEW");
}
