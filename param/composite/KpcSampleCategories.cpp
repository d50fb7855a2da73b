#include <QtCore/QRegularExpression>
#include <QtCore/QScopeGuard>

#include <basic/MbeError.h>
#include <geos_python/MgmPythonDict.h>
#include <geos_python/MgmPythonInterpreter.h>
#include <param/KpbFailure.h>
#include <param/atomic/KpaColor.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcSampleCategories.h>
#include <study/KsoAVariableItem.h>
#include <study/KsoDataMacroVariable.h>
#include <study/KsoSampleCategories.h>
#include <util/Ku.h>

const QString KpcSampleCategories::Variables = QStringLiteral("VARIABLES");
const QString KpcSampleCategories::Rules = QStringLiteral("RULES");
const QString KpcSampleCategories::Flags = QStringLiteral("FLAGS");
const QString KpcSampleCategories::Support = QStringLiteral("SUPPORT");

namespace {

// A readable rule does not grow beyond this number of characters: names can hold auxiliary names, many times over.
constexpr qint64 MaximumReadableLength = 1 << 20;

void checkRootType(const KsoEDataType& type, const QString& signature)
{
    if (type == KsoEDataType::FILE || type == KsoEDataType::SUPPORT)
        return;
    Kp::failProgramming(signature, QStringLiteral("composite\\KpcSampleCategories"),
                        QStringLiteral("Sample Categories root can only be a file or a support."));
}

QString replacedWithinBounds(QString text, const QString& before, const QString& after)
{
    const qint64 growth = qint64(text.count(before)) * (after.size() - before.size());
    return text.size() + growth > MaximumReadableLength ? text : text.replace(before, after);
}

// The greatest number that the pattern captures in one of the names, 0 if there is none.
qint64 greatestNumber(const QStringList& names, const QString& pattern)
{
    const QRegularExpression expression(pattern);
    qint64 greatest = 0;
    if (!expression.isValid())
        return greatest;
    for (const QString& name : names)
        greatest = std::max(greatest, qint64(expression.match(name).captured(1).toInt()));
    return greatest;
}

bool isText(const MbdEVarType& type)
{
    return type == MbdEVarType::STRING || type == MbdEVarType::ENUM;
}

} // namespace

KpcSampleCategories::KpcSampleCategories(const QString& key, const KstITransactable& transactable)
    : KpcAComposite(KpbEType::SAMPLE_CATEGORIES, key, transactable)
{
    _declare({*this, KpcChildren::Create});
}

KpcSampleCategories::KpcSampleCategories(const KpcSampleCategories& other, const QString& newKey)
    : QObject(),
      KpcAComposite(other, newKey),
      _colorEnabled(other._colorEnabled),
      _indiceGenerationAvailable(other._indiceGenerationAvailable),
      _auxLabel(other._auxLabel),
      _categoryPrefix(other._categoryPrefix)
{
    _declare({*this, KpcChildren::Rebind});
}

KpcSampleCategories* KpcSampleCategories::duplicate(const QString& newKey) const
{
    return new KpcSampleCategories(*this, newKey);
}

void KpcSampleCategories::_declare(KpcChildren children)
{
    const auto chooseVariables = [](KplDataList& list) {
        list.setRelative(true);
        list.setRootType(KsoEDataType::SUPPORT);
        list.setFilter(
            KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY, MbdVarTypeFlags::ANY, KsoDataFilter::Strict));
    };
    const auto nameFirstRule = [this](KpcList<KpcSampleCategoriesRule>& list) {
        list.getItemPrototype()->_name->setValue(_prefixed(1));
        list.getItemPrototype()->_color->setValue(Ku::getRandomColor(nullptr));
    };
    // clang-format off
    children.add(_variables, Variables, QObject::tr("Input Variables"), _getTransactable()).with(chooseVariables);
    children.add(_rules,     Rules,     QObject::tr("Rules"          ), _getTransactable()).with(nameFirstRule);
    children.add(_flags,     Flags,     QObject::tr("Flags"          )).isVolatile(true);
    // clang-format on
}

// Observers of the children may destroy this parameter, here and in all that follows.
void KpcSampleCategories::addRule(const QColor& color, const QString& name, const QString& cond)
{
    KuoLock<KpnModif> lock(_rules);
    const QString newName = name;
    const QString newCond = cond;
    if (KpcSampleCategoriesRule* rule = _rules->addItem())
        rule->_setValues(QColor(color), newName, newCond);
    lock.commit();
}

void KpcSampleCategories::addRule(const MbcCategoryRule& rule)
{
    addRule(QColor::fromRgba(rule.getColor().getRgba()), rule.getName(), rule.getCond());
}

void KpcSampleCategories::removeRule(int index)
{
    KuoLock<KpnModif> lock(this);
    _rules->removeItemAt(index);
    if (lock.isAlive())
        _notify(Kp::NotifyConfig);
    lock.commit();
}

void KpcSampleCategories::removeLastRule()
{
    KuoLock<KpnModif> lock(this);
    _rules->removeLastItem();
    if (lock.isAlive())
        _notify(Kp::NotifyConfig);
    lock.commit();
}

const QColor& KpcSampleCategories::getRuleColor(int index) const
{
    static const QColor none;
    const KpcSampleCategoriesRule* rule = getRuleParameter(index);
    return rule ? rule->_color->getValue() : none;
}

const QString& KpcSampleCategories::getRuleName(int index) const
{
    static const QString none;
    const KpcSampleCategoriesRule* rule = getRuleParameter(index);
    return rule ? rule->_name->getValue() : none;
}

const QString& KpcSampleCategories::getRuleCond(int index) const
{
    static const QString none;
    const KpcSampleCategoriesRule* rule = getRuleParameter(index);
    return rule ? rule->_cond->getValue() : none;
}

QStringList KpcSampleCategories::getRuleNames() const
{
    QStringList names;
    for (int i = 0; i < getRulesCount(); ++i)
        names.append(getRuleName(i));
    return names;
}

QStringList KpcSampleCategories::getRuleConds() const
{
    QStringList conds;
    for (int i = 0; i < getRulesCount(); ++i)
        conds.append(getRuleCond(i));
    return conds;
}

QList<MbcCategoryRule> KpcSampleCategories::getValues() const
{
    QList<MbcCategoryRule> rules;
    for (int i = 0; i < getRulesCount(); ++i)
        rules.append({getRuleName(i), getRuleCond(i), MbbColor(getRuleColor(i).rgba())});
    return rules;
}

QString KpcSampleCategories::_auxName(int index) const
{
    return _auxLabel + QString::number(index + 1);
}

QStringList KpcSampleCategories::getReadableRules() const
{
    QList<std::pair<QString, QString>> names;
    for (int v = 0; v < getVariablesCount(); ++v)
        names.append({_auxName(v), getVariable(v).getName()});
    QStringList rules;
    for (int i = 0; i < getRulesCount(); ++i) {
        QString text = getRuleCond(i);
        for (const auto& [auxName, name] : names)
            text = replacedWithinBounds(text, auxName, name);
        rules.append(getRuleName(i) + QLatin1String(" : ") + text);
    }
    return rules;
}

void KpcSampleCategories::addVariable(const KsoDataIdentifier& ident)
{
    const KsoDataIdentifier value = ident;
    if (KpaData* variable = _variables->addItem())
        variable->setValue(value);
}

void KpcSampleCategories::setRootType(const KsoEDataType& type)
{
    checkRootType(type, QStringLiteral("void __cdecl KpcSampleCategories::setRootType(const class KsoEDataType &)"));
    _variables->setRootType(type);
}

void KpcSampleCategories::setRootIdent(const KsoDataIdentifier& ident, bool takeType)
{
    if (takeType) {
        checkRootType(ident.getType(), QStringLiteral("void __cdecl KpcSampleCategories::setRootIdent(const class "
                                                      "KsoDataIdentifier &,bool)"));
    }
    _variables->setRootIdent(ident, takeType);
}

QString KpcSampleCategories::_prefixed(qint64 number) const
{
    const QString text = QString::number(number);
    return _categoryPrefix.isEmpty() ? text : _categoryPrefix + QLatin1Char(' ') + text;
}

void KpcSampleCategories::setCategoryPrefix(const QString& prefix)
{
    _categoryPrefix = prefix;
    if (KpcSampleCategoriesRule* prototype = _rules->getItemPrototype())
        prototype->_name->setValue(_prefixed(1));
}

void KpcSampleCategories::setCategoryName(const QString& name)
{
    KuoLock<KpnModif> lock(_rules);
    const QString label = name;
    if (KpcSampleCategoriesRule* prototype = _rules->getItemPrototype())
        prototype->_name->setLabel(label);
    for (int i = 0; lock.isAlive() && i < getRulesCount(); ++i)
        getRuleParameter(i)->_name->setLabel(label);
    lock.commit();
}

void KpcSampleCategories::setColorEnabled(bool enabled)
{
    if (enabled == _colorEnabled)
        return;
    _colorEnabled = enabled;
    KuoLock<KpnModif> lock(_rules);
    if (KpcSampleCategoriesRule* prototype = _rules->getItemPrototype())
        prototype->_color->setVolatile(!enabled);
    for (int i = 0; i < getRulesCount(); ++i)
        getRuleParameter(i)->_color->setVolatile(!enabled);
    lock.commit();
}

KsoSampleCategories* KpcSampleCategories::createSampleCategories() const
{
    auto categories = std::make_unique<KsoSampleCategories>(_variables->getRootIdent());
    for (int i = 0; i < getVariablesCount(); ++i)
        categories->addVariable(getVariable(i));
    for (const MbcCategoryRule& rule : getValues())
        categories->addRule(rule);
    return categories.release();
}

// The rules are held while they change: what is kept of them is then brought up to date once and not for each.
void KpcSampleCategories::_resetRules(const QList<Rule>& rules)
{
    KuoLock<KpnModif> lock(_rules);
    _rules->clear();
    for (const Rule& rule : rules) {
        if (lock.isAlive())
            addRule(rule.color, rule.name, rule.cond);
    }
    lock.commit();
}

void KpcSampleCategories::resetFromSampleCategories(const KsoSampleCategories& source)
{
    QList<MbcCategoryRule> values;
    QList<Rule> rules;
    for (int i = 0; i < source.getRulesCount(); ++i) {
        const MbcCategoryRule rule = source.getRule(i);
        values.append(rule);
        rules.append({QColor::fromRgba(rule.getColor().getRgba()), rule.getName(), rule.getCond()});
    }
    if (values == getValues())
        return;
    KuoLock<KpnModif> lock(this);
    const QString before = toString();
    _resetRules(rules);
    if (lock.isAlive() && toString() != before)
        _notify(Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyItem);
    lock.commit();
}

void KpcSampleCategories::resetFromParam(const KpcSampleCategories& other)
{
    KuoLock<KpnModif> lock(this);
    QList<Rule> rules;
    for (int i = 0; i < other.getRulesCount(); ++i)
        rules.append({other.getRuleColor(i), other.getRuleName(i), other.getRuleCond(i)});
    _variables->setValues(other._variables->getValues());
    if (lock.isAlive())
        _resetRules(rules);
    if (lock.isAlive())
        _notify(Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyItem);
    lock.commit();
}

QStringList KpcSampleCategories::testRules(bool& ok) const
{
    ok = true;
    if (getRulesCount() == 0)
        return {QObject::tr("No rule defined")};
    MgmPythonDict variables(nullptr);
    QStringList messages = _declareVariables(variables);
    ok = messages.isEmpty();
    if (!ok)
        return messages;
    for (int i = 0; i < getRulesCount(); ++i)
        messages += _testRule(i, variables, ok);
    return messages;
}

// Gives what makes that there is nothing to evaluate conditions with. Variables that do not exist are passed over.
QStringList KpcSampleCategories::_declareVariables(MgmPythonDict& variables) const
{
    if (getVariablesCount() == 0)
        return {QObject::tr("No input variable selected")};
    QStringList messages;
    for (int i = 0; i < getVariablesCount(); ++i) {
        const KsoDataIdentifier ident = getVariable(i);
        if (!ident.exists())
            continue;
        const KsoAVariableItem* item = ident.getAVariableItem();
        const KsoDataMacroVariable* macro = ident.getMacroVariable();
        if (!item && !macro)
            messages.append(QStringLiteral("Invalid %1 variable").arg(_auxName(i)));
        else if (isText(item ? item->getStorageType() : macro->getDetails().getType()))
            variables.createString(_auxName(i), QString());
        else
            variables.createDouble(_auxName(i), 0.0);
    }
    return messages;
}

QStringList KpcSampleCategories::_testRule(int index, const MgmPythonDict& variables, bool& ok) const
{
    const QString number = QString::number(index + 1);
    if (getRuleName(index).trimmed().isEmpty()) {
        ok = false;
        return {QObject::tr("Error: No name for rule %1").arg(number)};
    }
    if (getRuleCond(index).trimmed().isEmpty())
        return {QObject::tr("Warning: Rule %1 is empty").arg(number)};
    try {
        MgmPythonInterpreter::getInstance()->evaluateCondition(variables, getRuleCond(index));
    }
    catch (const MbeUserError& error) {
        ok = false;
        const QString text = QString(error.getMessage()).remove(QLatin1String("<pre>"));
        return {QObject::tr("<pre>Error in rule %1:\n%2").arg(number, text)};
    }
    return {};
}

QString KpcSampleCategories::toString() const
{
    QStringList lines{getLabel()};
    if (getVariablesCount() > 0)
        lines.append(QObject::tr("Number of input variables: %1").arg(getVariablesCount()));
    for (int i = 0; i < getVariablesCount(); ++i)
        lines.append(QStringLiteral(" Variable %1 : %2").arg(QString::number(i + 1), getVariable(i).getName()));
    if (getRulesCount() > 0)
        lines.append(QStringLiteral("Number of combined rules: %1").arg(getRulesCount()));
    for (int i = 0; i < getRulesCount(); ++i)
        lines.append(QStringLiteral(" Rule %1 : %2 : %3").arg(QString::number(i + 1), getRuleName(i), getRuleCond(i)));
    return lines.join(QLatin1Char('\n'));
}

void KpcSampleCategories::update(const KpnModif& modif)
{
    KuoLock<KpnModif> lock(this);
    _normaliseConditions(modif, lock);
    if (lock.isAlive() && modif.hasModif(_rules, Kp::NotifyChildren))
        _nameNextRule();
    if (lock.isAlive() && modif.hasModif(_variables, Kp::NotifyValue | Kp::NotifyItem))
        _updateFlags();
    if (lock.isAlive())
        KpcAComposite::update(modif);
    lock.commit();
}

// The label may be a pattern that finds itself in what it has replaced, so what is set here is not looked at again.
void KpcSampleCategories::_normaliseConditions(const KpnModif& modif, const KuoLock<KpnModif>& lock)
{
    const std::map<int, KuoPointer<KpaString>> changed = _takeChangedConds(modif);
    if (changed.empty())
        return;
    const QRegularExpression auxName(QStringLiteral("\\b%1([0-9]+\\b)").arg(_auxLabel),
                                     QRegularExpression::CaseInsensitiveOption);
    const QString normalised = QStringLiteral("%1\\1").arg(_auxLabel);
    for (const auto& [rank, cond] : changed) {
        if (!cond || !auxName.isValid())
            continue;
        const auto restore = qScopeGuard([this, &lock, outer = std::exchange(_normalised, cond.get())] {
            if (lock.isAlive())
                _normalised = outer;
        });
        cond->setValue(QString(cond->getValue()).replace(auxName, normalised));
    }
}

std::map<int, KuoPointer<KpaString>> KpcSampleCategories::_takeChangedConds(const KpnModif& modif)
{
    std::map<int, KuoPointer<KpaString>> changed;
    modif.forEach([&](const KpnPath& path, Kp::NotificationFlags flags) {
        auto* cond = dynamic_cast<KpaString*>(path.getFirst());
        const int rank = cond && (flags & (Kp::NotifyValue | Kp::NotifyItem)) ? _rankOfRule(*cond) : -1;
        if (rank >= 0 && cond == _normalised)
            _normalised = nullptr;
        else if (rank >= 0)
            changed.try_emplace(rank, cond);
    });
    return changed;
}

int KpcSampleCategories::_rankOfRule(const KpaString& cond) const
{
    const auto* rule = dynamic_cast<const KpcSampleCategoriesRule*>(cond.getParent());
    return rule && rule->_cond == &cond ? _rules->getItemRank(rule) : -1;
}

void KpcSampleCategories::_nameNextRule()
{
    const KuoPointer<KpcSampleCategoriesRule> prototype(_rules->getItemPrototype());
    if (!prototype)
        return;
    const QString separator = _categoryPrefix.isEmpty() ? QString() : QStringLiteral(" ");
    const qint64 last = greatestNumber(getRuleNames(), _categoryPrefix + separator + QStringLiteral("([0-9]*)"));
    prototype->_name->setValue(_prefixed(last + 1));
    if (prototype)
        prototype->_color->setValue(Ku::getRandomColor(nullptr));
}

// Runs for each variable that a document sets, so nothing is copied that need not be.
void KpcSampleCategories::_updateFlags()
{
    MbbOrderedMap<int, QString> names;
    for (int i = 0; i < getVariablesCount(); ++i) {
        const KsoDataIdentifier& ident = _variables->getItemAt(i)->getValue();
        if (!ident.isNull())
            names.insert(ident.getId(), ident.getName());
    }
    QList<KpaItemDef> items;
    for (const auto& [id, name] : names)
        items.append(KpaItemDef(id, name, name));
    KuoLock<KpnModif> lock(_flags);
    _flags->reset(items, false);
    if (lock.isAlive())
        _flags->checkAll();
    lock.commit();
}
