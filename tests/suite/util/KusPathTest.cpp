#include <util/KusFileUtils.h>
#include <util/KusPath.h>

#include <QtCore/QDir>

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace {

/// Roots of its own while a test runs.
class KusPathTest : public testing::Test
{
protected:
    KusPathTest()
    {
        KusPath::setRoot("HOME", "/home/ada");
        KusPath::setRoot("PROJECTS", "/home/ada/projects");
        KusPath::setRoot("DATA_2", "/srv/data/");
    }

    ~KusPathTest() override
    {
        for (const char* name : {"HOME", "PROJECTS", "DATA_2"})
            KusPath::setRoot(name, QString());
    }

    static QString shortOf(const QString& path) { return KusPath(KusPath::File, path).shortPath(); }
    static QString fullOf(const QString& text) { return KusPath(KusPath::File, text).absolutePath(); }
};

} // namespace

TEST_F(KusPathTest, NumbersItsKinds)
{
    EXPECT_EQ(int(KusPath::File), 0);
    EXPECT_EQ(int(KusPath::Directory), 1);
    EXPECT_EQ(KusPath(KusPath::Directory, "/x").getKind(), KusPath::Directory);
}

TEST_F(KusPathTest, ShortensToTheLongestRootAndReadsItBack)
{
    const struct
    {
        const char* path;
        const char* text;
    } rows[] = {
        {"", ""},
        {"/home/ada/notes.txt", "$HOME/notes.txt"},
        {"/home/ada", "$HOME"},
        {"/home/ada/projects", "$PROJECTS"},
        {"/home/ada/projects/data/a.csv", "$PROJECTS/data/a.csv"},
        {"/home/ada/projects2/a.csv", "$HOME/projects2/a.csv"},
        {"/home/adam/a.csv", "/home/adam/a.csv"},
        {"/srv/data/b.csv", "$DATA_2/b.csv"},
        {"/srv/datax", "/srv/datax"},
        {"/", "/"},
        {"/etc/hosts", "/etc/hosts"},
        {"data/a.csv", "data/a.csv"},
        {"../a.csv", "../a.csv"},
        {"~/a.csv", "~/a.csv"},
        {"$HOME/a.csv", "$$HOME/a.csv"},
        {"$HOME", "$$HOME"},
        {"$$HOME/a.csv", "$$$HOME/a.csv"},
        {"$$", "$$$"},
        {"$", "$"},
        {"$2/a", "$2/a"},
        {"$HOMEX/a.csv", "$HOMEX/a.csv"},
        {"/home/ada/$HOME/a", "$HOME/$HOME/a"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(shortOf(row.path), QString(row.text));
        EXPECT_EQ(fullOf(row.text), QString(row.path));
    }
}

TEST_F(KusPathTest, CleansWhatItIsGiven)
{
    EXPECT_EQ(shortOf("/home//ada/./projects/x/../a.csv"), "$PROJECTS/a.csv");
    EXPECT_EQ(shortOf("/home/ada/projects/"), "$PROJECTS");
    EXPECT_EQ(fullOf("/srv//x/"), "/srv/x");
    EXPECT_EQ(fullOf("$PROJECTS//x/"), "/home/ada/projects/x");
    EXPECT_EQ(fullOf("$PROJECTS/../x"), "/home/ada/x");
    EXPECT_EQ(fullOf("$PROJECTS/"), "/home/ada/projects");
    EXPECT_EQ(shortOf("./$HOME/x"), "$$HOME/x");
}

TEST_F(KusPathTest, TreatsDirectoriesLikeFiles)
{
    EXPECT_EQ(KusPath(KusPath::Directory, "/srv/data/sub/").shortPath(), "$DATA_2/sub");
    EXPECT_EQ(KusPath(KusPath::Directory, "$DATA_2/sub/").absolutePath(), "/srv/data/sub");
    EXPECT_EQ(KusPath(KusPath::Directory, "").shortPath(), "");
    EXPECT_EQ(KusPath(KusPath::Directory, "").absolutePath(), "");
    EXPECT_EQ(KusPath(KusPath::Directory, "/").absolutePath(), "/");
}

TEST_F(KusPathTest, LeavesATokenThatNobodyKnowsAsItIs)
{
    for (const char* text : {"$ELSEWHERE/a.csv", "$ELSEWHERE", "$ELSEWHERE/x/../y//", "$home/a"}) {
        EXPECT_EQ(fullOf(text), QString(text));
        EXPECT_EQ(shortOf(text), QString(text));
    }
}

TEST_F(KusPathTest, ReadsATokenOnceItsRootIsNamed)
{
    const QString kept = shortOf(fullOf("$DATA_3/a.csv"));
    ASSERT_TRUE(KusPath::setRoot("DATA_3", "/mnt/three"));
    EXPECT_EQ(fullOf(kept), "/mnt/three/a.csv");
    KusPath::setRoot("DATA_3", QString());
}

TEST_F(KusPathTest, FollowsARootThatMoves)
{
    const QString text = shortOf("/srv/data/b.csv");
    KusPath::setRoot("DATA_2", "/mnt/data");
    EXPECT_EQ(fullOf(text), "/mnt/data/b.csv");
}

TEST_F(KusPathTest, TakesTheFirstNameOfTwoForOneFolder)
{
    KusPath::setRoot("A_NAME", "/srv/data");
    EXPECT_EQ(shortOf("/srv/data/b.csv"), "$A_NAME/b.csv");
    KusPath::setRoot("A_NAME", QString());
}

TEST_F(KusPathTest, TakesTheRootOfTheFileSystemAsARoot)
{
    KusPath::setRoot("ALL", "/");
    EXPECT_EQ(shortOf("/etc/hosts"), "$ALL/etc/hosts");
    EXPECT_EQ(fullOf("$ALL/etc/hosts"), "/etc/hosts");
    EXPECT_EQ(shortOf("/"), "$ALL");
    EXPECT_EQ(fullOf("$ALL/"), "/");
    EXPECT_EQ(fullOf("$ALL"), "/");
    KusPath::setRoot("ALL", QString());
}

TEST_F(KusPathTest, RefusesNamesAndFoldersThatCouldNotBeReadBack)
{
    const auto before = KusPath::getRoots();
    for (const char* name : {"", "2A", "_A", "A-B", "A/B", "A B", "$A", "\xc3\x84"})
        EXPECT_FALSE(KusPath::setRoot(name, "/srv")) << name;
    EXPECT_FALSE(KusPath::setRoot("REL", "srv/data"));
    EXPECT_FALSE(KusPath::setRoot("REL", "$HOME/data"));
    EXPECT_EQ(KusPath::getRoots(), before);
}

TEST_F(KusPathTest, GoesBackToTheUsersHomeWhenHomeIsTakenAway)
{
    EXPECT_TRUE(KusPath::setRoot("HOME", QString()));
    const QString home = QDir::homePath();
    if (home == QDir::rootPath())
        EXPECT_FALSE(KusPath::getRoots().contains("HOME"));
    else
        EXPECT_EQ(fullOf("$HOME/x"), home + "/x");
}

TEST_F(KusPathTest, ReadsBackTheCleanedPathWhateverItIs)
{
    const std::array<const char*, 14> parts = {"$",  "$$", "HOME", "$HOME", "$NONE", "/",        "//",
                                               "..", ".",  "home", "ada",   " ",     "\xc3\xa9", "projects"};
    std::mt19937 random(20240501);
    for (int i = 0; i < 20000; ++i) {
        QString path;
        for (unsigned n = random() % 8; n > 0; --n)
            path += QString::fromUtf8(parts[random() % parts.size()]);
        const QString once = fullOf(shortOf(path));
        EXPECT_EQ(KusFileUtils::cleanPath(once), KusFileUtils::cleanPath(path)) << path.toStdString();
        EXPECT_EQ(shortOf(once), shortOf(path)) << path.toStdString();
    }
}
