#include <basic/MbbUserStringFormats.h>
#include <basic/MbgRotationConventionCatalog.h>
#include <basic/MbuUnitService.h>
#include <param/atomic/KpaDirection.h>
#include <param/atomic/KpaDirectionConfigDelegate.h>
#include <param/atomic/KpaPlaneOrientation.h>
#include <param/atomic/KpaRotation.h>
#include <param/atomic/KpaSystemOrientation.h>
#include <suite/basic/Geometry.h>
#include <support/BracketTranslator.h>
#include <support/GarbageTexts.h>
#include <support/ObservedAtomic.h>
#include <support/RecordedMessages.h>

#include <limits>
#include <memory>
#include <numbers>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaRotationConfig, MbgRotation>);

using Geometry::rotation;

namespace {
using Flags = QList<int>;
using SerialForm = KpaRotationConfig::SerialForm;

constexpr double Undefined = MbbGlobal::D_FFFF;
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinite = std::numeric_limits<double>::infinity();

// The built-in conventions.
constexpr int Default = 0;   // "+Z+Y+X"
constexpr int Azimuthal = 1; // "90-Z+Y+X", of the type DIRECTION
constexpr int Euler = 2;     // "+Z+X+Z"

MbgRotationConvention* convention(int id)
{
    return MbgRotationConventionCatalog::find(id);
}

SerialForm stored(const QString& id, const QString& string, const QString& a1, const QString& a2, const QString& a3)
{
    return {{"conv_id", id}, {"conv_string", string}, {"a1", a1}, {"a2", a2}, {"a3", a3}};
}

SerialForm storedAngles(const QString& a1, const QString& a2, const QString& a3)
{
    return stored("0", "+Z+Y+X", a1, a2, a3);
}

SerialForm without(SerialForm map, const QString& key)
{
    map.remove(key);
    return map;
}

KpaRotationConfig config2D(double fillValue = 0)
{
    KpaRotationConfig config;
    config.setDimension(MbgEDimension::DIM_2D, fillValue);
    return config;
}

KpaRotationConfig configWithDelegate()
{
    return KpaRotationConfig(new KpaDirectionConfigDelegate);
}

/// Counts its living objects; presents nothing.
class CountedDelegate : public KpaIRotationConfigDelegate
{
public:
    CountedDelegate() { ++living; }
    CountedDelegate(const CountedDelegate& other) : KpaIRotationConfigDelegate(other) { ++living; }
    CountedDelegate& operator=(const CountedDelegate&) = delete;
    ~CountedDelegate() override { --living; }

    CountedDelegate* duplicate() const override { return new CountedDelegate(*this); }
    const KpbEType& getType() const override { return KpbEType::ROTATION; }
    QString toString(const MbgRotation&, bool is2D) const override { return is2D ? "2D" : "3D"; }
    SerialForm serializeValue(const MbgRotation&, bool is2D) const override { return {{"is2D", is2D ? "yes" : "no"}}; }
    MbgRotation unserializeValue(bool is2D, const SerialForm& map, const MbgRotation& previous,
                                 const Fallback& fallback) const override
    {
        return is2D ? rotation(2, 2, 2) : fallback(map, previous);
    }
    MbgRotation fix(const MbgRotation&) const override { return rotation(1, 1, 1); }

    static int living;
};
int CountedDelegate::living = 0;

/// Brings the user's formats back to the defaults.
class KpaRotationTest : public testing::Test
{
protected:
    ~KpaRotationTest() override { MbbUserStringFormats::reset(); }

    /// Reads `map` over `previous`.
    MbgRotation read(const SerialForm& map, const MbgRotation& previous = rotation(1, 2, 3))
    {
        parameter.setValue(previous);
        parameter.unserialize(map);
        return parameter.getValue();
    }

    ObservedAtomic<KpaRotation> observed;
    KpaRotation& parameter = observed.atomic;
};
} // namespace

TEST_F(KpaRotationTest, IsOfTheKindRotation)
{
    EXPECT_EQ(parameter.getType(), KpbEType::ROTATION);
    EXPECT_EQ(KpaRotationConfig().getType(), KpbEType::ROTATION);
}

TEST_F(KpaRotationTest, StartsAsNoRotationIn3D)
{
    EXPECT_EQ(parameter.getValue(), MbgRotation());
    EXPECT_EQ(parameter.getConvention(), convention(Default));
    EXPECT_EQ(parameter.getDimension(), MbgEDimension::DIM_3D);
    EXPECT_EQ(parameter.getFillValue(), 0);
    EXPECT_EQ(KpaRotationConfig().getInitialValue(), MbgRotation());
}

TEST_F(KpaRotationTest, GivesTheAnglesThatTheRotationHoldsInDegrees)
{
    parameter.setValue(rotation(10, 20, 30, Euler));
    EXPECT_EQ(parameter.getAngle1Degree(), 10);
    EXPECT_EQ(parameter.getAngle2Degree(), 20);
    EXPECT_EQ(parameter.getAngle3Degree(), 30);
    EXPECT_EQ(parameter.getAzDegree(), 10);
    EXPECT_EQ(parameter.getAyDegree(), 20);
    EXPECT_EQ(parameter.getAxDegree(), 30);
    EXPECT_EQ(parameter.getConvention(), convention(Euler));
    parameter.setValue(MbgRotation(std::numbers::pi / 6, std::numbers::pi / 2, -std::numbers::pi, Default));
    EXPECT_EQ(parameter.getAngle1Degree(), 30);
    EXPECT_EQ(parameter.getAngle2Degree(), 90);
    EXPECT_EQ(parameter.getAngle3Degree(), -180);
}

TEST_F(KpaRotationTest, SetsOneAngleAndKeepsTheOthers)
{
    const struct
    {
        void (KpaRotation::*set)(double);
        MbgRotation expected;
    } cases[] = {
        {&KpaRotation::setAngle1Degree, rotation(77, 20, 30)},
        {&KpaRotation::setAngle2Degree, rotation(10, 77, 30)},
        {&KpaRotation::setAngle3Degree, rotation(10, 20, 77)},
    };
    for (const auto& each : cases) {
        parameter.setValue(rotation(10, 20, 30));
        const auto setIt = [&](KpaRotation& p) { (p.*each.set)(77); };
        EXPECT_EQ(observed.flagsOf(setIt), Flags{Kp::NotifyValue});
        EXPECT_EQ(parameter.getValue(), each.expected);
        EXPECT_EQ(observed.flagsOf(setIt), Flags());
    }
}

TEST_F(KpaRotationTest, FallsToTheDefaultConventionWhenOneAngleIsSet)
{
    const MbgRotation former = rotation(10, 20, 30, Euler);
    parameter.setValue(former);
    parameter.setAngle1Degree(10);
    EXPECT_EQ(parameter.getValue(), rotation(10, 20, 30, Default));
    parameter.setValue(former);
    parameter.setAngle2Degree(20);
    EXPECT_EQ(parameter.getValue(), rotation(10, 20, 30, Default));
    parameter.setValue(former);
    parameter.setAngle3Degree(30);
    EXPECT_EQ(parameter.getValue(), rotation(10, 20, 30, Default));
}

TEST_F(KpaRotationTest, ConvertsTheAnglesToANewConvention)
{
    parameter.setValue(rotation(30, 0, 0));
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setConvention(convention(Azimuthal)); }), Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), rotation(60, 0, 0, Azimuthal));
    EXPECT_EQ(parameter.getConvention(), convention(Azimuthal));
}

TEST_F(KpaRotationTest, ReadsItsAnglesInTheDefaultConventionBeforeItConvertsThem)
{
    parameter.setValue(rotation(60, 0, 0, Azimuthal));
    parameter.setConvention(convention(Azimuthal));
    EXPECT_EQ(parameter.getValue(), rotation(30, 0, 0, Azimuthal));
    parameter.setConvention(convention(Default));
    EXPECT_EQ(parameter.getValue(), rotation(30, 0, 0, Default));
}

TEST_F(KpaRotationTest, TakesTheDefaultConventionForNone)
{
    parameter.setValue(rotation(60, 0, 0, Azimuthal));
    parameter.setConvention(nullptr);
    EXPECT_EQ(parameter.getValue(), rotation(60, 0, 0, Default));
}

TEST_F(KpaRotationTest, KeepsUndefinedAnglesInANewConvention)
{
    parameter.setValue(rotation(10, Undefined, 30));
    parameter.setConvention(convention(Euler));
    EXPECT_EQ(parameter.getValue(), rotation(10, Undefined, 30, Euler));
}

TEST_F(KpaRotationTest, AdmitsEveryRotationIn3D)
{
    const KpaRotationConfig config;
    for (const MbgRotation& each : {rotation(10, 20, 30), rotation(1e300, -720, 0, Euler),
                                    rotation(Undefined, Undefined, Undefined), MbgRotation()})
        EXPECT_EQ(config.fix(each, rotation(5, 5, 5)), each);
}

TEST_F(KpaRotationTest, KeepsOnlyTheFirstAngleIn2D)
{
    EXPECT_EQ(config2D().fix(rotation(30, 20, 10), MbgRotation()), rotation(30, 0, 0));
    EXPECT_EQ(config2D().fix(rotation(30, 20, 10, Euler), rotation(5, 5, 5)), rotation(30, 0, 0, Euler));
    EXPECT_EQ(config2D().fix(rotation(Undefined, 20, 10), rotation(5, 5, 5)), rotation(Undefined, 0, 0));
    EXPECT_EQ(config2D(Undefined).fix(rotation(30, 20, 10), MbgRotation()), rotation(30, Undefined, Undefined));
}

TEST_F(KpaRotationTest, TakesTheFillValueAsRadians)
{
    parameter.setDimension(MbgEDimension::DIM_2D, std::numbers::pi / 2);
    parameter.setAngle1Degree(30);
    EXPECT_EQ(parameter.getValue(), rotation(30, 90, 90));
    EXPECT_EQ(parameter.getFillValue(), std::numbers::pi / 2);
}

TEST_F(KpaRotationTest, IsRepairedWhenItBecomes2D)
{
    parameter.setValue(rotation(30, 20, 10));
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setDimension(MbgEDimension::DIM_2D, 0); }),
              Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_EQ(parameter.getDimension(), MbgEDimension::DIM_2D);
    EXPECT_EQ(parameter.getValue(), rotation(30, 0, 0));
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setDimension(MbgEDimension::DIM_3D, 0); }),
              Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getValue(), rotation(30, 0, 0));
}

TEST_F(KpaRotationTest, TellsOfANewFillValueIn3DAndKeepsItsAngles)
{
    parameter.setValue(rotation(30, 20, 10));
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setDimension(MbgEDimension::DIM_3D, 1); }),
              Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getFillValue(), 1);
    EXPECT_EQ(parameter.getValue(), rotation(30, 20, 10));
}

TEST_F(KpaRotationTest, SendsNothingForTheSameDimensionAndFillValue)
{
    parameter.setDimension(MbgEDimension::DIM_2D, 1);
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setDimension(MbgEDimension::DIM_2D, 1); }), Flags());
}

TEST_F(KpaRotationTest, RefusesOneDimensionAndLeavesEverythingAsItWas)
{
    parameter.setDimension(MbgEDimension::DIM_2D, 1);
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setDimension(MbgEDimension::DIM_1D, 2); }), Flags());
    EXPECT_EQ(parameter.getDimension(), MbgEDimension::DIM_2D);
    EXPECT_EQ(parameter.getFillValue(), 1);
}

TEST_F(KpaRotationTest, GivesFromTheSetterOfItsConfigWhetherSomethingChanged)
{
    KpaRotationConfig config;
    EXPECT_FALSE(config.setDimension(MbgEDimension::DIM_3D, 0));
    EXPECT_TRUE(config.setDimension(MbgEDimension::DIM_3D, 1));
    EXPECT_TRUE(config.setDimension(MbgEDimension::DIM_2D, 1));
    EXPECT_TRUE(config.setDimension(MbgEDimension::DIM_3D, 2));
    EXPECT_FALSE(config.setDimension(MbgEDimension::DIM_1D, 3));
    EXPECT_EQ(config.getDimension(), MbgEDimension::DIM_3D);
    EXPECT_EQ(config.getFillValue(), 2);
    EXPECT_FALSE(config.is2D());
}

TEST_F(KpaRotationTest, KeepsItsRotationAndNotifiesWhenTheRequestIsRefusedIn2D)
{
    parameter.setDimension(MbgEDimension::DIM_2D, 0);
    parameter.setAngle1Degree(30);
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setAngle3Degree(50); }), Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), rotation(30, 0, 0));
}

TEST_F(KpaRotationTest, ForgetsAnAutomaticRotationThatDoesNotFit2D)
{
    parameter.setAutoValue(rotation(30, 20, 10));
    parameter.setDimension(MbgEDimension::DIM_2D, 0);
    EXPECT_FALSE(parameter.isAutomaticValueInitialized());
    EXPECT_EQ(parameter.getAutoValue(), rotation(30, 20, 10));
    parameter.setAutoValue(rotation(30, 20, 10));
    EXPECT_EQ(parameter.getAutoValue(), rotation(30, 0, 0));
}

TEST_F(KpaRotationTest, EndsTheAutomaticModeWhenAnAngleIsSet)
{
    parameter.activateAutoValue(rotation(30, 20, 10));
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setAngle1Degree(31); }),
              Flags{Kp::NotifyValue | Kp::NotifyConfig});
    EXPECT_FALSE(parameter.isAutomatic());
}

TEST_F(KpaRotationTest, ComparesConfigsTheOtherWayRound)
{
    const KpaRotationConfig plain;
    const KpaRotationConfig delegated = configWithDelegate();
    KpaRotationConfig delegated2D = configWithDelegate();
    delegated2D.setDimension(MbgEDimension::DIM_2D, 0);
    KpaRotationConfig filled;
    filled.setDimension(MbgEDimension::DIM_3D, 1);
    const struct
    {
        const char* what;
        const KpaRotationConfig& a;
        const KpaRotationConfig& b;
        bool equal;
    } cases[] = {
        {"neither has a delegate", plain, KpaRotationConfig(), false},
        {"the same, without a delegate", plain, plain, false},
        {"both have a delegate", delegated, configWithDelegate(), false},
        {"the same, with a delegate", delegated, delegated, false},
        {"only the other has a delegate", plain, delegated, true},
        {"only this one has a delegate", delegated, plain, false},
        {"other dimension", plain, config2D(), false},
        {"other dimension, only the other has a delegate", plain, delegated2D, false},
        {"other fill value, only the other has a delegate", filled, delegated, false},
    };
    for (const auto& [what, a, b, equal] : cases) {
        EXPECT_EQ(a == b, equal) << what;
        EXPECT_EQ(a != b, !equal) << what;
    }
}

TEST_F(KpaRotationTest, ComparesKindsWhereOnlyThisConfigHasADelegate)
{
    EXPECT_TRUE(KpaRotationConfig(new CountedDelegate) == KpaRotationConfig());
    EXPECT_FALSE(KpaRotationConfig(new CountedDelegate) == config2D());
}

TEST_F(KpaRotationTest, GoesThroughWithAConfigThatLooksTheSame)
{
    parameter.setValue(rotation(30, 20, 10));
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setConfig(KpaRotationConfig()); }), Flags{Kp::NotifyConfig});
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setConfig(p.getConfig()); }), Flags{Kp::NotifyConfig});
    EXPECT_EQ(parameter.getValue(), rotation(30, 20, 10));

    ObservedAtomic<KpaDirection> direction;
    EXPECT_EQ(direction.flagsOf([](KpaDirection& p) { p.setConfig(configWithDelegate()); }), Flags{Kp::NotifyConfig});
    EXPECT_EQ(direction.flagsOf([](KpaDirection& p) { p.setConfig(p.getConfig()); }), Flags{Kp::NotifyConfig});
    EXPECT_EQ(direction.atomic.getConfig().getType(), KpbEType::DIRECTION);
}

TEST_F(KpaRotationTest, TakesOverAConfigOfAnotherDimension)
{
    parameter.setValue(rotation(30, 20, 10));
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setConfig(config2D()); }),
              Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), rotation(30, 0, 0));
}

TEST_F(KpaRotationTest, PassesOverAConfigThatOnlyAddsADelegate)
{
    EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setConfig(configWithDelegate()); }), Flags());
    EXPECT_EQ(parameter.getConfig().getType(), KpbEType::ROTATION);
}

TEST_F(KpaRotationTest, LosesItsDelegateToAConfigWithoutOne)
{
    ObservedAtomic<KpaDirection> direction;
    EXPECT_EQ(direction.flagsOf([](KpaDirection& p) { p.setConfig(KpaRotationConfig()); }), Flags{Kp::NotifyConfig});
    EXPECT_EQ(direction.atomic.getType(), KpbEType::DIRECTION);
    EXPECT_EQ(direction.atomic.serialize(), storedAngles("0", "0", "0"));
    EXPECT_EQ(direction.atomic.toString(), "No Rotation");
}

TEST_F(KpaRotationTest, OwnsItsDelegateAndCopiesIt)
{
    {
        KpaRotationConfig config(new CountedDelegate);
        EXPECT_EQ(CountedDelegate::living, 1);
        KpaRotationConfig copy(config);
        EXPECT_EQ(CountedDelegate::living, 2);
        copy = config;
        EXPECT_EQ(CountedDelegate::living, 2);
        const KpaRotationConfig& itself = copy;
        copy = itself;
        EXPECT_EQ(CountedDelegate::living, 2);
        EXPECT_EQ(copy.toString(MbgRotation()), "3D");
        copy = KpaRotationConfig();
        EXPECT_EQ(CountedDelegate::living, 1);
        copy = config;
        EXPECT_EQ(CountedDelegate::living, 2);
    }
    EXPECT_EQ(CountedDelegate::living, 0);
}

TEST_F(KpaRotationTest, CopiesDimensionAndFillValueWithTheDelegate)
{
    KpaRotationConfig config = configWithDelegate();
    config.setDimension(MbgEDimension::DIM_2D, 1);
    const KpaRotationConfig copy(config);
    KpaRotationConfig assigned;
    assigned = config;
    for (const KpaRotationConfig& each : {copy, assigned}) {
        EXPECT_EQ(each.getType(), KpbEType::DIRECTION);
        EXPECT_EQ(each.getDimension(), MbgEDimension::DIM_2D);
        EXPECT_EQ(each.getFillValue(), 1);
    }
}

TEST_F(KpaRotationTest, TakesNullForNoDelegate)
{
    const KpaRotationConfig config(nullptr);
    EXPECT_EQ(config.getType(), KpbEType::ROTATION);
    EXPECT_EQ(KpaRotationConfig(config).toString(MbgRotation()), "No Rotation");
}

TEST_F(KpaRotationTest, LeavesEverythingButTheDimensionToADelegate)
{
    KpaRotationConfig config(new CountedDelegate);
    EXPECT_EQ(config.toString(MbgRotation()), "3D");
    EXPECT_EQ(config.serializeValue(MbgRotation()), (SerialForm{{"is2D", "no"}}));
    EXPECT_EQ(config.unserializeValue(storedAngles("10", "20", "30"), MbgRotation()), rotation(10, 20, 30));
    EXPECT_EQ(config.fix(MbgRotation(), MbgRotation()), rotation(1, 1, 1));
    config.setDimension(MbgEDimension::DIM_2D, 0);
    EXPECT_EQ(config.toString(MbgRotation()), "2D");
    EXPECT_EQ(config.serializeValue(MbgRotation()), (SerialForm{{"is2D", "yes"}}));
    EXPECT_EQ(config.unserializeValue(storedAngles("10", "20", "30"), MbgRotation()), rotation(2, 2, 2));
    EXPECT_EQ(config.fix(MbgRotation(), MbgRotation()), rotation(1, 1, 1));
}

TEST_F(KpaRotationTest, ShowsNoRotationForTheIdentityWhateverTheConventionAndDimension)
{
    for (const MbgRotation& identity :
         {MbgRotation(), rotation(360, 0, -720), rotation(180, 180, 180), rotation(90, 0, 0, Azimuthal),
          rotation(0, 0, 0, Euler), rotation(45, 0, -45, Euler)})
    {
        EXPECT_EQ(KpaRotationConfig().toString(identity), "No Rotation");
        EXPECT_EQ(config2D().toString(identity), "No Rotation");
    }
}

TEST_F(KpaRotationTest, ShowsThatAnAngleIsMissing)
{
    for (const double missing : {Undefined, NotANumber, Infinite}) {
        EXPECT_EQ(KpaRotationConfig().toString(rotation(missing, 20, 10)), "N/A");
        EXPECT_EQ(KpaRotationConfig().toString(rotation(30, missing, 10)), "N/A");
        EXPECT_EQ(KpaRotationConfig().toString(rotation(30, 20, missing)), "N/A");
        EXPECT_EQ(KpaRotationConfig().toString(rotation(30, 20, missing, Azimuthal)), "N/A");
        EXPECT_EQ(config2D().toString(rotation(missing, 0, 0)), "N/A");
    }
}

TEST_F(KpaRotationTest, ShowsTheFirstAngleIn2DAlsoWhereTheOthersAreMissing)
{
    EXPECT_EQ(config2D().toString(rotation(30, Undefined, Undefined)), QString::fromUtf8("Az=30°"));
}

TEST_F(KpaRotationTest, ShowsTheAnglesUnderTheLabelsOfTheConvention)
{
    EXPECT_EQ(KpaRotationConfig().toString(rotation(30, 20, 10)), QString::fromUtf8("Az=30° Ay=20° Ax=10°"));
    EXPECT_EQ(KpaRotationConfig().toString(rotation(30, -20, 0.5, Euler)),
              QString::fromUtf8("Az1=30° Ax=-20° Az2=0.5°"));
    EXPECT_EQ(config2D().toString(rotation(30, 0, 0)), QString::fromUtf8("Az=30°"));
    EXPECT_EQ(config2D().toString(rotation(30, 0, 0, Euler)), QString::fromUtf8("Az1=30°"));
    EXPECT_EQ(config2D().toString(rotation(30, 0, 0, Azimuthal)), QString::fromUtf8("Azimuth=30°"));
}

TEST_F(KpaRotationTest, ShowsTheDirectionOfUInAConventionOfDirectionsIn3D)
{
    EXPECT_EQ(KpaRotationConfig().toString(rotation(30, 20, 10, Azimuthal)),
              QString::fromUtf8("Azimuth=30° Plunge=20°"));
}

TEST_F(KpaRotationTest, ShowsAnglesInTheUnitThatTheUserSees)
{
    MbbUserStringFormats::setDisplayUnit(MbuUnitService::getUnit("gon"));
    EXPECT_EQ(KpaRotationConfig().toString(rotation(27, 18, 9)), "Az=30 gon Ay=20 gon Ax=10 gon");
    EXPECT_EQ(config2D().toString(rotation(27, 0, 0)), "Az=30 gon");
}

TEST_F(KpaRotationTest, TranslatesItsTexts)
{
    const BracketTranslator translator;
    EXPECT_EQ(KpaRotationConfig().toString(MbgRotation()), "[No Rotation]");
    EXPECT_EQ(KpaRotationConfig().toString(rotation(30, 20, 10)), QString::fromUtf8("[Az=30° Ay=20° Ax=10°]"));
    EXPECT_EQ(config2D().toString(rotation(30, 0, 0)), QString::fromUtf8("[Az=30°]"));
}

TEST_F(KpaRotationTest, StoresTheConventionAndTheAnglesInDegrees)
{
    parameter.setValue(rotation(10, 20.5, -30));
    EXPECT_EQ(parameter.serialize(),
              (SerialForm{{"conv_id", "0"}, {"conv_string", "+Z+Y+X"}, {"a1", "10"}, {"a2", "20.5"}, {"a3", "-30"}}));
    parameter.setValue(rotation(10, 20, 30, Azimuthal));
    EXPECT_EQ(parameter.serialize(), stored("1", "90-Z+Y+X", "10", "20", "30"));
    parameter.setValue(MbgRotation(std::numbers::pi / 6, std::numbers::pi / 2, 0, Euler));
    EXPECT_EQ(parameter.serialize(), stored("2", "+Z+X+Z", "30", "90", "0"));
}

TEST_F(KpaRotationTest, StoresTheShortestTextThatReadsBackExactly)
{
    parameter.setValue(rotation(0.1, 1.0 / 3, 1e-300));
    EXPECT_EQ(parameter.serialize(), storedAngles("0.1", "0.3333333333333333", "1e-300"));
    parameter.setValue(rotation(0.1 + 0.2, 1e22, -123456789.125));
    EXPECT_EQ(parameter.serialize(), storedAngles("0.30000000000000004", "1e+22", "-123456789.125"));
}

TEST_F(KpaRotationTest, StoresAnUndefinedAngleAsAnEmptyText)
{
    parameter.setValue(rotation(10, Undefined, 30));
    EXPECT_EQ(parameter.serialize(), storedAngles("10", "", "30"));
}

TEST_F(KpaRotationTest, ReadsBackWhatItStoresBitForBit)
{
    for (const int id : {Default, Azimuthal, Euler}) {
        for (const double angle : {0.1, 1.0 / 3, 0.1 + 0.2, 1e-300, 5e-324, -359.99999999999994, 1e300}) {
            const MbgRotation kept = rotation(angle, -angle, angle / 7, id);
            KpaRotation source("KEY");
            source.setValue(kept);
            EXPECT_EQ(read(source.serialize()), kept) << angle;
        }
    }
}

TEST_F(KpaRotationTest, TellsOnceOfWhatItReads)
{
    const auto readIt = [](KpaRotation& p) { p.unserialize(stored("2", "+Z+X+Z", "10", "20", "30")); };
    EXPECT_EQ(observed.flagsOf(readIt), Flags{Kp::NotifyValue});
    EXPECT_EQ(parameter.getValue(), rotation(10, 20, 30, Euler));
    EXPECT_EQ(observed.flagsOf(readIt), Flags());
}

TEST_F(KpaRotationTest, EndsTheAutomaticModeWhenItReadsAnotherRotation)
{
    parameter.activateAutoValue(rotation(30, 20, 10));
    parameter.unserialize(storedAngles("30", "20", "10"));
    EXPECT_TRUE(parameter.isAutomatic());
    parameter.unserialize(storedAngles("30", "20", "11"));
    EXPECT_FALSE(parameter.isAutomatic());
}

TEST_F(KpaRotationTest, RepairsWhatItReadsIn2D)
{
    parameter.setDimension(MbgEDimension::DIM_2D, 0);
    EXPECT_EQ(read(stored("2", "+Z+X+Z", "10", "20", "30")), rotation(10, 0, 0, Euler));
}

TEST_F(KpaRotationTest, TakesStoredAnglesAsTheyStandInTheStoredConvention)
{
    EXPECT_EQ(read(stored("1", "90-Z+Y+X", "10", "20", "30"), rotation(1, 2, 3, Euler)),
              rotation(10, 20, 30, Azimuthal));
    EXPECT_EQ(read(storedAngles("10", "20", "30"), rotation(1, 2, 3, Euler)), rotation(10, 20, 30, Default));
}

TEST_F(KpaRotationTest, ReadsTheDefaultConventionWhereNoneIsStored)
{
    EXPECT_EQ(read({{"a1", "10"}, {"a2", "20"}, {"a3", "30"}}, rotation(1, 2, 3, Euler)), rotation(10, 20, 30));
    EXPECT_EQ(read(without(storedAngles("10", "20", "30"), "conv_id")), rotation(10, 20, 30));
    EXPECT_EQ(read(without(storedAngles("10", "20", "30"), "conv_string")), rotation(10, 20, 30));
    for (const char* id : {"", "x", "1.5", "99999999999", "nan", " "})
        EXPECT_EQ(read(stored(id, "+Z+Y+X", "10", "20", "30")), rotation(10, 20, 30)) << id;
}

TEST_F(KpaRotationTest, MakesATemporaryConventionWhereIdAndStringDoNotGoTogether)
{
    const struct
    {
        SerialForm map;
        const char* string;
    } cases[] = {
        {stored("0", "+X+Y+Z", "10", "20", "30"), "+X+Y+Z"},
        {stored("1", "+Z+Y+X", "10", "20", "30"), "+Z+Y+X"},
        {stored("-1", "+Z+Y+X", "10", "20", "30"), "+Z+Y+X"},
        {stored("-2147483648", "+Z+Y+X", "10", "20", "30"), "+Z+Y+X"},
        {stored("2147483647", "+Z+X+Z", "10", "20", "30"), "+Z+X+Z"},
        {without(stored("0", "+Z+X+Z", "10", "20", "30"), "conv_id"), "+Z+X+Z"},
        {without(stored("2", "+Z+X+Z", "10", "20", "30"), "conv_string"), "+Z+Y+X"},
    };
    for (const auto& [map, string] : cases) {
        const MbgRotation found = read(map);
        const MbgRotationConvention& made = *found.getConvention();
        EXPECT_EQ(made.getDefinitionString(), string);
        EXPECT_FALSE(MbgRotationConventionCatalog::getBuiltIn().contains(found.getConvention())) << string;
        EXPECT_EQ(made.getType(), MbgERotConv::SYSTEM);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(made.getAngleLabel(i), "");
        EXPECT_EQ(found, rotation(10, 20, 30, made.getId()));
        EXPECT_EQ(read(map).getConvention(), &made);
        EXPECT_EQ(read(parameter.serialize()), found);
    }
}

TEST_F(KpaRotationTest, ShowsTheAnglesOfATemporaryConventionWithoutLabels)
{
    read(stored("0", "+X+Y+Z", "10", "20", "30"));
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("=10° =20° =30°"));
}

TEST_F(KpaRotationTest, KeepsItsRotationWhereAStoredAngleIsNoNumber)
{
    for (const char* text : {"", " ", "x", "nan", "NaN", "inf", "-inf", "Infinity", "1e999", "-1e999", "1,5", "10°",
                             "0x10", "1.7976931348623157e+308"})
    {
        for (const SerialForm& map :
             {storedAngles(text, "20", "30"), storedAngles("10", text, "30"), storedAngles("10", "20", text)})
        {
            parameter.setValue(rotation(1, 2, 3, Euler));
            EXPECT_EQ(observed.flagsOf([&](KpaRotation& p) { p.unserialize(map); }), Flags()) << text;
            EXPECT_EQ(parameter.getValue(), rotation(1, 2, 3, Euler)) << text;
        }
    }
}

TEST_F(KpaRotationTest, KeepsItsRotationWhereAStoredAngleIsMissing)
{
    const SerialForm full = storedAngles("10", "20", "30");
    for (const char* key : {"a1", "a2", "a3"})
        EXPECT_EQ(read(without(full, key)), rotation(1, 2, 3)) << key;
    EXPECT_EQ(read({}), rotation(1, 2, 3));
    EXPECT_EQ(read({{"value", "10"}, {"A1", "1"}, {"A2", "1"}, {"A3", "1"}}), rotation(1, 2, 3));
}

TEST_F(KpaRotationTest, ReadsHugeAngles)
{
    const MbgRotation found = read(storedAngles("1e308", "-1e308", "1e300"));
    EXPECT_EQ(found, rotation(1e308, -1e308, 1e300));
    EXPECT_NE(parameter.toString(), "");
    parameter.setConvention(convention(Euler));
    EXPECT_TRUE(parameter.getValue().isDefined());
    parameter.setDimension(MbgEDimension::DIM_2D, 0);
    EXPECT_NE(parameter.toString(), "");
}

TEST_F(KpaRotationTest, ReadsTheOlderFormInTheConventionThatItHas)
{
    const SerialForm older{{"ax", "30"}, {"ay", "20"}, {"az", "10"}};
    EXPECT_EQ(read(older), rotation(10, 20, 30));
    EXPECT_EQ(read(older, rotation(1, 2, 3, Euler)), rotation(10, 20, 30, Euler));
}

TEST_F(KpaRotationTest, TakesUndefinedAnglesOverFromTheOlderForm)
{
    EXPECT_EQ(read({{"az", "10"}, {"ay", ""}, {"ax", "nan"}}), rotation(10, Undefined, Undefined));
    EXPECT_EQ(parameter.toString(), "N/A");
}

TEST_F(KpaRotationTest, KeepsItsRotationWhereTheOlderFormIsNotWhole)
{
    const SerialForm older{{"az", "10"}, {"ay", "20"}, {"ax", "30"}};
    for (const char* key : {"az", "ay", "ax"})
        EXPECT_EQ(read(without(older, key)), rotation(1, 2, 3)) << key;
}

TEST_F(KpaRotationTest, PrefersThePresentFormToTheOlderOne)
{
    SerialForm both = storedAngles("10", "20", "30");
    for (const char* key : {"az", "ay", "ax"})
        both.insert(key, "77");
    EXPECT_EQ(read(both), rotation(10, 20, 30));
    both.insert("a2", "");
    EXPECT_EQ(read(both), rotation(1, 2, 3));
    both.remove("a2");
    EXPECT_EQ(read(both), rotation(77, 77, 77));
}

TEST_F(KpaRotationTest, KeepsConventionsThatItDoesNotUnderstandWithinLimits)
{
    const RecordedMessages messages;
    const MbgRotation found = read(stored("7", "<&> %1 %n", "10", "20", "30"));
    EXPECT_EQ(found.getConvention()->getDefinitionString(), "<&> %1 %n");
    EXPECT_EQ(parameter.toString(), QString::fromUtf8("=10° =20° =30°"));
    EXPECT_EQ(read(parameter.serialize()), found);

    EXPECT_EQ(read(stored("7", QString(1'000'000, 'Z'), "10", "20", "30")), rotation(10, 20, 30, Default));
    for (int i = 0; i < 1000; ++i)
        read(stored(QString::number(i), QStringLiteral("hostile %1").arg(i), "10", "20", "30"));
    EXPECT_EQ(parameter.getValue(), rotation(10, 20, 30, Default));
}

TEST_F(KpaRotationTest, StaysDefinedWhateverIsStoredInAnyOfItsForms)
{
    const RecordedMessages messages;
    KpaDirection direction("KEY");
    KpaPlaneOrientation plane("KEY");
    KpaSystemOrientation system("KEY");
    for (KpaRotation* each : std::initializer_list<KpaRotation*>{&parameter, &direction, &plane, &system}) {
        each->setValue(rotation(10, 20, 30));
        const SerialForm sound = each->serialize();
        for (const QString& key : sound.keys()) {
            for (const QString& garbage : garbageTexts()) {
                SerialForm map = sound;
                map.insert(key, garbage);
                EXPECT_NO_THROW(each->unserialize(map)) << damaged(key, garbage);
                EXPECT_TRUE(each->getValue().isDefined()) << damaged(key, garbage);
                EXPECT_NO_THROW(each->toString()) << damaged(key, garbage);
            }
        }
    }
}

TEST_F(KpaRotationTest, MakesAConventionAlsoForAnglesThatItDoesNotRead)
{
    const QString string = "+Y-X+Y";
    EXPECT_EQ(read(stored("7", string, "", "20", "30")), rotation(1, 2, 3));
    bool known = false;
    for (int id = 0; id < 10'000 && !known; ++id)
        known = convention(id) && convention(id)->getDefinitionString() == string;
    EXPECT_TRUE(known);
}

TEST_F(KpaRotationTest, StaysAsItIsIn2DWhenItIsGivenItsOwnRotation)
{
    parameter.setDimension(MbgEDimension::DIM_2D, 1.0 / 3);
    for (const double angle : {0.1, 1.0 / 3, 57.29577951308232, -359.99999999999994, 1e-300, 1e300}) {
        parameter.setAngle1Degree(angle);
        EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.setValue(MbgRotation(p.getValue())); }), Flags()) << angle;
        EXPECT_EQ(observed.flagsOf([](KpaRotation& p) { p.unserialize(p.serialize()); }), Flags()) << angle;
    }
}

TEST_F(KpaRotationTest, ReadsPlainAnglesAsTheFallbackOfDelegates)
{
    EXPECT_EQ(KpaRotationConfig::_unserializeRotation(stored("2", "+Z+X+Z", "10", "20", "30"), MbgRotation()),
              rotation(10, 20, 30, Euler));
    EXPECT_EQ(KpaRotationConfig::_unserializeRotation({}, rotation(1, 2, 3, Euler)), rotation(1, 2, 3, Euler));
}

TEST_F(KpaRotationTest, DebugsItsConfig)
{
    EXPECT_EQ(KpaRotationConfig().debug(), "----- KpaRotationConfig ------\n"
                                           " dimension        = DIM_3D\n"
                                           " fill value       = 0\n");
    EXPECT_EQ(config2D(0.125).debug(), "----- KpaRotationConfig ------\n"
                                       " dimension        = DIM_2D\n"
                                       " fill value       = 0.125\n");
    EXPECT_TRUE(parameter.debug(1).endsWith(" fill value       = 0\n"));
}

TEST_F(KpaRotationTest, DuplicatesRotationAndConfig)
{
    parameter.setDimension(MbgEDimension::DIM_2D, 1);
    parameter.setAngle1Degree(30);
    const std::unique_ptr<KpaRotation> copy(parameter.duplicate("COPY"));
    const std::unique_ptr<KpaRotation> sameKey(parameter.duplicate(""));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getValue(), parameter.getValue());
    EXPECT_EQ(copy->getDimension(), MbgEDimension::DIM_2D);
    EXPECT_EQ(copy->getFillValue(), 1);
    copy->setAngle1Degree(31);
    EXPECT_EQ(parameter.getAngle1Degree(), 30);
}
