#pragma once

#include <QtCore/QStringList>

#include <string>

/// Texts that no entry of a serial form should hold: wrong in kind, out of every range, cut off or very long.
inline QStringList garbageTexts()
{
    return {
        QString(),
        " ",
        "abc",
        "1,5",
        "nan",
        "inf",
        "1e999",
        "-1",
        "2147483647",
        "-2147483648",
        "99999999999999999999",
        "|",
        "||||",
        "%",
        "%41",
        "%%%1",
        "#12345",
        "<param>",
        QString(QChar(0)),
        QString(QChar(0xD800)),
        QString(100000, QLatin1Char('9')),
        QString(100000, QLatin1Char('|')),
    };
}

/// What a failed check says of the entry that was damaged.
inline std::string damaged(const QString& key, const QString& garbage)
{
    return (key + QLatin1Char(' ') + garbage.left(20)).toStdString();
}
