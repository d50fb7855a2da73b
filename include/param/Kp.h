#pragma once

#include <QtCore/QFlags>

#include <param/KpExport.h>

class MbgEDimension;

/// Enumerations that the whole library speaks.
namespace Kp {

/// What changed at a parameter.
enum NotificationFlag
{
    NotifyValue = 1,    ///< the value, or the value lock
    NotifyConfig = 2,   ///< configuration or state: label, read-only, enabled, automatic, auto value, limits, ...
    NotifyChildren = 4, ///< the set of children of a composite
    NotifyItem = 8,     ///< the items of a list or of an enumeration
};
Q_DECLARE_FLAGS(NotificationFlags, NotificationFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(NotificationFlags)

/// What a `KpnModifIterator` yields. Every value but 0 means the whole path.
enum IterateFlag
{
    IterateOrigin = 0,
    IterateWholePath = 1,
};

/// Number of components of a vector parameter.
enum VectorDim
{
    VectorDim1 = 1,
    VectorDim2 = 2,
    VectorDim3 = 3,
};

KESTRIN_PARAM_EXPORT VectorDim getVectorDim(const MbgEDimension& dimension);

} // namespace Kp
