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

} // namespace
