#pragma once

#include <param/atomic/KpaIRotationConfigDelegate.h>

/// Presents a rotation as the azimuth and the plunge of its U axis, in 2D by the azimuth alone.
class KESTRIN_PARAM_EXPORT KpaDirectionConfigDelegate : public KpaIRotationConfigDelegate
{
public:
    KpaDirectionConfigDelegate* duplicate() const override;
    const KpbEType& getType() const override { return KpbEType::DIRECTION; }
    QString toString(const MbgRotation& rotation, bool is2D) const override;
    SerialForm serializeValue(const MbgRotation& rotation, bool is2D) const override;
    MbgRotation unserializeValue(bool is2D, const SerialForm& map, const MbgRotation& previous,
                                 const Fallback& fallback) const override;
};
