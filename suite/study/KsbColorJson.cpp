#include <study/KsbColorJson.h>

#include <basic/MbeError.h>
#include <study/KsbJson.h>

QString KsbColorJson::toText(const MbbColor& color)
{
    return QStringLiteral("#%1").arg(color.getRgba(), 8, 16, QLatin1Char('0'));
}

MbbColor KsbColorJson::fromText(const QString& text)
{
    bool valid = false;
    const MbbColor color(text.mid(1).toUInt(&valid, 16));
    if (!valid || toText(color) != text.toLower())
        throw MbeError(MbeError::Storage, QStringLiteral("'%1' is no colour.").arg(text));
    return color;
}

MbbColor KsbColorJson::read(const QJsonObject& object, const QString& key, const MbbColor& fallback)
{
    return object.contains(key) ? fromText(KsbJson::readText(object, key)) : fallback;
}
