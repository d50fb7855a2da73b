#include <param/KpbFailure.h>
#include <param/composite/KpcGroup.h>
#include <param/watcher/KpwAWatcher.h>

#include <QtCore/QObject>

#include <algorithm>
#include <utility>

namespace {

[[noreturn]] void fail(const QString& signature, const QString& detail)
{
    Kp::failProgramming(signature, QStringLiteral("watcher\\KpwAWatcher"), detail);
}

} // namespace

// The delegation makes this an object whose destructor runs if a trigger has no counterpart. A trigger that is dying is
// as good as forgotten.
KpwAWatcher::KpwAWatcher(const KpwAWatcher& other, const KpcGroup* newParent) : KpwAWatcher()
{
    _locked = other._locked;
    _parentGroup = newParent;
    for (const Trigger& trigger : other._triggers) {
        if (trigger.living)
            _registerTrigger(other._duplicateChildRefImpl(trigger.living, newParent), trigger.flags);
    }
}

KpwAWatcher::~KpwAWatcher()
{
    _unregisterAllTriggers();
}

bool KpwAWatcher::lock(bool locked)
{
    return std::exchange(_locked, locked);
}

void KpwAWatcher::setParentGroup(const KpcGroup* group)
{
    if (group == _parentGroup)
        return;
    for (const Trigger& trigger : _triggers) {
        if (trigger.living && !(group && group->isAncestorOf(trigger.living))) {
            fail(QStringLiteral("void __cdecl KpwAWatcher::setParentGroup(const class KpcGroup *)"),
                 QStringLiteral("group is not ancestor of all lists."));
        }
    }
    _parentGroup = group;
}

void KpwAWatcher::_registerTrigger(KpbAParameter* parameter, Kp::NotificationFlags flags)
{
    if (_parentGroup && !_parentGroup->isAncestorOf(parameter)) {
        fail(QStringLiteral("void __cdecl KpwAWatcher::_registerTrigger(class KpbAParameter *,"
                            "class QFlags<enum Kp::NotificationFlag>)"),
             QStringLiteral("parent group is not ancestor of added parameter."));
    }
    _triggers.push_back(Trigger{parameter, KuoPointer<KpbAParameter>(parameter), flags});
    parameter->addObserver(this);
}

void KpwAWatcher::_unregisterTrigger(KpbAParameter* parameter)
{
    if (_triggers.remove_if([&](const Trigger& trigger) { return trigger.parameter == parameter; }) != 0)
        parameter->removeObserver(this);
}

void KpwAWatcher::_unregisterAllTriggers()
{
    for (const Trigger& trigger : _triggers)
        trigger.parameter->removeObserver(this);
    _triggers.clear();
}

Kp::NotificationFlags KpwAWatcher::_getFlagsForParam(const KpbAParameter* parameter) const
{
    const auto found = _findTrigger(parameter);
    return found == _triggers.end() ? Kp::NotificationFlags() : found->flags;
}

void KpwAWatcher::update(const KpnModif& modif)
{
    if (_locked)
        return;
    const KpnModif matching = modif.filtered([&](const KpnPath& path, Kp::NotificationFlags flags) {
        return path.isValid() && std::any_of(_triggers.cbegin(), _triggers.cend(), [&](const Trigger& trigger) {
                   return KpnModif::concerns(path, flags, trigger.living, trigger.flags);
               });
    });
    if (!matching.isEmpty())
        _trigger(matching);
}

auto KpwAWatcher::_findTrigger(const KuoAObservable<KpnModif>* observable) const -> Triggers::const_iterator
{
    return std::find_if(_triggers.begin(), _triggers.end(),
                        [&](const Trigger& trigger) { return trigger.parameter == observable; });
}

// The subclass may change the triggers, and may destroy this watcher.
void KpwAWatcher::destroyed(const KuoAObservable<KpnModif>* observable)
{
    const KuoPointer<KpwAWatcher> self(this);
    for (auto dead = _findTrigger(observable); dead != _triggers.end(); dead = _findTrigger(observable)) {
        _triggerDestroyed(dead->parameter);
        if (!self)
            return;
        dead = _findTrigger(observable);
        if (dead != _triggers.end())
            _triggers.erase(dead);
    }
}

void KpwAWatcher::_triggerDestroyed(KpbAParameter*) {}

KpbAParameter* KpwAWatcher::_duplicateChildRefImpl(const KpbAParameter* parameter, const KpcGroup* newParent) const
{
    const auto signature = QStringLiteral("class KpbAParameter *__cdecl KpwAWatcher::_duplicateChildRefImpl("
                                          "const class KpbAParameter *,const class KpcGroup *) const");
    if (!_parentGroup || !_parentGroup->isAncestorOf(parameter)) {
        fail(signature, QObject::tr("Cannot duplicate child (%1) when not child of parent group (%2)")
                            .arg(parameter->getKey(), newParent ? newParent->getKey() : QStringLiteral("null")));
    }
    const KpbPath path = _parentGroup->getRelatifPath(parameter);
    KpbAParameter* found = newParent ? newParent->getParameterByRelativePath(path) : nullptr;
    if (!found)
        fail(signature, QObject::tr("child %1 does not exist in new parent").arg(path.toString()));
    return found;
}

void KpwAWatcher::_failType(const char* typeName, const KpbAParameter* found)
{
    fail(QStringLiteral("class %1 *__cdecl KpwAWatcher::_duplicateChildRef<class %1>(const class %1 *,"
                        "const class KpcGroup *) const")
             .arg(QLatin1String(typeName)),
         QObject::tr("Child exists in new parent but not with required type:\nkey was '%1' and type was '%2'")
             .arg(found->getKey(), found->getType().getKey()));
}
