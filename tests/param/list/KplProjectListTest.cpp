#include <param/list/KplProjectList.h>
#include <study/KssProject.h>
#include <support/RecordingObserver.h>

#include <gtest/gtest.h>

namespace {

using Projects = QList<KssProject*>;

} // namespace

TEST(KplProjectList, HasNoProjectsAtFirst)
{
    const KplProjectList list("KEY");
    EXPECT_EQ(list.getItemCount(), 0);
    EXPECT_EQ(list.getProject(), nullptr);
    EXPECT_EQ(list.getProjects(), Projects());
}

TEST(KplProjectList, HoldsTheUrlsOfItsProjects)
{
    KssProject a("a");
    KssProject b("b");
    KplProjectList list("KEY");
    list.setProjects({&b, &a});
    EXPECT_EQ(list.getValues(), QList<QUrl>({b.getUrl(), a.getUrl()}));
    EXPECT_EQ(list.getProjects(), Projects({&b, &a}));
    EXPECT_EQ(list.getProject(), &b);
}

TEST(KplProjectList, KeepsTheUrlOfAProjectThatIsGone)
{
    KssProject a("a");
    KplProjectList list("KEY");
    {
        KssProject b("b");
        list.setProjects({&b, &a, nullptr});
    }
    EXPECT_EQ(list.getProjects(), Projects({nullptr, &a, nullptr}));
    EXPECT_EQ(list.getProject(), nullptr);
    EXPECT_EQ(list.getValueAt(0), QUrl("study:b"));
    EXPECT_EQ(list.getValueAt(2), QUrl());
    EXPECT_EQ(list.getValueAt(-1), QUrl());
}

TEST(KplProjectList, SendsOneRecordForAllProjects)
{
    KssProject a("a");
    KssProject b("b");
    KplProjectList list("KEY");
    const RecordingObserver observer(list);
    list.setProjects({&a, &b});
    EXPECT_EQ(observer.records.size(), 1);
    list.setProjects({&a, &b});
    EXPECT_EQ(observer.records.size(), 1);
}

TEST(KplProjectList, KeepsEachProjectOnceWhereItIsUnique)
{
    KssProject a("a");
    KssProject b("b");
    KplProjectList list("KEY");
    list.setUnique(true);
    list.setProjects({&a, &b, &a});
    EXPECT_EQ(list.getProjects(), Projects({&a, &b}));
}

TEST(KplProjectList, IsCopied)
{
    KssProject a("a");
    KplProjectList list("KEY");
    list.setProjects({&a});
    const std::unique_ptr<KplProjectList> copy(list.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getProjects(), Projects({&a}));
    copy->setProjects({});
    EXPECT_EQ(list.getItemCount(), 1);
}
