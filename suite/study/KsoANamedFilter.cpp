#include <study/KsoANamedFilter.h>

#include <algorithm>

KsoANamedFilter::KsoANamedFilter(const MbdEIo& io) : _io(io)
{
    setNewAccepted(io == MbdEIo::OUTPUT);
}

bool KsoANamedFilter::_isEqual(const KsoANamedFilter& other) const
{
    return KsoAItemFilter::_isEqual(other) && _io == other._io && _applicationFlags == other._applicationFlags;
}

bool KsoANamedFilter::_acceptsItem(bool builtIn, const QStringList& applicationFlags) const
{
    if (builtIn && _io == MbdEIo::OUTPUT)
        return false;
    const auto isAsked = [](const QString& flag) { return !flag.isEmpty(); };
    if (applicationFlags.isEmpty() || std::none_of(_applicationFlags.begin(), _applicationFlags.end(), isAsked))
        return true;
    return std::any_of(_applicationFlags.begin(), _applicationFlags.end(),
                       [&](const QString& flag) { return isAsked(flag) && applicationFlags.contains(flag); });
}
