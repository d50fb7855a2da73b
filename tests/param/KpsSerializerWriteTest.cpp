#include "KpsSerializerTestTools.h"

using namespace SerializerTest;

namespace {

/// Has a place for a child, but no child in it.
class Hollow : public FormParameter
{
public:
    using FormParameter::FormParameter;
    bool hasChildren() const override { return true; }
    int getChildCount() const override { return 1; }
};

/// A group with the children "a" = 1, "b" = 2 and "c" = 3.
void addThree(KpcGroup& group)
{
    group.addChild(newInteger("a", 1));
    group.addChild(newInteger("b", 2));
    group.addChild(newInteger("c", 3));
}

} // namespace

TEST(KpsSerializerWrite, AnAtomicIsOneElementWithItsValue)
{
    EXPECT_EQ(writtenParam(FormParameter("size", value("12.5"))), "<param key=\"size\">12.5</param>\n");
    KpaInteger integer("count");
    integer.setValue(-3);
    EXPECT_EQ(writtenParam(integer), "<param key=\"count\">-3</param>\n");
}

TEST(KpsSerializerWrite, AnEmptyValueIsAnEmptyElement)
{
    EXPECT_EQ(writtenParam(FormParameter("size", value(""))), "<param key=\"size\"/>\n");
}

TEST(KpsSerializerWrite, AnEmptyFormIsAnEmptyElementWithItsAttributes)
{
    FormParameter parameter("p", {}, 2);
    parameter.setAutomaticEnabled(true);
    EXPECT_EQ(writtenParam(parameter), "<param key=\"p\" version=\"2\" automatic=\"no\"/>\n");
    EXPECT_EQ(writtenParam(KpcGroup("g", noProject())), "<param key=\"g\"/>\n");
}

TEST(KpsSerializerWrite, AnotherFormIsOneElementPerEntryInTheirOrder)
{
    EXPECT_EQ(writtenParam(FormParameter("p", {{"url", "file:///a"}})),
              "<param key=\"p\">\n <url>file:///a</url>\n</param>\n");
    EXPECT_EQ(writtenParam(FormParameter("p", {{"z", "1"}, {"value", "2"}, {"a", ""}})),
              "<param key=\"p\">\n <z>1</z>\n <value>2</value>\n <a/>\n</param>\n");
}

TEST(KpsSerializerWrite, ChildrenFollowTheEntriesInTheirOrder)
{
    FormGroup group("g", {{"z", "1"}, {"y", "2"}});
    group.addChild(newInteger("b", 5));
    auto* inner = new KpcGroup("a", noProject());
    inner->addChild(newInteger("c", 6));
    group.addChild(inner);

    EXPECT_EQ(writtenParam(group), "<param key=\"g\">\n"
                                   " <z>1</z>\n"
                                   " <y>2</y>\n"
                                   " <param key=\"b\">5</param>\n"
                                   " <param key=\"a\">\n"
                                   "  <param key=\"c\">6</param>\n"
                                   " </param>\n"
                                   "</param>\n");
}

TEST(KpsSerializerWrite, AValueBesideChildrenIsAnElement)
{
    FormGroup group("g", value("yes"));
    EXPECT_EQ(writtenParam(group), "<param key=\"g\">yes</param>\n");

    group.addChild(newInteger("a", 1));

    EXPECT_EQ(writtenParam(group), "<param key=\"g\">\n <value>yes</value>\n <param key=\"a\">1</param>\n</param>\n");
}

TEST(KpsSerializerWrite, ANullChildIsPassedOver)
{
    EXPECT_EQ(writtenParam(Hollow("p", value("1"))), "<param key=\"p\">\n <value>1</value>\n</param>\n");
}

TEST(KpsSerializerWrite, AVolatileParameterIsAbsentWithAllBelowIt)
{
    KpcGroup group("g", noProject());
    addThree(group);
    auto* inner = new KpcGroup("inner", noProject());
    addThree(*inner);
    group.addChild(inner);

    group.getChild("b")->setVolatile(true);
    inner->setVolatile(true);

    EXPECT_EQ(writtenParam(group),
              "<param key=\"g\">\n <param key=\"a\">1</param>\n <param key=\"c\">3</param>\n</param>\n");
    EXPECT_TRUE(KpsSerializer::convertParamToXml(inner).isNull());
}

TEST(KpsSerializerWrite, TheVersionIsWrittenAboveOneOnly)
{
    EXPECT_EQ(writtenParam(FormParameter("p", value("x"), 1)), "<param key=\"p\">x</param>\n");
    EXPECT_EQ(writtenParam(FormParameter("p", value("x"), 2)), "<param key=\"p\" version=\"2\">x</param>\n");
    EXPECT_EQ(writtenParam(FormParameter("p", value("x"), 13)), "<param key=\"p\" version=\"13\">x</param>\n");
}

TEST(KpsSerializerWrite, TheAutomaticFlagIsWrittenWhereTheModeIsOffered)
{
    KpaInteger parameter("p");
    parameter.setAutomatic(true);
    EXPECT_EQ(writtenParam(parameter), "<param key=\"p\">0</param>\n");
    parameter.setAutomaticEnabled(true);
    EXPECT_EQ(writtenParam(parameter), "<param key=\"p\" automatic=\"yes\">0</param>\n");
    parameter.setAutomatic(false);
    EXPECT_EQ(writtenParam(parameter), "<param key=\"p\" automatic=\"no\">0</param>\n");
}

TEST(KpsSerializerWrite, TextsOfAnyShapeAreReadAgain)
{
    const QString texts[] = {
        "a < b & c > d",
        "\"double\" and 'single'",
        "  blanks around  ",
        "   ",
        "two\nlines\tand a tab",
        "]]>",
        "\n]]>\n]]>",
        "%1 %2",
        "<param>x</param>",
        QString::fromUtf8("Größe 漢字 \U0001F600"),
        QString(200000, QLatin1Char('x')),
    };
    for (const QString& text : texts) {
        const FormParameter one("p", value(text));
        const FormParameter two("p", {{"a", text}, {"b", text}});
        FormParameter other("p");

        read(other, writtenParam(one));
        EXPECT_EQ(other.form, one.form) << text.toStdString();
        read(other, writtenParam(two));
        EXPECT_EQ(other.form, two.form) << text.toStdString();
    }
}

TEST(KpsSerializerWrite, CarriageReturnsAreLostOnReading)
{
    FormParameter other("p");
    read(other, writtenParam(FormParameter("p", value("a\r\nb\r"))));
    EXPECT_EQ(other.form, value("a\nb"));
}

TEST(KpsSerializerWrite, TheElementCanBeChangedAndMovedByItsCaller)
{
    QDomElement element = KpsSerializer::convertParamToXml(std::make_unique<FormParameter>("p", value("1")).get());
    element.appendChild(element.ownerDocument().createElement("more"));
    const QDomElement second = KpsSerializer::convertParamToXml(std::make_unique<FormParameter>("q").get());
    element.appendChild(second);

    QDomDocument document{QString()};
    document.appendChild(element);

    EXPECT_EQ(written(document), "<param key=\"p\">1<more/><param key=\"q\"/></param>\n");
}

TEST(KpsSerializerWrite, AnElementCanBecomeTheRootOfItsOwnDocument)
{
    for (const QString key : {"p", "q"}) {
        const QDomElement element = KpsSerializer::convertParamToXml(std::make_unique<FormParameter>(key).get());
        QDomDocument document = element.ownerDocument();
        document.appendChild(element);
        EXPECT_EQ(written(document), "<param key=\"" + key + "\"/>\n");
    }
}

TEST(KpsSerializerWrite, ALoadLockedParameterGivesWhatItKeeps)
{
    KpcGroup group("g", noProject());
    group.addChild(newInteger("a", 1));
    auto* locked = new KpaInteger("b");
    locked->lockLoad();
    group.addChild(locked);
    const QString text = "<param key=\"g\">\n"
                         " <param key=\"a\">7</param>\n"
                         " <param key=\"b\" version=\"9\" automatic=\"yes\" other=\"x\">\n"
                         "  <unknown>a</unknown>\n"
                         "  <!--note-->\n"
                         " </param>\n"
                         "</param>\n";

    read(group, text);
    locked->setValue(55);

    EXPECT_EQ(writtenParam(group), text);
    EXPECT_EQ(writtenParam(group), text);
}

TEST(KpsSerializerWrite, ALoadLockedParameterThatKeepsNothingGivesItsState)
{
    KpaInteger parameter("p");
    parameter.setValue(4);
    parameter.lockLoad();
    EXPECT_EQ(writtenParam(parameter), "<param key=\"p\">4</param>\n");

    parameter.setSerializeData(QSharedPointer<QDomDocument>::create());
    EXPECT_EQ(writtenParam(parameter), "<param key=\"p\">4</param>\n");
}

TEST(KpsSerializerWrite, ALoadLockedParameterThatKeepsADocumentWithoutARootIsAbsent)
{
    KpcFiche fiche("key", "t", noProject());
    addThree(fiche);
    KpbAParameter* locked = fiche.getChild("b");
    locked->lockLoad();
    locked->setSerializeData(QSharedPointer<QDomDocument>::create(QString()));

    EXPECT_TRUE(KpsSerializer::convertParamToXml(locked).isNull());
    EXPECT_EQ(written(KpsSerializer::convertFicheToXml(&fiche)),
              "<task id=\"t\">\n <param key=\"a\">1</param>\n <param key=\"c\">3</param>\n</task>\n");
}

TEST(KpsSerializerWrite, AParameterWithoutTheLoadLockGivesItsState)
{
    KpaInteger parameter("p");
    parameter.setValue(4);
    parameter.setSerializeData(QSharedPointer<QDomDocument>::create(parsed("<param key=\"p\">9</param>")));
    EXPECT_EQ(writtenParam(parameter), "<param key=\"p\">4</param>\n");
}

TEST(KpsSerializerWrite, AVolatileLoadLockedParameterIsAbsent)
{
    KpaInteger parameter("p");
    parameter.lockLoad();
    read(parameter, "<param key=\"p\">9</param>");
    parameter.setVolatile(true);
    EXPECT_TRUE(KpsSerializer::convertParamToXml(&parameter).isNull());
}

TEST(KpsSerializerWrite, AFicheIsATaskWithTheChildrenOfTheGroup)
{
    KpcFiche fiche("key", "kriging", noProject());
    fiche.setAutomaticEnabled(true);
    addThree(fiche);
    fiche.getChild("b")->setVolatile(true);

    EXPECT_EQ(written(KpsSerializer::convertFicheToXml(&fiche)), "<task id=\"kriging\">\n"
                                                                 " <param key=\"a\">1</param>\n"
                                                                 " <param key=\"c\">3</param>\n"
                                                                 "</task>\n");
}

TEST(KpsSerializerWrite, AFicheHasAVersionAndNoEntriesOfTheGroup)
{
    FormGroup group("g", {{"value", "1"}, {"more", "2"}}, 3);
    EXPECT_EQ(written(KpsSerializer::convertFicheToXml(&group)), "<task id=\"\" version=\"3\"/>\n");
}

TEST(KpsSerializerWrite, AFicheOfAVolatileGroupIsWritten)
{
    KpcFiche fiche("key", "t", noProject());
    fiche.addChild(newInteger("a", 1));
    fiche.setVolatile(true);
    EXPECT_EQ(written(KpsSerializer::convertFicheToXml(&fiche)),
              "<task id=\"t\">\n <param key=\"a\">1</param>\n</task>\n");
}

TEST(KpsSerializerWrite, ALoadLockedFicheGivesWhatItKeeps)
{
    KpcFiche fiche("key", "t", noProject());
    fiche.addChild(newInteger("a", 1));
    fiche.lockLoad();
    const QString text = "<task id=\"t\" version=\"4\">\n <param key=\"gone\">2</param>\n</task>\n";

    KpsSerializer::updateFicheFromXml(parsed(text), &fiche);

    EXPECT_EQ(static_cast<KpaInteger*>(fiche.getChild("a"))->getValue(), 1);
    EXPECT_EQ(written(KpsSerializer::convertFicheToXml(&fiche)), text);
}

TEST(KpsSerializerWrite, ALoadLockedGroupThatKeepsAParameterGivesATaskOfIt)
{
    KpcFiche fiche("key", "t", noProject());
    fiche.lockLoad();
    read(fiche, "<param key=\"key\" version=\"4\" automatic=\"no\"><param key=\"a\">2</param></param>");
    EXPECT_EQ(written(KpsSerializer::convertFicheToXml(&fiche)),
              "<task id=\"t\" version=\"4\">\n <param key=\"a\">2</param>\n</task>\n");
}
