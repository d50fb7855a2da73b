#include <document/RotationReading.h>

#include <QtCore/QStringList>

#include <basic/MbbGlobal.h>

namespace {

using Form = KpbAParameter::SerialForm;

const QStringList angles = {"a1", "a2", "a3"};
const QStringList anglesAndConvention = {"conv_id", "conv_string", "a1", "a2", "a3"};
const QStringList formerAngles = {"az", "ay", "ax"};

bool isNumber(const QString& text)
{
    double number = 0;
    return MbbGlobal::convertString(text, number);
}

bool containsAll(const Form& stored, const QStringList& names)
{
    return std::all_of(names.begin(), names.end(), [&](const QString& name) { return stored.contains(name); });
}

/// The entries in which the class itself says what it needs: of a direction in the plane, the azimuth alone.
QStringList ownEntries(const KpaRotation& rotation)
{
    const bool isAzimuth = rotation.isA(KpbEType::DIRECTION) && rotation.getConfig().is2D();
    return isAzimuth ? QStringList("azimuth") : QStringList(rotation.serialize().keys());
}

/// The entries that reading takes notice of; empty where no form is complete.
QStringList entriesRead(const KpaRotation& rotation, const Form& stored)
{
    const QStringList own = ownEntries(rotation);
    const auto isUsable = [&](const QString& name) { return isNumber(stored.value(name)); };
    if (!rotation.isA(KpbEType::ROTATION) && std::all_of(own.begin(), own.end(), isUsable))
        return own;
    if (containsAll(stored, angles))
        return anglesAndConvention;
    return containsAll(stored, formerAngles) ? formerAngles : QStringList();
}

/// Another one with the same convention, which the oldest form leaves as it was.
MbgRotation otherThan(const MbgRotation& rotation)
{
    MbgRotation other = rotation;
    const MbgAngle angle(rotation.getAngle1().getDegreeValue() == 1.0 ? 2.0 : 1.0, MbgEAngleUnit::DEGREE);
    other.setAngles(angle, angle, angle);
    return other;
}

} // namespace

bool isRotationEntryRead(const KpaRotation& rotation, const Form& stored, const QString& name)
{
    QStringList read = entriesRead(rotation, stored);
    // Where no form is complete, it is their value that cannot be used.
    if (read.isEmpty())
        read = rotation.serialize().keys() + anglesAndConvention + formerAngles;
    return read.contains(name);
}

ValueReading judgeRotation(const KpaRotation& rotation, const Form& stored, const KpaRotation& former)
{
    const auto& config = rotation.getConfig();
    const MbgRotation& before = former.getValue();
    const MbgRotation meant = config.unserializeValue(stored, before);
    // What the text says does not hang on what was there.
    const bool isSaid = config.unserializeValue(stored, otherThan(before)) == meant;
    if (isSaid && meant.isDefined() && meant == rotation.getValue())
        return ValueReading::Respelled;
    return rotation.getValue() == before ? ValueReading::Refused : ValueReading::Repaired;
}
