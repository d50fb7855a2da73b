#pragma once

#include <QtXml/QDomDocument>

/// The forms that `study_writer` stores: form number n under the key of its slot, so that later forms replace earlier
/// ones. A form is between a few bytes and some pages of the file long, and its number stands in it from start to end.
namespace written_form {

constexpr int slotCount = 8;

inline QString id()
{
    return QStringLiteral("written");
}

inline QString key(int number)
{
    return QStringLiteral("slot %1").arg(number % slotCount);
}

inline QString text(int number)
{
    const QString word = QString::number(number) + QLatin1Char(' ');
    return QStringLiteral("<task id=\"%1\"><param key=\"text\">%2</param></task>")
        .arg(QString::number(number), word.repeated(1 + number * 7919 % 6000));
}

inline QDomDocument document(int number)
{
    QDomDocument document;
    document.setContent(text(number));
    return document;
}

} // namespace written_form
