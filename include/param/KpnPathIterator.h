#pragma once

#include <param/KpnPath.h>

/// Walks a copy of a path from its origin outward.
class KESTRIN_PARAM_EXPORT KpnPathIterator
{
public:
    explicit KpnPathIterator(const KpnPath& path) : _path(path) {}

    bool hasNext() const { return _next < _path.count(); }
    /// The next parameter, null if it is dead.
    KpbAParameter* next() { return _path.at(_next++); }

private:
    KpnPath _path;
    int _next = 0;
};
