#pragma once

#include <basic/MbgEDimension.h>
#include <param/atomic/KpaIRotationConfigDelegate.h>

#include <memory>

/// What a rotation parameter admits: any rotation in 3D; in 2D the first angle alone, with the fill value for the other
/// two. A delegate, which the config owns, decides in its place on everything but the dimension. Setters give whether
/// something changed.
///
/// Texts throw only what `MbuUnitService` throws where its database is missing.
class KESTRIN_PARAM_EXPORT KpaRotationConfig
{
public:
    using SerialForm = MbbOrderedMap<QString, QString>;

    KpaRotationConfig();
    /// Takes ownership of the delegate; null is none.
    explicit KpaRotationConfig(KpaIRotationConfigDelegate* delegate);
    KpaRotationConfig(const KpaRotationConfig& other);
    KpaRotationConfig& operator=(const KpaRotationConfig& other);
    ~KpaRotationConfig();

    /// False where dimension or fill value differ. Otherwise the comparison runs the other way round: configs that look
    /// the same are unequal, so that a parameter takes them over with all that a change entails; one without a delegate
    /// equals one that has one. One with a delegate and one without are compared by their kinds.
    bool operator==(const KpaRotationConfig& other) const;

    const KpbEType& getType() const;
    MbgRotation getInitialValue() const { return MbgRotation(); }

    /// 2D or 3D.
    const MbgEDimension& getDimension() const { return _dimension; }
    bool is2D() const { return _dimension == MbgEDimension::DIM_2D; }
    /// The second and third angles in 2D, in radians.
    double getFillValue() const { return _fillValue; }

    /// 1D is refused.
    bool setDimension(const MbgEDimension& dimension, double fillValue);

    MbgRotation fix(const MbgRotation& rotation, const MbgRotation& previous) const;
    QString toString(const MbgRotation& rotation) const;
    SerialForm serializeValue(const MbgRotation& rotation) const;
    MbgRotation unserializeValue(const SerialForm& map, const MbgRotation& previous) const;
    QString debug() const;

    /// Reads plain angles: of the form that `serializeValue` writes without a delegate, or of the older one with angles
    /// about the three axes. `previous` stands where the map has neither, or an angle of the first is not defined; an
    /// undefined angle of the older form is taken over. A convention that is not known under the stored id and string
    /// is made as a temporary one, also where an angle is not defined.
    static MbgRotation _unserializeRotation(const SerialForm& map, const MbgRotation& previous);

private:
    KpaIRotationConfigDelegate* _duplicateDelegate() const { return _delegate ? _delegate->duplicate() : nullptr; }
    QString _anglesText(const MbgRotation& rotation) const;

    MbgEDimension _dimension = MbgEDimension::DIM_3D;
    double _fillValue = 0;
    std::unique_ptr<KpaIRotationConfigDelegate> _delegate;
};
