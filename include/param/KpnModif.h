#pragma once

#include <QtCore/QMap>

#include <basic/MbbIDebuggable.h>
#include <observer/KuoAObservable.h>
#include <observer/KuoAObservableModif.h>
#include <observer/KuoLockObserver.h>
#include <param/Kp.h>
#include <param/KpnPath.h>

#include <memory>

class KpbAParameter;
class KpnModif;

template <>
struct KESTRIN_PARAM_EXPORT ObservableTraits<KpnModif>
{
    using Observable = KpbAParameter;
    static KpbAParameter* fromBase(const KuoAObservable<KpnModif>* base);
};

/// A modification record: which parameters changed, each named by the path along which its change has travelled, and
/// what changed at each. One entry per path; changes of one parameter collapse to one entry with the union of their
/// flags. Entries are in the order of their paths. Value semantics; large records share their entries until one
/// changes.
///
/// An entry whose path has died keeps its place until the next merge or append, and is passed over by iterators.
class KESTRIN_PARAM_EXPORT KpnModif : public KuoAObservableModif<KpnModif, ObservableTraits<KpnModif>>,
                                      public MbbIDebuggable
{
public:
    using Flags = Kp::NotificationFlags;
    struct Entry
    {
        KpnPath path;
        Flags flags;
    };

    KpnModif() = default;
    /// One entry: the path that holds only `parameter`.
    KpnModif(Flags flags, KpbAParameter* parameter);
    /// One entry, or none if `path` is not valid.
    KpnModif(Flags flags, const KpnPath& path);
    KpnModif(const KpnModif& other);
    KpnModif(KpnModif&& other) noexcept;
    KpnModif& operator=(const KpnModif& other);
    KpnModif& operator=(KpnModif&& other) noexcept;
    ~KpnModif() override = default;

    int getNumberOfModif() const override;
    bool isEmpty() const final { return _many ? getNumberOfModif() == 0 : !_hasSingle(); }

    /// Extends every path by `parameter` and drops those that are not valid.
    void append(KpbAParameter* parameter);
    /// Calls `function(const KpnModif&)` with this record extended by `parameter`, as by `append`. A record of one
    /// entry is not copied for it: it is extended while `function` runs.
    template <class Function>
    void withAppended(KpbAParameter* parameter, Function function) const
    {
        if (_isStretchable()) {
            const Stretch stretch(*this, parameter);
            if (stretch.isValid()) {
                function(*this);
                return;
            }
        }
        KpnModif copy(*this);
        copy.append(parameter);
        function(copy);
    }

    /// Whether a change that `flags` ask for happened at `parameter` or, where it has children now, beneath it. For
    /// `Kp::NotifyChildren` only the parameter itself counts, and a leaf counts only as the origin of a change.
    bool hasModif(const KpbAParameter* parameter, const Flags& flags) const;
    /// The same for a record of one entry, `changed` at `path`. A null `parameter` is not concerned.
    static bool concerns(const KpnPath& path, Flags changed, const KpbAParameter* parameter, Flags flags);
    /// Whether some entry has one of the flags.
    bool hasNotification(const Flags& flags) const;
    /// Turns `oldFlag` into `newFlag` at the first entry that concerns `parameter` and has it.
    void replaceNotification(const KpbAParameter* parameter, Kp::NotificationFlag oldFlag,
                             Kp::NotificationFlag newFlag);

    /// All entries. The map is made when it is asked for, with the paths that are dead by then first, and lives until
    /// the record changes; to walk a record, use `forEach` or a `KpnModifIterator`.
    const QMap<KpnPath, Flags>& getModifs() const;
    /// Calls `function(const KpnPath&, Flags)` for each entry in order.
    template <class Function>
    void forEach(Function function) const
    {
        const auto [begin, end] = _ordered();
        for (const Entry* entry = begin; entry != end; ++entry)
            function(entry->path, entry->flags);
    }
    /// A record with the entries for which `fits(const KpnPath&, Flags)` is true, not sent by anybody yet.
    template <class Fits>
    KpnModif filtered(Fits fits) const
    {
        KpnModif result;
        forEach([&](const KpnPath& path, Flags flags) {
            if (fits(path, flags))
                result._insert(Entry{path, flags});
        });
        return result;
    }

    /// One line per entry: its path, ":" and its flags as a decimal number.
    QString debug(int depth = 0) const override;

private:
    class Many;
    // Extends the path of the only entry of a record as long as it lives.
    class KESTRIN_PARAM_EXPORT Stretch
    {
    public:
        Stretch(const KpnModif& modif, KpbAParameter* parameter);
        ~Stretch();
        Stretch(const Stretch&) = delete;
        Stretch& operator=(const Stretch&) = delete;
        bool isValid() const { return _modif._single.path.isValid(); }

    private:
        const KpnModif& _modif;
        const KuoAObservable<KpnModif>* const _sender;
    };
    struct Range
    {
        const Entry* begin;
        const Entry* end;
    };

    void _merge(const KpnModif& other) override;
    void _compress();
    void _insert(const Entry& entry);
    Range _entries() const;
    Range _ordered() const;
    Entry* _firstWith(const KpbAParameter* parameter, Kp::NotificationFlag flag, bool anywhere);
    Many& _detached();
    void _changed() { _map.reset(); }
    bool _hasSingle() const { return !_single.path.isEmpty(); }
    // A map that somebody has asked for has to stay as it is.
    bool _isStretchable() const { return _hasSingle() && !_map; }

    // Most records have one entry, which stands in `_single`; `_many` takes over with the second.
    mutable Entry _single;
    mutable std::shared_ptr<Many> _many;
    mutable std::unique_ptr<QMap<KpnPath, Flags>> _map;
};

Q_DECLARE_TYPEINFO(KpnModif::Entry, Q_MOVABLE_TYPE);

extern template class KESTRIN_PARAM_EXPORT KuoAObservable<KpnModif>;
extern template class KESTRIN_PARAM_EXPORT KuoLock<KpnModif>;
extern template class KESTRIN_PARAM_EXPORT KuoLockObserver<KpnModif>;
