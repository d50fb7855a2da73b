#include <gtest/gtest.h>

#include <basic/MbbUserStringFormats.h>
#include <basic/MbdVariableDetailsHelper.h>
#include <basic/MbuUnitService.h>

TEST(MbdVariableDetails, DescribesPlainNumbersByDefault)
{
    const MbdVariableDetails details;
    EXPECT_EQ(details.getUnitClass(), MbuEUnitClass::NONE);
    EXPECT_EQ(details.getPowerValue(), 1);
    EXPECT_TRUE(details.isUnitDefaultFormatUsed());
    EXPECT_FALSE(details.getNumericDetails().hasUserDefinedStringFormat());
}

TEST(MbdVariableDetails, IsCreatedForAUnitClass)
{
    const MbdVariableDetails details = MbdVariableDetailsHelper::createDetails(MbuEUnitClass::MASS);
    EXPECT_EQ(details.getUnitClass(), MbuEUnitClass::MASS);
    EXPECT_EQ(details.getPowerValue(), 1);
    EXPECT_TRUE(details.isUnitDefaultFormatUsed());
    EXPECT_EQ(details.getNumericDetails().getStringFormat(), MbbStringFormat(MbuEUnitClass::MASS));
}

TEST(MbdVariableDetails, FollowsTheUsersFormatOfTheClass)
{
    const MbdVariableDetails details = MbdVariableDetailsHelper::createDetails(MbuEUnitClass::LENGTH);
    MbbUserStringFormats::setDisplayUnit(MbuUnitService::getUnit("ft"));
    EXPECT_EQ(details.getNumericDetails().getStringFormat().getDisplayUnit().getKey(), "ft");
    MbbUserStringFormats::reset();
    EXPECT_EQ(details.getNumericDetails().getStringFormat().getDisplayUnit().getKey(), "m");
}

TEST(MbdVariableDetails, KeepsAUserDefinedFormatAsItIsGiven)
{
    MbdVariableDetails details;
    MbbStringFormat format(MbuEUnitClass::LENGTH);
    format.setPrecision(3);
    details.getNumericDetails().setUserDefinedStringFormat(format);
    EXPECT_TRUE(details.getNumericDetails().hasUserDefinedStringFormat());
    EXPECT_EQ(details.getNumericDetails().getStringFormat(), format);
    EXPECT_EQ(details.getUnitClass(), MbuEUnitClass::NONE);
    details.getNumericDetails().unsetUserDefinedStringFormat();
    EXPECT_EQ(details.getNumericDetails().getStringFormat(), MbbStringFormat());
}

TEST(MbdVariableDetails, IsEqualByEachOfItsFields)
{
    const MbdVariableDetails details = MbdVariableDetailsHelper::createDetails(MbuEUnitClass::LENGTH);
    EXPECT_EQ(details, MbdVariableDetails(MbuEUnitClass::LENGTH));

    MbdVariableDetails other = details;
    other.setUnitClass(MbuEUnitClass::MASS);
    EXPECT_NE(details, other);
    other = details;
    other.setPowerValue(2);
    EXPECT_NE(details, other);
    other = details;
    other.setUnitDefaultFormatUsed(false);
    EXPECT_NE(details, other);
    other = details;
    other.getNumericDetails().setUserDefinedStringFormat(MbbStringFormat(MbuEUnitClass::LENGTH));
    EXPECT_NE(details, other);
    EXPECT_NE(details.getNumericDetails(), other.getNumericDetails());
}

TEST(MbdVariableDetails, IsIndependentOfItsCopy)
{
    const MbdVariableDetails details;
    MbdVariableDetails copy = details;
    copy.setPowerValue(3);
    copy.getNumericDetails().setUserDefinedStringFormat(MbbStringFormat());
    EXPECT_EQ(details, MbdVariableDetails());
}
