#include "Plain.h"
#include "Dom.h"
#include "Tree.h"

namespace {

void write(QDomElement& element, const PlainList& list)
{
    for (int i = 0; i < list.getItemCount(); ++i)
        Dom::appendParam(element, list.getItemAt(i)->getKey(), Dom::toText(list.getItemAt(i)->getValue()));
}

void write(QDomElement& element, const PlainGroup& group)
{
    for (const PlainNode* node : group.getNodes()) {
        if (const auto* leaf = qobject_cast<const PlainLeaf*>(node)) {
            Dom::appendParam(element, leaf->getKey(), Dom::toText(leaf->getValue()));
            continue;
        }
        QDomElement child = Dom::appendParam(element, node->getKey());
        if (const auto* list = qobject_cast<const PlainList*>(node))
            write(child, *list);
        else
            write(child, *static_cast<const PlainGroup*>(node));
    }
}

void read(PlainList& list, const QDomElement& element)
{
    QStringList keys;
    QList<double> values;
    Dom::forEachParam(element, [&](const QString& key, const QDomElement& child) {
        keys.append(key);
        values.append(child.text().toDouble());
    });
    list.resetItemKeys(keys);
    list.setValues(values);
}

void read(PlainGroup& group, const QDomElement& element)
{
    Dom::forEachParam(element, [&](const QString& key, const QDomElement& child) {
        PlainNode* node = group.getNode(key);
        if (auto* leaf = qobject_cast<PlainLeaf*>(node))
            leaf->setValue(child.text().toDouble());
        else if (auto* list = qobject_cast<PlainList*>(node))
            read(*list, child);
        else if (node)
            read(*static_cast<PlainGroup*>(node), child);
    });
}

} // namespace

std::unique_ptr<Plain::Leaf> Plain::makeLeaf(const Plan::Row& row)
{
    auto leaf = std::make_unique<Leaf>(row.key);
    leaf->setLabel(row.label);
    leaf->setRange(Plan::Minimum, Plan::Maximum);
    leaf->setValue(row.value);
    return leaf;
}

Plain::Root Plain::makeGroup(const QString& key, const QString& label)
{
    auto group = std::make_unique<Group>(key);
    group->setLabel(label);
    return group;
}

void Plain::collectLeaves(const Group& group, std::vector<Leaf*>& leaves)
{
    for (PlainNode* node : group.getNodes()) {
        if (auto* leaf = qobject_cast<Leaf*>(node))
            leaves.push_back(leaf);
        else
            collectLeaves(*static_cast<const Group*>(node), leaves);
    }
}

Plain::Root Plain::build(const Plan& plan)
{
    return buildTree<Plain>(plan);
}

QByteArray Plain::save(const Group& root)
{
    QDomDocument document = Dom::makeDocument();
    QDomElement element = document.documentElement();
    write(element, root);
    return document.toByteArray();
}

bool Plain::load(Group& root, const QByteArray& text)
{
    QDomDocument document;
    const bool parsed = document.setContent(text);
    read(root, document.documentElement());
    return parsed;
}
