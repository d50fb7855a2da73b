#pragma once

#include <QtCore/QMap>

#include <param/KpbPath.h>
#include <param/composite/KpcAComposite.h>

#include <map>
#include <memory>

class KpcGroupValueDelegate;
class KpwAWatcher;

/// The composite that callers build with. Parameters at any depth below it can be registered under numbers that stay
/// valid in a copy, and it owns watchers, which are copied along and work on the copy's parameters. Numbers are private
/// to the group.
///
/// A registration outlives its parameter and then leads to null. A watcher lives as long as its group and dies before
/// the children; it is registered once, and nobody else may destroy it.
class KESTRIN_PARAM_EXPORT KpcGroup : public KpcAComposite
{
public:
    KpcGroup(const QString& key, const KstITransactable& transactable);
    KpcGroup(const KpcGroup& other, const QString& newKey);
    ~KpcGroup() override;
    KpcGroup* duplicate(const QString& newKey) const override;

    /// Takes ownership; failures are those of `appendChild`.
    void addChild(KpbAParameter* child) { appendChild(child); }
    void deleteParameter(const QString& key) { deleteChild(key); }
    KpbAParameter* takeParameter(const QString& key) { return takeChild(key); }
    /// Destroys the children. Registrations and watchers stay.
    void clear() { deleteAll(); }

    /// Adds a child and registers it. A parameter that has a parent is refused with an `MbeProgrammingError`. One that
    /// has been added stays, also if its registration fails, which it does if an observer of the addition takes or
    /// destroys it.
    void registerChild(int id, KpbAParameter* parameter);
    /// Registers a parameter that lies below this group. A number in use, a null parameter and one from elsewhere fail
    /// with an `MbeError`.
    void registerParam(int id, KpbAParameter* parameter);
    /// Takes all numbers from `parameter`.
    void unregisterParam(KpbAParameter* parameter);
    /// Null for an unknown number and for a parameter that is gone.
    KpbAParameter* getRegistered(int id) const;
    /// Whether `parameter`, which must be in the same tree, has a number. -999 is the number of parameters without one.
    bool isRegistered(const KpbAParameter* parameter) const;
    /// Takes ownership. A number in use, a null watcher and one that watches something outside this group fail with an
    /// `MbeError`, and leave the watcher with the caller.
    void registerWatcher(int id, KpwAWatcher* watcher);

    /// Takes ownership and destroys the former delegate. Null takes the text away. Silent.
    void setValueDelegate(KpcGroupValueDelegate* delegate);
    QString toString() const override;

protected:
    KpcGroup(const KpbEType& type, const QString& key, const KstITransactable& transactable);

private:
    std::unique_ptr<KpcGroupValueDelegate> _valueDelegate;
    QMap<int, KpbPath> _registered;
    std::map<int, std::unique_ptr<KpwAWatcher>> _watchers;
};

extern template class KESTRIN_PARAM_EXPORT KuoPointer<KpcGroup>;
