#pragma once

#include "PlainList.h"
#include "PlainNode.h"
#include "Plan.h"

#include <memory>
#include <vector>

/// QObject with properties and signals. Its texts are made and read by QDomDocument.
struct Plain
{
    using Plan = ::Plan;
    using Leaf = PlainLeaf;
    using Group = PlainGroup;
    using List = PlainList;
    using Root = std::unique_ptr<Group>;

    static constexpr bool merges = false;

    /// Signals know no batches.
    class Batch
    {
    public:
        explicit Batch(const PlainNode*) {}
        void commit() {}
    };

    /// Counts the changes that reach a node.
    class Observer
    {
    public:
        explicit Observer(const PlainNode& node)
            : _connection(QObject::connect(&node, &PlainNode::changed, [this] { ++_changes; }))
        {}
        ~Observer() { QObject::disconnect(_connection); }
        Observer(const Observer&) = delete;
        Observer& operator=(const Observer&) = delete;

        qint64 getRecords() const { return _changes; }
        qint64 getChanges() const { return _changes; }

    private:
        QMetaObject::Connection _connection;
        qint64 _changes = 0;
    };

    static constexpr const char* name = "qobject";

    static std::unique_ptr<Leaf> makeLeaf(const Plan::Row& row);
    static Root makeGroup(const QString& key, const QString& label);
    static void add(Group& group, std::unique_ptr<PlainNode> child) { group.add(child.release()); }
    static Group& getGroup(const Group& root, const QString& key) { return static_cast<Group&>(*root.getNode(key)); }
    static Leaf& getLeaf(const Group& root, const QString& group, const QString& leaf)
    {
        return static_cast<Leaf&>(*getGroup(root, group).getNode(leaf));
    }
    static double getValue(const Group& root, const QString& group, const QString& leaf)
    {
        return getLeaf(root, group, leaf).getValue();
    }
    static void setValue(const Group& root, const QString& group, const QString& leaf, double value)
    {
        getLeaf(root, group, leaf).setValue(value);
    }
    static void remove(Group& group, const QString& key) { group.remove(key); }
    static void collectLeaves(const Group& group, std::vector<Leaf*>& leaves);

    static Root build(const Plan& plan);
    static Root duplicate(const Root& root) { return Root(root->duplicate()); }
    static QByteArray save(const Group& root);
    /// Gives whether the text could be read.
    static bool load(Group& root, const QByteArray& text);
};
