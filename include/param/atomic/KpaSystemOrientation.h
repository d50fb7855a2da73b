#pragma once

#include <param/atomic/KpaRotation.h>

/// A rotation in the words of a plane, that of its U and V axes, and of the pitch of U in it. Setting an orientation
/// gives a rotation in the default convention. Its stored form is rounded to six significant digits.
class KESTRIN_PARAM_EXPORT KpaSystemOrientation : public KpaRotation
{
public:
    explicit KpaSystemOrientation(const QString& key);
    KpaSystemOrientation(const KpaSystemOrientation& other, const QString& newKey);
    KpaSystemOrientation* duplicate(const QString& newKey) const override;

    void setOrientation(const MbgAngle& dip, const MbgAngle& dipAzimuth, const MbgAngle& pitch);
    void setAutoOrientation(const MbgAngle& dip, const MbgAngle& dipAzimuth, const MbgAngle& pitch);
};
