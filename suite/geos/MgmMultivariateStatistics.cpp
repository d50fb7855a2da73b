#include <geos/MgmMultivariateStatistics.h>

#include <basic/MbeError.h>

#include <cstddef>

const MbcStatBasic& MgmMultivariateStatistics::getConstUnivariateStats(int variable) const
{
    if (variable < 0 || variable >= getVariableCount())
        throw MbeProgrammingError(QStringLiteral("There are no statistics of a variable %1.").arg(variable));
    return _variables[std::size_t(variable)];
}
