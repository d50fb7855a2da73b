#include <param/KpsSerializer.h>

#include <basic/MbbGlobal.h>

#include <QtCore/QLocale>

TEST(KpsSerializerEncodings, BooleansAreYesAndNo)
{
    EXPECT_EQ(KpsSerializer::fromBool(true), QStringLiteral("yes"));
    EXPECT_EQ(KpsSerializer::fromBool(false), QStringLiteral("no"));
}

TEST(KpsSerializerEncodings, ReadsBooleansCaseSensitivelyAndIntegersToo)
{
    const struct
    {
        const char* text;
        bool fallback, expected;
    } cases[] = {
        {"yes", false, true},   {"True", false, true}, {"no", true, false},    {"False", true, false},
        {"2", false, true},     {"0", true, false},    {"-1", false, true},    {"junk", true, true},
        {"junk", false, false}, {"false", true, true}, {"true", false, false}, {"YES", false, false},
        {"", true, true},       {"", false, false},    {"1.5", false, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(KpsSerializer::toBool(c.text, c.fallback), c.expected) << c.text << ' ' << c.fallback;
}

TEST(KpsSerializerEncodings, UndefinedNumbersAreTheEmptyText)
{
    EXPECT_EQ(KpsSerializer::fromInt(MbbGlobal::I32_FFFF), QString());
    EXPECT_EQ(KpsSerializer::fromInt64(MbbGlobal::I64_FFFF), QString());
    EXPECT_EQ(KpsSerializer::fromDouble(MbbGlobal::D_FFFF, 'g', 10), QString());
}

TEST(KpsSerializerEncodings, NumbersAreDecimalTexts)
{
    EXPECT_EQ(KpsSerializer::fromInt(-42), QStringLiteral("-42"));
    EXPECT_EQ(KpsSerializer::fromInt64(Q_INT64_C(9007199254740993)), QStringLiteral("9007199254740993"));
    EXPECT_EQ(KpsSerializer::fromDouble(0.1, 'g', 10), QStringLiteral("0.1"));
    EXPECT_EQ(KpsSerializer::fromDouble(1250000.0, 'g', 10), QStringLiteral("1250000"));
    EXPECT_EQ(KpsSerializer::fromDouble(1.0 / 3.0, 'g', 10), QStringLiteral("0.3333333333"));
    EXPECT_EQ(KpsSerializer::fromDouble(0.1, 'g', QLocale::FloatingPointShortest), QStringLiteral("0.1"));
    EXPECT_EQ(KpsSerializer::fromDouble(1.0 / 3.0, 'g', QLocale::FloatingPointShortest),
              QStringLiteral("0.3333333333333333"));
}

TEST(KpsSerializerEncodings, ANumberThatCannotBeReadIsTheFallbackOrTheUndefinedMarker)
{
    EXPECT_EQ(KpsSerializer::toInt("", 5, false), MbbGlobal::I32_FFFF);
    EXPECT_EQ(KpsSerializer::toInt("", 5, true), 5);
    EXPECT_EQ(KpsSerializer::toInt("12", 5, false), 12);
    EXPECT_EQ(KpsSerializer::toInt("4294967296", 5, true), 5);
    EXPECT_EQ(KpsSerializer::toInt64("x", 5, false), MbbGlobal::I64_FFFF);
    EXPECT_EQ(KpsSerializer::toInt64("x", 5, true), 5);
    EXPECT_EQ(KpsSerializer::toInt64("-9007199254740993", 5, true), Q_INT64_C(-9007199254740993));
    EXPECT_EQ(KpsSerializer::toDouble("x", 5.0, false), MbbGlobal::D_FFFF);
    EXPECT_EQ(KpsSerializer::toDouble("x", 5.0, true), 5.0);
    EXPECT_EQ(KpsSerializer::toDouble("1.25e+06", 5.0, false), 1250000.0);
    EXPECT_EQ(KpsSerializer::toDouble("nan", 5.0, true), 5.0);
    EXPECT_EQ(KpsSerializer::toDouble("inf", 5.0, true), 5.0);
    EXPECT_EQ(KpsSerializer::toDouble("1e999", 5.0, true), 5.0);
}

TEST(KpsSerializerEncodings, ReadsNumbersInWhicheverWayTheyAreWritten)
{
    struct Row
    {
        const char* text;
        double value;
    };
    for (const Row& row : {Row{"12", 12.0},
                           {"-0.5", -0.5},
                           {"+3", 3.0},
                           {" 3 ", 3.0},
                           {".5", 0.5},
                           {"5.", 5.0},
                           {"007", 7.0},
                           {"1E3", 1000.0},
                           {"1e-2", 0.01},
                           {"0.1", 0.1},
                           {"0.1000000000000000055511151231257827021181583404541015625", 0.1},
                           {"1.7976931348623157e308", 1.7976931348623157e308},
                           {"4.9406564584124654e-324", 5e-324}})
        EXPECT_EQ(KpsSerializer::toDouble(row.text, -1.0, true), row.value) << row.text;
    EXPECT_TRUE(std::signbit(KpsSerializer::toDouble("-0", -1.0, true)));
    for (const char* text : {"", "-", "e5", "1e", "1e+", "1,5", "1 5", "0x10", "1_0", "--1", "1.2.3", "-1e999"})
        EXPECT_EQ(KpsSerializer::toDouble(text, -1.0, true), -1.0) << text;
}
