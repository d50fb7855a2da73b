#include <basic/MbeError.h>
#include <study/KssDoubleListRegistry.h>

#include <gtest/gtest.h>

namespace {

class KssDoubleListRegistryTest : public testing::Test
{
protected:
    void TearDown() override
    {
        for (const KssEDoubleListType* type : KssEDoubleListType::items()) {
            for (const QString& name : registry->getNames(*type))
                registry->removeList(*type, name);
        }
    }

    KssDoubleListRegistry* registry = KssDoubleListRegistry::getInstance();
};

TEST_F(KssDoubleListRegistryTest, IsOneForTheProcess)
{
    EXPECT_NE(registry, nullptr);
    EXPECT_EQ(KssDoubleListRegistry::getInstance(), registry);
}

TEST_F(KssDoubleListRegistryTest, GivesAnInvalidInfoForAnUnknownName)
{
    const KssDoubleListInfo info = registry->getInfo(KssEDoubleListType::CUTOFFS, "copper");

    EXPECT_FALSE(info.isValid());
    EXPECT_EQ(info.getUnitClass(), MbuEUnitClass::NONE);
    EXPECT_EQ(info.getList(), QList<double>());
}

TEST_F(KssDoubleListRegistryTest, KeepsListsByPartAndName)
{
    registry->setList(KssEDoubleListType::CUTOFFS, "copper", MbuEUnitClass::CONCENTRATION, {0.3, 0.5});
    registry->setList(KssEDoubleListType::ISOLINES, "copper", MbuEUnitClass::LENGTH, {10});
    registry->setList(KssEDoubleListType::CUTOFFS, "a", MbuEUnitClass::NONE, {});

    const KssDoubleListInfo info = registry->getInfo(KssEDoubleListType::CUTOFFS, "copper");
    EXPECT_TRUE(info.isValid());
    EXPECT_EQ(info.getUnitClass(), MbuEUnitClass::CONCENTRATION);
    EXPECT_EQ(info.getList(), QList<double>({0.3, 0.5}));
    EXPECT_TRUE(registry->getInfo(KssEDoubleListType::CUTOFFS, "a").isValid());
    EXPECT_FALSE(registry->getInfo(KssEDoubleListType::QUANTILES, "copper").isValid());
    EXPECT_EQ(registry->getNames(KssEDoubleListType::CUTOFFS), QStringList({"a", "copper"}));
}

TEST_F(KssDoubleListRegistryTest, ReplacesAndRemovesLists)
{
    registry->setList(KssEDoubleListType::CUTOFFS, "copper", MbuEUnitClass::NONE, {1});
    registry->setList(KssEDoubleListType::CUTOFFS, "copper", MbuEUnitClass::NONE, {2});
    EXPECT_EQ(registry->getInfo(KssEDoubleListType::CUTOFFS, "copper").getList(), QList<double>({2}));

    registry->removeList(KssEDoubleListType::CUTOFFS, "gold");
    registry->removeList(KssEDoubleListType::CUTOFFS, "copper");
    EXPECT_FALSE(registry->getInfo(KssEDoubleListType::CUTOFFS, "copper").isValid());
}

TEST_F(KssDoubleListRegistryTest, RefusesAnEmptyName)
{
    EXPECT_THROW(registry->setList(KssEDoubleListType::CUTOFFS, "", MbuEUnitClass::NONE, {1}), MbeProgrammingError);
}

TEST_F(KssDoubleListRegistryTest, HasThreeParts)
{
    EXPECT_EQ(KssEDoubleListType().getValue(), 0);
    EXPECT_EQ(KssEDoubleListType(), KssEDoubleListType::CUTOFFS);
    EXPECT_EQ(KssEDoubleListType::count(), 3);
}

} // namespace
