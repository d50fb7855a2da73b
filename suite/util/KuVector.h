#pragma once

/// The components of a vector of up to three numbers, and how they hang together.
namespace Ku::Vector {

/// The number of components in use.
enum Dimension : int
{
    Dimension1 = 1,
    Dimension2 = 2,
    Dimension3 = 3,
};

enum ComponentLink : int
{
    NoLink = 0,
    AllFollowFirst = 1,
    SecondFollowsFirst = 2,
};

enum Component : int
{
    First = 0,
    Second = 1,
    Third = 2,
};

} // namespace Ku::Vector
