#include "CompositeTestTools.h"

#include <param/KpsSerializerTestTools.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaScene.h>
#include <param/composite/KpcDisplayScene.h>
#include <study/KsmModelScene.h>
#include <support/BracketTranslator.h>

namespace {

/// A context whose project has a flat scene "Map" and a scene in space, "Pit".
class Scenes : public KstATransactableDefault
{
public:
    Scenes()
    {
        _project.getModelScene()->create("Map", KugScene(KugESceneType::SCENE_2D));
        _project.getModelScene()->create("Pit", KugScene(KugESceneType::SCENE_3D));
    }
    KssProject* getProject() const override { return &_project; }
    KsoSceneIdentifier ident(const QString& name) const { return {_project.getModelScene(), name}; }

private:
    mutable KssProject _project;
};

struct Display
{
    Scenes scenes;
    std::unique_ptr<KpcDisplayScene> composite = std::make_unique<KpcDisplayScene>("D", scenes);
    KpaBool* display = dynamic_cast<KpaBool*>(composite->getChild("DISPLAY"));
    KpaScene* scene = dynamic_cast<KpaScene*>(composite->getChild("SCENE"));
};

} // namespace

TEST(KpcDisplayScene, HasAQuestionAndAScene)
{
    const Display d;
    EXPECT_TRUE(d.composite->isA(KpbEType::DISPLAY_SCENE));
    EXPECT_EQ(d.composite->getLabel(), "Display");
    EXPECT_EQ(childKeys(*d.composite), QStringList({"DISPLAY", "SCENE"}));
    ASSERT_TRUE(d.display && d.scene);
    EXPECT_EQ(d.display->getLabel(), "Display result in");
    EXPECT_FALSE(d.display->getValue());
    EXPECT_EQ(d.scene->getLabel(), "Scene");
    EXPECT_EQ(d.scene->getFilter(),
              KsoSceneFilter(MbdEIo::INPUT, MbgDimensionFlags{MbgEDimension::DIM_2D, MbgEDimension::DIM_3D}));
    EXPECT_EQ(d.composite->getDisplayParameter(), d.display);
    EXPECT_EQ(d.composite->getSceneParameter(), d.scene);
    EXPECT_FALSE(d.composite->isDisplayOneShot());
}

TEST(KpcDisplayScene, EnablesTheSceneWhileTheResultIsToBeDisplayed)
{
    const Display d;
    EXPECT_FALSE(d.scene->getEnabledFlag());
    d.display->setValue(true);
    EXPECT_TRUE(d.scene->getEnabledFlag());
    d.display->setValue(false);
    EXPECT_FALSE(d.scene->getEnabledFlag());
}

TEST(KpcDisplayScene, EnablesTheSceneAlwaysWhereItIsDisplayedAtOnce)
{
    const Display d;
    d.composite->setDisplayOneShot(true);
    EXPECT_TRUE(d.composite->isDisplayOneShot());
    EXPECT_TRUE(d.scene->getEnabledFlag());
    d.display->setValue(true);
    d.display->setValue(false);
    EXPECT_TRUE(d.scene->getEnabledFlag());
    d.composite->setDisplayOneShot(false);
    EXPECT_FALSE(d.scene->getEnabledFlag());
}

TEST(KpcDisplayScene, IsActiveWhileTheResultIsToBeDisplayedLater)
{
    const Display d;
    EXPECT_FALSE(d.composite->isActive());
    d.composite->setActive(true);
    EXPECT_TRUE(d.display->getValue());
    EXPECT_TRUE(d.composite->isActive());
    d.composite->setActive(false);
    EXPECT_FALSE(d.composite->isActive());
}

TEST(KpcDisplayScene, IsNeverActiveWhereItIsDisplayedAtOnceThoughItSaysThatItDisplays)
{
    const Display d;
    d.composite->setDisplayOneShot(true);
    d.composite->setActive(true);
    EXPECT_FALSE(d.composite->isActive());
    d.composite->setScene(d.scenes.ident("Map"));
    EXPECT_EQ(d.composite->toString(), "Display in scene \"Map\"");
}

TEST(KpcDisplayScene, HasAScene)
{
    const Display d;
    EXPECT_TRUE(d.composite->getSceneIdent().isNull());
    d.composite->setScene(d.scenes.ident("Pit"));
    EXPECT_EQ(d.composite->getSceneIdent(), d.scenes.ident("Pit"));
    EXPECT_EQ(d.scene->getValue(), d.scenes.ident("Pit"));
    d.composite->setScene(d.scenes.ident("No such scene"));
    EXPECT_EQ(d.composite->getSceneIdent(), d.scenes.ident("Pit"));
}

TEST(KpcDisplayScene, AcceptsScenesOfSomeDimensions)
{
    const Display d;
    d.composite->setSceneDimension(MbgDimensionFlags{MbgEDimension::DIM_3D});
    EXPECT_EQ(d.scene->getFilter(), KsoSceneFilter(MbdEIo::INPUT, MbgDimensionFlags{MbgEDimension::DIM_3D}));
    d.composite->setScene(d.scenes.ident("Map"));
    EXPECT_TRUE(d.composite->getSceneIdent().isNull());
    d.composite->setScene(d.scenes.ident("Pit"));
    EXPECT_EQ(d.composite->getSceneIdent(), d.scenes.ident("Pit"));
}

TEST(KpcDisplayScene, AcceptsScenesOfSomeTypes)
{
    const Display d;
    d.composite->setSceneDimension(KugESceneTypeFlags{KugESceneType::SCENE_2D});
    EXPECT_EQ(d.scene->getFilter(), KsoSceneFilter(MbdEIo::INPUT, KugESceneTypeFlags{KugESceneType::SCENE_2D}));
    d.composite->setScene(d.scenes.ident("Pit"));
    EXPECT_TRUE(d.composite->getSceneIdent().isNull());
    d.composite->setScene(d.scenes.ident("Map"));
    EXPECT_EQ(d.composite->getSceneIdent(), d.scenes.ident("Map"));
}

TEST(KpcDisplayScene, ChangesTheQuestion)
{
    const Display d;
    d.composite->setDisplayLabel("Show it in");
    EXPECT_EQ(d.display->getLabel(), "Show it in");
    d.composite->setDisplayVolatile(true);
    EXPECT_TRUE(d.display->isVolatile());
    EXPECT_FALSE(d.scene->isVolatile());
    d.composite->setDisplayVolatile(false);
    EXPECT_FALSE(d.display->isVolatile());
}

TEST(KpcDisplayScene, PrintsWhereItDisplays)
{
    const Display d;
    d.composite->setScene(d.scenes.ident("Pit"));
    EXPECT_EQ(d.composite->toString(), "Do not display");
    d.composite->setActive(true);
    EXPECT_EQ(d.composite->toString(), "Display in scene \"Pit\"");
    const BracketTranslator translator;
    EXPECT_EQ(d.composite->toString(), "Display in scene \"Pit\"");
    d.composite->setActive(false);
    EXPECT_EQ(d.composite->toString(), "Do not display");
}

TEST(KpcDisplayScene, TellsOfTheQuestionAndOfTheSceneInOneRecord)
{
    const Display d;
    RecordingObserver observer(*d.composite);
    d.composite->setActive(true);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*d.display), int(Kp::NotifyValue));
    EXPECT_EQ(observer.flagsOf(*d.scene), int(Kp::NotifyConfig));
}

TEST(KpcDisplayScene, IsStoredAsItsParts)
{
    const Display d;
    d.composite->setActive(true);
    d.composite->setScene(d.scenes.ident("Pit"));
    const QString form = SerializerTest::writtenParam(*d.composite);
    const Display read;
    SerializerTest::read(*read.composite, form);
    EXPECT_TRUE(read.composite->isActive());
    EXPECT_EQ(read.composite->getSceneIdent().getName(), "Pit");
    EXPECT_TRUE(read.scene->getEnabledFlag());
}

TEST(KpcDisplayScene, CopiesItsPartsButNotThatItIsDisplayedAtOnce)
{
    const Display d;
    d.composite->setDisplayOneShot(true);
    d.composite->setScene(d.scenes.ident("Pit"));
    const std::unique_ptr<KpcDisplayScene> copy(d.composite->duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_FALSE(copy->isDisplayOneShot());
    EXPECT_EQ(copy->getSceneIdent(), d.scenes.ident("Pit"));
    EXPECT_TRUE(copy->getSceneParameter()->getEnabledFlag()); // a copy runs no rule
    copy->setActive(true);
    copy->setActive(false);
    EXPECT_FALSE(copy->getSceneParameter()->getEnabledFlag());
    EXPECT_TRUE(d.scene->getEnabledFlag());
    EXPECT_EQ(std::unique_ptr<KpcDisplayScene>(d.composite->duplicate(QString()))->getKey(), "D");
}

TEST(KpcDisplayScene, SurvivesThatItIsDestroyedByAnObserver)
{
    for (const char* key : {"DISPLAY", "SCENE", ""}) {
        Display d;
        const KpbAParameter& observed = *key ? *d.composite->getChild(key) : *d.composite;
        ActingObserver observer(observed, [&] { d.composite.reset(); });
        d.composite->setActive(true);
        EXPECT_FALSE(d.composite) << key;
    }
}
