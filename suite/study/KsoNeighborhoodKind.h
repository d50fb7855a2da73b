#pragma once

#include <QtCore/QJsonObject>

#include <study/KsmReason.h>
#include <study/KsoNeighborhoodDefinition.h>
#include <study/StudyExport.h>

class KsmModelNeighborhood;
class KsmModifNeighborhood;
class KsoNeighborhood;
class KsoNeighborhoodIdentifier;

/// The classes that make a search neighbourhood a named item, and the stored form of its content.
struct KESTRIN_STUDY_EXPORT KsoNeighborhoodKind
{
    using Identifier = KsoNeighborhoodIdentifier;
    using Item = KsoNeighborhood;
    using Model = KsmModelNeighborhood;
    using Modif = KsmModifNeighborhood;
    using Content = KsoNeighborhoodDefinition;

    static constexpr const char* StoreName = "neighborhood";
    static constexpr int ContentReasons = KsmReason::Definition;

    static QJsonObject write(const Content& content);
    /// A damaged content is an `MbeError`.
    static Content read(const QJsonObject& json);
};
