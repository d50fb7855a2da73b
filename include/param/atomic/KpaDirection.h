#pragma once

#include <param/atomic/KpaRotation.h>

/// A rotation in the words of a direction: where its U axis points. Setting a direction gives a rotation in the default
/// convention that leaves the V axis horizontal.
class KESTRIN_PARAM_EXPORT KpaDirection : public KpaRotation
{
public:
    explicit KpaDirection(const QString& key);
    KpaDirection(const KpaDirection& other, const QString& newKey);
    KpaDirection* duplicate(const QString& newKey) const override;

    MbgAngle getAzimuth() const;
    /// 0 degrees in 2D.
    MbgAngle getPlunge() const;
    void setDirection(const MbgAngle& azimuth, const MbgAngle& plunge);
    void setAutoDirection(const MbgAngle& azimuth, const MbgAngle& plunge);
};
