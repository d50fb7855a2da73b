#include <param/KpsSerializer.h>
#include <param/atomic/KpaCatalog.h>
#include <param/atomic/KpaColorScale.h>
#include <param/atomic/KpaGeosSet.h>
#include <param/atomic/KpaNeighborhoodItem.h>
#include <param/atomic/KpaScene.h>
#include <study/KssUrlHelper.h>
#include <support/ItemProject.h>
#include <support/RecordingObserver.h>

#include <gtest/gtest.h>

namespace {

constexpr int value = Kp::NotifyValue;
constexpr int config = Kp::NotifyConfig;
constexpr int item = Kp::NotifyItem;

using Flags = QList<int>;
using Map = MbbOrderedMap<QString, QString>;

template <class ParameterType, class KindType, class FilterType>
struct Case
{
    using Parameter = ParameterType;
    using Kind = KindType;
    using Filter = FilterType;
};

/// A parameter in a project with the user items "A" and "B" and the built-in item "Standard".
template <class Case>
class Items : public testing::Test
{
protected:
    using Parameter = typename Case::Parameter;
    using Kind = typename Case::Kind;
    using Filter = typename Case::Filter;
    using Identifier = typename Kind::Identifier;
    using Modif = typename Kind::Modif;

    Items()
    {
        create("A");
        create("B");
        model->addBuiltIn("Standard", ItemSample<Kind>::some());
        parameter = std::make_unique<Parameter>("KEY", context);
        parameter->addObserver(&observer);
    }
    ~Items() override
    {
        if (parameter)
            parameter->removeObserver(&observer);
    }

    void create(const char* name) { model->create(name, ItemSample<Kind>::some()); }
    Identifier named(const char* name) const { return Identifier(model, name); }
    /// The names of the list without the built-in items that every project has.
    QStringList list() const
    {
        QStringList names;
        for (const Identifier& ident : parameter->getIdentifiers()) {
            if (!former.contains(ident.getName()))
                names.append(ident.getName());
        }
        return names;
    }
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
        change();
        return takeFlags();
    }
    static Filter output()
    {
        Filter filter;
        filter.setNewAccepted(true);
        return filter;
    }
    static QStringList builtIns(typename Kind::Model* of)
    {
        QStringList names;
        for (const auto* known : of->getBuiltInItems())
            names.append(known->getName());
        return names;
    }

    ItemProject context;
    typename Kind::Model* model = (context.project.get()->*ItemSample<Kind>::model)();
    const QStringList former = builtIns(model);
    RecordingObserver observer;
    std::unique_ptr<Parameter> parameter;
};

using Cases = testing::Types<Case<KpaCatalog, KsoEnumCatalogKind, KsoEnumCatalogFilter>,
                             Case<KpaColorScale, KsoColorScaleKind, KsoColorScaleFilter>,
                             Case<KpaGeosSet, KsoGeosSetKind, KsoGeosSetFilter>,
                             Case<KpaNeighborhoodItem, KsoNeighborhoodKind, KsoNeighborhoodFilter>,
                             Case<KpaScene, KsoSceneKind, KsoSceneFilter>>;
TYPED_TEST_SUITE(Items, Cases);

} // namespace

TEST(KpaItems, AreOfTheirKinds)
{
    EXPECT_EQ(KpaCatalogConfig().getType(), KpbEType::CATALOG_IDENT);
    EXPECT_EQ(KpaColorScaleConfig().getType(), KpbEType::COLOR_SCALE_IDENT);
    EXPECT_EQ(KpaGeosSetConfig().getType(), KpbEType::GEOS_SET_IDENT);
    EXPECT_EQ(KpaNeighborhoodItemConfig().getType(), KpbEType::NEIGHBORHOOD_IDENT);
    EXPECT_EQ(KpaSceneConfig().getType(), KpbEType::SCENE_IDENT);
}

TEST(KpaItems, HaveAHeaderInTheirDebugText)
{
    EXPECT_TRUE(KpaCatalogConfig().debug().startsWith("----- KpaCatalogConfig ---------\n"));
    EXPECT_TRUE(KpaColorScaleConfig().debug().startsWith("----- KpaColorScaleConfig ---------\n"));
    EXPECT_TRUE(KpaGeosSetConfig().debug().startsWith("----- KpaGeosSetConfig ---------\n"));
    EXPECT_TRUE(KpaNeighborhoodItemConfig().debug().startsWith("----- KpaNeighborhoodItemConfig ---------\n"));
    EXPECT_TRUE(KpaSceneConfig().debug().startsWith("----- KpaSceneConfig ---------\n"));
}

TYPED_TEST(Items, StartsWithNull)
{
    EXPECT_TRUE(this->parameter->getValue().isNull());
    EXPECT_EQ(this->parameter->toString(), "");
    EXPECT_EQ(this->parameter->getProject(), this->context.project.get());
    EXPECT_EQ(this->parameter->getModel(), this->model);
    EXPECT_FALSE(this->parameter->getFilter().isNewAccepted());
    EXPECT_FALSE(this->parameter->hasChildren());
}

TYPED_TEST(Items, ListsUserItemsAndThenBuiltInOnes)
{
    EXPECT_EQ(this->list(), QStringList({"A", "B", "Standard"}));
    EXPECT_EQ(this->parameter->getIdentifiers().size(), 3 + this->former.size());
    EXPECT_EQ(this->parameter->getIdentifiers().first(), this->named("A"));
}

TYPED_TEST(Items, ListsOnlyWhatPassesTheFilter)
{
    typename TypeParam::Filter filter;
    filter.setApplicationFlags({"oil"});
    this->model->setApplicationFlags(this->model->findItem("A"), {"mining"});
    typename TypeParam::Parameter::ConfigType config;
    config.updateProject(this->context.project.get());
    EXPECT_TRUE(config.getIdentifiers().contains(this->named("A")));
    EXPECT_TRUE(config.setFilter(filter));
    EXPECT_FALSE(config.getIdentifiers().contains(this->named("A")));
    EXPECT_TRUE(config.getIdentifiers().contains(this->named("B")));
}

TYPED_TEST(Items, TakesAnItemOfTheList)
{
    EXPECT_EQ(this->flagsOf([&] { this->parameter->setValue(this->named("B")); }), Flags({value}));
    EXPECT_EQ(this->parameter->getValue(), this->named("B"));
    EXPECT_EQ(this->parameter->toString(), "B");
    EXPECT_EQ(this->flagsOf([&] { this->parameter->setValue(this->named("Standard")); }), Flags({value}));
    EXPECT_EQ(this->flagsOf([&] { this->parameter->setValue({}); }), Flags({value}));
    EXPECT_TRUE(this->parameter->getValue().isNull());
}

TYPED_TEST(Items, KeepsThePreviousValueForANameThatIsNotInTheList)
{
    this->parameter->setValue(this->named("B"));
    EXPECT_EQ(this->flagsOf([&] { this->parameter->setValue(this->named("C")); }), Flags({value}));
    EXPECT_EQ(this->parameter->getValue(), this->named("B"));
}

TYPED_TEST(Items, KeepsAValueThatNamesAnItemYetToBeMade)
{
    this->parameter->setFilter(this->output());
    this->parameter->setValue(this->named("C"));
    EXPECT_EQ(this->parameter->getValue(), this->named("C"));
    EXPECT_FALSE(this->parameter->getValue().exists());
    EXPECT_EQ(this->flagsOf([&] { this->create("C"); }), Flags({config}));
    EXPECT_EQ(this->parameter->getValue(), this->named("C"));
    EXPECT_TRUE(this->parameter->getValue().exists());
}

TYPED_TEST(Items, RefusesANewNameThatAnItemOutsideTheListHas)
{
    this->parameter->setFilter(this->output());
    KssProject other;
    auto* foreign = (other.*ItemSample<typename TypeParam::Kind>::model)();
    foreign->create("C", ItemSample<typename TypeParam::Kind>::some());
    this->parameter->setValue(typename TestFixture::Identifier(foreign, "C"));
    EXPECT_TRUE(this->parameter->getValue().isNull());
}

TYPED_TEST(Items, RefusesANameThatExistsButDoesNotPassTheFilter)
{
    typename TypeParam::Filter filter = this->output();
    filter.setApplicationFlags({"oil"});
    this->model->setApplicationFlags(this->model->findItem("A"), {"mining"});
    typename TypeParam::Parameter::ConfigType config;
    config.updateProject(this->context.project.get());
    config.setFilter(filter);
    EXPECT_EQ(config.fix(this->named("A"), this->named("B")), this->named("B"));
    EXPECT_EQ(config.fix(this->named("C"), this->named("B")), this->named("C"));
    EXPECT_TRUE(config.fix({}, this->named("B")).isNull());
}

TYPED_TEST(Items, TellsAFilterThatDiffersOnce)
{
    EXPECT_EQ(this->flagsOf([&] { this->parameter->setFilter(this->output()); }), Flags({config}));
    EXPECT_TRUE(this->parameter->getFilter().isNewAccepted());
    EXPECT_EQ(this->flagsOf([&] { this->parameter->setFilter(this->output()); }), Flags());
}

TYPED_TEST(Items, FallsBackToNullWhenTheFilterIsNarrowed)
{
    this->parameter->setFilter(this->output());
    this->parameter->setValue(this->named("C"));
    EXPECT_EQ(this->flagsOf([&] { this->parameter->setFilter({}); }), Flags({value | config}));
    EXPECT_TRUE(this->parameter->getValue().isNull());
}

TYPED_TEST(Items, StoresTheName)
{
    EXPECT_TRUE(this->parameter->serialize().isEmpty());
    this->parameter->setValue(this->named("B"));
    EXPECT_EQ(this->parameter->serialize(), Map({{"name", "B"}}));
}

TYPED_TEST(Items, ReadsByTheListRule)
{
    this->parameter->setValue(this->named("A"));
    this->parameter->unserialize({{"name", "B"}});
    EXPECT_EQ(this->parameter->getValue(), this->named("B"));
    this->parameter->unserialize({{"value", "A"}});
    EXPECT_EQ(this->parameter->getValue(), this->named("B"));
    this->parameter->unserialize({{"name", "nobody"}});
    EXPECT_EQ(this->parameter->getValue(), this->named("B"));
    this->parameter->unserialize({{"name", "A"}, {"other", "x"}});
    EXPECT_EQ(this->parameter->getValue(), this->named("A"));
    this->parameter->unserialize({});
    EXPECT_TRUE(this->parameter->getValue().isNull());
}

TYPED_TEST(Items, FollowsTheListOfTheModel)
{
    EXPECT_EQ(this->flagsOf([&] { this->create("C"); }), Flags({config}));
    EXPECT_EQ(this->list(), QStringList({"A", "B", "C", "Standard"}));
    EXPECT_EQ(this->flagsOf([&] { this->model->remove(this->model->findItem("A")); }), Flags({config}));
    EXPECT_EQ(this->list(), QStringList({"B", "C", "Standard"}));
    EXPECT_EQ(this->flagsOf([&] { this->model->addBuiltIn("More", ItemSample<typename TypeParam::Kind>::some()); }),
              Flags({config}));
    EXPECT_EQ(this->list(), QStringList({"B", "C", "Standard", "More"}));
}

TYPED_TEST(Items, FallsBackToNullWhenTheItemIsRemoved)
{
    this->parameter->setValue(this->named("A"));
    EXPECT_EQ(this->flagsOf([&] { this->model->remove(this->model->findItem("A")); }), Flags({value | config}));
    EXPECT_TRUE(this->parameter->getValue().isNull());
}

TYPED_TEST(Items, KeepsARemovedNameWhereNewItemsAreAccepted)
{
    this->parameter->setFilter(this->output());
    this->parameter->setValue(this->named("A"));
    EXPECT_EQ(this->flagsOf([&] { this->model->remove(this->model->findItem("A")); }), Flags({config}));
    EXPECT_EQ(this->parameter->getValue(), this->named("A"));
}

TYPED_TEST(Items, FollowsAnItemThatIsRenamed)
{
    this->parameter->setValue(this->named("A"));
    EXPECT_EQ(this->flagsOf([&] { this->model->rename(this->model->findItem("A"), "Z"); }), Flags({value | config}));
    EXPECT_EQ(this->parameter->getValue(), this->named("Z"));
    EXPECT_EQ(this->parameter->toString(), "Z");
}

TYPED_TEST(Items, FollowsAnItemThatWasMadeUnderItsName)
{
    this->parameter->setFilter(this->output());
    this->parameter->setValue(this->named("C"));
    this->create("C");
    EXPECT_EQ(this->flagsOf([&] { this->model->rename(this->model->findItem("C"), "Z"); }), Flags({value | config}));
    EXPECT_EQ(this->parameter->getValue(), this->named("Z"));
}

TYPED_TEST(Items, FollowsAnItemThatCameInPlaceOfItsOwn)
{
    this->parameter->setValue(this->named("A"));
    {
        KuoLock<typename TestFixture::Modif> lock(this->model);
        this->model->remove(this->model->findItem("A"));
        this->create("A");
        lock.commit();
    }
    EXPECT_EQ(this->parameter->getValue(), this->named("A"));
    this->model->rename(this->model->findItem("A"), "Z");
    EXPECT_EQ(this->parameter->getValue(), this->named("Z"));
}

TYPED_TEST(Items, FollowsItsOwnItemWhenAnotherOneTakesTheName)
{
    this->parameter->setValue(this->named("A"));
    {
        KuoLock<typename TestFixture::Modif> lock(this->model);
        this->model->rename(this->model->findItem("A"), "Z");
        this->model->rename(this->model->findItem("B"), "A");
        lock.commit();
    }
    EXPECT_EQ(this->parameter->getValue(), this->named("Z"));
}

TYPED_TEST(Items, StaysAutomaticWhenItsItemIsRenamed)
{
    this->parameter->activateAutoValue(this->named("A"));
    ASSERT_TRUE(this->parameter->isAutomatic());
    this->model->rename(this->model->findItem("A"), "Z");
    EXPECT_TRUE(this->parameter->isAutomatic());
    EXPECT_TRUE(this->parameter->isAutomaticValueInitialized());
    EXPECT_EQ(this->parameter->getAutoValue(), this->named("Z"));
    EXPECT_EQ(this->parameter->getValue(), this->named("Z"));
}

TYPED_TEST(Items, SaysNothingOfOtherItems)
{
    this->parameter->setValue(this->named("A"));
    typename TestFixture::Modif modif;
    modif.add(this->named("B"), 4 | 128 | 256 | 512 | 1024 | 2048);
    EXPECT_EQ(this->flagsOf([&] { this->parameter->update(modif); }), Flags());
}

TYPED_TEST(Items, TellsAReasonOfItsItemAsOneRecord)
{
    this->parameter->setValue(this->named("A"));
    const auto flagsFor = [&](int reasons) {
        typename TestFixture::Modif modif;
        modif.add(this->named("A"), reasons);
        return this->flagsOf([&] { this->parameter->update(modif); });
    };
    EXPECT_EQ(flagsFor(128), Flags({item}));
    EXPECT_EQ(flagsFor(4), Flags({config}));
    EXPECT_EQ(flagsFor(4 | 128), Flags({item | config}));
    for (int silent : {1, 2, 8, 16, 32, 64})
        EXPECT_EQ(flagsFor(silent), Flags()) << silent;
}

TYPED_TEST(Items, LosesItsListAndItsValueWithTheProject)
{
    this->parameter->setValue(this->named("A"));
    EXPECT_EQ(this->flagsOf([&] { this->context.project.reset(); }), Flags({value | config}));
    EXPECT_TRUE(this->parameter->getValue().isNull());
    EXPECT_TRUE(this->parameter->getIdentifiers().isEmpty());
    EXPECT_EQ(this->parameter->getModel(), nullptr);
    EXPECT_EQ(this->parameter->getProject(), nullptr);
}

TYPED_TEST(Items, KeepsItsNameWithoutTheProjectWhereNewItemsAreAccepted)
{
    this->parameter->setFilter(this->output());
    this->parameter->setValue(this->named("A"));
    EXPECT_EQ(this->flagsOf([&] { this->context.project.reset(); }), Flags({config}));
    EXPECT_EQ(this->parameter->getValue().getName(), "A");
    EXPECT_FALSE(this->parameter->getValue().exists());
    EXPECT_TRUE(this->parameter->getIdentifiers().isEmpty());
    EXPECT_EQ(this->parameter->serialize(), Map({{"name", "A"}}));
}

TYPED_TEST(Items, HasNoListWithoutAProject)
{
    ItemProject nowhere;
    nowhere.project.reset();
    typename TypeParam::Parameter lonely("KEY", nowhere);
    EXPECT_TRUE(lonely.getIdentifiers().isEmpty());
    EXPECT_EQ(lonely.getProject(), nullptr);
    EXPECT_EQ(lonely.getModel(), nullptr);
    lonely.setValue(this->named("A"));
    EXPECT_TRUE(lonely.getValue().isNull());
    lonely.unserialize({{"name", "A"}});
    EXPECT_TRUE(lonely.getValue().isNull());
}

TYPED_TEST(Items, LeavesTheModelWhenItDies)
{
    this->parameter->removeObserver(&this->observer);
    this->parameter.reset();
    this->create("C");
    EXPECT_EQ(this->model->getUserItems().size(), 3);
}

TYPED_TEST(Items, IsCopiedWithItsValueAndProjectButWithoutObservers)
{
    this->parameter->setFilter(this->output());
    this->parameter->setValue(this->named("C"));
    std::unique_ptr<typename TypeParam::Parameter> copy(this->parameter->duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValue(), this->named("C"));
    EXPECT_EQ(copy->getProject(), this->context.project.get());
    EXPECT_EQ(copy->getConfig(), this->parameter->getConfig());
    EXPECT_EQ(this->flagsOf([&] { copy->setValue(this->named("A")); }), Flags());
    EXPECT_EQ(this->parameter->getValue(), this->named("C"));
    this->create("D");
    EXPECT_TRUE(copy->getIdentifiers().contains(this->named("D")));
    EXPECT_EQ(std::unique_ptr<KpbAParameter>(this->parameter->duplicate(""))->getKey(), "KEY");
}

TYPED_TEST(Items, ComparesConfigurationsByAllTheirFields)
{
    using Config = typename TypeParam::Parameter::ConfigType;
    EXPECT_EQ(Config(), Config());
    EXPECT_NE(Config(), this->parameter->getConfig());
    Config filtered = this->parameter->getConfig();
    EXPECT_TRUE(filtered.setFilter(this->output()));
    EXPECT_FALSE(filtered.setFilter(this->output()));
    EXPECT_NE(filtered, this->parameter->getConfig());
}

TYPED_TEST(Items, SaysWhetherTheProjectOfAConfigurationChanged)
{
    typename TypeParam::Parameter::ConfigType config;
    EXPECT_FALSE(config.updateProject(nullptr));
    EXPECT_TRUE(config.updateProject(this->context.project.get()));
    EXPECT_FALSE(config.updateProject(this->context.project.get()));
    EXPECT_EQ(config.getIdentifiers(), this->parameter->getIdentifiers());
    EXPECT_TRUE(config.updateProject(nullptr));
    EXPECT_TRUE(config.getIdentifiers().isEmpty());
    EXPECT_FALSE(config.modelDestroyed());
}

TYPED_TEST(Items, KeepsThroughXmlWhatItNames)
{
    this->parameter->setValue(this->named("B"));
    const auto stored = this->parameter->serialize();
    typename TypeParam::Parameter other("KEY", this->context);
    other.unserialize(stored);
    EXPECT_EQ(other.getValue(), this->named("B"));
    EXPECT_EQ(other.serialize(), stored);
}
