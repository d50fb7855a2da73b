#include <param/watcher/KpwEnabler.h>

#include <deque>
#include <memory>

namespace {

/// The batches of several parameters. A parameter may have more than one, so the last is the first to end.
class Batches
{
public:
    explicit Batches(const QList<KuoPointer<KpbAParameter>>& parameters)
    {
        for (const KuoPointer<KpbAParameter>& parameter : parameters)
            _locks.emplace_back(parameter.get());
    }
    ~Batches()
    {
        while (!_locks.empty())
            _locks.pop_back();
    }
    Batches(const Batches&) = delete;
    Batches& operator=(const Batches&) = delete;

    void commit()
    {
        for (KuoLock<KpnModif>& lock : _locks)
            lock.commit();
    }

private:
    std::deque<KuoLock<KpnModif>> _locks;
};

} // namespace

KpwEnabler::KpwEnabler() = default;

KpwEnabler::KpwEnabler(const KpwEnabler& other, const KpcGroup* newParent)
    : KpwAWatcher(other, newParent),
      _source(other._duplicateChildRef(other._source.get(), newParent)),
      _inverted(other._inverted)
{
    for (const KuoPointer<KpbAParameter>& target : other._targets) {
        if (target)
            _targets.append(KuoPointer<KpbAParameter>(other._duplicateChildRef(target.get(), newParent)));
    }
}

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
    for (int i = _targets.size() - 1; i >= 0; --i) {
        if (_targets.at(i) == parameter)
            _targets.removeAt(i);
    }
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
    Batches batches(targets);
    for (const KuoPointer<KpbAParameter>& target : targets) {
        if (target)
            target->setEnabled(state);
    }
    batches.commit();
}
