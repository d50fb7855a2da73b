#include "SurveyProject.h"

#include <study/KsmModelCharts.h>
#include <study/KsmModelColorScale.h>
#include <study/KsmModelGeosSet.h>
#include <study/KsmModelNeighborhood.h>
#include <study/KsmModelScene.h>
#include <study/KssImportCsv.h>

#include <algorithm>

namespace {

const char* const north = "X,Y,Cu,Count,Fresh,Rock,Geologist\n"
                          "10,10,0.5,3,yes,Clay,Ana\n"
                          "20,10,1.5,5,no,Sand,Ben\n"
                          "30,10,2.5,7,yes,Granite,Ana\n"
                          "10,20,,2,yes,Clay,Cid\n"
                          "20,20,0.8,,no,Sand,Ben\n"
                          "30,20,3.2,9,yes,Granite,Ana\n"
                          "10,30,1.1,4,no,,Ben\n"
                          "20,30,0.2,1,yes,Sand,Ana\n"
                          "30,30,4.0,8,,Granite,\n"
                          "10,40,2.2,6,no,Clay,Ben\n"
                          "20,40,0.9,5,yes,Sand,Cid\n"
                          "30,40,1.7,3,no,Granite,Ana\n";

const char* const south = "X,Y,Cu,Count,Fresh,Rock,Geologist\n"
                          "10,10,5.0,3,no,Granite,Cid\n"
                          "20,10,,4,no,Granite,Cid\n"
                          "30,10,0.1,5,yes,Clay,Dan\n"
                          "10,20,0.7,6,yes,Sand,Dan\n"
                          "20,20,2.0,7,no,Clay,Ana\n"
                          "30,20,1.0,8,yes,,Ana\n";

} // namespace

SurveyProject::SurveyProject()
{
    _createData();
    _createNamedItems();
}

void SurveyProject::_createData()
{
    KsoDataDirectory* site = data().createDirectory(data().getRootItem(), QStringLiteral("Site"));
    data().createDirectory(data().getRootItem(), QStringLiteral("Archive"));
    KssImportCsv import(_project.get());
    import.setType(QStringLiteral("Cu"), MbdEVarType::FLOAT);
    import.setType(QStringLiteral("Count"), MbdEVarType::INTEGER);
    import.setType(QStringLiteral("Fresh"), MbdEVarType::BOOLEAN);
    import.setType(QStringLiteral("Rock"), MbdEVarType::ENUM);
    import.setType(QStringLiteral("Geologist"), MbdEVarType::STRING);
    import.importText(north, QStringLiteral("North"), site);
    import.importText(south, QStringLiteral("South"), site);
}

void SurveyProject::_createNamedItems()
{
    _project->getModelColorScale()->create(QStringLiteral("Copper"), {QColor(0, 0, 255), QColor(255, 0, 0)});
    _project->getModelGeosSet()->create(QStringLiteral("Fit"));
    _project->getModelNeighborhood()->create(QStringLiteral("Near"));
    _project->getModelScene()->create(QStringLiteral("Pit"));
    KsmModelCharts* charts = _project->getModelCharts();
    KsoCharts* plots = charts->create(QStringLiteral("Plots"));
    charts->addFolder(plots, QStringLiteral("Grades"));
    charts->addView(plots, QStringLiteral("Grades"), QStringLiteral("Histogram"));
}

KsoADataItem* SurveyProject::item(const QString& path) const
{
    if (!_project)
        return nullptr;
    KsoADataItem* item = data().getRootItem();
    for (const QString& name : path.split(QLatin1Char('/'))) {
        // The only support of a file goes without saying.
        if (item->getType() == KsoEDataType::FILE && item->hasUniqueChild())
            item = item->getChildItems().first();
        const auto& children = item->getChildItems();
        const auto found = std::find_if(children.begin(), children.end(),
                                        [&](const KsoADataItem* child) { return child->getName() == name; });
        if (found == children.end())
            return nullptr;
        item = *found;
    }
    return item;
}

KsoDataIdentifier SurveyProject::ident(const QString& path) const
{
    const KsoADataItem* found = item(path);
    return found ? found->getIdentifier() : KsoDataIdentifier();
}

KsoAVariableItem* SurveyProject::variable(const QString& path) const
{
    return dynamic_cast<KsoAVariableItem*>(item(path));
}

KsoEnumCatalog* SurveyProject::catalog(const QString& name) const
{
    return _project ? static_cast<KsoEnumCatalog*>(catalogs().findItem(name)) : nullptr;
}
