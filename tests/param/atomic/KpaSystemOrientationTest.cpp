#include <param/atomic/KpaSystemOrientation.h>
#include <param/atomic/KpaSystemOrientationConfigDelegate.h>
#include <param/atomic/OrientationFixture.h>

#include <memory>

#include <gtest/gtest.h>

using Geometry::degrees;
using Geometry::rotation;

namespace {
using Flags = QList<int>;
using SerialForm = KpbAParameter::SerialForm;

constexpr double Undefined = MbbGlobal::D_FFFF;

SerialForm stored(const QString& dip, const QString& dipAzimuth, const QString& pitch)
{
    return {{"dip", dip}, {"dipAzimuth", dipAzimuth}, {"pitch", pitch}};
}

class KpaSystemOrientationTest : public OrientationFixture<KpaSystemOrientation>
{};
} // namespace

TEST_F(KpaSystemOrientationTest, IsOfTheKindSystemOrientation)
{
    EXPECT_EQ(parameter.getType(), KpbEType::SYSTEM_ORIENTATION);
    EXPECT_EQ(parameter.getConfig().getType(), KpbEType::SYSTEM_ORIENTATION);
    EXPECT_EQ(KpaSystemOrientationConfigDelegate().getType(), KpbEType::SYSTEM_ORIENTATION);
}

TEST_F(KpaSystemOrientationTest, StartsAsNoRotation)
{
    EXPECT_EQ(parameter.getValue(), MbgRotation());
    EXPECT_EQ(parameter.serialize(), stored("0", "90", "90"));
}

TEST_F(KpaSystemOrientationTest, SetsTheRotationOfASystem)
{
    const auto set = [](KpaSystemOrientation& p) { p.setOrientation(degrees(30), degrees(90), degrees(90)); };
    EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), rotation(0, 30, 0));
    EXPECT_EQ(observed.flagsOf(set), Flags());
    parameter.setOrientation(degrees(90), degrees(0), degrees(180));
    EXPECT_EQ(parameter.getValue(), rotation(0, 0, -90));
}

TEST_F(KpaSystemOrientationTest, SetsTheAutomaticRotationOfASystem)
{
    EXPECT_EQ(
        observed.flagsOf([](KpaSystemOrientation& p) { p.setAutoOrientation(degrees(30), degrees(90), degrees(90)); }),
        Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getAutoValue(), rotation(0, 30, 0));
    EXPECT_EQ(parameter.getValue(), MbgRotation());
    parameter.activateAutoValue();
    EXPECT_EQ(parameter.getValue(), rotation(0, 30, 0));
}

TEST_F(KpaSystemOrientationTest, KeepsItsThreeAnglesIn2D)
{
    parameter.setValue(rotation(60, 20, 10));
    EXPECT_EQ(observed.flagsOf([](KpaSystemOrientation& p) { p.setDimension(MbgEDimension::DIM_2D, 0); }),
              Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getValue(), rotation(60, 20, 10));
}

TEST_F(KpaSystemOrientationTest, ShowsDipDipAzimuthAndPitch)
{
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("Dip=0° Dip azimuth=90° Pitch=90°"));
    parameter.setOrientation(degrees(30), degrees(200), degrees(45));
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("Dip=30° Dip azimuth=200° Pitch=45°"));
}

TEST_F(KpaSystemOrientationTest, ShowsTheAzimuthIn2D)
{
    make2D();
    parameter.setValue(rotation(60, 20, 0));
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("Azimuth=30°"));
}

TEST_F(KpaSystemOrientationTest, StoresDipDipAzimuthAndPitch)
{
    parameter.setOrientation(degrees(30), degrees(200), degrees(45.5));
    EXPECT_EQ(parameter.serialize(), stored("30", "200", "45.5"));
}

TEST_F(KpaSystemOrientationTest, StoresTheAzimuthAsPitchOfTheHorizontalPlaneIn2D)
{
    make2D();
    parameter.setValue(rotation(60, 20, 10));
    EXPECT_EQ(parameter.serialize(), stored("0", "90", "30"));
    EXPECT_EQ(read(parameter.serialize()), rotation(60, 0, 0));
}

TEST_F(KpaSystemOrientationTest, StoresSixSignificantDigits)
{
    parameter.setOrientation(degrees(12.3456789), degrees(123.456789), degrees(0.123456789));
    EXPECT_EQ(parameter.serialize(), stored("12.3457", "123.457", "0.123457"));
    make2D();
    parameter.setValue(rotation(90 - 1.0 / 3, 0, 0));
    EXPECT_EQ(parameter.serialize(), stored("0", "90", "0.333333"));
}

TEST_F(KpaSystemOrientationTest, LosesPrecisionOnBeingStored)
{
    parameter.setOrientation(degrees(12.3456789), degrees(90), degrees(90));
    EXPECT_EQ(parameter.getValue(), rotation(0, 12.3456789, 0));
    parameter.unserialize(parameter.serialize());
    EXPECT_EQ(parameter.getValue(), rotation(0, 12.3457, 0));
}

TEST_F(KpaSystemOrientationTest, ShowsAndStoresAnUndefinedSystem)
{
    parameter.setOrientation(degrees(30), degrees(200), degrees(Undefined));
    EXPECT_EQ(parameter.getValue(), rotation(Undefined, Undefined, Undefined));
    EXPECT_EQ(parameter.toString(), "Dip=N/A Dip azimuth=N/A Pitch=N/A");
    EXPECT_EQ(parameter.serialize(), stored("", "", ""));
    make2D();
    EXPECT_EQ(parameter.toString(), "Azimuth=N/A");
    EXPECT_EQ(parameter.serialize(), stored("0", "90", ""));
}

TEST_F(KpaSystemOrientationTest, ReadsDipDipAzimuthAndPitch)
{
    const auto readIt = [](KpaSystemOrientation& p) { p.unserialize(stored("30", "90", "90")); };
    EXPECT_EQ(observed.flagsOf(readIt), Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), rotation(0, 30, 0));
    EXPECT_EQ(observed.flagsOf(readIt), Flags());
    make2D();
    EXPECT_EQ(read(stored("30", "90", "90")), rotation(0, 30, 0));
}

TEST_F(KpaSystemOrientationTest, ReadsPlainAnglesWhereTheStoredSystemIsNotWhole)
{
    const SerialForm plain{{"conv_id", "1"}, {"conv_string", "90-Z+Y+X"}, {"a1", "10"}, {"a2", "20"}, {"a3", "30"}};
    EXPECT_EQ(read(plain), rotation(10, 20, 30, 1));
    EXPECT_EQ(read({{"az", "10"}, {"ay", "20"}, {"ax", "30"}}), rotation(10, 20, 30, 2));
    for (const char* text : {"", "x", "nan", "inf", "-inf", "1e999"}) {
        for (const char* key : {"dip", "dipAzimuth", "pitch"}) {
            SerialForm map = plain;
            for (const char* angle : {"dip", "dipAzimuth", "pitch"})
                map.insert(angle, "30");
            map.insert(key, text);
            EXPECT_EQ(read(map), rotation(10, 20, 30, 1)) << key << text;
            map.remove(key);
            EXPECT_EQ(read(map), rotation(10, 20, 30, 1)) << key;
        }
    }
}

TEST_F(KpaSystemOrientationTest, KeepsItsRotationWhereNothingCanBeRead)
{
    for (const SerialForm& map : {SerialForm(), stored("", "90", "90"), stored("30", "", "90"), stored("30", "90", ""),
                                  SerialForm{{"dip", "30"}, {"dipAzimuth", "90"}}})
    {
        parameter.setValue(rotation(1, 2, 3, 2));
        EXPECT_EQ(observed.flagsOf([&](KpaSystemOrientation& p) { p.unserialize(map); }), Flags());
        EXPECT_EQ(parameter.getValue(), rotation(1, 2, 3, 2));
    }
}

TEST_F(KpaSystemOrientationTest, ReadsHugeAngles)
{
    EXPECT_TRUE(read(stored("1e308", "-1e308", "1e308")).isDefined());
    EXPECT_NE(parameter.toString(), "");
}

TEST_F(KpaSystemOrientationTest, DuplicatesRotationAndDelegate)
{
    parameter.setOrientation(degrees(30), degrees(90), degrees(90));
    const std::unique_ptr<KpaSystemOrientation> copy(parameter.duplicate("COPY"));
    const std::unique_ptr<KpaSystemOrientation> sameKey(parameter.duplicate(""));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getType(), KpbEType::SYSTEM_ORIENTATION);
    EXPECT_EQ(copy->serialize(), stored("30", "90", "90"));
    copy->setOrientation(degrees(31), degrees(0), degrees(0));
    EXPECT_EQ(parameter.getValue(), rotation(0, 30, 0));
    const std::unique_ptr<KpaIRotationConfigDelegate> delegate(KpaSystemOrientationConfigDelegate().duplicate());
    EXPECT_NE(dynamic_cast<KpaSystemOrientationConfigDelegate*>(delegate.get()), nullptr);
}
