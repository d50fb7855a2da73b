#include <document/FormFindings.h>

#include <cli/SafeText.h>
#include <document/ValueReading.h>
#include <tree/ParameterPath.h>
#include <util/KuxXml.h>

namespace {

using Form = KpbAParameter::SerialForm;

const QString paramTag = QStringLiteral("param");
const QString keyAttribute = QStringLiteral("key");

QString below(const QString& path, const QString& key)
{
    return path == QLatin1String(".") ? key : path + QLatin1Char('/') + key;
}

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

/// Texts of older versions came line by line.
bool isKnownEntry(const KpbAParameter& parameter, const Form& form, const QString& name)
{
    return form.contains(name) || (parameter.isA(KpbEType::STRING) && name.startsWith(QLatin1String("line")));
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

FormSnapshot takeSnapshot(const KpbAParameter& root)
{
    FormSnapshot snapshot;
    forEachParameter(root, [&](const KpbAParameter& parameter) { snapshot.insert(&parameter, parameter.serialize()); });
    return snapshot;
}

FormFindings::FormFindings(const QDomElement& element, const KpbAParameter& root, const FormSnapshot& before)
    : _before(before)
{
    _collect(element, root, QStringLiteral("."));
}

void FormFindings::_collect(const QDomElement& element, const KpbAParameter& parameter, const QString& path)
{
    if (!_isRead(element, parameter, path))
        return;
    _checkAttributes(element, parameter, path);
    _checkEntries(element, parameter, path);
    _checkValue(element, parameter, path);
    _collectAbsent(element, parameter, path);
    _collectChildren(element, parameter, path);
}

bool FormFindings::_isRead(const QDomElement& element, const KpbAParameter& parameter, const QString& path)
{
    const int version = element.attribute("version", "1").toInt();
    if (parameter.isVolatile())
        _add(Finding::Ignored, element, path, QStringLiteral("the parameter is not stored, and is not read"));
    else if (version > parameter.getVersion())
        _add(Finding::TooNew, element, path,
             QStringLiteral("version %1; the newest that is known is %2").arg(version).arg(parameter.getVersion()));
    else
        return true;
    return false;
}

void FormFindings::_checkAttributes(const QDomElement& element, const KpbAParameter& parameter, const QString& path)
{
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

void FormFindings::_checkEntries(const QDomElement& element, const KpbAParameter& parameter, const QString& path)
{
    const bool isTask = element.tagName() == QLatin1String("task");
    const Form known = isTask ? Form() : parameter.serialize();
    QDomElement child = element.firstChildElement();
    if (hasOwnText(element) && (!child.isNull() || known.isEmpty()))
        _add(Finding::Unknown, element, path, QStringLiteral("a text that nothing reads"));
    for (; !child.isNull(); child = child.nextSiblingElement()) {
        if (child.tagName() != paramTag && !isKnownEntry(parameter, known, child.tagName()))
            _add(Finding::Unknown, child, path, QStringLiteral("entry %1").arg(SafeText::quoted(child.tagName())));
    }
}

void FormFindings::_checkValue(const QDomElement& element, const KpbAParameter& parameter, const QString& path)
{
    const Form now = parameter.serialize();
    if (now.isEmpty())
        return;
    const Form stored = entriesOf(element);
    switch (judgeReading(parameter, stored, _before.value(&parameter))) {
    case ValueReading::Refused:
        _add(Finding::Refused, element, path,
             QStringLiteral("%1; %2 stands").arg(entriesText(stored), entriesText(now)));
        break;
    case ValueReading::Repaired:
        _add(Finding::Repaired, element, path,
             QStringLiteral("%1 became %2").arg(entriesText(stored), entriesText(now)));
        break;
    default:
        break;
    }
}

void FormFindings::_collectChildren(const QDomElement& element, const KpbAParameter& parameter, const QString& path)
{
    QHash<QString, QDomElement> last;
    for (QDomElement child = element.firstChildElement(paramTag); !child.isNull();
         child = child.nextSiblingElement(paramTag))
        last.insert(child.attribute(keyAttribute), child);
    for (QDomElement child = element.firstChildElement(paramTag); !child.isNull();
         child = child.nextSiblingElement(paramTag))
    {
        const QString key = child.attribute(keyAttribute);
        const QString childPath = below(path, key);
        const KpbAParameter* found = child.hasAttribute(keyAttribute) ? parameter.getChild(key) : nullptr;
        if (!found)
            _add(Finding::Unknown, child, childPath, QStringLiteral("there is no such parameter"));
        else if (last.value(key) != child)
            _add(Finding::Repeated, child, childPath, QStringLiteral("a later element has the same key"));
        else
            _collect(child, *found, childPath);
    }
}

void FormFindings::_collectAbsent(const QDomElement& element, const KpbAParameter& parameter, const QString& path)
{
    QSet<QString> present;
    for (QDomElement child = element.firstChildElement(paramTag); !child.isNull();
         child = child.nextSiblingElement(paramTag))
        present.insert(child.attribute(keyAttribute));
    for (int i = 0; i < parameter.getChildCount(); ++i) {
        const KpbAParameter* child = parameter.getChild(i);
        if (child && !child->isVolatile() && !present.contains(child->getKey()))
            _absent.append(below(path, child->getKey()));
    }
}

void FormFindings::_add(Finding::Kind kind, const QDomElement& element, const QString& path, const QString& text)
{
    _findings.append({kind, path, ElementPlace::nearest(element), text});
}
