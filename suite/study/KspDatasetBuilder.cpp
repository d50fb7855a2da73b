#include <basic/MbbGlobal.h>
#include <basic/MbeError.h>
#include <geos/MgdDataSetPoints.h>
#include <study/KsoAVariableItem.h>
#include <study/KspDatasetBuilder.h>
#include <study/KstTransactionDataR.h>
#include <study/KstTransactionWrapperR.h>

namespace {

using Columns = std::vector<std::vector<double>>;

bool isDefined(const Columns& columns, std::size_t sample)
{
    for (const auto& column : columns) {
        if (column[sample] == MbbGlobal::D_FFFF)
            return false;
    }
    return true;
}

/// Leaves only the samples that every column has a value for.
void keepDefined(Columns& columns)
{
    if (columns.empty())
        return;
    std::size_t kept = 0;
    const std::size_t count = columns.front().size();
    for (std::size_t sample = 0; sample < count; ++sample) {
        if (!isDefined(columns, sample))
            continue;
        for (auto& column : columns)
            column[kept] = column[sample];
        ++kept;
    }
    for (auto& column : columns)
        column.resize(kept);
}

} // namespace

void KspDatasetBuilder::assignVariable(const KsoAVariableItem* variable, Mbd::Role role)
{
    if (!variable || variable->getStorageType() == MbdEVarType::STRING)
        throw MbeProgrammingError(QStringLiteral("A dataset is built from a variable that has no numbers."));
    _variables.append({variable, role});
}

void KspDatasetBuilder::buildDataset(MgdDataSetPoints& dataset, bool definedOnly) const
{
    if (!_support)
        throw MbeProgrammingError(QStringLiteral("A dataset is built without a support."));
    Columns columns;
    for (const auto& [variable, role] : _variables) {
        if (variable->getSupport() != _support)
            throw MbeProgrammingError(QStringLiteral("A dataset is built from variables of several supports."));
        _transaction.data()->readValues(variable, columns.emplace_back());
    }
    if (definedOnly)
        keepDefined(columns);
    MgdDataSetPoints built;
    for (std::size_t i = 0; i < columns.size(); ++i)
        built.addColumn(_variables.at(int(i)).second, std::move(columns[i]));
    dataset = std::move(built);
}
