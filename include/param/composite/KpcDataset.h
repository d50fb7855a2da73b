#pragma once

#include <param/composite/KpcAComposite.h>

#include <vector>

class KpaData;
class KpcSampleCategories;
class KpcSampleFilter;
class KpcSelection;
class KplDataList;
class KsoDataFile;
class KsoDataFilter;
class KsoDataIdentifier;
class KsoDataSupport;

/// A data file, or one of its supports, and what is chosen inside: variables, lists of variables, a selection, sample
/// filters, sample categories, and further datasets. Its root is the parameter for the file; all other children know
/// at any time which file the root names, and which level the root is of.
///
/// A change of the root reaches the observers of the children, and of the dataset, only when every child has been told.
/// Other children than these may be there, and are left alone.
class KESTRIN_PARAM_EXPORT KpcDataset : public KpcAComposite
{
public:
    KpcDataset(const QString& key, const KstITransactable& transactable);
    KpcDataset(const KpcDataset& other, const QString& newKey);
    KpcDataset* duplicate(const QString& newKey) const override;

    /// Owned by the dataset, with the key "ROOT".
    KpaData* getRootParameter() const;
    const KsoDataIdentifier& getRootIdent() const;
    void setRootIdent(const KsoDataIdentifier& ident);
    void setRootLabel(const QString& label);
    /// A filter for anything but files and supports is a programming failure, which leaves the former filter.
    void setRootFilter(const KsoDataFilter& filter);
    /// The file that the root names, or that its support is in; null if there is none.
    KsoDataFile* getFile() const;
    /// The support that the root names, or the single one of its file; null if there is none.
    KsoDataSupport* getSupport() const;

    /// The new child takes the root and is relative to it. Here and below the dataset takes ownership; null, a key that
    /// is taken, and a root of a level that the child refuses, fail with an `MbeError` and leave the child with the
    /// caller.
    void addVariable(KpaData* variable);
    void addVariableList(KplDataList* list);
    void addSampleFilter(KpcSampleFilter* filter);
    void addSampleCategories(KpcSampleCategories* categories);
    /// The selection, which is made if there is none, with the key "SELECTION". It is the dataset's; null if it did not
    /// survive its own arrival, and if the child with that key is none.
    KpcSelection* createSelectionParameter();

    /// The text of the root.
    QString toString() const override;
    void update(const KpnModif& modif) override;

protected:
    /// The same as the operations above for a dataset whose root lies below this one's.
    void _addDataset(KpcDataset* dataset);

private:
    void setRelative(bool relative);
    template <class Child>
    void _add(Child* child);
    std::vector<KuoPointer<KpbAParameter>> _childrenBesideRoot() const;
    void _updateVariablesRoot(bool identChanged, bool configChanged);

    // The children are being told of the root.
    bool _updatingRoot = false;
};
