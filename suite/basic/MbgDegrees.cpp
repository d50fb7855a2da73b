#include <basic/MbgDegrees.h>

double MbgDegrees::sin(double degrees)
{
    return sin(degrees, 0);
}

double MbgDegrees::sin(double degrees, int quarters)
{
    int quotient = 0;
    const double rest = std::remquo(degrees, 90.0, &quotient) * Radian;
    const unsigned quadrant = unsigned(quotient + quarters) % 4;
    const double value = quadrant % 2 == 0 ? std::sin(rest) : std::cos(rest);
    return (quadrant < 2 ? value : -value) + 0.0;
}

double MbgDegrees::atan2(double y, double x)
{
    return centred(rounded(std::atan2(y + 0.0, x + 0.0) / Radian));
}

double MbgDegrees::rounded(double degrees)
{
    constexpr double steps = 1e12;
    constexpr double coarse = 9007; // below it a count of steps is exact: the quotient rounds only once
    if (std::abs(degrees) >= coarse)
        return degrees;
    return std::round(degrees * steps) / steps + 0.0;
}

double MbgDegrees::positive(double angle, double circle)
{
    double rest = std::fmod(angle, circle);
    if (rest < 0)
        rest += circle;
    return rest >= circle ? 0.0 : rest + 0.0;
}

double MbgDegrees::centred(double angle, double circle)
{
    const double rest = std::remainder(angle, circle);
    return (rest <= -circle / 2 ? circle / 2 : rest) + 0.0;
}
