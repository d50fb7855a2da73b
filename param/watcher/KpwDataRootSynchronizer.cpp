#include "KpwTargets.h"

#include <param/KpbFailure.h>
#include <param/composite/KpcGroup.h>
#include <param/watcher/KpwDataRootSynchronizer.h>

#include <QtCore/QObject>

namespace {

/// The targets are given by value: their observers may change the watcher's, and destroy it.
template <class Target>
void setRoots(const QList<KuoPointer<Target>> targets, const KsoDataIdentifier& root)
{
    for (const KuoPointer<Target>& target : targets) {
        if (target)
            target->setRootIdent(root, false);
    }
}

} // namespace

KpwDataRootSynchronizer::KpwDataRootSynchronizer() = default;

KpwDataRootSynchronizer::KpwDataRootSynchronizer(const KpwDataRootSynchronizer& other, const KpcGroup* newParent)
    : KpwAWatcher(other, newParent),
      _dataset(other._duplicateChildRef(other._dataset.get(), newParent)),
      _root(_dataset ? _dataset->getRootParameter() : nullptr),
      _targetData(other._duplicateChildRefs(other._targetData, newParent)),
      _targetDataLists(other._duplicateChildRefs(other._targetDataLists, newParent))
{}

KpwDataRootSynchronizer::~KpwDataRootSynchronizer() = default;

KpwDataRootSynchronizer* KpwDataRootSynchronizer::duplicate(const KpcGroup* newParent) const
{
    return new KpwDataRootSynchronizer(*this, newParent);
}

void KpwDataRootSynchronizer::_checkPlace(const KpbAParameter* parameter, const QString& signature) const
{
    if (getParentGroup() && !getParentGroup()->isAncestorOf(parameter)) {
        Kp::failProgramming(signature, QStringLiteral("watcher\\KpwDataRootSynchronizer"),
                            QObject::tr("parent group is not ancestor of added parameter."));
    }
}

void KpwDataRootSynchronizer::setDataset(KpcDataset* dataset)
{
    _checkPlace(dataset, QStringLiteral("void __cdecl KpwDataRootSynchronizer::setDataset(class KpcDataset *)"));
    clear();
    _dataset = dataset;
    _root = dataset ? dataset->getRootParameter() : nullptr;
    if (dataset)
        _registerTrigger(_root.get(), Kp::NotifyValue);
}

template <class Target>
void KpwDataRootSynchronizer::_addTarget(QList<KuoPointer<Target>>& targets, Target* target, const QString& signature)
{
    const KuoPointer<Target> guarded(target);
    if (target && targets.contains(guarded))
        return;
    _checkPlace(target, signature);
    if (!target)
        return;
    targets.append(guarded);
    _trigger(KpnModif());
}

void KpwDataRootSynchronizer::addTargetData(KpaData* target)
{
    _addTarget(_targetData, target,
               QStringLiteral("void __cdecl KpwDataRootSynchronizer::addTargetData(class KpaData *)"));
}

void KpwDataRootSynchronizer::addTargetDataList(KplDataList* target)
{
    _addTarget(_targetDataLists, target,
               QStringLiteral("void __cdecl KpwDataRootSynchronizer::addTargetDataList(class KplDataList *)"));
}

void KpwDataRootSynchronizer::removeTargetData(KpaData* target)
{
    KpwTargets::remove(_targetData, target);
}

void KpwDataRootSynchronizer::_trigger(const KpnModif&)
{
    if (!_root)
        return;
    const KsoDataIdentifier root = _root->getValue();
    const QList<KuoPointer<KplDataList>> lists = _targetDataLists;
    setRoots(_targetData, root);
    setRoots(lists, root);
}
