#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaAProjectConfig.h>
#include <study/KstITransactable.h>

/// An atomic whose value is an identifier `I` of something in the project, and whose configuration follows the model of
/// the project that sends the records `M`.
///
/// The concrete class is also the observer of that model, and hands itself to the constructors; what it hears, it hears
/// through the relay, which leaves the model when the atomic dies. The model and the project may die first: the value
/// is kept. Beyond what atomics need, the configuration gives
///
/// - `bool updateProject(KssProject*)`: takes over the model of the project, which may be null; gives whether that
/// changed something.
template <class I, class Cfg, class M, template <class> class ProjectConfig>
class Q_DECL_EXPORT KpaAProjectAtomic : public KpaAAtomic<I, Cfg>
{
public:
    /// Null where the transaction context has none, and once it has died.
    KssProject* getProject() const { return _relay.getProject(); }

protected:
    KpaAProjectAtomic(const QString& key, const Cfg& config, KuoIObserver<M>& observer,
                      const KstITransactable& transactable)
        : KpaAAtomic<I, Cfg>(key, config),
          _relay(observer)
    {
        _setProject(transactable.getProject());
    }
    /// The copy is in the project of `other`.
    KpaAProjectAtomic(const KpaAProjectAtomic& other, const QString& newKey, KuoIObserver<M>& observer)
        : KpaAAtomic<I, Cfg>(other, newKey),
          _relay(observer)
    {
        _setProject(other.getProject());
    }

    ProjectConfig<M> _relay;

private:
    void _setProject(KssProject* project)
    {
        if (_relay.setProject(project))
            this->_configChangedIf(this->_config.updateProject(project));
    }
};
