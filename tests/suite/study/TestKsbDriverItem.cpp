#include "StudyTest.h"

#include <study/KsbDriverItemMemory.h>
#include <study/KsbDriverItemSqlite.h>

namespace {

enum class Place
{
    Memory,
    File,
};

/// What both stores of items do alike.
class KsbDriverItemTest : public StudyTest, public testing::WithParamInterface<Place>
{
protected:
    std::unique_ptr<KsbIDriverItem> made() const
    {
        if (GetParam() == Place::Memory)
            return std::make_unique<KsbDriverItemMemory>();
        Driver::create(path);
        return KsbDriverItemSqlite::open(path);
    }
    QStringList stored(const QString& model) const
    {
        QStringList records;
        for (const KsbItemRecord& record : driver->list(model))
            records.append(QString("%1 %2 %3 %4 %5")
                               .arg(QString::number(record.id), QString::number(record.parent),
                                    QString::number(record.kind), record.name, QString::fromUtf8(record.attributes)));
        return records;
    }
    QString content(int id, int number) const
    {
        return QString::fromLatin1(driver->readContent(id, number).value_or("none"));
    }

    const std::unique_ptr<KsbIDriverItem> driver = made();
};

INSTANTIATE_TEST_SUITE_P(Places, KsbDriverItemTest, testing::Values(Place::Memory, Place::File),
                         [](const auto& info) { return info.param == Place::Memory ? "Memory" : "File"; });

TEST_P(KsbDriverItemTest, KeepsTheRecordsOfEachModelApart)
{
    EXPECT_EQ(driver->insert("data", {0, 0, 1, "a", "{}"}), 1);
    EXPECT_EQ(driver->insert("scene", {0, 0, 2, "b", "{}"}), 2);
    EXPECT_EQ(driver->insert("data", {77, 1, 3, "c", "{\"x\":1}"}), 3);

    EXPECT_EQ(stored("data"), (QStringList{"1 0 1 a {}", "3 1 3 c {\"x\":1}"}));
    EXPECT_EQ(stored("scene"), (QStringList{"2 0 2 b {}"}));
    EXPECT_EQ(stored("other"), QStringList());
}

TEST_P(KsbDriverItemTest, ChangesEverythingButTheKind)
{
    driver->insert("data", {0, 0, 1, "a", "{}"});

    driver->update({1, 5, 9, "b", "[]"});

    EXPECT_EQ(stored("data"), (QStringList{"1 5 1 b []"}));
}

TEST_P(KsbDriverItemTest, RefusesAnUnknownId)
{
    storageError([&] { driver->update({1, 0, 0, "b", ""}); });
    storageError([&] { driver->writeContent(1, 0, "x"); });

    EXPECT_EQ(stored("data"), QStringList());
    EXPECT_EQ(content(1, 0), "none");
    driver->remove({1, 2});
}

TEST_P(KsbDriverItemTest, KeepsContentsUnderTheirNumbers)
{
    driver->insert("data", {0, 0, 1, "a", ""});
    driver->writeContent(1, 0, "zero");
    driver->writeContent(1, 3, QByteArray());
    driver->writeContent(1, 0, "new");

    EXPECT_EQ(content(1, 0), "new");
    EXPECT_EQ(content(1, 1), "none");
    EXPECT_EQ(content(1, 3), "");
}

TEST_P(KsbDriverItemTest, RemovesARecordWithItsContents)
{
    driver->insert("data", {0, 0, 1, "a", ""});
    driver->writeContent(1, 0, "zero");

    driver->remove({1});

    EXPECT_EQ(stored("data"), QStringList());
    EXPECT_EQ(content(1, 0), "none");
    EXPECT_EQ(driver->insert("data", {0, 0, 1, "a", ""}), 2);
}

TEST_P(KsbDriverItemTest, StoresNothingOfAStepThatThrows)
{
    driver->insert("data", {0, 0, 1, "a", ""});
    driver->insert("data", {0, 0, 1, "b", ""});
    driver->writeContent(1, 0, "zero");
    driver->writeContent(2, 0, "two");

    EXPECT_THROW(driver->inOneStep([&] {
        driver->update({1, 2, 0, "c", "{}"});
        driver->writeContent(1, 0, "new");
        driver->remove({2});
        driver->inOneStep([&] { driver->writeContent(driver->insert("data", {0, 0, 1, "d", ""}), 0, "d"); });
        throw MbeUserError("no");
    }),
                 MbeUserError);

    EXPECT_EQ(stored("data"), (QStringList{"1 0 1 a ", "2 0 1 b "}));
    EXPECT_EQ(content(1, 0), "zero");
    EXPECT_EQ(content(2, 0), "two");
    EXPECT_EQ(content(3, 0), "none");
}

TEST_P(KsbDriverItemTest, StoresAllOfAStep)
{
    driver->inOneStep([&] {
        driver->insert("data", {0, 0, 1, "a", ""});
        driver->writeContent(1, 0, "x");
    });
    EXPECT_THROW(driver->inOneStep([&] { throw MbeUserError("no"); }), MbeUserError);

    EXPECT_EQ(stored("data"), (QStringList{"1 0 1 a "}));
    EXPECT_EQ(content(1, 0), "x");
}

} // namespace
