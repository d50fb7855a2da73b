#pragma once

#include <param/composite/KpcChildren.h>

#include <study/KsmModelEnumCatalog.h>
#include <study/KsoDataSubset.h>

#include <optional>

class KpaBool;
class KpaData;
class KpaFlags;
class KpbStatus;

/// A subset of the samples of a dataset: those that a boolean variable selects, or those of some categories of a
/// variable of categories, or the complement. It follows the catalog of the categories, and offers what the catalog
/// has.
///
/// The subset is made, and its samples counted, when it is asked for, and kept until one of the children changes. What
/// goes wrong there is an `MbeError`. The project outlives the selection or dies with its models; a selection without a
/// project has no subset.
///
/// A plain choice of a variable is stored like that variable, anything else by its children.
class KESTRIN_PARAM_EXPORT KpcSelection : public KpcAComposite, public KuoIObserver<KsmModifEnumCatalog>
{
public:
    enum Mode
    {
        VariableMode = 0,
        CategoricalMode = 1,
    };

    KpcSelection(const QString& key, const KstITransactable& transactable);
    KpcSelection(const KpcSelection& other, const QString& newKey);
    ~KpcSelection() override;
    KpcSelection* duplicate(const QString& newKey) const override;

    KsoDataSubset getSelection() const { return _ensuredSubset(); }
    /// A subset with intervals of samples is an `MbeProgrammingError`, and changes nothing. Categories that the
    /// variable does not have are passed over.
    void setSelection(const KsoDataSubset& subset);
    /// Stores the subset for the automatic mode; an automatic selection takes it over at once.
    void setAutoValue(const KsoDataSubset& subset);
    /// Tells, behind `name`, what is wrong with the selection: nothing is while there is no variable. That no sample is
    /// selected is an error or, unless `emptyIsError`, a warning.
    KpbStatus getStatus(const QString& name, bool emptyIsError) const;

    Mode getMode() const { return isCategorical() ? CategoricalMode : VariableMode; }
    /// Whether the variable is one of categories.
    bool isCategorical() const;
    /// Whether there is a variable.
    bool isDefined() const;
    /// A number that changes with the choice.
    unsigned int getUniqueIdentifier() const;
    /// Whether macro variables can be chosen.
    void setMacroAuthorized(bool authorized);
    /// Whether texts and stored forms of the variable leave out what its root gives.
    void setRelative(bool relative);

    /// Marks the children that are not to be stored as volatile.
    SerialForm serialize() const override;
    void unserialize(const SerialForm& map) override;
    QString toString() const override;
    void update(const KpnModif& modif) override;
    void update(const KsmModifEnumCatalog& modif) override;
    using KpcAComposite::destroyed;
    void destroyed(const KuoAObservable<KsmModifEnumCatalog>* catalogs) override;

private:
    void _declare(KpcChildren children);
    void _observeCatalogs();
    const MbdVariableDetails* _details() const;
    int _getCatalogId() const;
    const KsoEnumCatalog* _catalogItem(int catalogId) const;
    KsoDataSubset _uncountedSubset() const;
    const KsoDataSubset& _ensuredSubset() const;
    void _fixParamEnabledState(const KuoLock<KpnModif>& lock);
    void _resetCategoriesParam();
    void _resetCategoriesParamConfig(int catalogId);
    void _setAutomatic();
    void _setValueAuto() override;
    void _invalidateAutomatic();

    KpcChild<KpaData> _variable;
    KpcChild<KpaFlags> _categories;
    KpcChild<KpaBool> _invert;
    // A model that is dying cannot be asked any more, but can still be left.
    KuoPointer<KsmModelEnumCatalog> _catalogModel;
    const KuoAObservable<KsmModifEnumCatalog>* _observedCatalogs = nullptr;
    KsoDataSubset _autoValue;
    mutable std::optional<KsoDataSubset> _subsetCache;
    bool _settingAuto = false;
};
