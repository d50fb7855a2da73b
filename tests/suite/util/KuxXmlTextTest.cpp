#include <util/KuxXml.h>

#include <gtest/gtest.h>

namespace {

const QByteArray declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

QDomDocument parsed(const QByteArray& text)
{
    QDomDocument document;
    const KuxXmlResult result = KuxXml::parse(text, &document);
    EXPECT_TRUE(result.ok) << result.message.toStdString();
    return document;
}

/// What is written after the declaration.
QByteArray body(const QDomDocument& document)
{
    const QByteArray text = KuxXml::toText(document);
    EXPECT_TRUE(text.startsWith(declaration));
    return text.mid(declaration.size());
}

QByteArray rewritten(const QByteArray& text)
{
    return body(parsed(text));
}

QDomDocument documentWithText(const QString& text)
{
    QDomDocument document("");
    QDomElement root = document.createElement("a");
    root.appendChild(document.createTextNode(text));
    document.appendChild(root);
    return document;
}

} // namespace

TEST(KuxXmlText, StartsWithADeclaration)
{
    EXPECT_EQ(KuxXml::toText(parsed("<a/>")), declaration + "<a/>\n");
    EXPECT_EQ(KuxXml::toText(QDomDocument()), declaration);
}

TEST(KuxXmlText, IndentsElementsByOneBlankAndKeepsTextOnOneLine)
{
    EXPECT_EQ(rewritten("<task><param key='a'>12.5</param><param key='b'><value>x</value><param "
                        "key='c'/></param></task>"),
              "<task>\n <param key=\"a\">12.5</param>\n <param key=\"b\">\n  <value>x</value>\n  <param key=\"c\"/>\n "
              "</param>\n</task>\n");
}

TEST(KuxXmlText, AddsNoBlankToAnElementThatHasText)
{
    const QByteArray text = "<a>\n <b>x<c><d/><e>y</e></c> z<f/></b>\n <g/>\n</a>\n";
    EXPECT_EQ(rewritten(text), text);
}

TEST(KuxXmlText, WritesCommentsAndInstructionsOnTheirLines)
{
    const QByteArray text = "<!--top-->\n<?go on?>\n<a>\n <!--in-->\n <?do?>\n <b/>\n</a>\n<!--end-->\n";
    EXPECT_EQ(rewritten(text), text);
}

TEST(KuxXmlText, PutsAttributesIntoAFixedOrder)
{
    EXPECT_EQ(rewritten("<a z='1' automatic='yes' b='2' version='3' id='4' key='5' B='6' a='7'/>"),
              "<a key=\"5\" id=\"4\" version=\"3\" automatic=\"yes\" B=\"6\" a=\"7\" b=\"2\" z=\"1\"/>\n");
}

TEST(KuxXmlText, EscapesTextAndAttributes)
{
    QDomDocument document = documentWithText("&<>\"'\r\n\tx");
    document.documentElement().setAttribute("b", "&<>\"'\r\n\tx");
    EXPECT_EQ(body(document), "<a b=\"&amp;&lt;&gt;&quot;'&#13;&#10;&#9;x\">&amp;&lt;&gt;\"'&#13;\n\tx</a>\n");
    const QDomElement read = parsed(KuxXml::toText(document)).documentElement();
    EXPECT_EQ(read.attribute("b"), "&<>\"'\r\n\tx");
    EXPECT_EQ(read.text(), "&<>\"'\r\n\tx");
}

TEST(KuxXmlText, WritesLongTextsWithoutLoss)
{
    // Two units of UTF-16 each, so that one stands across every even place, and one ASCII character before them.
    const QString text = "x" + QString::fromUtf8("\xf0\x9f\x98\x80").repeated(3000) + "&";
    EXPECT_EQ(body(documentWithText(text)), "<a>x" + QByteArray("\xf0\x9f\x98\x80").repeated(3000) + "&amp;</a>\n");
}

TEST(KuxXmlText, WritesTextOfBlanksAloneAsCDATA)
{
    EXPECT_EQ(body(documentWithText(" \n")), "<a><![CDATA[ \n]]></a>\n");
}

TEST(KuxXmlText, CutsCDATAWhereItCannotGoOn)
{
    QDomDocument document("");
    QDomElement root = document.createElement("a");
    root.appendChild(document.createCDATASection("x]]>y\rz"));
    document.appendChild(root);
    EXPECT_EQ(body(document), "<a><![CDATA[x]]]]><![CDATA[>y]]>&#13;<![CDATA[z]]></a>\n");
    EXPECT_EQ(parsed(KuxXml::toText(document)).documentElement().text(), "x]]>y\rz");
}

TEST(KuxXmlText, WritesOnlyWhatCanBeRead)
{
    const QString bad = QString("x") + QChar(0) + QChar(0xd800) + QChar(0xffff) + "y";
    QDomDocument document = documentWithText(bad);
    QDomElement root = document.documentElement();
    root.setAttribute("b", bad);
    root.appendChild(document.createComment("--" + bad + "--->-"));
    root.appendChild(document.createProcessingInstruction("p", "?>" + bad));
    const QDomElement read = parsed(KuxXml::toText(document)).documentElement();
    EXPECT_EQ(read.text(), "xy");
    EXPECT_EQ(read.attribute("b"), "xy");
}

TEST(KuxXmlText, WritesTheDocumentType)
{
    for (const QByteArray text :
         {"<!DOCTYPE t>\n<t/>\n", "<!DOCTYPE t SYSTEM \"s\">\n<t/>\n", "<!DOCTYPE t PUBLIC \"p\" 's\"'>\n<t/>\n"})
        EXPECT_EQ(rewritten(text), text);
    QDomDocument named("serialized_param");
    named.appendChild(named.createElement("param"));
    EXPECT_EQ(body(named), "<!DOCTYPE serialized_param>\n<param/>\n");
}

TEST(KuxXmlText, WritesOneDeclarationWhereQtsReaderKeptOne)
{
    QDomDocument document;
    ASSERT_TRUE(document.setContent(QByteArray("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xe9</a>")));
    EXPECT_EQ(body(document), "<a>\xc3\xa9</a>\n");
}

TEST(KuxXmlText, KeepsCharactersOutsideTheBasicPlane)
{
    EXPECT_EQ(rewritten("<a b='\xf0\x9f\x8c\x8d'>\xf0\x9f\x8c\x8d</a>"),
              "<a b=\"\xf0\x9f\x8c\x8d\">\xf0\x9f\x8c\x8d</a>\n");
}

TEST(KuxXmlText, WritesThousandLevelsThatAreReadAgain)
{
    const QDomDocument document = parsed(QByteArray("<a>").repeated(1000) + QByteArray("</a>").repeated(1000));
    const QByteArray text = KuxXml::toText(document);
    EXPECT_EQ(KuxXml::toText(parsed(text)), text);
}

TEST(KuxXmlText, WritesTheSameTextAgainAfterReading)
{
    for (const char* text :
         {"<a>x<b/>  <c> </c></a>", "<a><![CDATA[]]></a>", "<a><![CDATA[x]]>y<![CDATA[z]]></a>", "<a>&#13;</a>",
          "<a><b/>&#13;<b/></a>", "<a><![CDATA[\n]]><b><c/></b></a>", "<a><!--x-->y</a>"})
    {
        const QByteArray once = KuxXml::toText(parsed(text));
        EXPECT_EQ(KuxXml::toText(parsed(once)), once) << text;
    }
}
