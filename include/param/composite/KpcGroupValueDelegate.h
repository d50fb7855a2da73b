#pragma once

#include <QtCore/QString>

#include <param/KpExport.h>

class KpcGroup;

/// Gives a group its text. It belongs to the group that it is set at, and is copied with it.
class KESTRIN_PARAM_EXPORT KpcGroupValueDelegate
{
public:
    virtual ~KpcGroupValueDelegate();

    /// `group` is never null.
    virtual QString toString(const KpcGroup* group) const = 0;
    /// The caller owns the copy.
    virtual KpcGroupValueDelegate* duplicate() const = 0;

protected:
    KpcGroupValueDelegate() = default;
    KpcGroupValueDelegate(const KpcGroupValueDelegate&) = default;
    KpcGroupValueDelegate& operator=(const KpcGroupValueDelegate&) = default;
};
