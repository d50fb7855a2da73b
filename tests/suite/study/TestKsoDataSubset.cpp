#include <study/KsoDataSubset.h>

#include <support/SampledProject.h>

#include <gtest/gtest.h>

namespace {

KsoDataSubset subset(const KsoDataIdentifier& variable, const QList<short>& categories = {}, bool inverted = false)
{
    KsoDataSubset subset(inverted);
    subset.setSelectionVar(variable);
    subset.setCategories(categories);
    return subset;
}

TEST(KsoDataSubset, IsInvertedWhenItsHeadBooleansDiffer)
{
    KsoDataSubset plain;
    KsoDataSubset inverted(true);

    EXPECT_FALSE(plain.isInverted());
    EXPECT_TRUE(inverted.isInverted());
    plain.complement();
    inverted.complement();
    EXPECT_TRUE(plain.isInverted());
    EXPECT_FALSE(inverted.isInverted());
}

TEST(KsoDataSubset, IsDefinedByAVariableThatExistsOrByIntervals)
{
    const SampledProject project;
    MbiAIntervalIntDisjoint intervals;
    intervals.add(0, 3);
    KsoDataSubset ofIntervals;
    ofIntervals.setIntervals(intervals);

    EXPECT_FALSE(KsoDataSubset().isDefined());
    EXPECT_FALSE(subset(project.variable("gone")).isDefined());
    EXPECT_TRUE(subset(project.variable("Ore")).isDefined());
    EXPECT_TRUE(ofIntervals.isDefined());
}

TEST(KsoDataSubset, OutlivesItsProject)
{
    auto project = std::make_unique<SampledProject>();
    const KsoDataSubset ore = subset(project->variable("Ore"));
    EXPECT_EQ(ore.getSelectionVar(), project->item("Ore"));
    project.reset();

    EXPECT_EQ(ore.getSelectionVar(), nullptr);
    EXPECT_FALSE(ore.isDefined());
}

TEST(KsoDataSubset, EqualsThoseThatTellTheSameSamples)
{
    const SampledProject project;
    const KsoDataSubset rock = subset(project.variable("Rock"), {1, 2});
    KsoDataSubset twiceInverted = subset(project.variable("Rock"), {1, 2}, true);
    twiceInverted.complement();
    KsoDataSubset counted = rock;
    counted.setCounted(true);
    counted.setSelectedSampleCount(4);
    MbiAIntervalIntDisjoint intervals;
    intervals.add(0, 3);
    KsoDataSubset restricted = rock;
    restricted.setIntervals(intervals);

    EXPECT_TRUE(rock == subset(project.variable("Rock"), {2, 1}));
    EXPECT_TRUE(rock == subset(project.variable("Rock"), {2, 1, 1}));
    EXPECT_TRUE(rock == twiceInverted);
    EXPECT_TRUE(rock == counted);
    EXPECT_TRUE(rock != subset(project.variable("Rock"), {1}));
    EXPECT_TRUE(rock != subset(project.variable("Ore"), {1, 2}));
    EXPECT_TRUE(rock != subset(project.variable("Rock"), {1, 2}, true));
    EXPECT_TRUE(rock != restricted);
}

TEST(KsoDataSubset, ForgetsItsCountWhenItChanges)
{
    const SampledProject project;
    const auto countAfter = [](auto change) {
        KsoDataSubset subset;
        subset.setSelectedSampleCount(4);
        change(subset);
        return subset.getSelectedSampleCount();
    };

    EXPECT_EQ(countAfter([](KsoDataSubset&) {}), 4);
    EXPECT_EQ(countAfter([](KsoDataSubset& s) { s.complement(); }), 0);
    EXPECT_EQ(countAfter([](KsoDataSubset& s) { s.setCounted(true); }), 0);
    EXPECT_EQ(countAfter([](KsoDataSubset& s) { s.setCategories({1}); }), 0);
    EXPECT_EQ(countAfter([](KsoDataSubset& s) { s.setIntervals({}); }), 0);
    EXPECT_EQ(countAfter([&](KsoDataSubset& s) { s.setSelectionVar(project.variable("Ore")); }), 0);
}

TEST(KsoDataSubset, TellsItselfBelowARoot)
{
    const SampledProject project;
    const KsoDataIdentifier root = project.support();

    EXPECT_EQ(KsoDataSubset().toString(root), "");
    EXPECT_EQ(subset(project.variable("Ore")).toString(root), "Ore");
    EXPECT_EQ(subset(project.variable("Ore")).toString(KsoDataIdentifier()), "holes/assays/Ore");
    EXPECT_EQ(subset(project.variable("Ore"), {}, true).toString(root), "not Ore");
    EXPECT_EQ(subset(project.variable("Rock"), {5, 1, MbbGlobal::I16_FFFF, 77}).toString(root),
              "Rock (Marl, Sand, undefined, 77)");
    EXPECT_EQ(subset(project.variable("Rock"), {2}, true).toString(root), "not Rock (Clay)");
    EXPECT_EQ(subset(project.variable("gone"), {2}).toString(root), "gone");
}

} // namespace
