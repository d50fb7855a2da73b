#include <param/atomic/KpaPlaneOrientation.h>
#include <param/atomic/KpaPlaneOrientationConfigDelegate.h>
#include <param/atomic/OrientationFixture.h>

#include <memory>

#include <gtest/gtest.h>

using Geometry::degrees;
using Geometry::rotation;

namespace {
using Flags = QList<int>;
using SerialForm = KpbAParameter::SerialForm;

constexpr double Undefined = MbbGlobal::D_FFFF;

SerialForm stored(const QString& dip, const QString& dipAzimuth)
{
    return {{"dip", dip}, {"dipAzimuth", dipAzimuth}};
}

class KpaPlaneOrientationTest : public OrientationFixture<KpaPlaneOrientation>
{};
} // namespace

TEST_F(KpaPlaneOrientationTest, IsOfTheKindPlaneOrientation)
{
    EXPECT_EQ(parameter.getType(), KpbEType::PLANE_ORIENTATION);
    EXPECT_EQ(parameter.getConfig().getType(), KpbEType::PLANE_ORIENTATION);
    EXPECT_EQ(KpaPlaneOrientationConfigDelegate().getType(), KpbEType::PLANE_ORIENTATION);
}

TEST_F(KpaPlaneOrientationTest, StartsAsTheHorizontalPlane)
{
    EXPECT_EQ(parameter.getValue(), MbgRotation());
    EXPECT_EQ(parameter.getDip(), degrees(0));
    EXPECT_EQ(parameter.getDipAzimuth(), degrees(90));
}

TEST_F(KpaPlaneOrientationTest, SetsTheRotationOfAPlane)
{
    EXPECT_EQ(observed.flagsOf([](KpaPlaneOrientation& p) { p.setOrientation(degrees(30), degrees(200)); }),
              Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), rotation(-110, 30, 0));
    EXPECT_EQ(parameter.getDip(), degrees(30));
    EXPECT_EQ(parameter.getDipAzimuth(), degrees(200));
}

TEST_F(KpaPlaneOrientationTest, SetsTheAutomaticRotationOfAPlane)
{
    EXPECT_EQ(observed.flagsOf([](KpaPlaneOrientation& p) { p.setAutoOrientation(degrees(30), degrees(200)); }),
              Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getAutoValue(), rotation(-110, 30, 0));
    EXPECT_EQ(parameter.getValue(), MbgRotation());
    parameter.activateAutoValue();
    EXPECT_EQ(parameter.getValue(), rotation(-110, 30, 0));
}

TEST_F(KpaPlaneOrientationTest, KeepsItsThreeAnglesIn2D)
{
    parameter.setValue(rotation(60, 20, 10));
    EXPECT_EQ(observed.flagsOf([](KpaPlaneOrientation& p) { p.setDimension(MbgEDimension::DIM_2D, 0); }),
              Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getValue(), rotation(60, 20, 10));
}

TEST_F(KpaPlaneOrientationTest, IsTheSameInAllDimensions)
{
    parameter.setOrientation(degrees(30), degrees(200));
    make2D();
    EXPECT_EQ(parameter.getDip(), degrees(30));
    EXPECT_EQ(parameter.getDipAzimuth(), degrees(200));
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("Dip=30° Dip azimuth=200°"));
    EXPECT_EQ(parameter.serialize(), stored("30", "200"));
    EXPECT_EQ(read(stored("40", "90")), rotation(0, 40, 0));
}

TEST_F(KpaPlaneOrientationTest, ShowsDipAndDipAzimuth)
{
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("Dip=0° Dip azimuth=90°"));
    parameter.setOrientation(degrees(30), degrees(200));
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("Dip=30° Dip azimuth=200°"));
}

TEST_F(KpaPlaneOrientationTest, ShowsAndStoresAnUndefinedPlane)
{
    parameter.setOrientation(degrees(30), degrees(Undefined));
    EXPECT_EQ(parameter.getValue(), rotation(Undefined, Undefined, Undefined));
    EXPECT_EQ(parameter.toString(), "Dip=N/A Dip azimuth=N/A");
    EXPECT_EQ(parameter.serialize(), stored("", ""));
}

TEST_F(KpaPlaneOrientationTest, StoresTheShortestTextThatReadsBackExactly)
{
    parameter.setOrientation(degrees(1.0 / 3), degrees(0.1));
    EXPECT_EQ(parameter.serialize(), stored("0.3333333333333333", "0.1"));
}

TEST_F(KpaPlaneOrientationTest, ReadsDipAndDipAzimuth)
{
    EXPECT_EQ(observed.flagsOf([](KpaPlaneOrientation& p) { p.unserialize(stored("30", "200")); }),
              Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), rotation(-110, 30, 0));
    EXPECT_EQ(observed.flagsOf([](KpaPlaneOrientation& p) { p.unserialize(stored("30", "200")); }), Flags());
}

TEST_F(KpaPlaneOrientationTest, ReadsPlainAnglesWhereTheStoredPlaneIsNotWhole)
{
    const SerialForm plain{{"conv_id", "1"}, {"conv_string", "90-Z+Y+X"}, {"a1", "10"}, {"a2", "20"}, {"a3", "30"}};
    EXPECT_EQ(read(plain), rotation(10, 20, 30, 1));
    EXPECT_EQ(read({{"az", "10"}, {"ay", "20"}, {"ax", "30"}}), rotation(10, 20, 30, 2));
    for (const char* text : {"", "x", "nan", "inf", "-inf", "1e999"}) {
        for (const char* key : {"dip", "dipAzimuth"}) {
            SerialForm map = plain;
            map.insert("dip", "30");
            map.insert("dipAzimuth", "200");
            map.insert(key, text);
            EXPECT_EQ(read(map), rotation(10, 20, 30, 1)) << key << text;
        }
    }
}

TEST_F(KpaPlaneOrientationTest, KeepsItsRotationWhereNothingCanBeRead)
{
    for (const SerialForm& map : {SerialForm(), stored("", "200"), stored("30", ""), stored("nan", "inf"),
                                  SerialForm{{"dip", "30"}}, SerialForm{{"dipAzimuth", "200"}}})
    {
        parameter.setValue(rotation(1, 2, 3, 2));
        EXPECT_EQ(observed.flagsOf([&](KpaPlaneOrientation& p) { p.unserialize(map); }), Flags());
        EXPECT_EQ(parameter.getValue(), rotation(1, 2, 3, 2));
    }
}

TEST_F(KpaPlaneOrientationTest, ReadsHugeAngles)
{
    EXPECT_TRUE(read(stored("1e308", "-1e308")).isDefined());
    EXPECT_NE(parameter.toString(), "");
}

TEST_F(KpaPlaneOrientationTest, DuplicatesRotationAndDelegate)
{
    parameter.setOrientation(degrees(30), degrees(200));
    const std::unique_ptr<KpaPlaneOrientation> copy(parameter.duplicate("COPY"));
    const std::unique_ptr<KpaPlaneOrientation> sameKey(parameter.duplicate(""));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getType(), KpbEType::PLANE_ORIENTATION);
    EXPECT_EQ(copy->serialize(), stored("30", "200"));
    copy->setOrientation(degrees(31), degrees(0));
    EXPECT_EQ(parameter.getValue(), rotation(-110, 30, 0));
    const std::unique_ptr<KpaIRotationConfigDelegate> delegate(KpaPlaneOrientationConfigDelegate().duplicate());
    EXPECT_NE(dynamic_cast<KpaPlaneOrientationConfigDelegate*>(delegate.get()), nullptr);
}
