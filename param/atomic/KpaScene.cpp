#include <param/atomic/KpaScene.h>

template class KpaAAtomic<KsoSceneIdentifier, KpaSceneConfig>;

KpaScene::KpaScene(const QString& key, const KstITransactable& transactable)
    : KpaAFilteredItemsAtomic(key, KpaSceneConfig(), transactable)
{}

KpaScene::KpaScene(const KpaScene& other, const QString& newKey) : KpaAFilteredItemsAtomic(other, newKey) {}

KpaScene* KpaScene::duplicate(const QString& newKey) const
{
    return new KpaScene(*this, newKey);
}

const KugScene* KpaScene::getScene() const
{
    const KsoScene* item = getSceneItem();
    return item ? &item->getScene() : nullptr;
}
