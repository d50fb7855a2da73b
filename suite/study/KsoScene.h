#pragma once

#include <study/KsoANamedItem.h>
#include <study/KsoSceneIdentifier.h>

/// A scene of a project.
class KESTRIN_STUDY_EXPORT KsoScene : public KsoANamedItem<KsoSceneKind>
{
public:
    const KugScene& getScene() const { return getContent(); }
    /// That of its type.
    MbgEDimension getDimension() const { return getContent().getDimension(); }

private:
    template <class>
    friend class KsmANamedModel;
    using KsoANamedItem::KsoANamedItem;
};
