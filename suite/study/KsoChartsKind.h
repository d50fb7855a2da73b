#pragma once

#include <QtCore/QJsonObject>

#include <study/KsmReason.h>
#include <study/KsoChartsInfo.h>
#include <study/StudyExport.h>

class KsmModelCharts;
class KsmModifCharts;
class KsoCharts;
class KsoChartsIdentifier;

/// The classes that make a chart file a named item, and the stored form of its content.
struct KESTRIN_STUDY_EXPORT KsoChartsKind
{
    using Identifier = KsoChartsIdentifier;
    using Item = KsoCharts;
    using Model = KsmModelCharts;
    using Modif = KsmModifCharts;
    using Content = KsoChartsInfo;

    static constexpr const char* StoreName = "charts";
    static constexpr int ContentReasons = KsmReason::Folders | KsmReason::Views;

    static QJsonObject write(const Content& content);
    /// A damaged content is an `MbeError`.
    static Content read(const QJsonObject& json);
};
