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
    const KpbAParameter::SerialForm form = parameter.serialize();
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
    append([&](QDomElement& element) {
        for (const auto& entry : form)
            appendEntry(element, entry.key, text);
    });
    for (const auto& damaged : form) {
        append([&](QDomElement& element) {
            for (const auto& entry : form)
                appendEntry(element, entry.key, entry.key == damaged.key ? text : entry.value);
        });
    }
    return documents;
}

/// A symbol takes every number, and writes one that is the undefined marker as nothing.
bool isSymbolWithoutANumber(const KpbAParameter& parameter)
{
    const bool isSymbol = parameter.isA(KpbEType::SYMBOL) || parameter.isA(KpbEType::SYMBOL_3D);
    return isSymbol && parameter.serialize().values().contains(QString());
}

/// Whether the value is one that reading does not give back: characters that no XML document can hold are lost, the
/// upper end of a cycle becomes the lower one, and an entry that says nothing leaves what was there.
bool changesWhenReadBack(KpbAParameter& parameter)
{
    bool atEnd = false;
    KnownAtomics::visit(parameter, [&](const auto& atomic) { atEnd = isAtEndOfCycle(atomic); });
    return atEnd || KuxXml::findForbiddenCharacter(formOf(parameter)) >= 0 || isSymbolWithoutANumber(parameter) ||
           isStoredAsNothing(parameter);
}

/// The parameters of a tree as built, each in a tree of its own: a list that reads something ends its items.
template <class Visit>
void forEachInATreeOfItsOwn(const SubjectTest& subject, Visit visit)
{
    const int count = allOf(*subject.make()).size();
    for (int i = 0; i < count; ++i) {
        const auto root = subject.make();
        visit(*allOf(*root).at(i));
    }
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
        if (parameter->serialize().keys() == QList<QString>{"value"})
            turnTextIntoEntry(element);
        add(element);
    }
    return document;
}

/// A list makes items of children that it does not know.
bool isNoList(const KpbAParameter& parameter)
{
    return !isList(parameter);
}

/// A text takes every entry that stands beside its value for a line.
bool isNoText(const KpbAParameter& parameter)
{
    return !parameter.isA(KpbEType::STRING);
}

} // namespace

// Empty elements

/// What an element of the text `before` gives, and an empty one behind it.
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
    {"KpaCoordSystem", "LOCAL", "LOCAL"},
    {"KpaCoordSystem_Projected", "EPSG:3857", "EPSG:3857"},
};

/// The same for values of several entries, which keep what no entry speaks of.
static const EmptyRow emptyRowsOfEntries[] = {
    {"KpaVectorDouble", "v1=10 v2=20.5 v3=0", "v1=10 v2=20.5 v3=0"},
    {"KpaVectorDouble_OfTwo", "v1=10 v2=20.5 v3=7", "v1=10 v2=20.5 v3=7"},
    {"KpaVectorInt", "v1=1 v2=2 v3=3", "v1=1 v2=2 v3=3"},
    {"KpaRotation", "conv_id=0 conv_string=+Z+Y+X a1=10 a2=20.5 a3=-30",
     "conv_id=0 conv_string=+Z+Y+X a1=10 a2=20.5 a3=-30"},
    {"KpaDirection", "azimuth=75 plunge=-12.5", "azimuth=75 plunge=-12.5"},
    {"KpaPlaneOrientation", "dip=40 dipAzimuth=310", "dip=40 dipAzimuth=310"},
    {"KpaSystemOrientation", "dip=40 dipAzimuth=310 pitch=22.5", "dip=40 dipAzimuth=310 pitch=22.5"},
    {"KpaMatrixSymmetrical", "size=2 node_1=1 node_2=0.5 node_3=1", "size=2 node_1=1 node_2=0.5 node_3=1"},
    {"KpaMatrixSymmetrical_Constrained",
     "size=1 behavior=Known node_1=1 min_V1= max_V1=", "size=1 behavior=Known node_1=1 min_V1= max_V1="},
    {"KpaColor", "red=1 green=2 blue=3 opacity=4", "red=1 green=2 blue=3 opacity=255"},
    {"KpaColor_Opaque", "red=1 green=2 blue=3", "red=1 green=2 blue=3"},
    {"KpaPalette", "id=GREY", "id=GREY"},
    {"KpaLineStyle", "pen=DASH color=#80010203 width=2.5 border=yes borderColor=#ff000000 borderWidth=1",
     "pen=DASH color=#80010203 width=2.5 border=yes borderColor=#ff000000 borderWidth=1"},
    {"KpaSymbol",
     "shape=STAR size=3 red=1 green=2 blue=3 opacity=4 drawBorder=yes borderRed=5 borderGreen=6 borderBlue=7",
     "shape=STAR size=3 red=1 green=2 blue=3 opacity=4 drawBorder=yes borderRed=5 borderGreen=6 borderBlue=7"},
    {"KpaSymbol3D", "shape=CONE size=2.5 quality=0.75 red=1 green=2 blue=3 opacity=4",
     "shape=CONE size=2.5 quality=0.75 red=1 green=2 blue=3 opacity=4"},
    {"KpaCatalogDefinition_old", "id=rocks name=Rocks undefRgba=1 enum1=7|Oxide|4294934528",
     "id=rocks name=Rocks undefRgba=1 enum1=7|Oxide|4294934528"},
};

/// What an element of the entries `before` gives, an empty one behind it, and one behind that whose only entry is an
/// empty "value". The latter is no entry of an item of a project.
struct ItemRow
{
    const char* subject;
    const char* before;
    const char* afterEmpty;
    const char* afterValue;
};

static const ItemRow itemRows[] = {
    {"KpaProject", "value=file:///data/a.study", "file:///data/a.study", ""},
    {"KpcCutoffs", "value=7", "7", "0"},
    {"KpaData_Chosen", "path= file=holes support=assays name=Cu", "", ""},
    {"KpaData_Relative", "name=Cu", "", ""},
    {"KpaCatalog_Chosen", "name=Second", "", "name=Second"},
    {"KpaColorScale_Chosen", "name=Second", "", "name=Second"},
    {"KpaGeosSet_Chosen", "name=Second", "", "name=Second"},
    {"KpaNeighborhoodItem_Chosen", "name=Second", "", "name=Second"},
    {"KpaScene_Chosen", "name=Second", "", "name=Second"},
    {"KpaCharts_Chosen", "name=Second", "", "name=Second"},
    {"KpaChartFolder_Chosen", "name=Second folder=Depths", "", ""},
    {"KpaChartView_Chosen", "name=Second folder=Grades view=Histogram", "", ""},
};

/// The element with the entries of a form as `formOf` gives it; a text without names is the only entry.
static QDomDocument elementOfForm(const QString& form)
{
    QDomDocument document{QString()};
    QDomElement element = document.createElement("param");
    for (const QString& entry : form.split(' '))
        appendEntry(element, entry.section('=', 0, 0), entry.section('=', 1));
    document.appendChild(element);
    return document;
}

TEST(EmptyElement, KeepsOrEmptiesTheValueAsTheKindSays)
{
    const auto tryEach = [](const EmptyRow& row, const QDomDocument& before) {
        for (const char* content : {"", "<value/>", "<!--comment-->", "<param key=\"UNKNOWN\">1</param>"}) {
            const auto atomic = subjectOf(row.subject).make();
            load(*atomic, before);
            ASSERT_EQ(formOf(*atomic), row.before) << row.subject;
            load(*atomic, parsed(std::string("<param key=\"KEY\">") + content + "</param>"));
            EXPECT_EQ(formOf(*atomic), row.after) << row.subject << " reads " << content;
        }
    };
    for (const EmptyRow& row : emptyRows)
        tryEach(row, parsed(std::string("<param key=\"KEY\">") + row.before + "</param>"));
    for (const EmptyRow& row : emptyRowsOfEntries)
        tryEach(row, elementOfForm(row.before));
}

TEST(EmptyElement, KeepsOrTakesAwayTheItemAsTheKindSays)
{
    for (const ItemRow& row : itemRows) {
        for (const char* content : {"", "<!--comment-->", "<param key=\"UNKNOWN\">1</param>", "<value/>"}) {
            const auto atomic = subjectOf(row.subject).make();
            const std::string version = " version=\"" + std::to_string(atomic->getVersion()) + "\"";
            QDomDocument before = elementOfForm(row.before);
            before.documentElement().setAttribute("version", atomic->getVersion());
            load(*atomic, before);
            EXPECT_TRUE(QString(row.before).endsWith(formOf(*atomic))) << row.subject << formOf(*atomic).toStdString();
            load(*atomic, parsed("<param key=\"KEY\"" + version + ">" + content + "</param>"));
            const bool isValue = QString(content) == "<value/>";
            EXPECT_EQ(formOf(*atomic), isValue ? row.afterValue : row.afterEmpty)
                << row.subject << " reads " << content;
        }
    }
}

TEST(EmptyElement, IsTriedOnEveryAtomicClass)
{
    QSet<QString> tested;
    for (const ItemRow& row : itemRows)
        tested.insert(subjectOf(row.subject).className);
    for (const EmptyRow& row : emptyRows)
        tested.insert(subjectOf(row.subject).className);
    for (const EmptyRow& row : emptyRowsOfEntries)
        tested.insert(subjectOf(row.subject).className);
    for (const ClassRegistry::Row& row : ClassRegistry::getRows())
        EXPECT_TRUE(isMadeOfOthers(*row.make("KEY")) || tested.contains(row.name)) << row.name.toStdString();
}

TEST_EVERY(ListClass, IsEmptyAfterAnEmptyElementUnlessItsSizeIsFixed)
{
    for (const char* content : {"", "<value/>", "<!--comment-->", "5"}) {
        const auto root = makeChanged();
        auto& list = dynamic_cast<KpcAbstractList&>(*root);
        const int size = list.isResizable() ? 0 : list.getItemCount();
        load(list, parsed(std::string("<param key=\"KEY\">") + content + "</param>"));
        EXPECT_EQ(list.getItemCount(), size) << content;
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

TEST_EVERY(CompositeClass, KeepsItsChildrenWhenItReadsAnEmptyElement)
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
    forEachInATreeOfItsOwn(*this, [](KpbAParameter& parameter) {
        for (const QString& text : garbage()) {
            for (const QDomDocument& document : documentsWith(text, parameter)) {
                ASSERT_NO_THROW(load(parameter, document)) << placeOf(parameter) << shown(text).toStdString();
                for (KpbAParameter* each : allOf(parameter))
                    ASSERT_TRUE(holdsAdmissibleValues(*each))
                        << placeOf(*each) << " reads " << shown(text).toStdString() << " and holds "
                        << shown(each->toString()).toStdString();
            }
        }
    });
}

TEST_EVERY(ParameterClass, IsSavedToTheSameBytesAfterItWasReadWhateverItHolds)
{
    const RecordedMessages quiet;
    forEachInATreeOfItsOwn(*this, [this](KpbAParameter& parameter) {
        if (!isStored(parameter))
            return;
        const auto target = make();
        KpbAParameter& reader = counterpart(parameter, *target);
        for (const QString& text : garbage()) {
            for (const QDomDocument& document : documentsWith(text, parameter)) {
                load(parameter, document);
                if (changesWhenReadBack(parameter))
                    continue;
                const std::string bytes = savedBytes(parameter);
                load(reader, parsed(bytes));
                ASSERT_EQ(savedBytes(reader), bytes) << placeOf(parameter) << " read " << shown(text).toStdString();
            }
        }
    });
}

// Unknown parts

TEST_EVERY(ParameterClass, IgnoresChildrenThatItDoesNotKnow)
{
    const auto source = makeChanged();
    const QDomDocument document = savedWith(*source, isNoList, addUnknownChildren);
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

TEST_EVERY(CompositeClass, TakesTheLastOfElementsOfOneKey)
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
