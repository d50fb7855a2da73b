#pragma once

#include <param/KpbStatus.h>
#include <param/composite/KpcCatalogCategory.h>
#include <param/composite/KpcList.h>

class KpaColor;
class KpcRenamedRows;
class KsoEnumCatalog;

extern template class KESTRIN_PARAM_EXPORT KpcList<KpcCatalogCategory>;

/// The table in which the categories of a catalog are edited: a row for each category, and the colour for undefined
/// values. It says what is to be done to the catalog and is not the catalog.
///
/// Renames are kept consistent: a category that is renamed to the old name of one above it gets the name which that one
/// gets. A table with errors can be stored like any other; `getStatus` tells of them.
class KESTRIN_PARAM_EXPORT KpcCatalogCategories : public KpcGroup
{
public:
    KpcCatalogCategories(const QString& key, const KstITransactable& transactable);
    KpcCatalogCategories(const KpcCatalogCategories& other, const QString& newKey);
    ~KpcCatalogCategories() override;
    KpcCatalogCategories* duplicate(const QString& newKey) const override;

    /// A new last row that adds a category of that name, in a random colour; null if it did not survive its arrival.
    KpcCatalogCategory* addNewCategory(const QString& name);
    /// Describes `catalog`, with nothing to be done to it. Without one, the rows describe a catalog to be made from
    /// nothing: those that remove a category go, and the others add theirs.
    void resetCategoriesFromCatalog(const KsoEnumCatalog* catalog);
    /// What is wrong with the names, as errors. `isStatement` says whether a missing name is told as a fact or as what
    /// is to be done.
    KpbStatus getStatus(bool isStatement) const;
    void update(const KpnModif& modif) override;

private:
    class Rows;

    void _declare(KpcChildren children);
    void _describe(const KsoEnumCatalog& catalog);
    void _describeFromNothing();
    std::vector<int> _rowsToRemove() const;
    void _followRenames(const KpnModif& modif);
    int _changedRow(const KpnModif& modif, bool isAppending);
    void _followRename(int rank);

    KpcChild<KpaColor> _undefColor;
    KpcChild<Rows> _categories;
    // As the rows were last looked at; null until they are.
    std::unique_ptr<KpcRenamedRows> _renamed;
    int _lastChanged = -1;
    // The next that is heard of the list is that a row has come behind all others, and nothing else.
    bool _isAppending = false;
};
