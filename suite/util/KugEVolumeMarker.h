#pragma once

#include <basic/MbbAEnumClass.h>
#include <util/UtilExport.h>

/// The solid that stands for a point in a 3D scene. A default one is SPHERE.
class KESTRIN_UTIL_EXPORT KugEVolumeMarker : public MbbAEnumClass<KugEVolumeMarker>
{
public:
    static const KugEVolumeMarker SPHERE;      ///< value 0
    static const KugEVolumeMarker CUBE;        ///< value 1
    static const KugEVolumeMarker TETRAHEDRON; ///< value 2
    static const KugEVolumeMarker OCTAHEDRON;  ///< value 3
    static const KugEVolumeMarker CYLINDER;    ///< value 4
    static const KugEVolumeMarker CONE;        ///< value 5
    static const KugEVolumeMarker DISC;        ///< value 6
    static const KugEVolumeMarker CROSS;       ///< value 7, three bars along the axes

    KugEVolumeMarker() : KugEVolumeMarker(SPHERE) {}

    static QList<const KugEVolumeMarker*> items();
    static constexpr const char* ClassName = "KugEVolumeMarker";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
