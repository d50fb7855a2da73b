#include <util/KufSampleFilterRuleNumeric.h>

#include <QtCore/QObject>

#include <basic/MbbGlobal.h>
#include <util/KufVariantMapReader.h>

#include <algorithm>
#include <cmath>

using Mode = KufSampleFilterRuleNumeric::Mode;
using CompareOperator = KufSampleFilterRuleNumeric::CompareOperator;
using IntervalOperator = KufSampleFilterRuleNumeric::IntervalOperator;

const Mode Mode::IS_DEFINED(QObject::tr("Is defined"), 0, "IS_DEFINED");
const Mode Mode::COMPARE(QObject::tr("Compares"), 1, "COMPARE");
const Mode Mode::RANGE(QObject::tr("Is between"), 2, "RANGE");

QList<const Mode*> Mode::items()
{
    return {&IS_DEFINED, &COMPARE, &RANGE};
}

const CompareOperator CompareOperator::LESS_THAN(QStringLiteral("<"), 0, "LESS_THAN");
const CompareOperator CompareOperator::LESS_OR_EQUAL_TO(QStringLiteral("<="), 1, "LESS_OR_EQUAL_TO");
const CompareOperator CompareOperator::GREATER_THAN(QStringLiteral(">"), 2, "GREATER_THAN");
const CompareOperator CompareOperator::GREATER_OR_EQUAL_TO(QStringLiteral(">="), 3, "GREATER_OR_EQUAL_TO");
const CompareOperator CompareOperator::EQUAL(QStringLiteral("="), 4, "EQUAL");
const CompareOperator CompareOperator::NOT_EQUAL(QStringLiteral("!="), 5, "NOT_EQUAL");

QList<const CompareOperator*> CompareOperator::items()
{
    return {&LESS_THAN, &LESS_OR_EQUAL_TO, &GREATER_THAN, &GREATER_OR_EQUAL_TO, &EQUAL, &NOT_EQUAL};
}

const IntervalOperator IntervalOperator::ITV_LESS_THAN(QStringLiteral("<"), 0, "ITV_LESS_THAN");
const IntervalOperator IntervalOperator::ITV_LESS_OR_EQUAL_TO(QStringLiteral("<="), 1, "ITV_LESS_OR_EQUAL_TO");

QList<const IntervalOperator*> IntervalOperator::items()
{
    return {&ITV_LESS_THAN, &ITV_LESS_OR_EQUAL_TO};
}

namespace {

bool isDefined(double value)
{
    return std::isfinite(value) && value != MbbGlobal::D_FFFF;
}

QString numberText(double value, const MbdVariableDetails& details, int showSymbol)
{
    const MbuEUnitClass& unitClass = details.getUnitClass();
    const bool byDefault = details.isUnitDefaultFormatUsed() && unitClass != MbuEUnitClass::NONE;
    const MbdNumericDetails numbers = byDefault ? MbdNumericDetails(unitClass) : details.getNumericDetails();
    return numbers.getStringFormat().valueToString(value, details.getPowerValue(), showSymbol);
}

} // namespace

void KufSampleFilterRuleNumeric::setIntervalOperators(const IntervalOperator& lower, const IntervalOperator& upper)
{
    _fields.lowerOperator = lower;
    _fields.upperOperator = upper;
}

void KufSampleFilterRuleNumeric::setIntervalValues(double lower, double upper)
{
    _fields.lower = lower;
    _fields.upper = upper;
}

bool KufSampleFilterRuleNumeric::accepts(double value) const
{
    if (!isDefined(value))
        return false;
    if (_fields.mode == Mode::COMPARE)
        return _compares(value);
    return _fields.mode == Mode::IS_DEFINED || _isInRange(value);
}

double KufSampleFilterRuleNumeric::_tolerance() const
{
    return isDefined(_fields.compareTolerance) ? std::max(_fields.compareTolerance, 0.0) : 0.0;
}

bool KufSampleFilterRuleNumeric::_compares(double value) const
{
    const double other = _fields.compareValue;
    if (!isDefined(other))
        return false;
    const CompareOperator& by = _fields.compareOperator;
    if (by == CompareOperator::LESS_THAN)
        return value < other;
    if (by == CompareOperator::LESS_OR_EQUAL_TO)
        return value <= other;
    if (by == CompareOperator::GREATER_THAN)
        return value > other;
    if (by == CompareOperator::GREATER_OR_EQUAL_TO)
        return value >= other;
    return (std::abs(value - other) <= _tolerance()) == (by == CompareOperator::EQUAL);
}

bool KufSampleFilterRuleNumeric::_isInRange(double value) const
{
    const auto fits = [](double less, double more, const IntervalOperator& by) {
        return by == IntervalOperator::ITV_LESS_THAN ? less < more : less <= more;
    };
    return (!isDefined(_fields.lower) || fits(_fields.lower, value, _fields.lowerOperator)) &&
           (!isDefined(_fields.upper) || fits(value, _fields.upper, _fields.upperOperator));
}

KufSampleFilterRuleNumeric* KufSampleFilterRuleNumeric::duplicate() const
{
    return new KufSampleFilterRuleNumeric(*this);
}

KufFilterRuleType KufSampleFilterRuleNumeric::getType() const
{
    return KufFilterRuleType::NUMERIC;
}

bool KufSampleFilterRuleNumeric::_hasTolerance() const
{
    return _fields.compareOperator >= CompareOperator::EQUAL && _tolerance() > 0.0;
}

QString KufSampleFilterRuleNumeric::_comparison(const MbdVariableDetails& details, int showSymbol) const
{
    QString text =
        _fields.compareOperator.getLabel() + QLatin1Char(' ') + numberText(_fields.compareValue, details, showSymbol);
    if (_hasTolerance())
        text += QLatin1String(" +/- ") + numberText(_fields.compareTolerance, details, showSymbol);
    return text;
}

QString KufSampleFilterRuleNumeric::getDescription(const MbdVariableDetails& details) const
{
    if (_fields.mode == Mode::IS_DEFINED)
        return QObject::tr("V is defined");
    if (_fields.mode == Mode::COMPARE)
        return QLatin1String("V ") + _comparison(details, 1);
    return QStringLiteral("%1 %2 V %3 %4")
        .arg(numberText(_fields.lower, details, 1), _fields.lowerOperator.getLabel(), _fields.upperOperator.getLabel(),
             numberText(_fields.upper, details, 1));
}

QString KufSampleFilterRuleNumeric::getShortDescription(const MbdVariableDetails& details, bool withVariable) const
{
    if (_fields.mode == Mode::IS_DEFINED)
        return withVariable ? QObject::tr("V defined") : QObject::tr("defined");
    if (_fields.mode == Mode::COMPARE)
        return QLatin1String(withVariable ? "V " : "") + _comparison(details, 0);
    const bool withLower = _fields.lowerOperator == IntervalOperator::ITV_LESS_OR_EQUAL_TO;
    const bool withUpper = _fields.upperOperator == IntervalOperator::ITV_LESS_OR_EQUAL_TO;
    const QString interval = QLatin1String(withLower ? "[" : "]") + numberText(_fields.lower, details, 0) +
                             QLatin1String(", ") + numberText(_fields.upper, details, 0) +
                             QLatin1String(withUpper ? "]" : "[");
    return withVariable ? QObject::tr("V in %1").arg(interval) : interval;
}

QMap<QString, QVariant> KufSampleFilterRuleNumeric::toQVariantMap() const
{
    return {{QStringLiteral("mode"), _fields.mode.getKey()},
            {QStringLiteral("compareOperator"), _fields.compareOperator.getKey()},
            {QStringLiteral("compareValue"), _fields.compareValue},
            {QStringLiteral("compareTolerance"), _fields.compareTolerance},
            {QStringLiteral("lowerOperator"), _fields.lowerOperator.getKey()},
            {QStringLiteral("upperOperator"), _fields.upperOperator.getKey()},
            {QStringLiteral("lower"), _fields.lower},
            {QStringLiteral("upper"), _fields.upper}};
}

void KufSampleFilterRuleNumeric::fromQVariantMap(const QMap<QString, QVariant>& map, int version)
{
    const KufVariantMapReader reader(map, version);
    Fields fields;
    fields.mode = reader.readEnum<Mode>(QStringLiteral("mode"));
    fields.compareOperator = reader.readEnum<CompareOperator>(QStringLiteral("compareOperator"));
    fields.compareValue = reader.readDouble(QStringLiteral("compareValue"), fields.compareValue);
    fields.compareTolerance = reader.readDouble(QStringLiteral("compareTolerance"), fields.compareTolerance);
    fields.lowerOperator = reader.readEnum<IntervalOperator>(QStringLiteral("lowerOperator"));
    fields.upperOperator = reader.readEnum<IntervalOperator>(QStringLiteral("upperOperator"));
    fields.lower = reader.readDouble(QStringLiteral("lower"), fields.lower);
    fields.upper = reader.readDouble(QStringLiteral("upper"), fields.upper);
    _fields = fields;
}
