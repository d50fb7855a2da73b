#include <param/atomic/KpaCatalog.h>
#include <param/atomic/KpaColorScale.h>
#include <param/atomic/KpaGeosSet.h>
#include <param/atomic/KpaNeighborhoodItem.h>
#include <param/atomic/KpaScene.h>
#include <study/KssUrlHelper.h>
#include <support/GarbageTexts.h>
#include <support/ItemProject.h>
#include <support/RecordingObserver.h>

#include <gtest/gtest.h>

namespace {

using Flags = QList<int>;

constexpr int config = Kp::NotifyConfig;
constexpr int item = Kp::NotifyItem;

template <class Parameter>
concept HasApplicationFlag = requires(const Parameter& parameter)
{
    parameter.getApplicationFlag();
};

/// A parameter that has chosen the catalog "Rocks", and what it tells.
struct RocksCatalog : testing::Test
{
    RocksCatalog()
    {
        MbdEnumCatalog content;
        content.setCategory(1, "Sand", MbbColor(1));
        rocks = model->create("Rocks", content);
        parameter.setValue(rocks->getIdentifier());
        parameter.addObserver(&observer);
    }
    template <class Change>
    Flags flagsOf(Change change)
    {
        observer.records.clear();
        change();
        return observer.allFlags();
    }

    ItemProject context;
    KsmModelEnumCatalog* model = context.project->getModelEnumCatalog();
    KsoEnumCatalog* rocks = nullptr;
    RecordingObserver observer;
    KpaCatalog parameter{"KEY", context};
};

using KpaCatalogTest = RocksCatalog;

} // namespace

TEST_F(KpaCatalogTest, GivesItsItem)
{
    EXPECT_EQ(parameter.getCatalogItem(), rocks);
    parameter.setValue({});
    EXPECT_EQ(parameter.getCatalogItem(), nullptr);
}

TEST_F(KpaCatalogTest, TellsEveryEditOfItsCategoriesAsAChangeOfTheItem)
{
    EXPECT_EQ(flagsOf([&] { model->addCategory(rocks, {2, "Clay", MbbColor()}); }), Flags({item}));
    EXPECT_EQ(flagsOf([&] { model->setCategoryLabel(rocks, 2, "Silt"); }), Flags({item}));
    EXPECT_EQ(flagsOf([&] { model->setCategoryColor(rocks, 2, MbbColor(9)); }), Flags({item}));
    EXPECT_EQ(flagsOf([&] { model->removeCategory(rocks, 2); }), Flags({item}));
    EXPECT_EQ(flagsOf([&] { model->setUndefColor(rocks, MbbColor(9)); }), Flags({item}));
}

TEST_F(KpaCatalogTest, TellsByReason)
{
    struct Case
    {
        int reason;
        Flags flags;
    };
    const std::vector<Case> cases = {
        {1, {}},        {2, {}},
        {4, {config}},  {8, {}},
        {16, {}},       {32, {}},
        {64, {}},       {128, {item}},
        {256, {item}},  {512, {item}},
        {1024, {item}}, {2048, {item}},
        {4096, {}},     {4 | 2048, {item | config}},
    };
    for (const Case& c : cases) {
        KsmModifEnumCatalog modif;
        modif.add(rocks->getIdentifier(), c.reason);
        EXPECT_EQ(flagsOf([&] { parameter.update(modif); }), c.flags) << c.reason;
    }
}

TEST_F(KpaCatalogTest, SaysNothingOfEditsOfOtherCatalogs)
{
    KsoEnumCatalog* other = model->create("Other");
    EXPECT_EQ(flagsOf([&] { model->addCategory(other, {2, "Clay", MbbColor()}); }), Flags());
    EXPECT_EQ(flagsOf([&] { model->rename(other, "Third"); }), Flags({config}));
}

TEST_F(KpaCatalogTest, SendsABatchOfTheModelAsOneRecord)
{
    EXPECT_EQ(flagsOf([&] {
                  KuoLock<KsmModifEnumCatalog> lock(model);
                  model->setUndefColor(rocks, MbbColor(9));
                  model->create("Other");
                  lock.commit();
              }),
              Flags({item | config}));
}

TEST_F(KpaCatalogTest, TiesTheFilterToItsApplication)
{
    EXPECT_EQ(parameter.getApplicationFlag(), "kriging");
    model->setApplicationFlags(model->create("Other"), {"mining"});
    KsoEnumCatalogFilter filter;
    filter.setApplicationFlags({"mining"});
    parameter.setFilter(filter);
    EXPECT_EQ(parameter.getFilter().getApplicationFlags(), QStringList({"kriging"}));
    EXPECT_EQ(parameter.getIdentifiers(), QList<KsoEnumCatalogIdentifier>({rocks->getIdentifier()}));
}

TEST_F(KpaCatalogTest, LosesAnItemThatItsFilterRefusesFromNowOn)
{
    parameter.setFilter({});
    EXPECT_EQ(flagsOf([&] { model->setApplicationFlags(rocks, {"mining"}); }),
              Flags({int(Kp::NotifyValue) | int(Kp::NotifyConfig)}));
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaCatalogTest, IsNotConcernedByTheDeathOfAnotherModel)
{
    KssProject other;
    EXPECT_EQ(flagsOf([&] { parameter.destroyed(other.getModelEnumCatalog()); }), Flags());
    EXPECT_EQ(parameter.getModel(), model);
    EXPECT_EQ(parameter.getCatalogItem(), rocks);
}

TEST_F(KpaCatalogTest, SurvivesItsModelInsideABatch)
{
    KuoLock<KpnModif> lock(&parameter);
    context.project.reset();
    lock.commit();
    EXPECT_TRUE(parameter.getValue().isNull());
}

TEST_F(KpaCatalogTest, ReadsGarbageAsNoSuchItem)
{
    for (const QString& text : garbageTexts()) {
        parameter.unserialize({{"name", text}});
        EXPECT_TRUE(parameter.getValue().isNull() || parameter.getValue() == rocks->getIdentifier())
            << text.toStdString();
    }
}

TEST(KpaColorScale, ListsThePalettesThatAreBuiltIn)
{
    ItemProject context;
    KsmModelColorScale* model = context.project->getModelColorScale();
    KpaColorScale parameter("KEY", context);
    EXPECT_EQ(parameter.getIdentifiers().size(), model->getBuiltInItems().size());
    EXPECT_FALSE(parameter.getIdentifiers().isEmpty());
    parameter.setValue(model->getBuiltInItems().first()->getIdentifier());
    EXPECT_EQ(parameter.getColorScaleItem(), model->getBuiltInItems().first());
}

TEST(KpaColorScale, UpdatesItsListWhenColoursChange)
{
    EXPECT_EQ(KpaColorScaleConfig::ListReasons, 1 | 2 | 4 | 8 | 32 | 64 | 128);
    EXPECT_EQ(KpaCatalogConfig::ListReasons, 1 | 2 | 4 | 8 | 32 | 64);
}

TEST(KpaGeosSet, GivesItsItemAndItsId)
{
    ItemProject context;
    KpaGeosSet parameter("KEY", context);
    EXPECT_EQ(parameter.getGeosSetId(), -1);
    EXPECT_EQ(parameter.getGeosSetItem(), nullptr);
    KsoGeosSet* set = context.project->getModelGeosSet()->create("Set");
    parameter.setValue(set->getIdentifier());
    EXPECT_EQ(parameter.getGeosSetId(), set->getId());
    EXPECT_EQ(parameter.getGeosSetItem(), set);
}

TEST(KpaGeosSet, ReadsAUrlFirst)
{
    ItemProject context;
    KsmModelGeosSet* model = context.project->getModelGeosSet();
    const KsoGeosSetIdentifier a = model->create("A & \u00e9 1")->getIdentifier();
    const KsoGeosSetIdentifier b = model->create("B")->getIdentifier();
    const QString url = QString::fromUtf8(KssUrlHelper::gsetIdentToUrl(a).toEncoded());
    KpaGeosSet parameter("KEY", context);
    parameter.unserialize({{"name", "B"}, {"url", url}});
    EXPECT_EQ(parameter.getValue(), a);
    parameter.unserialize({{"url", ""}});
    EXPECT_EQ(parameter.getValue(), a);
    parameter.unserialize({{"name", "B"}, {"url", ""}});
    EXPECT_EQ(parameter.getValue(), a);
    parameter.unserialize({{"url", "file:///nothing#gset"}});
    EXPECT_TRUE(parameter.getValue().isNull());
    parameter.unserialize({{"name", "B"}});
    EXPECT_EQ(parameter.getValue(), b);
}

TEST(KpaNeighborhoodItem, GivesItsItemAndItsId)
{
    ItemProject context;
    KpaNeighborhoodItem parameter("KEY", context);
    EXPECT_EQ(parameter.getNeighborhoodId(), -1);
    EXPECT_EQ(parameter.getNeighborhoodItem(), nullptr);
    KsoNeighborhood* moving = context.project->getModelNeighborhood()->create("Moving");
    parameter.setValue(moving->getIdentifier());
    EXPECT_EQ(parameter.getNeighborhoodId(), moving->getId());
    EXPECT_EQ(parameter.getNeighborhoodItem(), moving);
}

TEST(KpaScene, GivesItsItemItsIdAndItsScene)
{
    ItemProject context;
    KpaScene parameter("KEY", context);
    EXPECT_EQ(parameter.getSceneId(), -1);
    EXPECT_EQ(parameter.getSceneItem(), nullptr);
    EXPECT_EQ(parameter.getScene(), nullptr);
    KsoScene* flat = context.project->getModelScene()->create("Flat", KugScene(KugESceneType::SCENE_2D));
    parameter.setValue(flat->getIdentifier());
    EXPECT_EQ(parameter.getSceneId(), flat->getId());
    EXPECT_EQ(parameter.getSceneItem(), flat);
    ASSERT_NE(parameter.getScene(), nullptr);
    EXPECT_EQ(parameter.getScene()->getType(), KugESceneType::SCENE_2D);
}

TEST(KpaScene, HasNoApplication)
{
    EXPECT_FALSE(HasApplicationFlag<KpaScene>);
    EXPECT_TRUE(HasApplicationFlag<KpaCatalog>);
    EXPECT_TRUE(HasApplicationFlag<KpaColorScale>);
    EXPECT_TRUE(HasApplicationFlag<KpaGeosSet>);
    EXPECT_TRUE(HasApplicationFlag<KpaNeighborhoodItem>);
    ItemProject context;
    KpaScene parameter("KEY", context);
    KsoSceneFilter filter;
    filter.setApplicationFlags({"mining"});
    parameter.setFilter(filter);
    EXPECT_EQ(parameter.getFilter().getApplicationFlags(), QStringList({"mining"}));
}

TEST(KpaScene, FollowsTheDimensionOfItsScenes)
{
    ItemProject context;
    KsmModelScene* model = context.project->getModelScene();
    KsoScene* scene = model->create("Scene", KugScene(KugESceneType::SCENE_3D));
    KpaScene parameter("KEY", context);
    parameter.setFilter(KsoSceneFilter(MbdEIo::INPUT, MbgDimensionFlags::ONLY_3D));
    parameter.setValue(scene->getIdentifier());
    EXPECT_EQ(parameter.getSceneItem(), scene);
    model->setScene(scene, KugScene(KugESceneType::SCENE_2D));
    EXPECT_TRUE(parameter.getIdentifiers().isEmpty());
    EXPECT_TRUE(parameter.getValue().isNull());
}
