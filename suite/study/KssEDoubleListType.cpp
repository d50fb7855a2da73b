#include <study/KssEDoubleListType.h>

#include <QtCore/QObject>

const KssEDoubleListType KssEDoubleListType::CUTOFFS(QObject::tr("Cutoffs"), 0, "CUTOFFS");
const KssEDoubleListType KssEDoubleListType::ISOLINES(QObject::tr("Isolines"), 1, "ISOLINES");
const KssEDoubleListType KssEDoubleListType::QUANTILES(QObject::tr("Quantiles"), 2, "QUANTILES");

QList<const KssEDoubleListType*> KssEDoubleListType::items()
{
    return {&CUTOFFS, &ISOLINES, &QUANTILES};
}
