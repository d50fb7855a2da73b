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

} // namespace
