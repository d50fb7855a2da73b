#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <param/watcher/KpwAWatcher.h>

#include <functional>

/// Tells the outside that something changed at the parameters that it watches: by a signal, and by one slot.
///
/// With a context object the slot runs on the context's thread, at once if that is the present one, and no more once
/// the context is dead. A trigger that a group is to own must have no Qt parent.
class KESTRIN_PARAM_EXPORT KpwTrigger : public QObject, public KpwAWatcher
{
    Q_OBJECT

public:
    using Slot = std::function<void()>;

    explicit KpwTrigger(QObject* parent = nullptr);
    ~KpwTrigger() override;
    /// The copy has the same slot and context, and no Qt parent.
    KpwTrigger* duplicate(const KpcGroup* newParent) const override;

    /// A new trigger without a Qt parent, owned by the caller.
    static KpwTrigger* watch(KpbAParameter* parameter, Kp::NotificationFlags flags, const Slot& slot,
                             const QObject* context);

    void addWatch(KpbAParameter* parameter, Kp::NotificationFlags flags) { _registerTrigger(parameter, flags); }
    void removeWatch(KpbAParameter* parameter) { _unregisterTrigger(parameter); }
    /// Puts `slot` in the place of the former one; an empty one only takes that away. `context` may be null.
    void setSlot(const Slot& slot, const QObject* context);
    /// Watches this parameter and nothing else.
    void resetWatch(KpbAParameter* parameter, Kp::NotificationFlags flags, const Slot& slot, const QObject* context);

Q_SIGNALS:
    void triggered();

protected:
    KpwTrigger(const KpwTrigger& other, const KpcGroup* newParent);
    void _trigger(const KpnModif& modif) override;

private:
    void _connectSlot();
    void _disconnectSlot();

    Slot _slot;
    // Null with `_hasContext` set: the context has died.
    QPointer<const QObject> _context;
    bool _hasContext = false;
    QMetaObject::Connection _connection;
};
