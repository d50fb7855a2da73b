#pragma once

#include <param/atomic/KpaAAppliConfig.h>
#include <param/atomic/KpaAProjectAtomic.h>

/// A project atomic that is tied to the application of its transaction context.
template <class I, class Cfg, class M>
class Q_DECL_EXPORT KpaAAppliAtomic : public KpaAProjectAtomic<I, Cfg, M, KpaAAppliConfig>
{
public:
    const QString& getApplicationFlag() const { return this->_relay.getApplicationFlag(); }

protected:
    KpaAAppliAtomic(const QString& key, const Cfg& config, KuoIObserver<M>& observer,
                    const KstITransactable& transactable)
        : KpaAProjectAtomic<I, Cfg, M, KpaAAppliConfig>(key, config, observer, transactable)
    {
        this->_relay.setApplicationFlag(transactable.getApplicationFlag());
    }
    KpaAAppliAtomic(const KpaAAppliAtomic& other, const QString& newKey, KuoIObserver<M>& observer)
        : KpaAProjectAtomic<I, Cfg, M, KpaAAppliConfig>(other, newKey, observer)
    {
        this->_relay.setApplicationFlag(other.getApplicationFlag());
    }

    /// `filter`, tied to the application of this parameter and to no other.
    template <class Filter>
    Filter _forApplication(Filter filter) const
    {
        filter.setApplicationFlags({getApplicationFlag()});
        return filter;
    }
};
