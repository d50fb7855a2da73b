#pragma once

#include <basic/MbbAEnumClass.h>

/// The number of dimensions of a space: 1, 2 or 3. A default one is 3D.
class KESTRIN_BASIC_EXPORT MbgEDimension : public MbbAEnumClass<MbgEDimension>
{
public:
    static const MbgEDimension DIM_1D; ///< value 0
    static const MbgEDimension DIM_2D; ///< value 1
    static const MbgEDimension DIM_3D; ///< value 2

    MbgEDimension() : MbgEDimension(DIM_3D) {}

    /// 1, 2 or 3.
    int getNDim() const { return getValue() + 1; }
    /// The dimension of `n` axes; an `MbeProgrammingError` unless `n` is 1, 2 or 3.
    static const MbgEDimension& fromNDim(int n);

    static QList<const MbgEDimension*> items();
    static constexpr const char* ClassName = "MbgEDimension";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
