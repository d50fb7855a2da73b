#include "KpaStoredAngles.h"

#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <basic/MbgRotationConvention.h>
#include <basic/MbuUnitService.h>
#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaRotation.h>
#include <study/KssProjectCollection.h>
#include <util/KupPreferencesUnit.h>

#include <algorithm>

template class KpaAAtomic<MbgRotation, KpaRotationConfig>;

using KpaStoredAngles::degrees;

namespace {
using SerialForm = KpaRotationConfig::SerialForm;

QString conventionIdKey()
{
    return QStringLiteral("conv_id");
}

QString conventionStringKey()
{
    return QStringLiteral("conv_string");
}

const QStringList& angleKeys()
{
    static const QStringList keys{QStringLiteral("a1"), QStringLiteral("a2"), QStringLiteral("a3")};
    return keys;
}

/// Of the form of older versions.
const QStringList& axisAngleKeys()
{
    static const QStringList keys{QStringLiteral("az"), QStringLiteral("ay"), QStringLiteral("ax")};
    return keys;
}

bool containsAll(const SerialForm& map, const QStringList& keys)
{
    return std::all_of(keys.begin(), keys.end(), [&](const QString& key) { return map.contains(key); });
}

/// `previous` with the angles stored under the three keys.
MbgRotation withAngles(const MbgRotation& previous, const SerialForm& map, const QStringList& keys)
{
    MbgRotation rotation = previous;
    rotation.setAngles(KpaStoredAngles::read(map, keys.at(0)), KpaStoredAngles::read(map, keys.at(1)),
                       KpaStoredAngles::read(map, keys.at(2)));
    return rotation;
}

/// The convention of the stored id if it has the stored string too; otherwise a temporary one of that string.
int readConventionId(const SerialForm& map)
{
    const KsmModelConventionRot* model = KssProjectCollection::openedModelRotationConv();
    const int id = KpsSerializer::toInt(map.value(conventionIdKey()), model->getDefaultId(), true);
    const QString string = map.value(conventionStringKey(), model->getDefault()->getDefinitionString());
    const MbgRotationConvention* known = model->getConvention(id, false);
    if (known && known->getDefinitionString() == string)
        return id;
    return model->createTemporary(MbgRotationConventionDefinition(MbgERotConv::SYSTEM, string))->getId();
}

MbgRotation fromDegrees(double angle1, double angle2, double angle3)
{
    return {degrees(angle1), degrees(angle2), degrees(angle3)};
}
} // namespace

KpaIRotationConfigDelegate::~KpaIRotationConfigDelegate() = default;

KpaRotationConfig::KpaRotationConfig() = default;

KpaRotationConfig::KpaRotationConfig(KpaIRotationConfigDelegate* delegate) : _delegate(delegate) {}

KpaRotationConfig::KpaRotationConfig(const KpaRotationConfig& other)
    : _dimension(other._dimension),
      _fillValue(other._fillValue),
      _delegate(other._duplicateDelegate())
{}

KpaRotationConfig& KpaRotationConfig::operator=(const KpaRotationConfig& other)
{
    _delegate.reset(other._duplicateDelegate());
    _dimension = other._dimension;
    _fillValue = other._fillValue;
    return *this;
}

KpaRotationConfig::~KpaRotationConfig() = default;

bool KpaRotationConfig::operator==(const KpaRotationConfig& other) const
{
    if (_dimension != other._dimension || _fillValue != other._fillValue)
        return false;
    if (!_delegate)
        return other._delegate != nullptr;
    return !other._delegate && getType() == other.getType();
}

const KpbEType& KpaRotationConfig::getType() const
{
    return _delegate ? _delegate->getType() : KpbEType::ROTATION;
}

bool KpaRotationConfig::setDimension(const MbgEDimension& dimension, double fillValue)
{
    if (dimension == MbgEDimension::DIM_1D)
        return false;
    const bool dimensionChanged = KpaConfigTools::store(_dimension, dimension);
    const bool fillChanged = KpaConfigTools::store(_fillValue, fillValue);
    return dimensionChanged || fillChanged;
}

MbgRotation KpaRotationConfig::fix(const MbgRotation& rotation, const MbgRotation&) const
{
    if (_delegate)
        return _delegate->fix(rotation);
    if (!is2D())
        return rotation;
    return {rotation.getAngle1().getRadianValue(), _fillValue, _fillValue, rotation.getConventionId()};
}

QString KpaRotationConfig::toString(const MbgRotation& rotation) const
{
    if (_delegate)
        return _delegate->toString(rotation, is2D());
    const bool defined = is2D() ? rotation.getAngle1().isDefined() : rotation.isDefined();
    if (!defined)
        return MbbGlobal::STR_NA;
    if (rotation.isIdentity())
        return QObject::tr("No Rotation");
    return _anglesText(rotation);
}

QString KpaRotationConfig::_anglesText(const MbgRotation& rotation) const
{
    const MbgRotationConvention& convention = *rotation.getConvention();
    if (!is2D() && convention.getType() == MbgERotConv::DIRECTION)
        return rotation.getUDirectionName();
    const MbuUnit degree = MbuUnitService::getUnit(QStringLiteral("deg"));
    const MbbStringFormat format = KupPreferencesUnit::getStringFormat(degree.getUnitClass());
    const auto text = [&](const MbgAngle& angle) { return format.valueToString(angle.getDegreeValue(), 1); };
    if (is2D())
        return QObject::tr("%1=%2").arg(convention.getAngleLabel(0), text(rotation.getAngle1()));
    return QObject::tr("%1=%2 %3=%4 %5=%6")
        .arg(convention.getAngleLabel(0), text(rotation.getAngle1()), convention.getAngleLabel(1),
             text(rotation.getAngle2()), convention.getAngleLabel(2), text(rotation.getAngle3()));
}

KpaRotationConfig::SerialForm KpaRotationConfig::serializeValue(const MbgRotation& rotation) const
{
    if (_delegate)
        return _delegate->serializeValue(rotation, is2D());
    return {{conventionIdKey(), KpsSerializer::fromInt(rotation.getConventionId())},
            {conventionStringKey(), rotation.getConvention()->getDefinitionString()},
            {angleKeys().at(0), KpaStoredAngles::text(rotation.getAngle1())},
            {angleKeys().at(1), KpaStoredAngles::text(rotation.getAngle2())},
            {angleKeys().at(2), KpaStoredAngles::text(rotation.getAngle3())}};
}

MbgRotation KpaRotationConfig::unserializeValue(const SerialForm& map, const MbgRotation& previous) const
{
    return _delegate ? _delegate->unserializeValue(is2D(), map, previous, &_unserializeRotation)
                     : _unserializeRotation(map, previous);
}

MbgRotation KpaRotationConfig::_unserializeRotation(const SerialForm& map, const MbgRotation& previous)
{
    if (containsAll(map, angleKeys())) {
        MbgRotation rotation = withAngles(previous, map, angleKeys());
        rotation.setConvention(readConventionId(map), false);
        return rotation.isDefined() ? rotation : previous;
    }
    return containsAll(map, axisAngleKeys()) ? withAngles(previous, map, axisAngleKeys()) : previous;
}

QString KpaRotationConfig::debug() const
{
    QString text;
    QTextStream stream(&text);
    stream.setRealNumberPrecision(10);
    stream << "----- KpaRotationConfig ------\n"
           << " dimension        = " << _dimension.getKey() << '\n'
           << " fill value       = " << _fillValue << '\n';
    stream.flush();
    return text;
}

KpaRotation::KpaRotation(const QString& key) : KpaAAtomic(key, KpaRotationConfig()) {}

KpaRotation::KpaRotation(const QString& key, KpaIRotationConfigDelegate* delegate)
    : KpaAAtomic(key, KpaRotationConfig(delegate))
{}

KpaRotation::KpaRotation(const KpaRotation& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaRotation* KpaRotation::duplicate(const QString& newKey) const
{
    return new KpaRotation(*this, newKey);
}

void KpaRotation::setAngle1Degree(double angle)
{
    setValue(fromDegrees(angle, getAngle2Degree(), getAngle3Degree()));
}

void KpaRotation::setAngle2Degree(double angle)
{
    setValue(fromDegrees(getAngle1Degree(), angle, getAngle3Degree()));
}

void KpaRotation::setAngle3Degree(double angle)
{
    setValue(fromDegrees(getAngle1Degree(), getAngle2Degree(), angle));
}

void KpaRotation::setConvention(MbgRotationConvention* convention)
{
    MbgRotation rotation = fromDegrees(getAngle1Degree(), getAngle2Degree(), getAngle3Degree());
    if (convention)
        rotation.setConvention(convention->getId(), true);
    setValue(rotation);
}
