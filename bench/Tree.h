#pragma once

#include "Plan.h"

#include <map>
#include <memory>
#include <vector>

// A side is a way to do the work: `Kestrin` with the library, `Plain` with QObject, `Dom` with QDomDocument, `Stream`
// with QXmlStreamWriter and QXmlStreamReader, `Trilinos` with Teuchos. The first two have the same operations and share
// what is here.

/// A root with groups of 20 leaves.
template <class Side>
std::unique_ptr<typename Side::Group> buildTree(const Plan& plan)
{
    auto root = Side::makeGroup(QStringLiteral("TREE"), QStringLiteral("Tree"));
    std::unique_ptr<typename Side::Group> group;
    const auto close = [&] {
        if (group)
            Side::add(*root, std::move(group));
    };
    plan.walk(
        [&](const Plan::Row& row) {
            close();
            group = Side::makeGroup(row.key, row.label);
        },
        [&](const Plan::Row& row) { Side::add(*group, Side::makeLeaf(row)); });
    close();
    return root;
}

/// A root with a group, which has groups of 20 leaves: three levels down.
template <class Side>
std::unique_ptr<typename Side::Group> buildDeepTree(const Plan& plan)
{
    auto root = Side::makeGroup(QStringLiteral("ROOT"), QStringLiteral("Root"));
    Side::add(*root, buildTree<Side>(plan));
    return root;
}

/// A root with leaves and nothing between.
template <class Side>
std::unique_ptr<typename Side::Group> buildFlatTree(const Plan& plan)
{
    auto root = Side::makeGroup(QStringLiteral("TREE"), QStringLiteral("Tree"));
    for (const Plan::Row& row : plan.getLeaves())
        Side::add(*root, Side::makeLeaf(row));
    return root;
}

/// A tree that stays and is changed over and over, with its leaves at hand.
template <class Side>
class Tree
{
public:
    using Build = std::unique_ptr<typename Side::Group> (*)(const Plan&);

    /// The tree of this shape and size, made when it is first asked for.
    static Tree& shared(Build build, int leafCount)
    {
        static std::map<std::pair<Build, int>, Tree> trees;
        return trees.try_emplace({build, leafCount}, build, leafCount).first->second;
    }

    Tree(Build build, int leafCount) : _root(build(Plan::of(leafCount)))
    {
        _leaves.reserve(std::size_t(leafCount));
        Side::collectLeaves(*_root, _leaves);
    }

    typename Side::Group& getRoot() { return *_root; }
    const std::vector<typename Side::Leaf*>& getLeaves() const { return _leaves; }

    /// Another value at each call for some time: setting it is a change.
    double nextValue() { return _value = _value < 1000.0 ? _value + 0.25 : 1.0; }

private:
    std::unique_ptr<typename Side::Group> _root;
    std::vector<typename Side::Leaf*> _leaves;
    double _value = 1.0;
};
