#include "Dom.h"

Dom::Root Dom::makeDocument()
{
    QDomDocument document;
    document.appendChild(document.createProcessingInstruction(QStringLiteral("xml"),
                                                              QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"")));
    QDomElement root = document.createElement(QStringLiteral("task"));
    root.setAttribute(QStringLiteral("id"), QString());
    document.appendChild(root);
    return document;
}

QDomElement Dom::appendParam(QDomElement& parent, const QString& key, const QString& text)
{
    QDomDocument document = parent.ownerDocument();
    QDomElement element = document.createElement(QStringLiteral("param"));
    element.setAttribute(QStringLiteral("key"), key);
    if (!text.isEmpty())
        element.appendChild(document.createTextNode(text));
    parent.appendChild(element);
    return element;
}

Dom::Root Dom::build(const Plan& plan)
{
    QDomDocument document = makeDocument();
    QDomElement root = document.documentElement();
    QDomElement group;
    plan.walk(
        [&](const Plan::Row& row) {
            group = appendParam(root, row.key);
            group.setAttribute(QStringLiteral("label"), row.label);
        },
        [&](const Plan::Row& row) {
            QDomElement leaf = appendParam(group, row.key, toText(row.value));
            leaf.setAttribute(QStringLiteral("label"), row.label);
            leaf.setAttribute(QStringLiteral("minimum"), toText(Plan::Minimum));
            leaf.setAttribute(QStringLiteral("maximum"), toText(Plan::Maximum));
        });
    return document;
}

QByteArray Dom::saveTree(const Plan& plan, double offset)
{
    QDomDocument document = makeDocument();
    QDomElement root = document.documentElement();
    QDomElement group;
    plan.walk([&](const Plan::Row& row) { group = appendParam(root, row.key); },
              [&](const Plan::Row& row) { appendParam(group, row.key, toText(row.value + offset)); });
    return document.toByteArray();
}

QByteArray Dom::saveList(const Plan& plan, double offset)
{
    QDomDocument document = makeDocument();
    QDomElement root = document.documentElement();
    QDomElement list = appendParam(root, Plan::ListKey);
    int id = 0;
    for (const double value : plan.getValues(offset))
        appendParam(list, QStringLiteral("ITEM_%1").arg(++id), toText(value));
    return document.toByteArray();
}

double Dom::sum(const QByteArray& text)
{
    QDomDocument document;
    document.setContent(text);
    double sum = 0.0;
    forEachParam(document.documentElement(), [&](const QString&, const QDomElement& group) {
        forEachParam(group, [&](const QString& key, const QDomElement& leaf) {
            if (!key.isEmpty())
                sum += leaf.text().toDouble();
        });
    });
    return sum;
}
