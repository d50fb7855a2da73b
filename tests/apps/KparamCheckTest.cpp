#include <apps/KparamTest.h>

namespace {

class KparamCheck : public KparamTest
{};

/// The only finding about a document of a version 3 task that holds `content` from its second line on.
struct FindingCase
{
    QByteArray content;
    QString finding;
};

TEST_F(KparamCheck, TellsEachElementThatWasNotTakenOverAsItStands)
{
    const FindingCase cases[] = {
        {"<param key=\"COLOUR\">red</param>", "2:1: COLOUR: unknown: there is no such parameter"},
        {"<param>red</param>", "2:1: : unknown: there is no such parameter"},
        {"<colour>red</colour>", "2:1: .: unknown: entry 'colour'"},
        {"red", "1:1: .: unknown: a text that nothing reads"},
        {"<param key=\"NAME\" unit=\"m\">Run 1</param>", "2:1: NAME: unknown: attribute 'unit'"},
        {"<param key=\"SEARCH\">\n  <param key=\"R\"/></param>", "3:3: SEARCH/R: unknown: there is no such parameter"},
        {"<param key=\"METHOD\">GUESS</param>", "2:1: METHOD: refused: 'GUESS'; 'ORDINARY_KRIGING' stands"},
        {"<param key=\"NAME\">42</param>", "2:1: NAME: refused: '42'; 'Run 1' stands"},
        {"<param key=\"SEED\">0</param>", "2:1: SEED: refused: '0'; '12345678' stands"},
        {"<param key=\"RANDOM_PATH\">maybe</param>", "2:1: RANDOM_PATH: refused: 'maybe'; 'no' stands"},
        {"<param key=\"STATISTICS\">SUM</param>", "2:1: STATISTICS: refused: 'SUM'; '' stands"},
        {"<param key=\"REPORT_UNIT\">ell</param>", "2:1: REPORT_UNIT: refused: 'ell'; 'm' stands"},
        {"<param key=\"SAMPLES_FILE\">/a/b.png</param>", "2:1: SAMPLES_FILE: refused: '/a/b.png'; '' stands"},
        {"<param key=\"SEARCH\"><param key=\"MAX_SAMPLES\"/></param>",
         "2:21: SEARCH/MAX_SAMPLES: refused: ''; '16' stands"},
        {"<param key=\"SEARCH\"><param key=\"MAX_SAMPLES\">many</param></param>",
         "2:21: SEARCH/MAX_SAMPLES: refused: 'many'; '16' stands"},
        {"<param key=\"SEARCH\"><param key=\"AZIMUTH\" automatic=\"yes\">0</param></param>",
         "2:21: SEARCH/AZIMUTH: refused: the automatic mode, which is not offered"},
        {"<param key=\"SEARCH\"><param key=\"MAX_SAMPLES\">1000</param></param>",
         "2:21: SEARCH/MAX_SAMPLES: repaired: '1000' became '256'"},
        {"<param key=\"SEARCH\"><param key=\"AZIMUTH\">725</param></param>",
         "2:21: SEARCH/AZIMUTH: repaired: '725' became '5'"},
        {"<param key=\"NAME\">  A  </param>", "2:1: NAME: repaired: '  A  ' became 'A'"},
        {"<param key=\"STATISTICS\">SUM|MEAN</param>", "2:1: STATISTICS: repaired: 'SUM|MEAN' became 'MEAN'"},
        {"<param key=\"NAME\" automatic=\"on\">Run 1</param>", "2:1: NAME: repaired: automatic 'on' became 'no'"},
        {"<param key=\"SEARCH\" version=\"2\"><param key=\"X\"/></param>",
         "2:1: SEARCH: too new: version 2; the newest that is known is 1"},
        {"<param key=\"PREVIEW\">yes</param>", "2:1: PREVIEW: ignored: the parameter is not stored, and is not read"},
        {"<param key=\"NAME\">A</param>\n<param key=\"NAME\">B</param>",
         "2:1: NAME: repeated: a later element has the same key"},
    };
    for (const FindingCase& one : cases) {
        file("form.xml", "<task id=\"DemoTask\" version=\"3\">\n" + one.content + "</task>");
        const KparamRun check = run({"check", "--as", "DemoTask", "form.xml"});
        EXPECT_EQ(check.code, 1) << one.content.toStdString();
        EXPECT_EQ(check.out.section('\n', 0, 0), "form.xml:" + one.finding) << check.out.toStdString();
        EXPECT_TRUE(check.out.contains("DemoTask of version 3 (present 3), 1 finding(s)\n")) << check.out.toStdString();
    }
}

TEST_F(KparamCheck, DoesNotMindValuesThatAreSpelledInOtherWords)
{
    file("form.xml", "<task id=\"DemoTask\" version=\"3\"><param key=\"RANDOM_PATH\">True</param>"
                     "<param key=\"METHOD\">Inverse distance</param><param key=\"STATISTICS\">VARIANCE|MEAN</param>"
                     "<param key=\"SEARCH\"><param key=\"RADIUS\">1e2</param></param>"
                     "<param key=\"RESULT_FOLDER\">/a//b/</param></task>");
    const KparamRun check = run({"check", "--as", "DemoTask", "form.xml"});
    EXPECT_TRUE(check.out.contains("0 finding(s)")) << check.out.toStdString();
}

TEST_F(KparamCheck, TellsTheTaskThatAFormIsOf)
{
    file("form.xml", "<task id=\"Other\" version=\"3\"/>");
    EXPECT_EQ(run({"check", "--as", "DemoTask", "form.xml"}).out.section('\n', 0, 0),
              "form.xml:1:1: .: repaired: task 'Other' became 'DemoTask'");
}

TEST_F(KparamCheck, TellsWhetherAFormWouldBeWrittenAsItIs)
{
    const QString same = file("same.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<param key=\"N\">5</param>\n");
    const KparamRun identical = run({"check", "--as", "KpaInteger", same});
    EXPECT_EQ(identical.code, 0);
    EXPECT_EQ(identical.lastLine(), "same.xml: written again, it is the same, byte for byte");

    const QString spaced = file("spaced.xml", "<param   key='N'>5</param>");
    const KparamRun layout = run({"check", "--as", "KpaInteger", spaced});
    EXPECT_EQ(layout.code, 0);
    EXPECT_EQ(layout.lastLine(), "spaced.xml: written again, it is the same but for its layout");

    const QString padded = file("padded.xml", "<param key=\"N\">05</param>");
    const KparamRun different = run({"check", "--as", "KpaInteger", padded});
    EXPECT_EQ(different.code, 1);
    EXPECT_EQ(different.lastLine(), "padded.xml: written again, it differs, first in '<param key=\"N\">05</param>', "
                                    "which would be '<param key=\"N\">5</param>'");
}

TEST_F(KparamCheck, TellsWhatIsConvertedAndWhatIsAbsent)
{
    const QJsonObject check = run({"check", "--as", "DemoTask", sample("kparam-demo-v2.xml"), "--json"}).json();
    EXPECT_EQ(check.value("version").toInt(), 2);
    EXPECT_EQ(check.value("presentVersion").toInt(), 3);
    EXPECT_EQ(check.value("findings").toArray(), QJsonArray());
    EXPECT_EQ(check.value("conversion").toArray().first().toObject(),
              (QJsonObject{{"from", QJsonObject{{"path", "METHOD"}, {"text", "KRIGING"}}},
                           {"to", QJsonObject{{"path", "METHOD"}, {"text", "ORDINARY_KRIGING"}}}}));
    EXPECT_EQ(check.value("absent").toArray(),
              (QJsonArray{"SAMPLES_FILE", "RESULT_FOLDER", "RANDOM_PATH", "SEED", "REPORT_UNIT", "SEARCH/SECTORS",
                          "TRIMMING/TRIMMING_GROUP"}));
    EXPECT_EQ(check.value("rewriting").toObject().value("result").toString(), "different");
}

TEST_F(KparamCheck, ReadsEachStoredSampleAsItsNameSays)
{
    const std::tuple<const char*, int, const char*> samples[] = {
        {"kparam-demo-v1.xml", 1, "DemoTask of version 1 (present 3), 0 finding(s)"},
        {"kparam-demo-v2.xml", 1, "DemoTask of version 2 (present 3), 0 finding(s)"},
        {"kparam-demo-partial.xml", 1, "converted: INTERPOLATOR = NN  ->  METHOD = NEAREST"},
        {"kparam-demo-too-new.xml", 1, "DemoTask of version 4 (present 3), 1 finding(s)"},
        {"kparam-demo-damaged.xml", 3, ":3:33: Opening and ending tag mismatch."},
    };
    for (const auto& [name, code, text] : samples) {
        const KparamRun check = run({"check", "--as", "DemoTask", sample(name)});
        EXPECT_EQ(check.code, code) << name;
        EXPECT_TRUE((check.out + check.err).contains(text)) << (check.out + check.err).toStdString();
    }
}

TEST_F(KparamCheck, TellsFindingsAsJson)
{
    file("form.xml", "<param key=\"N\">\n <x/>\n</param>");
    const QJsonObject check = run({"check", "--as", "KpaInteger", "form.xml", "--json"}).json();
    EXPECT_EQ(check.value("findings").toArray().first().toObject(),
              (QJsonObject{{"kind", "unknown"}, {"path", "."}, {"line", 2}, {"column", 2}, {"text", "entry 'x'"}}));
}

TEST_F(KparamCheck, TellsADocumentThatIsTooNew)
{
    const KparamRun check = run({"check", "--as", "DemoTask", sample("kparam-demo-too-new.xml")});
    EXPECT_EQ(check.code, 1);
    EXPECT_TRUE(check.out.contains(":2:1: .: too new: version 4; the newest that is known is 3\n"));
    EXPECT_TRUE(check.out.contains("message: Cannot load parameter 'DemoTask' because version is too recent.\n"));
}

TEST_F(KparamCheck, MakesTextsOfADocumentSafe)
{
    file("form.xml", QStringLiteral("<param key=\"A\u202eB\u009b\n\"><param key=\"\u2028x\"/></param>").toUtf8());
    const KparamRun check = run({"check", "--as", "KpcGroup", "form.xml"});
    EXPECT_EQ(check.out.section('\n', 0, 0), "form.xml:2:3: \\u{2028}x: unknown: there is no such parameter");
    EXPECT_FALSE(check.out.contains(QChar(0x202e)));
    EXPECT_FALSE(check.out.contains(QChar(0x9b)));
}

TEST_F(KparamCheck, ShowsAFormAndTellsFindingsAside)
{
    file("form.xml", "<param key=\"N\">12<!-- a dozen --></param>");
    const KparamRun show = run({"show", "--as", "KpaInteger", "form.xml"});
    EXPECT_EQ(show.code, 0);
    EXPECT_EQ(show.out, "N  no label  12\n");
    EXPECT_TRUE(show.err.isEmpty());

    file("form.xml", "<param key=\"N\">x</param>");
    const KparamRun bad = run({"show", "--as", "KpaInteger", "form.xml", "--json"});
    EXPECT_EQ(bad.code, 1);
    EXPECT_EQ(bad.err, "kparam: form.xml:1:1: .: refused: 'x'; '0' stands\n");
    EXPECT_EQ(bad.json().value("parameters").toArray().first().toObject().value("value").toString(), "0");
}

TEST_F(KparamCheck, ShowsAFormOfTheStandardInput)
{
    EXPECT_EQ(run({"show", "--as", "KpaInteger", "-"}, "<param key=\"N\">7</param>").out, "N  no label  7\n");
}

} // namespace
