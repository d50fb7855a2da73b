#pragma once

#include <QtCore/QString>

#include <geos/GeosExport.h>

class MbgRotation;

/// The engine's values in words, in the user's formats.
class KESTRIN_GEOS_EXPORT MgfObjectsFormatter
{
public:
    /// Dip, dip azimuth and pitch of a system of axes; in 2D the azimuth of its U axis. `html` gives rich text.
    static QString systemOrientation(const MbgRotation& rotation, bool is2D, bool html);
};
