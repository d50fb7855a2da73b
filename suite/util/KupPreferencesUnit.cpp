#include <basic/MbbUserStringFormats.h>
#include <util/KupPreferencesUnit.h>

MbbStringFormat KupPreferencesUnit::getStringFormat(const MbuEUnitClass& unitClass)
{
    return MbbUserStringFormats::getStringFormat(unitClass);
}
