#pragma once

#include <param/atomic/KpaData.h>
#include <param/list/KplAAtomicList.h>

extern template class KESTRIN_PARAM_EXPORT KpcList<KpaData>;
extern template class KESTRIN_PARAM_EXPORT KplAAtomicList<KpaData, KsoDataIdentifier, KpaDataConfig>;

/// A list of items of the data tree, chosen below one root. The setters of the configuration apply to the prototype and
/// to all items; the getters read the prototype.
class KESTRIN_PARAM_EXPORT KplDataList : public KplAAtomicList<KpaData, KsoDataIdentifier, KpaDataConfig>
{
public:
    enum class Duplicates
    {
        Keep = 0,
        Drop = 1
    };

    KplDataList(const QString& key, const KstITransactable& transactable);
    KplDataList(const KplDataList& other, const QString& newKey);
    KplDataList* duplicate(const QString& newKey) const override;

    /// The values that are not null, in order; of those that repeat, with `Drop`, the first.
    QList<KsoDataIdentifier> getDataIdents(Duplicates duplicates) const;
    /// The rank of the first item whose value has that name, -1 if there is none.
    int getDataIndex(const QString& name) const;
    /// Null if there is no data item, and for a rank out of range.
    KsoADataItem* getDataItem(int rank) const;
    KsmModelData* getDataModel() const { return getItemPrototype()->getDataModel(); }
    /// Removes the items of the list that have no data item.
    void compressEmptyItems();

    const KsoDataIdentifier& getRootIdent() const { return getItemPrototype()->getRootIdent(); }
    const KsoEDataType& getRootType() const { return getItemPrototype()->getRootType(); }
    const KsoDataFilter& getFilter() const { return getItemPrototype()->getFilter(); }
    const KpaDataConfig::ParentFilters& getParentFilters() const { return getItemPrototype()->getParentFilters(); }
    bool isRelative() const { return getItemPrototype()->isRelative(); }

    /// The values follow the root: they keep their places below it.
    void setRootIdent(const KsoDataIdentifier& ident, bool setRootType);
    void setRootType(const KsoEDataType& type);
    void setFilter(const KsoDataFilter& filter);
    void addParentFilter(const KsoDataFilter& filter);
    void setRelative(bool relative);
};
