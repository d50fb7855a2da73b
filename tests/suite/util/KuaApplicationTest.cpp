#include <util/KuaApplication.h>

#include <gtest/gtest.h>

TEST(KuaApplication, RunsNoTestUnlessToldSo)
{
    EXPECT_FALSE(KuaApplication::isRunningTest());
    KuaApplication::setRunningTest(true);
    EXPECT_TRUE(KuaApplication::isRunningTest());
    KuaApplication::setRunningTest(false);
    EXPECT_FALSE(KuaApplication::isRunningTest());
}
