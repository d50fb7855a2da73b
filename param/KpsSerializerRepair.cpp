#include "KpsForm.h"

#include <param/KpbAParameter.h>
#include <param/KpsSerializer.h>

#include <basic/MbeError.h>
#include <study/KsbIDriverTaskFiche.h>
#include <util/KuxXml.h>

#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QSet>

using namespace KpsForm;

// The keys under which forms are filed, and the repair of what is stored.

namespace {

using SerialForm = KpsSerializer::SerialForm;

bool isParamOf(const QDomNode& node, const QString& key)
{
    const QDomElement element = node.toElement();
    return element.tagName() == paramTag && element.hasAttribute(keyAttribute) &&
           element.attribute(keyAttribute) == key;
}

/// The text nodes that the element begins with, as far as they can be `text`.
QList<QDomNode> leadingText(const QDomElement& element, const QString& text)
{
    QList<QDomNode> nodes;
    int size = 0;
    for (QDomNode node = element.firstChild(); node.isText() && size <= text.size(); node = node.nextSibling()) {
        nodes.append(node);
        size += node.nodeValue().size();
    }
    return nodes;
}

QString joined(const QList<QDomNode>& nodes)
{
    QString text;
    for (const QDomNode& node : nodes)
        text += node.nodeValue();
    return text;
}

/// The text nodes at the beginning of the element that are `text`: the first one, or several, as the writer cuts some
/// texts into sections. A single section of those is no text of its own.
QList<QDomNode> findLeadingText(const QDomElement& element, const QString& text)
{
    const QList<QDomNode> nodes = leadingText(element, text);
    if (nodes.isEmpty() || joined(nodes) == text)
        return nodes;
    const bool stands = !nodes.first().isCDATASection() && nodes.first().nodeValue() == text;
    return stands ? nodes.mid(0, 1) : QList<QDomNode>();
}

void replaceLeadingText(QDomElement element, const QString& oldText, const QString& newText)
{
    const QList<QDomNode> oldNodes = findLeadingText(element, oldText);
    if (oldNodes.isEmpty())
        return;
    QDomDocument document = element.ownerDocument();
    QDomElement written = KuxXml::createTextOrCDATANode(document, element.tagName(), newText);
    while (written.hasChildNodes())
        element.insertBefore(written.firstChild(), oldNodes.first());
    for (const QDomNode& node : oldNodes)
        element.removeChild(node);
}

/// Replaces `from` at the start of the texts of all "url" elements. Gives the old texts with the new ones.
QMap<QString, QString> replaceUrls(QDomDocument& document, const QString& from, const QString& to)
{
    QMap<QString, QString> texts;
    forEachElementBelow(document.documentElement(), [&](QDomElement element) {
        const QDomNode node = element.firstChild();
        if (element.tagName() != urlTag || !node.isText() || !node.nodeValue().startsWith(from))
            return;
        const QString oldText = node.nodeValue();
        const QString newText = to + oldText.mid(from.size());
        element.replaceChild(document.createTextNode(newText), node);
        texts.insert(oldText, newText);
    });
    return texts;
}

QString encoded(const QString& text)
{
    return QString::fromLatin1(text.toUtf8().toBase64());
}

/// The fiche key with the part `from` replaced by `to` wherever it stands at the beginning or behind another part. Else
/// it belongs to a parameter whose key is longer; and where an entry follows, the value is a longer one.
QString withPartReplaced(const QString& ficheKey, const QString& from, const QString& to)
{
    QString newKey;
    int end = 0;
    for (int at = ficheKey.indexOf(from); at >= 0; at = ficheKey.indexOf(from, at)) {
        const int behind = at + from.size();
        const bool begins = at == 0 || ficheKey[at - 1] == QLatin1Char('}') || ficheKey[at - 1] == QLatin1Char('>');
        const bool ends = behind == ficheKey.size() || ficheKey[behind] != QLatin1Char('<');
        if (!begins || !ends) {
            ++at;
            continue;
        }
        newKey += ficheKey.midRef(end, at - end);
        newKey += to;
        at = end = behind;
    }
    return newKey + ficheKey.midRef(end);
}

bool isOfCode(QChar c)
{
    const ushort code = c.unicode();
    return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') || (code >= '0' && code <= '9') ||
           code == '+' || code == '/';
}

/// The fiche key, cut into encoded texts, each as a whole, and what is between them.
QStringList cutAtCodes(const QString& ficheKey)
{
    QStringList pieces;
    for (int from = 0, to = 0; from < ficheKey.size(); from = to) {
        const bool inCode = isOfCode(ficheKey[from]);
        while (to < ficheKey.size() && isOfCode(ficheKey[to]) == inCode)
            ++to;
        while (inCode && to < ficheKey.size() && ficheKey[to] == QLatin1Char('='))
            ++to;
        pieces.append(ficheKey.mid(from, to - from));
    }
    return pieces;
}

/// The fiche keys on the way from `ficheKey` to the one with the new texts, encoded: one more for each old text that is
/// in it, in their order. Only whole codes of `ficheKey` itself are replaced: the code of a text can be the beginning
/// of a longer text's code, and a new text can be another one's old text.
QStringList recoded(const QString& ficheKey, const QMap<QString, QString>& texts)
{
    QStringList pieces = cutAtCodes(ficheKey);
    QMultiHash<QString, int> places;
    for (int i = 0; i < pieces.size(); ++i)
        places.insert(pieces[i], i);

    QStringList newKeys;
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        const QList<int> found = places.values(encoded(text.key()));
        for (const int place : found)
            pieces[place] = encoded(text.value());
        if (!found.isEmpty())
            newKeys.append(pieces.join(QString()));
    }
    return newKeys;
}

QString fullyEncoded(const QUrl& url)
{
    return QString::fromUtf8(url.toEncoded(QUrl::FullyEncoded));
}

} // namespace

QString KpsSerializer::buildFicheKey(const QList<KpbAParameter*>& parameters) const
{
    QStringList parts;
    for (const KpbAParameter* parameter : parameters) {
        if (!parameter)
            continue;
        if (parameter->hasChildren())
            throw MbeProgrammingError(QStringLiteral("_buildKey: Cannot build key over non-atomic keys"));
        parts.append(serializeFicheKey(parameter->getKey(), parameter->serialize()));
    }
    return parts.join(QLatin1String("{}"));
}

QString KpsSerializer::serializeFicheKey(const QString& key, const SerialForm& value) const
{
    QString text = key + QLatin1Char('=');
    for (const auto& entry : value)
        text += QLatin1Char('<') + entry.key + QLatin1Char('|') + encoded(entry.value) + QLatin1Char('>');
    return text;
}
void KpsSerializer::updateFiche(const QString& id, const QString& key, const SerialForm& oldValue,
                                const SerialForm& newValue) const
{
    const QString oldPart = serializeFicheKey(key, oldValue);
    const QString newPart = serializeFicheKey(key, newValue);
    // A form can take the key of one that is still to come. It is not to be updated twice.
    QSet<QString> done;
    const QStringList ficheKeys = _driver->listKeys(id);
    for (const QString& ficheKey : ficheKeys) {
        if (done.contains(ficheKey))
            continue;
        QDomDocument document;
        _driver->read(id, ficheKey, document);
        updateXmlDocument(document, key, oldValue, newValue);
        // What cannot be read stays stored as it is.
        if (!document.isNull())
            _driver->write(id, ficheKey, document);
        if (!ficheKey.contains(key))
            continue;
        const QString newFicheKey = withPartReplaced(ficheKey, oldPart, newPart);
        _driver->rename(id, ficheKey, newFicheKey);
        done.insert(newFicheKey);
    }
}

void KpsSerializer::updateXmlDocument(QDomDocument& document, const QString& key, const SerialForm& oldValue,
                                      const SerialForm& newValue) const
{
    const QString oldText = oldValue.value(valueEntry);
    const QString newText = newValue.value(valueEntry);
    const auto replace = [&](const QDomElement& element) { replaceLeadingText(element, oldText, newText); };
    const QDomElement root = document.documentElement();
    QDomNode node = nextBelow(root, root);
    while (!node.isNull()) {
        if (!isParamOf(node, key)) {
            node = nextBelow(root, node);
            continue;
        }
        replace(node.toElement());
        forEachElementBelow(node.toElement(), replace);
        node = nextBehind(root, node);
    }
}

void KpsSerializer::updateUrl(const QUrl& oldUrl, const QUrl& newUrl) const
{
    const QString from = fullyEncoded(oldUrl);
    const QString to = fullyEncoded(newUrl);
    if (from.isEmpty() || to.isEmpty() || from == to)
        return;
    // As in updateFiche.
    QSet<QPair<QString, QString>> done;
    const QMap<QString, QString> forms = _driver->listAll();
    for (auto form = forms.begin(); form != forms.end(); ++form) {
        const QString& id = form.key();
        const QString& ficheKey = form.value();
        if (done.contains({id, ficheKey}))
            continue;
        QDomDocument document;
        _driver->read(id, ficheKey, document);
        const QMap<QString, QString> texts = replaceUrls(document, from, to);
        if (texts.isEmpty())
            continue;
        _driver->write(id, ficheKey, document);
        QString currentKey = ficheKey;
        const QStringList newKeys = recoded(ficheKey, texts);
        for (const QString& newKey : newKeys) {
            // On its way, a form takes no other form's place.
            if (newKey != newKeys.last() && _driver->exists(id, newKey))
                continue;
            _driver->rename(id, currentKey, newKey);
            currentKey = newKey;
        }
        if (currentKey != ficheKey)
            done.insert({id, currentKey});
    }
}
