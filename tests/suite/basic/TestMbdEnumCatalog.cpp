#include <gtest/gtest.h>

#include <basic/MbdEnumCatalog.h>

#include <functional>
#include <vector>

TEST(MbdEnumCatalog, IsEmptyByDefault)
{
    const MbdEnumCatalog catalog;
    EXPECT_EQ(catalog.getId(), "");
    EXPECT_EQ(catalog.getName(), "");
    EXPECT_EQ(catalog.getUndefColor(), MbbColor(0xFFFFFFFF));
    EXPECT_TRUE(catalog.getCategories().isEmpty());
}

TEST(MbdEnumCatalog, GivesItsCategoriesByValue)
{
    MbdEnumCatalog catalog("42", "Rocks");
    catalog.setCategory(7, "Shale", MbbColor(0xFF111111));
    catalog.setCategory(-1, "Sand", MbbColor(0xFF222222));
    catalog.setCategory(3, "Clay", MbbColor(0xFF333333));
    EXPECT_EQ(catalog.getId(), "42");
    EXPECT_EQ(catalog.getName(), "Rocks");
    EXPECT_EQ(catalog.getCategories().keys(), QList<int>({-1, 3, 7}));
    EXPECT_EQ(catalog.getCategories().value(-1).label, "Sand");
    EXPECT_EQ(catalog.getCategories().value(-1).color, MbbColor(0xFF222222));
}

TEST(MbdEnumCatalog, ReplacesTheCategoryOfAValue)
{
    MbdEnumCatalog catalog;
    catalog.setCategory(1, "Sand", MbbColor(1));
    catalog.setCategory(1, "Clay", MbbColor(2));
    EXPECT_EQ(catalog.getCategories().size(), 1);
    EXPECT_EQ(catalog.getCategories().value(1).label, "Clay");
}

TEST(MbdEnumCatalog, LosesCategories)
{
    MbdEnumCatalog catalog;
    catalog.setCategory(1, "Sand", MbbColor(1));
    catalog.setCategory(2, "Clay", MbbColor(2));
    catalog.removeCategory(5);
    catalog.removeCategory(1);
    EXPECT_EQ(catalog.getCategories().keys(), QList<int>({2}));
    catalog.clearCategories();
    EXPECT_TRUE(catalog.getCategories().isEmpty());
}

TEST(MbdEnumCatalog, ComparesAllThatItHolds)
{
    MbdEnumCatalog original("id", "name");
    original.setCategory(1, "Sand", MbbColor(1));
    const std::vector<std::function<void(MbdEnumCatalog&)>> changes = {
        [](MbdEnumCatalog& c) { c.setId("other"); },
        [](MbdEnumCatalog& c) { c.setName("other"); },
        [](MbdEnumCatalog& c) { c.setUndefColor(MbbColor(9)); },
        [](MbdEnumCatalog& c) { c.setCategory(1, "other", MbbColor(1)); },
        [](MbdEnumCatalog& c) { c.setCategory(1, "Sand", MbbColor(9)); },
        [](MbdEnumCatalog& c) { c.setCategory(2, "Clay", MbbColor(1)); },
    };
    for (const auto& change : changes) {
        MbdEnumCatalog copy = original;
        EXPECT_EQ(copy, original);
        change(copy);
        EXPECT_NE(copy, original);
    }
}
