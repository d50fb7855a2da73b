#include <util/KufSampleFilterRuleSelection.h>

#include <QtCore/QObject>

#include <basic/MbbGlobal.h>
#include <util/KufVariantMapReader.h>

#include <cmath>

bool KufSampleFilterRuleSelection::accepts(double value) const
{
    return std::isfinite(value) && value != MbbGlobal::D_FFFF && (value != 0.0) != _invert;
}

KufSampleFilterRuleSelection* KufSampleFilterRuleSelection::duplicate() const
{
    return new KufSampleFilterRuleSelection(*this);
}

KufFilterRuleType KufSampleFilterRuleSelection::getType() const
{
    return KufFilterRuleType::SELECTION;
}

QString KufSampleFilterRuleSelection::getDescription(const MbdVariableDetails&) const
{
    return _invert ? QObject::tr("V is false") : QObject::tr("V is true");
}

QString KufSampleFilterRuleSelection::getShortDescription(const MbdVariableDetails&, bool withVariable) const
{
    if (withVariable)
        return _invert ? QObject::tr("not V") : QStringLiteral("V");
    return _invert ? QObject::tr("false") : QObject::tr("true");
}

QMap<QString, QVariant> KufSampleFilterRuleSelection::toQVariantMap() const
{
    return {{QStringLiteral("invert"), _invert}};
}

void KufSampleFilterRuleSelection::fromQVariantMap(const QMap<QString, QVariant>& map, int version)
{
    _invert = KufVariantMapReader(map, version).readBool(QStringLiteral("invert"), false);
}
