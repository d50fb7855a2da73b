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

/// The only finding about an element of a class alone, or nothing.
struct ElementCase
{
    const char* className;
    QByteArray content;
    QString finding;
};

TEST_F(KparamCheck, TellsWhatValuesOfSeveralEntriesDoNotTakeOver)
{
    const ElementCase cases[] = {
        {"KpaVectorDouble", "<v1>1</v1><v2>x</v2><v3>3</v3>",
         "repaired: v1 '1', v2 'x', v3 '3' became v1 '1', v2 '0', v3 '3'"},
        {"KpaVectorDouble", "<v1>1</v1><v3>3</v3>", "refused: v1 '1', v3 '3'; v1 '0', v2 '0', v3 '0' stands"},
        {"KpaVectorDouble", "<v1>1e1</v1><v2>02</v2><v3>3.0</v3>", ""},
        {"KpaVectorDouble", "", "refused: ''; v1 '0', v2 '0', v3 '0' stands"},
        {"KpaVectorDouble", "5", "refused: '5'; v1 '0', v2 '0', v3 '0' stands"},
        {"KpaVectorInt", "<v1>1</v1><v2>2</v2><v3>3</v3><v4>4</v4>", "unknown: entry 'v4'"},
        {"KpaMatrixSymmetrical", "<size>300</size>", "refused: '300'; size '1', node_1 '0' stands"},
        {"KpaMatrixSymmetrical", "<size>1</size><node_1>x</node_1>",
         "refused: size '1', node_1 'x'; size '1', node_1 '0' stands"},
        {"KpaMatrixSymmetrical", "<size>1</size><node_1>1.50</node_1>", ""},
        {"KpaColor", "<red>1</red><green>2</green><blue>300</blue><opacity>255</opacity>",
         "repaired: red '1', green '2', blue '300', opacity '255' became red '1', green '2', blue '255', opacity "
         "'255'"},
        {"KpaColor", "<red>1</red><green>2</green><blue>3</blue>", ""},
        {"KpaPalette", "<id>PINK</id>", "refused: 'PINK'; 'RAINBOW' stands"},
        {"KpaLineStyle", "<pen>DASH</pen><color>red</color><width>2</width>", ""},
        {"KpaLineStyle", "<pen>WAVE</pen><color>#ff000000</color><width>1</width>",
         "refused: pen 'WAVE', color '#ff000000', width '1'; pen 'SOLID', color '#ff000000', width '1', border 'no', "
         "borderColor '#ff000000', borderWidth '1' stands"},
        {"KpaCatalogDefinition_old",
         "<id>r</id><name>Rock%20types</name><undefRgba>1</undefRgba><enum5>7|Fresh%20rock|2</enum5>", ""},
        {"KpaCatalogDefinition_old", "<id>r</id><name>R</name><undefRgba>1</undefRgba><enum1>x|Oxide|2</enum1>",
         "repaired: id 'r', name 'R', undefRgba '1', enum1 'x|Oxide|2' became id 'r', name 'R', undefRgba '1'"},
        {"KpaCoordSystem", "local", "refused: 'local'; '' stands"},
        {"KpaCoordSystem", "epsg:2154", ""},
    };
    for (const ElementCase& one : cases) {
        file("e.xml", "<param key=\"E\">" + one.content + "</param>");
        const QString out = run({"check", "--as", one.className, "e.xml"}).out;
        const QString line = out.section('\n', 0, 0).section(": ", 2);
        const bool found = out.contains(", 1 finding(s)\n");
        EXPECT_EQ(found ? line : QString(), one.finding) << out.toStdString();
        EXPECT_EQ(out.contains(", 0 finding(s)\n"), one.finding.isEmpty()) << out.toStdString();
    }
}

TEST_F(KparamCheck, ReadsEachFormInWhichRotationsHaveBeenStored)
{
    const ElementCase cases[] = {
        {"KpaRotation", "<az>30</az><ay>20</ay><ax>10</ax>", ""},
        {"KpaRotation", "<az>30</az><ay>20</ay><ax>x</ax>",
         "repaired: az '30', ay '20', ax 'x' became conv_id '0', conv_string '+Z+Y+X', a1 '30', a2 '20', a3 ''"},
        {"KpaRotation", "<az>30</az><ay>20</ay>",
         "refused: az '30', ay '20'; conv_id '0', conv_string '+Z+Y+X', a1 '0', a2 '0', a3 '0' stands"},
        {"KpaRotation", "<conv_id>0</conv_id><conv_string>+Z+Y+X</conv_string><a1>1e1</a1><a2>0</a2><a3>0</a3>", ""},
        {"KpaRotation", "<a1>10</a1><a2>x</a2><a3>0</a3>",
         "refused: a1 '10', a2 'x', a3 '0'; conv_id '0', conv_string '+Z+Y+X', a1 '0', a2 '0', a3 '0' stands"},
        {"KpaRotation", "<a1>10</a1><a2>0</a2><a3>0</a3><az>5</az>", "unknown: entry 'az'"},
        {"KpaDirection", "<conv_id>0</conv_id><conv_string>+Z+Y+X</conv_string><a1>60</a1><a2>0</a2><a3>0</a3>", ""},
        {"KpaDirection", "<azimuth>400</azimuth><plunge>0</plunge>", ""},
        {"KpaDirection", "<azimuth>40</azimuth><plunge>0</plunge><a1>60</a1>", "unknown: entry 'a1'"},
        {"KpaDirection", "<azimuth></azimuth><plunge>0</plunge>",
         "refused: azimuth '', plunge '0'; azimuth '90', plunge '0' stands"},
        {"KpaPlaneOrientation", "<az>30</az><ay>20</ay><ax>0</ax>", ""},
        {"KpaSystemOrientation", "<dip>30</dip><dipAzimuth>120</dipAzimuth><pitch>12.3456789</pitch>", ""},
    };
    for (const ElementCase& one : cases) {
        file("e.xml", "<param key=\"E\">" + one.content + "</param>");
        const QString out = run({"check", "--as", one.className, "e.xml"}).out;
        const bool found = out.contains(", 1 finding(s)\n");
        EXPECT_EQ(found ? out.section('\n', 0, 0).section(": ", 2) : QString(), one.finding) << out.toStdString();
        EXPECT_EQ(out.contains(", 0 finding(s)\n"), one.finding.isEmpty()) << out.toStdString();
    }
}

TEST_F(KparamCheck, TellsWhatListsDoNotTakeOver)
{
    const FindingCase cases[] = {
        {"<param key=\"CUTOFFS\"><param key=\"ITEM_1\">5</param><param key=\"ITEM_2\">5.0</param></param>",
         "2:51: CUTOFFS/ITEM_2: repeated: an earlier item has the same value"},
        {"<param key=\"CUTOFFS\"><param key=\"ITEM_7\">500</param></param>",
         "2:22: CUTOFFS/ITEM_7: repaired: '500' became '100'"},
        {"<param key=\"CUTOFFS\"><param key=\"ITEM_7\">x</param></param>",
         "2:22: CUTOFFS/ITEM_7: refused: 'x'; '0' stands"},
        {"<param key=\"CUTOFFS\">5</param>", "2:1: CUTOFFS: unknown: a text that nothing reads"},
        {"<param key=\"CUTOFFS\"><value>5</value></param>", "2:22: CUTOFFS: unknown: entry 'value'"},
        {"<param key=\"CUTOFFS\"><param key=\"ITEM_7\" version=\"2\">x</param></param>",
         "2:22: CUTOFFS/ITEM_7: refused: 'x'; '0' stands"},
        {"<param key=\"DOMAINS\"><param key=\"ITEM_7\" version=\"2\">x</param></param>",
         "2:22: DOMAINS/ITEM_7: too new: version 2; the newest that is known is 1"},
        {"<param key=\"DOMAINS\"><param>Ore</param></param>",
         "2:22: DOMAINS/PROTOTYPE: repaired: key '' became 'PROTOTYPE'"},
        {"<param key=\"DRILL_HOLES\"><param key=\"ITEM_1\"><param key=\"COLOUR\"/></param></param>",
         "2:46: DRILL_HOLES/ITEM_1/COLOUR: unknown: there is no such parameter"},
        {"<param key=\"DRILL_HOLES\"><param key=\"ITEM_1\"><param "
         "key=\"COURSE\"><azimuth>x</azimuth></param></param></param>",
         "2:46: DRILL_HOLES/ITEM_1/COURSE: refused: 'x'; azimuth '90', plunge '0' stands"},
    };
    for (const FindingCase& one : cases) {
        file("form.xml", "<task id=\"DemoModel\">\n" + one.content + "</task>");
        const KparamRun check = run({"check", "--as", "DemoModel", "form.xml"});
        EXPECT_EQ(check.code, 1) << one.content.toStdString();
        EXPECT_EQ(check.out.section('\n', 0, 0), "form.xml:" + one.finding) << check.out.toStdString();
        EXPECT_TRUE(check.out.contains(", 1 finding(s)\n")) << check.out.toStdString();
    }
}

TEST_F(KparamCheck, TellsTheAbsentPartsOfItemsAndNoAbsentItems)
{
    file("form.xml",
         "<task id=\"DemoModel\"><param key=\"DOMAINS\"/><param key=\"DRILL_HOLES\">"
         "<param key=\"ITEM_1\"><param key=\"COLLAR\"><v1>1</v1><v2>2</v2><v3>3</v3></param></param></param>"
         "</task>");
    const QJsonObject check = run({"check", "--as", "DemoModel", "form.xml", "--json"}).json();
    EXPECT_EQ(check.value("absent").toArray(), (QJsonArray{"NAME", "GRID", "STRUCTURE", "CUTOFFS", "DOMAIN_COLORS",
                                                           "SCREEN", "PRINT", "DRILL_HOLES/ITEM_1/COURSE"}));
    EXPECT_EQ(check.value("findings").toArray(), QJsonArray());
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

TEST_F(KparamCheck, ReadsTheSampleOfOlderRotationsWithoutAFinding)
{
    const KparamRun check = run({"check", "--as", "DemoModel", sample("kparam-demo-old-rotations.xml")});
    EXPECT_TRUE(check.out.contains("DemoModel of version 1 (present 1), 0 finding(s)\n")) << check.out.toStdString();
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
