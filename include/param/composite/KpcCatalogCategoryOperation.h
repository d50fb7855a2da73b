#pragma once

#include <param/KpExport.h>
#include <param/KpbAEnumeration.h>

// clang-format off
/// What is to be done with a category: key, value, label. The values never change.
#define KPC_CATALOG_CATEGORY_OPERATION_ROWS(ROW) \
    ROW(ADD,    0, "Add category")    \
    ROW(EDIT,   1, "Edit category")   \
    ROW(REMOVE, 2, "Remove category")
// clang-format on

class KESTRIN_PARAM_EXPORT KpcCatalogCategoryOperation;

template <>
QMap<int, KpcCatalogCategoryOperation*> KpbAEnumeration<KpcCatalogCategoryOperation>::_map;

/// What a row of `KpcCatalogCategories` is to do to a catalog. A default-built operation is `ADD`.
class KESTRIN_PARAM_EXPORT KpcCatalogCategoryOperation : public KpbAEnumeration<KpcCatalogCategoryOperation>
{
public:
#define KPC_CATALOG_CATEGORY_OPERATION_ENUMERATOR(key, value, label) key = value,
    enum class EValue
    {
        KPC_CATALOG_CATEGORY_OPERATION_ROWS(KPC_CATALOG_CATEGORY_OPERATION_ENUMERATOR)
    };
#undef KPC_CATALOG_CATEGORY_OPERATION_ENUMERATOR

    KpcCatalogCategoryOperation();

    EValue toEnum() const
    {
        return EValue(getValue());
    }

#define KPC_CATALOG_CATEGORY_OPERATION_CONSTANT(key, value, label) static const KpcCatalogCategoryOperation key;
    KPC_CATALOG_CATEGORY_OPERATION_ROWS(KPC_CATALOG_CATEGORY_OPERATION_CONSTANT)
#undef KPC_CATALOG_CATEGORY_OPERATION_CONSTANT

private:
    friend class KpbAEnumeration<KpcCatalogCategoryOperation>;

    KpcCatalogCategoryOperation(const QString& label, int value, const char* key);

    static constexpr const char* _className = "KpcCatalogCategoryOperation";
    static constexpr const char* _file = "composite\\KpcCatalogCategoryOperation";
    static const KpcCatalogCategoryOperation* _default;
};
