#pragma once

#include <QtCore/QLocale>

#include <basic/MbbOrderedMap.h>
#include <basic/MbgAngle.h>
#include <param/KpsSerializer.h>

/// How rotation parameters store angles: the number of degrees, and an empty text for an undefined one.
namespace KpaStoredAngles {

inline MbgAngle degrees(double value)
{
    return {value, MbgEAngleUnit::DEGREE};
}

/// Undefined where the entry is missing or its text is no number.
inline MbgAngle read(const MbbOrderedMap<QString, QString>& map, const QString& key)
{
    return degrees(KpsSerializer::toDouble(map.value(key), MbbGlobal::D_FFFF, false));
}

/// Reads back bit for bit, unless the digits are limited.
inline QString text(const MbgAngle& angle, int significantDigits = QLocale::FloatingPointShortest)
{
    return KpsSerializer::fromDouble(angle.getDegreeValue(), 'g', significantDigits);
}

} // namespace KpaStoredAngles
