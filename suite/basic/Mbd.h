#pragma once

/// Words that the records of data share.
namespace Mbd {

/// What a column of numbers is to a calculation.
enum class Role
{
    V, ///< a variable of interest
    X, ///< coordinates
    Y,
    Z,
    WEIGHT,
};

} // namespace Mbd
