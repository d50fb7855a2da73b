#pragma once

#include <QtCore/QRegularExpression>
#include <QtCore/QString>
#include <QtCore/QTextStream>
#include <QtCore/QUrl>

#include <basic/MbbOrderedMap.h>

#include <utility>

/// Small steps that the configurations of the atomics share.
namespace KpaConfigTools {

/// Stores `value` in `field`; gives whether that changed it.
template <class Field, class Value>
bool store(Field& field, const Value& value)
{
    if (field == value)
        return false;
    field = value;
    return true;
}

inline QString valueKey()
{
    return QStringLiteral("value");
}

/// The serial form of one entry.
inline MbbOrderedMap<QString, QString> singleValue(const QString& text)
{
    MbbOrderedMap<QString, QString> map;
    map.insert(valueKey(), text);
    return map;
}

/// The text that older versions stored with percent escapes.
inline QString percentDecoded(const QString& text)
{
    return QUrl::fromPercentEncoding(text.toUtf8());
}

/// The text of a form that holds percent escapes where it is of an older version: decoded if something in it looks like
/// one.
inline QString withoutEscapes(const QString& text)
{
    static const QRegularExpression escape(QStringLiteral("%\\d\\d"));
    return escape.match(text).hasMatch() ? percentDecoded(text) : text;
}

inline QString yesNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

} // namespace KpaConfigTools
