#pragma once

#include <basic/MbgAVector.h>

/// Three integers, one for each axis of space. A default one is zero.
class KESTRIN_BASIC_EXPORT MbgIntVector3D : public MbgAVector<int, 3>
{
public:
    constexpr MbgIntVector3D() = default;
    constexpr MbgIntVector3D(int x, int y, int z) : MbgAVector(x, y, z) {}

    constexpr int& z() { return _components[2]; }
    constexpr const int& z() const { return _components[2]; }
};
