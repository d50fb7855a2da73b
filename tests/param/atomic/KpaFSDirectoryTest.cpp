#include <param/atomic/KpaFSDirectory.h>
#include <support/NamedRoot.h>
#include <support/RecordingObserver.h>
#include <support/RunningTest.h>

#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace {

using Form = MbbOrderedMap<QString, QString>;

const int value = Kp::NotifyValue;
const int config = Kp::NotifyConfig;

} // namespace

TEST(KpaFSDirectory, StartsEmptyWithoutRules)
{
    const KpaFSDirectory parameter("DATA");
    EXPECT_EQ(parameter.getKey(), "DATA");
    EXPECT_EQ(parameter.getType(), KpbEType::FS_DIRECTORY);
    EXPECT_EQ(parameter.getConfig().getType(), KpbEType::FS_DIRECTORY);
    EXPECT_EQ(parameter.getValue(), "");
    EXPECT_FALSE(parameter.getDirectoryMustExists());
    EXPECT_EQ(parameter.getPathId(), "");
    EXPECT_EQ(parameter.toString(), "");
}

TEST(KpaFSDirectory, NotifiesEachChangeOfARuleOnce)
{
    KpaFSDirectory parameter("DATA");
    const RecordingObserver observer(parameter);
    for (int i = 0; i < 2; ++i) {
        parameter.setDirectoryMustExists(true);
        parameter.setPathId("import");
    }
    EXPECT_TRUE(parameter.getDirectoryMustExists());
    EXPECT_EQ(parameter.getPathId(), "import");
    EXPECT_EQ(observer.allFlags(), (QList<int>{config, config}));
}

TEST(KpaFSDirectory, ComparesConfigsByAllFields)
{
    KpaFSDirectoryConfig mustExist, withId;
    EXPECT_EQ(mustExist, withId);
    EXPECT_TRUE(mustExist.setDirectoryMustExists(true));
    EXPECT_NE(mustExist, KpaFSDirectoryConfig());
    EXPECT_TRUE(withId.setPathId("import"));
    EXPECT_NE(withId, KpaFSDirectoryConfig());
}

TEST(KpaFSDirectory, TakesAFolderThatDoesNotExistUnlessItMust)
{
    const QTemporaryDir existing;
    KpaFSDirectory parameter("DATA");
    parameter.setValue("/no/such/folder");
    EXPECT_EQ(parameter.getValue(), "/no/such/folder");
    parameter.setValue(existing.path());
    parameter.setDirectoryMustExists(true);
    EXPECT_EQ(parameter.getValue(), existing.path());

    const RecordingObserver observer(parameter);
    parameter.setValue("/no/such/folder");
    EXPECT_EQ(parameter.getValue(), existing.path());
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
    parameter.setValue("");
    EXPECT_EQ(parameter.getValue(), "");
}

TEST(KpaFSDirectory, EmptiesWhenItsFolderMustExistAndDoesNot)
{
    KpaFSDirectory parameter("DATA");
    parameter.setValue("/no/such/folder");
    const RecordingObserver observer(parameter);
    parameter.setDirectoryMustExists(true);
    EXPECT_EQ(parameter.getValue(), "");
    EXPECT_EQ(observer.allFlags(), QList<int>{config | value});
}

TEST(KpaFSDirectory, StoresTheShortPathAndReadsTheFullOne)
{
    const NamedRoot root("PROJECTS", "/srv/projects");
    KpaFSDirectory parameter("DATA");
    parameter.setValue("/srv/projects/data");
    EXPECT_EQ(parameter.serialize(), (Form{{"value", "$PROJECTS/data"}}));
    parameter.setValue("");
    parameter.unserialize({{"value", "$PROJECTS/data"}});
    EXPECT_EQ(parameter.getValue(), "/srv/projects/data");
}

TEST(KpaFSDirectory, ShowsTheFullPathEvenInATest)
{
    const NamedRoot root("PROJECTS", "/srv/projects");
    KpaFSDirectory parameter("DATA");
    parameter.setValue("/srv/projects/data");
    EXPECT_EQ(parameter.toString(), "/srv/projects/data");
    const RunningTest running;
    EXPECT_EQ(parameter.toString(), "/srv/projects/data");
}

TEST(KpaFSDirectory, EmptiesWhenItsEntryIsMissing)
{
    KpaFSDirectory parameter("DATA");
    parameter.setValue("/srv/data");
    parameter.unserialize({{"other", "/srv/other"}});
    EXPECT_EQ(parameter.getValue(), "");
}

TEST(KpaFSDirectory, DebugsItsFields)
{
    KpaFSDirectoryConfig config;
    config.setDirectoryMustExists(true);
    config.setPathId("import");
    EXPECT_EQ(config.debug(), "----- KpaFSDirectoryConfig --------\n"
                              " must exist       = yes\n"
                              " path id          = import\n");
}

TEST(KpaFSDirectory, DuplicatesWithRulesAndPath)
{
    KpaFSDirectory parameter("DATA");
    parameter.setPathId("import");
    parameter.setValue("/srv/data");
    const std::unique_ptr<KpaFSDirectory> copy(parameter.duplicate(""));
    EXPECT_EQ(copy->getKey(), "DATA");
    EXPECT_EQ(copy->getValue(), "/srv/data");
    EXPECT_EQ(copy->getPathId(), "import");
    EXPECT_EQ(std::unique_ptr<KpaFSDirectory>(parameter.duplicate("NEW"))->getKey(), "NEW");
}
