#pragma once

#include <QtCore/QJsonObject>

#include <basic/MbbColor.h>
#include <study/StudyExport.h>

/// Colours in the attributes of stored items: texts of the form "#AARRGGBB". A colour that is missing reads as the
/// fallback; one that is damaged is an `MbeError` of type `MbeError::Storage`.
class KESTRIN_STUDY_EXPORT KsbColorJson
{
public:
    static QString toText(const MbbColor& color);
    static MbbColor fromText(const QString& text);
    static MbbColor read(const QJsonObject& object, const QString& key, const MbbColor& fallback);
};
