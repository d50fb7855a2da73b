#pragma once

#include <QtCore/QString>

#include <param/watcher/KpwAWatcher.h>

/// Prints what changes at a parameter and below it, for debugging. Everything goes to `MbbDebug` as information, under
/// the tracer's name.
class KESTRIN_PARAM_EXPORT KpwTracer : public KpwAWatcher
{
public:
    explicit KpwTracer(const QString& name = QString());
    ~KpwTracer() override;
    KpwTracer* duplicate(const KpcGroup* newParent) const override;

    /// Watches `root` from now on, beside the roots before it, and says so. Null is ignored. In a registered tracer, a
    /// root that is not below its group is a programming failure.
    void setRoot(KpbAParameter* root);

protected:
    KpwTracer(const KpwTracer& other, const KpcGroup* newParent);
    void _trigger(const KpnModif& modif) override;

private:
    QString _name;
};
