#include <basic/MbeError.h>
#include <basic/MbuUnitService.h>
#include <study/KsbJson.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <cmath>
#include <limits>

namespace {

const QString typeKey = QStringLiteral("type");
const QString unitClassKey = QStringLiteral("unitClass");
const QString powerKey = QStringLiteral("power");
const QString defaultFormatKey = QStringLiteral("defaultFormat");
const QString catalogKey = QStringLiteral("catalog");
const QString formatKey = QStringLiteral("format");
const QString unitKey = QStringLiteral("unit");
const QString notationKey = QStringLiteral("notation");
const QString precisionKey = QStringLiteral("precision");
const QString symbolKey = QStringLiteral("symbol");
const QString undefinedKey = QStringLiteral("undefined");

MbbStringFormat readFormat(const QJsonObject& object)
{
    const MbuUnitService::DecodedUnit decoded =
        MbuUnitService::getUnitDecodeKey(MbuEUnitClass(), KsbJson::readText(object, unitKey));
    if (!decoded.transfo.isValid())
        KsbJson::failDamaged(unitKey);
    MbbStringFormat format;
    format.setDisplayUnit(decoded.unit);
    format.setNotation(KsbJson::readEnum<MbbEFormat>(object, notationKey));
    format.setPrecision(KsbJson::readInt(object, precisionKey, 0, MbbStringFormat::MaximumPrecision,
                                         MbbStringFormat::DefaultPrecision));
    if (object.contains(symbolKey))
        format.setCustomSymbol(KsbJson::readText(object, symbolKey));
    format.setUndefinedText(KsbJson::readText(object, undefinedKey));
    return format;
}

QJsonObject toObject(const MbbStringFormat& format)
{
    QJsonObject object{{unitKey, format.getDisplayUnit().getKey()},
                       {notationKey, format.getNotation().getKey()},
                       {precisionKey, format.getPrecision()},
                       {undefinedKey, format.getUndefinedText()}};
    if (format.hasCustomSymbol())
        object.insert(symbolKey, format.getSymbol());
    return object;
}

} // namespace

void KsbJson::failDamaged(const QString& key)
{
    throw MbeError(MbeError::Storage, QStringLiteral("The attribute '%1' is damaged.").arg(key));
}

QJsonObject KsbJson::parse(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject())
        throw MbeError(MbeError::Storage, QStringLiteral("The attributes are damaged."));
    return document.object();
}

QByteArray KsbJson::toText(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

int KsbJson::readInt(const QJsonObject& object, const QString& key, int minimum, int maximum, int fallback)
{
    const QJsonValue value = object.value(key);
    if (value.isUndefined())
        return fallback;
    const double number = value.toDouble(std::numeric_limits<double>::quiet_NaN());
    if (!(number >= minimum && number <= maximum) || number != std::floor(number))
        failDamaged(key);
    return int(number);
}

bool KsbJson::readBool(const QJsonObject& object, const QString& key, bool fallback)
{
    const QJsonValue value = object.value(key);
    if (!value.isBool() && !value.isUndefined())
        failDamaged(key);
    return value.toBool(fallback);
}

QString KsbJson::readText(const QJsonObject& object, const QString& key)
{
    const QJsonValue value = object.value(key);
    if (!value.isString() && !value.isUndefined())
        failDamaged(key);
    return value.toString();
}

QJsonObject KsbJson::readObject(const QJsonObject& object, const QString& key)
{
    const QJsonValue value = object.value(key);
    if (!value.isObject() && !value.isUndefined())
        failDamaged(key);
    return value.toObject();
}

QJsonArray KsbJson::_readArray(const QJsonObject& object, const QString& key)
{
    const QJsonValue value = object.value(key);
    if (!value.isArray() && !value.isUndefined())
        failDamaged(key);
    return value.toArray();
}

QList<QJsonObject> KsbJson::readObjects(const QJsonObject& object, const QString& key)
{
    QList<QJsonObject> objects;
    for (const QJsonValue& value : _readArray(object, key)) {
        if (!value.isObject())
            failDamaged(key);
        objects.append(value.toObject());
    }
    return objects;
}

QStringList KsbJson::readTexts(const QJsonObject& object, const QString& key)
{
    QStringList texts;
    for (const QJsonValue& text : _readArray(object, key)) {
        if (!text.isString())
            failDamaged(key);
        texts.append(text.toString());
    }
    return texts;
}

MbdVariableDetails KsbJson::readDetails(const QJsonObject& object)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    MbdVariableDetails details(readEnum<MbuEUnitClass>(object, unitClassKey));
    details.setType(readEnum<MbdEVarType>(object, typeKey));
    details.setPowerValue(readInt(object, powerKey, lowest, highest, 1));
    details.setUnitDefaultFormatUsed(readBool(object, defaultFormatKey, true));
    details.getEnumDetails().setCatalogId(readInt(object, catalogKey, lowest, highest, -1));
    const QJsonValue format = object.value(formatKey);
    if (!format.isObject() && !format.isUndefined() && !format.isNull())
        failDamaged(formatKey);
    if (format.isObject())
        details.getNumericDetails().setUserDefinedStringFormat(readFormat(format.toObject()));
    return details;
}

QJsonObject KsbJson::fromDetails(const MbdVariableDetails& details)
{
    const MbdNumericDetails& numeric = details.getNumericDetails();
    return {{typeKey, details.getType().getKey()},
            {unitClassKey, details.getUnitClass().getKey()},
            {powerKey, details.getPowerValue()},
            {defaultFormatKey, details.isUnitDefaultFormatUsed()},
            {catalogKey, details.getEnumDetails().getCatalogId()},
            {formatKey, numeric.hasUserDefinedStringFormat() ? toObject(numeric.getStringFormat()) : QJsonValue()}};
}
