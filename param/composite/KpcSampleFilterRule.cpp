#include <param/KpbFailure.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcSampleFilterRule.h>

#include <QtCore/QObject>

#include <geos/MgcQuickStat.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KspDatasetBuilder.h>
#include <study/KssProject.h>
#include <study/KstTransactionWrapperR.h>
#include <util/KufSampleFilterRuleAlpha.h>
#include <util/KufSampleFilterRuleEnum.h>
#include <util/KufSampleFilterRuleNumeric.h>
#include <util/KufSampleFilterRuleSelection.h>
#include <util/KuxXml.h>

using Numeric = KufSampleFilterRuleNumeric;
using Alpha = KufSampleFilterRuleAlpha;

const QString KpcSampleFilterRule::Variable = QStringLiteral("VARIABLE");
const QString KpcSampleFilterRule::InvertSelection = QStringLiteral("INVERT_SELECTION");
const QString KpcSampleFilterRule::NumMode = QStringLiteral("NUM_MODE");
const QString KpcSampleFilterRule::NumCompareOperator = QStringLiteral("NUM_COMPARE_OPERATOR");
const QString KpcSampleFilterRule::NumCompareValue = QStringLiteral("NUM_COMPARE_VALUE");
const QString KpcSampleFilterRule::NumCompareTolerance = QStringLiteral("NUM_COMPARE_TOLERANCE");
const QString KpcSampleFilterRule::NumIntervalLowerOperator = QStringLiteral("NUM_INTERVAL_LOWER_OPERATOR");
const QString KpcSampleFilterRule::NumIntervalLower = QStringLiteral("NUM_INTERVAL_LOWER");
const QString KpcSampleFilterRule::NumIntervalUpperOperator = QStringLiteral("NUM_INTERVAL_UPPER_OPERATOR");
const QString KpcSampleFilterRule::NumIntervalUpper = QStringLiteral("NUM_INTERVAL_UPPER");
const QString KpcSampleFilterRule::AlphaMode = QStringLiteral("ALPHA_MODE");
const QString KpcSampleFilterRule::AlphaContainsValue = QStringLiteral("ALPHA_CONTAINS_VALUE");
const QString KpcSampleFilterRule::AlphaEQValue = QStringLiteral("ALPHA_EQ_VALUE");
const QString KpcSampleFilterRule::AlphaNEQValue = QStringLiteral("ALPHA_NEQ_VALUE");
const QString KpcSampleFilterRule::EnumList = QStringLiteral("ENUM_CHECK_LIST");

namespace {

constexpr Kp::NotificationFlags valueFlags = Kp::NotifyValue | Kp::NotifyItem;

void asVariable(KpaData& variable)
{
    variable.setRootType(KsoEDataType::SUPPORT);
    variable.setFilter(KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY, MbdVarTypeFlags::ANY, 0));
    variable.setRelative(true);
}

/// Offers the items of `Enum`, and chooses its default one.
template <class Enum>
void asChoice(KpaEnum& choice)
{
    QList<KpaItemDef> items;
    for (auto each = Enum::createIterator(); each.hasNext();)
        items.append(each.next());
    choice.reset(items);
    choice.setEnum(Enum());
}

template <class Enum>
Enum chosen(const KpaEnum& choice)
{
    return Enum::fromValue(choice.getValue(), Enum());
}

/// Runs the steps in turn, as long as the observable of the batch lives.
template <class... Steps>
void whileAlive(const KuoLock<KpnModif>& lock, Steps... steps)
{
    (..., (lock.isAlive() ? steps() : void()));
}

} // namespace

KpcSampleFilterRule::KpcSampleFilterRule(const QString& key, const KstITransactable& transactable)
    : KpcAComposite(KpbEType::SAMPLE_FILTER_RULE, key, transactable)
{
    _declare({*this, KpcChildren::Create});
}

KpcSampleFilterRule::KpcSampleFilterRule(const KpcSampleFilterRule& other, const QString& newKey)
    : KpcAComposite(other, newKey),
      _min(other._min),
      _max(other._max),
      _mean(other._mean),
      _stdDev(other._stdDev)
{
    _declare({*this, KpcChildren::Rebind});
}

KpcSampleFilterRule* KpcSampleFilterRule::duplicate(const QString& newKey) const
{
    return new KpcSampleFilterRule(*this, newKey);
}

void KpcSampleFilterRule::_declare(KpcChildren children)
{
    const auto asMode = asChoice<Numeric::Mode>;
    const auto asComparison = asChoice<Numeric::CompareOperator>;
    const auto asBound = asChoice<Numeric::IntervalOperator>;
    const auto asTextMode = asChoice<Alpha::Mode>;
    children.add(_variable, Variable, QObject::tr("Variable"), _getTransactable()).with(asVariable);
    children.add(_invertSelection, InvertSelection, QObject::tr("Invert Selection")).value(false);
    children.add(_numMode, NumMode, QObject::tr("Numerical Option")).with(asMode);
    children.add(_numCompareOperator, NumCompareOperator, QObject::tr("Compare Operator")).with(asComparison);
    children.add(_numCompareValue, NumCompareValue, QObject::tr("Compare Value")).automatic(0.0);
    children.add(_numCompareTolerance, NumCompareTolerance, QObject::tr("Compare Tolerance")).automatic(0.0);
    children.add(_numIntervalLowerOperator, NumIntervalLowerOperator, QObject::tr("Interval Lower operator"))
        .with(asBound);
    children.add(_numIntervalLower, NumIntervalLower, QObject::tr("Interval lower bound")).automatic(0.0);
    children.add(_numIntervalUpperOperator, NumIntervalUpperOperator, QObject::tr("Interval Upper operator"))
        .with(asBound);
    children.add(_numIntervalUpper, NumIntervalUpper, QObject::tr("Interval upper bound")).automatic(1.0);
    children.add(_alphaMode, AlphaMode, QObject::tr("String Option")).with(asTextMode);
    children.add(_alphaContainsValue, AlphaContainsValue, QObject::tr("Contains String"));
    children.add(_alphaEQValue, AlphaEQValue, QObject::tr("Equal String"));
    children.add(_alphaNEQValue, AlphaNEQValue, QObject::tr("Not Equal String"));
    children.add(_enumList, EnumList, QObject::tr("Categories"));
}

KsoAVariableItem* KpcSampleFilterRule::_variableItem() const
{
    return dynamic_cast<KsoAVariableItem*>(_variable->getDataItem());
}

// The engine's rule

QSharedPointer<KufISampleFilterRule> KpcSampleFilterRule::getBasicFilter() const
{
    const KsoAVariableItem* item = _variableItem();
    return item ? getBasicFilter((*item)()) : QSharedPointer<KufISampleFilterRule>();
}

QSharedPointer<KufISampleFilterRule> KpcSampleFilterRule::getBasicFilter(const MbdVariableDetails& details) const
{
    const MbdEVarType type = details.getType();
    if (type == MbdEVarType::BOOLEAN)
        return _selectionFilter();
    if (type == MbdEVarType::ENUM)
        return _enumFilter();
    return type == MbdEVarType::STRING ? _alphaFilter() : _numericFilter();
}

QSharedPointer<KufISampleFilterRule> KpcSampleFilterRule::_numericFilter() const
{
    const auto rule = QSharedPointer<Numeric>::create();
    rule->setCompareOperator(chosen<Numeric::CompareOperator>(*_numCompareOperator));
    rule->setCompareValue(_numCompareValue->getValue());
    rule->setCompareTolerance(_numCompareTolerance->getValue());
    rule->setIntervalOperators(chosen<Numeric::IntervalOperator>(*_numIntervalLowerOperator),
                               chosen<Numeric::IntervalOperator>(*_numIntervalUpperOperator));
    rule->setIntervalValues(_numIntervalLower->getValue(), _numIntervalUpper->getValue());
    rule->setMode(chosen<Numeric::Mode>(*_numMode));
    return rule;
}

QSharedPointer<KufISampleFilterRule> KpcSampleFilterRule::_alphaFilter() const
{
    const auto rule = QSharedPointer<Alpha>::create();
    rule->setMode(chosen<Alpha::Mode>(*_alphaMode));
    rule->setContainsValue(_alphaContainsValue->getValue());
    rule->setEqualValue(_alphaEQValue->getValue());
    rule->setNotEqualValue(_alphaNEQValue->getValue());
    return rule;
}

QSharedPointer<KufISampleFilterRule> KpcSampleFilterRule::_enumFilter() const
{
    const auto rule = QSharedPointer<KufSampleFilterRuleEnum>::create();
    rule->setSelectedList(_enumList->getCheckedLabels());
    return rule;
}

QSharedPointer<KufISampleFilterRule> KpcSampleFilterRule::_selectionFilter() const
{
    return QSharedPointer<KufSampleFilterRuleSelection>::create(_invertSelection->getValue());
}

// What observers do may destroy the rule at each step.
void KpcSampleFilterRule::setBasicFilter(QSharedPointer<KufISampleFilterRule> rule)
{
    if (!rule)
        return;
    KuoLock<KpnModif> lock(this);
    if (const auto* selection = dynamic_cast<const KufSampleFilterRuleSelection*>(rule.data()))
        _invertSelection->setValue(selection->isInverted());
    else if (const auto* numeric = dynamic_cast<const Numeric*>(rule.data()))
        _setNumericFilter(*numeric, lock);
    else if (const auto* alpha = dynamic_cast<const Alpha*>(rule.data()))
        _setAlphaFilter(*alpha, lock);
    else if (const auto* categories = dynamic_cast<const KufSampleFilterRuleEnum*>(rule.data()))
        _enumList->setCheckedFlagsFromLabels(categories->getSelectedList());
    if (lock.isAlive())
        _notify(Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyItem);
    lock.commit();
}

void KpcSampleFilterRule::_setNumericFilter(const Numeric& rule, const KuoLock<KpnModif>& lock)
{
    _numMode->setEnum(rule.getMode());
    if (rule.getMode() == Numeric::Mode::COMPARE) {
        whileAlive(
            lock, [&] { _numCompareOperator->setEnum(rule.getCompareOperator()); },
            [&] { _numCompareValue->setValue(rule.getCompareValue()); },
            [&] { _numCompareTolerance->setValue(rule.getCompareTolerance()); });
    }
    else if (rule.getMode() == Numeric::Mode::RANGE) {
        whileAlive(
            lock, [&] { _numIntervalLowerOperator->setEnum(rule.getIntervalLowerOperator()); },
            [&] { _numIntervalUpperOperator->setEnum(rule.getIntervalUpperOperator()); },
            [&] { _numIntervalLower->setValue(rule.getIntervalLower()); },
            [&] { _numIntervalUpper->setValue(rule.getIntervalUpper()); });
    }
}

void KpcSampleFilterRule::_setAlphaFilter(const Alpha& rule, const KuoLock<KpnModif>& lock)
{
    _alphaMode->setEnum(rule.getMode());
    if (!lock.isAlive())
        return;
    if (rule.getMode() == Alpha::Mode::CONTAINS)
        _alphaContainsValue->setValue(rule.getContainsValue());
    else if (rule.getMode() == Alpha::Mode::EQUAL_TO)
        _alphaEQValue->setValue(rule.getEqualValue());
    else
        _alphaNEQValue->setValue(rule.getNotEqualValue());
}

QString KpcSampleFilterRule::getFilterName() const
{
    const KsoAVariableItem* item = _variableItem();
    const QSharedPointer<KufISampleFilterRule> rule = getBasicFilter();
    return item && rule ? rule->getDescription((*item)()) : QObject::tr("No variable selected");
}

void KpcSampleFilterRule::resetFromParam(const KpcSampleFilterRule* other)
{
    if (!other)
        return;
    KuoLock<KpnModif> lock(this);
    for (int i = 0; lock.isAlive() && i < getChildCount(); ++i)
        getChild(i)->unserialize(other->getChild(i)->serialize());
    lock.commit();
}

// The root

void KpcSampleFilterRule::setRootIdent(const KsoDataIdentifier& ident, bool takeType)
{
    _variable->setRootIdent(ident, takeType);
}

void KpcSampleFilterRule::setRootType(const KsoEDataType& type)
{
    if (type != KsoEDataType::FILE && type != KsoEDataType::SUPPORT)
        Kp::failProgramming(QStringLiteral("void __cdecl KpcSampleFilterRule::setRootType(const class KsoEDataType &)"),
                            QStringLiteral("composite\\KpcSampleFilterRule"),
                            QStringLiteral("Sample Filter root can only be a file or a support."));
    _variable->setRootType(type);
}

// Reactions

void KpcSampleFilterRule::update(const KpnModif& modif)
{
    KuoLock<KpnModif> lock(this);
    if (modif.hasModif(_variable, Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyItem))
        _updatedVariable(lock);
    whileAlive(
        lock, [&] { _followOperator(modif, lock); }, [&] { _keepBoundsInOrder(modif, lock); },
        [&] { KpcAComposite::update(modif); });
    lock.commit();
}

void KpcSampleFilterRule::_followOperator(const KpnModif& modif, const KuoLock<KpnModif>& lock)
{
    const bool operatorModified = modif.hasModif(_numCompareOperator, valueFlags);
    if (!operatorModified && !modif.hasModif(_numMode, valueFlags))
        return;
    const int compareOperator = _numCompareOperator->getValue();
    const bool forEquality = compareOperator == Numeric::CompareOperator::EQUAL.getValue() ||
                             compareOperator == Numeric::CompareOperator::NOT_EQUAL.getValue();
    _numCompareTolerance->setEnabled(_numMode->getValue() == Numeric::Mode::COMPARE.getValue() && forEquality);
    if (operatorModified && lock.isAlive())
        _fixNumericAutoValues();
}

void KpcSampleFilterRule::_keepBoundsInOrder(const KpnModif& modif, const KuoLock<KpnModif>& lock)
{
    const auto areSwapped = [this] { return _numIntervalLower->getValue() > _numIntervalUpper->getValue(); };
    if (modif.hasModif(_numIntervalLower, valueFlags) && areSwapped())
        _numIntervalUpper->setValue(_numIntervalLower->getValue());
    if (lock.isAlive() && modif.hasModif(_numIntervalUpper, valueFlags) && areSwapped())
        _numIntervalLower->setValue(_numIntervalUpper->getValue());
}

void KpcSampleFilterRule::_updatedVariable(const KuoLock<KpnModif>& lock)
{
    const KsoAVariableItem* item = _variableItem();
    if (!item)
        return;
    const MbdVariableDetails details = (*item)();
    if (details.getType().isNumeric())
        _readNumbers(details, lock);
    else if (details.getType() == MbdEVarType::ENUM)
        _readCategories(details);
}

// Observers of the numbers may have changed the variable, or destroyed the rule, when its details have been told.
void KpcSampleFilterRule::_readNumbers(const MbdVariableDetails& details, const KuoLock<KpnModif>& lock)
{
    whileAlive(
        lock, [&] { _numCompareValue->setDetails(details); }, [&] { _numCompareTolerance->setDetails(details); },
        [&] { _numIntervalLower->setDetails(details); }, [&] { _numIntervalUpper->setDetails(details); });
    const KsoAVariableItem* item = lock.isAlive() ? _variableItem() : nullptr;
    if (!item || !item->getStorageType().isNumeric())
        return;
    KstTransactionWrapperR transaction(_getTransactable());
    KspDatasetBuilder builder(transaction);
    builder.setSupport(item->getSupport());
    builder.assignVariable(item, Mbd::Role::V);
    MgdDataSetPoints points;
    builder.buildDataset(points, false);
    MgcQuickStat quickStat(Mbd::Role::V);
    quickStat.setInputDataSet(points);
    quickStat.run();
    const MbcStatBasic& statistics = quickStat.getMultivariateStatistics().getConstUnivariateStats(0);
    _min = statistics.getMinimum();
    _max = statistics.getMaximum();
    _mean = statistics.getMean();
    _stdDev = statistics.getStandardDeviation();
    transaction.finish();
    _fixNumericAutoValues();
}

void KpcSampleFilterRule::_readCategories(const MbdVariableDetails& details)
{
    const int catalogId = details.getEnumDetails().getCatalogId();
    QStringList names;
    _variable->getProject()->getModelEnumCatalog()->getValidItemFromId(catalogId)->getCatalog().getNamesList(names,
                                                                                                             false);
    QList<KpaItemDef> items;
    for (int i = 0; i < names.size(); ++i)
        items.append(KpaItemDef(i, names.at(i), names.at(i)));
    _enumList->reset(items, false);
}

void KpcSampleFilterRule::_fixNumericAutoValues()
{
    double value = 0.0;
    double tolerance = 0.0;
    switch (_numCompareOperator->getValue()) {
    case 0:
    case 1:
        value = _max;
        break;
    case 2:
    case 3:
        value = _min;
        break;
    case 4:
    case 5:
        value = _mean;
        tolerance = _stdDev;
        break;
    default:
        break;
    }
    KuoLock<KpnModif> lockValue(_numCompareValue);
    KuoLock<KpnModif> lockTolerance(_numCompareTolerance);
    KuoLock<KpnModif> lockLower(_numIntervalLower);
    KuoLock<KpnModif> lockUpper(_numIntervalUpper);
    _numCompareValue->setAutoValue(value);
    _numCompareTolerance->setAutoValue(tolerance);
    _numIntervalLower->setAutoValue(_min);
    _numIntervalUpper->setAutoValue(_max);
    lockValue.commit();
    lockTolerance.commit();
    lockLower.commit();
    lockUpper.commit();
    lockLower.commit(); // the upper bound may have dragged it along
}

// Older versions

void KpcSampleFilterRule::convert(QDomElement& element, int fromVersion) const
{
    if (fromVersion == 1)
        _convertToVersion2(element);
    else if (fromVersion != 2)
        Kp::failProgramming(QStringLiteral("void __cdecl KpcSampleFilterRule::convert(class QDomElement &,int) const"),
                            QStringLiteral("param/composite/KpcSampleFilterRule"),
                            QStringLiteral("Unexpected version number requested"));
}

void KpcSampleFilterRule::_convertToVersion2(QDomElement& element)
{
    const auto paramOf = [&](const char* key) { return _convertXmlGetParam(element, {QString::fromLatin1(key)}); };
    const QDomElement less = paramOf("NUM_LE_VALUE");
    const QDomElement greater = paramOf("NUM_GE_VALUE");
    const QDomElement equal = paramOf("NUM_EQ_VALUE");
    if (less.isNull() || greater.isNull() || equal.isNull())
        return;
    _convertNumericMode(element, {less, greater, equal});
    for (const QDomElement& old : {less, greater, equal})
        element.removeChild(old);
    _convertXmlChangeKeys(element, {{QStringLiteral("NUM_EQ_TOL_VALUE"), NumCompareTolerance},
                                    {QStringLiteral("NUM_INTERVAL_MIN_VALUE"), NumIntervalLower},
                                    {QStringLiteral("NUM_INTERVAL_MAX_VALUE"), NumIntervalUpper}});
    _convertXmlUpdateEnumValue(paramOf("ALPHA_MODE"),
                               {{QStringLiteral("V Contains"), Alpha::Mode::CONTAINS.getKey()},
                                {QStringLiteral("V is Equal"), Alpha::Mode::EQUAL_TO.getKey()},
                                {QStringLiteral("V is not Equal"), Alpha::Mode::NOT_EQUAL_TO.getKey()}});
}

// The three comparisons, each with a value of its own, become one.
void KpcSampleFilterRule::_convertNumericMode(QDomElement& element, const std::array<QDomElement, 3>& values)
{
    struct Row
    {
        const char* text;
        const Numeric::Mode& mode;
        const Numeric::CompareOperator& compareOperator;
        QDomElement value;
    };
    const Row rows[] = {
        {"V is Defined", Numeric::Mode::IS_DEFINED, Numeric::CompareOperator::EQUAL, {}},
        {"V Between", Numeric::Mode::RANGE, Numeric::CompareOperator::EQUAL, {}},
        {"V <=", Numeric::Mode::COMPARE, Numeric::CompareOperator::LESS_OR_EQUAL_TO, values[0]},
        {"V >=", Numeric::Mode::COMPARE, Numeric::CompareOperator::GREATER_OR_EQUAL_TO, values[1]},
        {"V =", Numeric::Mode::COMPARE, Numeric::CompareOperator::EQUAL, values[2]},
    };
    const QDomElement mode = _convertXmlGetParam(element, {NumMode});
    const QString text = KuxXml::getValue(mode);
    Numeric::CompareOperator compareOperator = Numeric::CompareOperator::EQUAL;
    double compareValue = 0.0;
    for (const Row& row : rows) {
        if (text != QLatin1String(row.text))
            continue;
        KuxXml::setValue(mode, row.mode.getKey());
        compareOperator = row.compareOperator;
        compareValue = KuxXml::getValue(row.value).toDouble();
    }
    const auto insert = [&](const QString& key, const QString& value) {
        const QDomElement param = _convertXmlCreateNewParam(element, key);
        KuxXml::setValue(param, value);
        element.insertBefore(param, values[0]);
    };
    insert(NumCompareOperator, compareOperator.getKey());
    insert(NumCompareValue, QString::number(compareValue, 'g', 6));
}
