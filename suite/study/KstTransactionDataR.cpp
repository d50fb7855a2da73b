#include <basic/MbbGlobal.h>
#include <basic/MbeError.h>
#include <study/KsmModelData.h>
#include <study/KsoDataSubset.h>
#include <study/KstTransactionDataR.h>

#include <algorithm>
#include <functional>

namespace {

using Test = std::function<bool(double)>;

Test categoryTest(const QList<short>& categories)
{
    std::vector<bool> selected(1 << 16);
    for (const short category : categories)
        selected[std::size_t(category - MbbGlobal::I16_FFFF)] = true;
    return [selected = std::move(selected)](double value) {
        const int code = value == MbbGlobal::D_FFFF ? MbbGlobal::I16_FFFF : int(value);
        return bool(selected[std::size_t(code - MbbGlobal::I16_FFFF)]);
    };
}

/// Tells whether a value of the type, which is one that can select, is selected.
Test valueTest(const MbdEVarType& type, const KsoDataSubset& subset)
{
    if (type == MbdEVarType::ENUM)
        return categoryTest(subset.getCategories());
    return [](double value) { return value == 1.0; };
}

void addSelected(const std::vector<double>& values, const Test& test, std::vector<bool>& selected)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (test(values[i]))
            selected[i] = true;
    }
}

void restrictTo(const MbiAIntervalIntDisjoint& intervals, std::vector<bool>& selected)
{
    if (intervals.isEmpty())
        return;
    for (std::size_t i = 0; i < selected.size(); ++i)
        selected[i] = selected[i] && intervals.contains(int(i));
}

} // namespace

const KsmModelData& KstTransactionDataR::_openModel(const KsoADataItem* item) const
{
    if (_finished)
        throw MbeProgrammingError(QStringLiteral("Data is read after the end of its transaction."));
    if (!item || item->getModel() != _model)
        throw MbeProgrammingError(QStringLiteral("What is read is no data item of the project of the transaction."));
    return *_model;
}

void KstTransactionDataR::readValues(const KsoAVariableItem* variable, std::vector<double>& values) const
{
    _openModel(variable).readValues(variable, values);
}

void KstTransactionDataR::readValues(const KsoDataMacroVariable* variable, int realisation,
                                     std::vector<double>& values) const
{
    _openModel(variable).readValues(variable, realisation, values);
}

void KstTransactionDataR::readTexts(const KsoAVariableItem* variable, QStringList& texts) const
{
    _openModel(variable).readTexts(variable, texts);
}

void KstTransactionDataR::readCodes(const KsoAVariableItem* variable, std::vector<short>& codes) const
{
    _openModel(variable).readCodes(variable, codes);
}

std::vector<bool> KstTransactionDataR::_selected(const KsoDataSubset& subset, const KsoDataSupport* support) const
{
    const KsoADataItem* item = subset.getSelectionVar();
    std::vector<bool> selected(std::size_t(support->getSampleCount()), !item);
    if (!item || item->getParentItem() != support)
        return selected;
    const auto* variable = dynamic_cast<const KsoAVariableItem*>(item);
    const auto* macro = dynamic_cast<const KsoDataMacroVariable*>(item);
    const MbdEVarType type = variable ? variable->getStorageType()
                             : macro  ? macro->getDetails().getType()
                                      : MbdEVarType();
    if (type != MbdEVarType::ENUM && type != MbdEVarType::BOOLEAN)
        return selected;
    const Test test = valueTest(type, subset);
    std::vector<double> values;
    for (int i = 0; i < (variable ? 1 : macro->getRealisationCount()); ++i) {
        if (variable)
            readValues(variable, values);
        else
            readValues(macro, i, values);
        addSelected(values, test, selected);
    }
    return selected;
}

std::vector<bool> KstTransactionDataR::readSubset(const KsoDataSubset& subset, const KsoDataSupport* support) const
{
    _openModel(support);
    std::vector<bool> selected = _selected(subset, support);
    restrictTo(subset.getIntervals(), selected);
    if (subset.isDefined() && subset.isInverted())
        selected.flip();
    return selected;
}

void KstTransactionDataR::prepareSubset(KsoDataSubset& subset, const KsoDataSupport* support) const
{
    if (!support || !subset.isCounted()) {
        subset.setSelectedSampleCount(0);
        return;
    }
    const std::vector<bool> selected = readSubset(subset, support);
    subset.setSelectedSampleCount(int(std::count(selected.begin(), selected.end(), true)));
}
