#pragma once

#include <QtCore/QJsonObject>

#include <basic/MbdEnumCatalog.h>
#include <study/KsmReason.h>
#include <study/StudyExport.h>

class KsmModelEnumCatalog;
class KsmModifEnumCatalog;
class KsoEnumCatalog;
class KsoEnumCatalogIdentifier;

/// The classes that make a catalog of categories a named item, and the stored form of its content.
struct KESTRIN_STUDY_EXPORT KsoEnumCatalogKind
{
    using Identifier = KsoEnumCatalogIdentifier;
    using Item = KsoEnumCatalog;
    using Model = KsmModelEnumCatalog;
    using Modif = KsmModifEnumCatalog;
    using Content = MbdEnumCatalog;

    static constexpr const char* StoreName = "catalog";
    static constexpr int ContentReasons = KsmReason::CategoryAdded | KsmReason::CategoryRenamed |
                                          KsmReason::CategoryRemoved | KsmReason::CategoryColor |
                                          KsmReason::UndefinedColor;

    static QJsonObject write(const Content& content);
    /// A damaged content is an `MbeError`.
    static Content read(const QJsonObject& json);
};
