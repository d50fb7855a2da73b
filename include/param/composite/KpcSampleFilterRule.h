#pragma once

#include <QtCore/QSharedPointer>

#include <param/composite/KpcChildren.h>

#include <array>

class KpaBool;
class KpaData;
class KpaDouble;
class KpaEnum;
class KpaFlags;
class KpaString;
class KsoAVariableItem;
class KsoDataIdentifier;
class KsoEDataType;
class KufISampleFilterRule;
class KufSampleFilterRuleAlpha;
class KufSampleFilterRuleNumeric;
class MbdVariableDetails;

/// One rule of a sample filter: a variable and a condition on it. It has the fields of all kinds of conditions; the
/// type of the variable says which of them count. The numbers of the condition are automatic at first: they follow the
/// statistics of the variable, so that a fresh condition keeps all samples.
///
/// A variable that is numeric is read as soon as it is chosen. What reading it throws leaves the statistics as they
/// were.
class KESTRIN_PARAM_EXPORT KpcSampleFilterRule : public KpcAComposite
{
public:
    static const QString Variable;
    static const QString InvertSelection;
    static const QString NumMode;
    static const QString NumCompareOperator;
    static const QString NumCompareValue;
    static const QString NumCompareTolerance;
    static const QString NumIntervalLowerOperator;
    static const QString NumIntervalLower;
    static const QString NumIntervalUpperOperator;
    static const QString NumIntervalUpper;
    static const QString AlphaMode;
    static const QString AlphaContainsValue;
    static const QString AlphaEQValue;
    static const QString AlphaNEQValue;
    static const QString EnumList;

    KpcSampleFilterRule(const QString& key, const KstITransactable& transactable);
    KpcSampleFilterRule(const KpcSampleFilterRule& other, const QString& newKey);
    KpcSampleFilterRule* duplicate(const QString& newKey) const override;

    // Owned by this rule.
    KpaData* getVariableParameter() const { return _variable; }
    KpaBool* getInvertSelectionParameter() const { return _invertSelection; }
    KpaEnum* getNumModeParameter() const { return _numMode; }
    KpaEnum* getNumCompareOperatorParameter() const { return _numCompareOperator; }
    KpaDouble* getNumCompareValueParameter() const { return _numCompareValue; }
    KpaDouble* getNumCompareToleranceParameter() const { return _numCompareTolerance; }
    KpaEnum* getNumIntervalLowerOperatorParameter() const { return _numIntervalLowerOperator; }
    KpaDouble* getNumIntervalLowerParameter() const { return _numIntervalLower; }
    KpaEnum* getNumIntervalUpperOperatorParameter() const { return _numIntervalUpperOperator; }
    KpaDouble* getNumIntervalUpperParameter() const { return _numIntervalUpper; }
    KpaEnum* getAlphaModeParameter() const { return _alphaMode; }
    KpaString* getAlphaContainsValueParameter() const { return _alphaContainsValue; }
    KpaString* getAlphaEQValueParameter() const { return _alphaEQValue; }
    KpaString* getAlphaNEQValueParameter() const { return _alphaNEQValue; }
    KpaFlags* getFlagsParameter() const { return _enumList; }

    /// The condition as the filter engine reads it, of the kind that fits a variable with these details.
    QSharedPointer<KufISampleFilterRule> getBasicFilter(const MbdVariableDetails& details) const;
    /// The same for the rule's own variable; null without one.
    QSharedPointer<KufISampleFilterRule> getBasicFilter() const;
    /// Takes over what `rule` uses; other fields stay. Nothing happens for null.
    void setBasicFilter(QSharedPointer<KufISampleFilterRule> rule);

    /// The condition for people.
    QString getFilterName() const;
    QString toString() const override { return getFilterName(); }

    /// Takes over the values of `other`. Nothing happens for null.
    void resetFromParam(const KpcSampleFilterRule* other);
    /// See `KpaData::setRootIdent`.
    void setRootIdent(const KsoDataIdentifier& ident, bool takeType);
    /// A file or a support; any other level is a programming failure.
    void setRootType(const KsoEDataType& type);

    int getVersion() const override { return 2; }
    void convert(QDomElement& element, int fromVersion) const override;
    void update(const KpnModif& modif) override;

private:
    void _declare(KpcChildren children);
    KsoAVariableItem* _variableItem() const;
    QSharedPointer<KufISampleFilterRule> _numericFilter() const;
    QSharedPointer<KufISampleFilterRule> _alphaFilter() const;
    QSharedPointer<KufISampleFilterRule> _enumFilter() const;
    QSharedPointer<KufISampleFilterRule> _selectionFilter() const;
    void _setNumericFilter(const KufSampleFilterRuleNumeric& rule, const KuoLock<KpnModif>& lock);
    void _setAlphaFilter(const KufSampleFilterRuleAlpha& rule, const KuoLock<KpnModif>& lock);
    void _followOperator(const KpnModif& modif, const KuoLock<KpnModif>& lock);
    void _keepBoundsInOrder(const KpnModif& modif, const KuoLock<KpnModif>& lock);
    void _updatedVariable(const KuoLock<KpnModif>& lock);
    void _readNumbers(const MbdVariableDetails& details, const KuoLock<KpnModif>& lock);
    void _readCategories(const MbdVariableDetails& details);
    void _fixNumericAutoValues();
    static void _convertToVersion2(QDomElement& element);
    static void _convertNumericMode(QDomElement& element, const std::array<QDomElement, 3>& values);

    KpcChild<KpaData> _variable;
    KpcChild<KpaBool> _invertSelection;
    KpcChild<KpaEnum> _numMode;
    KpcChild<KpaEnum> _numCompareOperator;
    KpcChild<KpaDouble> _numCompareValue;
    KpcChild<KpaDouble> _numCompareTolerance;
    KpcChild<KpaEnum> _numIntervalLowerOperator;
    KpcChild<KpaDouble> _numIntervalLower;
    KpcChild<KpaEnum> _numIntervalUpperOperator;
    KpcChild<KpaDouble> _numIntervalUpper;
    KpcChild<KpaEnum> _alphaMode;
    KpcChild<KpaString> _alphaContainsValue;
    KpcChild<KpaString> _alphaEQValue;
    KpcChild<KpaString> _alphaNEQValue;
    KpcChild<KpaFlags> _enumList;
    // The statistics of the variable.
    double _min = 0.0;
    double _max = 1.0;
    double _mean = 0.5;
    double _stdDev = 0.0;
};
