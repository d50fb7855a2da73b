#include <study/KsmModelScene.h>

#include <study/KsbColorJson.h>
#include <study/KsbJson.h>
#include <study/KsoSceneFilter.h>

template class KsmANamedModel<KsoSceneKind>;

namespace {

const QString typeKey = QStringLiteral("type");
const QString backgroundKey = QStringLiteral("background");

MbgDimensionFlags dimensionsOf(const KugESceneTypeFlags& types)
{
    MbgDimensionFlags dimensions;
    for (const KugESceneType& type : types.getItems())
        dimensions.setFlag(KugScene::getDimension(type));
    return dimensions;
}

} // namespace

KsoSceneIdentifier::KsoSceneIdentifier(KsmModelScene* model, const QString& name) : KsoANamedIdentifierOf(model, name)
{}

KsoSceneFilter::KsoSceneFilter(const MbdEIo& io, const MbgDimensionFlags& dimensions)
    : KsoANamedFilterOf(io),
      _dimensions(dimensions)
{}

KsoSceneFilter::KsoSceneFilter(const MbdEIo& io, const KugESceneTypeFlags& types)
    : KsoSceneFilter(io, dimensionsOf(types))
{}

QJsonObject KsoSceneKind::write(const Content& content)
{
    return {{typeKey, content.getType().getKey()}, {backgroundKey, KsbColorJson::toText(content.getBackground())}};
}

KugScene KsoSceneKind::read(const QJsonObject& json)
{
    KugScene scene(KsbJson::readEnum<KugESceneType>(json, typeKey));
    scene.setBackground(KsbColorJson::read(json, backgroundKey, scene.getBackground()));
    return scene;
}

KsmModelScene::KsmModelScene(KssProject* project, KsbIDriverItem* driver) : KsmANamedModel(project, driver)
{
    _load();
}

KsmModelScene::~KsmModelScene() = default;

void KsmModelScene::setScene(KsoScene* scene, const KugScene& content)
{
    _requireOwn(scene);
    const bool sameDimension = scene->getDimension() == content.getDimension();
    _edit(scene, content, sameDimension ? KsmReason::Content : KsmReason::Content | KsmReason::Conditions);
}
