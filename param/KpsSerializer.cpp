#include "KpsForm.h"

#include <param/KpsSerializer.h>

#include <basic/MbbDebug.h>
#include <param/KpbFailure.h>
#include <param/composite/KpcAbstractList.h>
#include <param/composite/KpcGroup.h>
#include <study/KsbIDriverTaskFiche.h>
#include <study/KssProject.h>
#include <util/KuxXml.h>

using namespace KpsForm;

#include <vector>

namespace {

using SerialForm = KpsSerializer::SerialForm;

QString textOf(const QDomElement& element)
{
    const QDomNode first = element.firstChild();
    if (first.isText() && first.nextSibling().isNull())
        return first.nodeValue().remove(QLatin1Char('\r'));
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
    const int version = element.hasAttribute(versionAttribute) ? element.attribute(versionAttribute).toInt() : 1;
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

/// The elements that hold the items of a list.
std::vector<QDomElement> itemElements(const QDomElement& element)
{
    std::vector<QDomElement> elements;
    for (QDomElement child = element.firstChildElement(paramTag); !child.isNull();
         child = child.nextSiblingElement(paramTag))
        elements.push_back(child);
    return elements;
}

QStringList keysOf(const std::vector<QDomElement>& elements)
{
    QStringList keys;
    keys.reserve(int(elements.size()));
    for (const QDomElement& element : elements)
        keys.append(element.attribute(keyAttribute));
    return keys;
}

/// What a list that has been brought to stored keys has under the one at `index`: normally the item in that place, also
/// where the key repeats or is empty.
KpbAParameter* itemFor(const KpcAbstractList& list, const QString& key, int index)
{
    KpbAParameter* item = list.getAbstractItemAt(index);
    return item && (key.isEmpty() || item->getKey() == key) ? item : list.getChild(key);
}

void readItemsByKey(KpcAbstractList& list, const KuoPointer<KpbAParameter>& guarded, const QDomElement& element)
{
    std::vector<QDomElement> elements = itemElements(element);
    const QStringList keys = keysOf(elements);
    list.resetItemKeys(keys);
    for (int i = 0; guarded && i < keys.size(); ++i) {
        if (KpbAParameter* item = itemFor(list, keys.at(i), i))
            KpsSerializer::updateParamFromXml(item, elements[std::size_t(i)]);
    }
}

void readItemsAtOnce(KpcAbstractList& list, const QDomElement& element)
{
    const std::vector<QDomElement> elements = itemElements(element);
    QList<SerialForm> maps;
    maps.reserve(int(elements.size()));
    for (const QDomElement& item : elements)
        maps.append(readForm(item));
    list.unserializeAtomicItems(keysOf(elements), maps);
}

/// Each child node has its position, whatever it is.
void readItemsByPosition(KpcAbstractList& list, const KuoPointer<KpbAParameter>& guarded, const QDomElement& element)
{
    QDomNode node = element.firstChild();
    for (int i = 0; guarded && !node.isNull() && i < list.getChildCount(); ++i) {
        // As in readChildren.
        const QDomNode next = node.nextSibling();
        QDomElement child = node.toElement();
        KpbAParameter* item = child.tagName() == paramTag ? list.getChild(i) : nullptr;
        if (item)
            KpsSerializer::updateParamFromXml(item, child);
        node = next;
    }
}

/// Brings the parameter to what the element contains.
void readContent(const KuoPointer<KpbAParameter>& parameter, const QDomElement& element)
{
    auto* list = parameter->isA(KpbEType::LIST) ? dynamic_cast<KpcAbstractList*>(parameter.get()) : nullptr;
    if (list && list->isResizable() && list->needToUnserializeAtomicItems())
        return readItemsAtOnce(*list, element);
    if (list && list->isResizable() && !list->ignoreItemKeys())
        return readItemsByKey(*list, parameter, element);
    if (list && list->isResizable())
        list->resetItemKeys(keysOf(itemElements(element)));
    else
        parameter->unserialize(readForm(element));
    if (parameter && list && list->ignoreItemKeys())
        readItemsByPosition(*list, parameter, element);
    else
        readChildren(parameter, element);
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
    readContent(guarded, element);
    // Last, because a new value ends the automatic mode.
    if (guarded)
        guarded->setAutomatic(element.attribute(automaticAttribute) == QLatin1String("yes"));
}

void KpsSerializer::updateFicheFromXml(const QDomDocument& document, KpcGroup* group)
{
    QDomElement root = document.documentElement();
    updateParamFromXml(group, root);
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
