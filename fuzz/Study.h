#pragma once

#include <study/KsbDriverItemMemory.h>
#include <study/KsmModelCharts.h>
#include <study/KsmModelColorScale.h>
#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KsmModelGeosSet.h>
#include <study/KsmModelNeighborhood.h>
#include <study/KsmModelScene.h>
#include <study/KssImportCsv.h>
#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>

#include <memory>

/// A transaction context with a project that has samples with a variable of each type in the file "holes", a macro
/// variable, and an item "First" of each other kind.
class Study : public KstATransactableDefault
{
public:
    Study()
    {
        _createSamples();
        project->getModelColorScale()->create("First", {QColor(Qt::blue), QColor(Qt::red)});
        project->getModelGeosSet()->create("First");
        project->getModelNeighborhood()->create("First");
        project->getModelScene()->create("First");
        KsmModelCharts& charts = *project->getModelCharts();
        KsoCharts* chart = charts.create("First");
        charts.addFolder(chart, "Grades");
        charts.addView(chart, "Grades", "Histogram");
    }

    KssProject* getProject() const override { return project.get(); }

    KsbDriverItemMemory* driver = new KsbDriverItemMemory; // the project's
    std::unique_ptr<KssProject> project = std::make_unique<KssProject>(std::unique_ptr<KsbIDriverItem>(driver));

private:
    void _createSamples()
    {
        KsoDataFile* file = KssImportCsv(project.get())
                                .importText("X;Y;CU;BOXES;ORE;ROCK;REMARK\n"
                                            "1;2;0.5;3;yes;Sand;first\n"
                                            "2;2;0.25;4;no;Clay;second\n"
                                            "3;2;;;yes;Sand;third\n"
                                            "4;2;1.5;1;;Clay;\n",
                                            "holes");
        MbdVariableDetails details;
        details.setType(MbdEVarType::DOUBLE);
        KsmModelData* data = project->getModelData();
        data->writeValues(data->createMacroVariable(file->getUniqueSupport(), "SIMULATED", details, 2), 1,
                          {1, 2, 3, 4});
    }
};
