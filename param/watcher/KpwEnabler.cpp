#include "KpwTargets.h"

#include <param/watcher/KpwEnabler.h>

#include <memory>

KpwEnabler::KpwEnabler() = default;

KpwEnabler::KpwEnabler(const KpwEnabler& other, const KpcGroup* newParent)
    : KpwAWatcher(other, newParent),
      _source(other._duplicateChildRef(other._source.get(), newParent)),
      _targets(other._duplicateChildRefs(other._targets, newParent)),
      _inverted(other._inverted)
{}

KpwEnabler::~KpwEnabler() = default;

KpwEnabler* KpwEnabler::duplicate(const KpcGroup* newParent) const
{
    return new KpwEnabler(*this, newParent);
}

KpwEnabler* KpwEnabler::watch(KpaBool* source, KpbAParameter* target)
{
    auto enabler = std::make_unique<KpwEnabler>();
    enabler->setSource(source);
    enabler->addParameter(target);
    return enabler.release();
}

void KpwEnabler::setSource(KpaBool* source)
{
    clear();
    _source = source;
    if (source)
        _registerTrigger(source, Kp::NotifyValue);
    _syncEnabledState();
}

void KpwEnabler::setInverted(bool inverted)
{
    if (_inverted == inverted)
        return;
    _inverted = inverted;
    _syncEnabledState();
}

void KpwEnabler::addParameter(KpbAParameter* parameter)
{
    if (!parameter)
        return;
    _targets.append(KuoPointer<KpbAParameter>(parameter));
    parameter->setEnabled(_getState());
}

void KpwEnabler::removeParameter(KpbAParameter* parameter)
{
    KpwTargets::remove(_targets, parameter);
}

void KpwEnabler::removeAllParameters()
{
    _targets.clear();
}

bool KpwEnabler::_getState() const
{
    return (!_source || _source->getValue()) != _inverted;
}

void KpwEnabler::_trigger(const KpnModif&)
{
    _syncEnabledState();
}

// Observers of the targets may change the list of targets, and the source, and may destroy this enabler.
void KpwEnabler::_syncEnabledState()
{
    const QList<KuoPointer<KpbAParameter>> targets = _targets;
    const bool state = _getState();
    KpwTargets::Batches batches(targets);
    for (const KuoPointer<KpbAParameter>& target : targets) {
        if (target)
            target->setEnabled(state);
    }
    batches.commit();
}
