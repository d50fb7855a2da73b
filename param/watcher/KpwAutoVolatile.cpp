#include "KpwTargets.h"

#include <param/watcher/KpwAutoVolatile.h>

namespace {

/// Brings `parameter` and all below it to their state; gives whether it is volatile. What a batch sends that was left
/// over may lead to the death of `parameter`, which then counts as volatile.
bool apply(KpbAParameter& parameter)
{
    KuoLock<KpnModif> lock(&parameter);
    bool isVolatile = parameter.hasChildren() || parameter.isAutomatic();
    for (int i = 0; lock.isAlive() && i < parameter.getChildCount(); ++i) {
        KpbAParameter* child = parameter.getChild(i);
        if (child && !apply(*child))
            isVolatile = false;
    }
    if (lock.isAlive())
        parameter.setVolatile(isVolatile);
    lock.commit();
    return !lock.isAlive() || parameter.isVolatile();
}

} // namespace

KpwAutoVolatile::KpwAutoVolatile() = default;

KpwAutoVolatile::KpwAutoVolatile(const KpwAutoVolatile& other, const KpcGroup* newParent)
    : KpwAWatcher(other, newParent),
      _parameters(other._duplicateChildRefs(other._parameters, newParent))
{}

KpwAutoVolatile::~KpwAutoVolatile() = default;

KpwAutoVolatile* KpwAutoVolatile::duplicate(const KpcGroup* newParent) const
{
    return new KpwAutoVolatile(*this, newParent);
}

void KpwAutoVolatile::addParameter(KpbAParameter* parameter)
{
    if (!parameter)
        return;
    _registerTrigger(parameter, AnyChange);
    _parameters.append(KuoPointer<KpbAParameter>(parameter));
    apply(*parameter);
}

void KpwAutoVolatile::removeParameter(KpbAParameter* parameter)
{
    _unregisterTrigger(parameter);
    KpwTargets::remove(_parameters, parameter);
}

void KpwAutoVolatile::removeAllParameters()
{
    clear();
    _parameters.clear();
}

void KpwAutoVolatile::_trigger(const KpnModif& modif)
{
    const QList<KuoPointer<KpbAParameter>> parameters = _parameters;
    for (const KuoPointer<KpbAParameter>& parameter : parameters) {
        if (parameter && modif.hasModif(parameter, AnyChange))
            apply(*parameter);
    }
}

void KpwAutoVolatile::_triggerDestroyed(KpbAParameter*)
{
    KpwTargets::remove<KpbAParameter>(_parameters, nullptr);
}
