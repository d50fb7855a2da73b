#pragma once

#include <QtCore/QString>
#include <QtXml/QDomElement>

/// The names in stored forms, and the way through their documents.
namespace KpsForm {

inline const QString paramTag = QStringLiteral("param");
inline const QString taskTag = QStringLiteral("task");
inline const QString urlTag = QStringLiteral("url");
inline const QString keyAttribute = QStringLiteral("key");
inline const QString idAttribute = QStringLiteral("id");
inline const QString versionAttribute = QStringLiteral("version");
inline const QString automaticAttribute = QStringLiteral("automatic");
inline const QString valueEntry = QStringLiteral("value");

// Documents are walked without recursion: their depth is not ours to choose.

/// The node behind `node` and all that is in it, in document order, among those below `top`; a null node after the
/// last.
inline QDomNode nextBehind(const QDomNode& top, QDomNode node)
{
    while (node != top && node.nextSibling().isNull())
        node = node.parentNode();
    return node == top ? QDomNode() : node.nextSibling();
}

/// The same, but going into `node` first.
inline QDomNode nextBelow(const QDomNode& top, const QDomNode& node)
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

} // namespace KpsForm
