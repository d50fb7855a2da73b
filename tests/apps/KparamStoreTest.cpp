#include <apps/KparamTest.h>

#include <study/KsbDriverTaskFicheSqlite.h>

namespace {

// What the values of the demonstration's form are filed under: base64 of NEAREST, ORDINARY_KRIGING and Run 1.
const QString nearestKey = QStringLiteral("METHOD=<value|TkVBUkVTVA==>{}NAME=<value|UnVuIDE=>");
const QString krigingKey = QStringLiteral("METHOD=<value|T1JESU5BUllfS1JJR0lORw==>{}NAME=<value|UnVuIDE=>");

class KparamStore : public KparamTest
{
protected:
    KparamRun store(const QStringList& arguments) const { return run(QStringList{"store", "s.kestrin"} + arguments); }

    /// Puts the form of a task as built into the store, which is made if need be.
    KparamRun putTask(const QStringList& options = {}) const
    {
        run({"template", "DemoTask", "-o", "form.xml"});
        return store(QStringList{"put", "--as", "DemoTask", "form.xml", "--create", "--by", "METHOD", "--by", "NAME"} +
                     options);
    }
};

TEST_F(KparamStore, FilesATaskForTheValuesThatTellItApart)
{
    const KparamRun put = putTask({"--id", "EST"});
    EXPECT_EQ(put.code, 0) << put.err.toStdString();
    EXPECT_EQ(put.out, "Stored 'EST' for 'METHOD=ORDINARY_KRIGING, NAME=Run 1'.\n");
    EXPECT_EQ(store({"list"}).out, "Identifier  Fiche key\n"
                                   "EST         METHOD=ORDINARY_KRIGING, NAME=Run 1\n");
    EXPECT_EQ(
        store({"list", "--json"}).json().value("forms").toArray(),
        (QJsonArray{QJsonObject{{"id", "EST"}, {"key", krigingKey}, {"text", "METHOD=ORDINARY_KRIGING, NAME=Run 1"}}}));
}

TEST_F(KparamStore, FilesAParameterUnderItsKey)
{
    file("n.xml", "<param key=\"N\">5</param>");
    EXPECT_EQ(store({"put", "--as", "KpaInteger", "n.xml", "--create"}).out, "Stored 'N'.\n");
    EXPECT_EQ(store({"show", "N"}).out, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<param key=\"N\">5</param>\n");
    EXPECT_EQ(store({"put", "--as", "KpaInteger", "n.xml", "--by", "X"}).code, 2);
}

TEST_F(KparamStore, ShowsAFormByItsKeyAsStoredAndAsItReads)
{
    putTask();
    const KparamRun only = store({"show", "DemoTask"});
    EXPECT_EQ(only.code, 0);
    EXPECT_EQ(only.out.toUtf8(), read("form.xml"));
    EXPECT_EQ(store({"show", "DemoTask", krigingKey}).out, only.out);
    EXPECT_EQ(store({"show", "DemoTask", "METHOD=ORDINARY_KRIGING, NAME=Run 1"}).out, only.out);
    EXPECT_EQ(store({"show", "DemoTask", "--json"}).json().value("xml").toString(), only.out);

    const KparamRun none = store({"show", "DemoTask", "METHOD=GUESS"});
    EXPECT_EQ(none.code, 4);
    EXPECT_EQ(none.err, "kparam: The store has no form 'DemoTask' for 'METHOD=GUESS'.\n");
}

TEST_F(KparamStore, FilesATaskForValuesOfSeveralEntriesAndForNoList)
{
    run({"template", "DemoModel", "-o", "m.xml"});
    const auto put = [this](const char* path) {
        return store({"put", "--as", "DemoModel", "m.xml", "--create", "--by", "NAME", "--by", path});
    };
    EXPECT_EQ(put("GRID/CELL").out, "Stored 'DemoModel' for 'NAME=Model 1, CELL=(v1:25 v2:25 v3:5)'.\n");
    EXPECT_EQ(store({"show", "DemoModel", "NAME=Model 1, CELL=(v1:25 v2:25 v3:5)"}).out.toUtf8(), read("m.xml"));
    for (const char* path : {"DOMAINS", "CUTOFFS", "GRID"}) {
        const KparamRun refused = put(path);
        EXPECT_EQ(refused.code, 2) << path;
        EXPECT_EQ(refused.err, QStringLiteral("kparam: '%1' has no value of its own.\n").arg(path));
    }
}

TEST_F(KparamStore, ReplacesAFormOnlyWhenToldTo)
{
    putTask();
    const KparamRun again = putTask();
    EXPECT_EQ(again.code, 4);
    EXPECT_EQ(again.err, "kparam: The store has a form 'DemoTask' for 'METHOD=ORDINARY_KRIGING, NAME=Run 1' already; "
                         "--replace replaces it.\n");
    EXPECT_EQ(putTask({"--replace"}).code, 0);
}

TEST_F(KparamStore, StoresNothingThatTheClassDoesNotTakeOver)
{
    file("n.xml", "<param key=\"N\">x</param>");
    const KparamRun put = store({"put", "--as", "KpaInteger", "n.xml", "--create"});
    EXPECT_EQ(put.code, 1);
    EXPECT_EQ(put.err, "kparam: n.xml:1:1: .: refused: 'x'; '0' stands\nkparam: Nothing was stored; --force does.\n");
    EXPECT_FALSE(exists("s.kestrin"));
    EXPECT_EQ(store({"put", "--as", "KpaInteger", "n.xml", "--create", "--force"}).code, 1);
    EXPECT_EQ(store({"show", "N"}).code, 0);
}

TEST_F(KparamStore, CopiesAFormToAnotherPlace)
{
    putTask();
    EXPECT_EQ(store({"copy", "DemoTask", krigingKey, "OTHER", nearestKey}).out,
              "Copied 'DemoTask' for 'METHOD=ORDINARY_KRIGING, NAME=Run 1' to 'OTHER' for 'METHOD=NEAREST, NAME=Run 1'."
              "\n");
    EXPECT_EQ(store({"show", "OTHER", nearestKey}).out, store({"show", "DemoTask"}).out);
    EXPECT_EQ(store({"copy", "DemoTask", krigingKey, "OTHER", nearestKey}).code, 4);
    EXPECT_EQ(store({"copy", "DemoTask", krigingKey, "OTHER", nearestKey, "--replace"}).code, 0);
    EXPECT_EQ(store({"copy", "DemoTask", krigingKey, "DemoTask"}).code, 2);
}

TEST_F(KparamStore, MovesLocations)
{
    file("x.json", "{\"format\": \"kparam store\", \"version\": 1, \"forms\": [{\"id\": \"D\", \"key\": \"\", \"xml\": "
                   "\"<param key='D'><url>file:///old/a.csv</url></param>\"}, {\"id\": \"E\", \"key\": \"\", "
                   "\"xml\": \"<param key='E'><url>file:///else/a.csv</url></param>\"}]}");
    EXPECT_EQ(store({"import", "x.json", "--create"}).out, "Imported 2 form(s).\n");
    EXPECT_EQ(store({"move-url", "file:///old", "file:///new"}).out, "Changed 'D'.\n1 of 2 forms changed.\n");
    EXPECT_TRUE(store({"show", "D"}).out.contains("<url>file:///new/a.csv</url>"));
    EXPECT_TRUE(store({"show", "E"}).out.contains("<url>file:///else/a.csv</url>"));
    EXPECT_EQ(store({"move-url", "", "file:///new"}).code, 2);
}

TEST_F(KparamStore, CarriesAllFormsToAnotherStore)
{
    putTask();
    putTask({"--id", "Zweite Schätzung"});
    EXPECT_EQ(store({"export", "all.json"}).out, "Exported 2 form(s).\n");
    const KparamRun import = run({"store", "t.kestrin", "import", "all.json", "--create"});
    EXPECT_EQ(import.code, 0) << import.err.toStdString();
    EXPECT_EQ(run({"store", "t.kestrin", "list"}).out, store({"list"}).out);
    EXPECT_EQ(run({"store", "t.kestrin", "show", "Zweite Schätzung"}).out, store({"show", "DemoTask"}).out);
    EXPECT_EQ(run({"store", "t.kestrin", "import", "all.json"}).code, 4);
    EXPECT_EQ(run({"store", "t.kestrin", "import", "all.json", "--replace"}).code, 0);
    EXPECT_EQ(store({"export", "one.json", "--id", "DemoTask"}).out, "Exported 1 form(s).\n");
}

TEST_F(KparamStore, ImportsNothingFromAFileThatIsNotAsItShouldBe)
{
    const QByteArray head = "{\"format\": \"kparam store\", \"version\": 1, \"forms\": [";
    const QByteArray good = "{\"id\": \"A\", \"key\": \"\", \"xml\": \"<param key='A'/>\"}";
    const std::pair<QByteArray, const char*> cases[] = {
        {"", "kparam: x.json:1:1: The file is no JSON: illegal value.\n"},
        {"{\n\"forms\": oops}", "kparam: x.json:2:10: The file is no JSON: illegal number.\n"},
        {"{}", "kparam: x.json: The file was not written by 'kparam store STORE export'.\n"},
        {"{\"format\": \"kparam store\", \"version\": 2}",
         "kparam: x.json: The file is of a version that is not known.\n"},
        {head + good + ", {}]}", "kparam: x.json, form 2: The form does not have the texts id, key and xml.\n"},
        {head + good + ", " + good + "]}", "kparam: x.json, form 2: The file has the form 'A' twice.\n"},
        {head + good + ", {\"id\": \"B\", \"key\": \"\", \"xml\": \"<param\\n>\"}]}",
         "kparam: x.json, form 2:2:1: Premature end of document.\n"},
    };
    for (const auto& [bytes, message] : cases) {
        file("x.json", bytes);
        const KparamRun import = store({"import", "x.json", "--create"});
        EXPECT_EQ(import.code, 3) << message;
        EXPECT_EQ(import.err, message);
        EXPECT_EQ(files(), QStringList("x.json"));
    }
}

TEST_F(KparamStore, ListsAndRestoresFormsThatHadToLeaveTheirPlace)
{
    putTask();
    store({"copy", "DemoTask", krigingKey, "DemoTask", nearestKey});
    {
        const auto driver = KsbDriverTaskFicheSqlite::open(path("s.kestrin"));
        driver->rename("DemoTask", krigingKey, nearestKey);
    }
    const QJsonArray left = store({"list", "--superseded", "--json"}).json().value("superseded").toArray();
    ASSERT_EQ(left.size(), 1);
    const QJsonObject form = left.first().toObject();
    EXPECT_EQ(form.value("id").toString(), "DemoTask");
    EXPECT_EQ(form.value("key").toString(), nearestKey);
    const QString number = QString::number(form.value("number").toInt());
    EXPECT_EQ(store({"restore", number}).out, "Restored form " + number + ".\n");
    EXPECT_EQ(store({"restore", "999"}).code, 4);
    EXPECT_EQ(store({"restore", "some"}).code, 2);
}

TEST_F(KparamStore, TellsWhenAStoreCannotBeUsed)
{
    file("n.xml", "<param key=\"N\">5</param>");
    const QString damaged = file("damaged.kestrin", QByteArray(4096, 'x'));
    const QVector<QStringList> commands = {{"list"},
                                           {"show", "N"},
                                           {"put", "--as", "KpaInteger", "n.xml"},
                                           {"copy", "A", "", "B"},
                                           {"move-url", "file:///a", "file:///b"},
                                           {"export", "out.json"},
                                           {"restore", "1"}};
    for (const char* name : {"missing.kestrin", "damaged.kestrin"}) {
        for (const QStringList& command : commands) {
            const KparamRun result = run(QStringList{"store", name} + command);
            EXPECT_EQ(result.code, 4) << name << ' ' << command.join(' ').toStdString();
            EXPECT_TRUE(result.err.contains(name)) << result.err.toStdString();
        }
    }
    EXPECT_EQ(
        run({"store", "missing.kestrin", "list", "--json"}).json().value("error").toObject().value("code").toInt(), 4);
    EXPECT_EQ(files(), (QStringList{"damaged.kestrin", "n.xml"}));
    EXPECT_EQ(read(damaged), QByteArray(4096, 'x'));
}

} // namespace
