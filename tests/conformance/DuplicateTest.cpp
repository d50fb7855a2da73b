#include "Atomics.h"
#include "Subjects.h"
#include "Trees.h"

#include <registry/ClassRegistry.h>
#include <support/RecordingObserver.h>

#include <typeinfo>

namespace {

std::unique_ptr<KpbAParameter> duplicate(const KpbAParameter& parameter, const QString& key = QString())
{
    return std::unique_ptr<KpbAParameter>(parameter.duplicate(key));
}

/// Whether locks and read-only flags say what the parent knows, which brings them to that in a copy.
bool isPartOfAConstraint(const KpbAParameter& parameter)
{
    return parameter.getParent() && parameter.getParent()->isA(KpbEType::CONSTRAINT_DOUBLE);
}

/// Changes whatever can be changed by ordinary setters.
void changeEverything(KpbAParameter& root)
{
    for (KpbAParameter* parameter : allOf(root)) {
        parameter->setLabel("Other label");
        parameter->setEnabled(!parameter->getEnabledFlag());
        parameter->setAutomaticEnabled(!parameter->isAutomaticEnabled());
        if (!isPartOfAConstraint(*parameter)) {
            parameter->setReadOnly(!parameter->getReadOnlyFlag());
            parameter->activateValueLock(true);
        }
        parameter->setVolatile(!parameter->isVolatile());
        changeValue(*parameter);
    }
}

} // namespace

TEST_EVERY(ParameterClass, HasADuplicateOfItsOwnClass)
{
    const auto original = make();
    const auto copy = duplicate(*original);
    const KpbAParameter& first = *original;
    const KpbAParameter& second = *copy;
    EXPECT_TRUE(typeid(first) == typeid(second)) << typeid(second).name();
    EXPECT_NE(original, copy);
}

TEST_EVERY(ParameterClass, KeepsItsKeyInADuplicateUnlessAnotherIsGiven)
{
    const auto original = make();
    EXPECT_EQ(duplicate(*original)->getKey(), original->getKey());
    EXPECT_EQ(duplicate(*original, "OTHER")->getKey(), "OTHER");
}

TEST_EVERY(ParameterClass, KeepsTheKeysOfItsChildrenInADuplicateUnderAnotherKey)
{
    const auto original = make();
    const auto copy = duplicate(*original, "OTHER");
    const QList<KpbAParameter*> originals = allBelow(*original);
    const QList<KpbAParameter*> copies = allBelow(*copy);
    ASSERT_EQ(originals.size(), copies.size());
    for (int i = 0; i < originals.size(); ++i)
        EXPECT_EQ(copies[i]->getKey(), originals[i]->getKey());
}

TEST_EVERY(ParameterClass, EqualsItsDuplicate)
{
    const auto original = make();
    const auto copy = duplicate(*original);
    EXPECT_EQ(savedBytes(*copy), savedBytes(*original));
    EXPECT_EQ(stateOf(*copy), stateOf(*original));
}

TEST_EVERY(ParameterClass, EqualsItsDuplicateAfterAnyChange)
{
    const auto original = makeChanged();
    EXPECT_EQ(stateOf(*duplicate(*original)), stateOf(*original));
    changeEverything(*original);
    const auto copy = duplicate(*original);
    EXPECT_EQ(savedBytes(*copy), savedBytes(*original));
    EXPECT_EQ(stateOf(*copy), stateOf(*original));
}

TEST_EVERY(ParameterClass, SharesWhatALoadLockedOneKeepsWithItsDuplicate)
{
    const auto original = make();
    original->lockLoad();
    load(*original, save(*makeChanged()));
    const auto copy = duplicate(*original);
    EXPECT_TRUE(copy->isLoadLocked());
    EXPECT_EQ(copy->getUnserializeData(), original->getUnserializeData());
}

TEST_EVERY(ParameterClass, HasADuplicateWithoutAParent)
{
    const auto parent = ClassRegistry::find("KpcGroup")->make("PARENT");
    KpbAParameter* child = make().release();
    dynamic_cast<KpcGroup&>(*parent).addChild(child);
    EXPECT_EQ(child->getParent(), parent.get());
    EXPECT_EQ(duplicate(*child)->getParent(), nullptr);
}

TEST_EVERY(ParameterClass, HasADuplicateWithoutObservers)
{
    const auto parent = ClassRegistry::find("KpcGroup")->make("PARENT");
    KpbAParameter* original = make().release();
    dynamic_cast<KpcGroup&>(*parent).addChild(original);
    RecordingObserver ofParent(*parent);
    RecordingObserver ofOriginal(*original);
    {
        const auto copy = duplicate(*original);
        changeEverything(*copy);
    }
    EXPECT_EQ(ofParent.records.size(), 0);
    EXPECT_EQ(ofOriginal.records.size(), 0);
    EXPECT_EQ(ofOriginal.deaths, 0);
}

TEST_EVERY(ParameterClass, StaysAsItIsWhenItsDuplicateChanges)
{
    const auto original = make();
    const std::string state = stateOf(*original);
    const std::string bytes = savedBytes(*original);
    changeEverything(*duplicate(*original));
    EXPECT_EQ(stateOf(*original), state);
    EXPECT_EQ(savedBytes(*original), bytes);
}

TEST_EVERY(ParameterClass, HasADuplicateThatStaysAsItIsWhenTheOriginalChangesAndDies)
{
    auto original = make();
    const auto copy = duplicate(*original);
    const std::string state = stateOf(*copy);
    const std::string bytes = savedBytes(*copy);
    changeEverything(*original);
    original.reset();
    EXPECT_EQ(stateOf(*copy), state);
    EXPECT_EQ(savedBytes(*copy), bytes);
}

TEST_EVERY(ParameterClass, HasADuplicateThatReactsAsTheOriginalDoes)
{
    const auto original = make();
    const auto copy = duplicate(*original);
    for (KpbAParameter* parameter : allOf(*original)) {
        KpbAParameter& other = counterpart(*parameter, *copy);
        EXPECT_EQ(changeValue(other), changeValue(*parameter)) << placeOf(*parameter);
        EXPECT_EQ(stateOf(*copy), stateOf(*original)) << "after a change of " << placeOf(*parameter);
    }
    for (KpbAParameter* parameter : allOf(*original)) {
        counterpart(*parameter, *copy).setEnabled(!parameter->getEnabledFlag());
        parameter->setEnabled(!parameter->getEnabledFlag());
        EXPECT_EQ(stateOf(*copy), stateOf(*original)) << "after enabling or disabling " << placeOf(*parameter);
    }
}
