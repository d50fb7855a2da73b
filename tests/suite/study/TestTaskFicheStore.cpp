#include "StudyTest.h"

#include <support/RecordedMessages.h>

#include <QtCore/QDir>

namespace {

class TaskFicheStore : public StudyTest
{
protected:
    std::unique_ptr<Driver> driver = Driver::create(path);
};

TEST_F(TaskFicheStore, IsEmptyWhenItIsNew)
{
    EXPECT_EQ(driver->listAll(), (QMap<QString, QString>()));
    EXPECT_EQ(driver->listKeys("id"), QStringList());
    EXPECT_FALSE(driver->exists("id", "key"));
    EXPECT_TRUE(driver->listSuperseded().isEmpty());
}

TEST_F(TaskFicheStore, GivesBackTheFormThatWasWritten)
{
    const QString text = "<task id=\"kriging\"><param key=\"size\">12.5</param>"
                         "<param key=\"on\"><url>file:///a%20b</url><empty/></param></task>";

    driver->write("kriging", "size=<value|MTI=>", parsed(text));

    EXPECT_TRUE(driver->exists("kriging", "size=<value|MTI=>"));
    EXPECT_EQ(storedText(*driver, "kriging", "size=<value|MTI=>"), text);
}

TEST_F(TaskFicheStore, GivesBackEveryAttribute)
{
    driver->write("id", "key", parsed("<param key=\"on\" version=\"3\" automatic=\"yes\" a=\"b\"/>"));

    QDomDocument stored;
    driver->read("id", "key", stored);

    const QDomElement root = stored.documentElement();
    EXPECT_EQ(root.attributes().count(), 4);
    EXPECT_EQ(root.attribute("key"), "on");
    EXPECT_EQ(root.attribute("version"), "3");
    EXPECT_EQ(root.attribute("automatic"), "yes");
    EXPECT_EQ(root.attribute("a"), "b");
}

TEST_F(TaskFicheStore, GivesBackTextsOfAnyShape)
{
    const QString texts[] = {
        "a < b & c > d",         "\"double\" and 'single'",
        "  blanks around  ",     "   ",
        "two\nlines\tand a tab", "]]>",
        "%1 %2 $1 ${x}",         QString::fromUtf8("Größe 漢字 \U0001F600"),
        "first\r\nsecond\r",
    };
    for (const QString& text : texts) {
        QDomDocument document{QString()};
        QDomElement root = document.createElement("param");
        root.setAttribute("key", text);
        root.appendChild(document.createTextNode(text));
        document.appendChild(root);

        driver->write("id", "key", document);
        QDomDocument stored;
        driver->read("id", "key", stored);

        EXPECT_EQ(stored.documentElement().text(), text);
        EXPECT_EQ(stored.documentElement().attribute("key"), text);
    }
}

TEST_F(TaskFicheStore, KeepsWhatATextNodeAndACDataSectionAre)
{
    driver->write("id", "key", parsed("<param><![CDATA[a < b]]></param>"));

    QDomDocument stored;
    driver->read("id", "key", stored);

    EXPECT_TRUE(stored.documentElement().firstChild().isCDATASection());
    EXPECT_EQ(stored.documentElement().text(), "a < b");
}

TEST_F(TaskFicheStore, KeepsFormsOfManyPagesWhole)
{
    const QString text = "<param>" + QString(300000, QLatin1Char('x')) + "</param>";

    driver->write("id", "key", parsed(text));

    EXPECT_EQ(storedText(*driver, "id", "key"), text);
}

TEST_F(TaskFicheStore, ReplacesTheFormThatStandsUnderTheSameKey)
{
    driver->write("id", "key", parsed("<first/>"));
    driver->write("id", "other", parsed("<other/>"));

    driver->write("id", "key", parsed("<second/>"));

    EXPECT_EQ(storedText(*driver, "id", "key"), "<second/>");
    EXPECT_EQ(storedText(*driver, "id", "other"), "<other/>");
    EXPECT_EQ(driver->listKeys("id"), QStringList({"key", "other"}));
}

TEST_F(TaskFicheStore, LeavesTheDocumentNullWhereNothingIsStored)
{
    driver->write("id", "key", parsed("<task/>"));
    QDomDocument document;

    driver->read("id", "other", document);

    EXPECT_TRUE(document.isNull());
}

TEST_F(TaskFicheStore, MakesAFilledDocumentNullWhereNothingIsStored)
{
    QDomDocument document = parsed("<former/>");

    driver->read("id", "key", document);

    EXPECT_TRUE(document.isNull());
}

TEST_F(TaskFicheStore, StoresADocumentWithoutARoot)
{
    driver->write("id", "", QDomDocument(QString()));

    QDomDocument document;
    driver->read("id", "", document);

    EXPECT_TRUE(driver->exists("id", ""));
    EXPECT_FALSE(document.isNull());
    EXPECT_TRUE(document.documentElement().isNull());
}

TEST_F(TaskFicheStore, ReplacesAFormByADocumentWithoutARootThatHasAName)
{
    driver->write("id", "", parsed("<task/>"));

    driver->write("id", "", QDomDocument("serialized_param"));

    QDomDocument document;
    driver->read("id", "", document);
    EXPECT_FALSE(document.isNull());
    EXPECT_TRUE(document.documentElement().isNull());
}

TEST_F(TaskFicheStore, StoresNoNullDocumentAndKeepsTheFormThatStands)
{
    driver->write("id", "key", parsed("<task/>"));
    RecordedMessages messages;

    driver->write("id", "key", QDomDocument());
    driver->write("id", "new", QDomDocument());

    EXPECT_EQ(storedText(*driver, "id", "key"), "<task/>");
    EXPECT_FALSE(driver->exists("id", "new"));
    EXPECT_EQ(messages.warnings,
              QStringList({"The form 'id' with the key 'key' is not stored in '" + path + "': it is null.",
                           "The form 'id' with the key 'new' is not stored in '" + path + "': it is null."}));
}

TEST_F(TaskFicheStore, RefusesADocumentThatCouldNotBeReadAgain)
{
    driver->write("id", "key", parsed("<task/>"));
    QDomDocument document{QString()};
    document.appendChild(document.createElement("not a name"));

    const QString message = storageError([&] { driver->write("id", "key", document); });

    EXPECT_TRUE(message.startsWith(inFile(
        path, "The form 'id' with the key 'key' is not stored, because it could not be read again, line 2, column ")))
        << message.toStdString();
    EXPECT_EQ(storedText(*driver, "id", "key"), "<task/>");
}

TEST_F(TaskFicheStore, ListsByIdentifierThenKey)
{
    for (const QString place : {"b/2", "a/3", "b/1", "a/", "c/9", "a/10", "B/1"}) {
        const QStringList parts = place.split('/');
        driver->write(parts.at(0), parts.at(1), parsed("<task/>"));
    }

    EXPECT_EQ(storedPlaces(*driver), QStringList({"B/1", "a/", "a/10", "a/3", "b/1", "b/2", "c/9"}));
    EXPECT_EQ(driver->listKeys("a"), QStringList({"", "10", "3"}));
    EXPECT_EQ(driver->listKeys("A"), QStringList());
}

TEST_F(TaskFicheStore, TellsNearlyEqualNamesApart)
{
    const QStringList names = {"", QString(QChar(0)), " ", "A", "Name", "a", "a ", "a" + QString(QChar(0)), "a%", "a_"};
    for (const QString& name : names)
        driver->write("id", name, parsed("<task>" + QString::number(names.indexOf(name)) + "</task>"));

    EXPECT_EQ(driver->listKeys("id"),
              QStringList({"", QString(QChar(0)), " ", "A", "Name", "a", "a" + QString(QChar(0)), "a ", "a%", "a_"}));
    for (const QString& name : names)
        EXPECT_EQ(storedText(*driver, "id", name), "<task>" + QString::number(names.indexOf(name)) + "</task>");
}

TEST_F(TaskFicheStore, TakesANullTextForAnEmptyOne)
{
    driver->write(QString(), QString(), parsed("<task/>"));

    EXPECT_TRUE(driver->exists("", ""));
    EXPECT_EQ(driver->listKeys(""), QStringList({""}));
}

class TaskFicheName : public TaskFicheStore, public testing::WithParamInterface<QString>
{};

TEST_P(TaskFicheName, ServesAsIdentifierAndAsKey)
{
    const QString name = GetParam();
    driver->write("before", "stays", parsed("<stays/>"));

    driver->write(name, "key", parsed("<as-id/>"));
    driver->write("id", name, parsed("<as-key/>"));
    driver->rename("id", name, "x" + name);

    EXPECT_EQ(storedText(*driver, name, "key"), "<as-id/>");
    EXPECT_EQ(driver->listKeys(name), QStringList({"key"}));
    EXPECT_EQ(driver->listKeys("id"), QStringList({"x" + name}));
    EXPECT_EQ(storedText(*driver, "id", "x" + name), "<as-key/>");
    EXPECT_TRUE(driver->listAll().contains(name));
    EXPECT_EQ(driver->listAll().size(), 3);
    EXPECT_EQ(storedText(*driver, "before", "stays"), "<stays/>");
}

INSTANTIATE_TEST_SUITE_P(OfAnyText, TaskFicheName,
                         testing::Values(QString(), QString("size=<value|MTI=>{}size=<value|>"),
                                         QString::fromUtf8("Größe 漢字"), QString::fromUtf8("\U0001F600"),
                                         QString(QChar(0xD83D)), QString(QChar(0xDE00)) + "x",
                                         QString(QChar(0xFEFF)) + "mark", QString(QChar(0xFFFE)),
                                         QString("it's \"quoted\" `so`"), QString("100% %1 %d"),
                                         QString("two\nlines\r\n"), QString(QChar(0)), QString("a") + QChar(0) + "b",
                                         QString(100000, QLatin1Char('k')), QString("'; DROP TABLE fiche; --"),
                                         QString("' OR '1'='1"), QString("\" OR 1=1; DELETE FROM fiche"),
                                         QString("?1 :id @key $key"), QString("%' OR key LIKE '%")));

TEST_F(TaskFicheStore, RenamesAForm)
{
    driver->write("id", "old", parsed("<task/>"));
    driver->write("other", "old", parsed("<other/>"));

    driver->rename("id", "old", "new");

    EXPECT_EQ(storedPlaces(*driver), QStringList({"id/new", "other/old"}));
    EXPECT_EQ(storedText(*driver, "id", "new"), "<task/>");
    EXPECT_TRUE(driver->listSuperseded().isEmpty());
}

TEST_F(TaskFicheStore, DoesNothingWhenAnAbsentFormIsRenamed)
{
    driver->write("id", "new", parsed("<task/>"));

    driver->rename("id", "absent", "new");
    driver->rename("other", "new", "newer");

    EXPECT_EQ(storedPlaces(*driver), QStringList({"id/new"}));
    EXPECT_EQ(storedText(*driver, "id", "new"), "<task/>");
    EXPECT_TRUE(driver->listSuperseded().isEmpty());
}

TEST_F(TaskFicheStore, DoesNothingWhenAFormIsRenamedToItsOwnKey)
{
    driver->write("id", "key", parsed("<task/>"));

    driver->rename("id", "key", "key");

    EXPECT_EQ(storedText(*driver, "id", "key"), "<task/>");
    EXPECT_TRUE(driver->listSuperseded().isEmpty());
}

TEST_F(TaskFicheStore, KeepsTheFormWhoseKeyIsTakenByARename)
{
    driver->write("id", "old", parsed("<renamed/>"));
    driver->write("id", "new", parsed("<displaced/>"));
    const QDateTime before = QDateTime::currentDateTimeUtc();

    driver->rename("id", "old", "new");

    EXPECT_EQ(storedPlaces(*driver), QStringList({"id/new"}));
    EXPECT_EQ(storedText(*driver, "id", "new"), "<renamed/>");
    const QList<Driver::Superseded> superseded = driver->listSuperseded();
    ASSERT_EQ(superseded.size(), 1);
    EXPECT_EQ(superseded.at(0).id, "id");
    EXPECT_EQ(superseded.at(0).key, "new");
    EXPECT_EQ(superseded.at(0).reason, "Another form was renamed to its key.");
    EXPECT_EQ(superseded.at(0).time.timeSpec(), Qt::UTC);
    EXPECT_LE(before, superseded.at(0).time);
    EXPECT_LE(superseded.at(0).time, QDateTime::currentDateTimeUtc());
}

TEST_F(TaskFicheStore, RestoresASupersededFormToAFreeKey)
{
    driver->write("id", "old", parsed("<renamed/>"));
    driver->write("id", "new", parsed("<displaced/>"));
    driver->rename("id", "old", "new");
    driver->rename("id", "new", "elsewhere");

    driver->restoreSuperseded(driver->listSuperseded().at(0).number);

    EXPECT_EQ(storedPlaces(*driver), QStringList({"id/elsewhere", "id/new"}));
    EXPECT_EQ(storedText(*driver, "id", "new"), "<displaced/>");
    EXPECT_EQ(storedText(*driver, "id", "elsewhere"), "<renamed/>");
    EXPECT_TRUE(driver->listSuperseded().isEmpty());
}

TEST_F(TaskFicheStore, SupersedesTheFormWhoseKeyIsTakenByARestoredOne)
{
    driver->write("id", "old", parsed("<renamed/>"));
    driver->write("id", "new", parsed("<displaced/>"));
    driver->rename("id", "old", "new");

    driver->restoreSuperseded(driver->listSuperseded().at(0).number);

    EXPECT_EQ(storedText(*driver, "id", "new"), "<displaced/>");
    ASSERT_EQ(driver->listSuperseded().size(), 1);
    EXPECT_EQ(driver->listSuperseded().at(0).reason, "An older form was restored under its key.");
    driver->restoreSuperseded(driver->listSuperseded().at(0).number);
    EXPECT_EQ(storedText(*driver, "id", "new"), "<renamed/>");
}

TEST_F(TaskFicheStore, KeepsEveryFormThatIsDisplacedInTheOrderOfTheirLeaving)
{
    for (const QString key : {"a", "b", "c"})
        driver->write("id", key, parsed("<" + key + "/>"));

    driver->rename("id", "a", "c");
    driver->rename("id", "b", "c");

    const QList<Driver::Superseded> superseded = driver->listSuperseded();
    ASSERT_EQ(superseded.size(), 2);
    EXPECT_EQ(storedText(*driver, "id", "c"), "<b/>");
    driver->restoreSuperseded(superseded.at(0).number);
    EXPECT_EQ(storedText(*driver, "id", "c"), "<c/>");
    driver->restoreSuperseded(superseded.at(1).number);
    EXPECT_EQ(storedText(*driver, "id", "c"), "<a/>");
}

TEST_F(TaskFicheStore, RestoresAFormWithoutARootUnderEmptyNames)
{
    driver->write("", "", QDomDocument(QString()));
    driver->write("", "other", parsed("<task/>"));
    driver->rename("", "other", "");

    driver->restoreSuperseded(driver->listSuperseded().at(0).number);

    QDomDocument document;
    driver->read("", "", document);
    EXPECT_FALSE(document.isNull());
    EXPECT_TRUE(document.documentElement().isNull());
}

TEST_F(TaskFicheStore, RefusesToRestoreANumberThatItDoesNotKnow)
{
    driver->write("id", "key", parsed("<task/>"));

    EXPECT_EQ(storageError([&] { driver->restoreSuperseded(7); }),
              inFile(path, "It has no superseded form of the number 7."));
    EXPECT_EQ(storedText(*driver, "id", "key"), "<task/>");
}

TEST_F(TaskFicheStore, NeverUsesANumberAgain)
{
    driver->write("id", "a", parsed("<a/>"));
    driver->write("id", "b", parsed("<b/>"));
    driver->rename("id", "a", "b");
    const qint64 first = driver->listSuperseded().at(0).number;
    driver->rename("id", "b", "c");
    driver->restoreSuperseded(first);

    driver->rename("id", "c", "b");

    EXPECT_GT(driver->listSuperseded().at(0).number, first);
}

TEST_F(TaskFicheStore, WarnsOfADamagedFormAndKeepsItsBytes)
{
    driver->write("id %1", "key", parsed("<task/>"));
    driver->write("id", "whole", parsed("<whole/>"));
    DirectConnection direct(path);
    direct.run(
        "UPDATE fiche SET document = X'3C7461736B3E0A20203C706172616D' WHERE length(id) > 4"); // "<task>\n  <param"
    QDomDocument document = parsed("<former/>");
    RecordedMessages messages;

    driver->read("id %1", "key", document);

    EXPECT_TRUE(document.isNull());
    ASSERT_EQ(messages.warnings.size(), 1);
    EXPECT_TRUE(messages.warnings.at(0).startsWith("Cannot read the form 'id %1' with the key 'key' in '" + path +
                                                   "', line 2, column "))
        << messages.warnings.at(0).toStdString();
    EXPECT_TRUE(driver->exists("id %1", "key"));
    EXPECT_EQ(direct.run("SELECT document FROM fiche WHERE length(id) > 4").toByteArray(), "<task>\n  <param");
    EXPECT_EQ(storedText(*driver, "id", "whole"), "<whole/>");
}

TEST_F(TaskFicheStore, SeesAtOnceWhatAnotherStoreOfTheSameFileChanges)
{
    const auto other = Driver::open(path);
    driver->write("id", "key", parsed("<first/>"));
    EXPECT_EQ(storedText(*other, "id", "key"), "<first/>");

    other->write("id", "key", parsed("<second/>"));
    EXPECT_EQ(storedText(*driver, "id", "key"), "<second/>");

    other->rename("id", "key", "renamed");
    EXPECT_EQ(driver->listKeys("id"), QStringList({"renamed"}));
}

TEST_F(TaskFicheStore, KeepsOneConnectionAndTakesItAwayAtItsEnd)
{
    const QStringList with = QSqlDatabase::connectionNames();
    EXPECT_EQ(with.size(), 1);
    const auto other = Driver::open(path);
    EXPECT_EQ(QSqlDatabase::connectionNames().size(), 2);

    driver.reset();

    EXPECT_EQ(QSqlDatabase::connectionNames().size(), 1);
    EXPECT_NE(QSqlDatabase::connectionNames(), with);
}

TEST_F(TaskFicheStore, WritesAheadAndSyncsEveryChange)
{
    QSqlDatabase database = QSqlDatabase::database(QSqlDatabase::connectionNames().at(0), false);
    const auto setting = [&](const QString& name) {
        QSqlQuery query("PRAGMA " + name, database);
        return query.next() ? query.value(0).toString() : QString();
    };

    EXPECT_EQ(setting("journal_mode"), "wal");
    EXPECT_EQ(setting("synchronous"), "3"); // full, and the folder too
    EXPECT_EQ(setting("user_version"), "2");
    EXPECT_EQ(setting("application_id"), "1263748657"); // "KSF1"
}

TEST_F(TaskFicheStore, LeavesOneFileBehindWhenItIsClosed)
{
    driver->write("id", "key", parsed("<task/>"));

    driver.reset();

    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList({"study.ksp"}));
}

} // namespace
