#pragma once

#include <QtCore/QtGlobal>

/// Allocations of the whole program, which brings its own entry points of the allocator along.
namespace Allocations {

/// How many there were so far.
qint64 count();
/// The bytes that are in use at present.
qint64 bytesInUse();
/// Puts what has been freed in order, which the allocator would else do in the midst of what comes next.
void settle();

} // namespace Allocations
