#pragma once

#include <QtCore/QSet>
#include <QtCore/QStringList>

#include <util/KufISampleFilterRule.h>

/// Keeps the samples whose category is one of a list of labels.
class KESTRIN_UTIL_EXPORT KufSampleFilterRuleEnum : public KufISampleFilterRule
{
public:
    const QStringList& getSelectedList() const { return _labels; }
    void setSelectedList(const QStringList& labels);

    bool accepts(const QString& label) const { return _lookup.contains(label); }

    KufSampleFilterRuleEnum* duplicate() const override;
    KufFilterRuleType getType() const override;
    QString getDescription(const MbdVariableDetails& details) const override;
    QString getShortDescription(const MbdVariableDetails& details, bool withVariable) const override;
    QMap<QString, QVariant> toQVariantMap() const override;
    void fromQVariantMap(const QMap<QString, QVariant>& map, int version) override;

private:
    QStringList _labels;
    QSet<QString> _lookup;
};
