#include "PlainCounts.h"

#include <basic/MbeError.h>
#include <geos_python/MgmPythonDict.h>
#include <geos_python/MgmPythonInterpreter.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaString.h>
#include <study/KsoDataSubset.h>
#include <study/KsoSampleCategories.h>
#include <study/KsoSampleFilter.h>
#include <study/KstTransactionDataR.h>
#include <study/KstTransactionWrapperR.h>

#include <cmath>
#include <functional>

namespace {

/// One sample as people would read it: a number (undefined: not a number), or a text.
struct Cell
{
    double number = std::nan("");
    QString text;
};

/// Whether the variable has one value for each sample of the support, and is not one of categories without a catalog.
bool isReadable(const SurveyProject& project, const KsoAVariableItem* variable, const KsoDataSupport* support)
{
    if (!variable || variable->getSupport() != support)
        return false;
    return variable->getStorageType() != MbdEVarType::ENUM ||
           project.catalogs().getItemFromId(variable->getDetails().getEnumDetails().getCatalogId());
}

std::vector<Cell> cellsOf(const SurveyProject& project, const KsoAVariableItem& variable)
{
    std::vector<Cell> cells;
    if (variable.getStorageType() == MbdEVarType::STRING) {
        QStringList texts;
        project.data().readTexts(&variable, texts);
        for (const QString& text : texts)
            cells.push_back({std::nan(""), text});
        return cells;
    }
    std::vector<double> values;
    project.data().readValues(&variable, values);
    const bool hasLabels = variable.getStorageType() == MbdEVarType::ENUM;
    const KsoEnumCatalog* catalog =
        hasLabels ? project.catalogs().getItemFromId(variable.getDetails().getEnumDetails().getCatalogId()) : nullptr;
    for (const double value : values) {
        Cell cell;
        if (value != MbbGlobal::D_FFFF)
            cell.number = value;
        if (catalog && value != MbbGlobal::D_FFFF)
            cell.text = catalog->getCatalog().getDefinition(short(value)).getLabel();
        cells.push_back(cell);
    }
    return cells;
}

bool compares(const KpcSampleFilterRule& rule, double number)
{
    const double to = rule.getNumCompareValueParameter()->getValue();
    const double tolerance = std::max(0.0, rule.getNumCompareToleranceParameter()->getValue());
    switch (rule.getNumCompareOperatorParameter()->getValue()) {
    case 0:
        return number < to;
    case 1:
        return number <= to;
    case 2:
        return number > to;
    case 3:
        return number >= to;
    case 4:
        return std::abs(number - to) <= tolerance;
    default:
        return std::abs(number - to) > tolerance;
    }
}

bool isBetween(const KpcSampleFilterRule& rule, double number)
{
    const double lower = rule.getNumIntervalLowerParameter()->getValue();
    const double upper = rule.getNumIntervalUpperParameter()->getValue();
    const bool above = rule.getNumIntervalLowerOperatorParameter()->getValue() == 0 ? lower < number : lower <= number;
    const bool below = rule.getNumIntervalUpperOperatorParameter()->getValue() == 0 ? number < upper : number <= upper;
    return above && below;
}

bool fulfilsNumber(const KpcSampleFilterRule& rule, double number)
{
    if (std::isnan(number))
        return false;
    const int mode = rule.getNumModeParameter()->getValue();
    return mode == 0 || (mode == 1 ? compares(rule, number) : isBetween(rule, number));
}

bool fulfilsText(const KpcSampleFilterRule& rule, const QString& text)
{
    switch (rule.getAlphaModeParameter()->getValue()) {
    case 0:
        return text.contains(rule.getAlphaContainsValueParameter()->getValue());
    case 1:
        return text == rule.getAlphaEQValueParameter()->getValue();
    default:
        return text != rule.getAlphaNEQValueParameter()->getValue();
    }
}

bool fulfils(const KpcSampleFilterRule& rule, const MbdEVarType& type, const Cell& cell)
{
    if (type == MbdEVarType::STRING)
        return fulfilsText(rule, cell.text);
    if (type == MbdEVarType::ENUM)
        return !cell.text.isEmpty() && rule.getFlagsParameter()->getCheckedLabels().contains(cell.text);
    if (type == MbdEVarType::BOOLEAN)
        return !std::isnan(cell.number) && (cell.number != 0.0) != rule.getInvertSelectionParameter()->getValue();
    return fulfilsNumber(rule, cell.number);
}

struct Combination
{
    QString text;
    int ruleCount;
    std::function<bool(const std::vector<bool>&)> holds;
};

const std::vector<Combination>& knownCombinations()
{
    using Rules = std::vector<bool>;
    static const std::vector<Combination> all = {
        {QStringLiteral("R1"), 1, [](const Rules& r) { return r[0]; }},
        {QStringLiteral("not R1"), 1, [](const Rules& r) { return !r[0]; }},
        {QStringLiteral("R1 and R2"), 2, [](const Rules& r) { return r[0] && r[1]; }},
        {QStringLiteral("R1 or R2"), 2, [](const Rules& r) { return r[0] || r[1]; }},
        {QStringLiteral("R1 AND NOT (R2 OR R3)"), 3, [](const Rules& r) { return r[0] && !(r[1] || r[2]); }},
        {QStringLiteral("R1 and R2 and R3"), 3, [](const Rules& r) { return r[0] && r[1] && r[2]; }},
        {QStringLiteral("R1 and R2 and R3 and R4"), 4, [](const Rules& r) { return r[0] && r[1] && r[2] && r[3]; }},
    };
    return all;
}

struct Condition
{
    QString text;
    std::function<bool(const Cell& grade, const Cell& rock)> holds;
};

const std::vector<Condition>& knownConditions()
{
    static const std::vector<Condition> all = {
        {QStringLiteral("AUX1 > 1"), [](const Cell& grade, const Cell&) { return grade.number > 1.0; }},
        {QStringLiteral("0.5 <= AUX1 < 2"),
         [](const Cell& grade, const Cell&) { return grade.number >= 0.5 && grade.number < 2.0; }},
        {QStringLiteral("AUX2 == 'Clay'"),
         [](const Cell&, const Cell& rock) { return rock.text == QLatin1String("Clay"); }},
        {QStringLiteral("AUX2 in ('Sand', 'Granite') and not AUX1 > 2"),
         [](const Cell& grade, const Cell& rock) {
             return (rock.text == QLatin1String("Sand") || rock.text == QLatin1String("Granite")) &&
                    !(grade.number > 2.0);
         }},
        {QString(), [](const Cell&, const Cell&) { return false; }},
    };
    return all;
}

template <class Known>
QStringList textsOf(const std::vector<Known>& known)
{
    QStringList texts;
    for (const Known& each : known)
        texts.append(each.text);
    return texts;
}

template <class Known>
const Known* find(const std::vector<Known>& known, const QString& text)
{
    const auto found = std::find_if(known.begin(), known.end(), [&](const Known& each) { return each.text == text; });
    return found == known.end() ? nullptr : &*found;
}

} // namespace

QStringList PlainCounts::combinations()
{
    return textsOf(knownCombinations());
}

QStringList PlainCounts::conditions()
{
    return textsOf(knownConditions());
}

std::optional<int> PlainCounts::selected() const
{
    const KsoAVariableItem* variable = _form.selectionVariable().getValue().getAVariableItem();
    if (!variable)
        return {};
    const QList<int> checked = _form.selectionCategories().getCheckedValues();
    const bool inverted = _form.selectionInverted().getValue();
    int count = 0;
    for (const Cell& cell : cellsOf(_project, *variable)) {
        const bool isUndefined = std::isnan(cell.number);
        const bool isSelected = variable->getStorageType() == MbdEVarType::ENUM
                                    ? checked.contains(isUndefined ? MbbGlobal::I32_FFFF : int(cell.number))
                                    : !isUndefined && cell.number != 0.0;
        count += isSelected != inverted ? 1 : 0;
    }
    return count;
}

std::optional<int> PlainCounts::kept() const
{
    const KsoDataSupport* support = _form.dataset->getSupport();
    const Combination* combination = find(knownCombinations(), _form.filter->getCombination());
    const int ruleCount = _form.filter->getRulesCount();
    if (!support || !combination || combination->ruleCount > ruleCount)
        return {};
    std::vector<std::vector<bool>> ofSample(std::size_t(support->getSampleCount()));
    for (int i = 0; i < ruleCount; ++i) {
        const KpcSampleFilterRule& rule = *_form.filter->getRuleParameter(i);
        const KsoAVariableItem* variable = rule.getVariableParameter()->getValue().getAVariableItem();
        if (!isReadable(_project, variable, support))
            return {};
        const std::vector<Cell> cells = cellsOf(_project, *variable);
        for (std::size_t sample = 0; sample < cells.size(); ++sample)
            ofSample[sample].push_back(fulfils(rule, variable->getStorageType(), cells[sample]));
    }
    int count = 0;
    for (const std::vector<bool>& rules : ofSample)
        count += !_form.filter->isActive() || combination->holds(rules) ? 1 : 0;
    return count;
}

std::optional<QList<int>> PlainCounts::categorised() const
{
    const KsoDataSupport* support = _form.dataset->getSupport();
    const KpcSampleCategories& categories = *_form.categories;
    if (!support || categories.getVariablesCount() != 2)
        return {};
    std::vector<std::vector<Cell>> columns;
    for (int i = 0; i < 2; ++i) {
        const KsoAVariableItem* variable = categories.getVariable(i).getAVariableItem();
        if (!isReadable(_project, variable, support))
            return {};
        columns.push_back(cellsOf(_project, *variable));
    }
    QList<int> counts;
    for (int i = 0; i < categories.getRulesCount(); ++i)
        counts.append(0);
    for (std::size_t sample = 0; sample < columns[0].size(); ++sample) {
        for (int i = 0; i < categories.getRulesCount(); ++i) {
            const Condition* condition = find(knownConditions(), categories.getRuleCond(i));
            if (!condition || !condition->holds(columns[0][sample], columns[1][sample]))
                continue;
            ++counts[i];
            break;
        }
    }
    return counts;
}

std::optional<int> EngineCounts::selected() const
{
    const KsoDataSubset subset = _form.selection->getSelection();
    if (!subset.isDefined())
        return {};
    return subset.getSelectedSampleCount();
}

std::optional<int> EngineCounts::kept() const
{
    const std::unique_ptr<KsoSampleFilter> filter(_form.filter->createSampleFilter());
    if (!filter || !_support())
        return {};
    const KstTransactionWrapperR transaction(_context);
    try {
        return filter->countKeptSamples(*transaction.data(), *_support());
    }
    catch (const MbeUserError&) {
        return {};
    }
}

std::optional<QList<int>> EngineCounts::categorised() const
{
    if (!_support())
        return {};
    const std::unique_ptr<KsoSampleCategories> categories(_form.categories->createSampleCategories());
    const auto fulfils = [&](const QList<QVariant>& values, const QString& condition) {
        MgmPythonDict variables;
        for (int i = 0; i < values.size(); ++i) {
            const QString name = _form.categories->getAuxLabel() + QString::number(i + 1);
            const bool isText = categories->getVariable(i).getAVariableItem()->getStorageType().getValue() >= 5;
            if (isText)
                variables.createString(name, values.at(i).toString());
            else
                variables.createDouble(name, values.at(i).isValid() ? values.at(i).toDouble() : std::nan(""));
        }
        return MgmPythonInterpreter::getInstance()->evaluateCondition(variables, condition);
    };
    const KstTransactionWrapperR transaction(_context);
    QList<int> counts;
    for (int i = 0; i < categories->getRulesCount(); ++i)
        counts.append(0);
    try {
        for (const int rule : categories->categorise(*transaction.data(), *_support(), fulfils)) {
            if (rule != KsoSampleCategories::NoRule)
                ++counts[rule];
        }
    }
    catch (const MbeUserError&) {
        return {};
    }
    return counts;
}
