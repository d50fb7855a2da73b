#include <QtCore/QObject>

#include <basic/MbbHtml.h>
#include <basic/MbgDegrees.h>
#include <basic/MbgRotationConvention.h>
#include <basic/MbgRotationConventionDefault.h>

#include <algorithm>

// Lines and poles of planes as unit vectors, by their direction cosines: the textbook named in the header, with east,
// north and up for the axes.

namespace {
constexpr double Tolerance = MbgAxisSequence::Tolerance;

MbgAngle degrees(double value)
{
    return {value, MbgEAngleUnit::DEGREE};
}

MbgAngle undefined()
{
    return degrees(MbbGlobal::D_FFFF);
}

MbgRotation undefinedRotation()
{
    return {undefined(), undefined(), undefined()};
}

double horizontalLength(const MbgVector3D& vector)
{
    return std::hypot(vector.x(), vector.y());
}

/// Where the vector points in the map: clockwise from north, in [0, 360).
double azimuthOf(const MbgVector3D& vector)
{
    return MbgDegrees::positive(MbgDegrees::atan2(vector.x(), vector.y()));
}

/// The turn about Z that brings X to the azimuth.
double turnOfAzimuth(double azimuth)
{
    return MbgDegrees::centred(90 - std::fmod(azimuth, 360));
}

/// The azimuth, in [0, 360), of which `turnOfAzimuth` makes the turn, and of several the one with the fewest decimals:
/// 90 - 0.1 is 89.9, but 90 - 89.9 is not 0.1.
double azimuthOfTurn(double turn)
{
    const double azimuth = MbgDegrees::positive(90 - turn);
    const double rounded = MbgDegrees::positive(MbgDegrees::rounded(azimuth));
    return turnOfAzimuth(rounded) == MbgDegrees::centred(turn) ? rounded : azimuth;
}

/// The azimuth of a unit vector of that horizontal length, rounded to what is certain of it where angles brought it
/// there: the shorter the length, the less.
double certainAzimuth(double azimuth, double horizontal)
{
    const double uncertain = 2e-12 / horizontal;
    const double step = std::pow(10.0, std::ceil(std::log10(uncertain)));
    return MbgDegrees::positive(MbgDegrees::rounded(std::round(azimuth / step) * step));
}

struct Direction
{
    double azimuth;
    double plunge;
};

/// The unit vector of a direction.
MbgVector3D vectorOf(const Direction& direction)
{
    const double cosine = MbgDegrees::cos(direction.plunge);
    return {MbgDegrees::sin(direction.azimuth) * cosine, MbgDegrees::cos(direction.azimuth) * cosine,
            -MbgDegrees::sin(direction.plunge)};
}

/// The horizontal unit vector that has the way down, of the azimuth, to its right.
MbgVector3D strikeOf(double azimuth)
{
    return {-MbgDegrees::cos(azimuth), MbgDegrees::sin(azimuth), 0};
}

/// Turns about Z, Y and X, the second being a plunge of no more than a right angle, say themselves where U points.
bool areDirection(const MbgRotation& rotation, const MbgAxisSequence::Angles& turns)
{
    return rotation.getConvention()->getSequence().isZYX() && std::abs(turns[1]) <= 90;
}

MbgAxisSequence::Angles turnsOf(const MbgRotation& rotation)
{
    return rotation.getConvention()->getSequence().turnsOf({rotation.getAngle1().getDegreeValue(),
                                                            rotation.getAngle2().getDegreeValue(),
                                                            rotation.getAngle3().getDegreeValue()});
}

/// Reads the direction of axis `i` off the turns, to the last digit, or off the axes.
Direction directionOf(const MbgRotation& rotation, int i)
{
    const auto turns = turnsOf(rotation);
    if (i == 0 && areDirection(rotation, turns))
        return {azimuthOfTurn(turns[0]), turns[1]};
    const auto axes = rotation.getAxes();
    const MbgVector3D& axis = axes[std::size_t(i)];
    const double horizontal = horizontalLength(axis);
    if (horizontal > Tolerance)
        return {azimuthOf(axis), MbgDegrees::atan2(-axis.z(), horizontal)};
    return {MbgDegrees::positive(azimuthOf(axes[std::size_t(i + 1) % 3]) + 90), axis.z() < 0 ? 90.0 : -90.0};
}

QString finished(const QString& text, bool html)
{
    return html ? MbbHtml::format(text, MbbHtml::NoBreak) : text;
}
} // namespace

void MbgRotationConventionDefault::rotationToDirection2d(const MbgRotation& rotation, const MbgEAxisType& axis,
                                                         MbgAngle& azimuth)
{
    MbgAngle plunge;
    rotationToDirection3d(rotation, axis, azimuth, plunge);
}

void MbgRotationConventionDefault::rotationToDirection3d(const MbgRotation& rotation, const MbgEAxisType& axis,
                                                         MbgAngle& azimuth, MbgAngle& plunge)
{
    azimuth = plunge = undefined();
    if (!rotation.isDefined())
        return;
    const Direction direction = directionOf(rotation, axis.getValue());
    azimuth = degrees(direction.azimuth);
    plunge = degrees(direction.plunge);
}

MbgRotation MbgRotationConventionDefault::directionToRotation(const MbgAngle& azimuth, const MbgAngle& plunge,
                                                              const MbgEAxisType& axis)
{
    if (!azimuth.isDefined() || !plunge.isDefined())
        return undefinedRotation();
    const MbgRotation rotation(degrees(turnOfAzimuth(azimuth.getDegreeValue())), degrees(plunge.getDegreeValue()),
                               MbgAngle());
    if (axis == MbgEAxisType::AXIS_U)
        return rotation;
    auto axes = rotation.getAxes();
    std::rotate(axes.begin(), axes.end() - axis.getValue(), axes.end());
    return MbgRotation::fromAxes(axes);
}

QString MbgRotationConventionDefault::directionToString(const MbgAngle& azimuth, const MbgAngle& plunge, bool is2D,
                                                        bool html)
{
    if (is2D)
        return finished(QObject::tr("Azimuth=%1").arg(azimuth.toString()), html);
    return finished(QObject::tr("Azimuth=%1 Plunge=%2").arg(azimuth.toString(), plunge.toString()), html);
}

void MbgRotationConventionDefault::rotationToPlaneOrientation(const MbgRotation& rotation, MbgAngle& dip,
                                                              MbgAngle& dipAzimuth)
{
    dip = dipAzimuth = undefined();
    if (!rotation.isDefined())
        return;
    const MbgVector3D w = rotation.getAxisZ();
    const double horizontal = horizontalLength(w);
    const auto turns = turnsOf(rotation);
    const bool pointsDown = areDirection(rotation, turns) && turns[1] >= 0 && turns[2] == 0;
    if (pointsDown || horizontal <= Tolerance) {
        const Direction ofU = directionOf(rotation, 0);
        dip = degrees(pointsDown ? ofU.plunge : 0);
        dipAzimuth = degrees(ofU.azimuth);
        return;
    }
    // The pole that points up leans to where the plane goes down.
    const MbgVector3D pole = w.z() < -Tolerance ? -w : w;
    dip = degrees(MbgDegrees::atan2(horizontal, std::max(pole.z(), 0.0)));
    dipAzimuth = degrees(azimuthOf(pole));
}

MbgRotation MbgRotationConventionDefault::planeOrientationToRotation(const MbgAngle& dip, const MbgAngle& dipAzimuth)
{
    return directionToRotation(dipAzimuth, dip);
}

QString MbgRotationConventionDefault::planeOrientationToString(const MbgAngle& dip, const MbgAngle& dipAzimuth,
                                                               bool html)
{
    return finished(QObject::tr("Dip=%1 Dip azimuth=%2").arg(dip.toString(), dipAzimuth.toString()), html);
}

void MbgRotationConventionDefault::rotationToSystemOrientation(const MbgRotation& rotation, MbgAngle& dip,
                                                               MbgAngle& dipAzimuth, MbgAngle& pitch, MbgAngle* azimuth,
                                                               MbgAngle* plunge)
{
    MbgAngle azimuthOfU;
    MbgAngle plungeOfU;
    rotationToDirection3d(rotation, MbgEAxisType::AXIS_U, azimuthOfU, plungeOfU);
    if (azimuth)
        *azimuth = azimuthOfU;
    if (plunge)
        *plunge = plungeOfU;
    dip = dipAzimuth = pitch = undefined();
    if (!rotation.isDefined())
        return;
    const auto [u, v, w] = rotation.getAxes();
    const double horizontal = horizontalLength(w);
    const bool flat = horizontal <= Tolerance;
    const Direction steepest = {flat ? 90 : certainAzimuth(azimuthOf(w), horizontal),
                                flat ? (w.z() > 0 ? 0.0 : 180.0) : MbgDegrees::atan2(horizontal, w.z())};
    const MbgVector3D strike = strikeOf(steepest.azimuth);
    dip = degrees(steepest.plunge);
    dipAzimuth = degrees(steepest.azimuth);
    pitch = degrees(MbgDegrees::positive(MbgDegrees::atan2(u.dot(vectorOf(steepest)), u.dot(strike))));
}

MbgRotation MbgRotationConventionDefault::systemOrientationToRotation(const MbgAngle& dip, const MbgAngle& dipAzimuth,
                                                                      const MbgAngle& pitch)
{
    if (!dip.isDefined() || !dipAzimuth.isDefined() || !pitch.isDefined())
        return undefinedRotation();
    const Direction steepest = {dipAzimuth.getDegreeValue(), dip.getDegreeValue()};
    const MbgVector3D down = vectorOf(steepest);
    const MbgVector3D strike = strikeOf(steepest.azimuth);
    const MbgVector3D normal = down.cross(strike);
    const MbgVector3D u =
        strike * MbgDegrees::cos(pitch.getDegreeValue()) + down * MbgDegrees::sin(pitch.getDegreeValue());
    return MbgRotation::fromAxes({u, normal.cross(u), normal});
}
