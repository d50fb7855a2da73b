#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtGui/QColor>

#include <basic/MbcCategoryRule.h>
#include <param/composite/KpcChildren.h>
#include <param/composite/KpcSampleCategoriesRule.h>
#include <param/list/KplDataList.h>

#include <map>

class KpaFlags;
class KsoSampleCategories;
class MgmPythonDict;

/// A categorisation of samples by an ordered list of named and coloured rules. A rule's condition is one Python
/// expression on the input variables, which it calls by the auxiliary label and their rank from 1: AUX1, AUX2.
///
/// A condition that is set gets the auxiliary label in its own letter case. The prototype of the rules always has the
/// name and the colour of the rule to come. The flags offer the input variables; whenever these change, all are on.
///
/// The one parameter class that is a `QObject`: for its signal, to which nothing here is connected. Deleted or copied,
/// it is a parameter; it has no Qt parent.
class KESTRIN_PARAM_EXPORT KpcSampleCategories : public QObject, public KpcAComposite
{
    Q_OBJECT

public:
    static const QString Variables;
    static const QString Rules;
    static const QString Flags;
    /// For users of the class: no child has this key.
    static const QString Support;

    KpcSampleCategories(const QString& key, const KstITransactable& transactable);
    KpcSampleCategories(const KpcSampleCategories& other, const QString& newKey);
    KpcSampleCategories* duplicate(const QString& newKey) const override;

    using KpcAComposite::destroyed;
    using KpcAComposite::setParent;

    void addRule(const MbcCategoryRule& rule);
    void addRule(const QColor& color, const QString& name, const QString& cond);
    void removeRule(int index);
    void removeLastRule();
    void moveRuleUp(int index) { _rules->moveItem(index, index - 1); }
    void moveRuleDown(int index) { _rules->moveItem(index, index + 1); }
    int getRulesCount() const { return _rules->getItemCount(); }
    /// Null for an index out of range.
    KpcSampleCategoriesRule* getRuleParameter(int index) const { return _rules->getItemAt(index); }
    KpcList<KpcSampleCategoriesRule>* getRulesListParameter() const { return _rules; }
    /// An invalid colour for an index out of range, an empty text in the two that follow. The reference is valid until
    /// the rule changes.
    const QColor& getRuleColor(int index) const;
    const QString& getRuleName(int index) const;
    const QString& getRuleCond(int index) const;
    QStringList getRuleNames() const;
    QStringList getRuleConds() const;
    QList<MbcCategoryRule> getValues() const;
    /// "name : condition" of each rule, with the names of the variables in place of the auxiliary ones. These are
    /// replaced as plain text in the order of the variables, so AUX1 is found in AUX10 too.
    QStringList getReadableRules() const;

    void addVariable(const KsoDataIdentifier& ident);
    void clearVariables() { _variables->clear(); }
    /// The null identifier for an index out of range.
    KsoDataIdentifier getVariable(int index) const { return _variables->getValueAt(index); }
    int getVariablesCount() const { return _variables->getItemCount(); }
    KplDataList* getVariableListParameter() const { return _variables; }
    void setDataFilter(const KsoDataFilter& filter) { _variables->setFilter(filter); }

    /// The root of the variables is a file or a support; another type fails with an `MbeProgrammingError`.
    void setRootType(const KsoEDataType& type);
    /// The same, where `takeType` makes the type of `ident` the root's.
    void setRootIdent(const KsoDataIdentifier& ident, bool takeType);
    void setRelative(bool relative) { _variables->setRelative(relative); }
    bool isRelative() const { return _variables->isRelative(); }

    /// The name of the variables in conditions, part of a regular expression. Silent; conditions that stand stay.
    void setAuxLabel(const QString& label) { _auxLabel = label; }
    QString getAuxLabel() const { return _auxLabel; }
    /// What new rules are called, part of a regular expression, followed by their number.
    void setCategoryPrefix(const QString& prefix);
    /// Labels the names of all rules.
    void setCategoryName(const QString& name);
    /// Colours are stored only while they are enabled.
    void setColorEnabled(bool enabled);
    bool isColorEnabled() const { return _colorEnabled; }
    void setIndiceGenerationAvailable(bool available) { _indiceGenerationAvailable = available; }
    bool isIndiceGenerationAvailable() const { return _indiceGenerationAvailable; }
    KpaFlags* getFlags() const { return _flags; }

    /// Never null; the caller owns it.
    KsoSampleCategories* createSampleCategories() const;
    /// Takes over the rules, not the variables. The same rules change nothing.
    void resetFromSampleCategories(const KsoSampleCategories& source);
    /// Takes over variables and rules.
    void resetFromParam(const KpcSampleCategories& other);

    /// What the user is to be told of the rules; `ok` is false if some of it is an error. Conditions are tried with
    /// zeros and empty texts. Throws what Python throws but for a condition that is refused.
    QStringList testRules(bool& ok) const;

    QString toString() const override;
    void update(const KpnModif& modif) override;

Q_SIGNALS:
    /// A front end asks for new indices.
    void addIndicesPressed();

private:
    struct Rule
    {
        QColor color;
        QString name;
        QString cond;
    };

    void _declare(KpcChildren children);
    void _normaliseConditions(const KpnModif& modif, const KuoLock<KpnModif>& lock);
    /// The conditions that have changed, by the rank of their rules, but for the one that is being set here.
    std::map<int, KuoPointer<KpaString>> _takeChangedConds(const KpnModif& modif);
    /// -1 for what is no condition of a rule of the list.
    int _rankOfRule(const KpaString& cond) const;
    QString _prefixed(qint64 number) const;
    void _nameNextRule();
    void _updateFlags();
    QString _auxName(int index) const;
    void _resetRules(const QList<Rule>& rules);
    QStringList _testRule(int index, const MgmPythonDict& variables, bool& ok) const;
    QStringList _declareVariables(MgmPythonDict& variables) const;

    KpcChild<KplDataList> _variables;
    KpcChild<KpcList<KpcSampleCategoriesRule>> _rules;
    KpcChild<KpaFlags> _flags;
    bool _colorEnabled = true;
    bool _indiceGenerationAvailable = false;
    QString _auxLabel = QStringLiteral("AUX");
    QString _categoryPrefix = QStringLiteral("Category");
    const KpaString* _normalised = nullptr; // the condition that is being set, until its change comes in
};
