#pragma once

#include <observer/KuoAObservable.h>
#include <param/atomic/KpaProjectModel.h>

#include <utility>

/// The relay between a model of a project and a parameter: it observes the model and hands on what it hears. It owns
/// nothing. The parameter outlives it; the model may die, and with it goes what the relay knows of the project.
template <class M>
class Q_DECL_EXPORT KpaAProjectConfig : public KuoIObserver<M>
{
public:
    explicit KpaAProjectConfig(KuoIObserver<M>& target) : _target(target) {}
    ~KpaAProjectConfig() override { _observe(nullptr); }
    KpaAProjectConfig(const KpaAProjectConfig&) = delete;
    KpaAProjectConfig& operator=(const KpaAProjectConfig&) = delete;

    /// Null before a project is known, and once its model has died.
    KssProject* getProject() const { return _project; }
    /// Observes the model of `project`, which may be null, instead of the former one; gives whether that is a change. A
    /// project that is being destroyed, and has its model no more, counts as none.
    bool setProject(KssProject* project)
    {
        const KuoAObservable<M>* model = project ? (project->*KpaProjectModel<M>::get)() : nullptr;
        if (!model)
            project = nullptr;
        if (project == _project)
            return false;
        _observe(model);
        _project = project;
        return true;
    }

    // The target may end itself, and the relay with it, while it is told.
    void update(const M& modif) override { _target.update(modif); }
    void destroyed(const KuoAObservable<M>* model) override
    {
        if (model == _model) {
            _model = nullptr;
            _project = nullptr;
        }
        _target.destroyed(model);
    }

private:
    void _observe(const KuoAObservable<M>* model)
    {
        if (const KuoAObservable<M>* former = std::exchange(_model, model))
            former->removeObserver(this);
        if (_model)
            _model->addObserver(this);
    }

    KssProject* _project = nullptr;
    const KuoAObservable<M>* _model = nullptr;
    KuoIObserver<M>& _target;
};
