#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QVector>
#include <QtGui/QColor>

#include <study/KsmReason.h>
#include <study/StudyExport.h>

class KsmModelColorScale;
class KsmModifColorScale;
class KsoColorScale;
class KsoColorScaleIdentifier;

/// The classes that make a colour scale a named item, and the stored form of its content.
struct KESTRIN_STUDY_EXPORT KsoColorScaleKind
{
    using Identifier = KsoColorScaleIdentifier;
    using Item = KsoColorScale;
    using Model = KsmModelColorScale;
    using Modif = KsmModifColorScale;
    using Content = QVector<QColor>;

    static constexpr const char* StoreName = "color scale";
    static constexpr int ContentReasons = KsmReason::Colors;

    static QJsonObject write(const Content& content);
    /// A damaged content is an `MbeError`.
    static Content read(const QJsonObject& json);
};
