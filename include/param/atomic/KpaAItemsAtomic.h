#pragma once

#include <param/atomic/KpaAAppliAtomic.h>

/// What the atomics share whose value is a named item of a model of the project. They tell their observers with
/// `Kp::NotifyItem` when the content of the item changed, and with `Kp::NotifyConfig` when its name or the list of the
/// admitted items did. The value follows an item that is renamed. When the project is lost, the list is empty.
///
/// `Atomic` is the project atomic to derive from. Its configuration gives `ItemReasons` and `NameReasons`, the reasons
/// of a modification for which the one and the other is told.
template <class Atomic>
class Q_DECL_EXPORT KpaAItemsAtomic : public Atomic, public KuoIObserver<typename Atomic::ConfigType::Modif>
{
public:
    using Config = typename Atomic::ConfigType;
    using Identifier = typename Config::Identifier;
    using Modif = typename Config::Modif;

    typename Config::Model* getModel() const { return this->_config.getModel(); }
    /// The items that are admitted at present.
    const QList<Identifier>& getIdentifiers() const { return this->_config.getIdentifiers(); }

    void update(const Modif& modif) override
    {
        KuoLock<KpnModif> lock(this);
        if (modif.hasModif(this->_value, Config::ItemReasons))
            this->_notify(Kp::NotifyItem);
        if (modif.hasModif(this->_value, Config::NameReasons))
            this->_notify(Kp::NotifyConfig);
        const bool listChanged = this->_config.modelModified(modif);
        _lookUp();
        this->_configChangedIf(listChanged);
        lock.commit();
    }
    void destroyed(const KuoAObservable<Modif>*) override
    {
        // The model is forgotten by itself; the death of another one changes nothing.
        if (!getModel())
            this->_configChangedIf(this->_config.modelDestroyed());
    }

protected:
    KpaAItemsAtomic(const QString& key, const Config& config, const KstITransactable& transactable)
        : Atomic(key, config, *this, transactable)
    {}
    KpaAItemsAtomic(const KpaAItemsAtomic& other, const QString& newKey)
        : Atomic(other, newKey, *this),
          KuoIObserver<Modif>()
    {}

    /// Before the configuration repairs them: the automatic value follows its item, and the value takes over the item
    /// that its name has got.
    void _lookUp()
    {
        this->_autoValue = this->_config.present(this->_autoValue);
        const Identifier named = this->_config.present(this->_value);
        if (named == this->_value)
            this->_value = named;
    }
};
