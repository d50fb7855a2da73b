#pragma once

#include <param/atomic/KpaIRotationConfigDelegate.h>

/// Presents a rotation as the dip and the dip azimuth of its plane UV and the pitch of U in it; in 2D as the azimuth of
/// U. Angles are stored with six significant digits.
class KESTRIN_PARAM_EXPORT KpaSystemOrientationConfigDelegate : public KpaIRotationConfigDelegate
{
public:
    KpaSystemOrientationConfigDelegate* duplicate() const override;
    const KpbEType& getType() const override { return KpbEType::SYSTEM_ORIENTATION; }
    QString toString(const MbgRotation& rotation, bool is2D) const override;
    SerialForm serializeValue(const MbgRotation& rotation, bool is2D) const override;
    MbgRotation unserializeValue(bool is2D, const SerialForm& map, const MbgRotation& previous,
                                 const Fallback& fallback) const override;
};
