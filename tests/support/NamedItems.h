#pragma once

#include <observer/KuoIObserver.h>
#include <study/KsmModelCharts.h>
#include <study/KsmModelColorScale.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KsmModelGeosSet.h>
#include <study/KsmModelNeighborhood.h>
#include <study/KsmModelScene.h>
#include <study/KssProject.h>

#include <QtCore/QVector>

/// Two different contents of each kind of named item, and where a project has its model.
template <class Kind>
struct ItemSample;

template <>
struct ItemSample<KsoEnumCatalogKind>
{
    static constexpr auto model = &KssProject::getModelEnumCatalog;
    static MbdEnumCatalog some()
    {
        MbdEnumCatalog catalog;
        catalog.setUndefColor(MbbColor(0x80102030));
        catalog.setCategory(-5, QStringLiteral("Sand"), MbbColor(0xFF0000FF));
        catalog.setCategory(32767, QStringLiteral("Clay & <silt>"), MbbColor(0x00FFFFFF));
        return catalog;
    }
    static MbdEnumCatalog other()
    {
        MbdEnumCatalog catalog = some();
        catalog.removeCategory(-5);
        return catalog;
    }
};

template <>
struct ItemSample<KsoColorScaleKind>
{
    static constexpr auto model = &KssProject::getModelColorScale;
    static QVector<QColor> some() { return {QColor(1, 2, 3), QColor(255, 254, 253, 7)}; }
    static QVector<QColor> other() { return {QColor(1, 2, 3)}; }
};

template <>
struct ItemSample<KsoGeosSetKind>
{
    static constexpr auto model = &KssProject::getModelGeosSet;
    static MbbOrderedMap<QString, QString> some()
    {
        return {{QStringLiteral("MODEL"), QStringLiteral("<model a=\"1\"/>")}, {QStringLiteral("A"), QString()}};
    }
    static MbbOrderedMap<QString, QString> other() { return {{QStringLiteral("MODEL"), QStringLiteral("x")}}; }
};

template <>
struct ItemSample<KsoNeighborhoodKind>
{
    static constexpr auto model = &KssProject::getModelNeighborhood;
    static KsoNeighborhoodDefinition some()
    {
        KsoNeighborhoodDefinition definition = other();
        definition.largeCutoffVariables.append(definition.codeVariable);
        return definition;
    }
    static KsoNeighborhoodDefinition other()
    {
        KsoNeighborhoodDefinition definition;
        definition.support = {{QStringLiteral("path"), QStringLiteral("north")},
                              {QStringLiteral("file"), QStringLiteral("holes")},
                              {QStringLiteral("support"), QStringLiteral("assays")}};
        definition.codeVariable = definition.support;
        definition.codeVariable.insert(QStringLiteral("name"), QStringLiteral("Code"));
        return definition;
    }
};

template <>
struct ItemSample<KsoSceneKind>
{
    static constexpr auto model = &KssProject::getModelScene;
    static KugScene some()
    {
        KugScene scene(KugESceneType::SCENE_2D);
        scene.setBackground(MbbColor(0xFF102030));
        return scene;
    }
    static KugScene other() { return KugScene(KugESceneType::SCENE_3D); }
};

template <>
struct ItemSample<KsoChartsKind>
{
    static constexpr auto model = &KssProject::getModelCharts;
    static KsoChartsInfo some()
    {
        static const KsoChartsInfo made = make();
        return made;
    }
    static KsoChartsInfo other()
    {
        KsoChartsInfo info = some();
        info.removeFolder(QStringLiteral("Histograms"));
        return info;
    }

private:
    static KsoChartsInfo make()
    {
        KsoChartsInfo info;
        info.addFolder(QStringLiteral("Histograms"));
        info.addView(QStringLiteral("Histograms"), QStringLiteral("Au"));
        info.addView(QStringLiteral("Histograms"), QStringLiteral("Cu"));
        info.addFolder(QStringLiteral("Maps"));
        info.addView(QStringLiteral("Maps"), QStringLiteral("Au"));
        return info;
    }
};

/// Keeps the records that a model sends. The model must outlive it, or die while it lives.
template <class Model>
class ModelRecorder : public KuoIObserver<typename Model::Modif>
{
public:
    using Modif = typename Model::Modif;

    explicit ModelRecorder(Model* model) : _model(model) { _model->addObserver(this); }
    ~ModelRecorder() override
    {
        if (_model)
            _model->removeObserver(this);
    }
    ModelRecorder(const ModelRecorder&) = delete;
    ModelRecorder& operator=(const ModelRecorder&) = delete;

    void update(const Modif& modif) override { records.append(modif); }
    void destroyed(const KuoAObservable<Modif>*) override { _model = nullptr; }

    /// The reasons that the only record of the last change holds for an item; -1 if there was not one record.
    template <class Ident>
    int takeReasons(const Ident& ident)
    {
        const int reasons = records.size() == 1 ? records.first().getReasons(ident) : -1;
        records.clear();
        return reasons;
    }

    QVector<Modif> records;

private:
    Model* _model;
};
