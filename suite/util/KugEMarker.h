#pragma once

#include <basic/MbbAEnumClass.h>
#include <util/UtilExport.h>

/// The shape of a point on a map or a chart. A default one is CIRCLE.
class KESTRIN_UTIL_EXPORT KugEMarker : public MbbAEnumClass<KugEMarker>
{
public:
    static const KugEMarker CIRCLE;        ///< value 0
    static const KugEMarker SQUARE;        ///< value 1
    static const KugEMarker DIAMOND;       ///< value 2
    static const KugEMarker TRIANGLE_UP;   ///< value 3
    static const KugEMarker TRIANGLE_DOWN; ///< value 4
    static const KugEMarker PENTAGON;      ///< value 5
    static const KugEMarker HEXAGON;       ///< value 6
    static const KugEMarker STAR;          ///< value 7
    static const KugEMarker PLUS;          ///< value 8, two strokes upright
    static const KugEMarker CROSS;         ///< value 9, two strokes aslant

    KugEMarker() : KugEMarker(CIRCLE) {}

    static QList<const KugEMarker*> items();
    static constexpr const char* ClassName = "KugEMarker";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
