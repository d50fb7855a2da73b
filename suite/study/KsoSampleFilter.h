#pragma once

#include <QtCore/QList>

#include <study/KsoDataIdentifier.h>
#include <util/KufISampleFilter.h>

#include <vector>

class KstTransactionDataR;

/// A sample filter of a study: rules on variables below a root, a file or a support, and their combination. A filter
/// that is not active keeps every sample. A plain value: copies share the rules, which it never changes. A new filter
/// is active and empty.
class KESTRIN_STUDY_EXPORT KsoSampleFilter : public KufISampleFilter
{
public:
    explicit KsoSampleFilter(const KsoDataIdentifier& root = KsoDataIdentifier()) : _root(root) {}

    const KsoDataIdentifier& getRootIdent() const { return _root; }
    bool isActive() const { return _active; }
    void setIsActive(bool active) { _active = active; }
    void setCombinationString(const QString& combination) { _combination = combination; }
    /// A null rule is an `MbeProgrammingError`.
    void addRule(const KsoDataIdentifier& variable, const QSharedPointer<KufISampleFilterRule>& rule);

    int getRulesCount() const override { return _rules.size(); }
    QSharedPointer<KufISampleFilterRule> getRule(int i) const override { return _rules.value(i).rule; }
    QString getCombination() const override { return _combination; }
    /// The null identifier where there is no such rule.
    KsoDataIdentifier getVariableId(int i) const { return _rules.value(i).variable; }

    /// Whether each sample of `support` is kept. An `MbeUserError` that tells what is wrong if the combination is not
    /// valid or the variable of a rule does not exist, lies on another support or is of a type that its rule cannot
    /// judge; what reading throws passes. Takes a time in proportion to the samples, the rules and the combination.
    std::vector<bool> getKeptSamples(const KstTransactionDataR& transaction, const KsoDataSupport& support) const;
    /// How many samples `getKeptSamples` keeps.
    int countKeptSamples(const KstTransactionDataR& transaction, const KsoDataSupport& support) const;

private:
    struct Rule
    {
        KsoDataIdentifier variable;
        QSharedPointer<KufISampleFilterRule> rule;
    };

    std::vector<bool> _fulfilled(int i, const KstTransactionDataR& transaction, const KsoDataSupport& support) const;

    KsoDataIdentifier _root;
    bool _active = true;
    QString _combination;
    QList<Rule> _rules;
};
