#pragma once

#include <basic/MbgEAxisType.h>
#include <basic/MbgRotation.h>

/// Rotations in the words of geology, and back. X points east, Y north and Z up.
///
/// - A direction has an azimuth, clockwise from north, and a plunge, positive downwards.
/// - A plane has a dip, down from the horizontal, and a dip azimuth, that of its steepest way down.
/// - A system has its plane UV and in it the pitch of U: from the strike that has the dip to its right, towards the way
///   down.
///
/// These are the textbook conventions, with the right-hand rule for the strike: D. M. Ragan, "Structural Geology: An
/// Introduction to Geometrical Techniques", 4th edition, Cambridge University Press (2009), on the attitudes of planes
/// and lines.
///
/// Angles of any size go in, and full turns of them do not count. Azimuths and pitches come out in [0, 360), all angles
/// as numbers of degrees, and a rotation that is made here is in the default convention. Found
/// angles are rounded to 10^-12 degrees where they come out of a matrix. A rotation with an undefined angle gives
/// undefined angles, and an undefined angle a rotation of three undefined angles.
class KESTRIN_BASIC_EXPORT MbgRotationConventionDefault
{
public:
    /// The direction of the axis in the horizontal plane. That of a vertical axis is where it would come to lie if it
    /// were turned level about the next axis (V for U, W for V, U for W).
    static void rotationToDirection2d(const MbgRotation& rotation, const MbgEAxisType& axis, MbgAngle& azimuth);
    /// The plunge lies from -90 to 90 degrees.
    static void rotationToDirection3d(const MbgRotation& rotation, const MbgEAxisType& axis, MbgAngle& azimuth,
                                      MbgAngle& plunge);
    /// Brings the axis to the direction and leaves the next one horizontal, to the left of it.
    static MbgRotation directionToRotation(const MbgAngle& azimuth, const MbgAngle& plunge,
                                           const MbgEAxisType& axis = MbgEAxisType::AXIS_U);
    /// In the user's format for angles; the azimuth alone in 2D. `html` gives rich text.
    static QString directionToString(const MbgAngle& azimuth, const MbgAngle& plunge, bool is2D, bool html);

    /// The dip lies from 0 to 90 degrees, whichever side of the plane W points to. A horizontal plane has the azimuth
    /// of U for its dip azimuth.
    static void rotationToPlaneOrientation(const MbgRotation& rotation, MbgAngle& dip, MbgAngle& dipAzimuth);
    /// Lets U point down the plane.
    static MbgRotation planeOrientationToRotation(const MbgAngle& dip, const MbgAngle& dipAzimuth);
    static QString planeOrientationToString(const MbgAngle& dip, const MbgAngle& dipAzimuth, bool html);

    /// The dip lies from 0 to 180 degrees; above 90 the plane is overturned, and W points down. A horizontal plane has
    /// a dip of 0 or 180 exactly and a dip azimuth of 90 degrees, so that the pitch is the azimuth of U if it is not
    /// overturned. Where they are given, `azimuth` and `plunge` take the direction of U.
    static void rotationToSystemOrientation(const MbgRotation& rotation, MbgAngle& dip, MbgAngle& dipAzimuth,
                                            MbgAngle& pitch, MbgAngle* azimuth = nullptr, MbgAngle* plunge = nullptr);
    static MbgRotation systemOrientationToRotation(const MbgAngle& dip, const MbgAngle& dipAzimuth,
                                                   const MbgAngle& pitch);
};
