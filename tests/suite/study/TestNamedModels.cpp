#include "StudyTest.h"

#include <study/KsbDriverItemMemory.h>
#include <study/KsbItemRecord.h>
#include <study/KsmModelData.h>
#include <support/NamedItems.h>

#include <QtCore/QJsonDocument>

#include <functional>

namespace {

template <class Kind>
class NamedModel : public StudyTest
{
protected:
    using Model = typename Kind::Model;
    using Identifier = typename Kind::Identifier;
    static auto some() { return ItemSample<Kind>::some(); }
    static auto other() { return ItemSample<Kind>::other(); }
    Model* modelOf(KssProject& of) const { return (of.*ItemSample<Kind>::model)(); }
    Identifier named(const char* name) { return Identifier(model, QString::fromLatin1(name)); }
    QStringList userNames() const
    {
        QStringList names;
        for (const auto* item : model->getUserItems())
            names.append(item->getName());
        return names;
    }

    KssProject project;
    Model* model = modelOf(project);
    ModelRecorder<Model> recorder{model};
};

using Kinds = testing::Types<KsoEnumCatalogKind, KsoColorScaleKind, KsoGeosSetKind, KsoNeighborhoodKind, KsoSceneKind,
                             KsoChartsKind>;
TYPED_TEST_SUITE(NamedModel, Kinds);

template <class Error>
bool throws(const std::function<void()>& body)
{
    try {
        body();
    }
    catch (const Error&) {
        return true;
    }
    return false;
}

} // namespace

TYPED_TEST(NamedModel, GivesNothingBackThatItsObserverHasRemoved)
{
    struct Observer : KuoIObserver<typename TypeParam::Modif>
    {
        explicit Observer(typename TypeParam::Model* model) : model(model) { model->addObserver(this); }
        ~Observer() override { model->removeObserver(this); }
        void update(const typename TypeParam::Modif&) override
        {
            while (!model->getUserItems().isEmpty())
                model->remove(model->getUserItems().first());
        }
        void destroyed(const KuoAObservable<typename TypeParam::Modif>*) override {}
        typename TypeParam::Model* model;
    };
    const Observer observer(this->model);

    EXPECT_EQ(this->model->create("North", this->some()), nullptr);
    EXPECT_EQ(this->userNames(), QStringList());
}

TYPED_TEST(NamedModel, HasNoUserItemsAtFirst)
{
    EXPECT_EQ(this->userNames(), QStringList());
    EXPECT_EQ(this->model->getProject(), &this->project);
}

TYPED_TEST(NamedModel, MakesAnItemAndTellsItWithReason1)
{
    auto* item = this->model->create("A", this->some());
    EXPECT_EQ(this->recorder.takeReasons(this->named("A")), 1);
    EXPECT_EQ(item->getName(), "A");
    EXPECT_GT(item->getId(), 0);
    EXPECT_FALSE(item->isBuiltIn());
    EXPECT_EQ(item->getModel(), this->model);
    EXPECT_EQ(item->getContent(), this->some());
    EXPECT_EQ(this->model->findItem("A"), item);
    EXPECT_EQ(this->model->getItemFromId(item->getId()), item);
    EXPECT_EQ(this->model->getValidItemFromId(item->getId()), item);
}

TYPED_TEST(NamedModel, ListsUserItemsInOrderOfMaking)
{
    for (const char* name : {"c", "a", "b"})
        this->model->create(name, this->some());
    EXPECT_EQ(this->userNames(), QStringList({"c", "a", "b"}));
}

TYPED_TEST(NamedModel, RenamesAnItemAndNamesItTwiceWithReason4)
{
    auto* item = this->model->create("A", this->some());
    const auto former = item->getIdentifier();
    this->recorder.records.clear();
    this->model->rename(item, "B");
    ASSERT_EQ(this->recorder.records.size(), 1);
    EXPECT_EQ(this->recorder.records.first().getReasons(this->named("A")), 4);
    EXPECT_EQ(this->recorder.takeReasons(this->named("B")), 4);
    EXPECT_EQ(this->model->findItem("B"), item);
    EXPECT_EQ(this->model->findItem("A"), nullptr);
    EXPECT_FALSE(former.exists());
    EXPECT_EQ(former.getName(), "A");
    EXPECT_EQ(former.present(), this->named("B"));
}

TYPED_TEST(NamedModel, RenamesToTheSameNameWithoutAWord)
{
    auto* item = this->model->create("A", this->some());
    this->recorder.records.clear();
    this->model->rename(item, "A");
    EXPECT_TRUE(this->recorder.records.isEmpty());
}

TYPED_TEST(NamedModel, RemovesAnItemAndTellsItWithReason2)
{
    auto* item = this->model->create("A", this->some());
    const int id = item->getId();
    this->recorder.records.clear();
    this->model->remove(item);
    EXPECT_EQ(this->recorder.takeReasons(this->named("A")), 2);
    EXPECT_EQ(this->model->findItem("A"), nullptr);
    EXPECT_EQ(this->model->getItemFromId(id), nullptr);
    EXPECT_TRUE(throws<MbeUserError>([&] { this->model->getValidItemFromId(id); }));
}

TYPED_TEST(NamedModel, NeverUsesAnIdAgain)
{
    auto* item = this->model->create("A", this->some());
    const int id = item->getId();
    this->model->remove(item);
    EXPECT_NE(this->model->create("A", this->some())->getId(), id);
}

TYPED_TEST(NamedModel, TellsApplicationsWithReason8)
{
    auto* item = this->model->create("A", this->some());
    this->recorder.records.clear();
    this->model->setApplicationFlags(item, {"mining"});
    EXPECT_EQ(this->recorder.takeReasons(this->named("A")), 8);
    EXPECT_EQ(item->getApplicationFlags(), QStringList({"mining"}));
    this->model->setApplicationFlags(item, {"mining"});
    EXPECT_TRUE(this->recorder.records.isEmpty());
}

TYPED_TEST(NamedModel, TellsABuiltInItemWithReason64AndNumbersItBelowMinusOne)
{
    auto* item = this->model->addBuiltIn("Standard", this->some());
    EXPECT_EQ(this->recorder.takeReasons(this->named("Standard")), 64);
    EXPECT_LT(item->getId(), -1);
    EXPECT_TRUE(item->isBuiltIn());
    EXPECT_EQ(this->model->getBuiltInItems().last(), item);
    EXPECT_EQ(this->userNames(), QStringList());
    EXPECT_EQ(this->model->findItem("Standard"), item);
    EXPECT_EQ(this->model->getItemFromId(item->getId()), item);
}

TYPED_TEST(NamedModel, FindsAUserItemBeforeABuiltInOneOfItsName)
{
    const auto former = this->model->getBuiltInItems();
    auto* user = this->model->create("Standard", this->some());
    auto* builtIn = this->model->addBuiltIn("Standard", this->other());
    EXPECT_EQ(this->model->findItem("Standard"), user);
    EXPECT_EQ(this->model->getBuiltInItems(), former);
    EXPECT_EQ(this->model->getItemFromId(builtIn->getId()), builtIn);
    this->model->rename(user, "Mine");
    EXPECT_EQ(this->model->findItem("Standard"), builtIn);
    EXPECT_EQ(this->model->getBuiltInItems().last(), builtIn);
}

TYPED_TEST(NamedModel, ChangesNoBuiltInItem)
{
    auto* item = this->model->addBuiltIn("Standard", this->some());
    this->recorder.records.clear();
    EXPECT_TRUE(throws<MbeProgrammingError>([&] { this->model->rename(item, "B"); }));
    EXPECT_TRUE(throws<MbeProgrammingError>([&] { this->model->remove(item); }));
    EXPECT_TRUE(throws<MbeProgrammingError>([&] { this->model->setApplicationFlags(item, {"x"}); }));
    EXPECT_EQ(item->getName(), "Standard");
    EXPECT_TRUE(this->recorder.records.isEmpty());
}

TYPED_TEST(NamedModel, RefusesNullAndItemsOfOtherModels)
{
    KssProject other;
    auto* foreign = this->modelOf(other)->create("A", this->some());
    EXPECT_TRUE(throws<MbeProgrammingError>([&] { this->model->rename(foreign, "B"); }));
    EXPECT_TRUE(throws<MbeProgrammingError>([&] { this->model->remove(nullptr); }));
    EXPECT_EQ(foreign->getName(), "A");
}

TYPED_TEST(NamedModel, RefusesNamesThatAreTakenOrNone)
{
    auto* item = this->model->create("A", this->some());
    this->model->create("B", this->some());
    this->model->addBuiltIn("Standard", this->some());
    this->recorder.records.clear();
    for (const QString& name : {QString("B"), QString("Standard"), QString(), QString("a/b"), QString(256, 'x')}) {
        EXPECT_TRUE(throws<MbeUserError>([&] { this->model->rename(item, name); })) << name.toStdString();
        EXPECT_TRUE(throws<MbeUserError>([&] { this->model->create(name, this->some()); }));
    }
    EXPECT_TRUE(throws<MbeUserError>([&] { this->model->addBuiltIn("Standard", this->some()); }));
    EXPECT_TRUE(throws<MbeUserError>([&] { this->model->addBuiltIn("", this->some()); }));
    EXPECT_EQ(this->userNames(), QStringList({"A", "B"}));
    EXPECT_TRUE(this->recorder.records.isEmpty());
}

TYPED_TEST(NamedModel, CollectsABatchInOneRecord)
{
    {
        KuoLock<typename TypeParam::Modif> lock(this->model);
        this->model->create("A", this->some());
        this->model->rename(this->model->findItem("A"), "B");
        lock.commit();
    }
    ASSERT_EQ(this->recorder.records.size(), 1);
    EXPECT_EQ(this->recorder.records.first().getReasons(this->named("A")), 1 | 4);
    EXPECT_EQ(this->recorder.records.first().getReasons(this->named("B")), 4);
    EXPECT_EQ(this->recorder.records.first().getNumberOfModif(), 2);
    EXPECT_TRUE(this->recorder.records.first().hasModif(1));
    EXPECT_FALSE(this->recorder.records.first().hasModif(2 | 8));
}

TYPED_TEST(NamedModel, KeepsItsItemsInTheProjectFile)
{
    int id = 0;
    {
        const auto file = KssProject::create(this->path);
        auto* model = this->modelOf(*file);
        auto* item = model->create("A", this->some());
        id = item->getId();
        model->setApplicationFlags(item, {"mining", "oil"});
        model->create("B", this->other());
        model->rename(item, "C");
        model->remove(model->findItem("B"));
    }
    const auto file = KssProject::open(this->path);
    auto* model = this->modelOf(*file);
    ASSERT_EQ(model->getUserItems().size(), 1);
    const auto* item = model->getUserItems().first();
    EXPECT_EQ(item->getName(), "C");
    EXPECT_EQ(item->getId(), id);
    EXPECT_EQ(item->getApplicationFlags(), QStringList({"mining", "oil"}));
    EXPECT_EQ(item->getContent(), this->some());
}

TYPED_TEST(NamedModel, ChangesNothingWhereTheFileIsReadOnly)
{
    {
        const auto file = KssProject::create(this->path);
        this->modelOf(*file)->create("A", this->some());
    }
    const auto file = KssProject::open(this->path, KssOpenMode::ReadOnly);
    auto* model = this->modelOf(*file);
    ModelRecorder<typename TypeParam::Model> recorder(model);
    auto* item = model->findItem("A");
    ASSERT_TRUE(item);
    EXPECT_TRUE(throws<MbeError>([&] { model->rename(item, "B"); }));
    EXPECT_TRUE(throws<MbeError>([&] { model->remove(item); }));
    EXPECT_TRUE(throws<MbeError>([&] { model->create("C", this->some()); }));
    EXPECT_EQ(model->getUserItems().size(), 1);
    EXPECT_EQ(item->getName(), "A");
    EXPECT_TRUE(recorder.records.isEmpty());
}

TYPED_TEST(NamedModel, ReadsWhatAnotherUserOfTheFileChanged)
{
    const auto first = KssProject::create(this->path);
    auto* model = this->modelOf(*first);
    auto* renamed = model->create("A", this->some());
    model->create("Gone", this->some());
    {
        const auto second = KssProject::open(this->path);
        auto* other = this->modelOf(*second);
        other->rename(other->findItem("A"), "B");
        other->remove(other->findItem("Gone"));
        other->create("New", this->other());
    }
    ModelRecorder<typename TypeParam::Model> recorder(model);
    model->reload();
    ASSERT_EQ(recorder.records.size(), 1);
    const auto& modif = recorder.records.first();
    const auto named = [&](const char* name) { return typename TypeParam::Identifier(model, name); };
    EXPECT_EQ(modif.getReasons(named("A")), 4);
    EXPECT_EQ(modif.getReasons(named("B")), 4);
    EXPECT_EQ(modif.getReasons(named("Gone")), 2);
    EXPECT_EQ(modif.getReasons(named("New")), 1);
    EXPECT_EQ(model->findItem("B"), renamed);
    EXPECT_EQ(model->getUserItems().size(), 2);
}

TYPED_TEST(NamedModel, TakesChangesAfterThoseOfAnotherUserOfTheFileOnlyOnceItHasReadThem)
{
    const auto first = KssProject::create(this->path);
    const auto second = KssProject::open(this->path);
    auto* model = this->modelOf(*first);
    this->modelOf(*second)->create("A", this->some());
    EXPECT_TRUE(throws<MbeError>([&] { model->create("A", this->some()); }));
    EXPECT_TRUE(throws<MbeError>([&] { model->create("B", this->some()); }));
    EXPECT_TRUE(model->getUserItems().isEmpty());
    first->getModelData()->createDirectory(first->getModelData()->getRootItem(), "d");
    model->reload();
    model->create("B", this->some());
    EXPECT_EQ(this->modelOf(*KssProject::open(this->path))->getUserItems().size(), 2);
}

TYPED_TEST(NamedModel, TellsNothingWhenNothingHasChangedInTheStore)
{
    this->model->create("A", this->some());
    this->recorder.records.clear();
    this->model->reload();
    EXPECT_TRUE(this->recorder.records.isEmpty());
}

TYPED_TEST(NamedModel, RefusesADamagedStoreAndNamesTheItem)
{
    const std::vector<std::pair<const char*, const char*>> damaged = {
        {"A", ""},  {"A", "{"}, {"A", "[]"}, {"A", "{}"}, {"A", "{\"content\":7}"}, {"a/b", "{\"content\":{}}"},
        {"", "{}"},
    };
    for (const auto& [name, attributes] : damaged) {
        auto items = std::make_unique<KsbDriverItemMemory>();
        KsbItemRecord record;
        record.name = name;
        record.attributes = attributes;
        items->insert(TypeParam::StoreName, record);
        try {
            const KssProject project(std::move(items));
            ADD_FAILURE() << attributes;
        }
        catch (const MbeError& error) {
            EXPECT_TRUE(error.getMessage().contains(QString("The stored item '%1' (").arg(name)))
                << error.getMessage().toStdString();
        }
    }
}

TYPED_TEST(NamedModel, RefusesAStoreWithTwoItemsOfOneName)
{
    auto items = std::make_unique<KsbDriverItemMemory>();
    {
        KssProject source;
        auto* item = this->modelOf(source)->create("A", this->some());
        const QJsonObject attributes{{"content", TypeParam::write(item->getContent())}};
        KsbItemRecord record;
        record.name = "A";
        record.attributes = QJsonDocument(attributes).toJson();
        items->insert(TypeParam::StoreName, record);
        items->insert(TypeParam::StoreName, record);
    }
    EXPECT_TRUE(throws<MbeError>([&] { const KssProject project(std::move(items)); }));
}

TYPED_TEST(NamedModel, LeavesIdentifiersWithoutAModelWhenItDies)
{
    typename TypeParam::Identifier ident;
    {
        KssProject other;
        ident = this->modelOf(other)->create("A", this->some())->getIdentifier();
        EXPECT_TRUE(ident.exists());
    }
    EXPECT_EQ(ident.getModel(), nullptr);
    EXPECT_FALSE(ident.exists());
    EXPECT_EQ(ident.getId(), -1);
    EXPECT_EQ(ident.getName(), "A");
    EXPECT_FALSE(ident.isNull());
    EXPECT_EQ(ident.present(), ident);
}

TYPED_TEST(NamedModel, NamesItemsByModelAndName)
{
    using Identifier = typename TypeParam::Identifier;
    KssProject other;
    auto* item = this->model->create("A", this->some());
    const Identifier ident = this->named("A");
    EXPECT_EQ(ident, item->getIdentifier());
    EXPECT_EQ(ident.getItem(), item);
    EXPECT_EQ(ident.getId(), item->getId());
    EXPECT_NE(ident, this->named("B"));
    EXPECT_NE(ident, Identifier(this->modelOf(other), "A"));
    EXPECT_NE(ident, Identifier());
    EXPECT_EQ(Identifier(), Identifier(this->model, QString()));
    EXPECT_TRUE(Identifier() < ident);
    EXPECT_TRUE(ident < this->named("B"));
    EXPECT_FALSE(ident < ident);
    EXPECT_EQ(ident.toString(), "A");
}

TYPED_TEST(NamedModel, StoresIdentifiersUnderName)
{
    using Identifier = typename TypeParam::Identifier;
    const MbbOrderedMap<QString, QString> map{{"name", "A"}};
    EXPECT_EQ(this->named("A").toMap(true), map);
    EXPECT_TRUE(Identifier().toMap(true).isEmpty());
    EXPECT_EQ(Identifier::fromMap(map, this->model), this->named("A"));
    EXPECT_TRUE(Identifier::fromMap({{"other", "A"}}, this->model).isNull());
}

TYPED_TEST(NamedModel, FollowsAnItemAlsoWhenAnotherTakesItsName)
{
    auto* item = this->model->create("A", this->some());
    const auto ident = item->getIdentifier();
    this->model->rename(item, "B");
    this->model->create("A", this->some());
    EXPECT_EQ(ident.present(), this->named("B"));
    this->model->remove(item);
    EXPECT_EQ(ident.present(), this->named("A"));
}
