#pragma once

#include <param/composite/KpcChildren.h>

class KpaBool;
class KpaScene;
class KsoSceneIdentifier;
class KugESceneTypeFlags;
class MbgDimensionFlags;

/// Whether a result is to be displayed in a scene, and in which one. The scene can be chosen while the result is to be
/// displayed, or always where the caller displays it at once.
class KESTRIN_PARAM_EXPORT KpcDisplayScene : public KpcAComposite
{
public:
    KpcDisplayScene(const QString& key, const KstITransactable& transactable);
    /// The copy is not for displaying at once, whatever `other` is.
    KpcDisplayScene(const KpcDisplayScene& other, const QString& newKey);
    KpcDisplayScene* duplicate(const QString& newKey) const override;

    KpaBool* getDisplayParameter() const { return _display; }
    KpaScene* getSceneParameter() const { return _scene; }
    const KsoSceneIdentifier& getSceneIdent() const;
    void setScene(const KsoSceneIdentifier& ident);
    /// Whether the result is to be displayed later; never where the caller displays it at once.
    bool isActive() const;
    void setActive(bool active);
    bool isDisplayOneShot() const { return _displayOneShot; }
    /// For a caller that displays the result at once.
    void setDisplayOneShot(bool oneShot);
    void setDisplayLabel(const QString& label);
    void setDisplayVolatile(bool isVolatile);
    /// Accepts the scenes of these dimensions, for input.
    void setSceneDimension(const MbgDimensionFlags& dimensions);
    void setSceneDimension(const KugESceneTypeFlags& types);

    QString toString() const override;
    void update(const KpnModif& modif) override;

private:
    void _declare(KpcChildren children);
    void _updateSceneEnabled();

    KpcChild<KpaBool> _display;
    KpcChild<KpaScene> _scene;
    bool _displayOneShot = false;
};
