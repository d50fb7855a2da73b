#pragma once

#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <basic/MbdVariableDetails.h>
#include <util/KufFilterRuleType.h>

/// A condition that a sample filter puts on one variable, without the variable. Which samples it keeps, the concrete
/// class tells by `accepts`; a number that is undefined is never kept.
class KESTRIN_UTIL_EXPORT KufISampleFilterRule
{
public:
    /// The version of the maps that `toQVariantMap` makes.
    static constexpr int MapVersion = 1;

    virtual ~KufISampleFilterRule();
    /// The caller owns the copy.
    virtual KufISampleFilterRule* duplicate() const = 0;
    virtual KufFilterRuleType getType() const = 0;
    /// The condition for people, on a variable "V" with these details.
    virtual QString getDescription(const MbdVariableDetails& details) const = 0;
    /// The same in few words, without units; without the "V" unless `withVariable`.
    virtual QString getShortDescription(const MbdVariableDetails& details, bool withVariable) const = 0;
    virtual QMap<QString, QVariant> toQVariantMap() const = 0;
    /// Takes what the map holds; what it does not hold becomes that of a new rule. An `MbeUserError` for an unknown
    /// version or a value that cannot be read; the rule then stays as it was.
    virtual void fromQVariantMap(const QMap<QString, QVariant>& map, int version) = 0;

protected:
    KufISampleFilterRule() = default;
    KufISampleFilterRule(const KufISampleFilterRule&) = default;
    KufISampleFilterRule& operator=(const KufISampleFilterRule&) = default;
};
