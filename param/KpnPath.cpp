#include "KpnLife.h"

#include <param/KpbAParameter.h>
#include <param/KpnPath.h>

#include <QtCore/QStringList>

#include <algorithm>
#include <cstring>
#include <functional>

namespace {

// A null parameter in a path stands without a life.
KpbAParameter* target(const KpnLife* life)
{
    return life ? life->getTarget() : nullptr;
}

template <class Address>
bool isLess(KpnLife* const* left, int leftSize, KpnLife* const* right, int rightSize, Address addressOf)
{
    return std::lexicographical_compare(left, left + leftSize, right, right + rightSize,
                                        [&](const KpnLife* a, const KpnLife* b) {
                                            return std::less<const KpbAParameter*>()(addressOf(a), addressOf(b));
                                        });
}

} // namespace

KpnPath::KpnPath(const KpnPath& other)
{
    _copy(other);
}

KpnPath::KpnPath(KpnPath&& other) noexcept
{
    _take(other);
}

KpnPath& KpnPath::operator=(const KpnPath& other)
{
    if (this != &other) {
        _release();
        _copy(other);
    }
    return *this;
}

KpnPath& KpnPath::operator=(KpnPath&& other) noexcept
{
    if (this != &other) {
        _release();
        _take(other);
    }
    return *this;
}

KpnPath::~KpnPath()
{
    _release();
}

void KpnPath::_copy(const KpnPath& other)
{
    if (other._size > InlineCapacity) {
        _heap = new KpnLife*[std::size_t(other._size)];
        _capacity = other._size;
    }
    _size = other._size;
    KpnLife* const* source = other._data();
    KpnLife** data = _data();
    for (int i = 0; i < _size; ++i) {
        data[i] = source[i];
        if (data[i])
            data[i]->retain();
    }
}

void KpnPath::_take(KpnPath& other)
{
    _size = other._size;
    _capacity = other._capacity;
    if (_capacity > InlineCapacity)
        _heap = other._heap;
    else
        std::copy_n(other._inline, _size, _inline);
    other._size = 0;
    other._capacity = InlineCapacity;
}

void KpnPath::_release()
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

void KpnPath::_grow()
{
    auto* heap = new KpnLife*[std::size_t(_capacity) * 2];
    std::copy_n(_data(), _size, heap);
    if (_capacity > InlineCapacity)
        delete[] _heap;
    _heap = heap;
    _capacity *= 2;
}

bool KpnPath::isValid() const
{
    KpnLife* const* data = _data();
    return _size > 0 && std::all_of(data, data + _size, [](const KpnLife* life) { return target(life); });
}

void KpnPath::append(const KpbAParameter* parameter)
{
    if (_size == _capacity)
        _grow();
    KpnLife* life = parameter ? parameter->_getLife() : nullptr;
    if (life)
        life->retain();
    _data()[_size++] = life;
}

bool KpnPath::contains(const KpbAParameter* parameter) const
{
    KpnLife* const* data = _data();
    return std::any_of(data, data + _size, [&](const KpnLife* life) { return target(life) == parameter; });
}

KpbAParameter* KpnPath::at(int index) const
{
    return target(_data()[index]);
}

QString KpnPath::toString() const
{
    QStringList keys;
    for (int i = _size - 1; i >= 0; --i) {
        const KpbAParameter* parameter = at(i);
        keys.append(parameter ? parameter->getKey() : QStringLiteral("NULL"));
    }
    return keys.join(QLatin1Char('/'));
}

bool operator==(const KpnPath& a, const KpnPath& b)
{
    if (a._size != b._size)
        return false;
    KpnLife* const* left = a._data();
    return std::equal(left, left + a._size, b._data(),
                      [](const KpnLife* x, const KpnLife* y) { return x == y || target(x) == target(y); });
}

bool operator<(const KpnPath& a, const KpnPath& b)
{
    return isLess(a._data(), a._size, b._data(), b._size, target);
}

bool KpnPath::wasLess(const KpnPath& other, quint64 deaths) const
{
    return isLess(_data(), _size, other._data(), other._size,
                  [&](const KpnLife* life) { return life ? life->addressAt(deaths) : nullptr; });
}

std::size_t KpnPath::hash() const
{
    // Lives come from the heap, so their low bits say nothing.
    std::size_t hash = 0;
    KpnLife* const* data = _data();
    for (int i = 0; i < _size; ++i)
        hash = (hash ^ (reinterpret_cast<std::size_t>(data[i]) >> 4)) * std::size_t(0x9E3779B97F4A7C15u);
    return hash ^ (hash >> 29);
}

bool KpnPath::diedBy(quint64 deaths) const
{
    KpnLife* const* data = _data();
    return std::any_of(data, data + _size, [&](const KpnLife* life) { return !life || life->diedBy(deaths); });
}
