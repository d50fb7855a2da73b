#include <param/composite/KpcCatalogCategoryOperation.h>

#include <QtCore/QObject>

template <>
QMap<int, KpcCatalogCategoryOperation*> KpbAEnumeration<KpcCatalogCategoryOperation>::_map{};

const KpcCatalogCategoryOperation* KpcCatalogCategoryOperation::_default = &KpcCatalogCategoryOperation::ADD;

KpcCatalogCategoryOperation::KpcCatalogCategoryOperation() : KpcCatalogCategoryOperation(*_default) {}

KpcCatalogCategoryOperation::KpcCatalogCategoryOperation(const QString& label, int value, const char* key)
    : KpbAEnumeration(label, value, key)
{}

#define KPC_CATALOG_CATEGORY_OPERATION_DEFINITION(key, value, label)                                                   \
    const KpcCatalogCategoryOperation KpcCatalogCategoryOperation::key(QObject::tr(label), value, #key);
KPC_CATALOG_CATEGORY_OPERATION_ROWS(KPC_CATALOG_CATEGORY_OPERATION_DEFINITION)
#undef KPC_CATALOG_CATEGORY_OPERATION_DEFINITION
