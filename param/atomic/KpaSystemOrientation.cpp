#include "KpaStoredAngles.h"

#include <basic/MbgRotationConventionDefault.h>
#include <geos/MgfObjectsFormatter.h>
#include <param/atomic/KpaSystemOrientation.h>
#include <param/atomic/KpaSystemOrientationConfigDelegate.h>

using KpaStoredAngles::read;

namespace {
struct System
{
    MbgAngle dip;
    MbgAngle dipAzimuth;
    MbgAngle pitch;
};

/// In 2D a horizontal plane, with the dip azimuth from which pitches are azimuths.
System systemOf(const MbgRotation& rotation, bool is2D)
{
    System system;
    if (is2D) {
        system.dipAzimuth = KpaStoredAngles::degrees(90);
        MbgRotationConventionDefault::rotationToDirection2d(rotation, MbgEAxisType::AXIS_U, system.pitch);
    }
    else {
        MbgRotationConventionDefault::rotationToSystemOrientation(rotation, system.dip, system.dipAzimuth,
                                                                  system.pitch);
    }
    return system;
}

/// Less than it takes to read an angle back as it was.
QString text(const MbgAngle& angle)
{
    constexpr int significantDigits = 6;
    return KpaStoredAngles::text(angle, significantDigits);
}

QString dipKey()
{
    return QStringLiteral("dip");
}

QString dipAzimuthKey()
{
    return QStringLiteral("dipAzimuth");
}

QString pitchKey()
{
    return QStringLiteral("pitch");
}
} // namespace

KpaSystemOrientationConfigDelegate* KpaSystemOrientationConfigDelegate::duplicate() const
{
    return new KpaSystemOrientationConfigDelegate(*this);
}

QString KpaSystemOrientationConfigDelegate::toString(const MbgRotation& rotation, bool is2D) const
{
    return MgfObjectsFormatter::systemOrientation(rotation, is2D, false);
}

KpaSystemOrientationConfigDelegate::SerialForm
KpaSystemOrientationConfigDelegate::serializeValue(const MbgRotation& rotation, bool is2D) const
{
    const System system = systemOf(rotation, is2D);
    return {{dipKey(), text(system.dip)}, {dipAzimuthKey(), text(system.dipAzimuth)}, {pitchKey(), text(system.pitch)}};
}

MbgRotation KpaSystemOrientationConfigDelegate::unserializeValue(bool, const SerialForm& map,
                                                                 const MbgRotation& previous,
                                                                 const Fallback& fallback) const
{
    const System system = {read(map, dipKey()), read(map, dipAzimuthKey()), read(map, pitchKey())};
    if (!system.dip.isDefined() || !system.dipAzimuth.isDefined() || !system.pitch.isDefined())
        return fallback(map, previous);
    return MbgRotationConventionDefault::systemOrientationToRotation(system.dip, system.dipAzimuth, system.pitch);
}

KpaSystemOrientation::KpaSystemOrientation(const QString& key)
    : KpaRotation(key, new KpaSystemOrientationConfigDelegate)
{}

KpaSystemOrientation::KpaSystemOrientation(const KpaSystemOrientation& other, const QString& newKey)
    : KpaRotation(other, newKey)
{}

KpaSystemOrientation* KpaSystemOrientation::duplicate(const QString& newKey) const
{
    return new KpaSystemOrientation(*this, newKey);
}

void KpaSystemOrientation::setOrientation(const MbgAngle& dip, const MbgAngle& dipAzimuth, const MbgAngle& pitch)
{
    setValue(MbgRotationConventionDefault::systemOrientationToRotation(dip, dipAzimuth, pitch));
}

void KpaSystemOrientation::setAutoOrientation(const MbgAngle& dip, const MbgAngle& dipAzimuth, const MbgAngle& pitch)
{
    setAutoValue(MbgRotationConventionDefault::systemOrientationToRotation(dip, dipAzimuth, pitch));
}
