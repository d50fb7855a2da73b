#pragma once

#include <basic/Mbd.h>
#include <geos/GeosExport.h>

#include <cstddef>
#include <map>
#include <vector>

/// The numbers of a set of points, column by column, each column in a role. All columns have one length, the number of
/// points; undefined numbers are `MbbGlobal::D_FFFF`.
class KESTRIN_GEOS_EXPORT MgdDataSetPoints
{
public:
    /// Appends a column to those of the role. An `MbeProgrammingError` if its length differs from that of the others.
    void addColumn(Mbd::Role role, std::vector<double> values);
    void clear();

    int getColumnCount(Mbd::Role role) const;
    /// An `MbeProgrammingError` if there is no such column.
    const std::vector<double>& getColumn(Mbd::Role role, int index) const;
    /// 0 without a column.
    std::size_t getSampleCount() const { return _sampleCount; }
    bool isEmpty() const { return _columns.empty(); }

private:
    std::map<Mbd::Role, std::vector<std::vector<double>>> _columns;
    std::size_t _sampleCount = 0;
};
