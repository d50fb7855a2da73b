#pragma once

#include <param/atomic/KpaIRotationConfigDelegate.h>

/// Presents a rotation as the dip and the dip azimuth of its plane UV, whatever the dimension.
class KESTRIN_PARAM_EXPORT KpaPlaneOrientationConfigDelegate : public KpaIRotationConfigDelegate
{
public:
    KpaPlaneOrientationConfigDelegate* duplicate() const override;
    const KpbEType& getType() const override { return KpbEType::PLANE_ORIENTATION; }
    QString toString(const MbgRotation& rotation, bool is2D) const override;
    SerialForm serializeValue(const MbgRotation& rotation, bool is2D) const override;
    MbgRotation unserializeValue(bool is2D, const SerialForm& map, const MbgRotation& previous,
                                 const Fallback& fallback) const override;
};
