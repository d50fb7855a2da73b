#include <gtest/gtest.h>

#include "KpsSerializerTestTools.h"

#include <param/composite/KpcGroupList.h>
#include <param/list/KplDoubleList.h>
#include <param/list/KplIntegerList.h>
#include <param/list/KplStringList.h>

#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>

#include <QtCore/QRegularExpression>

#include <limits>

using namespace SerializerTest;

namespace {

using Integers = QList<int>;

QString item(const QString& key, const QString& text)
{
    return "<param key=\"" + key + "\">" + text + "</param>";
}

QString listElement(const QString& content)
{
    return "<param key=\"L\">" + content + "</param>";
}

/// The element as text on one line.
QString elementOf(const KpbAParameter& parameter)
{
    return writtenParam(parameter).remove(QRegularExpression("\\n *"));
}

class List
{
public:
    explicit List(const Integers& values = {}) { list.setValues(values); }

    KplIntegerList list{"L"};
};

/// An integer list that is read by position or by key, whatever its size is worth.
class ChoosyList : public KpcList<KpaInteger>
{
public:
    ChoosyList(bool resizable, bool ignoresKeys) : KpcList("L"), _ignoresKeys(ignoresKeys)
    {
        setItemCount(2);
        setResizable(resizable);
    }
    bool ignoreItemKeys() const override { return _ignoresKeys; }

private:
    bool _ignoresKeys;
};

Integers valuesOf(const KpcList<KpaInteger>& list)
{
    Integers values;
    for (int i = 0; i < list.getItemCount(); ++i)
        values.append(list.getItemAt(i)->getValue());
    return values;
}

} // namespace

TEST(KpsSerializerList, ItemsAreWrittenInOrderUnderTheirKeys)
{
    List l({1, 2, 3});
    l.list.removeItemAt(1);
    l.list.moveItem(0, 1);
    EXPECT_EQ(elementOf(l.list), listElement(item("ITEM_3", "3") + item("ITEM_1", "1")));
}

TEST(KpsSerializerList, AnEmptyListIsAnEmptyElement)
{
    EXPECT_EQ(elementOf(List().list), "<param key=\"L\"/>");
}

TEST(KpsSerializerList, AVolatileItemIsNotWritten)
{
    List l({1, 2});
    l.list.getItemAt(0)->setVolatile(true);
    EXPECT_EQ(elementOf(l.list), listElement(item("ITEM_2", "2")));
}

TEST(KpsSerializerList, TheAutomaticModeIsWrittenOfListAndItems)
{
    List l({1});
    l.list.setAutomaticEnabled(true);
    l.list.getItemAt(0)->activateAutoValue();
    EXPECT_EQ(elementOf(l.list),
              "<param key=\"L\" automatic=\"no\"><param key=\"ITEM_1\" automatic=\"yes\">1</param></param>");
}

TEST(KpsSerializerList, ItemsAreReadUnderTheirKeys)
{
    List l({1, 2});
    KpaInteger* second = l.list.getItemAt(1);
    read(l.list, listElement(item("ITEM_5", "50") + item("ITEM_2", "20")));
    EXPECT_EQ(l.list.getItemKeys(), QStringList({"ITEM_5", "ITEM_2"}));
    EXPECT_EQ(l.list.getValues(), Integers({50, 20}));
    EXPECT_EQ(l.list.getItemAt(1), second);
}

TEST(KpsSerializerList, TheCounterOfKeysComesBackAsTheGreatestIdentifier)
{
    List l;
    read(l.list, listElement(item("ITEM_1", "1") + item("ITEM_5", "5")));
    EXPECT_EQ(l.list.addItem()->getKey(), "ITEM_6");
}

TEST(KpsSerializerList, WhatIsWrittenReadsBackTheSame)
{
    List l({7, 8, 9});
    l.list.removeItemAt(0);
    l.list.moveItem(0, 1);
    const QString text = elementOf(l.list);
    List other({1, 2, 3, 4});
    read(other.list, text);
    EXPECT_EQ(elementOf(other.list), text);
    EXPECT_EQ(other.list.getValues(), Integers({9, 8}));
}

TEST(KpsSerializerList, AnEmptyElementEmptiesTheList)
{
    List l({1, 2});
    read(l.list, "<param key=\"L\"/>");
    EXPECT_TRUE(l.list.isEmpty());
    read(l.list, "<param key=\"L\">text</param>");
    EXPECT_TRUE(l.list.isEmpty());
}

TEST(KpsSerializerList, OnlyParamElementsAreItems)
{
    List l;
    read(l.list, listElement("text<!-- comment -->" + item("ITEM_1", "1") + "<other key=\"ITEM_2\">2</other>" +
                             item("ITEM_3", "3")));
    EXPECT_EQ(l.list.getItemKeys(), QStringList({"ITEM_1", "ITEM_3"}));
    EXPECT_EQ(l.list.getValues(), Integers({1, 3}));
}

TEST(KpsSerializerList, ABadTextKeepsWhatTheNewItemHasOfThePrototype)
{
    List l;
    l.list.getItemPrototype()->setValue(4);
    read(l.list, listElement(item("ITEM_1", "garbage") + item("ITEM_2", "")));
    EXPECT_EQ(l.list.getValues(), Integers({4, 4}));
}

TEST(KpsSerializerList, TheKeysAreToldInOneRecordBeforeTheValues)
{
    List l;
    RecordingObserver observer(l.list);
    read(l.list, listElement(item("ITEM_1", "1") + item("ITEM_2", "2")));
    ASSERT_EQ(observer.records.size(), 3);
    EXPECT_EQ(observer.flagsOf(l.list, 0), 13);
    EXPECT_EQ(observer.flagsOf(*l.list.getItemAt(0), 0), 0);
    EXPECT_EQ(observer.flagsOf(*l.list.getItemAt(1), 0), int(Kp::NotifyConfig));
    EXPECT_EQ(observer.records[1].debug(), "L/ITEM_1:1");
    EXPECT_EQ(observer.records[2].debug(), "L/ITEM_2:1");
}

TEST(KpsSerializerList, ReadingWhatIsThereTellsNothing)
{
    List l({1, 2});
    RecordingObserver observer(l.list);
    read(l.list, elementOf(l.list));
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpsSerializerList, KeysThatNoProgramWroteAreKept)
{
    const int greatest = std::numeric_limits<int>::max();
    const QStringList keys = {"ITEM_",
                              "X",
                              "ITEM_99999999999999999999",
                              "ITEM_-3",
                              "ITEM_" + QString::number(greatest),
                              QString(2000, 'k'),
                              "PROTOTYPE",
                              "ITEM_1"};
    QString content;
    for (int i = 0; i < keys.size(); ++i)
        content += item(keys[i], QString::number(i));
    List l;
    read(l.list, listElement(content));
    EXPECT_EQ(l.list.getItemKeys(), keys);
    EXPECT_EQ(l.list.getValues(), Integers({0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(l.list.addItem()->getKey(), "ITEM_2");
    l.list.removeLastItem();
    EXPECT_EQ(elementOf(l.list), listElement(content));
}

TEST(KpsSerializerList, ItemsWhoseKeyRepeatsKeepTheirOwnValues)
{
    const QString text = listElement(item("ITEM_1", "1") + item("ITEM_2", "2") + item("ITEM_1", "3"));
    List l;
    read(l.list, text);
    EXPECT_EQ(l.list.getValues(), Integers({1, 2, 3}));
    EXPECT_EQ(elementOf(l.list), text);
    read(l.list, text);
    EXPECT_EQ(l.list.getValues(), Integers({1, 2, 3}));
}

TEST(KpsSerializerList, ItemsWithoutAKeyKeepTheirValues)
{
    List l;
    read(l.list, listElement("<param>1</param>" + item("", "2") + item("ITEM_1", "3")));
    EXPECT_EQ(l.list.getValues(), Integers({1, 2, 3}));
    const QString text = elementOf(l.list);
    List other;
    read(other.list, text);
    EXPECT_EQ(elementOf(other.list), text);
}

TEST(KpsSerializerList, AListThatIsNotResizableIsReadByPosition)
{
    List l({1, 2, 3});
    l.list.setResizable(false);
    read(l.list, listElement(item("ITEM_3", "30") + item("X", "20")));
    EXPECT_EQ(l.list.getItemKeys(), QStringList({"ITEM_1", "ITEM_2", "ITEM_3"}));
    EXPECT_EQ(l.list.getValues(), Integers({30, 20, 3}));
    read(l.list, listElement(item("A", "7") + "<param>8</param>" + item("C", "9") + item("D", "10")));
    EXPECT_EQ(l.list.getValues(), Integers({7, 8, 9}));
}

TEST(KpsSerializerList, EveryChildNodeHasAPosition)
{
    List l({1, 2, 3, 4});
    l.list.setResizable(false);
    read(l.list,
         listElement(item("A", "10") + "<!-- comment -->" + "<other>30</other>" + item("D", "40") + item("E", "50")));
    EXPECT_EQ(l.list.getValues(), Integers({10, 2, 3, 40}));
}

TEST(KpsSerializerList, AListMayBeReadByKeyThoughItIsNotResizable)
{
    ChoosyList list(false, false);
    read(list, listElement(item("ITEM_2", "2") + item("ITEM_1", "1") + item("ITEM_3", "3")));
    EXPECT_EQ(valuesOf(list), Integers({1, 2}));
}

TEST(KpsSerializerList, AListMayBeReadByPositionThoughItIsResizable)
{
    ChoosyList list(true, true);
    read(list, listElement(item("A", "1") + item("A", "2") + item("B", "3")));
    EXPECT_EQ(list.getItemKeys(), QStringList({"A", "A", "B"}));
    EXPECT_EQ(valuesOf(list), Integers({1, 2, 3}));
}

TEST(KpsSerializerList, AUniqueListIsReadAtOnceWithoutWhatRepeats)
{
    List l({9});
    l.list.setUnique(true);
    RecordingObserver observer(l.list);
    read(l.list, listElement(item("ITEM_1", "5") + item("ITEM_2", "5") + item("ITEM_3", "6")));
    EXPECT_EQ(l.list.getItemKeys(), QStringList({"ITEM_1", "ITEM_3"}));
    EXPECT_EQ(l.list.getValues(), Integers({5, 6}));
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(l.list), 13);
}

TEST(KpsSerializerList, AUniqueListWithRepeatedKeysKeepsEachValue)
{
    List l;
    l.list.setUnique(true);
    read(l.list, listElement(item("ITEM_1", "5") + item("ITEM_1", "6") + "<param>7</param>"));
    EXPECT_EQ(l.list.getValues(), Integers({5, 6, 7}));
}

TEST(KpsSerializerList, AUniqueListOfNumbersIsReadWithItsTolerance)
{
    KplDoubleList list("L");
    list.setUnique(true);
    read(list, listElement(item("ITEM_1", "0.5") + item("ITEM_2", "0.50000000001") + item("ITEM_3", "0.6")));
    EXPECT_EQ(list.getValues(), QList<double>({0.5, 0.6}));
}

TEST(KpsSerializerList, AUniqueListThatIsNotResizableIsReadByPosition)
{
    const RecordedMessages messages;
    List l({1, 2});
    l.list.setUnique(true);
    l.list.setResizable(false);
    read(l.list, listElement(item("A", "7") + item("B", "8")));
    EXPECT_EQ(l.list.getValues(), Integers({7, 8}));
    EXPECT_TRUE(messages.errors.isEmpty());
}

TEST(KpsSerializerList, AUniqueListReadsTheItemsOfOlderProgramsWithItsOwn)
{
    KplStringList list("L");
    list.setUnique(true);
    read(list, listElement("<param key=\"ITEM_1\"><![CDATA[a\r\nb]]></param>" + item("ITEM_2", "c")));
    EXPECT_EQ(list.getValues(), QStringList({"a\nb", "c"}));
}

TEST(KpsSerializerList, TheAutomaticModeIsReadLast)
{
    for (const bool unique : {false, true}) {
        List l({1, 2});
        l.list.setUnique(unique);
        l.list.setAutomaticEnabled(true);
        l.list.setAutoValues({7, 8, 9});
        read(l.list, "<param key=\"L\" automatic=\"yes\">" + item("ITEM_1", "5") + "</param>");
        EXPECT_TRUE(l.list.isAutomatic());
        EXPECT_EQ(l.list.getValues(), Integers({7, 8, 9}));
        read(l.list, listElement(item("ITEM_1", "5")));
        EXPECT_FALSE(l.list.isAutomatic());
        EXPECT_EQ(l.list.getValues(), Integers({5}));
    }
}

TEST(KpsSerializerList, ANewerListIsRefusedAndTheRestIsRead)
{
    const RecordedMessages messages;
    KpcGroup group("G", noProject());
    auto* list = new KplIntegerList("L");
    list->setValues({1});
    group.addChild(list);
    group.addChild(newInteger("N", 1));
    read(group, "<param key=\"G\"><param key=\"L\" version=\"2\">" + item("ITEM_1", "5") + "</param>" + item("N", "2") +
                    "</param>");
    EXPECT_EQ(list->getValues(), Integers({1}));
    EXPECT_EQ(messages.warnings, QStringList({"Cannot load parameter 'L' because version is too recent."}));
    EXPECT_EQ(dynamic_cast<KpaInteger*>(group.getChild("N"))->getValue(), 2);
}

TEST(KpsSerializerList, AVolatileOrLoadLockedListStaysAsItIs)
{
    List l({1});
    l.list.setVolatile(true);
    read(l.list, listElement(item("ITEM_1", "5") + item("ITEM_2", "6")));
    EXPECT_EQ(l.list.getValues(), Integers({1}));
    l.list.setVolatile(false);
    l.list.lockLoad();
    const QString text = listElement(item("ITEM_1", "5") + item("ITEM_2", "6"));
    read(l.list, text);
    EXPECT_EQ(l.list.getValues(), Integers({1}));
    EXPECT_EQ(elementOf(l.list), text);
}

TEST(KpsSerializerList, ListsOfGroupsAndOfListsAreReadToTheBottom)
{
    KpcGroupList list("L", noProject());
    list.getItemPrototype()->addChild(new KpaInteger("N"));
    auto* inner = new KplIntegerList("I");
    list.getItemPrototype()->addChild(inner);
    const QString text = listElement("<param key=\"ITEM_2\">" + item("N", "2") + "<param key=\"I\">" +
                                     item("ITEM_1", "5") + item("ITEM_3", "6") + "</param></param>");
    read(list, text);
    EXPECT_EQ(elementOf(list), text);
    EXPECT_EQ(dynamic_cast<KplIntegerList*>(list.getItemAt(0)->getChild("I"))->getValues(), Integers({5, 6}));
    EXPECT_TRUE(inner->isEmpty());
}

TEST(KpsSerializerList, AnObserverMayDestroyTheListWhileItIsRead)
{
    for (const bool unique : {false, true}) {
        auto* list = new KplIntegerList("L");
        list->setValues({1, 2, 3});
        list->setUnique(unique);
        class Destroyer : public RecordingObserver
        {
        public:
            Destroyer(KpbAParameter& observed, KplIntegerList*& doomed) : RecordingObserver(observed), _list(doomed) {}
            void update(const KpnModif&) override { delete std::exchange(_list, nullptr); }

        private:
            KplIntegerList*& _list;
        };
        const Destroyer destroyer(*list->getItemAt(1), list);
        read(*list, listElement(item("ITEM_1", "5") + item("ITEM_2", "6") + item("ITEM_3", "7")));
        EXPECT_EQ(list, nullptr);
    }
}

TEST(KpsSerializerList, AnObserverMayChangeTheListWhileItIsRead)
{
    List l({1, 2, 3});
    class Changer : public RecordingObserver
    {
    public:
        Changer(KpbAParameter& observed, KplIntegerList& list) : RecordingObserver(observed), _list(list) {}
        void update(const KpnModif&) override
        {
            if (_list.getItemCount() == 3)
                _list.moveItem(2, 1);
        }

    private:
        KplIntegerList& _list;
    };
    const Changer changer(*l.list.getItemAt(0), l.list);
    read(l.list, listElement(item("ITEM_1", "5") + item("ITEM_2", "6") + item("ITEM_3", "7")));
    EXPECT_EQ(l.list.getItemKeys(), QStringList({"ITEM_1", "ITEM_3", "ITEM_2"}));
    EXPECT_EQ(l.list.getValues(), Integers({5, 7, 6}));
}

TEST(KpsSerializerList, ManyItemsComeBackInAnyOrder)
{
    const int count = 1000;
    Integers values;
    for (int i = 0; i < count; ++i)
        values.append(i);
    List l(values);
    QString content;
    for (int i = 0; i < count; ++i) {
        const int id = i * 7 % count + 1;
        content += item("ITEM_" + QString::number(id), QString::number(i));
    }
    read(l.list, listElement(content));
    EXPECT_EQ(l.list.getValues(), values);
    EXPECT_EQ(l.list.getItemAt(1)->getKey(), "ITEM_8");
    EXPECT_EQ(l.list.getItemAt(999)->getLabel(), "no label #1000");
    EXPECT_EQ(elementOf(l.list), listElement(content));
}

TEST(KpsSerializerList, AFicheIsReadWithItsLists)
{
    KpcGroup from("G", noProject());
    auto* list = new KplIntegerList("L");
    from.addChild(list);
    const std::unique_ptr<KpcGroup> to(from.duplicate("G"));
    list->setValues({4, 5});
    list->removeItemAt(0);
    KpsSerializer::updateFicheFromXml(KpsSerializer::convertFicheToXml(&from), to.get());
    const auto* copy = dynamic_cast<KplIntegerList*>(to->getChild("L"));
    EXPECT_EQ(copy->getItemKeys(), QStringList({"ITEM_2"}));
    EXPECT_EQ(copy->getValues(), Integers({5}));
}
