#pragma once

#include <param/composite/KpcChildren.h>
#include <param/composite/KpcList.h>
#include <param/composite/KpcSampleFilterRule.h>
#include <util/KufISampleFilter.h>

#include <QtCore/QStringList>

class KpaBool;
class KpaString;
class KsoSampleFilter;

extern template class KESTRIN_PARAM_EXPORT KpcList<KpcSampleFilterRule>;

/// Which samples to keep: rules on variables, numbered from 1, and a boolean combination of them such as
/// "R1 and (R2 or R3)". As long as nobody writes another one, the combination asks for all rules. The filter engine can
/// read the parameter itself, or the record that it makes.
///
/// The variables lie below a root, which the prototype of the list of rules keeps for the whole filter.
class KESTRIN_PARAM_EXPORT KpcSampleFilter : public KpcAComposite, public KufISampleFilter
{
public:
    KpcSampleFilter(const QString& key, const KstITransactable& transactable);
    KpcSampleFilter(const KpcSampleFilter& other, const QString& newKey);
    KpcSampleFilter* duplicate(const QString& newKey) const override;

    int getRulesCount() const override { return _rules->getChildCount(); }
    /// The rule as the engine reads it; null for an index out of range and for a rule without a usable variable.
    QSharedPointer<KufISampleFilterRule> getRule(int i) const override;
    QString getCombination() const override;

    /// The new last rule, owned by the list; null if it did not survive its own arrival.
    KpcSampleFilterRule* addRule();
    void removeRule(int index);
    void removeLastRule();
    /// Owned by the list; null for an index out of range.
    KpcSampleFilterRule* getRuleParameter(int index) const { return _rules->getItemAt(index); }
    // Owned by this filter.
    KpcList<KpcSampleFilterRule>* getRulesParameter() const { return _rules; }
    KpaString* getCombinationParameter() const { return _combination; }
    KpaBool* getIsActiveParameter() const { return _isActive; }

    bool isActive() const;
    bool isRelative() const;
    void setRelative(bool relative);
    /// With `takeType`, only a file or a support can be the root; anything else is a programming failure.
    void setRootIdent(const KsoDataIdentifier& ident, bool takeType);
    /// A file or a support; any other level is a programming failure.
    void setRootType(const KsoEDataType& type);

    QString getDefaultCombination() const;
    /// The engine's record, which the caller owns; null for an empty combination and for a rule without a usable
    /// variable.
    KsoSampleFilter* createSampleFilter() const;
    void resetFromSampleFilter(const KsoSampleFilter& source);
    void resetFromParam(const KpcSampleFilter& other);
    /// Adds a rule on the selection variable and combines it with what is there. A filter that gives no record is a
    /// programming failure.
    void combineWithSelection(const KsoDataIdentifier& selection);
    /// Messages for people on what is wrong; empty for a filter that can be used. Never throws.
    QStringList testSampleFilter() const;

    QString toString() const override;
    int getVersion() const override { return 2; }
    void convert(QDomElement& element, int fromVersion) const override;
    void update(const KpnModif& modif) override;

private:
    void _declare(KpcChildren children);
    template <class Function>
    void _forEachRule(Function function);
    void _setRulesCount(int count, const KuoLock<KpnModif>& lock);
    void _notifyAll() { _notify(Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyItem); }
    static void _convertToVersion2(QDomElement& element);

    KpcChild<KpaBool> _isActive;
    KpcChild<KpcList<KpcSampleFilterRule>> _rules;
    KpcChild<KpaString> _combination;
};
