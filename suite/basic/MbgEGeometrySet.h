#pragma once

#include <basic/MbbAEnumClass.h>

/// What the samples of a file are in space. A default one is POINTS.
class KESTRIN_BASIC_EXPORT MbgEGeometrySet : public MbbAEnumClass<MbgEGeometrySet>
{
public:
    static const MbgEGeometrySet POINTS;   ///< value 0
    static const MbgEGeometrySet LINES;    ///< value 1
    static const MbgEGeometrySet POLYGONS; ///< value 2
    static const MbgEGeometrySet GRID;     ///< value 3

    MbgEGeometrySet() : MbgEGeometrySet(POINTS) {}

    static QList<const MbgEGeometrySet*> items();
    static constexpr const char* ClassName = "MbgEGeometrySet";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
