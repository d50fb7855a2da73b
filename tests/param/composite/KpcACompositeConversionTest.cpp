#include <param/KpsSerializerTestTools.h>

#include <param/KpbFailure.h>
#include <support/RecordedMessages.h>

using namespace SerializerTest;

namespace {

/// Opens the steps to the tests.
struct Steps : KpcGroup
{
    using KpcAComposite::_convertXmlChangeKeys;
    using KpcAComposite::_convertXmlChangeParent;
    using KpcAComposite::_convertXmlCreateNewParam;
    using KpcAComposite::_convertXmlGetParam;
    using KpcAComposite::_convertXmlUpdateEnumValue;
    using KpcAComposite::_convertXmlUpdateFlagsValue;
};

/// A group of version 3. Version 1 had "OLD_SIZE" for "SIZE" and no "KIND" of its own; version 2 had "SIZE" outside of
/// "SHAPE".
class Climber : public KpcGroup
{
public:
    Climber() : KpcGroup("CLIMBER", noProject())
    {
        auto* shape = new KpcGroup("SHAPE", noProject());
        shape->addChild(newInteger("SIZE", 0));
        addChild(shape);
        addChild(new FormParameter("KIND", value("initial")));
    }

    int getVersion() const override { return 3; }
    void convert(QDomElement& element, int fromVersion) const override
    {
        switch (fromVersion) {
        case 1:
            _convertToVersion2(element);
            [[fallthrough]];
        case 2:
            _convertToVersion3(element);
            break;
        case 3:
            break;
        default:
            Kp::failProgramming("void __cdecl Climber::convert(class QDomElement &,int) const", "Climber",
                                QString("version from = %1 | version to = %2").arg(fromVersion).arg(getVersion()));
        }
    }

    int size() const { return static_cast<KpaInteger*>(getChild("SHAPE")->getChild("SIZE"))->getValue(); }
    SerialForm kind() const { return getChild("KIND")->serialize(); }

private:
    /// "SIZE" got its name, and "KIND" was split off.
    void _convertToVersion2(QDomElement& element) const
    {
        _convertXmlChangeKeys(element, {{"OLD_SIZE", "SIZE"}});
        KuxXml::setValue(_convertXmlCreateNewParam(element, "KIND"), "ONE");
    }
    /// "SIZE" went into "SHAPE", and the kinds got other names.
    void _convertToVersion3(QDomElement& element) const
    {
        _convertXmlChangeParent(element, "SIZE", _convertXmlCreateNewParam(element, "SHAPE"), QString());
        _convertXmlUpdateEnumValue(_convertXmlGetParam(element, {"KIND"}), {{"ONE", "FIRST"}, {"TWO", "SECOND"}});
    }
};

QString failureOf(const std::function<void()>& body)
{
    try {
        body();
    }
    catch (const MbeProgrammingError& error) {
        return error.getMessage();
    }
    ADD_FAILURE() << "nothing was thrown";
    return QString();
}

QString afterEnum(const QString& content, const QMap<QString, QString>& values)
{
    const QDomDocument document = parsed("<param key=\"p\">" + content + "</param>");
    Steps::_convertXmlUpdateEnumValue(document.documentElement(), values);
    return written(document);
}

QString afterFlags(const QString& content, const QMap<QString, QString>& values)
{
    const QDomDocument document = parsed("<param key=\"p\">" + content + "</param>");
    Steps::_convertXmlUpdateFlagsValue(document.documentElement(), values);
    return written(document);
}

} // namespace

TEST(KpcACompositeConversion, FollowsAPathOfKeysThroughDirectChildren)
{
    const QDomDocument document = parsed("<task><param key=\"A\"><x><param key=\"B\">no</param></x>"
                                         "<y key=\"B\">no</y><param key=\"B\">1</param><param key=\"B\">2</param>"
                                         "</param><param key=\"B\">3</param></task>");
    const QDomElement root = document.documentElement();

    EXPECT_EQ(Steps::_convertXmlGetParam(root, {"A", "B"}).text(), "1");
    EXPECT_EQ(Steps::_convertXmlGetParam(root, {"B"}).text(), "3");
    EXPECT_EQ(Steps::_convertXmlGetParam(root, {}), root);
    EXPECT_TRUE(Steps::_convertXmlGetParam(root, {"A", "C"}).isNull());
    EXPECT_TRUE(Steps::_convertXmlGetParam(root, {"C", "B"}).isNull());
    EXPECT_TRUE(Steps::_convertXmlGetParam(root, {"a"}).isNull());
    EXPECT_TRUE(Steps::_convertXmlGetParam(QDomElement(), {"A"}).isNull());
}

TEST(KpcACompositeConversion, CreatesAParameterAtTheEndOfItsParent)
{
    const QDomDocument document = parsed("<task><param key=\"A\"/></task>");
    const QDomElement created = Steps::_convertXmlCreateNewParam(document.documentElement(), "B");
    EXPECT_EQ(created, document.documentElement().lastChild());
    EXPECT_EQ(written(document), "<task>\n <param key=\"A\"/>\n <param key=\"B\"/>\n</task>\n");
    EXPECT_TRUE(Steps::_convertXmlCreateNewParam(QDomElement(), "B").isNull());
}

TEST(KpcACompositeConversion, RenamesDirectChildrenInMapOrder)
{
    const QDomDocument document = parsed("<task><param key=\"A\"><param key=\"A\"/></param><param key=\"B\"/>"
                                         "<param key=\"D\"/></task>");
    Steps::_convertXmlChangeKeys(document.documentElement(), {{"D", "E"}, {"A", "Z"}, {"B", "D"}});
    // B is D when the turn of D comes.
    EXPECT_EQ(written(document), "<task>\n"
                                 " <param key=\"Z\">\n"
                                 "  <param key=\"A\"/>\n"
                                 " </param>\n"
                                 " <param key=\"E\"/>\n"
                                 " <param key=\"D\"/>\n"
                                 "</task>\n");
}

TEST(KpcACompositeConversion, RenamesNothingWhereTheKeyIsAbsent)
{
    const QDomDocument document = parsed("<task><param key=\"A\"/></task>");
    Steps::_convertXmlChangeKeys(document.documentElement(), {{"B", "C"}, {"a", "D"}});
    Steps::_convertXmlChangeKeys(QDomElement(), {{"B", "C"}});
    EXPECT_EQ(written(document), "<task>\n <param key=\"A\"/>\n</task>\n");
}

TEST(KpcACompositeConversion, MovesAParameterFromAnyDepth)
{
    const QString text = "<task><param key=\"A\"><x><param key=\"B\" version=\"2\">1</param></x></param>"
                         "<param key=\"C\"><param key=\"D\"/></param></task>";
    const struct
    {
        const char* newKey;
        const char* key;
    } cases[] = {{"", "B"}, {"E", "E"}};
    for (const auto& c : cases) {
        const QDomDocument document = parsed(text);
        const QDomElement root = document.documentElement();
        Steps::_convertXmlChangeParent(root, "B", Steps::_convertXmlGetParam(root, {"C"}), c.newKey);
        EXPECT_EQ(written(document), QStringLiteral("<task>\n"
                                                    " <param key=\"A\">\n"
                                                    "  <x/>\n"
                                                    " </param>\n"
                                                    " <param key=\"C\">\n"
                                                    "  <param key=\"D\"/>\n"
                                                    "  <param key=\"%1\" version=\"2\">1</param>\n"
                                                    " </param>\n"
                                                    "</task>\n")
                                         .arg(c.key));
    }
}

TEST(KpcACompositeConversion, MovesTheFirstOfSeveralInDocumentOrder)
{
    const QDomDocument document = parsed("<task><x><param key=\"B\">1</param></x><param key=\"B\">2</param></task>");
    const QDomElement root = document.documentElement();
    Steps::_convertXmlChangeParent(root, "B", root, QString());
    EXPECT_EQ(written(document), "<task>\n <x/>\n <param key=\"B\">2</param>\n <param key=\"B\">1</param>\n</task>\n");
}

TEST(KpcACompositeConversion, MovesNothingWhereAnEndIsMissing)
{
    const QString text = "<task>\n <param key=\"A\"/>\n</task>\n";
    const QDomDocument document = parsed(text);
    const QDomElement root = document.documentElement();
    Steps::_convertXmlChangeParent(root, "B", root, "C");
    Steps::_convertXmlChangeParent(root, "A", QDomElement(), "C");
    Steps::_convertXmlChangeParent(QDomElement(), "A", root, "C");
    EXPECT_EQ(written(document), text);
}

TEST(KpcACompositeConversion, MovesNoElementIntoItself)
{
    const QString text = "<task>\n <param key=\"A\">\n  <param key=\"B\"/>\n </param>\n</task>\n";
    const QDomDocument document = parsed(text);
    const QDomElement root = document.documentElement();
    Steps::_convertXmlChangeParent(root, "A", Steps::_convertXmlGetParam(root, {"A"}), "C");
    Steps::_convertXmlChangeParent(root, "A", Steps::_convertXmlGetParam(root, {"A", "B"}), "C");
    EXPECT_EQ(written(document), text);
}

TEST(KpcACompositeConversion, ReplacesAnEnumerationsValue)
{
    const QMap<QString, QString> values = {{"A", "X"}, {"B", "Y"}, {"", "NONE"}};
    EXPECT_EQ(afterEnum("A", values), "<param key=\"p\">X</param>\n");
    EXPECT_EQ(afterEnum("C", values), "<param key=\"p\">C</param>\n");
    EXPECT_EQ(afterEnum("A|B", values), "<param key=\"p\">A|B</param>\n");
    EXPECT_EQ(afterEnum("a", values), "<param key=\"p\">a</param>\n");
    EXPECT_EQ(afterEnum("", values), "<param key=\"p\">NONE</param>\n");
    EXPECT_EQ(afterEnum("<value>A</value><other>A</other>", values),
              "<param key=\"p\">\n <value>X</value>\n <other>A</other>\n</param>\n");
    EXPECT_EQ(afterEnum("<![CDATA[C]]>", values), "<param key=\"p\"><![CDATA[C]]></param>\n");
    Steps::_convertXmlUpdateEnumValue(QDomElement(), values);
}

TEST(KpcACompositeConversion, ReplacesEachOfTheFlags)
{
    const QMap<QString, QString> values = {{"A", "X"}, {"B", "Y"}};
    EXPECT_EQ(afterFlags("A|B", {{"A", "X"}}), "<param key=\"p\">X|B</param>\n");
    EXPECT_EQ(afterFlags("B|C|A", values), "<param key=\"p\">Y|C|X</param>\n");
    EXPECT_EQ(afterFlags("|A||", values), "<param key=\"p\">|X||</param>\n");
    EXPECT_EQ(afterFlags("", values), "<param key=\"p\"/>\n");
    EXPECT_EQ(afterFlags("A", {{"A", "X|Y"}, {"X", "Z"}}), "<param key=\"p\">X|Y</param>\n");
    // It is written again, changed or not.
    EXPECT_EQ(afterFlags("<![CDATA[C]]>", values), "<param key=\"p\">C</param>\n");
    Steps::_convertXmlUpdateFlagsValue(QDomElement(), values);
}

TEST(KpcACompositeConversion, AStoredFormClimbsFromEachVersion)
{
    const struct
    {
        const char* description;
        const char* text;
        const char* kind;
    } cases[] = {
        {"without a version", "<param><param key=\"OLD_SIZE\">5</param></param>", "FIRST"},
        {"version 1", "<param version=\"1\"><param key=\"OLD_SIZE\">5</param></param>", "FIRST"},
        {"version 2", "<param version=\"2\"><param key=\"KIND\">TWO</param><param key=\"SIZE\">5</param></param>",
         "SECOND"},
        {"version 3",
         "<param version=\"3\"><param key=\"KIND\">ONE</param><param key=\"SHAPE\"><param "
         "key=\"SIZE\">5</param></param>"
         "</param>",
         "ONE"},
    };
    for (const auto& c : cases) {
        Climber climber;
        read(climber, c.text);
        EXPECT_EQ(climber.size(), 5) << c.description;
        EXPECT_EQ(climber.kind(), value(c.kind)) << c.description;
    }
}

TEST(KpcACompositeConversion, AStepGoesOnWhereAnElementIsMissing)
{
    Climber climber;
    read(climber, "<param key=\"CLIMBER\" version=\"2\"/>");
    EXPECT_EQ(climber.size(), 0);
    EXPECT_EQ(climber.kind(), value("initial"));
}

TEST(KpcACompositeConversion, TheNextWritingHasTheCurrentVersion)
{
    Climber climber;
    read(climber, "<param key=\"CLIMBER\"><param key=\"OLD_SIZE\">5</param></param>");
    EXPECT_EQ(writtenParam(climber), "<param key=\"CLIMBER\" version=\"3\">\n"
                                     " <param key=\"SHAPE\">\n"
                                     "  <param key=\"SIZE\">5</param>\n"
                                     " </param>\n"
                                     " <param key=\"KIND\">FIRST</param>\n"
                                     "</param>\n");
}

TEST(KpcACompositeConversion, ReadingDoesNotRaiseTheVersionOfTheElement)
{
    Climber climber;
    const QDomDocument document = parsed("<param key=\"CLIMBER\" version=\"2\"/>");
    QDomElement element = document.documentElement();
    KpsSerializer::updateParamFromXml(&climber, element);
    EXPECT_EQ(element.attribute("version"), "2");
}

TEST(KpcACompositeConversion, AVersionThatNeverWasFails)
{
    for (const QString version : {"junk", "0", "-1"}) {
        Climber climber;
        const QString text = failureOf([&] { read(climber, "<param version=\"" + version + "\"/>"); });
        EXPECT_EQ(text, "'void __cdecl Climber::convert(class QDomElement &,int) const' in file 'Climber' failed:\n\n"
                        "version from = " +
                            QString::number(version.toInt()) + " | version to = 3");
    }
}

TEST(KpcACompositeConversion, AConversionFromTheCurrentVersionDoesNothingAndFromAHigherOneFails)
{
    const Climber climber;
    const QString text = "<param key=\"CLIMBER\">\n <param key=\"OLD_SIZE\">5</param>\n</param>\n";
    const QDomDocument document = parsed(text);
    QDomElement element = document.documentElement();
    climber.convert(element, 3);
    EXPECT_EQ(written(document), text);
    EXPECT_THROW(climber.convert(element, 4), MbeProgrammingError);
    EXPECT_EQ(written(document), text);
}

TEST(KpcACompositeConversion, AFormOfANewerVersionIsNotConverted)
{
    RecordedMessages messages;
    Climber climber;
    read(climber, "<param version=\"4\"><param key=\"SHAPE\"><param key=\"SIZE\">5</param></param></param>");
    EXPECT_EQ(climber.size(), 0);
    EXPECT_EQ(messages.warnings, QStringList("Cannot load parameter 'CLIMBER' because version is too recent."));
}

TEST(KpcACompositeConversion, AClassWithoutAConversionSaysSo)
{
    RecordedMessages messages;
    KpaInteger parameter("p");
    read(parameter, "<param key=\"p\" version=\"junk\">5</param>");
    EXPECT_EQ(messages.errors, QStringList("Parameter 'INTEGER' must implement convert() method."));
    EXPECT_EQ(parameter.getValue(), 5);
}
