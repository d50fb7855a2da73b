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
enum IterateFlag : int
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

/// How the components of a vector parameter follow the first.
enum VectorLink
{
    NoLink = 0,
    LinkAll = 1,        ///< all follow the first
    LinkHorizontal = 2, ///< the second follows the first, the third is free
};

namespace List {

/// Where a list of atomics keeps its automatic values.
enum AutoValueLocation
{
    AutoValuesInList = 0,
    AutoValuesInItems = 1,
};

} // namespace List

KESTRIN_PARAM_EXPORT VectorDim getVectorDim(const MbgEDimension& dimension);

} // namespace Kp
