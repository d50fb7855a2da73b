#pragma once

#include <basic/MbbAEnumClass.h>
#include <util/UtilExport.h>

/// How a scene shows its items. A default one is SCENE_3D.
class KESTRIN_UTIL_EXPORT KugESceneType : public MbbAEnumClass<KugESceneType>
{
public:
    static const KugESceneType SCENE_2D; ///< value 0: on a plane
    static const KugESceneType SCENE_3D; ///< value 1: in space

    KugESceneType() : KugESceneType(SCENE_3D) {}

    static QList<const KugESceneType*> items();
    static constexpr const char* ClassName = "KugESceneType";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
