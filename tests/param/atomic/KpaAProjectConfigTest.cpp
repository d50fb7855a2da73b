#include <param/atomic/KpaAAppliConfig.h>
#include <support/DataProject.h>

#include <functional>
#include <optional>

#include <gtest/gtest.h>

namespace {

/// Counts what a relay hands on.
struct Target : KuoIObserver<KsmModifData>
{
    void update(const KsmModifData& modif) override
    {
        ++updates;
        reasons |= modif.getReasons(watched);
        if (onUpdate)
            onUpdate();
    }
    void destroyed(const KuoAObservable<KsmModifData>* model) override { deaths.append(model); }

    KsoDataIdentifier watched;
    std::function<void()> onUpdate;
    QList<const KuoAObservable<KsmModifData>*> deaths;
    int updates = 0;
    int reasons = 0;
};

using Relay = KpaAProjectConfig<KsmModifData>;

void change(DataProject& data)
{
    static int count = 0;
    data.model->createDirectory(data.model->getRootItem(), QStringLiteral("new %1").arg(++count));
}

} // namespace

TEST(KpaAProjectConfig, HasNoProjectAtFirst)
{
    Target target;
    EXPECT_EQ(Relay(target).getProject(), nullptr);
}

TEST(KpaAProjectConfig, HandsOnWhatTheModelOfItsProjectTells)
{
    DataProject data;
    Target target;
    Relay relay(target);
    EXPECT_TRUE(relay.setProject(data.getProject()));
    EXPECT_EQ(relay.getProject(), data.getProject());
    target.watched = data.directory("new");
    data.model->createDirectory(data.model->getRootItem(), "new");
    EXPECT_EQ(target.updates, 1);
    EXPECT_EQ(target.reasons, int(KsmModifData::Created));
}

TEST(KpaAProjectConfig, IsUnchangedByTheSameProject)
{
    DataProject data;
    Target target;
    Relay relay(target);
    EXPECT_FALSE(relay.setProject(nullptr));
    relay.setProject(data.getProject());
    EXPECT_FALSE(relay.setProject(data.getProject()));
    change(data);
    EXPECT_EQ(target.updates, 1);
}

TEST(KpaAProjectConfig, LeavesTheFormerModelForTheNewOne)
{
    DataProject former;
    DataProject data;
    Target target;
    Relay relay(target);
    relay.setProject(former.getProject());
    EXPECT_TRUE(relay.setProject(data.getProject()));
    change(former);
    EXPECT_EQ(target.updates, 0);
    change(data);
    EXPECT_EQ(target.updates, 1);
    EXPECT_TRUE(relay.setProject(nullptr));
    change(data);
    EXPECT_EQ(target.updates, 1);
}

TEST(KpaAProjectConfig, LeavesTheModelWhenItDies)
{
    DataProject data;
    Target target;
    {
        Relay relay(target);
        relay.setProject(data.getProject());
    }
    change(data);
    EXPECT_EQ(target.updates, 0);
    data.project.reset();
    EXPECT_TRUE(target.deaths.isEmpty());
}

TEST(KpaAProjectConfig, HandsOnTheDeathOfTheModelAndForgetsTheProject)
{
    DataProject data;
    Target target;
    Relay relay(target);
    relay.setProject(data.getProject());
    const KuoAObservable<KsmModifData>* model = data.model;
    data.project.reset();
    EXPECT_EQ(target.deaths, QList<const KuoAObservable<KsmModifData>*>{model});
    EXPECT_EQ(relay.getProject(), nullptr);
    EXPECT_FALSE(relay.setProject(nullptr));
    DataProject another;
    EXPECT_TRUE(relay.setProject(another.getProject()));
}

TEST(KpaAProjectConfig, MayEndWhileItHandsOn)
{
    DataProject data;
    Target target;
    std::optional<Relay> relay(target);
    relay->setProject(data.getProject());
    target.onUpdate = [&] { relay.reset(); };
    change(data);
    change(data);
    EXPECT_EQ(target.updates, 1);
}

TEST(KpaAAppliConfig, HoldsAnApplicationFlag)
{
    Target target;
    KpaAAppliConfig<KsmModifData> relay(target);
    EXPECT_EQ(relay.getApplicationFlag(), QString());
    relay.setApplicationFlag("kriging");
    EXPECT_EQ(relay.getApplicationFlag(), "kriging");
}
