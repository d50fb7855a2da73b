#include <param/atomic/KpaProject.h>
#include <param/list/KplProjectList.h>
#include <study/KssProject.h>
#include <support/GarbageTexts.h>
#include <support/ObservedAtomic.h>

#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Observed = ObservedAtomic<KpaProject>;
using Flags = QList<int>;

static_assert(KpaAtomicConfig<KpaProjectConfig, QUrl>);

} // namespace

TEST(KpaProject, StartsWithoutAProject)
{
    const KpaProject parameter("KEY");
    EXPECT_EQ(parameter.getType(), KpbEType::PROJECT);
    EXPECT_TRUE(parameter.getValue().isEmpty());
    EXPECT_EQ(parameter.getProject(), nullptr);
}

TEST(KpaProject, TakesEveryUrl)
{
    Observed observed;
    for (const char* url : {"file:///nowhere/mine.ksp", "nonsense", ""}) {
        observed.atomic.setValue(QUrl(url));
        EXPECT_EQ(observed.atomic.getValue(), QUrl(url));
    }
    EXPECT_EQ(observed.takeFlags(), Flags({1, 1, 1}));
    EXPECT_EQ(observed.flagsOf([](KpaProject& p) { p.setValue(QUrl()); }), Flags());
}

TEST(KpaProject, GivesTheOpenProjectAndItsName)
{
    KpaProject parameter("KEY");
    QUrl url;
    {
        KssProject project("My study");
        url = project.getUrl();
        parameter.setValue(url);
        EXPECT_EQ(parameter.getProject(), &project);
        EXPECT_EQ(parameter.toString(), "My study");
    }
    EXPECT_EQ(parameter.getProject(), nullptr);
    EXPECT_EQ(parameter.toString(), "");
    EXPECT_EQ(parameter.getValue(), url);
}

TEST(KpaProject, GivesTheProjectOfAFile)
{
    const QTemporaryDir folder;
    const auto project = KssProject::create(folder.filePath("My & study.ksp"));
    KpaProject parameter("KEY");
    parameter.setValue(project->getUrl());
    EXPECT_EQ(parameter.getProject(), project.get());
    EXPECT_EQ(parameter.toString(), "My & study");
    KpaProject loaded("KEY");
    loaded.unserialize(parameter.serialize());
    EXPECT_EQ(loaded.getProject(), project.get());
}

TEST(KpaProject, StoresTheUrlAsText)
{
    KpaProject parameter("KEY");
    EXPECT_EQ(parameter.serialize(), storedValue(""));
    parameter.setValue(QUrl("file:///a%20b/mine.ksp"));
    EXPECT_EQ(parameter.serialize(), storedValue("file:///a b/mine.ksp"));
}

TEST(KpaProject, ReadsTheUrlAndKeepsThePreviousOneWithoutAValue)
{
    KpaProject parameter("KEY");
    parameter.unserialize(storedValue("file:///a b/mine.ksp"));
    EXPECT_EQ(parameter.getValue(), QUrl("file:///a%20b/mine.ksp"));
    parameter.unserialize({});
    parameter.unserialize({{"other", "file:///b"}});
    EXPECT_EQ(parameter.getValue(), QUrl("file:///a%20b/mine.ksp"));
    parameter.unserialize(storedValue(""));
    EXPECT_TRUE(parameter.getValue().isEmpty());
}

TEST(KpaProject, KeepsThroughItsStoredFormWhatUrlsEscape)
{
    for (const char* path : {"/a/100% #1?.ksp", "/a/50%20off&more=1.ksp", "/a/\u00e9 + \u65e5.ksp", "/a/%25%.ksp"}) {
        KpaProject parameter("KEY");
        parameter.setValue(QUrl::fromLocalFile(path));
        KpaProject loaded("KEY");
        loaded.unserialize(parameter.serialize());
        EXPECT_EQ(loaded.getValue(), QUrl::fromLocalFile(path)) << path;
        EXPECT_EQ(loaded.getValue().toLocalFile(), path);
    }
}

TEST(KpaProject, ReadsGarbageAsNoProject)
{
    KpaProject parameter("KEY");
    for (const QString& text : garbageTexts()) {
        parameter.unserialize(storedValue(text));
        EXPECT_EQ(parameter.getProject(), nullptr) << text.toStdString();
    }
}

TEST(KpaProject, IsCopied)
{
    KpaProject parameter("KEY");
    parameter.setValue(QUrl("study:x"));
    const std::unique_ptr<KpaProject> copy(parameter.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValue(), QUrl("study:x"));
    EXPECT_EQ(std::unique_ptr<KpaProject>(parameter.duplicate(""))->getKey(), "KEY");
}

TEST(KpaProject, HasAConfigurationWithoutState)
{
    EXPECT_EQ(KpaProjectConfig(), KpaProjectConfig());
    EXPECT_EQ(KpaProjectConfig().debug(), "----- KpaProjectConfig ---------\n");
}
