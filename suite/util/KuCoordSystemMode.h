#pragma once

#include <QtCore/QFlags>

namespace Ku {

/// What kind of coordinates a coordinate system has.
enum class CoordSystemMode : int
{
    Geographic = 1, ///< longitude and latitude
    Local = 2,      ///< lengths from an origin that is not placed on the globe
    Projected = 4,  ///< lengths on a map
};
Q_DECLARE_FLAGS(CoordSystemModes, CoordSystemMode)
Q_DECLARE_OPERATORS_FOR_FLAGS(CoordSystemModes)

/// All kinds.
inline constexpr CoordSystemModes AllCoordSystemModes =
    CoordSystemModes(CoordSystemMode::Geographic) | CoordSystemMode::Local | CoordSystemMode::Projected;

} // namespace Ku
