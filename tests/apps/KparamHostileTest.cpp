#include <apps/KparamTest.h>

namespace {

/// Documents that nobody wrote in good faith. Each command that reads one ends with code 3, names file and place, and
/// leaves the folder as it was.
class KparamHostile : public KparamTest
{
protected:
    void expectRefused(const QString& name, const QString& message) const
    {
        const QVector<QStringList> commands = {{"show", "--as", "DemoTask", name},
                                               {"check", "--as", "DemoTask", name},
                                               {"migrate", "--as", "DemoTask", name, "-o", "new.xml"},
                                               {"set", "--as", "DemoTask", name, "NAME=A", "-o", "new.xml"},
                                               {"store", "s.kestrin", "put", "--as", "DemoTask", name, "--create"}};
        const QStringList before = files();
        for (const QStringList& command : commands) {
            const KparamRun result = run(command);
            EXPECT_EQ(result.code, 3) << command.first().toStdString();
            EXPECT_EQ(result.err, "kparam: " + message + "\n") << command.first().toStdString();
            EXPECT_TRUE(result.out.isEmpty());
        }
        EXPECT_EQ(files(), before);
    }
};

TEST_F(KparamHostile, DamagedDocumentsAreRefused)
{
    file("d.xml", "<task id=\"DemoTask\">\n <param key=\"NAME\">A</para>\n</task>");
    expectRefused("d.xml", "d.xml:2:27: Opening and ending tag mismatch.");
    file("d.xml", "<task id=\"DemoTask\">\n <param key=\"NAME\">A");
    expectRefused("d.xml", "d.xml:2:20: Premature end of document.");
}

TEST_F(KparamHostile, EmptyDocumentsAreRefused)
{
    file("e.xml", "");
    expectRefused("e.xml", "e.xml:1:1: The document is empty.");
}

TEST_F(KparamHostile, HugeDocumentsAreRefused)
{
    const QByteArray line = " <param key=\"NAME\">" + QByteArray(1000, 'x') + "</param>\n";
    const QByteArray block = line.repeated(1000);
    file("h.xml", "<task id=\"DemoTask\">\n" + block.repeated(100) + "</task>\n");
    ASSERT_GT(QFile(path("h.xml")).size(), 100'000'000);
    // 16 MiB are the first line of 21 bytes, 16,320 lines of 1028 bytes, and 235 bytes of one more.
    expectRefused("h.xml", "h.xml:16322:236: The document is larger than 16777216 bytes.");
}

TEST_F(KparamHostile, DeeplyNestedDocumentsAreRefused)
{
    const int levels = 100'000;
    file("n.xml", QByteArray("<param key=\"a\">").repeated(levels) + QByteArray("</param>").repeated(levels));
    expectRefused("n.xml", "n.xml:1:15015: Elements are nested more than 1000 deep.");
}

TEST_F(KparamHostile, FloodsOfTagsAreRefused)
{
    file("t.xml", "<task id=\"DemoTask\">\n" + QByteArray("<a/>").repeated(1'000'000) + "</task>");
    expectRefused("t.xml", "t.xml:2:1199997: The document has more than 300000 tags.");
}

TEST_F(KparamHostile, EntityBombsAreRefused)
{
    file("b.xml", "<?xml version=\"1.0\"?>\n<!DOCTYPE task [\n<!ENTITY a \"aaaaaaaaaa\">\n"
                  "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">\n]>\n<task id=\"DemoTask\">&b;</task>");
    expectRefused("b.xml", "b.xml:2:16: The document type has an internal subset, which is not allowed.");
}

TEST_F(KparamHostile, ExternalEntitiesAreNotRead)
{
    file("secret.txt", "secret");
    file("x.xml", "<!DOCTYPE task SYSTEM \"secret.txt\"><task id=\"DemoTask\">&secret;</task>");
    const KparamRun result = run({"show", "--as", "DemoTask", "x.xml"});
    EXPECT_EQ(result.code, 3);
    EXPECT_TRUE(result.err.contains("The entity 'secret' is not declared.")) << result.err.toStdString();
}

TEST_F(KparamHostile, DocumentsOfAnotherShapeAreRefused)
{
    file("r.xml", "<!-- a form -->\n <form/>");
    expectRefused("r.xml", "r.xml:2:2: The root is 'form', which is neither a task nor a param.");
    file("v.xml", "<task id=\"DemoTask\" version=\"new\"/>");
    expectRefused("v.xml", "v.xml:1:1: The version 'new' is no number from 1 on.");
    file("v.xml", "<task id=\"DemoTask\" version=\"0\"/>");
    expectRefused("v.xml", "v.xml:1:1: The version '0' is no number from 1 on.");
    file("t.xml", "<task id=\"DemoTask\"/>");
    EXPECT_EQ(run({"show", "--as", "KpaInteger", "t.xml"}).err,
              "kparam: t.xml:1:1: A task is no form of the class KpaInteger.\n");
}

TEST_F(KparamHostile, LongListsCatalogsAndMatricesAreReadInTime)
{
    QByteArray items;
    QByteArray categories;
    QByteArray elements;
    for (int i = 1; i <= 30000; ++i) {
        const QByteArray number = QByteArray::number(i);
        items += "<param key=\"ITEM_" + number + "\">" + number + "</param>";
        categories += "<enum" + number + ">" + number + "|A%20label|7</enum" + number + ">";
        elements += "<node_" + number + ">" + number + ".0</node_" + number + ">";
    }
    const std::pair<const char*, QByteArray> cases[] = {
        {"KplIntegerList", items},
        {"KpaCatalogDefinition_old", "<id>a</id><name>b</name><undefRgba>1</undefRgba>" + categories},
        {"KpaMatrixSymmetrical", "<size>256</size>" + elements},
    };
    for (const auto& [name, content] : cases) {
        file("long.xml", "<param key=\"L\">" + content + "</param>");
        EXPECT_TRUE(run({"check", "--as", name, "long.xml"}).out.contains(", 0 finding(s)\n")) << name;
    }
}

TEST_F(KparamHostile, ASizeThatNoMatrixHasIsRefused)
{
    for (const char* size : {"257", "2147483647", "-1", "1e9", "99999999999999999999"}) {
        file("m.xml", QByteArray("<param key=\"M\"><size>") + size + "</size></param>");
        const KparamRun check = run({"check", "--as", "KpaMatrixSymmetrical", "m.xml"});
        EXPECT_EQ(check.code, 1) << size;
        EXPECT_TRUE(check.out.startsWith(QStringLiteral("m.xml:1:1: .: refused: '%1'; ").arg(size)))
            << check.out.toStdString();
    }
}

TEST_F(KparamHostile, ControlCharactersAreRefused)
{
    file("c.xml", QByteArray("<task>\n\0</task>", 15));
    expectRefused("c.xml", "c.xml:2:1: The document holds the character U+0000, which XML does not allow.");
}

TEST_F(KparamHostile, FilesThatCannotBeReadAreTold)
{
    expectRefused("none.xml", "none.xml: The file cannot be read: No such file or directory.");
    expectRefused(".", ".: The file cannot be read: file to open is a directory.");
}

TEST_F(KparamHostile, NamesOfFilesAreMadeSafe)
{
    expectRefused("a\n\x1b[31mb", "a\\n\\u{1b}[31mb: The file cannot be read: No such file or directory.");
}

TEST_F(KparamHostile, FailuresAreToldWithTheirPlaceAsJson)
{
    file("d.xml", "<task>\n<a></b></task>");
    EXPECT_EQ(run({"check", "--as", "DemoTask", "d.xml", "--json"}).json().value("error").toObject(),
              (QJsonObject{{"code", 3},
                           {"file", "d.xml"},
                           {"line", 2},
                           {"column", 7},
                           {"message", "Opening and ending tag mismatch."}}));
}

TEST_F(KparamHostile, NamesBeyondAsciiDoNotDependOnTheLocale)
{
    qputenv("LC_ALL", "C");
    file("größe.xml", "<param key=\"Größe\">5</param>");
    const KparamRun result = run({"show", "--as", "KpaInteger", "größe.xml"});
    qunsetenv("LC_ALL");
    EXPECT_EQ(result.out, "Größe  no label  5\n");
}

} // namespace
