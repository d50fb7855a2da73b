#pragma once

#include "Plan.h"

#include <param/atomic/KpaDouble.h>
#include <param/composite/KpcGroup.h>
#include <param/list/KplDoubleList.h>

#include <memory>
#include <vector>

/// The library.
struct Kestrin
{
    using Plan = ::Plan;
    using Leaf = KpaDouble;
    using Group = KpcGroup;
    using List = KplDoubleList;
    using Root = std::unique_ptr<Group>;
    using Batch = KuoLock<KpnModif>;

    /// A batch arrives as one record.
    static constexpr bool merges = true;

    /// Counts the records that reach a parameter, and the changes that are in them.
    class Observer : public KuoIObserver<KpnModif>
    {
    public:
        explicit Observer(const KpbAParameter& parameter) : _parameter(parameter) { _parameter.addObserver(this); }
        ~Observer() override { _parameter.removeObserver(this); }
        Observer(const Observer&) = delete;
        Observer& operator=(const Observer&) = delete;

        void update(const KpnModif& modif) override
        {
            ++_records;
            _changes += modif.getNumberOfModif();
        }
        qint64 getRecords() const { return _records; }
        qint64 getChanges() const { return _changes; }

    private:
        const KpbAParameter& _parameter;
        qint64 _records = 0;
        qint64 _changes = 0;
    };

    static constexpr const char* name = "kestrin";

    static std::unique_ptr<Leaf> makeLeaf(const Plan::Row& row);
    static Root makeGroup(const QString& key, const QString& label);
    static void add(Group& group, std::unique_ptr<KpbAParameter> child);
    static Group& getGroup(const Group& root, const QString& key) { return static_cast<Group&>(*root.getChild(key)); }
    static Leaf& getLeaf(const Group& root, const QString& group, const QString& leaf)
    {
        return static_cast<Leaf&>(*getGroup(root, group).getChild(leaf));
    }
    static double getValue(const Group& root, const QString& group, const QString& leaf)
    {
        return getLeaf(root, group, leaf).getValue();
    }
    static void setValue(const Group& root, const QString& group, const QString& leaf, double value)
    {
        getLeaf(root, group, leaf).setValue(value);
    }
    static void remove(Group& group, const QString& key) { group.deleteParameter(key); }
    static void collectLeaves(const KpbAParameter& parameter, std::vector<Leaf*>& leaves);

    static Root build(const Plan& plan);
    static Root duplicate(const Root& root) { return Root(root->duplicate(QString())); }
    static QByteArray save(const Group& root);
    /// Gives whether the text could be read.
    static bool load(Group& root, const QByteArray& text);
};
