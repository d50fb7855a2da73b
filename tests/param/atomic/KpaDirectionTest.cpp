#include <param/atomic/KpaDirection.h>
#include <param/atomic/KpaDirectionConfigDelegate.h>
#include <param/atomic/OrientationFixture.h>

#include <memory>

#include <gtest/gtest.h>

using Geometry::degrees;
using Geometry::rotation;

namespace {
using Flags = QList<int>;
using SerialForm = KpbAParameter::SerialForm;

constexpr double Undefined = MbbGlobal::D_FFFF;

SerialForm stored(const QString& azimuth, const QString& plunge)
{
    return {{"azimuth", azimuth}, {"plunge", plunge}};
}

class KpaDirectionTest : public OrientationFixture<KpaDirection>
{};
} // namespace

TEST_F(KpaDirectionTest, IsOfTheKindDirection)
{
    EXPECT_EQ(parameter.getType(), KpbEType::DIRECTION);
    EXPECT_EQ(parameter.getConfig().getType(), KpbEType::DIRECTION);
    EXPECT_EQ(KpaDirectionConfigDelegate().getType(), KpbEType::DIRECTION);
}

TEST_F(KpaDirectionTest, StartsAsNoRotationAndPointsEast)
{
    EXPECT_EQ(parameter.getValue(), MbgRotation());
    EXPECT_EQ(parameter.getAzimuth(), degrees(90));
    EXPECT_EQ(parameter.getPlunge(), degrees(0));
}

TEST_F(KpaDirectionTest, SetsTheRotationOfADirection)
{
    EXPECT_EQ(observed.flagsOf([](KpaDirection& p) { p.setDirection(degrees(30), degrees(20)); }),
              Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), rotation(60, 20, 0));
    EXPECT_EQ(parameter.getAzimuth(), degrees(30));
    EXPECT_EQ(parameter.getPlunge(), degrees(20));
    EXPECT_EQ(observed.flagsOf([](KpaDirection& p) { p.setDirection(degrees(30), degrees(20)); }), Flags());
}

TEST_F(KpaDirectionTest, SetsTheAutomaticRotationOfADirection)
{
    EXPECT_EQ(observed.flagsOf([](KpaDirection& p) { p.setAutoDirection(degrees(30), degrees(20)); }),
              Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getAutoValue(), rotation(60, 20, 0));
    EXPECT_EQ(parameter.getValue(), MbgRotation());
    parameter.activateAutoValue();
    EXPECT_EQ(parameter.getValue(), rotation(60, 20, 0));
    parameter.setAutoDirection(degrees(90), degrees(0));
    EXPECT_EQ(parameter.getValue(), MbgRotation());
    EXPECT_TRUE(parameter.isAutomatic());
}

TEST_F(KpaDirectionTest, ReadsTheDirectionWhateverTheConvention)
{
    parameter.setValue(rotation(30, 20, 10, 1));
    EXPECT_EQ(parameter.getAzimuth(), degrees(30));
    EXPECT_EQ(parameter.getPlunge(), degrees(20));
}

TEST_F(KpaDirectionTest, KeepsItsThreeAnglesIn2D)
{
    parameter.setValue(rotation(60, 20, 10));
    EXPECT_EQ(observed.flagsOf([](KpaDirection& p) { p.setDimension(MbgEDimension::DIM_2D, 1); }),
              Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getValue(), rotation(60, 20, 10));
    parameter.setAngle3Degree(77);
    EXPECT_EQ(parameter.getValue(), rotation(60, 20, 77));
    EXPECT_EQ(KpaDirectionConfigDelegate().fix(rotation(60, 20, 10, 2)), rotation(60, 20, 10, 2));
}

TEST_F(KpaDirectionTest, HasNoPlungeIn2D)
{
    make2D();
    parameter.setDirection(degrees(30), degrees(20));
    EXPECT_EQ(parameter.getAzimuth(), degrees(30));
    EXPECT_EQ(parameter.getPlunge(), degrees(0));
    EXPECT_EQ(parameter.getValue(), rotation(60, 20, 0));
}

TEST_F(KpaDirectionTest, ShowsAzimuthAndPlunge)
{
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("Azimuth=90° Plunge=0°"));
    parameter.setDirection(degrees(30), degrees(20));
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("Azimuth=30° Plunge=20°"));
    make2D();
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("Azimuth=30°"));
}

TEST_F(KpaDirectionTest, ShowsAnUndefinedDirection)
{
    parameter.setDirection(degrees(Undefined), degrees(20));
    EXPECT_EQ(parameter.getValue(), rotation(Undefined, Undefined, Undefined));
    EXPECT_FALSE(parameter.getAzimuth().isDefined());
    EXPECT_FALSE(parameter.getPlunge().isDefined());
    EXPECT_EQ(parameter.toString(), "Azimuth=N/A Plunge=N/A");
}

TEST_F(KpaDirectionTest, StoresAzimuthAndPlungeInDegrees)
{
    parameter.setDirection(degrees(30), degrees(-20.5));
    EXPECT_EQ(parameter.serialize(), stored("30", "-20.5"));
}

TEST_F(KpaDirectionTest, StoresAPlungeOfZeroIn2D)
{
    make2D();
    parameter.setDirection(degrees(30), degrees(20));
    EXPECT_EQ(parameter.serialize(), stored("30", "0"));
}

TEST_F(KpaDirectionTest, StoresTheShortestTextThatReadsBackExactly)
{
    parameter.setDirection(degrees(0.1), degrees(1.0 / 3));
    EXPECT_EQ(parameter.serialize(), stored("0.1", "0.3333333333333333"));
}

TEST_F(KpaDirectionTest, StoresAnUndefinedDirectionAsEmptyTexts)
{
    parameter.setDirection(degrees(Undefined), degrees(20));
    EXPECT_EQ(parameter.serialize(), stored("", ""));
}

TEST_F(KpaDirectionTest, ReadsAzimuthAndPlunge)
{
    EXPECT_EQ(observed.flagsOf([](KpaDirection& p) { p.unserialize(stored("30", "20")); }), Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), rotation(60, 20, 0));
    EXPECT_EQ(observed.flagsOf([](KpaDirection& p) { p.unserialize(stored("30", "20")); }), Flags());
}

TEST_F(KpaDirectionTest, ReadsTheAzimuthAloneIn2D)
{
    make2D();
    EXPECT_EQ(read(stored("30", "20")), rotation(60, 0, 0));
    EXPECT_EQ(read(stored("30", "nan")), rotation(60, 0, 0));
    EXPECT_EQ(read({{"azimuth", "30"}}), rotation(60, 0, 0));
}

TEST_F(KpaDirectionTest, ReadsPlainAnglesWhereNoDirectionIsStored)
{
    const SerialForm plain{{"conv_id", "1"}, {"conv_string", "90-Z+Y+X"}, {"a1", "10"}, {"a2", "20"}, {"a3", "30"}};
    EXPECT_EQ(read(plain), rotation(10, 20, 30, 1));
    EXPECT_EQ(read({{"az", "10"}, {"ay", "20"}, {"ax", "30"}}), rotation(10, 20, 30, 2));
    make2D();
    EXPECT_EQ(read(plain), rotation(10, 20, 30, 1));
}

TEST_F(KpaDirectionTest, ReadsPlainAnglesWhereTheStoredDirectionIsNotWhole)
{
    const SerialForm plain{{"conv_id", "0"}, {"conv_string", "+Z+Y+X"}, {"a1", "10"}, {"a2", "20"}, {"a3", "30"}};
    const auto both = [&](const SerialForm& direction) {
        SerialForm map = plain;
        for (const auto& entry : direction)
            map.insert(entry.key, entry.value);
        return map;
    };
    for (const char* text : {"", "x", "nan", "inf", "-inf", "1e999"}) {
        EXPECT_EQ(read(both(stored(text, "20"))), rotation(10, 20, 30)) << text;
        EXPECT_EQ(read(both(stored("30", text))), rotation(10, 20, 30)) << text;
    }
    EXPECT_EQ(read(both({{"azimuth", "30"}})), rotation(10, 20, 30));
    EXPECT_EQ(read(both({{"plunge", "30"}})), rotation(10, 20, 30));
    make2D();
    EXPECT_EQ(read(both(stored("", "20"))), rotation(10, 20, 30));
}

TEST_F(KpaDirectionTest, KeepsItsRotationWhereNothingCanBeRead)
{
    for (const SerialForm& map : {SerialForm(), stored("", ""), stored("", "20"), stored("30", ""),
                                  stored("nan", "inf"), SerialForm{{"azimuth", "30"}}})
    {
        parameter.setValue(rotation(1, 2, 3, 2));
        EXPECT_EQ(observed.flagsOf([&](KpaDirection& p) { p.unserialize(map); }), Flags());
        EXPECT_EQ(parameter.getValue(), rotation(1, 2, 3, 2));
    }
}

TEST_F(KpaDirectionTest, HandsMapAndPreviousRotationToTheFallback)
{
    const SerialForm map = stored("", "20");
    const MbgRotation read = KpaDirectionConfigDelegate().unserializeValue(
        false, map, rotation(1, 2, 3), [&](const SerialForm& given, const MbgRotation& previous) {
            EXPECT_EQ(given, map);
            EXPECT_EQ(previous, rotation(1, 2, 3));
            return rotation(4, 5, 6);
        });
    EXPECT_EQ(read, rotation(4, 5, 6));
}

TEST_F(KpaDirectionTest, ReadsHugeAngles)
{
    EXPECT_TRUE(read(stored("1e308", "-1e308")).isDefined());
    EXPECT_NE(parameter.toString(), "");
    EXPECT_TRUE(read(stored("-1e22", "1e22")).isDefined());
}

TEST_F(KpaDirectionTest, DuplicatesRotationAndDelegate)
{
    parameter.setDirection(degrees(30), degrees(20));
    make2D();
    const std::unique_ptr<KpaDirection> copy(parameter.duplicate("COPY"));
    const std::unique_ptr<KpaDirection> sameKey(parameter.duplicate(""));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getType(), KpbEType::DIRECTION);
    EXPECT_EQ(copy->getValue(), rotation(60, 20, 0));
    EXPECT_EQ(copy->serialize(), stored("30", "0"));
    copy->setDirection(degrees(31), degrees(0));
    EXPECT_EQ(parameter.getValue(), rotation(60, 20, 0));
    const std::unique_ptr<KpaIRotationConfigDelegate> delegate(KpaDirectionConfigDelegate().duplicate());
    EXPECT_NE(dynamic_cast<KpaDirectionConfigDelegate*>(delegate.get()), nullptr);
}
