#include <basic/MbbGlobal.h>
#include <basic/MbbStringFormat.h>
#include <basic/MbuUnitService.h>

#include <algorithm>

namespace {
char letter(const MbbEFormat& notation)
{
    if (notation == MbbEFormat::DECIMAL)
        return 'f';
    return notation == MbbEFormat::SCIENTIFIC ? 'e' : 'g';
}

/// Whether a text such as "-0.00" or "-0e+00" has no digit but zeros in front of its exponent.
bool isNegativeZero(const QString& text)
{
    if (!text.startsWith(QLatin1Char('-')))
        return false;
    const int end = text.indexOf(QLatin1Char('e'));
    const QString mantissa = text.mid(1, end < 0 ? -1 : end - 1);
    return std::all_of(mantissa.begin(), mantissa.end(),
                       [](QChar c) { return c == QLatin1Char('0') || c == QLatin1Char('.'); });
}

bool standsAtOnce(const QString& symbol)
{
    return symbol.size() == 1 && QStringLiteral("°′″").contains(symbol);
}
} // namespace

MbbStringFormat::MbbStringFormat() : _undefinedText(MbbGlobal::STR_NA) {}

MbbStringFormat::MbbStringFormat(const MbuEUnitClass& unitClass)
    : _unit(MbuUnitService::getStorageUnit(unitClass)),
      _undefinedText(MbbGlobal::STR_NA)
{}

MbbStringFormat::MbbStringFormat(const MbbEFormat& notation, int precision, const QString& symbol)
    : _notation(notation),
      _undefinedText(MbbGlobal::STR_NA),
      _symbol(symbol)
{
    setPrecision(precision);
}

void MbbStringFormat::setPrecision(int precision)
{
    _precision = std::clamp(precision, 0, MaximumPrecision);
}

QString MbbStringFormat::getDisplayUnitSymbol(int powerValue) const
{
    return MbuUnitService::poweredUnitSymbol(getSymbol(), powerValue);
}

QString MbbStringFormat::valueToString(double value, int powerValue, int showSymbol, int minimumWidth,
                                       bool undefineEnabled) const
{
    if (value == MbbGlobal::D_FFFF)
        return (undefineEnabled ? _undefinedText : QString()).rightJustified(minimumWidth);

    QString text = _numberText(MbuUnitService::getConversionFromStorageUnit(_unit, powerValue).transform(value));
    const QString symbol = showSymbol ? getDisplayUnitSymbol(powerValue) : QString();
    if (!symbol.isEmpty())
        text += standsAtOnce(symbol) ? symbol : QLatin1Char(' ') + symbol;
    return text.rightJustified(minimumWidth);
}

bool MbbStringFormat::_isEqual(const MbbStringFormat& other) const
{
    return _unit == other._unit && _notation == other._notation && _precision == other._precision &&
           _undefinedText == other._undefinedText && _symbol == other._symbol;
}

QString MbbStringFormat::_numberText(double value) const
{
    const QString text = QString::number(value, letter(_notation), _precision);
    return isNegativeZero(text) ? text.mid(1) : text;
}
