#include "KpaStoredAngles.h"

#include <basic/MbgRotationConventionDefault.h>
#include <param/atomic/KpaPlaneOrientation.h>
#include <param/atomic/KpaPlaneOrientationConfigDelegate.h>

using KpaStoredAngles::read;
using KpaStoredAngles::text;

namespace {
struct Plane
{
    MbgAngle dip;
    MbgAngle dipAzimuth;
};

Plane planeOf(const MbgRotation& rotation)
{
    Plane plane;
    MbgRotationConventionDefault::rotationToPlaneOrientation(rotation, plane.dip, plane.dipAzimuth);
    return plane;
}

QString dipKey()
{
    return QStringLiteral("dip");
}

QString dipAzimuthKey()
{
    return QStringLiteral("dipAzimuth");
}
} // namespace

KpaPlaneOrientationConfigDelegate* KpaPlaneOrientationConfigDelegate::duplicate() const
{
    return new KpaPlaneOrientationConfigDelegate(*this);
}

QString KpaPlaneOrientationConfigDelegate::toString(const MbgRotation& rotation, bool) const
{
    const Plane plane = planeOf(rotation);
    return MbgRotationConventionDefault::planeOrientationToString(plane.dip, plane.dipAzimuth, false);
}

KpaPlaneOrientationConfigDelegate::SerialForm
KpaPlaneOrientationConfigDelegate::serializeValue(const MbgRotation& rotation, bool) const
{
    const Plane plane = planeOf(rotation);
    return {{dipKey(), text(plane.dip)}, {dipAzimuthKey(), text(plane.dipAzimuth)}};
}

MbgRotation KpaPlaneOrientationConfigDelegate::unserializeValue(bool, const SerialForm& map,
                                                                const MbgRotation& previous,
                                                                const Fallback& fallback) const
{
    const MbgAngle dip = read(map, dipKey());
    const MbgAngle dipAzimuth = read(map, dipAzimuthKey());
    if (!dip.isDefined() || !dipAzimuth.isDefined())
        return fallback(map, previous);
    return MbgRotationConventionDefault::planeOrientationToRotation(dip, dipAzimuth);
}

KpaPlaneOrientation::KpaPlaneOrientation(const QString& key) : KpaRotation(key, new KpaPlaneOrientationConfigDelegate)
{}

KpaPlaneOrientation::KpaPlaneOrientation(const KpaPlaneOrientation& other, const QString& newKey)
    : KpaRotation(other, newKey)
{}

KpaPlaneOrientation* KpaPlaneOrientation::duplicate(const QString& newKey) const
{
    return new KpaPlaneOrientation(*this, newKey);
}

MbgAngle KpaPlaneOrientation::getDip() const
{
    return planeOf(_value).dip;
}

MbgAngle KpaPlaneOrientation::getDipAzimuth() const
{
    return planeOf(_value).dipAzimuth;
}

void KpaPlaneOrientation::setOrientation(const MbgAngle& dip, const MbgAngle& dipAzimuth)
{
    setValue(MbgRotationConventionDefault::planeOrientationToRotation(dip, dipAzimuth));
}

void KpaPlaneOrientation::setAutoOrientation(const MbgAngle& dip, const MbgAngle& dipAzimuth)
{
    setAutoValue(MbgRotationConventionDefault::planeOrientationToRotation(dip, dipAzimuth));
}
