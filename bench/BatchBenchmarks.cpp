#include "Benchmarks.h"
#include "Kestrin.h"
#include "Plain.h"
#include "Tree.h"

namespace {

template <class Side>
void changeInBatch(benchmark::State& state, typename Tree<Side>::Build build)
{
    auto& tree = Tree<Side>::shared(build, int(state.range()));
    const typename Side::Observer observer(tree.getRoot());
    for (auto _ : state) {
        const double value = tree.nextValue();
        typename Side::Batch batch(&tree.getRoot());
        for (auto* leaf : tree.getLeaves())
            leaf->setValue(value);
        batch.commit();
    }
    require(state, observer.getChanges() == state.iterations() * state.range(),
            "the observer has not heard of each change");
}

template <class Side>
void batchFlat(benchmark::State& state)
{
    changeInBatch<Side>(state, buildFlatTree<Side>);
}

template <class Side>
void batchInGroups(benchmark::State& state)
{
    changeInBatch<Side>(state, buildTree<Side>);
}

template <class Side>
void deepNotify(benchmark::State& state)
{
    auto& tree = Tree<Side>::shared(buildTree<Side>, int(state.range()));
    const typename Side::Observer observer(tree.getRoot());
    for (auto _ : state)
        tree.getRoot().setEnabled(!tree.getRoot().getEnabledFlag());
    const qint64 nodes = state.range() + state.range() / Plan::GroupSize + 1;
    require(state, observer.getChanges() == state.iterations() * nodes, "the observer has not heard of each node");
}

/// All leaves are set, and every second one dies as soon as its group has been set.
template <class Side>
void deathsInBatch(benchmark::State& state)
{
    const Plan& plan = Plan::of(int(state.range()));
    for (auto _ : state) {
        state.PauseTiming();
        auto tree = std::make_unique<Tree<Side>>(buildTree<Side>, int(state.range()));
        auto observer = std::make_unique<typename Side::Observer>(tree->getRoot());
        state.ResumeTiming();

        typename Side::Batch batch(&tree->getRoot());
        for (std::size_t i = 0; i < plan.getLeaves().size(); i += Plan::GroupSize) {
            auto& group = Side::getGroup(tree->getRoot(), plan.getGroups()[i / Plan::GroupSize].key);
            for (std::size_t j = i; j < i + Plan::GroupSize; ++j)
                tree->getLeaves()[j]->setValue(tree->nextValue());
            for (std::size_t j = i; j < i + Plan::GroupSize; j += 2)
                Side::remove(group, plan.getLeaves()[j].key);
        }
        batch.commit();

        state.PauseTiming();
        require(state, observer->getChanges() > 0, "the observer has heard nothing");
        observer.reset();
        tree.reset();
        state.ResumeTiming();
    }
}

template <class Side>
void registerSide()
{
    const auto add = [](const char* work, void (*function)(benchmark::State&)) {
        addBenchmark<Side>(work, function)->RangeMultiplier(10)->Range(100, 100'000);
    };
    add("batch, leaves below the root", batchFlat<Side>);
    add("batch, leaves in groups", batchInGroups<Side>);
    add("batch in which half of the leaves die", deathsInBatch<Side>);
    add("enable the root of a tree", deepNotify<Side>);
}

} // namespace

void registerBatchBenchmarks()
{
    registerSide<Kestrin>();
    registerSide<Plain>();
}
