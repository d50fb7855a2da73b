#include "AtomicListTestTools.h"

#include <param/list/KplIntegerList.h>

TEST(KplIntegerList, IsAListOfIntegers)
{
    expectAListOfValues<KplIntegerList, int>(KpbEType::INTEGER, 3, -4);
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
