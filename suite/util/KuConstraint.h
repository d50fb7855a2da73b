#pragma once

/// What is known of a number that a calculation is to fit.
namespace Ku::Constraint {

enum Mode : int
{
    Values = 0,      ///< plain numbers
    Constraints = 1, ///< each number is known, bounded or unknown
};

enum Behavior : int
{
    Unknown = 0, ///< left to the fit ("automatic")
    Known = 1,
    Bounded = 2,
};

enum Part : int
{
    Value = 0,
    LowerBound = 1,
    UpperBound = 2,
};

} // namespace Ku::Constraint
