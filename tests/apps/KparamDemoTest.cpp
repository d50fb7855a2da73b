#include <apps/KparamTest.h>

namespace {

class KparamDemo : public KparamTest
{};

const QString success = QStringLiteral("demo: all steps gave what they must");

TEST_F(KparamDemo, EndsWithItsLineAndZero)
{
    const KparamRun demo = run({"demo"});
    EXPECT_EQ(demo.code, 0) << demo.out.toStdString();
    EXPECT_EQ(demo.lastLine(), success);
    EXPECT_TRUE(demo.err.isEmpty()) << demo.err.toStdString();
    EXPECT_FALSE(demo.out.contains("FAILED"));
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(KparamDemo, ShowsTreeRecordsFicheKeyAndMigratedValues)
{
    const QString out = run({"demo"}).out;
    EXPECT_TRUE(out.contains("   │  ├─ RADIUS          Radius                        100 m (automatic)\n"));
    EXPECT_TRUE(out.contains("     ok  record: SEARCH/RADIUS value, config\n"));
    EXPECT_TRUE(out.contains("     ok  record: NAME value; SEARCH/MAX_SAMPLES value; STATISTICS value\n"));
    EXPECT_TRUE(out.contains("METHOD=<value|TkVBUkVTVA==>{}NAME=<value|UnVuIDI=>"));
    EXPECT_TRUE(out.contains("     ok  migrated: OUTPUTS = AVG|VAR|NB  ->  STATISTICS = MEAN|VARIANCE|SAMPLE_COUNT\n"));
    EXPECT_TRUE(out.contains("Cannot load parameter 'DemoTask' because version is too recent."));
}

TEST_F(KparamDemo, ShowsEachFamilyOfValuesAndLists)
{
    const QString out = run({"demo"}).out;
    for (const char* line : {
             "     ok  GRID/CELL: v1=10 v2=10 v3=5\n",
             "     ok  STRUCTURE/SHOOTS: azimuth=40 plunge=12.5\n",
             "     ok  STRUCTURE/LAYERS: dip=40 dipAzimuth=310\n",
             "     ok  STRUCTURE/ANISOTROPY: dip=40 dipAzimuth=310 pitch=22.5\n",
             "     ok  STRUCTURE/SILLS: [1.50, 1.50; 1.50, 1.50]\n",
             "     ok  STRUCTURE/NUGGET: [unknown]\n",
             "     ok  PRINT/CONTOUR: Pen[Dash] Color[#ffff0000] Width[2]\n",
             "     ok  GRID/SYSTEM: EPSG:2154\n",
             "     ok  keys: ITEM_1, ITEM_3, ITEM_4\n",
             "     ok  CUTOFFS: 0.5; 2; 100 %\n",
             "     ok  record: DOMAIN_COLORS value, children, items\n",
             "   ok  keys of the drill holes: ITEM_1, ITEM_3, ITEM_4\n",
             "   ok  the automatic origin is not stored\n",
             "   ok  first: tracer: start watching root GRID\n",
         })
        EXPECT_TRUE(out.contains(line)) << line;
}

TEST_F(KparamDemo, CountsTheSamplesOfTheDataFile)
{
    const QString out = run({"demo"}).out;
    for (const char* line : {
             "   ok  samples: 40\n",
             "     ok  told: line 3, column 6: The line has 5 cells instead of 6.\n",
             "   ok  samples of each; a sample belongs to the first that it fits: 5, 5, 17\n",
             "     ok  samples of the complement: 27\n",
             "     ok  R1 and R2: 5\n",
             "     ok  R1 or R2: 11\n",
             "     ok  R3 and not R1: 18\n",
             "   ok  written again, the form is the same\n",
         })
        EXPECT_TRUE(out.contains(line)) << line;
}

TEST_F(KparamDemo, ShowsWhatAChangingProjectDoesToAForm)
{
    const QString out = run({"demo"}).out;
    for (const char* line : {
             "     ok  there is no such variable now\n",
             "     ok  told of the filter: Variable 'CU' for R1 rule does not exist\n",
             "     ok  checked: Diorite, Exoskarn\n",
             "     ok  the name that Limestone gets: Volcanics\n",
             "     ok  GRADE still names: CU\n",
         })
        EXPECT_TRUE(out.contains(line)) << line;
}

TEST_F(KparamDemo, LeavesItsStoreInTheFolderAndUsesItAgain)
{
    EXPECT_EQ(run({"demo", "a/b"}).lastLine(), success);
    EXPECT_EQ(run({"store", "a/b/demo.kestrin", "list"}).out, "Identifier  Fiche key\n"
                                                              "ESTIMATION  METHOD=NEAREST, NAME=Run 2\n"
                                                              "MODEL       NAME=Model 1\n"
                                                              "SURVEY      NAME=Study 1\n");
    EXPECT_EQ(run({"demo", "a/b"}).lastLine(), success);
}

TEST_F(KparamDemo, NamesTheStepsThatFailed)
{
    file("demo.kestrin", QByteArray(4096, 'x'));
    const KparamRun demo = run({"demo", "."});
    EXPECT_EQ(demo.code, 1);
    EXPECT_EQ(demo.lastLine(),
              "demo: these steps failed: save, reopen, items, import, survey, root, select, filter, categorise, "
              "keep, project, removal, catalog, rocks, close");
    EXPECT_TRUE(demo.out.contains("FAILED  "));
    EXPECT_EQ(read("demo.kestrin"), QByteArray(4096, 'x'));
}

TEST_F(KparamDemo, TellsWhenTheFolderCannotBeMade)
{
    file("n.xml", "");
    const KparamRun demo = run({"demo", "n.xml/a"});
    EXPECT_EQ(demo.code, 5);
    EXPECT_EQ(demo.err, "kparam: n.xml/a: The folder cannot be made.\n");
}

} // namespace
