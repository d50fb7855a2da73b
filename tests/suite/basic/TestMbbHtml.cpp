#include <gtest/gtest.h>

#include <basic/MbbHtml.h>

TEST(MbbHtml, GivesNonBreakingBlanks)
{
    EXPECT_EQ(MbbHtml::emptyString(1), QString(QChar(0x00A0)));
    EXPECT_EQ(MbbHtml::emptyString(3), QString(3, QChar(0x00A0)));
}

TEST(MbbHtml, GivesLineBreaks)
{
    EXPECT_EQ(MbbHtml::emptyLine(1), "<br/>");
    EXPECT_EQ(MbbHtml::emptyLine(2), "<br/><br/>");
}

TEST(MbbHtml, GivesNothingForACountBelowOne)
{
    for (const int count : {0, -1, -1000}) {
        EXPECT_EQ(MbbHtml::emptyString(count), QString());
        EXPECT_EQ(MbbHtml::emptyLine(count), QString());
    }
}

TEST(MbbHtml, MarksUpAndEscapes)
{
    EXPECT_EQ(MbbHtml::bold("a<b>&\"c\""), "<b>a&lt;b&gt;&amp;&quot;c&quot;</b>");
    EXPECT_EQ(MbbHtml::italic("a & b"), "<i>a &amp; b</i>");
    EXPECT_EQ(MbbHtml::displayName("<Gold>"), "<b>&lt;Gold&gt;</b>");
    EXPECT_EQ(MbbHtml::bold(""), "<b></b>");
}

TEST(MbbHtml, FormatsByEachOption)
{
    const struct
    {
        int options;
        const char* expected;
    } rows[] = {
        {0, "a&lt;b"},
        {1, "<b>a&lt;b</b>"},
        {2, "<i>a&lt;b</i>"},
        {4, "<u>a&lt;b</u>"},
        {8, "<big><b>a&lt;b</b></big>"},
        {16, "<tt>a&lt;b</tt>"},
        {32, "<small>a&lt;b</small>"},
        {256, "<nobr>a&lt;b</nobr>"},
        {272, "<nobr><tt>a&lt;b</tt></nobr>"},
        {MbbHtml::Bold | MbbHtml::Italic | MbbHtml::Underline, "<b><i><u>a&lt;b</u></i></b>"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MbbHtml::format("a<b", row.options), row.expected) << row.options;
}

TEST(MbbHtml, IgnoresUnknownOptions)
{
    EXPECT_EQ(MbbHtml::format("a", 64 | 128 | 1024), "a");
    EXPECT_EQ(MbbHtml::format("a", 64 | MbbHtml::Bold), "<b>a</b>");
}
