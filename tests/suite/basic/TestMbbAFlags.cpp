#include <gtest/gtest.h>

#include <basic/MbbAFlags.h>
#include <basic/MbgEDimension.h>

namespace {
class Dimensions : public MbbAFlags
{};
} // namespace

TEST(MbbAFlags, IsEmptyWhenFresh)
{
    const Dimensions flags;
    EXPECT_TRUE(flags.isEmpty());
    EXPECT_EQ(flags.count(), 0);
    EXPECT_FALSE(flags.testFlag(MbgEDimension::DIM_1D));
}

TEST(MbbAFlags, HoldsWhatIsSetOnce)
{
    Dimensions flags;
    flags.setFlag(MbgEDimension::DIM_3D);
    flags.setFlag(MbgEDimension::DIM_1D);
    flags.setFlag(MbgEDimension::DIM_3D);
    EXPECT_TRUE(flags.testFlag(MbgEDimension::DIM_3D));
    EXPECT_FALSE(flags.testFlag(MbgEDimension::DIM_2D));
    EXPECT_EQ(flags.count(), 2);
}

TEST(MbbAFlags, GivesItsValuesAscending)
{
    Dimensions flags;
    for (const MbgEDimension* dimension : {&MbgEDimension::DIM_3D, &MbgEDimension::DIM_1D, &MbgEDimension::DIM_2D})
        flags.setFlag(*dimension);
    EXPECT_EQ(flags.getValues(), QList<int>({0, 1, 2}));
}

TEST(MbbAFlags, LosesWhatIsSwitchedOff)
{
    Dimensions flags;
    flags.setFlag(MbgEDimension::DIM_2D);
    flags.setFlag(MbgEDimension::DIM_1D, false);
    EXPECT_EQ(flags.count(), 1);
    flags.setFlag(MbgEDimension::DIM_2D, false);
    EXPECT_TRUE(flags.isEmpty());
}

TEST(MbbAFlags, IsEqualByContentWhateverTheOrder)
{
    Dimensions a;
    Dimensions b;
    a.setFlag(MbgEDimension::DIM_1D);
    a.setFlag(MbgEDimension::DIM_2D);
    b.setFlag(MbgEDimension::DIM_2D);
    EXPECT_NE(a, b);
    b.setFlag(MbgEDimension::DIM_1D);
    EXPECT_EQ(a, b);
}
