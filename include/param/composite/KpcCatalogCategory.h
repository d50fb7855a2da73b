#pragma once

#include <QtCore/QSet>

#include <param/composite/KpcCatalogCategoryOperation.h>
#include <param/composite/KpcChildren.h>
#include <param/composite/KpcGroup.h>

class KpaColor;
class KpaEnum;
class KpaString;

/// A row of the table of a catalog's categories: what is to be done, the name that the category has in the catalog, its
/// colour, and the name that it is to have.
///
/// A category that is edited cannot go without a name: an emptied one becomes the old name again. Saving leaves out
/// what the operation has no use for: it marks that as volatile, until there is a use for it or a stored row is read.
class KESTRIN_PARAM_EXPORT KpcCatalogCategory : public KpcGroup
{
public:
    KpcCatalogCategory(const QString& key, const KstITransactable& transactable);
    KpcCatalogCategory(const KpcCatalogCategory& other, const QString& newKey);
    KpcCatalogCategory* duplicate(const QString& newKey) const override;

    KpcCatalogCategoryOperation getOperation() const;

    /// Marks what is not worth storing, and has no entries itself.
    SerialForm serialize() const override;
    /// Takes its own marks off, so that all of a stored row is read.
    void unserialize(const SerialForm& map) override;
    void update(const KpnModif& modif) override;

private:
    friend class KpcCatalogCategories;

    void _declare(KpcChildren children);
    bool _is(const KpcCatalogCategoryOperation& operation) const;
    void _keepName();
    void _mark(bool name, bool color, bool operationValue) const;

    KpcChild<KpaEnum> _operation;
    KpcChild<KpaString> _name;
    KpcChild<KpaColor> _color;
    KpcChild<KpaString> _operationValue;
    // The children that are volatile because this row has marked them, and not because a caller has.
    mutable QSet<const KpbAParameter*> _marked;
};
