#pragma once

#include <basic/MbgAngle.h>
#include <basic/MbgAxisSequence.h>

class MbgRotationConvention;

/// A rotation of space, and with it the orientation of a system of axes: three angles and the convention in which to
/// read them. A plain value; a default one is no rotation, in the default convention. Angles stay as they are given, in
/// value and unit, also undefined ones.
///
/// X points east, Y north and Z up, a right-handed system. The rotation brings them to U, V and W, which are the axes
/// of the local system and right-handed too. An undefined angle turns by nothing.
class KESTRIN_BASIC_EXPORT MbgRotation
{
public:
    MbgRotation();
    /// In the default convention.
    MbgRotation(const MbgAngle& angle1, const MbgAngle& angle2, const MbgAngle& angle3);
    /// Angles in radians. An id of no convention stands for the default one.
    MbgRotation(double radian1, double radian2, double radian3, int conventionId);
    /// The rotation that brings X, Y and Z to a right-handed system of unit vectors, as angles in degrees.
    static MbgRotation fromAxes(const MbgAxisSequence::Axes& axes);

    const MbgAngle& getAngle1() const { return _angles[0]; }
    const MbgAngle& getAngle2() const { return _angles[1]; }
    const MbgAngle& getAngle3() const { return _angles[2]; }
    /// Keeps the convention.
    void setAngles(const MbgAngle& angle1, const MbgAngle& angle2, const MbgAngle& angle3);
    /// Whether all three angles are.
    bool isDefined() const;

    /// Never null.
    MbgRotationConvention* getConvention() const { return _convention; }
    int getConventionId() const;
    /// With `convertAngles` the rotation stays and the angles become those of the new convention, in degrees; without,
    /// the angles stay and so stand for another rotation. Undefined angles always stay, and nothing happens if the
    /// convention does not change. An id of no convention, and null, stand for the default one.
    void setConvention(int id, bool convertAngles);
    void setConvention(MbgRotationConvention* convention, bool convertAngles);

    /// U, V and W in the coordinates X, Y and Z: the columns of the rotation matrix.
    MbgAxisSequence::Axes getAxes() const;
    MbgVector3D getAxisX() const { return getAxes()[0]; } ///< U
    MbgVector3D getAxisY() const { return getAxes()[1]; } ///< V
    MbgVector3D getAxisZ() const { return getAxes()[2]; } ///< W
    /// The components of a vector along U, V and W.
    MbgVector3D worldToLocal(const MbgVector3D& vector) const;
    /// The vector that has these components along U, V and W.
    MbgVector3D localToWorld(const MbgVector3D& vector) const;

    /// Whether the angles are defined and nothing is rotated: full turns do not count, nor angles that make up for each
    /// other, such as half a turn about each axis. Nothing is what moves no axis by `MbgAxisSequence::Tolerance` or
    /// more.
    bool isIdentity() const;
    /// Whether the angles are defined and W points up, as Z does, to within the same tolerance.
    bool isAroundZOnly() const;
    /// The direction of the U axis in words, the plunge only where it has one.
    QString getUDirectionName() const;

    /// The same convention, and the same angles as `MbgAngle` compares them. Two ways to write one rotation differ.
    friend bool operator==(const MbgRotation& a, const MbgRotation& b)
    {
        return a._convention == b._convention && a._angles == b._angles;
    }
    friend bool operator!=(const MbgRotation& a, const MbgRotation& b) { return !(a == b); }

private:
    MbgAxisSequence::Angles _turningDegrees() const;

    std::array<MbgAngle, 3> _angles;
    MbgRotationConvention* _convention;
};
