#pragma once

#include <QtCore/QList>

#include <param/KpbAParameter.h>
#include <param/KuoPointer.h>

#include <list>

class KpaBool;
class KpaData;
class KpcAbstractList;
class KpcDataset;
class KpcGroup;
class KplDataList;

/// Base of the objects that observe some parameters and act when they change. It observes its triggers, reduces each
/// record to what they ask for, and hands that to the subclass. It owns nothing that it watches.
///
/// A watcher is created free, given its triggers, and handed to a group, which owns it from then on; the triggers of a
/// registered watcher lie below its group. A copy watches the parameters that stand in another group where the triggers
/// stand in this one's. Only registered watchers can be copied. A trigger that dies is forgotten. What a watcher does
/// may lead to its own end: it can be guarded.
class KESTRIN_PARAM_EXPORT KpwAWatcher : public KuoIObserver<KpnModif>, public KuoAGuarded
{
public:
    ~KpwAWatcher() override;
    KpwAWatcher(const KpwAWatcher&) = delete;
    KpwAWatcher& operator=(const KpwAWatcher&) = delete;

    /// A copy that works below `newParent`, which owns it. A parameter that has no counterpart there is a programming
    /// failure.
    virtual KpwAWatcher* duplicate(const KpcGroup* newParent) const = 0;

    void update(const KpnModif& modif) override;
    void destroyed(const KuoAObservable<KpnModif>* observable) override;

    /// While locked, the watcher ignores what happens, and does not catch up later. Gives the former state.
    bool lock(bool locked);
    bool isLocked() const { return _locked; }

    /// Null before the watcher is registered.
    const KpcGroup* getParentGroup() const { return _parentGroup; }
    /// A trigger that does not lie below `group` is a programming failure, which leaves the former group.
    void setParentGroup(const KpcGroup* group);

    /// Forgets all triggers.
    void clear() { _unregisterAllTriggers(); }

protected:
    /// All that can change at a parameter.
    static constexpr Kp::NotificationFlags AnyChange =
        Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyChildren | Kp::NotifyItem;

    KpwAWatcher() = default;
    KpwAWatcher(const KpwAWatcher& other, const KpcGroup* newParent);

    /// Watches what `flags` ask for at `parameter`, which must not be null; at a composite, also below it. In a
    /// registered watcher, a parameter that is not below its group is a programming failure.
    void _registerTrigger(KpbAParameter* parameter, Kp::NotificationFlags flags);
    void _unregisterTrigger(KpbAParameter* parameter);
    void _unregisterAllTriggers();
    /// The flags of the first trigger on `parameter`.
    Kp::NotificationFlags _getFlagsForParam(const KpbAParameter* parameter) const;

    /// The parameter of `newParent` that stands where `parameter` stands in the parent group. Null gives null. No such
    /// parameter, or one of another class, is a programming failure. For the classes with a `TypeName`.
    template <class T>
    T* _duplicateChildRef(const T* parameter, const KpcGroup* newParent) const;
    /// The same for those that live.
    template <class T>
    QList<KuoPointer<T>> _duplicateChildRefs(const QList<KuoPointer<T>>& parameters, const KpcGroup* newParent) const;

    /// `modif` is not empty and has only entries that a trigger asked for.
    virtual void _trigger(const KpnModif& modif) = 0;
    /// `parameter` is dying: it is an address and nothing more.
    virtual void _triggerDestroyed(KpbAParameter* parameter);

private:
    struct Trigger
    {
        // The address, also of one that is dying, and the parameter as long as it may be used.
        KpbAParameter* parameter;
        KuoPointer<KpbAParameter> living;
        Kp::NotificationFlags flags;
    };
    using Triggers = std::list<Trigger>;
    // The name of a class as messages show it.
    template <class T>
    struct TypeName;

    KpbAParameter* _duplicateChildRefImpl(const KpbAParameter* parameter, const KpcGroup* newParent) const;
    [[noreturn]] static void _failType(const char* typeName, const KpbAParameter* found);
    Triggers::const_iterator _findTrigger(const KuoAObservable<KpnModif>* observable) const;

    Triggers _triggers;
    bool _locked = false;
    const KpcGroup* _parentGroup = nullptr;
};

// clang-format off
template <> struct KpwAWatcher::TypeName<KpbAParameter>   { static constexpr const char* value = "KpbAParameter"; };
template <> struct KpwAWatcher::TypeName<KpaBool>         { static constexpr const char* value = "KpaBool"; };
template <> struct KpwAWatcher::TypeName<KpaData>         { static constexpr const char* value = "KpaData"; };
template <> struct KpwAWatcher::TypeName<KpcAbstractList> { static constexpr const char* value = "KpcAbstractList"; };
template <> struct KpwAWatcher::TypeName<KpcDataset>      { static constexpr const char* value = "KpcDataset"; };
template <> struct KpwAWatcher::TypeName<KpcGroup>        { static constexpr const char* value = "KpcGroup"; };
template <> struct KpwAWatcher::TypeName<KplDataList>     { static constexpr const char* value = "KplDataList"; };
// clang-format on

template <class T>
T* KpwAWatcher::_duplicateChildRef(const T* parameter, const KpcGroup* newParent) const
{
    if (!parameter)
        return nullptr;
    KpbAParameter* found = _duplicateChildRefImpl(parameter, newParent);
    T* typed = dynamic_cast<T*>(found);
    if (!typed)
        _failType(TypeName<T>::value, found);
    return typed;
}

template <class T>
QList<KuoPointer<T>> KpwAWatcher::_duplicateChildRefs(const QList<KuoPointer<T>>& parameters,
                                                      const KpcGroup* newParent) const
{
    QList<KuoPointer<T>> found;
    for (const KuoPointer<T>& parameter : parameters) {
        if (parameter)
            found.append(KuoPointer<T>(_duplicateChildRef(parameter.get(), newParent)));
    }
    return found;
}
