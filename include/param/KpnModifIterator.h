#pragma once

#include <QtCore/QVector>

#include <param/KpnModif.h>

/// Walks the living parameters that a record speaks of: of each valid entry that has one of the flags, in order, the
/// origin, or, with `Kp::IterateWholePath`, each parameter of its path that has not been given yet.
class KESTRIN_PARAM_EXPORT KpnModifIterator
{
public:
    KpnModifIterator(const KpnModif& modif, Kp::NotificationFlags flags, Kp::IterateFlag iterate);

    bool hasNext() const { return _next < _parameters.size(); }
    const KpbAParameter* next() { return _parameters.at(_next++); }

private:
    QVector<const KpbAParameter*> _parameters;
    int _next = 0;
};
