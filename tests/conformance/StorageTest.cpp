#include "Atomics.h"
#include "Subjects.h"
#include "Trees.h"

#include <support/RecordingObserver.h>

#include <algorithm>
#include <list>

namespace {

QDomDocument saveTask(const KpbAParameter& group)
{
    return KpsSerializer::convertFicheToXml(&dynamic_cast<const KpcGroup&>(group));
}

/// Reads `document` into `target`, whose observers and whose descendants' observers are not to hear of it.
void expectSilence(KpbAParameter& target, const QDomDocument& document)
{
    std::list<RecordingObserver> observers;
    for (KpbAParameter* parameter : allOf(target))
        observers.emplace_back(*parameter);
    const std::string state = stateOf(target);
    load(target, document);
    EXPECT_EQ(stateOf(target), state);
    auto observer = observers.begin();
    for (KpbAParameter* parameter : allOf(target))
        EXPECT_EQ((observer++)->records.size(), 0) << placeOf(*parameter);
}

/// Whether the value is an item of a project and there is none.
bool isNoItem(const KpbAParameter& parameter)
{
    return isOfProject(parameter) && parameter.toString().isEmpty();
}

/// As built, these are in a state that no change of their parts brings back: the connection has disabled nothing yet,
/// and the rule has not found its automatic value.
bool isOnlyAsBuilt(const KpbAParameter& parameter)
{
    return parameter.isA(KpbEType::ZVX) || parameter.isA(KpbEType::SAMPLE_FILTER_RULE);
}

/// Whether reading `parameter` brings any other of its class to the same state, and not only one as built.
bool replacesEverything(KpbAParameter& parameter)
{
    const QList<KpbAParameter*> all = allOf(parameter);
    return std::none_of(all.begin(), all.end(),
                        [](const KpbAParameter* each) { return isStoredAsNothing(*each) || isOnlyAsBuilt(*each); });
}

} // namespace

TEST_EVERY(ParameterClass, IsReadAsItWasSaved)
{
    const auto original = make();
    const auto changed = makeChanged();
    const auto target = make();
    load(*target, save(*changed));
    EXPECT_EQ(stateOf(*target), stateOf(*changed)) << "read into one as built";
    if (!replacesEverything(*original))
        return;
    load(*target, save(*original));
    EXPECT_EQ(stateOf(*target), stateOf(*original)) << "read into a changed one";
}

TEST_EVERY(ParameterClass, IsReadFromATextAsItWasSaved)
{
    const auto changed = makeChanged();
    const auto target = make();
    load(*target, parsed(savedBytes(*changed)));
    EXPECT_EQ(stateOf(*target), stateOf(*changed));
}

TEST_EVERY(GroupClass, IsReadFromATaskAsItWasSaved)
{
    const auto changed = makeChanged();
    const QDomDocument task = saveTask(*changed);
    const auto target = make();
    load(*target, parsed(bytesOf(task)));
    EXPECT_EQ(stateOf(*target), stateOf(*changed));
    EXPECT_EQ(bytesOf(saveTask(*target)), bytesOf(task));
}

TEST_EVERY(ParameterClass, IsSavedToTheSameBytesEachTime)
{
    for (const auto& subject : {make(), makeChanged()}) {
        const std::string state = stateOf(*subject);
        const std::string bytes = savedBytes(*subject);
        EXPECT_EQ(savedBytes(*subject), bytes);
        EXPECT_EQ(stateOf(*subject), state);
    }
}

TEST_EVERY(ParameterClass, IsSavedToTheSameBytesAfterItWasRead)
{
    for (const auto& original : {make(), makeChanged()}) {
        const std::string bytes = savedBytes(*original);
        for (const auto& target : {make(), replacesEverything(*original) ? makeChanged() : make()}) {
            load(*target, parsed(bytes));
            EXPECT_EQ(savedBytes(*target), bytes);
        }
    }
}

TEST_EVERY(ParameterClass, IsSavedWithoutANotification)
{
    const auto root = make();
    RecordingObserver observer(*root);
    save(*root);
    EXPECT_EQ(observer.records.size(), 0);
}

TEST_EVERY(ParameterClass, SendsNothingWhenItReadsWhatItHolds)
{
    for (const auto& subject : {make(), makeChanged()})
        expectSilence(*subject, save(*subject));
}

TEST_EVERY(GroupClass, SendsNothingWhenItReadsItsOwnTask)
{
    for (const auto& subject : {make(), makeChanged()})
        expectSilence(*subject, saveTask(*subject));
}

TEST_EVERY(GroupClass, IsSavedAsATaskWithoutANotificationAndToTheSameBytesEachTime)
{
    const auto root = makeChanged();
    RecordingObserver observer(*root);
    const std::string bytes = bytesOf(saveTask(*root));
    EXPECT_EQ(bytesOf(saveTask(*root)), bytes);
    EXPECT_EQ(observer.records.size(), 0);
}

TEST_EVERY(ParameterClass, IsSavedUnderItsKeyAndTheVersionsAboveOne)
{
    const auto root = make();
    const QDomDocument document = save(*root);
    EXPECT_EQ(document.documentElement().tagName(), "param");
    for (KpbAParameter* parameter : allOf(*root)) {
        const QDomElement element = elementOf(*parameter, document);
        ASSERT_EQ(element.isNull(), !isStored(*parameter)) << placeOf(*parameter);
        if (element.isNull())
            continue;
        EXPECT_EQ(element.attribute("key"), parameter->getKey()) << placeOf(*parameter);
        const QString version = parameter->getVersion() > 1 ? QString::number(parameter->getVersion()) : QString();
        EXPECT_EQ(element.attribute("version"), version) << placeOf(*parameter);
    }
}

TEST_EVERY(GroupClass, IsSavedAsATaskWithItsTextAsIdentifierAndWithoutAKey)
{
    const auto root = make();
    const QDomDocument document = saveTask(*root);
    const QDomElement task = document.documentElement();
    EXPECT_EQ(task.tagName(), "task");
    EXPECT_EQ(task.attribute("id"), root->toString());
    EXPECT_EQ(task.attribute("version"), root->getVersion() > 1 ? QString::number(root->getVersion()) : QString());
    EXPECT_FALSE(task.hasAttribute("key"));
    EXPECT_FALSE(task.hasAttribute("automatic"));
}

TEST_EVERY(ParameterClass, IsSavedWithItsChildrenInTheirOrder)
{
    const auto root = make();
    const QDomDocument document = save(*root);
    for (KpbAParameter* parameter : allOf(*root)) {
        if (!isStored(*parameter) || !parameter->hasChildren())
            continue;
        QStringList expected;
        for (int i = 0; i < parameter->getChildCount(); ++i) {
            if (isStored(*parameter->getChild(i)))
                expected.append(parameter->getChild(i)->getKey());
        }
        QStringList keys;
        QDomElement element = elementOf(*parameter, document).firstChildElement("param");
        for (; !element.isNull(); element = element.nextSiblingElement("param"))
            keys.append(element.attribute("key"));
        EXPECT_EQ(keys, expected) << placeOf(*parameter);
    }
}

TEST_EVERY(ParameterClass, IsSavedAsItsTextWhereItsOnlyEntryIsItsValue)
{
    const auto root = make();
    const QDomDocument document = save(*root);
    for (KpbAParameter* parameter : allOf(*root)) {
        const KpbAParameter::SerialForm form = parameter->serialize();
        if (!isStored(*parameter) || parameter->hasChildren() || form.keys() != QList<QString>{"value"})
            continue;
        const QDomElement element = elementOf(*parameter, document);
        EXPECT_EQ(element.text(), form.value("value")) << placeOf(*parameter);
        EXPECT_TRUE(element.firstChildElement().isNull()) << placeOf(*parameter);
    }
}

TEST_EVERY(ParameterClass, IsSavedWithAnElementForEachOfSeveralEntriesInTheirOrder)
{
    const auto root = make();
    const QDomDocument document = save(*root);
    for (KpbAParameter* parameter : allOf(*root)) {
        const KpbAParameter::SerialForm form = parameter->serialize();
        if (!isStored(*parameter) || (!parameter->hasChildren() && form.keys() == QList<QString>{"value"}))
            continue;
        QDomElement entry = elementOf(*parameter, document).firstChildElement();
        for (const auto& expected : form) {
            EXPECT_EQ(entry.tagName(), expected.key) << placeOf(*parameter);
            EXPECT_EQ(entry.text(), expected.value) << placeOf(*parameter);
            entry = entry.nextSiblingElement();
        }
        EXPECT_TRUE(entry.isNull() || entry.tagName() == "param") << placeOf(*parameter);
    }
}

TEST_EVERY(ParameterClass, HasNoEntriesIfItIsMadeOfOthers)
{
    const auto root = make();
    for (const KpbAParameter* parameter : allOf(*root)) {
        // A plain selection is stored as its variable.
        if (parameter->isA(KpbEType::SELECTION))
            continue;
        EXPECT_EQ(parameter->serialize().isEmpty(), isMadeOfOthers(*parameter) || isNoItem(*parameter))
            << placeOf(*parameter);
    }
}

TEST_EVERY(ListClass, KeepsTheKeysOfItsItemsInTheStoredForm)
{
    const auto original = make();
    auto& list = dynamic_cast<KpcAbstractList&>(*original);
    list.appendItem();
    list.appendItem();
    list.removeItemAt(list.getItemCount() - 2);
    const QStringList keys = list.getItemKeys();
    const auto target = make();
    auto& read = dynamic_cast<KpcAbstractList&>(*target);
    load(read, save(list));
    if (list.isResizable())
        EXPECT_EQ(read.getItemKeys(), keys);
    else
        EXPECT_EQ(read.getItemKeys(), dynamic_cast<KpcAbstractList&>(*make()).getItemKeys());
}

TEST_EVERY(ListClass, GoesOnCountingBehindTheGreatestStoredKey)
{
    const auto root = make();
    auto& list = dynamic_cast<KpcAbstractList&>(*root);
    // Empty elements give equal items, of which a list of unique values keeps one.
    if (!list.isResizable() || list.needToUnserializeAtomicItems())
        return;
    load(list, parsed("<param key=\"KEY\"><param key=\"ITEM_7\"/><param key=\"ITEM_5\"/></param>"));
    list.appendItem();
    EXPECT_EQ(list.getItemKeys(), (QStringList{"ITEM_7", "ITEM_5", "ITEM_8"}));
}
