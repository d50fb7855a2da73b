#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

#include <basic/MbdVariableDetails.h>
#include <study/StudyExport.h>

class QJsonArray;

/// Reads and writes the attributes of stored items. An attribute that is missing reads as its default; one that is
/// damaged is an `MbeError` of type `MbeError::Storage` that names it.
class KESTRIN_STUDY_EXPORT KsbJson
{
public:
    /// The object in a stored text.
    static QJsonObject parse(const QByteArray& text);
    static QByteArray toText(const QJsonObject& object);

    static int readInt(const QJsonObject& object, const QString& key, int minimum, int maximum, int fallback);
    static bool readBool(const QJsonObject& object, const QString& key, bool fallback);
    static QString readText(const QJsonObject& object, const QString& key);
    static QStringList readTexts(const QJsonObject& object, const QString& key);
    static QJsonObject readObject(const QJsonObject& object, const QString& key);
    /// An array of nothing but objects.
    static QList<QJsonObject> readObjects(const QJsonObject& object, const QString& key);
    /// The item of the enumeration class whose key is stored; the default one where nothing is.
    template <class Enum>
    static Enum readEnum(const QJsonObject& object, const QString& key)
    {
        const QJsonValue value = object.value(key);
        if (value.isUndefined())
            return Enum();
        if (!Enum::existsKey(value.toString()))
            failDamaged(key);
        return Enum::fromKey(value.toString());
    }

    static MbdVariableDetails readDetails(const QJsonObject& object);
    static QJsonObject fromDetails(const MbdVariableDetails& details);

    [[noreturn]] static void failDamaged(const QString& key);

private:
    static QJsonArray _readArray(const QJsonObject& object, const QString& key);
};
