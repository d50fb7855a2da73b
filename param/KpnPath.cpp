#include <param/KpbAParameter.h>
#include <param/KpnLife.h>
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

void KpnPath::_copyToHeap(const KpnPath& other)
{
    _heap = new KpnLife*[std::size_t(other._size)];
    _capacity = other._size;
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

bool KpnPath::_checkValid() const
{
    KpnLife* const* data = _data();
    const bool valid = std::all_of(data, data + _size, target);
    _validAt = valid ? KpnLife::deaths() : KpnLife::Never;
    return valid;
}

void KpnPath::append(const KpbAParameter* parameter)
{
    append(parameter ? parameter->_getLife() : nullptr);
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
