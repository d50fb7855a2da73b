#include <basic/MbeError.h>
#include <basic/MbuUnitService.h>

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QVector>

#include <udunits2.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {
struct Row
{
    const MbuEUnitClass* unitClass;
    const char* key;
    const char* symbol;
    const char* name;
    const char* definition; ///< for UDUNITS-2, exact where its own database rounds
};

// The first row of a class is its storage unit.
// clang-format off
using Class = MbuEUnitClass;
const Row rows[] = {
    {&Class::LENGTH,        "m",        "m",        QT_TR_NOOP("Meter"),                     "m"},
    {&Class::LENGTH,        "km",       "km",       QT_TR_NOOP("Kilometer"),                 "km"},
    {&Class::LENGTH,        "dm",       "dm",       QT_TR_NOOP("Decimeter"),                 "dm"},
    {&Class::LENGTH,        "cm",       "cm",       QT_TR_NOOP("Centimeter"),                "cm"},
    {&Class::LENGTH,        "mm",       "mm",       QT_TR_NOOP("Millimeter"),                "mm"},
    {&Class::LENGTH,        "um",       "µm",       QT_TR_NOOP("Micrometer"),                "um"},
    {&Class::LENGTH,        "in",       "in",       QT_TR_NOOP("Inch"),                      "2.54 cm"},
    {&Class::LENGTH,        "ft",       "ft",       QT_TR_NOOP("Foot"),                      "0.3048 m"},
    {&Class::LENGTH,        "us_ft",    "ft US",    QT_TR_NOOP("US survey foot"),            "US_survey_foot"},
    {&Class::LENGTH,        "yd",       "yd",       QT_TR_NOOP("Yard"),                      "0.9144 m"},
    {&Class::LENGTH,        "mi",       "mi",       QT_TR_NOOP("Mile"),                      "1609.344 m"},
    {&Class::LENGTH,        "nmi",      "NM",       QT_TR_NOOP("Nautical mile"),             "1852 m"},

    {&Class::SURFACE,       "m2",       "m²",       QT_TR_NOOP("Square meter"),              "m^2"},
    {&Class::SURFACE,       "km2",      "km²",      QT_TR_NOOP("Square kilometer"),          "km^2"},
    {&Class::SURFACE,       "cm2",      "cm²",      QT_TR_NOOP("Square centimeter"),         "cm^2"},
    {&Class::SURFACE,       "mm2",      "mm²",      QT_TR_NOOP("Square millimeter"),         "mm^2"},
    {&Class::SURFACE,       "are",      "a",        QT_TR_NOOP("Are"),                       "100 m^2"},
    {&Class::SURFACE,       "ha",       "ha",       QT_TR_NOOP("Hectare"),                   "hectare"},
    {&Class::SURFACE,       "in2",      "in²",      QT_TR_NOOP("Square inch"),               "6.4516 cm^2"},
    {&Class::SURFACE,       "ft2",      "ft²",      QT_TR_NOOP("Square foot"),               "0.09290304 m^2"},
    {&Class::SURFACE,       "yd2",      "yd²",      QT_TR_NOOP("Square yard"),               "0.83612736 m^2"},
    {&Class::SURFACE,       "mi2",      "mi²",      QT_TR_NOOP("Square mile"),               "2589988.110336 m^2"},
    {&Class::SURFACE,       "acre",     "ac",       QT_TR_NOOP("Acre"),                      "4046.8564224 m^2"},
    {&Class::SURFACE,       "us_acre",  "ac US",    QT_TR_NOOP("US survey acre"),            "43560 US_survey_foot^2"},

    {&Class::VOLUME,        "m3",       "m³",       QT_TR_NOOP("Cubic meter"),               "m^3"},
    {&Class::VOLUME,        "km3",      "km³",      QT_TR_NOOP("Cubic kilometer"),           "km^3"},
    {&Class::VOLUME,        "cm3",      "cm³",      QT_TR_NOOP("Cubic centimeter"),          "cm^3"},
    {&Class::VOLUME,        "l",        "l",        QT_TR_NOOP("Liter"),                     "dm^3"},
    {&Class::VOLUME,        "ml",       "ml",       QT_TR_NOOP("Milliliter"),                "1e-6 m^3"},
    {&Class::VOLUME,        "in3",      "in³",      QT_TR_NOOP("Cubic inch"),                "16.387064 cm^3"},
    {&Class::VOLUME,        "ft3",      "ft³",      QT_TR_NOOP("Cubic foot"),                "0.028316846592 m^3"},
    {&Class::VOLUME,        "yd3",      "yd³",      QT_TR_NOOP("Cubic yard"),                "0.764554857984 m^3"},
    {&Class::VOLUME,        "us_gal",   "gal",      QT_TR_NOOP("US liquid gallon"),          "3.785411784e-3 m^3"},
    {&Class::VOLUME,        "bbl",      "bbl",      QT_TR_NOOP("Oil barrel"),                "0.158987294928 m^3"},
    {&Class::VOLUME,        "acre_ft",  "ac·ft",    QT_TR_NOOP("Acre-foot"),                 "1233.48183754752 m^3"},

    {&Class::ANGLE,         "deg",      "°",        QT_TR_NOOP("Degree"),                    "arc_degree"},
    {&Class::ANGLE,         "rad",      "rad",      QT_TR_NOOP("Radian"),                    "radian"},
    {&Class::ANGLE,         "gon",      "gon",      QT_TR_NOOP("Gon"),                       "0.9 arc_degree"},
    {&Class::ANGLE,         "arcmin",   "′",        QT_TR_NOOP("Minute of arc"),             "arc_minute"},
    {&Class::ANGLE,         "arcsec",   "″",        QT_TR_NOOP("Second of arc"),             "arc_second"},
    {&Class::ANGLE,         "turn",     "tr",       QT_TR_NOOP("Turn"),                      "360 arc_degree"},

    {&Class::MASS,          "kg",       "kg",       QT_TR_NOOP("Kilogram"),                  "kg"},
    {&Class::MASS,          "g",        "g",        QT_TR_NOOP("Gram"),                      "g"},
    {&Class::MASS,          "mg",       "mg",       QT_TR_NOOP("Milligram"),                 "mg"},
    {&Class::MASS,          "t",        "t",        QT_TR_NOOP("Metric ton"),                "metric_ton"},
    {&Class::MASS,          "kt",       "kt",       QT_TR_NOOP("Kiloton"),                   "1e6 kg"},
    {&Class::MASS,          "Mt",       "Mt",       QT_TR_NOOP("Megaton"),                   "1e9 kg"},
    {&Class::MASS,          "lb",       "lb",       QT_TR_NOOP("Pound"),                     "0.45359237 kg"},
    {&Class::MASS,          "oz",       "oz",       QT_TR_NOOP("Ounce"),                     "28.349523125 g"},
    {&Class::MASS,          "oz_tr",    "oz t",     QT_TR_NOOP("Troy ounce"),                "31.1034768 g"},
    {&Class::MASS,          "ct",       "ct",       QT_TR_NOOP("Carat"),                     "0.2 g"},
    {&Class::MASS,          "short_t",  "sh tn",    QT_TR_NOOP("Short ton"),                 "907.18474 kg"},
    {&Class::MASS,          "long_t",   "l tn",     QT_TR_NOOP("Long ton"),                  "1016.0469088 kg"},

    {&Class::TIME,          "s",        "s",        QT_TR_NOOP("Second"),                    "s"},
    {&Class::TIME,          "ms",       "ms",       QT_TR_NOOP("Millisecond"),               "ms"},
    {&Class::TIME,          "min",      "min",      QT_TR_NOOP("Minute"),                    "min"},
    {&Class::TIME,          "h",        "h",        QT_TR_NOOP("Hour"),                      "h"},
    {&Class::TIME,          "d",        "d",        QT_TR_NOOP("Day"),                       "day"},
    {&Class::TIME,          "week",     "wk",       QT_TR_NOOP("Week"),                      "7 day"},
    {&Class::TIME,          "year",     "yr",       QT_TR_NOOP("Year of 365.25 days"),       "365.25 day"},
    {&Class::TIME,          "Ma",       "Ma",       QT_TR_NOOP("Million years"),             "365.25e6 day"},

    {&Class::TEMPERATURE,   "K",        "K",        QT_TR_NOOP("Kelvin"),                    "K"},
    {&Class::TEMPERATURE,   "degC",     "°C",       QT_TR_NOOP("Degree Celsius"),            "degC"},
    {&Class::TEMPERATURE,   "degF",     "°F",       QT_TR_NOOP("Degree Fahrenheit"),         "degF"},

    {&Class::DENSITY,       "kg/m3",    "kg/m³",    QT_TR_NOOP("Kilogram per cubic meter"),  "kg/m^3"},
    {&Class::DENSITY,       "g/cm3",    "g/cm³",    QT_TR_NOOP("Gram per cubic centimeter"), "g/cm^3"},
    {&Class::DENSITY,       "t/m3",     "t/m³",     QT_TR_NOOP("Ton per cubic meter"),       "1000 kg/m^3"},
    {&Class::DENSITY,       "g/l",      "g/l",      QT_TR_NOOP("Gram per liter"),            "g/dm^3"},
    {&Class::DENSITY,       "mg/l",     "mg/l",     QT_TR_NOOP("Milligram per liter"),       "mg/dm^3"},
    {&Class::DENSITY,       "lb/ft3",   "lb/ft³",   QT_TR_NOOP("Pound per cubic foot"),      "lb/international_foot^3"},

    {&Class::PRESSURE,      "Pa",       "Pa",       QT_TR_NOOP("Pascal"),                    "Pa"},
    {&Class::PRESSURE,      "hPa",      "hPa",      QT_TR_NOOP("Hectopascal"),               "hPa"},
    {&Class::PRESSURE,      "kPa",      "kPa",      QT_TR_NOOP("Kilopascal"),                "kPa"},
    {&Class::PRESSURE,      "MPa",      "MPa",      QT_TR_NOOP("Megapascal"),                "MPa"},
    {&Class::PRESSURE,      "bar",      "bar",      QT_TR_NOOP("Bar"),                       "1e5 Pa"},
    {&Class::PRESSURE,      "atm",      "atm",      QT_TR_NOOP("Atmosphere"),                "101325 Pa"},
    {&Class::PRESSURE,      "psi",      "psi",      QT_TR_NOOP("Pound per square inch"),     "psi"},

    {&Class::CONCENTRATION, "kg/kg",    "kg/kg",    QT_TR_NOOP("Kilogram per kilogram"),     "1"},
    {&Class::CONCENTRATION, "wt%",      "wt%",      QT_TR_NOOP("Percent by weight"),         "0.01"},
    {&Class::CONCENTRATION, "kg/t",     "kg/t",     QT_TR_NOOP("Kilogram per metric ton"),   "1e-3"},
    {&Class::CONCENTRATION, "g/t",      "g/t",      QT_TR_NOOP("Gram per metric ton"),       "1e-6"},
    {&Class::CONCENTRATION, "ppm",      "ppm",      QT_TR_NOOP("Part per million"),          "1e-6"},
    {&Class::CONCENTRATION, "ppb",      "ppb",      QT_TR_NOOP("Part per billion"),          "1e-9"},
    {&Class::CONCENTRATION, "opt",      "oz/sh tn", QT_TR_NOOP("Troy ounce per short ton"),  "31.1034768 g/short_ton"},

    {&Class::PERCENTAGE,    "%",        "%",        QT_TR_NOOP("Percent"),                   "0.01"},
    {&Class::PERCENTAGE,    "permille", "‰",        QT_TR_NOOP("Per mille"),                 "1e-3"},
    {&Class::PERCENTAGE,    "fraction", "",         QT_TR_NOOP("Fraction"),                  "1"},

    {&Class::VELOCITY,      "m/s",      "m/s",      QT_TR_NOOP("Meter per second"),          "m/s"},
    {&Class::VELOCITY,      "km/s",     "km/s",     QT_TR_NOOP("Kilometer per second"),      "km/s"},
    {&Class::VELOCITY,      "km/h",     "km/h",     QT_TR_NOOP("Kilometer per hour"),        "km/h"},
    {&Class::VELOCITY,      "ft/s",     "ft/s",     QT_TR_NOOP("Foot per second"),           "0.3048 m/s"},

    {&Class::ACCELERATION,  "m/s2",     "m/s²",     QT_TR_NOOP("Meter per second squared"),  "m/s^2"},
    {&Class::ACCELERATION,  "Gal",      "Gal",      QT_TR_NOOP("Gal"),                       "0.01 m/s^2"},
    {&Class::ACCELERATION,  "mGal",     "mGal",     QT_TR_NOOP("Milligal"),                  "1e-5 m/s^2"},

    {&Class::PERMEABILITY,  "mD",       "mD",       QT_TR_NOOP("Millidarcy"),                "1e-3 darcy"},
    {&Class::PERMEABILITY,  "D",        "D",        QT_TR_NOOP("Darcy"),                     "darcy"},
    {&Class::PERMEABILITY,  "um2",      "µm²",      QT_TR_NOOP("Square micrometer"),         "1e-12 m^2"},
};
// clang-format on

struct Catalog
{
    QHash<int, QList<MbuUnit>> unitsOfClass; ///< by the value of the class
    QHash<QString, MbuUnit> unitOfKey;
};

Catalog makeCatalog()
{
    Catalog catalog;
    const auto add = [&catalog](const MbuUnit& unit) {
        catalog.unitsOfClass[unit.getUnitClass().getValue()].append(unit);
        catalog.unitOfKey.insert(unit.getKey(), unit);
    };
    add(MbuUnit());
    for (const Row& row : rows)
        add(MbuUnit(*row.unitClass, QString::fromLatin1(row.key), QString::fromUtf8(row.symbol),
                    QObject::tr(row.name)));
    return catalog;
}

const Catalog& catalog()
{
    static const Catalog instance = makeCatalog();
    return instance;
}

struct UdFree
{
    void operator()(ut_system* system) const { ut_free_system(system); }
    void operator()(ut_unit* unit) const { ut_free(unit); }
    void operator()(cv_converter* converter) const { cv_free(converter); }
};
template <class T>
using UdPointer = std::unique_ptr<T, UdFree>;

/// Keeps UDUNITS-2 from writing to the standard error stream while it lives.
class UdSilence
{
public:
    UdSilence() : _former(ut_set_error_message_handler(ut_ignore)) {}
    ~UdSilence() { ut_set_error_message_handler(_former); }
    UdSilence(const UdSilence&) = delete;
    UdSilence& operator=(const UdSilence&) = delete;

private:
    ut_error_message_handler _former;
};

[[noreturn]] void failReading(const QString& detail)
{
    ut_status origin = UT_SUCCESS;
    const char* path = ut_get_path_xml(nullptr, &origin);
    throw MbeError(MbeError::Storage, QObject::tr("Units cannot be converted: %1 UDUNITS-2 looked for its database at "
                                                  "'%2'; the environment variable UDUNITS2_XML_PATH names another one.")
                                          .arg(detail, QFile::decodeName(path ? path : "")));
}

UdPointer<ut_system> readDatabase()
{
    UdPointer<ut_system> system(ut_read_xml(nullptr));
    if (!system)
        failReading(QObject::tr("the database of units cannot be read."));
    return system;
}

UdPointer<ut_unit> parseDefinition(const ut_system* system, const Row& row)
{
    return UdPointer<ut_unit>(ut_parse(system, row.definition, UT_UTF8));
}

/// A conversion to the storage unit at power 1.
struct Affine
{
    double scale;
    double offset;
};

Affine measure(ut_unit* from, ut_unit* to, const Row& row)
{
    const UdPointer<cv_converter> converter(from && to ? ut_get_converter(from, to) : nullptr);
    if (!converter)
        failReading(QObject::tr("the database of units does not know '%1'.").arg(QLatin1String(row.definition)));
    // A power of two so large that the offset vanishes beside it: the scale comes out exactly.
    constexpr double far = 0x1p100;
    const double offset = cv_convert_double(converter.get(), 0.0);
    return {(cv_convert_double(converter.get(), far) - offset) / far, offset};
}

using Conversions = QHash<QString, Affine>; ///< by the key of the unit

Conversions makeConversions()
{
    const UdSilence silence;
    const UdPointer<ut_system> system = readDatabase();
    Conversions conversions;
    UdPointer<ut_unit> storage;
    const MbuEUnitClass* unitClass = nullptr;
    for (const Row& row : rows) {
        if (row.unitClass != unitClass) {
            unitClass = row.unitClass;
            storage = parseDefinition(system.get(), row);
        }
        const UdPointer<ut_unit> unit = parseDefinition(system.get(), row);
        conversions.insert(QString::fromLatin1(row.key), measure(unit.get(), storage.get(), row));
    }
    return conversions;
}

/// Throws as long as the database cannot be read.
const Conversions& conversions()
{
    static const Conversions instance = makeConversions();
    return instance;
}

bool isComposed(const QString& symbol)
{
    return std::any_of(symbol.begin(), symbol.end(), [](QChar c) {
        return c == QLatin1Char('/') || c.isDigit() || c.isSpace() || c.category() == QChar::Number_Other ||
               c == QChar(0x00B7);
    });
}

QString raisedDigits(int number)
{
    static const QString digits = QStringLiteral("⁰¹²³⁴⁵⁶⁷⁸⁹");
    QString text = QString::number(number);
    for (QChar& c : text)
        c = c == QLatin1Char('-') ? QChar(0x207B) : digits.at(c.digitValue());
    return text;
}
} // namespace

QList<MbuUnit> MbuUnitService::getUnits(const MbuEUnitClass& unitClass)
{
    return catalog().unitsOfClass.value(unitClass.getValue());
}

MbuUnit MbuUnitService::getStorageUnit(const MbuEUnitClass& unitClass)
{
    return getUnits(unitClass).value(0);
}

MbuUnit MbuUnitService::getUnit(const QString& key)
{
    const auto found = catalog().unitOfKey.constFind(key);
    if (found == catalog().unitOfKey.constEnd())
        throw MbeProgrammingError(QStringLiteral("MbuUnitService has no unit of the key '%1'.").arg(key));
    return *found;
}

MbuUnitService::DecodedUnit MbuUnitService::getUnitDecodeKey(const MbuEUnitClass& unitClass, const QString& key)
{
    for (const MbuUnit& unit : getUnits(unitClass)) {
        if (unit.getKey() == key)
            return {unit, getConversionToStorageUnit(unit, 1)};
    }
    const auto found = catalog().unitOfKey.constFind(key);
    if (found == catalog().unitOfKey.constEnd())
        return {};
    return {*found, getConversionToStorageUnit(*found, 1)};
}

MbuUnitTransfo MbuUnitService::getConversionToStorageUnit(const MbuUnit& unit, int powerValue)
{
    if (!getUnits(unit.getUnitClass()).contains(unit))
        return MbuUnitTransfo();
    if (powerValue == 0 || unit == getStorageUnit(unit.getUnitClass()))
        return MbuUnitTransfo(1.0);
    const Affine base = conversions().value(unit.getKey());
    return powerValue == 1 ? MbuUnitTransfo(base.scale, base.offset) : MbuUnitTransfo(std::pow(base.scale, powerValue));
}

MbuUnitTransfo MbuUnitService::getConversionFromStorageUnit(const MbuUnit& unit, int powerValue)
{
    return getConversionToStorageUnit(unit, powerValue).inverted();
}

QString MbuUnitService::poweredUnitSymbol(const QString& symbol, int powerValue)
{
    if (symbol.isEmpty() || powerValue == 0)
        return QString();
    if (powerValue == 1)
        return symbol;
    const QString base = isComposed(symbol) ? QLatin1Char('(') + symbol + QLatin1Char(')') : symbol;
    return base + raisedDigits(powerValue);
}
