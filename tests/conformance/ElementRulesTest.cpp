#include "Atomics.h"
#include "Subjects.h"
#include "Trees.h"

#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>

#include <basic/MbeException.h>

#include <algorithm>

namespace {

/// A document of the other values in which the element of `parameter` is what `edit` makes of it.
template <class Edit>
QDomDocument edited(const KpbAParameter& source, const KpbAParameter& parameter, Edit edit)
{
    const QDomDocument document = save(source);
    edit(elementOf(parameter, document));
    return document;
}

/// The places of what is stored, apart from the root where that is asked for.
QList<KpbAParameter*> storedOf(KpbAParameter& root)
{
    QList<KpbAParameter*> stored;
    for (KpbAParameter* parameter : allOf(root)) {
        if (isStored(*parameter))
            stored.append(parameter);
    }
    return stored;
}

void replaceElement(const QDomElement& element, const QDomDocument& with)
{
    element.parentNode().replaceChild(element.ownerDocument().importNode(with.documentElement(), true), element);
}

/// The same, without the items that their list reads in one go: of these only the values count.
QList<KpbAParameter*> storedOneByOneOf(KpbAParameter& root)
{
    QList<KpbAParameter*> stored = storedOf(root);
    const auto isReadAtOnce = [](const KpbAParameter* parameter) {
        return isItem(*parameter) &&
               dynamic_cast<const KpcAbstractList*>(parameter->getParent())->needToUnserializeAtomicItems();
    };
    stored.erase(std::remove_if(stored.begin(), stored.end(), isReadAtOnce), stored.end());
    return stored;
}

/// What a tree as built becomes by a document of the other values that does not have the element of `missing`. An item
/// of a list is only there while it has one: that one says what the item holds as built.
template <class Prepare>
std::string stateWithout(const SubjectTest& subject, const KpbAParameter& source, const KpbAParameter& missing,
                         Prepare prepare)
{
    const auto target = subject.make();
    KpbAParameter& built = counterpart(missing, *target);
    const QDomDocument asBuilt = save(built);
    prepare(built);
    load(*target, edited(source, missing, [&](const QDomElement& element) {
        isItem(missing) ? replaceElement(element, asBuilt) : removeElement(element);
    }));
    return stateOf(*target);
}

void leaveAsItIs(const KpbAParameter&) {}

void setAttribute(QDomElement element, const QString& name, const QString& value)
{
    if (value.isNull())
        element.removeAttribute(name);
    else
        element.setAttribute(name, value);
}

QDomDocument ofVersion(const QString& version, const KpbAParameter& source)
{
    return edited(source, source, [&](const QDomElement& element) { setAttribute(element, "version", version); });
}

/// Those that are no numbers, or too large for one, count as 0.
QStringList versionsThatNeverWere()
{
    return {"0", "-1", "two", "", "1.0", "99999999999"};
}

} // namespace

// The automatic mode

TEST_EVERY(ParameterClass, IsSavedWithItsModeOnlyWhereTheAutomaticModeIsOffered)
{
    const auto root = make();
    for (KpbAParameter* parameter : storedOf(*root)) {
        const auto attribute = [&] { return elementOf(*parameter, save(*root)).attribute("automatic", "absent"); };
        parameter->setAutomatic(true);
        parameter->setAutomaticEnabled(false);
        EXPECT_EQ(attribute(), "absent") << placeOf(*parameter);
        parameter->setAutomaticEnabled(true);
        EXPECT_EQ(attribute(), "yes") << placeOf(*parameter);
        parameter->setAutomatic(false);
        EXPECT_EQ(attribute(), "no") << placeOf(*parameter);
    }
}

TEST_EVERY(ParameterClass, IsAutomaticAfterReadingOnlyWhereTheAttributeSaysYes)
{
    const struct
    {
        const char* attribute;
        bool automatic;
    } cases[] = {{nullptr, false}, {"", false},     {"no", false}, {"yes", true},
                 {"YES", false},   {"True", false}, {"1", false},  {" yes", false}};
    const auto root = make();
    for (KpbAParameter* parameter : storedOf(*root)) {
        for (const auto& c : cases) {
            for (const bool before : {false, true}) {
                const QDomDocument document = save(*parameter);
                setAttribute(document.documentElement(), "automatic", c.attribute);
                parameter->setAutomatic(before);
                load(*parameter, document);
                EXPECT_EQ(parameter->isAutomatic(), c.automatic)
                    << placeOf(*parameter) << " reads " << (c.attribute ? c.attribute : "no attribute");
            }
        }
    }
}

TEST_EVERY(ParameterClass, OffersTheAutomaticModeAfterReadingIfItDidBefore)
{
    for (const bool offered : {false, true}) {
        const auto root = make();
        const QDomDocument document = save(*root);
        setAttribute(document.documentElement(), "automatic", "yes");
        root->setAutomaticEnabled(offered);
        load(*root, document);
        EXPECT_EQ(root->isAutomaticEnabled(), offered);
    }
}

// Volatile parameters

TEST_EVERY(ParameterClass, GivesNoElementWhileItIsVolatile)
{
    const auto root = make();
    for (KpbAParameter* parameter : storedOf(*root)) {
        parameter->setVolatile(true);
        EXPECT_TRUE(save(*parameter).documentElement().isNull()) << placeOf(*parameter);
        EXPECT_TRUE(elementOf(*parameter, save(*root)).isNull()) << placeOf(*parameter);
        parameter->setVolatile(false);
        EXPECT_FALSE(elementOf(*parameter, save(*root)).isNull()) << placeOf(*parameter);
    }
}

TEST_EVERY(ParameterClass, ReadsNothingWhileItIsVolatile)
{
    const auto setVolatile = [](KpbAParameter& parameter) { parameter.setVolatile(true); };
    const auto source = makeChanged();
    for (const KpbAParameter* place : storedOneByOneOf(*source)) {
        const auto target = make();
        setVolatile(counterpart(*place, *target));
        load(*target, save(*source));
        EXPECT_EQ(stateOf(*target), stateWithout(*this, *source, *place, setVolatile)) << placeOf(*place);
    }
}

TEST_EVERY(ListClass, LosesAnItemThatIsVolatileWhenItIsReadAgain)
{
    const auto root = make();
    auto& list = dynamic_cast<KpcAbstractList&>(*root);
    if (list.isEmpty() || !list.isResizable())
        return;
    list.setAutomatic(false);
    const QStringList others = list.getItemKeys().mid(1);
    list.getAbstractItemAt(0)->setVolatile(true);
    load(list, save(list));
    EXPECT_EQ(list.getItemKeys(), others);
}

// Versions

TEST_EVERY(ParameterClass, RefusesANewerElementWithAWarningAndStaysAsItIs)
{
    const auto source = makeChanged();
    for (const QString& version : {QString::number(source->getVersion() + 1), QString("2147483647")}) {
        const auto target = make();
        const std::string state = stateOf(*target);
        RecordingObserver observer(*target);
        RecordedMessages messages;
        load(*target, ofVersion(version, *source));
        EXPECT_EQ(messages.warnings,
                  QStringList("Cannot load parameter '" + target->getKey() + "' because version is too recent."));
        EXPECT_EQ(messages.errors, QStringList());
        EXPECT_EQ(stateOf(*target), state);
        EXPECT_EQ(observer.records.size(), 0);
    }
}

TEST_EVERY(ParameterClass, ReadsAllButWhatIsNewer)
{
    const auto source = makeChanged();
    for (const KpbAParameter* place : storedOneByOneOf(*source)) {
        const auto target = make();
        RecordedMessages messages;
        load(*target, edited(*source, *place, [&](const QDomElement& element) {
            setAttribute(element, "version", QString::number(place->getVersion() + 1));
        }));
        EXPECT_EQ(messages.warnings,
                  QStringList("Cannot load parameter '" + place->getKey() + "' because version is too recent."));
        EXPECT_EQ(stateOf(*target), stateWithout(*this, *source, *place, leaveAsItIs)) << placeOf(*place);
    }
}

TEST_EVERY(ClassOfOneVersion, ReadsAnElementWithOrWithoutTheVersion)
{
    const auto source = makeChanged();
    for (const QString& version : {QString(), QString("1")}) {
        const auto target = make();
        RecordedMessages messages;
        load(*target, ofVersion(version, *source));
        EXPECT_EQ(stateOf(*target), stateOf(*source));
        EXPECT_EQ(messages.warnings + messages.errors, QStringList());
    }
}

TEST_EVERY(ClassOfOneVersion, ReportsAVersionThatNeverWasAndReadsTheElementAsItStands)
{
    const auto source = makeChanged();
    for (const QString& version : versionsThatNeverWere()) {
        const auto target = make();
        RecordedMessages messages;
        load(*target, ofVersion(version, *source));
        EXPECT_EQ(messages.errors,
                  QStringList("Parameter '" + target->getType().getKey() + "' must implement convert() method."));
        EXPECT_EQ(messages.warnings, QStringList());
        EXPECT_EQ(stateOf(*target), stateOf(*source)) << version.toStdString();
    }
}

TEST_EVERY(ClassOfVersions, FailsAtAVersionThatNeverWasAndStaysAsItIs)
{
    const auto source = makeChanged();
    for (const QString& version : versionsThatNeverWere()) {
        const auto target = make();
        const std::string state = stateOf(*target);
        EXPECT_THROW(load(*target, ofVersion(version, *source)), MbeProgrammingError) << version.toStdString();
        EXPECT_EQ(stateOf(*target), state) << version.toStdString();
    }
}

TEST_EVERY(ClassOfVersions, ConvertsNothingFromItsOwnVersionAndFailsAtANewerOne)
{
    const auto root = makeChanged();
    const QDomDocument document = save(*root);
    QDomElement element = document.documentElement();
    root->convert(element, root->getVersion());
    EXPECT_EQ(bytesOf(document), savedBytes(*root));
    EXPECT_THROW(root->convert(element, root->getVersion() + 1), MbeProgrammingError);
}

// Load-locked parameters

TEST_EVERY(ParameterClass, OnlyKeepsWhatItReadsWhileItIsLoadLocked)
{
    const auto target = make();
    const std::string state = stateOf(*target);
    RecordingObserver observer(*target);
    target->lockLoad();
    load(*target, save(*makeChanged()));
    EXPECT_TRUE(target->isLoadLocked());
    EXPECT_EQ(stateOf(*target), state);
    EXPECT_EQ(observer.records.size(), 0);
}

TEST_EVERY(ParameterClass, SavesExactlyWhatItKeepsWhileItIsLoadLocked)
{
    const auto target = make();
    const std::string foreign = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<param key=\"ANY\" version=\"99\" automatic=\"maybe\" other=\"x\">"
                                "text<!--comment--><value><![CDATA[ a < b ]]></value>"
                                "<param key=\"UNKNOWN\">1</param></param>\n";
    target->lockLoad();
    for (const std::string& bytes : {savedBytes(*makeChanged()), foreign}) {
        load(*target, parsed(bytes));
        EXPECT_EQ(savedBytes(*target), bytes);
        changeValue(*target);
        EXPECT_EQ(savedBytes(*target), bytes);
    }
}

TEST_EVERY(ParameterClass, SavesItsStateWhileItIsLoadLockedAndKeepsNothing)
{
    const auto root = make();
    const std::string bytes = savedBytes(*root);
    root->lockLoad();
    EXPECT_EQ(savedBytes(*root), bytes);
}

TEST_EVERY(ParameterClass, KeepsTheElementsOfThePartsThatAreLoadLocked)
{
    const auto source = makeChanged();
    const QDomDocument document = save(*source);
    for (const KpbAParameter* place : storedOneByOneOf(*source)) {
        const auto target = make();
        KpbAParameter& locked = counterpart(*place, *target);
        locked.lockLoad();
        load(*target, document);
        EXPECT_EQ(bytesOf(documentOf(elementOf(locked, save(*target)))),
                  bytesOf(documentOf(elementOf(*place, document))))
            << placeOf(*place);
        EXPECT_EQ(stateOf(*target), stateWithout(*this, *source, *place, leaveAsItIs)) << placeOf(*place);
    }
}

TEST_EVERY(ParameterClass, TakesOverWhatItKeptOnceTheLoadLockEnds)
{
    const auto source = makeChanged();
    const auto target = make();
    target->lockLoad();
    load(*target, save(*source));
    const QSharedPointer<QDomDocument> kept = target->takeUnserializeData();
    ASSERT_TRUE(kept);
    EXPECT_FALSE(target->isLoadLocked());
    EXPECT_FALSE(target->getUnserializeData());
    load(*target, *kept);
    EXPECT_EQ(stateOf(*target), stateOf(*source));
}
