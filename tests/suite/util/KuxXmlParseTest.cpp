#include <util/KuxXml.h>

#include <QtCore/QBuffer>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

using testing::HasSubstr;

namespace {

QDomDocument parsed(const QByteArray& text)
{
    QDomDocument document;
    const KuxXmlResult result = KuxXml::parse(text, &document);
    EXPECT_TRUE(result.ok) << result.message.toStdString();
    EXPECT_EQ(result.message, "");
    EXPECT_EQ(result.line, 0);
    EXPECT_EQ(result.column, 0);
    return document;
}

/// The result of reading a document that must be refused with a message and a place.
KuxXmlResult refused(const QByteArray& text, const KuxXmlLimits& limits = {})
{
    QDomDocument document("untouched");
    const KuxXmlResult result = KuxXml::parse(text, &document, limits);
    EXPECT_FALSE(result.ok) << text.left(200).toStdString();
    EXPECT_FALSE(result.message.isEmpty());
    EXPECT_GE(result.line, 1);
    EXPECT_GE(result.column, 1);
    EXPECT_EQ(document.doctype().name(), "untouched");
    return result;
}

std::string refusal(const QByteArray& text, const KuxXmlLimits& limits = {})
{
    return refused(text, limits).message.toStdString();
}

QByteArray nested(int depth)
{
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

QByteArray withAttributes(int count)
{
    QByteArray text = "<a";
    for (int i = 0; i < count; ++i)
        text += " a" + QByteArray::number(i) + "='='";
    return text + "/>";
}

QByteArray utf16(const QString& text, bool bigEndian, bool mark)
{
    QByteArray bytes;
    for (const QChar c : (mark ? QString(QChar(0xfeff)) : QString()) + text) {
        const char parts[] = {char(c.row()), char(c.cell())};
        bytes += parts[bigEndian ? 0 : 1];
        bytes += parts[bigEndian ? 1 : 0];
    }
    return bytes;
}

} // namespace

TEST(KuxXmlParse, ReadsElementsAttributesAndText)
{
    const QDomElement root = parsed("<?xml version='1.0' encoding='UTF-8'?>\n<task id='T'><param key=\"a&amp;b\" "
                                    "automatic='no'>1 &lt; 2</param><e/></task>")
                                 .documentElement();
    EXPECT_EQ(root.tagName(), "task");
    EXPECT_EQ(root.attribute("id"), "T");
    const QDomElement param = root.firstChildElement("param");
    EXPECT_EQ(param.attribute("key"), "a&b");
    EXPECT_EQ(param.attribute("automatic"), "no");
    EXPECT_EQ(param.text(), "1 < 2");
    EXPECT_EQ(param.nextSibling().toElement().tagName(), "e");
    EXPECT_EQ(root.childNodes().count(), 2);
}

TEST(KuxXmlParse, KeepsCDATASectionsCommentsAndProcessingInstructions)
{
    const QDomDocument document = parsed("<!--top--><?go on?><a>x<![CDATA[ <y> ]]><!--in--><?do it?></a><!--end-->");
    EXPECT_TRUE(document.firstChild().isComment());
    EXPECT_EQ(document.lastChild().nodeValue(), "end");
    EXPECT_EQ(document.firstChild().nextSibling().toProcessingInstruction().target(), "go");
    EXPECT_EQ(document.firstChild().nextSibling().toProcessingInstruction().data(), "on");
    const QDomNodeList nodes = document.documentElement().childNodes();
    ASSERT_EQ(nodes.count(), 4);
    EXPECT_FALSE(nodes.at(0).isCDATASection());
    EXPECT_TRUE(nodes.at(1).isCDATASection());
    EXPECT_EQ(nodes.at(1).nodeValue(), " <y> ");
    EXPECT_EQ(nodes.at(2).nodeValue(), "in");
    EXPECT_TRUE(nodes.at(3).isProcessingInstruction());
}

TEST(KuxXmlParse, DropsTextOfBlanksAloneUnlessItIsCDATA)
{
    const QDomElement root =
        parsed("<a>\n <b>  </b>\t<c> x </c><d><![CDATA[ ]]></d>\r\n<e>&#13;</e> </a>").documentElement();
    EXPECT_EQ(root.childNodes().count(), 4);
    EXPECT_FALSE(root.firstChildElement("b").hasChildNodes());
    EXPECT_EQ(root.firstChildElement("c").text(), " x ");
    EXPECT_EQ(root.firstChildElement("d").text(), " ");
    EXPECT_EQ(root.firstChildElement("e").text(), "\r");
}

TEST(KuxXmlParse, ReadsOneTextAcrossReferences)
{
    const QDomElement root = parsed("<a>x&amp;y&#x20AC;&#13;z</a>").documentElement();
    EXPECT_EQ(root.childNodes().count(), 1);
    EXPECT_EQ(root.text(), QString("x&y") + QChar(0x20ac) + "\rz");
}

TEST(KuxXmlParse, ReadsLineEndsAsLineFeeds)
{
    EXPECT_EQ(parsed("<a>x\r\ny\rz<![CDATA[\r\n]]></a>").documentElement().text(), "x\ny\nz\n");
}

TEST(KuxXmlParse, ReadsTheSameTreeAsQtDoes)
{
    for (const char* text : {"<a/>", "<a><b key='1'/>x<b/>\n</a>", "<a>\n <b> y </b>\n <![CDATA[ ]]><!--c--></a>",
                             "<a:b xmlns:a='u' a:c='d'/>", "<a b='&lt;&#10;&quot;'>&gt;</a>", "<!DOCTYPE a><a/>"})
    {
        QDomDocument expected;
        ASSERT_TRUE(expected.setContent(QByteArray(text)));
        EXPECT_EQ(KuxXml::toText(parsed(text)), KuxXml::toText(expected)) << text;
    }
}

TEST(KuxXmlParse, ReadsTheSameWhateverStandsBehindTheRoot)
{
    // What holds a comment is not read by the short way.
    for (const char* text : {"<a/>", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a b=\"\" c='\"'/>",
                             "<?xml version=\"1.0\"?><a >x &lt;&amp;&gt;&quot;&apos;&#13;&#10;&#9; y</a >\n",
                             "<a>\n <b k = '&#9;&gt;>'> z </b>\n  <b/>t</a>",
                             "<a> <![CDATA[<&>]]> ]] <![CDATA[ ]]></a>", "<_a-b.c1>\xc3\xa9\xe4\xb8\xad</_a-b.c1>"})
    {
        QDomDocument expected = parsed(QByteArray(text) + "<!---->");
        expected.removeChild(expected.lastChild());
        EXPECT_EQ(KuxXml::toText(parsed(text)), KuxXml::toText(expected)) << text;
    }
}

TEST(KuxXmlParse, KeepsAnEmptyAttributeApartFromNone)
{
    const QDomElement root = parsed("<a b=\"\"/>").documentElement();
    EXPECT_TRUE(root.hasAttribute("b"));
    EXPECT_FALSE(root.attribute("b").isNull());
}

TEST(KuxXmlParse, KeepsNamesWithPrefixesAsTheyStand)
{
    const QDomElement root = parsed("<p:a q:b='1'/>").documentElement();
    EXPECT_EQ(root.tagName(), "p:a");
    EXPECT_EQ(root.attribute("q:b"), "1");
}

TEST(KuxXmlParse, ReadsFromADeviceWhatItStillHolds)
{
    QByteArray bytes = "junk<a>x</a>";
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    device.seek(4);
    QDomDocument document;
    EXPECT_TRUE(KuxXml::parse(device, &document).ok);
    EXPECT_EQ(document.documentElement().text(), "x");
}

TEST(KuxXmlParse, ReadsABigDocumentFromAFile)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("big.xml"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write("<a>" + QByteArray("<b/>").repeated(100000) + "</a>");
    file.seek(0);
    QDomDocument document;
    ASSERT_TRUE(KuxXml::parse(file, &document).ok);
    EXPECT_EQ(document.documentElement().childNodes().count(), 100000);
}

TEST(KuxXmlParse, RefusesADeviceThatCannotBeRead)
{
    QBuffer device;
    QDomDocument document;
    const KuxXmlResult result = KuxXml::parse(device, &document);
    EXPECT_FALSE(result.ok);
    EXPECT_THAT(result.message.toStdString(), HasSubstr("cannot be read"));
}

TEST(KuxXmlParse, SaysThatADocumentIsEmpty)
{
    for (const char* text :
         {"", " \n", "<?xml version=\"1.0\"?>", "<?xml version=\"1.0\"?>\n<!--c-->\n", "\xef\xbb\xbf"})
        EXPECT_EQ(refusal(text), "The document is empty.") << text;
}

TEST(KuxXmlParse, RefusesWhatIsNotWellFormed)
{
    for (const char* text : {"x",
                             "<",
                             "<a",
                             "<a>",
                             "<a>x",
                             "<a></b>",
                             "<a/><b/>",
                             "<a/>x",
                             "<a b/>",
                             "<a b=c/>",
                             "<a b='1' b='2'/>",
                             "<a b='<'/>",
                             "<a>&</a>",
                             "<a>&x</a>",
                             "<a>&#0;</a>",
                             "<a>&#1;</a>",
                             "<a>&#xFFFF;</a>",
                             "<a>&#xD800;</a>",
                             "<a>]]></a>",
                             "<a><!-- -- --></a>",
                             "<a><![CDATA[x</a>",
                             "<a><!--</a>",
                             "<a><?x</a>",
                             "<?xml version='1.1'?><a/>",
                             " <?xml version='1.0'?><a/>",
                             "<?xml version='1.0' encoding='?'?><a/>",
                             "<a></a",
                             "<a><b></a></b>",
                             "</a>",
                             "<1/>",
                             "<a>\x7f</a",
                             "{\"a\":1}"})
        refused(text);
}

TEST(KuxXmlParse, RefusesADocumentCutAnywhere)
{
    const QByteArray text = "<?xml version='1.0'?>\n<!DOCTYPE t>\n<t id='x'><!--c--><p k=\"v\">\xc3\xa9&amp;"
                            "<![CDATA[y]]></p><?do it?></t>";
    parsed(text);
    for (int size = 0; size < text.size(); ++size)
        refused(text.left(size));
}

TEST(KuxXmlParse, TellsWhereReadingStopped)
{
    const KuxXmlResult result = refused("<a>\n <b>\n  </c>\n</a>");
    EXPECT_EQ(result.line, 3);
    EXPECT_EQ(result.column, 6);
}

TEST(KuxXmlParse, TellsWhereAForbiddenCharacterStands)
{
    const KuxXmlResult result = refused("<a>\n\xc3\xa9\x01</a>");
    EXPECT_EQ(result.message, "The document holds the character U+0001, which XML does not allow.");
    EXPECT_EQ(result.line, 2);
    EXPECT_EQ(result.column, 2);
}

TEST(KuxXmlParse, RefusesCharactersThatXmlCannotHold)
{
    EXPECT_THAT(refusal(QByteArray("<a>x\0y</a>", 11)), HasSubstr("U+0000"));
    EXPECT_THAT(refusal(QByteArray("<a/>\0", 5)), HasSubstr("U+0000"));
    EXPECT_THAT(refusal("<a b='\x1f'/>"), HasSubstr("U+001F"));
    refused("<a>\xef\xbf\xbe</a>");
    refused("<a>\xef\xbf\xbf</a>");
    refused("<a>\xed\xa0\x80</a>");
}

TEST(KuxXmlParse, TakesNestingUpToTheLimit)
{
    QDomNode node = parsed(nested(1000));
    int depth = 0;
    while (!node.firstChild().isNull()) {
        node = node.firstChild();
        ++depth;
    }
    EXPECT_EQ(depth, 1000);
    EXPECT_EQ(refusal(nested(1001)), "Elements are nested more than 1000 deep.");
    EXPECT_EQ(refusal(QByteArray("<a>").repeated(1000000)), "Elements are nested more than 1000 deep.");
}

TEST(KuxXmlParse, CountsDepthAndNotElements)
{
    KuxXmlLimits limits;
    limits.maxDepth = 2;
    QDomDocument document;
    EXPECT_TRUE(KuxXml::parse("<a><b/><b></b><b/></a>", &document, limits).ok);
    EXPECT_EQ(refusal("<a><b><c/></b></a>", limits), "Elements are nested more than 2 deep.");
}

TEST(KuxXmlParse, TakesBytesUpToTheLimit)
{
    KuxXmlLimits limits;
    limits.maxBytes = 8;
    QDomDocument document;
    EXPECT_TRUE(KuxXml::parse("<a>b</a>", &document, limits).ok);
    EXPECT_EQ(refusal("<a>bb</a>", limits), "The document is larger than 8 bytes.");
}

TEST(KuxXmlParse, ReadsNoMoreOfADeviceThanTheLimit)
{
    KuxXmlLimits limits;
    limits.maxBytes = 8;
    QByteArray bytes = "<a>" + QByteArray(1000, 'x');
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    QDomDocument document;
    EXPECT_EQ(KuxXml::parse(device, &document, limits).message, "The document is larger than 8 bytes.");
    EXPECT_EQ(device.pos(), 9);
}

TEST(KuxXmlParse, HasLimitsByDefault)
{
    const KuxXmlLimits limits;
    EXPECT_EQ(limits.maxBytes, 1073741824);
    EXPECT_EQ(limits.maxDepth, 1000);
    EXPECT_EQ(limits.maxAttributes, 256);
    EXPECT_EQ(limits.maxNameLength, 1024);
}

TEST(KuxXmlParse, TakesAttributesUpToTheLimit)
{
    EXPECT_EQ(parsed(withAttributes(256)).documentElement().attributes().count(), 256);
    EXPECT_EQ(refusal(withAttributes(257)), "An element has more than 256 attributes.");
}

TEST(KuxXmlParse, CountsAttributesInTagsAlone)
{
    const QByteArray many = QByteArray("=").repeated(1000);
    parsed("<!--<x " + many + "--><?p <x " + many + "?><a b='" + many + "'>" + many + "<![CDATA[<x " + many +
           "]]></a>");
}

TEST(KuxXmlParse, RefusesAHugeTagWithoutMuchWork)
{
    QElapsedTimer timer;
    timer.start();
    refused(withAttributes(300000));
    refused("<" + QByteArray(5000000, 'n') + "/>");
    refused("<a " + QByteArray(5000000, 'n') + "=''/>");
    EXPECT_LT(timer.elapsed(), 20000);
}

TEST(KuxXmlParse, TakesNamesUpToTheLimit)
{
    const QByteArray longest(1024, 'n');
    parsed("<" + longest + " " + longest + "=''/>");
    const std::string message = "A name is longer than 1024 characters.";
    EXPECT_EQ(refusal("<" + longest + "n/>"), message);
    EXPECT_EQ(refusal("<a " + longest + "n=''/>"), message);
    EXPECT_EQ(refusal("<a><?" + longest + "n x?></a>"), message);
    EXPECT_EQ(refusal("<!DOCTYPE " + longest + "n><a/>"), message);
}

TEST(KuxXmlParse, KeepsTheNamesOfADocumentType)
{
    const QDomDocument plain = parsed("<!--c--><!DOCTYPE task><task/>");
    EXPECT_EQ(plain.doctype().name(), "task");
    EXPECT_EQ(plain.documentElement().tagName(), "task");
    EXPECT_TRUE(plain.firstChild().isComment() || plain.firstChild().nextSibling().isComment());
    const QDomDocument full = parsed("<!DOCTYPE t PUBLIC \"-//x\" 'u[]>.dtd'><t/>");
    EXPECT_EQ(full.doctype().publicId(), "-//x");
    EXPECT_EQ(full.doctype().systemId(), "u[]>.dtd");
}

TEST(KuxXmlParse, RefusesAnInternalSubset)
{
    const std::string message = "The document type has an internal subset, which is not allowed.";
    for (const char* text : {"<!DOCTYPE a []><a/>", "<!DOCTYPE a SYSTEM 'x' [<!ELEMENT a ANY>]><a/>",
                             "<?xml version='1.0'?>\n<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>",
                             "<!DOCTYPE a [<!ENTITY % p SYSTEM 'file:///etc/passwd'>%p;]><a/>",
                             "<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><a>&e;</a>"})
        EXPECT_EQ(refusal(text), message) << text;
}

TEST(KuxXmlParse, RefusesEntitiesThatMultiply)
{
    QByteArray text = "<!DOCTYPE a [<!ENTITY e0 'lol'>";
    for (int i = 1; i < 10; ++i) {
        const QByteArray part = "&e" + QByteArray::number(i - 1) + ";";
        text += "<!ENTITY e" + QByteArray::number(i) + " '" + part.repeated(10) + "'>";
    }
    text += "]><a>&e9;</a>";
    EXPECT_THAT(refusal(text), HasSubstr("internal subset"));
    EXPECT_THAT(refusal(utf16(text, true, true)), HasSubstr("internal subset"));
}

TEST(KuxXmlParse, RefusesEntitiesThatTheDocumentDoesNotDeclare)
{
    for (const char* text : {"<a>x&foo;</a>", "<a b='x&foo;'/>", "<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a>&foo;</a>",
                             "<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a b='&foo;'/>"})
        EXPECT_EQ(refusal(text), "The entity 'foo' is not declared.") << text;
}

TEST(KuxXmlParse, RefusesASecondDocumentType)
{
    refused("<!DOCTYPE a><!DOCTYPE a><a/>");
    refused("<!DOCTYPE a><a/><!DOCTYPE a>");
    refused("<a><!DOCTYPE a></a>");
}

TEST(KuxXmlParse, ReadsOtherEncodings)
{
    const QString text = QString("<a>\u00e9\u20ac</a>");
    const QString latin = QString("<a>\u00e9</a>");
    const struct
    {
        QByteArray bytes;
        QString value;
    } rows[] = {
        {"\xef\xbb\xbf" + text.toUtf8(), QString("\u00e9\u20ac")},
        {"\xef\xbb\xbf<?xml version='1.0' encoding='UTF-8'?>" + text.toUtf8(), QString("\u00e9\u20ac")},
        {"<?xml version='1.0' encoding='utf-8'?>" + text.toUtf8(), QString("\u00e9\u20ac")},
        {utf16(text, true, true), QString("\u00e9\u20ac")},
        {utf16(text, false, true), QString("\u00e9\u20ac")},
        {utf16("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n" + text, false, true), QString("\u00e9\u20ac")},
        {utf16("<?xml version=\"1.0\" encoding='UTF-16'?>\n" + text, true, false), QString("\u00e9\u20ac")},
        {"<?xml version='1.0' encoding='ISO-8859-1' standalone='yes'?>" + latin.toLatin1(), QString("\u00e9")},
        {"<?xml version='1.0' encoding='windows-1252'?><a>\x80</a>", QString("\u20ac")},
        {"<?xml version='1.0' encoding='US-ASCII'?><a>x</a>", "x"},
        {"<?xml version='1.0' encoding='Shift_JIS'?><a>\x83\x5c</a>", QString("\u30bd")},
    };
    for (const auto& row : rows)
        EXPECT_EQ(parsed(row.bytes).documentElement().text(), row.value) << row.bytes.toStdString();
}

TEST(KuxXmlParse, RefusesBytesThatAreNotInTheEncoding)
{
    refused("<a>\xff</a>");
    refused("<a>\xc3</a>");
    refused("<a>\xc0\xbc</a>");
    refused("<a/>\xc3");
    refused("<?xml version='1.0' encoding='UTF-8'?><a>\xe9</a>");
    refused("<?xml version='1.0' encoding='no-such-thing'?><a/>");
    EXPECT_EQ(refusal("<?xml version='1.0' encoding='UTF-16'?><a/>"),
              "The document says that its encoding is UTF-16, but it is not.");
    const QByteArray wide = utf16("<a>xy</a>", false, true);
    EXPECT_EQ(refusal(wide.left(wide.size() - 1)), "The document is not valid text in the encoding UTF-16LE.");
    const KuxXmlResult half = refused(utf16(QString("<a>\n") + QChar(0xd800) + "x</a>", false, true));
    EXPECT_EQ(half.line, 2);
    EXPECT_EQ(half.column, 1);
}

TEST(KuxXmlParse, ReadsAByteOrderMarkInTheMiddleAsACharacter)
{
    for (int size = 240; size < 270; ++size) {
        const QByteArray text = QByteArray(size, 'x') + "\xef\xbb\xbfy";
        EXPECT_EQ(parsed("<a>" + text + "</a>").documentElement().text().size(), size + 2);
    }
}

TEST(KuxXmlParse, ReadsRawDataThatIsNotTerminated)
{
    const char bytes[] = {'<', 'a', '/', '>', '<'};
    EXPECT_EQ(parsed(QByteArray::fromRawData(bytes, 4)).documentElement().tagName(), "a");
    refused(QByteArray::fromRawData(bytes, 3));
    refused(QByteArray::fromRawData(bytes, 5));
}

TEST(KuxXmlParse, SurvivesRandomChangesOfADocument)
{
    const QByteArray original =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE task SYSTEM 'x'>\n<task id=\"T\" "
        "version=\"2\"><!-- c --><param key=\"a\" automatic='yes'>1 &lt; \xe2\x82\xac</param><?do "
        "it?><param key=\"b\"><value><![CDATA[ x ]]></value>&#13;</param></task>\n";
    const QByteArray pieces[] = {"<",
                                 ">",
                                 "/",
                                 "\"",
                                 "'",
                                 "=",
                                 "&",
                                 ";",
                                 "[",
                                 "]]>",
                                 "<!--",
                                 "-->",
                                 "<![CDATA[",
                                 "<?",
                                 "?>",
                                 "<!DOCTYPE a [",
                                 "<!ENTITY e '&e;'>",
                                 "&e;",
                                 "encoding='UTF-16'",
                                 "\xef\xbb\xbf",
                                 "\xff\xfe",
                                 "\xc3",
                                 QByteArray(1, '\0'),
                                 "\r",
                                 "<a>",
                                 "</a>",
                                 "xmlns:x=''",
                                 "&#x10FFFF;"};
    std::mt19937 random(7);
    int taken = 0;
    for (int i = 0; i < 20000; ++i) {
        QByteArray text = original;
        for (unsigned n = 1 + random() % 3; n > 0; --n) {
            const int at = int(random() % unsigned(text.size()));
            switch (random() % 4) {
            case 0:
                text[at] = char(random());
                break;
            case 1:
                text.remove(at, int(random() % 8));
                break;
            case 2:
                text.insert(at, pieces[random() % std::size(pieces)]);
                break;
            default:
                text.insert(at, text.mid(int(random() % unsigned(text.size())), int(random() % 40)));
            }
        }
        QDomDocument document;
        if (!KuxXml::parse(text, &document).ok)
            continue;
        ++taken;
        const QByteArray written = KuxXml::toText(document);
        EXPECT_EQ(KuxXml::toText(parsed(written)), written) << text.toStdString();
    }
    EXPECT_GT(taken, 100);
}
