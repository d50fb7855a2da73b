#pragma once

#include <basic/MbbStringFormat.h>
#include <basic/MbuUnitTransfo.h>

/// The formats in which the user wants to see the values of each unit class, and with them the display units. One
/// setting for the whole process: a program sets it from the user's preferences; until then every class has the default
/// format, in the storage unit. All operations may be called from several threads.
class KESTRIN_BASIC_EXPORT MbbUserStringFormats
{
public:
    static MbbStringFormat getStringFormat(const MbuEUnitClass& unitClass);
    /// The display unit of the format.
    static MbuUnit getDisplayUnit(const MbuEUnitClass& unitClass);
    /// The conversion from the storage unit to the display unit at power 1.
    static MbuUnitTransfo getDisplayTransfo(const MbuEUnitClass& unitClass);

    /// Sets the format for its unit class.
    static void setStringFormat(const MbbStringFormat& format);
    /// Changes the display unit in the format of the unit's class.
    static void setDisplayUnit(const MbuUnit& unit);
    /// Brings back the default formats of all classes.
    static void reset();
};
