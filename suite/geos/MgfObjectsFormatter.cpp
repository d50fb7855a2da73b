#include <QtCore/QObject>

#include <basic/MbbHtml.h>
#include <basic/MbgRotationConventionDefault.h>
#include <geos/MgfObjectsFormatter.h>

QString MgfObjectsFormatter::systemOrientation(const MbgRotation& rotation, bool is2D, bool html)
{
    MbgAngle dip;
    MbgAngle dipAzimuth;
    MbgAngle pitch;
    MbgAngle azimuth;
    MbgRotationConventionDefault::rotationToSystemOrientation(rotation, dip, dipAzimuth, pitch, &azimuth);
    if (is2D)
        return MbgRotationConventionDefault::directionToString(azimuth, MbgAngle(), true, html);
    const QString text =
        QObject::tr("Dip=%1 Dip azimuth=%2 Pitch=%3").arg(dip.toString(), dipAzimuth.toString(), pitch.toString());
    return html ? MbbHtml::format(text, MbbHtml::NoBreak) : text;
}
