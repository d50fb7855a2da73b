#include <geos/MgdDataSetPoints.h>

#include <basic/MbeError.h>

#include <utility>

void MgdDataSetPoints::addColumn(Mbd::Role role, std::vector<double> values)
{
    if (!isEmpty() && values.size() != _sampleCount)
        throw MbeProgrammingError(QStringLiteral("A column of %1 values cannot join a data set of %2 points.")
                                      .arg(values.size())
                                      .arg(_sampleCount));
    _sampleCount = values.size();
    _columns[role].push_back(std::move(values));
}

void MgdDataSetPoints::clear()
{
    _columns.clear();
    _sampleCount = 0;
}

int MgdDataSetPoints::getColumnCount(Mbd::Role role) const
{
    const auto columns = _columns.find(role);
    return columns == _columns.end() ? 0 : int(columns->second.size());
}

const std::vector<double>& MgdDataSetPoints::getColumn(Mbd::Role role, int index) const
{
    if (index < 0 || index >= getColumnCount(role))
        throw MbeProgrammingError(QStringLiteral("The data set has no column %1 in this role.").arg(index));
    return _columns.at(role)[std::size_t(index)];
}
