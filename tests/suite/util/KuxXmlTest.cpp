#include <util/KuxXml.h>

#include <gtest/gtest.h>

namespace {

/// Texts that storing could damage, all without characters that XML cannot hold.
QStringList nastyTexts()
{
    return {"a",
            "12.5",
            " ",
            "\n",
            "\t",
            "   \n\t ",
            " a",
            "a ",
            "\na",
            "a\n",
            "a\nb",
            "a\tb",
            "a  b",
            "<",
            ">",
            "&",
            "\"",
            "'",
            "&amp;",
            "&#10;",
            "<b/>",
            "<![CDATA[x]]>",
            "]]>",
            " ]]>",
            "]]> ",
            "]]>]]>\n",
            "]]]]>>\n]]>",
            "]]\n>",
            "]] ",
            "] ",
            "<!-- x -->\n",
            "<?xml version=\"1.0\"?>\n",
            QString::fromUtf8("\xc3\xa9\xe2\x82\xac\xe6\x97\xa5"),
            QString::fromUtf8(" \xf0\x9f\x8c\x8d"),
            QString(QChar(0x00a0)),
            QString(QChar(0x2003)) + "a",
            QString(QChar(0xfeff)) + "a",
            QString(QChar(0x0085)) + QChar(0x2028) + QChar(0x007f),
            QString(QChar(0xfffd)),
            QString(5000, QLatin1Char('x')) + "\n" + QString(5000, QLatin1Char(' '))};
}

/// A document whose root was made for the text.
QDomDocument documentOf(const QString& text)
{
    QDomDocument document("test");
    document.appendChild(KuxXml::createTextOrCDATANode(document, "value", text));
    return document;
}

/// The text of the root after the document was written with Qt's writer and read with Qt's reader.
QString throughQt(const QDomDocument& document, int indent)
{
    QDomDocument read;
    QString message;
    EXPECT_TRUE(read.setContent(document.toByteArray(indent), &message)) << message.toStdString();
    return read.documentElement().text();
}

QString throughKuxXml(const QDomDocument& document)
{
    QDomDocument read;
    const KuxXmlResult result = KuxXml::parse(KuxXml::toText(document), &read);
    EXPECT_TRUE(result.ok) << result.message.toStdString();
    return read.documentElement().text();
}

QDomDocument parsed(const QByteArray& text)
{
    QDomDocument document;
    const KuxXmlResult result = KuxXml::parse(text, &document);
    EXPECT_TRUE(result.ok) << result.message.toStdString();
    return document;
}

QByteArray rootText(const QDomDocument& document)
{
    return KuxXml::toText(document).mid(int(qstrlen("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"))).trimmed();
}

} // namespace

TEST(KuxXml, MakesAnElementWithItsTextInside)
{
    QDomDocument document("test");
    const QDomElement element = KuxXml::createTextOrCDATANode(document, "value", "12.5");
    EXPECT_EQ(element.tagName(), "value");
    EXPECT_EQ(element.text(), "12.5");
    EXPECT_EQ(element.childNodes().count(), 1);
    EXPECT_TRUE(element.parentNode().isNull());
    EXPECT_FALSE(element.firstChild().isCDATASection());
}

TEST(KuxXml, MakesAnElementWithoutAChildForAnEmptyText)
{
    QDomDocument document("test");
    EXPECT_FALSE(KuxXml::createTextOrCDATANode(document, "value", "").hasChildNodes());
    EXPECT_FALSE(KuxXml::createTextOrCDATANode(document, "value", QString(QChar(1))).hasChildNodes());
    EXPECT_FALSE(KuxXml::createTextNode(document, "value", "").hasChildNodes());
}

TEST(KuxXml, MakesElementsInADocumentThatIsStillNull)
{
    QDomDocument document;
    EXPECT_EQ(KuxXml::createTextOrCDATANode(document, "value", "x").text(), "x");
}

TEST(KuxXml, PutsTextThatBlanksMatterToIntoCDATA)
{
    for (const char* text : {" ", "\n", "\t", " a", "a ", "a\nb", "a\tb"})
        EXPECT_TRUE(documentOf(text).documentElement().firstChild().isCDATASection()) << text;
    for (const char* text : {"a", "a b", "<a>", "]]>", "a\rb"})
        EXPECT_FALSE(documentOf(text).documentElement().firstChild().isCDATASection()) << text;
}

TEST(KuxXml, CutsCDATAWhereItsEndMarkWouldStand)
{
    const QDomDocument document = documentOf("\na]]>b");
    const QDomElement element = document.documentElement();
    ASSERT_EQ(element.childNodes().count(), 2);
    EXPECT_EQ(element.firstChild().nodeValue(), "\na]]");
    EXPECT_EQ(element.lastChild().nodeValue(), ">b");
}

TEST(KuxXml, BringsEachTextThroughQtsWriterAndReader)
{
    for (const QString& text : nastyTexts())
        for (const int indent : {-1, 0, 1})
            EXPECT_EQ(throughQt(documentOf(text), indent), text) << text.toStdString();
}

TEST(KuxXml, BringsEachTextThroughItsOwnWriterAndReader)
{
    for (const QString& text : nastyTexts())
        EXPECT_EQ(throughKuxXml(documentOf(text)), text) << text.toStdString();
}

TEST(KuxXml, BringsCarriageReturnsThroughItsOwnWriterAndReader)
{
    for (const QString text : {"\r", "a\rb", "a\r\nb", "\r\n", " \r ", "\r\r", "]]\r>\n", "\n]]>\r", "\ra\r"})
        EXPECT_EQ(throughKuxXml(documentOf(text)), text) << text.toStdString();
}

TEST(KuxXml, GivesTheSameValueFromQtsReaderWhereverCarriageReturnsStand)
{
    for (const QString text : {"\r", "a\rb", "a\r\nb", "\r\n", " \r ", "\ra\n"}) {
        QDomDocument read;
        ASSERT_TRUE(read.setContent(documentOf(text).toByteArray(1)));
        EXPECT_EQ(KuxXml::getValue(read.documentElement()), QString(text).remove('\r')) << text.toStdString();
    }
}

TEST(KuxXml, LeavesOutCharactersThatXmlCannotHold)
{
    const QChar high(0xd83c);
    const QChar low(0xdf0d);
    const QString pair = QString(high) + low;
    const struct
    {
        QString text;
        QString kept;
    } rows[] = {
        {QString(QChar(0)), ""},
        {QString("a") + QChar(0) + "b", "ab"},
        {QString("a") + QChar(0x1f) + QChar(0x0b) + "b", "ab"},
        {QString("a") + QChar(0xfffe) + QChar(0xffff) + "b", "ab"},
        {QString("a") + high + "b", "ab"},
        {QString("a") + low + "b", "ab"},
        {QString("a") + high, "a"},
        {low + pair + high, pair},
        {high + pair, pair},
        {"\t\n\r", "\t\n\r"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(KuxXml::removeForbiddenCharacters(row.text), row.kept);
        EXPECT_EQ(documentOf(row.text).documentElement().text(), row.kept);
        EXPECT_EQ(throughKuxXml(documentOf(row.text)), row.kept);
    }
}

TEST(KuxXml, FindsTheFirstCharacterThatXmlCannotHold)
{
    const QString text = QString("ab") + QChar(2) + "c" + QChar(3);
    EXPECT_EQ(KuxXml::findForbiddenCharacter("abc\t\r\n"), -1);
    EXPECT_EQ(KuxXml::findForbiddenCharacter(text), 2);
    EXPECT_EQ(KuxXml::findForbiddenCharacter(text, 3), 4);
}

TEST(KuxXml, WritesAnOrdinaryTextNodeWhereAskedTo)
{
    QDomDocument document("test");
    const QDomElement element = KuxXml::createTextNode(document, "value", "1,\n2");
    EXPECT_EQ(element.tagName(), "value");
    ASSERT_EQ(element.childNodes().count(), 1);
    EXPECT_FALSE(element.firstChild().isCDATASection());
    EXPECT_EQ(element.text(), "1,\n2");
}

TEST(KuxXml, FillsAnElementThatExists)
{
    QDomDocument document("");
    QDomElement element = document.createElement("param");
    element.setAttribute("key", "size");
    KuxXml::setText(element, "12.5");
    document.appendChild(element);
    EXPECT_EQ(rootText(document), "<param key=\"size\">12.5</param>");
    KuxXml::setText(element, "a\nb");
    EXPECT_EQ(rootText(document), "<param key=\"size\"><![CDATA[a\nb]]></param>");
    KuxXml::setText(element, "");
    EXPECT_EQ(rootText(document), "<param key=\"size\"/>");
}

TEST(KuxXml, FillsAnElementWhoseDocumentIsGone)
{
    QDomElement element = QDomDocument("gone").createElement("param");
    KuxXml::setText(element, "a\n]]>");
    EXPECT_EQ(element.text(), "a\n]]>");
    element.appendChild(QDomDocument("other").createElement("param"));
    KuxXml::setValue(element, "b");
    EXPECT_EQ(KuxXml::getValue(element), "b");
}

TEST(KuxXml, LeavesWhatIsNoTextInAnElementThatItFills)
{
    QDomDocument document = parsed("<a>x<!--c--><b/><![CDATA[y]]></a>");
    KuxXml::setText(document.documentElement(), "z");
    EXPECT_EQ(rootText(document), "<a><!--c--><b/>z</a>");
}

TEST(KuxXml, IgnoresANullElement)
{
    KuxXml::setText(QDomElement(), "x");
    KuxXml::setValue(QDomElement(), "x");
    EXPECT_EQ(KuxXml::getValue(QDomElement()), "");
    EXPECT_TRUE(KuxXml::getElementFromPath(QDomElement(), "param", "key", {"A"}).isNull());
    EXPECT_TRUE(KuxXml::getElementFromAttribute(QDomElement(), "param", "key", "A", true).isNull());
}

TEST(KuxXml, FollowsAPathOfDirectChildren)
{
    const QDomDocument document =
        parsed("<param key='A'><x key='B' n='0'/><param key='C'><param key='B' n='1'/></param>"
               "<param key='B' n='2'><param key='D' n='3'/></param><param key='B' n='4'/></param>");
    const QDomElement root = document.documentElement();
    const auto at = [&root](const QStringList& path) { return KuxXml::getElementFromPath(root, "param", "key", path); };
    EXPECT_EQ(at({}), root);
    EXPECT_EQ(at({"B"}).attribute("n"), "2");
    EXPECT_EQ(at({"B", "D"}).attribute("n"), "3");
    EXPECT_EQ(at({"C", "B"}).attribute("n"), "1");
    EXPECT_TRUE(at({"D"}).isNull());
    EXPECT_TRUE(at({"B", "D", "E"}).isNull());
    EXPECT_TRUE(at({"A"}).isNull());
    EXPECT_TRUE(at({"b"}).isNull());
    EXPECT_TRUE(at({""}).isNull());
}

TEST(KuxXml, FindsTheFirstElementInDocumentOrder)
{
    const QDomDocument document =
        parsed("<param key='X' n='0'><g><!--c--><param key='Y'><param key='X' n='1'/></param>text</g>"
               "<param key='X' n='2'/><param key='Z' n='3'/></param>");
    const QDomElement root = document.documentElement();
    const auto find = [&root](const QString& key, bool recursive) {
        return KuxXml::getElementFromAttribute(root, "param", "key", key, recursive).attribute("n");
    };
    EXPECT_EQ(find("X", true), "1");
    EXPECT_EQ(find("X", false), "2");
    EXPECT_EQ(find("Z", true), "3");
    EXPECT_EQ(find("W", true), QString());
    EXPECT_EQ(find("Y", false), QString());
}

TEST(KuxXml, LooksNoFurtherThanBelowTheElementGiven)
{
    const QDomDocument document = parsed("<a><b><c/></b><param key='X'/></a>");
    const QDomElement below = document.documentElement().firstChildElement("b");
    EXPECT_TRUE(KuxXml::getElementFromAttribute(below, "param", "key", "X", true).isNull());
}

TEST(KuxXml, TellsAnEmptyAttributeFromAMissingOne)
{
    const QDomDocument document = parsed("<a><param n='1'/><param key='' n='2'/></a>");
    const auto found = KuxXml::getElementFromAttribute(document.documentElement(), "param", "key", "", true);
    EXPECT_EQ(found.attribute("n"), "2");
}

TEST(KuxXml, ReadsTheValueWhereItStands)
{
    const struct
    {
        const char* text;
        const char* value;
    } rows[] = {
        {"<param>x</param>", "x"},
        {"<param/>", ""},
        {"<param>a&#13;b<!--c-->&#13;\nc</param>", "ab\nc"},
        {"<param><![CDATA[ a]]>b</param>", " ab"},
        {"<param><value>x</value><param key='A'>y</param></param>", "x"},
        {"<param><param key='A'>y</param><value>x&#13;</value></param>", "x"},
        {"<param>own<value>x</value></param>", "x"},
        {"<param>own<param key='A'>y</param></param>", ""},
        {"<param><name>n</name><value><![CDATA[\n]]></value></param>", "\n"},
        {"<param><value>x<b>y<c>z</c></b>w</value></param>", "xyzw"},
        {"<param>x<!--c-->y</param>", "xy"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(KuxXml::getValue(parsed(row.text).documentElement()), QString(row.value)) << row.text;
}

TEST(KuxXml, WritesTheValueWhereItStands)
{
    const struct
    {
        const char* text;
        const char* changed;
    } rows[] = {
        {"<param key='K'>x</param>", "<param key=\"K\">n</param>"},
        {"<param/>", "<param>n</param>"},
        {"<param>x<!--c-->y</param>", "<param><!--c-->n</param>"},
        {"<param><name>m</name><value>x</value></param>", "<param>\n <name>m</name>\n <value>n</value>\n</param>"},
        {"<param><param key='A'>y</param></param>",
         "<param>\n <value>n</value>\n <param key=\"A\">y</param>\n</param>"},
    };
    for (const auto& row : rows) {
        const QDomDocument document = parsed(row.text);
        KuxXml::setValue(document.documentElement(), "n");
        EXPECT_EQ(rootText(document), QByteArray(row.changed)) << row.text;
        EXPECT_EQ(KuxXml::getValue(document.documentElement()), "n");
    }
}

TEST(KuxXml, WritesAnEmptyValueAsNoText)
{
    const QDomDocument document = parsed("<param><value>x</value></param>");
    KuxXml::setValue(document.documentElement(), "");
    EXPECT_EQ(rootText(document), "<param>\n <value/>\n</param>");
}

TEST(KuxXml, SearchesADeepDocumentWithoutRecursion)
{
    QByteArray text;
    for (int i = 0; i < 999; ++i)
        text += "<a>";
    text += "<param key='K'>deep</param>";
    for (int i = 0; i < 999; ++i)
        text += "</a>";
    const QDomDocument document = parsed(text);
    const auto found = KuxXml::getElementFromAttribute(document.documentElement(), "param", "key", "K", true);
    EXPECT_EQ(KuxXml::getValue(found), "deep");
}

TEST(KuxXml, CutsALongTextIntoSectionsInLinearTime)
{
    const QString text = "\n" + QString("]]>\r").repeated(100000);
    EXPECT_EQ(documentOf(text).documentElement().text(), text);
}
