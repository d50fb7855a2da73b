#include <gtest/gtest.h>

#include <basic/MbbGlobal.h>
#include <basic/MbeError.h>
#include <basic/MbuUnitService.h>

#include <QtCore/QSet>
#include <QtCore/QTemporaryDir>

#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <thread>
#include <vector>

namespace {
/// Near to the last digits of a double.
void expectClose(double actual, double expected, const std::string& what = std::string())
{
    EXPECT_NEAR(actual, expected, std::abs(expected) * 1e-14) << what;
}

double toStorage(const char* key, double value, int power = 1)
{
    return MbuUnitService::getConversionToStorageUnit(MbuUnitService::getUnit(key), power).transform(value);
}

double fromStorage(const char* key, double value, int power = 1)
{
    return MbuUnitService::getConversionFromStorageUnit(MbuUnitService::getUnit(key), power).transform(value);
}

QList<MbuUnit> allUnits()
{
    QList<MbuUnit> units;
    for (const MbuEUnitClass* unitClass : MbuEUnitClass::items())
        units << MbuUnitService::getUnits(*unitClass);
    return units;
}

const MbuUnit strange(MbuEUnitClass::LENGTH, "cubit", "cbt", "Cubit");
} // namespace

TEST(MbuUnit, IsTheUnitOfTheClassNoneByDefault)
{
    const MbuUnit unit;
    EXPECT_EQ(unit.getUnitClass(), MbuEUnitClass::NONE);
    EXPECT_EQ(unit.getKey(), "none");
    EXPECT_EQ(unit.getSymbol(), "");
}

TEST(MbuUnit, IsEqualByKeyAndClass)
{
    const MbuUnit unit(MbuEUnitClass::LENGTH, "x", "s", "n");
    EXPECT_EQ(unit, MbuUnit(MbuEUnitClass::LENGTH, "x", "other", "other"));
    EXPECT_NE(unit, MbuUnit(MbuEUnitClass::MASS, "x", "s", "n"));
    EXPECT_NE(unit, MbuUnit(MbuEUnitClass::LENGTH, "y", "s", "n"));
}

TEST(MbuUnitService, ListsUnitsOfEveryClassUnderUniqueKeys)
{
    QSet<QString> keys;
    for (const MbuEUnitClass* unitClass : MbuEUnitClass::items()) {
        const QList<MbuUnit> units = MbuUnitService::getUnits(*unitClass);
        EXPECT_FALSE(units.isEmpty()) << unitClass->getKey().toStdString();
        for (const MbuUnit& unit : units) {
            EXPECT_EQ(unit.getUnitClass(), *unitClass);
            EXPECT_FALSE(unit.getName().isEmpty());
            EXPECT_FALSE(keys.contains(unit.getKey())) << unit.getKey().toStdString();
            keys.insert(unit.getKey());
        }
    }
}

TEST(MbuUnitService, KeepsItsStorageUnits)
{
    const struct
    {
        const MbuEUnitClass& unitClass;
        const char* key;
    } rows[] = {
        {MbuEUnitClass::NONE, "none"},
        {MbuEUnitClass::LENGTH, "m"},
        {MbuEUnitClass::SURFACE, "m2"},
        {MbuEUnitClass::VOLUME, "m3"},
        {MbuEUnitClass::ANGLE, "deg"},
        {MbuEUnitClass::MASS, "kg"},
        {MbuEUnitClass::TIME, "s"},
        {MbuEUnitClass::TEMPERATURE, "K"},
        {MbuEUnitClass::DENSITY, "kg/m3"},
        {MbuEUnitClass::PRESSURE, "Pa"},
        {MbuEUnitClass::CONCENTRATION, "kg/kg"},
        {MbuEUnitClass::PERCENTAGE, "%"},
        {MbuEUnitClass::VELOCITY, "m/s"},
        {MbuEUnitClass::ACCELERATION, "m/s2"},
        {MbuEUnitClass::PERMEABILITY, "mD"},
    };
    EXPECT_EQ(int(std::size(rows)), MbuEUnitClass::count());
    for (const auto& row : rows) {
        EXPECT_EQ(MbuUnitService::getStorageUnit(row.unitClass).getKey(), row.key);
        EXPECT_EQ(toStorage(row.key, 12.5), 12.5);
    }
}

TEST(MbuUnitService, GivesAUnitByItsKey)
{
    for (const MbuUnit& unit : allUnits())
        EXPECT_EQ(MbuUnitService::getUnit(unit.getKey()), unit);
    EXPECT_EQ(MbuUnitService::getUnit("deg").getSymbol(), QString::fromUtf8("°"));
}

TEST(MbuUnitService, FailsForAnUnknownKey)
{
    for (const char* key : {"", "M", "metre", " m"})
        EXPECT_THROW(MbuUnitService::getUnit(key), MbeProgrammingError) << key;
}

TEST(MbuUnitService, ConvertsEachUnitToItsStorageUnit)
{
    const struct
    {
        const char* key;
        double oneUnit;
    } rows[] = {
        {"km", 1000.0},
        {"dm", 0.1},
        {"cm", 0.01},
        {"mm", 0.001},
        {"um", 1e-6},
        {"in", 0.0254},
        {"ft", 0.3048},
        {"us_ft", 1200.0 / 3937.0},
        {"yd", 0.9144},
        {"mi", 1609.344},
        {"nmi", 1852.0},
        {"km2", 1e6},
        {"cm2", 1e-4},
        {"mm2", 1e-6},
        {"are", 100.0},
        {"ha", 10000.0},
        {"in2", 0.00064516},
        {"ft2", 0.09290304},
        {"yd2", 0.83612736},
        {"mi2", 2589988.110336},
        {"acre", 4046.8564224},
        {"us_acre", 43560.0 * 1440000.0 / 15499969.0},
        {"km3", 1e9},
        {"cm3", 1e-6},
        {"l", 0.001},
        {"ml", 1e-6},
        {"in3", 1.6387064e-5},
        {"ft3", 0.028316846592},
        {"yd3", 0.764554857984},
        {"us_gal", 0.003785411784},
        {"bbl", 0.158987294928},
        {"acre_ft", 1233.48183754752},
        {"rad", 57.29577951308232},
        {"gon", 0.9},
        {"arcmin", 1.0 / 60.0},
        {"arcsec", 1.0 / 3600.0},
        {"turn", 360.0},
        {"g", 0.001},
        {"mg", 1e-6},
        {"t", 1000.0},
        {"kt", 1e6},
        {"Mt", 1e9},
        {"lb", 0.45359237},
        {"oz", 0.028349523125},
        {"oz_tr", 0.0311034768},
        {"ct", 0.0002},
        {"short_t", 907.18474},
        {"long_t", 1016.0469088},
        {"ms", 0.001},
        {"min", 60.0},
        {"h", 3600.0},
        {"d", 86400.0},
        {"week", 604800.0},
        {"year", 31557600.0},
        {"Ma", 3.15576e13},
        {"degC", 274.15},
        {"degF", 460.67 / 1.8},
        {"g/cm3", 1000.0},
        {"t/m3", 1000.0},
        {"g/l", 1.0},
        {"mg/l", 0.001},
        {"lb/ft3", 0.45359237 / 0.028316846592},
        {"hPa", 100.0},
        {"kPa", 1000.0},
        {"MPa", 1e6},
        {"bar", 1e5},
        {"atm", 101325.0},
        {"psi", 0.45359237 * 9.80665 / 0.00064516},
        {"wt%", 0.01},
        {"kg/t", 0.001},
        {"g/t", 1e-6},
        {"ppm", 1e-6},
        {"ppb", 1e-9},
        {"opt", 0.0311034768 / 907.18474},
        {"permille", 0.1},
        {"fraction", 100.0},
        {"km/s", 1000.0},
        {"km/h", 1.0 / 3.6},
        {"ft/s", 0.3048},
        {"Gal", 0.01},
        {"mGal", 1e-5},
        {"D", 1000.0},
        {"um2", 1e-12 / 9.869233e-16},
    };
    for (const auto& row : rows)
        expectClose(toStorage(row.key, 1.0), row.oneUnit, row.key);
    EXPECT_EQ(int(std::size(rows)) + MbuEUnitClass::count(), allUnits().count());
}

TEST(MbuUnitService, ConvertsLengthsByHand)
{
    EXPECT_DOUBLE_EQ(toStorage("in", 12.0), 0.3048);
    EXPECT_DOUBLE_EQ(toStorage("ft", 100.0), 30.48);
    EXPECT_DOUBLE_EQ(toStorage("mi", 2.5), 4023.36);
    EXPECT_DOUBLE_EQ(fromStorage("ft", 0.3048), 1.0);
    EXPECT_DOUBLE_EQ(fromStorage("in", 1.0), 39.37007874015748);
    EXPECT_DOUBLE_EQ(fromStorage("mi", 1609.344), 1.0);
}

TEST(MbuUnitService, ConvertsAnglesByHand)
{
    EXPECT_DOUBLE_EQ(toStorage("rad", 3.141592653589793), 180.0);
    EXPECT_DOUBLE_EQ(toStorage("gon", 400.0), 360.0);
    EXPECT_DOUBLE_EQ(fromStorage("rad", 90.0), 1.5707963267948966);
    EXPECT_DOUBLE_EQ(fromStorage("gon", 45.0), 50.0);
}

TEST(MbuUnitService, ConvertsTemperaturesWithTheirOffset)
{
    EXPECT_DOUBLE_EQ(toStorage("degC", 0.0), 273.15);
    EXPECT_DOUBLE_EQ(toStorage("degC", -273.15), 0.0);
    EXPECT_DOUBLE_EQ(toStorage("degF", 32.0), 273.15);
    EXPECT_DOUBLE_EQ(toStorage("degF", 212.0), 373.15);
    expectClose(toStorage("degF", -40.0), toStorage("degC", -40.0));
    expectClose(fromStorage("degC", 300.0), 26.85, "300 K");
    expectClose(fromStorage("degF", 300.0), 80.33, "300 K");
}

TEST(MbuUnitService, ConvertsSurfacesByHand)
{
    EXPECT_DOUBLE_EQ(toStorage("ha", 3.0), 30000.0);
    EXPECT_DOUBLE_EQ(toStorage("acre", 1000.0), 4046856.4224);
    EXPECT_DOUBLE_EQ(fromStorage("acre", 10000.0), 2.4710538146716536);
}

TEST(MbuUnitService, RaisesTheScaleToThePower)
{
    const struct
    {
        const char* key;
        int power;
        double oneUnit;
    } rows[] = {
        {"ft", 1, 0.3048}, {"ft", 2, 0.09290304}, {"ft", 3, 0.028316846592}, {"ft", 0, 1.0},  {"ft", -1, 1.0 / 0.3048},
        {"km", 2, 1e6},    {"km", 3, 1e9},        {"km", -2, 1e-6},          {"cm", -3, 1e6}, {"gon", 2, 0.81},
        {"ha", 2, 1e8},    {"in", 2, 0.00064516},
    };
    for (const auto& row : rows) {
        const std::string what = row.key + std::to_string(row.power);
        expectClose(toStorage(row.key, 1.0, row.power), row.oneUnit, what);
        expectClose(fromStorage(row.key, row.oneUnit, row.power), 1.0, what);
    }
}

TEST(MbuUnitService, LeavesTheOffsetOutAtOtherPowersThanOne)
{
    expectClose(toStorage("degF", 9.0, 2), 9.0 / 3.24);
    EXPECT_EQ(toStorage("degC", 4.0, 2), 4.0);
    EXPECT_EQ(toStorage("degC", 4.0, 0), 4.0);
    expectClose(toStorage("degF", 5.0, -1), 9.0);
}

TEST(MbuUnitService, GoesForthAndBackThroughEveryUnit)
{
    for (const MbuUnit& unit : allUnits()) {
        for (const int power : {-3, -2, -1, 0, 1, 2, 3}) {
            const MbuUnitTransfo to = MbuUnitService::getConversionToStorageUnit(unit, power);
            const MbuUnitTransfo from = MbuUnitService::getConversionFromStorageUnit(unit, power);
            ASSERT_TRUE(to.isValid());
            ASSERT_TRUE(from.isValid());
            for (const double value : {0.0, 1.0, -273.15, 12.5, 1e-4, 6.02e9}) {
                // The offset of temperatures takes digits from small values.
                const double tolerance = std::abs(value) * 1e-14 + 1e-12;
                EXPECT_NEAR(from.transform(to.transform(value)), value, tolerance) << unit.getKey().toStdString();
            }
        }
    }
}

TEST(MbuUnitService, PassesTheUndefinedMarkerThrough)
{
    for (const MbuUnit& unit : allUnits()) {
        for (const int power : {-1, 1, 2}) {
            EXPECT_EQ(MbuUnitService::getConversionToStorageUnit(unit, power).transform(MbbGlobal::D_FFFF),
                      MbbGlobal::D_FFFF);
            EXPECT_EQ(MbuUnitService::getConversionFromStorageUnit(unit, power).transform(MbbGlobal::D_FFFF),
                      MbbGlobal::D_FFFF);
        }
    }
}

TEST(MbuUnitService, GivesNoConversionForAUnitThatItDoesNotKnow)
{
    for (const MbuUnitTransfo& transfo : {MbuUnitService::getConversionToStorageUnit(strange, 1),
                                          MbuUnitService::getConversionFromStorageUnit(strange, 2)})
    {
        EXPECT_FALSE(transfo.isValid());
        EXPECT_EQ(transfo.transform(3.5), 3.5);
    }
}

TEST(MbuUnitService, GivesNoConversionAtAPowerThatNoDoubleHolds)
{
    for (const int power : {200, -200, 2147483647, -2147483647 - 1}) {
        const MbuUnitTransfo transfo = MbuUnitService::getConversionToStorageUnit(MbuUnitService::getUnit("km"), power);
        EXPECT_FALSE(transfo.isValid()) << power;
        EXPECT_EQ(transfo.transform(3.5), 3.5) << power;
    }
}

TEST(MbuUnitService, DecodesAKeyOfTheGivenClass)
{
    const auto [unit, transfo] = MbuUnitService::getUnitDecodeKey(MbuEUnitClass::LENGTH, "ft");
    EXPECT_TRUE(transfo.isValid());
    EXPECT_EQ(unit, MbuUnitService::getUnit("ft"));
    EXPECT_DOUBLE_EQ(transfo.transform(10.0), 3.048);
}

TEST(MbuUnitService, DecodesAKeyOfAnotherClass)
{
    const auto [unit, transfo] = MbuUnitService::getUnitDecodeKey(MbuEUnitClass::LENGTH, "gon");
    EXPECT_TRUE(transfo.isValid());
    EXPECT_EQ(unit.getUnitClass(), MbuEUnitClass::ANGLE);
    EXPECT_DOUBLE_EQ(transfo.transform(100.0), 90.0);
}

TEST(MbuUnitService, DecodesEveryKeyFromEveryClass)
{
    for (const MbuEUnitClass* unitClass : MbuEUnitClass::items()) {
        for (const MbuUnit& unit : allUnits()) {
            const MbuUnitService::DecodedUnit decoded = MbuUnitService::getUnitDecodeKey(*unitClass, unit.getKey());
            EXPECT_TRUE(decoded.transfo.isValid());
            EXPECT_EQ(decoded.unit, unit);
        }
    }
}

TEST(MbuUnitService, SaysThatAKeyIsUnknown)
{
    for (const char* key : {"", "cubit", "FT", " ft", "ft "}) {
        const MbuUnitService::DecodedUnit decoded = MbuUnitService::getUnitDecodeKey(MbuEUnitClass::LENGTH, key);
        EXPECT_FALSE(decoded.transfo.isValid()) << key;
        EXPECT_EQ(decoded.unit, MbuUnit()) << key;
    }
}

TEST(MbuUnitService, WritesAPoweredSymbol)
{
    const struct
    {
        const char* symbol;
        int power;
        const char* expected;
    } rows[] = {
        {"m", 1, "m"},
        {"m", 2, "m²"},
        {"m", 3, "m³"},
        {"m", 0, ""},
        {"m", -1, "m⁻¹"},
        {"m", 12, "m¹²"},
        {"m", -40, "m⁻⁴⁰"},
        {"", 1, ""},
        {"", 2, ""},
        {"°", 2, "°²"},
        {"%", 2, "%²"},
        {"g/t", 1, "g/t"},
        {"g/t", 2, "(g/t)²"},
        {"m²", 2, "(m²)²"},
        {"oz t", 2, "(oz t)²"},
        {"m2", 3, "(m2)³"},
        {"ac·ft", -1, "(ac·ft)⁻¹"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MbuUnitService::poweredUnitSymbol(QString::fromUtf8(row.symbol), row.power),
                  QString::fromUtf8(row.expected))
            << row.symbol << " " << row.power;
}

TEST(MbuUnitTransfo, IsNotValidByDefaultAndLeavesValues)
{
    EXPECT_FALSE(MbuUnitTransfo().isValid());
    EXPECT_EQ(MbuUnitTransfo().transform(2.5), 2.5);
    EXPECT_FALSE(MbuUnitTransfo().inverted().isValid());
    EXPECT_EQ(MbuUnitTransfo().inverted().transform(2.5), 2.5);
}

TEST(MbuUnitTransfo, IsAffineBothWays)
{
    const MbuUnitTransfo transfo(2.0, 3.0);
    EXPECT_TRUE(transfo.isValid());
    EXPECT_EQ(transfo.transform(5.0), 13.0);
    EXPECT_EQ(transfo.inverted().transform(13.0), 5.0);
    EXPECT_EQ(transfo.inverted().inverted().transform(5.0), 13.0);
    EXPECT_EQ(transfo.inverted().transform(MbbGlobal::D_FFFF), MbbGlobal::D_FFFF);
}

TEST(MbuUnitTransfo, IsNotValidWithoutAUsableScale)
{
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(MbuUnitTransfo(0.0).isValid());
    EXPECT_FALSE(MbuUnitTransfo(infinite).isValid());
    EXPECT_FALSE(MbuUnitTransfo(std::nan("")).isValid());
    EXPECT_FALSE(MbuUnitTransfo(1.0, infinite).isValid());
    EXPECT_EQ(MbuUnitTransfo(0.0, 5.0).transform(2.5), 2.5);
}

// The database is read once in a process, so what happens without it needs a process of its own.
class MbuUnitServiceDeathTest : public testing::Test
{
protected:
    MbuUnitServiceDeathTest() { testing::GTEST_FLAG(death_test_style) = "threadsafe"; }

    /// Writes the error of a conversion and leaves with 0 if it was an `MbeError` of type `Storage` twice in a row.
    [[noreturn]] static void convertWithDatabase(const QString& path)
    {
        qputenv("UDUNITS2_XML_PATH", path.toLocal8Bit());
        int failures = 0;
        for (int i = 0; i < 2; ++i) {
            try {
                MbuUnitService::getConversionToStorageUnit(MbuUnitService::getUnit("ft"), 1);
            }
            catch (const MbeError& e) {
                std::fprintf(stderr, "<%s>", e.what());
                failures += e.getType() == MbeError::Storage;
            }
        }
        std::exit(failures == 2 ? 0 : 1);
    }

    static QString writeFile(const QTemporaryDir& folder, const char* content)
    {
        const QString path = folder.filePath("units.xml");
        std::ofstream(path.toStdString()) << content;
        return path;
    }
};

TEST_F(MbuUnitServiceDeathTest, SaysThatTheDatabaseIsMissingAndNothingElseIsPrinted)
{
    EXPECT_EXIT(convertWithDatabase("/nowhere/units.xml"), testing::ExitedWithCode(0),
                "^<Units cannot be converted: the database of units cannot be read. .*'/nowhere/units.xml'.*>$");
}

TEST_F(MbuUnitServiceDeathTest, SaysThatTheDatabaseIsDamaged)
{
    const QTemporaryDir folder;
    const QString path = writeFile(folder, "<unit-system><base>");
    EXPECT_EXIT(convertWithDatabase(path), testing::ExitedWithCode(0), "^<Units cannot be converted: ");
}

TEST_F(MbuUnitServiceDeathTest, SaysWhichUnitTheDatabaseLacks)
{
    const QTemporaryDir folder;
    const QString path = writeFile(folder, "<?xml version=\"1.0\" encoding=\"US-ASCII\"?><unit-system></unit-system>");
    EXPECT_EXIT(convertWithDatabase(path), testing::ExitedWithCode(0),
                "^<Units cannot be converted: the database of units does not know 'm'. ");
}

TEST_F(MbuUnitServiceDeathTest, NeedsNoDatabaseForStorageUnits)
{
    EXPECT_EXIT(
        {
            qputenv("UDUNITS2_XML_PATH", "/nowhere/units.xml");
            bool good = true;
            for (const MbuEUnitClass* unitClass : MbuEUnitClass::items()) {
                const MbuUnit unit = MbuUnitService::getStorageUnit(*unitClass);
                good = good && MbuUnitService::getConversionToStorageUnit(unit, 2).transform(3.0) == 3.0;
            }
            std::exit(good ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(MbuUnitServiceDeathTest, ReadsTheDatabaseOnceForManyThreads)
{
    EXPECT_EXIT(
        {
            std::atomic<int> good{0};
            std::vector<std::thread> threads;
            for (int i = 0; i < 8; ++i)
                threads.emplace_back([&good] { good += std::abs(toStorage("ft", 10.0) - 3.048) < 1e-12; });
            for (std::thread& thread : threads)
                thread.join();
            std::exit(good == 8 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}
