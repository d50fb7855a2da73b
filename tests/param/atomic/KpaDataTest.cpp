#include "../composite/CompositeTestTools.h"

#include <param/KpsSerializer.h>
#include <param/atomic/KpaData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KssUrlHelper.h>
#include <support/DataProject.h>
#include <support/GarbageTexts.h>
#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>

#include <functional>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaDataConfig, KsoDataIdentifier>);

namespace {

using Flags = QList<int>;
using Map = MbbOrderedMap<QString, QString>;

constexpr int value = Kp::NotifyValue;
constexpr int config = Kp::NotifyConfig;
constexpr int item = Kp::NotifyItem;

/// A context without a project.
struct Nowhere : KstATransactableDefault
{};

/// A data parameter below the root directory of a project, and what it tells.
struct Watched
{
    Watched() { parameter.addObserver(&observer); }

    Flags takeFlags()
    {
        const Flags flags = observer.allFlags();
        observer.records.clear();
        return flags;
    }
    template <class Change>
    Flags flagsOf(Change change)
    {
        takeFlags();
        change(parameter);
        return takeFlags();
    }
    KsoDataIdentifier au(const QString& directory = "north", const QString& file = "holes",
                         const QString& support = "assays") const
    {
        return data.variable(directory, file, support, "Au");
    }
    KsoADataItem* itemOf(const KsoDataIdentifier& ident) const { return ident.getDataItem(); }

    DataProject data;
    RecordingObserver observer;
    KpaData parameter{"KEY", data};
};

/// The same with a macro variable "sim" beside the variables of north/holes/assays and north/blocks/cells.
struct WithMacros : Watched
{
    WithMacros()
    {
        for (const KsoDataIdentifier& ident : {data.support("north", "holes", "assays"), cells})
            data.model->createMacroVariable(ident.getSupport(), "sim", MbdVariableDetails(), 2);
        KsoDataFilter filter = AnyData::variable();
        filter.setMacroVariableAccepted(true);
        parameter.setFilter(filter);
    }
    KsoDataIdentifier sim(const QString& file, const QString& support) const
    {
        return KsoDataIdentifier::macroVariable(data.model, {"north"}, file, support, "sim");
    }

    const KsoDataIdentifier cells = data.support("north", "blocks", "cells");
    const KsoDataIdentifier ofHoles = sim("holes", "assays");
    const KsoDataIdentifier ofCells = sim("blocks", "cells");
};

/// A parameter for variables below the root `file`, relative to it.
struct Relative : Watched
{
    explicit Relative(const KsoDataIdentifier& root) : Relative() { setRoot(root); }
    Relative()
    {
        parameter.setFilter(AnyData::variable());
        parameter.setRelative(true);
    }
    void setRoot(const KsoDataIdentifier& root) { parameter.setRootIdent(root, true); }
};

} // namespace

TEST(KpaData, IsOfTheKindDataIdentifier)
{
    Watched watched;
    EXPECT_EQ(watched.parameter.getType(), KpbEType::DATA_IDENT);
    EXPECT_EQ(KpaDataConfig().getType(), KpbEType::DATA_IDENT);
    EXPECT_FALSE(watched.parameter.hasChildren());
}

TEST(KpaData, StartsWithANullIdentifierBelowTheRootDirectory)
{
    Watched watched;
    const KpaData& parameter = watched.parameter;
    EXPECT_TRUE(parameter.getValue().isNull());
    EXPECT_TRUE(parameter.getAutoValue().isNull());
    EXPECT_EQ(parameter.getDataItem(), nullptr);
    EXPECT_EQ(parameter.getRootType(), KsoEDataType::DIRECTORY);
    EXPECT_EQ(parameter.getRootIdent(), watched.data.root());
    EXPECT_EQ(parameter.getDataModel(), watched.data.model);
    EXPECT_EQ(parameter.getProject(), watched.data.getProject());
    EXPECT_EQ(parameter.getFilter(), KsoDataFilter());
    EXPECT_TRUE(parameter.getParentFilters().isEmpty());
    EXPECT_FALSE(parameter.isRelative());
}

TEST(KpaData, HasTheApplicationOfItsContext)
{
    EXPECT_EQ(Watched().parameter.getApplicationFlag(), "kriging");
    EXPECT_EQ(KpaData("KEY", Nowhere()).getApplicationFlag(), "");
}

TEST(KpaData, HasNeitherModelNorRootWithoutAProject)
{
    KpaData parameter("KEY", Nowhere());
    EXPECT_EQ(parameter.getProject(), nullptr);
    EXPECT_EQ(parameter.getDataModel(), nullptr);
    EXPECT_TRUE(parameter.getRootIdent().isNull());
    parameter.setValue(DataProject().file("north", "holes"));
    EXPECT_TRUE(parameter.getValue().isNull());
    parameter.setRootIdent(DataProject().root(), true);
    EXPECT_TRUE(parameter.getRootIdent().isNull());
    parameter.unserialize({{"path", "north"}, {"file", "holes"}});
    EXPECT_TRUE(parameter.getValue().isNull());
    parameter.unserialize({{"url", "?path=north&file=holes#data"}});
    EXPECT_TRUE(parameter.getValue().isNull());
    EXPECT_TRUE(parameter.serialize().isEmpty());
    EXPECT_EQ(parameter.toString(), "");
}

TEST(KpaData, IsCopiedWithValueConfigProjectAndApplication)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::file());
    watched.parameter.setRootIdent(watched.data.directory("north"), false);
    watched.parameter.setValue(watched.data.file("north", "holes"));
    const std::unique_ptr<KpaData> copy(watched.parameter.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValue(), watched.data.file("north", "holes"));
    EXPECT_TRUE(copy->getConfig() == watched.parameter.getConfig());
    EXPECT_EQ(copy->getProject(), watched.data.getProject());
    EXPECT_EQ(copy->getApplicationFlag(), "kriging");
    EXPECT_EQ(KpaData(watched.parameter, QString()).getKey(), "KEY");
}

TEST(KpaData, HearsOfItsItemAsACopyToo)
{
    Watched watched;
    watched.parameter.setValue(watched.data.file("north", "holes"));
    const KpaData copy(watched.parameter, "COPY");
    RecordingObserver observer(copy);
    watched.data.model->remove(watched.itemOf(copy.getValue()));
    EXPECT_EQ(observer.allFlags(), Flags{item});
}

TEST(KpaDataConfig, ComparesAllFields)
{
    DataProject data;
    KpaDataConfig plain;
    EXPECT_TRUE(plain == KpaDataConfig());
    plain.updateProject(data.getProject());

    struct Case
    {
        const char* field;
        std::function<void(KpaDataConfig&)> change;
    };
    const std::vector<Case> cases{
        {"model", [](KpaDataConfig& c) { c = KpaDataConfig(); }},
        {"filter", [](KpaDataConfig& c) { c.setFilter(AnyData::file()); }},
        {"parent filters", [](KpaDataConfig& c) { c.addParentFilter(AnyData::file()); }},
        {"root type", [](KpaDataConfig& c) { c.setRootType(KsoEDataType::FILE); }},
        {"root", [&](KpaDataConfig& c) { c.setRootIdent(data.directory("north"), false); }},
        {"relative", [](KpaDataConfig& c) { c.setRelative(true); }},
    };
    for (const Case& each : cases) {
        KpaDataConfig changed = plain;
        EXPECT_TRUE(changed == plain);
        each.change(changed);
        EXPECT_TRUE(changed != plain) << each.field;
    }
}

TEST(KpaDataConfig, TellsWhetherASetterChangedSomething)
{
    DataProject data;
    KpaDataConfig config;
    EXPECT_FALSE(config.updateProject(nullptr));
    EXPECT_TRUE(config.updateProject(data.getProject()));
    EXPECT_FALSE(config.updateProject(data.getProject()));
    EXPECT_TRUE(config.setFilter(AnyData::file()));
    EXPECT_FALSE(config.setFilter(AnyData::file()));
    EXPECT_TRUE(config.addParentFilter(AnyData::file()));
    EXPECT_FALSE(config.addParentFilter(AnyData::file()));
    EXPECT_TRUE(config.addParentFilter(AnyData::file(MbdEIo::OUTPUT)));
    EXPECT_TRUE(config.addParentFilter(AnyData::support()));
    EXPECT_TRUE(config.setRootIdent(data.directory("north"), false));
    EXPECT_FALSE(config.setRootIdent(data.directory("north"), false));
    EXPECT_FALSE(config.setRootType(KsoEDataType::DIRECTORY));
    EXPECT_TRUE(config.setRootType(KsoEDataType::FILE));
    EXPECT_FALSE(config.setRelative(false));
    EXPECT_TRUE(config.setRelative(true));
}

TEST(KpaDataConfig, LosesTheRootWithTheProject)
{
    DataProject data;
    KpaDataConfig config;
    config.updateProject(data.getProject());
    EXPECT_EQ(config.getRootIdent(), data.root());
    EXPECT_TRUE(config.updateProject(nullptr));
    EXPECT_TRUE(config.getRootIdent().isNull());
    EXPECT_EQ(config.getDataModel(), nullptr);
}

TEST(KpaDataConfig, BringsADirectoryRootAndNoOtherIntoAnotherProject)
{
    DataProject former;
    DataProject data;
    KpaDataConfig config;
    config.updateProject(former.getProject());
    config.setRootIdent(former.directory("north"), false);
    EXPECT_TRUE(config.updateProject(data.getProject()));
    EXPECT_EQ(config.getRootIdent(), data.root());

    config.setRootIdent(data.file("north", "holes"), true);
    EXPECT_TRUE(config.updateProject(former.getProject()));
    EXPECT_TRUE(config.getRootIdent().isNull());
    EXPECT_EQ(config.getRootType(), KsoEDataType::FILE);
}

TEST(KpaData, KeepsANullValue)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::file());
    watched.parameter.setValue(watched.data.file("north", "holes"));
    EXPECT_EQ(watched.flagsOf([](KpaData& p) { p.setValue(KsoDataIdentifier()); }), Flags{value});
    EXPECT_TRUE(watched.parameter.getValue().isNull());
}

TEST(KpaData, RefusesEveryValueButNullWithoutARoot)
{
    Watched watched;
    watched.parameter.setRootType(KsoEDataType::FILE);
    EXPECT_TRUE(watched.parameter.getRootIdent().isNull());
    const auto set = [&](KpaData& p) { p.setValue(watched.data.file("north", "holes")); };
    EXPECT_EQ(watched.flagsOf(set), Flags{value});
    EXPECT_TRUE(watched.parameter.getValue().isNull());
    EXPECT_EQ(watched.flagsOf([](KpaData& p) { p.setValue(KsoDataIdentifier()); }), Flags());
}

TEST(KpaData, RefusesAnIdentifierOfAnotherProject)
{
    Watched watched;
    DataProject another;
    watched.parameter.setValue(watched.data.file("north", "holes"));
    watched.parameter.setValue(another.file("south", "holes"));
    EXPECT_EQ(watched.parameter.getValue(), watched.data.file("north", "holes"));
}

TEST(KpaData, WalksUpToTheLevelThatTheFilterAsksFor)
{
    Watched watched;
    watched.parameter.setValue(watched.au());
    EXPECT_EQ(watched.parameter.getValue(), watched.au());
    watched.parameter.setFilter(AnyData::file());
    EXPECT_EQ(watched.parameter.getValue(), watched.data.file("north", "holes"));
    watched.parameter.setFilter(AnyData::support());
    watched.parameter.setValue(watched.au("north", "blocks", "cells"));
    EXPECT_EQ(watched.parameter.getValue(), watched.data.support("north", "blocks", "cells"));
    watched.parameter.setFilter(KsoDataFilter::directory(MbdEIo::INPUT));
    watched.parameter.setValue(watched.au("south"));
    EXPECT_EQ(watched.parameter.getValue(), watched.data.directory("south"));
}

TEST(KpaData, WalksUpToTheFileOfARootOnlyWhereTheFilterAsksForFiles)
{
    Watched watched;
    watched.parameter.setRootIdent(watched.data.file("north", "holes"), true);
    watched.parameter.setFilter(AnyData::variable());
    watched.parameter.setValue(watched.au());
    EXPECT_EQ(watched.parameter.getValue(), watched.au());
    watched.parameter.setFilter(AnyData::file());
    watched.parameter.setValue(watched.au());
    EXPECT_EQ(watched.parameter.getValue(), watched.data.file("north", "holes"));
}

TEST(KpaData, RefusesWhatLiesAboveTheLevelOfItsFilter)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::variable());
    watched.parameter.setValue(watched.au());
    for (const KsoDataIdentifier& above : {watched.data.support("north", "holes", "assays"),
                                           watched.data.file("north", "holes"), watched.data.directory("north")})
    {
        watched.parameter.setValue(above);
        EXPECT_EQ(watched.parameter.getValue(), watched.au()) << above.toString().toStdString();
    }
}

TEST(KpaData, RefusesWhatItsFilterRefuses)
{
    Watched watched;
    watched.parameter.setFilter(
        KsoDataFilter::file(MbdEIo::INPUT, MbgGeometrySetFlags{MbgEGeometrySet::GRID}, MbgDimensionFlags::ANY));
    watched.parameter.setValue(watched.data.file("north", "holes"));
    EXPECT_TRUE(watched.parameter.getValue().isNull());
    watched.parameter.setValue(watched.data.file("north", "blocks"));
    EXPECT_EQ(watched.parameter.getValue(), watched.data.file("north", "blocks"));
}

TEST(KpaData, RefusesWhatIsNotBelowItsRoot)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::file());
    watched.parameter.setRootIdent(watched.data.directory("north"), false);
    watched.parameter.setValue(watched.data.file("south", "holes"));
    EXPECT_TRUE(watched.parameter.getValue().isNull());
    watched.parameter.setValue(watched.data.file("north", "holes"));
    EXPECT_EQ(watched.parameter.getValue(), watched.data.file("north", "holes"));
}

TEST(KpaData, AcceptsItsRoot)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::file());
    watched.parameter.setRootIdent(watched.data.file("north", "holes"), true);
    watched.parameter.setValue(watched.data.file("north", "holes"));
    EXPECT_EQ(watched.parameter.getValue(), watched.data.file("north", "holes"));
}

TEST(KpaData, AcceptsTheRootDirectory)
{
    Watched watched;
    watched.parameter.setFilter(KsoDataFilter::directory(MbdEIo::INPUT));
    watched.parameter.setValue(watched.data.root());
    EXPECT_EQ(watched.parameter.getValue(), watched.data.root());
}

TEST(KpaData, AcceptsANameWithoutAnItemOnlyWhereTheFilterAcceptsNewOnes)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::file(MbdEIo::INPUT));
    watched.parameter.setValue(watched.data.file("north", "missing"));
    EXPECT_TRUE(watched.parameter.getValue().isNull());
    watched.parameter.setFilter(AnyData::file(MbdEIo::OUTPUT));
    watched.parameter.setValue(watched.data.file("north", "missing"));
    EXPECT_EQ(watched.parameter.getValue(), watched.data.file("north", "missing"));
    EXPECT_EQ(watched.parameter.getDataItem(), nullptr);
    watched.parameter.setValue(watched.data.file("nowhere", "missing"));
    EXPECT_EQ(watched.parameter.getValue(), watched.data.file("nowhere", "missing"));
}

TEST(KpaData, TakesTheSingleSupportOfAFileWhereASupportIsAskedFor)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::support());
    watched.parameter.setValue(watched.data.file("north", "holes"));
    EXPECT_EQ(watched.parameter.getValue(), watched.data.support("north", "holes", "assays"));
}

TEST(KpaData, RefusesAFileThatDoesNotStandForASupport)
{
    Watched watched;
    watched.parameter.setFilter(
        KsoDataFilter::support(MbdEIo::INPUT, MbgGeometrySetFlags::ANY, MbgDimensionFlags::ONLY_3D));
    watched.parameter.setValue(watched.data.support("south", "holes", "assays"));
    for (const KsoDataIdentifier& file : {watched.data.file("north", "blocks"),  // several supports
                                          watched.data.file("south", "lonely"),  // its support is refused
                                          watched.data.file("south", "missing"), // no file
                                          watched.data.directory("south")})
    {
        watched.parameter.setValue(file);
        EXPECT_EQ(watched.parameter.getValue(), watched.data.support("south", "holes", "assays"))
            << file.toString().toStdString();
    }
}

TEST(KpaData, RefusesTheSingleSupportOfAFileOutsideTheRoot)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::support());
    watched.parameter.setRootIdent(watched.data.directory("south"), false);
    watched.parameter.setValue(watched.data.file("north", "holes"));
    EXPECT_TRUE(watched.parameter.getValue().isNull());
}

TEST(KpaData, AsksAllAncestorsForTheFiltersOfTheirLevels)
{
    Watched watched;
    const MbgGeometrySetFlags grid{MbgEGeometrySet::GRID};
    watched.parameter.setFilter(AnyData::variable());
    watched.parameter.addParentFilter(KsoDataFilter::file(MbdEIo::INPUT, grid, MbgDimensionFlags::ANY));
    watched.parameter.setValue(watched.au());
    EXPECT_TRUE(watched.parameter.getValue().isNull());
    watched.parameter.setValue(watched.au("north", "blocks", "cells"));
    EXPECT_EQ(watched.parameter.getValue(), watched.au("north", "blocks", "cells"));

    watched.parameter.addParentFilter(KsoDataFilter::support(MbdEIo::INPUT, grid, MbgDimensionFlags::ANY, {"nodes"}));
    EXPECT_TRUE(watched.parameter.getValue().isNull());
    watched.parameter.setValue(watched.au("north", "blocks", "nodes"));
    EXPECT_EQ(watched.parameter.getValue(), watched.au("north", "blocks", "nodes"));
}

TEST(KpaData, AsksNothingOfAncestorsWhereTheParentIsYetToBeMade)
{
    Watched watched;
    const MbgGeometrySetFlags grid{MbgEGeometrySet::GRID};
    watched.parameter.setFilter(AnyData::variable(MbdEIo::OUTPUT));
    watched.parameter.addParentFilter(KsoDataFilter::file(MbdEIo::INPUT, grid, MbgDimensionFlags::ANY));
    watched.parameter.setValue(watched.au("north", "holes", "missing"));
    EXPECT_EQ(watched.parameter.getValue(), watched.au("north", "holes", "missing"));
    watched.parameter.setValue(watched.data.variable("north", "holes", "assays", "new"));
    EXPECT_EQ(watched.parameter.getValue(), watched.au("north", "holes", "missing"));
}

TEST(KpaData, AsksNothingOfTheValueItselfInFiltersOfAncestors)
{
    Watched watched;
    const MbgGeometrySetFlags grid{MbgEGeometrySet::GRID};
    watched.parameter.setFilter(AnyData::file());
    watched.parameter.addParentFilter(KsoDataFilter::file(MbdEIo::INPUT, grid, MbgDimensionFlags::ANY));
    watched.parameter.setValue(watched.data.file("north", "holes"));
    EXPECT_EQ(watched.parameter.getValue(), watched.data.file("north", "holes"));
}

TEST(KpaData, TiesFiltersToItsApplication)
{
    Watched watched;
    KsoDataFilter filter = AnyData::variable();
    filter.setApplicationFlags({"drawing", "modelling"});
    watched.parameter.setFilter(filter);
    EXPECT_EQ(watched.parameter.getFilter().getApplicationFlags(), QStringList{"kriging"});
    watched.parameter.addParentFilter(AnyData::file());
    EXPECT_EQ(watched.parameter.getParentFilter(KsoEDataType::FILE).getApplicationFlags(), QStringList{"kriging"});

    watched.data.model->setApplicationFlags(watched.itemOf(watched.au()), {"drawing"});
    watched.parameter.setValue(watched.au());
    EXPECT_TRUE(watched.parameter.getValue().isNull());
    watched.data.model->setApplicationFlags(watched.itemOf(watched.au()), {"drawing", "kriging"});
    watched.parameter.setValue(watched.au());
    EXPECT_EQ(watched.parameter.getValue(), watched.au());
}

TEST(KpaData, TellsANewFilterOnceAndRepairsTheValue)
{
    Watched watched;
    EXPECT_EQ(watched.flagsOf([](KpaData& p) { p.setFilter(AnyData::variable()); }), Flags{config});
    EXPECT_EQ(watched.flagsOf([](KpaData& p) { p.setFilter(AnyData::variable()); }), Flags());
    watched.parameter.setValue(watched.au());
    EXPECT_EQ(watched.flagsOf([](KpaData& p) { p.setFilter(AnyData::file()); }), Flags{config | value});
    EXPECT_EQ(watched.parameter.getValue(), watched.data.file("north", "holes"));
}

TEST(KpaData, TellsANewParentFilterOnce)
{
    Watched watched;
    EXPECT_EQ(watched.flagsOf([](KpaData& p) { p.addParentFilter(AnyData::file()); }), Flags{config});
    EXPECT_EQ(watched.flagsOf([](KpaData& p) { p.addParentFilter(AnyData::file()); }), Flags());
    EXPECT_EQ(watched.parameter.getParentFilters().keys(), QList<KsoEDataType>{KsoEDataType::FILE});
    EXPECT_EQ(watched.parameter.getParentFilter(KsoEDataType::SUPPORT), KsoDataFilter());
    watched.flagsOf([](KpaData& p) { p.addParentFilter(AnyData::file(MbdEIo::OUTPUT)); });
    EXPECT_EQ(watched.parameter.getParentFilters().count(), 1);
    EXPECT_EQ(watched.parameter.getParentFilter(KsoEDataType::FILE).getIo(), MbdEIo::OUTPUT);
}

TEST(KpaData, BringsTheRootToTheLevelOfRoots)
{
    DataProject data;
    const KsoDataIdentifier au = data.variable("north", "holes", "assays", "Au");
    struct Case
    {
        KsoEDataType type;
        KsoDataIdentifier ident;
        KsoDataIdentifier root;
    };
    const std::vector<Case> cases{
        {KsoEDataType::DIRECTORY, data.directory("north"), data.directory("north")},
        {KsoEDataType::DIRECTORY, au, data.directory("north")},
        {KsoEDataType::DIRECTORY, KsoDataIdentifier(), data.root()},
        {KsoEDataType::FILE, au, data.file("north", "holes")},
        {KsoEDataType::FILE, data.file("north", "holes"), data.file("north", "holes")},
        {KsoEDataType::FILE, data.directory("north"), KsoDataIdentifier()},
        {KsoEDataType::FILE, data.root(), KsoDataIdentifier()},
        {KsoEDataType::FILE, KsoDataIdentifier(), KsoDataIdentifier()},
        {KsoEDataType::SUPPORT, au, data.support("north", "holes", "assays")},
        {KsoEDataType::SUPPORT, data.file("north", "holes"), KsoDataIdentifier()},
        {KsoEDataType::VARIABLE, au, au},
    };
    for (const Case& each : cases) {
        KpaData parameter("KEY", data);
        parameter.setRootType(each.type);
        parameter.setRootIdent(each.ident, false);
        EXPECT_EQ(parameter.getRootIdent(), each.root)
            << each.type.getKey().toStdString() << ' ' << each.ident.toString().toStdString();
        EXPECT_EQ(parameter.getRootType(), each.type);
    }
}

TEST(KpaData, TakesTheLevelOfRootsFromTheRootIfAsked)
{
    Watched watched;
    watched.parameter.setRootIdent(watched.data.file("north", "holes"), true);
    EXPECT_EQ(watched.parameter.getRootType(), KsoEDataType::FILE);
    EXPECT_EQ(watched.parameter.getRootIdent(), watched.data.file("north", "holes"));
    watched.parameter.setRootIdent(KsoDataIdentifier(), true);
    EXPECT_EQ(watched.parameter.getRootType(), KsoEDataType::FILE);
    EXPECT_TRUE(watched.parameter.getRootIdent().isNull());
}

TEST(KpaData, TakesTheLevelOfARootThatItCannotHaveWithoutTellingIt)
{
    Watched watched;
    DataProject another;
    watched.parameter.setRootType(KsoEDataType::FILE);
    const auto set = [&](KpaData& p) { p.setRootIdent(another.support("north", "holes", "assays"), true); };
    EXPECT_EQ(watched.flagsOf(set), Flags());
    EXPECT_TRUE(watched.parameter.getRootIdent().isNull());
    EXPECT_EQ(watched.parameter.getRootType(), KsoEDataType::SUPPORT);
}

TEST(KpaData, TakesTheRootDirectoryForARootOfAnotherProject)
{
    Watched watched;
    DataProject another;
    watched.parameter.setRootIdent(watched.data.directory("north"), false);
    watched.parameter.setRootIdent(another.directory("south"), false);
    EXPECT_EQ(watched.parameter.getRootIdent(), watched.data.root());
    watched.parameter.setRootIdent(watched.data.file("north", "holes"), true);
    watched.parameter.setRootIdent(another.file("north", "holes"), false);
    EXPECT_TRUE(watched.parameter.getRootIdent().isNull());
}

TEST(KpaData, BringsTheRootUpWithItsLevel)
{
    Watched watched;
    watched.parameter.setRootIdent(watched.data.support("north", "holes", "assays"), true);
    EXPECT_EQ(watched.flagsOf([](KpaData& p) { p.setRootType(KsoEDataType::FILE); }), Flags{config});
    EXPECT_EQ(watched.parameter.getRootIdent(), watched.data.file("north", "holes"));
    EXPECT_EQ(watched.flagsOf([](KpaData& p) { p.setRootType(KsoEDataType::FILE); }), Flags());
    watched.parameter.setRootType(KsoEDataType::SUPPORT);
    EXPECT_TRUE(watched.parameter.getRootIdent().isNull());
    watched.parameter.setRootType(KsoEDataType::DIRECTORY);
    EXPECT_EQ(watched.parameter.getRootIdent(), watched.data.root());
}

TEST(KpaData, TellsNothingWhereTheRootStays)
{
    Watched watched;
    watched.parameter.setRootIdent(watched.data.directory("north"), false);
    const auto same = [&](KpaData& p) { p.setRootIdent(watched.data.file("north", "holes"), false); };
    EXPECT_EQ(watched.flagsOf(same), Flags());
    const auto another = [&](KpaData& p) { p.setRootIdent(watched.data.directory("south"), false); };
    EXPECT_EQ(watched.flagsOf(another), Flags{config});
}

TEST(KpaData, KeepsThePlaceOfItsValueBelowANewRootInOneRecord)
{
    Relative relative;
    relative.setRoot(relative.data.file("north", "holes"));
    relative.parameter.setValue(relative.au());
    const auto move = [&](KpaData& p) { p.setRootIdent(relative.data.file("south", "holes"), false); };
    EXPECT_EQ(relative.flagsOf(move), Flags{config | value});
    EXPECT_EQ(relative.parameter.getValue(), relative.au("south"));
}

TEST(KpaData, FindsItsPlaceInTheSingleSupportOfTheNewRoot)
{
    Relative relative(DataProject().root());
    relative.setRoot(relative.data.file("north", "holes"));
    relative.parameter.setValue(relative.au());
    relative.parameter.setRootIdent(relative.data.file("south", "lonely"), false);
    EXPECT_EQ(relative.parameter.getValue(), relative.au("south", "lonely", "composites"));
}

TEST(KpaData, FallsBackToNullWhereItsPlaceIsEmptyBelowTheNewRoot)
{
    Relative relative;
    relative.setRoot(relative.data.file("north", "holes"));
    relative.parameter.setValue(relative.data.variable("north", "holes", "assays", "Cu"));
    const auto move = [&](KpaData& p) { p.setRootIdent(relative.data.file("south", "holes"), false); };
    EXPECT_EQ(relative.flagsOf(move), Flags{config | value});
    EXPECT_TRUE(relative.parameter.getValue().isNull());
}

TEST(KpaData, LosesItsValueWithTheRoot)
{
    Relative relative;
    relative.setRoot(relative.data.file("north", "holes"));
    relative.parameter.setValue(relative.au());
    EXPECT_EQ(relative.flagsOf([](KpaData& p) { p.setRootIdent(KsoDataIdentifier(), false); }), Flags{config | value});
    EXPECT_TRUE(relative.parameter.getValue().isNull());
}

TEST(KpaData, StaysAutomaticWhenItsValueFollowsTheRoot)
{
    Relative relative;
    relative.setRoot(relative.data.file("north", "holes"));
    relative.parameter.activateAutoValue(relative.au());
    EXPECT_TRUE(relative.parameter.isAutomaticValueInitialized());
    relative.parameter.setRootIdent(relative.data.file("south", "holes"), false);
    EXPECT_EQ(relative.parameter.getValue(), relative.au("south"));
    EXPECT_TRUE(relative.parameter.isAutomatic());
    EXPECT_FALSE(relative.parameter.isAutomaticValueInitialized());
}

TEST(KpaData, TellsWhetherItIsRelative)
{
    Watched watched;
    EXPECT_EQ(watched.flagsOf([](KpaData& p) { p.setRelative(true); }), Flags{config});
    EXPECT_TRUE(watched.parameter.isRelative());
    EXPECT_EQ(watched.flagsOf([](KpaData& p) { p.setRelative(true); }), Flags());
}

TEST(KpaData, ShowsTheWholePathOrTheRestBelowTheRoot)
{
    Watched watched;
    watched.parameter.setValue(watched.au());
    EXPECT_EQ(watched.parameter.toString(), "north/holes/assays/Au");
    watched.parameter.setRootIdent(watched.data.file("north", "holes"), true);
    EXPECT_EQ(watched.parameter.toString(), "north/holes/assays/Au");
    watched.parameter.setRelative(true);
    EXPECT_EQ(watched.parameter.toString(), "assays/Au");
    watched.parameter.setValue(KsoDataIdentifier());
    EXPECT_EQ(watched.parameter.toString(), "");
}

TEST(KpaData, StoresTheWholeNameWithoutASupportThatIsAlone)
{
    Watched watched;
    const KpaData& parameter = watched.parameter;
    EXPECT_EQ(parameter.serialize(), Map());
    watched.parameter.setValue(watched.au());
    EXPECT_EQ(parameter.serialize(), (Map{{"path", "north"}, {"file", "holes"}, {"name", "Au"}}));
    watched.parameter.setValue(watched.data.support("north", "holes", "assays"));
    EXPECT_EQ(parameter.serialize(), (Map{{"path", "north"}, {"file", "holes"}}));
    watched.parameter.setValue(watched.au("north", "blocks", "cells"));
    EXPECT_EQ(parameter.serialize(),
              (Map{{"path", "north"}, {"file", "blocks"}, {"support", "cells"}, {"name", "Au"}}));
    watched.parameter.setValue(watched.data.file("north", "blocks"));
    EXPECT_EQ(parameter.serialize(), (Map{{"path", "north"}, {"file", "blocks"}}));
    watched.parameter.setValue(watched.data.directory("north"));
    EXPECT_EQ(parameter.serialize(), (Map{{"path", "north"}}));
    watched.parameter.setValue(watched.data.root());
    EXPECT_EQ(parameter.serialize(), (Map{{"path", ""}}));
}

TEST(KpaData, StoresWhatTheRootDoesNotGiveWhereItIsRelative)
{
    Relative relative;
    const DataProject& data = relative.data;
    struct Case
    {
        KsoDataIdentifier root;
        KsoDataIdentifier ident;
        Map stored;
    };
    const KsoDataIdentifier hole = relative.au();
    const KsoDataIdentifier cell = relative.au("north", "blocks", "cells");
    const std::vector<Case> cases{
        {data.directory("north"), hole, {{"file", "holes"}, {"support", "assays"}, {"name", "Au"}}},
        {data.file("north", "holes"), hole, {{"name", "Au"}}},
        {data.file("north", "blocks"), cell, {{"support", "cells"}, {"name", "Au"}}},
        {data.support("north", "blocks", "cells"), cell, {{"name", "Au"}}},
        {hole, hole, {{"path", "north"}, {"file", "holes"}, {"support", "assays"}, {"name", "Au"}}},
    };
    for (const Case& each : cases) {
        relative.setRoot(each.root);
        relative.parameter.setValue(each.ident);
        EXPECT_EQ(relative.parameter.getValue(), each.ident);
        EXPECT_EQ(relative.parameter.serialize(), each.stored) << each.root.toString().toStdString();
    }
}

TEST(KpaData, StoresAndReadsMacroVariablesBelowEachLevelOfRoots)
{
    WithMacros watched;
    struct Case
    {
        KsoDataIdentifier root;
        KsoDataIdentifier ident;
        bool relative;
        Map stored;
    };
    const KsoDataIdentifier root = watched.data.root();
    const std::vector<Case> cases{
        {root, watched.ofHoles, false, {{"path", "north"}, {"file", "holes"}, {"macro", "sim"}}},
        {root, watched.ofCells, false, {{"path", "north"}, {"file", "blocks"}, {"support", "cells"}, {"macro", "sim"}}},
        {watched.data.directory("north"),
         watched.ofHoles,
         true,
         {{"file", "holes"}, {"support", "assays"}, {"macro", "sim"}}},
        {watched.data.file("north", "holes"), watched.ofHoles, true, {{"macro", "sim"}}},
        {watched.data.file("north", "blocks"), watched.ofCells, true, {{"support", "cells"}, {"macro", "sim"}}},
        {watched.cells, watched.ofCells, true, {{"macro", "sim"}}},
    };
    for (const Case& each : cases) {
        watched.parameter.setRelative(each.relative);
        watched.parameter.setRootIdent(each.root, true);
        watched.parameter.setValue(each.ident);
        EXPECT_EQ(watched.parameter.serialize(), each.stored) << each.root.toString().toStdString();
        watched.parameter.setValue(KsoDataIdentifier());
        watched.parameter.unserialize(each.stored);
        EXPECT_EQ(watched.parameter.getValue(), each.ident) << each.root.toString().toStdString();
    }
}

TEST(KpaData, TakesMacroVariablesOnlyWhereItsFilterDoesAndWalksUpFromThem)
{
    WithMacros watched;
    watched.parameter.setFilter(AnyData::variable());
    watched.parameter.setValue(watched.ofCells);
    EXPECT_TRUE(watched.parameter.getValue().isNull());
    watched.parameter.setFilter(AnyData::support());
    watched.parameter.setValue(watched.ofCells);
    EXPECT_EQ(watched.parameter.getValue(), watched.cells);
    watched.parameter.setRootIdent(watched.ofHoles, true);
    EXPECT_EQ(watched.parameter.getRootType(), KsoEDataType::MACRO_VARIABLE);
    EXPECT_EQ(watched.parameter.getRootIdent(), watched.ofHoles);
    watched.parameter.setRootType(KsoEDataType::VARIABLE);
    EXPECT_TRUE(watched.parameter.getRootIdent().isNull());
}

TEST(KpaData, MovesAMacroVariableWithItsRoot)
{
    WithMacros watched;
    watched.parameter.setRootIdent(watched.data.file("north", "holes"), true);
    watched.parameter.setValue(watched.ofHoles);
    watched.parameter.setRootIdent(watched.cells, true);
    EXPECT_EQ(watched.parameter.getValue(), watched.ofCells);
}

TEST(KpaData, KeepsItsValueWhereTheSupportThatWasNotStoredIsNotAloneAnyMore)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::variable());
    watched.parameter.setValue(watched.au());
    const Map stored = watched.parameter.serialize();
    EXPECT_EQ(stored, (Map{{"path", "north"}, {"file", "holes"}, {"name", "Au"}}));
    auto* holes = watched.data.file("north", "holes").getFile();
    watched.data.createVariables(watched.data.createSupport(holes, "composites"), {"Au"});
    watched.parameter.setValue(watched.au("south"));
    watched.parameter.unserialize(stored);
    EXPECT_EQ(watched.parameter.getValue(), watched.au("south"));
    watched.parameter.setValue(watched.au());
    EXPECT_EQ(watched.parameter.serialize(),
              (Map{{"path", "north"}, {"file", "holes"}, {"support", "assays"}, {"name", "Au"}}));
}

TEST(KpaData, ReadsWhatItStored)
{
    Watched watched;
    for (const KsoDataIdentifier& ident :
         {watched.au(), watched.au("north", "blocks", "nodes"), watched.data.support("north", "blocks", "nodes"),
          watched.data.file("south", "lonely"), watched.data.directory("south"), watched.data.root(),
          KsoDataIdentifier()})
    {
        watched.parameter.setValue(ident);
        const Map stored = watched.parameter.serialize();
        watched.parameter.setValue(KsoDataIdentifier());
        watched.parameter.unserialize(stored);
        EXPECT_EQ(watched.parameter.getValue(), ident) << ident.toString().toStdString();
    }
}

TEST(KpaData, ReadsASupportFromTheNameOfItsFile)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::support());
    watched.parameter.unserialize({{"path", "north"}, {"file", "holes"}});
    EXPECT_EQ(watched.parameter.getValue(), watched.data.support("north", "holes", "assays"));
}

TEST(KpaData, ReadsARelativeFormBelowEachLevelOfRoots)
{
    Relative relative;
    const DataProject& data = relative.data;
    struct Case
    {
        KsoDataIdentifier root;
        Map stored;
        KsoDataIdentifier ident;
    };
    const KsoDataIdentifier hole = relative.au("south");
    const KsoDataIdentifier node = relative.au("north", "blocks", "nodes");
    const std::vector<Case> cases{
        {data.directory("south"), {{"file", "holes"}, {"support", "assays"}, {"name", "Au"}}, hole},
        {data.file("south", "holes"), {{"name", "Au"}}, hole},
        {data.file("north", "blocks"), {{"support", "nodes"}, {"name", "Au"}}, node},
        {data.support("north", "blocks", "nodes"), {{"name", "Au"}}, node},
        {data.support("north", "blocks", "nodes"), {{"support", "cells"}, {"file", "holes"}, {"name", "Au"}}, node},
    };
    for (const Case& each : cases) {
        relative.setRoot(each.root);
        relative.parameter.setValue(KsoDataIdentifier());
        relative.parameter.unserialize(each.stored);
        EXPECT_EQ(relative.parameter.getValue(), each.ident) << each.root.toString().toStdString();
    }
}

TEST(KpaData, ReadsARelativeFormBelowAnotherRootThanItsOwn)
{
    Relative relative;
    relative.setRoot(relative.data.file("north", "holes"));
    relative.parameter.setValue(relative.au());
    const Map stored = relative.parameter.serialize();
    relative.setRoot(relative.data.file("south", "lonely"));
    relative.parameter.unserialize(stored);
    EXPECT_EQ(relative.parameter.getValue(), relative.au("south", "lonely", "composites"));
}

TEST(KpaData, FailsToReadARelativeFormBelowAVariable)
{
    Relative relative;
    relative.setRoot(relative.au());
    EXPECT_EQ(relative.parameter.getRootType(), KsoEDataType::VARIABLE);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] {
                  relative.parameter.unserialize({{"name", "Au"}});
              }),
              "Unexpected root data type (%d) when unserializing relative KpaData.");
    EXPECT_NO_THROW(relative.parameter.unserialize({}));
    relative.parameter.setRelative(false);
    relative.parameter.unserialize({{"path", "north"}, {"file", "holes"}, {"name", "Au"}});
    EXPECT_EQ(relative.parameter.getValue(), relative.au());
}

TEST(KpaData, ReadsNullFromAFormWithoutAnyKeyOfItsOwn)
{
    Watched watched;
    for (const Map& map : {Map(), Map{{"value", "north/holes"}, {"other", "x"}}}) {
        watched.parameter.setValue(watched.au());
        watched.parameter.unserialize(map);
        EXPECT_TRUE(watched.parameter.getValue().isNull());
    }
}

TEST(KpaData, KeepsItsValueWhereAFormNamesNoItem)
{
    Watched watched;
    watched.parameter.setValue(watched.au());
    watched.parameter.unserialize({{"path", "north"}, {"file", "missing"}, {"name", "Au"}});
    EXPECT_EQ(watched.parameter.getValue(), watched.au());
}

TEST(KpaData, ReadsAUrlBeforeAnyOtherKey)
{
    Watched watched;
    const QString url = KssUrlHelper::dataIdentToUrl(watched.au("south")).toEncoded();
    watched.parameter.unserialize({{"path", "north"}, {"file", "holes"}, {"url", url}});
    EXPECT_EQ(watched.parameter.getValue(), watched.au("south"));
}

TEST(KpaData, ReadsAUrlWithNamesInAnyLanguage)
{
    Watched watched;
    watched.data.createFile(static_cast<KsoDataDirectory*>(watched.itemOf(watched.data.directory("north"))),
                            QString::fromUtf8("Größe & mehr"));
    const KsoDataIdentifier file = watched.data.file("north", QString::fromUtf8("Größe & mehr"));
    watched.parameter.unserialize({{"url", KssUrlHelper::dataIdentToUrl(file).toEncoded()}});
    EXPECT_EQ(watched.parameter.getValue(), file);
}

TEST(KpaData, KeepsItsValueForAnEmptyUrl)
{
    Watched watched;
    watched.parameter.setValue(watched.au());
    watched.parameter.unserialize({{"url", ""}, {"path", "south"}});
    EXPECT_EQ(watched.parameter.getValue(), watched.au());
}

TEST(KpaData, ReadsNullFromAUrlOfSomethingElse)
{
    Watched watched;
    for (const char* url : {"https://example.com/data", "study:another?path=north#data", "study:mine#data"}) {
        watched.parameter.setValue(watched.au());
        watched.parameter.unserialize({{"url", QString(url)}});
        EXPECT_TRUE(watched.parameter.getValue().isNull()) << url;
    }
}

TEST(KpaData, StaysWholeWhateverIsStored)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::variable());
    for (const QString key : {"url", "path", "file", "support", "name", "macro"}) {
        for (const QString& garbage : garbageTexts()) {
            watched.parameter.setValue(watched.au());
            Map map{{"path", "north"}, {"file", "holes"}, {"support", "assays"}, {"name", "Au"}};
            map.insert(key, garbage);
            watched.parameter.unserialize(map);
            const KsoDataIdentifier& read = watched.parameter.getValue();
            EXPECT_TRUE(read.isNull() || read == watched.au()) << damaged(key, garbage);
        }
    }
}

TEST(KpaData, TellsWhatHappensToItsItem)
{
    struct Case
    {
        const char* what;
        std::function<void(KsmModelData&, KsoADataItem*)> change;
    };
    const std::vector<Case> cases{
        {"details",
         [](KsmModelData& model, KsoADataItem* each) {
             auto* variable = dynamic_cast<KsoAVariableItem*>(each);
             MbdVariableDetails details = variable->getDetails();
             details.setPowerValue(2);
             model.setDetails(variable, details);
         }},
        {"removed", [](KsmModelData& model, KsoADataItem* each) { model.remove(each); }},
        {"removed above", [](KsmModelData& model, KsoADataItem* each) { model.remove(each->getParentItem()); }},
        {"renamed", [](KsmModelData& model, KsoADataItem* each) { model.rename(each, "Gold"); }},
        {"values",
         [](KsmModelData& model, KsoADataItem* each) {
             model.writeValues(dynamic_cast<KsoAVariableItem*>(each), {1.0, 2.0, 3.0});
         }},
        {"several",
         [](KsmModelData& model, KsoADataItem* each) {
             model.inOneStep([&] {
                 model.writeValues(dynamic_cast<KsoAVariableItem*>(each), {1.0, 2.0, 3.0});
                 model.remove(each);
             });
         }},
    };
    for (const Case& each : cases) {
        Watched watched;
        watched.parameter.setFilter(AnyData::variable());
        watched.parameter.setValue(watched.au());
        EXPECT_EQ(watched.flagsOf([&](KpaData& p) { each.change(*watched.data.model, p.getDataItem()); }), Flags{item})
            << each.what;
        EXPECT_EQ(watched.parameter.getValue(), watched.au()) << each.what;
    }
}

TEST(KpaData, TellsByReason)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::variable());
    watched.parameter.setValue(watched.au());
    const auto flagsFor = [&](int reasons) {
        return watched.flagsOf([&](KpaData& p) { p.update(KsmModifData(watched.au(), reasons)); });
    };
    for (const int told : {1, 2, 4, 8, 0x20000, 1 | 2 | 4 | 8 | 0x20000})
        EXPECT_EQ(flagsFor(told), Flags{item}) << told;
    for (const int silent : {16, 32, 64, 0x10000, 0x40000})
        EXPECT_EQ(flagsFor(silent), Flags()) << silent;
    EXPECT_EQ(watched.parameter.getValue(), watched.au());
}

TEST(KpaData, TellsThatItsItemHasBeenMade)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::file(MbdEIo::OUTPUT));
    watched.parameter.setValue(watched.data.file("north", "result"));
    EXPECT_EQ(watched.parameter.getDataItem(), nullptr);
    auto* north = static_cast<KsoDataDirectory*>(watched.itemOf(watched.data.directory("north")));
    EXPECT_EQ(watched.flagsOf([&](KpaData&) { watched.data.createFile(north, "result"); }), Flags{item});
    ASSERT_NE(watched.parameter.getDataItem(), nullptr);
    EXPECT_EQ(watched.parameter.getDataItem()->getName(), "result");
}

TEST(KpaData, TellsOfItsItemInASupportThatItDoesNotName)
{
    Watched watched;
    watched.parameter.setFilter(AnyData::variable(MbdEIo::OUTPUT));
    watched.parameter.unserialize({{"path", "north"}, {"file", "result"}, {"name", "Au"}});
    EXPECT_EQ(watched.parameter.getDataItem(), nullptr);
    auto* north = static_cast<KsoDataDirectory*>(watched.itemOf(watched.data.directory("north")));
    const auto making = [&](KpaData&) {
        watched.data.createVariables(watched.data.createSupport(watched.data.createFile(north, "result"), "s"),
                                     {"Cu", "Au"});
    };
    // The support and the variable.
    EXPECT_EQ(watched.flagsOf(making), (Flags{item, item}));
    EXPECT_EQ(watched.parameter.getDataItem(), watched.itemOf(watched.au("north", "result", "s")));
    const auto writing = [&](KpaData& p) {
        watched.data.model->writeValues(dynamic_cast<KsoAVariableItem*>(p.getDataItem()), {1.0, 2.0, 3.0});
    };
    EXPECT_EQ(watched.flagsOf(writing), Flags{item});
}

TEST(KpaData, TellsNothingOfOtherItems)
{
    Watched watched;
    watched.parameter.setValue(watched.au());
    const auto change = [&](KpaData&) {
        watched.data.model->rename(watched.itemOf(watched.au("south")), "Gold");
        watched.data.model->remove(watched.itemOf(watched.data.file("north", "blocks")));
    };
    EXPECT_EQ(watched.flagsOf(change), Flags());
    watched.parameter.setValue(KsoDataIdentifier());
    const auto removal = [&](KpaData&) { watched.data.model->remove(watched.itemOf(watched.data.directory("north"))); };
    EXPECT_EQ(watched.flagsOf(removal), Flags());
}

TEST(KpaData, TellsOfItsItemWithTheRestOfABatch)
{
    Watched watched;
    watched.parameter.setValue(watched.au());
    const auto change = [&](KpaData& p) {
        KuoLock<KpnModif> lock(&p);
        watched.data.model->remove(watched.itemOf(watched.au()));
        p.setRelative(true);
        lock.commit();
    };
    // The value names nothing any more and falls with the change of the configuration.
    EXPECT_EQ(watched.flagsOf(change), Flags{item | config | value});
}

TEST(KpaData, MayBeDestroyedByTheObserverOfItsItem)
{
    DataProject data;
    auto parameter = std::make_unique<KpaData>("KEY", data);
    parameter->setValue(data.file("north", "holes"));
    ActingObserver destroyer(*parameter, [&] { parameter.reset(); });
    data.model->remove(data.file("north", "holes").getDataItem());
    EXPECT_EQ(parameter, nullptr);
    EXPECT_EQ(destroyer.deaths, 1);
}

TEST(KpaData, OutlivesItsProjectWithItsValue)
{
    Watched watched;
    watched.parameter.setValue(watched.au());
    EXPECT_EQ(watched.flagsOf([&](KpaData&) { watched.data.project.reset(); }), Flags());
    EXPECT_EQ(watched.parameter.getProject(), nullptr);
    EXPECT_EQ(watched.parameter.getDataModel(), nullptr);
    EXPECT_EQ(watched.parameter.getDataItem(), nullptr);
    EXPECT_EQ(watched.parameter.toString(), "north/holes/assays/Au");
    EXPECT_EQ(watched.parameter.serialize(),
              (Map{{"path", "north"}, {"file", "holes"}, {"support", "assays"}, {"name", "Au"}}));
}

TEST(KpaData, CanBeUsedWithoutTheProjectThatItHad)
{
    Watched watched;
    watched.parameter.setValue(watched.au());
    watched.data.project.reset();
    const KsoDataIdentifier kept = watched.parameter.getValue();

    const KpaData copy(watched.parameter, "COPY");
    EXPECT_EQ(copy.getValue(), kept);
    EXPECT_EQ(copy.getProject(), nullptr);

    DataProject another;
    watched.parameter.setValue(another.file("south", "holes"));
    EXPECT_EQ(watched.parameter.getValue(), kept);
    watched.parameter.setValue(kept);
    EXPECT_EQ(watched.parameter.getValue(), kept);
    watched.parameter.unserialize({{"path", "south"}, {"file", "holes"}});
    EXPECT_EQ(watched.parameter.getValue(), kept);
    watched.parameter.setRootIdent(another.directory("south"), false);
    EXPECT_TRUE(watched.parameter.getRootIdent().isNull());
    watched.parameter.setValue(KsoDataIdentifier());
    EXPECT_TRUE(watched.parameter.getValue().isNull());
    EXPECT_TRUE(watched.parameter.debug(1).contains(" data model       = no\n"));
}

TEST(KpaData, HasNoProjectWhereThatIsBeingDestroyed)
{
    struct DyingContext : KstATransactableDefault, KuoIObserver<KsmModifEnumCatalog>
    {
        explicit DyingContext(KssProject* project) : project(project)
        {
            project->getModelEnumCatalog()->addObserver(this);
        }
        KssProject* getProject() const override { return project; }
        void update(const KsmModifEnumCatalog&) override {}
        void destroyed(const KuoAObservable<KsmModifEnumCatalog>*) override
        {
            late = std::make_unique<KpaData>("LATE", *this);
        }

        KssProject* project;
        std::unique_ptr<KpaData> late;
    };
    DataProject data;
    DyingContext context(data.getProject());
    data.project.reset();
    ASSERT_NE(context.late, nullptr);
    EXPECT_EQ(context.late->getProject(), nullptr);
    EXPECT_EQ(KpaData(*context.late, "COPY").getDataModel(), nullptr);
}

TEST(KpaData, LeavesTheModelWhenItDies)
{
    DataProject data;
    {
        KpaData parameter("KEY", data);
        parameter.setValue(data.file("north", "holes"));
        const KpaData copy(parameter, QString());
    }
    data.model->remove(data.file("north", "holes").getDataItem());
    EXPECT_FALSE(data.file("north", "holes").exists());
    data.project.reset();
}

TEST(KpaData, HearsNothingOfTheModelAfterADestructionInTheSameRecord)
{
    DataProject data;
    auto first = std::make_unique<KpaData>("FIRST", data);
    auto second = std::make_unique<KpaData>("SECOND", data);
    first->setValue(data.file("north", "holes"));
    second->setValue(data.file("north", "holes"));
    ActingObserver destroyer(*first, [&] { second.reset(); });
    data.model->remove(data.file("north", "holes").getDataItem());
    EXPECT_EQ(second, nullptr);
}

TEST(KpaData, TurnsAnExceptionOfItsObserverIntoAWarning)
{
    Watched watched;
    watched.parameter.setValue(watched.au());
    ActingObserver thrower(watched.parameter, [] { throw MbeUserError("no"); });
    RecordedMessages messages;
    EXPECT_NO_THROW(watched.data.model->remove(watched.itemOf(watched.au())));
    EXPECT_EQ(messages.warnings.count(), 1);
    EXPECT_EQ(thrower.allFlags(), Flags{item});
}

TEST(KpaData, IsStoredAndReadAsXml)
{
    Watched watched;
    watched.parameter.setValue(watched.au("north", "blocks", "nodes"));
    QDomElement element = KpsSerializer::convertParamToXml(&watched.parameter);
    KpaData read("KEY", watched.data);
    KpsSerializer::updateParamFromXml(&read, element);
    EXPECT_EQ(read.getValue(), watched.au("north", "blocks", "nodes"));
}

TEST(KpaData, DescribesItsConfigForDebugging)
{
    Watched watched;
    watched.parameter.setRootIdent(watched.data.directory("north"), false);
    EXPECT_EQ(watched.parameter.getConfig().debug(), "----- KpaDataConfig ---------\n"
                                                     " data model       = yes\n"
                                                     " root type        = DIRECTORY\n"
                                                     " root             = north\n"
                                                     " filter is active = no\n"
                                                     " filter type      = DIRECTORY\n"
                                                     " filter rule      = strict\n"
                                                     " filter IO        = INPUT\n");
    EXPECT_TRUE(watched.parameter.debug(1).endsWith(watched.parameter.getConfig().debug()));
    EXPECT_FALSE(watched.parameter.debug(0).contains("KpaDataConfig"));
}

TEST(KpaData, JoinsThePartsOfTheRootForDebugging)
{
    Watched watched;
    auto* north = static_cast<KsoDataDirectory*>(watched.itemOf(watched.data.directory("north")));
    watched.data.model->createDirectory(north, "deep");
    watched.parameter.setRootIdent(KsoDataIdentifier::directory(watched.data.model, {"north", "deep"}), false);
    EXPECT_TRUE(watched.parameter.getConfig().debug().contains(" root             = north / deep\n"));
}

TEST(KpaData, DescribesTheConditionsOfItsFilterByLevel)
{
    const MbgGeometrySetFlags sets{MbgEGeometrySet::POINTS, MbgEGeometrySet::GRID};
    struct Case
    {
        KsoDataFilter filter;
        const char* text;
    };
    const std::vector<Case> cases{
        {KsoDataFilter::file(MbdEIo::OUTPUT, sets, MbgDimensionFlags::ONLY_3D, KsoDataFilter::Tolerant),
         " filter is active = yes\n"
         " filter type      = FILE\n"
         " filter rule      = tolerant\n"
         " filter IO        = OUTPUT\n"
         " filter geometry  = POINTS, GRID\n"
         " filter dimension = DIM_3D\n"},
        {KsoDataFilter::support(MbdEIo::INPUT, sets, MbgDimensionFlags::ONLY_3D, {"cells", "nodes"}),
         " filter is active = yes\n"
         " filter type      = SUPPORT\n"
         " filter rule      = strict\n"
         " filter IO        = INPUT\n"
         " filter geometry  = POINTS, GRID\n"
         " filter dimension = DIM_3D\n"
         " filter support   = cells, nodes\n"},
        {KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags{MbdEVarRole::WEIGHT, MbdEVarRole::V},
                                 MbdVarTypeFlags::ANY, 0),
         " filter is active = yes\n"
         " filter type      = VARIABLE\n"
         " filter rule      = strict\n"
         " filter IO        = INPUT\n"
         " filter role      = WEIGHT, V\n"},
    };
    for (const Case& each : cases) {
        KpaDataConfig config;
        config.setFilter(each.filter);
        EXPECT_TRUE(config.debug().endsWith(each.text)) << config.debug().toStdString();
    }
}
