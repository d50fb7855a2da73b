#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaRotationConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<MbgRotation, KpaRotationConfig>;

/// A rotation of space, given by three angles in a rotation convention. Subclasses present the same value in other
/// words by the delegate of their configuration.
///
/// The setters of single angles give a rotation in the default convention, whatever the convention before: it takes the
/// present numbers of the other two angles.
class KESTRIN_PARAM_EXPORT KpaRotation : public KpaAAtomic<MbgRotation, KpaRotationConfig>
{
public:
    explicit KpaRotation(const QString& key);
    KpaRotation(const KpaRotation& other, const QString& newKey);
    KpaRotation* duplicate(const QString& newKey) const override;

    double getAngle1Degree() const { return _value.getAngle1().getDegreeValue(); }
    double getAngle2Degree() const { return _value.getAngle2().getDegreeValue(); }
    double getAngle3Degree() const { return _value.getAngle3().getDegreeValue(); }
    // The names of the angles in the default convention, where the first turns about Z and the third about X.
    double getAzDegree() const { return getAngle1Degree(); }
    double getAyDegree() const { return getAngle2Degree(); }
    double getAxDegree() const { return getAngle3Degree(); }
    /// Never null, and not owned.
    MbgRotationConvention* getConvention() const { return _value.getConvention(); }
    const MbgEDimension& getDimension() const { return _config.getDimension(); }
    /// The second and third angles in 2D, in radians.
    double getFillValue() const { return _config.getFillValue(); }

    void setAngle1Degree(double angle);
    void setAngle2Degree(double angle);
    void setAngle3Degree(double angle);
    /// Reads the present numbers of the angles in the default convention and converts that rotation to `convention`;
    /// null is the default one.
    void setConvention(MbgRotationConvention* convention);
    /// 1D is refused.
    void setDimension(const MbgEDimension& dimension, double fillValue)
    {
        _configChangedIf(_config.setDimension(dimension, fillValue));
    }

protected:
    /// Takes ownership of the delegate.
    KpaRotation(const QString& key, KpaIRotationConfigDelegate* delegate);
};
