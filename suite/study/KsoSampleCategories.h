#pragma once

#include <QtCore/QList>
#include <QtCore/QVariant>

#include <basic/MbcCategoryRule.h>
#include <study/KsoDataIdentifier.h>

#include <functional>
#include <vector>

class KstTransactionDataR;

/// A categorisation of samples: variables below a root, a file or a support, and an ordered list of rules on them. A
/// sample belongs to the first rule whose condition it fulfils. A plain value.
class KESTRIN_STUDY_EXPORT KsoSampleCategories
{
public:
    /// Tells whether a condition holds for the values of the variables, in their order: numbers, or texts for texts and
    /// for the labels of categories. What is undefined is an invalid QVariant.
    using Condition = std::function<bool(const QList<QVariant>& values, const QString& condition)>;
    /// What a sample gets that fulfils no rule.
    static constexpr int NoRule = -1;

    explicit KsoSampleCategories(const KsoDataIdentifier& root = KsoDataIdentifier()) : _root(root) {}

    const KsoDataIdentifier& getRootIdent() const { return _root; }

    void addVariable(const KsoDataIdentifier& variable) { _variables.append(variable); }
    int getVariablesCount() const { return _variables.size(); }
    /// The null identifier where there is no such variable.
    KsoDataIdentifier getVariable(int i) const { return _variables.value(i); }

    void addRule(const MbcCategoryRule& rule) { _rules.append(rule); }
    int getRulesCount() const { return _rules.size(); }
    /// An empty rule where there is no such rule.
    MbcCategoryRule getRule(int i) const { return _rules.value(i); }

    /// The index of the rule that each sample of `support` belongs to, or `NoRule`. Rules with a blank condition have
    /// no samples. An `MbeUserError` if a variable does not exist or lies on another support; what reading and
    /// `condition` throw passes.
    std::vector<int> categorise(const KstTransactionDataR& transaction, const KsoDataSupport& support,
                                const Condition& condition) const;

private:
    int _ruleOf(const QList<QVariant>& values, const Condition& condition) const;

    KsoDataIdentifier _root;
    QList<KsoDataIdentifier> _variables;
    QList<MbcCategoryRule> _rules;
};
