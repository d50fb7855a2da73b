#include "StudyTest.h"

#include <study/KsbDriverItemMemory.h>
#include <study/KsmModelData.h>
#include <study/KsoChartsFilter.h>
#include <study/KsoColorScaleFilter.h>
#include <study/KsoEnumCatalogFilter.h>
#include <study/KsoSceneFilter.h>
#include <study/KssUrlHelper.h>
#include <support/NamedItems.h>
#include <util/KugPaletteService.h>

#include <algorithm>
#include <functional>

namespace {

bool isRefused(const std::function<void()>& change)
{
    try {
        change();
    }
    catch (const MbeUserError&) {
        return true;
    }
    return false;
}

/// A catalog "Rocks" of a project with the categories 1 "Sand" and 2 "Clay".
struct EnumCatalogModel : StudyTest
{
    EnumCatalogModel()
    {
        MbdEnumCatalog content;
        content.setCategory(1, "Sand", MbbColor(0xFF000001));
        content.setCategory(2, "Clay", MbbColor(0xFF000002));
        catalog = model->create("Rocks", content);
        ident = catalog->getIdentifier();
        recorder.records.clear();
    }
    MbdEnumCatalog stored() const { return catalog->getCatalog(); }

    KssProject project;
    KsmModelEnumCatalog* model = project.getModelEnumCatalog();
    KsoEnumCatalog* catalog = nullptr;
    KsoEnumCatalogIdentifier ident;
    ModelRecorder<KsmModelEnumCatalog> recorder{model};
};

/// A chart file "Report" with the folders "Histograms" (views "Au", "Cu") and "Maps" (view "Au").
struct ChartsModel : StudyTest
{
    using Ident = KsoChartsIdentifier;

    ChartsModel()
    {
        charts = model->create("Report", ItemSample<KsoChartsKind>::some());
        recorder.records.clear();
    }
    Ident ident(const QString& folder = {}, const QString& view = {}) const
    {
        return Ident(model, "Report", folder, view);
    }
    QStringList names() const
    {
        QStringList all;
        for (const auto& folder : charts->getInfo().getFolders()) {
            all.append(folder.name);
            for (const auto& view : folder.views)
                all.append(folder.name + '/' + view.name);
        }
        return all;
    }

    KssProject project;
    KsmModelCharts* model = project.getModelCharts();
    KsoCharts* charts = nullptr;
    ModelRecorder<KsmModelCharts> recorder{model};
};

} // namespace

TEST_F(EnumCatalogModel, GivesTheCatalogUnderTheIdAndTheNameOfTheItem)
{
    EXPECT_EQ(stored().getName(), "Rocks");
    EXPECT_EQ(stored().getId(), QString::number(catalog->getId()));
    EXPECT_EQ(stored().getUndefColor(), MbbColor(0xFFFFFFFF));
    EXPECT_EQ(stored().getCategories().keys(), QList<int>({1, 2}));
    model->rename(catalog, "Stones");
    EXPECT_EQ(stored().getName(), "Stones");
}

TEST_F(EnumCatalogModel, AddsACategoryWithReason128)
{
    model->addCategory(catalog, MbdCategoryDefinition(-3, "Silt", MbbColor(7)));
    EXPECT_EQ(recorder.takeReasons(ident), 128);
    EXPECT_EQ(stored().getDefinition(-3), MbdCategoryDefinition(-3, "Silt", MbbColor(7)));
}

TEST_F(EnumCatalogModel, RenamesACategoryWithReason256)
{
    model->setCategoryLabel(catalog, 1, "Gravel");
    EXPECT_EQ(recorder.takeReasons(ident), 256);
    EXPECT_EQ(stored().getDefinition(1), MbdCategoryDefinition(1, "Gravel", MbbColor(0xFF000001)));
}

TEST_F(EnumCatalogModel, RemovesACategoryWithReason512)
{
    model->removeCategory(catalog, 1);
    EXPECT_EQ(recorder.takeReasons(ident), 512);
    EXPECT_EQ(stored().getCategories().keys(), QList<int>({2}));
}

TEST_F(EnumCatalogModel, ColoursACategoryWithReason1024)
{
    model->setCategoryColor(catalog, 2, MbbColor(9));
    EXPECT_EQ(recorder.takeReasons(ident), 1024);
    EXPECT_EQ(stored().getDefinition(2), MbdCategoryDefinition(2, "Clay", MbbColor(9)));
}

TEST_F(EnumCatalogModel, ColoursTheUndefinedWithReason2048)
{
    model->setUndefColor(catalog, MbbColor(9));
    EXPECT_EQ(recorder.takeReasons(ident), 2048);
    EXPECT_EQ(stored().getUndefColor(), MbbColor(9));
}

TEST_F(EnumCatalogModel, TellsNothingWhereNothingChanges)
{
    model->setUndefColor(catalog, MbbColor(0xFFFFFFFF));
    model->setCategoryLabel(catalog, 1, "Sand");
    model->setCategoryColor(catalog, 1, MbbColor(0xFF000001));
    EXPECT_TRUE(recorder.records.isEmpty());
}

TEST_F(EnumCatalogModel, RefusesCategoriesThatCannotBe)
{
    const std::vector<std::function<void()>> changes = {
        [&] { model->addCategory(catalog, MbdCategoryDefinition(1, "New", MbbColor())); },
        [&] { model->addCategory(catalog, MbdCategoryDefinition(3, "Sand", MbbColor())); },
        [&] { model->addCategory(catalog, MbdCategoryDefinition(3, "", MbbColor())); },
        [&] { model->addCategory(catalog, MbdCategoryDefinition(MbbGlobal::I16_FFFF, "Undefined", MbbColor())); },
        [&] { model->setCategoryLabel(catalog, 1, "Clay"); },
        [&] { model->setCategoryLabel(catalog, 1, ""); },
        [&] { model->setCategoryLabel(catalog, 7, "New"); },
        [&] { model->setCategoryColor(catalog, 7, MbbColor()); },
        [&] { model->removeCategory(catalog, 7); },
    };
    const MbdEnumCatalog before = stored();
    for (size_t i = 0; i < changes.size(); ++i)
        EXPECT_TRUE(isRefused(changes[i])) << i;
    EXPECT_EQ(stored(), before);
    EXPECT_TRUE(recorder.records.isEmpty());
}

TEST_F(EnumCatalogModel, RefusesACatalogWhoseCategoriesCannotBeStored)
{
    MbdEnumCatalog content;
    content.setCategory(40000, "Far", MbbColor());
    EXPECT_TRUE(isRefused([&] { model->create("Far", content); }));
    EXPECT_EQ(model->findItem("Far"), nullptr);
}

TEST_F(EnumCatalogModel, TellsWhatConcernsACatalog)
{
    const KsoEnumCatalogIdentifier other = model->create("Other")->getIdentifier();
    recorder.records.clear();
    model->setUndefColor(catalog, MbbColor(9));
    ASSERT_EQ(recorder.records.size(), 1);
    EXPECT_TRUE(recorder.records.first().hasModifsForCatalog(ident));
    EXPECT_FALSE(recorder.records.first().hasModifsForCatalog(other));
    EXPECT_TRUE(recorder.records.first().hasModif(ident, 4 | 2048));
    EXPECT_FALSE(recorder.records.first().hasModif(ident, 4));
    EXPECT_FALSE(recorder.records.first().hasModif(other, 2048));
}

TEST_F(EnumCatalogModel, ReloadsWithTheReasonsOfItsContent)
{
    const auto first = KssProject::create(path);
    KsmModelEnumCatalog* catalogs = first->getModelEnumCatalog();
    catalogs->create("Rocks");
    {
        const auto second = KssProject::open(path);
        KsmModelEnumCatalog* other = second->getModelEnumCatalog();
        other->setUndefColor(other->findItem("Rocks"), MbbColor(9));
        other->setApplicationFlags(other->findItem("Rocks"), {"mining"});
    }
    ModelRecorder<KsmModelEnumCatalog> records(catalogs);
    catalogs->reload();
    EXPECT_EQ(records.takeReasons(KsoEnumCatalogIdentifier(catalogs, "Rocks")), 8 | 32 | 128 | 256 | 512 | 1024 | 2048);
    EXPECT_EQ(catalogs->findItem("Rocks")->getContent().getUndefColor(), MbbColor(9));
}

TEST(KsmModelColorScale, HasTheKnownPalettesBuiltInUnderTheirIds)
{
    KssProject project;
    QStringList names;
    for (const KsoColorScale* scale : project.getModelColorScale()->getBuiltInItems())
        names.append(scale->getName());
    EXPECT_EQ(names, QStringList({"RAINBOW", "GREY", "HEAT", "TERRAIN", "DEPTH", "BLUE_RED"}));
    EXPECT_EQ(project.getModelColorScale()->getBuiltInItems().first()->getColors(),
              KugPaletteService::getDefaultPalette().getColors());
}

TEST(KsmModelColorScale, TellsColoursWithReason128)
{
    KssProject project;
    KsmModelColorScale* model = project.getModelColorScale();
    KsoColorScale* scale = model->create("Mine", {QColor(1, 2, 3)});
    ModelRecorder<KsmModelColorScale> recorder(model);
    model->setColors(scale, {QColor(4, 5, 6), QColor(7, 8, 9)});
    EXPECT_EQ(recorder.takeReasons(scale->getIdentifier()), 128);
    EXPECT_EQ(scale->getPalette().getName(), "Mine");
    EXPECT_EQ(scale->getPalette().getColors(), QVector<QColor>({QColor(4, 5, 6), QColor(7, 8, 9)}));
}

TEST(KsmModelColorScale, RefusesScalesWithoutColours)
{
    KssProject project;
    KsmModelColorScale* model = project.getModelColorScale();
    KsoColorScale* scale = model->create("Mine", {QColor(1, 2, 3)});
    EXPECT_TRUE(isRefused([&] { model->setColors(scale, {}); }));
    EXPECT_TRUE(isRefused([&] { model->setColors(scale, {QColor()}); }));
    EXPECT_TRUE(isRefused([&] { model->create("None"); }));
    EXPECT_EQ(scale->getColors(), QVector<QColor>({QColor(1, 2, 3)}));
}

TEST(KsmModelGeosSet, TellsDocumentsWithReason128)
{
    KssProject project;
    KsmModelGeosSet* model = project.getModelGeosSet();
    KsoGeosSet* set = model->create("Set");
    ModelRecorder<KsmModelGeosSet> recorder(model);
    model->setDocument(set, "MODEL", "<m/>");
    EXPECT_EQ(recorder.takeReasons(set->getIdentifier()), 128);
    EXPECT_EQ(set->getDocument("MODEL"), "<m/>");
    EXPECT_EQ(set->getDocumentNames(), QStringList({"MODEL"}));
    EXPECT_FALSE(set->hasDocument("OTHER"));
    model->removeDocument(set, "OTHER");
    EXPECT_TRUE(recorder.records.isEmpty());
    model->removeDocument(set, "MODEL");
    EXPECT_EQ(recorder.takeReasons(set->getIdentifier()), 128);
    EXPECT_FALSE(set->hasDocument("MODEL"));
}

TEST(KsmModelNeighborhood, NamesItsDataInTheDataTree)
{
    KssProject project;
    KsmModelNeighborhood* model = project.getModelNeighborhood();
    KsoNeighborhood* item = model->create("Moving", ItemSample<KsoNeighborhoodKind>::some());
    KsmModelData* data = project.getModelData();
    EXPECT_EQ(item->getSupportIdent(), KsoDataIdentifier::support(data, {"north"}, "holes", "assays"));
    const auto code = KsoDataIdentifier::variable(data, {"north"}, "holes", "assays", "Code");
    EXPECT_EQ(item->getCodeVariableIdent(), code);
    EXPECT_EQ(item->getLargeCutoffVariables(), QList<KsoDataIdentifier>({code}));
    EXPECT_EQ(item->getSmallCutoffVariables(), QList<KsoDataIdentifier>());
    EXPECT_TRUE(model->create("Empty")->getSupportIdent().isNull());
}

TEST(KsmModelNeighborhood, TellsItsDefinitionWithReason128)
{
    KssProject project;
    KsmModelNeighborhood* model = project.getModelNeighborhood();
    KsoNeighborhood* item = model->create("Moving");
    ModelRecorder<KsmModelNeighborhood> recorder(model);
    model->setDefinition(item, ItemSample<KsoNeighborhoodKind>::some());
    EXPECT_EQ(recorder.takeReasons(item->getIdentifier()), 128);
}

TEST(KsmModelScene, TellsItsContentWithReason128AndTheDimensionWith8)
{
    KssProject project;
    KsmModelScene* model = project.getModelScene();
    KsoScene* item = model->create("Scene");
    ModelRecorder<KsmModelScene> recorder(model);
    KugScene scene;
    scene.setBackground(MbbColor(5));
    model->setScene(item, scene);
    EXPECT_EQ(recorder.takeReasons(item->getIdentifier()), 128);
    scene.setType(KugESceneType::SCENE_2D);
    model->setScene(item, scene);
    EXPECT_EQ(recorder.takeReasons(item->getIdentifier()), 128 | 8);
    EXPECT_EQ(item->getScene(), scene);
    EXPECT_EQ(item->getDimension(), MbgEDimension::DIM_2D);
}

TEST(KsoSceneFilter, AcceptsTheDimensionsThatItIsFor)
{
    KssProject project;
    KsmModelScene* model = project.getModelScene();
    const KsoScene* flat = model->create("Flat", KugScene(KugESceneType::SCENE_2D));
    const KsoScene* space = model->create("Space", KugScene(KugESceneType::SCENE_3D));
    struct Case
    {
        KsoSceneFilter filter;
        bool acceptsFlat;
        bool acceptsSpace;
    };
    const MbdEIo& in = MbdEIo::INPUT;
    const std::vector<Case> cases = {
        {KsoSceneFilter(), true, true},
        {KsoSceneFilter(in, MbgDimensionFlags{MbgEDimension::DIM_2D, MbgEDimension::DIM_3D}), true, true},
        {KsoSceneFilter(in, MbgDimensionFlags::ONLY_3D), false, true},
        {KsoSceneFilter(in, MbgDimensionFlags{MbgEDimension::DIM_1D}), false, false},
        {KsoSceneFilter(in, KugESceneTypeFlags{KugESceneType::SCENE_2D}), true, false},
        {KsoSceneFilter(in, KugESceneTypeFlags::ANY), true, true},
    };
    for (size_t i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(cases[i].filter.check(flat), cases[i].acceptsFlat) << i;
        EXPECT_EQ(cases[i].filter.check(space->getIdentifier()), cases[i].acceptsSpace) << i;
    }
    EXPECT_FALSE(KsoSceneFilter().check(nullptr));
}

TEST(KsoSceneFilter, ComparesItsDimensions)
{
    const MbdEIo& in = MbdEIo::INPUT;
    EXPECT_EQ(KsoSceneFilter(), KsoSceneFilter(in, MbgDimensionFlags::ANY));
    EXPECT_EQ(KsoSceneFilter(in, MbgDimensionFlags::ONLY_3D),
              KsoSceneFilter(in, KugESceneTypeFlags{KugESceneType::SCENE_3D}));
    EXPECT_NE(KsoSceneFilter(), KsoSceneFilter(in, MbgDimensionFlags::ONLY_3D));
    EXPECT_NE(KsoSceneFilter(), KsoSceneFilter(MbdEIo::OUTPUT, MbgDimensionFlags::ANY));
}

TEST_F(EnumCatalogModel, IsFilteredByApplication)
{
    struct Case
    {
        QStringList ofItem;
        QStringList ofFilter;
        bool accepted;
    };
    const std::vector<Case> cases = {
        {{}, {}, true},
        {{}, {"mining"}, true},
        {{"mining"}, {}, true},
        {{"mining"}, {""}, true},
        {{"mining"}, {"mining"}, true},
        {{"mining"}, {"oil"}, false},
        {{"a", "b"}, {"b"}, true},
        {{"a"}, {"", "b"}, false},
    };
    for (size_t i = 0; i < cases.size(); ++i) {
        model->setApplicationFlags(catalog, cases[i].ofItem);
        KsoEnumCatalogFilter filter;
        filter.setApplicationFlags(cases[i].ofFilter);
        EXPECT_EQ(filter.check(ident), cases[i].accepted) << i;
    }
}

TEST_F(EnumCatalogModel, IsFilteredForOutputWithoutBuiltInItemsAndWithNewNames)
{
    const KsoEnumCatalog* standard = model->addBuiltIn("Standard", MbdEnumCatalog());
    const KsoEnumCatalogIdentifier fresh(model, "Fresh");
    const KsoEnumCatalogFilter input;
    KsoEnumCatalogFilter output(MbdEIo::OUTPUT);
    EXPECT_TRUE(input.check(standard));
    EXPECT_FALSE(output.check(standard));
    EXPECT_TRUE(output.check(catalog));
    EXPECT_FALSE(input.check(fresh));
    EXPECT_TRUE(output.check(fresh));
    EXPECT_FALSE(output.check(KsoEnumCatalogIdentifier()));
    output.setNewAccepted(false);
    EXPECT_FALSE(output.check(fresh));
}

TEST_F(ChartsModel, NamesChartFilesFoldersAndViews)
{
    EXPECT_EQ(ident().getLevel(), Ident::Charts);
    EXPECT_EQ(ident("Maps").getLevel(), Ident::Folder);
    EXPECT_EQ(ident("Maps", "Au").getLevel(), Ident::View);
    EXPECT_EQ(ident("", "Au"), ident());
    EXPECT_EQ(ident("Maps", "Au").toString(), "Report/Maps/Au");
    EXPECT_EQ(ident("Maps", "Au").getName(), "Report");
    EXPECT_EQ(ident("Maps", "Au").getParent(), ident("Maps"));
    EXPECT_EQ(ident("Maps").getParent(), ident());
    EXPECT_TRUE(ident().getParent().isNull());
    EXPECT_NE(ident("Maps", "Au"), ident("Histograms", "Au"));
}

TEST_F(ChartsModel, KnowsWhatIsThere)
{
    EXPECT_TRUE(ident().exists());
    EXPECT_TRUE(ident("Maps").exists());
    EXPECT_TRUE(ident("Maps", "Au").exists());
    EXPECT_FALSE(ident("Maps", "Cu").exists());
    EXPECT_FALSE(ident("Nothing").exists());
    EXPECT_EQ(ident("Nothing").getChartsItem(), charts);
    EXPECT_EQ(ident("Maps").getItem(), charts);
    EXPECT_EQ(ident("Nothing").getId(), -1);
}

TEST_F(ChartsModel, StoresIdentifiersByNameFolderAndView)
{
    const MbbOrderedMap<QString, QString> map{{"name", "Report"}, {"folder", "Maps"}, {"view", "Au"}};
    EXPECT_EQ(ident("Maps", "Au").toMap(true), map);
    EXPECT_EQ(Ident::fromMap(map, model), ident("Maps", "Au"));
    EXPECT_TRUE(Ident::fromMap({{"folder", "Maps"}}, model).isNull());
}

TEST_F(ChartsModel, ReadsViewPaths)
{
    EXPECT_EQ(Ident::fromViewPath("Report/Maps/Au", model), ident("Maps", "Au"));
    EXPECT_EQ(Ident::fromViewPath("Report/Maps", model), ident("Maps"));
    EXPECT_EQ(Ident::fromViewPath("Report", model), ident());
    for (const char* bad : {"", "/", "Report/", "Report//Au", "/Maps/Au", "Report/Maps/Au/x"})
        EXPECT_TRUE(Ident::fromViewPath(bad, model).isNull()) << bad;
}

TEST_F(ChartsModel, ChangesRootsByTheNamesThatTheRootGives)
{
    const Ident other(model, "Other");
    EXPECT_EQ(ident("Maps", "Au").changeRoot(other), Ident(model, "Other", "Maps", "Au"));
    EXPECT_EQ(ident("Maps", "Au").changeRoot(Ident(model, "Other", "F")), Ident(model, "Other", "F", "Au"));
    EXPECT_EQ(ident("Maps").changeRoot(Ident(model, "Other", "F")), Ident(model, "Other", "F"));
    EXPECT_EQ(ident().changeRoot(Ident(model, "Other", "F")), ident());
    EXPECT_EQ(ident("Maps").changeRoot(Ident()), ident("Maps"));
    EXPECT_TRUE(Ident().changeRoot(other).isNull());
}

TEST_F(ChartsModel, KnowsWhatLiesBelow)
{
    EXPECT_TRUE(ident().isAncestorOf(ident("Maps")));
    EXPECT_TRUE(ident().isAncestorOf(ident("Maps", "Au")));
    EXPECT_TRUE(ident("Maps").isAncestorOf(ident("Maps", "Au")));
    EXPECT_FALSE(ident("Maps").isAncestorOf(ident("Histograms", "Au")));
    EXPECT_FALSE(ident("Maps").isAncestorOf(ident("Maps")));
    EXPECT_FALSE(ident("Maps").isAncestorOf(ident()));
    EXPECT_FALSE(Ident().isAncestorOf(ident()));
}

TEST_F(ChartsModel, TellsFoldersWithReason128)
{
    model->addFolder(charts, "New");
    EXPECT_EQ(recorder.records.last().getReasons(ident()), 128);
    EXPECT_EQ(recorder.takeReasons(ident("New")), 128);
    model->renameFolder(charts, "Maps", "Plans");
    EXPECT_EQ(recorder.records.last().getReasons(ident("Maps")), 128);
    EXPECT_TRUE(recorder.records.last().hasModif(ident("Maps", "Au"), 128));
    EXPECT_FALSE(recorder.records.last().hasModif(ident("Histograms", "Au"), 128));
    EXPECT_EQ(recorder.takeReasons(ident("Plans")), 128);
    model->removeFolder(charts, "Histograms");
    EXPECT_EQ(recorder.takeReasons(ident("Histograms")), 128);
    EXPECT_EQ(names(), QStringList({"Plans", "Plans/Au", "New"}));
}

TEST_F(ChartsModel, TellsViewsWithReason256)
{
    model->addView(charts, "Maps", "Cu");
    EXPECT_EQ(recorder.records.last().getReasons(ident()), 256);
    EXPECT_EQ(recorder.records.last().getReasons(ident("Maps")), 256);
    EXPECT_EQ(recorder.takeReasons(ident("Maps", "Cu")), 256);
    model->renameView(charts, "Maps", "Cu", "Zn");
    EXPECT_EQ(recorder.records.last().getReasons(ident("Maps", "Cu")), 256);
    EXPECT_FALSE(recorder.records.last().hasModif(ident("Maps", "Au"), 256));
    EXPECT_EQ(recorder.takeReasons(ident("Maps", "Zn")), 256);
    model->removeView(charts, "Maps", "Au");
    EXPECT_EQ(recorder.takeReasons(ident("Maps", "Au")), 256);
    EXPECT_EQ(names(), QStringList({"Histograms", "Histograms/Au", "Histograms/Cu", "Maps", "Maps/Zn"}));
}

TEST_F(ChartsModel, TellsEverythingInAChartFileOfItsRemoval)
{
    const Ident view = ident("Maps", "Au");
    model->remove(charts);
    ASSERT_EQ(recorder.records.size(), 1);
    EXPECT_TRUE(recorder.records.first().hasModif(view, 2));
    EXPECT_TRUE(recorder.records.first().hasModif(view.getParent(), 2));
}

TEST_F(ChartsModel, RefusesNamesThatAreTakenOrNoneOrNotThere)
{
    const std::vector<std::function<void()>> changes = {
        [&] { model->addFolder(charts, "Maps"); },
        [&] { model->addFolder(charts, ""); },
        [&] { model->addFolder(charts, "a/b"); },
        [&] { model->renameFolder(charts, "Maps", "Histograms"); },
        [&] { model->renameFolder(charts, "Nothing", "New"); },
        [&] { model->removeFolder(charts, "Nothing"); },
        [&] { model->addView(charts, "Nothing", "Au"); },
        [&] { model->addView(charts, "Maps", "Au"); },
        [&] { model->addView(charts, "Maps", ""); },
        [&] { model->renameView(charts, "Histograms", "Au", "Cu"); },
        [&] { model->renameView(charts, "Maps", "Cu", "New"); },
        [&] { model->removeView(charts, "Maps", "Cu"); },
    };
    const QStringList before = names();
    for (size_t i = 0; i < changes.size(); ++i)
        EXPECT_TRUE(isRefused(changes[i])) << i;
    EXPECT_EQ(names(), before);
    EXPECT_TRUE(recorder.records.isEmpty());
}

TEST_F(ChartsModel, FollowsChartFileFolderAndViewByTheirIds)
{
    const Ident view = ident("Maps", "Au");
    model->renameView(charts, "Maps", "Au", "Gold");
    EXPECT_EQ(charts->getInfo().updateViewRef(view), ident("Maps", "Gold"));
    model->renameFolder(charts, "Maps", "Plans");
    EXPECT_EQ(charts->getInfo().updateViewRef(view), ident("Plans", "Gold"));
    model->rename(charts, "Final");
    EXPECT_EQ(view.present(), Ident(model, "Final", "Plans", "Gold"));
    EXPECT_FALSE(view.exists());
    model->removeView(charts, "Plans", "Gold");
    EXPECT_EQ(view.present(), Ident(model, "Final", "Plans", "Au"));
}

TEST_F(ChartsModel, UsesNoIdOfAViewAgain)
{
    const Ident view = ident("Maps", "Au");
    model->removeView(charts, "Maps", "Au");
    model->addView(charts, "Maps", "New");
    EXPECT_EQ(view.present(), view);
}

TEST_F(ChartsModel, IsFilteredByLevel)
{
    const MbdEIo& in = MbdEIo::INPUT;
    EXPECT_TRUE(KsoChartsFilter().check(ident()));
    EXPECT_FALSE(KsoChartsFilter().check(ident("Maps")));
    EXPECT_TRUE(KsoChartsFilter::folder(in).check(ident("Maps")));
    EXPECT_FALSE(KsoChartsFilter::folder(in).check(ident("Maps", "Au")));
    EXPECT_FALSE(KsoChartsFilter::folder(in).check(ident("New")));
    EXPECT_TRUE(KsoChartsFilter::view(in).check(ident("Maps", "Au")));
    EXPECT_TRUE(KsoChartsFilter::view(MbdEIo::OUTPUT).check(ident("New", "New")));
    EXPECT_TRUE(KsoChartsFilter::view(MbdEIo::OUTPUT).check(Ident(model, "Fresh", "New", "New")));
    EXPECT_FALSE(KsoChartsFilter::view(in).check(Ident()));
    EXPECT_NE(KsoChartsFilter::view(in), KsoChartsFilter::folder(in));
    model->setApplicationFlags(charts, {"mining"});
    KsoChartsFilter filter = KsoChartsFilter::view(MbdEIo::OUTPUT);
    filter.setApplicationFlags({"oil"});
    EXPECT_FALSE(filter.check(ident("Maps", "Au")));
    EXPECT_FALSE(filter.check(ident("New", "New")));
}

TEST(KsoChartsInfo, RestoresOnlyWhatIsWhole)
{
    using Folder = KsoChartsInfo::Folder;
    std::vector<QUuid> id(6);
    std::generate(id.begin() + 1, id.end(), [] { return QUuid::createUuid(); });
    KsoChartsInfo info;
    EXPECT_TRUE(info.restore({Folder{id[1], "A", {{id[2], "a"}, {id[3], "b"}}}, Folder{id[4], "B", {{id[5], "a"}}}}));
    const KsoChartsInfo whole = info;
    const std::vector<QVector<Folder>> damaged = {
        {Folder{id[0], "A", {}}},
        {Folder{id[1], "", {}}},
        {Folder{id[1], "A", {}}, Folder{id[1], "B", {}}},
        {Folder{id[1], "A", {{id[1], "a"}}}},
        {Folder{id[1], "A", {}}, Folder{id[2], "A", {}}},
        {Folder{id[1], "A", {{id[2], ""}}}},
        {Folder{id[1], "A", {{id[2], "a"}, {id[3], "a"}}}},
    };
    for (size_t i = 0; i < damaged.size(); ++i)
        EXPECT_FALSE(info.restore(damaged[i])) << i;
    EXPECT_EQ(info, whole);
}

TEST(KsoChartsInfo, GivesNoIdTwiceAlsoInOtherTables)
{
    KsoChartsInfo a;
    KsoChartsInfo b;
    a.addFolder("A");
    b.addFolder("B");
    EXPECT_NE(a.findFolder("A")->id, b.findFolder("B")->id);
    const KsoChartsIdentifier ident(nullptr, "Report", a, "A");
    EXPECT_EQ(b.updateViewRef(ident), ident);
}

TEST(KsoChartsInfo, TakesOverTheIdsOfItsOwnNames)
{
    KsoChartsInfo info;
    info.addFolder("A");
    info.addView("A", "a");
    const KsoChartsIdentifier ident = info.updateViewRef(KsoChartsIdentifier(nullptr, "Report", "A", "a"));
    EXPECT_EQ(ident.getFolderId(), info.findFolder("A")->id);
    EXPECT_EQ(ident.getViewId(), info.findView("A", "a")->id);
    info.renameFolder("A", "B");
    info.addFolder("A");
    EXPECT_EQ(info.updateViewRef(ident), KsoChartsIdentifier(nullptr, "Report", "B", "a"));
}

TEST(KsmANamedModel, RefusesDamagedContents)
{
    struct Case
    {
        const char* model;
        const char* content;
    };
    const std::vector<Case> cases = {
        {"catalog", R"({"categories":7})"},
        {"catalog", R"({"categories":[7]})"},
        {"catalog", R"({"categories":[{"label":"Sand"}]})"},
        {"catalog", R"({"categories":[{"value":-32768,"label":"Sand"}]})"},
        {"catalog", R"({"categories":[{"value":1e99,"label":"Sand"}]})"},
        {"catalog", R"({"categories":[{"value":1,"label":"Sand"},{"value":1,"label":"Clay"}]})"},
        {"catalog", R"({"categories":[{"value":1,"label":"Sand"},{"value":2,"label":"Sand"}]})"},
        {"catalog", R"({"undefColor":"#12345"})"},
        {"catalog", R"({"undefColor":"#0x12345"})"},
        {"catalog", R"({"undefColor":"#+1234567"})"},
        {"color scale", R"({})"},
        {"color scale", R"({"colors":[]})"},
        {"color scale", R"({"colors":"red"})"},
        {"color scale", R"({"colors":["red"]})"},
        {"color scale", R"({"colors":[7]})"},
        {"geostatistical set", R"({"documents":{}})"},
        {"geostatistical set", R"({"documents":["x"]})"},
        {"geostatistical set", R"({"documents":[{"text":"x"}]})"},
        {"geostatistical set", R"({"documents":[{"name":"A","text":7}]})"},
        {"geostatistical set", R"({"documents":[{"name":"A"},{"name":"A"}]})"},
        {"neighborhood", R"({"support":"x"})"},
        {"neighborhood", R"({"support":{"path":7}})"},
        {"neighborhood", R"({"largeCutoffVariables":{}})"},
        {"neighborhood", R"({"smallCutoffVariables":[7]})"},
        {"scene", R"({"type":"NOTHING"})"},
        {"scene", R"({"background":7})"},
        {"charts", R"({"folders":7})"},
        {"charts", R"({"folders":[7]})"},
        {"charts", R"({"folders":[{"name":"A"}]})"},
        {"charts", R"({"folders":[{"id":"{c8b3c6b0-0000-4000-8000-000000000001}","name":"A","views":7}]})"},
        {"charts", R"({"folders":[{"id":"{c8b3c6b0-0000-4000-8000-000000000001}","name":"a/b"}]})"},
    };
    for (const Case& c : cases) {
        auto items = std::make_unique<KsbDriverItemMemory>();
        KsbItemRecord record;
        record.name = "Mine";
        record.attributes = QByteArray(R"({"content":)") + c.content + '}';
        items->insert(c.model, record);
        const QString message = storageError([&] { const KssProject project(std::move(items)); });
        EXPECT_TRUE(message.contains(QString("The stored item 'Mine' (%1, number 1) is damaged.").arg(c.model)))
            << c.content << ": " << message.toStdString();
    }
}

TEST_F(EnumCatalogModel, RefusesANumberThatIsNone)
{
    KssProject::create(path)->getModelEnumCatalog()->create("Rocks");
    for (int number : {0, -1, -2}) {
        DirectConnection(path).run(QString("UPDATE item SET id = %1 WHERE model = 'catalog'").arg(number));
        const QString message = storageError([&] { KssProject::open(path); });
        EXPECT_TRUE(message.contains("Its number is none.")) << message.toStdString();
    }
}

TEST(KssUrlHelper, GivesGeostatisticalSetsAsUrlsAndBack)
{
    KssProject project(QStringLiteral("My study"));
    KssProject other(QStringLiteral("Other"));
    KsmModelGeosSet* model = project.getModelGeosSet();
    const KsoGeosSetIdentifier ident(model, QStringLiteral("Set & Co #1"));
    const QUrl url = KssUrlHelper::gsetIdentToUrl(ident);
    EXPECT_EQ(KssUrlHelper::urlToGsetIdent(url, model), ident);
    EXPECT_TRUE(KssUrlHelper::urlToGsetIdent(url, other.getModelGeosSet()).isNull());
    EXPECT_TRUE(KssUrlHelper::urlToGsetIdent(QUrl("nonsense"), model).isNull());
    EXPECT_TRUE(KssUrlHelper::urlToDataIdent(url, project.getModelData()).isNull());
    EXPECT_TRUE(KssUrlHelper::gsetIdentToUrl(KsoGeosSetIdentifier()).isEmpty());
}
