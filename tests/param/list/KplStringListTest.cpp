#include "AtomicListTestTools.h"

#include <param/list/KplStringList.h>

TEST(KplStringList, IsAListOfTexts)
{
    expectAListOfValues<KplStringList, QString>(KpbEType::STRING, "a", "A");
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
