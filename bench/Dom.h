#pragma once

#include "Plan.h"

#include <QtXml/QDomDocument>

/// QDomDocument alone: the document is the tree.
struct Dom
{
    using Plan = ::Plan;
    using Root = QDomDocument;

    static constexpr const char* name = "dom";

    /// The elements with key, label and bounds as attributes, and the value as text.
    static Root build(const Plan& plan);
    static Root duplicate(const Root& root) { return root.cloneNode(true).toDocument(); }
    /// The text that the library makes of a tree of this plan, with `offset` added to each value.
    static QByteArray saveTree(const Plan& plan, double offset);
    static QByteArray save(const Plan& plan) { return saveTree(plan, 0.0); }
    /// The text that the library makes of a list with the values of this plan, with `offset` added to each.
    static QByteArray saveList(const Plan& plan, double offset);
    /// The sum of the values in the text of a tree or a list.
    static double sum(const QByteArray& text);

    /// A document with the declaration and an empty root.
    static Root makeDocument();
    static QDomElement appendParam(QDomElement& parent, const QString& key, const QString& text = QString());
    static QString toText(double value) { return QString::number(value, 'g', 10); }
    /// Calls `visit(key, element)` for each child parameter of `element`.
    template <class Visit>
    static void forEachParam(const QDomElement& element, Visit visit)
    {
        const QString param = QStringLiteral("param");
        const QString key = QStringLiteral("key");
        for (QDomElement child = element.firstChildElement(param); !child.isNull();
             child = child.nextSiblingElement(param))
            visit(child.attribute(key), child);
    }
};
