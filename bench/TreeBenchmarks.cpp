#include "Benchmarks.h"
#include "Dom.h"
#include "Kestrin.h"
#include "Plain.h"
#include "Texts.h"
#include "Tree.h"

#include <cmath>
#include <optional>

namespace {

template <class Side>
void build(benchmark::State& state)
{
    const Plan& plan = Plan::of(int(state.range()));
    std::optional<typename Side::Root> root;
    qint64 bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        root.reset();
        bytes = -Allocations::bytesInUse();
        state.ResumeTiming();

        root = Side::build(plan);

        state.PauseTiming();
        bytes += Allocations::bytesInUse();
        state.ResumeTiming();
    }
    state.counters["bytes"] = double(bytes) / double(state.range());
}

template <class Side>
void duplicate(benchmark::State& state)
{
    const typename Side::Root source = Side::build(Plan::of(int(state.range())));
    std::optional<typename Side::Root> copy;
    for (auto _ : state) {
        state.PauseTiming();
        copy.reset();
        state.ResumeTiming();
        copy = Side::duplicate(source);
    }
}

template <class Side>
void save(benchmark::State& state)
{
    const Plan& plan = Plan::of(int(state.range()));
    const typename Side::Root root = Side::build(plan);
    QByteArray text;
    for (auto _ : state)
        text = Side::save(*root);
    require(state, text == Dom::save(plan), "the text is not the one that all sides write");
}

template <>
void save<Dom>(benchmark::State& state)
{
    const Plan& plan = Plan::of(int(state.range()));
    for (auto _ : state)
        benchmark::DoNotOptimize(Dom::save(plan));
}

template <class Side>
void load(benchmark::State& state)
{
    const Plan& plan = Plan::of(int(state.range()));
    Texts texts(plan, Dom::save);
    Tree<Side> tree(buildTree<Side>, int(state.range()));
    bool loaded = true;
    for (auto _ : state)
        loaded = Side::load(tree.getRoot(), texts.next()) && loaded;
    loaded = Side::load(tree.getRoot(), Dom::save(plan, 2.0)) && loaded;
    const double last = tree.getLeaves().back()->getValue();
    require(state, loaded && std::abs(last - plan.getLeaves().back().value - 2.0) < 1e-6, "the text was not read");
}

template <>
void load<Dom>(benchmark::State& state)
{
    Texts texts(Plan::of(int(state.range())), Dom::save);
    double sum = 0.0;
    for (auto _ : state)
        sum = Dom::sum(texts.next());
    require(state, sum > 0.0, "the text was not read");
}

template <class Side>
void registerSide()
{
    const auto add = [](const char* work, void (*function)(benchmark::State&)) {
        addBenchmark<Side>(work, function)->RangeMultiplier(10)->Range(1'000, 100'000);
    };
    add("build a tree", build<Side>);
    add("duplicate a tree", duplicate<Side>);
    add("save a tree to text", save<Side>);
    add("load a tree from text", load<Side>);
}

} // namespace

void registerTreeBenchmarks()
{
    registerSide<Kestrin>();
    registerSide<Plain>();
    registerSide<Dom>();
}
