#pragma once

#include <param/KpbAParameter.h>

#include <vector>

/// A leaf with nothing but a value that is told as text; its protected operations are open.
class TestLeaf : public KpbAParameter
{
public:
    explicit TestLeaf(const QString& key) : KpbAParameter(KpbEType::STRING, key) {}
    TestLeaf(const TestLeaf& other, const QString& newKey) : KpbAParameter(other, newKey) {}

    TestLeaf* duplicate(const QString& newKey) const override { return new TestLeaf(*this, newKey); }
    bool hasChildren() const override { return false; }
    int getChildCount() const override { return 0; }
    KpbAParameter* getChild(const QString&) const override { return nullptr; }
    KpbAParameter* getChild(int) const override { return nullptr; }
    SerialForm serialize() const override { return {{QStringLiteral("value"), QStringLiteral("text")}}; }
    void unserialize(const SerialForm&) override {}
    QString toString() const override { return QStringLiteral("text"); }

    using KpbAParameter::_deepNotify;
    using KpbAParameter::_notify;
    using KpbAParameter::_setAutoFlag;
    using KpbAParameter::_setAutomaticValueInitialized;
    using KpbAParameter::_trySetValueAuto;
};

/// A parent that only holds children: it owns none, and passes no record on.
class TestBranch : public TestLeaf
{
public:
    using TestLeaf::TestLeaf;

    void add(KpbAParameter& child)
    {
        child.setParent(this);
        _children.push_back(&child);
    }
    bool hasChildren() const override { return !_children.empty(); }
    int getChildCount() const override { return int(_children.size()); }
    KpbAParameter* getChild(const QString& key) const override
    {
        for (KpbAParameter* child : _children) {
            if (child->getKey() == key)
                return child;
        }
        return nullptr;
    }
    KpbAParameter* getChild(int index) const override
    {
        return index < 0 || index >= getChildCount() ? nullptr : _children[std::size_t(index)];
    }

private:
    std::vector<KpbAParameter*> _children;
};

/// A branch that passes the records of its children on, as composites do.
class RelayingBranch : public TestBranch, public KuoIObserver<KpnModif>
{
public:
    using TestBranch::TestBranch;

    ~RelayingBranch() override
    {
        for (const auto& child : _plugged) {
            if (child)
                child->removeObserver(this);
        }
    }

    void plug(KpbAParameter& child)
    {
        add(child);
        _plugged.emplace_back(&child);
        child.addObserver(this);
    }
    void update(const KpnModif& modif) override
    {
        KpnModif record(modif);
        record.append(this);
        notify(record);
    }

private:
    std::vector<KuoPointer<KpbAParameter>> _plugged;
};
