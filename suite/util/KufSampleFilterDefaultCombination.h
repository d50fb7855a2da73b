#pragma once

#include <QtCore/QString>

#include <util/UtilExport.h>

class KufISampleFilter;

/// The combination that a sample filter has as long as nobody writes another one: all rules must be fulfilled.
class KESTRIN_UTIL_EXPORT KufSampleFilterDefaultCombination
{
public:
    /// The filter is only read here.
    explicit KufSampleFilterDefaultCombination(const KufISampleFilter* filter);

    /// "R1 and R2 and R3"; empty for a filter without rules.
    const QString& getValue() const { return _value; }

private:
    QString _value;
};
