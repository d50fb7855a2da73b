#include <util/KufSampleFilterRuleEnum.h>

#include <QtCore/QObject>

#include <util/KufVariantMapReader.h>

void KufSampleFilterRuleEnum::setSelectedList(const QStringList& labels)
{
    _labels = labels;
    _lookup = QSet<QString>(labels.begin(), labels.end());
}

KufSampleFilterRuleEnum* KufSampleFilterRuleEnum::duplicate() const
{
    return new KufSampleFilterRuleEnum(*this);
}

KufFilterRuleType KufSampleFilterRuleEnum::getType() const
{
    return KufFilterRuleType::ENUM;
}

QString KufSampleFilterRuleEnum::getDescription(const MbdVariableDetails&) const
{
    return QObject::tr("V in {%1}").arg(_labels.join(QStringLiteral(", ")));
}

QString KufSampleFilterRuleEnum::getShortDescription(const MbdVariableDetails&, bool withVariable) const
{
    const QString text = QObject::tr("%n categories", nullptr, _labels.size());
    return withVariable ? QObject::tr("V in %1").arg(text) : text;
}

QMap<QString, QVariant> KufSampleFilterRuleEnum::toQVariantMap() const
{
    return {{QStringLiteral("selectedList"), _labels}};
}

void KufSampleFilterRuleEnum::fromQVariantMap(const QMap<QString, QVariant>& map, int version)
{
    setSelectedList(KufVariantMapReader(map, version).readTexts(QStringLiteral("selectedList")));
}
