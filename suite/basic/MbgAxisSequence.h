#pragma once

#include <QtCore/QString>

#include <basic/MbgVector3D.h>

#include <array>
#include <optional>

/// How three angles turn a system of axes: three turns one after the other, each about an axis of the system as the
/// turns before it left it (intrinsic turns). A plain value; a default one turns about Z, then Y, then X.
///
/// The text of a sequence is that of its three turns, with nothing between them. A turn is an offset in degrees, "90",
/// "180", "270" or nothing; a sign; and the axis, "X", "Y" or "Z". It turns by the offset plus or minus the angle,
/// counterclockwise as seen from the tip of the axis. Neighbouring axes differ, so that the angles reach every
/// orientation. "+Z+Y+X" is the default one; "90-Z+Y+X" takes an azimuth, a plunge and a roll.
class KESTRIN_BASIC_EXPORT MbgAxisSequence
{
public:
    using Angles = std::array<double, 3>;    ///< in degrees
    using Axes = std::array<MbgVector3D, 3>; ///< U, V, W: the columns of the rotation matrix, right-handed unit vectors

    /// Two unit vectors as near to each other as this, a length, are taken as one.
    static constexpr double Tolerance = 1e-13;

    /// Nothing where the text has another form.
    static std::optional<MbgAxisSequence> fromText(const QString& text);

    /// Where the angles, which are finite, bring the axes X, Y and Z: the product of the three elementary rotation
    /// matrices, the first turn leftmost. Full turns change nothing, however many they are.
    Axes toAxes(const Angles& angles) const;
    /// Angles in (-180, 180], rounded to 10^-12 degrees, that bring X, Y and Z there. Ken
    /// Shoemake, "Euler angle conversion", in Graphics Gems IV (1994), tells the formulas. The turn in the middle lies
    /// from -90 to 90 degrees where the three axes differ, and from 0 to 180 where the first comes back. At the ends of
    /// that range the other two turn about one line: the first takes all of it, and the third turn is 0.
    Angles toAngles(const Axes& axes) const;

    /// Whether the turns are about Z, then Y, then X, whatever their signs and offsets.
    bool isZYX() const;
    /// The turns that the angles stand for, in degrees; full turns of the angles are left out.
    Angles turnsOf(const Angles& angles) const;
    /// The angles, in degrees in (-180, 180], that stand for the turns.
    Angles anglesOf(const Angles& turns) const;

    friend bool operator==(const MbgAxisSequence& a, const MbgAxisSequence& b) = default;

private:
    struct Turn
    {
        int axis;       ///< 0, 1, 2 for X, Y, Z
        int sign = 1;   ///< 1 or -1
        int offset = 0; ///< in degrees

        friend bool operator==(const Turn& a, const Turn& b) = default;
    };

    std::array<Turn, 3> _turns = {Turn{2}, Turn{1}, Turn{0}};
};
