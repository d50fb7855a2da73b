#pragma once

#include <QtCore/QList>

#include <param/KuoPointer.h>
#include <param/composite/KpcGroup.h>
#include <param/watcher/KpwAWatcher.h>

/// Keeps groups equal to another one: what changes below the source is copied to the parameters that stand at the same
/// place below each destination, as it is stored, with the automatic mode last. What has no counterpart there is passed
/// over, and so is what changes at the source group itself.
///
/// Nothing is copied before the first change. The destinations, and further parameters, each tell of what was copied in
/// one record. Nothing is owned, and everything may die.
class KESTRIN_PARAM_EXPORT KpwGroupCopier : public KpwAWatcher
{
public:
    KpwGroupCopier();
    ~KpwGroupCopier() override;
    KpwGroupCopier* duplicate(const KpcGroup* newParent) const override;

    /// Copies from `group`, and from nothing else, the changes that `flags` ask for. Null is a programming failure. In
    /// a registered copier, a group that is not below its group is one too, which leaves it as a source whose changes
    /// are not seen.
    void setSource(KpcGroup* group, Kp::NotificationFlags flags);
    /// Null is a programming failure.
    void addDestination(KpcGroup* group);
    void removeDestination(KpcGroup* group);
    void removeAllDestinations();
    /// Holds back what `parameter` tells while the source is copied. Null is ignored.
    void addLockParam(KpbAParameter* parameter);

protected:
    KpwGroupCopier(const KpwGroupCopier& other, const KpcGroup* newParent);
    void _trigger(const KpnModif& modif) override;

private:
    KuoPointer<KpcGroup> _source;
    QList<KuoPointer<KpcGroup>> _destinations;
    QList<KuoPointer<KpbAParameter>> _lockParams;
};
