#include <util/KuxXml.h>
#include <util/KuxXmlOutput.h>

#include <algorithm>
#include <tuple>
#include <vector>

namespace {

QString cdata(const QString& text)
{
    return QLatin1String("<![CDATA[") +
           KuxXml::removeForbiddenCharacters(text)
               .replace(QLatin1String("]]>"), QLatin1String("]]]]><![CDATA[>"))
               .replace(QLatin1Char('\r'), QLatin1String("]]>&#13;<![CDATA[")) +
           QLatin1String("]]>");
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

struct Attribute
{
    int rank;
    QString name;
    QString value;
    friend bool operator<(const Attribute& a, const Attribute& b)
    {
        return std::tie(a.rank, a.name, a.value) < std::tie(b.rank, b.name, b.value);
    }
};

bool isInline(const QDomNode& node)
{
    return node.isText() || node.isEntityReference();
}

/// Whether `node` or one behind it belongs on one line with the others.
bool hasInline(QDomNode node)
{
    while (!node.isNull() && !isInline(node))
        node = node.nextSibling();
    return !node.isNull();
}

/// Writes the nodes of a document in document order.
class Writer
{
public:
    QByteArray run(const QDomDocument& document)
    {
        _out.appendBytes("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
        _out.append(documentType(document.doctype()));
        for (QDomNode node = document.firstChild(); !node.isNull(); node = node.nextSibling())
            if (!_isDeclaration(node) && !node.isDocumentType())
                _writeTree(node);
        return _out.take();
    }

private:
    static bool _isDeclaration(const QDomNode& node)
    {
        return node.isProcessingInstruction() && node.nodeName() == QLatin1String("xml");
    }

    void _writeTree(const QDomNode& top)
    {
        QDomNode node = top;
        while (true) {
            QDomNode next = _open(node);
            while (next.isNull()) {
                if (node == top)
                    return;
                next = node.nextSibling();
                if (next.isNull()) {
                    node = node.parentNode();
                    _close(node);
                }
            }
            node = next;
        }
    }

    /// Writes the node, or the start tag of an element that holds something. Gives the first node in it.
    QDomNode _open(const QDomNode& node)
    {
        _indent();
        if (node.isElement())
            return _startTag(node.toElement());
        _writeLeaf(node);
        _endLine();
        return {};
    }

    void _writeLeaf(const QDomNode& node)
    {
        if (node.isCDATASection())
            return _out.append(cdata(node.nodeValue()));
        if (node.isText())
            return _writeText(node.nodeValue());
        if (node.isComment())
            return _out.append(comment(node.nodeValue()));
        if (node.isProcessingInstruction())
            return _out.append(instruction(node.toProcessingInstruction()));
        _out.append('&');
        _out.append(node.nodeName());
        _out.append(';');
    }

    /// Text of blanks alone becomes CDATA, since readers drop it otherwise.
    void _writeText(const QString& text)
    {
        if (KuxXml::isBlank(text) && !text.isEmpty())
            _out.append(cdata(text));
        else
            _out.appendText(text);
    }

    QDomNode _startTag(const QDomElement& element)
    {
        _out.append('<');
        _out.append(element.tagName());
        _writeAttributes(element);
        QDomNode first = element.firstChild();
        if (first.isNull()) {
            _out.appendBytes("/>");
            _endLine();
            return first;
        }
        _out.append('>');
        if (_inlineDepth < 0 && hasInline(first))
            _inlineDepth = _depth;
        _endLine();
        ++_depth;
        return first;
    }

    void _writeAttributes(const QDomElement& element)
    {
        const QDomNamedNodeMap map = element.attributes();
        const int count = map.count();
        if (count == 1) {
            const QDomAttr attribute = map.item(0).toAttr();
            return _writeAttribute(attribute.name(), attribute.value());
        }
        _attributes.clear();
        for (int i = 0; i < count; ++i) {
            const QDomAttr attribute = map.item(i).toAttr();
            _attributes.push_back({rankOf(attribute.name()), attribute.name(), attribute.value()});
        }
        std::sort(_attributes.begin(), _attributes.end());
        for (const Attribute& attribute : _attributes)
            _writeAttribute(attribute.name, attribute.value);
    }

    void _writeAttribute(const QString& name, const QString& value)
    {
        _out.append(' ');
        _out.append(name);
        _out.appendBytes("=\"");
        _out.appendAttributeValue(value);
        _out.append('"');
    }

    void _close(const QDomNode& element)
    {
        --_depth;
        _indent();
        if (_inlineDepth == _depth)
            _inlineDepth = -1;
        _out.appendBytes("</");
        _out.append(element.nodeName());
        _out.append('>');
        _endLine();
    }

    void _indent()
    {
        if (_inlineDepth < 0)
            _out.appendBlanks(_depth);
    }

    void _endLine()
    {
        if (_inlineDepth < 0)
            _out.append('\n');
    }

    KuxXmlOutput _out;
    /// Those of one element, in memory that is used again.
    std::vector<Attribute> _attributes;
    int _depth = 0;
    /// The depth of the element whose content stands on one line, or -1.
    int _inlineDepth = -1;
};

} // namespace

QByteArray KuxXml::toText(const QDomDocument& document)
{
    return Writer().run(document);
}
