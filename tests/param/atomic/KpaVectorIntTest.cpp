#include <param/atomic/KpaVectorInt.h>
#include <support/ObservedAtomic.h>

#include <gtest/gtest.h>

TEST(KpaVectorInt, IsOfTheKindIntegerVector)
{
    EXPECT_EQ(KpaVectorInt("KEY").getType(), KpbEType::VECTOR_INT);
    EXPECT_EQ(KpaVectorIntConfig().getType(), KpbEType::VECTOR_INT);
}

TEST(KpaVectorInt, IsAlwaysDefined)
{
    KpaVectorInt parameter("KEY");
    EXPECT_TRUE(parameter.isDefined());
    parameter.setComponentValue(1, MbbGlobal::I32_FFFF);
    EXPECT_EQ(parameter.getV2(), 0);
    EXPECT_TRUE(parameter.isDefined());
}

TEST(KpaVectorInt, KeepsAComponentWhoseTextIsNoInteger)
{
    KpaVectorInt parameter("KEY");
    parameter.unserialize({{"v1", "4"}, {"v2", "2.5"}, {"v3", "99999999999"}});
    EXPECT_EQ(parameter.toString(), "[4,0,0]");
}

TEST(KpaVectorInt, DebugsItsConfig)
{
    KpaVectorInt parameter("KEY");
    parameter.setComponentLabels("U", "V", "W");
    parameter.setDimension(Kp::VectorDim2, 7);
    parameter.setLinkMode(Kp::LinkHorizontal);
    parameter.setComponentMinimums(1, 2, 3);
    parameter.setComponentMaximums(10, 20, 30);
    parameter.setComponentStep(5);
    EXPECT_EQ(parameter.getConfig().debug(), "----- KpaAVectorConfig ------\n"
                                             " nb dimensions    = 2\n"
                                             " fill value       = 7\n"
                                             " link mode        = LINK HORIZONTAL\n"
                                             " label 1          = U\n"
                                             " label 2          = V\n"
                                             " label 3          = W\n"
                                             "----- KpaIntegerConfig -------\n"
                                             " step             = 5\n"
                                             " minimum          = 10\n" // the lines of the limits are swapped
                                             " maximum          = 1\n"
                                             " wrapped          = no\n"
                                             " undefineEnabled  = no\n"
                                             "----- KpaIntegerConfig -------\n"
                                             " step             = 5\n"
                                             " minimum          = 20\n"
                                             " maximum          = 2\n"
                                             " wrapped          = no\n"
                                             " undefineEnabled  = no\n"
                                             "----- KpaIntegerConfig -------\n"
                                             " step             = 5\n"
                                             " minimum          = 30\n"
                                             " maximum          = 3\n"
                                             " wrapped          = no\n"
                                             " undefineEnabled  = no\n");
    EXPECT_TRUE(parameter.debug(1).endsWith(parameter.getConfig().debug()));
}
