#include <document/FormFindings.h>

#include <QtCore/QHash>
#include <QtCore/QSet>

#include <cli/SafeText.h>
#include <document/ValueReading.h>
#include <param/composite/KpcAbstractList.h>
#include <util/KuxXml.h>

namespace {

using Form = KpbAParameter::SerialForm;

const QString paramTag = QStringLiteral("param");
const QString keyAttribute = QStringLiteral("key");

/// The only entry as it stands, several ones with their names.
QString entriesText(const Form& form)
{
    if (form.size() == 1)
        return SafeText::quoted(form.valueAt(0));
    QStringList texts;
    for (const auto& entry : form)
        texts.append(SafeText::inLine(entry.key) + QLatin1Char(' ') + SafeText::quoted(entry.value));
    return texts.isEmpty() ? QStringLiteral("''") : texts.join(QStringLiteral(", "));
}

bool hasOwnText(const QDomElement& element)
{
    for (QDomNode node = element.firstChild(); !node.isNull(); node = node.nextSibling()) {
        if (node.isText() && !KuxXml::isBlank(node.nodeValue()))
            return true;
    }
    return false;
}

} // namespace

QString Finding::getKindName() const
{
    static const QStringList names{"unknown", "refused", "repaired", "too new", "ignored", "repeated"};
    return names.at(kind);
}

QString Finding::toString(const QString& file) const
{
    return QStringLiteral("%1%2: %3: %4: %5")
        .arg(SafeText::inLine(file), place.toString(), SafeText::inLine(path), getKindName(), text);
}

QJsonObject Finding::toJson() const
{
    return {{"kind", getKindName()}, {"path", path}, {"line", place.line}, {"column", place.column}, {"text", text}};
}

QString FormFindings::Place::below(const QString& key) const
{
    return path == QLatin1String(".") ? key : path + QLatin1Char('/') + key;
}

FormFindings::FormFindings(const QDomElement& element, const KpbAParameter& root, const KpbAParameter& former)
{
    _collect(element, {root, former, QStringLiteral(".")});
}

void FormFindings::_collect(const QDomElement& element, const Place& place)
{
    if (_isRead(element, place))
        _compare(element, place);
}

void FormFindings::_compare(const QDomElement& element, const Place& place)
{
    _checkAttributes(element, place);
    _checkEntries(element, place);
    _checkValue(element, place);
    if (dynamic_cast<const KpcAbstractList*>(&place.parameter)) {
        _collectItems(element, place);
        return;
    }
    _collectAbsent(element, place);
    _collectChildren(element, place);
}

bool FormFindings::_isRead(const QDomElement& element, const Place& place)
{
    const auto& [parameter, former, path] = place;
    const int version = element.attribute("version", "1").toInt();
    // What is only volatile now has been read, and was found not to be worth storing.
    if (parameter.isVolatile() && former.isVolatile())
        _add(Finding::Ignored, element, path, QStringLiteral("the parameter is not stored, and is not read"));
    else if (version > parameter.getVersion())
        _add(Finding::TooNew, element, path,
             QStringLiteral("version %1; the newest that is known is %2").arg(version).arg(parameter.getVersion()));
    else
        return true;
    return false;
}

void FormFindings::_checkAttributes(const QDomElement& element, const Place& place)
{
    const auto& [parameter, former, path] = place;
    const bool isTask = element.tagName() == QLatin1String("task");
    const QStringList known{isTask ? QStringLiteral("id") : keyAttribute, "version", "automatic"};
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.size(); ++i) {
        const QString name = attributes.item(i).nodeName();
        if (!known.contains(name) && !ElementPlace::isMark(name))
            _add(Finding::Unknown, element, path, QStringLiteral("attribute %1").arg(SafeText::quoted(name)));
    }
    const QString version = element.attribute("version", "1");
    if (version.toInt() < 1)
        _add(Finding::Refused, element, path, QStringLiteral("version %1").arg(SafeText::quoted(version)));
    const QString automatic = element.attribute("automatic", "no");
    if (automatic == QLatin1String("yes") && !(parameter.isAutomaticEnabled() && parameter.isAutomatic()))
        _add(Finding::Refused, element, path, QStringLiteral("the automatic mode, which is not offered"));
    if (automatic != QLatin1String("yes") && automatic != QLatin1String("no"))
        _add(Finding::Repaired, element, path,
             QStringLiteral("automatic %1 became 'no'").arg(SafeText::quoted(automatic)));
    const QString id = element.attribute("id");
    if (isTask && id != parameter.toString())
        _add(Finding::Repaired, element, path,
             QStringLiteral("task %1 became %2").arg(SafeText::quoted(id), SafeText::quoted(parameter.toString())));
}

void FormFindings::_checkEntries(const QDomElement& element, const Place& place)
{
    const bool isTask = element.tagName() == QLatin1String("task");
    const Form known = isTask ? Form() : place.parameter.serialize();
    const Form stored = entriesOf(element);
    QDomElement child = element.firstChildElement();
    if (hasOwnText(element) && (!child.isNull() || known.isEmpty()))
        _add(Finding::Unknown, element, place.path, QStringLiteral("a text that nothing reads"));
    for (; !child.isNull(); child = child.nextSiblingElement()) {
        if (child.tagName() != paramTag && !isEntryRead(place.parameter, known, stored, child.tagName()))
            _add(Finding::Unknown, child, place.path,
                 QStringLiteral("entry %1").arg(SafeText::quoted(child.tagName())));
    }
}

void FormFindings::_checkValue(const QDomElement& element, const Place& place)
{
    const Form now = place.parameter.serialize();
    if (now.isEmpty() && getItemEntries(place.parameter).isEmpty())
        return;
    const Form stored = entriesOf(element);
    switch (judgeReading(place.parameter, stored, place.former)) {
    case ValueReading::Refused:
        _add(Finding::Refused, element, place.path,
             QStringLiteral("%1; %2 stands").arg(entriesText(stored), entriesText(now)));
        break;
    case ValueReading::Repaired:
        _add(Finding::Repaired, element, place.path,
             QStringLiteral("%1 became %2").arg(entriesText(stored), entriesText(now)));
        break;
    default:
        break;
    }
}

void FormFindings::_collectChildren(const QDomElement& element, const Place& place)
{
    QHash<QString, QDomElement> last;
    for (QDomElement child = element.firstChildElement(paramTag); !child.isNull();
         child = child.nextSiblingElement(paramTag))
        last.insert(child.attribute(keyAttribute), child);
    for (QDomElement child = element.firstChildElement(paramTag); !child.isNull();
         child = child.nextSiblingElement(paramTag))
    {
        if (last.value(child.attribute(keyAttribute)) == child || !child.hasAttribute(keyAttribute))
            _collectChild(child, place);
        else
            _add(Finding::Repeated, child, place.below(child.attribute(keyAttribute)),
                 QStringLiteral("a later element has the same key"));
    }
}

void FormFindings::_collectChild(const QDomElement& element, const Place& place)
{
    const QString key = element.attribute(keyAttribute);
    const KpbAParameter* child = element.hasAttribute(keyAttribute) ? place.parameter.getChild(key) : nullptr;
    const KpbAParameter* former = child ? place.former.getChild(key) : nullptr;
    if (child && former)
        _collect(element, {*child, *former, place.below(key)});
    else
        _add(Finding::Unknown, element, place.below(key), QStringLiteral("there is no such parameter"));
}

void FormFindings::_collectItems(const QDomElement& element, const Place& place)
{
    const auto& list = dynamic_cast<const KpcAbstractList&>(place.parameter);
    list.isResizable() ? _collectItemsByKey(element, place, list) : _collectItemsByPosition(element, place, list);
}

// The list has made an item of each element, unless it has the value already and is to have it once.
void FormFindings::_collectItemsByKey(const QDomElement& element, const Place& place, const KpcAbstractList& list)
{
    int rank = 0;
    for (QDomElement child = element.firstChildElement(paramTag); !child.isNull();
         child = child.nextSiblingElement(paramTag))
    {
        const QString key = child.attribute(keyAttribute);
        const KpbAParameter* item = list.getAbstractItemAt(rank);
        const bool isTheirs = item && (key.isEmpty() || item->getKey() == key);
        if (!isTheirs && list.needToUnserializeAtomicItems()) {
            _add(Finding::Repeated, child, place.below(key), QStringLiteral("an earlier item has the same value"));
            continue;
        }
        _collectItem(child, place, isTheirs ? item : nullptr);
        ++rank;
    }
}

// Each node has its position, whatever it is.
void FormFindings::_collectItemsByPosition(const QDomElement& element, const Place& place, const KpcAbstractList& list)
{
    QSet<int> present;
    int position = 0;
    for (QDomNode node = element.firstChild(); !node.isNull(); node = node.nextSibling(), ++position) {
        if (node.toElement().tagName() != paramTag)
            continue;
        present.insert(position);
        _collectItem(node.toElement(), place, list.getAbstractItemAt(position));
    }
    for (int i = 0; i < list.getItemCount(); ++i) {
        if (!present.contains(i))
            _absent.append(place.below(list.getAbstractItemAt(i)->getKey()));
    }
}

void FormFindings::_collectItem(const QDomElement& element, const Place& place, const KpbAParameter* item)
{
    const QString key = element.attribute(keyAttribute);
    if (!item) {
        _add(Finding::Unknown, element, place.below(key), QStringLiteral("there is no such item"));
        return;
    }
    const QString path = place.below(item->getKey());
    if (item->getKey() != key)
        _add(Finding::Repaired, element, path,
             QStringLiteral("key %1 became %2").arg(SafeText::quoted(key), SafeText::quoted(item->getKey())));
    // A new item was what the prototype is.
    const auto& formerList = dynamic_cast<const KpcAbstractList&>(place.former);
    const KpbAParameter* former = formerList.getChild(item->getKey());
    const Place itemPlace{*item, former ? *former : *formerList.getAbstractPrototype(), path};
    // Read all at once, items are read whatever their version is.
    formerList.needToUnserializeAtomicItems() ? _compare(element, itemPlace) : _collect(element, itemPlace);
}

void FormFindings::_collectAbsent(const QDomElement& element, const Place& place)
{
    QSet<QString> present;
    for (QDomElement child = element.firstChildElement(paramTag); !child.isNull();
         child = child.nextSiblingElement(paramTag))
        present.insert(child.attribute(keyAttribute));
    for (int i = 0; i < place.parameter.getChildCount(); ++i) {
        const KpbAParameter* child = place.parameter.getChild(i);
        if (child && !child->isVolatile() && !present.contains(child->getKey()))
            _absent.append(place.below(child->getKey()));
    }
}

void FormFindings::_add(Finding::Kind kind, const QDomElement& element, const QString& path, const QString& text)
{
    _findings.append({kind, path, ElementPlace::nearest(element), text});
}
