#pragma once

#include <QtCore/QStringList>
#include <QtGui/QColor>

#include <basic/MbbOrderedMap.h>
#include <param/KpsSerializer.h>

#include <algorithm>

/// Entries that the serial forms of several graphic atomics have.
namespace KpaGraphicForm {

using Map = MbbOrderedMap<QString, QString>;

inline QString numberText(double number)
{
    constexpr int significantDigits = 10;
    return KpsSerializer::fromDouble(number, 'g', significantDigits);
}

/// The keys of a colour's components.
struct ColorKeys
{
    QString red;
    QString green;
    QString blue;
};

inline ColorKeys colorKeys()
{
    return {QStringLiteral("red"), QStringLiteral("green"), QStringLiteral("blue")};
}

inline QString opacityKey()
{
    return QStringLiteral("opacity");
}

inline void insertColor(Map& map, const ColorKeys& keys, const QColor& color)
{
    map.insert(keys.red, KpsSerializer::fromInt(color.red()));
    map.insert(keys.green, KpsSerializer::fromInt(color.green()));
    map.insert(keys.blue, KpsSerializer::fromInt(color.blue()));
}

inline void insertOpacity(Map& map, const QColor& color)
{
    map.insert(opacityKey(), KpsSerializer::fromInt(color.alpha()));
}

/// A component of a colour: `fallback` for a text that is no number, the nearer end for one outside of 0 to 255.
inline int storedComponent(const Map& map, const QString& key, int fallback)
{
    return std::clamp(KpsSerializer::toInt(map.value(key), fallback, true), 0, 255);
}

inline int storedOpacity(const Map& map, int fallback)
{
    return storedComponent(map, opacityKey(), fallback);
}

/// A colour of the opacity `alpha`, with the components of `previous` where the map has none.
inline QColor storedColor(const Map& map, const ColorKeys& keys, const QColor& previous, int alpha)
{
    return QColor(storedComponent(map, keys.red, previous.red()), storedComponent(map, keys.green, previous.green()),
                  storedComponent(map, keys.blue, previous.blue()), alpha);
}

/// The item of the enumeration class whose key is stored; null where there is no entry or no such item.
template <class Item>
const Item* storedItem(const Map& map, const QString& key)
{
    const QString* text = map.find(key);
    return text && Item::existsKey(*text) ? &Item::fromKey(*text) : nullptr;
}

inline QString shapeKey()
{
    return QStringLiteral("shape");
}

inline QString sizeKey()
{
    return QStringLiteral("size");
}

/// The text of a symbol for users.
inline QString symbolText(const QString& shape, const QString& size, const QColor& color)
{
    const QStringList components{QString::number(color.red()), QString::number(color.green()),
                                 QString::number(color.blue())};
    return QLatin1Char('[') + shape + QStringLiteral("] Size[") + size + QStringLiteral("] Color[") +
           components.join(QLatin1Char('|')) + QLatin1Char(']');
}

} // namespace KpaGraphicForm
