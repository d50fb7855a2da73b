#pragma once

#include <QtCore/QtGlobal>

#include <basic/MbbGlobal.h>

#include <algorithm>
#include <array>
#include <type_traits>

/// The components of a vector class: `Count` numbers, zero at first, counted from 0. A component may be the undefined
/// marker of its type. An index outside 0 to `Count` - 1 is a programming failure that is not checked in a release.
template <class Scalar, int Count>
class MbgAVector
{
public:
    static constexpr Scalar Undefined =
        std::is_floating_point_v<Scalar> ? Scalar(MbbGlobal::D_FFFF) : Scalar(MbbGlobal::I32_FFFF);

    constexpr Scalar& operator[](int i)
    {
        Q_ASSERT(i >= 0 && i < Count);
        return _components[std::size_t(i)];
    }
    constexpr const Scalar& operator[](int i) const
    {
        Q_ASSERT(i >= 0 && i < Count);
        return _components[std::size_t(i)];
    }
    constexpr Scalar& x() { return _components[0]; }
    constexpr const Scalar& x() const { return _components[0]; }
    constexpr Scalar& y() { return _components[1]; }
    constexpr const Scalar& y() const { return _components[1]; }

    /// Whether no component is the undefined marker.
    constexpr bool isDefined() const
    {
        return std::none_of(_components.begin(), _components.end(), [](Scalar c) { return c == Undefined; });
    }

    /// All components, exactly.
    friend constexpr bool operator==(const MbgAVector& a, const MbgAVector& b) = default;

protected:
    constexpr MbgAVector() = default;
    template <class... Scalars>
    constexpr explicit MbgAVector(Scalar first, Scalars... others) : _components{first, others...}
    {}
    ~MbgAVector() = default;
    constexpr MbgAVector(const MbgAVector&) = default;
    constexpr MbgAVector& operator=(const MbgAVector&) = default;

    std::array<Scalar, std::size_t(Count)> _components{};
};
