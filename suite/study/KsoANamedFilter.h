#pragma once

#include <QtCore/QStringList>

#include <basic/MbdEIo.h>
#include <study/KsoAItemFilter.h>

/// What the filters of named items share. A default one is for input and accepts every item. A filter for output
/// refuses built-in items, and accepts names for new ones until it is told otherwise.
class KESTRIN_STUDY_EXPORT KsoANamedFilter : public KsoAItemFilter
{
public:
    const MbdEIo& getIo() const { return _io; }
    /// The applications that the filter is for: an item that is for some applications must be for one of these. Empty
    /// texts do not count; without any, nothing is asked.
    const QStringList& getApplicationFlags() const { return _applicationFlags; }
    void setApplicationFlags(const QStringList& flags) { _applicationFlags = flags; }

protected:
    KsoANamedFilter() = default;
    explicit KsoANamedFilter(const MbdEIo& io);
    KsoANamedFilter(const KsoANamedFilter&) = default;
    KsoANamedFilter& operator=(const KsoANamedFilter&) = default;
    ~KsoANamedFilter() = default;

    bool _isEqual(const KsoANamedFilter& other) const;
    bool _acceptsItem(bool builtIn, const QStringList& applicationFlags) const;

private:
    MbdEIo _io;
    QStringList _applicationFlags;
};
