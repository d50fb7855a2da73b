#pragma once

#include <basic/MbdCategoryDefinition.h>
#include <study/KsmANamedModel.h>
#include <study/KsmModifEnumCatalog.h>
#include <study/KsoEnumCatalog.h>

extern template class KESTRIN_STUDY_EXPORT KsmANamedModel<KsoEnumCatalogKind>;

/// The catalogs of a project. The number of a category is a short other than `MbbGlobal::I16_FFFF`, its label is not
/// empty, and no two categories of a catalog have the same one; otherwise it is an `MbeUserError`, and so is a category
/// that is not there.
class KESTRIN_STUDY_EXPORT KsmModelEnumCatalog : public KsmANamedModel<KsoEnumCatalogKind>
{
public:
    /// Reads the items from `driver`. Stored items that are damaged are an `MbeError`.
    KsmModelEnumCatalog(KssProject* project, KsbIDriverItem* driver);
    ~KsmModelEnumCatalog() override;

    /// `KsmReason::CategoryAdded`; an `MbeUserError` if there is a category of the value.
    void addCategory(KsoEnumCatalog* catalog, const MbdCategoryDefinition& category);
    /// `KsmReason::CategoryRenamed`
    void setCategoryLabel(KsoEnumCatalog* catalog, short value, const QString& label);
    /// `KsmReason::CategoryColor`
    void setCategoryColor(KsoEnumCatalog* catalog, short value, const MbbColor& color);
    /// `KsmReason::CategoryRemoved`
    void removeCategory(KsoEnumCatalog* catalog, short value);
    /// `KsmReason::UndefinedColor`
    void setUndefColor(KsoEnumCatalog* catalog, const MbbColor& color);

private:
    template <class Edit>
    void _editCategory(KsoEnumCatalog* catalog, short value, int reason, Edit edit);
};
