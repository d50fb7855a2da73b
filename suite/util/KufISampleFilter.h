#pragma once

#include <QtCore/QSharedPointer>
#include <QtCore/QString>

#include <util/KufISampleFilterRule.h>

/// The definition of a sample filter, as the filter engine reads it: rules, and a boolean combination of them such as
/// "R1 and (R2 or not R3)", in which Rn is the rule at index n - 1.
class KESTRIN_UTIL_EXPORT KufISampleFilter
{
public:
    virtual ~KufISampleFilter();
    virtual int getRulesCount() const = 0;
    /// Null where there is no such rule, or none that can be used.
    virtual QSharedPointer<KufISampleFilterRule> getRule(int i) const = 0;
    virtual QString getCombination() const = 0;

protected:
    KufISampleFilter() = default;
    KufISampleFilter(const KufISampleFilter&) = default;
    KufISampleFilter& operator=(const KufISampleFilter&) = default;
};
