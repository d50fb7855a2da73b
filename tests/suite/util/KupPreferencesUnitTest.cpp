#include <gtest/gtest.h>

#include <basic/MbbUserStringFormats.h>
#include <basic/MbuUnitService.h>
#include <util/KupPreferencesUnit.h>

TEST(KupPreferencesUnit, GivesTheUsersFormatOfAUnitClass)
{
    MbbUserStringFormats::reset();
    EXPECT_EQ(KupPreferencesUnit::getStringFormat(MbuEUnitClass::LENGTH), MbbStringFormat(MbuEUnitClass::LENGTH));
    MbbUserStringFormats::setDisplayUnit(MbuUnitService::getUnit("km"));
    EXPECT_EQ(KupPreferencesUnit::getStringFormat(MbuEUnitClass::LENGTH).getDisplayUnit().getKey(), "km");
    EXPECT_EQ(KupPreferencesUnit::getStringFormat(MbuEUnitClass::ANGLE), MbbStringFormat(MbuEUnitClass::ANGLE));
    MbbUserStringFormats::reset();
}
