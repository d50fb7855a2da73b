#include <util/KuxXml.h>

#include <algorithm>

namespace {

const QLatin1Char carriageReturn('\r');

bool isForbidden(QChar c)
{
    const ushort code = c.unicode();
    return (code < 0x20 && code != '\t' && code != '\n' && code != '\r') || code == 0xfffe || code == 0xffff;
}

bool isBlankCharacter(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n');
}

/// Some readers take every kind of blank for one that they may drop.
bool needsCData(const QString& text)
{
    return text.front().isSpace() || text.back().isSpace() || text.contains(QLatin1Char('\n')) ||
           text.contains(QLatin1Char('\t'));
}

/// A text that holds "]]>" is cut into two sections before the last character of it.
void appendSections(QDomElement& element, QDomDocument& document, const QString& text)
{
    const QLatin1String sectionEnd("]]>");
    int from = 0;
    for (int end = text.indexOf(sectionEnd); end >= 0; end = text.indexOf(sectionEnd, from)) {
        element.appendChild(document.createCDATASection(text.mid(from, end + 2 - from)));
        from = end + 2;
    }
    element.appendChild(document.createCDATASection(text.mid(from)));
}

/// Carriage returns become text nodes between the sections.
void appendCData(QDomElement& element, QDomDocument& document, const QString& text)
{
    for (int from = 0; from < text.size();) {
        const bool inReturns = text[from] == carriageReturn;
        const auto differs = [inReturns](QChar c) { return (c == carriageReturn) != inReturns; };
        const auto end = std::find_if(text.cbegin() + from, text.cend(), differs);
        const QString run = text.mid(from, int(end - text.cbegin()) - from);
        if (inReturns)
            element.appendChild(document.createTextNode(run));
        else
            appendSections(element, document, run);
        from += run.size();
    }
}

void appendText(QDomElement& element, QDomDocument& document, const QString& text)
{
    const QString allowed = KuxXml::removeForbiddenCharacters(text);
    if (allowed.isEmpty())
        return;
    if (needsCData(allowed))
        appendCData(element, document, allowed);
    else
        element.appendChild(document.createTextNode(allowed));
}

void removeText(QDomElement& element)
{
    for (QDomNode node = element.firstChild(); !node.isNull();) {
        const QDomNode next = node.nextSibling();
        if (node.isText())
            element.removeChild(node);
        node = next;
    }
}

/// The node after `node` in document order among those below `root`; a null node after the last.
QDomNode nextBelow(const QDomNode& root, QDomNode node)
{
    if (node.hasChildNodes())
        return node.firstChild();
    while (node != root && node.nextSibling().isNull())
        node = node.parentNode();
    return node == root ? QDomNode() : node.nextSibling();
}

QString textBelow(const QDomElement& element)
{
    QString text;
    for (QDomNode node = nextBelow(element, element); !node.isNull(); node = nextBelow(element, node))
        if (node.isText())
            text += node.nodeValue();
    return text;
}

bool fits(const QDomElement& element, const QString& tag, const QString& attribute, const QString& value)
{
    return element.tagName() == tag && element.hasAttribute(attribute) && element.attribute(attribute) == value;
}

} // namespace

int KuxXml::findForbiddenCharacter(const QString& text, int from)
{
    for (int i = from; i < text.size(); ++i) {
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        else if (text[i].isSurrogate() || isForbidden(text[i]))
            return i;
    }
    return -1;
}

QString KuxXml::removeForbiddenCharacters(const QString& text)
{
    int forbidden = findForbiddenCharacter(text);
    if (forbidden < 0)
        return text;
    QString allowed;
    int from = 0;
    for (; forbidden >= 0; forbidden = findForbiddenCharacter(text, from)) {
        allowed += text.midRef(from, forbidden - from);
        from = forbidden + 1;
    }
    return allowed + text.midRef(from);
}

bool KuxXml::isBlank(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), isBlankCharacter);
}

QDomElement KuxXml::createTextOrCDATANode(QDomDocument& document, const QString& tagName, const QString& text)
{
    QDomElement element = document.createElement(tagName);
    appendText(element, document, text);
    return element;
}

QDomElement KuxXml::createTextNode(QDomDocument& document, const QString& tagName, const QString& text)
{
    QDomElement element = document.createElement(tagName);
    const QString allowed = removeForbiddenCharacters(text);
    if (!allowed.isEmpty())
        element.appendChild(document.createTextNode(allowed));
    return element;
}

void KuxXml::setText(QDomElement element, const QString& text)
{
    if (element.isNull())
        return;
    removeText(element);
    QDomDocument maker;
    appendText(element, maker, text);
}

QDomElement KuxXml::getElementFromPath(const QDomElement& root, const QString& tag, const QString& attribute,
                                       const QStringList& path)
{
    QDomElement element = root;
    for (const QString& value : path)
        element = getElementFromAttribute(element, tag, attribute, value, false);
    return element;
}

QDomElement KuxXml::getElementFromAttribute(const QDomElement& root, const QString& tag, const QString& attribute,
                                            const QString& value, bool recursive)
{
    QDomNode node = root.firstChild();
    while (!node.isNull() && !fits(node.toElement(), tag, attribute, value))
        node = recursive ? nextBelow(root, node) : node.nextSibling();
    return node.toElement();
}

QString KuxXml::getValue(const QDomElement& element)
{
    const bool composed = !element.firstChildElement().isNull();
    return textBelow(composed ? element.firstChildElement(QStringLiteral("value")) : element).remove(carriageReturn);
}

void KuxXml::setValue(QDomElement element, const QString& text)
{
    const QDomElement firstChild = element.firstChildElement();
    if (firstChild.isNull())
        return setText(element, text);
    const QDomElement value = element.firstChildElement(QStringLiteral("value"));
    if (!value.isNull())
        return setText(value, text);
    QDomDocument maker;
    element.insertBefore(createTextOrCDATANode(maker, QStringLiteral("value"), text), firstChild);
}
