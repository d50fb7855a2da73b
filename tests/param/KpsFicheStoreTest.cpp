#include "KpsSerializerTestTools.h"

#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>

#include <basic/MbeError.h>
#include <study/KsbDriverTaskFicheSqlite.h>

#include <QtCore/QTemporaryDir>

using namespace SerializerTest;

namespace {

/// A task with the integers "size" and "count", and a project file.
class KpsFicheStore : public testing::Test
{
protected:
    KpsFicheStore()
    {
        fiche.addChild(size);
        fiche.addChild(count);
    }
    QString stored(const QString& id, const QString& ficheKey) const
    {
        QDomDocument document;
        project->getDriverTaskFiche()->read(id, ficheKey, document);
        return document.isNull() ? QStringLiteral("null") : written(document);
    }
    void store(const QString& id, const QString& ficheKey, const QString& text) const
    {
        project->getDriverTaskFiche()->write(id, ficheKey, parsed(text));
    }
    QStringList keys(const QString& id) const { return project->getDriverTaskFiche()->listKeys(id); }

    RecordingObserver observer;
    QTemporaryDir folder;
    QString path = folder.filePath("study.ksp");
    std::unique_ptr<KssProject> project = KssProject::create(path);
    KpsSerializer serializer{project.get()};
    KpcFiche fiche{"KRIGING", "kriging task", noProject()};
    KpaInteger* size = newInteger("size", 12);
    KpaInteger* count = newInteger("count", 1);
};

} // namespace

TEST_F(KpsFicheStore, SavesAFicheUnderTheGroupsKeyAndTheFicheKey)
{
    EXPECT_FALSE(serializer.ficheExists(&fiche, {size}));

    serializer.saveFiche(&fiche, {size});

    EXPECT_TRUE(serializer.ficheExists(&fiche, {size}));
    EXPECT_FALSE(serializer.ficheExists(&fiche, {count}));
    EXPECT_FALSE(serializer.ficheExists(&fiche, {}));
    EXPECT_EQ(keys("KRIGING"), QStringList("size=<value|MTI=>"));
    EXPECT_EQ(stored("KRIGING", "size=<value|MTI=>"), "<task id=\"kriging task\">\n"
                                                      " <param key=\"size\">12</param>\n"
                                                      " <param key=\"count\">1</param>\n"
                                                      "</task>\n");
}

TEST_F(KpsFicheStore, KeepsAFormForEachCombinationOfValues)
{
    serializer.saveFiche(&fiche, {size});
    size->setValue(13);
    count->setValue(2);
    serializer.saveFiche(&fiche, {size});
    count->setValue(99);

    size->setValue(12);
    EXPECT_TRUE(serializer.loadFiche(&fiche, {size}));
    EXPECT_EQ(count->getValue(), 1);
    size->setValue(13);
    EXPECT_TRUE(serializer.loadFiche(&fiche, {size}));
    EXPECT_EQ(count->getValue(), 2);
}

TEST_F(KpsFicheStore, ReplacesTheFormerForm)
{
    serializer.saveFiche(&fiche, {});
    count->setValue(7);
    serializer.saveFiche(&fiche, {});
    count->setValue(0);
    EXPECT_TRUE(serializer.loadFiche(&fiche, {}));
    EXPECT_EQ(count->getValue(), 7);
    EXPECT_EQ(keys("KRIGING"), QStringList(""));
}

TEST_F(KpsFicheStore, LoadsNothingWhereNothingIsStored)
{
    serializer.saveFiche(&fiche, {});
    fiche.addObserver(&observer);
    EXPECT_FALSE(serializer.loadFiche(&fiche, {size}));
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST_F(KpsFicheStore, FindsAFormAgainAfterTheProjectWasClosed)
{
    serializer.saveFiche(&fiche, {size});
    count->setValue(50);
    project.reset();
    project = KssProject::open(path);

    EXPECT_TRUE(KpsSerializer(project.get()).loadFiche(&fiche, {size}));

    EXPECT_EQ(count->getValue(), 1);
}

TEST_F(KpsFicheStore, LoadsAFormWithoutARootAndChangesNothing)
{
    project->getDriverTaskFiche()->write("KRIGING", "", QDomDocument(QString()));
    fiche.setAutomatic(true);
    EXPECT_TRUE(serializer.loadFiche(&fiche, {}));
    EXPECT_EQ(size->getValue(), 12);
    EXPECT_TRUE(fiche.isAutomatic());
}

TEST_F(KpsFicheStore, LoadsAVolatileParameterNotAtAll)
{
    serializer.saveFiche(&fiche, {});
    size->setValue(0);
    count->setValue(0);
    size->setVolatile(true);
    EXPECT_TRUE(serializer.loadFiche(&fiche, {}));
    EXPECT_EQ(size->getValue(), 0);
    EXPECT_EQ(count->getValue(), 1);
}

TEST_F(KpsFicheStore, NotifiesWhatALoadChangesAsItChanges)
{
    serializer.saveFiche(&fiche, {});
    size->setValue(0);
    count->setValue(0);
    fiche.addObserver(&observer);
    EXPECT_TRUE(serializer.loadFiche(&fiche, {}));
    EXPECT_EQ(observer.records.size(), 2);
}

TEST_F(KpsFicheStore, SavesAndLoadsAParameterOnItsOwn)
{
    size->setAutomaticEnabled(true);
    serializer.saveParameter(size, "MY_ID");
    EXPECT_EQ(stored("MY_ID", ""), "<param key=\"size\" automatic=\"no\">12</param>\n");

    size->setValue(0);
    EXPECT_FALSE(serializer.loadParameter(size, "OTHER"));
    EXPECT_EQ(size->getValue(), 0);
    EXPECT_TRUE(serializer.loadParameter(size, "MY_ID"));
    EXPECT_EQ(size->getValue(), 12);
}

TEST_F(KpsFicheStore, SavesAVolatileParameterAsADocumentWithoutARoot)
{
    size->setVolatile(true);
    serializer.saveParameter(size, "MY_ID");

    QDomDocument document;
    project->getDriverTaskFiche()->read("MY_ID", "", document);
    EXPECT_FALSE(document.isNull());
    EXPECT_TRUE(document.documentElement().isNull());
    size->setVolatile(false);
    size->setValue(3);
    EXPECT_TRUE(serializer.loadParameter(size, "MY_ID"));
    EXPECT_EQ(size->getValue(), 3);
}

TEST_F(KpsFicheStore, CopiesAFicheInOneNotification)
{
    const std::unique_ptr<KpcFiche> copy(fiche.duplicate("COPY"));
    size->setValue(20);
    count->setValue(30);
    count->setAutomatic(true);
    copy->addObserver(&observer);

    serializer.copyFiche(&fiche, copy.get());

    auto* copiedSize = static_cast<KpaInteger*>(copy->getChild("size"));
    auto* copiedCount = static_cast<KpaInteger*>(copy->getChild("count"));
    EXPECT_EQ(copiedSize->getValue(), 20);
    EXPECT_EQ(copiedCount->getValue(), 30);
    EXPECT_FALSE(copiedCount->isAutomatic());
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*copiedSize), Kp::NotifyValue);
    EXPECT_EQ(observer.flagsOf(*copiedCount), Kp::NotifyValue);
    EXPECT_EQ(keys("KRIGING"), QStringList());
}

TEST_F(KpsFicheStore, CopiesNothingIntoAVolatileFiche)
{
    const std::unique_ptr<KpcFiche> copy(fiche.duplicate("COPY"));
    copy->setVolatile(true);
    size->setValue(20);
    copy->addObserver(&observer);
    serializer.copyFiche(&fiche, copy.get());
    EXPECT_EQ(static_cast<KpaInteger*>(copy->getChild("size"))->getValue(), 12);
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST_F(KpsFicheStore, AppliesWhatWasKeptWhenTheLoadLockEnds)
{
    serializer.saveFiche(&fiche, {});
    size->setValue(0);
    count->setValue(0);
    fiche.lockLoad();
    EXPECT_TRUE(serializer.loadFiche(&fiche, {}));
    EXPECT_EQ(size->getValue(), 0);
    fiche.addObserver(&observer);

    EXPECT_TRUE(serializer.unlockParamSerialize(&fiche));

    EXPECT_FALSE(fiche.isLoadLocked());
    EXPECT_TRUE(fiche.getUnserializeData().isNull());
    EXPECT_EQ(size->getValue(), 12);
    EXPECT_EQ(count->getValue(), 1);
    EXPECT_EQ(observer.records.size(), 1);
    EXPECT_FALSE(serializer.unlockParamSerialize(&fiche));
}

TEST_F(KpsFicheStore, EndsTheLoadLockWhereNothingWasKept)
{
    size->lockLoad();
    EXPECT_FALSE(serializer.unlockParamSerialize(size));
    EXPECT_FALSE(size->isLoadLocked());

    size->lockLoad();
    size->setSerializeData(QSharedPointer<QDomDocument>::create());
    EXPECT_FALSE(serializer.unlockParamSerialize(size));
    EXPECT_FALSE(size->isLoadLocked());
}

TEST_F(KpsFicheStore, SavesALoadLockedFicheAsItWasLoaded)
{
    serializer.saveFiche(&fiche, {});
    const QString text = stored("KRIGING", "");
    fiche.lockLoad();
    serializer.loadFiche(&fiche, {});
    size->setValue(77);

    serializer.saveFiche(&fiche, {});

    EXPECT_EQ(stored("KRIGING", ""), text);
}

TEST_F(KpsFicheStore, KeepsTheLoadLockWhereTheKeptElementCannotBeApplied)
{
    FormParameter parameter("p", {}, 2);
    parameter.lockLoad();
    read(parameter, "<param key=\"p\">1</param>");
    parameter.onConvert = [](QDomElement& element) {
        element.setTagName("ruined");
        throw MbeProgrammingError("convert");
    };

    EXPECT_THROW(serializer.unlockParamSerialize(&parameter), MbeProgrammingError);

    EXPECT_TRUE(parameter.isLoadLocked());
    EXPECT_EQ(writtenParam(parameter), "<param key=\"p\">1</param>\n");
}

TEST_F(KpsFicheStore, ConvertsForOneParameterAndNotForItsDuplicates)
{
    FormParameter parameter("p", {}, 2);
    parameter.onConvert = [](QDomElement& element) { KuxXml::setText(element, element.text() + " converted"); };
    parameter.lockLoad();
    read(parameter, "<param key=\"p\">old</param>");
    const std::unique_ptr<FormParameter> duplicate(parameter.duplicate("q"));

    EXPECT_TRUE(serializer.unlockParamSerialize(&parameter));
    EXPECT_EQ(writtenParam(*duplicate), "<param key=\"p\">old</param>\n");
    EXPECT_TRUE(serializer.unlockParamSerialize(duplicate.get()));

    EXPECT_EQ(parameter.form, value("old converted"));
    EXPECT_EQ(duplicate->form, value("old converted"));
}

TEST_F(KpsFicheStore, UpdatesTheFormsOfATaskWhenAValueChanges)
{
    serializer.saveFiche(&fiche, {size});
    serializer.saveFiche(&fiche, {});

    serializer.updateFiche("KRIGING", "size", value("12"), value("13"));

    EXPECT_EQ(keys("KRIGING"), QStringList({"", "size=<value|MTM=>"}));
    for (const QString& ficheKey : keys("KRIGING"))
        EXPECT_EQ(stored("KRIGING", ficheKey), "<task id=\"kriging task\">\n"
                                               " <param key=\"size\">13</param>\n"
                                               " <param key=\"count\">1</param>\n"
                                               "</task>\n");
    size->setValue(13);
    EXPECT_TRUE(serializer.loadFiche(&fiche, {size}));
}

TEST_F(KpsFicheStore, KeepsTheFormWhoseKeyAnUpdatedOneTakes)
{
    serializer.saveFiche(&fiche, {size});
    size->setValue(13);
    count->setValue(2);
    serializer.saveFiche(&fiche, {size});

    serializer.updateFiche("KRIGING", "size", value("12"), value("13"));

    EXPECT_EQ(keys("KRIGING"), QStringList("size=<value|MTM=>"));
    EXPECT_TRUE(serializer.loadFiche(&fiche, {size}));
    EXPECT_EQ(count->getValue(), 1);
    auto* driver = static_cast<KsbDriverTaskFicheSqlite*>(project->getDriverTaskFiche());
    ASSERT_EQ(driver->listSuperseded().size(), 1);
    EXPECT_EQ(driver->listSuperseded().first().key, "size=<value|MTM=>");
}

TEST_F(KpsFicheStore, MovesTheLocationsOfAllForms)
{
    store("A", "data=<url|ZmlsZTovLy9vbGQvYQ==>", "<task><param key=\"data\"><url>file:///old/a</url></param></task>");
    store("A", "", "<task><url>file:///old/b%20c</url></task>");
    store("B", "data=<url|ZmlsZTovLy9vbGQvYQ==>", "<task><url>file:///other</url></task>");

    serializer.updateUrl(QUrl("file:///old"), QUrl("file:///new place"));

    EXPECT_EQ(keys("A"), QStringList({"", "data=<url|ZmlsZTovLy9uZXclMjBwbGFjZS9h>"}));
    EXPECT_EQ(stored("A", ""), "<task>\n <url>file:///new%20place/b%20c</url>\n</task>\n");
    EXPECT_EQ(stored("A", "data=<url|ZmlsZTovLy9uZXclMjBwbGFjZS9h>"),
              "<task>\n <param key=\"data\">\n  <url>file:///new%20place/a</url>\n </param>\n</task>\n");
    EXPECT_EQ(keys("B"), QStringList("data=<url|ZmlsZTovLy9vbGQvYQ==>"));
    EXPECT_EQ(stored("B", keys("B").first()), "<task>\n <url>file:///other</url>\n</task>\n");
}

TEST_F(KpsFicheStore, FailuresOfTheStorePassThrough)
{
    serializer.saveFiche(&fiche, {});
    project.reset();
    project = KssProject::open(path, KssOpenMode::ReadOnly);
    const KpsSerializer readOnly(project.get());
    EXPECT_THROW(readOnly.saveFiche(&fiche, {}), MbeError);
    EXPECT_THROW(readOnly.saveParameter(size, "MY_ID"), MbeError);
    EXPECT_THROW(readOnly.updateFiche("KRIGING", "size", value("12"), value("13")), MbeError);
    EXPECT_TRUE(readOnly.loadFiche(&fiche, {}));
}
