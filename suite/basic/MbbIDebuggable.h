#pragma once

#include <QtCore/QString>

#include <basic/BasicExport.h>

/// Something that can tell its state as a text of several lines.
class KESTRIN_BASIC_EXPORT MbbIDebuggable
{
public:
    virtual ~MbbIDebuggable();
    /// `depth` says how much to tell; what each depth holds is the class's own.
    virtual QString debug(int depth) const = 0;

protected:
    MbbIDebuggable() = default;
    MbbIDebuggable(const MbbIDebuggable&) = default;
    MbbIDebuggable& operator=(const MbbIDebuggable&) = default;
};
