#pragma once

#include <basic/MbbStringFormat.h>
#include <util/UtilExport.h>

/// The user's preferences for units.
class KESTRIN_UTIL_EXPORT KupPreferencesUnit
{
public:
    /// The format in which the user wants to see the values of the unit class, as `MbbUserStringFormats` has it.
    static MbbStringFormat getStringFormat(const MbuEUnitClass& unitClass);
};
