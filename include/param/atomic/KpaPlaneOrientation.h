#pragma once

#include <param/atomic/KpaRotation.h>

/// A rotation in the words of a plane: that of its U and V axes. Setting an orientation gives a rotation in the default
/// convention whose U axis points down the plane.
class KESTRIN_PARAM_EXPORT KpaPlaneOrientation : public KpaRotation
{
public:
    explicit KpaPlaneOrientation(const QString& key);
    KpaPlaneOrientation(const KpaPlaneOrientation& other, const QString& newKey);
    KpaPlaneOrientation* duplicate(const QString& newKey) const override;

    MbgAngle getDip() const;
    MbgAngle getDipAzimuth() const;
    void setOrientation(const MbgAngle& dip, const MbgAngle& dipAzimuth);
    void setAutoOrientation(const MbgAngle& dip, const MbgAngle& dipAzimuth);
};
