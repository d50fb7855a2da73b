#pragma once

#include <suite/basic/Geometry.h>
#include <support/ObservedAtomic.h>

/// What the tests of the orientations share: an observed parameter, and reading over a rotation that is none of theirs.
template <class Orientation>
class OrientationFixture : public testing::Test
{
protected:
    void make2D() { parameter.setDimension(MbgEDimension::DIM_2D, 0); }
    /// Reads `map` over `previous`.
    MbgRotation read(const KpbAParameter::SerialForm& map, const MbgRotation& previous = Geometry::rotation(1, 2, 3, 2))
    {
        parameter.setValue(previous);
        parameter.unserialize(map);
        return parameter.getValue();
    }

    ObservedAtomic<Orientation> observed;
    Orientation& parameter = observed.atomic;
};
