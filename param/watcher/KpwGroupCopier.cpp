#include "KpwTargets.h"

#include <param/KpbFailure.h>
#include <param/composite/KpcAbstractList.h>
#include <param/watcher/KpwGroupCopier.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

using Groups = QList<KuoPointer<KpcGroup>>;

[[noreturn]] void fail(const QString& signature, const QString& detail)
{
    Kp::failProgramming(signature, QStringLiteral("watcher\\KpwGroupCopier"), detail);
}

KpcAbstractList* resizableList(KpbAParameter* parameter)
{
    auto* list = dynamic_cast<KpcAbstractList*>(parameter);
    return list && list->isResizable() ? list : nullptr;
}

/// The paths of a record in the order in which `compare` puts their lengths; those of one length keep their order.
template <class Compare>
std::vector<KpnPath> pathsOf(const KpnModif& modif, Compare compare)
{
    std::vector<KpnPath> paths;
    modif.forEach([&](const KpnPath& path, Kp::NotificationFlags) { paths.push_back(path); });
    std::stable_sort(paths.begin(), paths.end(),
                     [&](const KpnPath& a, const KpnPath& b) { return compare(a.count(), b.count()); });
    return paths;
}

/// Calls `copy(from, to)` for the origin of `path` and its counterpart in each destination. Whatever is changed may
/// have observers that destroy anything.
template <class Copy>
void forEachCounterpart(const KpnPath& path, const KuoPointer<KpcGroup>& source, const Groups& destinations, Copy copy)
{
    const KuoPointer<KpbAParameter> from(path.getFirst());
    if (!source || !source->isAncestorOf(from))
        return;
    const KpbPath place = source->getRelatifPath(from);
    for (const KuoPointer<KpcGroup>& destination : destinations) {
        const KuoPointer<KpbAParameter> to(destination ? destination->getParameterByRelativePath(place) : nullptr);
        if (from && to)
            copy(from, to);
    }
}

void copyItems(const KuoPointer<KpbAParameter>& from, const KuoPointer<KpbAParameter>& to)
{
    const KpcAbstractList* list = resizableList(from);
    auto* copy = dynamic_cast<KpcAbstractList*>(to.get());
    if (list && copy)
        copy->resetItemKeys(list->getItemKeys());
}

void copyContent(const KuoPointer<KpbAParameter>& from, const KuoPointer<KpbAParameter>& to)
{
    if (!resizableList(from))
        to->unserialize(from->serialize());
    if (from && to)
        to->setAutomatic(from->isAutomatic());
}

} // namespace

KpwGroupCopier::KpwGroupCopier() = default;

KpwGroupCopier::KpwGroupCopier(const KpwGroupCopier& other, const KpcGroup* newParent)
    : KpwAWatcher(other, newParent),
      _source(other._duplicateChildRef(other._source.get(), newParent)),
      _destinations(other._duplicateChildRefs(other._destinations, newParent)),
      _lockParams(other._duplicateChildRefs(other._lockParams, newParent))
{}

KpwGroupCopier::~KpwGroupCopier() = default;

KpwGroupCopier* KpwGroupCopier::duplicate(const KpcGroup* newParent) const
{
    return new KpwGroupCopier(*this, newParent);
}

void KpwGroupCopier::setSource(KpcGroup* group, Kp::NotificationFlags flags)
{
    if (!group) {
        fail(QStringLiteral("void __cdecl KpwGroupCopier::setSource(class KpcGroup *,"
                            "class QFlags<enum Kp::NotificationFlag>)"),
             QStringLiteral("Invalid source group."));
    }
    clear();
    _source = group;
    _registerTrigger(group, flags);
}

void KpwGroupCopier::addDestination(KpcGroup* group)
{
    if (!group) {
        fail(QStringLiteral("void __cdecl KpwGroupCopier::addDestination(class KpcGroup *)"),
             QStringLiteral("Invalid destination group."));
    }
    _destinations.append(KuoPointer<KpcGroup>(group));
}

void KpwGroupCopier::removeDestination(KpcGroup* group)
{
    KpwTargets::remove(_destinations, group);
}

void KpwGroupCopier::removeAllDestinations()
{
    _destinations.clear();
}

void KpwGroupCopier::addLockParam(KpbAParameter* parameter)
{
    if (parameter)
        _lockParams.append(KuoPointer<KpbAParameter>(parameter));
}

// A record names its parameters in no useful order: lists make their items before these are copied, and what becomes
// automatic does so after what lies below it. Observers may change and destroy this copier meanwhile.
void KpwGroupCopier::_trigger(const KpnModif& modif)
{
    if (_destinations.isEmpty())
        return;
    const KuoPointer<KpcGroup> source = _source;
    const Groups destinations = _destinations;
    KpwTargets::Batches lockParams(_lockParams);
    KpwTargets::Batches batches(destinations);
    const std::vector<KpnPath> fromTheTop = pathsOf(modif, std::less<int>());
    const std::vector<KpnPath> fromTheBottom = pathsOf(modif, std::greater<int>());
    for (const KpnPath& path : fromTheTop)
        forEachCounterpart(path, source, destinations, copyItems);
    for (const KpnPath& path : fromTheBottom)
        forEachCounterpart(path, source, destinations, copyContent);
    batches.commit();
    lockParams.commit();
}
