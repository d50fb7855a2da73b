#include <param/KpsSerializer.h>

#include <basic/MbbGlobal.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace {

constexpr int mostPlainCharacters = 40;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The number, if the text is one of digits with perhaps a minus, a point and an exponent. Nearly all are, and
/// <charconv> reads those to the same number in a fraction of the time.
std::optional<double> plainDouble(const QString& text)
{
    if (text.isEmpty() || text.size() > mostPlainCharacters)
        return std::nullopt;
    std::array<char, mostPlainCharacters> characters;
    std::transform(text.cbegin(), text.cend(), characters.begin(), [](QChar c) { return c.toLatin1(); });
    const char* begin = characters.data();
    const char* end = begin + text.size();
    const char* first = *begin == '-' ? begin + 1 : begin;
    if (first == end || !isDigit(*first) || !isDigit(end[-1]))
        return std::nullopt;
    double value = 0.0;
    const auto [stop, error] = std::from_chars(begin, end, value);
    return stop == end && error == std::errc() ? std::optional(value) : std::nullopt;
}

template <class Number>
Number toNumber(const QString& text, Number fallback, bool useFallback, Number undefined)
{
    Number value;
    if (MbbGlobal::convertString(text, value))
        return value;
    return useFallback ? fallback : undefined;
}

} // namespace

QString KpsSerializer::fromBool(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

QString KpsSerializer::fromInt(int value)
{
    return value == MbbGlobal::I32_FFFF ? QString() : QString::number(value);
}

QString KpsSerializer::fromInt64(qint64 value)
{
    return value == MbbGlobal::I64_FFFF ? QString() : QString::number(value);
}

QString KpsSerializer::fromDouble(double value, char format, int precision)
{
    return value == MbbGlobal::D_FFFF ? QString() : QString::number(value, format, precision);
}

bool KpsSerializer::toBool(const QString& text, bool fallback)
{
    if (text == QLatin1String("yes") || text == QLatin1String("True"))
        return true;
    if (text == QLatin1String("no") || text == QLatin1String("False"))
        return false;
    bool ok = false;
    const int number = text.toInt(&ok, 10);
    return ok ? number != 0 : fallback;
}

int KpsSerializer::toInt(const QString& text, int fallback, bool useFallback)
{
    return toNumber(text, fallback, useFallback, MbbGlobal::I32_FFFF);
}

qint64 KpsSerializer::toInt64(const QString& text, qint64 fallback, bool useFallback)
{
    return toNumber(text, fallback, useFallback, MbbGlobal::I64_FFFF);
}

double KpsSerializer::toDouble(const QString& text, double fallback, bool useFallback)
{
    if (const auto value = plainDouble(text))
        return *value;
    return toNumber(text, fallback, useFallback, MbbGlobal::D_FFFF);
}
