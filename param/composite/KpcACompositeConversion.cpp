#include <param/composite/KpcAComposite.h>

#include <util/KuxXml.h>

namespace {

const QString paramTag = QStringLiteral("param");
const QString keyAttribute = QStringLiteral("key");

bool isAtOrBelow(const QDomNode& node, const QDomElement& top)
{
    for (QDomNode ancestor = node; !ancestor.isNull(); ancestor = ancestor.parentNode()) {
        if (ancestor == top)
            return true;
    }
    return false;
}

} // namespace

QDomElement KpcAComposite::_convertXmlGetParam(QDomElement root, const QStringList& path)
{
    return KuxXml::getElementFromPath(root, paramTag, keyAttribute, path);
}

QDomElement KpcAComposite::_convertXmlCreateNewParam(QDomElement parent, const QString& key)
{
    if (parent.isNull())
        return {};
    QDomElement param = parent.ownerDocument().createElement(paramTag);
    param.setAttribute(keyAttribute, key);
    parent.appendChild(param);
    return param;
}

void KpcAComposite::_convertXmlChangeKeys(QDomElement root, const QMap<QString, QString>& keys)
{
    for (auto key = keys.begin(); key != keys.end(); ++key) {
        QDomElement param = _convertXmlGetParam(root, {key.key()});
        if (!param.isNull())
            param.setAttribute(keyAttribute, key.value());
    }
}

void KpcAComposite::_convertXmlChangeParent(QDomElement oldParent, const QString& key, QDomElement newParent,
                                            const QString& newKey)
{
    QDomElement param = KuxXml::getElementFromAttribute(oldParent, paramTag, keyAttribute, key, true);
    // An element cannot stand in itself, whatever a damaged form suggests.
    if (param.isNull() || newParent.isNull() || isAtOrBelow(newParent, param))
        return;
    newParent.appendChild(param);
    if (!newKey.isEmpty())
        param.setAttribute(keyAttribute, newKey);
}

void KpcAComposite::_convertXmlUpdateEnumValue(QDomElement param, const QMap<QString, QString>& values)
{
    const QString oldValue = KuxXml::getValue(param);
    const QString newValue = values.value(oldValue, oldValue);
    if (newValue != oldValue)
        KuxXml::setValue(param, newValue);
}

void KpcAComposite::_convertXmlUpdateFlagsValue(QDomElement param, const QMap<QString, QString>& values)
{
    QStringList parts = KuxXml::getValue(param).split(QLatin1Char('|'));
    for (QString& part : parts)
        part = values.value(part, part);
    KuxXml::setValue(param, parts.join(QLatin1Char('|')));
}
