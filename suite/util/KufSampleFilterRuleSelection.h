#pragma once

#include <util/KufISampleFilterRule.h>

/// Keeps the samples at which a boolean variable is true, or those at which it is false.
class KESTRIN_UTIL_EXPORT KufSampleFilterRuleSelection : public KufISampleFilterRule
{
public:
    explicit KufSampleFilterRuleSelection(bool invert = false) : _invert(invert) {}

    bool isInverted() const { return _invert; }
    void setInverted(bool invert) { _invert = invert; }

    /// Any number but 0 is true.
    bool accepts(double value) const;

    KufSampleFilterRuleSelection* duplicate() const override;
    KufFilterRuleType getType() const override;
    QString getDescription(const MbdVariableDetails& details) const override;
    QString getShortDescription(const MbdVariableDetails& details, bool withVariable) const override;
    QMap<QString, QVariant> toQVariantMap() const override;
    void fromQVariantMap(const QMap<QString, QVariant>& map, int version) override;

private:
    bool _invert;
};
