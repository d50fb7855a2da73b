#include <util/KugESceneTypeFlags.h>
#include <util/KugScene.h>

#include <gtest/gtest.h>

TEST(KugESceneType, HasFixedValuesAndKeys)
{
    EXPECT_EQ(KugESceneType::count(), 2);
    EXPECT_EQ(KugESceneType::fromValue(0).getKey(), "SCENE_2D");
    EXPECT_EQ(KugESceneType::fromValue(1).getKey(), "SCENE_3D");
    EXPECT_EQ(KugESceneType(), KugESceneType::SCENE_3D);
}

TEST(KugESceneTypeFlags, HoldsTheTypesOfItsList)
{
    EXPECT_EQ(KugESceneTypeFlags::ANY.getValues(), QList<int>({0, 1}));
    EXPECT_EQ(KugESceneTypeFlags({KugESceneType::SCENE_2D}).getValues(), QList<int>({0}));
    EXPECT_TRUE(KugESceneTypeFlags().isEmpty());
}

TEST(KugScene, HasTheDimensionOfItsType)
{
    EXPECT_EQ(KugScene().getDimension(), MbgEDimension::DIM_3D);
    EXPECT_EQ(KugScene(KugESceneType::SCENE_2D).getDimension(), MbgEDimension::DIM_2D);
}

TEST(KugScene, ComparesTypeAndBackground)
{
    KugScene scene;
    EXPECT_EQ(scene.getBackground(), MbbColor(0xFFFFFFFF));
    scene.setBackground(MbbColor(1));
    EXPECT_NE(scene, KugScene());
    EXPECT_NE(KugScene(KugESceneType::SCENE_2D), KugScene());
    scene.setBackground(MbbColor(0xFFFFFFFF));
    EXPECT_EQ(scene, KugScene());
}
