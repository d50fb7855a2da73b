#include "Atomics.h"
#include "Subjects.h"
#include "Trees.h"

#include <registry/ClassRegistry.h>
#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>

#include <QtCore/QSet>

#include <algorithm>

namespace {

const Subject& subjectOf(const QString& name)
{
    return *std::find_if(allSubjects().begin(), allSubjects().end(),
                         [&](const Subject& subject) { return subject.name == name; });
}

QString valueOf(const KpbAParameter& parameter)
{
    return parameter.serialize().value("value");
}

// Garbage

QString controlCharacters()
{
    QString text;
    for (ushort code = 1; code < 32; ++code)
        text += QChar(code);
    return text;
}

const QStringList& garbage()
{
    static const QStringList texts = {
        "",
        " ",
        "x",
        "x y",
        "nan",
        "NaN",
        "inf",
        "-inf",
        "1e999",
        "-1e999",
        "1e-999",
        "1e300",
        "-0",
        "0",
        "-1",
        "-2",
        "-10",
        "-360",
        "+7",
        " 7 ",
        "1.5",
        "1,5",
        "0x10",
        "2147483647",
        "2147483648",
        "-2147483648",
        "9223372036854775807",
        "9223372036854775808",
        "-9223372036854775808",
        "18446744073709551615",
        "99999999999999999999",
        "1.7976931348623157e308",
        "yes",
        "YES",
        "True",
        "False",
        "random",
        "Random",
        "none",
        "km",
        "FIRST",
        "first",
        "First item",
        "|",
        "SECOND||x|SECOND",
        "%41%20%00%ff",
        "%zz%",
        "<x/>",
        "]]>",
        "<![CDATA[",
        "&amp;&#0;",
        "/",
        "//usr/./..//usr/",
        "../../..",
        "~",
        "$HOME",
        "$HOME/a.csv",
        "$UNKNOWN/a.csv",
        "$$",
        "C:\\a\\b.csv",
        "a\nb",
        "a\r\nb",
        "\t",
        QString(QChar(0x00a0)),
        QStringLiteral("\u00e9\u4e2d\u202e"),
        QString::fromUcs4(U"\U0001f600"),
        QString(QChar(0xd800)),
        QString(QChar(0xfffe)),
        controlCharacters(),
        QString(1 << 20, 'x'),
        QString(1 << 16, QChar(0x4e2d)),
    };
    return texts;
}

QString shown(const QString& text)
{
    return "\"" + text.left(40).toHtmlEscaped() + "\" of " + QString::number(text.size()) + " characters";
}

void appendEntry(QDomElement element, const QString& name, const QString& text)
{
    QDomDocument document = element.ownerDocument();
    QDomElement entry = document.createElement(name);
    entry.appendChild(document.createTextNode(text));
    element.appendChild(entry);
}

/// Elements for `parameter` that say `text` in each way in which an element can say something.
QList<QDomDocument> documentsWith(const QString& text, const KpbAParameter& parameter)
{
    QList<QDomDocument> documents;
    const auto append = [&](auto fill) {
        QDomDocument document{QString()};
        QDomElement element = document.createElement("param");
        element.setAttribute("key", parameter.getKey());
        fill(element);
        document.appendChild(element);
        documents.append(document);
    };
    append([&](QDomElement& element) { element.appendChild(element.ownerDocument().createTextNode(text)); });
    // For a long text, one way is enough to wait for.
    if (text.size() > 10000)
        return documents;
    append([&](QDomElement& element) { appendEntry(element, "value", text); });
    append([&](QDomElement& element) { appendEntry(element, "other", text); });
    append([&](QDomElement& element) {
        appendEntry(element, "line1", text);
        appendEntry(element, "value", text);
    });
    return documents;
}

/// Whether the value is one that reading does not give back: characters that no XML document can hold are lost, and the
/// upper end of a cycle becomes the lower one.
bool changesWhenReadBack(KpbAParameter& parameter)
{
    bool atEnd = false;
    KnownAtomics::visit(parameter, [&](const auto& atomic) { atEnd = isAtEndOfCycle(atomic); });
    return atEnd || KuxXml::findForbiddenCharacter(valueOf(parameter)) >= 0;
}

// Unknown parts

/// The element with its text as an entry, so that more can stand beside it.
void turnTextIntoEntry(QDomElement element)
{
    const QString text = element.text();
    while (element.hasChildNodes())
        element.removeChild(element.firstChild());
    appendEntry(element, "value", text);
}

void addUnknownChildren(QDomElement element)
{
    QDomDocument document = element.ownerDocument();
    for (const QString& key : {QString("UNKNOWN"), QString(), element.attribute("key")}) {
        QDomElement unknown = document.createElement("param");
        if (!key.isNull())
            unknown.setAttribute("key", key);
        unknown.setAttribute("version", "7");
        unknown.setAttribute("automatic", "yes");
        unknown.appendChild(document.createTextNode("1"));
        element.insertBefore(unknown, element.firstChild());
    }
    element.appendChild(document.createComment("comment"));
    element.appendChild(document.createProcessingInstruction("instruction", "data"));
    element.setAttribute("unknown", "attribute");
}

/// The document of `root` with `add` called for the element of each parameter that `concerned` says yes to.
template <class Concerned, class Add>
QDomDocument savedWith(KpbAParameter& root, Concerned concerned, Add add)
{
    const QDomDocument document = save(root);
    for (KpbAParameter* parameter : allOf(root)) {
        if (!isStored(*parameter) || !concerned(*parameter))
            continue;
        const QDomElement element = elementOf(*parameter, document);
        if (KnownAtomics::visit(*parameter, [](auto&) {}))
            turnTextIntoEntry(element);
        add(element);
    }
    return document;
}

bool isAny(const KpbAParameter&)
{
    return true;
}

/// A text takes every entry that stands beside its value for a line.
bool isNoText(const KpbAParameter& parameter)
{
    return !parameter.isA(KpbEType::STRING);
}

} // namespace

// Empty elements

struct EmptyRow
{
    const char* subject;
    const char* before;
    const char* after;
};

static const EmptyRow emptyRows[] = {
    {"KpaInteger", "42", "42"},
    {"KpaInteger_Bounded", "7", "7"},
    {"KpaInteger_Wrapped", "7", "7"},
    {"KpaInteger_Undefined", "42", ""},
    {"KpaDouble", "2.5", "2.5"},
    {"KpaDouble_Bounded", "1.5", "1.5"},
    {"KpaDouble_Undefined", "2.5", ""},
    {"KpaBool", "no", "no"},
    {"KpaBool_No", "yes", "yes"},
    {"KpaSeed", "4711", "random"},
    {"KpaSeed_Random", "4711", "random"},
    {"KpaUnit", "none", "none"},
    {"KpaUnit_OfLength", "km", "km"},
    {"KpaEnum", "", ""},
    {"KpaEnum_Filled", "THIRD", "THIRD"},
    {"KpaFlags", "", ""},
    {"KpaFlags_Filled", "SECOND|THIRD", ""},
    {"KpaString", "text", ""},
    {"KpaString_Trimmed", "text", ""},
    {"KpaString_Matched", "aaa", ""},
    {"KpaFSFile", "/data/a.dat", ""},
    {"KpaFSFile_Filtered", "/data/a.csv", ""},
    {"KpaFSFile_ToSave", "/data/a.csv", ""},
    {"KpaFSDirectory", "/data", ""},
    {"KpaFSDirectory_Existing", "/usr", ""},
};

TEST(EmptyElement, KeepsOrEmptiesTheValueAsTheKindSays)
{
    for (const EmptyRow& row : emptyRows) {
        for (const char* content : {"", "<value/>", "<!--comment-->", "<param key=\"UNKNOWN\">1</param>"}) {
            const auto atomic = subjectOf(row.subject).make();
            load(*atomic, parsed(std::string("<param key=\"KEY\">") + row.before + "</param>"));
            ASSERT_EQ(valueOf(*atomic), row.before) << row.subject;
            load(*atomic, parsed(std::string("<param key=\"KEY\">") + content + "</param>"));
            EXPECT_EQ(valueOf(*atomic), row.after) << row.subject << " reads " << content;
        }
    }
}

TEST(EmptyElement, IsTriedOnEveryAtomicClass)
{
    QSet<QString> tested;
    for (const EmptyRow& row : emptyRows)
        tested.insert(subjectOf(row.subject).className);
    for (const ClassRegistry::Row& row : ClassRegistry::getRows()) {
        const bool composite = dynamic_cast<KpcAComposite*>(row.make("KEY").get()) != nullptr;
        EXPECT_TRUE(composite || tested.contains(row.name)) << row.name.toStdString();
    }
}

TEST(EmptyElement, LeavesTheSeedThatWillNotBeUsed)
{
    KpaSeed seed("SEED");
    seed.setValue(4711);
    load(seed, parsed("<param key=\"SEED\"/>"));
    EXPECT_TRUE(seed.isRandom());
    EXPECT_EQ(seed.getValue(), 4711u);
}

TEST(EmptyElement, EndsTheAutomaticModeAndKeepsTheOffer)
{
    KpaInteger integer("COUNT");
    integer.activateAutoValue(7);
    load(integer, parsed("<param key=\"COUNT\"/>"));
    EXPECT_EQ(integer.getValue(), 7);
    EXPECT_FALSE(integer.isAutomatic());
    EXPECT_TRUE(integer.isAutomaticEnabled());
    EXPECT_TRUE(integer.isAutomaticValueInitialized());
}

TEST_EVERY(ParameterClass, KeepsItsChildrenWhenItReadsAnEmptyElement)
{
    const auto root = makeChanged();
    const QString version = QString::number(root->getVersion());
    for (KpbAParameter* parameter : allBelow(*root)) {
        RecordingObserver observer(*parameter);
        const std::string state = stateOf(*parameter);
        for (const QString& attributes : {QString(), " version=\"" + version + "\""}) {
            load(*root, parsed(("<param key=\"KEY\"" + attributes + "/>").toStdString()));
            load(*root, parsed(("<task id=\"ID\"" + attributes + "/>").toStdString()));
        }
        EXPECT_EQ(stateOf(*parameter), state);
        EXPECT_EQ(observer.records.size(), 0) << placeOf(*parameter);
    }
}

TEST_EVERY(ParameterClass, StaysAsItIsWhenThereIsNoElement)
{
    const auto root = make();
    const std::string state = stateOf(*root);
    load(*root, QDomElement());
    load(*root, QDomDocument());
    EXPECT_EQ(stateOf(*root), state);
}

// Garbage

TEST_EVERY(ParameterClass, HoldsOnlyAdmissibleValuesWhateverItReads)
{
    const RecordedMessages quiet;
    const auto root = make();
    for (KpbAParameter* parameter : allOf(*root)) {
        for (const QString& text : garbage()) {
            for (const QDomDocument& document : documentsWith(text, *parameter)) {
                ASSERT_NO_THROW(load(*parameter, document)) << placeOf(*parameter) << shown(text).toStdString();
                for (KpbAParameter* each : allOf(*parameter))
                    ASSERT_TRUE(holdsAdmissibleValues(*each))
                        << placeOf(*each) << " reads " << shown(text).toStdString() << " and holds "
                        << shown(each->toString()).toStdString();
            }
        }
    }
}

TEST_EVERY(ParameterClass, IsSavedToTheSameBytesAfterItWasReadWhateverItHolds)
{
    const RecordedMessages quiet;
    const auto root = make();
    const auto target = make();
    for (KpbAParameter* parameter : allOf(*root)) {
        if (!isStored(*parameter))
            continue;
        KpbAParameter& reader = counterpart(*parameter, *target);
        const QDomDocument original = save(*parameter);
        for (const QString& text : garbage()) {
            for (const QDomDocument& document : documentsWith(text, *parameter)) {
                load(*parameter, document);
                if (changesWhenReadBack(*parameter))
                    continue;
                const std::string bytes = savedBytes(*parameter);
                load(reader, parsed(bytes));
                ASSERT_EQ(savedBytes(reader), bytes) << placeOf(*parameter) << " read " << shown(text).toStdString();
            }
        }
        load(*parameter, original);
    }
}

// Unknown parts

TEST_EVERY(ParameterClass, IgnoresChildrenThatItDoesNotKnow)
{
    const auto source = makeChanged();
    const QDomDocument document = savedWith(*source, isAny, addUnknownChildren);
    const auto target = make();
    RecordedMessages messages;
    load(*target, document);
    EXPECT_EQ(stateOf(*target), stateOf(*source));
    RecordingObserver observer(*source);
    load(*source, document);
    EXPECT_EQ(observer.records.size(), 0);
    EXPECT_EQ(messages.warnings + messages.errors, QStringList());
}

TEST_EVERY(ParameterClass, IgnoresEntriesThatItDoesNotKnow)
{
    const auto source = makeChanged();
    const QDomDocument document = savedWith(*source, isNoText, [](const QDomElement& element) {
        appendEntry(element, "other", "1");
        appendEntry(element, "VALUE", "2");
    });
    const auto target = make();
    load(*target, document);
    EXPECT_EQ(stateOf(*target), stateOf(*source));
    RecordingObserver observer(*source);
    load(*source, document);
    EXPECT_EQ(observer.records.size(), 0);
}

TEST(UnknownEntry, IsALineOfAText)
{
    KpaString text("TEXT");
    load(text, parsed("<param key=\"TEXT\"><value>first</value><other>second</other></param>"));
    EXPECT_EQ(text.getValue(), "first\nsecond");
}

TEST_EVERY(ParameterClass, TakesTheLastOfElementsOfOneKey)
{
    const auto source = makeChanged();
    const QDomDocument document = save(*source);
    const QDomDocument other = save(*make());
    QDomElement root = document.documentElement();
    for (int i = 0; i < source->getChildCount(); ++i) {
        const QDomElement former = elementOf(*source->getChild(i), other);
        if (!former.isNull())
            root.insertBefore(root.ownerDocument().importNode(former, true), root.firstChild());
    }
    const auto target = make();
    load(*target, document);
    EXPECT_EQ(stateOf(*target), stateOf(*source));
}
