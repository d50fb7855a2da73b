#pragma once

#include <QtCore/QString>

#include <param/KpnLife.h>

#include <algorithm>
#include <cstddef>

/// The chain of parameters along which a change has travelled, from its origin (first) out to the last ancestor that
/// passed it on (last). A parameter that dies stays in the path as null and makes it invalid. Paths own no parameter.
/// Value semantics.
class KESTRIN_PARAM_EXPORT KpnPath
{
public:
    KpnPath() = default;
    KpnPath(const KpnPath& other) { _copy(other); }
    KpnPath(KpnPath&& other) noexcept { _take(other); }
    KpnPath& operator=(const KpnPath& other);
    KpnPath& operator=(KpnPath&& other) noexcept;
    ~KpnPath() { _release(); }

    bool isEmpty() const { return _size == 0; }
    int count() const { return _size; }
    /// False for an empty path and for one with a dead parameter.
    bool isValid() const { return _size > 0 && (_validAt == KpnLife::deaths() || _checkValid()); }

    /// Adds the next parameter outward. A null parameter makes the path invalid.
    void append(const KpbAParameter* parameter);
    void append(KpnLife* life);
    /// Takes the last parameter away again. The path must not be empty.
    void removeLast()
    {
        if (KpnLife* life = _data()[--_size])
            life->release();
    }
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
    /// What stands for the first parameter, null on an empty path.
    KpnLife* getFirstLife() const { return _size == 0 ? nullptr : _data()[0]; }

private:
    static constexpr int InlineCapacity = 5;

    KpnLife* const* _data() const { return _capacity > InlineCapacity ? _heap : _inline; }
    KpnLife** _data() { return _capacity > InlineCapacity ? _heap : _inline; }
    bool _checkValid() const;
    void _copy(const KpnPath& other);
    void _copyToHeap(const KpnPath& other);
    void _take(KpnPath& other);
    void _release();
    void _grow();

    int _size = 0;
    int _capacity = InlineCapacity;
    // A count of deaths at which all parameters lived; of an invalid path, one that never comes.
    mutable std::uint64_t _validAt = 0;
    union {
        KpnLife* _inline[InlineCapacity];
        KpnLife** _heap;
    };
};

inline void KpnPath::append(KpnLife* life)
{
    if (_size == 0)
        _validAt = KpnLife::deaths();
    if (!life || !life->getTarget())
        _validAt = KpnLife::Never;
    if (_size == _capacity)
        _grow();
    if (life)
        life->retain();
    _data()[_size++] = life;
}

inline void KpnPath::_copy(const KpnPath& other)
{
    if (other._size > InlineCapacity)
        _copyToHeap(other);
    _size = other._size;
    _validAt = other._validAt;
    KpnLife* const* source = other._data();
    KpnLife** data = _data();
    for (int i = 0; i < _size; ++i) {
        data[i] = source[i];
        if (data[i])
            data[i]->retain();
    }
}

inline void KpnPath::_take(KpnPath& other)
{
    _size = other._size;
    _capacity = other._capacity;
    _validAt = other._validAt;
    if (_capacity > InlineCapacity)
        _heap = other._heap;
    else
        std::copy_n(other._inline, _size, _inline);
    other._size = 0;
    other._capacity = InlineCapacity;
}

inline void KpnPath::_release()
{
    KpnLife** data = _data();
    for (int i = 0; i < _size; ++i) {
        if (data[i])
            data[i]->release();
    }
    if (_capacity > InlineCapacity)
        delete[] _heap;
    _size = 0;
    _capacity = InlineCapacity;
}
