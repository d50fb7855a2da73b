#include "Benchmarks.h"
#include "Kestrin.h"
#include "Plain.h"
#include "Tree.h"

namespace {

/// A leaf three levels below its root.
template <class Side>
class Chain
{
public:
    Chain() : _root(Side::makeGroup(QStringLiteral("ROOT"), QStringLiteral("Root")))
    {
        auto outer = Side::makeGroup(QStringLiteral("OUTER"), QStringLiteral("Outer"));
        auto inner = Side::makeGroup(QStringLiteral("INNER"), QStringLiteral("Inner"));
        auto leaf = Side::makeLeaf(Plan::of(Plan::GroupSize).getLeaves().front());
        _leaf = leaf.get();
        Side::add(*inner, std::move(leaf));
        Side::add(*outer, std::move(inner));
        Side::add(*_root, std::move(outer));
    }

    typename Side::Group& getRoot() { return *_root; }
    typename Side::Leaf& getLeaf() { return *_leaf; }

private:
    typename Side::Root _root;
    typename Side::Leaf* _leaf;
};

/// Each set is a change. The leaf must have another value than 1 before.
template <class Leaf>
void measureSets(benchmark::State& state, Leaf& leaf)
{
    double value = 1.0;
    for (auto _ : state) {
        leaf.setValue(value);
        value = 3.0 - value;
    }
    const qint64 before = Allocations::count();
    leaf.setValue(value);
    state.counters["allocations"] = double(Allocations::count() - before);
    require(state, leaf.getValue() == value, "the value was not set");
}

template <class Side>
void setAlone(benchmark::State& state)
{
    const auto leaf = Side::makeLeaf(Plan::of(Plan::GroupSize).getLeaves().front());
    measureSets(state, *leaf);
}

template <class Side>
void setObserved(benchmark::State& state)
{
    const auto leaf = Side::makeLeaf(Plan::of(Plan::GroupSize).getLeaves().front());
    const typename Side::Observer observer(*leaf);
    measureSets(state, *leaf);
    require(state, observer.getChanges() == state.iterations() + 1, "the observer has not heard of each change");
}

template <class Side>
void setDeep(benchmark::State& state)
{
    Chain<Side> chain;
    const typename Side::Observer observer(chain.getRoot());
    measureSets(state, chain.getLeaf());
    require(state, observer.getChanges() == state.iterations() + 1, "the observer has not heard of each change");
}

template <class Side>
void setDeepUnheard(benchmark::State& state)
{
    Chain<Side> chain;
    measureSets(state, chain.getLeaf());
}

template <class Side>
void registerSide()
{
    addBenchmark<Side>("set, nobody observes", setAlone<Side>);
    addBenchmark<Side>("set, one observer on the leaf", setObserved<Side>);
    addBenchmark<Side>("set three levels down, one observer at the root", setDeep<Side>);
    addBenchmark<Side>("set three levels down, nobody observes", setDeepUnheard<Side>);
}

} // namespace

void registerSetBenchmarks()
{
    registerSide<Kestrin>();
    registerSide<Plain>();
}
