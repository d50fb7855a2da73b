#include <param/atomic/KpaChartFolder.h>
#include <param/atomic/KpaChartView.h>
#include <param/atomic/KpaCharts.h>
#include <support/GarbageTexts.h>
#include <support/ItemProject.h>
#include <support/RecordingObserver.h>

#include <gtest/gtest.h>

#include <functional>

namespace {

using Flags = QList<int>;
using Map = MbbOrderedMap<QString, QString>;
using Ident = KsoChartsIdentifier;

constexpr int value = Kp::NotifyValue;
constexpr int config = Kp::NotifyConfig;
constexpr int item = Kp::NotifyItem;

/// A project with the chart files "Report" and "Other", each with the folders "Histograms" (views "Au", "Cu") and
/// "Maps" (view "Au"), and a parameter with what it tells.
template <class Parameter>
struct ChartsOf : testing::Test
{
    ChartsOf()
    {
        report = model->create("Report", ItemSample<KsoChartsKind>::some());
        other = model->create("Other", ItemSample<KsoChartsKind>::some());
        parameter.addObserver(&observer);
    }
    Ident ident(const QString& folder = {}, const QString& view = {}) const
    {
        return Ident(model, "Report", folder, view);
    }
    Ident otherIdent(const QString& folder = {}, const QString& view = {}) const
    {
        return Ident(model, "Other", folder, view);
    }
    template <class Change>
    Flags flagsOf(Change change)
    {
        observer.records.clear();
        change();
        return observer.allFlags();
    }
    Flags flagsForReason(const Ident& named, int reason)
    {
        KsmModifCharts modif;
        modif.add(named, reason);
        return flagsOf([&] { parameter.update(modif); });
    }
    QStringList list() const
    {
        QStringList paths;
        for (const Ident& listed : parameter.getIdentifiers())
            paths.append(listed.toViewPath());
        return paths;
    }

    ItemProject context;
    KsmModelCharts* model = context.project->getModelCharts();
    KsoCharts* report = nullptr;
    KsoCharts* other = nullptr;
    RecordingObserver observer;
    Parameter parameter{"KEY", context};
};

using KpaChartsTest = ChartsOf<KpaCharts>;
using KpaChartFolderTest = ChartsOf<KpaChartFolder>;
using KpaChartViewTest = ChartsOf<KpaChartView>;

/// A table with the folder "Custom" and the view "Own" in it; always the same.
const KsoChartsInfo& customTable()
{
    static const KsoChartsInfo made = [] {
        KsoChartsInfo table;
        table.addFolder("Custom");
        table.addView("Custom", "Own");
        return table;
    }();
    return made;
}

} // namespace

TEST_F(KpaChartsTest, StartsWithNullAndTheListOfTheProject)
{
    EXPECT_EQ(parameter.getType(), KpbEType::CHARTS_IDENT);
    EXPECT_TRUE(parameter.getValue().isNull());
    EXPECT_EQ(parameter.toString(), "");
    EXPECT_EQ(list(), QStringList({"Report", "Other"}));
    EXPECT_FALSE(parameter.isNewItemAccepted());
    EXPECT_EQ(parameter.getChartsId(), -1);
    EXPECT_EQ(parameter.getChartsItem(), nullptr);
    EXPECT_EQ(parameter.getApplicationFlag(), "kriging");
}

TEST_F(KpaChartsTest, ListsBuiltInChartFilesLast)
{
    model->addBuiltIn("Standard", KsoChartsInfo());
    model->create("New");
    EXPECT_EQ(list(), QStringList({"Report", "Other", "New", "Standard"}));
}

TEST_F(KpaChartsTest, TakesWhatIsInTheListAndKeepsThePreviousValueOtherwise)
{
    EXPECT_EQ(flagsOf([&] { parameter.setValue(ident()); }), Flags({value}));
    EXPECT_EQ(parameter.toString(), "Report");
    EXPECT_EQ(parameter.getChartsItem(), report);
    EXPECT_EQ(parameter.getChartsId(), report->getId());
    parameter.setValue(Ident(model, "New"));
    EXPECT_EQ(parameter.getValue(), ident());
    parameter.setValue({});
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartsTest, TakesEverythingWhereNewItemsAreAccepted)
{
    EXPECT_EQ(flagsOf([&] { parameter.acceptNewItem(true); }), Flags({config}));
    EXPECT_EQ(flagsOf([&] { parameter.acceptNewItem(true); }), Flags());
    parameter.setValue(Ident(model, "New"));
    EXPECT_EQ(parameter.getValue(), Ident(model, "New"));
    EXPECT_EQ(flagsOf([&] { parameter.acceptNewItem(false); }), Flags({value | config}));
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartsTest, StoresTheNameAndReadsByTheListRule)
{
    parameter.setValue(ident());
    EXPECT_EQ(parameter.serialize(), Map({{"name", "Report"}}));
    parameter.unserialize({{"folder", "Maps"}});
    EXPECT_EQ(parameter.getValue(), ident());
    parameter.unserialize({{"name", "Other"}});
    EXPECT_EQ(parameter.getValue(), otherIdent());
    parameter.unserialize({});
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartsTest, FollowsAChartFileThatIsRenamed)
{
    parameter.setValue(ident());
    EXPECT_EQ(flagsOf([&] { model->rename(report, "Final"); }), Flags({value | config}));
    EXPECT_EQ(parameter.getValue(), Ident(model, "Final"));
}

TEST_F(KpaChartsTest, TellsWhatHappensInItsChartFile)
{
    parameter.setValue(ident());
    EXPECT_EQ(flagsOf([&] { model->addFolder(report, "New"); }), Flags({item}));
    EXPECT_EQ(flagsOf([&] { model->addView(report, "New", "Au"); }), Flags({item}));
    EXPECT_EQ(flagsOf([&] { model->addView(other, "Maps", "Cu"); }), Flags());
}

TEST_F(KpaChartsTest, UpdatesItsListForTheseReasons)
{
    EXPECT_EQ(KpaChartsConfig::ListReasons, 1 | 2 | 4 | 8 | 32 | 64 | 128 | 256);
}

TEST_F(KpaChartsTest, LosesListAndValueWithTheProject)
{
    parameter.setValue(ident());
    EXPECT_EQ(flagsOf([&] { context.project.reset(); }), Flags({value | config}));
    EXPECT_TRUE(parameter.getValue().isNull());
    EXPECT_TRUE(parameter.getIdentifiers().isEmpty());
}

TEST_F(KpaChartsTest, HasAHeaderInItsDebugText)
{
    EXPECT_TRUE(parameter.getConfig().debug().startsWith("----- KpaChartsConfig ---------\n"));
}

TEST_F(KpaChartsTest, IsCopied)
{
    parameter.acceptNewItem(true);
    parameter.setValue(Ident(model, "New"));
    const std::unique_ptr<KpaCharts> copy(parameter.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValue(), Ident(model, "New"));
    EXPECT_EQ(copy->getConfig(), parameter.getConfig());
    EXPECT_EQ(copy->getApplicationFlag(), "kriging");
}

TEST_F(KpaChartFolderTest, StartsWithNullAndAllFoldersOfTheProject)
{
    EXPECT_EQ(parameter.getType(), KpbEType::CHART_FOLDER);
    EXPECT_TRUE(parameter.getValue().isNull());
    EXPECT_TRUE(parameter.getRootIdent().isNull());
    EXPECT_FALSE(parameter.isRelative());
    EXPECT_FALSE(parameter.isCustomTableUsed());
    EXPECT_EQ(list(), QStringList({"Report/Histograms", "Report/Maps", "Other/Histograms", "Other/Maps"}));
}

TEST_F(KpaChartFolderTest, ListsTheFoldersOfItsRoot)
{
    EXPECT_EQ(flagsOf([&] { parameter.setRootIdent(otherIdent()); }), Flags({config}));
    EXPECT_EQ(list(), QStringList({"Other/Histograms", "Other/Maps"}));
    EXPECT_EQ(flagsOf([&] { parameter.setRootIdent(otherIdent()); }), Flags());
}

TEST_F(KpaChartFolderTest, TakesFoldersAndNothingElse)
{
    EXPECT_EQ(flagsOf([&] { parameter.setValue(ident("Maps")); }), Flags({value}));
    EXPECT_EQ(parameter.toString(), "Maps");
    EXPECT_EQ(parameter.getFolder(), "Maps");
    for (const Ident& refused : {ident(), ident("Maps", "Au"), ident("New"), Ident(model, "New", "Maps")}) {
        EXPECT_EQ(flagsOf([&] { parameter.setValue(refused); }), Flags({value})) << refused.toString().toStdString();
        EXPECT_EQ(parameter.getValue(), ident("Maps"));
    }
    parameter.setValue({});
    EXPECT_TRUE(parameter.getValue().isNull());
    EXPECT_EQ(parameter.toString(), "");
}

TEST_F(KpaChartFolderTest, TakesWhatItsFilterAccepts)
{
    EXPECT_EQ(flagsOf([&] { parameter.setFilter(KsoChartsFilter::folder(MbdEIo::OUTPUT)); }), Flags({config}));
    EXPECT_EQ(flagsOf([&] { parameter.setFilter(KsoChartsFilter::folder(MbdEIo::OUTPUT)); }), Flags());
    EXPECT_EQ(parameter.getFilter().getApplicationFlags(), QStringList({"kriging"}));
    parameter.setValue(ident("New"));
    EXPECT_EQ(parameter.getValue(), ident("New"));
    EXPECT_EQ(flagsOf([&] { parameter.setFilter(KsoChartsFilter::folder(MbdEIo::INPUT)); }), Flags({value | config}));
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartFolderTest, ListsNothingForAFilterOfAnotherLevel)
{
    parameter.setFilter(KsoChartsFilter::view(MbdEIo::INPUT));
    EXPECT_EQ(list(), QStringList());
    parameter.setValue(ident("Maps"));
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartFolderTest, ListsNoFolderOfAChartFileThatIsForAnotherApplication)
{
    parameter.setFilter(KsoChartsFilter::folder(MbdEIo::INPUT));
    EXPECT_EQ(flagsOf([&] { model->setApplicationFlags(report, {"mining"}); }), Flags({config}));
    EXPECT_EQ(list(), QStringList({"Other/Histograms", "Other/Maps"}));
}

TEST_F(KpaChartFolderTest, FollowsItsRoot)
{
    parameter.setRootIdent(ident());
    parameter.setValue(ident("Maps"));
    EXPECT_EQ(flagsOf([&] { parameter.setRootIdent(otherIdent()); }), Flags({value | config}));
    EXPECT_EQ(parameter.getValue(), otherIdent("Maps"));
}

TEST_F(KpaChartFolderTest, FallsBackToNullWhereTheRootHasNoSuchFolder)
{
    parameter.setRootIdent(ident());
    parameter.setValue(ident("Maps"));
    model->removeFolder(other, "Maps");
    EXPECT_EQ(flagsOf([&] { parameter.setRootIdent(otherIdent()); }), Flags({value | config}));
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartFolderTest, RepairsRootsThatAreTooDeepOrOfAnotherModel)
{
    parameter.setRootIdent(ident("Maps"));
    EXPECT_EQ(parameter.getRootIdent(), ident());
    KssProject foreign;
    parameter.setRootIdent(foreign.getModelCharts()->create("Report")->getIdentifier());
    EXPECT_TRUE(parameter.getRootIdent().isNull());
    parameter.setRootIdent(ident());
    parameter.setRootIdent({});
    EXPECT_TRUE(parameter.getRootIdent().isNull());
}

TEST_F(KpaChartFolderTest, StoresTheChartFileUnlessItIsRelative)
{
    parameter.setValue(ident("Maps"));
    EXPECT_EQ(parameter.serialize(), Map({{"name", "Report"}, {"folder", "Maps"}}));
    EXPECT_EQ(flagsOf([&] { parameter.setRelative(true); }), Flags({config}));
    EXPECT_EQ(flagsOf([&] { parameter.setRelative(true); }), Flags());
    EXPECT_TRUE(parameter.isRelative());
    EXPECT_EQ(parameter.serialize(), Map({{"folder", "Maps"}}));
}

TEST_F(KpaChartFolderTest, ReadsARelativeFormUnderItsRoot)
{
    parameter.setRelative(true);
    parameter.setRootIdent(otherIdent());
    parameter.unserialize({{"folder", "Maps"}});
    EXPECT_EQ(parameter.getValue(), otherIdent("Maps"));
    parameter.unserialize({{"name", "Report"}, {"folder", "Histograms"}});
    EXPECT_EQ(parameter.getValue(), otherIdent("Histograms"));
    parameter.unserialize({});
    EXPECT_TRUE(parameter.getValue().isNull());
    EXPECT_TRUE(parameter.serialize().isEmpty());
}

TEST_F(KpaChartFolderTest, ReadsTheChartFileOfARelativeFormWhereThereIsNoRoot)
{
    parameter.setRelative(true);
    parameter.unserialize({{"name", "Report"}, {"folder", "Maps"}});
    EXPECT_EQ(parameter.getValue(), ident("Maps"));
    parameter.unserialize({{"folder", "Histograms"}});
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartFolderTest, ReadsAFormWithTheChartFile)
{
    parameter.unserialize({{"name", "Report"}, {"folder", "Maps"}});
    EXPECT_EQ(parameter.getValue(), ident("Maps"));
    parameter.unserialize({{"name", "Nothing"}, {"folder", "Maps"}});
    EXPECT_EQ(parameter.getValue(), ident("Maps"));
    parameter.unserialize({{"folder", "Histograms"}});
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartFolderTest, ReadsGarbageWithoutTakingIt)
{
    for (const QString& text : garbageTexts()) {
        parameter.unserialize({{"name", text}, {"folder", text}});
        EXPECT_TRUE(parameter.getValue().isNull()) << text.toStdString();
        parameter.unserialize({{"name", "Report"}, {"folder", text}, {"view", text}});
        EXPECT_TRUE(parameter.getValue().isNull()) << text.toStdString();
    }
}

TEST_F(KpaChartFolderTest, TellsByReason)
{
    parameter.setValue(ident("Maps"));
    EXPECT_EQ(flagsForReason(ident("Maps"), 256), Flags({item}));
    EXPECT_EQ(flagsForReason(ident("Maps"), 4), Flags({config}));
    EXPECT_EQ(flagsForReason(ident("Maps"), 128), Flags({config}));
    EXPECT_EQ(flagsForReason(ident("Maps"), 4 | 128 | 256), Flags({item | config}));
    for (int silent : {1, 2, 8, 16, 32, 64, 512})
        EXPECT_EQ(flagsForReason(ident("Maps"), silent), Flags()) << silent;
    EXPECT_EQ(flagsForReason(ident("Histograms"), 4 | 128 | 256), Flags());
    EXPECT_EQ(KpaChartFolderConfig::ListReasons, 1 | 2 | 4 | 8 | 32 | 64 | 128 | 256);
}

TEST_F(KpaChartFolderTest, FollowsItsChartFileAndItsFolder)
{
    parameter.setValue(ident("Maps"));
    EXPECT_EQ(flagsOf([&] { model->renameFolder(report, "Maps", "Plans"); }), Flags({value | config}));
    EXPECT_EQ(parameter.getValue(), ident("Plans"));
    EXPECT_EQ(flagsOf([&] { model->addView(report, "Plans", "New"); }), Flags({item}));
    EXPECT_EQ(flagsOf([&] { model->rename(report, "Final"); }), Flags({value | config}));
    EXPECT_EQ(parameter.getValue(), Ident(model, "Final", "Plans"));
    EXPECT_EQ(flagsOf([&] { model->removeFolder(report, "Plans"); }), Flags({value | config}));
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartFolderTest, GivesTheTableOfItsChartFile)
{
    EXPECT_EQ(parameter.getTable(), KsoChartsInfo());
    model->removeFolder(other, "Maps");
    parameter.setRootIdent(otherIdent());
    EXPECT_EQ(parameter.getTable(), other->getInfo());
    parameter.setRootIdent({});
    parameter.setValue(ident("Maps"));
    EXPECT_EQ(parameter.getTable(), report->getInfo());
}

TEST_F(KpaChartFolderTest, UsesACustomTable)
{
    parameter.setRootIdent(ident());
    parameter.setValue(ident("Maps"));
    EXPECT_EQ(flagsOf([&] { parameter.setCustomTable(customTable()); }), Flags({config}));
    EXPECT_EQ(flagsOf([&] { parameter.setCustomTable(customTable()); }), Flags());
    EXPECT_EQ(parameter.getCustomTable(), customTable());
    EXPECT_EQ(parameter.getTable(), report->getInfo());
    EXPECT_EQ(list(), QStringList({"Report/Histograms", "Report/Maps"}));
    EXPECT_EQ(flagsOf([&] { parameter.useCustomTable(true); }), Flags({config}));
    EXPECT_EQ(flagsOf([&] { parameter.useCustomTable(true); }), Flags());
    EXPECT_TRUE(parameter.isCustomTableUsed());
    EXPECT_EQ(parameter.getTable(), customTable());
    EXPECT_EQ(list(), QStringList({"Report/Custom"}));
    parameter.setValue(ident("Custom"));
    EXPECT_EQ(parameter.getValue(), ident("Custom"));
    EXPECT_EQ(flagsOf([&] { parameter.useCustomTable(false); }), Flags({value | config}));
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartFolderTest, LosesRootListAndValueWithTheProject)
{
    parameter.setRootIdent(ident());
    parameter.setValue(ident("Maps"));
    EXPECT_EQ(flagsOf([&] { context.project.reset(); }), Flags({value | config}));
    EXPECT_TRUE(parameter.getValue().isNull());
    EXPECT_TRUE(parameter.getRootIdent().isNull());
    EXPECT_TRUE(parameter.getIdentifiers().isEmpty());
    EXPECT_EQ(parameter.getTable(), KsoChartsInfo());
}

TEST_F(KpaChartFolderTest, IsCopiedWithAllOfItsConfiguration)
{
    parameter.setRootIdent(ident());
    parameter.setRelative(true);
    parameter.setCustomTable(customTable());
    parameter.useCustomTable(true);
    parameter.setValue(ident("Custom"));
    const std::unique_ptr<KpaChartFolder> copy(parameter.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getConfig(), parameter.getConfig());
    EXPECT_EQ(copy->getValue(), ident("Custom"));
    EXPECT_EQ(copy->getRootIdent(), ident());
}

TEST_F(KpaChartFolderTest, ComparesConfigurationsByAllTheirFields)
{
    const std::vector<std::function<bool(KpaChartFolderConfig&)>> changes = {
        [&](auto& c) { return c.setRootIdent(ident()); },
        [&](auto& c) { return c.setFilter(KsoChartsFilter::folder(MbdEIo::OUTPUT)); },
        [&](auto& c) { return c.setRelative(true); },
        [&](auto& c) { return c.setCustomTable(customTable()); },
        [&](auto& c) { return c.useCustomTable(true); },
        [&](auto& c) { return c.updateProject(nullptr); },
    };
    for (size_t i = 0; i < changes.size(); ++i) {
        KpaChartFolderConfig changed = parameter.getConfig();
        EXPECT_TRUE(changes[i](changed)) << i;
        EXPECT_NE(changed, parameter.getConfig()) << i;
        EXPECT_FALSE(changes[i](changed)) << i;
    }
}

TEST_F(KpaChartFolderTest, HasAHeaderInItsDebugText)
{
    EXPECT_TRUE(KpaChartFolderConfig().debug().startsWith("----- KpaChartFolderConfig ---------\n"));
    EXPECT_TRUE(KpaChartViewConfig().debug().startsWith("----- KpaChartViewConfig ---------\n"));
}

TEST_F(KpaChartViewTest, ListsTheViewsBelowItsRoot)
{
    EXPECT_EQ(parameter.getType(), KpbEType::CHART_VIEW);
    EXPECT_EQ(list(), QStringList({"Report/Histograms/Au", "Report/Histograms/Cu", "Report/Maps/Au",
                                   "Other/Histograms/Au", "Other/Histograms/Cu", "Other/Maps/Au"}));
    parameter.setRootIdent(otherIdent());
    EXPECT_EQ(list(), QStringList({"Other/Histograms/Au", "Other/Histograms/Cu", "Other/Maps/Au"}));
    parameter.setRootIdent(otherIdent("Histograms"));
    EXPECT_EQ(list(), QStringList({"Other/Histograms/Au", "Other/Histograms/Cu"}));
    parameter.setRootIdent(otherIdent("Histograms", "Au"));
    EXPECT_EQ(parameter.getRootIdent(), otherIdent("Histograms"));
}

TEST_F(KpaChartViewTest, TakesViewsAndNothingElse)
{
    EXPECT_EQ(flagsOf([&] { parameter.setValue(ident("Maps", "Au")); }), Flags({value}));
    EXPECT_EQ(parameter.toString(), "Au");
    EXPECT_EQ(parameter.getViewName(), "Au");
    EXPECT_EQ(parameter.getFolder(), "Maps");
    for (const Ident& refused : {ident(), ident("Maps"), ident("Maps", "Cu")}) {
        parameter.setValue(refused);
        EXPECT_EQ(parameter.getValue(), ident("Maps", "Au"));
    }
}

TEST_F(KpaChartViewTest, StoresTheChartFileUnlessItIsRelative)
{
    parameter.setValue(ident("Maps", "Au"));
    EXPECT_EQ(parameter.serialize(), Map({{"name", "Report"}, {"folder", "Maps"}, {"view", "Au"}}));
    parameter.setRelative(true);
    EXPECT_EQ(parameter.serialize(), Map({{"folder", "Maps"}, {"view", "Au"}}));
    parameter.setRootIdent(otherIdent());
    parameter.unserialize({{"folder", "Maps"}, {"view", "Au"}});
    EXPECT_EQ(parameter.getValue(), otherIdent("Maps", "Au"));
    parameter.unserialize({});
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartViewTest, IsSetByAReference)
{
    EXPECT_EQ(parameter.getViewReference(), "");
    EXPECT_EQ(flagsOf([&] { parameter.setViewReference("Report/Maps/Au"); }), Flags({value}));
    EXPECT_EQ(parameter.getValue(), ident("Maps", "Au"));
    EXPECT_EQ(parameter.getViewReference(), "Report/Maps/Au");
    parameter.setViewReference("Report/Maps/Cu");
    EXPECT_EQ(parameter.getViewReference(), "Report/Maps/Au");
    parameter.setViewReference("");
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartViewTest, BringsItsReferenceUpToDate)
{
    parameter.setValue(ident("Maps", "Au"));
    {
        model->lockObservable(true);
        model->renameView(report, "Maps", "Au", "Gold");
        model->lockObservable(false);
    }
    EXPECT_EQ(parameter.getViewReference(), "Report/Maps/Au");
    EXPECT_EQ(flagsOf([&] { parameter.updateViewReference(); }), Flags({value}));
    EXPECT_EQ(parameter.getViewReference(), "Report/Maps/Gold");
    EXPECT_EQ(flagsOf([&] { parameter.updateViewReference(); }), Flags());
}

TEST_F(KpaChartViewTest, FollowsItsViewAndItsFolder)
{
    parameter.setValue(ident("Maps", "Au"));
    EXPECT_EQ(flagsOf([&] { model->renameView(report, "Maps", "Au", "Gold"); }), Flags({value | config | item}));
    EXPECT_EQ(parameter.getViewReference(), "Report/Maps/Gold");
    EXPECT_EQ(flagsOf([&] { model->renameFolder(report, "Maps", "Plans"); }), Flags({value | config}));
    EXPECT_EQ(parameter.getViewReference(), "Report/Plans/Gold");
    EXPECT_EQ(flagsOf([&] { model->removeView(report, "Plans", "Gold"); }), Flags({value | config | item}));
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartViewTest, TellsByReason)
{
    parameter.setValue(ident("Maps", "Au"));
    EXPECT_EQ(flagsForReason(ident("Maps", "Au"), 256), Flags({item}));
    EXPECT_EQ(flagsForReason(ident("Maps", "Au"), 4), Flags({config}));
    EXPECT_EQ(flagsForReason(ident("Maps"), 128), Flags({config}));
    EXPECT_EQ(flagsForReason(ident("Maps"), 256), Flags());
    EXPECT_EQ(flagsForReason(ident("Maps", "Cu"), 4 | 128 | 256), Flags());
    EXPECT_EQ(KpaChartViewConfig::ListReasons, 1 | 2 | 4 | 8 | 32 | 64 | 128 | 256);
}

TEST_F(KpaChartViewTest, UsesACustomTableAndFollowsItsViews)
{
    KsoChartsInfo table = customTable();
    parameter.setRootIdent(ident());
    parameter.useCustomTable(true);
    parameter.setCustomTable(table);
    EXPECT_EQ(list(), QStringList({"Report/Custom/Own"}));
    parameter.setValue(parameter.getIdentifiers().first());
    EXPECT_EQ(parameter.getViewReference(), "Report/Custom/Own");
    table.renameView("Custom", "Own", "Mine");
    EXPECT_EQ(flagsOf([&] { parameter.setCustomTable(table); }), Flags({value | config}));
    EXPECT_EQ(parameter.getViewReference(), "Report/Custom/Mine");
}

TEST_F(KpaChartViewTest, FollowsAViewOfACustomTableThatWasNamedWithoutIt)
{
    KsoChartsInfo table = customTable();
    parameter.setRootIdent(ident());
    parameter.useCustomTable(true);
    parameter.setCustomTable(table);
    parameter.unserialize({{"name", "Report"}, {"folder", "Custom"}, {"view", "Own"}});
    EXPECT_EQ(parameter.getViewReference(), "Report/Custom/Own");
    table.renameView("Custom", "Own", "Mine");
    parameter.setCustomTable(table);
    EXPECT_EQ(parameter.getViewReference(), "Report/Custom/Mine");
}

TEST_F(KpaChartViewTest, FollowsItsViewFromTheChartFileIntoACustomTable)
{
    KsoChartsInfo table;
    table.addFolder("Maps");
    table.addView("Maps", "Au");
    parameter.setRootIdent(ident());
    parameter.setValue(ident("Maps", "Au"));
    parameter.setCustomTable(table);
    EXPECT_EQ(flagsOf([&] { parameter.useCustomTable(true); }), Flags({config}));
    table.renameView("Maps", "Au", "Gold");
    EXPECT_EQ(flagsOf([&] { parameter.setCustomTable(table); }), Flags({value | config}));
    EXPECT_EQ(parameter.getViewReference(), "Report/Maps/Gold");
    EXPECT_EQ(flagsOf([&] { model->renameView(report, "Maps", "Au", "Ag"); }), Flags());
    EXPECT_EQ(parameter.getViewReference(), "Report/Maps/Gold");
}

TEST_F(KpaChartViewTest, StaysAutomaticWhenItsViewIsRenamedInACustomTable)
{
    KsoChartsInfo table = customTable();
    parameter.setRootIdent(ident());
    parameter.useCustomTable(true);
    parameter.setCustomTable(table);
    parameter.activateAutoValue(parameter.getIdentifiers().first());
    table.renameView("Custom", "Own", "Mine");
    parameter.setCustomTable(table);
    EXPECT_TRUE(parameter.isAutomatic());
    EXPECT_TRUE(parameter.isAutomaticValueInitialized());
    EXPECT_EQ(parameter.getAutoValue(), ident("Custom", "Mine"));
    EXPECT_EQ(parameter.getValue(), ident("Custom", "Mine"));
}

TEST_F(KpaChartViewTest, FollowsAViewOfACustomTableBelowAnotherRoot)
{
    KsoChartsInfo table = customTable();
    parameter.setRootIdent(ident());
    parameter.useCustomTable(true);
    parameter.setCustomTable(table);
    parameter.setValue(parameter.getIdentifiers().first());
    EXPECT_EQ(flagsOf([&] { parameter.setRootIdent(otherIdent()); }), Flags({value | config}));
    EXPECT_EQ(parameter.getViewReference(), "Other/Custom/Own");
    table.renameView("Custom", "Own", "Mine");
    parameter.setCustomTable(table);
    EXPECT_EQ(parameter.getViewReference(), "Other/Custom/Mine");
}

TEST_F(KpaChartViewTest, FollowsTheChartFileOfACustomTable)
{
    parameter.setRootIdent(ident());
    parameter.useCustomTable(true);
    parameter.setCustomTable(customTable());
    parameter.setValue(parameter.getIdentifiers().first());
    EXPECT_EQ(flagsOf([&] { model->rename(report, "Final"); }), Flags({value | config}));
    EXPECT_EQ(list(), QStringList({"Final/Custom/Own"}));
    EXPECT_EQ(parameter.getViewReference(), "Final/Custom/Own");
}

TEST_F(KpaChartViewTest, MistakesNoViewOfACustomTableForAnotherOne)
{
    parameter.setRootIdent(ident());
    parameter.useCustomTable(true);
    parameter.setCustomTable(customTable());
    parameter.setValue(parameter.getIdentifiers().first());
    parameter.useCustomTable(false);
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaChartViewTest, KeepsARootThatIsRenamed)
{
    parameter.setRootIdent(ident("Maps"));
    parameter.setValue(ident("Maps", "Au"));
    model->renameFolder(report, "Maps", "Plans");
    EXPECT_EQ(parameter.getRootIdent(), ident("Plans"));
    EXPECT_EQ(flagsOf([&] { model->rename(report, "Final"); }), Flags({value | config}));
    EXPECT_EQ(parameter.getRootIdent(), Ident(model, "Final", "Plans"));
    EXPECT_EQ(list(), QStringList({"Final/Plans/Au"}));
    EXPECT_EQ(parameter.getValue(), Ident(model, "Final", "Plans", "Au"));
}

TEST_F(KpaChartViewTest, IsCopied)
{
    parameter.setValue(ident("Maps", "Au"));
    const std::unique_ptr<KpaChartView> copy(parameter.duplicate(""));
    EXPECT_EQ(copy->getKey(), "KEY");
    EXPECT_EQ(copy->getConfig(), parameter.getConfig());
    EXPECT_EQ(copy->getValue(), ident("Maps", "Au"));
}

TEST_F(KpaChartViewTest, LosesListAndValueWithTheProject)
{
    parameter.setValue(ident("Maps", "Au"));
    EXPECT_EQ(flagsOf([&] { context.project.reset(); }), Flags({value | config}));
    EXPECT_TRUE(parameter.getValue().isNull());
    EXPECT_TRUE(parameter.getIdentifiers().isEmpty());
}
