#include <apps/KparamTest.h>

namespace {

class KparamMigrate : public KparamTest
{};

class KparamSet : public KparamTest
{};

TEST_F(KparamMigrate, WritesADocumentInThePresentVersion)
{
    const KparamRun result = run({"migrate", "--as", "DemoTask", sample("kparam-demo-v1.xml"), "-o", "new.xml"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, "Version 1 -> 3\n"
                          "  TITLE = Lens A  ->  NAME = Lens A\n"
                          "  INTERPOLATOR = ID  ->  METHOD = INVERSE_DISTANCE\n"
                          "  RADIUS = 75  ->  SEARCH/RADIUS = 75\n"
                          "  AZIMUTH = 30  ->  SEARCH/AZIMUTH = 30\n"
                          "  SAMPLES = 24  ->  SEARCH/MAX_SAMPLES = 24\n"
                          "  TOP_CUT = 12.5  ->  TRIMMING/TRIMMING_GROUP/UPPER_LIMIT = 12.5\n"
                          "  OUTPUTS = AVG|VAR|NB  ->  STATISTICS = MEAN|VARIANCE|SAMPLE_COUNT\n"
                          "  (new)  ->  TRIMMING/USE_TRIMMING = yes\n");
    EXPECT_EQ(read("new.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                               "<task id=\"DemoTask\" version=\"3\">\n"
                               " <param key=\"NAME\">Lens A</param>\n"
                               " <param key=\"METHOD\">INVERSE_DISTANCE</param>\n"
                               " <param key=\"SAMPLES_FILE\"/>\n"
                               " <param key=\"RESULT_FOLDER\"/>\n"
                               " <param key=\"SEARCH\">\n"
                               "  <param key=\"RADIUS\" automatic=\"no\">75</param>\n"
                               "  <param key=\"AZIMUTH\">30</param>\n"
                               "  <param key=\"MAX_SAMPLES\">24</param>\n"
                               "  <param key=\"SECTORS\">\n"
                               "   <param key=\"COUNT\">4</param>\n"
                               "   <param key=\"BALANCED\">yes</param>\n"
                               "  </param>\n"
                               " </param>\n"
                               " <param key=\"TRIMMING\">\n"
                               "  <param key=\"USE_TRIMMING\">yes</param>\n"
                               "  <param key=\"TRIMMING_GROUP\">\n"
                               "   <param key=\"UPPER_LIMIT\">12.5</param>\n"
                               "  </param>\n"
                               " </param>\n"
                               " <param key=\"RANDOM_PATH\">no</param>\n"
                               " <param key=\"SEED\">12345678</param>\n"
                               " <param key=\"STATISTICS\">MEAN|VARIANCE|SAMPLE_COUNT</param>\n"
                               " <param key=\"REPORT_UNIT\">m</param>\n"
                               "</task>\n");
    EXPECT_EQ(run({"check", "--as", "DemoTask", "new.xml"}).code, 0);
}

TEST_F(KparamMigrate, CanReplaceTheDocumentItself)
{
    file("n.xml", "<param key=\"N\">05</param>");
    EXPECT_EQ(run({"migrate", "--as", "KpaInteger", "n.xml", "-o", "n.xml"}).code, 0);
    EXPECT_EQ(read("n.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<param key=\"N\">5</param>\n");
    EXPECT_EQ(files(), QStringList("n.xml"));
}

TEST_F(KparamMigrate, WritesNothingThatWouldBeLostUnlessForced)
{
    file("form.xml", "<param key=\"N\"><value>5</value><unit>m</unit></param>");
    const KparamRun result = run({"migrate", "--as", "KpaInteger", "form.xml", "-o", "new.xml", "--json"});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.err, "kparam: form.xml:1:32: .: unknown: entry 'unit'\n"
                          "kparam: Nothing was written; --force does.\n");
    EXPECT_FALSE(result.json().value("written").toBool(true));
    EXPECT_FALSE(exists("new.xml"));

    EXPECT_EQ(run({"migrate", "--as", "KpaInteger", "form.xml", "-o", "new.xml", "--force"}).code, 1);
    EXPECT_EQ(read("new.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<param key=\"N\">5</param>\n");
}

TEST_F(KparamMigrate, RefusesADocumentThatIsTooNew)
{
    const QString name = sample("kparam-demo-too-new.xml");
    const KparamRun result = run({"migrate", "--as", "DemoTask", name, "-o", "new.xml", "--force"});
    EXPECT_EQ(result.code, 3);
    EXPECT_EQ(result.err, "kparam: " + name + ":2:1: version 4; the newest that is known is 3\n");
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(KparamMigrate, TellsWhenTheOutputCannotBeWritten)
{
    file("n.xml", "<param key=\"N\">5</param>");
    for (const char* out : {"no/such/folder/n.xml", "/dev/null", "/"}) {
        const KparamRun result = run({"migrate", "--as", "KpaInteger", "n.xml", "-o", out, "--json"});
        EXPECT_EQ(result.code, 5) << out;
        EXPECT_TRUE(result.err.startsWith(QStringLiteral("kparam: %1: The file cannot be written: ").arg(out)))
            << result.err.toStdString();
        EXPECT_EQ(result.json().value("error").toObject().value("code").toInt(), 5);
    }
    EXPECT_EQ(files(), QStringList("n.xml"));
}

TEST_F(KparamSet, PrintsTheRecordsThatReachTheRoot)
{
    run({"template", "DemoTask", "-o", "form.xml"});
    const KparamRun result = run({"set", "--as", "DemoTask", "form.xml", "METHOD=NEAREST", "SEARCH/RADIUS=250",
                                  "RANDOM_PATH=yes", "TRIMMING/USE_TRIMMING=yes", "NAME=Run 1", "-o", "new.xml"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, "METHOD = NEAREST\n"
                          "  record: METHOD value\n"
                          "  record: SEARCH/RADIUS value, config\n"
                          "SEARCH/RADIUS = 250\n"
                          "  record: SEARCH/RADIUS value, config\n"
                          "RANDOM_PATH = yes\n"
                          "  record: RANDOM_PATH value\n"
                          "  record: SEED config\n"
                          "TRIMMING/USE_TRIMMING = yes\n"
                          "  record: TRIMMING/TRIMMING_GROUP config; TRIMMING/TRIMMING_GROUP/UPPER_LIMIT config; "
                          "TRIMMING/USE_TRIMMING value\n"
                          "NAME = Run 1\n"
                          "  no record: nothing changed\n");
    EXPECT_TRUE(read("new.xml").contains("<param key=\"RADIUS\" automatic=\"no\">250</param>"));
    EXPECT_EQ(files(), (QStringList{"form.xml", "new.xml"}));
}

TEST_F(KparamSet, TellsTheRecordsAsJson)
{
    file("n.xml", "<param key=\"N\">5</param>");
    const QJsonObject result = run({"set", "--as", "KpaInteger", "n.xml", ".=7", "-o", "n.xml", "--json"}).json();
    EXPECT_TRUE(result.value("written").toBool());
    EXPECT_EQ(result.value("changes").toArray().first().toObject(),
              (QJsonObject{{"path", "."},
                           {"asked", "7"},
                           {"stored", "7"},
                           {"result", "same"},
                           {"records", QJsonArray{QJsonValue(QJsonArray{
                                           QJsonObject{{"path", "."}, {"flags", 1}, {"changed", "value"}}})}}}));
}

TEST_F(KparamSet, WritesNothingWhereAValueIsRefusedOrRepaired)
{
    run({"template", "DemoTask", "-o", "form.xml"});
    const std::pair<const char*, const char*> cases[] = {
        {"SEARCH/MAX_SAMPLES=1000", "kparam: SEARCH/MAX_SAMPLES: '1000' was repaired to '256'.\n"},
        {"METHOD=GUESS", "kparam: METHOD: 'GUESS' was refused; 'ORDINARY_KRIGING' stands.\n"},
    };
    for (const auto& [assignment, message] : cases) {
        const KparamRun result = run({"set", "--as", "DemoTask", "form.xml", "NAME=A", assignment, "-o", "new.xml"});
        EXPECT_EQ(result.code, 1) << assignment;
        EXPECT_EQ(result.err, QString(message) + "kparam: Nothing was written; --force does.\n");
        EXPECT_FALSE(exists("new.xml"));
    }
    EXPECT_EQ(run({"set", "--as", "DemoTask", "form.xml", "SEARCH/MAX_SAMPLES=1000", "-o", "new.xml", "--force"}).code,
              1);
    EXPECT_TRUE(read("new.xml").contains("<param key=\"MAX_SAMPLES\">256</param>"));
}

TEST_F(KparamSet, TellsWhatIsWrongWithAnAssignment)
{
    run({"template", "DemoTask", "-o", "form.xml"});
    const std::pair<const char*, const char*> cases[] = {
        {"RADIUS=5", "kparam: There is no parameter 'RADIUS'. Did you mean SEARCH/RADIUS?\n"},
        {"Q=5", "kparam: There is no parameter 'Q'.\n"},
        {"=5", "kparam: There is no parameter ''.\n"},
        {"../NAME=5", "kparam: There is no parameter '../NAME'. Did you mean NAME?\n"},
        {"NAME", "kparam: 'NAME' is not of the form PATH=VALUE.\n"},
        {"SEARCH=5", "kparam: 'SEARCH' has no value of its own.\n"},
        {".=5", "kparam: '.' has no value of its own.\n"},
        {"PREVIEW=yes", "kparam: 'PREVIEW' is not stored.\n"},
    };
    for (const auto& [assignment, message] : cases) {
        const KparamRun result = run({"set", "--as", "DemoTask", "form.xml", assignment, "-o", "new.xml"});
        EXPECT_EQ(result.code, 2) << assignment;
        EXPECT_EQ(result.err, message);
        EXPECT_FALSE(exists("new.xml"));
    }
}

TEST_F(KparamSet, ChangesEntriesOfValuesThatHaveSeveral)
{
    run({"template", "DemoModel", "-o", "m.xml"});
    const KparamRun result = run({"set", "--as", "DemoModel", "m.xml", "GRID/CELL/v1=10", "GRID/ORIGIN/v3=1e2",
                                  "STRUCTURE/SHOOTS/azimuth=400", "STRUCTURE/SILLS/node_2=0.5", "SCREEN/PALETTE=GREY",
                                  "SCREEN/CONTOUR/color=red", "-o", "n.xml"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, "GRID/CELL/v1 = 10\n"
                          "  record: GRID/CELL value\n"
                          "GRID/ORIGIN/v3 = 100\n"
                          "  record: GRID/ORIGIN value\n"
                          "STRUCTURE/SHOOTS/azimuth = 40\n"
                          "  record: STRUCTURE/SHOOTS value\n"
                          "STRUCTURE/SILLS/node_2 = 0.5\n"
                          "  record: STRUCTURE/SILLS value\n"
                          "SCREEN/PALETTE = GREY\n"
                          "  record: SCREEN/PALETTE value\n"
                          "  record: PRINT/PALETTE value\n"
                          "SCREEN/CONTOUR/color = #ffff0000\n"
                          "  record: SCREEN/CONTOUR value\n"
                          "  record: PRINT/CONTOUR value\n");
    EXPECT_TRUE(read("n.xml").contains("  <param key=\"CELL\">\n   <v1>10</v1>\n   <v2>10</v2>\n   <v3>5</v3>\n"));
    EXPECT_EQ(run({"check", "--as", "DemoModel", "n.xml"}).lastLine(),
              "n.xml: written again, it is the same, byte for byte");
}

TEST_F(KparamSet, ChangesTheEntriesOfEachClass)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"KpaVectorDouble", "v2=20.5", "v2 = 20.5"},
        {"KpaVectorInt", "./v3=7", "./v3 = 7"},
        {"KpaRotation", "a1=30", "a1 = 30"},
        {"KpaDirection", "plunge=-12.5", "plunge = -12.5"},
        {"KpaPlaneOrientation", "dip=40", "dip = 40"},
        {"KpaSystemOrientation", "pitch=22.5", "pitch = 22.5"},
        {"KpaMatrixSymmetrical", "size=2", "size = 2"},
        {"KpaCoordSystem", ".=LOCAL", ". = LOCAL"},
        {"KpaColor", "opacity=128", "opacity = 128"},
        {"KpaPalette", ".=HEAT", ". = HEAT"},
        {"KpaPalette", "id=HEAT", "id = HEAT"},
        {"KpaLineStyle", "border=True", "border = yes"},
        {"KpaSymbol", "shape=STAR", "shape = STAR"},
        {"KpaSymbol3D", "quality=0.75", "quality = 0.75"},
        {"KpaCatalogDefinition_old", "enum1=7|Oxide|1", "enum1 = 7|Oxide|1"},
        {"KpcConstraintDouble", "VALUE=5", "VALUE = 5"},
        {"KpcVectorConstraintDouble", "COMPONENT_2/VALUE=5", "COMPONENT_2/VALUE = 5"},
        {"KpcGroupList", "+=", "ITEM_1 = (new)"},
        {"KplBoolList", "+=no", "ITEM_1 = no"},
        {"KplColorList", "+=", "ITEM_1 = (new)"},
        {"KplDoubleList", "+=2.5", "ITEM_1 = 2.5"},
        {"KplIntegerList", "+=7", "ITEM_1 = 7"},
        {"KplMatrixSymmetricalList", "+=", "ITEM_1 = (new)"},
        {"KplRotationList", "+=", "ITEM_1 = (new)"},
        {"KplStringList", "+=a text", "ITEM_1 = a text"},
        {"KplUnitList", "+=", "ITEM_1 = none"},
    };
    for (const auto& [name, assignment, line] : cases) {
        run({"template", name, "-o", "in.xml"});
        const KparamRun result = run({"set", "--as", name, "in.xml", assignment, "-o", "out.xml"});
        EXPECT_EQ(result.code, 0) << name << result.err.toStdString();
        EXPECT_EQ(result.out.section('\n', 0, 0), line) << name;
        EXPECT_EQ(run({"check", "--as", name, "out.xml"}).lastLine(),
                  "out.xml: written again, it is the same, byte for byte")
            << name;
    }
}

TEST_F(KparamSet, AddsAndRemovesItemsOfLists)
{
    run({"template", "DemoModel", "-o", "m.xml"});
    const KparamRun result =
        run({"set", "--as", "DemoModel", "m.xml", "DOMAINS/+=Waste", "DOMAINS/ITEM_2=Dump", "DOMAINS/+=Air",
             "DOMAINS/-=ITEM_2", "CUTOFFS/+=0.5", "CUTOFFS/+=2", "DRILL_HOLES/+=", "DRILL_HOLES/ITEM_1/COLLAR/v1=12",
             "DOMAIN_COLORS/+=", "DOMAIN_COLORS/ITEM_2/blue=255", "-o", "n.xml"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, "DOMAINS/ITEM_2 = Waste\n"
                          "  record: DOMAINS value, children, items\n"
                          "  record: DOMAINS/ITEM_2 value\n"
                          "DOMAINS/ITEM_2 = Dump\n"
                          "  record: DOMAINS/ITEM_2 value\n"
                          "DOMAINS/ITEM_3 = Air\n"
                          "  record: DOMAINS value, children, items\n"
                          "  record: DOMAINS/ITEM_3 value\n"
                          "DOMAINS/ITEM_2 = (gone)\n"
                          "  record: DOMAINS value, children, items; DOMAINS/ITEM_3 config\n"
                          "CUTOFFS/ITEM_1 = 0.5\n"
                          "  record: CUTOFFS value, children, items; CUTOFFS/ITEM_1 value\n"
                          "CUTOFFS/ITEM_2 = 2\n"
                          "  record: CUTOFFS value, children, items; CUTOFFS/ITEM_2 value, config\n"
                          "DRILL_HOLES/ITEM_1 = (new)\n"
                          "  record: DRILL_HOLES value, children, items\n"
                          "DRILL_HOLES/ITEM_1/COLLAR/v1 = 12\n"
                          "  record: DRILL_HOLES/ITEM_1/COLLAR value\n"
                          "DOMAIN_COLORS/ITEM_2 = (new)\n"
                          "  record: DOMAIN_COLORS value, children, items\n"
                          "DOMAIN_COLORS/ITEM_2/blue = 255\n"
                          "  record: DOMAIN_COLORS/ITEM_2 value\n");
    EXPECT_TRUE(read("n.xml").contains(" <param key=\"DOMAINS\">\n  <param key=\"ITEM_1\">Ore</param>\n"
                                       "  <param key=\"ITEM_3\">Air</param>\n </param>\n"));
    EXPECT_EQ(run({"check", "--as", "DemoModel", "n.xml"}).lastLine(),
              "n.xml: written again, it is the same, byte for byte");
}

TEST_F(KparamSet, TellsItemsThatComeAndGoAsJson)
{
    file("l.xml", "<param key=\"L\"><param key=\"ITEM_4\">1</param></param>");
    const QJsonArray changes =
        run({"set", "--as", "KplIntegerList", "l.xml", "./+=5", "./-=ITEM_4", "-o", "l.xml", "--json"})
            .json()
            .value("changes")
            .toArray();
    ASSERT_EQ(changes.size(), 2);
    EXPECT_EQ(changes[0].toObject().value("path").toString(), "./ITEM_5");
    EXPECT_EQ(changes[0].toObject().value("stored").toString(), "5");
    EXPECT_EQ(changes[1].toObject().value("path").toString(), "./ITEM_4");
    EXPECT_TRUE(changes[1].toObject().value("stored").isNull());
    EXPECT_EQ(read("l.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                             "<param key=\"L\">\n <param key=\"ITEM_5\">5</param>\n</param>\n");
}

TEST_F(KparamSet, WritesNothingWhereAnEntryOrAnItemIsRefusedOrRepaired)
{
    file("m.xml", "<task id=\"DemoModel\"><param key=\"CUTOFFS\"><param key=\"ITEM_1\">2</param></param></task>");
    const std::pair<const char*, const char*> cases[] = {
        {"GRID/NODES/v3=500", "kparam: GRID/NODES/v3: '500' was repaired to '200'.\n"},
        {"GRID/NODES/v3=many", "kparam: GRID/NODES/v3: 'many' was refused; '20' stands.\n"},
        {"GRID/CELL/v2=10", "kparam: GRID/CELL/v2: '10' was refused; '25' stands.\n"},
        {"GRID/ROTATION/a2=5", "kparam: GRID/ROTATION/a2: '5' was refused; '0' stands.\n"},
        {"GRID/SYSTEM=EPSG:4326", "kparam: GRID/SYSTEM: 'EPSG:4326' was refused; 'LOCAL' stands.\n"},
        {"STRUCTURE/LAYERS/dip=steep", "kparam: STRUCTURE/LAYERS/dip: 'steep' was refused; '0' stands.\n"},
        {"SCREEN/PALETTE=PINK", "kparam: SCREEN/PALETTE: 'PINK' was refused; 'RAINBOW' stands.\n"},
        {"SCREEN/CONTOUR/pen=solid", "kparam: SCREEN/CONTOUR/pen: 'solid' was refused; 'SOLID' stands.\n"},
        {"SCREEN/SAMPLE/red=300", "kparam: SCREEN/SAMPLE/red: '300' was repaired to '255'.\n"},
        {"CUTOFFS/+=2", "kparam: CUTOFFS/+: '2' was refused; the list has it already.\n"},
        {"CUTOFFS/+=200", "kparam: CUTOFFS/ITEM_2: '200' was repaired to '100'.\n"},
        {"CUTOFFS/ITEM_1=-5", "kparam: CUTOFFS/ITEM_1: '-5' was repaired to '0'.\n"},
    };
    for (const auto& [assignment, message] : cases) {
        const KparamRun result = run({"set", "--as", "DemoModel", "m.xml", assignment, "-o", "new.xml"});
        EXPECT_EQ(result.code, 1) << assignment;
        EXPECT_EQ(result.err, QString(message) + "kparam: Nothing was written; --force does.\n");
        EXPECT_FALSE(exists("new.xml"));
    }
}

TEST_F(KparamSet, RefusesTheValueOfAnotherItemWhereTheListHasEachOnce)
{
    file("m.xml", "<task id=\"DemoModel\"><param key=\"CUTOFFS\"><param key=\"ITEM_1\">2</param>"
                  "<param key=\"ITEM_2\">3</param></param></task>");
    const KparamRun result = run({"set", "--as", "DemoModel", "m.xml", "CUTOFFS/ITEM_2=2", "-o", "new.xml"});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.err, "kparam: CUTOFFS/ITEM_2: '2' was refused; the list has it already.\n"
                          "kparam: Nothing was written; --force does.\n");
    EXPECT_FALSE(exists("new.xml"));
    EXPECT_EQ(run({"set", "--as", "DemoModel", "m.xml", "CUTOFFS/ITEM_2=2", "CUTOFFS/ITEM_2=5", "-o", "n.xml"}).err,
              "kparam: 'CUTOFFS' has no item 'ITEM_2'; it has ITEM_1.\n");
}

TEST_F(KparamSet, TellsWhatIsWrongWithAnEntryOrAnItem)
{
    file("m.xml", "<task id=\"DemoModel\"><param key=\"CUTOFFS\"><param key=\"ITEM_1\">2</param></param></task>");
    const std::pair<const char*, const char*> cases[] = {
        {"CUTOFFS=3", "kparam: 'CUTOFFS' is a list: CUTOFFS/+=VALUE adds an item, CUTOFFS/-=KEY takes one out.\n"},
        {"GRID/CELL=3", "kparam: 'GRID/CELL' has several entries: v1, v2, v3.\n"},
        {"GRID/CELL/v4=3", "kparam: 'GRID/CELL' has no entry 'v4'; it has v1, v2, v3.\n"},
        {"GRID/CELL/=3", "kparam: There is no parameter 'GRID/CELL/'.\n"},
        {"GRID/ROTATION/az=3", "kparam: 'GRID/ROTATION' has no entry 'az'; it has conv_id, conv_string, a1, a2, a3.\n"},
        {"STRUCTURE/SILLS/node_4=4",
         "kparam: 'STRUCTURE/SILLS' has no entry 'node_4'; it has size, node_1, node_2, node_3.\n"},
        {"CUTOFFS/ITEM_9=4", "kparam: 'CUTOFFS' has no item 'ITEM_9'; it has ITEM_1.\n"},
        {"CUTOFFS/-=ITEM_9", "kparam: 'CUTOFFS' has no item 'ITEM_9'; it has ITEM_1.\n"},
        {"DRILL_HOLES/-=ITEM_9", "kparam: 'DRILL_HOLES' has no item 'ITEM_9'; it has none.\n"},
        {"DRILL_HOLES/+=4",
         "kparam: The items of 'DRILL_HOLES' have no single value: DRILL_HOLES/+= adds one as the prototype is.\n"},
        {"GRID/+=4", "kparam: There is no parameter 'GRID/+'.\n"},
    };
    for (const auto& [assignment, message] : cases) {
        const KparamRun result = run({"set", "--as", "DemoModel", "m.xml", "NAME=A", assignment, "-o", "new.xml"});
        EXPECT_EQ(result.code, 2) << assignment;
        EXPECT_EQ(result.err, message);
        EXPECT_EQ(result.out, QString()) << assignment;
        EXPECT_FALSE(exists("new.xml"));
    }
}

} // namespace
