#pragma once

#include <QtCore/QList>

#include <param/KuoPointer.h>
#include <param/atomic/KpaBool.h>
#include <param/watcher/KpwAWatcher.h>

/// Enables parameters while a boolean is true, or, inverted, while it is false. Without a source the boolean counts as
/// true. Source and targets are not owned and may die.
class KESTRIN_PARAM_EXPORT KpwEnabler : public KpwAWatcher
{
public:
    KpwEnabler();
    ~KpwEnabler() override;
    KpwEnabler* duplicate(const KpcGroup* newParent) const override;

    /// A new enabler, owned by the caller.
    static KpwEnabler* watch(KpaBool* source, KpbAParameter* target);

    /// Follows `source` and nothing else; null is no source. In a registered enabler, a source that is not below its
    /// group is a programming failure, which leaves it as a source whose changes are not seen and the targets as they
    /// are.
    void setSource(KpaBool* source);
    void setInverted(bool inverted);
    /// Brings `parameter` to the present state and keeps it there. Null is ignored.
    void addParameter(KpbAParameter* parameter);
    /// Leaves the parameter as it is.
    void removeParameter(KpbAParameter* parameter);
    void removeAllParameters();

protected:
    KpwEnabler(const KpwEnabler& other, const KpcGroup* newParent);
    void _trigger(const KpnModif& modif) override;

private:
    bool _getState() const;
    void _syncEnabledState();

    KuoPointer<KpaBool> _source;
    QList<KuoPointer<KpbAParameter>> _targets;
    bool _inverted = false;
};
