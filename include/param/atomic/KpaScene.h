#pragma once

#include <param/atomic/KpaAFilteredItemsAtomic.h>
#include <param/atomic/KpaSceneConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KsoSceneIdentifier, KpaSceneConfig>;

/// A scene of the project. The item, the model and the project may die.
class KESTRIN_PARAM_EXPORT KpaScene
    : public KpaAFilteredItemsAtomic<
          KpaAProjectAtomic<KsoSceneIdentifier, KpaSceneConfig, KsmModifScene, KpaAProjectConfig>>
{
public:
    KpaScene(const QString& key, const KstITransactable& transactable);
    KpaScene(const KpaScene& other, const QString& newKey);
    KpaScene* duplicate(const QString& newKey) const override;

    /// Null if there is no item of the value.
    KsoScene* getSceneItem() const { return _value.getItem(); }
    /// -1 if there is no item of the value.
    int getSceneId() const { return _value.getId(); }
    /// The scene of the item, which owns it; null if there is none.
    const KugScene* getScene() const;
};
