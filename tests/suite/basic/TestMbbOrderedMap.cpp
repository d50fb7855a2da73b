#include <gtest/gtest.h>

#include <basic/MbbOrderedMap.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace {
using Map = MbbOrderedMap<QString, QString>;

/// The entries "0" to "count - 1", each with its key doubled as value.
Map numbered(int count)
{
    Map map;
    for (int i = 0; i < count; ++i)
        map.insert(QString::number(i), QString::number(i).repeated(2));
    return map;
}
} // namespace

TEST(MbbOrderedMap, IsEmptyWhenFresh)
{
    const Map map;
    EXPECT_TRUE(map.isEmpty());
    EXPECT_EQ(map.count(), 0);
    EXPECT_FALSE(map.contains(QString()));
}

TEST(MbbOrderedMap, KeepsTheOrderOfInsertion)
{
    const Map map{{"z", "1"}, {"a", "2"}, {"m", "3"}};
    EXPECT_EQ(map.keys(), QStringList({"z", "a", "m"}));
    EXPECT_EQ(map.values(), QStringList({"1", "2", "3"}));
    EXPECT_EQ(map.keyAt(1), "a");
    EXPECT_EQ(map.valueAt(2), "3");
    EXPECT_EQ(map.at(0), (Map::Entry{"z", "1"}));
}

TEST(MbbOrderedMap, ReplacesAValueInItsPlace)
{
    Map map{{"a", "1"}, {"b", "2"}};
    map.insert("a", "3");
    EXPECT_EQ(map, (Map{{"a", "3"}, {"b", "2"}}));
}

TEST(MbbOrderedMap, GivesTheFallbackForAnAbsentKey)
{
    const Map map{{"a", "1"}};
    EXPECT_EQ(map.value("b"), QString());
    EXPECT_EQ(map.value("b", "else"), "else");
    EXPECT_EQ(map.find("b"), nullptr);
    EXPECT_EQ(map.indexOf("b"), -1);
}

TEST(MbbOrderedMap, FindsAnEmptyKeyAndAnEmptyValue)
{
    const Map map{{"", "1"}, {"a", ""}};
    EXPECT_EQ(map.value(""), "1");
    ASSERT_NE(map.find("a"), nullptr);
    EXPECT_EQ(*map.find("a"), "");
}

TEST(MbbOrderedMap, FindsEveryKeyOnBothSidesOfSixteenEntries)
{
    for (const int count : {1, 15, 16, 17, 18, 100}) {
        const Map map = numbered(count);
        ASSERT_EQ(map.count(), count);
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ(map.indexOf(QString::number(i)), i);
            EXPECT_EQ(map.value(QString::number(i)), QString::number(i).repeated(2));
        }
        EXPECT_FALSE(map.contains(QString::number(count)));
    }
}

TEST(MbbOrderedMap, ReplacesAValueBeyondSixteenEntries)
{
    Map map = numbered(20);
    map.insert("19", "new");
    map.insert("0", "first");
    EXPECT_EQ(map.count(), 20);
    EXPECT_EQ(map.valueAt(19), "new");
    EXPECT_EQ(map.valueAt(0), "first");
}

TEST(MbbOrderedMap, KeepsTheOrderOnRemoval)
{
    Map map{{"a", "1"}, {"b", "2"}, {"c", "3"}};
    EXPECT_TRUE(map.remove("b"));
    EXPECT_EQ(map, (Map{{"a", "1"}, {"c", "3"}}));
    EXPECT_FALSE(map.remove("b"));
}

TEST(MbbOrderedMap, FindsTheRestAfterRemovalsAcrossSixteenEntries)
{
    Map map = numbered(20);
    for (int removed = 0; removed < 10; ++removed) {
        EXPECT_TRUE(map.remove(QString::number(removed)));
        EXPECT_FALSE(map.contains(QString::number(removed)));
        for (int i = removed + 1; i < 20; ++i)
            ASSERT_EQ(map.indexOf(QString::number(i)), i - removed - 1);
    }
}

TEST(MbbOrderedMap, PutsARemovedKeyBackAtTheEnd)
{
    Map map{{"a", "1"}, {"b", "2"}};
    map.remove("a");
    map.insert("a", "3");
    EXPECT_EQ(map.keys(), QStringList({"b", "a"}));
}

TEST(MbbOrderedMap, IsEmptyAfterClear)
{
    Map map = numbered(20);
    map.clear();
    EXPECT_TRUE(map.isEmpty());
    EXPECT_FALSE(map.contains("3"));
    map.insert("3", "again");
    EXPECT_EQ(map.indexOf("3"), 0);
}

TEST(MbbOrderedMap, DiffersByOrder)
{
    EXPECT_NE((Map{{"a", "1"}, {"b", "2"}}), (Map{{"b", "2"}, {"a", "1"}}));
}

TEST(MbbOrderedMap, IsIndependentOfItsCopy)
{
    const Map map = numbered(20);
    Map copy = map;
    copy.remove("0");
    copy.insert("1", "changed");
    EXPECT_EQ(map.value("0"), "00");
    EXPECT_EQ(map.value("1"), "11");
    EXPECT_EQ(map.indexOf("19"), 19);
}

TEST(MbbOrderedMap, IteratesInOrder)
{
    QStringList seen;
    for (const Map::Entry& entry : Map{{"b", "1"}, {"a", "2"}})
        seen << entry.key + "=" + entry.value;
    EXPECT_EQ(seen, QStringList({"b=1", "a=2"}));
}
