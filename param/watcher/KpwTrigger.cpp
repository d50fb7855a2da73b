#include <param/watcher/KpwTrigger.h>

#include <memory>

KpwTrigger::KpwTrigger(QObject* parent) : QObject(parent) {}

KpwTrigger::KpwTrigger(const KpwTrigger& other, const KpcGroup* newParent)
    : QObject(),
      KpwAWatcher(other, newParent),
      _slot(other._slot),
      _context(other._context),
      _hasContext(other._hasContext)
{
    _connectSlot();
}

KpwTrigger::~KpwTrigger() = default;

KpwTrigger* KpwTrigger::duplicate(const KpcGroup* newParent) const
{
    return new KpwTrigger(*this, newParent);
}

KpwTrigger* KpwTrigger::watch(KpbAParameter* parameter, Kp::NotificationFlags flags, const Slot& slot,
                              const QObject* context)
{
    auto trigger = std::make_unique<KpwTrigger>();
    trigger->resetWatch(parameter, flags, slot, context);
    return trigger.release();
}

void KpwTrigger::setSlot(const Slot& slot, const QObject* context)
{
    _disconnectSlot();
    _slot = slot;
    _context = context;
    _hasContext = context;
    _connectSlot();
}

void KpwTrigger::_connectSlot()
{
    if (!_slot)
        return;
    if (!_hasContext)
        _connection = connect(this, &KpwTrigger::triggered, _slot);
    else if (_context)
        _connection = connect(this, &KpwTrigger::triggered, _context.data(), _slot);
}

void KpwTrigger::_disconnectSlot()
{
    disconnect(_connection);
    _connection = QMetaObject::Connection();
}

void KpwTrigger::resetWatch(KpbAParameter* parameter, Kp::NotificationFlags flags, const Slot& slot,
                            const QObject* context)
{
    clear();
    _registerTrigger(parameter, flags);
    setSlot(slot, context);
}

void KpwTrigger::_trigger(const KpnModif&)
{
    Q_EMIT triggered();
}
