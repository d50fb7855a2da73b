#pragma once

#include <param/atomic/KpaAAppliAtomic.h>
#include <param/atomic/KpaDataConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KsoDataIdentifier, KpaDataConfig>;

/// An item of the data tree of the project: a directory, a file, a support or a variable, chosen below a root. It tells
/// its observers, with `Kp::NotifyItem`, when something happened to the item. The item, the model and the project may
/// die; the identifier is kept.
class KESTRIN_PARAM_EXPORT KpaData : public KpaAAppliAtomic<KsoDataIdentifier, KpaDataConfig, KsmModifData>,
                                     public KuoIObserver<KsmModifData>
{
public:
    KpaData(const QString& key, const KstITransactable& transactable);
    KpaData(const KpaData& other, const QString& newKey);
    KpaData* duplicate(const QString& newKey) const override;

    /// Null if there is no item of the value.
    KsoADataItem* getDataItem() const { return _value.getDataItem(); }
    KsmModelData* getDataModel() const { return _config.getDataModel(); }
    const KsoDataFilter& getFilter() const { return _config.getFilter(); }
    KsoDataFilter getParentFilter(const KsoEDataType& type) const { return _config.getParentFilter(type); }
    const KpaDataConfig::ParentFilters& getParentFilters() const { return _config.getParentFilters(); }
    const KsoEDataType& getRootType() const { return _config.getRootType(); }
    const KsoDataIdentifier& getRootIdent() const { return _config.getRootIdent(); }
    bool isRelative() const { return _config.isRelative(); }

    /// The filter is tied to the application of this parameter, here and in `addParentFilter`.
    void setFilter(const KsoDataFilter& filter);
    void addParentFilter(const KsoDataFilter& filter);
    /// The value follows the root: it keeps its place below it.
    void setRootIdent(const KsoDataIdentifier& ident, bool setRootType);
    void setRootType(const KsoEDataType& type) { _configChangedIf(_config.setRootType(type)); }
    void setRelative(bool relative) { _configChangedIf(_config.setRelative(relative)); }

    void update(const KsmModifData& modif) override;
    void destroyed(const KuoAObservable<KsmModifData>* model) override;
};
