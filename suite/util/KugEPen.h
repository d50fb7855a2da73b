#pragma once

#include <basic/MbbAEnumClass.h>
#include <util/UtilExport.h>

/// How a line is broken into strokes. A default one is SOLID.
class KESTRIN_UTIL_EXPORT KugEPen : public MbbAEnumClass<KugEPen>
{
public:
    static const KugEPen NO_LINE;      ///< value 0
    static const KugEPen SOLID;        ///< value 1
    static const KugEPen DASH;         ///< value 2
    static const KugEPen DOT;          ///< value 3
    static const KugEPen DASH_DOT;     ///< value 4
    static const KugEPen DASH_DOT_DOT; ///< value 5

    KugEPen() : KugEPen(SOLID) {}

    static QList<const KugEPen*> items();
    static constexpr const char* ClassName = "KugEPen";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
