#pragma once

#include <param/atomic/KpaRotation.h>
#include <param/list/KplAAtomicList.h>

/// A number that is the same for equal rotations.
inline uint qHash(const MbgRotation& rotation, uint seed = 0)
{
    for (const MbgAngle& angle : {rotation.getAngle1(), rotation.getAngle2(), rotation.getAngle3()})
        seed = 31 * seed + qHash(angle.getDegreeValue());
    return 31 * seed + qHash(rotation.getConventionId());
}

extern template class KESTRIN_PARAM_EXPORT KpcList<KpaRotation>;
extern template class KESTRIN_PARAM_EXPORT KplAAtomicList<KpaRotation, MbgRotation, KpaRotationConfig>;

/// A list of rotations. The configurations of rotations are never equal, so each whole-list write brings all items to
/// the prototype's anew.
class KESTRIN_PARAM_EXPORT KplRotationList : public KplAAtomicList<KpaRotation, MbgRotation, KpaRotationConfig>
{
public:
    explicit KplRotationList(const QString& key);
    KplRotationList(const KplRotationList& other, const QString& newKey);
    KplRotationList* duplicate(const QString& newKey) const override;

    /// For the prototype and all items; `fillValue`, in radians, is for the second and third angles in 2D. 1D is
    /// refused.
    void setDimension(const MbgEDimension& dimension, double fillValue);
};
