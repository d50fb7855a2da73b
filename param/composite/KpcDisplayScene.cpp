#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaScene.h>
#include <param/composite/KpcDisplayScene.h>

#include <QtCore/QObject>

namespace {

template <class Flags>
KsoSceneFilter inputOf(const Flags& flags)
{
    return KsoSceneFilter(MbdEIo::INPUT, flags);
}

} // namespace

KpcDisplayScene::KpcDisplayScene(const QString& key, const KstITransactable& transactable)
    : KpcAComposite(KpbEType::DISPLAY_SCENE, key, transactable)
{
    setLabel(QObject::tr("Display"));
    _declare({*this, KpcChildren::Create});
    _updateSceneEnabled();
}

KpcDisplayScene::KpcDisplayScene(const KpcDisplayScene& other, const QString& newKey) : KpcAComposite(other, newKey)
{
    _declare({*this, KpcChildren::Rebind});
}

KpcDisplayScene* KpcDisplayScene::duplicate(const QString& newKey) const
{
    return new KpcDisplayScene(*this, newKey);
}

void KpcDisplayScene::_declare(KpcChildren children)
{
    const MbgDimensionFlags all{MbgEDimension::DIM_2D, MbgEDimension::DIM_3D};
    children.add(_display, "DISPLAY", QObject::tr("Display result in")).value(false);
    children.add(_scene, "SCENE", QObject::tr("Scene"), _getTransactable()).with([&](KpaScene& scene) {
        scene.setFilter(inputOf(all));
    });
}

const KsoSceneIdentifier& KpcDisplayScene::getSceneIdent() const
{
    return _scene->getValue();
}

void KpcDisplayScene::setScene(const KsoSceneIdentifier& ident)
{
    _scene->setValue(ident);
}

bool KpcDisplayScene::isActive() const
{
    return !_displayOneShot && _display->getValue();
}

void KpcDisplayScene::setActive(bool active)
{
    _display->setValue(active);
}

void KpcDisplayScene::setDisplayOneShot(bool oneShot)
{
    _displayOneShot = oneShot;
    _updateSceneEnabled();
}

void KpcDisplayScene::setDisplayLabel(const QString& label)
{
    _display->setLabel(label);
}

void KpcDisplayScene::setDisplayVolatile(bool isVolatile)
{
    _display->setVolatile(isVolatile);
}

void KpcDisplayScene::setSceneDimension(const MbgDimensionFlags& dimensions)
{
    _scene->setFilter(inputOf(dimensions));
}

void KpcDisplayScene::setSceneDimension(const KugESceneTypeFlags& types)
{
    _scene->setFilter(inputOf(types));
}

QString KpcDisplayScene::toString() const
{
    if (!_display->getValue())
        return QStringLiteral("Do not display");
    return QStringLiteral("Display in scene \"%1\"").arg(_scene->toString());
}

void KpcDisplayScene::update(const KpnModif& modif)
{
    KuoLock<KpnModif> lock(this);
    if (modif.hasModif(_display, Kp::NotifyValue | Kp::NotifyItem))
        _updateSceneEnabled();
    if (lock.isAlive())
        KpcAComposite::update(modif);
    lock.commit();
}

void KpcDisplayScene::_updateSceneEnabled()
{
    _scene->setEnabled(_displayOneShot || _display->getValue());
}
