#include <param/atomic/KpaFSFile.h>
#include <support/NamedRoot.h>
#include <support/RecordingObserver.h>
#include <support/RunningTest.h>

#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace {

using Form = MbbOrderedMap<QString, QString>;
using Filters = KpaFSFileConfig::Filters;

const int value = Kp::NotifyValue;
const int config = Kp::NotifyConfig;

} // namespace

TEST(KpaFSFile, StartsEmptyOpeningAnyFile)
{
    const KpaFSFile parameter("FILE");
    EXPECT_EQ(parameter.getKey(), "FILE");
    EXPECT_EQ(parameter.getType(), KpbEType::FS_FILE);
    EXPECT_EQ(parameter.getConfig().getType(), KpbEType::FS_FILE);
    EXPECT_EQ(parameter.getValue(), "");
    EXPECT_TRUE(parameter.getFilters().isEmpty());
    EXPECT_TRUE(parameter.getOpenMode());
    EXPECT_TRUE(parameter.isAnyFileAllowed());
    EXPECT_EQ(parameter.getPathId(), "");
    EXPECT_EQ(parameter.toString(), "");
}

TEST(KpaFSFile, NotifiesEachChangeOfARuleOnce)
{
    KpaFSFile parameter("FILE");
    const RecordingObserver observer(parameter);
    for (int i = 0; i < 2; ++i) {
        parameter.addFilter("Texts", {"*.txt"});
        parameter.setOpenMode(false);
        parameter.setAnyFileAllowed(false);
        parameter.setPathId("import");
    }
    EXPECT_EQ(parameter.getFilter("Texts"), QStringList{"*.txt"});
    EXPECT_FALSE(parameter.getOpenMode());
    EXPECT_FALSE(parameter.isAnyFileAllowed());
    EXPECT_EQ(parameter.getPathId(), "import");
    EXPECT_EQ(observer.allFlags(), (QList<int>{config, config, config, config}));
}

TEST(KpaFSFile, ComparesConfigsByAllFieldsAndTellsWhatChanged)
{
    const QList<bool (*)(KpaFSFileConfig&)> changes{
        [](KpaFSFileConfig& config) { return config.addFilter("Texts", {"*.txt"}); },
        [](KpaFSFileConfig& config) { return config.setOpenMode(false); },
        [](KpaFSFileConfig& config) { return config.setAnyFileAllowed(false); },
        [](KpaFSFileConfig& config) { return config.setPathId("import"); },
    };
    EXPECT_EQ(KpaFSFileConfig(), KpaFSFileConfig());
    for (int i = 0; i < changes.size(); ++i) {
        KpaFSFileConfig config;
        EXPECT_TRUE(changes.at(i)(config)) << "field " << i;
        EXPECT_FALSE(changes.at(i)(config)) << "field " << i;
        EXPECT_NE(config, KpaFSFileConfig()) << "field " << i;
    }
}

TEST(KpaFSFile, IgnoresAFilterWithoutNameOrPatterns)
{
    KpaFSFileConfig config;
    EXPECT_FALSE(config.addFilter("", {"*.txt"}));
    EXPECT_FALSE(config.addFilter("Texts", {}));
    EXPECT_TRUE(config.getFilters().isEmpty());
}

TEST(KpaFSFile, ReplacesAFilterAtItsPlace)
{
    KpaFSFileConfig config;
    config.addFilter("Texts", {"*.txt"});
    config.addFilter("Tables", {"*.csv"});
    EXPECT_TRUE(config.addFilter("Texts", {"*.txt", "*.md"}));
    EXPECT_EQ(config.getFilters(), (Filters{{"Texts", {"*.txt", "*.md"}}, {"Tables", {"*.csv"}}}));
    EXPECT_FALSE(config.addFilter("Tables", {"*.csv"}));
    EXPECT_FALSE(config.addFilter("Tables", {}));
    EXPECT_EQ(config.getFilter("Tables"), QStringList{"*.csv"});
    EXPECT_EQ(config.getFilter("none"), QStringList());
}

TEST(KpaFSFile, SetsAndClearsAllFilters)
{
    KpaFSFile parameter("FILE");
    const RecordingObserver observer(parameter);
    parameter.clearFilters();
    EXPECT_TRUE(observer.records.isEmpty());
    const Filters filters{{"Texts", {"*.txt"}}, {"Tables", {"*.csv"}}};
    parameter.setFilters(filters);
    parameter.setFilters(filters);
    EXPECT_EQ(parameter.getFilters(), filters);
    parameter.clearFilters();
    EXPECT_TRUE(parameter.getFilters().isEmpty());
    EXPECT_EQ(observer.allFlags(), (QList<int>{config, config}));
}

TEST(KpaFSFile, HoldsItsFileAgainstThePatternsOfAllFilters)
{
    KpaFSFile parameter("FILE");
    parameter.setFilters({{"Texts", {"*.txt", "*.md"}}, {"Tables", {"*.csv"}}});
    parameter.setValue("/srv/a.doc");
    EXPECT_EQ(parameter.getValue(), "/srv/a.doc");
    parameter.setValue("/srv/a.csv");
    parameter.setAnyFileAllowed(false);
    EXPECT_EQ(parameter.getValue(), "/srv/a.csv");

    const RecordingObserver observer(parameter);
    parameter.setValue("/srv/a.doc");
    EXPECT_EQ(parameter.getValue(), "/srv/a.csv");
    parameter.setValue("/srv/a.md");
    EXPECT_EQ(parameter.getValue(), "/srv/a.md");
    EXPECT_EQ(observer.allFlags(), (QList<int>{value, value}));
}

TEST(KpaFSFile, CompletesTheNameOfAFileToSave)
{
    KpaFSFile parameter("FILE");
    parameter.addFilter("Texts", {"*.txt"});
    parameter.setAnyFileAllowed(false);
    parameter.setOpenMode(false);
    parameter.setValue("/srv/a");
    EXPECT_EQ(parameter.getValue(), "/srv/a.txt");
}

TEST(KpaFSFile, TakesNoFolder)
{
    const QTemporaryDir folder;
    KpaFSFile parameter("FILE");
    parameter.setValue("/srv/a.txt");
    parameter.setValue(folder.path());
    EXPECT_EQ(parameter.getValue(), "/srv/a.txt");
}

TEST(KpaFSFile, StoresTheShortPathAndReadsTheFullOne)
{
    const NamedRoot root("PROJECTS", "/srv/projects");
    KpaFSFile parameter("FILE");
    parameter.setValue("/srv/projects/a.txt");
    EXPECT_EQ(parameter.serialize(), (Form{{"value", "$PROJECTS/a.txt"}}));
    parameter.setValue("");
    parameter.unserialize({{"value", "$PROJECTS/a.txt"}});
    EXPECT_EQ(parameter.getValue(), "/srv/projects/a.txt");
}

TEST(KpaFSFile, ShowsTheShortPathInATestOnly)
{
    const NamedRoot root("PROJECTS", "/srv/projects");
    KpaFSFile parameter("FILE");
    parameter.setValue("/srv/projects/a.txt");
    EXPECT_EQ(parameter.toString(), "/srv/projects/a.txt");
    const RunningTest running;
    EXPECT_EQ(parameter.toString(), "$PROJECTS/a.txt");
}

TEST(KpaFSFile, EmptiesWhenItsEntryIsMissing)
{
    KpaFSFile parameter("FILE");
    parameter.setValue("/srv/a.txt");
    parameter.unserialize({});
    EXPECT_EQ(parameter.getValue(), "");
}

TEST(KpaFSFile, DebugsItsFields)
{
    KpaFSFileConfig config;
    EXPECT_EQ(config.debug(), "----- KpaFSFileConfig --------\n"
                              " mode             = Open\n"
                              " filters          = \n"
                              " any file allowed = yes\n"
                              " path id          = \n");
    config.setFilters({{"100%1", {"*.txt", "%2"}}, {"Tables", {"*.csv"}}});
    config.setOpenMode(false);
    config.setAnyFileAllowed(false);
    config.setPathId("import");
    EXPECT_EQ(config.debug(), "----- KpaFSFileConfig --------\n"
                              " mode             = Save\n"
                              " filters          = 100%1 (*.txt %2) Tables (*.csv) \n"
                              " any file allowed = no\n"
                              " path id          = import\n");
}

TEST(KpaFSFile, DuplicatesWithRulesAndPath)
{
    KpaFSFile parameter("FILE");
    parameter.addFilter("Texts", {"*.txt"});
    parameter.setValue("/srv/a.txt");
    const std::unique_ptr<KpaFSFile> copy(parameter.duplicate(""));
    EXPECT_EQ(copy->getKey(), "FILE");
    EXPECT_EQ(copy->getValue(), "/srv/a.txt");
    EXPECT_EQ(copy->getFilters(), parameter.getFilters());
    EXPECT_EQ(std::unique_ptr<KpaFSFile>(parameter.duplicate("NEW"))->getKey(), "NEW");
}
