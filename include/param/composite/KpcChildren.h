#pragma once

#include <QtCore/QString>

#include <param/composite/KpcAComposite.h>

#include <concepts>
#include <memory>
#include <utility>

/// A composite's handle to one of its children, bound by a row of `KpcChildren`. It owns nothing and is not told of the
/// child's death: only the composite may destroy a child of its table. It cannot be copied, so that a composite has to
/// bind the handles of a copy to the copy's own children.
template <class T>
class KpcChild
{
public:
    KpcChild() = default;
    KpcChild(const KpcChild&) = delete;
    KpcChild& operator=(const KpcChild&) = delete;

    T* get() const { return _child; }
    operator T*() const { return _child; }
    T* operator->() const { return _child; }
    T& operator*() const { return *_child; }

private:
    friend class KpcChildren;

    T* _child = nullptr;
};

/// What a row of `KpcChildren` goes on to say about a new child. Every call is the setter of the child after which it
/// is named, and compiles only where the child has it; on a child that was found again it does nothing.
template <class T>
class KpcChildRow
{
public:
    /// For what has no word of its own: `[](T& child) { ... }`.
    template <class Function>
    requires requires(Function function, T& child) { function(child); }
    KpcChildRow& with(Function function)
    {
        if (_new)
            function(*_new);
        return *this;
    }

    template <class V>
    requires requires(T& child, const V& v) { child.setValue(v); }
    KpcChildRow& value(const V& v)
    {
        return with([&](T& child) { child.setValue(v); });
    }

    template <class V>
    requires requires(T& child, const V& v) { child.setAutoValue(v); }
    KpcChildRow& autoValue(const V& v)
    {
        return with([&](T& child) { child.setAutoValue(v); });
    }

    /// Switches the automatic mode on, with the automatic value `v`.
    template <class V>
    requires requires(T& child, const V& v) { child.activateAutoValue(v); }
    KpcChildRow& automatic(const V& v)
    {
        return with([&](T& child) { child.activateAutoValue(v); });
    }

    template <class V>
    requires requires(T& child, const V& v) { child.setMinimum(v); }
    KpcChildRow& minimum(const V& v)
    {
        return with([&](T& child) { child.setMinimum(v); });
    }

    template <class V>
    requires requires(T& child, const V& v) { child.setMaximum(v); }
    KpcChildRow& maximum(const V& v)
    {
        return with([&](T& child) { child.setMaximum(v); });
    }

    template <class V, class W>
    requires requires(T& child, const V& v, const W& w) { child.setRange(v, w); }
    KpcChildRow& range(const V& v, const W& w)
    {
        return with([&](T& child) { child.setRange(v, w); });
    }

    template <class V>
    requires requires(T& child, const V& v) { child.setStep(v); }
    KpcChildRow& step(const V& v)
    {
        return with([&](T& child) { child.setStep(v); });
    }

    template <class V>
    requires requires(T& child, const V& v) { child.setUnitClass(v); }
    KpcChildRow& unitClass(const V& v)
    {
        return with([&](T& child) { child.setUnitClass(v); });
    }

    template <class V>
    requires requires(T& child, const V& v) { child.reset(v); }
    KpcChildRow& items(const V& v)
    {
        return with([&](T& child) { child.reset(v); });
    }

    KpcChildRow& enabled(bool b)
    {
        return with([&](T& child) { child.setEnabled(b); });
    }
    KpcChildRow& readOnly(bool b)
    {
        return with([&](T& child) { child.setReadOnly(b); });
    }
    KpcChildRow& isVolatile(bool b)
    {
        return with([&](T& child) { child.setVolatile(b); });
    }

private:
    friend class KpcChildren;
    explicit KpcChildRow(T* newChild) : _new(newChild) {}

    T* _new;
};

/// The table of a composite's children, read in two modes: the constructor creates them, the copy constructor binds the
/// composite's handles to the copied children, whose state stands.
///
///     void KpcExample::_declare(KpcChildren c)
///     {
///         c.add(_mode,   "MODE",   QObject::tr("Mode"        )).items(modeItems()).value(0);
///         c.add(_radius, "RADIUS", QObject::tr("Radius"      )).minimum(1e-10).automatic(100.0);
///         c.add(_plane,  "PLANE",  QObject::tr("Plane"       ), _getTransactable());
///         KpcChildren plane = c.in(*_plane);
///         plane.add(_count, "COUNT", QObject::tr("Sample count")).minimum(1).value(32);
///     }
///
/// and `_declare({*this, KpcChildren::Create})` or `_declare({*this, KpcChildren::Rebind})`. The composite begins to
/// listen to its new children when the table is complete, so its `update` always sees all handles bound. Other
/// observers are to be added after that. A key that exists already, when creating, and a missing child or one of
/// another class, when rebinding, fail.
class KESTRIN_PARAM_EXPORT KpcChildren
{
public:
    enum Mode
    {
        Create,
        Rebind
    };

    KpcChildren(KpcAComposite& composite, Mode mode);
    ~KpcChildren();
    KpcChildren(const KpcChildren&) = delete;
    KpcChildren& operator=(const KpcChildren&) = delete;

    /// One child, made by `T(key, arguments...)`. An empty label leaves the one that the child has from its
    /// constructor.
    template <std::derived_from<KpbAParameter> T, class... Arguments>
    KpcChildRow<T> add(KpcChild<T>& handle, const QString& key, const QString& label, Arguments&&... arguments)
    {
        if (_mode == Rebind) {
            handle._child = dynamic_cast<T*>(_find(key));
            if (!handle._child)
                _failType(key);
            return KpcChildRow<T>(nullptr);
        }
        auto child = std::make_unique<T>(key, std::forward<Arguments>(arguments)...);
        handle._child = child.get();
        _append(std::move(child), label);
        return KpcChildRow<T>(handle._child);
    }

    /// The table of a child that is a composite itself.
    KpcChildren in(KpcAComposite& composite) const { return {composite, _mode}; }
    bool isCreating() const { return _mode == Create; }

private:
    void _append(std::unique_ptr<KpbAParameter> child, const QString& label);
    KpbAParameter* _find(const QString& key) const;
    [[noreturn]] void _failType(const QString& key) const;

    KpcAComposite& _composite;
    const Mode _mode;
    const int _firstNew;
};
