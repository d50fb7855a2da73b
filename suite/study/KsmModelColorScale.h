#pragma once

#include <study/KsmANamedModel.h>
#include <study/KsmModifColorScale.h>
#include <study/KsoColorScale.h>

extern template class KESTRIN_STUDY_EXPORT KsmANamedModel<KsoColorScaleKind>;

/// The colour scales of a project. The known palettes are built in under their ids. A colour scale has at least one
/// colour, all of them valid; otherwise it is an `MbeUserError`.
class KESTRIN_STUDY_EXPORT KsmModelColorScale : public KsmANamedModel<KsoColorScaleKind>
{
public:
    /// Reads the items from `driver`. Stored items that are damaged are an `MbeError`.
    KsmModelColorScale(KssProject* project, KsbIDriverItem* driver);
    ~KsmModelColorScale() override;

    /// `KsmReason::Colors`
    void setColors(KsoColorScale* scale, const QVector<QColor>& colors);
};
