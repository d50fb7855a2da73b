#include "Kestrin.h"
#include "Tree.h"

#include <param/KpsSerializer.h>
#include <study/KstATransactableDefault.h>
#include <util/KuxXml.h>

namespace {

class NoProject : public KstATransactableDefault
{};

const KstITransactable& context()
{
    static const NoProject instance;
    return instance;
}

} // namespace

std::unique_ptr<Kestrin::Leaf> Kestrin::makeLeaf(const Plan::Row& row)
{
    auto leaf = std::make_unique<Leaf>(row.key);
    leaf->setLabel(row.label);
    leaf->setRange(Plan::Minimum, Plan::Maximum);
    leaf->setValue(row.value);
    return leaf;
}

Kestrin::Root Kestrin::makeGroup(const QString& key, const QString& label)
{
    auto group = std::make_unique<Group>(key, context());
    group->setLabel(label);
    return group;
}

void Kestrin::add(Group& group, std::unique_ptr<KpbAParameter> child)
{
    group.addChild(child.release());
}

void Kestrin::collectLeaves(const KpbAParameter& parameter, std::vector<Leaf*>& leaves)
{
    for (int i = 0, count = parameter.getChildCount(); i < count; ++i) {
        KpbAParameter* child = parameter.getChild(i);
        if (child->isA(KpbEType::DOUBLE))
            leaves.push_back(static_cast<Leaf*>(child));
        else
            collectLeaves(*child, leaves);
    }
}

Kestrin::Root Kestrin::build(const Plan& plan)
{
    return buildTree<Kestrin>(plan);
}

QByteArray Kestrin::save(const Group& root)
{
    return KuxXml::toText(KpsSerializer::convertFicheToXml(&root));
}

bool Kestrin::load(Group& root, const QByteArray& text)
{
    QDomDocument document;
    const bool read = KuxXml::parse(text, &document).ok;
    KpsSerializer::updateFicheFromXml(document, &root);
    return read;
}
