#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>

#include <observer/KuoAObservableModif.h>
#include <study/KsmReason.h>

/// What changed in a model of named items: identifiers and, for each, the reasons, which are bits of `KsmReason`.
template <class Kind>
class Q_DECL_EXPORT KsmANamedModif : public KuoAObservableModif<typename Kind::Modif>
{
public:
    using Identifier = typename Kind::Identifier;

    void add(const Identifier& ident, int reasons)
    {
        if (reasons == 0)
            return;
        _reasons[ident] |= reasons;
        _allReasons |= reasons;
    }
    /// Whether one of `reasons` concerns `ident`.
    bool hasModif(const Identifier& ident, int reasons) const { return (getReasons(ident) & reasons) != 0; }
    /// Whether one of `reasons` concerns anything.
    bool hasModif(int reasons) const { return (_allReasons & reasons) != 0; }
    /// The reasons that the record holds for `ident` itself.
    int getReasons(const Identifier& ident) const { return _reasons.value(ident, 0); }
    QList<Identifier> getIdentifiers() const { return _reasons.keys(); }

    int getNumberOfModif() const override { return _reasons.count(); }

protected:
    KsmANamedModif() = default;

private:
    void _merge(const typename Kind::Modif& other) override
    {
        for (auto it = other._reasons.constBegin(); it != other._reasons.constEnd(); ++it)
            add(it.key(), it.value());
    }

    QHash<Identifier, int> _reasons;
    int _allReasons = 0;
};
