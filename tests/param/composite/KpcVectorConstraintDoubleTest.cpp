#include "CompositeTestTools.h"

#include <param/KpsSerializerTestTools.h>
#include <param/composite/KpcVectorConstraintDouble.h>
#include <support/BracketTranslator.h>

#include <functional>
#include <memory>
#include <utility>

namespace {

using namespace Ku::Constraint;
using namespace Ku::Vector;

constexpr double undefined = MbbGlobal::D_FFFF;

struct Constrained
{
    explicit Constrained(Mode mode = Constraints) { vector->setMode(mode); }

    KpcConstraintDouble& operator[](int i) const { return *vector->getParameter(Component(i)); }
    KpaDouble& part(int i, Part p) const { return *vector->getParameter(Component(i), p); }

    std::unique_ptr<KpcVectorConstraintDouble> vector =
        std::make_unique<KpcVectorConstraintDouble>("V", TestContext::instance());
};

/// Value, lower bound and upper bound of a component.
QList<double> parts(const KpcConstraintDouble& component)
{
    return {component.getValue(Value), component.getValue(LowerBound), component.getValue(UpperBound)};
}

} // namespace

TEST(KpcVectorConstraintDouble, HasThreeComponents)
{
    const Constrained c(Values);
    EXPECT_EQ(c.vector->getType(), KpbEType::VECTOR_CONSTRAINT_DOUBLE);
    EXPECT_EQ(childKeys(*c.vector), QStringList({"COMPONENT_1", "COMPONENT_2", "COMPONENT_3"}));
    EXPECT_EQ(c[0].getLabel(), "Component #1");
    EXPECT_EQ(c[1].getLabel(), "Component #2");
    EXPECT_EQ(c[2].getLabel(), "Component #3");
    EXPECT_EQ(&c[0], c.vector->getChild("COMPONENT_1"));
    EXPECT_EQ(&c[1], c.vector->getChild("COMPONENT_2"));
    EXPECT_EQ(&c[2], c.vector->getChild("COMPONENT_3"));
    EXPECT_EQ(c.vector->getParameter(Second, UpperBound), c[1].getChild("UPPER_BOUND"));
}

TEST(KpcVectorConstraintDouble, TranslatesTheLabelsOfItsComponents)
{
    const BracketTranslator translator;
    const Constrained c(Values);
    EXPECT_EQ(c[0].getLabel(), "[Component #1]");
    EXPECT_EQ(c[1].getLabel(), "[Component #2]");
    EXPECT_EQ(c[2].getLabel(), "[Component #3]");
}

TEST(KpcVectorConstraintDouble, StartsAsThreeFreePlainNumbers)
{
    const Constrained c(Values);
    EXPECT_EQ(c.vector->getMode(), 0);
    EXPECT_EQ(c.vector->getDimension(), 3);
    EXPECT_EQ(c.vector->getComponentLink(), 0);
    for (const Component i : {First, Second, Third}) {
        EXPECT_EQ(c.vector->getComponentLabel(i), "");
        EXPECT_EQ(c.vector->getBehavior(i), 0);
    }
    EXPECT_EQ(c.vector->getValues(), MbgVector3D(0, 0, 0));
}

TEST(KpcVectorConstraintDouble, SetsItsValuesInOneRecord)
{
    const Constrained c;
    RecordingObserver observer(*c.vector);
    c.vector->setValues(MbgVector3D(1, 2, 3));
    EXPECT_EQ(c.vector->getValues(), MbgVector3D(1, 2, 3));
    EXPECT_EQ(c[1].getValue(Value), 2);
    EXPECT_EQ(c[1].getValue(LowerBound), undefined);
    c.vector->setValue(7);
    EXPECT_EQ(c.vector->getValues(), MbgVector3D(7, 7, 7));
    ASSERT_EQ(observer.records.size(), 2);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(observer.flagsOf(c.part(i, Value), 1), Kp::NotifyValue);
}

TEST(KpcVectorConstraintDouble, SetsTheModeOfAllComponents)
{
    const Constrained c(Values);
    RecordingObserver observer(*c.vector);
    c.vector->setMode(Constraints);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(c[i].getMode(), 1);
    ASSERT_EQ(observer.records.size(), 2);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(observer.flagsOf(c[i], 0), Kp::NotifyValue);
    EXPECT_EQ(observer.flags(1), Kp::NotifyValue);
    EXPECT_EQ(observer.records[1].getModifs().firstKey().toString(), "V");
    c.vector->setMode(Constraints);
    EXPECT_EQ(observer.records.size(), 2);
}

TEST(KpcVectorConstraintDouble, HasTheModeOfTheFirstComponent)
{
    const Constrained c(Values);
    c[1].setMode(Constraints);
    EXPECT_EQ(c.vector->getMode(), 0);
    c[0].setMode(Constraints);
    EXPECT_EQ(c.vector->getMode(), 1);
    c.vector->setMode(Constraints);
    EXPECT_EQ(c[2].getMode(), 0);
}

TEST(KpcVectorConstraintDouble, TellsOfANewDimensionAndKeepsItsValues)
{
    const Constrained c;
    c.vector->setValues(MbgVector3D(1, 2, 3));
    RecordingObserver observer(*c.vector);
    c.vector->setDimension(Dimension2, 9);
    EXPECT_EQ(c.vector->getDimension(), 2);
    EXPECT_EQ(c.vector->getValues(), MbgVector3D(1, 2, 3));
    EXPECT_EQ(observer.allFlags(), QList<int>{Kp::NotifyConfig});
    c.vector->setDimension(Dimension2, 10);
    EXPECT_EQ(observer.records.size(), 1);
}

TEST(KpcVectorConstraintDouble, TellsOfNewLabelsAndLeavesThoseOfTheComponents)
{
    const Constrained c;
    RecordingObserver observer(*c.vector);
    c.vector->setComponentLabels("U", "V", "W");
    EXPECT_EQ(c.vector->getComponentLabel(First), "U");
    EXPECT_EQ(c.vector->getComponentLabel(Second), "V");
    EXPECT_EQ(c.vector->getComponentLabel(Third), "W");
    EXPECT_EQ(c[0].getLabel(), "Component #1");
    EXPECT_EQ(observer.allFlags(), QList<int>{Kp::NotifyConfig});
    c.vector->setComponentLabels("U", "V", "W");
    EXPECT_EQ(observer.records.size(), 1);
    c.vector->setComponentLabels("U", "V", "Z");
    EXPECT_EQ(observer.records.size(), 2);
}

TEST(KpcVectorConstraintDouble, LinksTheComponentsThatAreToFollow)
{
    const std::tuple<ComponentLink, MbgVector3D> rows[] = {
        {NoLink, MbgVector3D(1, 2, 3)},
        {AllFollowFirst, MbgVector3D(1, 1, 1)},
        {SecondFollowsFirst, MbgVector3D(1, 1, 3)},
    };
    for (const auto& [link, values] : rows) {
        const Constrained c;
        c.vector->setValues(MbgVector3D(1, 2, 3));
        c.vector->setComponentLink(link);
        EXPECT_EQ(c.vector->getComponentLink(), link);
        EXPECT_EQ(c.vector->getValues(), values);
    }
}

TEST(KpcVectorConstraintDouble, TellsOfANewLinkAfterWhatItChanged)
{
    const Constrained c;
    c.vector->setValues(MbgVector3D(1, 2, 3));
    RecordingObserver observer(*c.vector);
    c.vector->setComponentLink(AllFollowFirst);
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
    EXPECT_EQ(observer.flagsOf(c.part(1, Value), 0), Kp::NotifyValue);
    EXPECT_EQ(observer.flagsOf(c.part(2, Value), 0), Kp::NotifyValue);
    EXPECT_EQ(observer.flags(1), Kp::NotifyConfig);
    c.vector->setComponentLink(AllFollowFirst);
    c.vector->setComponentLink(NoLink);
    ASSERT_EQ(observer.records.size(), 3);
    EXPECT_EQ(observer.flags(2), Kp::NotifyConfig);
}

TEST(KpcVectorConstraintDouble, LetsAllComponentsFollowABoundOfTheFirst)
{
    const Constrained c;
    c.vector->setComponentLink(AllFollowFirst);
    c[0].setValue(LowerBound, 5);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(parts(c[i]), QList<double>({0, 5, undefined}));
        EXPECT_EQ(c[i].getBehavior(), 2);
    }
}

TEST(KpcVectorConstraintDouble, LeavesTheThirdComponentFreeWhereOnlyTheSecondFollows)
{
    const Constrained c;
    c.vector->setComponentLink(SecondFollowsFirst);
    c[0].setValue(UpperBound, 5);
    EXPECT_EQ(parts(c[1]), QList<double>({0, undefined, 5}));
    EXPECT_EQ(parts(c[2]), QList<double>({0, undefined, undefined}));
    c[2].setValue(UpperBound, 8);
    EXPECT_EQ(c[0].getValue(UpperBound), 5);
}

TEST(KpcVectorConstraintDouble, LetsNobodyFollowTheSecondComponent)
{
    const Constrained c;
    c.vector->setComponentLink(AllFollowFirst);
    c[1].setValue(LowerBound, 5);
    EXPECT_EQ(parts(c[0]), QList<double>({0, undefined, undefined}));
    EXPECT_EQ(parts(c[1]), QList<double>({0, 5, undefined}));
    EXPECT_EQ(parts(c[2]), QList<double>({0, undefined, undefined}));
}

TEST(KpcVectorConstraintDouble, LetsComponentsFollowTheLock)
{
    const Constrained c;
    c.vector->setComponentLink(AllFollowFirst);
    c[0].setValue(LowerBound, 5);
    c[0].setValue(Value, 6);
    c.part(0, Value).setValueLocked(true);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(c[i].getBehavior(), 1);
        EXPECT_TRUE(c.part(i, Value).isValueLocked());
        EXPECT_EQ(parts(c[i]), QList<double>({6, undefined, undefined}));
    }
    c[0].setValue(UpperBound, 9); // unlocks
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(c[i].getBehavior(), 2);
        EXPECT_FALSE(c.part(i, Value).isValueLocked());
        EXPECT_EQ(parts(c[i]), QList<double>({6, undefined, 9}));
    }
}

TEST(KpcVectorConstraintDouble, BringsComponentsOfAnotherStateInLine)
{
    const Constrained c;
    c[0].setValue(UpperBound, 9);
    c.part(1, Value).setValueLocked(true);
    c[2].setValue(LowerBound, -4);
    c.vector->setComponentLink(AllFollowFirst);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(c[i].getBehavior(), 2);
        EXPECT_EQ(parts(c[i]), QList<double>({0, undefined, 9}));
    }
}

TEST(KpcVectorConstraintDouble, FollowsAsPlainNumbersToo)
{
    const Constrained c(Values);
    c.vector->setComponentLink(AllFollowFirst);
    c[0].setValue(Value, 4);
    EXPECT_EQ(c.vector->getValues(), MbgVector3D(4, 4, 4));
}

TEST(KpcVectorConstraintDouble, PassesALockOnThatWasTakenBeforeALinkOfPlainNumbers)
{
    const std::tuple<ComponentLink, QList<int>> rows[] = {
        {AllFollowFirst, {1, 1, 1}},
        {SecondFollowsFirst, {1, 1, 0}},
    };
    for (const auto& [link, behaviors] : rows) {
        const Constrained c;
        c.part(0, Value).setValueLocked(true);
        c.vector->setMode(Values);
        c.vector->setComponentLink(link);
        c.vector->setMode(Constraints);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(c[i].getBehavior(), behaviors[i]);
            EXPECT_EQ(c.part(i, Value).isValueLocked(), behaviors[i] == 1);
        }
    }
}

TEST(KpcVectorConstraintDouble, TakesALockOffThatWasTakenBeforeALinkOfPlainNumbers)
{
    const Constrained c;
    c.part(1, Value).setValueLocked(true);
    c.vector->setMode(Values);
    c.vector->setComponentLink(AllFollowFirst);
    c.vector->setMode(Constraints);
    EXPECT_EQ(c.vector->getBehavior(Second), 0);
    EXPECT_FALSE(c.part(1, Value).isValueLocked());
}

TEST(KpcVectorConstraintDouble, KeepsWhatIsKnownOfLinkedComponentsAsPlainNumbers)
{
    const Constrained c;
    c.vector->setComponentLink(AllFollowFirst);
    c.part(0, Value).setValueLocked(true);
    c.vector->setMode(Values);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(c[i].getBehavior(), 1);
        EXPECT_FALSE(c.part(i, Value).isValueLocked());
    }
    c.vector->setMode(Constraints);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(c[i].getBehavior(), 1);
        EXPECT_TRUE(c.part(i, Value).isValueLocked());
    }
}

TEST(KpcVectorConstraintDouble, FollowsNoChangeOfAConfiguration)
{
    const Constrained c;
    c.vector->setComponentLink(AllFollowFirst);
    c[1].setValue(Value, 3);
    c[0].setLabel("Other");
    c[0].setStep(0.5);
    EXPECT_EQ(c.vector->getValues(), MbgVector3D(0, 3, 0));
}

TEST(KpcVectorConstraintDouble, TellsOfWhatFollowsInOneRecordBeforeTheChangeItself)
{
    const Constrained c;
    c.vector->setComponentLink(AllFollowFirst);
    RecordingObserver observer(*c.vector);
    c[0].setValue(Value, 4);
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
    EXPECT_EQ(observer.flagsOf(c.part(1, Value), 0), Kp::NotifyValue);
    EXPECT_EQ(observer.flagsOf(c.part(2, Value), 0), Kp::NotifyValue);
    EXPECT_EQ(observer.flags(1), Kp::NotifyValue);
    EXPECT_EQ(observer.flagsOf(c.part(0, Value), 1), Kp::NotifyValue);
}

TEST(KpcVectorConstraintDouble, ComparesTheValuesOfTheComponentsInUse)
{
    const std::tuple<Dimension, MbgVector3D, bool> rows[] = {
        {Dimension1, MbgVector3D(1, 2, 3), true},  {Dimension2, MbgVector3D(1, 2, 1), false},
        {Dimension2, MbgVector3D(1, 1, 3), true},  {Dimension3, MbgVector3D(1, 1, 3), false},
        {Dimension3, MbgVector3D(1, 2, 1), false}, {Dimension3, MbgVector3D(1, 1, 1), true},
    };
    for (const auto& [dimension, values, equal] : rows) {
        const Constrained c;
        c.vector->setValues(values);
        c.vector->setDimension(dimension, 0);
        EXPECT_EQ(c.vector->areAllValuesEqual(), equal) << dimension << " " << values[1] << " " << values[2];
    }
}

TEST(KpcVectorConstraintDouble, IsFullyLockedWhenAllComponentsThatCountAreKnown)
{
    // The dimension, the link, and which of the components 2 and 3 count.
    const std::tuple<Dimension, ComponentLink, bool, bool> rows[] = {
        {Dimension1, NoLink, false, false},
        {Dimension1, AllFollowFirst, false, false},
        {Dimension1, SecondFollowsFirst, false, false},
        {Dimension2, NoLink, true, false},
        {Dimension2, AllFollowFirst, false, false},
        {Dimension2, SecondFollowsFirst, false, false},
        {Dimension3, NoLink, true, true},
        {Dimension3, AllFollowFirst, false, false},
        {Dimension3, SecondFollowsFirst, false, true},
    };
    for (const auto& [dimension, link, secondCounts, thirdCounts] : rows) {
        const Constrained c;
        c.vector->setDimension(dimension, 0);
        c.vector->setComponentLink(link);
        EXPECT_FALSE(c.vector->isFullyLocked());
        for (int known = 0; known < 8; ++known) {
            for (int i = 0; i < 3; ++i)
                c.part(i, Value).setValueLocked(known & (1 << i));
            const bool expected = (known & 1) && (!secondCounts || (known & 2)) && (!thirdCounts || (known & 4));
            EXPECT_EQ(c.vector->isFullyLocked(), expected) << dimension << " " << link << " " << known;
        }
    }
}

TEST(KpcVectorConstraintDouble, IsNeverFullyLockedAsPlainNumbers)
{
    const Constrained c;
    for (int i = 0; i < 3; ++i)
        c.part(i, Value).setValueLocked(true);
    EXPECT_TRUE(c.vector->isFullyLocked());
    c.vector->setMode(Values);
    EXPECT_FALSE(c.vector->isFullyLocked());
    EXPECT_EQ(c.vector->getBehavior(First), 1);
}

TEST(KpcVectorConstraintDouble, PrintsTheComponentsInUse)
{
    const Constrained c;
    c.vector->setValues(MbgVector3D(1, 2, 3));
    c.part(0, Value).setValueLocked(true);
    c[1].setValue(UpperBound, 10);
    EXPECT_EQ(c.vector->toString(), QString::fromUtf8("[1,]-∞ 10],[unknown]]"));
    c.vector->setDimension(Dimension2, 0);
    EXPECT_EQ(c.vector->toString(), QString::fromUtf8("[1,]-∞ 10]]"));
    c.vector->setDimension(Dimension1, 0);
    EXPECT_EQ(c.vector->toString(), "1");
}

TEST(KpcVectorConstraintDouble, PrintsPlainNumbers)
{
    const Constrained c(Values);
    c.vector->setValues(MbgVector3D(1, 2, 3));
    EXPECT_EQ(c.vector->toString(), "[1,2,3]");
    c.vector->setDimension(Dimension2, 0);
    EXPECT_EQ(c.vector->toString(), "[1,2]");
    c.vector->setDimension(Dimension1, 0);
    EXPECT_EQ(c.vector->toString(), "1");
}

TEST(KpcVectorConstraintDouble, ReadsWhatIsStoredOfEachComponentEvenIfItFollowsTheFirst)
{
    const QString form = R"(<param key="V">
 <param key="COMPONENT_1">
  <param key="VALUE">1</param>
  <param key="LOWER_BOUND">5</param>
  <param key="UPPER_BOUND"/>
 </param>
 <param key="COMPONENT_2">
  <param key="VALUE">2</param>
  <param key="LOWER_BOUND"/>
  <param key="UPPER_BOUND">6</param>
 </param>
 <param key="COMPONENT_3">
  <param key="VALUE">3</param>
  <param key="LOWER_BOUND"/>
  <param key="UPPER_BOUND"/>
 </param>
</param>
)";
    const Constrained c;
    c.vector->setComponentLink(AllFollowFirst);
    SerializerTest::read(*c.vector, form);
    EXPECT_EQ(parts(c[0]), QList<double>({1, 5, undefined}));
    EXPECT_EQ(parts(c[1]), QList<double>({2, undefined, 6}));
    EXPECT_EQ(parts(c[2]), QList<double>({3, undefined, undefined}));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(c[i].getBehavior(), i < 2 ? 2 : 0);
    EXPECT_EQ(SerializerTest::writtenParam(*c.vector), form);
}

TEST(KpcVectorConstraintDouble, CopiesItsStateAndItsComponents)
{
    const Constrained c;
    c.vector->setDimension(Dimension2, 0);
    c.vector->setComponentLabels("U", "V", "W");
    c.vector->setComponentLink(SecondFollowsFirst);
    c[0].setValue(LowerBound, 5);
    c[1].setValue(LowerBound, 6);
    const std::unique_ptr<KpcVectorConstraintDouble> copy(c.vector->duplicate("W"));
    EXPECT_EQ(copy->getKey(), "W");
    EXPECT_EQ(std::unique_ptr<KpcVectorConstraintDouble>(copy->duplicate(QString()))->getKey(), "W");
    EXPECT_EQ(copy->getMode(), 1);
    EXPECT_EQ(copy->getDimension(), 2);
    EXPECT_EQ(copy->getComponentLink(), 2);
    EXPECT_EQ(copy->getComponentLabel(Third), "W");
    EXPECT_EQ(copy->toString(), QString::fromUtf8("[[5 +∞[,[6 +∞[]"));
    EXPECT_EQ(copy->getParameter(First), copy->getChild("COMPONENT_1"));
    EXPECT_NE(copy->getParameter(First), &c[0]);

    copy->getParameter(First)->setValue(LowerBound, 8);
    EXPECT_EQ(copy->getParameter(Second)->getValue(LowerBound), 8);
    EXPECT_EQ(c[1].getValue(LowerBound), 6);
}

TEST(KpcVectorConstraintDouble, SurvivesThatItIsDestroyedByAnObserver)
{
    using Change = std::function<void(Constrained&)>;
    const Change changes[] = {
        [](Constrained& c) { c[0].setValue(Value, 6); },
        [](Constrained& c) { c[0].setValue(LowerBound, 6); },
        [](Constrained& c) { c.part(0, Value).setValueLocked(true); },
        [](Constrained& c) { c.vector->setMode(Values); },
        [](Constrained& c) { c.vector->setComponentLink(SecondFollowsFirst); },
        [](Constrained& c) { c.vector->setValues(MbgVector3D(7, 8, 9)); },
        [](Constrained& c) { c.vector->setDimension(Dimension1, 0); },
    };
    for (int target = 0; target < 13; ++target) {
        for (const Change& change : changes) {
            Constrained c;
            c.vector->setComponentLink(AllFollowFirst);
            c[1].setValue(Value, 4);
            c[1].setValue(UpperBound, 5);
            const KpbAParameter* observed = c.vector.get();
            if (target >= 1)
                observed = c.vector->getChild((target - 1) / 4);
            if (target >= 1 && (target - 1) % 4 != 0)
                observed = observed->getChild((target - 1) % 4 - 1);
            RecordingObserver ofVector(*c.vector);
            ActingObserver observer(*observed, [&] { c.vector.reset(); });
            change(c);
            EXPECT_EQ(ofVector.deaths, observer.records.isEmpty() ? 0 : 1);
            EXPECT_EQ(!c.vector, !observer.records.isEmpty());
        }
    }
}

TEST(KpcVectorConstraintDouble, FollowsTheFirstComponentAfterAnObserverHasChangedTheSecond)
{
    const Constrained c;
    c.vector->setComponentLink(AllFollowFirst);
    bool once = false;
    ActingObserver observer(c[1], [&] {
        if (!std::exchange(once, true))
            c[1].setValue(Value, 100);
    });
    c[0].setValue(Value, 1);
    EXPECT_EQ(c.vector->getValues(), MbgVector3D(1, 100, 1));
    c[0].setValue(Value, 2);
    EXPECT_EQ(c.vector->getValues(), MbgVector3D(2, 2, 2));
}
