#include <util/KufFilterRuleType.h>

#include <QtCore/QObject>

const KufFilterRuleType KufFilterRuleType::SELECTION(QObject::tr("Selection"), 0, "SELECTION");
const KufFilterRuleType KufFilterRuleType::NUMERIC(QObject::tr("Numeric"), 1, "NUMERIC");
const KufFilterRuleType KufFilterRuleType::ALPHA(QObject::tr("Text"), 2, "ALPHA");
const KufFilterRuleType KufFilterRuleType::ENUM(QObject::tr("Categories"), 3, "ENUM");

QList<const KufFilterRuleType*> KufFilterRuleType::items()
{
    return {&SELECTION, &NUMERIC, &ALPHA, &ENUM};
}
