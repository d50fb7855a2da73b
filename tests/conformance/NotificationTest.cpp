#include "Atomics.h"
#include "Subjects.h"
#include "Trees.h"

#include <support/RecordingObserver.h>

namespace {

constexpr int value = Kp::NotifyValue;
constexpr int config = Kp::NotifyConfig;

/// The flags of the records that the observers of `parameter` get from `change`.
template <class Change>
QList<int> flagsOf(KpbAParameter& parameter, Change change)
{
    RecordingObserver observer(parameter);
    change(parameter);
    return observer.allFlags();
}

/// `change` reaches the observers of the root as one record that names the root and all below it, and those of each
/// parameter below.
template <class Change>
void expectDeepRecord(KpbAParameter& root, Change change)
{
    RecordingObserver observer(root);
    change(root);
    ASSERT_EQ(observer.records.size(), 1);
    for (KpbAParameter* parameter : allOf(root))
        EXPECT_TRUE(observer.flagsOf(*parameter) & config) << placeOf(*parameter);
    observer.records.clear();
    change(root);
    EXPECT_EQ(observer.records.size(), 0) << "sent again for what is so already";
}

} // namespace

TEST_EVERY(ParameterClass, TellsANewLabelOnce)
{
    const auto root = make();
    const auto setLabel = [](KpbAParameter& parameter) { parameter.setLabel("Another label"); };
    EXPECT_EQ(flagsOf(*root, setLabel), QList<int>{config});
    EXPECT_EQ(root->getLabel(), "Another label");
    EXPECT_EQ(flagsOf(*root, setLabel), QList<int>());
}

TEST_EVERY(ParameterClass, TellsInOneRecordThatItAndAllBelowAreEnabledOrDisabled)
{
    const auto root = make();
    const bool enabled = root->getEnabledFlag();
    expectDeepRecord(*root, [&](KpbAParameter& parameter) { parameter.setEnabled(!enabled); });
    expectDeepRecord(*root, [&](KpbAParameter& parameter) { parameter.setEnabled(enabled); });
}

TEST_EVERY(ParameterClass, TellsInOneRecordThatItAndAllBelowAreReadOnlyOrNot)
{
    const auto root = make();
    expectDeepRecord(*root, [](KpbAParameter& parameter) { parameter.setReadOnly(true); });
    for (const KpbAParameter* parameter : allOf(*root))
        EXPECT_TRUE(parameter->isReadOnly()) << placeOf(*parameter);
    expectDeepRecord(*root, [](KpbAParameter& parameter) { parameter.setReadOnly(false); });
}

TEST_EVERY(ParameterClass, TellsOnceThatItOffersTheAutomaticMode)
{
    const auto root = make();
    const bool offered = root->isAutomaticEnabled();
    const auto change = [&](KpbAParameter& parameter) { parameter.setAutomaticEnabled(!offered); };
    EXPECT_EQ(flagsOf(*root, change), QList<int>{config});
    EXPECT_EQ(flagsOf(*root, change), QList<int>());
}

TEST_EVERY(ParameterClass, TellsOnceThatItsModeChanges)
{
    const auto root = make();
    const bool automatic = root->isAutomatic();
    const auto change = [&](KpbAParameter& parameter) { parameter.setAutomatic(!automatic); };
    EXPECT_EQ(flagsOf(*root, change), QList<int>{config});
    EXPECT_EQ(flagsOf(*root, change), QList<int>());
}

TEST_EVERY(ParameterClass, TellsItsValueLockAsAValueAndTheOfferOfOneAsAConfiguration)
{
    const auto root = make();
    const auto lock = [](KpbAParameter& parameter) { parameter.setValueLocked(true); };
    const auto offer = [](KpbAParameter& parameter) { parameter.setLockValueEnabled(true); };
    EXPECT_EQ(flagsOf(*root, lock), QList<int>{value});
    EXPECT_EQ(flagsOf(*root, lock), QList<int>());
    EXPECT_EQ(flagsOf(*root, offer), QList<int>{config});
    EXPECT_EQ(flagsOf(*root, offer), QList<int>());
}

TEST_EVERY(ParameterClass, TellsTheOfferBeforeTheValueLockWhenBothAreActivated)
{
    const auto root = make();
    const auto activate = [](KpbAParameter& parameter) { parameter.activateValueLock(true); };
    EXPECT_EQ(flagsOf(*root, activate), (QList<int>{config, value}));
    EXPECT_EQ(flagsOf(*root, activate), QList<int>());
}

TEST_EVERY(ParameterClass, SaysNothingOfBeingVolatileAndOfLoadLocks)
{
    const auto root = make();
    EXPECT_EQ(flagsOf(*root,
                      [](KpbAParameter& parameter) {
                          parameter.setVolatile(!parameter.isVolatile());
                          parameter.lockLoad();
                          parameter.setSerializeData(QSharedPointer<QDomDocument>::create());
                          parameter.takeUnserializeData();
                      }),
              QList<int>());
}

TEST_EVERY(ParameterClass, TellsAChangeBelowWithThePathOutToItself)
{
    const auto root = make();
    for (KpbAParameter* parameter : allBelow(*root)) {
        RecordingObserver observer(*root);
        parameter->setLabel("Another label");
        ASSERT_EQ(observer.records.size(), 1) << placeOf(*parameter);
        EXPECT_EQ(observer.flagsOf(*parameter), config) << placeOf(*parameter);
        EXPECT_TRUE(observer.records.first().hasModif(parameter, Kp::NotifyConfig)) << placeOf(*parameter);
    }
}

TEST_EVERY(ParameterClass, TellsAChangedValueOfEachPart)
{
    const auto root = make();
    for (KpbAParameter* parameter : allOf(*root)) {
        RecordingObserver ofPart(*parameter);
        RecordingObserver ofRoot(*root);
        const bool wasAutomatic = parameter->isAutomatic();
        const KpbAParameter::SerialForm before = parameter->serialize();
        // Nothing to change, or taken back at once, as the box of a disabled group is.
        if (!changeValue(*parameter) || parameter->serialize() == before)
            continue;
        EXPECT_EQ(ofPart.allFlags(), QList<int>{wasAutomatic ? value | config : value}) << placeOf(*parameter);
        bool told = false;
        for (int i = 0; i < ofRoot.records.size(); ++i)
            told = told || ofRoot.records.at(i).hasModif(parameter, Kp::NotifyValue);
        EXPECT_TRUE(told) << placeOf(*parameter);
    }
}
