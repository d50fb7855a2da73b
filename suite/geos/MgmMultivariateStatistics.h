#pragma once

#include <basic/MbcStatBasic.h>
#include <geos/GeosExport.h>

#include <vector>

/// The statistics of several variables, by their place.
class KESTRIN_GEOS_EXPORT MgmMultivariateStatistics
{
public:
    void append(const MbcStatBasic& statistics) { _variables.push_back(statistics); }
    void clear() { _variables.clear(); }

    int getVariableCount() const { return int(_variables.size()); }
    /// An `MbeProgrammingError` if there is no such variable.
    const MbcStatBasic& getConstUnivariateStats(int variable) const;

private:
    std::vector<MbcStatBasic> _variables;
};
