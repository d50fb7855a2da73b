#include "KpsSerializerTestTools.h"

#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>

using namespace SerializerTest;

namespace {

/// What a leaf is given of an element with this content.
KpbAParameter::SerialForm formOf(const QString& content)
{
    FormParameter parameter("p", {{"former", "form"}});
    read(parameter, "<param key=\"p\">" + content + "</param>");
    EXPECT_EQ(parameter.log, QStringList("unserialize"));
    return parameter.form;
}

struct Tree
{
    Tree()
    {
        group.addChild(a);
        group.addChild(inner);
        inner->addChild(b);
    }
    FormGroup group{"g"};
    FormParameter* a = new FormParameter("a", value("a0"));
    FormGroup* inner = new FormGroup("inner");
    FormParameter* b = new FormParameter("b", value("b0"));
};

template <class Action>
class OnUpdate : public KuoIObserver<KpnModif>
{
public:
    explicit OnUpdate(Action action) : _action(action) {}
    void update(const KpnModif&) override { _action(); }
    void destroyed(const KuoAObservable<KpnModif>*) override {}

private:
    Action _action;
};

} // namespace

TEST(KpsSerializerRead, TheTextOfAnElementIsItsValue)
{
    const struct
    {
        const char* content;
        const char* text;
    } cases[] = {
        {"12.5", "12.5"},
        {"<![CDATA[ a < b ]]>", " a < b "},
        {"1<!-- not this -->2<?nor this?>3", "123"},
        {"x<![CDATA[\n]]>y", "x\ny"},
        {"a&#13;&#10;b&#13;", "a\nb"},
        {"&lt;a&gt;", "<a>"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(formOf(c.content), value(c.text)) << c.content;
}

TEST(KpsSerializerRead, AnElementWithoutATextHasAnEmptyForm)
{
    for (const char* content : {"", "<!-- comment -->", "<?instruction?>", "&#13;", "   ", "<![CDATA[]]>"})
        EXPECT_EQ(formOf(content), KpbAParameter::SerialForm()) << content;
}

TEST(KpsSerializerRead, ElementsInsideAreTheEntriesAndTheTextIsIgnored)
{
    const KpbAParameter::SerialForm expected = {{"z", "1"}, {"value", ""}, {"a", "2"}};
    EXPECT_EQ(formOf("<z>1</z><value/><a>2</a>"), expected);
    EXPECT_EQ(formOf("text<z>1</z>text<!--x--><value/><a>2</a>text"), expected);
}

TEST(KpsSerializerRead, CarriageReturnsAreRemovedFromEntries)
{
    EXPECT_EQ(formOf("<a>x&#13;&#10;y&#13;</a>"), (KpbAParameter::SerialForm{{"a", "x\ny"}}));
}

TEST(KpsSerializerRead, AnEntryHasTheTextOfAllThatIsInIt)
{
    EXPECT_EQ(formOf("<a>1<b>2<param key=\"c\">3</param></b><!--x--><![CDATA[4]]></a>"),
              (KpbAParameter::SerialForm{{"a", "1234"}}));
}

TEST(KpsSerializerRead, ParametersInsideAreNoEntriesAndHideTheText)
{
    EXPECT_EQ(formOf("text<param key=\"a\">1</param>"), KpbAParameter::SerialForm());
}

TEST(KpsSerializerRead, OfEntriesOfOneNameTheLastStands)
{
    EXPECT_EQ(formOf("<a>1</a><b>2</b><a>3</a>"), (KpbAParameter::SerialForm{{"a", "3"}, {"b", "2"}}));
}

TEST(KpsSerializerRead, ChildrenAreFoundByTheirKeys)
{
    Tree tree;
    read(tree.group, "<param key=\"g\"><param key=\"inner\"><param key=\"b\">b1</param></param>"
                     "<param key=\"a\">a1</param></param>");
    EXPECT_EQ(tree.a->form, value("a1"));
    EXPECT_EQ(tree.b->form, value("b1"));
}

TEST(KpsSerializerRead, TheTagAndTheKeyOfTheElementItselfDoNotMatter)
{
    Tree tree;
    read(tree.group, "<whatever><param key=\"a\">a1</param></whatever>");
    EXPECT_EQ(tree.a->form, value("a1"));
}

TEST(KpsSerializerRead, WhatTheParameterDoesNotKnowIsIgnored)
{
    Tree tree;
    read(tree.group, "<param key=\"g\"><?x y?><param key=\"unknown\"><param key=\"a\">no</param></param>"
                     "<other><param key=\"a\">no</param></other><Param key=\"a\">no</Param>"
                     "<param>no</param><param Key=\"a\">no</param><param key=\"A\">no</param><!--x-->text"
                     "<param key=\"inner\">text<param key=\"a\">no</param></param></param>");
    EXPECT_EQ(tree.a->log, QStringList());
    EXPECT_EQ(tree.b->log, QStringList());
    EXPECT_EQ(tree.a->form, value("a0"));
}

TEST(KpsSerializerRead, AParameterWithoutAKeyIsNoChildWithAnEmptyOne)
{
    FormGroup group("g");
    auto* child = new FormParameter("", value("0"));
    group.addChild(child);

    read(group, "<param key=\"g\"><param>1</param></param>");
    EXPECT_EQ(child->form, value("0"));
    read(group, writtenParam(group).replace(">0<", ">2<"));
    EXPECT_EQ(child->form, value("2"));
}

TEST(KpsSerializerRead, AMissingChildKeepsItsState)
{
    Tree tree;
    tree.b->setAutomatic(true);
    read(tree.group, "<param key=\"g\"><param key=\"a\">a1</param></param>");
    EXPECT_EQ(tree.b->form, value("b0"));
    EXPECT_TRUE(tree.b->isAutomatic());
}

TEST(KpsSerializerRead, RepeatedKeysAreAppliedInTurn)
{
    Tree tree;
    read(tree.group, "<param key=\"g\"><param key=\"a\">a1</param><param key=\"a\">a2</param></param>");
    EXPECT_EQ(tree.a->log, QStringList({"unserialize", "unserialize"}));
    EXPECT_EQ(tree.a->form, value("a2"));
}

TEST(KpsSerializerRead, AVolatileParameterKeepsItsStateWithAllBelowIt)
{
    Tree tree;
    tree.group.setVolatile(true);
    read(tree.group, "<param key=\"g\" version=\"9\"><param key=\"a\">a1</param></param>");
    EXPECT_EQ(tree.a->form, value("a0"));

    tree.group.setVolatile(false);
    tree.inner->setVolatile(true);
    read(tree.group, "<param key=\"g\"><param key=\"inner\"><param key=\"b\">b1</param></param></param>");
    EXPECT_EQ(tree.inner->log, QStringList());
    EXPECT_EQ(tree.b->form, value("b0"));
}

TEST(KpsSerializerRead, AVolatileLoadLockedParameterKeepsNothing)
{
    FormParameter parameter("p");
    parameter.setVolatile(true);
    parameter.lockLoad();
    read(parameter, "<param key=\"p\">1</param>");
    EXPECT_TRUE(parameter.getUnserializeData().isNull());
}

TEST(KpsSerializerRead, ANullElementIsNothingToApply)
{
    FormParameter parameter("p", value("0"), 2);
    parameter.setAutomatic(true);
    QDomElement element;
    KpsSerializer::updateParamFromXml(&parameter, element);
    parameter.lockLoad();
    KpsSerializer::updateParamFromXml(&parameter, element);
    EXPECT_EQ(parameter.log, QStringList());
    EXPECT_TRUE(parameter.isAutomatic());
    EXPECT_TRUE(parameter.getUnserializeData().isNull());
}

TEST(KpsSerializerRead, ALoadLockedParameterKeepsACopyOfTheElement)
{
    RecordingObserver observer;
    FormParameter parameter("p", value("0"), 2);
    parameter.lockLoad();
    parameter.addObserver(&observer);
    const QDomDocument document = parsed("<param key=\"p\"><a>1</a></param>");
    QDomElement element = document.documentElement();

    KpsSerializer::updateParamFromXml(&parameter, element);
    element.setAttribute("key", "changed");
    element.removeChild(element.firstChild());

    const QSharedPointer<QDomDocument> kept = parameter.getUnserializeData();
    ASSERT_FALSE(kept.isNull());
    EXPECT_EQ(kept->doctype().name(), "serialized_param");
    EXPECT_EQ(written(kept->documentElement()), "<param key=\"p\">\n <a>1</a>\n</param>\n");
    EXPECT_EQ(parameter.log, QStringList());
    EXPECT_EQ(parameter.form, value("0"));
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_TRUE(parameter.isLoadLocked());
}

TEST(KpsSerializerRead, ALoadLockedParameterKeepsTheLastElement)
{
    FormParameter parameter("p");
    parameter.lockLoad();
    read(parameter, "<param key=\"p\">1</param>");
    read(parameter, "<param key=\"p\">2</param>");
    EXPECT_EQ(writtenParam(parameter), "<param key=\"p\">2</param>\n");
}

TEST(KpsSerializerRead, AnOlderElementIsConvertedOnceFromItsVersion)
{
    const struct
    {
        const char* attribute;
        int ownVersion;
        QStringList log;
    } cases[] = {
        {"", 1, {"unserialize"}},
        {"", 2, {"convert from 1", "unserialize"}},
        {"version=\"1\"", 3, {"convert from 1", "unserialize"}},
        {"version=\"2\"", 3, {"convert from 2", "unserialize"}},
        {"version=\"3\"", 3, {"unserialize"}},
        {"version=\"junk\"", 3, {"convert from 0", "unserialize"}},
        {"version=\"\"", 3, {"convert from 0", "unserialize"}},
        {"version=\"2.0\"", 3, {"convert from 0", "unserialize"}},
        {"version=\"0x2\"", 3, {"convert from 0", "unserialize"}},
        {"version=\"99999999999999999999\"", 3, {"convert from 0", "unserialize"}},
        {"version=\"junk\"", 1, {"convert from 0", "unserialize"}},
        {"version=\"-5\"", 1, {"convert from -5", "unserialize"}},
    };
    for (const auto& c : cases) {
        FormParameter parameter("p", {}, c.ownVersion);
        read(parameter, QStringLiteral("<param key=\"p\" %1>x</param>").arg(c.attribute));
        EXPECT_EQ(parameter.log, c.log) << c.attribute;
        EXPECT_EQ(parameter.form, value("x"));
    }
}

TEST(KpsSerializerRead, ANewerElementIsRefusedAndTheRestIsRead)
{
    RecordedMessages messages;
    Tree tree;
    tree.inner->version = 2;
    tree.inner->setAutomatic(true);
    read(tree.group, "<param key=\"g\"><param key=\"inner\" version=\"3\"><value>x</value><param key=\"b\">b1</param>"
                     "</param><param key=\"a\">a1</param></param>");
    EXPECT_EQ(messages.warnings, QStringList("Cannot load parameter 'inner' because version is too recent."));
    EXPECT_EQ(tree.inner->log, QStringList());
    EXPECT_TRUE(tree.inner->isAutomatic());
    EXPECT_EQ(tree.b->form, value("b0"));
    EXPECT_EQ(tree.a->form, value("a1"));
}

TEST(KpsSerializerRead, TheConvertedElementIsWhatIsRead)
{
    FormParameter parameter("p", {}, 2);
    parameter.onConvert = [](QDomElement& element) {
        KuxXml::setText(element, "new");
        element.setAttribute("automatic", "yes");
    };
    const QDomDocument document = parsed("<param key=\"p\">old</param>");
    QDomElement element = document.documentElement();

    KpsSerializer::updateParamFromXml(&parameter, element);

    EXPECT_EQ(parameter.form, value("new"));
    EXPECT_TRUE(parameter.isAutomatic());
    EXPECT_EQ(written(element), "<param key=\"p\" automatic=\"yes\">new</param>\n");
}

TEST(KpsSerializerRead, AConversionMayPutAnotherElementInThePlaceOfItsOwn)
{
    Tree tree;
    tree.a->version = 2;
    tree.a->onConvert = [](QDomElement& element) {
        QDomElement other = element.ownerDocument().createElement("param");
        KuxXml::setText(other, "new");
        element.parentNode().replaceChild(other, element);
        element = other;
    };
    read(tree.group,
         "<param><param key=\"a\">old</param><param key=\"inner\"><param key=\"b\">b1</param></param></param>");
    EXPECT_EQ(tree.a->form, value("new"));
    EXPECT_EQ(tree.b->form, value("b1"));
}

TEST(KpsSerializerRead, ConversionContentChildrenAndAutomaticFlagComeInThisOrder)
{
    FormGroup group("g", {}, 2);
    auto* child = new FormParameter("a", {}, 2);
    group.addChild(child);
    bool groupWasAutomatic = true;
    bool groupWasRead = false;
    child->onUnserialize = [&] {
        groupWasAutomatic = group.isAutomatic();
        groupWasRead = group.log == QStringList({"convert from 1", "unserialize"});
    };

    read(group, "<param key=\"g\" automatic=\"yes\"><param key=\"a\" automatic=\"yes\">1</param></param>");

    EXPECT_TRUE(groupWasRead);
    EXPECT_FALSE(groupWasAutomatic);
    EXPECT_TRUE(group.isAutomatic());
    EXPECT_EQ(child->log, QStringList({"convert from 1", "unserialize"}));
    EXPECT_TRUE(child->isAutomatic());
}

TEST(KpsSerializerRead, OnlyYesMakesAParameterAutomatic)
{
    const struct
    {
        const char* attribute;
        bool automatic;
    } cases[] = {{"automatic=\"yes\"", true}, {"automatic=\"no\"", false},  {"", false},
                 {"automatic=\"\"", false},   {"automatic=\"Yes\"", false}, {"automatic=\"True\"", false}};
    for (const auto& c : cases) {
        for (const bool before : {false, true}) {
            KpaInteger parameter("p");
            parameter.setAutomatic(before);
            read(parameter, QStringLiteral("<param key=\"p\" %1>0</param>").arg(c.attribute));
            EXPECT_EQ(parameter.isAutomatic(), c.automatic) << c.attribute;
        }
    }
}

TEST(KpsSerializerRead, AnAutomaticValueStandsOverTheStoredOne)
{
    KpaInteger parameter("p");
    parameter.setAutoValue(8);
    read(parameter, "<param key=\"p\" automatic=\"yes\">5</param>");
    EXPECT_EQ(parameter.getValue(), 8);
    read(parameter, "<param key=\"p\" automatic=\"no\">5</param>");
    EXPECT_EQ(parameter.getValue(), 5);
}

TEST(KpsSerializerRead, AnAutomaticParameterWithoutAnAutomaticValueTakesTheStoredOne)
{
    KpaInteger parameter("p");
    parameter.setAutomatic(true);
    read(parameter, "<param key=\"p\" automatic=\"yes\">5</param>");
    EXPECT_EQ(parameter.getValue(), 5);
    EXPECT_TRUE(parameter.isAutomatic());
}

TEST(KpsSerializerRead, FailuresOfAParameterPassThrough)
{
    Tree tree;
    tree.a->onUnserialize = [] { throw MbeUserError("unserialize"); };
    EXPECT_THROW(read(tree.group, "<param><param key=\"a\"/></param>"), MbeUserError);

    tree.a->version = 2;
    tree.a->onConvert = [](QDomElement&) { throw MbeProgrammingError("convert"); };
    EXPECT_THROW(read(tree.group, "<param><param key=\"a\"/></param>"), MbeProgrammingError);
}

TEST(KpsSerializerRead, StopsWhereAnObserverDestroysWhatIsRead)
{
    auto group = std::make_unique<KpcGroup>("g", noProject());
    group->addChild(newInteger("a", 1));
    group->addChild(newInteger("b", 1));
    OnUpdate destroyGroup([&] { group.reset(); });
    group->getChild("a")->addObserver(&destroyGroup);

    read(*group, "<param key=\"g\" automatic=\"yes\"><param key=\"a\">2</param><param key=\"b\">2</param></param>");

    EXPECT_EQ(group, nullptr);
}

TEST(KpsSerializerRead, StopsWhereAnObserverDestroysTheTreeFromBelow)
{
    auto group = std::make_unique<KpcGroup>("g", noProject());
    auto* inner = new KpcGroup("inner", noProject());
    inner->addChild(newInteger("a", 1));
    inner->addChild(newInteger("b", 1));
    group->addChild(inner);
    group->addChild(newInteger("c", 1));
    OnUpdate destroyGroup([&] { group.reset(); });
    inner->getChild("a")->addObserver(&destroyGroup);

    read(*group, "<param><param key=\"inner\"><param key=\"a\">2</param><param key=\"b\">2</param></param>"
                 "<param key=\"c\">2</param></param>");

    EXPECT_EQ(group, nullptr);
}

TEST(KpsSerializerRead, CopyingAndLoadingAndUnlockingStopWhereAnObserverDestroysTheTarget)
{
    KssProject project{std::make_unique<MemoryStore>()};
    const KpsSerializer serializer(&project);
    KpcGroup from("g", noProject());
    from.addChild(newInteger("a", 2));
    from.addChild(newInteger("b", 2));
    serializer.saveFiche(&from, {});
    const std::function<void(KpcGroup*)> actions[] = {
        [&](KpcGroup* to) { serializer.copyFiche(&from, to); },
        [&](KpcGroup* to) { EXPECT_TRUE(serializer.loadFiche(to, {})); },
        [&](KpcGroup* to) {
            to->lockLoad();
            serializer.copyFiche(&from, to);
            EXPECT_TRUE(serializer.unlockParamSerialize(to));
        },
    };
    for (const auto& action : actions) {
        auto to = std::make_unique<KpcGroup>("g", noProject());
        to->addChild(newInteger("a", 1));
        to->addChild(newInteger("b", 1));
        OnUpdate destroy([&] { to.reset(); });
        to->getChild("a")->addObserver(&destroy);
        action(to.get());
        EXPECT_EQ(to, nullptr);
    }
}

TEST(KpsSerializerRead, GoesOnWhereAnObserverDestroysTheChildThatIsRead)
{
    KpcGroup group("g", noProject());
    group.addChild(newInteger("a", 1));
    group.addChild(newInteger("b", 1));
    OnUpdate destroyChild([&] { group.deleteParameter("a"); });
    group.getChild("a")->addObserver(&destroyChild);

    read(group,
         "<param key=\"g\"><param key=\"a\">2</param><param key=\"a\">3</param><param key=\"b\">2</param></param>");

    EXPECT_EQ(group.getChild("a"), nullptr);
    EXPECT_EQ(static_cast<KpaInteger*>(group.getChild("b"))->getValue(), 2);
}

TEST(KpsSerializerRead, AFicheIsReadFromTheRootOfADocument)
{
    Tree tree;
    KpsSerializer::updateFicheFromXml(parsed("<task id=\"other\"><param key=\"a\">a1</param></task>"), &tree.group);
    EXPECT_EQ(tree.a->form, value("a1"));
}

TEST(KpsSerializerRead, ADocumentWithoutARootChangesNothing)
{
    Tree tree;
    tree.group.setAutomatic(true);
    KpsSerializer::updateFicheFromXml(QDomDocument(), &tree.group);
    KpsSerializer::updateFicheFromXml(QDomDocument(QString()), &tree.group);
    EXPECT_EQ(tree.group.log, QStringList());
    EXPECT_TRUE(tree.group.isAutomatic());
}

TEST(KpsSerializerRead, BadTextsKeepTheValue)
{
    for (const char* text : {"", "x", "1.5", "99999999999", "<value/>", "<value>x</value>", "<other>3</other>"}) {
        KpaInteger parameter("p");
        parameter.setValue(7);
        read(parameter, QStringLiteral("<param key=\"p\">%1</param>").arg(text));
        EXPECT_EQ(parameter.getValue(), 7) << text;
    }
}

TEST(KpsSerializerRead, ReadsDeeplyNestedElementsThatNobodyKnows)
{
    const int depth = 900;
    const QString open = QStringLiteral("<entry>").repeated(depth);
    const QString close = QStringLiteral("</entry>").repeated(depth);
    EXPECT_EQ(formOf(open + "x" + close), (KpbAParameter::SerialForm{{"entry", "x"}}));
}

TEST(KpsSerializerRead, ATreeOfManyLeavesIsTheSameAfterWritingAndReading)
{
    const int count = 100000;
    KpcGroup from("g", noProject());
    KpcGroup to("g", noProject());
    for (int i = 0; i < count; ++i) {
        from.addChild(newInteger(QString::number(i), i));
        to.addChild(newInteger(QString::number(i), 0));
    }

    QDomElement element = KpsSerializer::convertParamToXml(&from);
    KpsSerializer::updateParamFromXml(&to, element);

    for (int i = 0; i < count; ++i)
        ASSERT_EQ(static_cast<KpaInteger*>(to.getChild(i))->getValue(), i);
}
