#pragma once

#include <QtCore/QJsonObject>

#include <study/KsmReason.h>
#include <study/StudyExport.h>
#include <util/KugScene.h>

class KsmModelScene;
class KsmModifScene;
class KsoScene;
class KsoSceneIdentifier;

/// The classes that make a scene a named item, and the stored form of its content.
struct KESTRIN_STUDY_EXPORT KsoSceneKind
{
    using Identifier = KsoSceneIdentifier;
    using Item = KsoScene;
    using Model = KsmModelScene;
    using Modif = KsmModifScene;
    using Content = KugScene;

    static constexpr const char* StoreName = "scene";
    static constexpr int ContentReasons = KsmReason::Content;

    static QJsonObject write(const Content& content);
    /// A damaged content is an `MbeError`.
    static Content read(const QJsonObject& json);
};
