#include <gtest/gtest.h>

#include <basic/MbgDegrees.h>

#include <cmath>
#include <limits>

namespace {
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
} // namespace

TEST(MbgDegrees, IsExactAtRightAnglesWhateverTheTurns)
{
    for (const double turns : {0.0, 360.0, -360.0, 3.6e8, -3.6e8, 3.6e14}) {
        const double sines[] = {0, 1, 0, -1};
        for (int quarter = 0; quarter < 4; ++quarter) {
            EXPECT_EQ(MbgDegrees::sin(turns + 90 * quarter), sines[quarter]) << turns;
            EXPECT_EQ(MbgDegrees::cos(turns + 90 * quarter), sines[(quarter + 1) % 4]) << turns;
        }
    }
}

TEST(MbgDegrees, GivesTheKnownSinesAndCosines)
{
    const struct
    {
        double degrees, sine, cosine;
    } cases[] = {
        {30, 0.5, std::sqrt(3.0) / 2},
        {45, std::sqrt(0.5), std::sqrt(0.5)},
        {60, std::sqrt(3.0) / 2, 0.5},
        {120, std::sqrt(3.0) / 2, -0.5},
        {135, std::sqrt(0.5), -std::sqrt(0.5)},
        {210, -0.5, -std::sqrt(3.0) / 2},
        {300, -std::sqrt(3.0) / 2, 0.5},
        {-30, -0.5, std::sqrt(3.0) / 2},
        {-135, -std::sqrt(0.5), -std::sqrt(0.5)},
        {390, 0.5, std::sqrt(3.0) / 2},
    };
    for (const auto& [degrees, sine, cosine] : cases) {
        EXPECT_NEAR(MbgDegrees::sin(degrees), sine, 1e-15) << degrees;
        EXPECT_NEAR(MbgDegrees::cos(degrees), cosine, 1e-15) << degrees;
    }
}

TEST(MbgDegrees, HasNoNegativeZero)
{
    for (const double degrees : {-0.0, 0.0, 180.0, -180.0, 360.0, -360.0}) {
        EXPECT_FALSE(std::signbit(MbgDegrees::sin(degrees))) << degrees;
        EXPECT_FALSE(std::signbit(MbgDegrees::cos(degrees + 90))) << degrees;
        EXPECT_FALSE(std::signbit(MbgDegrees::positive(degrees, 180))) << degrees;
        EXPECT_FALSE(std::signbit(MbgDegrees::centred(degrees, 180))) << degrees;
    }
    EXPECT_FALSE(std::signbit(MbgDegrees::atan2(-0.0, 1)));
    EXPECT_FALSE(std::signbit(MbgDegrees::atan2(-1e-30, 1)));
    EXPECT_FALSE(std::signbit(MbgDegrees::rounded(-1e-30)));
}

TEST(MbgDegrees, GivesTheAngleOfAPoint)
{
    const struct
    {
        double y, x, degrees;
    } cases[] = {
        {0, 0, 0},
        {-0.0, -0.0, 0},
        {0, 2, 0},
        {3, 0, 90},
        {0, -1, 180},
        {-0.0, -1, 180},
        {-2, 0, -90},
        {1, 1, 45},
        {1, -1, 135},
        {-1, -1, -135},
        {1, std::sqrt(3.0), 30},
        {-1e-30, -1, 180},
        {5e-324, 5e-324, 45},
        {1e308, 1e308, 45},
    };
    for (const auto& [y, x, degrees] : cases)
        EXPECT_EQ(MbgDegrees::atan2(y, x), degrees) << y << ' ' << x;
}

TEST(MbgDegrees, RoundsToTwelveDecimals)
{
    EXPECT_EQ(MbgDegrees::rounded(29.999999999999996), 30);
    EXPECT_EQ(MbgDegrees::rounded(1.0000000000004), 1);
    EXPECT_EQ(MbgDegrees::rounded(-1.0000000000006), -1.000000000001);
    EXPECT_EQ(MbgDegrees::rounded(359.123456789012), 359.123456789012);
    EXPECT_EQ(MbgDegrees::rounded(4e-13), 0);
}

TEST(MbgDegrees, LeavesHugeAnglesAsTheyAre)
{
    for (const double degrees : {9007.123456789, -123456789.123, 1e300, -std::numeric_limits<double>::max()})
        EXPECT_EQ(MbgDegrees::rounded(degrees), degrees);
}

TEST(MbgDegrees, BringsAnglesIntoOneCircle)
{
    const struct
    {
        double angle, circle, positive, centred;
    } cases[] = {
        {0, 360, 0, 0},       {90, 360, 90, 90},    {180, 360, 180, 180}, {-180, 360, 180, 180}, {190, 360, 190, -170},
        {360, 360, 0, 0},     {540, 360, 180, 180}, {-90, 360, 270, -90}, {-725, 360, 355, -5},  {3.6e17, 360, 0, 0},
        {170, 180, 170, -10}, {90, 180, 90, 90},    {-90, 180, 90, 90},   {-30, 180, 150, -30},
    };
    for (const auto& [angle, circle, positive, centred] : cases) {
        EXPECT_EQ(MbgDegrees::positive(angle, circle), positive) << angle;
        EXPECT_EQ(MbgDegrees::centred(angle, circle), centred) << angle;
    }
    EXPECT_EQ(MbgDegrees::positive(-1e-20), 0);
}

TEST(MbgDegrees, PassesOnWhatIsNoNumber)
{
    EXPECT_TRUE(std::isnan(MbgDegrees::sin(NaN)));
    EXPECT_TRUE(std::isnan(MbgDegrees::cos(Infinity)));
    EXPECT_TRUE(std::isnan(MbgDegrees::atan2(NaN, 1)));
    EXPECT_TRUE(std::isnan(MbgDegrees::rounded(NaN)));
    for (const double angle : {NaN, Infinity, -Infinity}) {
        EXPECT_TRUE(std::isnan(MbgDegrees::positive(angle)));
        EXPECT_TRUE(std::isnan(MbgDegrees::centred(angle)));
    }
}
