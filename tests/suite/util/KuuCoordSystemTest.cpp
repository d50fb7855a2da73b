#include <gtest/gtest.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <basic/MbeError.h>
#include <support/RecordedMessages.h>
#include <util/KuuCoordSystemCatalog.h>

#include <vector>

namespace {
using Mode = Ku::CoordSystemMode;

/// The catalogue without a database while it lives.
struct OtherDatabase
{
    explicit OtherDatabase(const QString& path) { KuuCoordSystemCatalog::setDatabase(path); }
    ~OtherDatabase() { KuuCoordSystemCatalog::setDatabase(QString()); }
};

/// A program that prints a warning or a system's key; run where PROJ_DATA names an empty folder.
void lookUpAndExit()
{
    RecordedMessages messages;
    const KuuCoordSystem system = KuuCoordSystemCatalog::getCoordSystem("EPSG:2154");
    KuuCoordSystemCatalog::getCoordSystem("EPSG:4326");
    fprintf(stderr, "valid=%d warnings=%d %s", int(system.isValid()), messages.warnings.size(),
            messages.warnings.value(0).toUtf8().constData());
    exit(0);
}
} // namespace

TEST(KuuCoordSystem, IsNotValidByDefault)
{
    const KuuCoordSystem system;
    EXPECT_FALSE(system.isValid());
    EXPECT_EQ(system.getKey(), "");
    EXPECT_EQ(system.getName(), "");
    EXPECT_EQ(int(system.getMode()), 0);
}

TEST(KuuCoordSystem, ComparesAllThatItHolds)
{
    const KuuCoordSystem system("A:1", "name", Mode::Local);
    EXPECT_EQ(system, KuuCoordSystem("A:1", "name", Mode::Local));
    EXPECT_NE(system, KuuCoordSystem("A:2", "name", Mode::Local));
    EXPECT_NE(system, KuuCoordSystem("A:1", "other", Mode::Local));
    EXPECT_NE(system, KuuCoordSystem("A:1", "name", Mode::Projected));
}

TEST(KuuCoordSystemCatalog, GivesSystemsWithTheirNameAndKind)
{
    struct Row
    {
        const char* key;
        const char* name;
        Ku::CoordSystemModes mode;
    };
    const std::vector<Row> rows = {
        {"EPSG:2154", "RGF93 v1 / Lambert-93", Mode::Projected},
        {"EPSG:4326", "WGS 84", Mode::Geographic},
        {"EPSG:4979", "WGS 84", Mode::Geographic},
        {"EPSG:32631", "WGS 84 / UTM zone 31N", Mode::Projected},
        {"EPSG:5698", "RGF93 v1 / Lambert-93 + NGF-IGN69 height", Mode::Projected},
        {"EPSG:4978", "WGS 84", {}},
        {"EPSG:5714", "MSL height", {}},
        {"OGC:CRS84", "WGS 84 (CRS84)", Mode::Geographic},
    };
    for (const Row& row : rows) {
        const KuuCoordSystem system = KuuCoordSystemCatalog::getCoordSystem(row.key);
        EXPECT_TRUE(system.isValid()) << row.key;
        EXPECT_EQ(system.getKey(), row.key);
        EXPECT_EQ(system.getName(), row.name) << row.key;
        EXPECT_EQ(system.getMode(), row.mode) << row.key;
    }
}

TEST(KuuCoordSystemCatalog, TellsTheKindsApart)
{
    const KuuCoordSystem projected = KuuCoordSystemCatalog::getCoordSystem("EPSG:2154");
    EXPECT_TRUE(projected.isProjected());
    EXPECT_FALSE(projected.isGeographic());
    EXPECT_FALSE(projected.isLocal());
    EXPECT_TRUE(KuuCoordSystemCatalog::getCoordSystem("EPSG:4326").isGeographic());
    EXPECT_TRUE(KuuCoordSystemCatalog::getCoordSystem("LOCAL").isLocal());
}

TEST(KuuCoordSystemCatalog, GivesTheKeyAsTheDatabaseWritesIt)
{
    EXPECT_EQ(KuuCoordSystemCatalog::getCoordSystem("epsg:2154"), KuuCoordSystemCatalog::getCoordSystem("EPSG:2154"));
}

TEST(KuuCoordSystemCatalog, GivesTheSameSystemAgain)
{
    const KuuCoordSystem first = KuuCoordSystemCatalog::getCoordSystem("EPSG:2154");
    EXPECT_EQ(KuuCoordSystemCatalog::getCoordSystem("EPSG:2154"), first);
}

TEST(KuuCoordSystemCatalog, KnowsTheLocalSystem)
{
    const KuuCoordSystem local = KuuCoordSystemCatalog::getCoordSystem(KuuCoordSystemCatalog::KEY_LOCAL);
    EXPECT_EQ(local.getKey(), "LOCAL");
    EXPECT_EQ(local.getName(), "Local");
    EXPECT_EQ(local.getMode(), Ku::CoordSystemModes(Mode::Local));
}

TEST(KuuCoordSystemCatalog, GivesAnInvalidSystemForAnyOtherText)
{
    RecordedMessages messages;
    const QStringList keys = {
        "",
        " ",
        "EPSG",
        "EPSG:",
        ":2154",
        "2154",
        "EPSG:999999999",
        "NOBODY:2154",
        "EPSG:7030", // an ellipsoid
        "EPSG:2154\n",
        " EPSG:2154",
        "EPSG:2154;DROP TABLE crs_view",
        "EPSG:2154' OR '1'='1",
        "EPSG:2154+EPSG:5720",
        "EPSG::2154",
        "local",
        "+proj=longlat +datum=WGS84",
        "+proj=pipeline +step +proj=utm +zone=31",
        "+init=epsg:2154",
        "init=epsg:2154",
        "urn:ogc:def:crs:EPSG::2154",
        "http://www.opengis.net/def/crs/EPSG/0/2154",
        "https://example.org/epsg.json",
        "/etc/passwd",
        "../proj.db",
        "file:2154/../..",
        "GEOGCS[\"WGS 84\"]",
        "{\"type\": \"GeographicCRS\"}",
        "WGS 84",
        QString("EPSG:") + QChar(0x0661),
        QString("EPSG:2154") + QChar(0) + "x",
        QString("EPSG:") + QString(1000000, '1'),
        QString(1000000, 'A') + ":1",
    };
    for (const QString& key : keys)
        EXPECT_EQ(KuuCoordSystemCatalog::getCoordSystem(key), KuuCoordSystem()) << key.left(50).toStdString();
    EXPECT_TRUE(messages.warnings.isEmpty());
}

TEST(KuuCoordSystemCatalog, EndsWithManyKeys)
{
    for (int code = 0; code < 2500; ++code)
        EXPECT_FALSE(KuuCoordSystemCatalog::getCoordSystem(QStringLiteral("NOBODY:%1").arg(code)).isValid());
    EXPECT_TRUE(KuuCoordSystemCatalog::getCoordSystem("EPSG:2154").isValid());
}

TEST(KuuCoordSystemCatalog, FindsTheDatabase)
{
    EXPECT_NO_THROW(KuuCoordSystemCatalog::requireDatabase());
}

TEST(KuuCoordSystemCatalog, GivesInvalidSystemsAndOneWarningWithoutADatabase)
{
    const OtherDatabase missing("/no/such/folder/proj.db");
    RecordedMessages messages;
    EXPECT_FALSE(KuuCoordSystemCatalog::getCoordSystem("EPSG:2154").isValid());
    EXPECT_FALSE(KuuCoordSystemCatalog::getCoordSystem("EPSG:4326").isValid());
    EXPECT_EQ(messages.warnings, QStringList({"Coordinate systems cannot be looked up: PROJ cannot read its database "
                                              "at '/no/such/folder/proj.db'."}));
}

TEST(KuuCoordSystemCatalog, KnowsTheLocalSystemWithoutADatabase)
{
    const OtherDatabase missing("/no/such/folder/proj.db");
    RecordedMessages messages;
    EXPECT_TRUE(KuuCoordSystemCatalog::getCoordSystem("LOCAL").isValid());
    EXPECT_TRUE(messages.warnings.isEmpty());
}

TEST(KuuCoordSystemCatalog, SaysWhereItLookedForTheDatabase)
{
    const OtherDatabase missing("/no/such/folder/proj.db");
    try {
        KuuCoordSystemCatalog::requireDatabase();
        FAIL();
    }
    catch (const MbeError& error) {
        EXPECT_EQ(error.getType(), int(MbeError::Storage));
        EXPECT_EQ(error.getMessage(), "Coordinate systems cannot be looked up: PROJ cannot read its database at "
                                      "'/no/such/folder/proj.db'.");
    }
}

TEST(KuuCoordSystemCatalog, TakesADamagedDatabaseAsNone)
{
    const QTemporaryDir folder;
    for (const QByteArray& content : {QByteArray(), QByteArray("no database"), QByteArray(100000, '\0')}) {
        QFile file(folder.filePath("proj.db"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        const OtherDatabase damaged(file.fileName());
        RecordedMessages messages;
        EXPECT_FALSE(KuuCoordSystemCatalog::getCoordSystem("EPSG:2154").isValid());
        EXPECT_EQ(messages.warnings.size(), 1);
        EXPECT_THROW(KuuCoordSystemCatalog::requireDatabase(), MbeError);
    }
}

TEST(KuuCoordSystemCatalog, FindsTheDatabaseAgain)
{
    {
        const OtherDatabase missing("/no/such/folder/proj.db");
        RecordedMessages messages;
        EXPECT_FALSE(KuuCoordSystemCatalog::getCoordSystem("EPSG:2154").isValid());
    }
    EXPECT_TRUE(KuuCoordSystemCatalog::getCoordSystem("EPSG:2154").isValid());
}

TEST(KuuCoordSystemCatalogDeathTest, WarnsOnceWhereTheEnvironmentNamesAFolderWithoutTheDatabase)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const QTemporaryDir empty;
    qputenv("PROJ_DATA", QFile::encodeName(empty.path()));
    qputenv("PROJ_LIB", QFile::encodeName(empty.path()));
    EXPECT_EXIT(lookUpAndExit(), testing::ExitedWithCode(0),
                "valid=0 warnings=1 Coordinate systems cannot be looked up: PROJ does not find its database 'proj.db'; "
                "the environment variable PROJ_DATA names the folder that it lies in");
    qunsetenv("PROJ_DATA");
    qunsetenv("PROJ_LIB");
}
