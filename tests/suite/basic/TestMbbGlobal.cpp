#include <gtest/gtest.h>

#include <basic/MbbGlobal.h>

#include <QtCore/QStringList>

namespace {
const QStringList notNumbers = {"",  " ",   "abc",   "12a",  "a12", "1 2",     "--1",
                                "+", "1,5", "1,000", "0x10", "yes", "\xc2\xb2"};

template <class T>
void expectRead(const QString& text, T expected)
{
    T value = T(77);
    EXPECT_TRUE(MbbGlobal::convertString(text, value)) << text.toStdString();
    EXPECT_EQ(value, expected) << text.toStdString();
}

template <class T>
void expectRefused(const QString& text)
{
    T value = T(77);
    EXPECT_FALSE(MbbGlobal::convertString(text, value)) << text.toStdString();
    EXPECT_EQ(value, T(77)) << text.toStdString();
}
} // namespace

TEST(MbbGlobal, NamesWhatIsMissing)
{
    EXPECT_EQ(MbbGlobal::STR_NA, "N/A");
}

TEST(MbbGlobal, ReadsIntegers)
{
    expectRead<int>("0", 0);
    expectRead<int>("-12", -12);
    expectRead<int>("+7", 7);
    expectRead<int>(" 42 ", 42);
    expectRead<int>("007", 7);
    expectRead<int>("2147483647", 2147483647);
    expectRead<int>("-2147483648", MbbGlobal::I32_FFFF);
}

TEST(MbbGlobal, RefusesWhatIsNoInteger)
{
    for (const QString& text : notNumbers)
        expectRefused<int>(text);
    for (const char* text : {"1.5", "1e3", "2147483648", "-2147483649", "99999999999999999999"})
        expectRefused<int>(text);
}

TEST(MbbGlobal, ReadsLongIntegers)
{
    expectRead<qint64>("2147483648", Q_INT64_C(2147483648));
    expectRead<qint64>("9223372036854775807", Q_INT64_C(9223372036854775807));
    expectRead<qint64>("-9223372036854775808", MbbGlobal::I64_FFFF);
}

TEST(MbbGlobal, RefusesWhatIsNoLongInteger)
{
    for (const QString& text : notNumbers)
        expectRefused<qint64>(text);
    for (const char* text : {"1.5", "1e3", "9223372036854775808", "-9223372036854775809"})
        expectRefused<qint64>(text);
}

TEST(MbbGlobal, ReadsDoubles)
{
    expectRead<double>("0.1", 0.1);
    expectRead<double>("-1.25e+06", -1250000.0);
    expectRead<double>(" 3 ", 3.0);
    expectRead<double>(".5", 0.5);
    expectRead<double>("1.7976931348623157e308", MbbGlobal::D_FFFF);
}

TEST(MbbGlobal, RefusesWhatIsNoDouble)
{
    for (const QString& text : notNumbers)
        expectRefused<double>(text);
    for (const char* text : {"inf", "-inf", "nan", "1e400", "-1e400", "e5", "1e"})
        expectRefused<double>(text);
}
