#include "CompositeTestTools.h"

#include <basic/MbuUnitService.h>
#include <param/KpsSerializerTestTools.h>
#include <param/composite/KpcConstraintDouble.h>
#include <support/BracketTranslator.h>
#include <support/RecordedMessages.h>

#include <functional>
#include <memory>
#include <utility>

namespace {

using namespace Ku::Constraint;

constexpr double undefined = MbbGlobal::D_FFFF;

/// A constraint and its parts.
struct Constrained
{
    explicit Constrained(Mode mode = Constraints) { constraint->setMode(mode); }
    Constrained(double lowerBound, double upperBound) : Constrained()
    {
        lower->setValue(lowerBound);
        upper->setValue(upperBound);
    }

    std::unique_ptr<KpcConstraintDouble> constraint =
        std::make_unique<KpcConstraintDouble>("C", TestContext::instance());
    KpaDouble* value = dynamic_cast<KpaDouble*>(constraint->getChild("VALUE"));
    KpaDouble* lower = dynamic_cast<KpaDouble*>(constraint->getChild("LOWER_BOUND"));
    KpaDouble* upper = dynamic_cast<KpaDouble*>(constraint->getChild("UPPER_BOUND"));
};

/// The origins of the changes that a record tells of, with their flags.
QStringList entries(const KpnModif& modif)
{
    QStringList texts;
    modif.forEach([&](const KpnPath& path, Kp::NotificationFlags flags) {
        texts.append(path.getFirst()->getKey() + QLatin1Char(' ') + QString::number(int(flags)));
    });
    texts.sort();
    return texts;
}

QList<QStringList> allEntries(const RecordingObserver& observer)
{
    QList<QStringList> all;
    for (const KpnModif& modif : observer.records)
        all.append(entries(modif));
    return all;
}

using Records = QList<QStringList>;

QString storedPart(const QString& key, const QString& text)
{
    return " <param key=\"" + key + (text.isEmpty() ? QString("\"/>\n") : "\">" + text + "</param>\n");
}

QString storedForm(const QString& value, const QString& lower, const QString& upper)
{
    return "<param key=\"C\">\n" + storedPart("VALUE", value) + storedPart("LOWER_BOUND", lower) +
           storedPart("UPPER_BOUND", upper) + "</param>\n";
}

} // namespace

TEST(KpcConstraintDouble, HasAValueAndTwoBounds)
{
    const Constrained c(Values);
    EXPECT_EQ(c.constraint->getType(), KpbEType::CONSTRAINT_DOUBLE);
    EXPECT_EQ(childKeys(*c.constraint), QStringList({"VALUE", "LOWER_BOUND", "UPPER_BOUND"}));
    ASSERT_TRUE(c.value && c.lower && c.upper);
    EXPECT_EQ(c.value->getLabel(), "Value");
    EXPECT_EQ(c.lower->getLabel(), "Lower bound");
    EXPECT_EQ(c.upper->getLabel(), "Upper bound");
}

TEST(KpcConstraintDouble, TranslatesLabelsAndTheTextsOfMissingBounds)
{
    const BracketTranslator translator;
    const Constrained c(Values);
    EXPECT_EQ(c.value->getLabel(), "[Value]");
    EXPECT_EQ(c.lower->getLabel(), "[Lower bound]");
    EXPECT_EQ(c.upper->getLabel(), "[Upper bound]");
    EXPECT_EQ(c.lower->getUndefString(), "[Min.]");
    EXPECT_EQ(c.upper->getUndefString(), "[Max.]");
}

TEST(KpcConstraintDouble, AdmitsUndefinedBoundsOnly)
{
    const Constrained c(Values);
    EXPECT_FALSE(c.value->isUndefineEnabled());
    EXPECT_EQ(c.value->getUndefString(), "");
    EXPECT_TRUE(c.lower->isUndefineEnabled());
    EXPECT_TRUE(c.upper->isUndefineEnabled());
    EXPECT_EQ(c.lower->getUndefString(), "Min.");
    EXPECT_EQ(c.upper->getUndefString(), "Max.");
}

TEST(KpcConstraintDouble, StartsAsAPlainNumberOfWhichNothingIsKnown)
{
    const Constrained c(Values);
    EXPECT_EQ(c.constraint->getMode(), 0);
    EXPECT_EQ(c.constraint->getBehavior(), 0);
    EXPECT_FALSE(c.value->isLockValueEnabled());
    EXPECT_FALSE(c.value->isValueLocked());
    EXPECT_FALSE(c.value->getReadOnlyFlag());
    EXPECT_TRUE(c.lower->getReadOnlyFlag());
    EXPECT_TRUE(c.upper->getReadOnlyFlag());
}

TEST(KpcConstraintDouble, GivesItsParts)
{
    const Constrained c;
    EXPECT_EQ(c.constraint->getParameter(Value), c.value);
    EXPECT_EQ(c.constraint->getParameter(LowerBound), c.lower);
    EXPECT_EQ(c.constraint->getParameter(UpperBound), c.upper);
}

TEST(KpcConstraintDouble, OffersTheLockAndOpensTheBoundsAsAConstraint)
{
    const Constrained c;
    EXPECT_EQ(c.constraint->getMode(), 1);
    EXPECT_EQ(c.constraint->getBehavior(), 0);
    EXPECT_TRUE(c.value->isLockValueEnabled());
    EXPECT_FALSE(c.value->isValueLocked());
    EXPECT_FALSE(c.lower->getReadOnlyFlag());
    EXPECT_FALSE(c.upper->getReadOnlyFlag());
    EXPECT_FALSE(c.lower->isDefined());
    EXPECT_FALSE(c.upper->isDefined());
}

TEST(KpcConstraintDouble, IsKnownAndHasNoBoundsWhenTheValueIsLocked)
{
    Constrained c(0, 10);
    c.value->setValue(7);
    c.value->setValueLocked(true);
    EXPECT_EQ(c.constraint->getBehavior(), 1);
    EXPECT_EQ(c.lower->getValue(), undefined);
    EXPECT_EQ(c.upper->getValue(), undefined);
    EXPECT_EQ(c.constraint->toString(), "7");
}

TEST(KpcConstraintDouble, StaysKnownWhenTheLockedValueChanges)
{
    Constrained c;
    c.value->setValueLocked(true);
    c.value->setValue(3);
    EXPECT_EQ(c.constraint->getBehavior(), 1);
    EXPECT_TRUE(c.value->isValueLocked());
}

TEST(KpcConstraintDouble, IsUnknownWhenTheLockIsTakenOff)
{
    Constrained c;
    c.value->setValueLocked(true);
    c.value->setValueLocked(false);
    EXPECT_EQ(c.constraint->getBehavior(), 0);
    EXPECT_EQ(c.constraint->toString(), "[unknown]");
}

TEST(KpcConstraintDouble, IsBoundedByEitherBound)
{
    for (const Part part : {LowerBound, UpperBound}) {
        Constrained c;
        c.constraint->setValue(part, 4);
        EXPECT_EQ(c.constraint->getBehavior(), 2);
        EXPECT_EQ(c.constraint->getValue(part), 4);
        c.constraint->setValue(part, undefined);
        EXPECT_EQ(c.constraint->getBehavior(), 0);
    }
}

TEST(KpcConstraintDouble, StaysBoundedAsLongAsOneBoundIsLeft)
{
    Constrained c(0, 10);
    c.lower->setValue(undefined);
    EXPECT_EQ(c.constraint->getBehavior(), 2);
    EXPECT_EQ(c.upper->getValue(), 10);
    c.upper->setValue(undefined);
    EXPECT_EQ(c.constraint->getBehavior(), 0);
}

TEST(KpcConstraintDouble, KeepsTheBoundsWhenAnUnlockedValueChanges)
{
    Constrained c(0, 10);
    c.value->setValue(3);
    EXPECT_EQ(c.constraint->getBehavior(), 2);
    EXPECT_EQ(c.lower->getValue(), 0);
    EXPECT_EQ(c.upper->getValue(), 10);
}

TEST(KpcConstraintDouble, TakesTheLockOffWhenABoundIsEntered)
{
    Constrained c;
    c.value->setValueLocked(true);
    c.upper->setValue(5);
    EXPECT_EQ(c.constraint->getBehavior(), 2);
    EXPECT_FALSE(c.value->isValueLocked());
    EXPECT_EQ(c.upper->getValue(), 5);
    EXPECT_EQ(c.lower->getValue(), undefined);
}

TEST(KpcConstraintDouble, IsBoundedWhenTheLockIsTakenOffAValueWithBounds)
{
    Constrained c;
    c.value->setValueLocked(true);
    {
        const KuoLockObserver<KpnModif> deaf(c.constraint.get(), c.lower);
        c.lower->setValue(2);
    }
    EXPECT_EQ(c.constraint->getBehavior(), 1);
    c.value->setValueLocked(false);
    EXPECT_EQ(c.constraint->getBehavior(), 2);
    EXPECT_EQ(c.constraint->toString(), QString::fromUtf8("[2 +∞["));
}

TEST(KpcConstraintDouble, ReactsToNoChangeOfAConfiguration)
{
    Constrained c(0, 10);
    c.value->setLabel("Other");
    c.lower->setLabel("Other");
    c.upper->setStep(1);
    EXPECT_EQ(c.constraint->getBehavior(), 2);
    EXPECT_EQ(c.lower->getValue(), 0);
}

TEST(KpcConstraintDouble, KeepsTheBoundsReadOnlyAsAPlainNumber)
{
    Constrained c(0, 10);
    c.constraint->setMode(Values);
    EXPECT_TRUE(c.lower->getReadOnlyFlag());
    EXPECT_TRUE(c.upper->getReadOnlyFlag());
    EXPECT_EQ(c.lower->getValue(), 0);
    EXPECT_EQ(c.upper->getValue(), 10);
    EXPECT_EQ(c.constraint->getBehavior(), 2);
    EXPECT_FALSE(c.value->isLockValueEnabled());
}

TEST(KpcConstraintDouble, RemembersAsAPlainNumberThatItIsKnown)
{
    Constrained c;
    c.value->setValueLocked(true);
    c.constraint->setMode(Values);
    EXPECT_EQ(c.constraint->getBehavior(), 1);
    EXPECT_FALSE(c.value->isValueLocked());
    c.constraint->setMode(Constraints);
    EXPECT_EQ(c.constraint->getBehavior(), 1);
    EXPECT_TRUE(c.value->isValueLocked());
}

TEST(KpcConstraintDouble, ReactsToNothingAsAPlainNumber)
{
    Constrained c(Values);
    c.lower->setValue(1);
    c.value->setValueLocked(true);
    EXPECT_EQ(c.constraint->getBehavior(), 0);
    EXPECT_EQ(c.lower->getValue(), 1);
}

TEST(KpcConstraintDouble, LosesTheBoundsOfAPlainNumberWhenNothingIsKnown)
{
    Constrained c(Values);
    c.lower->setValue(1);
    c.upper->setValue(2);
    c.constraint->setMode(Constraints);
    EXPECT_EQ(c.constraint->getBehavior(), 0);
    EXPECT_EQ(c.lower->getValue(), undefined);
    EXPECT_EQ(c.upper->getValue(), undefined);
}

TEST(KpcConstraintDouble, IsUnknownIfItHasLostItsBoundsAsAPlainNumber)
{
    Constrained c(0, 10);
    c.constraint->setMode(Values);
    c.lower->setValue(undefined);
    c.upper->setValue(undefined);
    EXPECT_EQ(c.constraint->getBehavior(), 2);
    c.constraint->setMode(Constraints);
    EXPECT_EQ(c.constraint->getBehavior(), 0);
    EXPECT_EQ(c.constraint->toString(), "[unknown]");
}

TEST(KpcConstraintDouble, TakesTheBoundsOverThatItWasGivenAsAPlainNumber)
{
    Constrained c(0, 10);
    c.constraint->setMode(Values);
    c.lower->setValue(undefined);
    c.upper->setValue(7);
    c.constraint->setMode(Constraints);
    EXPECT_EQ(c.constraint->getBehavior(), 2);
    EXPECT_EQ(c.constraint->toString(), QString::fromUtf8("]-∞ 7]"));
}

TEST(KpcConstraintDouble, TellsOfANewMode)
{
    Constrained c(Values);
    RecordingObserver observer(*c.constraint);
    c.constraint->setMode(Constraints);
    EXPECT_EQ(allEntries(observer),
              Records({{"VALUE 2"}, {"LOWER_BOUND 2"}, {"UPPER_BOUND 2"}, {"C 1"}})); // the bounds are cleared unheard
    c.constraint->setMode(Constraints);
    EXPECT_EQ(observer.records.size(), 4);
}

TEST(KpcConstraintDouble, TellsOnlyOfThePartThatWasChanged)
{
    Constrained c(0, 10);
    RecordingObserver observer(*c.constraint);
    c.value->setValueLocked(true);
    c.lower->setValue(3); // unlocks
    c.value->setValue(5);
    EXPECT_EQ(allEntries(observer), Records({{"VALUE 1"}, {"LOWER_BOUND 1"}, {"VALUE 1"}}));
}

TEST(KpcConstraintDouble, HasReactedWhenItsObserversHear)
{
    Constrained c(0, 10);
    QList<int> behaviors;
    ActingObserver observer(*c.constraint, [&] { behaviors.append(c.constraint->getBehavior()); });
    c.value->setValueLocked(true);
    c.upper->setValue(3);
    c.upper->setValue(undefined);
    EXPECT_EQ(behaviors, QList<int>({1, 2, 0}));
}

TEST(KpcConstraintDouble, LetsObserversOfTheBoundsHearThatTheyAreCleared)
{
    Constrained c(0, 10);
    RecordingObserver ofLower(*c.lower);
    RecordingObserver ofUpper(*c.upper);
    c.value->setValueLocked(true);
    EXPECT_EQ(ofLower.allFlags(), QList<int>{Kp::NotifyValue});
    EXPECT_EQ(ofUpper.allFlags(), QList<int>{Kp::NotifyValue});
}

TEST(KpcConstraintDouble, LetsObserversOfTheValueHearThatItIsUnlocked)
{
    Constrained c;
    c.value->setValueLocked(true);
    RecordingObserver ofValue(*c.value);
    c.lower->setValue(3);
    EXPECT_EQ(ofValue.allFlags(), QList<int>{Kp::NotifyValue});
}

TEST(KpcConstraintDouble, HearsItsPartsAgainAfterEachReaction)
{
    Constrained c;
    for (int turn = 0; turn < 3; ++turn) {
        c.value->setValueLocked(true);
        EXPECT_EQ(c.constraint->getBehavior(), 1);
        c.lower->setValue(1);
        EXPECT_EQ(c.constraint->getBehavior(), 2);
        c.lower->setValue(undefined);
        EXPECT_EQ(c.constraint->getBehavior(), 0);
    }
}

TEST(KpcConstraintDouble, PutsTheStateOfThePartsRightAtEachChangeOfALockedValue)
{
    Constrained c;
    c.value->setValueLocked(true);
    c.value->setLockValueEnabled(false);
    c.lower->setReadOnly(true);
    c.value->setValue(3);
    EXPECT_TRUE(c.value->isLockValueEnabled());
    EXPECT_FALSE(c.lower->getReadOnlyFlag());
}

TEST(KpcConstraintDouble, PrintsWhatIsKnown)
{
    const std::tuple<double, double, QString> bounds[] = {
        {0, 10, "[0 10]"},
        {undefined, 10, QString::fromUtf8("]-∞ 10]")},
        {0, undefined, QString::fromUtf8("[0 +∞[")},
        {undefined, undefined, "[unknown]"},
        {-1.5, 2.25, "[-1.5 2.25]"},
    };
    for (const auto& [lower, upper, text] : bounds)
        EXPECT_EQ(Constrained(lower, upper).constraint->toString(), text);
}

TEST(KpcConstraintDouble, PrintsTheInfinitySign)
{
    Constrained c(undefined, 1);
    EXPECT_EQ(c.constraint->toString().at(2).unicode(), 0x221E);
}

TEST(KpcConstraintDouble, PrintsAPlainNumberWhateverIsKnown)
{
    Constrained c(0, 10);
    c.value->setValue(4);
    c.constraint->setMode(Values);
    EXPECT_EQ(c.constraint->toString(), "4");
}

TEST(KpcConstraintDouble, PrintsNothingInAnotherMode)
{
    Constrained c;
    c.constraint->setMode(Mode(2));
    EXPECT_EQ(c.constraint->toString(), "");
}

TEST(KpcConstraintDouble, ForwardsTheOperationsOfAPart)
{
    for (const Part part : {Value, LowerBound, UpperBound}) {
        Constrained c(Values);
        KpcConstraintDouble& constraint = *c.constraint;
        const KpaDouble& number = *constraint.getParameter(part);
        constraint.setUnitClass(MbuEUnitClass::LENGTH);
        const MbuUnit km = MbuUnitService::getUnit("km");

        constraint.setValueWithUnit(part, 1.5, km);
        EXPECT_DOUBLE_EQ(number.getValue(), 1500);
        EXPECT_DOUBLE_EQ(constraint.getValueFromUnit(part, km), 1.5);
        constraint.setValue(part, 2500);
        EXPECT_EQ(number.getValue(), 2500);
        EXPECT_EQ(constraint.getValue(part), 2500);
        EXPECT_TRUE(constraint.isDefined(part));
        EXPECT_EQ(constraint.toString(part), "2500 m");

        EXPECT_FALSE(constraint.isAutomaticValueInitialized(part));
        constraint.setAutoValueWithUnit(part, 3, km);
        EXPECT_DOUBLE_EQ(number.getAutoValue(), 3000);
        EXPECT_DOUBLE_EQ(constraint.getAutoValueFromUnit(part, km), 3);
        constraint.setAutoValue(part, 4000);
        EXPECT_EQ(constraint.getAutoValue(part), 4000);
        EXPECT_TRUE(constraint.isAutomaticValueInitialized(part));

        constraint.activateAutoValue(part);
        EXPECT_TRUE(number.isAutomatic());
        EXPECT_EQ(number.getValue(), 4000);
        constraint.activateAutoValue(part, 5000);
        EXPECT_EQ(number.getValue(), 5000);
        constraint.unsetAutoValue(part);
        EXPECT_FALSE(number.isAutomaticValueInitialized());
    }
}

TEST(KpcConstraintDouble, SaysWhetherAPartIsDefined)
{
    const Constrained c;
    EXPECT_TRUE(c.constraint->isDefined(Value));
    EXPECT_FALSE(c.constraint->isDefined(LowerBound));
    EXPECT_EQ(c.constraint->toString(LowerBound), "Min.");
    EXPECT_EQ(c.constraint->toString(UpperBound), "Max.");
}

TEST(KpcConstraintDouble, HasTheTwoFormsOfTheAutomaticState)
{
    const Constrained c;
    c.constraint->setAutoValue(Value, 4);
    EXPECT_TRUE(c.constraint->isAutomaticValueInitialized(Value));
    EXPECT_FALSE(c.constraint->isAutomaticValueInitialized());
}

TEST(KpcConstraintDouble, IsStoredAsItsParts)
{
    const Constrained c(undefined, 10);
    EXPECT_TRUE(c.constraint->serialize().isEmpty());
    EXPECT_EQ(SerializerTest::writtenParam(*c.constraint), storedForm("0", "", "10"));
}

TEST(KpcConstraintDouble, FindsOutWhatIsKnownFromTheBoundsThatItReads)
{
    // The stored bounds, and what a constraint that was unknown, known or bounded by 0 and 10 is then.
    const std::tuple<QString, QString, QList<int>> rows[] = {
        {"", "", {0, 1, 0}}, // a known one does not change, as it has no bounds
        {"2", "", {2, 2, 2}},
        {"", "8", {2, 2, 2}},
        {"2", "8", {2, 2, 2}},
    };
    for (const auto& [lower, upper, behaviors] : rows) {
        Constrained unknown;
        Constrained known;
        known.value->setValueLocked(true);
        Constrained bounded(0, 10);
        QList<int> read;
        for (Constrained* each : {&unknown, &known, &bounded}) {
            SerializerTest::read(*each->constraint, storedForm("5", lower, upper));
            EXPECT_EQ(each->value->getValue(), 5);
            EXPECT_EQ(KpsSerializer::fromDouble(each->lower->getValue(), 'g', 10), lower);
            EXPECT_EQ(KpsSerializer::fromDouble(each->upper->getValue(), 'g', 10), upper);
            read.append(each->constraint->getBehavior());
        }
        EXPECT_EQ(read, behaviors) << lower.toStdString() << " " << upper.toStdString();
    }
}

TEST(KpcConstraintDouble, ReadsItsPartsAsAPlainNumberAndKnowsNoMore)
{
    Constrained c(Values);
    SerializerTest::read(*c.constraint, storedForm("5", "2", "8"));
    EXPECT_EQ(c.constraint->getBehavior(), 0);
    EXPECT_EQ(c.lower->getValue(), 2);
    EXPECT_EQ(c.upper->getValue(), 8);
}

TEST(KpcConstraintDouble, TakesStoredBoundsThatAreNoNumbersForMissingOnes)
{
    Constrained c(0, 10);
    SerializerTest::read(*c.constraint, storedForm("x", "y", "z"));
    EXPECT_EQ(c.value->getValue(), 0);
    EXPECT_EQ(c.constraint->toString(), "[unknown]");
}

TEST(KpcConstraintDouble, CopiesItsStateAndItsParts)
{
    Constrained c(undefined, 10);
    const std::unique_ptr<KpcConstraintDouble> copy(c.constraint->duplicate("D"));
    EXPECT_EQ(copy->getKey(), "D");
    EXPECT_EQ(copy->getMode(), 1);
    EXPECT_EQ(copy->getBehavior(), 2);
    EXPECT_EQ(copy->toString(), QString::fromUtf8("]-∞ 10]"));
    EXPECT_EQ(copy->getParameter(UpperBound), copy->getChild("UPPER_BOUND"));
    EXPECT_NE(copy->getParameter(UpperBound), c.upper);

    copy->setValue(UpperBound, undefined);
    EXPECT_EQ(copy->getBehavior(), 0);
    EXPECT_EQ(c.constraint->getBehavior(), 2);
    EXPECT_EQ(c.upper->getValue(), 10);
    EXPECT_EQ(std::unique_ptr<KpcConstraintDouble>(copy->duplicate(QString()))->getKey(), "D");
}

TEST(KpcConstraintDouble, BringsThePartsOfACopyInLine)
{
    Constrained c;
    c.value->setLockValueEnabled(false);
    c.upper->setReadOnly(true);
    const std::unique_ptr<KpcConstraintDouble> copy(c.constraint->duplicate("D"));
    EXPECT_TRUE(copy->getParameter(Value)->isLockValueEnabled());
    EXPECT_FALSE(copy->getParameter(UpperBound)->getReadOnlyFlag());
}

namespace {

using Change = std::function<void(Constrained&)>;

const Change changes[] = {
    [](Constrained& c) { c.value->setValueLocked(true); },
    [](Constrained& c) { c.lower->setValue(5); },
    [](Constrained& c) { c.constraint->setMode(Values); },
    [](Constrained& c) { c.constraint->setMinimum(20); },
};

} // namespace

TEST(KpcConstraintDouble, SurvivesThatItIsDestroyedByAnObserver)
{
    for (const char* key : {"VALUE", "LOWER_BOUND", "UPPER_BOUND", ""}) {
        for (const Change& change : changes) {
            Constrained c(0, 10);
            RecordingObserver ofConstraint(*c.constraint);
            const KpbAParameter& observed = *key ? *c.constraint->getChild(key) : *c.constraint;
            ActingObserver observer(observed, [&] { c.constraint.reset(); });
            change(c);
            EXPECT_EQ(ofConstraint.deaths, observer.records.isEmpty() ? 0 : 1);
            EXPECT_EQ(!c.constraint, !observer.records.isEmpty());
        }
    }
}

TEST(KpcConstraintDouble, SurvivesThatAnObserverOfABoundEntersItAgain)
{
    Constrained c(0, 10);
    bool once = false;
    ActingObserver observer(*c.lower, [&] {
        if (!std::exchange(once, true))
            c.lower->setValue(1);
    });
    c.value->setValueLocked(true);
    EXPECT_EQ(c.constraint->getBehavior(), 1); // the bound is not heard while it is cleared
    EXPECT_EQ(c.lower->getValue(), 1);
    c.lower->setValue(2);
    EXPECT_EQ(c.constraint->getBehavior(), 2);
    EXPECT_FALSE(c.value->isValueLocked());
}

TEST(KpcConstraintDouble, ReactsInFullWhereAnObserverThrows)
{
    Constrained c(0, 10);
    const RecordedMessages messages;
    ActingObserver observer(*c.lower, [] { throw 1; });
    c.value->setValueLocked(true);
    EXPECT_EQ(messages.warnings.size(), 1);
    EXPECT_EQ(c.constraint->getBehavior(), 1);
    EXPECT_EQ(c.upper->getValue(), undefined);
    c.lower->setValue(3);
    EXPECT_EQ(c.constraint->getBehavior(), 2);
    EXPECT_FALSE(c.value->isValueLocked());
}
