#include "CompositeTestTools.h"

#include <param/KpsSerializerTestTools.h>
#include <param/atomic/KpaColor.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcCatalogCategory.h>
#include <support/BracketTranslator.h>

namespace {

using Operation = KpcCatalogCategoryOperation;

/// A row and its parts.
struct Row
{
    explicit Row(const Operation& todo = Operation::ADD, const QString& oldName = {}, const QString& newName = {})
    {
        operation->setEnum(todo);
        name->setValue(oldName);
        value->setValue(newName);
    }

    std::unique_ptr<KpcCatalogCategory> category = std::make_unique<KpcCatalogCategory>("ROW", TestContext::instance());
    KpaEnum* operation = dynamic_cast<KpaEnum*>(category->getChild("OPERATION"));
    KpaString* name = dynamic_cast<KpaString*>(category->getChild("NAME"));
    KpaColor* color = dynamic_cast<KpaColor*>(category->getChild("COLOR"));
    KpaString* value = dynamic_cast<KpaString*>(category->getChild("OPERATION_VALUE"));
};

QStringList storedKeys(const KpcCatalogCategory& category)
{
    QStringList keys;
    const QDomDocument document = SerializerTest::parsed(SerializerTest::writtenParam(category));
    for (QDomElement child = document.documentElement().firstChildElement("param"); !child.isNull();
         child = child.nextSiblingElement("param"))
        keys.append(child.attribute("key"));
    return keys;
}

} // namespace

TEST(KpcCatalogCategory, HasItsChildrenInOrder)
{
    const Row row;
    EXPECT_TRUE(row.category->isA(KpbEType::GROUP));
    EXPECT_EQ(childKeys(*row.category), QStringList({"OPERATION", "NAME", "COLOR", "OPERATION_VALUE"}));
    ASSERT_TRUE(row.operation && row.name && row.color && row.value);
    EXPECT_EQ(row.operation->getLabel(), "Operation");
    EXPECT_EQ(row.name->getLabel(), "Name");
    EXPECT_EQ(row.color->getLabel(), "Color");
    EXPECT_EQ(row.value->getLabel(), "Operation value");
}

TEST(KpcCatalogCategory, TranslatesItsLabels)
{
    const BracketTranslator translator;
    const Row row;
    EXPECT_EQ(row.operation->getLabel(), "[Operation]");
    EXPECT_EQ(row.name->getLabel(), "[Name]");
    EXPECT_EQ(row.color->getLabel(), "[Color]");
    EXPECT_EQ(row.value->getLabel(), "[Operation value]");
}

TEST(KpcCatalogCategory, OffersTheOperationsInTheirOrder)
{
    const Row row;
    ASSERT_EQ(row.operation->getItemCount(), 3);
    const QStringList keys = {"ADD", "EDIT", "REMOVE"};
    const QStringList labels = {"Add category", "Edit category", "Remove category"};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(row.operation->getItemAt(i).value, i);
        EXPECT_EQ(row.operation->getItemAt(i).key, keys[i]);
        EXPECT_EQ(row.operation->getItemAt(i).label, labels[i]);
    }
}

TEST(KpcCatalogCategory, SetsUpItsNames)
{
    const Row row;
    EXPECT_TRUE(row.name->getReadOnlyFlag());
    EXPECT_FALSE(row.value->getReadOnlyFlag());
    for (const KpaString* text : {row.name, row.value}) {
        EXPECT_TRUE(text->isAutoTrimmed());
        EXPECT_FALSE(text->isClearEnabled());
        EXPECT_EQ(text->getValue(), "");
    }
}

TEST(KpcCatalogCategory, GivesItsOperation)
{
    for (const Operation& operation : {Operation::ADD, Operation::EDIT, Operation::REMOVE})
        EXPECT_EQ(Row(operation).category->getOperation(), operation);
}

TEST(KpcCatalogCategory, AddsAtFirst)
{
    EXPECT_EQ(KpcCatalogCategory("ROW", TestContext::instance()).getOperation(), Operation::ADD);
}

TEST(KpcCatalogCategory, HasNoNewNameToEditWhenItIsRemoved)
{
    const Row row(Operation::EDIT, "Oxide");
    row.operation->setEnum(Operation::REMOVE);
    EXPECT_TRUE(row.value->getReadOnlyFlag());
    row.operation->setEnum(Operation::EDIT);
    EXPECT_FALSE(row.value->getReadOnlyFlag());
    row.operation->setEnum(Operation::REMOVE);
    row.operation->setEnum(Operation::ADD);
    EXPECT_FALSE(row.value->getReadOnlyFlag());
}

TEST(KpcCatalogCategory, TakesTheOldNameForAnEditWithoutAName)
{
    const Row row(Operation::EDIT, "Oxide", "Ore");
    row.value->setValue("");
    EXPECT_EQ(row.value->getValue(), "Oxide");
    row.value->setValue("  ");
    EXPECT_EQ(row.value->getValue(), "Oxide");
}

TEST(KpcCatalogCategory, TakesTheOldNameWhenItBecomesAnEdit)
{
    const Row row(Operation::ADD, "Oxide");
    EXPECT_EQ(row.value->getValue(), "");
    row.operation->setEnum(Operation::EDIT);
    EXPECT_EQ(row.value->getValue(), "Oxide");
}

TEST(KpcCatalogCategory, LeavesTheNewNameEmptyForOtherOperations)
{
    for (const Operation& operation : {Operation::ADD, Operation::REMOVE}) {
        const Row row(operation, "Oxide", "Ore");
        row.value->setValue("");
        EXPECT_EQ(row.value->getValue(), "");
    }
}

TEST(KpcCatalogCategory, TellsOfAChangeInOneRecord)
{
    const Row row(Operation::EDIT, "Oxide", "Ore");
    RecordingObserver observer(*row.category);
    row.value->setValue("");
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*row.value), int(Kp::NotifyValue));
    row.operation->setEnum(Operation::REMOVE);
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.flagsOf(*row.operation, 1), int(Kp::NotifyValue));
    EXPECT_EQ(observer.flagsOf(*row.value, 1), int(Kp::NotifyConfig));
}

TEST(KpcCatalogCategory, StoresWhatItsOperationHasAUseFor)
{
    const std::tuple<Operation, QString, QString, QStringList> rows[] = {
        {Operation::ADD, "", "New", {"OPERATION", "COLOR", "OPERATION_VALUE"}},
        {Operation::ADD, "Same", "Same", {"OPERATION", "COLOR", "OPERATION_VALUE"}},
        {Operation::EDIT, "Old", "New", {"OPERATION", "NAME", "COLOR", "OPERATION_VALUE"}},
        {Operation::EDIT, "Same", "Same", {"OPERATION", "NAME", "COLOR"}},
        {Operation::REMOVE, "Old", "Old", {"OPERATION", "NAME", "OPERATION_VALUE"}},
    };
    for (const auto& [operation, oldName, newName, keys] : rows) {
        const Row row(operation, oldName, newName);
        EXPECT_EQ(storedKeys(*row.category), keys);
        EXPECT_TRUE(row.category->serialize().isEmpty());
    }
}

TEST(KpcCatalogCategory, StoresAgainWhatAnEarlierOperationHadNoUseFor)
{
    const Row row(Operation::EDIT, "Same", "Same");
    EXPECT_EQ(storedKeys(*row.category).size(), 3);
    row.value->setValue("New");
    EXPECT_EQ(storedKeys(*row.category), QStringList({"OPERATION", "NAME", "COLOR", "OPERATION_VALUE"}));
    row.operation->setEnum(Operation::REMOVE);
    EXPECT_EQ(storedKeys(*row.category), QStringList({"OPERATION", "NAME", "OPERATION_VALUE"}));
    row.operation->setEnum(Operation::ADD);
    EXPECT_EQ(storedKeys(*row.category), QStringList({"OPERATION", "COLOR", "OPERATION_VALUE"}));
}

TEST(KpcCatalogCategory, LeavesOutWhatItsCallerHasMadeVolatile)
{
    const Row row(Operation::EDIT, "Old", "New");
    row.color->setVolatile(true);
    EXPECT_EQ(storedKeys(*row.category), QStringList({"OPERATION", "NAME", "OPERATION_VALUE"}));
    row.operation->setEnum(Operation::REMOVE);
    EXPECT_EQ(storedKeys(*row.category), QStringList({"OPERATION", "NAME", "OPERATION_VALUE"}));
    row.operation->setEnum(Operation::EDIT);
    EXPECT_EQ(storedKeys(*row.category), QStringList({"OPERATION", "NAME", "OPERATION_VALUE"}));
    row.color->setVolatile(false);
    EXPECT_EQ(storedKeys(*row.category), QStringList({"OPERATION", "NAME", "COLOR", "OPERATION_VALUE"}));
}

TEST(KpcCatalogCategory, StoresWhatALoadLockedPartKeepsWhateverItHolds)
{
    const Row row;
    row.value->lockLoad();
    SerializerTest::read(*row.category, R"(<param key="ROW"><param key="OPERATION">EDIT</param>)"
                                        R"(<param key="OPERATION_VALUE">Ore</param></param>)");
    EXPECT_EQ(row.value->getValue(), "");
    EXPECT_EQ(storedKeys(*row.category), QStringList({"OPERATION", "NAME", "COLOR", "OPERATION_VALUE"}));
}

TEST(KpcCatalogCategory, StoresInACopyWhatAnEarlierOperationHadNoUseFor)
{
    const Row row(Operation::ADD, "Old", "New");
    storedKeys(*row.category);
    const std::unique_ptr<KpcCatalogCategory> copy(row.category->duplicate("COPY"));
    dynamic_cast<KpaEnum&>(*copy->getChild("OPERATION")).setEnum(Operation::EDIT);
    EXPECT_EQ(storedKeys(*copy), QStringList({"OPERATION", "NAME", "COLOR", "OPERATION_VALUE"}));
}

TEST(KpcCatalogCategory, ReadsAllOfAStoredRowWhateverItWasBefore)
{
    const Row stored(Operation::EDIT, "Oxide", "Ore");
    stored.color->setValue(Qt::red);
    const QString form = SerializerTest::writtenParam(*stored.category);
    for (const Operation& operation : {Operation::ADD, Operation::EDIT, Operation::REMOVE}) {
        const Row row(operation, "Same", "Same");
        SerializerTest::writtenParam(*row.category);
        SerializerTest::read(*row.category, form);
        EXPECT_EQ(row.category->getOperation(), Operation::EDIT);
        EXPECT_EQ(row.name->getValue(), "Oxide");
        EXPECT_EQ(row.value->getValue(), "Ore");
        EXPECT_EQ(row.color->getValue(), QColor(Qt::red));
    }
}

TEST(KpcCatalogCategory, ReadsAnEditWithoutANewNameAsUnchanged)
{
    const Row row;
    SerializerTest::read(*row.category, R"(<param key="ROW"><param key="OPERATION">EDIT</param>)"
                                        R"(<param key="NAME">Oxide</param></param>)");
    EXPECT_EQ(row.value->getValue(), "Oxide");
}

TEST(KpcCatalogCategory, CopiesItsStateAndNothingMore)
{
    const Row row(Operation::EDIT, "Oxide", "Ore");
    const std::unique_ptr<KpcCatalogCategory> copy(row.category->duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getOperation(), Operation::EDIT);
    auto* value = dynamic_cast<KpaString*>(copy->getChild("OPERATION_VALUE"));
    ASSERT_TRUE(value);
    EXPECT_EQ(value->getValue(), "Ore");
    value->setValue("");
    EXPECT_EQ(value->getValue(), "Oxide");
    EXPECT_EQ(row.value->getValue(), "Ore");
    EXPECT_EQ(std::unique_ptr<KpcCatalogCategory>(row.category->duplicate(QString()))->getKey(), "ROW");
}

TEST(KpcCatalogCategory, SurvivesThatItIsDestroyedByAnObserver)
{
    for (const char* key : {"OPERATION", "OPERATION_VALUE", ""}) {
        Row row(Operation::EDIT, "Oxide", "Ore");
        const KpbAParameter& observed = *key ? *row.category->getChild(key) : *row.category;
        ActingObserver observer(observed, [&] { row.category.reset(); });
        if (QString(key) == "OPERATION")
            row.operation->setEnum(Operation::REMOVE);
        else
            row.value->setValue("");
        EXPECT_FALSE(row.category) << key;
    }
}
