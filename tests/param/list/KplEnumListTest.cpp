#include "AtomicListTestTools.h"

#include <param/list/KplEnumList.h>

namespace {

class KplEnumListTest : public testing::Test
{
protected:
    KplEnumListTest()
    {
        list.getItemPrototype()->reset({{1, "First", "A"}, {2, "Second", "B"}, {3, "Third", "C"}});
        list.setValues({2, 3});
    }
    KplEnumList list{"LIST"};
};

} // namespace

TEST_F(KplEnumListTest, IsAListOfChoices)
{
    EXPECT_TRUE(list.getItemType() == KpbEType::ENUM);
    EXPECT_EQ(list.getValues(), QList<int>({2, 3}));
    EXPECT_EQ(list.toString(), "2 items: 'Second' 'Third'");
}

TEST_F(KplEnumListTest, RepairsWhatIsNoChoice)
{
    list.setValues({7, 3});
    EXPECT_EQ(list.getValues(), QList<int>({1, 3}));
}

TEST_F(KplEnumListTest, GivesKeysAndLabelsOfItsChoices)
{
    EXPECT_EQ(list.getItemKeyAt(0), "B");
    EXPECT_EQ(list.getItemLabelAt(1), "Third");
    EXPECT_EQ(list.getItemKeysXX(), QStringList({"B", "C"}));
    EXPECT_EQ(list.getItemLabels(), QStringList({"Second", "Third"}));
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 2}));
    for (const int rank : {-1, 2}) {
        EXPECT_EQ(list.getItemKeyAt(rank), "");
        EXPECT_EQ(list.getItemLabelAt(rank), "");
    }
}

TEST_F(KplEnumListTest, SetsOneChoiceByItsKeyOrItsLabel)
{
    list.setItemFromKeyAt(0, "C");
    list.setItemFromLabelAt(1, "First");
    EXPECT_EQ(list.getValues(), QList<int>({3, 1}));
    list.setItemFromKeyAt(0, "First");
    list.setItemFromLabelAt(1, "B");
    EXPECT_EQ(list.getValues(), QList<int>({3, 1}));
    for (const int rank : {-1, 2}) {
        list.setItemFromKeyAt(rank, "B");
        list.setItemFromLabelAt(rank, "Second");
    }
    EXPECT_EQ(list.getValues(), QList<int>({3, 1}));
}

TEST_F(KplEnumListTest, SetsAllChoicesInOneRecord)
{
    RecordingObserver observer(list);
    list.setItemFromKeys({"C", "A"});
    EXPECT_EQ(list.getValues(), QList<int>({3, 1}));
    list.setItemFromLabels({"Second", "Third"});
    EXPECT_EQ(list.getValues(), QList<int>({2, 3}));
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.flagsOf(*list.getItemAt(0), 1), int(Kp::NotifyValue));
    EXPECT_EQ(observer.flagsOf(*list.getItemAt(1), 1), int(Kp::NotifyValue));
}

TEST_F(KplEnumListTest, BecomesAsLongAsTheTexts)
{
    RecordingObserver observer(list);
    list.setItemFromKeys({"A", "B", "C"});
    EXPECT_EQ(list.getValues(), QList<int>({1, 2, 3}));
    list.setItemFromLabels({"Third"});
    EXPECT_EQ(list.getValues(), QList<int>({3}));
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.flagsOf(list, 0), 13);
    EXPECT_EQ(observer.flagsOf(list, 1), 13);
}

TEST_F(KplEnumListTest, LeavesAnItemWhoseTextIsNoChoice)
{
    list.setItemFromKeys({"X", "A"});
    EXPECT_EQ(list.getValues(), QList<int>({2, 1}));
}

TEST_F(KplEnumListTest, LetsChoicesChangePlacesWhereTheyAreUnique)
{
    list.setUnique(true);
    list.setItemFromKeys({"C", "B"});
    EXPECT_EQ(list.getValues(), QList<int>({3, 2}));
    list.setItemFromKeys({"A", "B", "A"});
    EXPECT_EQ(list.getValues(), QList<int>({1, 2}));
}

TEST_F(KplEnumListTest, EndsTheAutomaticModeWithOtherChoices)
{
    list.setAutoValues({1, 2});
    list.setAutomatic(true);
    list.setItemFromKeys({"A", "B"});
    EXPECT_TRUE(list.isAutomatic());
    list.setItemFromKeys({"A", "C"});
    EXPECT_FALSE(list.isAutomatic());
}

TEST_F(KplEnumListTest, CopiesItself)
{
    const std::unique_ptr<KplEnumList> copy(list.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getItemKeysXX(), QStringList({"B", "C"}));
}
