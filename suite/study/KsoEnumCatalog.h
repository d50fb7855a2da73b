#pragma once

#include <study/KsoANamedItem.h>
#include <study/KsoEnumCatalogIdentifier.h>

/// A catalog of categories: numbers that samples hold, with labels and colours.
class KESTRIN_STUDY_EXPORT KsoEnumCatalog : public KsoANamedItem<KsoEnumCatalogKind>
{
public:
    /// The categories under the id and the name of the item.
    MbdEnumCatalog getCatalog() const;

private:
    template <class>
    friend class KsmANamedModel;
    using KsoANamedItem::KsoANamedItem;
};
