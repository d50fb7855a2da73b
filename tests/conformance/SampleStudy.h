#pragma once

#include <study/KsmModelCharts.h>
#include <study/KsmModelColorScale.h>
#include <study/KsmModelGeosSet.h>
#include <study/KsmModelNeighborhood.h>
#include <study/KsmModelScene.h>
#include <support/SampledProject.h>

/// A sampled project that has two items of each other kind as well, "First" and "Second". The chart files have the
/// folder "Grades" with the view "Histogram", and the folder "Depths".
class SampleStudy : public SampledProject
{
public:
    static const SampleStudy& instance()
    {
        static const SampleStudy study;
        return study;
    }

    SampleStudy()
    {
        _createTwo(*project->getModelEnumCatalog());
        _createTwo(*project->getModelColorScale(), {QColor(Qt::blue), QColor(Qt::red)});
        _createTwo(*project->getModelGeosSet());
        _createTwo(*project->getModelNeighborhood());
        _createTwo(*project->getModelScene());
        KsmModelCharts& charts = *project->getModelCharts();
        _createTwo(charts);
        for (KsoCharts* each : charts.getUserItems()) {
            charts.addFolder(each, "Grades");
            charts.addView(each, "Grades", "Histogram");
            charts.addFolder(each, "Depths");
        }
    }

private:
    template <class Model>
    static void _createTwo(Model& model, const typename Model::Content& content = {})
    {
        for (const char* name : {"First", "Second"})
            model.create(name, content);
    }
};
