#pragma once

#include <QtCore/QList>

#include <param/KuoPointer.h>
#include <param/composite/KpcDataset.h>
#include <param/list/KplDataList.h>
#include <param/watcher/KpwAWatcher.h>

/// Keeps the root of data parameters, and of lists of them, equal to the root of a dataset. A new target takes the root
/// at once; a new dataset is followed from its next change on. Dataset and targets are not owned and may die.
///
/// In a registered watcher, a dataset or target that is not below its group, null among them, is a programming failure,
/// which leaves the former dataset and targets.
class KESTRIN_PARAM_EXPORT KpwDataRootSynchronizer : public KpwAWatcher
{
public:
    KpwDataRootSynchronizer();
    ~KpwDataRootSynchronizer() override;
    KpwDataRootSynchronizer* duplicate(const KpcGroup* newParent) const override;

    /// Follows `dataset` and nothing else; null is no dataset, in a free watcher.
    void setDataset(KpcDataset* dataset);
    /// What is a target already is ignored; so is null, in a free watcher.
    void addTargetData(KpaData* target);
    void addTargetDataList(KplDataList* target);
    /// Leaves the parameter as it is.
    void removeTargetData(KpaData* target);

protected:
    KpwDataRootSynchronizer(const KpwDataRootSynchronizer& other, const KpcGroup* newParent);
    void _trigger(const KpnModif& modif) override;

private:
    void _checkPlace(const KpbAParameter* parameter, const QString& signature) const;
    template <class Target>
    void _addTarget(QList<KuoPointer<Target>>& targets, Target* target, const QString& signature);

    KuoPointer<KpcDataset> _dataset;
    // That of the dataset. It is the first to go: while a dataset dies, it is not asked for it.
    KuoPointer<KpaData> _root;
    QList<KuoPointer<KpaData>> _targetData;
    QList<KuoPointer<KplDataList>> _targetDataLists;
};
