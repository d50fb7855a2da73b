#include "Atomics.h"
#include "Subjects.h"
#include "Trees.h"

#include <PublicClasses.h>
#include <registry/ClassRegistry.h>

#include <QtCore/QSet>

#include <cstdlib>
#include <cxxabi.h>
#include <typeinfo>

namespace {

QString classOf(const KpbAParameter& parameter)
{
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(parameter).name(), nullptr, nullptr, nullptr), &std::free);
    return QString::fromLatin1(name.get());
}

} // namespace

// The build runs this one too.
TEST(ClassRegistry, HasARowForEveryClassThatCanBeMade)
{
    QStringList missing;
    for (const QString& name : PublicClasses::getNames()) {
        if (!ClassRegistry::find(name))
            missing.append(name);
    }
    EXPECT_TRUE(missing.isEmpty()) << "The registry, and with it the conformance suite, does not have "
                                   << missing.join(", ").toStdString()
                                   << ". Give each a row in apps/kparam/registry/ClassRegistryRows.cpp.";
    EXPECT_TRUE(PublicClasses::getNames().contains("KpaInteger")) << "The headers have not been read.";
}

TEST(ClassRegistry, ListsEachClassOnce)
{
    QSet<QString> names;
    for (const ClassRegistry::Row& row : ClassRegistry::getRows()) {
        EXPECT_FALSE(names.contains(row.name)) << row.name.toStdString();
        names.insert(row.name);
    }
}

TEST(ClassRegistry, MakesTheClassThatARowNamesUnderTheKeyThatIsAskedFor)
{
    for (const ClassRegistry::Row& row : ClassRegistry::getRows()) {
        const auto made = row.make("ANY_KEY");
        EXPECT_EQ(classOf(*made), row.name);
        EXPECT_EQ(made->getKey(), "ANY_KEY") << row.name.toStdString();
    }
}

TEST(ClassRegistry, TellsFichesFromOtherClasses)
{
    for (const ClassRegistry::Row& row : ClassRegistry::getRows())
        EXPECT_EQ(row.make("KEY")->isA(KpbEType::FICHE), row.isFiche) << row.name.toStdString();
}

TEST(ClassRegistry, MakesEachClassOfItsKindAndVersion)
{
    const struct
    {
        const char* className;
        const char* kind;
        int version;
    } rows[] = {
        {"KpaInteger", "INTEGER", 1},
        {"KpaDouble", "DOUBLE", 1},
        {"KpaBool", "BOOL", 1},
        {"KpaSeed", "SEED", 1},
        {"KpaUnit", "UNIT", 1},
        {"KpaEnum", "ENUM", 1},
        {"KpaFlags", "FLAGS", 1},
        {"KpaString", "STRING", 1},
        {"KpaFSFile", "FS_FILE", 1},
        {"KpaFSDirectory", "FS_DIRECTORY", 1},
        {"KpaVectorDouble", "VECTOR_DOUBLE", 1},
        {"KpaVectorInt", "VECTOR_INT", 1},
        {"KpaRotation", "ROTATION", 1},
        {"KpaDirection", "DIRECTION", 1},
        {"KpaPlaneOrientation", "PLANE_ORIENTATION", 1},
        {"KpaSystemOrientation", "SYSTEM_ORIENTATION", 1},
        {"KpaMatrixSymmetrical", "MATRIX", 1},
        {"KpaCoordSystem", "COORD_SYSTEM", 1},
        {"KpaColor", "COLOR", 1},
        {"KpaPalette", "PALETTE", 1},
        {"KpaLineStyle", "LINE_STYLE", 1},
        {"KpaSymbol", "SYMBOL", 1},
        {"KpaSymbol3D", "SYMBOL_3D", 1},
        {"KpaCatalogDefinition_old", "OLD_CATALOG_DEF", 1},
        {"KpcGroup", "GROUP", 1},
        {"KpcFiche", "FICHE", 1},
        {"KpcBasicFiche", "FICHE", 1},
        {"KpcCheckableGroup", "CHECKABLE_GROUP", 1},
        {"KpcConstraintDouble", "CONSTRAINT_DOUBLE", 1},
        {"KpcVectorConstraintDouble", "VECTOR_CONSTRAINT_DOUBLE", 1},
        {"KpcGroupList", "LIST", 1},
        {"KplBoolList", "LIST", 1},
        {"KplColorList", "LIST", 1},
        {"KplDoubleList", "LIST", 1},
        {"KplEnumList", "LIST", 1},
        {"KplIntegerList", "LIST", 1},
        {"KplMatrixSymmetricalList", "LIST", 1},
        {"KplRotationList", "LIST", 1},
        {"KplStringList", "LIST", 1},
        {"KplUnitList", "LIST", 1},
        {"KpaProject", "PROJECT", 1},
        {"KpaData", "DATA_IDENT", 1},
        {"KpaCatalog", "CATALOG_IDENT", 1},
        {"KpaColorScale", "COLOR_SCALE_IDENT", 1},
        {"KpaGeosSet", "GEOS_SET_IDENT", 1},
        {"KpaNeighborhoodItem", "NEIGHBORHOOD_IDENT", 1},
        {"KpaScene", "SCENE_IDENT", 1},
        {"KpaCharts", "CHARTS_IDENT", 1},
        {"KpaChartFolder", "CHART_FOLDER", 1},
        {"KpaChartView", "CHART_VIEW", 1},
        {"KpcDataset", "DATASET", 1},
        {"KpcSelection", "SELECTION", 1},
        {"KpcSampleFilter", "SAMPLE_FILTER", 2},
        {"KpcSampleFilterRule", "SAMPLE_FILTER_RULE", 2},
        {"KpcSampleCategories", "SAMPLE_CATEGORIES", 1},
        {"KpcSampleCategoriesRule", "SAMPLE_CATEGORIES_RULE", 1},
        {"KpcCutoffs", "CUTOFFS", 2},
        {"KpcCatalogCategory", "GROUP", 1},
        {"KpcCatalogCategories", "CATALOG_CATEGORIES", 1},
        {"KpcZvxConnection", "ZVX", 1},
        {"KpcDisplayScene", "DISPLAY_SCENE", 1},
        {"KplDataList", "LIST", 1},
        {"KplProjectList", "LIST", 1},
        {"DemoTask", "FICHE", 3},
        {"DemoModel", "FICHE", 1},
        {"DemoSurvey", "FICHE", 1},
    };
    QSet<QString> tested;
    for (const auto& row : rows) {
        const ClassRegistry::Row* registered = ClassRegistry::find(row.className);
        ASSERT_TRUE(registered) << row.className;
        const auto made = registered->make("KEY");
        EXPECT_EQ(made->getType().getKey(), row.kind) << row.className;
        EXPECT_EQ(made->getVersion(), row.version) << row.className;
        tested.insert(row.className);
    }
    for (const ClassRegistry::Row& row : ClassRegistry::getRows())
        EXPECT_TRUE(tested.contains(row.name)) << "No kind is told here for " << row.name.toStdString();
}

TEST(ClassRegistry, HasClassesWhoseFurtherStatesAreTested)
{
    for (const Subject& subject : allSubjects())
        EXPECT_TRUE(ClassRegistry::find(subject.className)) << subject.name.toStdString();
}

TEST_EVERY(ParameterClass, HasOnlyLeavesWhoseValuesTheseTestsCanChange)
{
    const auto root = make();
    for (KpbAParameter* parameter : allOf(*root)) {
        const bool composite = isMadeOfOthers(*parameter);
        EXPECT_NE(KnownAtomics::visit(*parameter, [](auto&) {}) || isOneValue(*parameter), composite)
            << placeOf(*parameter);
        // Of these, one without items, in a class of one unit, or without a project, has no choice.
        const bool chooses = parameter->isA(KpbEType::ENUM) || parameter->isA(KpbEType::FLAGS) ||
                             parameter->isA(KpbEType::UNIT) || isOfProject(*parameter);
        EXPECT_TRUE(changeValue(*parameter) || composite || chooses) << placeOf(*parameter);
    }
}
