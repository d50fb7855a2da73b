#include <gtest/gtest.h>

#include <basic/MbbGlobal.h>
#include <basic/MbgRotationConventionDefault.h>
#include <geos/MgfObjectsFormatter.h>

namespace {
MbgAngle degrees(double value)
{
    return {value, MbgEAngleUnit::DEGREE};
}

const MbgRotation tilted =
    MbgRotationConventionDefault::systemOrientationToRotation(degrees(30), degrees(45.5), degrees(100));
} // namespace

TEST(MgfObjectsFormatter, WritesASystemOfAxes)
{
    EXPECT_EQ(MgfObjectsFormatter::systemOrientation(tilted, false, false), "Dip=30° Dip azimuth=45.5° Pitch=100°");
    EXPECT_EQ(MgfObjectsFormatter::systemOrientation(MbgRotation(), false, false), "Dip=0° Dip azimuth=90° Pitch=90°");
}

TEST(MgfObjectsFormatter, WritesTheAzimuthOfUIn2D)
{
    const MbgRotation flat(degrees(60), MbgAngle(), MbgAngle());
    EXPECT_EQ(MgfObjectsFormatter::systemOrientation(flat, true, false), "Azimuth=30°");
}

TEST(MgfObjectsFormatter, WritesRichText)
{
    EXPECT_EQ(MgfObjectsFormatter::systemOrientation(tilted, false, true),
              "<nobr>Dip=30° Dip azimuth=45.5° Pitch=100°</nobr>");
}

TEST(MgfObjectsFormatter, SaysWhatIsMissing)
{
    const MbgRotation undefined(degrees(MbbGlobal::D_FFFF), MbgAngle(), MbgAngle());
    EXPECT_EQ(MgfObjectsFormatter::systemOrientation(undefined, false, false), "Dip=N/A Dip azimuth=N/A Pitch=N/A");
    EXPECT_EQ(MgfObjectsFormatter::systemOrientation(undefined, true, false), "Azimuth=N/A");
}
