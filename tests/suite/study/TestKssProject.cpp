#include "StudyTest.h"

#include <study/KssProject.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace {

class KssProjectTest : public StudyTest
{};

TEST_F(KssProjectTest, HasNoFormDriverWithoutAFile)
{
    const KssProject project;

    EXPECT_EQ(project.getDriverTaskFiche(), nullptr);
    EXPECT_EQ(project.getFilePath(), QString());
}

TEST_F(KssProjectTest, UsesTheDriverThatItIsGiven)
{
    auto driver = Driver::create(path);
    KsbIDriverTaskFiche* const expected = driver.get();

    const KssProject project(std::move(driver));

    EXPECT_EQ(project.getDriverTaskFiche(), expected);
    EXPECT_EQ(project.getFilePath(), QString());
}

TEST_F(KssProjectTest, FindsItsFormsAgainWhenItIsOpenedAgain)
{
    KssProject::create(path)->getDriverTaskFiche()->write("kriging", "k", parsed("<task id=\"kriging\"/>"));

    const auto project = KssProject::open(path);

    EXPECT_EQ(storedText(*project->getDriverTaskFiche(), "kriging", "k"), "<task id=\"kriging\"/>");
}

TEST_F(KssProjectTest, GivesOneDriverForItsWholeLife)
{
    const auto project = KssProject::create(path);

    ASSERT_NE(project->getDriverTaskFiche(), nullptr);
    EXPECT_EQ(project->getDriverTaskFiche(), project->getDriverTaskFiche());
}

TEST_F(KssProjectTest, KnowsTheAbsolutePathOfItsFile)
{
    const auto created = KssProject::create(QDir::current().relativeFilePath(path));
    const auto opened = KssProject::open(QDir::current().relativeFilePath(path));

    EXPECT_EQ(created->getFilePath(), path);
    EXPECT_EQ(opened->getFilePath(), path);
}

TEST_F(KssProjectTest, RefusesToOpenAFileThatDoesNotExistAndDoesNotMakeIt)
{
    EXPECT_EQ(storageError([&] { KssProject::open(path); }), inFile(path, "It does not exist."));
    EXPECT_FALSE(QFileInfo::exists(path));
}

TEST_F(KssProjectTest, RefusesToOpenAFolder)
{
    EXPECT_EQ(storageError([&] { KssProject::open(folder.path()); }), inFile(folder.path(), "It is not a file."));
}

TEST_F(KssProjectTest, RefusesToCreateAFileThatExistsAndLeavesItAlone)
{
    writeBytes(path, "my notes");

    EXPECT_EQ(storageError([&] { KssProject::create(path); }), inFile(path, "It exists already."));
    EXPECT_EQ(bytesOf(path), "my notes");
}

TEST_F(KssProjectTest, RefusesToCreateAFileInAFolderThatDoesNotExist)
{
    const QString nowhere = folder.filePath("none/study.ksp");

    EXPECT_EQ(storageError([&] { KssProject::create(nowhere); }),
              inFile(nowhere, "It cannot be created: No such file or directory."));
}

TEST_F(KssProjectTest, RefusesAnEmptyPath)
{
    EXPECT_EQ(storageError([&] { KssProject::open(""); }), inFile("", "It does not exist."));
    EXPECT_EQ(storageError([&] { KssProject::create(""); }),
              inFile("", "It cannot be created: No file name specified."));
}

TEST_F(KssProjectTest, TakesAnyFileName)
{
    const QString odd = folder.filePath(QString::fromUtf8("a b#1?mode=memory&x=%41 'ü\"é;--.ksp"));
    KssProject::create(odd)->getDriverTaskFiche()->write("id", "key", parsed("<task/>"));

    EXPECT_TRUE(QFileInfo::exists(odd));
    EXPECT_EQ(storedText(*KssProject::open(odd)->getDriverTaskFiche(), "id", "key"), "<task/>");
}

TEST_F(KssProjectTest, OpenedForReadingGivesItsFormsAndTakesNone)
{
    createWithForm("id", "key", "<task/>");
    const auto project = KssProject::open(path, KssOpenMode::ReadOnly);

    EXPECT_EQ(storedText(*project->getDriverTaskFiche(), "id", "key"), "<task/>");
    EXPECT_EQ(storageError([&] { project->getDriverTaskFiche()->write("id", "key", parsed("<other/>")); }),
              inFile(path, "It was opened for reading only."));
}

TEST_F(KssProjectTest, IsNamedAfterItsFile)
{
    const QString named = folder.filePath(QString::fromUtf8("my.größe 1.ksp"));

    const auto project = KssProject::create(named);

    EXPECT_EQ(project->getName(), QString::fromUtf8("my.größe 1"));
    EXPECT_EQ(project->getUrl(), QUrl::fromLocalFile(named));
}

TEST_F(KssProjectTest, HasTheNameThatItIsGivenWithoutAFile)
{
    const KssProject project(QStringLiteral("my study"));
    const KssProject nameless;

    EXPECT_EQ(project.getName(), "my study");
    EXPECT_EQ(project.getUrl(), QUrl("study:my%20study"));
    EXPECT_EQ(nameless.getName(), "");
    EXPECT_TRUE(nameless.getUrl().isEmpty());
}

TEST_F(KssProjectTest, HasAllModelsForItsWholeLife)
{
    const KssProject project;

    EXPECT_NE(project.getModelData(), nullptr);
    EXPECT_NE(project.getModelEnumCatalog(), nullptr);
    EXPECT_NE(project.getModelColorScale(), nullptr);
    EXPECT_NE(project.getModelGeosSet(), nullptr);
    EXPECT_NE(project.getModelNeighborhood(), nullptr);
    EXPECT_NE(project.getModelScene(), nullptr);
    EXPECT_NE(project.getModelCharts(), nullptr);
    EXPECT_EQ(project.getModelData(), project.getModelData());
}

} // namespace
