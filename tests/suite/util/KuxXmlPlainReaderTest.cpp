#include <util/KuxXml.h>

#include <gtest/gtest.h>

#include <random>

namespace {

// What the reader of plain documents does not know, so that the full parser reads the whole.
const QByteArray foreign = "<!--x-->";

struct Reading
{
    bool ok;
    QString text;
};

Reading readBy(const QByteArray& bytes, bool fullParser)
{
    QDomDocument document;
    const bool ok = KuxXml::parse(fullParser ? bytes + foreign : bytes, &document).ok;
    if (ok && fullParser)
        document.removeChild(document.lastChild());
    return {ok, ok ? document.toString(-1) : QString()};
}

void expectTheSame(const QByteArray& bytes)
{
    const Reading quick = readBy(bytes, false);
    const Reading full = readBy(bytes, true);
    EXPECT_EQ(quick.ok, full.ok) << bytes.toStdString();
    EXPECT_EQ(quick.text, full.text) << bytes.toStdString();
}

const QByteArray form = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<param type=\"GROUP\" key=\"FORM\" version=\"1\">\n"
                        "  <param key='A' type=\"DOUBLE\">1.5</param>\n"
                        "  <param key=\"B&amp;&lt;&gt;&quot;&apos;\">a &#13;&#10; <![CDATA[ <b> ]]> c</param>\n"
                        "  <empty/><blank>  </blank><t>&#9;</t>\n"
                        "  <\xc3\xa9t\xc3\xa9 x=\"\xe2\x82\xac\">\xc3\xa9</\xc3\xa9t\xc3\xa9>\n"
                        "</param>\n";

} // namespace

TEST(KuxXmlPlainReader, MakesOfADocumentWhatTheFullParserMakesOfIt)
{
    const QByteArray documents[] = {
        form,
        "<a/>",
        "<a></a>",
        "<a b='1' b='2'/>",
        "<a b=\"&lt;\tx\"/>",
        "<a b=\"x\ny\"/>",
        "<a>\r\n x\r</a>",
        "<a>x]]>y</a>",
        "<a><![CDATA[]]></a>",
        "<a><![CDATA[x]]]]><![CDATA[>y]]></a>",
        "<a>&#x41;&unknown;</a>",
        "<a>&#65;</a>",
        "<a xmlns=\"u\" xmlns:p=\"v\"><p:b p:c=\"1\"/></a>",
        "<xmlish/>",
        "<a:b/>",
        "<a><b></a></b>",
        "<a>",
        "<a/><b/>",
        "<a/>text",
        "text<a/>",
        "\xef\xbb\xbf<a/>",
        "<a>\xff</a>",
        "<a>\xef\xbf\xbf</a>",
        "<a>\xed\xa0\x80</a>",
        "<a>\xc0\x80</a>",
        "<?xml version=\"1.0\"?><a> x </a>",
        "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xe9</a>",
        "<?pi x?><a/>",
        "<a ><b  /></a >",
        "< a/>",
        "<a b = 'c' d/>",
        "<a b='c'd='e'/>",
        "",
        " ",
        "<",
        "<a b='",
    };
    for (const QByteArray& document : documents)
        expectTheSame(document);
    expectTheSame(QByteArray("<a>\0</a>", 8));
}

TEST(KuxXmlPlainReader, RefusesAndReadsDamagedDocumentsAsTheFullParserDoes)
{
    std::mt19937 random(11);
    const QByteArray pieces = QByteArray("<>&;'\"/=!?[]-ax: \t\n\r#1", 23) + '\0' + "\xc3\xff\xef";
    for (int i = 0; i < 4000; ++i) {
        QByteArray damaged = form;
        for (unsigned changes = 1 + random() % 3; changes > 0; --changes) {
            const int at = int(random() % unsigned(damaged.size()));
            const char piece = pieces[int(random() % unsigned(pieces.size()))];
            switch (random() % 3) {
            case 0:
                damaged[at] = piece;
                break;
            case 1:
                damaged.insert(at, piece);
                break;
            default:
                damaged.remove(at, 1 + int(random() % 8));
                break;
            }
        }
        expectTheSame(damaged);
        if (HasFailure())
            return;
    }
}

TEST(KuxXmlPlainReader, KeepsTheLimits)
{
    const auto nested = [](int depth) {
        return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
    };
    KuxXmlLimits limits;
    limits.maxDepth = 5;
    QDomDocument document;
    EXPECT_TRUE(KuxXml::parse(nested(5), &document, limits).ok);
    EXPECT_FALSE(KuxXml::parse(nested(6), &document, limits).ok);
    limits.maxAttributes = 2;
    EXPECT_TRUE(KuxXml::parse("<a b='1' c='2'/>", &document, limits).ok);
    EXPECT_FALSE(KuxXml::parse("<a b='1' c='2' d='3'/>", &document, limits).ok);
    limits.maxNameLength = 3;
    EXPECT_TRUE(KuxXml::parse("<abc/>", &document, limits).ok);
    EXPECT_FALSE(KuxXml::parse("<abcd/>", &document, limits).ok);
}
