#include "AtomicListTestTools.h"

#include <basic/MbuUnitService.h>
#include <param/list/KplBoolList.h>
#include <param/list/KplColorList.h>
#include <param/list/KplIntegerList.h>
#include <param/list/KplMatrixSymmetricalList.h>
#include <param/list/KplStringList.h>
#include <param/list/KplUnitList.h>

namespace {

/// What every list of atomics does with two values.
template <class List, class Value>
void expectAList(const KpbEType& itemType, const Value& a, const Value& b)
{
    List list("LIST");
    EXPECT_TRUE(list.isA(KpbEType::LIST));
    EXPECT_TRUE(list.getItemType() == itemType);
    list.setValues({a, b});
    EXPECT_EQ(list.getValues(), QList<Value>({a, b}));
    EXPECT_TRUE(list.getValueAt(-1) == Value());
    EXPECT_TRUE(list.getValueAt(2) == Value());

    const std::unique_ptr<List> copy(list.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValues(), QList<Value>({a, b}));
    EXPECT_EQ(List(list, QString()).getKey(), "LIST");

    list.setAutoValues({b, a});
    list.setAutomatic(true);
    EXPECT_EQ(list.getValues(), QList<Value>({b, a}));
    EXPECT_TRUE(list.isAutomatic());
    list.setAutoValueAt(0, a);
    EXPECT_TRUE(list.getAutoValueAt(0) == a);
    EXPECT_TRUE(list.getValueAt(0) == a);

    list.setValues({a, b, a, a, b});
    list.setUnique(true);
    EXPECT_EQ(list.getValues(), QList<Value>({a, b}));
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 2}));
}

} // namespace

TEST(KplBoolList, IsAListOfBooleans)
{
    expectAList<KplBoolList, bool>(KpbEType::BOOL, true, false);
}

TEST(KplIntegerList, IsAListOfIntegers)
{
    expectAList<KplIntegerList, int>(KpbEType::INTEGER, 3, -4);
}

TEST(KplIntegerList, TellsWhetherAnItemIsDefined)
{
    KplIntegerList list("LIST");
    list.getItemPrototype()->setUndefineEnabled(true);
    list.setValues({1, MbbGlobal::I32_FFFF});
    EXPECT_TRUE(list.isDefined(0));
    EXPECT_FALSE(list.isDefined(1));
    EXPECT_FALSE(list.isDefined(-1));
    EXPECT_FALSE(list.isDefined(2));
}

TEST(KplStringList, IsAListOfTexts)
{
    expectAList<KplStringList, QString>(KpbEType::STRING, "a", "A");
}

TEST(KplStringList, FindsATextWithOrWithoutItsCase)
{
    KplStringList list("LIST");
    list.setValues({"one", "Two", "two", ""});
    EXPECT_EQ(list.indexOf("two", true), 2);
    EXPECT_EQ(list.indexOf("two", false), 1);
    EXPECT_EQ(list.indexOf("ONE", true), -1);
    EXPECT_EQ(list.indexOf("", true), 3);
    EXPECT_EQ(list.indexOf("tw", false), -1);
    EXPECT_TRUE(list.contains("two", true));
    EXPECT_TRUE(list.contains("ONE", false));
    EXPECT_FALSE(list.contains("ONE", true));
    EXPECT_FALSE(list.contains("three", false));
}

TEST(KplUnitList, IsAListOfUnits)
{
    KplUnitList list("LIST");
    list.getItemPrototype()->setUnitClass(MbuEUnitClass::LENGTH);
    const MbuUnit metre = MbuUnitService::getUnit("m");
    const MbuUnit foot = MbuUnitService::getUnit("ft");
    EXPECT_TRUE(list.getItemType() == KpbEType::UNIT);
    list.setValues({metre, foot, metre});
    EXPECT_EQ(list.getValues(), QList<MbuUnit>({metre, foot, metre}));
    list.setUnique(true);
    EXPECT_EQ(list.getValues(), QList<MbuUnit>({metre, foot}));
    EXPECT_EQ(list.getValueAt(-1), MbuUnit());
    const std::unique_ptr<KplUnitList> copy(list.duplicate("COPY"));
    EXPECT_EQ(copy->getValues(), QList<MbuUnit>({metre, foot}));
}

TEST(KplColorList, IsAListOfColours)
{
    expectAList<KplColorList, QColor>(KpbEType::COLOR, Qt::red, QColor(1, 2, 3, 4));
}

TEST(KplColorList, AsksTheItemWhetherItAdmitsTransparentColours)
{
    KplColorList list("LIST");
    list.setItemCount(2);
    list.getItemAt(1)->setAlphaEnabled(false);
    EXPECT_TRUE(list.isAlphaEnabled(0));
    EXPECT_FALSE(list.isAlphaEnabled(1));
    EXPECT_FALSE(list.isAlphaEnabled(-1));
    EXPECT_FALSE(list.isAlphaEnabled(2));
}

TEST(KplMatrixSymmetricalList, IsAListOfMatrices)
{
    KuuMatrixSymmetrical pair(2);
    pair.setElement(0, 1, 0.5);
    expectAList<KplMatrixSymmetricalList, KuuMatrixSymmetrical>(KpbEType::MATRIX, pair, KuuMatrixSymmetrical(3));
}

TEST(KplMatrixSymmetricalList, AsksTheItemWhetherItAdmitsTheNullMatrix)
{
    KplMatrixSymmetricalList list("LIST");
    list.setItemCount(2);
    list.getItemAt(1)->canBeNull(false);
    EXPECT_TRUE(list.canItBeNull(0));
    EXPECT_FALSE(list.canItBeNull(1));
    EXPECT_FALSE(list.canItBeNull(-1));
    EXPECT_FALSE(list.canItBeNull(2));
}
