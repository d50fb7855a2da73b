#include <param/KpsSerializer.h>

#include <basic/MbbDebug.h>
#include <basic/MbeError.h>
#include <param/KpbFailure.h>
#include <param/composite/KpcGroup.h>
#include <study/KsbIDriverTaskFiche.h>
#include <study/KssProject.h>
#include <util/KuxXml.h>

#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QSet>

namespace {

using SerialForm = KpsSerializer::SerialForm;

const QString paramTag = QStringLiteral("param");
const QString taskTag = QStringLiteral("task");
const QString urlTag = QStringLiteral("url");
const QString keyAttribute = QStringLiteral("key");
const QString idAttribute = QStringLiteral("id");
const QString versionAttribute = QStringLiteral("version");
const QString automaticAttribute = QStringLiteral("automatic");
const QString valueEntry = QStringLiteral("value");

// Documents are walked without recursion: their depth is not ours to choose.

/// The node behind `node` and all that is in it, in document order, among those below `top`; a null node after the
/// last.
QDomNode nextBehind(const QDomNode& top, QDomNode node)
{
    while (node != top && node.nextSibling().isNull())
        node = node.parentNode();
    return node == top ? QDomNode() : node.nextSibling();
}

/// The same, but going into `node` first.
QDomNode nextBelow(const QDomNode& top, const QDomNode& node)
{
    return node.hasChildNodes() ? node.firstChild() : nextBehind(top, node);
}

template <class Visit>
void forEachElementBelow(const QDomElement& top, Visit visit)
{
    for (QDomNode node = nextBelow(top, top); !node.isNull(); node = nextBelow(top, node)) {
        if (node.isElement())
            visit(node.toElement());
    }
}

QString textOf(const QDomElement& element)
{
    QString text;
    for (QDomNode node = nextBelow(element, element); !node.isNull(); node = nextBelow(element, node)) {
        if (node.isText())
            text += node.nodeValue();
    }
    return text.remove(QLatin1Char('\r'));
}

// Writing

/// What a load-locked parameter gives in the place of its state: the document that it keeps. Null if it keeps none.
QDomDocument keptBy(const KpbAParameter& parameter)
{
    const auto kept = parameter.isLoadLocked() ? parameter.getUnserializeData() : QSharedPointer<QDomDocument>();
    return kept ? *kept : QDomDocument();
}

QDomElement copyOfRoot(QDomDocument& document, const QDomDocument& from)
{
    return document.importNode(from.documentElement(), true).toElement();
}

QDomElement createWithContent(QDomDocument& document, const KpbAParameter& parameter)
{
    const SerialForm form = parameter.serialize();
    if (!parameter.hasChildren() && form.size() == 1 && form.keyAt(0) == valueEntry)
        return KuxXml::createTextOrCDATANode(document, paramTag, form.valueAt(0));
    QDomElement element = document.createElement(paramTag);
    for (const auto& entry : form)
        element.appendChild(KuxXml::createTextOrCDATANode(document, entry.key, entry.value));
    return element;
}

void writeVersion(QDomElement& element, const KpbAParameter& parameter)
{
    if (parameter.getVersion() > 1)
        element.setAttribute(versionAttribute, parameter.getVersion());
}

void appendChildren(QDomDocument& document, QDomElement& element, const KpbAParameter& parameter);

QDomElement createElement(QDomDocument& document, const KpbAParameter& parameter)
{
    if (parameter.isVolatile())
        return {};
    const QDomDocument kept = keptBy(parameter);
    if (!kept.isNull())
        return copyOfRoot(document, kept);
    QDomElement element = createWithContent(document, parameter);
    element.setAttribute(keyAttribute, parameter.getKey());
    writeVersion(element, parameter);
    if (parameter.isAutomaticEnabled())
        element.setAttribute(automaticAttribute, KpsSerializer::fromBool(parameter.isAutomatic()));
    appendChildren(document, element, parameter);
    return element;
}

void appendChildren(QDomDocument& document, QDomElement& element, const KpbAParameter& parameter)
{
    for (int i = 0, count = parameter.getChildCount(); i < count; ++i) {
        const KpbAParameter* child = parameter.getChild(i);
        const QDomElement childElement = child ? createElement(document, *child) : QDomElement();
        if (!childElement.isNull())
            element.appendChild(childElement);
    }
}

/// What a load-locked group keeps, as the root of a form: a group that was part of a larger tree keeps a "param".
QDomElement createRootOfKept(QDomDocument& document, const KpcGroup& group)
{
    QDomElement root = copyOfRoot(document, keptBy(group));
    if (root.isNull() || root.tagName() == taskTag)
        return root;
    root.setTagName(taskTag);
    root.removeAttribute(keyAttribute);
    root.removeAttribute(automaticAttribute);
    root.setAttribute(idAttribute, group.toString());
    return root;
}

QDomElement createRoot(QDomDocument& document, const KpcGroup& group)
{
    QDomElement root = createRootOfKept(document, group);
    if (!root.isNull())
        return root;
    root = document.createElement(taskTag);
    root.setAttribute(idAttribute, group.toString());
    writeVersion(root, group);
    appendChildren(document, root, group);
    return root;
}

/// A document without a name and without a root, which is not null.
QDomDocument emptyDocument()
{
    return QDomDocument(QString());
}

/// Where elements are made that have no place yet. An element does not keep its document alive, so this one outlives
/// all callers on its thread. One that a caller has put elements into stays as it is, and another takes its place.
QDomDocument temporaryDocument()
{
    thread_local QList<QDomDocument> documents;
    if (documents.isEmpty() || documents.last().hasChildNodes())
        documents.append(emptyDocument());
    return documents.last();
}

// Reading

/// What a load-locked parameter keeps of an element: a document of its own with a deep copy.
QDomDocument keepsake(const QDomElement& element)
{
    QDomDocument document(QStringLiteral("serialized_param"));
    if (!element.isNull())
        document.appendChild(document.importNode(element, true));
    return document;
}

/// Gives whether the element is now one that the parameter can read.
bool bringToVersion(const KpbAParameter& parameter, QDomElement& element)
{
    const int version = element.attribute(versionAttribute, QStringLiteral("1")).toInt();
    if (version > parameter.getVersion()) {
        MbbDebug::printWarning(
            QStringLiteral("Cannot load parameter '%1' because version is too recent.").arg(parameter.getKey()));
        return false;
    }
    if (version < parameter.getVersion())
        parameter.convert(element, version);
    return true;
}

SerialForm readForm(const QDomElement& element)
{
    SerialForm form;
    QDomElement child = element.firstChildElement();
    if (child.isNull()) {
        const QString text = textOf(element);
        if (!text.isEmpty())
            form.insert(valueEntry, text);
    }
    for (; !child.isNull(); child = child.nextSiblingElement()) {
        if (child.tagName() != paramTag)
            form.insert(child.tagName(), textOf(child));
    }
    return form;
}

void readChild(const KpbAParameter& parameter, QDomElement element)
{
    if (!element.hasAttribute(keyAttribute))
        return;
    if (KpbAParameter* child = parameter.getChild(element.attribute(keyAttribute)))
        KpsSerializer::updateParamFromXml(child, element);
}

/// Observers of what is read may destroy the parameter; the rest is then ignored.
void readChildren(const KuoPointer<KpbAParameter>& parameter, const QDomElement& element)
{
    QDomElement child = element.firstChildElement(paramTag);
    while (parameter && !child.isNull()) {
        // A conversion may put another element in the place of the child's.
        const QDomElement next = child.nextSiblingElement(paramTag);
        readChild(*parameter, child);
        child = next;
    }
}

bool load(const KsbIDriverTaskFiche& driver, const QString& id, const QString& ficheKey, KpbAParameter* parameter)
{
    if (!driver.exists(id, ficheKey))
        return false;
    QDomDocument document;
    driver.read(id, ficheKey, document);
    if (document.isNull())
        return false;
    QDomElement root = document.documentElement();
    KpsSerializer::updateParamFromXml(parameter, root);
    return true;
}

// Repairing

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

KpsSerializer::KpsSerializer(KssProject* project)
    : _project(project),
      _driver(project ? project->getDriverTaskFiche() : nullptr)
{
    if (!_driver)
        Kp::failProgramming(QStringLiteral("__cdecl KpsSerializer::KpsSerializer(class KssProject *)"),
                            QStringLiteral(".\\KpsSerializer"), QStringLiteral("driver is null."));
}

QDomElement KpsSerializer::convertParamToXml(const KpbAParameter* parameter)
{
    QDomDocument document = temporaryDocument();
    return createElement(document, *parameter);
}

QDomDocument KpsSerializer::convertFicheToXml(const KpcGroup* group)
{
    QDomDocument document = emptyDocument();
    document.appendChild(createRoot(document, *group));
    return document;
}

void KpsSerializer::updateParamFromXml(KpbAParameter* parameter, QDomElement& element)
{
    if (element.isNull() || parameter->isVolatile())
        return;
    if (parameter->isLoadLocked())
        return parameter->setSerializeData(QSharedPointer<QDomDocument>::create(keepsake(element)));
    if (!bringToVersion(*parameter, element))
        return;
    const KuoPointer<KpbAParameter> guarded(parameter);
    parameter->unserialize(readForm(element));
    readChildren(guarded, element);
    // Last, because a new value ends the automatic mode.
    if (guarded)
        guarded->setAutomatic(element.attribute(automaticAttribute) == QLatin1String("yes"));
}

void KpsSerializer::updateFicheFromXml(const QDomDocument& document, KpcGroup* group)
{
    QDomElement root = document.documentElement();
    updateParamFromXml(group, root);
}

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

bool KpsSerializer::ficheExists(const KpcGroup* group, const QList<KpbAParameter*>& parameters) const
{
    return _driver->exists(group->getKey(), buildFicheKey(parameters));
}

void KpsSerializer::saveFiche(const KpcGroup* group, const QList<KpbAParameter*>& parameters) const
{
    const QString ficheKey = buildFicheKey(parameters);
    _driver->write(group->getKey(), ficheKey, convertFicheToXml(group));
}

bool KpsSerializer::loadFiche(KpcGroup* group, const QList<KpbAParameter*>& parameters) const
{
    return load(*_driver, group->getKey(), buildFicheKey(parameters), group);
}

void KpsSerializer::saveParameter(const KpbAParameter* parameter, const QString& id) const
{
    QDomDocument document = emptyDocument();
    const QDomElement root = createElement(document, *parameter);
    if (!root.isNull())
        document.appendChild(root);
    _driver->write(id, QString(), document);
}

bool KpsSerializer::loadParameter(KpbAParameter* parameter, const QString& id) const
{
    return load(*_driver, id, QString(), parameter);
}

void KpsSerializer::copyFiche(const KpcGroup* from, KpcGroup* to) const
{
    KuoLock<KpnModif> lock(to);
    updateFicheFromXml(convertFicheToXml(from), to);
    lock.commit();
}

bool KpsSerializer::unlockParamSerialize(KpbAParameter* parameter) const
{
    const QSharedPointer<QDomDocument> kept = parameter->takeUnserializeData();
    if (!kept || kept->isNull())
        return false;
    const KuoPointer<KpbAParameter> guarded(parameter);
    KuoLock<KpnModif> lock(parameter);
    // Duplicates share what is kept, and reading may convert it.
    const QDomDocument document = keepsake(kept->documentElement());
    try {
        QDomElement root = document.documentElement();
        updateParamFromXml(parameter, root);
    }
    catch (...) {
        if (guarded) {
            guarded->setSerializeData(kept);
            guarded->lockLoad();
        }
        throw;
    }
    lock.commit();
    return true;
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
