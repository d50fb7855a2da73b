#include <util/KufSampleFilterDefaultCombination.h>

#include <QtCore/QStringList>

#include <util/KufISampleFilter.h>

KufSampleFilterDefaultCombination::KufSampleFilterDefaultCombination(const KufISampleFilter* filter)
{
    QStringList rules;
    const int count = filter ? filter->getRulesCount() : 0;
    for (int number = 1; number <= count; ++number)
        rules.append(QLatin1Char('R') + QString::number(number));
    _value = rules.join(QStringLiteral(" and "));
}
