#include "Atomics.h"
#include "Subjects.h"
#include "Trees.h"

#include <support/RecordingObserver.h>

#include <QtCore/QSet>

namespace {

QStringList placesOf(KpbAParameter& root)
{
    QStringList places;
    for (const KpbAParameter* parameter : allOf(root))
        places.append(parameter->getAbsolutePath().join("/"));
    return places;
}

} // namespace

TEST_EVERY(ParameterClass, HasKeysThatAreUniqueAmongSiblings)
{
    const auto root = make();
    for (KpbAParameter* parameter : allOf(*root)) {
        QSet<QString> keys;
        for (int i = 0; i < parameter->getChildCount(); ++i)
            keys.insert(parameter->getChild(i)->getKey());
        EXPECT_EQ(keys.size(), parameter->getChildCount()) << placeOf(*parameter);
        EXPECT_FALSE(keys.contains(QString())) << placeOf(*parameter);
    }
}

TEST_EVERY(ParameterClass, HasTheSameKeysInEachConstruction)
{
    EXPECT_EQ(placesOf(*make()), placesOf(*make()));
}

TEST_EVERY(ParameterClass, IsTheSameInEachConstruction)
{
    EXPECT_EQ(stateOf(*make()), stateOf(*make()));
}

TEST_EVERY(ParameterClass, FindsEachChildByItsPlaceAndByItsKey)
{
    const auto root = make();
    for (KpbAParameter* parameter : allOf(*root)) {
        EXPECT_EQ(parameter->hasChildren(), parameter->getChildCount() > 0) << placeOf(*parameter);
        for (int i = 0; i < parameter->getChildCount(); ++i) {
            KpbAParameter* child = parameter->getChild(i);
            ASSERT_TRUE(child) << placeOf(*parameter) << " at " << i;
            EXPECT_EQ(child->getParent(), parameter) << placeOf(*child);
            EXPECT_EQ(parameter->getChild(child->getKey()), child) << placeOf(*child);
        }
    }
}

TEST_EVERY(ParameterClass, HasNoChildOutOfItsRange)
{
    const auto root = make();
    for (const KpbAParameter* parameter : allOf(*root)) {
        EXPECT_EQ(parameter->getChild(-1), nullptr) << placeOf(*parameter);
        EXPECT_EQ(parameter->getChild(parameter->getChildCount()), nullptr) << placeOf(*parameter);
        EXPECT_EQ(parameter->getChild("UNKNOWN"), nullptr) << placeOf(*parameter);
        EXPECT_EQ(parameter->getChild(QString()), nullptr) << placeOf(*parameter);
    }
}

TEST_EVERY(ParameterClass, HasALabel)
{
    EXPECT_FALSE(make()->getLabel().isEmpty());
}

TEST_EVERY(ParameterClass, LabelsAllThatItIsMadeOf)
{
    const auto root = make();
    for (const KpbAParameter* parameter : allBelow(*root)) {
        EXPECT_FALSE(parameter->getLabel().isEmpty()) << placeOf(*parameter);
        EXPECT_NE(parameter->getLabel(), "no label") << placeOf(*parameter);
    }
}

TEST_EVERY(ParameterClass, HasInitialValuesThatItAdmits)
{
    const auto root = make();
    for (KpbAParameter* parameter : allOf(*root))
        EXPECT_TRUE(holdsAdmissibleValues(*parameter)) << placeOf(*parameter);
}

TEST_EVERY(ParameterClass, SendsNothingWhenItIsGivenTheValuesThatItHas)
{
    const auto root = make();
    const std::string state = stateOf(*root);
    for (KpbAParameter* parameter : allOf(*root)) {
        RecordingObserver observer(*parameter);
        KnownAtomics::visit(*parameter, [](auto& atomic) { atomic.setValue(atomic.getValue()); });
        EXPECT_EQ(observer.records.size(), 0) << placeOf(*parameter);
    }
    EXPECT_EQ(stateOf(*root), state);
}
