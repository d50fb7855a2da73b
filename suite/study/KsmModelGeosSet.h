#pragma once

#include <study/KsmANamedModel.h>
#include <study/KsmModifGeosSet.h>
#include <study/KsoGeosSet.h>

extern template class KESTRIN_STUDY_EXPORT KsmANamedModel<KsoGeosSetKind>;

/// The geostatistical sets of a project.
class KESTRIN_STUDY_EXPORT KsmModelGeosSet : public KsmANamedModel<KsoGeosSetKind>
{
public:
    /// Reads the items from `driver`. Stored items that are damaged are an `MbeError`.
    KsmModelGeosSet(KssProject* project, KsbIDriverItem* driver);
    ~KsmModelGeosSet() override;

    /// Stores the document under the name, in place of one that is there: `KsmReason::Documents`.
    void setDocument(KsoGeosSet* set, const QString& name, const QString& text);
    /// The same reason. Nothing happens where there is none.
    void removeDocument(KsoGeosSet* set, const QString& name);
};
