// What vectors of doubles and of integers have in common.

#include <param/atomic/KpaVectorDouble.h>
#include <param/atomic/KpaVectorInt.h>
#include <support/ObservedAtomic.h>

#include <functional>
#include <memory>
#include <utility>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaVectorDoubleConfig, MbgVector3D>);
static_assert(KpaAtomicConfig<KpaVectorIntConfig, MbgIntVector3D>);

namespace {
using Flags = QList<int>;

template <class Parameter>
class KpaVectorTest : public testing::Test
{
protected:
    using Vector = typename Parameter::ValueType;
    using Config = typename Parameter::ConfigType;
    using Scalar = decltype(std::declval<Parameter>().getV1());

    static constexpr Scalar undefined = Vector::Undefined;

    ObservedAtomic<Parameter> observed;
    Parameter& parameter = observed.atomic;
};

using Parameters = testing::Types<KpaVectorDouble, KpaVectorInt>;

template <class Vector>
std::string text(const Vector& v)
{
    return testing::PrintToString(v[0]) + " " + testing::PrintToString(v[1]) + " " + testing::PrintToString(v[2]);
}
} // namespace

TYPED_TEST_SUITE(KpaVectorTest, Parameters, );

#define EXPECT_VECTOR(actual, a, b, c) EXPECT_EQ(text(actual), text(typename TestFixture::Vector(a, b, c)))

TYPED_TEST(KpaVectorTest, StartsAtZeroInThreeFreeDimensions)
{
    auto& p = this->parameter;
    EXPECT_VECTOR(p.getValue(), 0, 0, 0);
    EXPECT_VECTOR(p.getAutoValue(), 0, 0, 0);
    EXPECT_EQ(p.getDimension(), 3);
    EXPECT_EQ(p.getFillValue(), 0);
    EXPECT_EQ(p.getLinkMode(), 0);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(p.getComponentLabel(i), "");
        EXPECT_FALSE(p.isComponentMinimumDefined(i));
        EXPECT_FALSE(p.isComponentMaximumDefined(i));
        EXPECT_FALSE(p.isComponenStepDefined(i));
    }
}

TYPED_TEST(KpaVectorTest, GivesItsComponents)
{
    auto& p = this->parameter;
    p.setComponentValues(1, 2, 3);
    EXPECT_EQ(p.getV1(), 1);
    EXPECT_EQ(p.getV2(), 2);
    EXPECT_EQ(p.getV3(), 3);
    EXPECT_EQ(p.getComponentValue(0), 1);
    EXPECT_EQ(p.getComponentValue(1), 2);
    EXPECT_EQ(p.getComponentValue(2), 3);
}

TYPED_TEST(KpaVectorTest, ReadsTheNearestComponentForAnIndexOutOfRange)
{
    auto& p = this->parameter;
    p.setComponentValues(1, 2, 3);
    p.setComponentLabels("U", "V", "W");
    p.setComponentMinimums(-1, -2, -3);
    p.setComponentMaximums(11, 12, 13);
    p.setComponentSteps(21, 22, 23);
    for (const auto& [index, nearest] : {std::pair(-1, 0), std::pair(-100, 0), std::pair(3, 2), std::pair(100, 2)}) {
        EXPECT_EQ(p.getComponentValue(index), nearest + 1);
        EXPECT_EQ(p.getComponentLabel(index), p.getComponentLabel(nearest));
        EXPECT_EQ(p.getComponentMinimum(index), -1 - nearest);
        EXPECT_EQ(p.getComponentMaximum(index), 11 + nearest);
        EXPECT_EQ(p.getComponentStep(index), 21 + nearest);
    }
}

TYPED_TEST(KpaVectorTest, HasAConfigThatClampsIndices)
{
    typename TestFixture::Config config;
    config.itemLabel(-5) = "first";
    config.itemLabel(1) = "second";
    config.itemLabel(5) = "third";
    config.itemConfig(-1).setMinimum(1);
    config.itemConfig(3).setMinimum(3);
    const auto& constant = config;
    EXPECT_EQ(constant.itemLabel(0), "first");
    EXPECT_EQ(constant.itemLabel(1), "second");
    EXPECT_EQ(constant.itemLabel(2), "third");
    EXPECT_EQ(constant.itemLabel(-1), "first");
    EXPECT_EQ(constant.itemLabel(3), "third");
    EXPECT_EQ(constant.itemConfig(0).getMinimum(), 1);
    EXPECT_FALSE(constant.itemConfig(1).isMinimumDefined());
    EXPECT_EQ(constant.itemConfig(2).getMinimum(), 3);
    EXPECT_EQ(constant.itemConfig(9).getMinimum(), 3);
}

TYPED_TEST(KpaVectorTest, ComparesEveryFieldOfItsConfig)
{
    using Config = typename TestFixture::Config;
    const std::pair<const char*, std::function<void(Config&)>> changes[] = {
        {"fillValue", [](Config& c) { c.setDimension(Kp::VectorDim3, 1); }},
        {"dimension", [](Config& c) { c.setDimension(Kp::VectorDim2, 0); }},
        {"linkMode", [](Config& c) { c.setLinkMode(Kp::LinkAll); }},
        {"label 1", [](Config& c) { c.itemLabel(0) = "U"; }},
        {"label 2", [](Config& c) { c.itemLabel(1) = "V"; }},
        {"label 3", [](Config& c) { c.itemLabel(2) = "W"; }},
        {"item 1", [](Config& c) { c.itemConfig(0).setStep(1); }},
        {"item 2", [](Config& c) { c.itemConfig(1).setStep(1); }},
        {"item 3", [](Config& c) { c.itemConfig(2).setStep(1); }},
    };
    EXPECT_TRUE(Config() == Config());
    EXPECT_FALSE(Config() != Config());
    for (const auto& [field, change] : changes) {
        Config config;
        change(config);
        EXPECT_TRUE(config != Config()) << field;
        EXPECT_TRUE(config == Config(config)) << field;
    }
}

TYPED_TEST(KpaVectorTest, HasAConfigThatTellsWhetherItChanged)
{
    typename TestFixture::Config config;
    EXPECT_FALSE(config.setDimension(Kp::VectorDim3, 0));
    EXPECT_TRUE(config.setDimension(Kp::VectorDim2, 0));
    EXPECT_TRUE(config.setDimension(Kp::VectorDim2, 7));
    EXPECT_FALSE(config.setDimension(Kp::VectorDim2, 7));
    EXPECT_FALSE(config.setLinkMode(Kp::NoLink));
    EXPECT_TRUE(config.setLinkMode(Kp::LinkHorizontal));
    EXPECT_FALSE(config.setLinkMode(Kp::LinkHorizontal));
    EXPECT_EQ(config.getDimension(), 2);
    EXPECT_EQ(config.getFillValue(), 7);
    EXPECT_EQ(config.getLinkMode(), 2);
}

TYPED_TEST(KpaVectorTest, FillsTheComponentsBeyondTheDimension)
{
    using Vector = typename TestFixture::Vector;
    typename TestFixture::Config config;
    config.setDimension(Kp::VectorDim2, 0);
    EXPECT_VECTOR(config.fix(Vector(1, 2, 3)), 1, 2, 0);
    config.setDimension(Kp::VectorDim2, 9);
    EXPECT_VECTOR(config.fix(Vector(1, 2, 3)), 1, 2, 9);
    config.setDimension(Kp::VectorDim1, 9);
    EXPECT_VECTOR(config.fix(Vector(1, 2, 3)), 1, 9, 9);
    config.setDimension(Kp::VectorDim3, 9);
    EXPECT_VECTOR(config.fix(Vector(1, 2, 3)), 1, 2, 3);
}

TYPED_TEST(KpaVectorTest, PassesTheFillValueThroughTheLimitsOfEachComponent)
{
    using Vector = typename TestFixture::Vector;
    typename TestFixture::Config config;
    config.setDimension(Kp::VectorDim1, 5);
    config.itemConfig(0).setMaximum(2);
    config.itemConfig(1).setMaximum(3);
    EXPECT_VECTOR(config.fix(Vector(1, 1, 1)), 1, 3, 5);
}

TYPED_TEST(KpaVectorTest, RepairsEachComponentWithinItsOwnLimits)
{
    auto& p = this->parameter;
    p.setComponentMinimums(0, 10, 20);
    p.setComponentMaximums(5, 15, 25);
    p.setComponentValues(100, 100, 100);
    EXPECT_VECTOR(p.getValue(), 5, 15, 25);
    p.setComponentValues(-100, 12, -100);
    EXPECT_VECTOR(p.getValue(), 0, 12, 20);
}

TYPED_TEST(KpaVectorTest, FallsBackOnTheInitialValueForAnUndefinedComponent)
{
    using Vector = typename TestFixture::Vector;
    const auto u = TestFixture::undefined;
    typename TestFixture::Config config;
    EXPECT_VECTOR(config.fix(Vector(1, u, 3), Vector(7, 8, 9)), 1, 0, 3);
    config.itemConfig(1).setMinimum(4);
    EXPECT_VECTOR(config.fix(Vector(u, u, u), Vector(7, 8, 9)), 0, 4, 0);
    EXPECT_VECTOR(config.fix(Vector(1, u, 3)), 1, 4, 3);
}

TYPED_TEST(KpaVectorTest, FallsBackOnTheInitialValueForAnUndefinedFillValue)
{
    using Vector = typename TestFixture::Vector;
    typename TestFixture::Config config;
    config.setDimension(Kp::VectorDim1, TestFixture::undefined);
    config.itemConfig(2).setMinimum(2);
    EXPECT_VECTOR(config.fix(Vector(1, 1, 1)), 1, 0, 2);
}

TYPED_TEST(KpaVectorTest, LinksComponentsToTheFirst)
{
    using Vector = typename TestFixture::Vector;
    struct Row
    {
        Kp::VectorLink link;
        Kp::VectorDim dimension;
        Vector fixed;
    };
    const Row rows[] = {
        {Kp::NoLink, Kp::VectorDim1, Vector(1, 9, 9)},         {Kp::NoLink, Kp::VectorDim2, Vector(1, 2, 9)},
        {Kp::NoLink, Kp::VectorDim3, Vector(1, 2, 3)},         {Kp::LinkAll, Kp::VectorDim1, Vector(1, 9, 9)},
        {Kp::LinkAll, Kp::VectorDim2, Vector(1, 1, 9)},        {Kp::LinkAll, Kp::VectorDim3, Vector(1, 1, 1)},
        {Kp::LinkHorizontal, Kp::VectorDim1, Vector(1, 1, 9)}, {Kp::LinkHorizontal, Kp::VectorDim2, Vector(1, 1, 9)},
        {Kp::LinkHorizontal, Kp::VectorDim3, Vector(1, 1, 3)},
    };
    for (const Row& row : rows) {
        typename TestFixture::Config config;
        config.setDimension(row.dimension, 9);
        config.setLinkMode(row.link);
        EXPECT_EQ(text(config.fix(Vector(1, 2, 3))), text(row.fixed)) << row.link << " " << row.dimension;
    }
}

TYPED_TEST(KpaVectorTest, LinksAfterTheLimits)
{
    auto& p = this->parameter;
    p.setLinkMode(Kp::LinkAll);
    p.setComponentMaximum(1, 0);
    p.setComponentValues(1, 2, 3);
    EXPECT_VECTOR(p.getValue(), 1, 1, 1);
    p.setComponentMaximum(0, 5);
    p.setComponentValues(8, 2, 3);
    EXPECT_VECTOR(p.getValue(), 5, 5, 5);
}

TYPED_TEST(KpaVectorTest, SetsOneComponent)
{
    auto& p = this->parameter;
    p.setComponentValues(1, 2, 3);
    p.setComponentValue(0, 4);
    p.setComponentValue(1, 5);
    p.setComponentValue(2, 6);
    EXPECT_VECTOR(p.getValue(), 4, 5, 6);
}

TYPED_TEST(KpaVectorTest, PassesOverAComponentThatThereIsNot)
{
    auto& p = this->parameter;
    p.setComponentValues(1, 2, 3);
    this->observed.takeFlags();
    for (const int index : {-1, 3, 100}) {
        p.setComponentValue(index, 9);
        p.setComponentMinimum(index, 9);
        p.setComponentMaximum(index, 9);
        p.setComponentStep(index, 9);
    }
    EXPECT_EQ(this->observed.takeFlags(), Flags());
    EXPECT_VECTOR(p.getValue(), 1, 2, 3);
    EXPECT_TRUE(p.getConfig() == typename TestFixture::Config());
}

TYPED_TEST(KpaVectorTest, SetsAllComponentsInOneRecord)
{
    auto& p = this->parameter;
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setComponentValue(4); }), Flags{Kp::NotifyValue});
    EXPECT_VECTOR(p.getValue(), 4, 4, 4);
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setComponentValues(1, 2, 3); }), Flags{Kp::NotifyValue});
    EXPECT_VECTOR(p.getValue(), 1, 2, 3);
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setComponentValues(1, 2, 3); }), Flags());
}

TYPED_TEST(KpaVectorTest, SetsTheAutomaticValueOfAllComponents)
{
    auto& p = this->parameter;
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setComponentAutoValue(4); }), Flags{Kp::NotifyConfig});
    EXPECT_VECTOR(p.getAutoValue(), 4, 4, 4);
    EXPECT_VECTOR(p.getValue(), 0, 0, 0);
    p.setComponentAutoValues(1, 2, 3);
    EXPECT_VECTOR(p.getAutoValue(), 1, 2, 3);
    EXPECT_TRUE(p.isAutomaticValueInitialized());
    p.activateAutoValue();
    EXPECT_VECTOR(p.getValue(), 1, 2, 3);
    p.setComponentValue(2, 9);
    EXPECT_FALSE(p.isAutomatic());
}

TYPED_TEST(KpaVectorTest, TellsOfARefusedRequest)
{
    this->parameter.setLinkMode(Kp::LinkAll);
    EXPECT_EQ(this->observed.flagsOf([](auto& p) { p.setComponentValue(2, 5); }), Flags{Kp::NotifyValue});
    EXPECT_VECTOR(this->parameter.getValue(), 0, 0, 0);
}

TYPED_TEST(KpaVectorTest, SetsTheLimitsOfComponents)
{
    using Vector = typename TestFixture::Vector;
    using Parameter = TypeParam;
    struct Row
    {
        const char* name;
        std::function<void(Parameter&, int, int)> setOne;
        std::function<void(Parameter&, int)> setAll;
        std::function<void(Parameter&, const Vector&)> setVector;
        std::function<void(Parameter&, int, int, int)> setThree;
        std::function<void(Parameter&)> unset;
        std::function<int(const Parameter&, int)> get;
        std::function<bool(const Parameter&, int)> isDefined;
    };
    const Row rows[] = {
        {"minimum", [](Parameter& p, int i, int v) { p.setComponentMinimum(i, v); },
         [](Parameter& p, int v) { p.setComponentMinimum(v); },
         [](Parameter& p, const Vector& v) { p.setComponentMinimums(v); },
         [](Parameter& p, int a, int b, int c) { p.setComponentMinimums(a, b, c); },
         [](Parameter& p) { p.unsetMinimum(); },
         [](const Parameter& p, int i) { return int(p.getComponentMinimum(i)); },
         [](const Parameter& p, int i) { return p.isComponentMinimumDefined(i); }},
        {"maximum", [](Parameter& p, int i, int v) { p.setComponentMaximum(i, v); },
         [](Parameter& p, int v) { p.setComponentMaximum(v); },
         [](Parameter& p, const Vector& v) { p.setComponentMaximums(v); },
         [](Parameter& p, int a, int b, int c) { p.setComponentMaximums(a, b, c); },
         [](Parameter& p) { p.unsetMaximum(); },
         [](const Parameter& p, int i) { return int(p.getComponentMaximum(i)); },
         [](const Parameter& p, int i) { return p.isComponentMaximumDefined(i); }},
        {"step", [](Parameter& p, int i, int v) { p.setComponentStep(i, v); },
         [](Parameter& p, int v) { p.setComponentStep(v); },
         [](Parameter& p, const Vector& v) { p.setComponentSteps(v); },
         [](Parameter& p, int a, int b, int c) { p.setComponentSteps(a, b, c); }, [](Parameter& p) { p.unsetStep(); },
         [](const Parameter& p, int i) { return int(p.getComponentStep(i)); },
         [](const Parameter& p, int i) { return p.isComponenStepDefined(i); }},
    };
    for (const Row& row : rows) {
        ObservedAtomic<Parameter> observed;
        const Parameter& p = observed.atomic;
        const auto expectLimits = [&](int a, int b, int c) {
            EXPECT_EQ(row.get(p, 0), a) << row.name;
            EXPECT_EQ(row.get(p, 1), b) << row.name;
            EXPECT_EQ(row.get(p, 2), c) << row.name;
        };
        const auto expectFlags = [&](const Flags& flags, auto change) {
            EXPECT_EQ(observed.flagsOf(change), flags) << row.name;
        };
        const Flags once{Kp::NotifyConfig};
        observed.atomic.setComponentValue(6);

        expectFlags(once, [&](Parameter& each) { row.setOne(each, 1, 6); });
        EXPECT_FALSE(row.isDefined(p, 0));
        EXPECT_TRUE(row.isDefined(p, 1));
        EXPECT_FALSE(row.isDefined(p, 2));
        expectFlags({}, [&](Parameter& each) { row.setOne(each, 1, 6); });
        expectFlags(once, [&](Parameter& each) { row.setAll(each, 6); });
        expectLimits(6, 6, 6);
        expectFlags({}, [&](Parameter& each) { row.setAll(each, 6); });
        expectFlags(once, [&](Parameter& each) { row.unset(each); });
        for (int i = 0; i < 3; ++i)
            EXPECT_FALSE(row.isDefined(p, i)) << row.name;
        expectFlags({}, [&](Parameter& each) { row.unset(each); });
        row.setVector(observed.atomic, Vector(1, 2, 3));
        expectLimits(1, 2, 3);
        observed.takeFlags();
        expectFlags({}, [&](Parameter& each) { row.setVector(each, Vector(1, 2, 3)); });
        row.setThree(observed.atomic, 4, 5, 6);
        expectLimits(4, 5, 6);
        EXPECT_EQ(observed.takeFlags().size(), 1) << row.name;
        expectFlags({}, [&](Parameter& each) { row.setThree(each, 4, 5, 6); });
    }
}

TYPED_TEST(KpaVectorTest, RepairsTheValueWhenALimitChanges)
{
    auto& p = this->parameter;
    p.setComponentValues(10, 20, 30);
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setComponentMaximum(15); }),
              Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_VECTOR(p.getValue(), 10, 15, 15);
}

TYPED_TEST(KpaVectorTest, DropsAnAutomaticValueThatDoesNotFitAnyMore)
{
    auto& p = this->parameter;
    p.setComponentAutoValues(1, 2, 3);
    p.setDimension(Kp::VectorDim2, 0);
    EXPECT_FALSE(p.isAutomaticValueInitialized());
    EXPECT_VECTOR(p.getAutoValue(), 1, 2, 3);
}

TYPED_TEST(KpaVectorTest, FallsIntoLineWithANewDimensionAtOnce)
{
    auto& p = this->parameter;
    p.setComponentValues(1, 2, 3);
    const Flags both{Kp::NotifyConfig | Kp::NotifyValue};
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setDimension(Kp::VectorDim2, 0); }), both);
    EXPECT_VECTOR(p.getValue(), 1, 2, 0);
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setDimension(Kp::VectorDim2, 0); }), Flags());
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setDimension(Kp::VectorDim2, 8); }), both);
    EXPECT_VECTOR(p.getValue(), 1, 2, 8);
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setDimension(Kp::VectorDim3, 8); }),
              Flags{Kp::NotifyConfig});
    EXPECT_VECTOR(p.getValue(), 1, 2, 8);
    EXPECT_EQ(p.getDimension(), 3);
    EXPECT_EQ(p.getFillValue(), 8);
}

TYPED_TEST(KpaVectorTest, FallsIntoLineWithANewLinkAtOnce)
{
    auto& p = this->parameter;
    p.setComponentValues(1, 2, 3);
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setLinkMode(Kp::LinkHorizontal); }),
              Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_VECTOR(p.getValue(), 1, 1, 3);
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setLinkMode(Kp::LinkHorizontal); }), Flags());
    EXPECT_EQ(p.getLinkMode(), Kp::LinkHorizontal);
}

TYPED_TEST(KpaVectorTest, LabelsItsComponents)
{
    auto& p = this->parameter;
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setComponentLabels("U", "V", "W"); }),
              Flags{Kp::NotifyConfig});
    EXPECT_EQ(p.getComponentLabel(0), "U");
    EXPECT_EQ(p.getComponentLabel(1), "V");
    EXPECT_EQ(p.getComponentLabel(2), "W");
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setComponentLabels("U", "V", "W"); }), Flags());
    EXPECT_EQ(this->observed.flagsOf([](auto& each) { each.setComponentLabels("U", "V", "Z"); }),
              Flags{Kp::NotifyConfig});
}

TYPED_TEST(KpaVectorTest, TurnsItsLabelsRound)
{
    auto& p = this->parameter;
    p.setComponentLabels("U", "V", "W");
    p.setComponentLabels(p.getComponentLabel(2), p.getComponentLabel(0), p.getComponentLabel(1));
    EXPECT_EQ(p.getComponentLabel(0), "W");
    EXPECT_EQ(p.getComponentLabel(1), "U");
    EXPECT_EQ(p.getComponentLabel(2), "V");
}

TYPED_TEST(KpaVectorTest, ComparesTheValuesOfItsLiveComponents)
{
    auto& p = this->parameter;
    p.setComponentValues(1, 1, 1);
    EXPECT_TRUE(p.areAllValuesEqual());
    p.setComponentValues(1, 1, 2);
    EXPECT_FALSE(p.areAllValuesEqual());
    p.setComponentValues(1, 2, 1);
    EXPECT_FALSE(p.areAllValuesEqual());
    p.setDimension(Kp::VectorDim2, 7);
    EXPECT_FALSE(p.areAllValuesEqual());
    p.setComponentValues(1, 1, 7);
    EXPECT_TRUE(p.areAllValuesEqual());
    p.setDimension(Kp::VectorDim1, 7);
    EXPECT_TRUE(p.areAllValuesEqual());
    p.setComponentValue(1);
    p.setDimension(Kp::VectorDim(0), 1);
    EXPECT_FALSE(p.areAllValuesEqual());
}

TYPED_TEST(KpaVectorTest, PrintsItsLiveComponents)
{
    auto& p = this->parameter;
    p.setComponentValues(1, 2, 3);
    EXPECT_EQ(p.toString(), "[1,2,3]");
    p.setDimension(Kp::VectorDim2, 0);
    EXPECT_EQ(p.toString(), "[1,2]");
    p.setDimension(Kp::VectorDim1, 0);
    EXPECT_EQ(p.toString(), "1");
}

TYPED_TEST(KpaVectorTest, PrintsNoPartOfAnUndefinedVector)
{
    using Vector = typename TestFixture::Vector;
    const auto u = TestFixture::undefined;
    typename TestFixture::Config config;
    for (int i = 0; i < 3; ++i)
        config.itemConfig(i).setUndefineEnabled(true);
    for (const Vector& vector : {Vector(u, 2, 3), Vector(1, u, 3), Vector(1, 2, u), Vector(u, u, u)})
        EXPECT_EQ(config.toString(vector), MbbGlobal::STR_NA);
    config.setDimension(Kp::VectorDim1, 0);
    EXPECT_EQ(config.toString(Vector(1, 2, u)), MbbGlobal::STR_NA);
}

TYPED_TEST(KpaVectorTest, StoresAllThreeComponentsWhateverTheDimension)
{
    auto& p = this->parameter;
    p.setComponentValues(10, 20, 30);
    EXPECT_EQ(p.serialize(), KpbAParameter::SerialForm({{"v1", "10"}, {"v2", "20"}, {"v3", "30"}}));
    p.setDimension(Kp::VectorDim1, 5);
    EXPECT_EQ(p.serialize(), KpbAParameter::SerialForm({{"v1", "10"}, {"v2", "5"}, {"v3", "5"}}));
}

TYPED_TEST(KpaVectorTest, StoresAnUndefinedComponentAsAnEmptyText)
{
    using Vector = typename TestFixture::Vector;
    const typename TestFixture::Config config;
    EXPECT_EQ(config.serializeValue(Vector(1, TestFixture::undefined, 3)),
              KpbAParameter::SerialForm({{"v1", "1"}, {"v2", ""}, {"v3", "3"}}));
}

TYPED_TEST(KpaVectorTest, ReadsAStoredVectorInAnyOrder)
{
    auto& p = this->parameter;
    p.unserialize({{"v3", "6"}, {"other", "x"}, {"v1", "4"}, {"v2", "5"}});
    EXPECT_VECTOR(p.getValue(), 4, 5, 6);
}

TYPED_TEST(KpaVectorTest, KeepsTheWholeVectorWhereAComponentIsMissing)
{
    auto& p = this->parameter;
    p.setComponentValues(1, 2, 3);
    this->observed.takeFlags();
    p.unserialize({{"v1", "4"}, {"v3", "6"}});
    p.unserialize({{"v1", "4"}, {"v2", "5"}});
    p.unserialize({{"v2", "5"}, {"v3", "6"}});
    p.unserialize(storedValue("4"));
    p.unserialize({});
    EXPECT_VECTOR(p.getValue(), 1, 2, 3);
    EXPECT_EQ(this->observed.takeFlags(), Flags());
}

TYPED_TEST(KpaVectorTest, KeepsAComponentWhoseTextIsBad)
{
    auto& p = this->parameter;
    p.setComponentValues(1, 2, 3);
    p.unserialize({{"v1", "4"}, {"v2", "garbage"}, {"v3", ""}});
    EXPECT_VECTOR(p.getValue(), 4, 2, 3);
}

TYPED_TEST(KpaVectorTest, KeepsTheWholeVectorWhereAComponentIsUndefined)
{
    using Vector = typename TestFixture::Vector;
    typename TestFixture::Config config;
    config.itemConfig(1).setUndefineEnabled(true);
    EXPECT_VECTOR(config.unserializeValue({{"v1", "4"}, {"v2", ""}, {"v3", "6"}}, Vector(1, 2, 3)), 1, 2, 3);
    EXPECT_VECTOR(config.unserializeValue({{"v1", "4"}, {"v2", "garbage"}, {"v3", "6"}}, Vector(1, 2, 3)), 1, 2, 3);
    EXPECT_VECTOR(config.unserializeValue({{"v1", "4"}, {"v2", "5"}, {"v3", "6"}}, Vector(1, 2, 3)), 4, 5, 6);
}

TYPED_TEST(KpaVectorTest, KeepsAVectorThatIsUndefinedInPartWhereNoTextReplacesThatPart)
{
    using Vector = typename TestFixture::Vector;
    const auto u = TestFixture::undefined;
    const typename TestFixture::Config config;
    EXPECT_VECTOR(config.unserializeValue({{"v1", "4"}, {"v2", "x"}, {"v3", "6"}}, Vector(1, u, 3)), 1, u, 3);
}

TYPED_TEST(KpaVectorTest, RepairsAStoredVector)
{
    auto& p = this->parameter;
    p.setComponentMaximum(5);
    p.setDimension(Kp::VectorDim2, 0);
    p.unserialize({{"v1", "4"}, {"v2", "50"}, {"v3", "500"}});
    EXPECT_VECTOR(p.getValue(), 4, 5, 0);
}

TYPED_TEST(KpaVectorTest, DuplicatesValueAndConfig)
{
    auto& p = this->parameter;
    p.setComponentLabels("U", "V", "W");
    p.setComponentMaximums(10, 20, 30);
    p.setDimension(Kp::VectorDim2, 7);
    p.setComponentValues(4, 5, 6);
    p.setComponentAutoValues(7, 8, 9);
    const std::unique_ptr<TypeParam> copy(p.duplicate("COPY"));
    const std::unique_ptr<TypeParam> sameKey(p.duplicate(""));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_VECTOR(copy->getValue(), 4, 5, 7);
    EXPECT_VECTOR(copy->getAutoValue(), 7, 8, 7);
    EXPECT_TRUE(copy->getConfig() == p.getConfig());
    this->observed.takeFlags();
    copy->setComponentValue(0);
    EXPECT_VECTOR(p.getValue(), 4, 5, 7);
    EXPECT_EQ(this->observed.takeFlags(), Flags());
}
