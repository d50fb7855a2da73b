#pragma once

#include <QtCore/QString>

#include <param/KpExport.h>

#include <cstddef>

class KpbAParameter;
class KpnLife;

/// The chain of parameters along which a change has travelled, from its origin (first) out to the last ancestor that
/// passed it on (last). A parameter that dies stays in the path as null and makes it invalid. Paths own no parameter.
/// Value semantics.
class KESTRIN_PARAM_EXPORT KpnPath
{
public:
    KpnPath() = default;
    KpnPath(const KpnPath& other);
    KpnPath(KpnPath&& other) noexcept;
    KpnPath& operator=(const KpnPath& other);
    KpnPath& operator=(KpnPath&& other) noexcept;
    ~KpnPath();

    bool isEmpty() const { return _size == 0; }
    int count() const { return _size; }
    /// False for an empty path and for one with a dead parameter.
    bool isValid() const;

    /// Adds the next parameter outward. A null parameter makes the path invalid.
    void append(const KpbAParameter* parameter);
    bool contains(const KpbAParameter* parameter) const;
    /// The parameter at `index`, which must be in range; null if it is dead.
    KpbAParameter* at(int index) const;
    /// Null on an empty path.
    KpbAParameter* getFirst() const { return _size == 0 ? nullptr : at(0); }
    KpbAParameter* getLast() const { return _size == 0 ? nullptr : at(_size - 1); }

    /// The keys from the outermost ancestor down to the origin, joined by "/"; "NULL" for a dead parameter.
    QString toString() const;

    /// Compares the parameters position by position; of two paths that agree so far the shorter is less.
    friend KESTRIN_PARAM_EXPORT bool operator==(const KpnPath& a, const KpnPath& b);
    friend KESTRIN_PARAM_EXPORT bool operator<(const KpnPath& a, const KpnPath& b);
    friend bool operator!=(const KpnPath& a, const KpnPath& b) { return !(a == b); }

    /// A number that is the same for valid paths that are equal.
    std::size_t hash() const;
    /// Whether a parameter of the path died at or before the given count of deaths.
    bool diedBy(quint64 deaths) const;
    /// Whether this path was less than `other` at the given count of deaths.
    bool wasLess(const KpnPath& other, quint64 deaths) const;

private:
    static constexpr int InlineCapacity = 5;

    KpnLife* const* _data() const { return _capacity > InlineCapacity ? _heap : _inline; }
    KpnLife** _data() { return _capacity > InlineCapacity ? _heap : _inline; }
    void _copy(const KpnPath& other);
    void _take(KpnPath& other);
    void _release();
    void _grow();

    int _size = 0;
    int _capacity = InlineCapacity;
    union {
        KpnLife* _inline[InlineCapacity];
        KpnLife** _heap;
    };
};
