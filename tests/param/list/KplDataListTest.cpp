#include "AtomicListTestTools.h"

#include <param/KpsSerializer.h>
#include <param/list/KplDataList.h>
#include <support/DataProject.h>
#include <support/RecordedMessages.h>

namespace {

using Flags = QList<int>;
using Idents = QList<KsoDataIdentifier>;
using Duplicates = KplDataList::Duplicates;

/// A list for variables below the file north/holes.
struct Variables
{
    Variables()
    {
        list.setFilter(AnyData::variable());
        list.setRootIdent(data.file("north", "holes"), true);
    }

    KsoDataIdentifier au(const QString& directory = "north") const
    {
        return data.variable(directory, "holes", "assays", "Au");
    }
    KsoDataIdentifier cu() const { return data.variable("north", "holes", "assays", "Cu"); }

    DataProject data;
    KplDataList list{"LIST", data};
};

} // namespace

TEST(KplDataList, IsAListOfDataIdentifiers)
{
    Variables variables;
    EXPECT_TRUE(variables.list.isA(KpbEType::LIST));
    EXPECT_EQ(variables.list.getItemType(), KpbEType::DATA_IDENT);
    EXPECT_TRUE(variables.list.isEmpty());
    EXPECT_EQ(variables.list.getDataModel(), variables.data.model);
    EXPECT_EQ(variables.list.getItemPrototype()->getKey(), "PROTOTYPE");
    EXPECT_EQ(variables.list.getItemPrototype()->getApplicationFlag(), "kriging");
}

TEST(KplDataList, StartsBelowTheRootDirectory)
{
    DataProject data;
    const KplDataList list("LIST", data);
    EXPECT_EQ(list.getRootIdent(), data.root());
    EXPECT_EQ(list.getRootType(), KsoEDataType::DIRECTORY);
    EXPECT_EQ(list.getFilter(), KsoDataFilter());
    EXPECT_TRUE(list.getParentFilters().isEmpty());
    EXPECT_FALSE(list.isRelative());
}

TEST(KplDataList, HasAListOfIdentifiersAsItsValue)
{
    Variables variables;
    KplDataList& list = variables.list;
    list.setValues({variables.au(), variables.cu()});
    EXPECT_EQ(list.getValues(), (Idents{variables.au(), variables.cu()}));
    EXPECT_TRUE(list.getValueAt(-1).isNull());
    EXPECT_TRUE(list.getValueAt(2).isNull());
    list.setValueAt(0, variables.cu());
    EXPECT_EQ(list.getValues(), (Idents{variables.cu(), variables.cu()}));
    list.setUnique(true);
    EXPECT_EQ(list.getValues(), Idents{variables.cu()});
}

TEST(KplDataList, IsCopiedWithItemsAndConfiguration)
{
    Variables variables;
    variables.list.setValues({variables.au()});
    variables.list.setRelative(true);
    const std::unique_ptr<KplDataList> copy(variables.list.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValues(), Idents{variables.au()});
    EXPECT_EQ(copy->getRootIdent(), variables.data.file("north", "holes"));
    EXPECT_TRUE(copy->isRelative());
    EXPECT_EQ(KplDataList(variables.list, QString()).getKey(), "LIST");
}

TEST(KplDataList, RepairsValuesByItsConfiguration)
{
    Variables variables;
    variables.list.setValues({variables.au(), variables.au("south")});
    EXPECT_EQ(variables.list.getValues(), (Idents{variables.au(), KsoDataIdentifier()}));
}

TEST(KplDataList, HandsEachSetterToThePrototypeAndAllItems)
{
    struct Case
    {
        const char* what;
        std::function<void(KplDataList&, const DataProject&)> change;
        std::function<bool(const KpaData&, const DataProject&)> changed;
    };
    const std::vector<Case> cases{
        {"root", [](KplDataList& list, const DataProject& data) { list.setRootIdent(data.directory("south"), false); },
         [](const KpaData& item, const DataProject& data) { return item.getRootIdent() == data.directory("south"); }},
        {"root with its level",
         [](KplDataList& list, const DataProject& data) { list.setRootIdent(data.file("south", "holes"), true); },
         [](const KpaData& item, const DataProject& data) {
             return item.getRootIdent() == data.file("south", "holes") && item.getRootType() == KsoEDataType::FILE;
         }},
        {"root type", [](KplDataList& list, const DataProject&) { list.setRootType(KsoEDataType::SUPPORT); },
         [](const KpaData& item, const DataProject&) { return item.getRootType() == KsoEDataType::SUPPORT; }},
        {"filter", [](KplDataList& list, const DataProject&) { list.setFilter(AnyData::file()); },
         [](const KpaData& item, const DataProject&) {
             return item.getFilter().getDataType() == KsoEDataType::FILE &&
                    item.getFilter().getApplicationFlags() == QStringList{"kriging"};
         }},
        {"parent filter", [](KplDataList& list, const DataProject&) { list.addParentFilter(AnyData::file()); },
         [](const KpaData& item, const DataProject&) {
             return item.getParentFilters().keys() == QList<KsoEDataType>{KsoEDataType::FILE};
         }},
        {"relative", [](KplDataList& list, const DataProject&) { list.setRelative(true); },
         [](const KpaData& item, const DataProject&) { return item.isRelative(); }},
    };
    for (const Case& each : cases) {
        DataProject data;
        KplDataList list("LIST", data);
        list.setItemCount(2);
        RecordingObserver observer(list);
        each.change(list, data);
        EXPECT_EQ(observer.records.count(), 1) << each.what;
        EXPECT_TRUE(each.changed(*list.getItemPrototype(), data)) << each.what;
        EXPECT_TRUE(each.changed(*list.getItemAt(0), data)) << each.what;
        EXPECT_TRUE(each.changed(*list.getItemAt(1), data)) << each.what;
        EXPECT_TRUE(each.changed(*list.addItem(), data)) << each.what;
    }
}

TEST(KplDataList, TellsNothingWhereASetterChangesNothing)
{
    Variables variables;
    variables.list.setItemCount(1);
    RecordingObserver observer(variables.list);
    variables.list.setRootIdent(variables.data.file("north", "holes"), true);
    variables.list.setRootType(KsoEDataType::FILE);
    variables.list.setFilter(AnyData::variable());
    variables.list.setRelative(false);
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KplDataList, ReadsItsConfigurationFromThePrototype)
{
    Variables variables;
    variables.list.addItem()->setRelative(true);
    variables.list.getItemAt(0)->setRootType(KsoEDataType::SUPPORT);
    variables.list.getItemAt(0)->setFilter(AnyData::file());
    EXPECT_FALSE(variables.list.isRelative());
    EXPECT_EQ(variables.list.getRootType(), KsoEDataType::FILE);
    EXPECT_EQ(variables.list.getRootIdent(), variables.data.file("north", "holes"));
    EXPECT_EQ(variables.list.getFilter().getDataType(), KsoEDataType::VARIABLE);
}

TEST(KplDataList, LetsItsValuesFollowTheRoot)
{
    Variables variables;
    variables.list.setValues({variables.au(), variables.cu()});
    RecordingObserver observer(variables.list);
    variables.list.setRootIdent(variables.data.file("south", "holes"), false);
    EXPECT_EQ(variables.list.getValues(), (Idents{variables.au("south"), KsoDataIdentifier()}));
    ASSERT_EQ(observer.records.count(), 1);
    EXPECT_EQ(observer.flagsOf(*variables.list.getItemAt(0)), Kp::NotifyConfig | Kp::NotifyValue);
    EXPECT_EQ(observer.flagsOf(*variables.list.getItemAt(1)), Kp::NotifyConfig | Kp::NotifyValue);
}

TEST(KplDataList, TakesARootThatIsItsOwn)
{
    Variables variables;
    variables.list.setItemCount(1);
    variables.list.getItemAt(0)->setRootIdent(variables.data.file("south", "holes"), true);
    variables.list.setRootIdent(variables.list.getItemAt(0)->getRootIdent(), true);
    EXPECT_EQ(variables.list.getRootIdent(), variables.data.file("south", "holes"));
}

TEST(KplDataList, KeepsValuesUniqueWhenTheRootMakesThemAlike)
{
    Variables variables;
    variables.data.createVariables(variables.data.support("south", "holes", "assays").getSupport(), {"Cu"});
    variables.list.setRootIdent(variables.data.root(), true);
    variables.list.setUnique(true);
    variables.list.setValues({variables.au(), variables.au("south")});
    variables.list.setRootIdent(variables.data.file("south", "holes"), true);
    EXPECT_EQ(variables.list.getValues(), Idents{variables.au("south")});
}

TEST(KplDataList, GivesItsIdentifiersWithAndWithoutRepetitions)
{
    Variables variables;
    const KsoDataIdentifier null;
    variables.list.setValues({variables.au(), null, variables.cu(), variables.au(), null});
    EXPECT_EQ(variables.list.getDataIdents(Duplicates::Keep), (Idents{variables.au(), variables.cu(), variables.au()}));
    EXPECT_EQ(variables.list.getDataIdents(Duplicates::Drop), (Idents{variables.au(), variables.cu()}));
    EXPECT_EQ(variables.list.getDataIdents(Duplicates(0)).count(), 3);
    EXPECT_EQ(variables.list.getDataIdents(Duplicates(7)).count(), 2);
}

TEST(KplDataList, FindsTheRankOfAName)
{
    Variables variables;
    variables.list.setValues({KsoDataIdentifier(), variables.au(), variables.cu(), variables.au()});
    EXPECT_EQ(variables.list.getDataIndex("Au"), 1);
    EXPECT_EQ(variables.list.getDataIndex("Cu"), 2);
    EXPECT_EQ(variables.list.getDataIndex("Ag"), -1);
    EXPECT_EQ(variables.list.getDataIndex(QString()), -1);
}

TEST(KplDataList, GivesTheDataItemOfARank)
{
    Variables variables;
    variables.list.setValues({variables.au(), KsoDataIdentifier()});
    EXPECT_EQ(variables.list.getDataItem(0), variables.au().getDataItem());
    EXPECT_NE(variables.list.getDataItem(0), nullptr);
    EXPECT_EQ(variables.list.getDataItem(1), nullptr);
    EXPECT_EQ(variables.list.getDataItem(-1), nullptr);
    EXPECT_EQ(variables.list.getDataItem(2), nullptr);
}

TEST(KplDataList, RemovesItemsWithoutADataItemInOneRecord)
{
    Variables variables;
    const KsoDataIdentifier null;
    variables.list.setValues({null, variables.au(), null, variables.cu(), null});
    const Flags flags = listFlagsOf(variables.list, [&] { variables.list.compressEmptyItems(); });
    EXPECT_EQ(flags, Flags{Kp::NotifyValue | Kp::NotifyChildren | Kp::NotifyItem});
    EXPECT_EQ(variables.list.getValues(), (Idents{variables.au(), variables.cu()}));
    EXPECT_EQ(variables.list.getItemKeys(), itemKeys({2, 4}));
    EXPECT_EQ(listFlagsOf(variables.list, [&] { variables.list.compressEmptyItems(); }), Flags());
}

TEST(KplDataList, RemovesItemsWhoseDataItemIsGone)
{
    Variables variables;
    variables.list.setValues({variables.au(), variables.cu()});
    variables.data.model->remove(variables.au().getDataItem());
    EXPECT_EQ(variables.list.getItemCount(), 2);
    variables.list.compressEmptyItems();
    EXPECT_EQ(variables.list.getValues(), Idents{variables.cu()});
}

TEST(KplDataList, TellsWhatHappensToTheItemsOfItsValues)
{
    Variables variables;
    variables.list.setValues({variables.au(), variables.cu()});
    RecordingObserver observer(variables.list);
    variables.data.model->remove(variables.cu().getDataItem());
    ASSERT_EQ(observer.records.count(), 1);
    EXPECT_EQ(observer.flagsOf(*variables.list.getItemAt(0)), 0);
    EXPECT_EQ(observer.flagsOf(*variables.list.getItemAt(1)), int(Kp::NotifyItem));
}

TEST(KplDataList, KeepsItsAutomaticValuesInTheListOrInTheItems)
{
    Variables variables;
    variables.list.setAutoValues({variables.cu(), variables.au()});
    variables.list.setAutomatic(true);
    EXPECT_EQ(variables.list.getValues(), (Idents{variables.cu(), variables.au()}));
    EXPECT_TRUE(variables.list.isAutomatic());
    variables.list.setValues({variables.au()});
    EXPECT_FALSE(variables.list.isAutomatic());
    variables.list.setAutoValueAt(0, variables.cu());
    EXPECT_EQ(variables.list.getAutoValues(), Idents{variables.cu()});
}

TEST(KplDataList, IsStoredRelativeAndReadBelowAnotherRoot)
{
    Variables variables;
    variables.list.setRelative(true);
    variables.list.setValues({variables.au(), variables.au()});
    QDomElement element = KpsSerializer::convertParamToXml(&variables.list);
    KplDataList read("LIST", variables.data);
    read.setFilter(AnyData::variable());
    read.setRelative(true);
    read.setRootIdent(variables.data.file("south", "holes"), true);
    KpsSerializer::updateParamFromXml(&read, element);
    EXPECT_EQ(read.getValues(), (Idents{variables.au("south"), variables.au("south")}));
}

TEST(KplDataList, StaysWholeWhereARelativeFormCannotBeReadBelowItsRoot)
{
    for (const bool unique : {false, true}) {
        Variables variables;
        variables.list.setUnique(unique);
        variables.list.setRelative(true);
        variables.list.setValues({variables.au(), variables.cu()});
        QDomElement element = KpsSerializer::convertParamToXml(&variables.list);
        variables.list.setRootIdent(variables.au(), true);
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { KpsSerializer::updateParamFromXml(&variables.list, element); }),
                  "Unexpected root data type (%d) when unserializing relative KpaData.");
        EXPECT_TRUE(variables.list.getDataIdents(Duplicates::Keep).contains(variables.au()));
        variables.list.setValues({variables.au()});
        EXPECT_EQ(variables.list.getValues(), Idents{variables.au()});
    }
}

TEST(KplDataList, OutlivesItsProject)
{
    Variables variables;
    variables.list.setValues({variables.au(), variables.cu()});
    variables.data.project.reset();
    EXPECT_EQ(variables.list.getDataModel(), nullptr);
    EXPECT_EQ(variables.list.getDataIdents(Duplicates::Drop).count(), 2);
    EXPECT_EQ(variables.list.getDataIndex("Cu"), 1);
    EXPECT_EQ(variables.list.getDataItem(0), nullptr);
    const KplDataList copy(variables.list, "COPY");
    EXPECT_EQ(copy.getValues(), variables.list.getValues());
    variables.list.compressEmptyItems();
    EXPECT_TRUE(variables.list.isEmpty());
}

TEST(KplDataList, RemovesManyEmptyItemsInTimeInProportionToTheirNumber)
{
    Variables variables;
    variables.list.setItemCount(3000);
    variables.list.setValueAt(2999, variables.au());
    variables.list.compressEmptyItems();
    EXPECT_EQ(variables.list.getValues(), Idents{variables.au()});
    EXPECT_EQ(variables.list.getItemAt(0)->getLabel(), variables.list.getItemPrototype()->getLabel() + " #1");
}
