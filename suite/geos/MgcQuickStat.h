#pragma once

#include <geos/MgdDataSetPoints.h>
#include <geos/MgmMultivariateStatistics.h>

/// Calculates the elementary statistics of all columns that a data set has in one role, in their order.
class KESTRIN_GEOS_EXPORT MgcQuickStat
{
public:
    explicit MgcQuickStat(Mbd::Role role) : _role(role) {}

    /// Not copied: the data set stays where it is until `run` has ended.
    void setInputDataSet(const MgdDataSetPoints& dataSet) { _dataSet = &dataSet; }
    /// An `MbeProgrammingError` without a data set; the former results stay then.
    void run();
    /// Those of the last run; none before it.
    const MgmMultivariateStatistics& getMultivariateStatistics() const { return _statistics; }

private:
    Mbd::Role _role;
    const MgdDataSetPoints* _dataSet = nullptr;
    MgmMultivariateStatistics _statistics;
};
