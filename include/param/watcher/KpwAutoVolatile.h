#pragma once

#include <QtCore/QList>

#include <param/KuoPointer.h>
#include <param/watcher/KpwAWatcher.h>

/// Keeps automatic values out of the stored form: of its parameters and all below them, those are volatile that are
/// automatic, and those with children whose children are all volatile. The parameters are not owned and may die.
class KESTRIN_PARAM_EXPORT KpwAutoVolatile : public KpwAWatcher
{
public:
    KpwAutoVolatile();
    ~KpwAutoVolatile() override;
    KpwAutoVolatile* duplicate(const KpcGroup* newParent) const override;

    /// Brings `parameter` to its state and keeps it there. Null is ignored. In a registered watcher, a parameter that
    /// is not below its group is a programming failure, which leaves it out.
    void addParameter(KpbAParameter* parameter);
    /// Leaves the parameter as it is.
    void removeParameter(KpbAParameter* parameter);
    void removeAllParameters();

protected:
    KpwAutoVolatile(const KpwAutoVolatile& other, const KpcGroup* newParent);
    void _trigger(const KpnModif& modif) override;
    void _triggerDestroyed(KpbAParameter* parameter) override;

private:
    QList<KuoPointer<KpbAParameter>> _parameters;
};
