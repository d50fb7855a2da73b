#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <basic/MbbOrderedMap.h>
#include <study/KsmReason.h>
#include <study/StudyExport.h>

class KsmModelGeosSet;
class KsmModifGeosSet;
class KsoGeosSet;
class KsoGeosSetIdentifier;

/// The classes that make a geostatistical set a named item, and the stored form of its content.
struct KESTRIN_STUDY_EXPORT KsoGeosSetKind
{
    using Identifier = KsoGeosSetIdentifier;
    using Item = KsoGeosSet;
    using Model = KsmModelGeosSet;
    using Modif = KsmModifGeosSet;
    using Content = MbbOrderedMap<QString, QString>;

    static constexpr const char* StoreName = "geostatistical set";
    static constexpr int ContentReasons = KsmReason::Documents;

    static QJsonObject write(const Content& content);
    /// A damaged content is an `MbeError`.
    static Content read(const QJsonObject& json);
};
