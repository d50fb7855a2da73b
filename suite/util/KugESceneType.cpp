#include <util/KugESceneTypeFlags.h>

#include <QtCore/QObject>

const KugESceneType KugESceneType::SCENE_2D(QObject::tr("2D scene"), 0, "SCENE_2D");
const KugESceneType KugESceneType::SCENE_3D(QObject::tr("3D scene"), 1, "SCENE_3D");

QList<const KugESceneType*> KugESceneType::items()
{
    return {&SCENE_2D, &SCENE_3D};
}

// Beside the types, which have to be made first.
const KugESceneTypeFlags KugESceneTypeFlags::ANY = KugESceneTypeFlags::all();
