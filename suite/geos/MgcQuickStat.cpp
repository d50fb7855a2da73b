#include <geos/MgcQuickStat.h>

#include <basic/MbeError.h>

void MgcQuickStat::run()
{
    if (!_dataSet)
        throw MbeProgrammingError(QStringLiteral("Statistics need a data set to run on."));
    _statistics.clear();
    for (int i = 0; i < _dataSet->getColumnCount(_role); ++i) {
        MbcStatBasic statistics;
        statistics.add(_dataSet->getColumn(_role, i));
        _statistics.append(statistics);
    }
}
