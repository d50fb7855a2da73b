#pragma once

#include <study/KsmANamedModel.h>
#include <study/KsmModifScene.h>
#include <study/KsoScene.h>

extern template class KESTRIN_STUDY_EXPORT KsmANamedModel<KsoSceneKind>;

/// The scenes of a project.
class KESTRIN_STUDY_EXPORT KsmModelScene : public KsmANamedModel<KsoSceneKind>
{
public:
    /// Reads the items from `driver`. Stored items that are damaged are an `MbeError`.
    KsmModelScene(KssProject* project, KsbIDriverItem* driver);
    ~KsmModelScene() override;

    /// `KsmReason::Content`, and `KsmReason::Conditions` if the dimension changes.
    void setScene(KsoScene* scene, const KugScene& content);
};
