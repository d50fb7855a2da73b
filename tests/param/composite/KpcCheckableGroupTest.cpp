#include "CompositeTestTools.h"

#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcCheckableGroup.h>
#include <param/composite/KpcGroup.h>
#include <param/composite/KpcGroupValueDelegate.h>

#include <support/RecordingObserver.h>

#include <functional>
#include <utility>

namespace {

class FixedText : public KpcGroupValueDelegate
{
public:
    QString toString(const KpcGroup*) const override { return "text"; }
    FixedText* duplicate() const override { return new FixedText; }
};

struct Checkable
{
    KpcCheckableGroup group{"X", TestContext::instance()};
    KpaBool* check = dynamic_cast<KpaBool*>(group.getChild("USE_X"));
    KpcGroup* content = dynamic_cast<KpcGroup*>(group.getChild("X_GROUP"));
};

} // namespace

TEST(KpcCheckableGroup, HasABoxAndAContent)
{
    const Checkable x;
    EXPECT_TRUE(x.group.isA(KpbEType::CHECKABLE_GROUP));
    EXPECT_EQ(childKeys(x.group), QStringList({"USE_X", "X_GROUP"}));
    ASSERT_TRUE(x.check);
    ASSERT_TRUE(x.content);
    EXPECT_EQ(x.check->getLabel(), "Use group");
    EXPECT_EQ(x.content->getLabel(), "Group");
}

TEST(KpcCheckableGroup, IsActiveAtFirst)
{
    const Checkable x;
    EXPECT_TRUE(x.check->getValue());
    EXPECT_TRUE(x.group.isActive());
    EXPECT_TRUE(x.content->getEnabledFlag());
}

TEST(KpcCheckableGroup, EnablesItsContentWhileTheBoxIsChecked)
{
    Checkable x;
    x.check->setValue(false);
    EXPECT_FALSE(x.group.isActive());
    EXPECT_FALSE(x.content->getEnabledFlag());
    x.check->setValue(true);
    EXPECT_TRUE(x.group.isActive());
    EXPECT_TRUE(x.content->getEnabledFlag());
}

TEST(KpcCheckableGroup, TellsOfTheBoxAndTheContentInOneRecord)
{
    Checkable x;
    RecordingObserver observer(x.group);
    x.check->setValue(false);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
    EXPECT_EQ(observer.flagsOf(*x.check), Kp::NotifyValue);
    EXPECT_EQ(observer.flagsOf(*x.content), Kp::NotifyConfig);
}

TEST(KpcCheckableGroup, IsNotActiveWhileItsBoxIsDisabled)
{
    Checkable x;
    x.check->setEnabled(false);
    EXPECT_FALSE(x.group.isActive());
    EXPECT_TRUE(x.check->getValue());
    EXPECT_FALSE(x.content->getEnabledFlag());
    x.check->setEnabled(true);
    EXPECT_TRUE(x.content->getEnabledFlag());
}

TEST(KpcCheckableGroup, IsNotActiveWhileAnAncestorIsDisabled)
{
    KpcGroup root("ROOT", TestContext::instance());
    auto* group = new KpcCheckableGroup("X", TestContext::instance());
    root.addChild(group);
    EXPECT_TRUE(group->isActive());
    root.setEnabled(false);
    EXPECT_FALSE(group->isActive());
}

TEST(KpcCheckableGroup, IsUncheckedWhenAnAncestorIsDisabled)
{
    KpcGroup root("ROOT", TestContext::instance());
    auto* group = new KpcCheckableGroup("X", TestContext::instance());
    root.addChild(group);
    root.setEnabled(false);
    EXPECT_TRUE(group->getEnabledFlag());
    EXPECT_FALSE(dynamic_cast<KpaBool&>(*group->getChild("USE_X")).getValue());
    EXPECT_FALSE(group->getChild("X_GROUP")->getEnabledFlag());
    root.setEnabled(true);
    EXPECT_FALSE(group->isActive());
}

TEST(KpcCheckableGroup, TellsOfAllThatItsDisablingChangesInOneRecord)
{
    Checkable x;
    RecordingObserver observer(x.group);
    x.group.setEnabled(false);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 3);
    EXPECT_EQ(observer.flagsOf(x.group), Kp::NotifyConfig);
    EXPECT_EQ(observer.flagsOf(*x.check), Kp::NotifyValue | Kp::NotifyConfig);
    EXPECT_EQ(observer.flagsOf(*x.content), Kp::NotifyConfig);
}

TEST(KpcCheckableGroup, StaysUncheckedAfterItWasDisabled)
{
    Checkable x;
    x.group.setEnabled(false);
    EXPECT_FALSE(x.check->getValue());
    EXPECT_FALSE(x.content->getEnabledFlag());
    x.group.setEnabled(true);
    EXPECT_FALSE(x.check->getValue());
    EXPECT_FALSE(x.group.isActive());
    EXPECT_FALSE(x.content->getEnabledFlag());
}

TEST(KpcCheckableGroup, RepairsTheStateOfTheContentAtAnyChange)
{
    Checkable x;
    x.content->setEnabled(false);
    EXPECT_TRUE(x.content->getEnabledFlag());
}

TEST(KpcCheckableGroup, PassesAChangeOfTheContentOn)
{
    Checkable x;
    auto* size = new KpaInteger("SIZE");
    x.content->addChild(size);
    RecordingObserver observer(x.group);
    size->setValue(4);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getModifs().firstKey().toString(), "X/X_GROUP/SIZE");
}

TEST(KpcCheckableGroup, LabelsItsChildren)
{
    Checkable x;
    RecordingObserver observer(x.group);
    x.group.setLabels("Check", "Content");
    EXPECT_EQ(x.check->getLabel(), "Check");
    EXPECT_EQ(x.content->getLabel(), "Content");
    EXPECT_EQ(observer.allFlags(), QList<int>({Kp::NotifyConfig, Kp::NotifyConfig}));
    x.group.setLabels("Check", "Other");
    ASSERT_EQ(observer.records.size(), 3);
    EXPECT_EQ(observer.flagsOf(*x.content, 2), Kp::NotifyConfig);
}

TEST(KpcCheckableGroup, SaysWhetherItIsActive)
{
    Checkable x;
    x.group.setLabels("Check", "Content");
    EXPECT_EQ(x.group.toString(), "Content is active");
    x.content->setValueDelegate(new FixedText);
    EXPECT_EQ(x.group.toString(), "Content is active : text");
    x.check->setValue(false);
    EXPECT_EQ(x.group.toString(), "Content is not active");
}

TEST(KpcCheckableGroup, KeepsTheKeysOfItsChildrenInACopy)
{
    const Checkable x;
    const std::unique_ptr<KpcCheckableGroup> copy(x.group.duplicate("Y"));
    EXPECT_EQ(copy->getKey(), "Y");
    EXPECT_EQ(childKeys(*copy), QStringList({"USE_X", "X_GROUP"}));
    const std::unique_ptr<KpcCheckableGroup> second(copy->duplicate("Z"));
    EXPECT_EQ(childKeys(*second), QStringList({"USE_X", "X_GROUP"}));
    EXPECT_TRUE(second->isActive());
}

TEST(KpcCheckableGroup, WorksOnItsOwnChildrenInACopy)
{
    const Checkable x;
    const std::unique_ptr<KpcCheckableGroup> copy(x.group.duplicate("Y"));
    dynamic_cast<KpaBool&>(*copy->getChild("USE_X")).setValue(false);
    EXPECT_FALSE(copy->isActive());
    EXPECT_FALSE(copy->getChild("X_GROUP")->getEnabledFlag());
    EXPECT_TRUE(x.group.isActive());
}

TEST(KpcCheckableGroup, CopiesTheStateAsItIs)
{
    Checkable x;
    x.check->setValue(false);
    x.group.setLabels("Check", "Content");
    const std::unique_ptr<KpcCheckableGroup> copy(x.group.duplicate(QString()));
    EXPECT_EQ(copy->getKey(), "X");
    EXPECT_EQ(copy->toString(), "Content is not active");
    EXPECT_FALSE(copy->getChild("X_GROUP")->getEnabledFlag());
}

namespace {

using Change = std::function<void(KpcCheckableGroup&)>;

void disable(KpcCheckableGroup& group)
{
    group.setEnabled(false);
}

void uncheck(KpcCheckableGroup& group)
{
    dynamic_cast<KpaBool&>(*group.getChild("USE_X")).setValue(false);
}

void label(KpcCheckableGroup& group)
{
    group.setLabels("Check", "Content");
}

} // namespace

TEST(KpcCheckableGroup, SurvivesThatItIsDestroyedByAnObserverOfAChild)
{
    for (const QString key : {"USE_X", "X_GROUP"}) {
        for (const Change& change : {Change(disable), Change(uncheck), Change(label)}) {
            auto* group = new KpcCheckableGroup("X", TestContext::instance());
            RecordingObserver ofGroup(*group);
            ActingObserver observer(*group->getChild(key), [&] { delete std::exchange(group, nullptr); });
            change(*group);
            EXPECT_EQ(group, nullptr);
            EXPECT_EQ(ofGroup.deaths, 1);
        }
    }
}

TEST(KpcCheckableGroup, SurvivesThatItIsDestroyedByAnObserverOfItsOwn)
{
    for (const Change& change : {Change(disable), Change(uncheck), Change(label)}) {
        auto* group = new KpcCheckableGroup("X", TestContext::instance());
        RecordingObserver ofBox(*group->getChild("USE_X"));
        ActingObserver observer(*group, [&] { delete std::exchange(group, nullptr); });
        change(*group);
        EXPECT_EQ(group, nullptr);
        EXPECT_EQ(ofBox.deaths, 1);
    }
}
