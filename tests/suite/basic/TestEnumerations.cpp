#include <gtest/gtest.h>

#include <basic/MbbEFormat.h>
#include <basic/MbgEAngleUnit.h>
#include <basic/MbgEAxisType.h>
#include <basic/MbgEDimension.h>
#include <basic/MbgERotConv.h>
#include <basic/MbuEUnitClass.h>

#include <QtCore/QSet>
#include <QtCore/QStringList>

template <class Enum>
class EnumerationClass : public testing::Test
{};
using EnumerationClasses =
    testing::Types<MbgEDimension, MbbEFormat, MbuEUnitClass, MbgEAngleUnit, MbgEAxisType, MbgERotConv>;
TYPED_TEST_SUITE(EnumerationClass, EnumerationClasses, );

TYPED_TEST(EnumerationClass, GivesEachItemByKeyLabelAndValue)
{
    for (const TypeParam* item : TypeParam::items()) {
        EXPECT_TRUE(TypeParam::existsKey(item->getKey()));
        EXPECT_TRUE(TypeParam::existsLabel(item->getLabel()));
        EXPECT_TRUE(TypeParam::existsValue(item->getValue()));
        EXPECT_EQ(&TypeParam::fromKey(item->getKey()), item);
        EXPECT_EQ(&TypeParam::fromLabel(item->getLabel()), item);
        EXPECT_EQ(&TypeParam::fromValue(item->getValue()), item);
    }
}

TYPED_TEST(EnumerationClass, CountsItemsFromZeroUpwardsWithUniqueKeys)
{
    QSet<QString> keys;
    int expected = 0;
    for (const TypeParam* item : TypeParam::items()) {
        EXPECT_EQ(item->getValue(), expected++);
        EXPECT_FALSE(item->getLabel().isEmpty());
        keys.insert(item->getKey());
    }
    EXPECT_EQ(TypeParam::count(), expected);
    EXPECT_EQ(keys.count(), expected);
}

TYPED_TEST(EnumerationClass, KnowsNoOtherItem)
{
    EXPECT_FALSE(TypeParam::existsKey(""));
    EXPECT_FALSE(TypeParam::existsKey(TypeParam::items().first()->getKey().toLower()));
    EXPECT_FALSE(TypeParam::existsLabel("no such label"));
    EXPECT_FALSE(TypeParam::existsValue(-1));
    EXPECT_FALSE(TypeParam::existsValue(TypeParam::count()));
}

TYPED_TEST(EnumerationClass, FailsForAnUnknownItem)
{
    EXPECT_THROW(TypeParam::fromKey("?"), MbeProgrammingError);
    EXPECT_THROW(TypeParam::fromLabel("?"), MbeProgrammingError);
    EXPECT_THROW(TypeParam::fromValue(-1), MbeProgrammingError);
}

TYPED_TEST(EnumerationClass, GivesTheFallbackForAnUnknownItem)
{
    const TypeParam& fallback = TypeParam::fromValue(1);
    EXPECT_EQ(TypeParam::fromKey("?", fallback), fallback);
    EXPECT_EQ(TypeParam::fromLabel("?", fallback), fallback);
    EXPECT_EQ(TypeParam::fromValue(-1, fallback), fallback);
    EXPECT_EQ(TypeParam::fromValue(0, fallback).getValue(), 0);
}

TYPED_TEST(EnumerationClass, ComparesByValue)
{
    const TypeParam a = TypeParam::fromValue(0);
    const TypeParam b = TypeParam::fromValue(1);
    const TypeParam sameAsA = a;
    EXPECT_TRUE(a == sameAsA);
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(a < b);
    EXPECT_FALSE(b < a);
    EXPECT_TRUE(a <= sameAsA);
    EXPECT_TRUE(b > a);
    EXPECT_TRUE(b >= a);
    EXPECT_FALSE(a >= b);
}

TEST(MbgEDimension, HasTheValuesZeroToTwo)
{
    EXPECT_EQ(MbgEDimension::DIM_1D.getValue(), 0);
    EXPECT_EQ(MbgEDimension::DIM_2D.getValue(), 1);
    EXPECT_EQ(MbgEDimension::DIM_3D.getValue(), 2);
    EXPECT_EQ(MbgEDimension::DIM_2D.getKey(), "DIM_2D");
}

TEST(MbgEDimension, Is3DByDefault)
{
    EXPECT_EQ(MbgEDimension(), MbgEDimension::DIM_3D);
}

TEST(MbgEDimension, ConvertsToAndFromANumberOfAxes)
{
    for (const int n : {1, 2, 3})
        EXPECT_EQ(MbgEDimension::fromNDim(n).getNDim(), n);
    EXPECT_EQ(MbgEDimension::fromNDim(2), MbgEDimension::DIM_2D);
}

TEST(MbgEDimension, RefusesOtherNumbersOfAxes)
{
    for (const int n : {0, 4, -1, -2147483647 - 1, 2147483647})
        EXPECT_THROW(MbgEDimension::fromNDim(n), MbeProgrammingError) << n;
}

TEST(MbgEAngleUnit, IsDegreeByDefault)
{
    EXPECT_EQ(MbgEAngleUnit(), MbgEAngleUnit::DEGREE);
    EXPECT_EQ(MbgEAngleUnit::RADIAN.getKey(), "RADIAN");
    EXPECT_EQ(MbgEAngleUnit::GRADE.getKey(), "GRADE");
}

TEST(MbgEAxisType, NumbersTheAxesUVAndW)
{
    EXPECT_EQ(MbgEAxisType(), MbgEAxisType::AXIS_U);
    EXPECT_EQ(MbgEAxisType::AXIS_V.getValue(), 1);
    EXPECT_EQ(MbgEAxisType::AXIS_W.getValue(), 2);
}

TEST(MbgERotConv, IsASystemByDefault)
{
    EXPECT_EQ(MbgERotConv(), MbgERotConv::SYSTEM);
    EXPECT_EQ(MbgERotConv::DIRECTION.getKey(), "DIRECTION");
}

TEST(MbbEFormat, IsGeneralByDefault)
{
    EXPECT_EQ(MbbEFormat(), MbbEFormat::GENERAL);
}

TEST(MbuEUnitClass, IsNoneByDefaultWithTheValueZero)
{
    EXPECT_EQ(MbuEUnitClass(), MbuEUnitClass::NONE);
    EXPECT_EQ(MbuEUnitClass::NONE.getValue(), 0);
}

TEST(MbuEUnitClass, KeepsItsKeysAndValues)
{
    QStringList rows;
    for (const MbuEUnitClass* item : MbuEUnitClass::items())
        rows << QStringLiteral("%1 %2").arg(item->getValue()).arg(item->getKey());
    EXPECT_EQ(rows, QStringList({"0 NONE", "1 LENGTH", "2 SURFACE", "3 VOLUME", "4 ANGLE", "5 MASS", "6 TIME",
                                 "7 TEMPERATURE", "8 DENSITY", "9 PRESSURE", "10 CONCENTRATION", "11 PERCENTAGE",
                                 "12 VELOCITY", "13 ACCELERATION", "14 PERMEABILITY"}));
}
