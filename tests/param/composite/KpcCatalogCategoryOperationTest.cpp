#include "CompositeTestTools.h"

#include <param/composite/KpcCatalogCategoryOperation.h>

using Operation = KpcCatalogCategoryOperation;

TEST(KpcCatalogCategoryOperation, HasEachOperationWithItsValueKeyAndLabel)
{
    const std::tuple<int, QString, QString> rows[] = {
        {0, "ADD", "Add category"},
        {1, "EDIT", "Edit category"},
        {2, "REMOVE", "Remove category"},
    };
    EXPECT_EQ(Operation::count(), 3);
    auto iterator = Operation::createIterator();
    for (const auto& [value, key, label] : rows) {
        ASSERT_TRUE(iterator.hasNext());
        const Operation& operation = iterator.next();
        EXPECT_EQ(operation.getValue(), value);
        EXPECT_EQ(operation.getKey(), key);
        EXPECT_EQ(operation.getLabel(), label);
        EXPECT_EQ(int(operation.toEnum()), value);
        EXPECT_EQ(&Operation::fromKey(key), &operation);
        EXPECT_EQ(&Operation::fromLabel(label), &operation);
        EXPECT_EQ(&Operation::fromValue(value), &operation);
    }
    EXPECT_FALSE(iterator.hasNext());
}

TEST(KpcCatalogCategoryOperation, IsAddByDefault)
{
    EXPECT_EQ(Operation(), Operation::ADD);
    EXPECT_EQ(Operation().toEnum(), Operation::EValue::ADD);
}

TEST(KpcCatalogCategoryOperation, SaysWhatExists)
{
    EXPECT_TRUE(Operation::existsKey("EDIT"));
    EXPECT_FALSE(Operation::existsKey("edit"));
    EXPECT_TRUE(Operation::existsLabel("Remove category"));
    EXPECT_FALSE(Operation::existsLabel("Remove"));
    EXPECT_TRUE(Operation::existsValue(2));
    EXPECT_FALSE(Operation::existsValue(3));
}

TEST(KpcCatalogCategoryOperation, FailsOnALookupThatFindsNothing)
{
    const auto failure = [](const QString& function, const QString& asked) {
        return "'const class KpcCatalogCategoryOperation &__cdecl KpcCatalogCategoryOperation::" + function +
               "' in file 'composite\\KpcCatalogCategoryOperation' failed:\n\n" + asked + " is not valid";
    };
    EXPECT_EQ(messageOf<MbeProgrammingError>([] { Operation::fromKey("X"); }),
              failure("fromKey(const class QString &)", "X"));
    EXPECT_EQ(messageOf<MbeProgrammingError>([] { Operation::fromLabel("X"); }),
              failure("fromLabel(const class QString &)", "X"));
    EXPECT_EQ(messageOf<MbeProgrammingError>([] { Operation::fromValue(3); }), failure("fromValue(int)", "3"));
}

TEST(KpcCatalogCategoryOperation, GivesTheFallbackOfALookupThatFindsNothing)
{
    EXPECT_EQ(Operation::fromKey("X", Operation::EDIT), Operation::EDIT);
    EXPECT_EQ(Operation::fromLabel("X", Operation::EDIT), Operation::EDIT);
    EXPECT_EQ(Operation::fromValue(-1, Operation::EDIT), Operation::EDIT);
    EXPECT_EQ(Operation::fromKey("REMOVE", Operation::EDIT), Operation::REMOVE);
}

TEST(KpcCatalogCategoryOperation, ComparesByValue)
{
    EXPECT_TRUE(Operation::ADD < Operation::EDIT);
    EXPECT_TRUE(Operation::ADD <= Operation::ADD);
    EXPECT_TRUE(Operation::REMOVE > Operation::EDIT);
    EXPECT_TRUE(Operation::REMOVE >= Operation::REMOVE);
    EXPECT_TRUE(Operation::ADD != Operation::EDIT);
    EXPECT_FALSE(Operation::ADD == Operation::EDIT);
}
