#include <util/KusFileUtils.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class KusFileUtilsTest : public testing::Test
{
protected:
    KusFileUtilsTest()
    {
        QDir(folder.path()).mkpath("sub/deep.csv");
        QFile file(folder.filePath("a.csv"));
        file.open(QIODevice::WriteOnly);
    }

    QString at(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    const QString sub = folder.filePath("sub");
    const QStringList csv = {"*.csv", "*.tsv"};
};

const bool openMode = true;
const bool saveMode = false;

} // namespace

TEST_F(KusFileUtilsTest, CleansPaths)
{
    const struct
    {
        const char* path;
        const char* clean;
    } rows[] = {{"", ""},          {"/", "/"},      {"/a/", "/a"},  {"/a//b/./c", "/a/b/c"},
                {"/a/../b", "/b"}, {"a/b/", "a/b"}, {"./a", "a"},   {"a/..", "."},
                {"../a", "../a"},  {"/..", "/.."},  {" a ", " a "}, {"~/a", "~/a"}};
    for (const auto& row : rows) {
        EXPECT_EQ(KusFileUtils::cleanPath(row.path), QString(row.clean)) << row.path;
        EXPECT_EQ(KusFileUtils::cleanPath(row.clean), QString(row.clean)) << row.clean;
    }
}

TEST_F(KusFileUtilsTest, LetsAnEmptyFolderStand)
{
    EXPECT_EQ(KusFileUtils::fixDirectoryPath("", "/p", true), "");
    EXPECT_EQ(KusFileUtils::fixDirectoryPath("", "/p", false), "");
}

TEST_F(KusFileUtilsTest, CleansAFolderThatNeedNotExist)
{
    EXPECT_EQ(KusFileUtils::fixDirectoryPath("/no//such/./folder/", "/p", false), "/no/such/folder");
}

TEST_F(KusFileUtilsTest, KeepsThePreviousFolderWhereTheNewOneMustExistAndDoesNot)
{
    EXPECT_EQ(KusFileUtils::fixDirectoryPath(sub + "/", "/p", true), sub);
    EXPECT_EQ(KusFileUtils::fixDirectoryPath(at("none"), sub, true), sub);
    EXPECT_EQ(KusFileUtils::fixDirectoryPath(at("a.csv"), sub, true), sub);
    EXPECT_EQ(KusFileUtils::fixDirectoryPath(at("none"), "", true), "");
    EXPECT_EQ(KusFileUtils::fixDirectoryPath(at("none"), "/gone/", true), "/gone");
}

TEST_F(KusFileUtilsTest, LetsAnEmptyFileStand)
{
    EXPECT_EQ(KusFileUtils::fixFilePath("", "/p.csv", false, csv, openMode), "");
    EXPECT_EQ(KusFileUtils::fixFilePath("", "/p.csv", false, csv, saveMode), "");
}

TEST_F(KusFileUtilsTest, TakesAnyCleanedFileWhereAnyIsAllowed)
{
    EXPECT_EQ(KusFileUtils::fixFilePath("/no//such/file.xyz", "/p.csv", true, csv, openMode), "/no/such/file.xyz");
    EXPECT_EQ(KusFileUtils::fixFilePath("name", "/p.csv", true, csv, saveMode), "name");
}

TEST_F(KusFileUtilsTest, TakesAnyFileWhereThereAreNoPatterns)
{
    EXPECT_EQ(KusFileUtils::fixFilePath("/x/file.xyz", "/p.csv", false, {}, openMode), "/x/file.xyz");
    EXPECT_EQ(KusFileUtils::fixFilePath("/x/file", "/p.csv", false, {}, saveMode), "/x/file");
}

TEST_F(KusFileUtilsTest, RefusesAFolderAsAFile)
{
    for (const bool mode : {openMode, saveMode}) {
        EXPECT_EQ(KusFileUtils::fixFilePath(sub, "/p.csv", true, {}, mode), "/p.csv");
        EXPECT_EQ(KusFileUtils::fixFilePath(sub + "/deep.csv", "/p.csv", false, csv, mode), "/p.csv");
        EXPECT_EQ(KusFileUtils::fixFilePath("/", "/p.csv", true, {}, mode), "/p.csv");
    }
    EXPECT_EQ(KusFileUtils::fixFilePath(sub + "/deep", "/p.csv", false, csv, saveMode), "/p.csv");
}

TEST_F(KusFileUtilsTest, MatchesTheFileNameAgainstThePatternsWithoutLetterCase)
{
    for (const char* name : {"/x/a.csv", "/x/a.CSV", "/x/a.tsv", "a.csv", "/x/.csv"})
        for (const bool mode : {openMode, saveMode})
            EXPECT_EQ(KusFileUtils::fixFilePath(name, "/p.csv", false, csv, mode), QString(name));
    EXPECT_EQ(KusFileUtils::fixFilePath("/x.csv/a", "/p.csv", false, csv, openMode), "/p.csv");
    EXPECT_EQ(KusFileUtils::fixFilePath("/x/well_7.dat", "/p", false, {"well_?.*"}, openMode), "/x/well_7.dat");
    EXPECT_EQ(KusFileUtils::fixFilePath("/x/anything", "/p", false, {"*"}, openMode), "/x/anything");
}

TEST_F(KusFileUtilsTest, KeepsThePreviousFileWhereTheOneToOpenDoesNotMatch)
{
    EXPECT_EQ(KusFileUtils::fixFilePath("/x/a.xyz", "/p.csv", false, csv, openMode), "/p.csv");
    EXPECT_EQ(KusFileUtils::fixFilePath("/x/a", "/p.csv", false, csv, openMode), "/p.csv");
}

TEST_F(KusFileUtilsTest, AppendsTheFirstPlainExtensionToAFileToSave)
{
    EXPECT_EQ(KusFileUtils::fixFilePath("/x/a", "/p", false, csv, saveMode), "/x/a.csv");
    EXPECT_EQ(KusFileUtils::fixFilePath("/x/a.xyz", "/p", false, csv, saveMode), "/x/a.xyz.csv");
    EXPECT_EQ(KusFileUtils::fixFilePath("/x/a", "/p", false, {"*.?sv", "*.*x", "*.tar.gz"}, saveMode), "/x/a.tar.gz");
}

TEST_F(KusFileUtilsTest, KeepsThePreviousFileWhereNoExtensionHelps)
{
    EXPECT_EQ(KusFileUtils::fixFilePath("/x/a", "/well_1", false, {"well_?"}, saveMode), "/well_1");
    EXPECT_EQ(KusFileUtils::fixFilePath("/x/a", "/p", false, {"*."}, saveMode), "/p");
}

TEST_F(KusFileUtilsTest, PutsThePreviousFileUnderTheSameRules)
{
    EXPECT_EQ(KusFileUtils::fixFilePath(sub, "/x//p", false, csv, saveMode), "/x/p.csv");
    EXPECT_EQ(KusFileUtils::fixFilePath(sub, "/x//p", false, csv, openMode), "/x/p");
}

TEST_F(KusFileUtilsTest, FixesTheSameWayTwice)
{
    const QStringList paths = {"",      "/",           sub,     sub + "/deep.csv", sub + "/deep", at("a.csv"), at("a"),
                               "b.csv", "x/../b",      "..",    "/x//y.TSV/",      "well_1",      "/x/.csv",   " ",
                               "$A/x",  "/x/y.tar.gz", "a.b.c", "C:\\x\\y.csv",    "*.csv",       "[",         "/x/y."};
    const QList<QStringList> patternLists = {{}, csv, {"*"}, {"*.*"}, {"well_?"}, {"*.tar.gz", "*.csv"}, {"["}, {"*."}};
    for (const QString& value : paths) {
        for (const QString& previous : paths) {
            for (const bool flag : {true, false}) {
                const QString folderPath = KusFileUtils::fixDirectoryPath(value, previous, flag);
                EXPECT_EQ(KusFileUtils::fixDirectoryPath(folderPath, previous, flag), folderPath);
                EXPECT_EQ(KusFileUtils::fixDirectoryPath(folderPath, folderPath, flag), folderPath);
                for (const QStringList& patterns : patternLists) {
                    for (const bool mode : {openMode, saveMode}) {
                        const QString path = KusFileUtils::fixFilePath(value, previous, flag, patterns, mode);
                        EXPECT_EQ(KusFileUtils::fixFilePath(path, previous, flag, patterns, mode), path);
                        EXPECT_EQ(KusFileUtils::fixFilePath(path, path, flag, patterns, mode), path);
                    }
                }
            }
        }
    }
}
