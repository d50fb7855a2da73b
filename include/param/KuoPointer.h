#pragma once

#include <util/KuoAGuarded.h>

/// A pointer that becomes null when its target dies. It owns nothing.
template <class T>
class Q_DECL_EXPORT KuoPointer : public KuoIGuard
{
public:
    explicit KuoPointer(T* target = nullptr) : _target(target) { _register(); }
    KuoPointer(const KuoPointer& other) : KuoIGuard(other), _target(other._target) { _register(); }
    KuoPointer& operator=(const KuoPointer& other) { return *this = other._target; }
    KuoPointer& operator=(T* target)
    {
        if (target != _target) {
            _unregister();
            _target = target;
            _register();
        }
        return *this;
    }
    ~KuoPointer() override
    {
        _unregister();
        _target = nullptr;
    }

    void guardedDestroyed() override { _target = nullptr; }

    T* get() const { return _target; }
    operator T*() const { return _target; }
    T* operator->() const { return _target; }
    T& operator*() const { return *_target; }

private:
    void _register()
    {
        if (_target)
            _target->addGuard(this);
    }
    void _unregister()
    {
        if (_target)
            _target->removeGuard(this);
    }

    T* _target;
};
