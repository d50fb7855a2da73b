#include <gtest/gtest.h>

#include <basic/MbbGlobal.h>
#include <basic/MbbStringFormat.h>
#include <basic/MbbUserStringFormats.h>
#include <basic/MbuUnitService.h>

#include <QtCore/QLocale>

#include <limits>

namespace {
MbbStringFormat decimal(int precision)
{
    return MbbStringFormat(MbbEFormat::DECIMAL, precision, QString());
}

MbbStringFormat inUnit(const char* key)
{
    MbbStringFormat format;
    format.setDisplayUnit(MbuUnitService::getUnit(key));
    return format;
}

/// The user's formats are those of the process; every test begins and ends with the defaults.
class MbbUserStringFormatsTest : public testing::Test
{
protected:
    MbbUserStringFormatsTest() { MbbUserStringFormats::reset(); }
    ~MbbUserStringFormatsTest() override { MbbUserStringFormats::reset(); }
};
} // namespace

TEST(MbbStringFormat, ShowsPlainNumbersInGeneralNotationByDefault)
{
    const MbbStringFormat format;
    EXPECT_EQ(format.getUnitClass(), MbuEUnitClass::NONE);
    EXPECT_EQ(format.getNotation(), MbbEFormat::GENERAL);
    EXPECT_EQ(format.getPrecision(), 10);
    EXPECT_EQ(format.getSymbol(), "");
    EXPECT_EQ(format.getUndefinedText(), "N/A");
    EXPECT_EQ(format.valueToString(0.1), "0.1");
    EXPECT_EQ(format.valueToString(1234567.25), "1234567.25");
    EXPECT_EQ(format.valueToString(1.25e12), "1.25e+12");
}

TEST(MbbStringFormat, ShowsAUnitClassInItsStorageUnit)
{
    const MbbStringFormat format(MbuEUnitClass::LENGTH);
    EXPECT_EQ(format.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_EQ(format.getDisplayUnit().getKey(), "m");
    EXPECT_EQ(format.valueToString(2.5), "2.5 m");
}

TEST(MbbStringFormat, WritesEachNotation)
{
    const struct
    {
        const MbbEFormat& notation;
        int precision;
        double value;
        const char* expected;
    } rows[] = {
        {MbbEFormat::DECIMAL, 2, 1250.0, "1250.00"},           {MbbEFormat::DECIMAL, 0, 2.6, "3"},
        {MbbEFormat::DECIMAL, 3, -0.12345, "-0.123"},          {MbbEFormat::DECIMAL, 1, 1e15, "1000000000000000.0"},
        {MbbEFormat::SCIENTIFIC, 2, 1250.0, "1.25e+03"},       {MbbEFormat::SCIENTIFIC, 0, -5000.0, "-5e+03"},
        {MbbEFormat::GENERAL, 3, 1250.0, "1.25e+03"},          {MbbEFormat::GENERAL, 6, 1250.0, "1250"},
        {MbbEFormat::GENERAL, 17, 0.1, "0.10000000000000001"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MbbStringFormat(row.notation, row.precision, QString()).valueToString(row.value), row.expected);
}

TEST(MbbStringFormat, KeepsThePrecisionInItsRange)
{
    MbbStringFormat format;
    format.setPrecision(-3);
    EXPECT_EQ(format.getPrecision(), 0);
    format.setPrecision(1000);
    EXPECT_EQ(format.getPrecision(), 17);
    EXPECT_EQ(decimal(99).getPrecision(), 17);
}

TEST(MbbStringFormat, WritesNoSignForWhatRoundsToZero)
{
    EXPECT_EQ(decimal(2).valueToString(-0.001), "0.00");
    EXPECT_EQ(decimal(0).valueToString(-0.4), "0");
    EXPECT_EQ(MbbStringFormat().valueToString(-0.0), "0");
    EXPECT_EQ(MbbStringFormat(MbbEFormat::SCIENTIFIC, 1, "").valueToString(-0.0), "0.0e+00");
    EXPECT_EQ(decimal(2).valueToString(-0.01), "-0.01");
    EXPECT_EQ(MbbStringFormat(MbbEFormat::SCIENTIFIC, 1, "").valueToString(-1e-5), "-1.0e-05");
}

TEST(MbbStringFormat, ConvertsFromTheStorageUnit)
{
    EXPECT_EQ(inUnit("ft").valueToString(30.48), "100 ft");
    EXPECT_EQ(inUnit("km").valueToString(2500.0), "2.5 km");
    EXPECT_EQ(inUnit("degC").valueToString(273.15), QString::fromUtf8("0 °C"));
    EXPECT_EQ(inUnit("fraction").valueToString(25.0), "0.25");
}

TEST(MbbStringFormat, ConvertsAndMarksThePower)
{
    EXPECT_EQ(inUnit("km").valueToString(2.5e6, 2), QString::fromUtf8("2.5 km²"));
    EXPECT_EQ(inUnit("cm").valueToString(3e-6, 3), QString::fromUtf8("3 cm³"));
    EXPECT_EQ(inUnit("km").valueToString(0.002, -1), QString::fromUtf8("2 km⁻¹"));
    EXPECT_EQ(inUnit("km").valueToString(7.0, 0), "7");
    EXPECT_EQ(inUnit("km").getDisplayUnitSymbol(2), QString::fromUtf8("km²"));
}

TEST(MbbStringFormat, WritesSignsOfAnglesAtOnce)
{
    EXPECT_EQ(MbbStringFormat(MbuEUnitClass::ANGLE).valueToString(45.0), QString::fromUtf8("45°"));
    EXPECT_EQ(inUnit("gon").valueToString(45.0), "50 gon");
    EXPECT_EQ(inUnit("arcmin").valueToString(0.5), QString::fromUtf8("30′"));
}

TEST(MbbStringFormat, LeavesTheSymbolOutOnDemand)
{
    EXPECT_EQ(inUnit("ft").valueToString(30.48, 1, 0), "100");
    EXPECT_EQ(inUnit("ft").valueToString(30.48, 1, 0, 0, true), "100");
}

TEST(MbbStringFormat, FillsUpToAWidth)
{
    EXPECT_EQ(inUnit("ft").valueToString(30.48, 1, 1, 8), "  100 ft");
    EXPECT_EQ(inUnit("ft").valueToString(30.48, 1, 1, 3), "100 ft");
    EXPECT_EQ(inUnit("ft").valueToString(30.48, 1, 0, -5), "100");
    EXPECT_EQ(MbbStringFormat().valueToString(MbbGlobal::D_FFFF, 1, 1, 5, true), "  N/A");
    EXPECT_EQ(MbbStringFormat().valueToString(MbbGlobal::D_FFFF, 1, 1, 2, false), "  ");
}

TEST(MbbStringFormat, ShowsTheUndefinedTextWhereItIsEnabled)
{
    MbbStringFormat format(MbuEUnitClass::LENGTH);
    EXPECT_EQ(format.valueToString(MbbGlobal::D_FFFF, 1, 1, 0, true), "N/A");
    EXPECT_EQ(format.valueToString(MbbGlobal::D_FFFF, 1, 1, 0, false), "");
    format.setUndefinedText("none yet");
    EXPECT_EQ(format.valueToString(MbbGlobal::D_FFFF, 1, 1, 0, true), "none yet");
    format.setUndefinedText("");
    EXPECT_EQ(format.valueToString(MbbGlobal::D_FFFF, 1, 1, 0, true), "");
    EXPECT_EQ(format.valueToString(1.0, 1, 1, 0, false), "1 m");
}

TEST(MbbStringFormat, PrefersTheCustomSymbolEvenAnEmptyOne)
{
    MbbStringFormat format(MbuEUnitClass::LENGTH);
    format.setCustomSymbol("metres");
    EXPECT_TRUE(format.hasCustomSymbol());
    EXPECT_EQ(format.getSymbol(), "metres");
    EXPECT_EQ(format.valueToString(2.0, 2), QString::fromUtf8("2 metres²"));
    format.setCustomSymbol("");
    EXPECT_EQ(format.valueToString(2.0), "2");
    format.unsetCustomSymbol();
    EXPECT_FALSE(format.hasCustomSymbol());
    EXPECT_EQ(format.valueToString(2.0), "2 m");
}

TEST(MbbStringFormat, FollowsAPlainNumberByItsSymbol)
{
    EXPECT_EQ(MbbStringFormat(MbbEFormat::DECIMAL, 2, "pts").valueToString(3.0), "3.00 pts");
    EXPECT_EQ(decimal(2).valueToString(3.0), "3.00");
}

TEST(MbbStringFormat, LeavesValuesOfAnUnknownUnitAsTheyAre)
{
    MbbStringFormat format;
    format.setDisplayUnit(MbuUnit(MbuEUnitClass::LENGTH, "cubit", "cbt", "Cubit"));
    EXPECT_EQ(format.valueToString(3.0), "3 cbt");
}

TEST(MbbStringFormat, WritesWhatIsNotFinite)
{
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(inUnit("ft").valueToString(infinite), "inf ft");
    EXPECT_EQ(inUnit("ft").valueToString(-infinite), "-inf ft");
    EXPECT_EQ(MbbStringFormat().valueToString(std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(MbbStringFormat, DoesNotFollowTheLocaleOfTheProcess)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    const QString text = decimal(2).valueToString(1234567.5);
    QLocale::setDefault(before);
    EXPECT_EQ(text, "1234567.50");
}

TEST(MbbStringFormat, IsEqualByEachOfItsFields)
{
    const MbbStringFormat format(MbuEUnitClass::LENGTH);
    EXPECT_TRUE(format._isEqual(MbbStringFormat(MbuEUnitClass::LENGTH)));
    EXPECT_EQ(format, MbbStringFormat(MbuEUnitClass::LENGTH));
    EXPECT_NE(format, MbbStringFormat(MbuEUnitClass::MASS));

    MbbStringFormat other = format;
    other.setDisplayUnit(MbuUnitService::getUnit("ft"));
    EXPECT_NE(format, other);
    other = format;
    other.setNotation(MbbEFormat::DECIMAL);
    EXPECT_NE(format, other);
    other = format;
    other.setPrecision(3);
    EXPECT_NE(format, other);
    other = format;
    other.setUndefinedText("?");
    EXPECT_NE(format, other);
    other = format;
    other.setCustomSymbol("");
    EXPECT_FALSE(format._isEqual(other));
}

TEST_F(MbbUserStringFormatsTest, GivesTheDefaultFormatOfEveryClass)
{
    for (const MbuEUnitClass* unitClass : MbuEUnitClass::items()) {
        EXPECT_EQ(MbbUserStringFormats::getStringFormat(*unitClass), MbbStringFormat(*unitClass));
        EXPECT_EQ(MbbUserStringFormats::getDisplayUnit(*unitClass), MbuUnitService::getStorageUnit(*unitClass));
        EXPECT_EQ(MbbUserStringFormats::getDisplayTransfo(*unitClass).transform(2.5), 2.5);
    }
}

TEST_F(MbbUserStringFormatsTest, TakesADisplayUnitForItsClass)
{
    MbbUserStringFormats::setDisplayUnit(MbuUnitService::getUnit("ft"));
    EXPECT_EQ(MbbUserStringFormats::getDisplayUnit(MbuEUnitClass::LENGTH).getKey(), "ft");
    EXPECT_DOUBLE_EQ(MbbUserStringFormats::getDisplayTransfo(MbuEUnitClass::LENGTH).transform(3.048), 10.0);
    EXPECT_EQ(MbbUserStringFormats::getStringFormat(MbuEUnitClass::LENGTH).valueToString(3.048), "10 ft");
    EXPECT_EQ(MbbUserStringFormats::getDisplayUnit(MbuEUnitClass::MASS).getKey(), "kg");
}

TEST_F(MbbUserStringFormatsTest, TakesAFormatForItsClass)
{
    MbbStringFormat format(MbuEUnitClass::ANGLE);
    format.setNotation(MbbEFormat::DECIMAL);
    format.setPrecision(1);
    MbbUserStringFormats::setStringFormat(format);
    EXPECT_EQ(MbbUserStringFormats::getStringFormat(MbuEUnitClass::ANGLE), format);
    EXPECT_EQ(MbbUserStringFormats::getStringFormat(MbuEUnitClass::NONE), MbbStringFormat());
}

TEST_F(MbbUserStringFormatsTest, KeepsTheRestOfTheFormatUnderANewDisplayUnit)
{
    MbbStringFormat format(MbuEUnitClass::LENGTH);
    format.setPrecision(3);
    MbbUserStringFormats::setStringFormat(format);
    MbbUserStringFormats::setDisplayUnit(MbuUnitService::getUnit("km"));
    EXPECT_EQ(MbbUserStringFormats::getStringFormat(MbuEUnitClass::LENGTH).getPrecision(), 3);
    EXPECT_EQ(MbbUserStringFormats::getDisplayUnit(MbuEUnitClass::LENGTH).getKey(), "km");
}

TEST_F(MbbUserStringFormatsTest, ReturnsToTheDefaults)
{
    MbbUserStringFormats::setDisplayUnit(MbuUnitService::getUnit("ft"));
    MbbUserStringFormats::reset();
    EXPECT_EQ(MbbUserStringFormats::getStringFormat(MbuEUnitClass::LENGTH), MbbStringFormat(MbuEUnitClass::LENGTH));
}
