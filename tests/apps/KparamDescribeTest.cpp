#include <apps/KparamTest.h>

namespace {

class KparamDescribe : public KparamTest
{
protected:
    QJsonObject parameter(const QJsonObject& description, const QString& path) const
    {
        for (const QJsonValue& value : description.value("parameters").toArray()) {
            if (value.toObject().value("path").toString() == path)
                return value.toObject();
        }
        ADD_FAILURE() << "no parameter " << path.toStdString();
        return {};
    }
};

TEST_F(KparamDescribe, ListsAllKindsWithTheirNumbers)
{
    const KparamRun kinds = run({"kinds"});
    EXPECT_EQ(kinds.code, 0);
    EXPECT_EQ(kinds.out.count('\n'), 58);
    const QJsonArray array = run({"kinds", "--json"}).json().value("kinds").toArray();
    ASSERT_EQ(array.size(), 57);
    EXPECT_EQ(array[33].toObject(), (QJsonObject{{"value", 33}, {"key", "FICHE"}, {"label", "Fiche"}}));
    EXPECT_EQ(array[56].toObject(), (QJsonObject{{"value", 56}, {"key", "CUTOFFS"}, {"label", "Cutoffs"}}));
}

TEST_F(KparamDescribe, ListsTheClasses)
{
    const KparamRun classes = run({"classes"});
    EXPECT_EQ(classes.code, 0);
    for (const char* name : {"KpaInteger",
                             "KpaDouble",
                             "KpaBool",
                             "KpaSeed",
                             "KpaUnit",
                             "KpaEnum",
                             "KpaFlags",
                             "KpaString",
                             "KpaFSFile",
                             "KpaFSDirectory",
                             "KpaVectorDouble",
                             "KpaVectorInt",
                             "KpaRotation",
                             "KpaDirection",
                             "KpaPlaneOrientation",
                             "KpaSystemOrientation",
                             "KpaMatrixSymmetrical",
                             "KpaCoordSystem",
                             "KpaColor",
                             "KpaPalette",
                             "KpaLineStyle",
                             "KpaSymbol",
                             "KpaSymbol3D",
                             "KpaCatalogDefinition_old",
                             "KpcGroup",
                             "KpcFiche",
                             "KpcBasicFiche",
                             "KpcCheckableGroup",
                             "KpcConstraintDouble",
                             "KpcVectorConstraintDouble",
                             "KpcGroupList",
                             "KplBoolList",
                             "KplIntegerList",
                             "KplDoubleList",
                             "KplUnitList",
                             "KplEnumList",
                             "KplStringList",
                             "KplRotationList",
                             "KplMatrixSymmetricalList",
                             "KplColorList",
                             "DemoTask",
                             "DemoModel"})
        EXPECT_TRUE(classes.out.contains(QStringLiteral("\n%1 ").arg(name))) << name;
    bool found = false;
    for (const QJsonValue& value : run({"classes", "--json"}).json().value("classes").toArray()) {
        const QJsonObject object = value.toObject();
        if (object.value("name").toString() != "DemoTask")
            continue;
        found = true;
        EXPECT_EQ(object.value("kind").toString(), "FICHE");
        EXPECT_EQ(object.value("version").toInt(), 3);
        EXPECT_TRUE(object.value("fiche").toBool());
    }
    EXPECT_TRUE(found);
}

TEST_F(KparamDescribe, ShowsTheTableOfAClassAsText)
{
    EXPECT_EQ(run({"describe", "KpaInteger", "--key", "COUNT"}).out, "Path  Key    Kind     Label     Value  Enabled  "
                                                                     "Volatile\n"
                                                                     ".     COUNT  Integer  no label  0      yes      "
                                                                     "no\n");
}

TEST_F(KparamDescribe, ShowsTheTableOfAClassAsMarkdown)
{
    EXPECT_EQ(run({"describe", "KpaInteger", "--format", "markdown", "--key", "A|B"}).out,
              "| Path | Key | Kind | Label | Value | Bounds | Unit | Automatic | Enabled | Volatile |\n"
              "| --- | --- | --- | --- | --- | --- | --- | --- | --- | --- |\n"
              "| . | A\\|B | Integer | no label | 0 |  |  |  | yes | no |\n");
}

TEST_F(KparamDescribe, ShowsTheTableOfAClassAsJson)
{
    const QJsonObject task = run({"describe", "DemoTask", "--json"}).json();
    EXPECT_EQ(task.value("class").toString(), "DemoTask");
    EXPECT_EQ(task.value("parameters").toArray().size(), 21);
    EXPECT_EQ(parameter(task, "SEARCH/RADIUS"), (QJsonObject{{"path", "SEARCH/RADIUS"},
                                                             {"key", "RADIUS"},
                                                             {"kind", "DOUBLE"},
                                                             {"label", "Radius"},
                                                             {"value", "100 m"},
                                                             {"stored", QJsonObject{{"value", "100"}}},
                                                             {"bounds", "1 to 10000"},
                                                             {"unit", "m"},
                                                             {"automatic", true},
                                                             {"enabled", true},
                                                             {"volatile", false},
                                                             {"version", 1}}));
    EXPECT_EQ(run({"describe", "DemoTask", "--format", "json"}).json(), task);
}

TEST_F(KparamDescribe, TellsBoundsOfEachKind)
{
    const QJsonObject task = run({"describe", "DemoTask", "--json"}).json();
    const std::pair<const char*, const char*> bounds[] = {
        {"NAME", "matches ^[A-Za-z][A-Za-z0-9 _-]*$, at most 40 characters, trimmed"},
        {"METHOD", "NEAREST | INVERSE_DISTANCE | ORDINARY_KRIGING"},
        {"SAMPLES_FILE", "*.csv *.txt"},
        {"SEARCH/AZIMUTH", "0 to 360, wrapped"},
        {"SEARCH/MAX_SAMPLES", "1 to 256"},
        {"STATISTICS", "MEAN | VARIANCE | SAMPLE_COUNT"},
    };
    for (const auto& [path, text] : bounds)
        EXPECT_EQ(parameter(task, path).value("bounds").toString(), text) << path;
    EXPECT_TRUE(parameter(task, "REPORT_UNIT").value("bounds").toString().startsWith("m | km | "));
}

TEST_F(KparamDescribe, TellsBoundsAndUnitsOfVectorsOrientationsMatricesDrawingsAndLists)
{
    const QJsonObject model = run({"describe", "DemoModel", "--json"}).json();
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"GRID/SYSTEM", "local | projected", ""},
        {"GRID/ORIGIN", "", "m"},
        {"GRID/CELL", "from 0.1, v2 follows v1", "m"},
        {"GRID/NODES", "v1 1 to 1000; v2 1 to 1000; v3 1 to 200", ""},
        {"GRID/ROTATION", "in the plane", ""},
        {"STRUCTURE/SHOOTS", "", ""},
        {"STRUCTURE/SILLS", "positive definite", ""},
        {"STRUCTURE/NUGGET/VALUE", "from 0", ""},
        {"STRUCTURE/NUGGET/LOWER_BOUND", "from 0, or undefined", ""},
        {"STRUCTURE/RANGES", "COMPONENT_2 follows COMPONENT_1", ""},
        {"STRUCTURE/RANGES/COMPONENT_3/UPPER_BOUND", "from 0, or undefined", "m"},
        {"CUTOFFS", "items of the kind Double, 0 to 100, each value once", "%"},
        {"DOMAINS", "items of the kind String, at most 20 characters", ""},
        {"DOMAIN_COLORS/ITEM_1", "opaque", ""},
        {"DRILL_HOLES", "items of the kind Group", ""},
        {"SCREEN/PALETTE", "RAINBOW | GREY | HEAT | TERRAIN | DEPTH | BLUE_RED", ""},
        {"SCREEN/CONTOUR", "NO_LINE | SOLID | DASH | DOT | DASH_DOT | DASH_DOT_DOT", ""},
        {"SCREEN/SAMPLE",
         "CIRCLE | SQUARE | DIAMOND | TRIANGLE_UP | TRIANGLE_DOWN | PENTAGON | HEXAGON | STAR | PLUS | CROSS", ""},
        {"SCREEN/DRILL_HOLE", "SPHERE | CUBE | TETRAHEDRON | OCTAHEDRON | CYLINDER | CONE | DISC | CROSS", ""},
    };
    for (const auto& [path, bounds, unit] : rows) {
        EXPECT_EQ(parameter(model, path).value("bounds").toString(), bounds) << path;
        EXPECT_EQ(parameter(model, path).value("unit").toString(), unit) << path;
    }
}

TEST_F(KparamDescribe, TellsTheEntriesOfValuesThatHaveSeveral)
{
    const QJsonObject model = run({"describe", "DemoModel", "--json"}).json();
    EXPECT_EQ(parameter(model, "GRID/CELL").value("value").toString(), "[25 m,25 m,5 m]");
    EXPECT_EQ(parameter(model, "GRID/CELL").value("stored").toObject(),
              (QJsonObject{{"v1", "25"}, {"v2", "25"}, {"v3", "5"}}));
    EXPECT_EQ(parameter(model, "STRUCTURE/LAYERS").value("stored").toObject(),
              (QJsonObject{{"dip", "0"}, {"dipAzimuth", "90"}}));
    EXPECT_EQ(parameter(model, "DOMAINS").value("value").toString(), "1 item: 'Ore'");
    EXPECT_EQ(parameter(model, "DOMAINS").value("stored").toObject(), QJsonObject());
}

TEST_F(KparamDescribe, TellsStatesThatAreNotOrdinary)
{
    const QJsonObject task = run({"describe", "DemoTask", "--json"}).json();
    EXPECT_FALSE(parameter(task, "SEED").value("enabled").toBool());
    EXPECT_TRUE(parameter(task, "PREVIEW").value("volatile").toBool());
    EXPECT_TRUE(parameter(task, "SEED").value("automatic").isNull());
    const QString tree = run({"describe", "DemoTask", "--format", "tree"}).out;
    EXPECT_TRUE(tree.contains("├─ SEED               Seed of the random order      12345678 (disabled)\n"))
        << tree.toStdString();
    EXPECT_TRUE(tree.contains("└─ PREVIEW            Show a preview                no (not stored)\n"));
    EXPECT_TRUE(tree.contains("│  ├─ RADIUS          Radius                        100 m (automatic)\n"));
}

TEST_F(KparamDescribe, PrintsTheStoredFormOfAClass)
{
    EXPECT_EQ(run({"template", "KpaInteger"}).out, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                                   "<param key=\"KpaInteger\">0</param>\n");
    EXPECT_EQ(run({"template", "KpcFiche"}).out, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                                 "<task id=\"Task\"/>\n");
    EXPECT_EQ(run({"template", "KpcBasicFiche", "--param", "--key", "F"}).out,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<param key=\"F\"/>\n");
}

TEST_F(KparamDescribe, WritesTheStoredFormOfAClassIntoAFile)
{
    const KparamRun result = run({"template", "KpaBool", "--key", "B", "-o", "b.xml"});
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(result.out.isEmpty());
    EXPECT_EQ(read("b.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<param key=\"B\">yes</param>\n");
}

TEST_F(KparamDescribe, GivesATemplateOfEachClassThatTheClassReadsAsItStands)
{
    for (const QJsonValue& value : run({"classes", "--json"}).json().value("classes").toArray()) {
        const QString name = value.toObject().value("name").toString();
        // Cutoffs without a value are stored as an empty text, which is one undefined number.
        if (name == "KpcCutoffs")
            continue;
        const KparamRun check = run({"check", "--as", name, "-"}, run({"template", name}).out.toUtf8());
        EXPECT_EQ(check.code, 0) << check.out.toStdString();
        EXPECT_EQ(check.lastLine(), "-: written again, it is the same, byte for byte");
    }
}

} // namespace
