#pragma once

#include <basic/MbgVector3D.h>

/// A box with its edges along the axes. A default one is empty and not valid, and so is one with a corner that is
/// undefined or not finite. A box may be flat, or one point.
class KESTRIN_BASIC_EXPORT MbgBox
{
public:
    MbgBox() = default;
    /// The box of two opposite corners, in any order.
    MbgBox(const MbgVector3D& a, const MbgVector3D& b);

    bool isValid() const { return _valid; }
    /// The corners with the least and the greatest components; zero if the box is not valid.
    const MbgVector3D& getMinimum() const { return _minimum; }
    const MbgVector3D& getMaximum() const { return _maximum; }
    /// Along each axis; zero if the box is not valid, infinite where it is beyond the numbers.
    MbgVector3D getSize() const { return _maximum - _minimum; }
    double getDiagonalLength() const { return getSize().getLength(); }

    /// Whether no point of this box lies outside `other`; Z counts only with `inThreeDimensions`. False if one of the
    /// boxes is not valid.
    bool isInside(const MbgBox& other, bool inThreeDimensions) const;
    /// Grows to hold the point. One that is undefined or not finite changes nothing and gives false.
    bool extend(const MbgVector3D& point);

    friend bool operator==(const MbgBox& a, const MbgBox& b) = default;

private:
    MbgVector3D _minimum;
    MbgVector3D _maximum;
    bool _valid = false;
};
