#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaCatalog.h>
#include <param/atomic/KpaCatalogDefinition_old.h>
#include <param/atomic/KpaChartFolder.h>
#include <param/atomic/KpaChartView.h>
#include <param/atomic/KpaCharts.h>
#include <param/atomic/KpaColor.h>
#include <param/atomic/KpaColorScale.h>
#include <param/atomic/KpaCoordSystem.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaDirection.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFSDirectory.h>
#include <param/atomic/KpaFSFile.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaGeosSet.h>
#include <param/atomic/KpaInteger.h>
#include <param/atomic/KpaLineStyle.h>
#include <param/atomic/KpaMatrixSymmetrical.h>
#include <param/atomic/KpaNeighborhoodItem.h>
#include <param/atomic/KpaPalette.h>
#include <param/atomic/KpaPlaneOrientation.h>
#include <param/atomic/KpaProject.h>
#include <param/atomic/KpaRotation.h>
#include <param/atomic/KpaScene.h>
#include <param/atomic/KpaSeed.h>
#include <param/atomic/KpaString.h>
#include <param/atomic/KpaSymbol.h>
#include <param/atomic/KpaSymbol3D.h>
#include <param/atomic/KpaSystemOrientation.h>
#include <param/atomic/KpaUnit.h>
#include <param/atomic/KpaVectorDouble.h>
#include <param/atomic/KpaVectorInt.h>
#include <param/composite/KpcBasicFiche.h>
#include <param/composite/KpcCatalogCategories.h>
#include <param/composite/KpcCheckableGroup.h>
#include <param/composite/KpcConstraintDouble.h>
#include <param/composite/KpcCutoffs.h>
#include <param/composite/KpcDataset.h>
#include <param/composite/KpcDisplayScene.h>
#include <param/composite/KpcFiche.h>
#include <param/composite/KpcGroup.h>
#include <param/composite/KpcGroupList.h>
#include <param/composite/KpcSampleCategories.h>
#include <param/composite/KpcSampleCategoriesRule.h>
#include <param/composite/KpcSampleFilter.h>
#include <param/composite/KpcSampleFilterRule.h>
#include <param/composite/KpcSelection.h>
#include <param/composite/KpcVectorConstraintDouble.h>
#include <param/composite/KpcZvxConnection.h>
#include <param/list/KplBoolList.h>
#include <param/list/KplColorList.h>
#include <param/list/KplDataList.h>
#include <param/list/KplDoubleList.h>
#include <param/list/KplEnumList.h>
#include <param/list/KplIntegerList.h>
#include <param/list/KplMatrixSymmetricalList.h>
#include <param/list/KplProjectList.h>
#include <param/list/KplRotationList.h>
#include <param/list/KplStringList.h>
#include <param/list/KplUnitList.h>
#include <registry/ClassRegistry.h>
#include <registry/DemoModel.h>
#include <registry/DemoSurvey.h>
#include <registry/DemoTask.h>
#include <study/KstITransactable.h>

#include <concepts>

namespace {

/// A parameter that needs nothing but its key, or reaches its project through a transaction context.
template <class T>
std::unique_ptr<KpbAParameter> makeIn(const QString& key, const KstITransactable& context)
{
    if constexpr (std::constructible_from<T, const QString&, const KstITransactable&>)
        return std::make_unique<T>(key, context);
    else
        return std::make_unique<T>(key);
}

template <>
std::unique_ptr<KpbAParameter> makeIn<KpcFiche>(const QString& key, const KstITransactable& context)
{
    return std::make_unique<KpcFiche>(key, QStringLiteral("Task"), context);
}

template <>
std::unique_ptr<KpbAParameter> makeIn<KpcBasicFiche>(const QString& key, const KstITransactable&)
{
    return std::make_unique<KpcBasicFiche>(key, QStringLiteral("Task"));
}

template <class T>
ClassRegistry::Row row(const char* name, const QString& family, const char* description)
{
    return {QString::fromLatin1(name), family, QString::fromLatin1(description), std::derived_from<T, KpcFiche>,
            makeIn<T>};
}

#define ROW(Class, family, description) row<Class>(#Class, family, description)

} // namespace

const std::vector<ClassRegistry::Row>& ClassRegistry::getRows()
{
    // clang-format off
    static const QString number    = QStringLiteral("Numbers, choices and texts");
    static const QString geometry  = QStringLiteral("Geometry");
    static const QString drawing   = QStringLiteral("Drawing");
    static const QString composite = QStringLiteral("Composites");
    static const QString data      = QStringLiteral("Data of a project");
    static const QString list      = QStringLiteral("Lists");
    static const QString task      = QStringLiteral("Task forms");
    static const std::vector<Row> rows = {
        ROW(KpaInteger,                number,    "An integer within limits"),
        ROW(KpaDouble,                 number,    "A number within limits, with a unit"),
        ROW(KpaBool,                   number,    "Yes or no"),
        ROW(KpaSeed,                   number,    "The seed of a random number generator"),
        ROW(KpaUnit,                   number,    "The choice of a unit within a unit class"),
        ROW(KpaEnum,                   number,    "One choice among items"),
        ROW(KpaFlags,                  number,    "Any subset of items"),
        ROW(KpaString,                 number,    "A text under optional rules"),
        ROW(KpaFSFile,                 number,    "The path of a file"),
        ROW(KpaFSDirectory,            number,    "The path of a folder"),

        ROW(KpaVectorDouble,           geometry,  "Up to three numbers, each within limits of its own"),
        ROW(KpaVectorInt,              geometry,  "Up to three integers, such as counts of nodes"),
        ROW(KpaRotation,               geometry,  "A rotation by three angles of a convention"),
        ROW(KpaDirection,              geometry,  "A rotation as azimuth and plunge"),
        ROW(KpaPlaneOrientation,       geometry,  "A rotation as dip and dip azimuth"),
        ROW(KpaSystemOrientation,      geometry,  "A rotation as dip, dip azimuth and pitch"),
        ROW(KpaMatrixSymmetrical,      geometry,  "A symmetric matrix, of numbers or of constraints"),
        ROW(KpaCoordSystem,            geometry,  "A coordinate system of certain kinds"),

        ROW(KpaColor,                  drawing,   "A colour with its opacity"),
        ROW(KpaPalette,                drawing,   "Colours for a range of numbers"),
        ROW(KpaLineStyle,              drawing,   "How a line is drawn"),
        ROW(KpaSymbol,                 drawing,   "How a point is drawn on a map"),
        ROW(KpaSymbol3D,               drawing,   "How a point is drawn in space"),
        ROW(KpaCatalogDefinition_old,  drawing,   "The categories of a variable, in older forms"),

        ROW(KpcGroup,                  composite, "A bag of parameters with watchers"),
        ROW(KpcFiche,                  composite, "The stored form of a task"),
        ROW(KpcBasicFiche,             composite, "A fiche outside any project"),
        ROW(KpcCheckableGroup,         composite, "A group with a check box in front of it"),
        ROW(KpcConstraintDouble,       composite, "What is known of a number: itself, bounds, nothing"),
        ROW(KpcVectorConstraintDouble, composite, "What is known of each component of a vector"),

        ROW(KpaProject,                data,      "One of the open projects"),
        ROW(KpaData,                   data,      "A directory, file, support or variable"),
        ROW(KpaCatalog,                data,      "A catalog of categories"),
        ROW(KpaColorScale,             data,      "A colour scale"),
        ROW(KpaGeosSet,                data,      "A geostatistical set"),
        ROW(KpaNeighborhoodItem,       data,      "A search neighbourhood"),
        ROW(KpaScene,                  data,      "A scene"),
        ROW(KpaCharts,                 data,      "A chart file"),
        ROW(KpaChartFolder,            data,      "A folder of a chart file"),
        ROW(KpaChartView,              data,      "A view in a folder of a chart file"),
        ROW(KpcDataset,                data,      "The data of a task: a file or support, variables, samples"),
        ROW(KpcSelection,              data,      "A selection of samples"),
        ROW(KpcSampleFilter,           data,      "Rules for samples and how they are combined"),
        ROW(KpcSampleFilterRule,       data,      "One rule for samples"),
        ROW(KpcSampleCategories,       data,      "Conditions that sort samples into categories"),
        ROW(KpcSampleCategoriesRule,   data,      "One category and its condition"),
        ROW(KpcCutoffs,                data,      "Cutoff values, typed in or a named list of the registry"),
        ROW(KpcCatalogCategory,        data,      "What is to be done with one category of a catalog"),
        ROW(KpcCatalogCategories,      data,      "What is to be done with the categories of a catalog"),
        ROW(KpcDisplayScene,           data,      "Whether a result is displayed in a scene, and in which"),
        ROW(KpcZvxConnection,          data,      "How the data server is reached"),

        ROW(KpcGroupList,              list,      "Groups, alike at first"),
        ROW(KplBoolList,               list,      "Any number of yes and no"),
        ROW(KplIntegerList,            list,      "Any number of integers"),
        ROW(KplDoubleList,             list,      "Any number of numbers"),
        ROW(KplUnitList,               list,      "Any number of units"),
        ROW(KplEnumList,               list,      "Any number of choices"),
        ROW(KplStringList,             list,      "Any number of texts"),
        ROW(KplRotationList,           list,      "Any number of rotations"),
        ROW(KplMatrixSymmetricalList,  list,      "Any number of symmetric matrices"),
        ROW(KplColorList,              list,      "Any number of colours"),
        ROW(KplProjectList,            list,      "Any number of open projects"),
        ROW(KplDataList,               list,      "Any number of files, variables and the like"),

        ROW(DemoTask,                  task,      "The form that the demonstration begins with"),
        ROW(DemoModel,                 task,      "The form that it goes on with: a model and its drawing"),
        ROW(DemoSurvey,                task,      "The form that it ends with: the samples of a data file"),
    };
    // clang-format on
    return rows;
}
