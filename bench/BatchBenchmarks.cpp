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
    const qint64 changes = state.iterations() * state.range();
    require(state, observer.getChanges() == changes, "the observer has not heard of each change");
    require(state, observer.getRecords() == (Side::merges ? qint64(state.iterations()) : changes),
            "a batch has not arrived as one record");
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
void batchDeep(benchmark::State& state)
{
    changeInBatch<Side>(state, buildDeepTree<Side>);
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

/// Each leaf has an observer of its own, and every second of these dies as soon as its leaf has been set.
template <class Side>
void observerDeathsInBatch(benchmark::State& state)
{
    using Observer = typename Side::Observer;
    auto& tree = Tree<Side>::shared(buildTree<Side>, int(state.range()));
    const auto& leaves = tree.getLeaves();
    const Observer rootObserver(tree.getRoot());
    std::vector<std::unique_ptr<Observer>> observers(leaves.size());
    for (auto _ : state) {
        state.PauseTiming();
        for (std::size_t i = 0; i < leaves.size(); ++i)
            observers[i] = std::make_unique<Observer>(*leaves[i]);
        const double value = tree.nextValue();
        state.ResumeTiming();

        typename Side::Batch batch(&tree.getRoot());
        for (std::size_t i = 0; i < leaves.size(); ++i) {
            leaves[i]->setValue(value);
            if (i % 2 == 0)
                observers[i].reset();
        }
        batch.commit();
    }
    bool heard = rootObserver.getChanges() == state.iterations() * state.range();
    for (std::size_t i = 1; i < observers.size(); i += 2)
        heard = heard && observers[i]->getChanges() == 1;
    require(state, heard, "an observer has not heard of each change");
}

/// One leaf has all the observers, and every second of them dies when the leaf has been set.
template <class Side>
void observersOfOneDie(benchmark::State& state)
{
    using Observer = typename Side::Observer;
    const auto leaf = Side::makeLeaf(Plan::of(Plan::GroupSize).getLeaves().front());
    std::vector<std::unique_ptr<Observer>> observers(std::size_t(state.range()));
    double value = 1.0;
    for (auto _ : state) {
        state.PauseTiming();
        for (auto& observer : observers)
            observer.reset();
        for (auto& observer : observers)
            observer = std::make_unique<Observer>(*leaf);
        state.ResumeTiming();

        typename Side::Batch batch(leaf.get());
        leaf->setValue(value);
        value = 3.0 - value;
        for (std::size_t i = 0; i < observers.size(); i += 2)
            observers[i].reset();
        batch.commit();
    }
    bool heard = true;
    for (std::size_t i = 1; i < observers.size(); i += 2)
        heard = heard && observers[i]->getChanges() == 1;
    require(state, heard, "an observer has not heard of the change");
}

template <class Side>
void registerSide()
{
    const auto add = [](const char* work, void (*function)(benchmark::State&), int to) {
        addBenchmark<Side>(work, function)->RangeMultiplier(10)->Range(100, to);
    };
    add("batch, leaves below the root", batchFlat<Side>, 100'000);
    add("batch, leaves in groups", batchInGroups<Side>, 100'000);
    add("batch, leaves three levels down", batchDeep<Side>, 100'000);
    add("batch in which half of the leaves die", deathsInBatch<Side>, 10'000);
    add("batch in which half of the leaves' observers die", observerDeathsInBatch<Side>, 10'000);
    add("batch in which half of the observers of one leaf die", observersOfOneDie<Side>, 10'000);
    add("enable the root of a tree", deepNotify<Side>, 100'000);
}

} // namespace

void registerBatchBenchmarks()
{
    registerSide<Kestrin>();
    registerSide<Plain>();
}
