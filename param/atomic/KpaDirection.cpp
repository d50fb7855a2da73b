#include "KpaStoredAngles.h"

#include <basic/MbgRotationConventionDefault.h>
#include <param/atomic/KpaDirection.h>
#include <param/atomic/KpaDirectionConfigDelegate.h>

using KpaStoredAngles::read;
using KpaStoredAngles::text;

namespace {
struct Direction
{
    MbgAngle azimuth;
    MbgAngle plunge;
};

Direction directionOf(const MbgRotation& rotation, bool is2D)
{
    Direction direction;
    if (is2D)
        MbgRotationConventionDefault::rotationToDirection2d(rotation, MbgEAxisType::AXIS_U, direction.azimuth);
    else
        MbgRotationConventionDefault::rotationToDirection3d(rotation, MbgEAxisType::AXIS_U, direction.azimuth,
                                                            direction.plunge);
    return direction;
}

MbgRotation rotationOf(const MbgAngle& azimuth, const MbgAngle& plunge)
{
    return MbgRotationConventionDefault::directionToRotation(azimuth, plunge, MbgEAxisType::AXIS_U);
}

QString azimuthKey()
{
    return QStringLiteral("azimuth");
}

QString plungeKey()
{
    return QStringLiteral("plunge");
}
} // namespace

KpaDirectionConfigDelegate* KpaDirectionConfigDelegate::duplicate() const
{
    return new KpaDirectionConfigDelegate(*this);
}

QString KpaDirectionConfigDelegate::toString(const MbgRotation& rotation, bool is2D) const
{
    const Direction direction = directionOf(rotation, is2D);
    return MbgRotationConventionDefault::directionToString(direction.azimuth, direction.plunge, is2D, false);
}

KpaDirectionConfigDelegate::SerialForm KpaDirectionConfigDelegate::serializeValue(const MbgRotation& rotation,
                                                                                  bool is2D) const
{
    const Direction direction = directionOf(rotation, is2D);
    return {{azimuthKey(), text(direction.azimuth)}, {plungeKey(), text(direction.plunge)}};
}

MbgRotation KpaDirectionConfigDelegate::unserializeValue(bool is2D, const SerialForm& map, const MbgRotation& previous,
                                                         const Fallback& fallback) const
{
    const MbgAngle azimuth = read(map, azimuthKey());
    const MbgAngle plunge = is2D ? MbgAngle() : read(map, plungeKey());
    return azimuth.isDefined() && plunge.isDefined() ? rotationOf(azimuth, plunge) : fallback(map, previous);
}

KpaDirection::KpaDirection(const QString& key) : KpaRotation(key, new KpaDirectionConfigDelegate) {}

KpaDirection::KpaDirection(const KpaDirection& other, const QString& newKey) : KpaRotation(other, newKey) {}

KpaDirection* KpaDirection::duplicate(const QString& newKey) const
{
    return new KpaDirection(*this, newKey);
}

MbgAngle KpaDirection::getAzimuth() const
{
    return directionOf(_value, _config.is2D()).azimuth;
}

MbgAngle KpaDirection::getPlunge() const
{
    return directionOf(_value, _config.is2D()).plunge;
}

void KpaDirection::setDirection(const MbgAngle& azimuth, const MbgAngle& plunge)
{
    setValue(rotationOf(azimuth, plunge));
}

void KpaDirection::setAutoDirection(const MbgAngle& azimuth, const MbgAngle& plunge)
{
    setAutoValue(rotationOf(azimuth, plunge));
}
