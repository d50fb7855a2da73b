#include <util/KuxXml.h>

#include <algorithm>
#include <tuple>
#include <vector>

namespace {

QString escapedText(const QString& text)
{
    return KuxXml::removeForbiddenCharacters(text)
        .replace(QLatin1Char('&'), QLatin1String("&amp;"))
        .replace(QLatin1Char('<'), QLatin1String("&lt;"))
        .replace(QLatin1Char('>'), QLatin1String("&gt;"))
        .replace(QLatin1Char('\r'), QLatin1String("&#13;"));
}

QString escapedAttribute(const QString& text)
{
    return escapedText(text)
        .replace(QLatin1Char('"'), QLatin1String("&quot;"))
        .replace(QLatin1Char('\t'), QLatin1String("&#9;"))
        .replace(QLatin1Char('\n'), QLatin1String("&#10;"));
}

QString cdata(const QString& text)
{
    return QLatin1String("<![CDATA[") +
           KuxXml::removeForbiddenCharacters(text)
               .replace(QLatin1String("]]>"), QLatin1String("]]]]><![CDATA[>"))
               .replace(QLatin1Char('\r'), QLatin1String("]]>&#13;<![CDATA[")) +
           QLatin1String("]]>");
}

/// Text of blanks alone becomes CDATA, since readers drop it otherwise.
QString textNode(const QString& text)
{
    return KuxXml::isBlank(text) && !text.isEmpty() ? cdata(text) : escapedText(text);
}

QString comment(const QString& text)
{
    QString body = KuxXml::removeForbiddenCharacters(text);
    while (body.contains(QLatin1String("--")))
        body.replace(QLatin1String("--"), QLatin1String("- -"));
    return QLatin1String("<!--") + body + QLatin1String(body.endsWith(QLatin1Char('-')) ? " -->" : "-->");
}

QString instruction(const QDomProcessingInstruction& node)
{
    const QString data =
        KuxXml::removeForbiddenCharacters(node.data()).replace(QLatin1String("?>"), QLatin1String("? >"));
    return QLatin1String("<?") + node.target() + (data.isEmpty() ? QString() : QLatin1Char(' ') + data) +
           QLatin1String("?>");
}

QString quoted(const QString& text)
{
    const QLatin1Char mark(text.contains(QLatin1Char('"')) ? '\'' : '"');
    return QLatin1Char(' ') + (mark + text + mark);
}

QString documentType(const QDomDocumentType& type)
{
    if (type.name().isEmpty())
        return {};
    QString text = QLatin1String("<!DOCTYPE ") + type.name();
    if (!type.publicId().isEmpty())
        text += QLatin1String(" PUBLIC") + quoted(type.publicId()) + quoted(type.systemId());
    else if (!type.systemId().isEmpty())
        text += QLatin1String(" SYSTEM") + quoted(type.systemId());
    return text + QLatin1String(">\n");
}

int rankOf(const QString& attribute)
{
    static const QStringList first = {QStringLiteral("key"), QStringLiteral("id"), QStringLiteral("version"),
                                      QStringLiteral("automatic")};
    const int index = first.indexOf(attribute);
    return index < 0 ? first.size() : index;
}

QString attributesOf(const QDomElement& element)
{
    const QDomNamedNodeMap map = element.attributes();
    std::vector<std::tuple<int, QString, QString>> attributes;
    for (int i = 0; i < map.count(); ++i) {
        const QDomAttr attribute = map.item(i).toAttr();
        attributes.emplace_back(rankOf(attribute.name()), attribute.name(), attribute.value());
    }
    std::sort(attributes.begin(), attributes.end());
    QString text;
    for (const auto& [rank, name, value] : attributes)
        text += QLatin1Char(' ') + name + QLatin1String("=\"") + escapedAttribute(value) + QLatin1Char('"');
    return text;
}

bool isInline(const QDomNode& node)
{
    return node.isText() || node.isEntityReference();
}

bool hasInlineChild(const QDomNode& element)
{
    for (QDomNode node = element.firstChild(); !node.isNull(); node = node.nextSibling())
        if (isInline(node))
            return true;
    return false;
}

/// Writes the nodes of a document in document order.
class Writer
{
public:
    QByteArray run(const QDomDocument& document)
    {
        _text = QLatin1String("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n") + documentType(document.doctype());
        for (QDomNode node = document.firstChild(); !node.isNull(); node = node.nextSibling())
            if (!_isDeclaration(node) && !node.isDocumentType())
                _writeTree(node);
        return _text.toUtf8();
    }

private:
    static bool _isDeclaration(const QDomNode& node)
    {
        return node.isProcessingInstruction() && node.nodeName() == QLatin1String("xml");
    }

    void _writeTree(const QDomNode& top)
    {
        QDomNode node = top;
        _open(node);
        while (!node.isNull()) {
            if (node.isElement() && node.hasChildNodes()) {
                node = node.firstChild();
                _open(node);
                continue;
            }
            while (node != top && node.nextSibling().isNull()) {
                node = node.parentNode();
                _close(node);
            }
            node = node == top ? QDomNode() : node.nextSibling();
            if (!node.isNull())
                _open(node);
        }
    }

    /// Writes the node, or the start tag of an element that holds something.
    void _open(const QDomNode& node)
    {
        _indent();
        if (node.isElement())
            return _startTag(node.toElement());
        _text += _leaf(node);
        _endLine();
    }

    static QString _leaf(const QDomNode& node)
    {
        if (node.isCDATASection())
            return cdata(node.nodeValue());
        if (node.isText())
            return textNode(node.nodeValue());
        if (node.isComment())
            return comment(node.nodeValue());
        if (node.isProcessingInstruction())
            return instruction(node.toProcessingInstruction());
        return QLatin1Char('&') + node.nodeName() + QLatin1Char(';');
    }

    void _startTag(const QDomElement& element)
    {
        _text += QLatin1Char('<') + element.tagName() + attributesOf(element);
        if (!element.hasChildNodes()) {
            _text += QLatin1String("/>");
            return _endLine();
        }
        _text += QLatin1Char('>');
        if (_inlineDepth < 0 && hasInlineChild(element))
            _inlineDepth = _depth;
        _endLine();
        ++_depth;
    }

    void _close(const QDomNode& element)
    {
        --_depth;
        _indent();
        if (_inlineDepth == _depth)
            _inlineDepth = -1;
        _text += QLatin1String("</") + element.nodeName() + QLatin1Char('>');
        _endLine();
    }

    void _indent()
    {
        if (_inlineDepth < 0)
            _text += QString(_depth, QLatin1Char(' '));
    }

    void _endLine()
    {
        if (_inlineDepth < 0)
            _text += QLatin1Char('\n');
    }

    QString _text;
    int _depth = 0;
    /// The depth of the element whose content stands on one line, or -1.
    int _inlineDepth = -1;
};

} // namespace

QByteArray KuxXml::toText(const QDomDocument& document)
{
    return Writer().run(document);
}
