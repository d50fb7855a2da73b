#include <gtest/gtest.h>

#include <basic/MbbUserStringFormats.h>
#include <basic/MbgAngle.h>
#include <basic/MbuUnitService.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace {
MbgAngle degrees(double value)
{
    return {value, MbgEAngleUnit::DEGREE};
}

MbgAngle radians(double value)
{
    return {value, MbgEAngleUnit::RADIAN};
}

MbgAngle grades(double value)
{
    return {value, MbgEAngleUnit::GRADE};
}

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
} // namespace

TEST(MbgAngle, IsZeroDegreesByDefault)
{
    EXPECT_EQ(MbgAngle().getDegreeValue(), 0);
    EXPECT_EQ(MbgAngle().getUnit(), MbgEAngleUnit::DEGREE);
    EXPECT_TRUE(MbgAngle().isDefined());
}

TEST(MbgAngle, ConvertsBetweenItsUnits)
{
    EXPECT_EQ(degrees(180).getRadianValue(), std::numbers::pi);
    EXPECT_EQ(degrees(90).getValue(MbgEAngleUnit::GRADE), 100);
    EXPECT_EQ(radians(std::numbers::pi).getDegreeValue(), 180);
    EXPECT_EQ(radians(std::numbers::pi / 2).getValue(MbgEAngleUnit::GRADE), 100);
    EXPECT_EQ(grades(400).getDegreeValue(), 360);
    EXPECT_EQ(grades(200).getRadianValue(), std::numbers::pi);
    EXPECT_EQ(degrees(-45).getRadianValue(), -std::numbers::pi / 4);
}

TEST(MbgAngle, GivesTheNumberBackBitForBitInItsOwnUnit)
{
    for (const double value : {0.1, 1.0 / 3, 123456.789, -1e-300, 5e-324, 1e300}) {
        EXPECT_EQ(degrees(value).getDegreeValue(), value);
        EXPECT_EQ(radians(value).getRadianValue(), value);
        EXPECT_EQ(grades(value).getValue(MbgEAngleUnit::GRADE), value);
    }
}

TEST(MbgAngle, FindsDegreesWithTwelveDecimalsAgainInRadiansAndGrades)
{
    for (int i = -72000; i <= 72000; ++i) {
        const double value = i / 200.0;
        ASSERT_EQ(radians(degrees(value).getRadianValue()).getDegreeValue(), value);
        ASSERT_EQ(grades(degrees(value).getValue(MbgEAngleUnit::GRADE)).getDegreeValue(), value);
    }
    EXPECT_EQ(radians(degrees(0.123456789012).getRadianValue()).getDegreeValue(), 0.123456789012);
}

TEST(MbgAngle, KeepsRadiansThroughDegreesThatCameFromThem)
{
    std::mt19937_64 random(4);
    std::uniform_real_distribution<double> values(-400, 400);
    for (int i = 0; i < 100000; ++i) {
        const double radian = degrees(values(random)).getRadianValue();
        ASSERT_EQ(degrees(radians(radian).getDegreeValue()).getRadianValue(), radian);
    }
}

TEST(MbgAngle, KeepsTheUndefinedMarkerInEveryUnit)
{
    for (const MbgEAngleUnit* unit : MbgEAngleUnit::items()) {
        const MbgAngle angle(MbbGlobal::D_FFFF, *unit);
        EXPECT_FALSE(angle.isDefined());
        for (const MbgEAngleUnit* other : MbgEAngleUnit::items())
            EXPECT_EQ(angle.getValue(*other), MbbGlobal::D_FFFF);
    }
}

TEST(MbgAngle, IsUndefinedWithoutAFiniteNumberOfDegrees)
{
    EXPECT_FALSE(degrees(NaN).isDefined());
    EXPECT_FALSE(degrees(Infinity).isDefined());
    EXPECT_FALSE(radians(-Infinity).isDefined());
    EXPECT_FALSE(radians(1.7e308).isDefined());
    EXPECT_TRUE(degrees(1.7e308).isDefined());
}

TEST(MbgAngle, HoldsTheMarkerForWhatIsNotFinite)
{
    for (const MbgAngle& angle : {degrees(NaN), degrees(-Infinity), radians(NaN), radians(1.7e308), grades(Infinity)}) {
        EXPECT_EQ(angle.getDegreeValue(), MbbGlobal::D_FFFF);
        EXPECT_EQ(angle.getRadianValue(), MbbGlobal::D_FFFF);
        EXPECT_EQ(angle, degrees(NaN));
    }
}

TEST(MbgAngle, ComparesByItsDegrees)
{
    EXPECT_EQ(degrees(180), radians(std::numbers::pi));
    EXPECT_EQ(degrees(90), grades(100));
    EXPECT_NE(degrees(0), degrees(360));
    EXPECT_NE(degrees(1), MbgAngle(MbbGlobal::D_FFFF, MbgEAngleUnit::DEGREE));
    EXPECT_EQ(radians(MbbGlobal::D_FFFF), MbgAngle(MbbGlobal::D_FFFF, MbgEAngleUnit::DEGREE));
    EXPECT_LT(degrees(50), grades(100));
    EXPECT_LE(degrees(90), grades(100));
    EXPECT_GT(radians(3), degrees(90));
    EXPECT_GE(degrees(90), grades(100));
}

TEST(MbgAngle, ShowsItselfInTheUsersFormat)
{
    MbbUserStringFormats::reset();
    EXPECT_EQ(degrees(30).toString(), "30°");
    EXPECT_EQ(radians(degrees(30).getRadianValue()).toString(), "30°");
    MbbStringFormat format(MbuEUnitClass::ANGLE);
    format.setNotation(MbbEFormat::DECIMAL);
    format.setPrecision(2);
    MbbUserStringFormats::setStringFormat(format);
    EXPECT_EQ(degrees(30).toString(), "30.00°");
    MbbUserStringFormats::reset();
}

TEST(MbgAngle, ShowsThatItIsMissing)
{
    EXPECT_EQ(MbgAngle(MbbGlobal::D_FFFF, MbgEAngleUnit::DEGREE).toString(), "N/A");
    EXPECT_EQ(degrees(NaN).toString(), "N/A");
    EXPECT_EQ(radians(Infinity).toString(), "N/A");
}
