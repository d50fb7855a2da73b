#include <param/KpbFailure.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcSampleFilter.h>

#include <QtCore/QObject>

#include <study/KsoSampleFilter.h>
#include <util/KufSampleFilterASTVisitor.h>
#include <util/KufSampleFilterDefaultCombination.h>
#include <util/KufSampleFilterRuleSelection.h>
#include <util/KuxXml.h>

#include <algorithm>
#include <memory>

template class KpcList<KpcSampleFilterRule>;

namespace {

const QString sourceFile = QStringLiteral("composite\\KpcSampleFilter");

void checkRootType(const KsoEDataType& type, const QString& signature)
{
    if (type != KsoEDataType::FILE && type != KsoEDataType::SUPPORT)
        Kp::failProgramming(signature, sourceFile,
                            QStringLiteral("Sample Filter root can only be a file or a support."));
}

} // namespace

KpcSampleFilter::KpcSampleFilter(const QString& key, const KstITransactable& transactable)
    : KpcAComposite(KpbEType::SAMPLE_FILTER, key, transactable)
{
    _declare({*this, KpcChildren::Create});
}

KpcSampleFilter::KpcSampleFilter(const KpcSampleFilter& other, const QString& newKey)
    : KpcAComposite(other, newKey),
      KufISampleFilter()
{
    _declare({*this, KpcChildren::Rebind});
}

KpcSampleFilter* KpcSampleFilter::duplicate(const QString& newKey) const
{
    return new KpcSampleFilter(*this, newKey);
}

void KpcSampleFilter::_declare(KpcChildren children)
{
    const auto asRules = [](auto& rules) { rules.setItemLabel(QObject::tr("Simple Filter")); };
    const auto asCombination = [](KpaString& text) {
        text.setInstantEdit(true);
        text.setAutomaticEnabled(true);
        text.setAutomatic(true);
        text.setPlaceHolder(QObject::tr("Enter rules combination"));
    };
    // clang-format off
    children.add(_isActive,    "IS_ACTIVE",   QObject::tr("Filter is active")).value(false);
    children.add(_rules,       "RULES",       QObject::tr("Rules List"      ), _getTransactable()).with(asRules);
    children.add(_combination, "COMBINATION", QObject::tr("Combination"     )).with(asCombination);
    // clang-format on
}

QSharedPointer<KufISampleFilterRule> KpcSampleFilter::getRule(int i) const
{
    const KpcSampleFilterRule* rule = getRuleParameter(i);
    return rule ? rule->getBasicFilter() : QSharedPointer<KufISampleFilterRule>();
}

QString KpcSampleFilter::getCombination() const
{
    return _combination->getValue();
}

KpcSampleFilterRule* KpcSampleFilter::addRule()
{
    KuoLock<KpnModif> lock(this);
    const KuoPointer<KpbAParameter> rule(_rules->addItem());
    if (lock.isAlive())
        _notifyAll();
    lock.commit();
    return static_cast<KpcSampleFilterRule*>(rule.get());
}

void KpcSampleFilter::removeRule(int index)
{
    KuoLock<KpnModif> lock(this);
    _rules->removeItemAt(index);
    if (lock.isAlive())
        _notifyAll();
    lock.commit();
}

void KpcSampleFilter::removeLastRule()
{
    removeRule(getRulesCount() - 1);
}

bool KpcSampleFilter::isActive() const
{
    return _isActive->getValue();
}

bool KpcSampleFilter::isRelative() const
{
    return _rules->getItemPrototype()->getVariableParameter()->isRelative();
}

// The prototype first. Observers may destroy rules, and the filter, at each step.
template <class Function>
void KpcSampleFilter::_forEachRule(Function function)
{
    KpcList<KpcSampleFilterRule>* rules = _rules;
    KuoLock<KpnModif> lock(rules);
    function(*rules->getItemPrototype());
    for (int i = 0; lock.isAlive() && i < rules->getItemCount(); ++i)
        function(*rules->getItemAt(i));
    lock.commit();
}

void KpcSampleFilter::setRelative(bool relative)
{
    _forEachRule([&](KpcSampleFilterRule& rule) { rule.getVariableParameter()->setRelative(relative); });
}

void KpcSampleFilter::setRootIdent(const KsoDataIdentifier& ident, bool takeType)
{
    if (takeType)
        checkRootType(ident.getType(), QStringLiteral("void __cdecl KpcSampleFilter::setRootIdent(const class "
                                                      "KsoDataIdentifier &,bool)"));
    _forEachRule([&](KpcSampleFilterRule& rule) { rule.setRootIdent(ident, takeType); });
}

void KpcSampleFilter::setRootType(const KsoEDataType& type)
{
    checkRootType(type, QStringLiteral("void __cdecl KpcSampleFilter::setRootType(const class KsoEDataType &)"));
    _forEachRule([&](KpcSampleFilterRule& rule) { rule.setRootType(type); });
}

QString KpcSampleFilter::getDefaultCombination() const
{
    return KufSampleFilterDefaultCombination(this).getValue();
}

KsoSampleFilter* KpcSampleFilter::createSampleFilter() const
{
    if (getCombination().isEmpty())
        return nullptr;
    const KpaData* prototype = _rules->getItemPrototype()->getVariableParameter();
    auto filter = std::make_unique<KsoSampleFilter>(prototype->getRootIdent());
    filter->setIsActive(isActive());
    filter->setCombinationString(getCombination());
    for (int i = 0; i < getRulesCount(); ++i) {
        const QSharedPointer<KufISampleFilterRule> rule = getRule(i);
        if (!rule)
            return nullptr;
        filter->addRule(getRuleParameter(i)->getVariableParameter()->getValue(), rule);
    }
    return filter.release();
}

void KpcSampleFilter::resetFromSampleFilter(const KsoSampleFilter& source)
{
    const QString before = toString();
    KuoLock<KpnModif> lock(this);
    _isActive->setValue(source.isActive());
    if (lock.isAlive())
        _setRulesCount(source.getRulesCount(), lock);
    for (int i = 0; lock.isAlive() && i < std::min(getRulesCount(), source.getRulesCount()); ++i) {
        const KuoPointer<KpbAParameter> rule(getRuleParameter(i));
        getRuleParameter(i)->getVariableParameter()->setValue(source.getVariableId(i));
        if (rule)
            static_cast<KpcSampleFilterRule*>(rule.get())->setBasicFilter(source.getRule(i));
    }
    if (lock.isAlive())
        _combination->setValue(source.getCombination());
    if (lock.isAlive() && toString() != before)
        _notifyAll();
    lock.commit();
}

void KpcSampleFilter::_setRulesCount(int count, const KuoLock<KpnModif>& lock)
{
    const int missing = count - getRulesCount();
    for (int i = 0; lock.isAlive() && i < missing; ++i)
        addRule();
    for (int i = 0; lock.isAlive() && i < -missing; ++i)
        removeLastRule();
}

void KpcSampleFilter::resetFromParam(const KpcSampleFilter& other)
{
    KuoLock<KpnModif> lock(this);
    _isActive->setValue(other.isActive());
    if (lock.isAlive())
        _rules->setItemCount(other.getRulesCount());
    for (int i = 0; lock.isAlive() && i < getRulesCount(); ++i)
        getRuleParameter(i)->resetFromParam(other.getRuleParameter(i));
    if (lock.isAlive()) {
        if (other._combination->isAutomatic())
            _combination->setAutomatic(true);
        else
            _combination->setValue(other.getCombination());
    }
    if (lock.isAlive())
        _notifyAll();
    lock.commit();
}

// The count is the width of the field for the old combination, and "%2" stays: stored filters have that form.
void KpcSampleFilter::combineWithSelection(const KsoDataIdentifier& selection)
{
    const std::unique_ptr<KsoSampleFilter> filter(createSampleFilter());
    if (!filter)
        Kp::failProgramming(QStringLiteral("void __cdecl KpcSampleFilter::combineWithSelection(const class "
                                           "KsoDataIdentifier &)"),
                            sourceFile, QStringLiteral("The sample filter cannot be created."));
    const QString old = filter->getCombination();
    filter->addRule(selection, QSharedPointer<KufSampleFilterRuleSelection>::create());
    const int n = filter->getRulesCount();
    filter->setCombinationString(QStringLiteral("(%1) and R%2").arg(old, n, QLatin1Char(' ')));
    resetFromSampleFilter(*filter);
}

QStringList KpcSampleFilter::testSampleFilter() const
{
    if (getRulesCount() == 0)
        return {QStringLiteral("Sample Filter has no rule")};
    QStringList messages;
    if (getCombination().trimmed().isEmpty())
        messages.append(QStringLiteral("Empty filter combination"));
    else if (!KufSampleFilterASTVisitor(this).isValid())
        messages.append(QStringLiteral("Invalid filter combination"));
    for (int i = 0; i < getRulesCount(); ++i) {
        const KsoDataIdentifier& variable = getRuleParameter(i)->getVariableParameter()->getValue();
        const QString number = QString::number(i + 1);
        if (variable.isNull())
            messages.append(QStringLiteral("R%1 rule has no variable").arg(number));
        else if (!variable.exists())
            messages.append(
                QStringLiteral("Variable '%1' for R%2 rule does not exist").arg(variable.getName(), number));
    }
    return messages;
}

QString KpcSampleFilter::toString() const
{
    QString text = QStringLiteral("Filter is %1active").arg(QLatin1String(isActive() ? "" : "not "));
    if (!isActive() || getRulesCount() == 0)
        return text;
    text += QStringLiteral("\nNumber of combined rules: %1").arg(getRulesCount());
    for (int i = 0; i < getRulesCount(); ++i)
        text += QStringLiteral("\n R%1: ").arg(i + 1) + getRuleParameter(i)->toString();
    return text + QLatin1String("\nCombination: ") + getCombination();
}

void KpcSampleFilter::convert(QDomElement& element, int fromVersion) const
{
    if (fromVersion == 1)
        _convertToVersion2(element);
    else if (fromVersion != 2)
        Kp::failProgramming(QStringLiteral("void __cdecl KpcSampleFilter::convert(class QDomElement &,int) const"),
                            QStringLiteral("param/composite/KpcSampleFilter"),
                            QStringLiteral("Unexpected version number requested"));
}

void KpcSampleFilter::_convertToVersion2(QDomElement& element)
{
    _convertXmlChangeKeys(element, {{QStringLiteral("FILTERS"), QStringLiteral("RULES")}});
    const QDomElement combination = _convertXmlGetParam(element, {QStringLiteral("COMBINATION")});
    QString text = KuxXml::getValue(combination);
    KuxXml::setValue(combination, text.replace(QLatin1Char('S'), QLatin1Char('R')));
}

void KpcSampleFilter::update(const KpnModif& modif)
{
    KuoLock<KpnModif> lock(this);
    if (modif.hasModif(_rules, Kp::NotifyChildren))
        _combination->setAutoValue(getDefaultCombination());
    if (lock.isAlive())
        KpcAComposite::update(modif);
    lock.commit();
}
