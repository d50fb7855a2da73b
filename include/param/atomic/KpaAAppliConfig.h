#pragma once

#include <QtCore/QString>

#include <param/atomic/KpaAProjectConfig.h>

/// The relay of a parameter that is tied to an application.
template <class M>
class Q_DECL_EXPORT KpaAAppliConfig : public KpaAProjectConfig<M>
{
public:
    using KpaAProjectConfig<M>::KpaAProjectConfig;

    const QString& getApplicationFlag() const { return _applicationFlag; }
    void setApplicationFlag(const QString& flag) { _applicationFlag = flag; }

private:
    QString _applicationFlag;
};
