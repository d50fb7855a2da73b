#pragma once

#include <study/Ks.h>
#include <study/KsoANamedIdentifier.h>

/// The typed part of the identifiers of one kind of named item. `Kind` names the classes of the kind: `Identifier`,
/// `Item`, `Model`, `Modif` and `Content`.
template <class Kind>
class Q_DECL_EXPORT KsoANamedIdentifierOf : public KsoANamedIdentifier
{
public:
    using Identifier = typename Kind::Identifier;
    using Item = typename Kind::Item;
    using Model = typename Kind::Model;

    /// What `toMap(true)` gave. A map without a name gives null.
    static Identifier fromMap(const MbbOrderedMap<QString, QString>& map, Model* model)
    {
        return Identifier(model, map.value(Ks::KEY_NAME));
    }

    Model* getModel() const { return static_cast<Model*>(KsoAItemIdentifier::getModel()); }
    Item* getItem() const { return static_cast<Item*>(KsoAItemIdentifier::getItem()); }
    /// The identifier under the name that the item has now which it was made for; the identifier itself if there is no
    /// such item.
    Identifier present() const { return Identifier(getModel(), _presentName()); }

    friend bool operator==(const Identifier& a, const Identifier& b) { return a._isEqual(b); }
    friend bool operator!=(const Identifier& a, const Identifier& b) { return !a._isEqual(b); }
    /// Null first, then by name.
    friend bool operator<(const Identifier& a, const Identifier& b) { return a._isLess(b); }
    friend uint qHash(const Identifier& ident, uint seed = 0) { return ident._hash(seed); }

protected:
    KsoANamedIdentifierOf() = default;
    KsoANamedIdentifierOf(Model* model, const QString& name) : KsoANamedIdentifier(model, name) {}
};
