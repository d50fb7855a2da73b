#pragma once

#include <basic/MbbAEnumClass.h>
#include <util/KufISampleFilterRule.h>

/// Keeps the samples at which a number is defined, compares with another number, or lies in an interval. The rule holds
/// the fields of all three modes, whichever it is in. Numbers are in storage units.
class KESTRIN_UTIL_EXPORT KufSampleFilterRuleNumeric : public KufISampleFilterRule
{
public:
    /// What is asked of a number. A default one is IS_DEFINED.
    class KESTRIN_UTIL_EXPORT Mode : public MbbAEnumClass<Mode>
    {
    public:
        static const Mode IS_DEFINED; ///< value 0
        static const Mode COMPARE;    ///< value 1
        static const Mode RANGE;      ///< value 2

        Mode() : Mode(IS_DEFINED) {}

        static QList<const Mode*> items();
        static constexpr const char* ClassName = "KufSampleFilterRuleNumeric::Mode";

    private:
        using MbbAEnumClass::MbbAEnumClass;
    };

    /// A default one is EQUAL.
    class KESTRIN_UTIL_EXPORT CompareOperator : public MbbAEnumClass<CompareOperator>
    {
    public:
        static const CompareOperator LESS_THAN;           ///< value 0
        static const CompareOperator LESS_OR_EQUAL_TO;    ///< value 1
        static const CompareOperator GREATER_THAN;        ///< value 2
        static const CompareOperator GREATER_OR_EQUAL_TO; ///< value 3
        static const CompareOperator EQUAL;               ///< value 4; up to the tolerance
        static const CompareOperator NOT_EQUAL;           ///< value 5; by more than the tolerance

        CompareOperator() : CompareOperator(EQUAL) {}

        static QList<const CompareOperator*> items();
        static constexpr const char* ClassName = "KufSampleFilterRuleNumeric::CompareOperator";

    private:
        using MbbAEnumClass::MbbAEnumClass;
    };

    /// Whether a bound belongs to an interval. A default one is ITV_LESS_OR_EQUAL_TO.
    class KESTRIN_UTIL_EXPORT IntervalOperator : public MbbAEnumClass<IntervalOperator>
    {
    public:
        static const IntervalOperator ITV_LESS_THAN;        ///< value 0
        static const IntervalOperator ITV_LESS_OR_EQUAL_TO; ///< value 1

        IntervalOperator() : IntervalOperator(ITV_LESS_OR_EQUAL_TO) {}

        static QList<const IntervalOperator*> items();
        static constexpr const char* ClassName = "KufSampleFilterRuleNumeric::IntervalOperator";

    private:
        using MbbAEnumClass::MbbAEnumClass;
    };

    const Mode& getMode() const { return _fields.mode; }
    void setMode(const Mode& mode) { _fields.mode = mode; }

    const CompareOperator& getCompareOperator() const { return _fields.compareOperator; }
    void setCompareOperator(const CompareOperator& compareOperator) { _fields.compareOperator = compareOperator; }
    double getCompareValue() const { return _fields.compareValue; }
    void setCompareValue(double value) { _fields.compareValue = value; }
    double getCompareTolerance() const { return _fields.compareTolerance; }
    void setCompareTolerance(double tolerance) { _fields.compareTolerance = tolerance; }

    const IntervalOperator& getIntervalLowerOperator() const { return _fields.lowerOperator; }
    const IntervalOperator& getIntervalUpperOperator() const { return _fields.upperOperator; }
    void setIntervalOperators(const IntervalOperator& lower, const IntervalOperator& upper);
    double getIntervalLower() const { return _fields.lower; }
    double getIntervalUpper() const { return _fields.upper; }
    void setIntervalValues(double lower, double upper);

    /// A bound that is undefined does not limit the interval; nothing compares with an undefined number. A tolerance
    /// that is undefined or below 0 is none.
    bool accepts(double value) const;

    KufSampleFilterRuleNumeric* duplicate() const override;
    KufFilterRuleType getType() const override;
    QString getDescription(const MbdVariableDetails& details) const override;
    QString getShortDescription(const MbdVariableDetails& details, bool withVariable) const override;
    QMap<QString, QVariant> toQVariantMap() const override;
    void fromQVariantMap(const QMap<QString, QVariant>& map, int version) override;

private:
    struct Fields
    {
        Mode mode;
        CompareOperator compareOperator;
        double compareValue = 0.0;
        double compareTolerance = 0.0;
        IntervalOperator lowerOperator;
        IntervalOperator upperOperator;
        double lower = 0.0;
        double upper = 1.0;
    };

    double _tolerance() const;
    bool _compares(double value) const;
    bool _isInRange(double value) const;
    bool _hasTolerance() const;
    QString _comparison(const MbdVariableDetails& details, int showSymbol) const;

    Fields _fields;
};
